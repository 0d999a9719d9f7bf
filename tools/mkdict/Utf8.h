// UTF-8 to code points and back, for sources that are cleaned character by character.
#ifndef MKDICT_UTF8_H
#define MKDICT_UTF8_H

#include <optional>
#include <string>
#include <string_view>

namespace zavel::mkdict {

// Nothing when `utf8` is malformed: overlong, cut short, a surrogate or above U+10FFFF.
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
