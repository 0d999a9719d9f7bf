#include "user/UserCheckForm.h"

#include <gtest/gtest.h>

#include <string>

namespace zavel::host {
namespace {

constexpr UserLanguage kE = UserLanguage::kEnglish;
constexpr UserLanguage kJ = UserLanguage::kJapanese;

const std::string kMeaning =
    "\xF5\xD1\xF5\xB1"
    "run-up\xF5\xC1\n"
    "\xF5\xD3-[\x96\xBC]\n"
    "\xF5\xD4\x88\xF5\x88\xF5\n"
    "\xF5\xD5in the run-up\xF5\xD8 \x82\xA0\n";
const std::string kPhrase =
    "\xF5\xD1\xF5\xB1"
    "run\xF5\xC1\n"
    "\xF5\xD6\xF5\xB1run up\xF5\xC1\n"
    "\xF5\xE4\x82\xA0\n"
    "\xF5\xE5run up a flag\xF5\xD8 \x82\xA0\n";
const std::string kWritten =
    "\xF5\xD1\x82\xA2\x82\xCA\x1B\x8C\xA2\n"
    "\xF5\xD4"
    "dog\n"
    "\xF5\xD5\x81\xF7\x8C\xA2\xF5\xD8 dogs\n"
    "\xF5\xD5/\x8C\xA2\xF5\xD8 hounds\n"
    "\xF5\xD6[\x95\xB6\x97\xE1]\x1B\x8C\xA2\xF5\xD8 A dog.\n"
    "\xF5\xD6/\x8C\xA2\xF5\xD8 Two.\n";
const std::string kKana =
    "\xF5\xD1\x82\xA2\x82\xCA\n\xF5\xD4"
    "dog\n";

EntryForm read(const std::string& text, UserLanguage language) {
  return formOfEntry(text, language);
}

TEST(UserCheckForm, WhatTheEngineWritesIsWhole) {
  EXPECT_EQ(read(kMeaning, kE).length, kMeaning.size());
  EXPECT_EQ(read(kMeaning, kE).word, "run-up");
  EXPECT_EQ(read(kPhrase, kE).length, kPhrase.size());
  EXPECT_EQ(read(kPhrase, kE).word, "run");
  EXPECT_EQ(read(kWritten, kJ).length, kWritten.size());
  EXPECT_EQ(read(kWritten, kJ).word, "\x82\xA2\x82\xCA");
  EXPECT_EQ(read(kWritten, kJ).kanji, "\x8C\xA2");
  EXPECT_EQ(read(kKana, kJ).length, kKana.size());
  EXPECT_EQ(read(kKana, kJ).kanji, "");
}

TEST(UserCheckForm, TheNextEntryIsNoPartOfIt) {
  EXPECT_EQ(read(kMeaning + kPhrase, kE).length, kMeaning.size());
  EXPECT_EQ(read(kMeaning + std::string(9, '\0'), kE).length, kMeaning.size());
  EXPECT_TRUE(beginsEntry(kMeaning));
  EXPECT_FALSE(beginsEntry(kMeaning.substr(1)));
}

// An entry may have any number of examples: cut ahead of one it is whole.
TEST(UserCheckForm, OneThatEndsTooSoonIsNone) {
  for (const auto& [text, language] : {std::pair{kMeaning, kE}, {kPhrase, kE}, {kWritten, kJ}}) {
    for (size_t length = 0; length < text.size(); ++length) {
      const std::string part = text.substr(0, length);
      const EntryForm cut = read(part, language);
      if (cut.length == length && length > 0) {
        EXPECT_EQ(text[length - 1], '\n');
        continue;
      }
      EXPECT_TRUE(cut.length == 0 ? cut.tooSoon : text[cut.length - 1] == '\n') << text << length;
    }
  }
}

// Of the bytes that are no characters of a text each tells when it is another.
TEST(UserCheckForm, WhatIsNoTextIsAsTheEngineWritesIt) {
  for (const auto& [text, language] : {std::pair{kMeaning, kE}, {kPhrase, kE}, {kWritten, kJ}}) {
    for (size_t at = 0; at < text.size(); ++at) {
      for (const char zero : {'\0', '\x7F'}) {
        std::string changed = text;
        changed[at] = zero;
        EXPECT_LT(read(changed, language).length, text.size()) << text << at;
      }
      if (text[at] != '\xF5' || static_cast<uint8_t>(text[at + 1]) < 0xB0) continue;
      std::string changed = text;
      changed[at + 1] ^= 1;
      EXPECT_LT(read(changed, language).length, text.size()) << text << at;
    }
  }
}

TEST(UserCheckForm, PartsOfSpeechAreThoseOfTheEngine) {
  std::string other = kMeaning;
  EXPECT_EQ(read(other.replace(other.find("\x96\xBC"), 2, "\x96\xBD"), kE).length, 0u);
}

TEST(UserCheckForm, WhatIsSoundEndsAheadOfTheExampleThatIsNot) {
  const std::string torn = kMeaning + "\xF5\xD5half";
  EXPECT_EQ(read(torn, kE).length, 0u);
  EXPECT_EQ(read(torn, kE).sound, kMeaning.size());
  EXPECT_EQ(read(kMeaning.substr(0, 20), kE).sound, 0u);
}

TEST(UserCheckForm, AWordIsFiledUnderItsKeyAlone) {
  EXPECT_TRUE(isFiledUnder("runup", "Run-up", 1));
  EXPECT_FALSE(isFiledUnder("runup", "run", 1));
  EXPECT_FALSE(isFiledUnder("run!", "run!", 1));
  EXPECT_TRUE(isFiledUnder("\xA2\xCA", "\x82\xA2\x82\xCA", 2));
  EXPECT_FALSE(isFiledUnder("\xA2\xCA", "\x82\xA2\x92\xCA", 2));  // a kanji whose second byte is that of ぬ
  EXPECT_TRUE(isFiledUnder("\x8C\xA2", "\x8C\xA2", 3));
  EXPECT_FALSE(isFiledUnder("\x8C\xA3", "\x8C\xA2", 3));
}

TEST(UserCheckForm, EnglishTextsHaveNoPairs) {
  std::string other = kMeaning;
  EXPECT_EQ(read(other.replace(other.find("run-up\xF5\xD8"), 2, "\x82\xA0"), kE).length, 0u);
  other = kKana;
  EXPECT_EQ(read(other.replace(other.find("dog"), 2, "\x82\xA0"), kJ).length, 0u);
}

TEST(UserCheckForm, OneLanguageIsNotTheOther) {
  EXPECT_EQ(read(kMeaning, kJ).length, 0u);
  EXPECT_EQ(read(kWritten, kE).length, 0u);
}

}  // namespace
}  // namespace zavel::host
