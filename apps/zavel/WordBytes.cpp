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

}  // namespace zavel::host
