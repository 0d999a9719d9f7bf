// EDICT's lines as entries: the bytes of the text, the words they are filed under, their order.
#include "mkdict/JapaneseEntries.h"

#include <gtest/gtest.h>

#include "mkdict/EdictSupport.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using test::sjis;

using Made = MadeEntries;

std::string textOf(const char* edict) {
  return Made({edict}).entries.at(0).text;
}

TEST(JapaneseEntries, OneSenseHasNoNumber) {
  // F5D1 いぬ 1B 犬 0A, F5D3 -[名] 0A, F5D4 dog 0A
  EXPECT_EQ(
      "\xF5\xD1\x82\xA2\x82\xCA\x1B\x8C\xA2\n"
      "\xF5\xD3-[\x96\xBC]\n"
      "\xF5\xD4"
      "dog; hound\n",
      textOf("犬 [いぬ] /(n) dog/hound/(P)/"));
}

TEST(JapaneseEntries, SensesAreNumberedWithinAPartOfSpeech) {
  EXPECT_EQ("\xF5\xD1" + sjis("あ") + "\n\xF5\xD3-[" + sjis("名") +
                "]\n\xF5\xD4\xF5\xBD"
                "1\xF5\xC1 a\n\xF5\xD4\xF5\xBD"
                "2\xF5\xC1 b\n\xF5\xD3-[" +
                sjis("サ変") +
                "]\n\xF5\xD4"
                "c\n",
            textOf("あ /(n) (1) a/(n) (2) b/(vs) (3) c/"));
}

// Readers part the senses 2 to 9 from the line before and judge by the first digit alone.
TEST(JapaneseEntries, TenthSenseBringsItsEmptyLine) {
  std::string edict = "あ /(n) ";
  for (int i = 1; i <= 20; ++i) edict += "(" + std::to_string(i) + ") g" + std::to_string(i) + "/";
  const std::string text = textOf(edict.c_str());
  EXPECT_NE(std::string::npos, text.find("g8\n\xF5\xD4\xF5\xBD"
                                         "9\xF5\xC1 g9\n\n\xF5\xD4\xF5\xBD"
                                         "10\xF5\xC1 g10\n\n"));
  EXPECT_NE(std::string::npos, text.find("g19\n\xF5\xD4\xF5\xBD"
                                         "20\xF5\xC1 g20\n"));
}

TEST(JapaneseEntries, RemarksStandBehindTheirSense) {
  EXPECT_EQ("\xF5\xD1" + sjis("うえ\x1B上") + "\n\xF5\xD3-[" + sjis("名") +
                "]\n\xF5\xD4\xF5\xBD"
                "1\xF5\xC1 x (honorific; archaic)\n\xF5\xD4\xF5\xBD"
                "2\xF5\xC1 y\n",
            textOf("上 [うえ] /(n) (1) (hon) (arch) x/(n) (2) y/"));
}

TEST(JapaneseEntries, RemarksOnTheWholeWordStandAboveItsSenses) {
  EXPECT_EQ("\xF5\xD1" + sjis("する\x1B為る") + "\n\xF5\xD7(outdated kanji; usually kana)\n\xF5\xD3-[" +
                sjis("動サ変") +
                "]\n\xF5\xD4\xF5\xBD"
                "1\xF5\xC1 to do\n\xF5\xD4\xF5\xBD"
                "2\xF5\xC1 to cause (slang)\n",
            textOf("為る [する] /(oK) (vs-i) (1) (uk) to do/(vs-i) (2) (uk) (sl) to cause/"));
}

TEST(JapaneseEntries, UsuallyKanaIsNotSaidOfAWordWithoutKanji) {
  EXPECT_EQ("\xF5\xD1" + sjis("リンゴ") + "\n\xF5\xD3-[" + sjis("名") +
                "]\n\xF5\xD4"
                "apple\n",
            textOf("リンゴ /(n) (uk) apple/"));
}

