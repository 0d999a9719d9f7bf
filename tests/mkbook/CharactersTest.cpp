// Codes of characters, glyphs, custom characters and their files.
#include <gtest/gtest.h>

#include "mkbook/CustomCharacters.h"
#include "mkbook/Failure.h"
#include "mkbook/JisTable.h"
#include "mkbook/Unifont.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::be16;
using test::be32;
using test::jis;

// é half-width, 頰 and 𠀋 full-width; rows count up from the digits given.
std::string half(const char* code, char digit) {
  return std::string(code) + ":" + std::string(32, digit) + "\n";
}
std::string full(const char* code, char digit) {
  return std::string(code) + ":" + std::string(64, digit) + "\n";
}

TEST(JisTable, KnowsTheCharactersOfTheStandard) {
  const JisTable& table = JisTable::shared();
  EXPECT_EQ(table.codeOf(U'亜'), 0x3021);
  EXPECT_EQ(table.codeOf(U'熙'), 0x7426);
  EXPECT_EQ(table.codeOf(U'あ'), 0x2422);
  EXPECT_EQ(table.codeOf(U'А'), 0x2721);
  EXPECT_EQ(table.codeOf(U'　'), 0x2121);
  EXPECT_EQ(table.codeOf(U'×'), 0x215F);
}

TEST(JisTable, GivesAsciiTheCodesOfFullWidth) {
  const JisTable& table = JisTable::shared();
  EXPECT_EQ(table.codeOf(U' '), 0x2121);
  EXPECT_EQ(table.codeOf(U'A'), 0x2341);
  EXPECT_EQ(table.codeOf(U'Ａ'), 0x2341);
  EXPECT_EQ(table.codeOf(U'0'), 0x2330);
  EXPECT_EQ(table.codeOf(U'['), 0x214E);
  for (char32_t c = 0x20; c < 0x7F; ++c) {
    EXPECT_NE(table.codeOf(c), 0) << unsigned(c);
    EXPECT_EQ(table.characterOf(table.codeOf(c), true), c) << unsigned(c);
  }
  EXPECT_EQ(table.characterOf(0x2341, false), U'Ａ');
}

TEST(JisTable, TakesEitherOfTwoPartners) {
  const JisTable& table = JisTable::shared();
  for (const auto& [one, other, code] :
       {std::tuple(U'〜', U'～', 0x2141), std::tuple(U'−', U'－', 0x215D), std::tuple(U'‖', U'∥', 0x2142),
        std::tuple(U'—', U'―', 0x213D), std::tuple(U'¢', U'￠', 0x2171), std::tuple(U'£', U'￡', 0x2172),
        std::tuple(U'¬', U'￢', 0x224C)}) {
    EXPECT_EQ(table.codeOf(one), code);
    EXPECT_EQ(table.codeOf(other), code);
  }
}

// What makers put into the empty rows, and their own kanji, are no part of it.
TEST(JisTable, LeavesOutWhatTheStandardDoesNotHave) {
  for (const char32_t c : {U'①', U'髙', U'é', U'頰', U'ｱ', U'😀'}) EXPECT_EQ(JisTable::shared().codeOf(c), 0);
  EXPECT_EQ(JisTable::shared().characterOf(0x2D21, false), 0u);
}

TEST(TypedForm, SpellsWhatCantBeTyped) {
  EXPECT_EQ(typedForm("café"), jis("cafe"));
  EXPECT_EQ(typedForm("dog"), jis("dog"));
  EXPECT_EQ(typedForm("頰"), jis("頬"));
  EXPECT_EQ(typedForm("😀"), "");
}

TEST(TypedForm, DropsMarksThatMakeNoCharacterOfTheirOwn) {
  EXPECT_EQ(typedForm("cafe\u0301"), jis("cafe"));
  EXPECT_EQ(typedForm("x\u0302"), jis("x"));
  EXPECT_EQ(typedForm("か\u3099"), jis("が"));
}

TEST(Eucs, KeepAscii) {
  EXPECT_EQ(eucOf("A あ亜"), "A \xA4\xA2\xB0\xA1");
  EXPECT_EQ(eucOf("😀"), "\xA2\xAE");
}

TEST(Characters, TakeTheMarksBehindThem) {
  const auto taken = [](std::string_view utf8) {
    std::u32string out;
    for (size_t at = 0; at < utf8.size();) {
      char32_t character = 0;
      out += takeCharacter(utf8, &at, &character) ? character : U'?';
    }
    return out;
  };
  EXPECT_EQ(taken("e\u0301"), U"\u00E9");
  EXPECT_EQ(taken("a\u0302\u0301b"), U"\u1EA5b");  // circumflex and acute
  EXPECT_EQ(taken("か\u3099は\u309A"), U"がぱ");
  EXPECT_EQ(taken("x\u0301"), U"x\u0301");            // there is no such letter
  EXPECT_EQ(taken("\u1100\u1161"), U"\u1100\u1161");  // not of marks
  EXPECT_EQ(taken("e\xCC"), U"e?");
}

