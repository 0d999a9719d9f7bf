// The words of texts.
#include "mkbook/TextWords.h"

#include <gtest/gtest.h>

namespace zavel::mkbook {
namespace {

std::string joined(std::string_view text) {
  std::string out;
  for (const std::string& word : wordsOf(text)) out += (out.empty() ? "" : "|") + word;
  return out;
}

TEST(TextWords, AreLettersAndDigitsInARow) {
  EXPECT_EQ(joined(""), "");
  EXPECT_EQ(joined("Dogs, (and) cats..."), "Dogs|and|cats");
  EXPECT_EQ(joined("n 1: an ant of 1984, MP3"), "an|ant|of|1984|MP3");
  EXPECT_EQ(joined("caf\u00E9 na\u00EFve \u0433\u043E\u0434"), "caf\u00E9|na\u00EFve|\u0433\u043E\u0434");
  EXPECT_EQ(joined("3\u00D74 ab\u00F7cd"), "ab|cd");
  EXPECT_EQ(joined("\uFF21\uFF22\uFF01\uFF11\uFF12"), "\uFF21\uFF22|\uFF11\uFF12");
}

TEST(TextWords, HoldApostrophesBetweenLetters) {
  EXPECT_EQ(joined("don't 'quoted' dogs' o\u2019clock"), "don't|quoted|dogs|o\u2019clock");
}

TEST(TextWords, OfHyphensAreThePartsAndTheWhole) {
  EXPECT_EQ(joined("well-known"), "well|known|well-known");
  EXPECT_EQ(joined("x-ray -- a-b"), "ray|x-ray|a-b");
  EXPECT_EQ(joined("-ing pre- "), "ing|pre");
}

TEST(TextWords, OfJapaneseAreTheRunsOfEachScriptAndTheWhole) {
  EXPECT_EQ(joined("食べる、大きなカード"),
            "食|べる|食べる|大|きな|カード|"
            "大きなカード");
  EXPECT_EQ(joined("漢字"), "漢字");
  EXPECT_EQ(joined("木の葉"), "木|葉|木の葉");
  EXPECT_EQ(joined("PCです"), "PC|です");
}

TEST(TextWords, PassOverWhatIsNoUtf8) {
  EXPECT_EQ(joined("ab\xFF"
                   "cd\xC3"),
            "ab|cd");
}

}  // namespace
}  // namespace zavel::mkbook
