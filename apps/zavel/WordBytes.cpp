// Tests: tests/zavel/LookTest.cpp
#include "WordBytes.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

// Most English words are ASCII, which is the same in both encodings.
bool isAscii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

std::vector<std::string> charactersOf(const std::string& utf8) {
  std::vector<std::string> characters;
  char32_t code = 0;
  std::string_view left = utf8;
  for (size_t length = 0; (length = decodeUtf8(left, &code)) > 0; left.remove_prefix(length)) {
    characters.emplace_back(left.substr(0, length));
  }
  return characters;
}

// Hiragana for katakana; all else as it is.
std::u32string inHiragana(std::string_view utf8) {
  std::u32string out;
  char32_t code = 0;
  for (size_t length = 0; (length = decodeUtf8(utf8, &code)) > 0; utf8.remove_prefix(length)) {
    out += code >= 0x30A1 && code <= 0x30F6 ? code - 0x60 : code;
  }
  return out;
}

}  // namespace

std::optional<std::string> wordBytes(const std::string& utf8) {
  if (isAscii(utf8)) return utf8;
  const std::optional<SjisBytes> bytes = platform().encoding().toSjisStrict(utf8);
  if (!bytes) return std::nullopt;
  return bytes->bytes();
}

std::string unknownCharacters(const std::string& utf8) {
  std::string unknown;
  for (const std::string& character : charactersOf(utf8)) {
    if (!wordBytes(character) && unknown.find(character) == std::string::npos) unknown += character;
  }
  return unknown;
}

std::string withoutUnknownCharacters(const std::string& utf8) {
  std::string known;
  for (const std::string& character : charactersOf(utf8)) {
    if (wordBytes(character)) known += character;
  }
  return known;
}

std::string shownText(std::string sjis) {
  std::replace(sjis.begin(), sjis.end(), '\r', '\n');
  if (isAscii(sjis)) return withoutControls(std::move(sjis));
  return withoutControls(platform().encoding().fromSjisLossy(sjis));
}

bool isEnglishWord(const std::string& sjis) {
  const unsigned char first = sjis.empty() ? 0 : static_cast<unsigned char>(sjis[0]);
  const bool lead = (first >= 0x81 && first <= 0x9F) || (first >= 0xE0 && first <= 0xFC);
  return !lead;
}

std::string englishKey(const std::string& sjis) {
  return engine::ChangeMidasiStrE(sjis);
}

std::string englishKeyOf(const std::string& utf8) {
  return englishKey(isAscii(utf8) ? utf8 : platform().encoding().toSjisLossy(utf8).bytes());
}

std::string englishSpelling(const std::string& utf8) {
  std::string out;
  for (size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    const bool outer = i == 0 || i + 1 == utf8.size();
    const bool counts = c == '\'' || (c == '-' && outer && utf8.size() > 1);
    if (counts) {
      out += c;
    } else {
      out += englishKeyOf(std::string(1, c));
    }
  }
  return out;
}

int kanaDistance(const std::string& word, const std::string& query) {
  if (word == query) return 0;
  return inHiragana(word) == inHiragana(query) ? 1 : 2;
}

}  // namespace zavel::host
