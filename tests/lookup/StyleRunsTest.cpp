#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"
#include "lookup/ScrpSTElement.h"

namespace zavel::test {
namespace {

using Runs = std::vector<ScrpSTElement>;

struct Styled {
  std::string text;
  Runs runs;
};

Styled styled(const std::string& text) {
  BareManager manager;
  Styled result;
  result.text = manager.OutputResult(text);
  result.runs = manager.styleRuns;
  return result;
}

TEST(StyleRuns, EachLineBeginsWithARunInTheTextsColour) {
  const Styled result = styled("ab\rcd\r\ref");
  EXPECT_EQ(result.text, "ab\rcd\r\ref");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), plainRun(3), plainRun(6), plainRun(7)}));
}

TEST(StyleRuns, TheLastByteIsNeverLookedAt) {
  EXPECT_EQ(styled("a\r").runs, (Runs{plainRun(0)}));
  EXPECT_EQ(styled("a\rb").runs, (Runs{plainRun(0)}));  // the line's run would stand at the last byte
  EXPECT_EQ(styled("a\rbc").runs, (Runs{plainRun(0), plainRun(2)}));
}

TEST(StyleRuns, AHeadwordHasTheIndexColourInBoldUpToItsEnd) {
  const Styled result = styled(tag(0xF5D1) + "go" + tag(0xF5C1) + "\rxy");
  EXPECT_EQ(result.text, "go\rxy");
  EXPECT_EQ(result.runs,
            (Runs{plainRun(0), styledRun(0, kFaceBold, kRed), styledRun(2, kFacePlain, kRed), plainRun(3)}));
}

TEST(StyleRuns, TheKeyBehindAHeadwordKeyIsSeen) {
  const Styled result = styled(tag(0xF5D1) + tag(0xF5B1) + "go" + tag(0xF5C1) + "xy");
  EXPECT_EQ(result.text, "goxy");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(0, kFaceBold, kRed), styledRun(0, kFaceBold, kRed),
                               styledRun(2, kFacePlain, kRed)}));
}

TEST(StyleRuns, ASenseNumberHasItsColourUpToTheEndOfTheLine) {
  const Styled result = styled("\r" + tag(0xF5D4) + tag(0xF5BD) + "1" + tag(0xF5C1) + " ab\rcd");
  EXPECT_EQ(result.text, "\r    1 ab\rcd");
  EXPECT_EQ(result.runs,
            (Runs{plainRun(0), plainRun(1), styledRun(1, kFacePlain, kBlue), styledRun(5, kFaceBold, kBlue),
                  styledRun(6, kFacePlain, kBlue), plainRun(10)}));
}

TEST(StyleRuns, ALaterSenseNumberComesAfterAnEmptyLine) {
  const Styled result = styled("x" + tag(0xF5D4) + tag(0xF5BD) + "2" + tag(0xF5C1) + " ab");
  EXPECT_EQ(result.text, "x\r\r    2 ab");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), plainRun(2), plainRun(3), styledRun(3, kFacePlain, kBlue),
                               styledRun(7, kFaceBold, kBlue), styledRun(8, kFacePlain, kBlue)}));
}

TEST(StyleRuns, BoldKeysGiveABoldRun) {
  for (const uint16_t key : {0xF5B1, 0xF5B6, 0xF5BD, 0xF5C2}) {
    const Styled result = styled("ab" + tag(key) + "cde");
    EXPECT_EQ(result.text, "abcde") << std::hex << key;
    EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(2, kFaceBold, kBlack)})) << std::hex << key;
  }
}

TEST(StyleRuns, ABoldKeyTakesABoldKeyBehindItAlong) {
  for (const uint16_t key : {0xF5B1, 0xF5B6, 0xF5BD, 0xF5C2}) {
    const Styled result = styled("ab" + tag(key) + tag(0xF5B1) + "cde");
    EXPECT_EQ(result.text, "abcde") << std::hex << key;
    EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(2, kFaceBold, kBlack)})) << std::hex << key;
  }
}

