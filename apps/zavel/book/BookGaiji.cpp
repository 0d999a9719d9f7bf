// `zavel book gaiji`: custom characters. Tests: tests/zavel/book/BookMediaTest.cpp
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookMedia.h"
#include "book/BookOptions.h"
#include "book/BookScreen.h"
#include "book/BookStatus.h"
#include "book/SDic.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

constexpr uint16_t kSize = 16;         // dots; books have no other
constexpr size_t kLengthInBitmap = 2;  // where its header tells how long the file is

struct Glyph {
  uint16_t code = 0;
  bool full = true;
};

const char* widthName(const Glyph& glyph) {
  return glyph.full ? "full" : "half";
}

std::string codeText(uint16_t code) {
  char text[8];
  std::snprintf(text, sizeof text, "%04X", code);
  return text;
}

// Rows of 94 characters follow one another.
std::vector<Glyph> glyphsOf(const ShelvedBook& book) {
  std::vector<Glyph> glyphs;
  for (const bool full : {true, false}) {
    const unsigned count = SDicCustomCharCodeNumber(book.handle(), full);
    unsigned found = 0;
    for (unsigned code = SDicStartCharCodeNumber(book.handle(), full); code <= 0xFFFF && found < count;
         ++code) {
      const unsigned cell = code & 0x7F;
      if (cell < 0x21 || cell > 0x7E) continue;
      if (SDicCustomCharCodeToIndex(book.handle(), full, static_cast<uint16_t>(code)) < 0) break;
      glyphs.push_back({static_cast<uint16_t>(code), full});
      ++found;
    }
  }
  return glyphs;
}

std::string characterOf(ShelvedBook& book, const Glyph& glyph) {
  const char32_t character = book.characters().custom(glyph.code, glyph.full);
  return character == 0 ? std::string() : utf8Of(character);
}

bool readCode(const std::string& text, uint16_t* code) {
  if (text.size() != 4 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) return false;
  *code = static_cast<uint16_t>(std::strtoul(text.c_str(), nullptr, 16));
  return true;
}

// What is meant by "A121" or by the character itself.
Failure findGlyph(ShelvedBook& book, const std::string& given, bool half, Glyph* glyph) {
  char32_t character = 0;
  const bool one = !given.empty() && decodeUtf8(given, &character) == given.size();
  if (const BookCharacters::Custom* custom = one ? book.characters().find(character) : nullptr) {
    *glyph = {custom->code, custom->full};
  } else if (uint16_t code = 0; readCode(given, &code)) {
    *glyph = {code, !half};
  } else {
    return lacking(book.name(), "custom character " + quoted(given));
  }
  if (SDicCustomCharCodeToIndex(book.handle(), glyph->full, glyph->code) >= 0) return {};
  return lacking(book.name(), std::string(widthName(*glyph)) + "-width character " + codeText(glyph->code));
}

Failure readGlyph(ShelvedBook& book, const Glyph& glyph, BookMedium* medium) {
  char* bitmap = nullptr;
  const uint32_t code = SDicGetCustomCharacterBitmap(book.handle(), glyph.full, glyph.code, kSize, &bitmap);
  if (code != book::kDone) return bookFailure(code, book.name(), "reading the character");
  medium->data = taken(bitmap, readLE32(reinterpret_cast<const uint8_t*>(bitmap) + kLengthInBitmap));
  medium->kind = "character";
  medium->name = codeText(glyph.code);
  const std::string character = characterOf(book, glyph);
  if (!character.empty()) medium->name += " " + character;
  return {};
}

int listGlyphs(ShelvedBook& book, const BookOptions& options) {
  const std::vector<Glyph> glyphs = glyphsOf(book);
  JsonWriter json;
  json.beginObject().member("schema", 1).member("book", book.name()).member("title", book.title());
  json.key("characters").beginArray();
  BookScreen screen(options, !options.json);
  for (const Glyph& glyph : glyphs) {
    const std::string character = characterOf(book, glyph);
    json.beginObject()
        .member("code", codeText(glyph.code))
        .member("width", widthName(glyph))
        .key("character");
    if (character.empty()) {
      json.null();
    } else {
      json.string(character);
    }
    json.endObject();
    if (!options.json) screen.write(codeText(glyph.code) + "  " + widthName(glyph) + "  " + character + "\n");
  }
  json.endArray().endObject();
  if (options.json) std::printf("%s\n", json.text().c_str());
  if (glyphs.empty() && !options.json) return report(lacking(book.name(), "custom characters"), false);
  return glyphs.empty() ? kExitNothing : kExitFound;
}

}  // namespace

int runBookGaiji(const BookOptions& options) {
  ShelvedBook book;
  BookPlace place;
  Failure failure = findBook(options.book, &place);
  if (!failure) failure = book.open(place);
  if (failure) return report(failure, options.json);
  if (options.character.empty() && !options.output.empty()) {
    return report(
        {kExitUsage, "usage", "--output needs a character", "See which there are: zavel book gaiji BOOK"},
        options.json);
  }
  if (options.character.empty()) return listGlyphs(book, options);
  Glyph glyph;
  BookMedium medium;
  failure = findGlyph(book, options.character, options.half, &glyph);
  if (!failure) failure = readGlyph(book, glyph, &medium);
  return failure ? report(failure, options.json) : deliver(book, medium, options);
}

}  // namespace zavel::host
