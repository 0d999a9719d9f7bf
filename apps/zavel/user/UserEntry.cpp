// Tests: tests/zavel/user/UserEntryTest.cpp
#include "user/UserEntry.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace zavel::host {
namespace {

struct PosNames {
  const char* name;
  std::array<std::string_view, 4> others;
};

constexpr std::array<PosNames, 9> kPos = {{
    {"noun", {"n", "名", "名詞", ""}},
    {"pronoun", {"pron", "代", "代名詞", ""}},
    {"adjective", {"adj", "形", "形容詞", ""}},
    {"adverb", {"adv", "副", "副詞", ""}},
    {"verb", {"v", "動", "動詞", ""}},
    {"transitive", {"vt", "他", "他動", "他動詞"}},
    {"intransitive", {"vi", "自", "自動", "自動詞"}},
    {"preposition", {"prep", "前", "前置詞", ""}},
    {"conjunction", {"conj", "接", "接続詞", ""}},
}};

// Private use, U+E000 to U+F8FF, and pictures, from U+10000 on up to the kanji of U+20000. Beside letters
// they are what is wrong with the word, not these.
bool isOfNoLanguage(std::string_view character) {
  const uint8_t lead = static_cast<uint8_t>(character[0]);
  const uint8_t second = character.size() > 1 ? static_cast<uint8_t>(character[1]) : 0;
  return lead == 0xEE || (lead == 0xEF && second < 0xA4) || (lead == 0xF0 && second < 0xA0);
}

}  // namespace

const char* languageCode(UserLanguage language) {
  return language == UserLanguage::kEnglish ? "en" : "ja";
}

const char* languageName(UserLanguage language) {
  return language == UserLanguage::kEnglish ? "English" : "Japanese";
}

std::optional<UserLanguage> languageOf(std::string_view code) {
  if (code == "en") return UserLanguage::kEnglish;
  if (code == "ja") return UserLanguage::kJapanese;
  return std::nullopt;
}

UserLanguage guessLanguage(std::string_view word) {
  // What is folded to ASCII later tells of no kana: letters of full width, typographic marks, blanks of other
  // width; so does the byte order's mark.
  constexpr std::string_view kFolded[] = {"\xEF\xBC", "\xE2\x80", "\xE2\x88\x92", "\xE3\x80\x80",
                                          "\xEF\xBB\xBF"};
  constexpr std::string_view kSmall = "\xEF\xBD";
  while (!word.empty()) {
    const uint8_t lead = static_cast<uint8_t>(word[0]);
    const bool small = word.starts_with(kSmall) && word.size() > 2 && static_cast<uint8_t>(word[2]) <= 0x9E;
    const bool folded = small || std::any_of(std::begin(kFolded), std::end(kFolded),
                                             [word](auto bytes) { return word.starts_with(bytes); });
    const bool latin = lead < 0xCD;  // é: refused with its name as English
    if (!folded && !latin && !isOfNoLanguage(word)) return UserLanguage::kJapanese;
    const size_t length = lead < 0x80 ? 1 : latin ? 2 : lead < 0xF0 ? 3 : 4;
    word.remove_prefix(std::min(length, word.size()));
  }
  return UserLanguage::kEnglish;
}

std::string UserEntry::title() const {
  if (!kanji.empty()) return kanji + " (" + word + ")";
  return phrase.empty() ? word : word + ": " + phrase;
}

std::string UserEntry::identity() const {
  return std::string(languageCode(language)) + '\n' + word + '\n' + kanji + '\n' + std::to_string(pos) +
         '\n' + phrase;
}

const char* posName(int pos) {
  return pos >= 1 && pos <= static_cast<int>(kPos.size()) ? kPos[static_cast<size_t>(pos) - 1].name : "";
}

int posOf(std::string_view name) {
  if (name.empty()) return 0;
  for (size_t i = 0; i < kPos.size(); ++i) {
    const auto& others = kPos[i].others;
    if (name == kPos[i].name || std::find(others.begin(), others.end(), name) != others.end()) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

std::string posNames() {
  std::string names;
  for (const PosNames& pos : kPos) names += (names.empty() ? "" : ", ") + std::string(pos.name);
  return names;
}

}  // namespace zavel::host
