#include <gtest/gtest.h>

#include "lookup/LayoutPass.h"
#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string laidOut(const std::string& text) {
  return LayoutPass(text).run();
}

struct ReplacementRow {
  uint16_t key;
  std::string inLine;   // for the key between "a" and "bc"
  std::string afterCR;  // for the key between a CR and "bc"
  std::string atStart;  // for the key in front of "bc"
};

TEST(Layout, ActsOnEachKeyOfTheTable) {
  const std::string b4 = blanks(4), b8 = blanks(8), b14 = blanks(14);
  const ReplacementRow rows[] = {
      {0xF4A4, "a(bc", "\r(bc", "(bc"},
      {0xF4B5, "a(bc", "\r(bc", "(bc"},
      {0xF4D0, "a)bc", "\r)bc", ")bc"},
      {0xF5C5, "abc", "\rbc", "bc"},
      {0xF5CA, "abc", "\rbc", "bc"},
      {0xF5CB, "abc", "\rbc", "bc"},
      {0xF5C6, "abc", "\rbc", "bc"},
      {0xF5D0, "a" + b8 + "bc", "\r" + b8 + "bc", b8 + "bc"},
      {0xF5D2, "a" + b8 + "bc", "\r" + b8 + "bc", b8 + "bc"},
      {0xF5E3, "a" + b8 + "bc", "\r" + b8 + "bc", b8 + "bc"},
      {0xF5E8, "a" + b8 + "bc", "\r" + b8 + "bc", b8 + "bc"},
      {0xF5E9, "a" + b8 + "bc", "\r" + b8 + "bc", b8 + "bc"},
      {0xF5D3, "a\rbc", "\r\rbc", "\rbc"},
      {0xF5D4, "a\rbc", "\rbc", "\rbc"},
      {0xF5D5, "a\r" + b14 + "bc", "\r" + b14 + "bc", "\r" + b14 + "bc"},
      {0xF5E4, "a\r" + b14 + "bc", "\r" + b14 + "bc", "\r" + b14 + "bc"},
      {0xF5D6, "a\r" + b8 + "bc", "\r" + b8 + "bc", "\r" + b8 + "bc"},
      {0xF5D7, "abc", "\r" + b14 + "bc", "bc"},
      {0xF5D8, "a" + b4 + "bc", "\r" + b4 + "bc", b4 + "bc"},
      {0xF5D9, "a" + b14 + "bc", "\r" + b14 + "bc", b14 + "bc"},
      {0xF5E5, "a" + b14 + "bc", "\r" + b14 + "bc", b14 + "bc"},
      {0xF5E7, "a" + b14 + "bc", "\r" + b14 + "bc", b14 + "bc"},
  };
  for (const ReplacementRow& row : rows) {
    EXPECT_EQ(laidOut("a" + tag(row.key) + "bc"), row.inLine) << std::hex << row.key;
    EXPECT_EQ(laidOut("\r" + tag(row.key) + "bc"), row.afterCR) << std::hex << row.key;
    EXPECT_EQ(laidOut(tag(row.key) + "bc"), row.atStart) << std::hex << row.key;
  }
}

TEST(Layout, LetsKeysOfHeadwordsAndStylesPass) {
  for (const uint16_t key :
       {0xF5B1, 0xF5B6, 0xF5B7, 0xF5B8, 0xF5B9, 0xF5BC, 0xF5BD, 0xF5C1, 0xF5C2, 0xF5D1, 0xF5C9, 0xF5DA}) {
    const std::string text = "a" + tag(key) + "bc";
    EXPECT_EQ(laidOut(text), text) << std::hex << key;
  }
}

TEST(Layout, PassesOverTheSecondOfTwoKeysWhenTheFirstIsDeleted) {
  EXPECT_EQ(laidOut("a" + tag(0xF5C5) + tag(0xF5D8) + "b"), "a" + tag(0xF5D8) + "b");
  EXPECT_EQ(laidOut("a" + tag(0xF5D7) + tag(0xF5D8) + "b"), "a" + tag(0xF5D8) + "b");
  // After a CR the translation key leaves nothing either.
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5D8) + "b"), "\r" + tag(0xF5D8) + "b");
}

TEST(Layout, SeesTheSecondOfTwoKeysWhenTheFirstIsReplaced) {
  EXPECT_EQ(laidOut("a" + tag(0xF4D0) + tag(0xF5D8) + "b"), "a)" + blanks(4) + "b");
  EXPECT_EQ(laidOut("a" + tag(0xF5D8) + tag(0xF5D8) + "b"), "a" + blanks(8) + "b");
}

