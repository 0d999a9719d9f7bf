// UTF-8 to code points and back, for sources that are cleaned character by character.
#ifndef MKDICT_UTF8_H
#define MKDICT_UTF8_H

#include <optional>
#include <string>
#include <string_view>

namespace zavel::mkdict {

// Takes the character at *at, which moves past it. False when the bytes there are malformed (overlong, cut
// short, a surrogate or above U+10FFFF); *at then moves on by one.
bool takeUtf8(std::string_view utf8, size_t* at, char32_t* code);
void appendUtf8(std::string& out, char32_t code);

// Nothing when any of `utf8` is malformed.
std::optional<std::u32string> decodeUtf8(std::string_view utf8);
std::string encodeUtf8(std::u32string_view codes);

bool isHiragana(char32_t code);
bool isKatakana(char32_t code);  // with the long mark
bool isKanji(char32_t code);     // with the repetition mark
inline bool isJapanese(char32_t code) {
  return isHiragana(code) || isKatakana(code) || isKanji(code);
}

}  // namespace zavel::mkdict

#endif