TEST(Unifont, GivesDotsOfBothWidths) {
  const Unifont font("0041:" + std::string(30, '0') + "FF\n" + full("4E00", '1') + "nonsense\n0042:12\n");
  EXPECT_EQ(font.glyph(U'A'), std::string(15, '\0') + "\xFF");
  EXPECT_EQ(font.glyph(U'一'), std::string(32, '\x11'));
  EXPECT_EQ(font.glyph(U'B'), "");
  EXPECT_EQ(font.size(), 2u);
}

TEST(Unifont, IsReadFromItsFile) {
  const test::TempFolder folder;
  folder.write("font.hex", half("00E9", '3'));
  EXPECT_EQ(Unifont::open(folder.file("font.hex")).glyph(U'é'), std::string(16, '\x33'));
  try {
    Unifont::open(folder.file("none.hex"));
    FAIL() << "read";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.what(), folder.file("none.hex") + " is missing or can't be read");
    EXPECT_EQ(failure.hint(), "Install the Debian package unifont, or name the place with --unifont.");
    EXPECT_EQ(failure.status(), 3);
  }
  folder.write("empty.hex", "no font\n");
  EXPECT_THROW(Unifont::open(folder.file("empty.hex")), Failure);
}

class Custom : public testing::Test {
 protected:
  Unifont font_{half("00E9", '3') + half("014D", '4') + full("9830", '5') + full("2000B", '6')};
  CustomCharacters characters_{font_};

  std::pair<unsigned, bool> cell(char32_t character) {
    const CustomCharacters::Cell cell = characters_.cell(character);
    return {cell.code, cell.half};
  }
};

TEST_F(Custom, CodesCountUpInEachWidth) {
  EXPECT_EQ(cell(U'é'), std::pair(0xA121u, true));
  EXPECT_EQ(cell(U'頰'), std::pair(0xA121u, false));
  EXPECT_EQ(cell(U'ō'), std::pair(0xA122u, true));
  EXPECT_EQ(cell(U'é'), std::pair(0xA121u, true));
  EXPECT_EQ(cell(U'a'), std::pair(0x2361u, true));
  EXPECT_EQ(cell(U'あ'), std::pair(0x2422u, false));
  EXPECT_EQ(cell(U'\t'), std::pair(0x2121u, true));
}

TEST_F(Custom, WhatHasNoGlyphIsCounted) {
  EXPECT_EQ(cell(U'😀'), std::pair(0x222Eu, false));
  EXPECT_EQ(cell(U'😀'), std::pair(0x222Eu, false));
  EXPECT_EQ(characters_.lacking(), std::vector<char32_t>{U'😀'});
}

TEST_F(Custom, TextBecomesCodes) {
  EXPECT_EQ(characters_.codes("aé\xC2\xAD"), jis("a") + "\xA1\x21");
  EXPECT_EQ(characters_.codes("\xFF"), be16(0x222E));
}

// Rows of 94 codes: the 95th stands in the next row.
TEST(CustomCharacters, FillRowsOfCodes) {
  std::string text;
  for (unsigned c = 0xAC00; c < 0xAC00 + 9000; ++c) {
    char code[8];
    std::snprintf(code, sizeof code, "%X", c);
    text += full(code, '7');
  }
  const Unifont font(text);
  CustomCharacters characters(font);
  EXPECT_EQ(characters.cell(0xAC00).code, 0xA121);
  for (char32_t c = 0xAC01; c < 0xAC00 + 93; ++c) characters.cell(c);
  EXPECT_EQ(characters.cell(0xAC00 + 93).code, 0xA17E);
  EXPECT_EQ(characters.cell(0xAC00 + 94).code, 0xA221);
  for (char32_t c = 0xAC00 + 95; c < 0xAC00 + 8835; ++c) characters.cell(c);
  EXPECT_EQ(characters.cell(0xAC00 + 8835).code, 0xFE7E);  // 94 rows of 94
  EXPECT_EQ(characters.cell(0xAC00 + 8836).code, 0x222E);
  EXPECT_EQ(characters.lacking().size(), 1u);
}

TEST_F(Custom, FontsHaveNumbersAndGlyphs) {
  characters_.codes("éō頰");
  const std::string fullFont = characters_.fontFile(true), halfFont = characters_.fontFile(false);
  EXPECT_EQ(fullFont.substr(0, 14), std::string(10, '\0') + be16(0xA121) + be16(1));
  EXPECT_EQ(halfFont.substr(0, 14), std::string(10, '\0') + be16(0xA121) + be16(2));
  EXPECT_EQ(fullFont.substr(2048), std::string(32, '\x55') + std::string(992, '\0'));
  EXPECT_EQ(halfFont.substr(2048),
            std::string(16, '\x33') + std::string(16, '\x44') + std::string(992, '\0'));
}

TEST_F(Custom, TheTableLeadsBackToUnicode) {
  characters_.codes("é頰𠀋");
  EXPECT_EQ(characters_.uniFile(), be32(2) + be16(0xA121) + be16(0) + be32(0x9830) + be32(0x9830) +
                                       be16(0xA122) + be16(0) + be32(0xD840DC0B) + be32(0xD840DC0B) +
                                       be32(1) + be16(0xA121) + be16(0) + be32(0xE9) + be32(0xE9));
}

}  // namespace
}  // namespace zavel::mkbook