TEST(Layout, ActsOnAKeyThatEndsTheText) {
  EXPECT_EQ(laidOut("a" + tag(0xF4D0)), "a)");
  EXPECT_EQ(laidOut("a" + tag(0xF5C5)), "a");
  EXPECT_EQ(laidOut(tag(0xF5C5)), "");
}

TEST(Layout, LeavesTextsOfUnderTwoBytesAlone) {
  EXPECT_EQ(laidOut(""), "");
  EXPECT_EQ(laidOut("\xF5"), "\xF5");
  EXPECT_EQ(laidOut("\x1B"), "\x1B");
}

// --- The ignore key F5A7 ---

TEST(LayoutIgnore, DeletesTheNextCarriageReturnHoweverFar) {
  EXPECT_EQ(laidOut("a" + tag(0xF5A7) + "bc def\rg\rh"), "abc defg\rh");
}

TEST(LayoutIgnore, LooksAtTheSamePlaceAgain) {
  EXPECT_EQ(laidOut("a" + tag(0xF5A7) + tag(0xF5D8) + "b"), "a" + blanks(4) + "b");
  EXPECT_EQ(laidOut(tag(0xF5A7) + tag(0xF5D8) + "b"), blanks(4) + "b");
}

TEST(LayoutIgnore, EachTakesACarriageReturnOfItsOwn) {
  EXPECT_EQ(laidOut(tag(0xF5A7) + tag(0xF5A7) + tag(0xF5A7) + "a\rb\rc"), "abc");
}

TEST(LayoutIgnore, MayMakeAKeyOfBytesThatTheCarriageReturnParted) {
  EXPECT_EQ(laidOut(tag(0xF5A7) + "a\xF5\r\xD8"
                                  "bc"),
            "a" + blanks(4) + "bc");
}

TEST(LayoutIgnore, WithoutACarriageReturnDeletesTheKeyAlone) {
  EXPECT_EQ(laidOut("\ra" + tag(0xF5A7) + "bc"), "\rabc");
}

std::string repeated(size_t count, const std::string& piece) {
  std::string text;
  for (size_t i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(LayoutIgnore, ThousandsInAnEntryAllFindTheirCarriageReturn) {
  // 32,768 bytes. Behind the keys the first CR stands 21,842, 21,840 ... 0 bytes on: in all 10,922 x 10,921,
  // under half of what is allowed.
  EXPECT_EQ(laidOut(repeated(10922, tag(0xF5A7)) + repeated(10922, "\r") + "xy"), "xy");
}

TEST(LayoutIgnore, GivesTheFarSearchUpInATextThatIsMadeToTakeHours) {
  // The keys go 2 x 1,048,575, 2 x 1,048,574 ... bytes. 128 of them go 128 x 2,097,150 - 128 x 127 =
  // 268,418,944, one more comes to 270,515,838 and so past 2^28 = 268,435,456: its CR is the last that goes.
  const size_t count = 1048576;
  EXPECT_EQ(laidOut(repeated(count, tag(0xF5A7)) + repeated(count, "\r")), std::string(count - 129, '\r'));
}

// --- Parts of speech, F5D3 ---

TEST(LayoutHinsi, BeginsALineEachTime) {
  EXPECT_EQ(laidOut("a" + tag(0xF5D3) + "b" + tag(0xF5D3) + "cd"), "a\rb\rcd");
}

TEST(LayoutHinsi, IsMerelyRemovedOnceAfterAnIgnoreKey) {
  EXPECT_EQ(laidOut(tag(0xF5A7) + "a" + tag(0xF5D3) + "b" + tag(0xF5D3) + "cd"), "ab\rcd");
}

TEST(LayoutHinsi, RemovedPassesOverTheByteBehind) {
  EXPECT_EQ(laidOut(tag(0xF5A7) + tag(0xF5D3) + tag(0xF5D8) + "b"), tag(0xF5D8) + "b");
}

// --- Translations, F5D4 ---

TEST(LayoutTranslation, BoldLowerCaseLabelIsIndented) {
  EXPECT_EQ(laidOut("x" + tag(0xF5D4) + tag(0xF5B1) + "a" + tag(0xF5C1) + "y"),
            "x\r" + blanks(8) + tag(0xF5B1) + "a" + tag(0xF5C1) + "y");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5B1) + "1y"), "\r" + blanks(8) + tag(0xF5B1) + "1y");
}

