// Tests: tests/foundation/KanjiTest.cpp
#include "foundation/Kanji.h"

#include <algorithm>

#include "foundation/KanjiTables.h"

namespace zavel::foundation {
namespace {

constexpr char kEscape = 0x1B;

bool between(uint8_t byte, uint8_t low, uint8_t high) {
  return byte >= low && byte <= high;
}

bool isDoubleByte(const char* pointer) {
  return __ismbblead(static_cast<uint8_t>(pointer[0])) && pointer[1] != 0;
}

// The shift that begins at `pointer`, 0 for another one. Looks at no byte behind the text's end.
int escapeBit(const char* pointer) {
  if (pointer[1] == '$') return pointer[2] == 'B' ? kEscapeJis83 : pointer[2] == '@' ? kEscapeJis78 : 0;
  if (pointer[1] != '(') return 0;
  switch (pointer[2]) {
    case 'J':
      return kEscapeRoman;
    case 'B':
      return kEscapeAscii;
    case 'I':
      return kEscapeKatakana;
    default:
      return 0;
  }
}

}  // namespace

const char* __mbsinc(const char* pointer) {
  return pointer + (isDoubleByte(pointer) ? 2 : 1);
}

uint16_t __mbsnextc(const char* pointer) {
  const uint8_t first = static_cast<uint8_t>(pointer[0]);
  if (!isDoubleByte(pointer)) return first;
  return static_cast<uint16_t>(first << 8 | static_cast<uint8_t>(pointer[1]));
}

uint16_t __mbbtombc(uint16_t character) {
  if (character > 255 || mbbtombcarray[character] == 0) return character;
  return mbbtombcarray[character];
}

uint16_t __mbctombb(uint16_t character) {
  const auto found = std::lower_bound(mbctombbarray.begin(), mbctombbarray.end(), character,
                                      [](const KanjiPair& pair, uint16_t code) { return pair.from < code; });
  return found != mbctombbarray.end() && found->from == character ? found->to : character;
}

uint16_t __zenKatakana2hanKatakana(uint16_t sjis) {
  for (const KanjiPair& pair : zenhanarray)
    if (pair.from == sjis) return pair.to;
  return 0;
}

int IsKanji(const char* pointer) {
  const uint8_t first = static_cast<uint8_t>(pointer[0]);
  if (first == kEscape) return escapeBit(pointer);
  const uint8_t second = first != 0 ? static_cast<uint8_t>(pointer[1]) : 0;
  int bits = 0;
  if (between(first, 0xA0, 0xDF)) bits |= kHankakuSjis;
  if ((between(first, 0x81, 0x9F) || between(first, 0xE0, 0xFC)) && between(second, 0x40, 0xFC) &&
      second != 0x7F)
    bits |= kZenkakuSjis;
  if (first == 0x8E && between(second, 0xA0, 0xDF)) bits |= kHankakuEuc;
  if (between(first, 0xA1, 0xFE) && between(second, 0xA1, 0xFE)) bits |= kZenkakuEuc;
  return bits;
}

}  // namespace zavel::foundation
