#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string rebuilt(const std::vector<std::string>& keys, const std::vector<std::string>& entries) {
  BareManager manager;
  manager.searchKeys = keys;
  manager.meaningList = entries;
  return manager.RebuildResultData();
}

TEST(RebuildResultData, WithoutKeysEveryEntryIsAmongTheBest) {
  EXPECT_EQ(rebuilt({}, {"a\r", "b\r", "c\r"}), "a\rb\rc\r");
  EXPECT_EQ(rebuilt({}, {}), "");
}

TEST(RebuildResultData, WithoutAHitEveryEntryIsAmongTheBest) {
  EXPECT_EQ(rebuilt({"zz"}, {"a\r", "b\r"}), "a\rb\r");
}

TEST(RebuildResultData, EqualScoresGatherInTheAnswersOrder) {
  EXPECT_EQ(rebuilt({"go"}, {"go 1\r", "be\r", "go 2\r"}), "go 1\rgo 2\r");
}

TEST(RebuildResultData, AHigherScoreThrowsAwayWhatWasGathered) {
  EXPECT_EQ(rebuilt({"go", "xx"}, {"go 1\r", "go 2 xx\r", "go 3\r"}), "go 2 xx\r");
}

TEST(RebuildResultData, TheFirstKeyCountsInTheHeadlineAlone) {
  EXPECT_EQ(rebuilt({"go"}, {"be\rgo\r", "go\r"}), "go\r");
}

TEST(RebuildResultData, OtherKeysCountAnywhere) {
  EXPECT_EQ(rebuilt({"q", "go"}, {"a\r", "be\rgo\r"}), "be\rgo\r");
}

TEST(RebuildResultData, OtherKeysOfOneByteAreIgnored) {
  EXPECT_EQ(rebuilt({"q", "g"}, {"a\r", "g\r"}), "a\rg\r");
  EXPECT_EQ(rebuilt({"q", " g "}, {"a\r", "g\r"}), "a\rg\r");  // one byte without its blanks
}

TEST(RebuildResultData, ComparesWithoutBlanksKeysBracketsAndLongMarks) {
  const std::string marked = tag(0xF5D1) + "g" + tag(0xF5B1) + "o (x) on\r";
  EXPECT_EQ(rebuilt({"go on"}, {"be\r", marked}), marked);
  const std::string superscript = "go" + tag(0xF4B5) + "1" + tag(0xF4D0) + "on\r";
  EXPECT_EQ(rebuilt({"goon"}, {"be\r", superscript}), superscript);
  EXPECT_EQ(rebuilt({sjis("ルｰル")}, {"be\r", sjis("ルール\r")}), sjis("ルール\r"));
}

TEST(RebuildResultData, AnExactMatchComesTwiceAtAnEqualScore) {
  EXPECT_EQ(rebuilt({"go"}, {"xgo", "go"}), "gogo");
}

TEST(RebuildResultData, AnExactMatchBelowTheBestScoreStillReplacesIt) {
  EXPECT_EQ(rebuilt({"go", "xx"}, {"go xx", "go"}), "go");
}

TEST(RebuildResultData, AWholeTextMatchesThoughItsHeadlineDoesNot) {
  EXPECT_EQ(rebuilt({"a\rb"}, {"a\rb", "zz"}), "a\rb");
}

TEST(RebuildResultData, AFirstKeyOfBlanksMatchesAnything) {
  EXPECT_EQ(rebuilt({" ", "go"}, {"a\r", "b\r"}), "a\rb\r");
}

TEST(RebuildResultData, TakesEntriesUpToTheirFirstZeroByte) {
  EXPECT_EQ(rebuilt({}, {raw("a\0b"), raw("c\0d")}), "ac");
  EXPECT_EQ(rebuilt({"b"}, {raw("x\0b"), "y"}), "xy");
}

TEST(RebuildResultData, StopsCountingKeysInALineThatIsMadeToTakeLong) {
  const std::string entry = std::string((1 << 20) - 1, 'x') + "\r";  // 1 MiB
  std::vector<std::string> keys = {"q"};
  // Behind 512 keys in the first entry 512 MiB are searched, which is still allowed.
  keys.resize(1 + 512, "ab");
  EXPECT_EQ(rebuilt(keys, {entry, "ab\r"}), "ab\r");
  keys.resize(1 + 513, "ab");
  EXPECT_EQ(rebuilt(keys, {entry, "ab\r"}), entry + "ab\r");
}

TEST(RebuildResultData, ClearsTheHeadForm) {
  BareManager manager;
  manager.headForm = "go";
  manager.RebuildResultData();
  EXPECT_EQ(manager.headForm, "");
}

}  // namespace
}  // namespace zavel::test
