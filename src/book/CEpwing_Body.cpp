// Bodies of entries: a text has no stored length, so that its tags are walked to its end.
// Tests: tests/book/BodyTest.cpp
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "book/Address.h"
#include "book/CEpwing.h"
#include "book/OutBuffer.h"
#include "foundation/ByteReader.h"

namespace zavel::book {
namespace {

// More than any book's entry: a text whose end is missing would be walked to the end of the book.
constexpr uint32_t kLongestBody = 64u << 20;
// More than any book's picture or sound.
constexpr uint64_t kLargestData = 256u << 20;

constexpr uint32_t kHookedBook = 120;
constexpr uint32_t kBookOfPatches = 139;
constexpr uint32_t kBookOfPlainKeywords = 101;
constexpr uint32_t kBookOfTexts = 102;

constexpr uint32_t kMovieMark = 34;  // bytes behind the tag
constexpr uint16_t kMovieMarkWord = 0x1F6F;

bool startsEntry(uint16_t argument) {
  return (argument & 0xF00) <= 0x100;
}

// Where a known fault in a published book is, and what belongs there.
struct Patch {
  _SDICADDRESS entry;
  uint32_t offset;
  std::string_view bytes;
};

constexpr std::string_view kE("E", 1), kD("D", 1), kFourZeroes("\0\0\0\0", 4), kLineFeed("\x1F\x0A", 2);
constexpr Patch kPatches[] = {
    {{25, 1550}, 13, kE},          {{25, 1550}, 15, kD},           {{25, 1550}, 99, kE},
    {{25, 1550}, 101, kD},         {{1871, 618}, 28, kFourZeroes}, {{1871, 826}, 28, kFourZeroes},
    {{1915, 1592}, 46, kLineFeed},
};

void patch(const _SDICADDRESS& entry, char* bytes, uint32_t length) {
  for (const Patch& fault : kPatches) {
    const bool here = fault.entry.block == entry.block && fault.entry.offset == entry.offset;
    if (!here || fault.offset + fault.bytes.size() > length) continue;
    std::memcpy(bytes + fault.offset, fault.bytes.data(), fault.bytes.size());
  }
}

}  // namespace

bool CEpwing::readWord(const _SDICADDRESS& address, uint16_t* word) {
  uint8_t bytes[2];
  if (!Fp_ReadBook(&address, sizeof bytes, bytes)) return false;
  *word = readBE16(bytes);
  return true;
}

BookStatus CEpwing::readOut(const _SDICADDRESS& address, uint64_t size, char** bytes) {
  if (size > kLargestData || !holds(address, size)) return kReadFailed;
  char* const out = allocateOut(static_cast<size_t>(size));
  if (!out) return kOutOfMemory;
  if (!Fp_ReadBook(&address, static_cast<int64_t>(size), out)) {
    std::free(out);
    return kReadFailed;
  }
  *bytes = out;
  return kDone;
}

// Walks one entry's words.
class CEpwing::BodyWalk {
 public:
  BodyWalk(CEpwing* book, const _SDICADDRESS& start, bool mode) : book_(book), start_(start), mode_(mode) {}

  // Bytes up to the entry's end, 0 where a word can't be read.
  uint32_t measure() {
    while (length_ < kLongestBody) {
      uint16_t word;
      if (!read(0, &word)) return 0;
      if (word >= kFirstCharacter) {
        ++chars_;
        lastChar_ = word;
        length_ += 2;
      } else if (word == kTagEnd) {
        return length_ + 2;
      } else if (!pass(word)) {
        return 0;
      } else if (ended_) {
        return length_;
      }
    }
    return 0;
  }

 private:
  bool read(uint32_t behind, uint16_t* word) {
    return book_->readWord(further(start_, uint64_t{length_} + behind), word);
  }