TEST(JapaneseEntries, LabelsAreNotRepeated) {
  EXPECT_NE(std::string::npos,
            textOf("あ /(adj-pn,adj-f,vt) x/").find("-[" + sjis("連体") + "][" + sjis("他") + "]\n"));
  EXPECT_EQ("\xF5\xD1" + sjis("あ") +
                "\n\xF5\xD4"
                "x\n",
            textOf("あ /(unc) x/"));
}

TEST(JapaneseEntries, AccentsFall) {
  EXPECT_NE(std::string::npos, textOf("あ /(n) béchamel/Tōkaidō/")
                                   .find("\xF5\xD4"
                                         "bechamel; Tokaido\n"));
}

TEST(JapaneseEntries, FilesUnderWhatAQueryCanHold) {
  const Made made({"〆切 [しめきり] /(n) deadline/", "ＣＤ [シーディー] /(n) CD/", "犬 [いぬ] /(n) dog/",
                   "きゃりー [キャリー] /(n) x/", "カーボン・コピー /(n) carbon copy/"});
  ASSERT_EQ(5u, made.entries.size());
  EXPECT_EQ(sjis("しめきり"), made.entries[0].kana);
  EXPECT_EQ("", made.entries[0].kanji);  // 〆 is no kanji to the readers
  EXPECT_EQ(sjis("シーディー"), made.entries[1].kana);
  EXPECT_EQ("", made.entries[1].kanji);
  EXPECT_EQ(sjis("犬"), made.entries[2].kanji);
  EXPECT_EQ("", made.entries[3].kanji);  // readers look a word in kana up by its reading
  EXPECT_EQ(sjis("カーボンコピー"), made.entries[4].kana);
  EXPECT_EQ(3u,
            made.summary.leftOutCount("Japanese words found by reading only (digits, letters or signs in the "
                                      "written form)"));
}

// 々 is no kanji to the readers: by its written form the word is shown as they can search it.
TEST(JapaneseEntries, AWordWithTheMarkIsTwoEntries) {
  const Made made({"人々 [ひとびと] /(n) people/(P)/", "時々 [ときどき] /(adv) sometimes/",
                   "人人 [ひとびと] /(n) people/", "々 [のま] /(n) mark/"});
  ASSERT_EQ(5u, made.entries.size());
  const std::string people = "\n\xF5\xD3-[" + sjis("名") + "]\n\xF5\xD4people\n";
  EXPECT_EQ(sjis("ひとびと"), made.entries[0].kana);
  EXPECT_EQ("", made.entries[0].kanji);
  EXPECT_EQ("\xF5\xD1" + sjis("ひとびと\x1B人々") + people, made.entries[0].text);
  EXPECT_EQ("", made.entries[2].kana);
  EXPECT_EQ(sjis("人人"), made.entries[2].kanji);
  EXPECT_EQ(
      "\xF5\xD1" + sjis("ひとびと\x1B人人") + "\n\xF5\xD7(usually written " + sjis("人々") + ")" + people,
      made.entries[2].text);
  EXPECT_LT(made.entries[2].rank, 200u);  // common, by the line with the mark

  // EDICT lacks 時時 here.
  EXPECT_EQ("", made.entries[1].kanji);
  EXPECT_EQ("", made.entries[4].kana);
  EXPECT_EQ(sjis("時時"), made.entries[4].kanji);
  EXPECT_EQ("\xF5\xD1" + sjis("ときどき\x1B時時") + "\n\xF5\xD7(usually written " + sjis("時々") + ")\n",
            made.entries[4].text.substr(0, 2 + 8 + 1 + 4 + 1 + 2 + 17 + 4 + 2));

  EXPECT_EQ("", made.entries[3].kanji);  // nothing to repeat
  EXPECT_EQ(2u, made.summary.valueOf("Japanese words written with 々"));
}

TEST(JapaneseEntries, NeitherSpellingIsUsualWhereBothAreAsCommon) {
  const Made made({"一杯一杯 [いっぱいいっぱい] /(n) limit/", "一杯々々 [いっぱいいっぱい] /(n) limit/"});
  ASSERT_EQ(2u, made.entries.size());
  EXPECT_NE(std::string::npos,
            made.entries[0].text.find("\n\xF5\xD7(also written " + sjis("一杯々々") + ")\n"));
}

