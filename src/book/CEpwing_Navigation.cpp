// From entry to entry. Tests: tests/book/NavigationTest.cpp
#include "book/Address.h"
#include "book/CEpwing.h"

namespace zavel::book {
namespace {

constexpr uint32_t kBookOfPlainKeywords = 101;
constexpr uint32_t kBookOfTexts = 102;
constexpr uint32_t kBookWithTail = 300;
constexpr uint32_t kTailBlock = 24449;
constexpr uint32_t kTailOffset = 1291;

constexpr uint32_t kLongestGap = 64u << 20;  // bytes between entries; more than any book has

bool isBetweenEntries(uint16_t word) {
  return word == 0 || word == kTagBegin || word == kTagEnd || word == kTagLineFeed;
}

bool isInTail(const _SDICADDRESS& at) {
  return at.block > kTailBlock || (at.block == kTailBlock && at.offset > kTailOffset);
}

}  // namespace

// The first word behind an entry that begins something.
BookStatus CEpwing::skipToEntry(_SDICADDRESS at, bool zenbun, _SDICADDRESS* next) {
  for (uint32_t passed = 0; passed < kLongestGap; passed += 2) {
    if (at.block > m_honbunEnd) return kNoFurtherEntry;
    if (zenbun && m_dicID == kBookWithTail && isInTail(at)) return kNoFurtherEntry;
    uint16_t word;
    if (!readWord(at, &word)) return kReadFailed;
    if (!isBetweenEntries(word)) {
      *next = at;
      return kDone;
    }
    at = further(at, 2);
  }
  return kBroken;
}

BookStatus CEpwing::Fn_GetNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !next) return kInvalidArgument;
  const uint32_t length = Fp_GetBodyLength(address, kWalkOfCallers);
  if (length == 0) return kReadFailed;
  uint16_t last;
  if (!readWord(further(*address, length - 2), &last)) return kReadFailed;
  if (last == kTagEnd) return kNoFurtherEntry;
  return skipToEntry(further(*address, length), false, next);
}

BookStatus CEpwing::Fn_GetZenbunNextEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* next) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !next) return kInvalidArgument;
  const _SDICADDRESS start = normalised(*address);
  if (start.block < m_honbunStart || start.block > m_honbunEnd) return kNoFurtherEntry;
  const uint32_t length = Fp_GetBodyLength(address, kWalkOfCallers);
  if (length == 0) return kReadFailed;
  return skipToEntry(further(start, length), true, next);
}

// Walks back to the start of an entry's keyword, and from there to the start of the entry.
class CEpwing::BackwardWalk {
 public:
  BackwardWalk(CEpwing* book, const _SDICADDRESS& start, bool zenbun)
      : book_(book), at_(start), zenbun_(zenbun) {}

  BookStatus run(_SDICADDRESS* found) {
    const bool text = book_->m_dicID == kBookOfTexts;
    if (text && at_.offset != 0) at_.offset -= 2;
    for (uint32_t passed = 0; passed < kLongestGap; passed += 2) {
      if (!stepBack()) return kNoFurtherEntry;
      uint16_t word;
      if (!book_->readWord(at_, &word)) return kReadFailed;
      if (passed == 0 && !zenbun_ && word == kTagBegin) return kNoFurtherEntry;
      bool starts = text && word == kTagBegin;
      if (!text && word == kTagKeyword && !isKeyword(&starts)) return kReadFailed;
      if (starts) {
        *found = entryStart();
        return kDone;
      }
    }
    return kBroken;
  }

 private:
  bool stepBack() {
    if (at_.offset >= 2) {
      at_.offset -= 2;
      return true;
    }
    if (at_.block <= book_->m_honbunStart) return false;
    at_ = {at_.block - 1, kBlock - 2};
    return true;
  }

  // The word `bytes` ahead of the place. 0 where that isn't in the body any more.
  uint16_t wordAhead(uint32_t bytes) const {
    const _SDICADDRESS place = ahead(bytes);
    uint16_t word = 0;
    if (place.block < book_->m_honbunStart || !book_->readWord(place, &word)) return 0;
    return word;
  }

  _SDICADDRESS ahead(uint32_t bytes) const {
    if (at_.offset >= bytes) return {at_.block, at_.offset - bytes};
    return {at_.block - 1, static_cast<uint32_t>(at_.offset + kBlock - bytes)};
  }

  bool onlyIndented() const { return zenbun_ && book_->m_dicID == kBookOfPlainKeywords; }

  bool isKeyword(bool* starts) const {
    uint16_t argument;
    if (!book_->readWord(further(at_, 2), &argument)) return false;
    *starts = (argument & 0xF00) <= 0x100;
    if (*starts && onlyIndented()) {
      const uint16_t before = wordAhead(6);
      *starts = wordAhead(4) == kTagIndent && (before == kTagLineFeed || before == kTagBegin);
    }
    return true;
  }

  _SDICADDRESS entryStart() const {
    if (wordAhead(4) == kTagIndent) return ahead(4);
    if (wordAhead(2) != kOpeningBracket) return at_;
    return wordAhead(6) == kTagIndent ? ahead(6) : ahead(4);
  }

  CEpwing* book_;  // borrowed
  _SDICADDRESS at_;
  bool zenbun_;
};

BookStatus CEpwing::Fn_GetPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !previous || (address->offset & 1) != 0) return kInvalidArgument;
  return BackwardWalk(this, normalised(*address), false).run(previous);
}

BookStatus CEpwing::Fn_GetZenbunPrevEntryAddress(const _SDICADDRESS* address, _SDICADDRESS* previous) {
  if (!m_bOpened) return kNotOpen;
  if (!address || !previous || (address->offset & 1) != 0) return kInvalidArgument;
  const _SDICADDRESS start = normalised(*address);
  if (start.block < m_honbunStart || start.block > m_honbunEnd) return kNoFurtherEntry;
  return BackwardWalk(this, start, true).run(previous);
}

}  // namespace zavel::book
