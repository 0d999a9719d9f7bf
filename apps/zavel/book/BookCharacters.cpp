// Tests: tests/zavel/book/BookCharactersTest.cpp
#include "book/BookCharacters.h"

#include <array>
#include <optional>

#include "Utf8.h"
#include "foundation/ByteReader.h"
#include "foundation/Kanji.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::host {
namespace {

constexpr size_t kRecord = 12, kLongRecord = 16;  // code, 2 bytes, character, the one in its place
constexpr std::string_view kLongForm = "Ver2";
constexpr size_t kLongFormHeader = 6;
constexpr uint16_t kFirst = 0x2121, kLast = 0x7E7E;
constexpr size_t kCells = 94;
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kUnknownYet = 0xFFFFFFFF;

const uint8_t* at(std::string_view bytes, size_t place) {
  return reinterpret_cast<const uint8_t*>(bytes.data()) + place;
}

// What a terminal would obey, and what is no character, is not shown.
bool isShown(char32_t c) {
  return c >= 0x20 && !(c >= 0x7F && c <= 0x9F) && !(c >= 0xD800 && c <= 0xDFFF) && c <= 0x10FFFF;
}

// Characters above U+FFFF are a pair of surrogates in one word.
char32_t joined(uint32_t word) {
  const uint32_t high = word >> 16, low = word & 0xFFFF;
  const bool pair = high >= 0xD800 && high < 0xDC00 && low >= 0xDC00 && low < 0xE000;
  const char32_t character = pair ? 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00) : word;
  return isShown(character) ? character : 0;
}

bool isCode(uint16_t code) {
  const unsigned cell = code & 0xFF;
  return code >= kFirst && code <= kLast && cell >= 0x21 && cell <= 0x7E;
}

// Rows 9 to 15 are empty in the standard; makers put signs of their own there, and indexes drop them.
bool isStandardRow(uint16_t code) {
  const unsigned row = code >> 8;
  return (row >= 0x21 && row <= 0x28) || (row >= 0x30 && row <= 0x74);
}

char32_t decoded(uint16_t code) {
  std::string sjis;
  appendBE16(sjis, foundation::__mbcjistojms(code));
  const std::string utf8 = platform().encoding().fromSjisLossy(sjis);
  char32_t character = 0;
  const bool one = decodeUtf8(utf8, &character) == utf8.size() && !utf8.empty();
  return one && character != kReplacement && isShown(character) ? character : 0;
}

// ASCII by the codes of its full-width partners.
const std::map<uint16_t, char32_t>& asciiByCode() {
  static const std::map<uint16_t, char32_t> kTable = [] {
    std::map<uint16_t, char32_t> table;
    for (char32_t c = 0x20; c < 0x7F; ++c) table.emplace(jisCode(c), c);
    return table;
  }();
  return kTable;
}

}  // namespace

BookCharacters::BookCharacters(std::string_view table) {
  const bool longForm = table.starts_with(kLongForm);
  size_t place = longForm ? kLongFormHeader : 0;
  for (const bool full : {true, false}) readRecords(table, longForm ? kLongRecord : kRecord, &place, full);
}

// Of two records of one code the first counts, as it does where they are searched one by one.
void BookCharacters::readRecords(std::string_view table, size_t record, size_t* place, bool full) {
  if (table.size() < 4 || *place > table.size() - 4) return;
  uint32_t count = readBE32(at(table, *place));
  for (*place += 4; count > 0 && *place + record <= table.size(); --count, *place += record) {
    Custom custom{readBE16(at(table, *place)), full, joined(readBE32(at(table, *place + 4)))};
    if (custom.character == 0) custom.character = joined(readBE32(at(table, *place + 8)));
    if (!characters_.try_emplace({full, custom.code}, custom.character).second) continue;
    if (custom.character != 0) places_.try_emplace(custom.character, customs_.size());
    customs_.push_back(custom);
  }
}

char32_t BookCharacters::custom(uint16_t code, bool full) const {
  const auto found = characters_.find({full, code});
  return found == characters_.end() ? 0 : found->second;
}

const BookCharacters::Custom* BookCharacters::find(char32_t character) const {
  const auto found = places_.find(character);
  return found == places_.end() ? nullptr : &customs_[found->second];
}

std::string BookCharacters::text(uint16_t code, bool half) const {
  const char32_t character = code >= kFirstCustomCode ? custom(code, !half) : jisCharacter(code, half);
  return character == 0 ? kUnshown : utf8Of(character);
}

std::string tablePath(const std::string& catalog) {
  const size_t name = catalog.rfind('/') + 1, dot = catalog.rfind('.');
  const bool extended = dot != std::string::npos && dot > name;
  return catalog.substr(0, extended ? dot : std::string::npos) + ".UNI";
}

uint16_t jisCode(char32_t character) {
  uint16_t sjis = 0;
  if (character < 0x80) {
    sjis = foundation::__mbbtombc(static_cast<uint16_t>(character));
  } else if (const std::optional<SjisBytes> bytes = platform().encoding().toSjisStrict(utf8Of(character))) {
    const std::string& code = bytes->bytes();
    if (code.size() == 1) sjis = foundation::__mbbtombc(static_cast<uint8_t>(code[0]));
    if (code.size() == 2) sjis = readBE16(at(code, 0));
  }
  if (sjis < 0x100) return 0;
  const uint16_t code = foundation::__mbcjmstojis(sjis);
  return isCode(code) && isStandardRow(code) ? code : 0;
}

// Each code is converted when it first comes.
char32_t jisCharacter(uint16_t code, bool half) {
  static std::array<char32_t, kCells* kCells> characters = [] {
    std::array<char32_t, kCells * kCells> empty;
    empty.fill(kUnknownYet);
    return empty;
  }();
  if (!isCode(code)) return 0;
  if (half) {
    const auto found = asciiByCode().find(code);
    if (found != asciiByCode().end()) return found->second;
  }
  char32_t& character = characters[((code >> 8) - 0x21u) * kCells + ((code & 0xFF) - 0x21u)];
  if (character == kUnknownYet) character = decoded(code);
  return character;
}

std::string utf8Of(char32_t c) {
  const auto tail = [c](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), tail(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0)};
}

}  // namespace zavel::host
