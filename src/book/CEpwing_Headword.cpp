// Headwords: the beginning of a text, without what a list can't show. Tests: tests/book/HeadwordTest.cpp
#include <algorithm>
#include <array>
#include <cstring>

#include "book/Address.h"
#include "book/CEpwing.h"
#include "book/JisCode.h"
#include "book/OutBuffer.h"

namespace zavel::book {
namespace {

constexpr size_t kLongestHeadword = 253;  // one more character may still be begun
constexpr uint64_t kLongestWalk = 1u << 20;

constexpr uint32_t kBookWithoutReferenceArgument1 = 0x130;
constexpr uint32_t kBookWithoutReferenceArgument2 = 0x13D;
constexpr uint32_t kBookOfShortSounds = 0x12C;
constexpr uint32_t kBookOfShortStyles = 0x92;
constexpr uint32_t kBookOfMarkers = 0x135;
constexpr uint32_t kBookOfDiamonds = 0x91;
constexpr uint32_t kBookOfPatches = 139;

constexpr uint16_t kClosingBrackets[] = {0x214B, 0x214D, 0x214F, 0x2151, 0x2153,
                                         0x2155, 0x2157, 0x2159, 0x215B};

// What book 0x135 writes for brackets around readings, in JIS, and the brackets.
struct Marker {
  std::string_view text;
  uint16_t replacement;
};
constexpr Marker kMarkers[] = {
    {"\x25\x6B\x25\x53\x23\x47\x33\x2B", 0x214A}, {"\x25\x6B\x25\x53\x23\x47\x3D\x2A", 0x214B},
    {"\x4F\x22\x42\x79\x33\x2B", 0x223A},         {"\x4F\x22\x42\x79\x3D\x2A", 0x223B},
    {"\x4E\x72\x3B\x4B\x32\x3E\x33\x2B", 0x2179}, {"\x4E\x72\x3B\x4B\x32\x3E\x3D\x2A", 0x217A}};
constexpr size_t kMarkerSpan = 10;
constexpr uint16_t kNoMarkerHere = 0x3E4A;

void putCode(uint16_t code, char* out) {
  out[0] = static_cast<char>(code >> 8);
  out[1] = static_cast<char>(code);
}

}  // namespace

class CEpwing::HeadwordWalk {
 public:
  HeadwordWalk(CEpwing* book, const _SDICADDRESS& start, bool plain)
      : book_(book), start_(start), plain_(plain) {}

  BookStatus run() {
    while (length_ <= kLongestHeadword && !stop_) {
      if (passed_ > kLongestWalk) return kBroken;
      uint16_t word;
      if (!read(0, &word)) return kReadFailed;
      if (word >= kFirstCharacter) {
        character(word);
      } else if (!tag(word)) {
        return kReadFailed;
      }
    }
    return kDone;
  }

  // The text up to the note behind it, with one bracket that closes it.
  std::string_view text() const {
    if (cut_ == 0) return {text_.data(), length_};
    const bool bracket = cut_ + 2 <= length_ && cut_ < 0xFE &&
                         std::find(std::begin(kClosingBrackets), std::end(kClosingBrackets),
                                   codeAt(text_.data() + cut_)) != std::end(kClosingBrackets);
    return {text_.data(), cut_ + (bracket ? 2 : 0)};
  }

 private:
  bool read(uint64_t behind, uint16_t* word) {
    return book_->readWord(further(start_, passed_ + behind), word);
  }

  void append(uint16_t word) {
    if (length_ + 2 > text_.size()) return;
    putCode(word, text_.data() + length_);
    length_ += 2;
  }

  void character(uint16_t word) {
    append(word);
    previous_ = 0;
    if (word != kFullWidthBlank) seen_ = true;
    passed_ += 2;
  }

  // False where what belongs to the tag can't be read.
  bool tag(uint16_t word) {
    uint64_t size = 2;
    bool readable = true;
    switch (word) {
      case 0:
      case kTagEnd:
      case kTagLineFeed:
      case kTagMenuItem:
        stop_ = seen_;
        break;
      case kTagHalfOn:
      case kTagSubOn:
      case kTagSuperOn:
      case kTagEmphasisOn:
        turnOn(word);
        break;
      case kTagHalfOff:
      case kTagSubOff:
      case kTagUnicodeOn:
      case kTagUnicodeOff:
      case kTagSuperOff:
      case kTagEmphasisOff:
      case kTagStyleOff:
        append(word);
        break;
      case kTagMonoPicture:
      case 0x1F48:
      case kTagColorPicture:
        stop_ = seen_;
        readable = sizeOf(word, &size);
        break;
      case kTagReference:
        size = reference();
        break;
      case kTagKeywordEnd:
        if (seen_) cut_ = length_;
        break;
      case kTagAuxOn:
        if (!plain_) append(word);
        size = 4;
        break;
      case kTagAuxOff:
        if (!plain_) append(word);
        break;
      default:
        readable = sizeOf(word, &size);
    }
    passed_ += size;
    previous_ = word;
    if (word == kTagAuxOn && book_->m_dicID == kBookOfMarkers) return replaceMarker();
    return readable;
  }

  // What was just turned off and goes on at once was never off.
  void turnOn(uint16_t word) {
    if (previous_ == word + 1 && length_ >= 2) {
      length_ -= 2;
    } else {
      append(word);
    }
  }

  uint64_t reference() {
    const uint32_t book = book_->m_dicID;
    if (book == kBookWithoutReferenceArgument1 || book == kBookWithoutReferenceArgument2) return 2;
    stop_ = seen_;
    return 4;
  }

