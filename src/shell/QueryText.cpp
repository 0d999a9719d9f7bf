// Tests: tests/shell/QueryTextTest.cpp
#include "shell/QueryText.h"

#include <algorithm>
#include <array>

namespace zavel {
namespace {

// White space outside ASCII, as UTF-8.
constexpr std::array<std::string_view, 19> kWideBlanks = {
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81",
    "\xE2\x80\x82", "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86",
    "\xE2\x80\x87", "\xE2\x80\x88", "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8",
    "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F", "\xE3\x80\x80"};

bool isNarrowBlank(char c) {
  return static_cast<unsigned char>(c) < 0x21;
}

size_t blankAtStart(std::string_view text) {
  if (text.empty()) return 0;
  if (isNarrowBlank(text.front())) return 1;
  const auto blank = std::find_if(kWideBlanks.begin(), kWideBlanks.end(),
                                  [&](std::string_view wide) { return text.starts_with(wide); });
  return blank == kWideBlanks.end() ? 0 : blank->size();
}

size_t blankAtEnd(std::string_view text) {
  if (text.empty()) return 0;
  if (isNarrowBlank(text.back())) return 1;
  const auto blank = std::find_if(kWideBlanks.begin(), kWideBlanks.end(),
                                  [&](std::string_view wide) { return text.ends_with(wide); });
  return blank == kWideBlanks.end() ? 0 : blank->size();
}

}  // namespace

std::string stripQuery(std::string_view text) {
  while (const size_t blank = blankAtStart(text)) text.remove_prefix(blank);
  while (const size_t blank = blankAtEnd(text)) text.remove_suffix(blank);
  return std::string(text);
}

bool isEnglishQuery(std::string_view sjis) {
  const unsigned char first = sjis.empty() ? 0 : static_cast<unsigned char>(sjis.front());
  return !((first >= 0x81 && first <= 0x9F) || (first >= 0xE0 && first <= 0xFC));
}

}  // namespace zavel
