// Tests: tests/port/PlistPropertyListsTest.cpp
#include "base/PlistText.h"

#include "foundation/Utf8.h"

namespace zavel {

bool isPlistCharacter(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF) && code != 0xFFFE && code != 0xFFFF;
}

bool isPlistText(std::string_view text) {
  while (!text.empty()) {
    const Utf8Char c = readUtf8(text);
    if (!c.valid || !isPlistCharacter(c.code)) return false;
    text.remove_prefix(c.length);
  }
  return true;
}

std::string toPlistText(std::string_view text) {
  if (isPlistText(text)) return std::string(text);
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const Utf8Char c = readUtf8(text);
    if (c.valid && isPlistCharacter(c.code)) out += text.substr(0, c.length);
    text.remove_prefix(c.length);
  }
  return out;
}

}  // namespace zavel
