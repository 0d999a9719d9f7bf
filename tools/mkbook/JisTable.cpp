// Tests: tests/mkbook/CharactersTest.cpp
#include "mkbook/JisTable.h"

#include <optional>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "foundation/Kanji.h"
#include "foundation/KanjiConversion.h"
#include "mkbook/CustomCharacters.h"
#include "mkdict/ToShiftJis.h"
#include "mkdict/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkbook {
namespace {

constexpr uint8_t kFirstCell = 0x21, kLastCell = 0x7E;
constexpr char32_t kReplacement = 0xFFFD;

// Rows 9 to 15 are empty in the standard; makers put signs of their own there.
bool isRow(unsigned row) {
  return (row >= 0x21 && row <= 0x28) || (row >= 0x30 && row <= 0x74);
}

std::string sjisOf(uint16_t jis) {
  std::string out;
  appendBE16(out, foundation::__mbcjistojms(jis));
  return out;
}

// What different tables make of the same code.
constexpr std::pair<char32_t, char32_t> kPartners[] = {{0x301C, 0xFF5E}, {0x2212, 0xFF0D}, {0x2016, 0x2225},
                                                       {0x2014, 0x2015}, {0xA2, 0xFFE0},   {0xA3, 0xFFE1},
                                                       {0xAC, 0xFFE2}};

}  // namespace

const JisTable& JisTable::shared() {
  static const JisTable table;
  return table;
}

JisTable::JisTable() {
  for (unsigned row = 0x21; row <= 0x74; ++row) {
    for (unsigned cell = kFirstCell; isRow(row) && cell <= kLastCell; ++cell) {
      const uint16_t code = static_cast<uint16_t>(row << 8 | cell);
      const std::optional<std::u32string> text =
          mkdict::decodeUtf8(platform().encoding().fromSjisLossy(sjisOf(code)));
      if (text && text->size() == 1 && text->front() != kReplacement) add(code, text->front());
    }
  }
  for (const auto& [one, other] : kPartners) {
    if (codes_.count(one) == 0 && codes_.count(other) != 0) codes_[one] = codes_[other];
    if (codes_.count(other) == 0 && codes_.count(one) != 0) codes_[other] = codes_[one];
  }
  for (char32_t character = 0x20; character < 0x7F; ++character) {
    const uint16_t code = foundation::__mbcjmstojis(foundation::__mbbtombc(static_cast<uint16_t>(character)));
    codes_[character] = code;
    ascii_.emplace(code, character);
  }
}

void JisTable::add(uint16_t code, char32_t character) {
  codes_.emplace(character, code);
  characters_.emplace(code, character);
}

uint16_t JisTable::codeOf(char32_t character) const {
  const auto found = codes_.find(character);
  return found == codes_.end() ? 0 : found->second;
}

char32_t JisTable::characterOf(uint16_t code, bool half) const {
  if (const auto found = ascii_.find(code); half && found != ascii_.end()) return found->second;
  const auto found = characters_.find(code);
  return found == characters_.end() ? 0 : found->second;
}

// Marks that make no character of their own with what is ahead of them can't be typed: they fall.
std::string typedForm(std::string_view utf8) {
  std::string bare;
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    if (!takeCharacter(utf8, &at, &character)) return "";
    if (!isMark(character)) mkdict::appendUtf8(bare, character);
  }
  const std::optional<std::string> sjis = mkdict::toShiftJis(bare);
  if (!sjis) return "";
  std::string out(2 * sjis->size(), '\0');
  out.resize(foundation::GFnConvSJIS2JIS(out.data(), sjis->data(), sjis->size()));
  for (size_t at = 0; at + 2 <= out.size(); at += 2) {
    const uint16_t code = readBE16(reinterpret_cast<const uint8_t*>(out.data() + at));
    if (JisTable::shared().characterOf(code, false) == 0) return "";
  }
  return out;
}

std::string eucOf(std::string_view utf8) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = takeCharacter(utf8, &at, &character);
    if (sound && character < 0x80) {
      out += static_cast<char>(character);
    } else if (!sound || !isUnseen(character)) {
      const uint16_t code = sound ? JisTable::shared().codeOf(character) : 0;
      appendBE16(out, (code != 0 ? code : kGeta) | 0x8080);
    }
  }
  return out;
}

}  // namespace zavel::mkbook
