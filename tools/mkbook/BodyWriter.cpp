// Tests: tests/mkbook/BodyWriterTest.cpp
#include "mkbook/BodyWriter.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/ByteReader.h"
#include "mkbook/JisTable.h"
#include "mkbook/MediaWriter.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr uint16_t kStartsEntry = 0x0100, kWithinText = 0x0200;  // arguments of a keyword
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
    const bool sound = takeCharacter(utf8, &at, &character);
    if (sound && isUnseen(character)) continue;
    const CustomCharacters::Cell cell =
        sound ? characters_.cell(character) : CustomCharacters::Cell{kGeta, false};
    half(cell.half);
    word(cell.code);
    ++written_;
  }
}

void BodyWriter::span(const Span& span) {
  switch (span.kind) {
    case Span::Kind::kPlain:
      return content(span);
    case Span::Kind::kEmphasis:
      return style(span, kTagEmphasisOn, kTagEmphasisOff);
    case Span::Kind::kSubscript:
      return style(span, kTagSubOn, kTagSubOff);
    case Span::Kind::kSuperscript:
      return style(span, kTagSuperOn, kTagSuperOff);
    case Span::Kind::kKeyword:
      return keyword(span);
    case Span::Kind::kReference:
    case Span::Kind::kMenu:
      return lead(span);
    case Span::Kind::kPicture:
    case Span::Kind::kSound:
      return medium(span);
  }
}

void BodyWriter::content(const Span& span) {
  text(span.text);
  for (const Span& part : span.inside) this->span(part);
}

// Half width ends with what it stands in: what is read from a tag on begins in full width.
void BodyWriter::style(const Span& span, uint16_t on, uint16_t off) {
  half(false);
  word(on);
  content(span);
  half(false);
  word(off);
}

void BodyWriter::keyword(const Span& span) {
  half(false);
  word(kTagKeyword);
  word(kWithinText);
  content(span);
  half(false);
  word(kTagKeywordEnd);
}

void BodyWriter::lead(const Span& span) {
  const std::optional<_SDICADDRESS> address = resolver_(span);
  if (!address) return content(span);
  half(false);
  word(items_ ? kTagMenuItem : kTagReference);
  if (!items_) word(kReferenceArgument);
  content(span);
  half(false);
  word(items_ ? kTagMenuItemEnd : kTagReferenceEnd);
  appendBcd(&out_, address->block, 4);
  appendBcd(&out_, address->offset, 2);
}

void BodyWriter::medium(const Span& span) {
  if (media_ == nullptr) return content(span);
  half(false);
  out_ += media_->opening(span.medium);
  content(span);
  half(false);
  out_ += media_->closing(span.medium);
}

void BodyWriter::indent(unsigned depth) {
  word(kTagIndent);
  appendBcd(&out_, std::min(depth, kMostIndent), 2);
}

void BodyWriter::feed() {
  half(false);
  word(kTagLineFeed);
}

void BodyWriter::lines(const std::vector<Line>& lines) {
  for (const Line& line : lines) {
    indent(line.indent);
    for (const Span& part : line.spans) span(part);
    feed();
  }
}

std::string BodyWriter::entry(const BookEntry& entry) {
  out_.clear();
  written_ = 0;
  items_ = false;
  indent(1);
  word(kTagKeyword);
  word(kStartsEntry);
  text(entry.headword);
  half(false);
  word(kTagKeywordEnd);
  for (const Span& part : entry.note) span(part);
  feed();
  lines(entry.lines);
  for (; written_ < kFewestCharacters; ++written_) word(kFullWidthBlank);
  return std::move(out_);
}

std::string BodyWriter::menu(const std::vector<Line>& lines) {
  out_.clear();
  items_ = true;
  this->lines(lines);
  return std::move(out_);
}

}  // namespace zavel::mkbook
