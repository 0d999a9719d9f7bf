#include <gtest/gtest.h>

#include "engine/Shim.h"
#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

unsigned Code(const char* utf8) {
  const std::string bytes = test::sjis(utf8);
  return static_cast<uint8_t>(bytes[0]) * 256u + static_cast<uint8_t>(bytes[1]);
}

TEST(_ismbblead, IsTheByteItself) {
  for (unsigned c = 0; c < 256; ++c) {
    const bool lead = (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
    EXPECT_EQ(_ismbblead(c), lead ? static_cast<int>(c) : 0) << c;
  }
}

TEST(_ismbclegal, WantsALeadAndATrailByte) {
  for (const unsigned code : {0x8140u, 0x817Eu, 0x8180u, 0x81FCu, 0x9FFCu, 0xE040u, 0xFCFCu}) {
    EXPECT_TRUE(_ismbclegal(code)) << std::hex << code;
  }
  for (const unsigned code :
       {0x813Fu, 0x817Fu, 0x81FDu, 0x80A0u, 0xA040u, 0xDF40u, 0xFD40u, 0x41u, 0x18140u}) {
    EXPECT_FALSE(_ismbclegal(code)) << std::hex << code;
  }
}

TEST(_ismbchira, RunsFromSmallAToNAndKnowsTheVoicedU) {
  EXPECT_TRUE(_ismbchira(0x829F));
  EXPECT_TRUE(_ismbchira(0x82F1));
  EXPECT_TRUE(_ismbchira(0x8868));
  EXPECT_FALSE(_ismbchira(0x829E));
  EXPECT_FALSE(_ismbchira(0x82F2));
  EXPECT_FALSE(_ismbchira(0x8340));
}

TEST(_ismbckata, RunsFromSmallAToSmallKe) {
  EXPECT_TRUE(_ismbckata(0x8340));
  EXPECT_TRUE(_ismbckata(0x8396));
  EXPECT_FALSE(_ismbckata(0x833F));
  EXPECT_FALSE(_ismbckata(0x8397));
}

TEST(Kanji, LevelsAreTwoRangesWithAGap) {
  EXPECT_FALSE(_ismbcl1(0x889E));
  EXPECT_TRUE(_ismbcl1(0x889F));
  EXPECT_TRUE(_ismbcl1(0x9872));
  EXPECT_FALSE(_ismbcl1(0x9873));
  EXPECT_FALSE(_ismbcl2(0x9873));
  EXPECT_FALSE(_ismbcl2(0x989E));
  EXPECT_TRUE(_ismbcl2(0x989F));
  EXPECT_TRUE(_ismbcl2(0xEA9E));
  EXPECT_FALSE(_ismbcl2(0xEA9F));
}

TEST(_mbctohira, TurnsKatakanaIntoHiragana) {
  EXPECT_EQ(_mbctohira(0x8340), 0x829Fu);
  EXPECT_EQ(_mbctohira(0x837E), 0x82DDu);
  EXPECT_EQ(_mbctohira(0x8380), 0x82DEu);
  EXPECT_EQ(_mbctohira(0x8393), 0x82F1u);
  EXPECT_EQ(_mbctohira(Code("ア")), Code("あ"));
  EXPECT_EQ(_mbctohira(Code("ン")), Code("ん"));
}

TEST(_mbctohira, LeavesAllElse) {
  for (const unsigned code : {0x837Fu, 0x8394u, 0x8395u, 0x8396u, 0x829Fu, 0x889Fu, 0x41u}) {
    EXPECT_EQ(_mbctohira(code), code) << std::hex << code;
  }
}

TEST(_mbctombb, GivesTheSingleByteForm) {
  EXPECT_EQ(_mbctombb(0x8868), 0xB3u);
  EXPECT_EQ(_mbctombb(0x8140), 0x20u);
  EXPECT_EQ(_mbctombb(Code("！")), static_cast<unsigned>('!'));
  EXPECT_EQ(_mbctombb(Code("－")), static_cast<unsigned>('-'));
  EXPECT_EQ(_mbctombb(Code("ー")), 0xB0u);
  EXPECT_EQ(_mbctombb(Code("０")), static_cast<unsigned>('0'));
  EXPECT_EQ(_mbctombb(Code("９")), static_cast<unsigned>('9'));
  EXPECT_EQ(_mbctombb(Code("Ａ")), static_cast<unsigned>('A'));
  EXPECT_EQ(_mbctombb(Code("Ｚ")), static_cast<unsigned>('Z'));
  EXPECT_EQ(_mbctombb(Code("ａ")), static_cast<unsigned>('a'));
  EXPECT_EQ(_mbctombb(Code("ｚ")), static_cast<unsigned>('z'));
}

TEST(_mbctombb, TurnsKanaIntoHalfWidthKatakana) {
  EXPECT_EQ(_mbctombb(Code("ぁ")), 0xA7u);
  EXPECT_EQ(_mbctombb(Code("あ")), 0xB1u);
  EXPECT_EQ(_mbctombb(Code("ア")), 0xB1u);
  EXPECT_EQ(_mbctombb(Code("っ")), 0xAFu);
  EXPECT_EQ(_mbctombb(Code("つ")), 0xC2u);
  EXPECT_EQ(_mbctombb(Code("の")), 0xC9u);
  EXPECT_EQ(_mbctombb(Code("ほ")), 0xCEu);
  EXPECT_EQ(_mbctombb(Code("も")), 0xD3u);
  EXPECT_EQ(_mbctombb(Code("ゃ")), 0xACu);
  EXPECT_EQ(_mbctombb(Code("よ")), 0xD6u);
  EXPECT_EQ(_mbctombb(Code("ろ")), 0xDBu);
  EXPECT_EQ(_mbctombb(Code("ワ")), 0xDCu);
  EXPECT_EQ(_mbctombb(Code("を")), 0xA6u);
  EXPECT_EQ(_mbctombb(Code("ん")), 0xDDu);
  EXPECT_EQ(_mbctombb(Code("ヴ")), 0xB3u);
}

// The same rows of kana by the standard's half-width block, which this table must agree with.
TEST(_mbctombb, AgreesWithTheHalfWidthBlock) {
  const char* const kana =
      "を,ぁ,ぃ,ぅ,ぇ,ぉ,ゃ,ゅ,ょ,っ,ー,あ,い,う,え,お,か,き,く,け,こ,さ,し,す,せ,そ,た,ち,つ,て,と,"
      "な,に,ぬ,ね,の,は,ひ,ふ,へ,ほ,ま,み,む,め,も,や,ゆ,よ,ら,り,る,れ,ろ,わ,ん";
  const std::string bytes = test::sjis(kana);
  unsigned single = 0xA6;  // ヲ, then in the order of the block to ン
  for (size_t i = 0; i < bytes.size(); i += 3, ++single) {
    const unsigned code = static_cast<uint8_t>(bytes[i]) * 256u + static_cast<uint8_t>(bytes[i + 1]);
    EXPECT_EQ(_mbctombb(code), single) << std::hex << code;
  }
  EXPECT_EQ(single, 0xDEu);
}

TEST(_mbctombb, LeavesWhatHasNoSingleByteForm) {
  for (const unsigned code : {0x813Fu, 0x8397u, 0x8163u, 0x837Fu, 0x82F2u, 0x833Fu, 0x889Fu, 0x41u}) {
    EXPECT_EQ(_mbctombb(code), code) << std::hex << code;
  }
}

TEST(_mbctombb, LeavesNoVoicedKanaAsItIs) {
  for (unsigned code = 0x829F; code <= 0x82F1; ++code) EXPECT_LT(_mbctombb(code), 0x100u) << std::hex << code;
}

TEST(_ismbcprint, KnowsSingleBytes) {
  for (unsigned c = 0; c < 256; ++c) {
    EXPECT_EQ(_ismbcprint(c), (c >= 0x20 && c <= 0x7E) || (c >= 0xA1 && c <= 0xDF)) << c;
  }
}

TEST(_ismbcprint, KnowsAssignedCodes) {
  for (const unsigned code :
       {0x8140u, 0x817Eu, 0x8180u, 0x81ACu, 0x824Fu, 0x829Fu, 0x82F1u, 0x8340u, 0x8396u, 0x8740u, 0x889Fu,
        0x9872u, 0x989Fu, 0x9FFCu, 0xE040u, 0xEA9Eu, 0xFA40u, 0xFC4Bu}) {
    EXPECT_TRUE(_ismbcprint(code)) << std::hex << code;
  }
  for (const unsigned code : {0x813Fu, 0x817Fu, 0x81ADu, 0x82F2u, 0x8397u, 0x8540u, 0x889Eu, 0x9873u, 0xEB40u,
                              0xF040u, 0xF5D1u, 0xFC4Cu, 0xA040u}) {
    EXPECT_FALSE(_ismbcprint(code)) << std::hex << code;
  }
}

TEST(Ascii, LettersAndPrintingBytes) {
  for (unsigned c = 0; c < 256; ++c) {
    EXPECT_EQ(_isalpha(c), (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) << c;
    EXPECT_EQ(_isprint(c), c >= 0x20 && c <= 0x7E ? static_cast<int>(c) : 0) << c;
  }
}

TEST(o_toupper, IsArithmeticOnAnyByte) {
  EXPECT_EQ(o_toupper('a'), static_cast<unsigned>('A'));
  EXPECT_EQ(o_toupper('z'), static_cast<unsigned>('Z'));
  EXPECT_EQ(o_toupper('A'), 0x21u);
  EXPECT_EQ(o_toupper(0), 224u);
}

TEST(HiLoByte, TakeBits8To15And0To7) {
  EXPECT_EQ(HIBYTE(0x12345u), 0x23);
  EXPECT_EQ(LOBYTE(0x12345u), 0x45);
}

}  // namespace
}  // namespace zavel::engine
