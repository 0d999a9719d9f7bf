// Which reading of a written form the longer words use.
#include "mkdict/ReadingUses.h"

#include <gtest/gtest.h>

#include "mkdict/EdictSupport.h"

namespace zavel::mkdict {
namespace {

using Counts = std::vector<uint32_t>;

// Of the first lines, as many as `count`; all lines are heard.
Counts usesOf(size_t count, const std::vector<const char*>& lines) {
  const MadeEntries made(lines);
  Counts uses = usesByThemselves(made.entries, std::vector<bool>(made.entries.size(), true));
  uses.resize(count);
  return uses;
}

TEST(ReadingUses, CountsTheReadingThatStandsThere) {
  EXPECT_EQ((Counts{3, 1}), usesOf(2, {"今日 [きょう] /(n) x/", "今日 [こんにち] /(n) x/",
                                       "今日このごろ [きょうこのごろ] /(n) x/",  // at the beginning
                                       "昨日の今日 [きのうのきょう] /(n) x/",    // at the end
                                       "よりによって今日また [よりによってきょうまた] /(n) x/",
                                       "今日では [こんにちでは] /(n) x/"}));
}

// Kanji before or behind make a compound, whose parts are read in other ways.
TEST(ReadingUses, PassesOverCompounds) {
  EXPECT_EQ((Counts{1, 0}), usesOf(2, {"人 [ひと] /(n) x/", "人 [じん] /(n) x/", "人文 [じんぶん] /(n) x/",
                                       "美人 [びじん] /(n) x/", "人々の [じんじんの] /(n) x/",
                                       "人づてに [ひとづてに] /(n) x/"}));
}

TEST(ReadingUses, PassesOverTheBeginningOfAnotherWord) {
  EXPECT_EQ((Counts{1, 0}), usesOf(2, {"三 [さん] /(n) x/", "三 [み] /(n) x/", "三つ [みっつ] /(n) x/",
                                       "三つ葉 [みつば] /(n) x/", "三の間 [さんのま] /(n) x/"}));
}

TEST(ReadingUses, TheKanaAroundMustStandAroundTheReading) {
  const Counts none = {0, 0};
  EXPECT_EQ(none, usesOf(2, {"上 [うえ] /(n) x/", "上 [かみ] /(n) x/", "その上に [そのうへに] /(n) x/"}));
  EXPECT_EQ(none, usesOf(2, {"上 [うえ] /(n) x/", "上 [かみ] /(n) x/", "上に [あうえに] /(n) x/"}));
  EXPECT_EQ(none, usesOf(2, {"上 [うえ] /(n) x/", "上 [かみ] /(n) x/", "の上 [のうえあ] /(n) x/"}));
  EXPECT_EQ((Counts{1, 0}),
            usesOf(2, {"上 [うえ] /(n) x/", "上 [かみ] /(n) x/", "目の上の瘤 [めのうえのこぶ] /(n) x/"}));
}

TEST(ReadingUses, OneReadingNeedsNoCount) {
  EXPECT_EQ((Counts{0}), usesOf(1, {"犬 [いぬ] /(n) x/", "犬の目 [いぬのめ] /(n) x/"}));
  EXPECT_EQ((Counts{0}), usesOf(1, {"いぬ /(n) x/", "犬の目 [いぬのめ] /(n) x/"}));
}

TEST(ReadingUses, AWordIsNoUseOfItself) {
  EXPECT_EQ((Counts{0, 0}), usesOf(2, {"開く [あく] /(v5k) x/", "開く [ひらく] /(v5k) x/"}));
  EXPECT_EQ((Counts{0, 1}),
            usesOf(2, {"開く [あく] /(v5k) x/", "開く [ひらく] /(v5k) x/", "花開く [はなひらく] /(v5k) x/",
                       "口を開く [くちをひらく] /(v5k) x/"}));
}

TEST(ReadingUses, OnlyWhatIsHeardCounts) {
  const MadeEntries made({"今日 [きょう] /(n) x/", "今日 [こんにち] /(n) x/",
                          "今日この頃 [きょうこのごろ] /(n) x/", "今日では [こんにちでは] /(n) x/"});
  EXPECT_EQ((Counts{1, 0, 0, 0}), usesByThemselves(made.entries, {true, true, true, false}));
  EXPECT_EQ((Counts{0, 1, 0, 0}), usesByThemselves(made.entries, {true, true, false, true}));
}

}  // namespace
}  // namespace zavel::mkdict
