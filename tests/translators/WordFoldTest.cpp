#include "dicttool/WordFold.h"

#include <gtest/gtest.h>

namespace zavel::dicttool {
namespace {

constexpr FoldRules kUsual;
constexpr FoldRules kAll{.allCharacters = true, .caseSensitive = false};
constexpr FoldRules kSensitive{.allCharacters = true, .caseSensitive = true};

// The same words went through dictfmt, the program that makes such indexes.
TEST(WordFold, FilesWordsWhereTheIndexMakerFilesThem) {
  EXPECT_EQ(foldWord("ジョン・スミス", kUsual), "ジョンスミス");
  EXPECT_EQ(foldWord("École d’été", kUsual), "école dété");
  EXPECT_EQ(foldWord("ice-cream\u3000x", kUsual), "icecream x");
  EXPECT_EQ(foldWord("人々", kUsual), "人々");
  EXPECT_EQ(foldWord("ＣＰＵ", kUsual), "ｃｐｕ");
  EXPECT_EQ(foldWord("00-database-utf8", kUsual), "00databaseutf8");
}

TEST(WordFold, KeepsSignsWhereAllCharactersCount) {
  EXPECT_EQ(foldWord("ジョン・スミス", kAll), "ジョン・スミス");
  EXPECT_EQ(foldWord("École d’été", kAll), "école d’été");
  EXPECT_EQ(foldWord("C++", kAll), "c++");
  EXPECT_EQ(foldWord("C++", kSensitive), "C++");
}

TEST(WordFold, KeepsVoicedKanaApart) {
  EXPECT_NE(foldWord("か", kUsual), foldWord("が", kUsual));
  EXPECT_EQ(foldWord("コーヒー", kUsual), "コーヒー");
}

TEST(WordFold, LeavesNothingOfSigns) {
  EXPECT_EQ(foldWord("?!・、", kUsual), "");
  EXPECT_EQ(foldWord("", kUsual), "");
}

TEST(WordFold, KeepsBytesThatAreNoUtf8) {
  EXPECT_EQ(foldWord("A\xFF"
                     "B\x80",
                     kUsual),
            "a\xFF"
            "b\x80");
}

TEST(WordFold, TidiesAQuery) {
  EXPECT_EQ(tidyQuery("  ice \t\n cream\r\n"), "ice cream");
  EXPECT_EQ(tidyQuery("\u3000猫\u3000"), "猫");
  EXPECT_EQ(tidyQuery(" \n"), "");
}

TEST(WordFold, NarrowsFullWidthLetters) {
  EXPECT_EQ(withUsualLetters("１６進ＡＢＣ～"), "16進ABC~");
  EXPECT_EQ(withUsualLetters("ｶナ"), "ｶナ");
}

TEST(WordFold, ComparesUnsignedBytes) {
  EXPECT_LT(compareFolded("z", "猫"), 0);
  EXPECT_GT(compareFolded("cats", "cat"), 0);
  EXPECT_EQ(compareFolded("cat", "cat"), 0);
  EXPECT_LT(compareFolded("", "a"), 0);
}

}  // namespace
}  // namespace zavel::dicttool
