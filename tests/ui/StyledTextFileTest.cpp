#include "ui/StyledTextFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lookup/MirellDictionaryManager.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using Runs = std::vector<AttributedText::Run>;

template <size_t N>
std::string raw(const char (&literal)[N]) {
  return std::string(literal, N - 1);
}

// One run: 16 points high, ascent 12, font 0x4000, of `size` 12.
std::string run(uint8_t offset, char face, const std::string& color) {
  return raw("\0\0\0") + static_cast<char>(offset) + raw("\0\x10\0\x0C\x40\0") + face + raw("\0\0\x0C") +
         color;
}
const std::string kBlackBytes = raw("\0\0\0\0\0\0");
const std::string kRedBytes = raw("\xFF\xFF\0\0\0\0");

TextStyle styled(const Color& color, bool bold = false) {
  TextStyle style;
  style.fontSize = 12;
  style.color = color;
  style.bold = bold;
  return style;
}
const Color kBlack{0, 0, 0, 1};
const Color kRed{1, 0, 0, 1};

TEST(StyledText, TakesSizeFaceAndColourFromTheRecord) {
  const auto text = decodeStyledText("go\rx", raw("\0\2") + run(0, 1, kRedBytes) + run(3, 0, kBlackBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(), "go\rx");
  EXPECT_EQ(text->runs(), (Runs{{{0, 3}, styled(kRed, true)}, {{3, 1}, styled(kBlack)}}));
}

TEST(StyledText, ReadsEveryFieldOfARun) {
  const auto text =
      decodeStyledText("x", raw("\0\1\0\0\0\0\0\x10\0\x0C\x40\0\x03\0\x01\x02\x80\0\x40\0\x33\x33"));
  ASSERT_TRUE(text);
  const TextStyle& style = *text->styleAt(0);
  EXPECT_TRUE(style.bold);
  EXPECT_TRUE(style.italic);
  EXPECT_FALSE(style.underline);
  EXPECT_EQ(style.fontSize, 258);
  EXPECT_EQ(style.fontName, "");
  EXPECT_DOUBLE_EQ(style.color->red, 32768 / 65535.0);
  EXPECT_DOUBLE_EQ(style.color->green, 16384 / 65535.0);
  EXPECT_DOUBLE_EQ(style.color->blue, 0.2);
  EXPECT_EQ(style.color->alpha, 1.0);
}

TEST(StyledText, OffsetsCountBytesAndPositionsUnits) {
  // 行く is 8D 73 82 AD: four bytes, two units.
  const auto text =
      decodeStyledText("\x8D\x73\x82\xAD go", raw("\0\2") + run(0, 0, kRedBytes) + run(5, 0, kBlackBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(), "行く go");
  EXPECT_EQ(text->runs(), (Runs{{{0, 3}, styled(kRed)}, {{3, 2}, styled(kBlack)}}));
}

TEST(StyledText, ARunInsideACharacterBeginsWithIt) {
  const auto text =
      decodeStyledText("\x8D\x73\x82\xAD", raw("\0\2") + run(0, 0, kRedBytes) + run(3, 0, kBlackBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(), "行く");
  EXPECT_EQ(text->runs(), (Runs{{{0, 1}, styled(kRed)}, {{1, 1}, styled(kBlack)}}));
}

TEST(StyledText, OfTwoRunsAtOnePlaceTheLaterCounts) {
  const auto text = decodeStyledText("go", raw("\0\2") + run(0, 0, kBlackBytes) + run(0, 1, kRedBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->runs(), (Runs{{{0, 2}, styled(kRed, true)}}));
}

TEST(StyledText, WhatStandsAheadOfTheFirstRunIsPlain) {
  const auto text = decodeStyledText("go", raw("\0\1") + run(1, 0, kRedBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->runs(), (Runs{{{0, 1}, {}}, {{1, 1}, styled(kRed)}}));
}

TEST(StyledText, ARunBehindTheEndBeginsNowhere) {
  const auto text = decodeStyledText("go", raw("\0\2") + run(0, 0, kBlackBytes) + run(9, 0, kRedBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->runs(), (Runs{{{0, 2}, styled(kBlack)}}));
}

TEST(StyledText, WithoutARecordHasNoStyles) {
  const auto text = decodeStyledText("go", "");
  ASSERT_TRUE(text);
  EXPECT_EQ(text->runs(), (Runs{{{0, 2}, {}}}));
  EXPECT_EQ(decodeStyledText("", raw("\0\0")), AttributedText());
  EXPECT_EQ(decodeStyledText("", raw("\0\1") + run(0, 0, kRedBytes)), AttributedText());
}

TEST(StyledText, BytesThatAreNoCharacterShowAsReplacements) {
  const auto text = decodeStyledText("a\x8D", raw("\0\1") + run(1, 0, kRedBytes));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(), "a\xEF\xBF\xBD");
  EXPECT_EQ(text->runs(), (Runs{{{0, 1}, {}}, {{1, 1}, styled(kRed)}}));
}

TEST(StyledText, RefusesARecordThatContradictsItself) {
  const std::string one = run(0, 0, kRedBytes);
  EXPECT_FALSE(decodeStyledText("go", raw("\0")));
  EXPECT_FALSE(decodeStyledText("go", raw("\0\2") + one));
  EXPECT_FALSE(decodeStyledText("go", raw("\0\0") + one));
  EXPECT_FALSE(decodeStyledText("go", raw("\0\1") + one.substr(1)));
  EXPECT_FALSE(decodeStyledText("go", raw("\0\1") + one + "x"));
  EXPECT_FALSE(decodeStyledText("go", raw("\0\2") + run(1, 0, kRedBytes) + one));
  EXPECT_FALSE(decodeStyledText("go", raw("\xFF\xFF") + one));
}

// Whatever a byte is changed to: what is still read has its styles in order and covers the text.
TEST(StyledText, StandsEveryChangedByteAndEveryLength) {
  const std::string record = raw("\0\2") + run(0, 1, kRedBytes) + run(3, 0, kBlackBytes);
  const std::string text = "go\r\x8D\x73\x82\xAD";
  const auto expectWhole = [](const std::optional<AttributedText>& read) {
    if (!read) return;
    size_t at = 0;
    for (const AttributedText::Run& r : read->runs()) {
      ASSERT_EQ(r.range.start, at);
      at = r.range.end();
    }
    ASSERT_EQ(at, read->length());
  };
  int refused = 0;
  for (size_t i = 0; i < record.size(); ++i) {
    EXPECT_EQ(decodeStyledText(text, record.substr(0, i)).has_value(), i == 0);
    for (int value = 0; value < 256; ++value) {
      std::string damaged = record;
      damaged[i] = static_cast<char>(value);
      const auto read = decodeStyledText(text, damaged);
      refused += read ? 0 : 1;
      expectWhole(read);
    }
  }
  // The count: 255 other values for each of its bytes. The first offset: above 3 it stands behind the second,
  // so 255 values for each of its three high bytes and 252 for the low one.
  EXPECT_EQ(refused, 2 * 255 + 3 * 255 + 252);
  for (size_t i = 0; i < text.size(); ++i) {
    expectWhole(decodeStyledText(text.substr(0, i), record));
    for (int value = 0; value < 256; ++value) {
      std::string damaged = text;
      damaged[i] = static_cast<char>(value);
      const auto read = decodeStyledText(damaged, record);
      ASSERT_TRUE(read);
      expectWhole(read);
    }
  }
}

TEST(StyledTextFile, ReadsWhatTheManagerWrites) {
  const test::TempFolder folder;
  MirellDictionaryManager manager;
  ScrpSTElement head;
  head.scrpFace = kFaceBold;
  head.scrpSize = 14;
  head.scrpColor = {0xFFFF, 0, 0};
  ScrpSTElement body;
  body.scrpStartChar = 3;
  body.scrpSize = 12;
  manager.styleRuns = {head, body};
  const FileReference file(folder.file("result"));
  ASSERT_TRUE(manager.OutputResultFile(file, "go\r\x8D\x73\x82\xAD"));
  const auto text = readStyledTextFile(file.path());
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(), "go\r行く");
  TextStyle large = styled(kRed, true);
  large.fontSize = 14;
  EXPECT_EQ(text->runs(), (Runs{{{0, 3}, large}, {{3, 2}, styled(kBlack)}}));
}

TEST(StyledTextFile, ReadsAFileWithoutStyles) {
  const test::TempFolder folder;
  const auto writer = platform().forkedFiles().create(folder.file("plain"), "TEXT", "ttxt");
  ASSERT_NE(writer, nullptr);
  ASSERT_TRUE(writer->writeText("go"));
  ASSERT_TRUE(writer->close());
  EXPECT_EQ(readStyledTextFile(folder.file("plain")), AttributedText("go"));
}

TEST(StyledTextFile, ReadsNothingWhereThereIsNoFileOrADamagedOne) {
  const test::TempFolder folder;
  EXPECT_FALSE(readStyledTextFile(folder.file("missing")));
  folder.write("damaged", "go");
  EXPECT_FALSE(readStyledTextFile(folder.file("damaged")));
}

}  // namespace
}  // namespace zavel
