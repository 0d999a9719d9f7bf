// The order of words that are filed alike.
#include "mkdict/JapaneseRanks.h"

#include <gtest/gtest.h>

#include "mkdict/EdictSupport.h"

namespace zavel::mkdict {
namespace {

uint32_t rankOf(const char* edict) {
  return WordFrequency::of(edictLine(edict)).byReading;
}
uint32_t writtenRankOf(const char* edict) {
  return WordFrequency::of(edictLine(edict)).byWritten;
}

TEST(JapaneseRanks, RankOrdersEqualReadings) {
  const char* const frequentFirst[] = {
      "こと /(n) (1) thing/(n) (2) matter/(P)/",      // common, in kana, two senses
      "事 [こと] /(n) (uk) thing/(P)/",               // usually in kana
      "琴 [こと] /(n) (1) koto/(n) (2) zither/(P)/",  // common, two senses
      "古都 [こと] /(n) ancient city/(P)/",           //
      "こと /(int) oh/",                              // not marked common
      "糊塗 [こと] /(n) patching up/",                //
      "こと /(n) (arch) x/",                          // all senses rare
      "孤島 [こと] /(ok) (n) solitary island/",
  };
  for (size_t i = 1; i < std::size(frequentFirst); ++i) {
    EXPECT_LT(rankOf(frequentFirst[i - 1]), rankOf(frequentFirst[i])) << frequentFirst[i];
  }
}

TEST(JapaneseRanks, OutdatedKanjiDoNotMakeAKanaWordRare) {
  EXPECT_EQ(rankOf("こと /(n) x/"), rankOf("此 [こと] /(oK) (n) (uk) x/"));
  EXPECT_LT(rankOf("此 [こと] /(n) x/"), rankOf("此 [こと] /(oK) (n) x/"));
  EXPECT_LT(rankOf("此 [こと] /(n) (uk) x/"), rankOf("此 [こと] /(ok) (n) (uk) x/"));
}

// 犬 stands in one common word, 狗 and 亜 in none; 狗 is another spelling of 犬.
TEST(JapaneseRanks, RareKanjiAndOtherSpellingsComeLater) {
  const MadeEntries made(
      {"犬 [いぬ] /(n) dog/(P)/", "狗 [いぬ] /(n) dog/", "亜 [あ] /(n) x/", "あ /(int) ah/"});
  ASSERT_EQ(4u, made.entries.size());
  EXPECT_EQ(100u + 19 + 8 * 6, made.entries[0].rank);
  EXPECT_EQ(300u + 19 + 8 * (7 + 2), made.entries[1].rank);
  EXPECT_EQ(300u + 19 + 8 * 7, made.entries[2].rank);
  EXPECT_EQ(200u + 19, made.entries[3].rank);
  EXPECT_EQ(0u + 27 + 8 * 6, made.entries[0].kanjiRank);
  EXPECT_EQ(200u + 27 + 8 * (7 + 2), made.entries[1].kanjiRank);
  EXPECT_EQ(200u + 27 + 8 * 7, made.entries[2].kanjiRank);
}

TEST(JapaneseRanks, AWordOfTenSensesIsCommon) {
  std::string nine = "為る [する] /(oK) ", ten;
  for (int i = 1; i <= 9; ++i) nine += "(vs-i) (" + std::to_string(i) + ") (uk) g/";
  ten = nine + "(vs-i) (10) (uk) g/";
  EXPECT_GT(rankOf(nine.c_str()), rankOf("スルー /(n) through/(P)/"));
  EXPECT_LT(rankOf(ten.c_str()), rankOf("スルー /(n) through/(P)/"));
}

TEST(JapaneseRanks, AWrittenFormMeansTheWordThatIsWrittenSo) {
  const char* const frequentFirst[] = {
      "家 [いえ] /(n) house/(P)/",       // common
      "家 [うち] /(n) (uk) house/(P)/",  // usually in kana
      "家 [や] /(n) house/",             // not marked common
      "家 [んち] /(n) (uk) house/",      // and usually in kana
      "家 [う] /(n) (arch) house/",      // rare
  };
  for (size_t i = 1; i < std::size(frequentFirst); ++i) {
    EXPECT_LT(writtenRankOf(frequentFirst[i - 1]), writtenRankOf(frequentFirst[i])) << frequentFirst[i];
  }
  // Outdated kanji make the written form a rare one, whatever is true of the word.
  EXPECT_LT(writtenRankOf("此 [こと] /(n) (uk) x/"), writtenRankOf("此 [こと] /(oK) (n) (uk) x/"));
  // Parts of words stand behind words.
  EXPECT_LT(writtenRankOf("人 [ひと] /(n) man/(P)/"),
            writtenRankOf("人 [じん] /(suf) (1) -ian/(n) (2) man/(P)/"));
  EXPECT_EQ(writtenRankOf("人 [にん] /(ctr) people/(P)/"), writtenRankOf("人 [じん] /(suf,n-suf) -ian/(P)/"));
}

// こんにち has two senses; きょう has one, and two phrases: 3 * 1 against 1 * 2.
TEST(JapaneseRanks, UsesCountAsSensesDo) {
  const MadeEntries made({"今日 [こんにち] /(n) (1) today/(n) (2) nowadays/(P)/",
                          "今日 [きょう] /(n) today/(P)/", "今日このごろ [きょうこのごろ] /(n) these days/",
                          "昨日の今日 [きのうのきょう] /(n) the day after/"});
  EXPECT_EQ(made.entries[0].kanjiRank, made.entries[1].kanjiRank + 1);
  EXPECT_LT(made.entries[0].rank, made.entries[1].rank);  // by reading they never meet
}

TEST(JapaneseRanks, SayingsProveNothing) {
  const char* const sayings[] = {"明日は明日の風が吹く [あすはあすのかぜがふく] /(exp) (proverb) x/",
                                 "明日は我が身 [あすはわがみ] /(exp) (id) x/",
                                 "明日の夜 [あすのよる] /(n) (arch) x/"};
  for (const char* saying : sayings) {
    const MadeEntries made({"明日 [あす] /(n) tomorrow/(P)/", "明日 [あした] /(n) tomorrow/(P)/", saying});
    EXPECT_EQ(made.entries[0].kanjiRank, made.entries[1].kanjiRank) << saying;
  }
}

}  // namespace
}  // namespace zavel::mkdict