TEST(LayoutTranslation, BoldUpperCaseLabelComesAfterAnEmptyLine) {
  EXPECT_EQ(laidOut("x" + tag(0xF5D4) + tag(0xF5B1) + "Ay"), "x\r\r" + tag(0xF5B1) + "Ay");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5B1) + "Zy"), "\r\r" + tag(0xF5B1) + "Zy");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5B1) + "@y"), "\r" + blanks(8) + tag(0xF5B1) + "@y");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5B1) + "[y"), "\r" + blanks(8) + tag(0xF5B1) + "[y");
}

TEST(LayoutTranslation, FirstSenseNumberStaysOnItsLine) {
  EXPECT_EQ(laidOut("x" + tag(0xF5D4) + tag(0xF5BD) + "1y"),
            "x\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD) + "1y");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5BD) + "1y"),
            "\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD) + "1y");
}

TEST(LayoutTranslation, LaterSenseNumbersComeAfterAnEmptyLine) {
  EXPECT_EQ(laidOut("x" + tag(0xF5D4) + tag(0xF5BD) + "2y"),
            "x\r\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD) + "2y");
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5BD) + "2y"),
            "\r\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD) + "2y");
}

TEST(LayoutTranslation, AMissingByteBehindTheLabelKeyIsAnythingElse) {
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5B1)), "\r" + blanks(8) + tag(0xF5B1));
  EXPECT_EQ(laidOut("\r" + tag(0xF5D4) + tag(0xF5BD)), "\r\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD));
  EXPECT_EQ(laidOut("x" + tag(0xF5D4)), "x\r");
  EXPECT_EQ(laidOut("x" + tag(0xF5D4) + "\xF5"), "x\r\xF5");
}

TEST(LayoutTranslation, BeginsAShortenedEntryWithALine) {
  EXPECT_EQ(laidOut(tag(0xF5D4) + tag(0xF5BD) + "1y"), "\r" + tag(0xF5C9) + blanks(4) + tag(0xF5BD) + "1y");
}

// --- Ideographic spaces, F5C6 ---

TEST(LayoutSpaces, GoAheadOfTheNextBracket) {
  EXPECT_EQ(laidOut("a" + tag(0xF5C6) + sjis("あ　い　う)えええ　お")), "a" + sjis("あいう)えええ　お"));
}

TEST(LayoutSpaces, StayWithoutABracket) {
  EXPECT_EQ(laidOut(tag(0xF5C6) + sjis("あ　い")), sjis("あ　い"));
  EXPECT_EQ(laidOut("a)" + tag(0xF5C6) + sjis("あ　い")), "a)" + sjis("あ　い"));
}

TEST(LayoutSpaces, GoBehindTheBracketToo_ForTwoBytesEach) {
  // The ")" is noted at 3. Without the first space it stands at 1 and the next space at 2, still ahead of 3.
  EXPECT_EQ(laidOut(tag(0xF5C6) + sjis("x　)　y")), "x)y");
  // At 2 a space is not ahead of the noted 2.
  EXPECT_EQ(laidOut(tag(0xF5C6) + sjis("　)a　b")), sjis(")a　b"));
  EXPECT_EQ(laidOut(tag(0xF5C6) + sjis("x)　y")), sjis("x)　y"));
}

TEST(LayoutSpaces, ASpaceThatADeletionMakesGoesToo) {
  EXPECT_EQ(laidOut(tag(0xF5C6) + "x\x81\x81\x40\x40y)"), "xy)");
}

TEST(LayoutSpaces, ASpaceThatACarriageReturnPartedGoesOnceTheReturnIsIgnored) {
  const std::string parted = "\x81\r\x40";
  EXPECT_EQ(laidOut(tag(0xF5C6) + "x" + parted + ")"), "x" + parted + ")");
  EXPECT_EQ(laidOut(tag(0xF5C6) + "x" + tag(0xF5A7) + tag(0xF5C6) + parted + ")"), "x)");
}

TEST(LayoutSpaces, TheByteBehindTheKeyIsPassedOver) {
  EXPECT_EQ(laidOut(tag(0xF5C6) + tag(0xF5D8) + "x)"), tag(0xF5D8) + "x)");
}

TEST(LayoutSpaces, GiveUpInATextThatIsMadeToTakeHours) {
  // Each key passes over an "x", and the bracket is two million bytes ahead of the first of them.
  const size_t count = 700000;
  const std::string xs(count, 'x');
  EXPECT_EQ(laidOut(repeated(count, tag(0xF5C6) + "x") + sjis("　)")), xs + ")");
  // Spaces parted by CRs, of which every other key joins one: each would be looked for as far as the end.
  const std::string text = repeated(count, tag(0xF5A7) + tag(0xF5C6) + "x") + repeated(count, "\x81\r\x40");
  EXPECT_EQ(laidOut(text + ")").substr(0, count), xs);
}

