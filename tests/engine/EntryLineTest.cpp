// Lines of a headword list, built from entry bytes.
#include <gtest/gtest.h>

#include <ctime>

#include "engine/IndexLine.h"
#include "engine/SearchFixture.h"

namespace zavel::test {
namespace {

using engine::BuildIndexLine;
using engine::InformMidasiJ;
using engine::LineResult;

constexpr uint16_t kE = 1, kKana = 2, kKji = 3;
constexpr size_t kCap = 65533;

// The line of a whole text; "(none)" when it holds no entry.
std::string lineOf(const std::string& text, uint16_t type = kE, size_t cap = kCap) {
  std::string line;
  const LineResult result = BuildIndexLine(text, true, type, cap, &line);
  return result == LineResult::kLine ? line : "(none)";
}

// The line of an English entry whose headword field is `field`.
std::string headwordE(const std::string& field) {
  return lineOf(tag(0xF5D1) + field + "\n");
}

// The gloss that the meaning `imi` (bytes) gives the word "a"; empty for none.
std::string glossOf(const std::string& imi) {
  const std::string shown = lineOf(tag(0xF5D1) + "a\n" + tag(0xF5D4) + imi + "\n");
  if (shown == "a") return "";
  EXPECT_TRUE(shown.starts_with("a [") && shown.ends_with("]")) << shown;
  return shown.substr(3, shown.size() - 4);
}

std::string inform(std::string line, uint16_t type) {
  InformMidasiJ(&line, type);
  return line;
}

TEST(IndexLineE, IsTheHeadwordWithItsFirstGloss) {
  EXPECT_EQ("apple [" + sjis("りんご") + "]", lineOf(entryE("apple", "名", "りんご")));
}

TEST(IndexLineE, IsTheHeadwordAloneWithoutMeaning) {
  EXPECT_EQ("apple", lineOf(head("apple")));
  EXPECT_EQ("apple", lineOf(head("apple") + line(0xF5D3, "-[名]") + line(0xF5D6, "apple pie")));
}

TEST(IndexLineE, EndsWithTheFile) {
  EXPECT_EQ("apple", lineOf(tag(0xF5D1) + "apple"));
  EXPECT_EQ("apple", lineOf(head("apple") + tag(0xF5D4) + sjis("りんご")))
      << "only a line end completes a gloss";
}

TEST(IndexLineE, SkipsTheHomographMarker) {
  EXPECT_EQ("bow", headwordE(tag(0xF4B5) + "1" + tag(0xF4D0) + "bow"));
  EXPECT_EQ("bow", headwordE(tag(0xF4B5) + "12" + tag(0xF4D0) + "bow"));
  EXPECT_EQ("3bow", headwordE(tag(0xF4B5) + "123" + tag(0xF4D0) + "bow")) << "two digits belong to it";
  EXPECT_EQ("bow", headwordE("bow" + tag(0xF4B5) + "1" + tag(0xF4D0)));
  EXPECT_EQ("bow", headwordE(tag(0xF4B5) + tag(0xF4D0) + "bow")) << "without digits two pairs";
}

TEST(IndexLineE, SkipsWhatStandsBetweenTheInequalitySigns) {
  EXPECT_EQ("runup", headwordE("run" + sjis("≦x≧") + "up"));
  EXPECT_EQ("runup", headwordE("run" + sjis("≦x≦y≧z≧") + "up")) << "they nest";
  EXPECT_EQ("run", headwordE("run" + sjis("≦xyz"))) << "one left open ends with the line";
  EXPECT_EQ("run", lineOf(tag(0xF5D1) + "run" + sjis("≦") + "x" + tag(0xF5D1) + "next\n"));
  EXPECT_EQ("run [" + sjis("走る") + "]",
            lineOf(tag(0xF5D1) + "run" + sjis("≦xyz") + "\n" + line(0xF5D4, "走る")));
  EXPECT_EQ("runup", headwordE("run" + sjis("≧") + "up")) << "a closing one alone is a character";
}

TEST(IndexLineE, ConvertsThreeBytes) {
  EXPECT_EQ("a" + sjis("ー") + "b", headwordE("a\xB0"
                                              "b"));
  EXPECT_EQ(
      "a\xA5"
      "b",
      headwordE("a\x1B"
                "b"));
  EXPECT_EQ("ab", headwordE(std::string("a\0b", 3)));
}

TEST(IndexLineE, SkipsDoubleByteCharactersInTheHeadword) {
  EXPECT_EQ("cafe", headwordE("ca" + sjis("語") + "fe"));
  EXPECT_EQ("cafe", headwordE(tag(0xF5B1) + "cafe" + tag(0xF5C1))) << "tags are such pairs";
  EXPECT_EQ(
      "ca"
      "\x81"
      " fe",
      headwordE("ca"
                "\x81"
                " fe"))
      << "a lead byte without its trail is a byte";
  EXPECT_EQ(
      "ca\xB1"
      "fe",
      headwordE("ca\xB1"
                "fe"))
      << "half-width kana is a byte";
}

TEST(IndexLineE, KeepsStarsAndSyllableMarks) {
  EXPECT_EQ("***ap\xA5ple", headwordE("***ap\xA5ple"));
}

TEST(IndexLineE, EndsAtTheNextEntry) {
  EXPECT_EQ("apple", lineOf(tag(0xF5D1) + "apple" + entryE("pear", "名", "梨")));
  EXPECT_EQ("apple", lineOf(head("apple") + entryE("pear", "名", "梨"))) << "the gloss is the neighbour's";
}

TEST(IndexLineE, EndsAtTheCapWithoutGloss) {
  EXPECT_EQ("appl", lineOf(entryE("apple", "名", "りんご"), kE, 4));
  EXPECT_EQ("apple", lineOf(entryE("apple", "名", "りんご"), kE, 5)) << "reached is reached";
  EXPECT_EQ("apple [" + sjis("りんご") + "]", lineOf(entryE("apple", "名", "りんご"), kE, 6));
  EXPECT_EQ("a\x81", lineOf(tag(0xF5D1) + "a\xB0\n", kE, 2)) << "in the middle of a pair too";
}

TEST(IndexLine, NeedsAnEntryTagOnTheFirstLine) {
  EXPECT_EQ("(none)", lineOf("apple\n"));
  EXPECT_EQ("(none)", lineOf(""));
  EXPECT_EQ("(none)", lineOf("\n" + head("apple")));
  EXPECT_EQ("apple", lineOf("xx" + head("apple"))) << "bytes ahead of the tag are passed over";
}

TEST(IndexLineGloss, EndsAtTheFirstSeparator) {
  for (const char separator : {'\xB0', '\x1B', ' ', ',', '.', ':', ';'}) {
    EXPECT_EQ(sjis("赤い"), glossOf(sjis("赤い") + separator + sjis("実") + separator + "x"));
    EXPECT_EQ(sjis("赤い"), glossOf(std::string(2, separator) + sjis("赤い") + separator))
        << "ahead of all text it is dropped";
  }
  EXPECT_EQ(sjis("赤い、実"), glossOf(sjis("赤い、実"))) << "the double-byte comma is text";
}

TEST(IndexLineGloss, DropsBracketedText) {
  for (const char* imi : {"[名]りんご", "《話》りんご", "(a)りんご", "≦x≧りんご", "り(x)んご", "りんご[x]"}) {
    EXPECT_EQ(sjis("りんご"), glossOf(sjis(imi))) << imi;
  }
}

TEST(IndexLineGloss, NestsBracketsOfOneKind) {
  EXPECT_EQ(sjis("りんご"), glossOf(sjis("((a)b)りんご")));
  EXPECT_EQ(sjis("りんご"), glossOf(sjis("《《a》b》りんご")));
  EXPECT_EQ(sjis("りんご"), glossOf(sjis("(a[b)りんご"))) << "another kind inside is text";
  EXPECT_EQ(sjis("り)んご"), glossOf(sjis("り)んご"))) << "a closing one alone is text";
}

TEST(IndexLineGloss, LeavesABracketOpenUntilTheLineEnds) {
  EXPECT_EQ(sjis("りんご"), glossOf(sjis("りんご(赤い")));
  EXPECT_EQ("a [" + sjis("実") + "]", lineOf(head("a") + line(0xF5D4, "(赤い") + line(0xF5D4, "実")));
  EXPECT_EQ("a", lineOf(head("a") + tag(0xF5D4) + "(x" + entryE("b", "名", "実")));
}

TEST(IndexLineGloss, TakesNoTrailByteForABracket) {
  EXPECT_EQ(sjis("カード"), glossOf(sjis("カード"))) << "the second byte of ー is [";
}

TEST(IndexLineGloss, DropsSenseLabels) {
  const std::string roman = tag(0xF5C1);
  for (const char* letter : {"A", "D", "a", "z"}) {
    EXPECT_EQ(sjis("実"), glossOf(tag(0xF5B1) + letter + roman + sjis("実"))) << letter;
  }
  for (const char* digit : {"1", "9"}) {
    EXPECT_EQ(sjis("実"), glossOf(tag(0xF5BD) + digit + roman + sjis("実"))) << digit;
  }
}

TEST(IndexLineGloss, KeepsTheTextOfOtherRuns) {
  const std::string roman = tag(0xF5C1);
  EXPECT_EQ("E" + sjis("実"), glossOf(tag(0xF5B1) + "E" + roman + sjis("実")));
  EXPECT_EQ("1" + sjis("実"), glossOf(tag(0xF5B1) + "1" + roman + sjis("実")));
  EXPECT_EQ("0" + sjis("実"), glossOf(tag(0xF5BD) + "0" + roman + sjis("実")));
  EXPECT_EQ("a" + sjis("実"), glossOf(tag(0xF5BD) + "a" + roman + sjis("実")));
  EXPECT_EQ("ab" + sjis("実"), glossOf(tag(0xF5B1) + "ab" + roman + sjis("実")));
  EXPECT_EQ("a" + sjis("実"), glossOf(tag(0xF5B1) + "a" + tag(0xF5BD) + sjis("実")));
}

TEST(IndexLineGloss, SkipsTagsAndCopiesTheRest) {
  EXPECT_EQ("H2O", glossOf("H" + tag(0xF4A4) + "2" + tag(0xF4D0) + "O"));
  EXPECT_EQ("H2O", glossOf("H\xF4"
                           "x2O"))
      << "0xF4 takes any byte with it";
  EXPECT_EQ("ab", glossOf("a" + tag(0xF5D8) + "b"));
  EXPECT_EQ(
      "a\xF5\xDA"
      "b",
      glossOf("a\xF5\xDA"
              "b"))
      << "no tag, so a character";
  EXPECT_EQ("ab", glossOf(std::string("a\0b", 3)));
}

TEST(IndexLineGloss, ComesFromTheFirstMeaningThatLeavesText) {
  EXPECT_EQ("a [" + sjis("実") + "]",
            lineOf(head("a") + line(0xF5D4, "[x]") + line(0xF5D4, "実") + line(0xF5D4, "木")));
  EXPECT_EQ("a [" + sjis("実") + "]", lineOf(head("a") + line(0xF5D4, "") + line(0xF5D4, "実")));
  EXPECT_EQ("a", lineOf(head("a") + tag(0xF5D4) + "\n" + sjis("実") + "\n")) << "a line end ends the meaning";
}

TEST(IndexLineGloss, EndsWithItsEntryWhereATagStandsBehindTheSeparator) {
  const std::string bold = tag(0xF5B1);
  EXPECT_EQ("x", glossOf("x, " + bold + ". " + bold + ", z"));
  EXPECT_EQ("a [x]", lineOf(head("a") + tag(0xF5D4) + "x, " + tag(0xF5D4) + "y, z\n" + head("b")));
  EXPECT_EQ("a", lineOf(head("a") + tag(0xF5D4) + "x, y" + tag(0xF5D1) + "b, c\n")) << "no line end";
  EXPECT_EQ("a [x]", lineOf(head("a") + tag(0xF5D4) + "x, \xF4\ny, z\n")) << "a line end taken for a tag's";
}

// Looking from each mark to the end of the line would take the better part of a minute.
TEST(IndexLineGloss, TakesTimeByTheLengthOfTheLine) {
  std::string marks;
  for (int i = 0; i < 500000; ++i) marks += ",x";
  const std::clock_t start = std::clock();
  EXPECT_EQ("x", glossOf("x" + marks + tag(0xF5B1)));
  EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
}

TEST(IndexLineKana, ShowsTheWrittenFormInBrackets) {
  const std::string entry = entryJ("くだもの", "果物", "fruit");
  EXPECT_EQ(sjis("くだもの [果物]"), lineOf(entry, kKana));
  EXPECT_EQ(sjis("果物 [くだもの]"), lineOf(entry, kKji));
}

TEST(IndexLineKana, IsTheReadingAloneWithoutWrittenForm) {
  EXPECT_EQ(sjis("りんご"), lineOf(entryJ("りんご", "", "apple"), kKana));
}

TEST(IndexLineKana, TakesTheFirstAngleSpanOfTheMeaning) {
  EXPECT_EQ(sjis("あう [会う]"), lineOf(entryJ("あう", "", "〈会う〉meet 〈合う〉fit"), kKana));
  EXPECT_EQ(
      sjis("あう [合う]"),
      lineOf(head("あう") + line(0xF5D3, "〈会う〉") + line(0xF5D4, "x") + "\n" + sjis("〈合う〉"), kKana))
      << "from the first meaning tag on, lines don't end it";
  EXPECT_EQ(sjis("あう"), lineOf(entryJ("あう", "", "〈会う〉meet"), kKji)) << "by kana alone";
}

TEST(IndexLineKana, EndsTheSearchForASpanAtASectionTag) {
  EXPECT_EQ(sjis("あう"), lineOf(head("あう") + line(0xF5D4, "meet") + line(0xF5D5, "〈会う〉"), kKana));
  EXPECT_EQ(sjis("あう"),
            lineOf(head("あう") + tag(0xF5D4) + sjis("〈会") + tag(0xF5D8) + sjis("う〉\n"), kKana));
  EXPECT_EQ(sjis("あう"), lineOf(head("あう") + line(0xF5D4, "meet") + line(0xF5D4, "〈会う〉"), kKana));
  EXPECT_EQ(sjis("あう [会") + tag(0xF5E8) + sjis("う]"),
            lineOf(head("あう") + tag(0xF5D4) + sjis("〈会") + tag(0xF5E8) + sjis("う〉\n"), kKana))
      << "the last such tag is F5E7";
  EXPECT_EQ(sjis("あう"), lineOf(head("あう") + entryJ("あえ", "", "〈会え〉"), kKana));
}

TEST(IndexLineKana, LeavesTheNulsOfASpanOut) {
  const std::string nul(1, '\0');
  EXPECT_EQ(sjis("あう [会う]"),
            lineOf(head("あう") + tag(0xF5D4) + sjis("〈会") + nul + sjis("う") + nul + sjis("〉\n"), kKana));
}

TEST(IndexLineKana, TakesNoSpanBesideAWrittenForm) {
  EXPECT_EQ(sjis("あう [会う]"), lineOf(entryJ("あう", "会う", "〈合う〉fit"), kKana));
}

// kept: the test for a written form looks for the byte 0xA5, and that is the second byte of "ぇ"
TEST(IndexLineKana, TakesSmallEForAWrittenForm) {
  EXPECT_EQ(sjis("いぇい"), lineOf(entryJ("いぇい", "", "〈x〉"), kKana));
}

TEST(IndexLineKana, KeepsTagsAndDoubleByteCharacters) {
  EXPECT_EQ(tag(0xF4D0) + sjis("あう"), lineOf(tag(0xF5D1) + tag(0xF4D0) + sjis("あう\n"), kKana));
  EXPECT_EQ(sjis("あー"), lineOf(tag(0xF5D1) + sjis("あ") + "\xB0\n", kKana));
  EXPECT_EQ(sjis("あう"), lineOf(tag(0xF5D1) + sjis("あ≦い≧う\n"), kKana));
  EXPECT_EQ(sjis("あう"), lineOf(tag(0xF5D1) + sjis("あ") + tag(0xF4B5) + "2" + sjis("う\n"), kKana));
}

TEST(IndexLineKana, StaysAsItIsAtTheCap) {
  EXPECT_EQ(sjis("くだ") + "\xA5\x89", lineOf(entryJ("くだ", "果物", "fruit"), kKana, 6));
}

TEST(InformMidasiJ, SplitsAtTheFirstMark) {
  EXPECT_EQ(sjis("あ [い]"), inform(sjis("あ") + "\xA5" + sjis("い"), kKana));
  EXPECT_EQ(sjis("い [あ]"), inform(sjis("あ") + "\xA5" + sjis("い"), kKji));
  EXPECT_EQ(sjis("あ [い") + "\xA5" + sjis("う]"),
            inform(sjis("あ") + "\xA5" + sjis("い") + "\xA5" + sjis("う"), kKana));
  EXPECT_EQ(sjis("ぇ [い]"), inform(sjis("ぇ") + "\xA5" + sjis("い"), kKana)) << "at a character border";
}

TEST(InformMidasiJ, LeavesAnglesBehindTheMark) {
  EXPECT_EQ(sjis("あ [い〈う〉]"), inform(sjis("あ") + "\xA5" + sjis("い〈う〉"), kKana));
}

TEST(InformMidasiJ, TurnsAnglesIntoBracketsAndEndsThere) {
  EXPECT_EQ(sjis("あ [い]"), inform(sjis("あ〈い〉う"), kKana));
  EXPECT_EQ(sjis("あ [い [う]"), inform(sjis("あ〈い〈う〉え〉"), kKji));
  EXPECT_EQ(sjis("あ [い"), inform(sjis("あ〈い"), kKana));
  EXPECT_EQ(sjis("あ]"), inform(sjis("あ〉い"), kKana));
  EXPECT_EQ(sjis("あ [い") + "\xA5" + sjis("う]"), inform(sjis("あ〈い") + "\xA5" + sjis("う〉え"), kKana))
      << "an angle ahead of the mark wins";
  EXPECT_EQ(sjis("あいう"), inform(sjis("あいう"), kKana));
  EXPECT_EQ("", inform("", kKana));
}

// However little of an entry is at hand, the answer is the final line or "more".
TEST(IndexLine, NeverSettlesOnAPartOfTheEntry) {
  const std::string entries[] = {entryE("apple", "名", "[x] りんご,実") + head("b"),
                                 tag(0xF5D1) + tag(0xF4B5) + "12" + tag(0xF4D0) + "ru\xB0n" +
                                     sjis("≦a≦b≧≧語") + "\n" + line(0xF5D4, "(a)") +
                                     line(0xF5D4, "《x》走る.") + head("b"),
                                 entryJ("くだもの", "果物", "fruit") + head("b"),
                                 entryJ("あう", "", "x〈会う〉") + head("b"), head("a") + head("b")};
  for (const std::string& entry : entries) {
    for (const uint16_t type : {kE, kKana, kKji}) {
      for (size_t length = 0; length < entry.size(); ++length) {
        std::string line;
        const LineResult result = BuildIndexLine(entry.substr(0, length), false, type, kCap, &line);
        if (result == LineResult::kNeedsMore) continue;
        EXPECT_EQ(lineOf(entry, type), line) << type << " at " << length;
      }
    }
  }
}

}  // namespace
}  // namespace zavel::test
