// Sort keys, comparators and the merge of headword lists.
#include "engine/MidasiOrder.h"

#include <gtest/gtest.h>

#include "engine/SearchFixture.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

TEST(WordFilter, KeepsTheLettersAheadOfCommaAndBracket) {
  EXPECT_EQ("runup", WordFilter("***run-up [x]"));
  EXPECT_EQ("RBandB", WordFilter("R & B and B"));
  EXPECT_EQ("run", WordFilter("run,up"));
  EXPECT_EQ("run", WordFilter("run[up]"));
  EXPECT_EQ("", WordFilter(""));
  EXPECT_EQ("", WordFilter("[a]"));
}

// kept: bytes, not characters
TEST(WordFilter, TakesTrailBytesForLetters) {
  EXPECT_EQ("A", WordFilter(sjis("ア"))) << "0x83 0x41";
  EXPECT_EQ("a", WordFilter(sjis("aーb"))) << "the second byte of ー is [";
}

TEST(WordFilterJ, TurnsKatakanaToHiraganaAndDropsMarks) {
  EXPECT_EQ(sjis("かどあ"), WordFilterJ(sjis("カード－…ア [x]")));
  EXPECT_EQ(sjis("くだもの"), WordFilterJ(sjis("くだもの [果物]")));
  EXPECT_EQ(sjis("果物"), WordFilterJ(sjis("果物 [くだもの]")));
  EXPECT_EQ("", WordFilterJ(sjis(" [くだもの]")));
  EXPECT_EQ("", WordFilterJ(""));
}

TEST(WordFilterJ, StepsByTwoBytesAndStaysInsideTheText) {
  EXPECT_EQ(sjis("あ"), WordFilterJ(sjis("あ") + "x")) << "an odd byte at the end";
  EXPECT_EQ(sjis("あ") + "\xA5 [x", WordFilterJ(sjis("あ") + "\xA5 [x"))
      << "a bracket at an odd place is passed over";
}

TEST(KaniFilter, KeepsWhatFollowsTheFirstBracket) {
  for (auto* filter : {KaniFilter, KaniFilterJ}) {
    EXPECT_EQ("b]", filter("a [b]"));
    EXPECT_EQ("b [c]", filter("a [b [c]"));
    EXPECT_EQ("", filter("a[b]"));
    EXPECT_EQ("", filter(""));
  }
}

TEST(Comparators, CompareBytesOrLettersOrKana) {
  EXPECT_LT(compare_ONLY("a", "b"), 0);
  EXPECT_GT(compare_ONLY("\xE9", "z"), 0) << "bytes are unsigned";
  EXPECT_EQ(0, compare_ONLY("a", "a"));
  EXPECT_EQ(0, compare_N("**run-up [x]", "RUNUP [x]"));
  EXPECT_LT(compare_N("apple [b]", "Banana [a]"), 0);
  EXPECT_LT(compare_N("run [a]", "RUN [b]"), 0) << "the gloss breaks the tie";
  EXPECT_LT(compare_N("run", "run [a]"), 0);
  EXPECT_EQ(0, compare_NJ(sjis("アメ [雨]"), sjis("あめ [雨]")));
  EXPECT_NE(0, compare_NJ(sjis("あめ [雨]"), sjis("あめ [飴]")));
  EXPECT_LT(compare_NJ(sjis("あめ"), sjis("カー")), 0);
}

MidasiLines sortedE(MidasiLines lines) {
  SortMidasiE(&lines);
  return lines;
}

TEST(SortMidasiE, DropsEqualLinesAndSortsTheRest) {
  EXPECT_EQ((MidasiLines{"ant", "bee [x]", "cat"}), sortedE({"cat", "bee [x]", "ant", "bee [x]", "cat"}));
  EXPECT_EQ((MidasiLines{}), sortedE({}));
  EXPECT_EQ((MidasiLines{"a"}), sortedE({"a", "a", "a"}));
}

TEST(SortMidasiE, KeepsByteOrderAmongLinesThatCompareEqual) {
  EXPECT_EQ((MidasiLines{"***runup", "RUNUP", "run-up", "runup"}),
            sortedE({"runup", "run-up", "RUNUP", "***runup"}));
  EXPECT_EQ((MidasiLines{"***run [a]", "run [b]", "runs"}), sortedE({"runs", "run [b]", "***run [a]"}));
}

TEST(SortMidasiJ, SortsByKanaThenByTheWrittenForm) {
  const std::vector<std::string> words = {sjis("アメ"), sjis("あり"), sjis("あめ [雨]"), sjis("ア"),
                                          sjis("あり")};
  MidasiLines lines(words.begin(), words.end());
  SortMidasiJ(&lines);
  EXPECT_EQ((MidasiLines{sjis("ア"), sjis("アメ"), sjis("あめ [雨]"), sjis("あり")}), lines);
}

TEST(IncludingUser, PutsTheBasicLineFirstAtEqualWordsAndDropsNothing) {
  EXPECT_EQ((MidasiLines{"apple [1]", "apple [1]", "bat", "cat"}),
            IncludingUser({"apple [1]", "cat"}, {"apple [1]", "bat"}));
  EXPECT_EQ((MidasiLines{"apple [2]", "apple [1]"}), IncludingUser({"apple [2]"}, {"apple [1]"}))
      << "the gloss plays no part";
}

// kept: capitals come first here, while the two lists are sorted without case
TEST(IncludingUser, TellsCapitalsFromSmallLetters) {
  EXPECT_EQ((MidasiLines{"Zoo", "ant"}), IncludingUser({"Zoo"}, {"ant"}));
  EXPECT_EQ((MidasiLines{"Zoo", "ant"}), IncludingUser({"ant"}, {"Zoo"}));
}

TEST(IncludingUser, TakesWhatIsLeftOfOneSide) {
  EXPECT_EQ((MidasiLines{"a", "b", "c"}), IncludingUser({"a", "b", "c"}, {}));
  EXPECT_EQ((MidasiLines{"a", "b", "c"}), IncludingUser({}, {"a", "b", "c"}));
  EXPECT_EQ((MidasiLines{}), IncludingUser({}, {}));
  EXPECT_EQ((MidasiLines{"a", "b", "c"}), IncludingUser({"b"}, {"a", "c"}));
}

TEST(IncludingUser, GoesFiftyRounds) {
  const MidasiLines forty(40, "b");
  MidasiLines merged = IncludingUser(forty, MidasiLines(40, "a"));
  ASSERT_EQ(50u, merged.size());
  EXPECT_EQ("a", merged[39]);
  EXPECT_EQ("b", merged[40]);
  EXPECT_EQ(50u, IncludingUserJ(forty, forty).size());
  EXPECT_EQ(50u, IncludingUser(MidasiLines(25, "a"), MidasiLines(25, "a")).size());
}

TEST(IncludingUserJ, ComparesByKana) {
  EXPECT_EQ((MidasiLines{sjis("あめ"), sjis("アメ"), sjis("いぬ"), sjis("ウシ")}),
            IncludingUserJ({sjis("あめ"), sjis("ウシ")}, {sjis("アメ"), sjis("いぬ")}));
}

}  // namespace
}  // namespace zavel::test
