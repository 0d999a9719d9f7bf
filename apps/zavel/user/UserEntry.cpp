// Tests: tests/zavel/user/UserEntryTest.cpp
#include "user/UserEntry.h"

#include <algorithm>
#include <array>

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
  // Letters of full width and typographic apostrophes are folded to ASCII later: they tell of no kana.
  constexpr std::string_view kFullWidth = "\xEF\xBC", kSmall = "\xEF\xBD", kPunctuation = "\xE2\x80";
  for (size_t at = 0; at < word.size();) {
    if ((word[at] & 0x80) == 0) {
      ++at;
      continue;
    }
    const std::string_view lead = word.substr(at, 2);
    const bool folded =
        lead == kFullWidth || lead == kPunctuation ||
        (lead == kSmall && at + 2 < word.size() && static_cast<uint8_t>(word[at + 2]) <= 0x9E);
    const bool latin = static_cast<uint8_t>(word[at]) < 0xCD;  // é: refused with its name as English
    if (!folded && !latin) return UserLanguage::kJapanese;
    at += latin ? 2 : 3;
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