  // The first marker up to the closing tag is replaced, and the rest ahead of that tag passed over.
  bool replaceMarker() {
    bool found = false;
    for (uint64_t at = 0; scanned_ < kLongestWalk; at += 2, scanned_ += 2) {
      uint16_t word;
      if (!read(at, &word)) return false;
      char span[kMarkerSpan] = {};
      const _SDICADDRESS here = further(start_, passed_ + at);
      book_->Fp_ReadBook(&here, sizeof span, span);  // at the end of the book as much of it as there is
      if (codeAt(span) == kNoMarkerHere) return true;
      if (codeAt(span) == kTagAuxOff) {
        passed_ += at;
        return true;
      }
      for (const Marker& marker : kMarkers) {
        if (found || !std::string_view(span, sizeof span).starts_with(marker.text)) continue;
        append(marker.replacement);
        found = true;
      }
    }
    return false;
  }

  bool sizeOf(uint16_t word, uint64_t* size) {
    uint16_t next = 0;
    if (word != kTagSound && word != 0x1F4E && word != kTagMovieToo && word != kTagStyleOn) {
      *size = fixedSize(word);
      return true;
    }
    if (!read(word == kTagMovieToo ? 34 : 2, &next)) return false;
    const uint16_t form = next & 0xF00;
    if (word == kTagSound) {
      *size = form == 0x100 || form == 0x200 ? (book_->m_dicID == kBookOfShortSounds ? 18 : 20)
              : form == 0                    ? 18
                                             : 4;
    } else if (word == 0x1F4E) {
      *size = form == 0x100 || form == 0x200 ? 42 : form == 0 ? 40 : 4;
    } else if (word == kTagMovieToo) {
      *size = next == 0x1F6F ? 50 : 36;
    } else {
      *size = book_->m_dicID == kBookOfShortStyles && next == kTagHalfOn ? 2 : 4;
    }
    return true;
  }

  static uint64_t fixedSize(uint16_t word) {
    switch (word) {
      case 0x1F09:
      case 0x1F1A:
      case 0x1F1B:
      case 0x1F1C:
      case 0x1F1D:
      case 0x1F1E:
      case 0x1F3A:
      case 0x1F41:
      case 0x1F4C:
      case 0x1FE4:
      case 0x1FE6:
        return 4;
      case 0x1F4B:
      case 0x1F62:
      case 0x1F63:
      case 0x1F64:
        return 8;
      case 0x1F44:
      case 0x1F48:
        return 12;
      case 0x1F36:
      case 0x1F37:
      case 0x1F49:
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
  bool plain_;
  std::array<char, 256> text_{};
  size_t length_ = 0;
  size_t cut_ = 0;  // where a note begins; 0 for none
  uint64_t passed_ = 0;
  uint64_t scanned_ = 0;   // bytes looked at for markers, which may be looked at again
  uint16_t previous_ = 0;  // the tag just passed, 0 behind a character
  bool seen_ = false;      // a character that isn't blank
  bool stop_ = false;
};

BookStatus CEpwing::Fn_GetHeadword(const _SDICADDRESS* address, char** text, uint16_t* length, bool plain) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !text || !length) return kInvalidArgument;
  const _SDICADDRESS start = normalised(*address);
  HeadwordWalk walk(this, start, plain);
  if (const BookStatus status = walk.run()) return status;
  const std::string_view found = walk.text();
  char* const out = copyOut(found);  // the two zero bytes are among those behind it
  if (!out) return kOutOfMemory;
  if (m_dicID == kBookOfDiamonds && found.size() >= 8 && codeAt(out) == kTokenBackward) {
    std::memmove(out, out + 4, found.size() - 4);
    putCode(0x2144, out + found.size() - 6);
    putCode(kFullWidthBlank, out + found.size() - 4);
    putCode(kFullWidthBlank, out + found.size() - 2);
  }
  if (m_dicID == kBookOfPatches && start.block == 25 && start.offset == 1550 && found.size() > 7) {
    out[5] = 'E';
    out[7] = 'D';
  }
  *text = out;
  *length = static_cast<uint16_t>(found.size() + 2);
  return kDone;
}

BookStatus CEpwing::Fn_TruncateHeadword(const char* text, char** out, uint32_t characters) {
  if (!m_bOpened) return kNotOpen;
  if (!text || !out) return kInvalidArgument;
  struct Style {
    uint16_t on;
    uint16_t off;
    bool open;
  };
  // kept: emphasis counts as begun, so that a text without it gains its end (docs/quirks.md)
  Style styles[] = {{kTagHalfOn, kTagHalfOff, false},
                    {kTagSuperOn, kTagSuperOff, false},
                    {kTagSubOn, kTagSubOff, false},
                    {kTagEmphasisOn, kTagEmphasisOff, true}};
  std::string copy;
  for (uint32_t counted = 0; copy.size() < 256; text += 2) {
    if (text[0] == '\0' || text[1] == '\0') break;
    const uint16_t word = codeAt(text);
    if (word >= kFirstCharacter && counted++ == characters) break;
    copy.append(text, 2);
    for (Style& style : styles) style.open = word == style.on || (style.open && word != style.off);
  }
  for (const Style& style : styles) {
    if (!style.open) continue;
    copy += static_cast<char>(style.off >> 8);
    copy += static_cast<char>(style.off);
  }
  *out = copyOut(copy);
  return *out ? kDone : kOutOfMemory;
}

}  // namespace zavel::book
