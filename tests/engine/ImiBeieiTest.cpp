// American and British spelling: references in entries, and the words they lead to.
#include <gtest/gtest.h>

#include "engine/Beiei.h"
#include "engine/SearchFixture.h"

namespace zavel::engine {
std::ostream& operator<<(std::ostream& out, const BeieiWord& word) {
  return out << word.word << "/" << word.number;
}
}  // namespace zavel::engine

namespace zavel::test {
namespace {

using engine::BeieiWord;
using engine::FindBeiei;
using engine::GetMidasiNo;
using Words = std::vector<BeieiWord>;

const std::string kImi = tag(0xF5D4);
const std::string kUS = sjis("《米》 =");
const std::string kUK = sjis("《英》 =");

Words wordsOf(const std::string& text) {
  Words words;
  engine::GetBeiEiMidasi(text, &words);
  return words;
}

// Its homograph marker as entries write it.
std::string marker(const std::string& numbers) {
  return tag(0xF4B5) + numbers + tag(0xF4D0);
}

TEST(FindBeiei, TakesWhatFollowsTheSignOfAMeaning) {
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + kUS + "color\n"));
  EXPECT_EQ(Lines{"colour"}, FindBeiei(kImi + kUK + "colour\n"));
  EXPECT_EQ(Lines{}, FindBeiei(kImi + sjis("《独》 =") + "color\n"));
  EXPECT_EQ(Lines{}, FindBeiei(kImi + sjis("《米》=") + "color\n")) << "the blank belongs to it";
  EXPECT_EQ(Lines{}, FindBeiei(""));
}

TEST(FindBeiei, EndsAReferenceAtLineEndPointOr64Bytes) {
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + kUS + "color.x\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + kUS + "color"));
  EXPECT_EQ(Lines{std::string(64, 'a')}, FindBeiei(kImi + kUS + std::string(70, 'a') + "\n"));
}

// kept: behind a reference the steps of two go on from the byte that ended it
TEST(FindBeiei, GoesOnWhereAReferenceEnded) {
  EXPECT_EQ((Lines{"color", "hue"}), FindBeiei(kImi + kUS + "color.x" + kUK + "hue\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + kUS + "color." + kUK + "hue\n"));
  EXPECT_EQ((Lines{"color", "hue"}), FindBeiei(kImi + kUS + "color\n" + kImi + "x" + kUK + "hue\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + kUS + "color\n" + kImi + kUK + "hue\n"));
  EXPECT_EQ((Lines{std::string(64, 'a'), "hue"}),
            FindBeiei(kImi + kUS + std::string(64, 'a') + kUK + "hue\n"));
}

TEST(FindBeiei, FindsTheBracketOutsideMeaningsToo) {
  EXPECT_EQ(Lines{"color"}, FindBeiei("abc" + kUS + "color\n"));
  EXPECT_EQ(Lines{}, FindBeiei("abc" + sjis("語米》 =") + "color\n")) << "without the bracket";
}

TEST(FindBeiei, TakesAnyTwoBytesForTheBracketInAMeaning) {
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + sjis("語米》 =") + "color\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + "xy" + sjis("米》 =") + "color\n"));
}

// kept: in a meaning the scan goes in steps of two
TEST(FindBeiei, PassesOverAReferenceAtAnOddDistanceInAMeaning) {
  EXPECT_EQ(Lines{}, FindBeiei(kImi + "a" + kUS + "color\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + "ab" + kUS + "color\n"));
  EXPECT_EQ(Lines{"color"}, FindBeiei("a" + kUS + "color\n")) << "outside one it goes byte by byte";
}

TEST(FindBeiei, LeavesTheMeaningAtSectionTags) {
  for (const uint16_t value : {0xF5D0, 0xF5D1, 0xF5D2, 0xF5D3, 0xF5D5, 0xF5D6, 0xF5D7, 0xF5D8, 0xF5D9, 0xF5E3,
                               0xF5E4, 0xF5E5, 0xF5E7}) {
    EXPECT_EQ(Lines{}, FindBeiei(kImi + tag(value) + "a" + kUS.substr(2) + "color\n")) << std::hex << value;
    EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + tag(value) + "a" + kUS + "color\n")) << std::hex << value;
  }
  for (const uint16_t value : {0xF5B1, 0xF5C1, 0xF5E8, 0xF4D0}) {
    EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + tag(value) + "ab" + kUS.substr(2) + "color\n"))
        << std::hex << value;
  }
}

// kept: 0xD5 to 0xD9 behind any byte leaves the meaning, as in ぷ べ ほ (0x82D5, D7, D9)
TEST(FindBeiei, LeavesTheMeaningAtKanaThatEndLikeATag) {
  for (const char* kana : {"ぷ", "へ", "べ", "ぺ", "ほ"}) {
    EXPECT_EQ(Lines{}, FindBeiei(kImi + sjis(kana) + "xy" + kUS.substr(2) + "color\n")) << kana;
    EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + sjis(kana) + "xy" + kUS + "color\n")) << kana;
  }
  for (const char* kana : {"ぶ", "ぼ"}) {  // 0x82D4, 0x82DA
    EXPECT_EQ(Lines{"color"}, FindBeiei(kImi + sjis(kana) + "xy" + kUS.substr(2) + "color\n")) << kana;
  }
}