  // False where an argument can't be read.
  bool pass(uint16_t tag) {
    if (tag == kTagKeyword) return passKeyword();
    if (tag == kTagKeywordEnd && book_->m_dicID == kBookOfPlainKeywords && !mode_) return passKeywordEnd();
    if (tag == kTagIndent) {
      indentAt_ = length_;
      hasIndent_ = true;
    }
    uint32_t size = 0;
    if (!sizeOf(tag, &size)) return false;
    length_ += size;
    return true;
  }

  bool passKeyword() {
    uint16_t argument;
    if (!read(2, &argument)) return false;
    const bool counts = mode_ || (book_->m_dicID != kBookOfPlainKeywords && book_->m_dicID != kBookOfTexts);
    if (!counts || !startsEntry(argument) || chars_ < 2) {
      length_ += 4;
      return true;
    }
    ended_ = true;
    if (hasIndent_ && length_ + 4 == indentAt_ + 8) {
      length_ -= 4;
    } else if (lastChar_ == kOpeningBracket) {
      length_ -= 2;
    }
    return true;
  }

  bool passKeywordEnd() {
    uint16_t next = 0;
    if (saw61_ && !read(2, &next)) return false;
    ended_ = saw61_ && next == kTagIndent;
    saw61_ = true;
    if (!ended_) length_ += 2;
    return true;
  }

  bool sizeOf(uint16_t tag, uint32_t* size) {
    uint16_t argument = 0;
    switch (tag) {
      case 0x1F4A:
      case 0x1F4E: {
        if (!read(2, &argument)) return false;
        const uint32_t longest = tag == 0x1F4A ? 18 : 42;
        const uint16_t form = argument & 0xF00;
        *size = form == 0x100 || form == 0x200 ? longest : form == 0 ? longest - 2 : 4;
        return true;
      }
      case 0x1F4F:
        if (!read(kMovieMark, &argument)) return false;
        *size = argument == kMovieMarkWord ? 50 : 36;
        return true;
      default:
        *size = fixedSize(tag);
        return true;
    }
  }

  static uint32_t fixedSize(uint16_t tag) {
    switch (tag) {
      case 0x1F09:
      case 0x1F1A:
      case 0x1F1B:
      case 0x1F1C:
      case 0x1F1D:
      case 0x1F1E:
      case 0x1F3A:
      case 0x1F42:
      case 0x1F4C:
      case 0x1FE0:
      case 0x1FE2:
      case 0x1FE4:
      case 0x1FE6:
        return 4;
      case 0x1F4B:
      case 0x1F62:
      case 0x1F63:
      case 0x1F64:
        return 8;
      case 0x1F37:
      case 0x1F44:
      case 0x1F48:
      case 0x1F49:
        return 12;
      case 0x1F36:
        return 14;
      case 0x1F3C:
      case 0x1F4D:
        return 20;
      case 0x1F39:
        return 46;
      default:
        return 2;
    }
  }

  CEpwing* book_;  // borrowed
  _SDICADDRESS start_;
  bool mode_;
  uint32_t length_ = 0;
  uint32_t chars_ = 0;
  uint16_t lastChar_ = 0;
  uint32_t indentAt_ = 0;
  bool hasIndent_ = false;
  bool saw61_ = false;
  bool ended_ = false;
};

uint32_t CEpwing::Fp_GetBodyLength(const _SDICADDRESS* address, bool mode) {
  return BodyWalk(this, normalised(*address), mode).measure();
}

BookStatus CEpwing::Fn_GetBodyData(const _SDICADDRESS* address, char** bytes, uint32_t* length) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !bytes || !length) return kInvalidArgument;
  if (m_dicID == kHookedBook && _meikyoBodyData) {
    *bytes = nullptr;
    _meikyoBodyData(address, bytes, length);
    if (*bytes) return kDone;
  }
  const uint32_t size = Fp_GetBodyLength(address, kWalkOfCallers);
  if (size == 0) return kReadFailed;
  if (const BookStatus status = readOut(*address, size, bytes)) return status;
  if (m_dicID == kBookOfPatches) patch(normalised(*address), *bytes, size);
  *length = size;
  return kDone;
}

}  // namespace zavel::book
