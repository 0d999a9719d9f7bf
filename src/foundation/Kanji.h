// Single characters of Shift_JIS, JIS X 0208 and EUC-JP, and what the bytes of a text are.
//
// A code is a 16-bit number, first byte high. "JIS" is the two-byte form without shift states, both bytes
// 0x21 to 0x7E. The names with two leading underscores are the program's own versions of the classic runtime
// routines and keep their names.
//
// The bilingual engine has a lead-byte test of its own with another upper end: don't share them.
#ifndef FOUNDATION_KANJI_H
#define FOUNDATION_KANJI_H

#include <cstdint>

namespace zavel::foundation {

// True for 0x81 to 0x9F and 0xE0 to 0xEF. 0xF0 and up are not lead bytes here.
constexpr bool __ismbblead(uint8_t byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xEF);
}

// The character behind the one at `pointer`, into a NUL-terminated text: two bytes on after a lead byte,
// else one. A lead byte that the text ends with is a character of one byte.
const char* __mbsinc(const char* pointer);

// The character at `pointer`, into a NUL-terminated text: lead x 256 + trail, or one byte.
uint16_t __mbsnextc(const char* pointer);

// Single byte to its full-width form in Shift_JIS. What has none, and what is no single byte, comes back.
uint16_t __mbbtombc(uint16_t character);

// The other way. What has no single-byte form comes back.
uint16_t __mbctombb(uint16_t character);

// Shift_JIS to JIS X 0208 by the published arithmetic, each byte for itself, with no range check: what is
// no double-byte character gives some code or other.
constexpr uint16_t __mbcjmstojis(uint16_t sjis) {
  const int lead = sjis >> 8;
  const int trail = sjis & 0xFF;
  const bool even = trail >= 0x9F;  // the second of the two rows that share a lead byte
  const int row = lead * 2 - (lead < 0xE0 ? 0xE1 : 0x161) + (even ? 1 : 0);
  const int cell = even ? trail - 0x7E : trail - (trail > 0x7F ? 0x20 : 0x1F);
  return static_cast<uint16_t>((row & 0xFF) << 8 | (cell & 0xFF));
}

// JIS X 0208 to Shift_JIS, likewise.
constexpr uint16_t __mbcjistojms(uint16_t jis) {
  const int row = jis >> 8;
  const int cell = jis & 0xFF;
  const int pair = ((row + 1) >> 1) + 0x70;
  const int lead = pair > 0x9F ? pair + 0x40 : pair;
  const int trail = row % 2 == 0 ? cell + 0x7E : cell + (cell > 0x5F ? 0x20 : 0x1F);
  return static_cast<uint16_t>((lead & 0xFF) << 8 | (trail & 0xFF));
}

// Shift_JIS to EUC-JP: below 0x80 as it is, a single byte behind 0x8E, else JIS with both high bits set.
constexpr uint16_t __jmstoeuc(uint16_t sjis) {
  if (sjis < 0x80) return sjis;
  if (sjis < 0x100) return static_cast<uint16_t>(0x8E00 + sjis);
  return __mbcjmstojis(sjis) | 0x8080;
}

// Full-width katakana with a mark, in Shift_JIS, to half-width katakana and mark; 0 for all others.
uint16_t __zenKatakana2hanKatakana(uint16_t sjis);

// Hiragana to katakana, in Shift_JIS; others as they are.
constexpr uint16_t GFnConvKatakana(uint16_t code) {
  if (code >= 0x829F && code <= 0x82DD) return static_cast<uint16_t>(code + 161);
  if (code >= 0x82DE && code <= 0x82F1) return static_cast<uint16_t>(code + 162);  // 0x837F is left free
  return code;
}

// What IsKanji can say.
enum KanjiBit : int {
  kHankakuSjis = 1,      // first byte 0xA0 to 0xDF
  kZenkakuSjis = 2,      // pair 0x81 to 0x9F or 0xE0 to 0xFC, then 0x40 to 0xFC without 0x7F
  kHankakuEuc = 4,       // pair 0x8E, then 0xA0 to 0xDF
  kZenkakuEuc = 8,       // both bytes 0xA1 to 0xFE
  kEscapeJis83 = 16,     // 0x1B $ B
  kEscapeJis78 = 32,     // 0x1B $ @
  kEscapeRoman = 64,     // 0x1B ( J
  kEscapeAscii = 128,    // 0x1B ( B
  kEscapeKatakana = 256  // 0x1B ( I
};

// Bits for the bytes at `pointer`, into a NUL-terminated text; one place can have several.
int IsKanji(const char* pointer);

}  // namespace zavel::foundation

#endif