TEST(StyleRuns, AnyOtherKeyBehindABoldKeyIsPassedOverAndStaysInTheText) {
  const Styled result = styled("a" + tag(0xF5B1) + tag(0xF5B8) + "bc");
  EXPECT_EQ(result.text, "a" + tag(0xF5B8) + "bc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(1, kFaceBold, kBlack)}));
}

TEST(StyleRuns, EndKeysGiveAPlainRunAndTheKeyBehindThemIsSeen) {
  for (const uint16_t key : {0xF5B7, 0xF5BC, 0xF5C1}) {
    const Styled result = styled("ab" + tag(key) + tag(0xF5B8) + "cde");
    EXPECT_EQ(result.text, "abcde") << std::hex << key;
    EXPECT_EQ(result.runs, (Runs{plainRun(0), plainRun(2), styledRun(2, kFaceBold | kFaceItalic, kBlack)}))
        << std::hex << key;
  }
}

TEST(StyleRuns, ItalicIsBoldItalic) {
  const Styled result = styled("ab" + tag(0xF5B8) + "cde");
  EXPECT_EQ(result.text, "abcde");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(2, 3, kBlack)}));
}

TEST(StyleRuns, BoldItalicTakesTheTwoBytesBehindAlong) {
  const Styled result = styled("ab" + tag(0xF5B9) + "xycde");
  EXPECT_EQ(result.text, "abcde");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(2, 3, kBlack)}));
  EXPECT_EQ(styled("ab" + tag(0xF5B9) + "x").text, "ab");
  EXPECT_EQ(styled("ab" + tag(0xF5B9)).text, "ab");
}

TEST(StyleRuns, OtherKeysStayInTheText) {
  const std::string text = "a" + tag(0xF5DA) + tag(0xF4C0) + "b";
  EXPECT_EQ(styled(text).text, text);
}

