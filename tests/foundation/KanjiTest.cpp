#include "foundation/Kanji.h"

#include <gtest/gtest.h>

#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::foundation {
namespace {

TEST(Ismbblead, KnowsTwoRangesAndEndsAt0xEF) {
  for (int byte = 0; byte < 256; ++byte) {
    const bool expected = (byte > 0x80 && byte < 0xA0) || (byte > 0xDF && byte < 0xF0);
    EXPECT_EQ(__ismbblead(static_cast<uint8_t>(byte)), expected) << byte;
  }
  EXPECT_FALSE(__ismbblead(0xF0));
  EXPECT_TRUE(__ismbblead(0xEF));
}

TEST(Mbsinc, StepsOverCharacters) {
  const char* text = "a\x82\xA0\xB1\xF0\x40\xEF";
  const char* at = text;
  for (int expected : {1, 3, 4, 5, 6, 7}) {
    at = __mbsinc(at);
    EXPECT_EQ(at - text, expected);
  }
}

TEST(Mbsnextc, GivesOneCharacter) {
  EXPECT_EQ(__mbsnextc("a"), 0x61);
  EXPECT_EQ(__mbsnextc("\x82\xA0x"), 0x82A0);
  EXPECT_EQ(__mbsnextc("\xEF\x40"), 0xEF40);
  EXPECT_EQ(__mbsnextc("\xB1\xB2"), 0xB1);
  EXPECT_EQ(__mbsnextc("\xF0\x40"), 0xF0);
  EXPECT_EQ(__mbsnextc(""), 0);
  EXPECT_EQ(__mbsnextc("\x82"), 0x82);  // cut off: no second half to read
}

TEST(Mbbtombc, WidensSingleBytes) {
  EXPECT_EQ(__mbbtombc(0x20), 0x8140);
  EXPECT_EQ(__mbbtombc('A'), 0x8260);
  EXPECT_EQ(__mbbtombc('z'), 0x829A);
  EXPECT_EQ(__mbbtombc('9'), 0x8258);
  EXPECT_EQ(__mbbtombc(0xB1), 0x8341);
}

TEST(Mbbtombc, GivesBackWhatHasNoWideForm) {
  EXPECT_EQ(__mbbtombc(0x0A), 0x0A);
  EXPECT_EQ(__mbbtombc(0x7F), 0x7F);
  EXPECT_EQ(__mbbtombc(0xE0), 0xE0);
  EXPECT_EQ(__mbbtombc(0xFF), 0xFF);
  EXPECT_EQ(__mbbtombc(0x100), 0x100);
  EXPECT_EQ(__mbbtombc(0x8260), 0x8260);
}

TEST(Mbctombb, NarrowsAndGivesBackTheRest) {
  EXPECT_EQ(__mbctombb(0x8140), 0x20);
  EXPECT_EQ(__mbctombb(0x8393), 0xDD);
  EXPECT_EQ(__mbctombb(0x8260), 'A');
  EXPECT_EQ(__mbctombb(0x829A), 'z');
  EXPECT_EQ(__mbctombb(0x813F), 0x813F);
  EXPECT_EQ(__mbctombb(0x8394), 0x8394);  // ヴ
  EXPECT_EQ(__mbctombb(0x834B), 0x834B);  // ガ
  EXPECT_EQ(__mbctombb(0x88F5), 0x88F5);
  EXPECT_EQ(__mbctombb('A'), 'A');
}

TEST(Mbctombb, UndoesMbbtombc) {
  int narrowed = 0;
  for (int single = 0; single < 256; ++single) {
    const uint16_t wide = __mbbtombc(static_cast<uint16_t>(single));
    EXPECT_EQ(__mbctombb(wide), single);
    narrowed += wide != single ? 1 : 0;
  }
  EXPECT_EQ(narrowed, 158);
}

TEST(Mbcjmstojis, ConvertsTheCornersOfTheTable) {
  EXPECT_EQ(__mbcjmstojis(0x8140), 0x2121);
  EXPECT_EQ(__mbcjmstojis(0x817E), 0x215F);
  EXPECT_EQ(__mbcjmstojis(0x8180), 0x2160);
  EXPECT_EQ(__mbcjmstojis(0x819E), 0x217E);
  EXPECT_EQ(__mbcjmstojis(0x819F), 0x2221);
  EXPECT_EQ(__mbcjmstojis(0x81FC), 0x227E);
  EXPECT_EQ(__mbcjmstojis(0x9FFC), 0x5E7E);
  EXPECT_EQ(__mbcjmstojis(0xE040), 0x5F21);
  EXPECT_EQ(__mbcjmstojis(0xEFFC), 0x7E7E);
  EXPECT_EQ(__mbcjmstojis(0x82A0), 0x2422);  // あ
}

TEST(Mbcjistojms, ConvertsTheCornersOfTheTable) {
  EXPECT_EQ(__mbcjistojms(0x2121), 0x8140);
  EXPECT_EQ(__mbcjistojms(0x215F), 0x817E);
  EXPECT_EQ(__mbcjistojms(0x2160), 0x8180);
  EXPECT_EQ(__mbcjistojms(0x2221), 0x819F);
  EXPECT_EQ(__mbcjistojms(0x5E7E), 0x9FFC);
  EXPECT_EQ(__mbcjistojms(0x5F21), 0xE040);
  EXPECT_EQ(__mbcjistojms(0x7E7E), 0xEFFC);
}

TEST(Mbcjistojms, UndoesMbcjmstojisOverTheWholeTable) {
  for (int row = 0x21; row <= 0x7E; ++row) {
    for (int cell = 0x21; cell <= 0x7E; ++cell) {
      const uint16_t jis = static_cast<uint16_t>(row << 8 | cell);
      EXPECT_EQ(__mbcjmstojis(__mbcjistojms(jis)), jis);
      EXPECT_TRUE(__ismbblead(static_cast<uint8_t>(__mbcjistojms(jis) >> 8)));
    }
  }
}

std::string bytesOf(uint16_t code) {
  return {static_cast<char>(code >> 8), static_cast<char>(code)};
}

TEST(Mbcjistojms, AgreesWithTheConverterOverTheWholeTable) {
  const TextEncoding& encoding = platform().encoding();
  int characters = 0;
  for (int row = 0x21; row <= 0x74; ++row) {
    if (row > 0x28 && row < 0x30) continue;  // rows that the vendors filled each in their own way
    for (int cell = 0x21; cell <= 0x7E; ++cell) {
      const uint16_t jis = static_cast<uint16_t>(row << 8 | cell);
      const auto fromEuc = encoding.toUtf8Strict(bytesOf(jis | 0x8080), Encoding::kEucJp);
      const auto fromSjis = encoding.toUtf8Strict(bytesOf(__mbcjistojms(jis)), Encoding::kShiftJis);
      if (!fromEuc || !fromSjis) continue;
      ++characters;
      EXPECT_EQ(*fromEuc, *fromSjis) << std::hex << jis;
    }
  }
  EXPECT_EQ(characters, 6879);  // all of JIS X 0208
}

TEST(Jmstoeuc, ConvertsByTheWidthOfTheCode) {
  EXPECT_EQ(__jmstoeuc('A'), 'A');
  EXPECT_EQ(__jmstoeuc(0x7F), 0x7F);
  EXPECT_EQ(__jmstoeuc(0x80), 0x8E80);
  EXPECT_EQ(__jmstoeuc(0xB1), 0x8EB1);
  EXPECT_EQ(__jmstoeuc(0xFF), 0x8EFF);
  EXPECT_EQ(__jmstoeuc(0x82A0), 0xA4A2);
}

TEST(ZenKatakana2hanKatakana, SplitsOffTheMark) {
  EXPECT_EQ(__zenKatakana2hanKatakana(0x834B), 0xB6DE);  // ガ
  EXPECT_EQ(__zenKatakana2hanKatakana(0x8368), 0xC4DE);  // ド
  EXPECT_EQ(__zenKatakana2hanKatakana(0x837B), 0xCEDE);  // ボ
  EXPECT_EQ(__zenKatakana2hanKatakana(0x837C), 0xCEDF);  // ポ
  EXPECT_EQ(__zenKatakana2hanKatakana(0x8394), 0xB3DE);  // ヴ
  EXPECT_EQ(__zenKatakana2hanKatakana(0x834A), 0);       // カ
  EXPECT_EQ(__zenKatakana2hanKatakana(0), 0);
}

TEST(GFnConvKatakana, LiftsHiragana) {
  EXPECT_EQ(GFnConvKatakana(0x829E), 0x829E);
  EXPECT_EQ(GFnConvKatakana(0x829F), 0x8340);  // ぁ
  EXPECT_EQ(GFnConvKatakana(0x82DD), 0x837E);  // み
  EXPECT_EQ(GFnConvKatakana(0x82DE), 0x8380);  // む, across the place that no trail byte takes
  EXPECT_EQ(GFnConvKatakana(0x82F1), 0x8393);  // ん
  EXPECT_EQ(GFnConvKatakana(0x82F2), 0x82F2);
  EXPECT_EQ(GFnConvKatakana('a'), 'a');
  EXPECT_EQ(GFnConvKatakana(0x8340), 0x8340);
}

TEST(IsKanji, TellsTheEscapes) {
  EXPECT_EQ(IsKanji("\x1B$B"), 16);
  EXPECT_EQ(IsKanji("\x1B$@"), 32);
  EXPECT_EQ(IsKanji("\x1B(J"), 64);
  EXPECT_EQ(IsKanji("\x1B(B"), 128);
  EXPECT_EQ(IsKanji("\x1B(I"), 256);
  EXPECT_EQ(IsKanji("\x1B$A"), 0);
  EXPECT_EQ(IsKanji("\x1B(A"), 0);
  EXPECT_EQ(IsKanji("\x1BxB"), 0);
}

TEST(IsKanji, ReadsNothingBehindTheEnd) {
  const char bytes[] = {'\x1B', 0, 'B', '$', '(', '\x81', 0, '\x40'};
  EXPECT_EQ(IsKanji(bytes), 0);
  EXPECT_EQ(IsKanji(bytes + 5), 0);
  EXPECT_EQ(IsKanji("\x1B$"), 0);
  EXPECT_EQ(IsKanji("\x1B("), 0);
  EXPECT_EQ(IsKanji(""), 0);
}

int kindOf(int first, int second) {
  const char pair[] = {static_cast<char>(first), static_cast<char>(second), 0};
  return IsKanji(pair);
}

TEST(IsKanji, KnowsTheBordersOfEveryKind) {
  EXPECT_EQ(kindOf(0x9F, 0x20), 0);
  EXPECT_EQ(kindOf(0xA0, 0x20), 1);
  EXPECT_EQ(kindOf(0xDF, 0x20), 1);
  EXPECT_EQ(kindOf(0xE0, 0x20), 0);
  EXPECT_EQ(kindOf(0x80, 0x40), 0);
  EXPECT_EQ(kindOf(0x81, 0x3F), 0);
  EXPECT_EQ(kindOf(0x81, 0x40), 2);
  EXPECT_EQ(kindOf(0x81, 0x7E), 2);
  EXPECT_EQ(kindOf(0x81, 0x7F), 0);
  EXPECT_EQ(kindOf(0x81, 0x80), 2);
  EXPECT_EQ(kindOf(0x9F, 0xFC), 2);
  EXPECT_EQ(kindOf(0x9F, 0xFD), 0);
  EXPECT_EQ(kindOf(0xFC, 0x40), 2);  // further than the lead bytes of __ismbblead
  EXPECT_EQ(kindOf(0xFD, 0x40), 0);
  EXPECT_EQ(kindOf(0xFD, 0xA1), 8);
  EXPECT_EQ(kindOf(0xFE, 0xFE), 8);
  EXPECT_EQ(kindOf(0xFE, 0xFF), 0);
  EXPECT_EQ(kindOf('a', 0xA1), 0);
}

TEST(IsKanji, GivesSeveralBitsWhereTheBytesFitSeveral) {
  EXPECT_EQ(kindOf(0x8E, 0xA0), 2 + 4);
  EXPECT_EQ(kindOf(0x8E, 0xDF), 2 + 4);
  EXPECT_EQ(kindOf(0x8E, 0xE0), 2);
  EXPECT_EQ(kindOf(0xB0, 0xA1), 1 + 8);
  EXPECT_EQ(kindOf(0xE0, 0xA1), 2 + 8);
  EXPECT_EQ(kindOf(0xA0, 0xA1), 1);
}

}  // namespace
}  // namespace zavel::foundation
