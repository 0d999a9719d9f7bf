#include "book/BookCharacters.h"

#include <gtest/gtest.h>

#include "support/BookWriter.h"

namespace zavel::host {
namespace {

using test::be16;
using test::be32;

std::string record(uint32_t code, uint32_t character, uint32_t instead) {
  return be16(code) + be16(0) + be32(character) + be32(instead);
}

// Full width first: A121 is é, A122 only has one in its place, A123 nothing, A124 is beyond U+FFFF; half
// width: A121 is ō.
std::string table() {
  return be32(4) + record(0xA121, 0xE9, 0xE9) + record(0xA122, 0, 'x') + record(0xA123, 0, 0) +
         record(0xA124, 0xD840DC0B, 0) + be32(1) + record(0xA121, 0x14D, 0x14D);
}

TEST(BookCharactersTest, CodesOfTheStandard) {
  const BookCharacters none;
  EXPECT_EQ(none.text(0x2422, false), "あ");
  EXPECT_EQ(none.text(0x2422, true), "あ");
  EXPECT_EQ(none.text(0x3021, false), "亜");
  EXPECT_EQ(none.text(0x2361, false), "ａ");
  EXPECT_EQ(none.text(0x2361, true), "a");
  EXPECT_EQ(none.text(0x2121, false), "　");
  EXPECT_EQ(none.text(0x2121, true), " ");
  EXPECT_EQ(none.text(0x213C, true), "ー");
}

TEST(BookCharactersTest, WhatCantBeShownIsAGeta) {
  const BookCharacters none;
  EXPECT_EQ(none.text(0xA121, false), "〓");
  EXPECT_EQ(none.text(0x757E, false), "〓");  // no character has this code
  EXPECT_EQ(none.text(0x2180, false), "〓");
}

TEST(BookCharactersTest, CustomCodesByWidth) {
  const BookCharacters book(table());
  EXPECT_EQ(book.text(0xA121, false), "é");
  EXPECT_EQ(book.text(0xA121, true), "ō");
  EXPECT_EQ(book.text(0xA122, false), "x");
  EXPECT_EQ(book.text(0xA123, false), "〓");
  EXPECT_EQ(book.text(0xA124, false), "𠀋");
  EXPECT_EQ(book.text(0xA125, false), "〓");
}

TEST(BookCharactersTest, CharactersLeadBackToCodes) {
  const BookCharacters book(table());
  ASSERT_NE(book.find(U'é'), nullptr);
  EXPECT_EQ(book.find(U'é')->code, 0xA121);
  EXPECT_TRUE(book.find(U'é')->full);
  ASSERT_NE(book.find(U'ō'), nullptr);
  EXPECT_FALSE(book.find(U'ō')->full);
  EXPECT_EQ(book.find(U'あ'), nullptr);
}

TEST(BookCharactersTest, TheLongForm) {
  const std::string bytes = "Ver2" + be16(0) + be32(1) + record(0xA121, 0xE9, 0) + be32(0) + be32(1) +
                            record(0xA122, 0x14D, 0) + be32(0);
  const BookCharacters book(bytes);
  EXPECT_EQ(book.text(0xA121, false), "é");
  EXPECT_EQ(book.text(0xA122, true), "ō");
}

TEST(BookCharactersTest, ATableMayBeCutAnywhereAndLie) {
  for (size_t length = 0; length < table().size(); ++length) {
    const BookCharacters cut(table().substr(0, length));
    EXPECT_EQ(cut.text(0xA121, false), length >= 16 ? "é" : "〓") << length;
  }
  const BookCharacters lying(be32(0xFFFFFFFF) + record(0xA121, 0xE9, 0));
  EXPECT_EQ(lying.text(0xA121, false), "é");
  EXPECT_EQ(lying.all().size(), 1u);
}

TEST(BookCharactersTest, NothingThatSteersATerminalComesOfATable) {
  const BookCharacters book(be32(3) + record(0xA121, 0x1B, 0) + record(0xA122, 0x9B, 0) +
                            record(0xA123, 0xD800, 0x110000) + be32(0));
  for (const uint16_t code : {0xA121, 0xA122, 0xA123}) EXPECT_EQ(book.text(code, false), "〓");
}

TEST(BookCharactersTest, CodesOfCharacters) {
  EXPECT_EQ(jisCode(U'あ'), 0x2422);
  EXPECT_EQ(jisCode(U'a'), 0x2361);
  EXPECT_EQ(jisCode(U'ａ'), 0x2361);
  EXPECT_EQ(jisCode(U' '), 0x2121);
  EXPECT_EQ(jisCode(U'\''), 0x2147);
  EXPECT_EQ(jisCode(U'ｱ'), 0x2522);
  EXPECT_EQ(jisCode(U'é'), 0);
  EXPECT_EQ(jisCode(U'①'), 0);  // makers have put other signs there
  EXPECT_EQ(jisCode(U'😀'), 0);
}

TEST(BookCharactersTest, WhereTheTableStands) {
  EXPECT_EQ(tablePath("/b/BOOK.CAT"), "/b/BOOK.UNI");
  EXPECT_EQ(tablePath("/b.c/BOOK"), "/b.c/BOOK.UNI");
}

}  // namespace
}  // namespace zavel::host
