// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/BookText.h"

#include <algorithm>
#include <cstdio>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/CustomCharacters.h"
#include "mkbook/JisTable.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr char kEmphasisBegins = 2, kEmphasisEnds = 3, kReferenceBegins = 4, kReferenceEnds = 5;
constexpr size_t kTableRecord = 12;

uint16_t wordAt(std::string_view bytes, size_t at) {
  return at + 2 <= bytes.size() ? readBE16(reinterpret_cast<const uint8_t*>(bytes.data() + at)) : 0;
}

uint32_t longAt(std::string_view bytes, size_t at) {
  return static_cast<uint32_t>(wordAt(bytes, at)) << 16 | wordAt(bytes, at + 2);
}

char32_t fromSurrogates(uint32_t value) {
  if (value >> 16 == 0) return value;
  return 0x10000 + ((value >> 16 & 0x3FF) << 10 | (value & 0x3FF));
}

uint32_t bcdAt(std::string_view bytes, size_t at, size_t length) {
  uint32_t value = 0;
  for (size_t i = at; i < at + length && i < bytes.size(); ++i) {
    const auto byte = static_cast<uint8_t>(bytes[i]);
    value = value * 100 + (byte >> 4) * 10u + (byte & 15u);
  }
  return value;
}

void beginLine(std::string* out, unsigned indent) {
  *out += "<" + std::to_string(indent) + ">";
}

void closeReference(std::string* out, int64_t entry) {
  *out += "|" + std::to_string(entry) + kReferenceEnds;
}

std::string withoutLastBlanks(std::string_view text) {
  constexpr std::string_view kWide = "　";
  for (;;) {
    if (text.ends_with(' ') || text.ends_with('\n')) {
      text.remove_suffix(1);
    } else if (text.ends_with(kWide)) {
      text.remove_suffix(kWide.size());
    } else {
      return std::string(text) + "\n";
    }
  }
}

// One character as the book has it: of several ways to write a sign the one that its code stands for.
char32_t written(char32_t character, const CustomTable& table) {
  if (character < 0x20 || character == 0x7F) return ' ';
  const JisTable& jis = JisTable::shared();
  if (const uint16_t code = jis.codeOf(character); code != 0) return jis.characterOf(code, character < 0x80);
  return table.codeOf(character) != 0 ? character : jis.characterOf(kGeta, false);
}

void appendWritten(std::string* out, std::string_view utf8, const CustomTable& table) {
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = mkdict::takeUtf8(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    mkdict::appendUtf8(*out,
                       sound ? written(character, table) : JisTable::shared().characterOf(kGeta, false));
  }
}

}  // namespace

CustomTable::CustomTable(std::string_view bytes) {
  size_t at = 0;
  for (const bool half : {false, true}) {
    if (at + 4 > bytes.size()) return;
    uint32_t count = longAt(bytes, at);
    for (at += 4; count > 0 && at + kTableRecord <= bytes.size(); --count, at += kTableRecord) {
      const char32_t character = fromSurrogates(longAt(bytes, at + 4));
      characters_[{half, wordAt(bytes, at)}] = character;
      codes_[character] = wordAt(bytes, at);
    }
  }
}

char32_t CustomTable::characterOf(uint16_t code, bool half) const {
  const auto found = characters_.find({half, code});
  return found == characters_.end() ? 0 : found->second;
}

uint16_t CustomTable::codeOf(char32_t character) const {
  const auto found = codes_.find(character);
  return found == codes_.end() ? 0 : found->second;
}

std::string codesOf(std::string_view utf8, const CustomTable& table) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = mkdict::takeUtf8(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    if (character < 0x20 || character == 0x7F) character = ' ';
    uint16_t code = sound ? JisTable::shared().codeOf(character) : kGeta;
    if (code == 0) code = table.codeOf(character);
    appendBE16(out, code != 0 ? code : kGeta);
  }
  return out;
}

std::string expectedText(const BookEntry& entry, const CustomTable& table,
                         const std::function<int64_t(const std::string& word)>& number) {
  std::string out;
  const auto append = [&](const std::vector<Span>& spans) {
    for (const Span& span : spans) {
      const int64_t target = span.kind == Span::Kind::kReference ? number(span.target) : -1;
      if (target >= 0) out += kReferenceBegins;
      if (span.kind == Span::Kind::kEmphasis) out += kEmphasisBegins;
      appendWritten(&out, span.text, table);
      if (span.kind == Span::Kind::kEmphasis) out += kEmphasisEnds;
      if (target >= 0) closeReference(&out, target);
    }
    out += '\n';
  };
  beginLine(&out, 1);
  appendWritten(&out, entry.headword, table);
  append(entry.note);
  for (const Line& line : entry.lines) {
    beginLine(&out, std::min(line.indent, 9999u));
    append(line.spans);
  }
  return withoutLastBlanks(out);
}

std::string decodedText(std::string_view bytes, const CustomTable& table,
                        const std::function<int64_t(const _SDICADDRESS& address)>& number) {
  std::string out;
  bool half = false;
  for (size_t at = 0; at + 2 <= bytes.size(); at += 2) {
    const uint16_t word = wordAt(bytes, at);
    if (word >= kFirstCharacter) {
      const bool custom = word >= 0xA121;
      const char32_t character =
          custom ? table.characterOf(word, half) : JisTable::shared().characterOf(word, half);
      mkdict::appendUtf8(out, character != 0 ? character : U'\uFFFD');
      continue;
    }
    switch (word) {
      case kTagHalfOn:
      case kTagHalfOff:
        half = word == kTagHalfOn;
        break;
      case kTagIndent:
        beginLine(&out, bcdAt(bytes, at + 2, 2));
        at += 2;
        break;
      case kTagKeyword:
        at += 2;
        break;
      case kTagKeywordEnd:
      case kTagEnd:
        break;
      case kTagLineFeed:
        out += '\n';
        break;
      case kTagEmphasisOn:
        out += kEmphasisBegins;
        break;
      case kTagEmphasisOff:
        out += kEmphasisEnds;
        break;
      case kTagReference:
        out += kReferenceBegins;
        at += 2;
        break;
      case kTagReferenceEnd:
        closeReference(&out, number({bcdAt(bytes, at + 2, 4), bcdAt(bytes, at + 6, 2)}));
        at += 6;
        break;
      default:
        char tag[16];
        std::snprintf(tag, sizeof tag, "<%04X>", unsigned{word});
        out += tag;
    }
  }
  return withoutLastBlanks(out);
}

}  // namespace zavel::mkbook