// --- Escapes ---

TEST(LayoutEscape, BecomesABlankExceptInTheLastByte) {
  EXPECT_EQ(laidOut("a\x1B"
                    "bc"),
            "a bc");
  EXPECT_EQ(laidOut("ab\x1B"), "ab\x1B");
  EXPECT_EQ(laidOut("a" + tag(0xF5D8) + "\x1B"), "a" + blanks(4) + "\x1B");
}

TEST(LayoutEscape, MovedIntoTheWalksPlaceByADeletionBecomesABlankEvenAsTheLastByte) {
  EXPECT_EQ(laidOut("a" + tag(0xF5C5) + "\x1B"), "a ");
  EXPECT_EQ(laidOut("a" + tag(0xF5A7) + "\x1B"), "a\x1B");  // this one steps back
}

// --- Preparation ---

TEST(OutputResultPreparation, TakesWordsForPicturesOut) {
  BareManager manager;
  EXPECT_EQ(manager.OutputResult(sjis("鳥(さし絵)の")), sjis("鳥()の"));
  EXPECT_EQ(manager.OutputResult(sjis("《さし絵》")), sjis("《》"));
  EXPECT_EQ(manager.OutputResult(sjis("鳥 さし絵.")), sjis("鳥 ."));
  EXPECT_EQ(manager.OutputResult(sjis("鳥[表]類[表]")), sjis("鳥類"));
  EXPECT_EQ(manager.OutputResult(sjis("さし絵の鳥")), sjis("さし絵の鳥"));
}

TEST(OutputResultPreparation, TakesRepeatedWordsOutToo) {
  BareManager manager;
  EXPECT_EQ(manager.OutputResult(sjis("さし絵さし絵)")), ")");
  EXPECT_EQ(manager.OutputResult(sjis("a[[表]表]b")), "ab");
}

TEST(OutputResultPreparation, LooksForTablesLast) {
  // Once the table is gone nobody looks for the picture again.
  EXPECT_EQ(BareManager().OutputResult(sjis("さし絵[表])")), sjis("さし絵)"));
}

// --- OutputResult as a whole ---

TEST(OutputResult, AnEmptyTextChangesNoField) {
  BareManager manager;
  manager.OutputResult("ab");
  EXPECT_EQ(manager.OutputResult(""), "");
  EXPECT_EQ(manager.outputText, "ab");
  EXPECT_EQ(manager.styleRuns.size(), 1u);
}

TEST(OutputResult, OneByteHasNoRuns) {
  BareManager manager;
  manager.OutputResult("ab");
  EXPECT_EQ(manager.OutputResult("x"), "x");
  EXPECT_EQ(manager.outputText, "x");
  EXPECT_TRUE(manager.styleRuns.empty());
}

TEST(OutputResult, ATextThatThePreparationEmptiesClearsTheRuns) {
  BareManager manager;
  manager.OutputResult("ab");
  EXPECT_EQ(manager.OutputResult(sjis("[表]")), "");
  EXPECT_EQ(manager.outputText, "");
  EXPECT_TRUE(manager.styleRuns.empty());
}

TEST(OutputResult, LaysAnEntryOut) {
  BareManager manager;
  const std::string entry = tag(0xF5D1) + tag(0xF5B1) + "go" + tag(0xF5C1) + "\r" + tag(0xF5D3) +
                            sjis("-[動]") + "\r" + tag(0xF5D4) + tag(0xF5BD) + "1" + tag(0xF5C1) +
                            sjis(" 行く") + "\r" + tag(0xF5D4) + tag(0xF5BD) + "2" + tag(0xF5C1) +
                            sjis(" 去る") + "\r" + tag(0xF5D5) + "go home" + tag(0xF5D8) + sjis(" 家に帰る") +
                            "\r\r\r";
  // The part of speech puts a CR of its own behind the headword's.
  EXPECT_EQ(manager.OutputResult(entry), sjis("go\r\r-[動]\r    1 行く\r\r    2 去る\r"
                                              "              go home     家に帰る\r\r\r"));
}

TEST(OutputResult, TextThatGoesThroughAgainStaysAndLosesItsColours) {
  BareManager manager;
  const std::string once = manager.OutputResult(tag(0xF5D1) + "go" + tag(0xF5C1) + "\rxy");
  EXPECT_EQ(once, "go\rxy");
  EXPECT_EQ(manager.OutputResult(once), "go\rxy");
  EXPECT_EQ(manager.styleRuns, (std::vector<ScrpSTElement>{plainRun(0), plainRun(3)}));
}

}  // namespace
}  // namespace zavel::test
