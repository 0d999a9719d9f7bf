#include "foundation/KanjiConversion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zavel::foundation {
namespace {

using namespace std::string_literals;

// Runs a conversion into a heap buffer of `room` bytes, so that the sanitizer sees one byte too many.
template <typename Run>
std::string into(size_t room, Run run) {
  std::vector<char> out(room, '#');
  run(out.data());
  return std::string(out.data(), out.size());
}

std::string jisToEuc(const std::string& in) {
  return into(in.size() + 2, [&](char* out) { GFnConvJIS2EUC(out, in.data(), in.size()); });
}

TEST(GFnConvJIS2EUC, SetsBothHighBitsAndEndsWithTwoZeros) {
  EXPECT_EQ(jisToEuc("\x24\x22\x30\x21"), "\xA4\xA2\xB0\xA1\0\0"s);
  EXPECT_EQ(jisToEuc(""), "\0\0"s);
}

TEST(GFnConvJIS2EUC, KnowsWhatIsEucAlready) {
  EXPECT_EQ(jisToEuc("\x21\x21\xA1\x20\xA1\x21\xFE\x7E"), "\xA1\xA1\xA1\xA0\xA1\x21\xFE\x7E\0\0"s);
}

TEST(GFnConvJIS2EUC, StopsAtTheFirstCodeOutsideOnEitherSide) {
  EXPECT_EQ(jisToEuc("\x24\x22\xFE\x7F\x24\x22").substr(0, 4), "\xA4\xA2\0\0"s);
  EXPECT_EQ(jisToEuc("\x24\x22\x21\x20\x24\x22").substr(0, 4), "\xA4\xA2\0\0"s);
  EXPECT_EQ(jisToEuc("\0\0\x24\x22"s).substr(0, 2), "\0\0"s);
}

TEST(GFnConvJIS2EUC, DoesNotReadAnOddLastByte) {
  EXPECT_EQ(jisToEuc("\x24\x22\x24").substr(0, 4), "\xA4\xA2\0\0"s);
  EXPECT_EQ(jisToEuc("\x24").substr(0, 2), "\0\0"s);
}

std::string sjisToJis(const std::string& in) {
  std::vector<char> out(in.size() * 2);
  const size_t written = GFnConvSJIS2JIS(out.data(), in.data(), in.size());
  EXPECT_LE(written, out.size());
  return std::string(out.data(), written);
}

TEST(GFnConvSJIS2JIS, WidensSingleBytes) {
  EXPECT_EQ(sjisToJis("a"), "\x23\x61");
  EXPECT_EQ(sjisToJis("Az09 -"), "\x23\x41\x23\x7A\x23\x30\x23\x39\x21\x21\x21\x5D");
  EXPECT_EQ(sjisToJis("\xB1"), "\x25\x22");  // ｱ
}

TEST(GFnConvSJIS2JIS, TakesTwoBytesForEveryCharacter) {
  EXPECT_EQ(sjisToJis("\x82\xA0"
                      "b\x88\xF5"),
            "\x24\x22\x23\x62\x30\x77");
  EXPECT_EQ(sjisToJis(""), "");
}

TEST(GFnConvSJIS2JIS, SendsWhatHasNoWideFormThroughTheArithmetic) {
  // Lead 0: row 2 x 0 - 0xE1 = 0x1F, cell 0x0A - 0x1F = 0xEB, each in eight bits.
  EXPECT_EQ(sjisToJis("\n"), "\x1F\xEB");
  // 0xF0 is no lead byte: row 0x1F + 1, cell 0xF0 - 0x7E; then 0x40 is the sign @.
  EXPECT_EQ(sjisToJis("\xF0\x40"), "\x20\x72\x21\x77");
}

TEST(GFnConvSJIS2JIS, TakesALeadByteAtTheEndForASingleOne) {
  // 0x82 has no wide form: row 0x1F as for any single byte, cell 0x82 - 0x20.
  EXPECT_EQ(sjisToJis("a\x82"), "\x23\x61\x1F\x62");
}

std::string sjisToEuc(const std::string& in, int limit) {
  std::vector<char> out(in.size() * 2 + 1, '#');
  ConvSJIStoEUC(out.data(), in.c_str(), limit);
  return out.data();
}

TEST(ConvSJIStoEUC, ConvertsEachCharacter) {
  EXPECT_EQ(sjisToEuc("a\x82\xA0\xB1", 10), "a\xA4\xA2\x8E\xB1");
  EXPECT_EQ(sjisToEuc("", 10), "");
}

TEST(ConvSJIStoEUC, CountsDoubleByteCharactersOnly) {
  EXPECT_EQ(sjisToEuc("abcdef", 1), "abcdef");
  EXPECT_EQ(sjisToEuc("ab\x82\xA0"
                      "c\x82\xA2"
                      "d\x82\xA4",
                      2),
            "ab\xA4\xA2"
            "c\xA4\xA4");
  EXPECT_EQ(sjisToEuc("a\x82\xA0", 0), "");
  EXPECT_EQ(sjisToEuc("a\x82\xA0", -1), "");
}

TEST(ConvSJIStoEUC, ReadsNoSecondHalfBehindTheEnd) {
  EXPECT_EQ(sjisToEuc("a\x82", 10), "a\x8E\x82");
}

std::string jisToEucX(const std::string& in) {
  std::vector<char> out(in.size() + 1, '#');
  JisToEucX(in.c_str(), out.data());
  return out.data();
}

TEST(JisToEucX, SetsTheHighBitOfEveryByte) {
  EXPECT_EQ(jisToEucX("\x24\x22\x30"), "\xA4\xA2\xB0");
  EXPECT_EQ(jisToEucX(""), "");
}

std::string eucToJisX(const std::string& in) {
  std::vector<char> out(in.size() + 1, '#');
  EucToJisX(in.c_str(), out.data());
  return out.data();
}

TEST(EucToJisX, ClearsTheHighBitsByKind) {
  EXPECT_EQ(eucToJisX("\xA4\xA2\xB0\xA1"), "\x24\x22\x30\x21");
  EXPECT_EQ(eucToJisX("\x8E\xB1\x8E\xDF"), "\x31\x5F");
  EXPECT_EQ(eucToJisX("a\xA4\xA2"
                      "b"),
            "a\x24\x22"
            "b");
}

TEST(EucToJisX, LeavesOtherBytesAsTheyAre) {
  EXPECT_EQ(eucToJisX("\xA4"), "\xA4");
  EXPECT_EQ(eucToJisX("\x8E"), "\x8E");
  EXPECT_EQ(eucToJisX("\xA4z\x80\xFF"), "\xA4z\x80\xFF");
  EXPECT_EQ(eucToJisX("\x1B$B"), "\x1B$B");
}

TEST(EucToJisX, WorksInPlace) {
  char text[] = "\xA4\xA2\x8E\xB1";
  EucToJisX(text, text);
  EXPECT_STREQ(text, "\x24\x22\x31");
}

std::string zenToHan(const std::string& in) {
  std::vector<char> out(in.size() * 2 + 1, '#');
  ZenToHanEuc(in.c_str(), out.data());
  return out.data();
}

TEST(ZenToHanEuc, NarrowsLettersAndDigits) {
  EXPECT_EQ(zenToHan("\xA3\xC1\xA3\xDA\xA3\xE1\xA3\xFA\xA3\xB0\xA3\xB9"), "AZaz09");
  // The neighbours of the three ranges stay.
  const std::string others = "\xA3\xAF\xA3\xBA\xA3\xC0\xA3\xDB\xA3\xE0\xA3\xFB";
  EXPECT_EQ(zenToHan(others), others);
}

TEST(ZenToHanEuc, NarrowsKatakana) {
  EXPECT_EQ(zenToHan("\xA5\xA2"), "\x8E\xB1");          // ア
  EXPECT_EQ(zenToHan("\xA1\xBC"), "\x8E\xB0");          // ー
  EXPECT_EQ(zenToHan("\xA5\xAC"), "\x8E\xB6\x8E\xDE");  // ガ
  EXPECT_EQ(zenToHan("\xA5\xD1"), "\x8E\xCA\x8E\xDF");  // パ
  EXPECT_EQ(zenToHan("\xA5\xF4"), "\x8E\xB3\x8E\xDE");  // ヴ
}

TEST(ZenToHanEuc, CopiesTheRest) {
  EXPECT_EQ(zenToHan("a\xA3\xC1"
                     "b\xA3\xC2"),
            "aAbB");
  EXPECT_EQ(zenToHan("a\xA4\xA2\xB0\xA1\x8E\xB1"), "a\xA4\xA2\xB0\xA1\x8E\xB1");
  EXPECT_EQ(zenToHan("\xA5"), "\xA5");
  EXPECT_EQ(zenToHan("\x8F\xA3\xC1\xA3\xC1"),
            "\x8F\xA3\xC1"
            "A");
  EXPECT_EQ(zenToHan("\x8F\xA3"), "\x8F\xA3");
}

std::string replaceKatakana(std::string text) {
  GFnReplaceKatakana(text.data());
  return text;
}

TEST(GFnReplaceKatakana, LiftsHiraganaInPlace) {
  EXPECT_EQ(replaceKatakana("\x82\xA0x\x82\xF1"), "\x83\x41x\x83\x93");
  EXPECT_EQ(replaceKatakana("\x83\x41\x88\xF5\xB1"), "\x83\x41\x88\xF5\xB1");
}

TEST(GFnReplaceKatakana, WalksByCharacters) {
  // The second half of one and the first of the next look like hiragana.
  EXPECT_EQ(replaceKatakana("\x88\x82\xA0\x82"), "\x88\x82\xA0\x82");
  EXPECT_EQ(replaceKatakana("\x82"), "\x82");
}

std::string invert(std::string text) {
  InvertDBCSString(text.data());
  return text;
}

TEST(InvertDBCSString, ReversesCharactersNotBytes) {
  EXPECT_EQ(invert("112233"), "332211");
  EXPECT_EQ(invert("\x24\x22\x24\x24\x24\x26"), "\x24\x26\x24\x24\x24\x22");
  EXPECT_EQ(invert("1122"), "2211");
  EXPECT_EQ(invert("12"), "12");
  EXPECT_EQ(invert(""), "");
}

TEST(InvertDBCSString, LeavesAnOddLastByteInItsPlace) {
  EXPECT_EQ(invert("11223"), "22113");
  EXPECT_EQ(invert("1"), "1");
}

std::string run(char* (*trim)(char*), std::string text) {
  EXPECT_EQ(trim(text.data()), text.data());
  return text.c_str();
}

TEST(Trim, CutsBlanksOfBothWidthsAtTheLeft) {
  EXPECT_EQ(run(TrimLeft, " \t\xA1\xA1 a b "), "a b ");
  EXPECT_EQ(run(TrimLeft, "\na"), "\na");
  EXPECT_EQ(run(TrimLeft, "\xA1"), "\xA1");
  EXPECT_EQ(run(TrimLeft, " \xA1\xA1"), "");
}

TEST(Trim, CutsLineEndsTooAtTheRight) {
  EXPECT_EQ(run(TrimRight, " a b \t\xA1\xA1\r\n "), " a b");
  EXPECT_EQ(run(TrimRight, "\r\n"), "");
  EXPECT_EQ(run(TrimRight, ""), "");
  EXPECT_EQ(run(TrimRight, "\xA1\xA1"), "");
  EXPECT_EQ(run(TrimRight, "a\xA1"), "a\xA1");
}

TEST(Trim, GoesByBytesAtTheRight) {
  // A character that ends in 0xA1 and a full-width blank: three bytes 0xA1 in a row, two of which go.
  EXPECT_EQ(run(TrimRight, "\xB0\xA1\xA1\xA1"), "\xB0\xA1");
  EXPECT_EQ(run(TrimRight, "\xB0\xA1\xA1\xA1 \xA1\xA1"), "\xB0\xA1");
  // Two half-width full stops of Shift_JIS are the bytes of a full-width blank of EUC-JP.
  EXPECT_EQ(run(TrimRight, "x\xA1\xA1"), "x");
  EXPECT_EQ(run(TrimLeft, "\xA1\xA1x"), "x");
  // 82 A1 is a character of Shift_JIS and the stop behind it the second half of the blank.
  EXPECT_EQ(run(TrimRight, "x\x82\xA1\xA1"), "x\x82");
}

TEST(Trim, CutsAtBothEnds) {
  EXPECT_EQ(run(Trim,
                "\t a\xA1\xA1"
                "b\xA1\xA1\r\n"),
            "a\xA1\xA1"
            "b");
  EXPECT_EQ(run(Trim, " \t "), "");
}

}  // namespace
}  // namespace zavel::foundation
