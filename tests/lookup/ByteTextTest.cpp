#include "lookup/ByteText.h"

#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string removed(std::string text, const std::string& start, const std::string& end) {
  BareManager manager;
  manager.RemoveWordByRange(text, start, end);
  return text;
}

std::string replaced(const std::string& text, const std::string& from, const std::string& to) {
  return BareManager().ReplaceString(text, from, to);
}

TEST(RemoveWordByRange, ErasesEachMarkedStretch) {
  EXPECT_EQ(removed("a(b)c(d)e", "(", ")"), "ace");
  EXPECT_EQ(removed("no marks", "(", ")"), "no marks");
  EXPECT_EQ(removed("", "(", ")"), "");
  EXPECT_EQ(removed("()", "(", ")"), "");
}

TEST(RemoveWordByRange, TakesTheFirstEndSoThatNestingLeavesARest) {
  EXPECT_EQ(removed("(a(b)c)d", "(", ")"), "c)d");
}

TEST(RemoveWordByRange, AnEndAheadOfTheStartErasesToTheEndOfTheText) {
  EXPECT_EQ(removed("a)b(c)d", "(", ")"), "a)b");
  EXPECT_EQ(removed("a)(b)c", "(", ")"), "a)");
  EXPECT_EQ(removed(")(", "(", ")"), ")");
}

TEST(RemoveWordByRange, StopsAtAStartWithoutAnEnd) {
  EXPECT_EQ(removed("(ab", "(", ")"), "(ab");
  EXPECT_EQ(removed("a(b)c(d", "(", ")"), "ac(d");
}

TEST(RemoveWordByRange, SeesMarksThatACutBringsTogether) {
  // 81 [81 85 a 81 86] 85 b 81 86 c: what is left of the cut makes another start mark.
  EXPECT_EQ(removed("\x81\x81\x85"
                    "a\x81\x86\x85"
                    "b\x81\x86"
                    "c",
                    "\x81\x85", "\x81\x86"),
            "c");
}

TEST(RemoveWordByRange, IsBlindToCharacterBorders) {
  // 84 81 is a character, 85 a lead byte; the mark is found across the two.
  EXPECT_EQ(removed("\x84\x81\x85x\x81\x86y", "\x81\x85", "\x81\x86"), "\x84y");
}

TEST(RemoveWordByRange, EqualMarksGoOneByOne) {
  EXPECT_EQ(removed("a|b|c", "|", "|"), "abc");
}

TEST(RemoveWordByRange, EmptyMarksEraseNothingForEver) {
  EXPECT_EQ(removed("ab", "", ""), "ab");
  EXPECT_EQ(removed("ab(c", "(", ""), "ab");  // the empty end stands at 0, ahead of the start
}

TEST(ReplaceString, ReplacesAllOccurrences) {
  EXPECT_EQ(replaced("\x83\x8B\x81\x5B\x83\x8B\x81\x5B", "\x81\x5B", "\xB0"), "\x83\x8B\xB0\x83\x8B\xB0");
  EXPECT_EQ(replaced("abc", "x", "y"), "abc");
  EXPECT_EQ(replaced("", "x", "y"), "");
}

TEST(ReplaceString, FindsWhatAReplacementMade) {
  EXPECT_EQ(replaced("a   b", "  ", " "), "a b");
  EXPECT_EQ(replaced("aabb", "ab", ""), "");
  EXPECT_EQ(replaced("aXbc", "X", "YY"), "aYYbc");
}

TEST(ReplaceString, LeavesATextAloneThatWouldNeverRunOut) {
  EXPECT_EQ(replaced("abc", "", "x"), "abc");
  EXPECT_EQ(replaced("abc", "b", "xbx"), "abc");
  EXPECT_EQ(replaced("abc", "b", "b"), "abc");
}

TEST(ReplaceString, EndsEvenWhereReplacementsBreedNewOnes) {
  EXPECT_GT(replaced("aab", "ab", "bbaa").size(), 1000u);
}

}  // namespace
}  // namespace zavel::test
