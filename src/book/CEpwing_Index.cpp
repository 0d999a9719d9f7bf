// From a key to the leaf level of an index. Tests: tests/book/IndexTest.cpp
#include <algorithm>
#include <cstring>

#include "book/CEpwing.h"
#include "book/ItemAddress.h"
#include "foundation/ByteReader.h"
#include "foundation/KanjiConversion.h"
#include "foundation/StringType.h"

namespace zavel::book {
namespace {

using foundation::_avltree;

constexpr size_t kShortestKey = 4;      // method tag and one character
constexpr size_t kLongestRawKey = 254;  // whole characters
constexpr uint32_t kVowelPasses = 6;
constexpr int kMostInnerBlocks = 4096;  // a child that leads back would never end

const uint8_t* bytesOf(const char* text) {
  return reinterpret_cast<const uint8_t*>(text);
}

template <size_t N>
void keep(std::string_view text, std::array<char, N>* out) {
  const size_t length = std::min(text.size(), kLongestRawKey) & ~size_t{1};
  std::memcpy(out->data(), text.data(), length);
  (*out)[length] = '\0';
}

bool isDirect(uint16_t kind) {
  const int high = lowByte(kind) >> 4;
  return high == 0xB || high == 0xC;
}

}  // namespace

BookStatus CEpwing::Fp_SearchSingleKey(const char* key, _avltree** tree, _SDICITEMADDRESS* firstHit) {
  if (!key || !tree || !firstHit) return kInvalidArgument;
  *tree = nullptr;
  return Fp_SearchSingleKeySub(key, tree, firstHit);
}

BookStatus CEpwing::Fp_SearchSingleKeySub(const char* key, _avltree** tree, _SDICITEMADDRESS* firstHit) {
  m_vowelPass = 0;
  bool again = false;
  do {
    if (const BookStatus status = Fp_InitIndexSearch(key, &again)) return status;
    HitTree pass;
    if (const BookStatus status = searchOnePass(pass.address(), firstHit)) return status;
    if (*tree) {
      _avltree* both = nullptr;
      if (const BookStatus status = Fp_CompositeTree(*tree, pass.get(), false, &both)) return status;
      pass.reset(*tree);
      *tree = both;
    } else {
      *tree = pass.release();
    }
  } while (again && m_vowelPass < kVowelPasses);
  return kDone;
}

BookStatus CEpwing::searchOnePass(_avltree** tree, _SDICITEMADDRESS* firstHit) {
  int result;
  do {
    _SDICITEMADDRESS hit{};
    result = Fp_SearchBottomLevel(&hit);
    if ((result & kScanHit) == 0) continue;
    if (!*tree) *firstHit = hit;
    if (!addHit(tree, hit)) return kOutOfMemory;
  } while ((result & kScanGoOn) != 0);
  return kDone;
}

BookStatus CEpwing::Fp_InitIndexSearch(const char* key, bool* again) {
  const std::string_view text = key;
  if (text.size() < kShortestKey) return kBadKey;
  const bool field = readBE16(bytesOf(key)) == kTokenField;
  if (const BookStatus status = field ? initFieldSearch(text) : initWordSearch(text, again)) return status;
  if (m_searchKey[0] == '\0') return kBadKey;
  Fp_MakeCheckContinueKey();
  m_nextBlock = m_index.start;
  if (!isDirect(m_index.kind)) return walkToLeaf();
  m_scanState = 6;
  return kDone;
}

// The key of a multi search's entry isn't normalised: the index has its keys as the form's choices have them.
BookStatus CEpwing::initFieldSearch(std::string_view key) {
  if (m_multiCount == 0) return kNotAvailable;
  const _EPMULTISEARCHBLOCK* const block = multiBlock(m_multiSelected);
  const uint16_t number = static_cast<uint16_t>(readBE16(bytesOf(key.data()) + 2) - kTokenZero);
  if (!block || number >= block->entries.size()) return kInvalidArgument;
  const _EPBOOKCONTROLENTRY* chosen = nullptr;
  for (const _EPBOOKCONTROLENTRY& entry : block->entries[number].subEntries) {
    if (entry.kind == kKindDirect1 || entry.kind == kKindDirect2 || entry.kind == kKindGrouped) {
      chosen = &entry;
      m_bPrefixMatch = false;
    } else if (!chosen && entry.kind == kKindForward) {
      chosen = &entry;
      m_bPrefixMatch = true;
    }
  }
  if (!chosen) return kNotAvailable;
  m_index = *chosen;
  keep(key.substr(kShortestKey), &m_rawKey);
  m_searchKey = m_rawKey;
  return kDone;
}

// A backward key that begins with the long vowel mark stands for six keys, one for each pass.
BookStatus CEpwing::initWordSearch(std::string_view key, bool* again) {
  if (!Fp_SelectKeyIndex(key.data())) return kNotAvailable;
  keep(key.substr(2), &m_rawKey);
  const bool backward = readBE16(bytesOf(key.data())) == kTokenBackward;
  *again = backward && (m_index.flag1 & 3) == 0 && readBE16(bytesOf(m_rawKey.data())) == kLongVowelMark;
  if (*again) ++m_vowelPass;
  Fp_FormatKeyString(m_searchKey.data(), m_rawKey.data(), *again);
  if (backward) foundation::InvertDBCSString(m_rawKey.data());
  return kDone;
}

BookStatus CEpwing::walkToLeaf() {
  for (int walked = 0; walked < kMostInnerBlocks; ++walked) {
    if (!Fp_ReadBlock(m_nextBlock++, 0)) return kReadFailed;
    const uint8_t* const block = m_blockPtr[0];
    m_blockFlags = block[0];
    if ((m_blockFlags & kIndexLeaf) != 0) {
      m_groupMiss = 1;
      m_scanState = 1;
      return kDone;
    }
    bool found = false;
    if (const BookStatus status = childFor(block, &m_nextBlock, &found)) return status;
    if (!found && (m_blockFlags & kIndexLast) != 0) return kBroken;
  }
  return kBroken;
}

// The block below an inner one where the key belongs. None found leaves `child` as it is: the next inner
// block then has it.
BookStatus CEpwing::childFor(const uint8_t* block, uint32_t* child, bool* found) {
  const size_t keyLength = block[1];
  if (keyLength == 0) return kBroken;
  const size_t recordSize = keyLength + 4;
  const size_t count = readBE16(block + 2);
  m_bIsAlreadyEqual = false;
  for (size_t i = 0; i < count; ++i) {
    const size_t at = kIndexHeader + i * recordSize;
    if (at + recordSize > kBlock) return kBroken;
    const char* const entry = reinterpret_cast<const char*>(block + at);
    if (Fp_CompareKey(m_searchKey.data(), entry, keyLength, m_vowelPass, kFoldCase) > 0) continue;
    // An entry that the key goes on behind may have the key's own entries below it already.
    const size_t record = m_bIsAlreadyEqual && i > 0 ? at - recordSize : at;
    *child = readBE32(block + record + keyLength);
    *found = true;
    return kDone;
  }
  return kDone;
}

bool CEpwing::selectFirst(std::initializer_list<uint16_t> kinds) {
  for (const uint16_t kind : kinds) {
    const int entry = kind == 0 ? -1 : Fp_FindBookControlEntry(lowByte(kind));
    if (entry < 0) continue;
    m_index = m_entries[static_cast<size_t>(entry)];
    return true;
  }
  return false;
}

bool CEpwing::Fp_SelectKeyIndex(const char* key) {
  m_bPrefixMatch = false;
  const int type = foundation::GFnGetStringType(key + 2);
  const bool kana = type == foundation::kStringKana;
  const bool letters = type == foundation::kStringAlphabetic;
  const auto fitting = [&](uint16_t forKana, uint16_t forLetters) -> uint16_t {
    return kana ? forKana : letters ? forLetters : 0;
  };
  const auto other = [&](uint16_t kind) -> uint16_t { return m_bAltWordKinds ? kind : 0; };
  switch (readBE16(bytesOf(key))) {
    case kTokenExact:
      return selectFirst({fitting(kKindExactKana, kKindExactAlphabetic),
                          other(fitting(kKindForwardKana, kKindForwardAlphabetic)), kKindExact,
                          other(kKindForward)});
    case kTokenForward:
      m_bPrefixMatch = true;
      return selectFirst({fitting(kKindForwardKana, kKindForwardAlphabetic), kKindForward});
    case kTokenBackward:
      m_bPrefixMatch = true;
      return selectFirst({fitting(kKindBackwardKana, kKindBackwardAlphabetic), kKindBackward});
    case kTokenCross:
      return selectFirst({kKindCross});
    case kTokenKeyword:
      return selectFirst({kKindKeyword});
    default:
      return false;
  }
}

}  // namespace zavel::book
