#include "user/UserEntry.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

TEST(UserEntryTest, LanguageIsGuessedFromTheFirstForeignCharacter) {
  for (const char* word : {"bank", "R&B", "", "ｂａｎｋ", "don’t", "café"}) {
    EXPECT_EQ(guessLanguage(word), UserLanguage::kEnglish) << word;
  }
  for (const char* word : {"いぬ", "犬", "ｲﾇ", "Tシャツ", "イヌ"}) {
    EXPECT_EQ(guessLanguage(word), UserLanguage::kJapanese) << word;
  }
}

TEST(UserEntryTest, WhatIsOfNoLanguageLeavesTheGuessToTheRest) {
  for (const char* word : {"bad\xEE\x80\x80", "bad\xEF\xA3\xBF", "bad😀", "😀bad"}) {
    EXPECT_EQ(guessLanguage(word), UserLanguage::kEnglish) << word;
  }
  for (const char* word : {"😀犬", "\xEE\x80\x80いぬ", "𠮟る", "豈"}) {
    EXPECT_EQ(guessLanguage(word), UserLanguage::kJapanese) << word;
  }
}

TEST(UserEntryTest, PartsOfSpeechHaveThreeKindsOfNames) {
  const char* names[][3] = {
      {"noun", "n", "名"},          {"pronoun", "pron", "代"},     {"adjective", "adj", "形"},
      {"adverb", "adv", "副"},      {"verb", "v", "動"},           {"transitive", "vt", "他"},
      {"intransitive", "vi", "自"}, {"preposition", "prep", "前"}, {"conjunction", "conj", "接"}};
  for (int pos = 1; pos <= 9; ++pos) {
    for (const char* name : names[pos - 1]) EXPECT_EQ(posOf(name), pos) << name;
    EXPECT_STREQ(posName(pos), names[pos - 1][0]);
  }
  EXPECT_EQ(posOf(""), 0);
  EXPECT_EQ(posOf("nown"), 0);
  EXPECT_STREQ(posName(0), "");
  EXPECT_STREQ(posName(10), "");
}

TEST(UserEntryTest, TitlesTellWhatAnEntryIsOf) {
  UserEntry entry{.word = "bank"};
  EXPECT_EQ(entry.title(), "bank");
  entry.phrase = "bank on";
  EXPECT_EQ(entry.title(), "bank: bank on");
  entry = {.language = UserLanguage::kJapanese, .word = "いぬ", .kanji = "犬"};
  EXPECT_EQ(entry.title(), "犬 (いぬ)");
}

}  // namespace
}  // namespace zavel::host
