#include "config/ByteStrings.h"

#include <gtest/gtest.h>

#include <string>

namespace zavel::test {
namespace {

using Replace = void (*)(std::string*, const std::string&, const std::string&, const std::string&);

std::string replaced(Replace replace, const std::string& text, const std::string& from,
                     const std::string& to) {
  std::string out = "left over";
  replace(&out, text, from, to);
  return out;
}

std::string replacedInBuffer(const std::string& text, const std::string& from, const std::string& to,
                             size_t size) {
  std::string buffer(size + 1, '#');
  ReplaceString3(text, from, to, buffer.data(), size);
  return buffer;
}

TEST(FindString, GivesTheOffsetOfTheFirstMatch) {
  for (auto find : {FindString, FindWString}) {
    EXPECT_EQ(find("abcabc", "bc"), 1);
    EXPECT_EQ(find("abc", "abc"), 0);
    EXPECT_EQ(find("abc", "cb"), -1);
    EXPECT_EQ(find("abc", "abcd"), -1);
    EXPECT_EQ(find("", "a"), -1);
    EXPECT_EQ(find("abc", ""), 0);
  }
}

TEST(FindString, CountsBytesAndMatchesInTheMiddleOfACharacter) {
  for (auto find : {FindString, FindWString}) {
    EXPECT_EQ(find("\x82\xA0\x82\xA2", "\x82\xA2"), 2);
    EXPECT_EQ(find("\x83\x41", "A"), 1);
    EXPECT_EQ(find("\x82\xA0\x82\xA2", "\xA0\x82"), 1);
    EXPECT_EQ(find(std::string("a\0b", 3), "b"), 2);
  }
}

TEST(ReplaceString, ReplacesAllOccurrences) {
  for (Replace replace : {ReplaceString, ReplaceString2, ReplaceWString}) {
    EXPECT_EQ(replaced(replace, "one two one", "one", "1"), "1 two 1");
    EXPECT_EQ(replaced(replace, "aXbX", "X", ""), "ab");
    EXPECT_EQ(replaced(replace, "abc", "x", "y"), "abc");
    EXPECT_EQ(replaced(replace, "", "x", "y"), "");
    EXPECT_EQ(replaced(replace, "\x82\xA0z", "\xA0", "\x81\x40"), "\x82\x81\x40z");
  }
}

TEST(ReplaceString, OutMayBeTheText) {
  for (Replace replace : {ReplaceString, ReplaceString2, ReplaceWString}) {
    std::string text = "one two";
    replace(&text, text, "two", "three");
    EXPECT_EQ(text, "one three");
  }
}

TEST(ReplaceString, AnEmptyFromGivesTheText) {
  for (Replace replace : {ReplaceString, ReplaceString2, ReplaceWString}) {
    EXPECT_EQ(replaced(replace, "abc", "", "x"), "abc");
    EXPECT_EQ(replaced(replace, "", "", "x"), "");
  }
  EXPECT_EQ(replacedInBuffer("abc", "", "x", 8).substr(0, 4), std::string("abc\0", 4));
}

TEST(ReplaceString, SearchesFromTheStartSoThatWhatItCompletesIsReplacedToo) {
  EXPECT_EQ(replaced(ReplaceString, "aabb", "ab", ""), "");
  EXPECT_EQ(replaced(ReplaceString2, "aabb", "ab", ""), "ab");
  EXPECT_EQ(replaced(ReplaceWString, "aabb", "ab", ""), "ab");
  EXPECT_EQ(replaced(ReplaceString, "aabb", "ab", "ba"), "bbaa");
  // aab, abba, bbaba, bbbbaa
  EXPECT_EQ(replaced(ReplaceString, "aab", "ab", "bba"), "bbbbaa");
}

TEST(ReplaceString, TakesTheLeftmostOfOverlappingMatches) {
  EXPECT_EQ(replaced(ReplaceString, "aaa", "aa", "b"), "ba");
  EXPECT_EQ(replaced(ReplaceString, "ababa", "aba", "x"), "xba");
  EXPECT_EQ(replaced(ReplaceString2, "ababa", "aba", "x"), "xba");
}

TEST(ReplaceString, AToThatHoldsFromGivesTheText) {
  EXPECT_EQ(replaced(ReplaceString, "a.b.c", ".", ".."), "a.b.c");
  EXPECT_EQ(replaced(ReplaceString, "a.b", ".", "."), "a.b");
  EXPECT_EQ(replacedInBuffer("a.b", ".", "..", 8).substr(0, 4), std::string("a.b\0", 4));
}

TEST(ReplaceString, AReplacementThatNeverEndsGivesTheText) {
  // aab, abbaa, bbaabaa: it holds aab again, and so for ever. With more b it grows faster.
  const std::string bs(16, 'b');
  EXPECT_EQ(replaced(ReplaceString, "aab", "ab", bs + "aa"), "aab");
  // Each a makes 16 of the b behind it: 16 to the power of 50.
  const std::string explosive = std::string(50, 'a') + "b";
  EXPECT_EQ(replaced(ReplaceString, explosive, "ab", bs + "a"), explosive);
  // Few steps, but each adds a million bytes.
  EXPECT_EQ(replaced(ReplaceString, explosive, "ab", std::string(1000000, 'b') + "a"), explosive);
}

TEST(ReplaceString, WhatTakesTooLongGivesTheText) {
  // Each of 50,000 b passes 50 times over 1000 a: that would end after 2,500,000 replacements.
  const std::string many(1000, 'a');
  const std::string text = std::string(50000, 'a') + std::string(50000, 'b');
  EXPECT_EQ(replaced(ReplaceString, text, many + "b", "b" + many), text);
}

TEST(ReplaceString, WhatEndsIsCarriedToItsEnd) {
  // Each of 2000 b passes 2000 a: 4,000,000 replacements.
  const std::string as(2000, 'a'), bs(2000, 'b');
  EXPECT_EQ(replaced(ReplaceString, as + bs, "ab", "ba"), bs + as);
  EXPECT_EQ(replacedInBuffer(as + bs, "ab", "ba", 4001).substr(0, 4000), bs + as);
  // Each of 15 a doubles the b behind it.
  EXPECT_EQ(replaced(ReplaceString, std::string(15, 'a') + "b", "ab", "bba"),
            std::string(32768, 'b') + std::string(15, 'a'));
}

TEST(ReplaceString, ReplacesEveryByteOfALongText) {
  const std::string text(200000, 'a');
  EXPECT_EQ(replaced(ReplaceString, text, "a", "bc").size(), 400000u);
  // 20 MB: what replacing once takes is no growth that is given up.
  EXPECT_EQ(replaced(ReplaceString, text, "a", std::string(100, 'b')), std::string(20000000, 'b'));
}

TEST(ReplaceString2, MovesPastEachReplacement) {
  for (Replace replace : {ReplaceString2, ReplaceWString}) {
    EXPECT_EQ(replaced(replace, "a.b.c", ".", ".."), "a..b..c");
    EXPECT_EQ(replaced(replace, "aa", "a", "aa"), "aaaa");
  }
}

TEST(ReplaceString3, WritesTheResultWithItsNul) {
  EXPECT_EQ(replacedInBuffer("aXb", "X", "YY", 8), std::string("aYYb\0####", 9));
  EXPECT_EQ(replacedInBuffer("aXb", "X", "YY", 5), std::string("aYYb\0#", 6));
}

TEST(ReplaceString3, WritesAsMuchAsFits) {
  EXPECT_EQ(replacedInBuffer("aXb", "X", "YY", 4), std::string("aYY\0#", 5));
  EXPECT_EQ(replacedInBuffer("aXb", "X", "YY", 1), std::string("\0#", 2));
  EXPECT_EQ(replacedInBuffer("aXb", "X", "YY", 0), "#");
  ReplaceString3("a", "a", "b", nullptr, 4);
}

std::string cased(void (*change)(bool, const std::string&, std::string*), bool flag, const std::string& src) {
  std::string dst = "left over";
  change(flag, src, &dst);
  return dst;
}

TEST(ToUpper, ChangesAsciiLettersOnly) {
  EXPECT_EQ(cased(ToUpper, true, "`az{AZ[@ 19"), "`AZ{AZ[@ 19");
  EXPECT_EQ(cased(ToLower, true, "`az{AZ[@ 19"), "`az{az[@ 19");
}

TEST(ToUpper, OffIsACopy) {
  EXPECT_EQ(cased(ToUpper, false, "aZ"), "aZ");
  EXPECT_EQ(cased(ToLower, false, "aZ"), "aZ");
}

TEST(ToUpper, LooksAtBytesAloneAndChangesSecondBytesThatAreLetters) {
  // あ ends in no letter, チ (0x8360) neither; ツ (0x8362) ends in "b", ア (0x8341) in "A".
  EXPECT_EQ(cased(ToUpper, true, "\x82\xA0\x83\x60\x83\x62"), "\x82\xA0\x83\x60\x83\x42");
  EXPECT_EQ(cased(ToLower, true, "\x82\xA0\x83\x41"), "\x82\xA0\x83\x61");
  EXPECT_EQ(cased(ToUpper, true, "\xE1\xFA"), "\xE1\xFA");
}

TEST(ToUpper, TheResultMayBeTheSource) {
  std::string text = "abc";
  ToUpper(true, text, &text);
  EXPECT_EQ(text, "ABC");
  ToLower(true, text, &text);
  EXPECT_EQ(text, "abc");
}

}  // namespace
}  // namespace zavel::test
