// Tests: tests/foundation/Utf8Test.cpp
#include "foundation/Utf8.h"

#include <cstdint>
#include <cstring>

namespace zavel {
namespace {

// What a first byte promises: bytes that follow, and the range that the first of them must lie in. The
// ranges alone keep out overlong forms, surrogates and codes over 0x10FFFF.
struct Lead {
  uint8_t more;  // 0: no character begins with this byte
  uint8_t low;
  uint8_t high;
};

Lead leadOf(uint8_t first) {
  if (first >= 0xC2 && first <= 0xDF) return {1, 0x80, 0xBF};
  if (first == 0xE0) return {2, 0xA0, 0xBF};
  if (first == 0xED) return {2, 0x80, 0x9F};
  if (first >= 0xE1 && first <= 0xEF) return {2, 0x80, 0xBF};
  if (first == 0xF0) return {3, 0x90, 0xBF};
  if (first >= 0xF1 && first <= 0xF3) return {3, 0x80, 0xBF};
  if (first == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

// Bytes of `text` in front of the first that is no ASCII.
size_t asciiPrefix(std::string_view text) {
  size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    uint64_t eight;
    std::memcpy(&eight, text.data() + i, 8);
    if (eight & 0x8080808080808080u) break;
  }
  while (i < text.size() && static_cast<uint8_t>(text[i]) < 0x80) ++i;
  return i;
}

// Bytes of `text` in front of the first that is not UTF-8.
size_t validPrefix(std::string_view text) {
  size_t i = asciiPrefix(text);
  while (i < text.size()) {
    const Utf8Char c = readUtf8(text.substr(i));
    if (!c.valid) break;
    i += c.length;
  }
  return i;
}

}  // namespace

Utf8Char readUtf8(std::string_view text) {
  if (text.empty()) return {};
  const uint8_t first = static_cast<uint8_t>(text[0]);
  if (first < 0x80) return {first, 1, true};
  const Lead lead = leadOf(first);
  char32_t code = first & (0x3Fu >> lead.more);
  uint8_t low = lead.low;
  uint8_t high = lead.high;
  for (size_t i = 1; i <= lead.more; ++i) {
    const uint8_t byte = i < text.size() ? static_cast<uint8_t>(text[i]) : 0;
    if (byte < low || byte > high) return {0, i, false};
    code = (code << 6) | (byte & 0x3Fu);
    low = 0x80;
    high = 0xBF;
  }
  return {code, size_t{1} + lead.more, lead.more != 0};
}

void appendUtf8(std::string& out, char32_t code) {
  const auto more = [&](int shift) { out += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    more(0);
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    more(6);
    more(0);
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    more(12);
    more(6);
    more(0);
  }
}

bool isValidUtf8(std::string_view text) {
  return validPrefix(text) == text.size();
}

std::string replaceInvalidUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (;;) {
    const size_t good = validPrefix(text);
    out.append(text.substr(0, good));
    text.remove_prefix(good);
    if (text.empty()) return out;
    out += "\xEF\xBF\xBD";
    text.remove_prefix(readUtf8(text).length);
  }
}

bool isAscii(std::string_view text) {
  return asciiPrefix(text) == text.size();
}

}  // namespace zavel