TEST(FindBeiei, StaysInsideTheBlock) {
  const std::string text = kImi + kUS;  // 2 + 8 bytes
  for (size_t length = 0; length < 10; ++length) {
    EXPECT_EQ(Lines{}, FindBeiei(text.substr(0, length))) << length;
  }
  EXPECT_EQ(Lines{""}, FindBeiei(text));
}

TEST(GetBeiEiMidasi, SeparatesItemsBySemicolon) {
  EXPECT_EQ((Words{{"color", 0}, {"hue", 0}}), wordsOf("color;hue"));
  EXPECT_EQ((Words{{"color", 0}}), wordsOf("color;"));
  EXPECT_EQ(Words{}, wordsOf(""));
}

// kept: a blank behind the semicolon stays, and no headword begins with one
TEST(GetBeiEiMidasi, KeepsLeadingBlanks) {
  EXPECT_EQ((Words{{"color", 0}, {" hue", 0}}), wordsOf("color; hue"));
}

TEST(GetBeiEiMidasi, DropsItemsWithIdioms) {
  EXPECT_EQ((Words{{"hue", 0}}), wordsOf(sjis("color [成句];hue")));
}

TEST(GetBeiEiMidasi, CutsNotes) {
  for (const char* note : {"《x》", "［x］", "[x]", "[a《b［c"}) {
    EXPECT_EQ((Words{{"color", 0}}), wordsOf("color " + sjis(note) + "y")) << note;
  }
}

TEST(GetBeiEiMidasi, DropsTagsButHomographMarkers) {
  EXPECT_EQ((Words{{"color", 0}}), wordsOf(tag(0xF5B1) + "col" + tag(0xF4A4) + "or" + tag(0xF5C1)));
  EXPECT_EQ((Words{{"color", 0}}), wordsOf("col" + tag(0xF4D0) + "or")) << "it closes nothing";
}

TEST(GetBeiEiMidasi, ListsAWordOncePerNumber) {
  EXPECT_EQ((Words{{"bow", 1}}), wordsOf("bow" + marker("1")));
  EXPECT_EQ((Words{{"bow", 1}, {"bow", 3}, {"bow", 12}}), wordsOf("bow" + marker("1,3, 12")));
  EXPECT_EQ((Words{{"bow", 1}}), wordsOf("bow" + marker("1 ,3")))
      << "the comma stands right behind the number";
  EXPECT_EQ((Words{{"bow", 2}, {"arc", 0}}), wordsOf("bow" + marker("2") + ";arc"));
  EXPECT_EQ(10u, wordsOf("a" + marker("1,2,3,4,5,6,7,8,9,10,11,12")).size());
  EXPECT_EQ(Words{}, wordsOf("bow" + marker("x"))) << "a marker without number names nothing";
  EXPECT_EQ((Words{{"bow", 1}}), wordsOf("bow" + tag(0xF4B5) + "1")) << "a marker left open";
  EXPECT_EQ(Words{}, wordsOf("bow" + marker("99999999999")));
}

TEST(GetBeiEiMidasi, TakesTheMarkerInFrontOfTheWord) {
  EXPECT_EQ((Words{{"bow", 1}, {"bow", 3}}), wordsOf(marker("1,3") + "bow"));
  EXPECT_EQ((Words{{"bow", 1}}), wordsOf(" " + marker("1") + "bow"));
  EXPECT_EQ((Words{{"bow", 1}}), wordsOf("bow" + marker("1") + "arc"))
      << "what stands ahead of it is the word";
}

TEST(GetBeiEiMidasi, CutsTrailingBlanksAndNumbers) {
  EXPECT_EQ((Words{{"color", 0}}), wordsOf("color  "));
  EXPECT_EQ((Words{{"color", 0}}), wordsOf("color 1"));
  EXPECT_EQ((Words{{"color", 0}}), wordsOf("color  12 "));
  EXPECT_EQ((Words{{"color 123", 0}}), wordsOf("color 123")) << "three digits are no sense number";
  EXPECT_EQ((Words{{"color1", 0}}), wordsOf("color1")) << "nor is one without a blank";
  EXPECT_EQ((Words{{"12", 0}}), wordsOf("12"));
}