TEST(StyleRuns, AnEndKeyBehindACarriageReturnOpensTheLineTwice) {
  const Styled result = styled("a\r" + tag(0xF5C1) + "bc");
  EXPECT_EQ(result.text, "a\rbc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), plainRun(2), plainRun(2), plainRun(2)}));
}

TEST(StyleRuns, AnEndKeyAtTheStartOpensNoLineAgain) {
  const Styled result = styled(tag(0xF5C1) + "bc");
  EXPECT_EQ(result.text, "bc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), plainRun(0)}));
}

TEST(StyleRuns, ACarriageReturnThatMovesIntoThePlaceOpensALine) {
  const Styled result = styled("a" + tag(0xF5B1) + "\rbc");
  EXPECT_EQ(result.text, "a\rbc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(1, kFaceBold, kBlack), plainRun(2)}));
}

TEST(StyleRuns, ACarriageReturnBehindASenseMarkDoesNot) {
  // The mark itself, as a text may hold it: the CR is passed over with the flag off.
  const Styled result = styled("a" + tag(0xF5C9) + "\rbc");
  EXPECT_EQ(result.text, "a\rbc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(1, kFacePlain, kBlue)}));
}

TEST(StyleRuns, ACarriageReturnBehindAHeadwordKeyOpensALine) {
  const Styled result = styled(tag(0xF5D1) + "\rbc");
  EXPECT_EQ(result.text, "\rbc");
  EXPECT_EQ(result.runs, (Runs{plainRun(0), styledRun(0, kFaceBold, kRed), plainRun(1)}));
}

TEST(StyleRuns, CarryColoursAndFontAsSet) {
  BareManager manager;
  EXPECT_TRUE(manager.SetIndexColor(1, 2, 3));
  EXPECT_TRUE(manager.SetSubIndexColor(4, 5, 6));
  EXPECT_TRUE(manager.SetContentsColor(7, 8, 9));
  EXPECT_TRUE(manager.SetFontAttribute("Osaka", 24, 20, 22));
  EXPECT_EQ(manager.fontName, "Osaka");
  manager.OutputResult(tag(0xF5D1) + "go" + tag(0xF5C9) + "xyz");
  ASSERT_EQ(manager.styleRuns.size(), 3u);
  EXPECT_EQ(manager.styleRuns[0].scrpColor, (RGBColor{7, 8, 9}));
  EXPECT_EQ(manager.styleRuns[1].scrpColor, (RGBColor{1, 2, 3}));
  EXPECT_EQ(manager.styleRuns[2].scrpColor, (RGBColor{4, 5, 6}));
  for (const ScrpSTElement& run : manager.styleRuns) {
    EXPECT_EQ(run.scrpSize, 24);
    EXPECT_EQ(run.scrpAscent, 20);
    EXPECT_EQ(run.scrpHeight, 22);
    EXPECT_EQ(run.scrpFont, 0x4000);
  }
}

TEST(StyleRuns, KeepTheLowSixteenBitsOfHeights) {
  BareManager manager;
  manager.SetFontAttribute("", 0x10018, 0x1000C, static_cast<uint32_t>(-3));
  manager.OutputResult("ab");
  ASSERT_EQ(manager.styleRuns.size(), 1u);
  EXPECT_EQ(manager.styleRuns[0].scrpSize, 0x18);
  EXPECT_EQ(manager.styleRuns[0].scrpAscent, 0x0C);
  EXPECT_EQ(manager.styleRuns[0].scrpHeight, 0xFFFD);
}

TEST(StyleRuns, AreTwentyBytesBigEndFirst) {
  ScrpSTElement run;
  run.scrpStartChar = 0x01020304;
  run.scrpHeight = 0x0506;
  run.scrpAscent = 0x0708;
  run.scrpFont = 0x4000;
  run.scrpFace = 3;
  run.scrpSize = 0x090A;
  run.scrpColor = {0xFFFF, 0x0B0C, 0x0D0E};
  std::string record;
  appendScrpSTElement(record, run);
  EXPECT_EQ(record, raw("\x01\x02\x03\x04\x05\x06\x07\x08\x40\x00\x03\x00\x09\x0A\xFF\xFF\x0B\x0C\x0D\x0E"));
}

// --- Colours and defaults ---

TEST(SetColor, RefusesFullIntensityInAnyChannel) {
  BareManager manager;
  EXPECT_FALSE(manager.SetIndexColor(0xFFFF, 0, 0));
  EXPECT_FALSE(manager.SetIndexColor(0, 0xFFFF, 0));
  EXPECT_FALSE(manager.SetIndexColor(0, 0, 0xFFFF));
  EXPECT_EQ(manager.indexColor, kRed);
  EXPECT_FALSE(manager.SetSubIndexColor(0, 0, 0xFFFF));
  EXPECT_EQ(manager.subIndexColor, kBlue);
  EXPECT_FALSE(manager.SetContentsColor(0xFFFF, 0xFFFF, 0xFFFF));
  EXPECT_EQ(manager.contentsColor, kBlack);
  EXPECT_TRUE(manager.SetIndexColor(0xFFFE, 0xFFFE, 0xFFFE));
  EXPECT_EQ(manager.indexColor, (RGBColor{0xFFFE, 0xFFFE, 0xFFFE}));
}

TEST(SetColor, StartsRedBlueAndBlack) {
  const BareManager manager;
  EXPECT_EQ(manager.indexColor, (RGBColor{0xFFFF, 0, 0}));
  EXPECT_EQ(manager.subIndexColor, (RGBColor{0, 0, 0xFFFF}));
  EXPECT_EQ(manager.contentsColor, (RGBColor{0, 0, 0}));
}

TEST(SetFontAttribute, StartsAtTwelvePoints) {
  const BareManager manager;
  EXPECT_EQ(manager.fontName, "");
  EXPECT_EQ(manager.fontId, 0x4000);
  EXPECT_EQ(manager.fontSize, 12u);
  EXPECT_EQ(manager.fontAscent, 12u);
  EXPECT_EQ(manager.lineHeight, 16u);
}

}  // namespace
}  // namespace zavel::test