// 出々し is marked as irregular, which 出出し is not.
TEST(JapaneseEntries, SpellingsToldUnlikeStayAsTheyAre) {
  const Made made({"出々し [でだし] /(iK) (n) start/", "出出し [でだし] /(n) start/"});
  ASSERT_EQ(2u, made.entries.size());
  EXPECT_EQ(sjis("でだし"), made.entries[0].kana);
  EXPECT_EQ("", made.entries[0].kanji);
  EXPECT_EQ(sjis("でだし"), made.entries[1].kana);
  EXPECT_EQ(sjis("出出し"), made.entries[1].kanji);
  EXPECT_LT(made.entries[1].rank, made.entries[0].rank);
}

TEST(JapaneseEntries, CountsWhatNoQueryCanHold) {
  const Made made({"ゝ /(unc) mark/", "あぼ～ん /(exp) deleted/"});
  EXPECT_TRUE(made.entries.empty());
  EXPECT_EQ(2u, made.summary.leftOutCount("Japanese words that no query can hold"));
}

TEST(JapaneseEntries, AWordWithoutReadingIsFiledByItsWrittenForm) {
  const Made made({"犬～ /(n) x/", "犬 /(n) dog/", "犬 [～] /(n) y/"});
  ASSERT_EQ(2u, made.entries.size());
  EXPECT_EQ("", made.entries[0].kana);
  EXPECT_EQ(sjis("犬"), made.entries[0].kanji);
  EXPECT_EQ("\xF5\xD1" + sjis("犬") + "\n", made.entries[0].text.substr(0, 5));
}

TEST(JapaneseEntries, CharactersThatShiftJisLacksLeaveTheWordOut) {
  const Made made({"犬 [いぬ] /(n) 😀/", "가 [か] /(n) x/"});
  EXPECT_TRUE(made.entries.empty());
  EXPECT_EQ(1u, made.summary.leftOutCount("Japanese words with a meaning that Shift_JIS lacks (U+1F600 😀)"));
  EXPECT_EQ(1u,
            made.summary.leftOutCount("Japanese words with a character that Shift_JIS lacks (U+AC00 가)"));
}

TEST(JapaneseEntries, TheSameWordInTwoLinesIsOneEntry) {
  const Made made({"は /(int) yes/", "は /(prt) topic/(P)/", "は /(int) yes/", "葉 [は] /(n) leaf/"});
  ASSERT_EQ(2u, made.entries.size());
  EXPECT_EQ("\xF5\xD1" + sjis("は") + "\n\xF5\xD3-[" + sjis("助") + "]\n\xF5\xD4topic\n\xF5\xD3-[" +
                sjis("感") + "]\n\xF5\xD4yes\n",
            made.entries[0].text);
  EXPECT_EQ(19u, made.entries[0].rank);  // that of the common line
  EXPECT_EQ(2u, made.summary.valueOf("EDICT lines joined to one of the same word"));
  EXPECT_EQ(1u, made.summary.valueOf("EDICT lines that say nothing new"));
}

TEST(JapaneseEntries, AWordWithDotsJoinsTheOneWithout) {
  const Made made({"カーボン・コピー /(n) carbon copy/", "カーボンコピー /(n) carbon copy/"});
  ASSERT_EQ(1u, made.entries.size());
  EXPECT_EQ(1u, made.summary.valueOf("EDICT lines that say nothing new"));
}

TEST(JapaneseEntries, HeadwordsThatLookTaggedAreKeptAndCounted) {
  // 快 ends in 0xF5, 闊 begins with 0xE8.
  const Made made({"快闊 [かいかつ] /(n) x/"});
  EXPECT_EQ(1u, made.entries.size());
  EXPECT_EQ(1u, made.summary.leftOutCount("headwords in which some readers see a tag (kept)"));
}

}  // namespace
}  // namespace zavel::mkdict
