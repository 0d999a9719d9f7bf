#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

using Keys = std::vector<std::string>;

Keys keysOf(const std::string& keyword) {
  BareManager manager;
  manager.MakeSearchKey("word", keyword);
  return manager.searchKeys;
}

TEST(MakeSearchKey, AReadingAndItsWrittenFormsAreKeysInThisOrder) {
  BareManager manager;
  manager.MakeSearchKey("word", sjis("みち [道,路]"));
  EXPECT_EQ(manager.searchKeys, (Keys{sjis("みち"), sjis("道"), sjis("路")}));
  EXPECT_EQ(manager.headForm, sjis("みち"));
}

TEST(MakeSearchKey, AKeywordWithoutBracketsIsTheOnlyKey) {
  BareManager manager;
  manager.headForm = "before";
  manager.MakeSearchKey("word", "go on");
  EXPECT_EQ(manager.searchKeys, (Keys{"go on"}));
  EXPECT_EQ(manager.headForm, "before");
  EXPECT_EQ(keysOf("go [x"), (Keys{"go [x"}));
  EXPECT_EQ(keysOf("go x]"), (Keys{"go x]"}));
}

TEST(MakeSearchKey, AnEmptyKeywordGivesNone) {
  BareManager manager;
  manager.searchKeys = {"old"};
  manager.MakeSearchKey("word", "");
  EXPECT_TRUE(manager.searchKeys.empty());
}

TEST(MakeSearchKey, WritesTheLongMarkInHalfWidth) {
  EXPECT_EQ(keysOf(sjis("ルール")), (Keys{sjis("ルｰル")}));
  EXPECT_EQ(keysOf(sjis("ルール [キー]")), (Keys{sjis("ルｰル"), sjis("キｰ")}));
}

TEST(MakeSearchKey, TheFirstKeyLosesItsBlanksAndTheByteAheadOfTheBracket) {
  EXPECT_EQ(keysOf("a b [c]"), (Keys{"ab", "c"}));
  EXPECT_EQ(keysOf("ab[c]"), (Keys{"a", "c"}));
}

TEST(MakeSearchKey, OneByteAheadOfTheBracketGivesNoFirstKey) {
  BareManager manager;
  manager.headForm = "before";
  manager.MakeSearchKey("word", " [c,d]");
  EXPECT_EQ(manager.searchKeys, (Keys{"c", "d"}));
  EXPECT_EQ(manager.headForm, "");
}

TEST(MakeSearchKey, ABracketAtTheStartLeavesTheWholeKeyword) {
  EXPECT_EQ(keysOf("[c,d]"), (Keys{"[c,d]"}));
}

TEST(MakeSearchKey, AClosingBracketAheadOfTheOpeningOneAddsTheWholeKeyword) {
  EXPECT_EQ(keysOf("ab]c [d"), (Keys{"ab]c", "ab]c [d"}));
}

TEST(MakeSearchKey, SeparatesByCommasThenSemicolonsThenBlanks) {
  EXPECT_EQ(keysOf("w [a,b;c]"), (Keys{"w", "a", "b", "c"}));
  EXPECT_EQ(keysOf("w [a;b,c]"), (Keys{"w", "a;b", "c"}));
  EXPECT_EQ(keysOf("w [a b,c]"), (Keys{"w", "a b", "c"}));
  EXPECT_EQ(keysOf("w [a b]"), (Keys{"w", "a", "b"}));
  EXPECT_EQ(keysOf("w [a,b c;d e]"), (Keys{"w", "a", "b c", "d", "e"}));
}

TEST(MakeSearchKey, LeavesEmptyKeysOut) {
  EXPECT_EQ(keysOf("w [,a,,b,]"), (Keys{"w", "a", "b"}));
  EXPECT_EQ(keysOf("w []"), (Keys{"w"}));
  EXPECT_EQ(keysOf("w [ ]"), (Keys{"w"}));
}

TEST(MakeSearchKey, ReadsUpToTheLastClosingBracket) {
  EXPECT_EQ(keysOf("w [a]b] c"), (Keys{"w", "a]b"}));
}

TEST(MakeSearchKey, IsBlindToCharacterBorders) {
  // 深 is 90 5B: its second byte opens the bracket, so that the 90 is the byte that goes.
  EXPECT_EQ(keysOf(sjis("い深 [x]")), (Keys{sjis("い"), "[x"}));
  // 早[ is 91 81 5B: the last two are taken for the long mark, and no bracket is left.
  EXPECT_EQ(keysOf(sjis("早[x]")), (Keys{"\x91\xB0x]"}));
}

TEST(MakeSearchKey, DoesNothingForARefusedWord) {
  BareManager manager;
  manager.searchKeys = {"old"};
  manager.MakeSearchKey(std::string(256, 'a'), "go");
  EXPECT_EQ(manager.searchKeys, (Keys{"old"}));
  manager.MakeSearchKey(std::string(255, 'a'), "go");
  EXPECT_EQ(manager.searchKeys, (Keys{"go"}));

  MirellDictionaryManager closed;
  closed.searchKeys = {"old"};
  closed.MakeSearchKey("go", "go");
  EXPECT_EQ(closed.searchKeys, (Keys{"old"}));
}

}  // namespace
}  // namespace zavel::test
