// From tagged entry text to what the reader sees: labels, layout, style runs and the result file.
// Tests: tests/lookup/ConvertMetaKeyTest.cpp, LayoutTest.cpp, StyleRunsTest.cpp, OutputFileTest.cpp
#include <algorithm>
#include <string_view>

#include "foundation/ByteReader.h"
#include "lookup/ByteText.h"
#include "lookup/LayoutPass.h"
#include "lookup/MetaKey.h"
#include "lookup/MirellDictionaryManager.h"
#include "lookup/StylePass.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"

namespace zavel {
namespace {

// What a key becomes. Kept: a subscript's bracket is never opened, though its end closes one; see
// docs/quirks.md.
std::string_view replacementFor(const MetaKey& row, uint8_t mode) {
  if (mode == kMetaKeysLabelled) return row.label;
  if (row.key == kMetaSuperscript) return "(";
  if (row.key == kMetaScriptEnd) return ")";
  return std::string_view();
}

// Where the walk has something to do: at a key's first byte or at an escape.
bool isScanned(char c) {
  const uint8_t byte = static_cast<uint8_t>(c);
  return byte == kMetaKeyHigh1 || byte == kMetaKeyHigh2 || byte == kEscape;
}

bool setColor(RGBColor& color, uint16_t red, uint16_t green, uint16_t blue) {
  constexpr uint16_t kRefused = 0xFFFF;  // kept: full intensity can't be set; see docs/quirks.md
  if (red == kRefused || green == kRefused || blue == kRefused) return false;
  color = {red, green, blue};
  return true;
}

// Takes the words out that point to illustrations and tables.
void removePictureWords(std::string& text) {
  replaceAll(text, "\x82\xB3\x82\xB5\x8A\x47)", ")");                // さし絵)
  replaceAll(text, "\x82\xB3\x82\xB5\x8A\x47\x81\x74", "\x81\x74");  // さし絵》
  replaceAll(text, "\x82\xB3\x82\xB5\x8A\x47.", ".");                // さし絵.
  replaceAll(text, "[\x95\x5C]", "");                                // [表]
}

std::string styleRecord(const std::vector<ScrpSTElement>& runs) {
  const size_t count = std::min<size_t>(runs.size(), 0xFFFF);
  std::string record;
  record.reserve(2 + count * kScrpSTElementBytes);
  appendBE16(record, static_cast<uint16_t>(count));
  for (size_t i = 0; i < count; ++i) appendScrpSTElement(record, runs[i]);
  return record;
}

}  // namespace

std::string MirellDictionaryManager::GetDebugResult() {
  return debugResult;
}

// The walk is defined inside one text: it replaces a key there and steps back, so that it looks at the same
// place again. What it puts there never makes it act, nor does what stands in front, so one run from left
// to right does.
std::string MirellDictionaryManager::ConvertMetaKey(const std::string& text, uint8_t mode) {
  std::string out;
  size_t at = 0;
  while (at + 1 < text.size()) {  // the last byte is never looked at
    const auto from = text.begin() + static_cast<ptrdiff_t>(at);
    const size_t plain = static_cast<size_t>(std::find_if(from, text.end() - 1, isScanned) - from);
    out.append(text, at, plain);
    at += plain;
    if (at + 1 >= text.size()) break;
    const uint8_t byte = static_cast<uint8_t>(text[at]);
    const MetaKey* const row = findMetaKey(byte, static_cast<uint8_t>(text[at + 1]));
    if (row != nullptr) {
      out += replacementFor(*row, mode);
      at += 2;
    } else {
      out.push_back(byte == kEscape ? ' ' : text[at]);
      ++at;
    }
  }
  return out.append(text, at);
}

std::string MirellDictionaryManager::RemoveMetaKey(const char* text) {
  std::string plain = ConvertMetaKey(text, kMetaKeysRemoved);
  RemoveWordByRange(plain, "(", ")");
  return plain;
}

std::string MirellDictionaryManager::OutputResult(const std::string& text) {
  if (text.empty()) return std::string();
  std::string prepared = text;
  removePictureWords(prepared);

  ScrpSTElement plain;
  plain.scrpHeight = static_cast<uint16_t>(lineHeight);
  plain.scrpAscent = static_cast<uint16_t>(fontAscent);
  plain.scrpFont = fontId;
  plain.scrpSize = static_cast<uint16_t>(fontSize);
  plain.scrpColor = contentsColor;
  styleRuns.clear();
  StylePass styles(LayoutPass(std::move(prepared)).run(), plain, indexColor, subIndexColor);
  outputText = styles.run(styleRuns);
  return outputText;
}

bool MirellDictionaryManager::OutputResultFile(const FileReference& file, const std::string& text) {
  if (!file.isSet()) return false;
  const std::unique_ptr<ForkedFileWriter> writer =
      platform().forkedFiles().create(file.path(), "TEXT", "ttxt");
  if (writer == nullptr) return false;
  // Kept: that a part could not be written is not told, though the file then isn't put in place; see
  // docs/quirks.md.
  const bool textWritten = writer->writeText(text);
  const bool styleWritten = writer->writeStyle("styl", 128, styleRecord(styleRuns));
  return writer->close() || !textWritten || !styleWritten;
}

bool MirellDictionaryManager::SetIndexColor(uint16_t red, uint16_t green, uint16_t blue) {
  return setColor(indexColor, red, green, blue);
}

bool MirellDictionaryManager::SetSubIndexColor(uint16_t red, uint16_t green, uint16_t blue) {
  return setColor(subIndexColor, red, green, blue);
}

bool MirellDictionaryManager::SetContentsColor(uint16_t red, uint16_t green, uint16_t blue) {
  return setColor(contentsColor, red, green, blue);
}

bool MirellDictionaryManager::SetFontAttribute(const std::string& font, uint32_t size, uint32_t ascent,
                                               uint32_t height) {
  fontName = font;
  fontSize = size;
  fontAscent = ascent;
  lineHeight = height;
  return true;
}

std::string MirellDictionaryManager::ReplaceString(const std::string& text, const std::string& from,
                                                   const std::string& to) {
  std::string copy = text;
  replaceAll(copy, from, to);
  return copy;
}

}  // namespace zavel
