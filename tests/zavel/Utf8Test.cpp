#include "Utf8.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

TEST(DecodeUtf8, ReadsEachLength) {
  char32_t code = 0;
  EXPECT_EQ(decodeUtf8("a", &code), 1u);
  EXPECT_EQ(code, U'a');
  EXPECT_EQ(decodeUtf8("é", &code), 2u);
  EXPECT_EQ(code, char32_t{0xE9});
  EXPECT_EQ(decodeUtf8("行く", &code), 3u);
  EXPECT_EQ(code, char32_t{0x884C});
  EXPECT_EQ(decodeUtf8("😀", &code), 4u);
  EXPECT_EQ(code, char32_t{0x1F600});
}

TEST(DecodeUtf8, RefusesBrokenOverlongAndSurrogates) {
  char32_t code = 0;
  for (const char* bad : {"", "\x80", "\xC0\xAF", "\xE8\xA1", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
    EXPECT_EQ(decodeUtf8(bad, &code), 0u) << bad;
  }
}

TEST(Columns, WideCharactersTakeTwoAndMarksNone) {
  EXPECT_EQ(columns("go"), 2u);
  EXPECT_EQ(columns("行く"), 4u);
  EXPECT_EQ(columns("ｱ"), 1u);          // half-width katakana
  EXPECT_EQ(columns("Ａ"), 2u);         // full-width letter
  EXPECT_EQ(columns("e\xCC\x81"), 1u);  // e and a combining acute
  EXPECT_EQ(columns("\x07"), 0u);
}

TEST(RepairUtf8, EachStrayByteBecomesAReplacementCharacter) {
  EXPECT_EQ(repairUtf8("a\xFF"
                       "b"),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(repairUtf8("行\xE8\xA1"), "行\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_TRUE(isUtf8("行く"));
  EXPECT_FALSE(isUtf8("\xE8\xA1"));
}

TEST(Printable, ControlCharactersAndStrayBytesAreReplaced) {
  EXPECT_EQ(printable("行く\n\x1b[31m\t\x7F"), "行く\n\xEF\xBF\xBD[31m\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(printable("\xC2\x9B"), "\xEF\xBF\xBD");  // what ESC [ is in one character
  EXPECT_EQ(printable("\xC2\xA0"), "\xC2\xA0");
  EXPECT_EQ(printable("a\u202Eb\u2066c\u2029"), "a\uFFFDb\uFFFDc\u2029");  // U+2029 parts paragraphs
  EXPECT_EQ(printable("\xE8\xA1"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(printable(""), "");
  for (const char* text : {"行く\n\x1b[31m\t\x7F", "\xC2\x9B", "a\xC2\xA0", "\x7F", "\x1F", "行く\n", ""}) {
    EXPECT_EQ(withoutControls(text), printable(text)) << text;
  }
}

std::vector<std::string> lines(std::string_view text, size_t width, size_t indent) {
  std::vector<std::string> out;
  for (const ByteRange& row : breakLines(text, width, indent)) {
    out.emplace_back(text.substr(row.begin, row.end - row.begin));
  }
  return out;
}

TEST(BreakLines, BreaksAtBlanks) {
  EXPECT_EQ(lines("one two three", 8, 0), (std::vector<std::string>{"one two", "three"}));
}

TEST(BreakLines, BreaksAfterWideCharacters) {
  EXPECT_EQ(lines("あいうえおか", 4, 0), (std::vector<std::string>{"あい", "うえ", "おか"}));
}

TEST(Beginning, HoldsWholeCharactersOnly) {
  EXPECT_EQ(beginning("aあ", 0), "");
  EXPECT_EQ(beginning("aあ", 1), "a");
  EXPECT_EQ(beginning("aあ", 3), "a");
  EXPECT_EQ(beginning("aあ", 4), "aあ");
  EXPECT_EQ(beginning("aあ", 5), "aあ");
  EXPECT_EQ(beginning("あ", 2), "");
}

TEST(BreakLines, NoLineBeginsWithAClosingMark) {
  EXPECT_EQ(lines("あい,うえ", 4, 0), (std::vector<std::string>{"あ", "い,", "うえ"}));
  EXPECT_EQ(lines("あい。うえ", 4, 0), (std::vector<std::string>{"あ", "い。", "うえ"}));
  EXPECT_EQ(lines("(あい)う", 5, 0), (std::vector<std::string>{"(あ", "い)う"}));
}

TEST(BreakLines, AWidthOfZeroBreaksNothing) {
  EXPECT_EQ(lines("one two three", 0, 0), (std::vector<std::string>{"one two three"}));
}

TEST(BreakLines, FurtherLinesAreNarrowerByTheIndent) {
  // Twenty columns for the first line, sixteen for the others.
  EXPECT_EQ(lines("aaaa bbbb cccc dddd eeee ffff gggg", 20, 4),
            (std::vector<std::string>{"aaaa bbbb cccc dddd", "eeee ffff gggg"}));
  EXPECT_EQ(lines("aaaa bbbb cccc dddd eeee ffff gggg hh", 20, 4),
            (std::vector<std::string>{"aaaa bbbb cccc dddd", "eeee ffff gggg", "hh"}));
}

TEST(BreakLines, AWordLongerThanTheLineStaysWhole) {
  EXPECT_EQ(lines("a incomprehensibility b", 10, 0),
            (std::vector<std::string>{"a", "incomprehensibility", "b"}));
}

}  // namespace
}  // namespace zavel::host
