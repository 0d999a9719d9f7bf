#include "foundation/KanjiTables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::foundation {
namespace {

// The code of one character of UTF-8 in Shift_JIS, as the platform's converter has it.
uint16_t sjis(const std::string& utf8) {
  const std::string bytes = platform().encoding().toSjisStrict(utf8)->bytes();
  uint16_t code = 0;
  for (char byte : bytes) code = static_cast<uint16_t>(code << 8 | static_cast<uint8_t>(byte));
  return code;
}

// A character of the basic plane beyond U+0800 in UTF-8.
std::string utf8(int code) {
  return {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 63)),
          static_cast<char>(0x80 | (code & 63))};
}

TEST(KanjiTables, SingleBytesWithAFullWidthFormAre158) {
  EXPECT_EQ(mbbtombcarray.size(), 256u);
  EXPECT_EQ(std::count(mbbtombcarray.begin(), mbbtombcarray.end(), 0), 256 - 158);
  for (int single : {0x00, 0x1F, 0x7F, 0x80, 0xA0, 0xE0, 0xFF}) EXPECT_EQ(mbbtombcarray[single], 0) << single;
}

TEST(KanjiTables, SingleBytesStartAndEndAsGiven) {
  EXPECT_EQ(mbbtombcarray[0x20], 0x8140);
  EXPECT_EQ(mbbtombcarray[0x41], 0x8260);
  EXPECT_EQ(mbbtombcarray[0xA1], 0x8142);
  EXPECT_EQ(mbbtombcarray[0xDF], 0x814B);
}

TEST(KanjiTables, AmbiguousSignsHaveTheFormsChosenForThem) {
  EXPECT_EQ(mbbtombcarray['"'], 0x8168);
  EXPECT_EQ(mbbtombcarray['\''], 0x8166);
  EXPECT_EQ(mbbtombcarray['`'], 0x8165);
  EXPECT_EQ(mbbtombcarray['~'], 0x8150);
  EXPECT_EQ(mbbtombcarray['\\'], 0x818F);
  EXPECT_EQ(mbbtombcarray['-'], 0x817C);
}

TEST(KanjiTables, AsciiAgreesWithTheConvertersFullWidthBlock) {
  const std::string ambiguous = "\"'`~\\";
  for (int c = 0x21; c <= 0x7E; ++c) {
    if (ambiguous.find(static_cast<char>(c)) != std::string::npos) continue;
    EXPECT_EQ(mbbtombcarray[c], sjis(utf8(0xFF00 + c - 0x20))) << static_cast<char>(c);
  }
  EXPECT_EQ(mbbtombcarray[0x20], sjis("　"));
}

TEST(KanjiTables, HalfWidthKatakanaAgreeWithTheConverter) {
  const std::string zen =
      "。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
      "タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
  ASSERT_EQ(zen.size(), 63u * 3);
  for (int i = 0; i < 63; ++i) {
    EXPECT_EQ(mbbtombcarray[0xA1 + i], sjis(zen.substr(i * 3, 3))) << i;
    EXPECT_EQ(sjis(utf8(0xFF61 + i)), 0xA1 + i);  // the order of the list above is the converter's
  }
}

TEST(KanjiTables, FullWidthFormsAre158AscendingPairs) {
  EXPECT_EQ(mbctombbarray.size(), 158u);
  EXPECT_EQ(mbctombbarray.front().from, 0x8140);
  EXPECT_EQ(mbctombbarray.front().to, 0x20);
  EXPECT_EQ(mbctombbarray.back().from, 0x8393);
  EXPECT_EQ(mbctombbarray.back().to, 0xDD);
  for (size_t i = 1; i < mbctombbarray.size(); ++i)
    EXPECT_LT(mbctombbarray[i - 1].from, mbctombbarray[i].from);
  for (const KanjiPair& pair : mbctombbarray) EXPECT_EQ(mbbtombcarray[pair.to], pair.from);
}

TEST(KanjiTables, MarkedKatakanaAre26PairsInOrder) {
  ASSERT_EQ(zenhanarray.size(), 26u);
  EXPECT_EQ(zenhanarray[0].from, 0x834B);
  EXPECT_EQ(zenhanarray[0].to, 0xB6DE);
  const std::string zen = "ガギグゲゴザジズゼゾダヂヅデドバビブベボパピプペポヴ";
  const std::string han = "カキクケコサシスセソタチツテトハヒフヘホハヒフヘホウ";
  for (int i = 0; i < 26; ++i) {
    const uint16_t plain = sjis(han.substr(i * 3, 3));
    const auto single = std::find_if(mbctombbarray.begin(), mbctombbarray.end(),
                                     [&](auto& pair) { return pair.from == plain; });
    ASSERT_NE(single, mbctombbarray.end());
    EXPECT_EQ(zenhanarray[i].from, sjis(zen.substr(i * 3, 3))) << i;
    EXPECT_EQ(zenhanarray[i].to, single->to << 8 | (i >= 20 && i < 25 ? 0xDF : 0xDE)) << i;
  }
  EXPECT_EQ(zenhanarray[15].from, 0x836F);
  EXPECT_EQ(zenhanarray[15].to, 0xCADE);
  EXPECT_EQ(zenhanarray[20].from, 0x8370);
  EXPECT_EQ(zenhanarray[20].to, 0xCADF);
  EXPECT_EQ(zenhanarray[25].from, 0x8394);
  EXPECT_EQ(zenhanarray[25].to, 0xB3DE);
}

// What the converter makes of both forms of a EUC-JP record, in UTF-8.
std::string meaning(const uint8_t (&pair)[2]) {
  const std::string bytes = {static_cast<char>(pair[0]), static_cast<char>(pair[1])};
  return platform().encoding().toUtf8Lossy(bytes, Encoding::kEucJp);
}

TEST(KanjiTables, EucTablesEndWithAZeroFullForm) {
  for (size_t i = 0; i < 64; ++i) EXPECT_EQ(tblHanToZenEuc[i].zen[0] == 0, i == 63) << i;
  for (size_t i = 0; i < 22; ++i) EXPECT_EQ(tblDakuHanToZenEuc[i].zen[0] == 0, i == 21) << i;
  for (size_t i = 0; i < 6; ++i) EXPECT_EQ(tblDaku2HanToZenEuc[i].zen[0] == 0, i == 5) << i;
}

TEST(KanjiTables, EucTablesAgreeWithTheConverter) {
  const std::string zen =
      "。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
      "タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
  for (int i = 0; i < 63; ++i) {
    EXPECT_EQ(meaning(tblHanToZenEuc[i].han), utf8(0xFF61 + i));
    EXPECT_EQ(meaning(tblHanToZenEuc[i].zen), zen.substr(i * 3, 3));
  }
  const std::string voiced = "ヴガギグゲゴザジズゼゾダヂヅデドバビブベボ";
  const std::string plain = "ｳｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾊﾋﾌﾍﾎ";
  for (int i = 0; i < 21; ++i) {
    EXPECT_EQ(meaning(tblDakuHanToZenEuc[i].han), plain.substr(i * 3, 3));
    EXPECT_EQ(meaning(tblDakuHanToZenEuc[i].zen), voiced.substr(i * 3, 3));
  }
  const std::string halfVoiced = "パピプペポ";
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(meaning(tblDaku2HanToZenEuc[i].han), plain.substr((16 + i) * 3, 3));
    EXPECT_EQ(meaning(tblDaku2HanToZenEuc[i].zen), halfVoiced.substr(i * 3, 3));
  }
}

}  // namespace
}  // namespace zavel::foundation
