#include <gtest/gtest.h>

#include <array>
#include <cstring>

#include "OpenBook.h"
#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// A font of `count` glyphs of `bytes` bytes, numbered: the n-th glyph's bytes are n + 1, n + 2 and so on.
std::string font(uint32_t first, uint32_t count, size_t bytes) {
  std::string out(2048, '\0');
  out.replace(10, 4, be16(first) + be16(count));
  for (uint32_t glyph = 0; glyph < count; ++glyph) {
    for (size_t i = 0; i < bytes; ++i) out += static_cast<char>(glyph + 1 + i);
  }
  return out;
}

BookWriter bookWith(const std::string& full, const std::string& half) {
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.record({.kind = 0xF1, .flags = std::string(4, '\0'), .name = "FULL"});
  writer.record({.kind = 0xF2, .flags = std::string(4, '\0'), .name = "HALF"});
  if (!full.empty()) writer.file("FULL", full);
  if (!half.empty()) writer.file("HALF", half);
  return writer;
}

std::string bitmap(OpenBook& book, bool full, uint16_t code, uint16_t size = 16) {
  char* out = nullptr;
  const uint32_t status = SDicGetCustomCharacterBitmap(book.handle, full, code, size, &out);
  if (status != 0) return OpenBook::hex(status);
  std::string found(out, 126);
  std::free(out);
  return found;
}

std::string raw(OpenBook& book, bool full, uint16_t code, uint16_t size = 16) {
  std::array<char, 40> buffer;
  buffer.fill('x');
  uint16_t length = 0;
  const uint32_t status =
      SDicGetRawCustomCharacterBitmap(book.handle, full, code, size, buffer.data(), &length);
  if (status != 0) return OpenBook::hex(status);
  return std::to_string(length) + ":" + hexOf(std::string(buffer.data(), 33));
}

TEST(Gaiji, AreNumberedByCode) {
  OpenBook book(bookWith(font(0xA17D, 4, 32), font(0xA121, 2, 16)));
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, true), 4);
  EXPECT_EQ(SDicStartCharCodeNumber(book.handle, true), 0xA17D);
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, false), 2);
  EXPECT_EQ(SDicStartCharCodeNumber(book.handle, false), 0xA121);
  const struct {
    uint16_t code;
    int index;
  } rows[] = {{0xA17C, -1}, {0xA17D, 0},  {0xA17E, 1},  {0xA221, 2}, {0xA222, 3},
              {0xA223, -1}, {0xA121, -1}, {0x0000, -1}, {0xFFFF, -1}};
  for (const auto& row : rows)
    EXPECT_EQ(SDicCustomCharCodeToIndex(book.handle, true, row.code), row.index) << std::hex << row.code;
  EXPECT_EQ(SDicCustomCharCodeToIndex(book.handle, false, 0xA122), 1);
  EXPECT_EQ(SDicCustomCharCodeToIndex(book.handle, false, 0xA123), -1);
}

TEST(Gaiji, AreNoneInABookWithoutFont) {
  OpenBook book(BookWriter().region(0, 1, padded("body")));
  for (const bool full : {true, false}) {
    EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, full), 0);
    EXPECT_EQ(SDicStartCharCodeNumber(book.handle, full), 0);
    EXPECT_EQ(SDicCustomCharCodeToIndex(book.handle, full, 0), -1);
    EXPECT_EQ(SDicCustomCharCodeToIndex(book.handle, full, 0xA121), -1);
    EXPECT_EQ(bitmap(book, full, 0xA121), "80000016");
    EXPECT_EQ(raw(book, full, 0xA121), "80000016");
  }
}

TEST(Gaiji, AreNoneWhereTheFontEndsTooSoon) {
  OpenBook book(bookWith(font(0xA121, 1, 32).substr(0, 13), font(0xA121, 1, 16).substr(0, 14)));
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, true), 0);
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, false), 1);
  EXPECT_EQ(bitmap(book, false, 0xA121), "8004100D");
  EXPECT_EQ(raw(book, false, 0xA121), "8004100D");
}

TEST(Gaiji, TakeTheirSlotByKind) {
  for (const uint16_t kind : {0xF1, 0xF2, 0xF3, 0xF4, 0xF5, 0xF6, 0xF7, 0xF8}) {
    BookWriter writer;
    writer.region(0, 1, padded("body"));
    writer.record({.kind = kind, .flags = std::string(4, '\0'), .name = "FONT"});
    writer.file("FONT", font(0xA121, 3, 32));
    OpenBook book(writer);
    EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, true), kind == 0xF2 ? 0 : 3) << kind;
    EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, false), kind == 0xF2 ? 3 : 0) << kind;
  }
}

