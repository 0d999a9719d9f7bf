#include "dicttool/EdictEntry.h"

#include <gtest/gtest.h>

#include "dicttool/EdictCodes.h"

namespace zavel::dicttool {
namespace {

std::string textOf(const char* line, bool names = false) {
  EdictEntry entry;
  return EdictEntry::parse(line, &entry) ? entry.text(names) : "(none)";
}

// "word:rank" of each key, with a "+" where its gloss says more.
std::vector<std::string> keysOf(const char* line, bool names = false) {
  EdictEntry entry;
  EXPECT_TRUE(EdictEntry::parse(line, &entry));
  std::vector<std::string> keys;
  for (const EdictKey& key : entry.keys(names)) {
    keys.push_back(key.word + ":" + std::to_string(key.rank) + (key.explained ? "+" : ""));
  }
  return keys;
}

using Keys = std::vector<std::string>;

TEST(EdictEntry, ShowsAWordWithItsReading) {
  EXPECT_EQ(textOf("補数回路 [ほすうかいろ] /(n) complementer/"),
            "補数回路 [ほすうかいろ]\n(noun) complementer\n");
  EXPECT_EQ(textOf("ネットウェア /(n) NetWare/"), "ネットウェア\n(noun) NetWare\n");
  EXPECT_EQ(textOf("１０進数 [じっしんすう] /(n) decimal/decimal digit/"),
            "１０進数 [じっしんすう]\n(noun) decimal; decimal digit\n");
}

TEST(EdictEntry, SaysPartsOfSpeechOnce) {
  EXPECT_EQ(textOf("キャスト /(n,vs) (1) cast (play, film, etc.)/(n,vs) (2) cast (e.g. type conversion)/"),
            "キャスト\n(noun, suru verb) (1) cast (play, film, etc.); (2) cast (e.g. type conversion)\n");
  EXPECT_EQ(textOf("なるぽ /(n) (col) null pointer exception (runtime exception in Java)/"),
            "なるぽ\n(noun) (colloquial) null pointer exception (runtime exception in Java)\n");
}

TEST(EdictEntry, LeavesOutMarksOfFrequencyAndNumbersOfEntries) {
  EXPECT_EQ(textOf("猫(P);ネコ [ねこ(P);ネコ] /(n) cat/(P)/EntL1467640X/"),
            "猫; ネコ [ねこ; ネコ]\n(noun) cat\n");
  EXPECT_EQ(textOf("猫 [ねこ] /(n) cat (P)/"), "猫 [ねこ]\n(noun) cat\n");
}

TEST(EdictEntry, ReadsTheCodesOfNames) {
  EXPECT_EQ(textOf("東京 [とうきょう] /(p,s) Tokyo/", true), "東京 [とうきょう]\n(place, surname) Tokyo\n");
  EXPECT_EQ(
      textOf("ＡＢＣ [エービーシー] /(c) American Broadcasting Company/ABC/(o) Audit Bureau/", true),
      "ＡＢＣ [エービーシー]\n(company) American Broadcasting Company; ABC; (organization) Audit Bureau\n");
}

TEST(EdictEntry, KeepsCodesThatItDoesNotKnow) {
  EXPECT_EQ(readableCodes("n,vs", false), "noun, suru verb");
  EXPECT_EQ(readableCodes("n,zz", false), "");
  EXPECT_EQ(readableCodes("p", false), "");
  EXPECT_EQ(readableCodes("p", true), "place");
  EXPECT_EQ(textOf("猫 [ねこ] /(zz) cat/"), "猫 [ねこ]\n(zz) cat\n");
}

TEST(EdictEntry, RefusesLinesOfAnotherForm) {
  for (const char* line : {"", "猫", "猫 [ねこ]", "猫 [ねこ] /", "猫 [ねこ /(n) cat/", " /(n) cat/",
                           "猫 [] /(n) cat/", "猫 [ねこ] //EntL12/"}) {
    EXPECT_EQ(textOf(line), "(none)") << line;
  }
}

TEST(EdictEntry, IsFoundByItsFormsItsGlossesAndTheirWords) {
  EXPECT_EQ(keysOf("猫 [ねこ] /(n) cat/"), (Keys{"猫:0", "ねこ:1", "cat:0"}));
  EXPECT_EQ(
      keysOf("応答確認 [おうとうかくにん] /(n) response confirmation/"),
      (Keys{"応答確認:0", "おうとうかくにん:1", "response confirmation:0", "response:3", "confirmation:3"}));
}

TEST(EdictEntry, LeavesOutOfKeysWhatNobodySearches) {
  EXPECT_EQ(keysOf("行く [いく] /(v5k-s) to go/"), (Keys{"行く:0", "いく:1", "go:0"}));
  EXPECT_EQ(keysOf("国 /(n) (the) state of the art (of a (large) land)/"),
            (Keys{"国:0", "state of the art:0+", "state:7", "art:7"}));
  EXPECT_EQ(keysOf("例 /(n) one two three four five six seven/"),
            (Keys{"例:0", "one two three four five six seven:0"}));
}

TEST(EdictEntry, IsMostAboutItsFirstGloss) {
  EXPECT_EQ(keysOf("主 /(n) (1) main/(2) chief (of a group)/head/(3) core/(4) root/"),
            (Keys{"主:0", "main:0", "chief:1+", "head:1", "core:2", "root:2"}));
}

TEST(EdictEntry, IsFoundByTheWordsOfItsFirstFourGlossesAlone) {
  EXPECT_EQ(keysOf("落ちる [おちる] /(v1,vi) to fall/to come off/to sink/to log out/to go under/"),
            (Keys{"落ちる:0", "おちる:1", "fall:0", "come off:1", "come:3", "off:3", "sink:1", "log out:2",
                  "log:4", "out:4", "go under:2"}));
}

TEST(EdictEntry, OfANameIsFoundByShortVowelsToo) {
  EXPECT_EQ(keysOf("京都 [きょうと] /(p) Kyouto/", true),
            (Keys{"京都:0", "きょうと:1", "Kyouto:0", "Kyoto:1"}));
  EXPECT_EQ(keysOf("大野優子 [おおのゆうこ] /(h) Oono Yuuko/", true),
            (Keys{"大野優子:0", "おおのゆうこ:1", "Oono Yuuko:0", "Ono Yuko:1", "Oono:3", "Yuuko:3"}));
  EXPECT_EQ(keysOf("京都 [きょうと] /(n) Kyouto/"), (Keys{"京都:0", "きょうと:1", "Kyouto:0"}));
  EXPECT_EQ(keysOf("ツールーズ /(p) Toulouse/", true), (Keys{"ツールーズ:0", "Toulouse:0"}));  // no reading
}

TEST(EdictEntry, KnowsWhetherItIsCommon) {
  EdictEntry entry;
  ASSERT_TRUE(EdictEntry::parse("猫 [ねこ] /(n) cat/(P)/", &entry));
  EXPECT_TRUE(entry.common);
  ASSERT_TRUE(EdictEntry::parse("猫 [ねこ] /(n) cat (P)/", &entry));
  EXPECT_TRUE(entry.common);
  ASSERT_TRUE(EdictEntry::parse("猫 [ねこ] /(n) cat/", &entry));
  EXPECT_FALSE(entry.common);
}

TEST(EdictEntry, IsFoundByUsualLettersToo) {
  EXPECT_EQ(keysOf("１６進法 /(n) hex/"), (Keys{"１６進法:0", "16進法:0", "hex:0"}));
}

}  // namespace
}  // namespace zavel::dicttool
