#include "book/BookKeys.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"

namespace zavel::host {
namespace {

using test::jis;

// A book that has é as its own character, and neither ñ nor œ.
const BookCharacters& book() {
  static const BookCharacters kBook(test::be32(1) + test::be16(0xA121) + test::be16(0) + test::be32(0xE9) +
                                    test::be32(0xE9) + test::be32(0));
  return kBook;
}

struct Spelled {
  std::vector<std::string> codes;
  std::string unknown;
};

Spelled spell(std::string_view word, bool asTyped = false) {
  Spelled spelled;
  spelled.codes = keySpellings(word, book(), asTyped, &spelled.unknown);
  return spelled;
}

using Codes = std::vector<std::string>;

TEST(BookKeysTest, AWord) {
  EXPECT_EQ(spell("dog").codes, Codes{jis("dog")});
  EXPECT_EQ(spell("犬").codes, Codes{jis("犬")});
  EXPECT_EQ(spell("ｄｏｇ").codes, Codes{jis("dog")});
  EXPECT_EQ(spell("ﾈｺ").codes, Codes{jis("ネコ")});
}

TEST(BookKeysTest, BlanksAroundAreNoneInsideAreTriedBothWays) {
  EXPECT_EQ(spell(" dog\t").codes, Codes{jis("dog")});
  EXPECT_EQ(spell("　犬　").codes, Codes{jis("犬")});
  EXPECT_EQ(spell("hot dog").codes, (Codes{jis("hotdog"), jis("hot dog")}));
}

TEST(BookKeysTest, SignsAroundMayBelongToTheWord) {
  EXPECT_EQ(spell("who?").codes, (Codes{jis("who?"), jis("who")}));
  EXPECT_EQ(spell("「猫」").codes, (Codes{jis("「猫」"), jis("猫")}));
  EXPECT_EQ(spell("who?", true).codes, Codes{jis("who?")});
}

TEST(BookKeysTest, TheBooksOwnCharactersAheadOfWhatIsTyped) {
  EXPECT_EQ(spell("né").codes, (Codes{jis("n") + "\xA1\x21", jis("ne")}));
  EXPECT_EQ(spell("ñ").codes, Codes{jis("n")});
  EXPECT_EQ(spell("œuf").codes, Codes{jis("oeuf")});
}

TEST(BookKeysTest, WhatNobodySeesIsLeftOut) {
  EXPECT_EQ(spell("d\u00ADo\u200Bg").codes, Codes{jis("dog")});
  EXPECT_EQ(spell("ne\u0301").codes, Codes{jis("ne")});
}

TEST(BookKeysTest, SoundMarksBehindTheirKana) {
  EXPECT_EQ(spell("か\u3099").codes, Codes{jis("が")});
  EXPECT_EQ(spell("ハ\u309A").codes, Codes{jis("パ")});
}

TEST(BookKeysTest, SignsOfQueriesAreNoPartOfWords) {
  EXPECT_EQ(spell("a◆b│c⊃").codes, Codes{jis("abc")});
  EXPECT_TRUE(spell("◇").codes.empty());
}

TEST(BookKeysTest, WhatABookCantWrite) {
  EXPECT_TRUE(spell("😀dog😀한").codes.empty());
  EXPECT_EQ(spell("😀dog😀한").unknown, "😀한");
  EXPECT_EQ(spell("né").unknown, "");
  EXPECT_TRUE(spell("").codes.empty());
  EXPECT_EQ(spell("").unknown, "");
}

TEST(BookKeysTest, OuterSigns) {
  EXPECT_EQ(withoutOuterSigns("「猫」。"), "猫");
  EXPECT_EQ(withoutOuterSigns("(a)b"), "a)b");
  EXPECT_EQ(withoutOuterSigns("?!"), "?!");
  EXPECT_EQ(withoutOuterSigns(""), "");
}

}  // namespace
}  // namespace zavel::host
