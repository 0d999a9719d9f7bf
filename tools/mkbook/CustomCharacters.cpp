// Tests: tests/mkbook/CharactersTest.cpp
#include "mkbook/CustomCharacters.h"

#include <glib.h>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/JisTable.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

constexpr unsigned kFirstRow = 0xA1, kLastRow = 0xFE, kFirstCell = 0x21, kCells = 94;
constexpr size_t kMost = size_t{kLastRow - kFirstRow + 1} * kCells;
constexpr char32_t kBlank = ' ';
constexpr unsigned char kFirstMarkByte = 0xCC;  // of U+0300 in UTF-8

uint16_t codeOfNumber(size_t number) {
  const size_t row = kFirstRow + number / kCells, cell = kFirstCell + number % kCells;
  return static_cast<uint16_t>(row << 8 | cell);
}

uint32_t surrogates(char32_t character) {
  if (character < 0x10000) return character;
  const uint32_t value = character - 0x10000;
  return 0xD800DC00 | (value >> 10) << 16 | (value & 0x3FF);
}

}  // namespace

// Those of accents and of the voiced and half-voiced kana. Jamo, which compose as well, stay as they are.
bool isMark(char32_t character) {
  return (character >= 0x300 && character <= 0x36F) || character == 0x3099 || character == 0x309A;
}

bool takeCharacter(std::string_view utf8, size_t* at, char32_t* character) {
  if (!mkdict::takeUtf8(utf8, at, character)) return false;
  for (size_t next = *at; next < utf8.size() && static_cast<unsigned char>(utf8[next]) >= kFirstMarkByte;) {
    char32_t mark = 0;
    gunichar composed = 0;
    if (!mkdict::takeUtf8(utf8, &next, &mark) || !isMark(mark) ||
        !g_unichar_compose(*character, mark, &composed))
      break;
    *character = composed;
    *at = next;
  }
  return true;
}

bool isUnseen(char32_t character) {
  return character == 0xAD || (character >= 0x200B && character <= 0x200F) || character == 0x2060 ||
         character == 0xFEFF || (character >= 0xFE00 && character <= 0xFE0F);
}

CustomCharacters::Cell CustomCharacters::cell(char32_t character) {
  if (character < 0x20 || character == 0x7F) character = kBlank;
  if (const uint16_t code = JisTable::shared().codeOf(character); code != 0) return {code, character < 0x80};
  const auto [found, isNew] = cells_.try_emplace(character);
  if (isNew) found->second = newCell(character);
  return found->second;
}

CustomCharacters::Cell CustomCharacters::newCell(char32_t character) {
  const std::string dots = font_.glyph(character);
  const bool full = dots.size() == 32;
  Width& width = widths_[full];
  if (dots.empty() || width.characters.size() == kMost) {
    lacking_.push_back(character);
    return {kGeta, false};
  }
  width.characters.push_back(character);
  width.glyphs += dots;
  return {codeOfNumber(width.characters.size() - 1), !full};
}

std::string CustomCharacters::codes(std::string_view utf8) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = takeCharacter(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    appendBE16(out, sound ? cell(character).code : kGeta);
  }
  return out;
}

std::string CustomCharacters::fontFile(bool full) const {
  const Width& width = widths_[full];
  std::string out(book::kFontFirstCode, '\0');
  appendBE16(out, codeOfNumber(0));
  appendBE16(out, static_cast<uint16_t>(width.characters.size()));
  out.resize(book::kFontGlyphs);
  out += width.glyphs;  // both sizes fill groups of 1024 bytes without rest
  out.resize((out.size() + book::kGlyphGroup - 1) / book::kGlyphGroup * book::kGlyphGroup);
  return out;
}

std::string CustomCharacters::uniFile() const {
  std::string out;
  for (const bool full : {true, false}) {
    const std::vector<char32_t>& characters = widths_[full].characters;
    appendBE32(out, static_cast<uint32_t>(characters.size()));
    for (size_t i = 0; i < characters.size(); ++i) {
      appendBE16(out, codeOfNumber(i));
      appendBE16(out, 0);
      appendBE32(out, surrogates(characters[i]));
      appendBE32(out, surrogates(characters[i]));
    }
  }
  return out;
}

}  // namespace zavel::mkbook
