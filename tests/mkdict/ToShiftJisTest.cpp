// How foreign text becomes entry text. Expected bytes are worked out from the code page's chart.
#include "mkdict/ToShiftJis.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

std::string converted(std::string_view utf8) {
  return toShiftJis(utf8).value_or("(nothing)");
}

std::string lackingOf(std::string_view utf8) {
  std::string lacking;
  EXPECT_FALSE(toShiftJis(utf8, &lacking)) << utf8;
  return lacking;
}

struct Case {
  const char* utf8;
  std::string sjis;
};

class Transliteration : public testing::TestWithParam<Case> {};

TEST_P(Transliteration, Gives) {
  EXPECT_EQ(GetParam().sjis, converted(GetParam().utf8)) << GetParam().utf8;
}

INSTANTIATE_TEST_SUITE_P(AsTheCodePageHasIt, Transliteration,
                         testing::Values(Case{"", ""}, Case{"apple \\ ~", "apple \\ ~"},
                                         Case{"りんご", "\x82\xE8\x82\xF1\x82\xB2"}, Case{"リ", "\x83\x8A"},
                                         Case{"ー", "\x81\x5B"}, Case{"員", "\x88\xF5"},
                                         Case{"①", "\x87\x40"}, Case{"髙", "\xFB\xFC"}, Case{"×", "\x81\x7E"},
                                         Case{"Ａ", "\x82\x60"}, Case{"Я", "\x84\x60"}, Case{"α", "\x83\xBF"},
                                         Case{"…", "\x81\x63"}, Case{"∪", "\x81\xBE"}, Case{"≒", "\x81\xE0"},
                                         Case{"ⅰ", "\xFA\x40"}));

INSTANTIATE_TEST_SUITE_P(Accents, Transliteration,
                         testing::Values(Case{"béchamel", "bechamel"}, Case{"Tōkaidō", "Tokaido"},
                                         Case{"Ōmi", "Omi"}, Case{"ū", "u"}, Case{"El Niño", "El Nino"},
                                         Case{"Straße", "Strasse"}, Case{"Þór", "Thor"}, Case{"æ", "ae"},
                                         Case{"Œuvre", "OEuvre"}, Case{"Łódź", "Lodz"},
                                         Case{"İstanbul", "Istanbul"}, Case{"ſ", "s"}, Case{"ŉ", "'n"},
                                         Case{"ž", "z"}, Case{"ơ", "o"}, Case{"ȳ", "y"},
                                         Case{"Kṛṣṇa", "Krsna"}, Case{"Việt", "Viet"}, Case{"ỹ", "y"},
                                         Case{"e\xCC\x81", "e"}, Case{"ά", "\x83\xBF"}, Case{"ς", "\x83\xD0"},
                                         Case{"ÿ", "y"}, Case{"À", "A"}, Case{"÷", "\x81\x80"}));

INSTANTIATE_TEST_SUITE_P(Signs, Transliteration,
                         testing::Values(Case{"“don’t”", "\"don't\""},
                                         Case{"a—b",
                                              "a\x81\x5C"
                                              "b"},
                                         Case{"1–2", "1-2"}, Case{"½", "1/2"}, Case{"1½", "1 1/2"},
                                         Case{"x²", "x2"}, Case{"H₂O", "H2O"}, Case{"10⁻³", "10-3"},
                                         Case{"ﬁ", "fi"}, Case{"€5", "EUR5"}, Case{"™", "(TM)"},
                                         Case{"≤", "<="}, Case{"•", "\x81\x45"}, Case{"〜", "\x81\x60"},
                                         Case{"−", "\x81\x7C"}, Case{"¥", "\x81\x8F"},
                                         Case{"a\xC2\xA0"
                                              "b",
                                              "a b"},
                                         Case{"a\xE2\x80\x8B"
                                              "b",
                                              "ab"},
                                         Case{"«", "\x81\xE1"}));

