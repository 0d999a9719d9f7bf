#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string keyword(const std::string& line) {
  return BareManager().ExtractKeywordFromMidashiData(line);
}

TEST(Keyword, DropsTheGlossAndTheTerminatingZero) {
  EXPECT_EQ(keyword(sjis("go [行く]") + raw("\0")), "go");
  EXPECT_EQ(keyword(sjis("みち [道]") + raw("\0")), sjis("みち"));
  EXPECT_EQ(keyword("go"), "go");
  EXPECT_EQ(keyword(""), "");
}

TEST(Keyword, NeedsNeitherAnOpenDictionaryNorAShortLine) {
  MirellDictionaryManager closed;
  EXPECT_EQ(closed.ExtractKeywordFromMidashiData("go [x]"), "go");
  EXPECT_EQ(closed.ExtractKeywordFromMidashiData(std::string(300, 'a')), std::string(300, 'a'));
}

TEST(Keyword, DropsFromTheFirstToTheLastBracket) {
  EXPECT_EQ(keyword("a [b] c [d] e"), "a e");
  EXPECT_EQ(keyword("a [b]] e"), "a e");
}

TEST(Keyword, KeepsTheTextOfAnUnpairedBracket) {
  EXPECT_EQ(keyword("go [x"), "go [x");
  EXPECT_EQ(keyword("go x]"), "go x]");
  EXPECT_EQ(keyword("a]b[c"), "a]b[c");
}

TEST(Keyword, CutsAtAComma) {
  EXPECT_EQ(keyword("color, colour"), "color");
  EXPECT_EQ(keyword(", a"), "");
  EXPECT_EQ(keyword("a,b,c"), "a");
}

TEST(Keyword, CutsAtTheCommasPlaceInTheWholeLine) {
  // The comma stands at 9. Without "[x]" the line has 9 bytes: nothing is cut.
  EXPECT_EQ(keyword("ab [x] cd, e"), "ab cd, e");
  // "ab  cd, efgh" has 12: the cut at 9 goes through the text behind the comma.
  EXPECT_EQ(keyword("ab [x] cd, efgh"), "ab cd, e");
  // A comma inside the brackets, at 5, cuts what moved there.
  EXPECT_EQ(keyword("a [bc,d] efgh"), "a ef");
}

TEST(Keyword, CountsACommaBehindALeadByte) {
  EXPECT_EQ(keyword("\x83,x"), "\x83");
}

TEST(Keyword, TakesNoSecondByteForABracket) {
  // 深 is 90 5B, ‐ is 81 5D: neither opens nor closes anything.
  EXPECT_EQ(keyword(sjis("深い")), sjis("深い"));
  EXPECT_EQ(keyword(sjis("深い[x")), sjis("深い[x"));
  EXPECT_EQ(keyword(sjis("深い[x]深")), sjis("深い深"));
}

TEST(Keyword, DropsMarksAndBracketsFromEveryLine) {
  EXPECT_EQ(keyword("***go"), "go");
  EXPECT_EQ(keyword("go(es)"), "goes");
  EXPECT_EQ(keyword("dic\xA5tio\xA5nar\xA5y"), "dictionary");
  EXPECT_EQ(keyword(sjis("*み(ち)") + "\xA5"), sjis("みち"));
}

TEST(Keyword, KeepsBlanksAndHyphensOfAnEnglishLineOnly) {
  EXPECT_EQ(keyword("run-up to"), "run-up to");
  EXPECT_EQ(keyword(sjis("み-ち の")), sjis("みちの"));
}

TEST(Keyword, ALeadByteAnywhereMakesTheLineJapanese) {
  EXPECT_EQ(keyword("a-b \x83"), "ab\x83");
  // Not the gloss, which is gone by then, nor half-width kana.
  EXPECT_EQ(keyword(sjis("a-b c [行く]")), "a-b c");
  EXPECT_EQ(keyword("a-b \xB1"), "a-b \xB1");
}

TEST(Keyword, DropsTheTimesSignAndReadsTheNextByteAsASecondOne) {
  EXPECT_EQ(keyword(sjis("あ×い")), sjis("あい"));  // 82 as if second, A2 alone: both kept
  EXPECT_EQ(keyword(sjis("×ぇ")), "\x82");          // 82 as if second, A5 alone: dropped
  EXPECT_EQ(keyword(sjis("××")), sjis("×"));        // 81 as if second, 7E alone
  EXPECT_EQ(keyword(sjis("×-い")), sjis("い"));     // "-" can't be second: it counts as single
  EXPECT_EQ(keyword(sjis("×A-い")), sjis("Aい"));
  EXPECT_EQ(keyword(sjis("あ×")), sjis("あ"));
  EXPECT_EQ(keyword("\x81"), "\x81");
}

TEST(Keyword, LeavesOneBlankOfSeveral) {
  EXPECT_EQ(keyword("a    b  c"), "a b c");
}

TEST(Keyword, StripsBytesBelow21FromBothEnds) {
  EXPECT_EQ(keyword(raw(" \0\x1Fgo\x01to \r\0")), raw("go\x01to"));
  EXPECT_EQ(keyword("!go\xFE"), "!go\xFE");
  EXPECT_EQ(keyword("   "), "");
}

}  // namespace
}  // namespace zavel::test
