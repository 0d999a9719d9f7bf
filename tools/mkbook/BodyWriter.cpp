// Tests: tests/mkbook/BodyWriterTest.cpp
#include "mkbook/BodyWriter.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/JisTable.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr uint16_t kStartsEntry = 0x0100;  // argument of a keyword
constexpr uint16_t kReferenceArgument = 0x0100;
constexpr unsigned kMostIndent = 9999;
constexpr size_t kFewestCharacters = 2;

}  // namespace

void appendBcd(std::string* out, uint32_t value, size_t bytes) {
  std::string digits(bytes, '\0');
  for (size_t i = bytes; i > 0; --i, value /= 100)
    digits[i - 1] = static_cast<char>(value % 10 | value / 10 % 10 << 4);
  *out += digits;
}

void BodyWriter::word(uint16_t value) {
  appendBE16(out_, value);
}

void BodyWriter::half(bool on) {
  if (half_ == on) return;
  word(on ? kTagHalfOn : kTagHalfOff);
  half_ = on;
}

void BodyWriter::text(std::string_view utf8) {
  for (size_t at = 0; at < utf8.size();) {
    char32_t character = 0;
    const bool sound = mkdict::takeUtf8(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    const CustomCharacters::Cell cell =
        sound ? characters_.cell(character) : CustomCharacters::Cell{kGeta, false};
    half(cell.half);
    word(cell.code);
    ++written_;
  }
}

// Half width ends with what it stands in: what is read from a tag on begins in full width.
void BodyWriter::span(const Span& span) {
  switch (span.kind) {
    case Span::Kind::kPlain:
      text(span.text);
      break;
    case Span::Kind::kEmphasis:
      half(false);
      word(kTagEmphasisOn);
      text(span.text);
      half(false);
      word(kTagEmphasisOff);
      break;
    case Span::Kind::kReference:
      if (const std::optional<_SDICADDRESS> address = resolver_(span.target)) {
        reference(span, *address);
      } else {
        text(span.text);
      }
      break;
  }
}

void BodyWriter::reference(const Span& span, const _SDICADDRESS& address) {
  half(false);
  word(kTagReference);
  word(kReferenceArgument);
  text(span.text);
  half(false);
  word(kTagReferenceEnd);
  appendBcd(&out_, address.block, 4);
  appendBcd(&out_, address.offset, 2);
}

void BodyWriter::indent(unsigned depth) {
  word(kTagIndent);
  appendBcd(&out_, std::min(depth, kMostIndent), 2);
}

void BodyWriter::feed() {
  half(false);
  word(kTagLineFeed);
}

std::string BodyWriter::entry(const BookEntry& entry) {
  out_.clear();
  written_ = 0;
  indent(1);
  word(kTagKeyword);
  word(kStartsEntry);
  text(entry.headword);
  half(false);
  word(kTagKeywordEnd);
  for (const Span& part : entry.note) span(part);
  feed();
  for (const Line& line : entry.lines) {
    indent(line.indent);
    for (const Span& part : line.spans) span(part);
    feed();
  }
  for (; written_ < kFewestCharacters; ++written_) word(kFullWidthBlank);
  return std::move(out_);
}

}  // namespace zavel::mkbook
