// The characters of a book: those of JIS X 0208 have codes; each other one that comes gets a code of the
// book's own and a glyph.
#ifndef MKBOOK_CUSTOMCHARACTERS_H
#define MKBOOK_CUSTOMCHARACTERS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mkbook/Unifont.h"

namespace zavel::mkbook {

class CustomCharacters {
 public:
  struct Cell {
    uint16_t code = 0;
    bool half = false;  // stands where half width is on
  };

  // `font` is borrowed.
  explicit CustomCharacters(const Unifont& font) : font_(font) {}

  // How a character is written. ASCII is half-width; a new one takes the next free code of its width; one
  // that has no glyph, and one for which no code is left, becomes 〓.
  Cell cell(char32_t character);

  // Text in codes alone, as keys have it. What isn't UTF-8 becomes 〓.
  std::string codes(std::string_view utf8);

  // Characters that became 〓, in the order in which they came.
  const std::vector<char32_t>& lacking() const { return lacking_; }
  size_t count(bool full) const { return widths_[full].characters.size(); }

  // The font of a width, as a book has it: first code at 10, count at 12, glyphs from 2048.
  std::string fontFile(bool full) const;

  // The table from codes to Unicode, full width first: count, then code, two zero bytes, character, and the
  // same again. Characters above U+FFFF are a pair of surrogates.
  std::string uniFile() const;

 private:
  struct Width {
    std::vector<char32_t> characters;
    std::string glyphs;
  };

  Cell newCell(char32_t character);

  const Unifont& font_;
  Width widths_[2];  // half, full
  std::unordered_map<char32_t, Cell> cells_;
  std::vector<char32_t> lacking_;
};

// Takes the character at *at with the marks behind it that make another one of it (an e and an accent), as
// mkdict::takeUtf8 does.
bool takeCharacter(std::string_view utf8, size_t* at, char32_t* character);

// Accents and other marks that stand above or below the character ahead of them.
bool isMark(char32_t character);

// Marks that nobody sees: they are no part of a book's text.
bool isUnseen(char32_t character);

}  // namespace zavel::mkbook

#endif
