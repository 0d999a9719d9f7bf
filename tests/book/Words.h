// Texts of books as lists of words.
#ifndef TESTS_BOOK_WORDS_H
#define TESTS_BOOK_WORDS_H

#include <initializer_list>
#include <string>

#include "support/BookWriter.h"

namespace zavel::test {

inline std::string words(std::initializer_list<uint32_t> values) {
  std::string out;
  for (const uint32_t value : values) out += be16(value);
  return out;
}

// `text` at `offset` of an otherwise empty run of blocks.
inline std::string textAt(size_t offset, const std::string& text) {
  return padded(std::string(offset, '\0') + text);
}

// `bytes` in hexadecimal, for what a failed test shows.
inline std::string hexOf(const std::string& bytes) {
  std::string out;
  char digits[4];
  for (const char byte : bytes) {
    std::snprintf(digits, sizeof digits, "%02X", static_cast<uint8_t>(byte));
    out += digits;
  }
  return out;
}

}  // namespace zavel::test

#endif