TEST(GetMidasiNo, ReadsTheHeadwordLine) {
  EXPECT_EQ((BeieiWord{"color", 0}), GetMidasiNo(entryE("color", "名", "色")));
  EXPECT_EQ((BeieiWord{"it's R&B-a/b_c. d", 0}), GetMidasiNo(head("it's R&B-a/b_c. d")));
  EXPECT_EQ((BeieiWord{"color", 0}), GetMidasiNo(tag(0xF5D1) + "***col\xA5or*"));
  EXPECT_EQ((BeieiWord{"color", 0}), GetMidasiNo("xx" + head("color")));
  EXPECT_EQ((BeieiWord{"color", 0}), GetMidasiNo(tag(0xF5D1) + "col" + sjis("ア") + "or  \n"))
      << "no letter in the second byte, no trailing blanks";
  EXPECT_EQ((BeieiWord{"", 0}), GetMidasiNo("color\n"));
  EXPECT_EQ((BeieiWord{"", 0}), GetMidasiNo(""));
}

TEST(GetMidasiNo, StopsAtCommaBracketSpanAndTag) {
  for (const std::string& stop : {std::string(","), std::string("["), sjis("《"), sjis("≦"),
                                  std::string("\n"), tag(0xF4D0), tag(0xF4A4), std::string("\xF4\x41")}) {
    EXPECT_EQ((BeieiWord{"col", 0}), GetMidasiNo(tag(0xF5D1) + "col" + stop + "or\n")) << stop;
  }
}

TEST(GetMidasiNo, TakesTheMarkerInFrontOrBehind) {
  EXPECT_EQ((BeieiWord{"bow", 2}), GetMidasiNo(tag(0xF5D1) + marker("2") + "bow\n"));
  EXPECT_EQ((BeieiWord{"bow", 12}), GetMidasiNo(tag(0xF5D1) + marker("12") + "bow\n"));
  EXPECT_EQ((BeieiWord{"bow", 2}), GetMidasiNo(tag(0xF5D1) + "bow" + marker("2") + "\n"));
  EXPECT_EQ((BeieiWord{"bow", 2}), GetMidasiNo(tag(0xF5D1) + "bow " + marker("2") + "arrow\n"))
      << "it ends the word";
  EXPECT_EQ((BeieiWord{"bow", 2}),
            GetMidasiNo(tag(0xF5D1) + tag(0xF5B1) + marker("2") + "bow" + tag(0xF5C1) + "\n"));
  EXPECT_EQ((BeieiWord{"", 0}), GetMidasiNo(tag(0xF5D1) + tag(0xF4D0) + "bow\n"))
      << "any other such pair ends it";
}

TEST(GetMidasiNo, EndsAWordAt254Characters) {
  EXPECT_EQ(std::string(254, 'a'), GetMidasiNo(tag(0xF5D1) + std::string(300, 'a') + "\n").word);
}

class BeieiSearchTest : public SearchTest {};

TEST_F(BeieiSearchTest, FindsEntriesByHeadwordAndNumber) {
  const std::string one = entryForKatuyo("1", "bow", "[名]", "弓"),
                    two = entryForKatuyo("2", "bow", "[動]", "曲げる");
  dic.addE("bow", one);
  dic.addE("bow", two);
  dic.addE("bow", head("Bow"));
  open();
  std::string text;
  size_t budget = 100000;
  EXPECT_EQ(1, engine::SrchBeiei({"bow", 2}, &budget, &text));
  EXPECT_EQ(two, text);
  text.clear();
  EXPECT_EQ(1, engine::SrchBeiei({"bow", 0}, &budget, &text));
  EXPECT_EQ("", text) << "no bow without number";
  EXPECT_EQ(1, engine::SrchBeiei({"Bow", 0}, &budget, &text));
  EXPECT_EQ(head("Bow"), text) << "letters are compared with their case";
  text.clear();
  EXPECT_EQ(1, engine::SrchBeieiImi({"bow" + marker("1,2"), "zebra", ""}, &text));
  EXPECT_EQ(one + two, text);
  engine::CloseFsObjsKihonE();
}

TEST_F(BeieiSearchTest, LooksUpAnEqualNeighbourOnce) {
  dic.addE("color", head("color"));
  dic.addE("hue", head("hue"));
  open();
  std::string text;
  EXPECT_EQ(1, engine::SrchBeieiImi({"color;color", "color", "hue", "color"}, &text));
  EXPECT_EQ(head("color") + head("hue") + head("color"), text);
  engine::CloseFsObjsKihonE();
}

TEST_F(BeieiSearchTest, RefusesAReferenceOf256Bytes) {
  dic.addE("color", head("color"));
  open();
  std::string text;
  EXPECT_EQ(1, engine::SrchBeieiImi({"color" + std::string(250, ' ')}, &text));
  EXPECT_EQ(head("color"), text) << "255 bytes";
  EXPECT_EQ(20, engine::SrchBeieiImi({"color" + std::string(251, ' ')}, &text));
  engine::CloseFsObjsKihonE();
}

TEST_F(BeieiSearchTest, EndsWhenItsBudgetIsUsedUp) {
  dic.addE("color", head("color"));
  open();
  std::string text;
  size_t budget = 100;  // one word takes 64, its entry 64 and its bytes
  EXPECT_EQ(17, engine::SrchBeiei({"color", 0}, &budget, &text));
  EXPECT_EQ("", text);
  engine::CloseFsObjsKihonE();
}

}  // namespace
}  // namespace zavel::test
