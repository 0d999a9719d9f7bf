// Tests: tests/zavel/book/BookKeysTest.cpp
#include "book/BookKeys.h"

#include <algorithm>
#include <array>

#include "QueryText.h"
#include "Utf8.h"
#include "book/BookFormat.h"

namespace zavel::host {
namespace {

using book::kFullWidthBlank;

// What nobody sees is no part of a book's words.
bool isUnseen(char32_t c) {
  return c == 0xAD || (c >= 0x200B && c <= 0x200F) || c == 0x2060 || c == 0xFEFF ||
         (c >= 0xFE00 && c <= 0xFE0F);
}

// Marks that join the letter ahead of them.
bool isCombining(char32_t c) {
  return (c >= 0x300 && c <= 0x36F) || (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x1DC0 && c <= 0x1DFF) ||
         (c >= 0x20D0 && c <= 0x20FF);
}

bool isOuterSign(char32_t c) {
  static constexpr std::u32string_view kSigns =
      U"\"“”‘’'`「」『』（）()[]［］【】〈〉《》〔〕{}<>、。，．,.;:；：!！?？…　 ";
  return kSigns.find(c) != std::u32string_view::npos;
}

// Signs that mean something in a query of the engine's. Indexes of words drop them from words.
bool isQuerySign(uint16_t code) {
  return (code >= book::kTokenExact && code <= book::kTokenField) || code == book::kTokenOpen ||
         code == book::kTokenClose || code == book::kTokenAnd || code == book::kTokenOr;
}

// What is typed instead of a character that few keyboards have. False when there is nothing.
bool appendTyped(std::string_view character, std::string* codes) {
  std::string typed;
  const std::string plain = plainCharacters(character);
  std::string_view left = plain;
  char32_t c = 0;
  for (size_t length = 0; (length = decodeUtf8(left, &c)) > 0; left.remove_prefix(length)) {
    const uint16_t code = jisCode(c);
    if (code == 0) return false;
    appendCode(&typed, code);
  }
  *codes += typed;
  return !typed.empty();
}

// The standard's character ahead of the book's own, or with `plainly` what is typed in its place. False when
// there is none.
bool appendCharacter(char32_t c, std::string_view character, const BookCharacters& characters, bool plainly,
                     std::string* codes) {
  if (const uint16_t code = jisCode(c)) {
    if (!isQuerySign(code)) appendCode(codes, code);
    return true;
  }
  if (plainly) return isCombining(c) || appendTyped(character, codes);
  const BookCharacters::Custom* const custom = characters.find(c);
  if (custom) appendCode(codes, custom->code);
  return custom != nullptr;
}

// Empty where a character has no code; it is then in `unknown`.
std::string codesOf(std::string_view utf8, const BookCharacters& characters, bool plainly,
                    std::string* unknown) {
  std::string codes;
  bool whole = true;
  char32_t c = 0;
  for (size_t length = 0; (length = decodeUtf8(utf8, &c)) > 0; utf8.remove_prefix(length)) {
    const std::string_view character = utf8.substr(0, length);
    if (isUnseen(c) || appendCharacter(c, character, characters, plainly, &codes)) continue;
    whole = false;
    if (unknown->find(character) == std::string::npos) *unknown += character;
  }
  return whole ? codes : std::string();
}

bool isBlank(std::string_view code) {
  return code == std::string_view("\x21\x21", 2);
}

std::string withoutBlanks(const std::string& codes) {
  std::string out;
  for (size_t at = 0; at + 2 <= codes.size(); at += 2) {
    if (const std::string_view code = std::string_view(codes).substr(at, 2); !isBlank(code)) out += code;
  }
  return out;
}

void add(std::string codes, std::vector<std::string>* spellings) {
  const bool known = std::find(spellings->begin(), spellings->end(), codes) != spellings->end();
  if (!codes.empty() && !known) spellings->push_back(std::move(codes));
}

}  // namespace

std::vector<std::string> keySpellings(std::string_view word, const BookCharacters& characters, bool asTyped,
                                      std::string* unknown) {
  std::vector<std::string> spellings;
  std::string lacking, customless;
  const std::string joined = withSoundMarksJoined(word);
  const std::string_view inner = withoutOuterBlanks(joined),
                         bare = asTyped ? inner : withoutOuterSigns(inner);
  for (const bool plainly : {false, true}) {
    for (const std::string_view text : {inner, bare}) {
      const std::string codes = codesOf(text, characters, plainly, plainly ? &lacking : &customless);
      add(withoutBlanks(codes), &spellings);
      add(codes, &spellings);
    }
  }
  if (spellings.empty()) *unknown = lacking;
  return spellings;
}

std::string_view withoutOuterSigns(std::string_view utf8) {
  std::string_view left = utf8;
  char32_t c = 0;
  for (size_t length = 0; (length = decodeUtf8(left, &c)) > 0 && isOuterSign(c);) left.remove_prefix(length);
  while (!left.empty()) {
    size_t start = left.size() - 1;
    while (start > 0 && (left[start] & 0xC0) == 0x80) --start;
    if (decodeUtf8(left.substr(start), &c) == 0 || !isOuterSign(c)) break;
    left.remove_suffix(left.size() - start);
  }
  return left.empty() ? utf8 : left;
}

void appendCode(std::string* codes, unsigned code) {
  *codes += static_cast<char>(code >> 8);
  *codes += static_cast<char>(code & 0xFF);
}

}  // namespace zavel::host
