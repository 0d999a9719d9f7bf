// Tests: tests/zavel/book/BookTextTest.cpp
#include "book/BookText.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "book/BookTextDecoder.h"
#include "foundation/ByteReader.h"

namespace zavel::host {

bool BookText::has(SpanKind kind) const {
  return std::any_of(lines.begin(), lines.end(), [kind](const BookLine& line) {
    return std::any_of(line.spans.begin(), line.spans.end(),
                       [kind](const BookSpan& span) { return span.kind == kind; });
  });
}

BookText decodeText(std::string_view words, const BookCharacters& characters, const _SDICADDRESS& at) {
  return BookTextDecoder(words, characters, at).decode();
}

std::string oneLine(const BookText& text) {
  std::string out;
  for (const BookLine& line : text.lines) {
    if (!out.empty() && !line.spans.empty()) out += ' ';
    for (const BookSpan& span : line.spans) {
      const bool medium =
          span.kind == SpanKind::kPicture || span.kind == SpanKind::kSound || span.kind == SpanKind::kFilm;
      if (!medium) out += span.text;
    }
  }
  return out;
}

std::string plainText(std::string_view words, const BookCharacters& characters) {
  std::string out;
  bool half = false;
  for (size_t at = 0; at + 2 <= words.size(); at += 2) {
    const uint16_t word = readBE16(reinterpret_cast<const uint8_t*>(words.data()) + at);
    if (word == book::kTagHalfOn || word == book::kTagHalfOff) half = word == book::kTagHalfOn;
    if (word >= book::kFirstCharacter) out += characters.text(word, half);
  }
  while (out.ends_with(' ') || out.ends_with("　")) out.erase(out.size() - (out.back() == ' ' ? 1 : 3));
  while (out.starts_with(' ') || out.starts_with("　")) out.erase(0, out[0] == ' ' ? 1 : 3);
  return out;
}

}  // namespace zavel::host