TEST(Gaiji, ReadTheLaterOfTwoFonts) {
  BookWriter writer = bookWith(font(0xA121, 1, 32), "");
  writer.record({.kind = 0xF8, .flags = std::string(4, '\0'), .name = "LATER"});
  OpenBook book(writer.file("LATER", font(0xB121, 2, 32)));
  EXPECT_EQ(SDicStartCharCodeNumber(book.handle, true), 0xB121);
  EXPECT_EQ(SDicCustomCharCodeNumber(book.handle, true), 2);
}

// File header, info header, palette black and white; all numbers with their low byte first.
std::string bitmapHeader(const std::string& width) {
  return "424D"
         "7E000000"
         "00000000"
         "3E000000"
         "28000000" +
         width +
         "10000000"
         "0100"
         "0100"
         "00000000"
         "00000000"
         "64000000"
         "64000000"
         "00000000"
         "00000000"
         "00000000"
         "FFFFFF00";
}

TEST(GaijiBitmap, HasFullWidthGlyphsUpsideDownAndInverted) {
  OpenBook book(bookWith(font(0xA121, 2, 32), ""));
  // Rows of glyph 1: 02 03, 04 05 to 20 21. Inverted from the last one up: DF DE, E1 E0 to FD FC.
  std::string rows;
  for (int row = 15; row >= 0; --row) {
    char text[16];
    std::snprintf(text, sizeof text, "%02X%02X0000", 0xFF - (2 + 2 * row), 0xFF - (3 + 2 * row));
    rows += text;
  }
  EXPECT_EQ(rows.substr(0, 16), "DFDE0000E1E00000");
  EXPECT_EQ(hexOf(bitmap(book, true, 0xA122)), bitmapHeader("10000000") + rows);
}

TEST(GaijiBitmap, HasHalfWidthGlyphs) {
  OpenBook book(bookWith("", font(0xA121, 2, 16)));
  // Rows of glyph 0: 01 to 10. Inverted from the last one up: EF to FE.
  std::string rows;
  for (int row = 16; row >= 1; --row) {
    char text[16];
    std::snprintf(text, sizeof text, "%02X000000", 0xFF - row);
    rows += text;
  }
  EXPECT_EQ(rows.substr(0, 16), "EF000000F0000000");
  EXPECT_EQ(hexOf(bitmap(book, false, 0xA121)), bitmapHeader("08000000") + rows);
}

TEST(GaijiBitmap, FindsGlyphsBeyondTheirFirstGroup) {
  // 32 full-width glyphs in 1024 bytes, 64 half-width ones.
  OpenBook book(bookWith(font(0xA121, 70, 32), font(0xA121, 70, 16)));
  for (const int index : {0, 31, 32, 63, 64, 69}) {
    const uint16_t code = static_cast<uint16_t>(0xA121 + index);
    EXPECT_EQ(raw(book, true, code).substr(0, 7),
              "32:" + hexOf({static_cast<char>(index + 1), static_cast<char>(index + 2)}));
    EXPECT_EQ(raw(book, false, code).substr(0, 7),
              "16:" + hexOf({static_cast<char>(index + 1), static_cast<char>(index + 2)}));
  }
}

TEST(GaijiRaw, IsTheDotsAlone) {
  OpenBook book(bookWith(font(0xA121, 1, 32), font(0xA121, 1, 16)));
  EXPECT_EQ(raw(book, true, 0xA121), "32:0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F2078");
  // 32 bytes are cleared for half-width ones too.
  EXPECT_EQ(raw(book, false, 0xA121),
            "16:0102030405060708090A0B0C0D0E0F100000000000000000000000000000000078");
}

TEST(GaijiBitmap, RefusesWhatTheBookHasNot) {
  OpenBook book(bookWith(font(0xA121, 1, 32), font(0xA121, 1, 16)));
  for (const bool full : {true, false}) {
    for (const uint16_t size : {24, 30, 48, 0, 15, 17}) {
      EXPECT_EQ(bitmap(book, full, 0xA121, size), "80000016") << size;
      EXPECT_EQ(raw(book, full, 0xA121, size), "80000016") << size;
    }
    EXPECT_EQ(bitmap(book, full, 0xA120), "80000016");
    EXPECT_EQ(bitmap(book, full, 0xA122), "80000016");
    EXPECT_EQ(raw(book, full, 0xA122), "80000016");
  }
  EXPECT_EQ(SDicGetCustomCharacterBitmap(book.handle, true, 0xA121, 16, nullptr), 0x80000016u);
}

TEST(GaijiBitmap, FailsWhereTheFontIsCut) {
  OpenBook book(bookWith(font(0xA121, 2, 32).substr(0, 2048 + 63), ""));
  EXPECT_EQ(raw(book, true, 0xA121).substr(0, 3), "32:");
  EXPECT_EQ(bitmap(book, true, 0xA122), "8004100D");
  EXPECT_EQ(raw(book, true, 0xA122), "8004100D");
}

}  // namespace
}  // namespace zavel::book
