// Walking UTF-8 that may be broken.
#ifndef FOUNDATION_UTF8_H
#define FOUNDATION_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

namespace zavel {

// What stands at the front of a text: a character of `length` bytes, or, when `valid` is false, the bytes
// that a reader replaces by one U+FFFD (the longest beginning of a character that the text breaks off,
// else one byte). `length` is 0 only for an empty text.
struct Utf8Char {
  char32_t code = 0;
  size_t length = 0;
  bool valid = false;
};

// Refuses overlong forms, surrogates and codes over 0x10FFFF.
Utf8Char readUtf8(std::string_view text);

// Appends the character `code`, which is one.
void appendUtf8(std::string& out, char32_t code);

bool isValidUtf8(std::string_view text);

// A copy with U+FFFD where `text` is not UTF-8.
std::string replaceInvalidUtf8(std::string_view text);

// True when every byte is below 0x80.
bool isAscii(std::string_view text);

}  // namespace zavel

#endif
