// Tests: tests/mkdict/Utf8Test.cpp.
#include "mkdict/Utf8.h"

#include <cstdint>

namespace zavel::mkdict {
namespace {

// Bytes of a character by its first byte; 0 for a byte that begins none.
size_t lengthBy(uint8_t first) {
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  return first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
}

}  // namespace

bool takeUtf8(std::string_view utf8, size_t* at, char32_t* code) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const size_t begin = (*at)++;
  const auto first = static_cast<uint8_t>(utf8[begin]);
  const size_t length = lengthBy(first);
  if (length == 0 || utf8.size() - begin < length) return false;
  char32_t taken = length == 1 ? first : first & (0xFFu >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<uint8_t>(utf8[begin + i]);
    if ((byte & 0xC0) != 0x80) return false;
    taken = (taken << 6) | (byte & 0x3F);
  }
  if (taken < kLeast[length] || taken > 0x10FFFF || (taken >= 0xD800 && taken <= 0xDFFF)) return false;
  *at = begin + length;
  *code = taken;
  return true;
}

void appendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
    return;
  }
  const int more = code >= 0x10000 ? 3 : code >= 0x800 ? 2 : 1;
  constexpr unsigned kHead[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(kHead[more] | (code >> (6 * more)));
  for (int i = more - 1; i >= 0; --i) out += static_cast<char>(0x80 | ((code >> (6 * i)) & 0x3F));
}

std::optional<std::u32string> decodeUtf8(std::string_view utf8) {
  std::u32string out;
  out.reserve(utf8.size());
  for (size_t at = 0; at < utf8.size();) {
    char32_t code = 0;
    if (!takeUtf8(utf8, &at, &code)) return std::nullopt;
    out += code;
  }
  return out;
}

std::string encodeUtf8(std::u32string_view codes) {
  std::string out;
  for (const char32_t code : codes) appendUtf8(out, code);
  return out;
}

bool isHiragana(char32_t code) {
  return code >= 0x3041 && code <= 0x309F;
}

bool isKatakana(char32_t code) {
  return code >= 0x30A1 && code <= 0x30FE && code != 0x30FB;
}

bool isKanji(char32_t code) {
  return (code >= 0x3400 && code <= 0x9FFF) || (code >= 0xF900 && code <= 0xFAFF) || code == 0x3005 ||
         code == 0x3006 || code == 0x3007;
}

}  // namespace zavel::mkdict