INSTANTIATE_TEST_SUITE_P(Japanese, Transliteration,
                         testing::Values(Case{"ｱｶﾞﾊﾟ", "\x83\x41\x83\x4B\x83\x70"},
                                         Case{"ﾜﾝ｡", "\x83\x8F\x83\x93\x81\x42"}, Case{"ｰ", "\x81\x5B"},
                                         Case{"か\xE3\x82\x99", "\x82\xAA"},
                                         Case{"は\xE3\x82\x9A", "\x82\xCF"},
                                         Case{"ウ\xE3\x82\x99", "\x83\x94"}, Case{"ﾞ", "\x81\x4A"},
                                         Case{"頰", "\x96\x6A"}, Case{"剝", "\x94\x8D"},
                                         Case{"\xF0\xA0\xAE\x9F", "\x8E\xB6"}));

// Bytes with a meaning of their own in entry text never come in from outside.
INSTANTIATE_TEST_SUITE_P(Controls, Transliteration,
                         testing::Values(Case{"a\tb", "a b"},
                                         Case{"a\x1B"
                                              "b",
                                              "a b"},
                                         Case{"a\n", "a "}, Case{"a\x7F", "a "},
                                         Case{"a\xC2\x85"
                                              "b",
                                              "ab"},
                                         Case{"°", "\x81\x8B"}));

TEST(ToShiftJis, NamesTheCharacterItLacks) {
  EXPECT_EQ("U+1F600 😀", lackingOf("smile 😀"));
  EXPECT_EQ("U+AC00 가", lackingOf("가"));
}

TEST(ToShiftJis, RefusesWhatIsNotUtf8) {
  for (const char* bytes :
       {"\xFF", "a\x80", "\xC3", "\xE3\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ("not UTF-8", lackingOf(bytes));
  }
}

TEST(ToShiftJis, EverySpellingIsInTheCodePage) {
  // A spelling that the code page lacked would come out as NUL bytes.
  for (unsigned code = 0x80; code < 0x10000; ++code) {
    const char utf8[] = {static_cast<char>(0xE0 | (code >> 12)),
                         static_cast<char>(0x80 | ((code >> 6) & 0x3F)),
                         static_cast<char>(0x80 | (code & 0x3F)), 0};
    const char two[] = {static_cast<char>(0xC0 | (code >> 6)), utf8[2], 0};
    const std::optional<std::string> sjis = toShiftJis(code < 0x800 ? two : utf8);
    EXPECT_EQ(std::string::npos, sjis.value_or("").find('\0')) << std::hex << code;
  }
}

TEST(ToEntryText, PartsCharactersThatTogetherLookLikeATag) {
  // 員 ends in 0xF5 and 罎 begins with 0xE3: a reader going byte by byte would see 0xF5E3.
  EXPECT_EQ("\x88\xF5 \xE3\xA2", toEntryText("員罎"));
  EXPECT_EQ("\x88\xF5\xE6\x76", toEntryText("員誚"));  // 0xF5E6 is no tag
  EXPECT_EQ("\x88\xF5\x88\xF5", toEntryText("員員"));
}

TEST(ToEntryText, LeavesNoPronunciationMarks) {
  EXPECT_EQ("a<=b>=c", toEntryText("a≦b≧c"));
}

TEST(LooksTagged, SeesTagsAcrossCharacters) {
  EXPECT_TRUE(looksTagged("\x88\xF5\xE3\xA2"));
  EXPECT_TRUE(looksTagged("\xF5\xD1"));
  EXPECT_TRUE(looksTagged("\xF5\xC9"));  // what the output pass inserts for itself
  EXPECT_FALSE(looksTagged("\x88\xF5 \xE3\xA2"));
  EXPECT_FALSE(looksTagged("\x88\xF5"));
  EXPECT_FALSE(looksTagged(""));
}

}  // namespace
}  // namespace zavel::mkdict
