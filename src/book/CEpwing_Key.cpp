// What an index makes of a key, and how a key is compared with an index's entries.
// Tests: tests/book/KeyTest.cpp, tests/book/IndexTest.cpp
#include "book/CEpwing.h"
#include "book/IndexKey.h"
#include "book/JisCode.h"

namespace zavel::book {

void CEpwing::Fp_FormatKeyString(char* out, const char* in, bool keepFirstMark) const {
  formatIndexKey(m_index, out, in, keepFirstMark);
}

void CEpwing::Fp_MakeCheckContinueKey() {
  char* out = m_continueKey.data();
  for (const char* in = m_searchKey.data(); !atEnd(in); in += 2) {
    uint16_t code = codeAt(in);
    if (isPassedOver(code)) continue;
    if (m_vowelPass != 0 && code == kLongVowelMark) code = static_cast<uint16_t>(0x2520 + 2 * m_vowelPass);
    appendCode(foldDown(code), &out);
  }
  *out = '\0';
}

int CEpwing::Fp_CompareKey(const char* key, const char* entry, size_t entryLength, uint32_t vowelPass,
                           uint32_t flags) const {
  if (m_bKill) return 0;
  const char* const end = entry + (entryLength & ~size_t{1});
  while (!atEnd(key)) {
    const bool entryHadEnded = entry == end;
    if (!entryHadEnded) {
      while ((flags & kSkipInKey) != 0 && !atEnd(key) && isPassedOver(codeAt(key))) key += 2;
      if (atEnd(key)) break;
      while ((flags & kSkipInEntry) != 0 && entry != end && isPassedOver(codeAt(entry))) entry += 2;
    }
    if (entry == end) {
      m_bIsAlreadyEqual = true;
      return 1;
    }
    uint16_t keyCode = codeAt(key);
    uint16_t entryCode = codeAt(entry);
    if ((flags & kFoldKana) != 0) {
      if (keyCode >> 8 == 0x24) keyCode += 0x100;
      if (entryCode >> 8 == 0x24) entryCode += 0x100;
    }
    if ((flags & kFoldCase) != 0) {
      keyCode = foldDown(keyCode);
      entryCode = foldDown(entryCode);
    }
    if (vowelPass != 0 && keyCode == kLongVowelMark && atEnd(key + 2) && isKana(entryCode))
      keyCode = static_cast<uint16_t>((entryCode & 0xFF00) + vowelPass * 2 + 32);
    if (keyCode != entryCode) return keyCode - entryCode;
    key += 2;
    entry += 2;
  }
  while ((flags & kSkipInEntry) != 0 && entry != end && isPassedOver(codeAt(entry))) entry += 2;
  if (entry == end) return 0;
  return m_bPrefixMatch ? 0 : -1;
}

// Full-width digits as a number. Nothing asks for it.
uint32_t CEpwing::Fp_GetKeyToNumber(const char* key) {
  uint32_t number = 0;
  for (; !atEnd(key) && isBetween(codeAt(key), 0x2330, 0x2339); key += 2)
    number = number * 10 + (codeAt(key) - 0x2330u);
  return number;
}

}  // namespace zavel::book
