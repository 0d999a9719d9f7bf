// Characters of keys: JIS X 0208 codes, two bytes each, in a text that NUL ends.
#ifndef BOOK_JISCODE_H
#define BOOK_JISCODE_H

#include <cstdint>

#include "foundation/ByteReader.h"

namespace zavel::book {

// The code at `text`, which must not be at its end.
inline uint16_t codeAt(const char* text) {
  return readBE16(reinterpret_cast<const uint8_t*>(text));
}

// A pair of which the text's end leaves nothing or a half is the end.
inline bool atEnd(const char* text) {
  return text[0] == '\0' || text[1] == '\0';
}

constexpr bool isBetween(uint16_t code, uint16_t first, uint16_t last) {
  return code >= first && code <= last;
}

// Hiragana or katakana, by their rows.
constexpr bool isKana(uint16_t code) {
  return code >> 8 == 0x24 || code >> 8 == 0x25;
}

}  // namespace zavel::book

#endif
