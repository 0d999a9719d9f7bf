#include "shell/QueryText.h"

#include <gtest/gtest.h>

namespace zavel::test {
namespace {

TEST(QueryText, BlanksOfEveryKindGoAtBothEnds) {
  EXPECT_EQ(stripQuery("  go  "), "go");
  EXPECT_EQ(stripQuery("\t\r\n\x01go\x1F"), "go");
  EXPECT_EQ(stripQuery("\u3000\u00A0go\u2003\u3000"), "go");
  EXPECT_EQ(stripQuery("\u0085\u1680\u2028go\u2029\u202F\u205F"), "go");
}

TEST(QueryText, EveryWideBlankGoesAtBothEnds) {
  const char* const blanks[] = {"\u0085", "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003",
                                "\u2004", "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A",
                                "\u2028", "\u2029", "\u202F", "\u205F", "\u3000"};
  for (const std::string blank : blanks) {
    EXPECT_EQ(stripQuery(blank + "go"), "go") << blank;
    EXPECT_EQ(stripQuery("go" + blank), "go") << blank;
    EXPECT_EQ(stripQuery("go" + blank + "on"), "go" + blank + "on") << blank;
  }
}

TEST(QueryText, WhatStandsInsideStays) {
  EXPECT_EQ(stripQuery(" take\toff "), "take\toff");
  EXPECT_EQ(stripQuery("行\u3000く"), "行\u3000く");
}

TEST(QueryText, NothingButBlanksIsEmpty) {
  EXPECT_EQ(stripQuery(""), "");
  EXPECT_EQ(stripQuery(" \x02\u3000 "), "");
}

// A blank's last bytes may end another character.
TEST(QueryText, TheEndOfACharacterIsNoBlank) {
  EXPECT_EQ(stripQuery("\u0140"), "\u0140");  // C5 80
  EXPECT_EQ(stripQuery("\u3400"), "\u3400");  // E3 90 80
}

TEST(QueryText, TheFirstByteTellsTheLanguage) {
  for (const int lead : {0x81, 0x9F, 0xE0, 0xFC}) {
    EXPECT_FALSE(isEnglishQuery(std::string(1, static_cast<char>(lead)))) << lead;
  }
  for (const int single : {0x20, 0x41, 0x7F, 0x80, 0xA0, 0xA1, 0xDF, 0xFD, 0xFF}) {
    EXPECT_TRUE(isEnglishQuery(std::string(1, static_cast<char>(single)))) << single;
  }
  EXPECT_TRUE(isEnglishQuery("t\x82\xA0"));
  EXPECT_TRUE(isEnglishQuery(""));
}

}  // namespace
}  // namespace zavel::test
