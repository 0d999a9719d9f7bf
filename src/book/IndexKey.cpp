// Tests: tests/book/KeyTest.cpp, tests/mkbook/IndexBuilderTest.cpp
#include "book/IndexKey.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "book/BookFormat.h"
#include "book/JisCode.h"
#include "foundation/KanjiConversion.h"

namespace zavel::book {
namespace {

constexpr size_t kLongestInput = 256;

// Signs that stay in keys: middle dot, question mark, sound marks, signs of repetition and others that stand
// for letters, the long vowel mark, apostrophe, hyphen.
bool isKeptSign(uint16_t code) {
  switch (code) {
    case 0x2126:
    case 0x2129:
    case 0x212B:
    case 0x212C:
    case 0x213C:
    case 0x2147:
    case 0x215D:
      return true;
    default:
      return isBetween(code, 0x2133, 0x213A);
  }
}

bool isDropped(uint16_t code) {
  return (isBetween(code, 0x2122, 0x227E) && !isKeptSign(code)) || isBetween(code, 0x2821, 0x2F7E);
}

uint16_t foldUp(uint16_t code) {
  if (isBetween(code, 0x2361, 0x237A) || isBetween(code, 0x2641, 0x2658)) return code - 32;
  if (isBetween(code, 0x2751, 0x2771)) return code - 48;
  return code;
}

bool isOneOf(uint8_t cell, std::initializer_list<uint8_t> cells) {
  return std::find(cells.begin(), cells.end(), cell) != cells.end();
}

// Cells of the vowels that the kana at cells 0x21 to 0x76 end in.
constexpr uint8_t kA = 0x22, kI = 0x24, kU = 0x26, kE = 0x28, kO = 0x2A, kN = 0x73;
constexpr uint8_t kVowels[] = {kA, kA, kI, kI, kU, kU, kE, kE, kO, kO,      // small and large a i u e o
                               kA, kA, kI, kI, kU, kU, kE, kE, kO, kO,      // k, g
                               kA, kA, kI, kI, kU, kU, kE, kE, kO, kO,      // s, z
                               kA, kA, kI, kI, kU, kU, kU, kE, kE, kO, kO,  // t, d, with small tu
                               kA, kI, kU, kE, kO,                          // n
                               kA, kA, kA, kI, kI, kI, kU, kU, kU, kE, kE, kE, kO, kO, kO,  // h, b, p
                               kA, kI, kU, kE, kO,                                          // m
                               kA, kA, kU, kU, kO, kO,  // y, small and large
                               kA, kI, kU, kE, kO,      // r
                               kA, kA, kI, kU, kO, kN,  // small wa, wa, wi, we, wo, n (kept: docs/quirks.md)
                               kU, kA, kE};             // vu, small ka, small ke
static_assert(std::size(kVowels) == 0x76 - 0x21 + 1);

// The long vowel mark behind `previous`; itself behind what is no kana.
uint16_t vowelBehind(uint16_t previous) {
  const uint8_t cell = static_cast<uint8_t>(previous);
  if (!isKana(previous) || !isBetween(cell, 0x21, 0x76)) return kLongVowelMark;
  return static_cast<uint16_t>((previous & 0xFF00) | kVowels[cell - 0x21]);
}

uint16_t enlarge(uint16_t code, const _EPBOOKCONTROLENTRY& index) {
  const uint8_t cell = static_cast<uint8_t>(code);
  if (index.flag2 < 64 && cell == 0x43) return code + 1;
  if ((index.flag2 & 0x30) == 0) {
    if (isOneOf(cell, {0x63, 0x65, 0x67, 0x6E})) return code + 1;
    if (cell == 0x75) return code - 0x4A;
    if (cell == 0x76) return code - 0x45;
  }
  if ((index.flag2 & 0x0C) == 0 && isOneOf(cell, {0x21, 0x23, 0x25, 0x27, 0x29})) return code + 1;
  return code;
}

uint16_t withoutMarks(uint16_t code, const _EPBOOKCONTROLENTRY& index) {
  const uint8_t cell = static_cast<uint8_t>(code);
  if ((index.flag2 & 3) == 0) {
    if (isOneOf(cell, {0x2C, 0x2E, 0x30, 0x32, 0x34, 0x36, 0x38, 0x3A, 0x3C, 0x3E,    // g, z
                       0x40, 0x42, 0x45, 0x47, 0x49, 0x50, 0x53, 0x56, 0x59, 0x5C}))  // d, b
      return code - 1;
    if (cell == 0x74) return static_cast<uint16_t>((code & 0xFF00) | kU);
  }
  if (index.flag3 < 64 && isOneOf(cell, {0x51, 0x54, 0x57, 0x5A, 0x5D})) return code - 2;
  return code;
}

}  // namespace

bool isPassedOver(uint16_t code) {
  return code == 0x2121 || code == 0x2126 || code == 0x2147 || code == 0x215D;
}

uint16_t foldDown(uint16_t code) {
  if (isBetween(code, 0x2341, 0x235A) || isBetween(code, 0x2621, 0x2638)) return code + 32;
  if (isBetween(code, 0x2721, 0x2741)) return code + 48;
  return code;
}

void appendCode(uint16_t code, char** out) {
  *(*out)++ = static_cast<char>(code >> 8);
  *(*out)++ = static_cast<char>(code);
}

void formatIndexKey(const _EPBOOKCONTROLENTRY& index, char* out, const char* in, bool keepFirstMark) {
  if (std::strlen(in) > kLongestInput) return;
  char* const first = out;
  uint16_t previous = 0;
  for (; !atEnd(in); in += 2) {
    uint16_t code = codeAt(in);
    if (isDropped(code)) continue;
    if (index.flag1 < 64 && isBetween(code, 0x2521, 0x2576)) code -= 0x100;
    if ((index.flag1 & 0x30) == 0) code = foldUp(code);
    if ((index.flag1 & 0x0C) == 0 && code != 0x2121 && isPassedOver(code)) continue;
    if (code == kLongVowelMark) {
      const int rule = index.flag1 & 3;
      if (rule == 2) continue;
      if (rule == 0 && (out != first || !keepFirstMark)) code = vowelBehind(previous);
    }
    if (isKana(code)) code = withoutMarks(enlarge(code, index), index);
    appendCode(code, &out);
    previous = code;
  }
  *out = '\0';
  if ((index.kind & 0x70) == 0x70) foundation::InvertDBCSString(first);
}

}  // namespace zavel::book
