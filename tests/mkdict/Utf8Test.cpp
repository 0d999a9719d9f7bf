#include "mkdict/Utf8.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

TEST(MkdictUtf8, GoesThereAndBack) {
  const std::string text = "aé犬😀";
  EXPECT_EQ(U"aé犬😀", decodeUtf8(text));
  EXPECT_EQ(text, encodeUtf8(U"aé犬😀"));
  EXPECT_EQ(U"", decodeUtf8(""));
}

TEST(MkdictUtf8, RefusesWhatIsMalformed) {
  for (const char* bytes : {"\x80", "\xC1\xBF", "\xC3", "\xE3\x81", "\xE0\x80\x80", "\xED\xA0\x80",
                            "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3(", "a\xFF"}) {
    EXPECT_FALSE(decodeUtf8(bytes)) << bytes;
  }
}

TEST(MkdictUtf8, TellsTheKindsOfJapanese) {
  EXPECT_TRUE(isHiragana(U'の'));
  EXPECT_FALSE(isHiragana(U'ノ'));
  EXPECT_TRUE(isKatakana(U'ノ'));
  EXPECT_TRUE(isKatakana(U'ー'));
  EXPECT_FALSE(isKatakana(U'・'));
  EXPECT_TRUE(isKanji(U'犬'));
  EXPECT_TRUE(isKanji(U'々'));
  EXPECT_FALSE(isKanji(U'a'));
  EXPECT_FALSE(isJapanese(U'한'));
}

}  // namespace
}  // namespace zavel::mkdict
