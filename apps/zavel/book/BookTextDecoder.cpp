// Tests: tests/zavel/book/BookTextTest.cpp
#include "book/BookTextDecoder.h"

#include <algorithm>

#include "book/BookFormat.h"
#include "foundation/Bcd.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

using namespace book;

constexpr size_t kWord = 2, kAddress = 6;
constexpr size_t kLongestName = 512;  // bytes that the name of a picture may have
constexpr unsigned kMargin = 1;       // indents count from it
constexpr size_t kMostDigits = 30;    // between the tags around Unicode digits

bool isCharacter(uint16_t word) {
  return word >= kFirstCharacter;
}

// Tags of a size of their own, the tag's own word counted; all others have one word.
constexpr std::pair<uint16_t, size_t> kLengths[] = {{kTagIndent, 4},      {0x1F1A, 4},
                                                    {0x1F1B, 4},          {0x1F1C, 4},
                                                    {0x1F1D, 4},          {0x1F1E, 4},
                                                    {0x1F36, 14},         {0x1F37, 12},
                                                    {0x1F3A, 4},          {kTagKeyword, 4},
                                                    {kTagReference, 4},   {0x1F48, 12},
                                                    {0x1F49, 12},         {0x1F4B, 8},
                                                    {0x1F4C, 4},          {kTagReferenceEnd, 8},
                                                    {kTagMenuItemEnd, 8}, {kTagMonoPictureEnd, 8},
                                                    {kTagStyleOn, 4},     {kTagAuxOn, 4},
                                                    {0x1FE4, 4},          {0x1FE6, 4}};

// Of a tag that has two sizes, told by its argument, besides that of one that holds nothing.
constexpr size_t lengthByArgument(uint16_t argument, size_t usual, size_t bare) {
  const unsigned form = argument & 0xF00;
  return form == 0x100 || form == 0x200 ? usual : form == 0 ? bare : 4;
}

constexpr uint16_t kTagAnimation = 0x1F4E, kTagMovieTooEnd = 0x1F6F;

}  // namespace

BookText BookTextDecoder::decode() {
  text_.lines.emplace_back();
  while (has(kWord)) {
    const uint16_t next = word(0);
    if (next == kTagEnd) break;
    if (isCharacter(next)) {
      character(next);
      at_ += kWord;
    } else {
      tag(next);
    }
  }
  tidy();
  return std::move(text_);
}

uint16_t BookTextDecoder::word(size_t offset) const {
  if (!has(offset + kWord)) return 0;
  return readBE16(reinterpret_cast<const uint8_t*>(words_.data()) + at_ + offset);
}

// As packed decimal numbers: four bytes of block, two of offset.
_SDICADDRESS BookTextDecoder::address(size_t offset) const {
  if (!has(offset + kAddress)) return {};
  const auto* const bytes = reinterpret_cast<const uint8_t*>(words_.data()) + at_ + offset;
  return {foundation::GFn_BCD2DWORD(bytes, 4), foundation::GFn_BCD2DWORD(bytes + 4, 2)};
}

void BookTextDecoder::tag(uint16_t tag) {
  if (media(tag)) return;
  const size_t length = lengthOf(tag);
  switch (tag) {
    case kTagLineFeed:
      feed();
      break;
    case kTagIndent:
      indent();
      break;
    case kTagUnicodeOn:
      unicode();
      return;
    case kTagReference:
    case kTagMenuItem:
      open();
      break;
    case kTagReferenceEnd:
      close(SpanKind::kReference);
      break;
    case kTagMenuItemEnd:
      close(SpanKind::kItem);
      break;
    default:
      if (style(tag)) apart_ = true;
  }
  at_ += length;
}

// What ought to be the argument of a reference may be its first character.
size_t BookTextDecoder::lengthOf(uint16_t tag) const {
  if (tag == kTagReference && isCharacter(word(kWord))) return kWord;
  if (tag == kTagAnimation) return lengthByArgument(word(kWord), 42, 40);
  if (tag == kTagMovieToo) return word(34) == kTagMovieTooEnd ? 50 : 36;
  const auto found = std::find_if(std::begin(kLengths), std::end(kLengths),
                                  [tag](const auto& one) { return one.first == tag; });
  return found == std::end(kLengths) ? kWord : found->second;
}

// Whether it is one that changes how characters look.
bool BookTextDecoder::style(uint16_t tag) {
  switch (tag) {
    case kTagHalfOn:
    case kTagHalfOff:
      half_ = tag == kTagHalfOn;
      return false;
    case kTagSubOn:
    case kTagSubOff:
      look_.subscript = tag == kTagSubOn;
      return true;
    case kTagSuperOn:
    case kTagSuperOff:
      look_.superscript = tag == kTagSuperOn;
      return true;
    case kTagEmphasisOn:
    case kTagEmphasisOff:
      look_.emphasis = tag == kTagEmphasisOn;
      return true;
    case kTagKeyword:
    case kTagKeywordEnd:
      look_.keyword = tag == kTagKeyword;
      return true;
    default:
      return false;
  }
}

// Holds for the line that has nothing yet, and for those that follow.
void BookTextDecoder::indent() {
  if (!has(kWord + kWord)) return;
  const unsigned depth =
      foundation::GFn_BCD2WORD(reinterpret_cast<const uint8_t*>(words_.data()) + at_ + kWord, kWord);
  indent_ = depth > kMargin ? depth - kMargin : 0;
  if (text_.lines.back().spans.empty()) text_.lines.back().indent = indent_;
}

void BookTextDecoder::character(uint16_t code) {
  append(characters_.text(code, half_));
}

// Digits between the tags are a character's number in Unicode.
void BookTextDecoder::unicode() {
  char32_t number = 0;
  size_t digits = 0;
  for (at_ += kWord; has(kWord) && digits < kMostDigits && word(0) != kTagUnicodeOff;
       at_ += kWord, ++digits) {
    const unsigned digit = word(0) & 0xFF;
    const bool decimal = digit >= '0' && digit <= '9', letter = digit >= 'A' && digit <= 'F';
    if (decimal || letter) number = (number << 4 | (decimal ? digit - '0' : digit - 'A' + 10)) & 0xFFFFFF;
  }
  if (word(0) == kTagUnicodeOff) at_ += kWord;
  const bool shown = number >= 0xA0 && number <= 0x10FFFF && !(number >= 0xD800 && number <= 0xDFFF);
  append(shown ? utf8Of(number) : kUnshown);
}

void BookTextDecoder::append(const std::string& utf8) {
  std::vector<BookSpan>& spans = text_.lines.back().spans;
  if (apart_ || spans.empty()) {
    spans.push_back(look_);
    spans.back().text.clear();
    apart_ = false;
  }
  spans.back().text += utf8;
}

void BookTextDecoder::open() {
  opened_ = {text_.lines.size() - 1, text_.lines.back().spans.size()};
  apart_ = true;
}

// What stands since the opening leads to the address; a closing tag alone leads nowhere.
void BookTextDecoder::close(SpanKind kind) {
  apart_ = true;
  if (!opened_) return;
  const _SDICADDRESS target = address(kWord);
  auto [line, span] = *opened_;
  opened_.reset();
  if (target.block == 0) return;
  ++links_;
  for (; line < text_.lines.size(); ++line, span = 0) {
    std::vector<BookSpan>& spans = text_.lines[line].spans;
    for (; span < spans.size(); ++span) {
      if (spans[span].kind != SpanKind::kText) continue;
      spans[span].kind = kind;
      spans[span].address = target;
      spans[span].link = links_;
    }
  }
}

bool BookTextDecoder::media(uint16_t tag) {
  switch (tag) {
    case kTagMonoPicture:
      medium(SpanKind::kPicture, 12, kTagMonoPictureEnd, kAddress);
      return true;
    case kTagColorPicture:
      medium(SpanKind::kPicture, 20, kTagColorPictureEnd, 0);
      return true;
    case kTagColorPictureInText:
      medium(SpanKind::kPicture, 20, kTagColorPictureInTextEnd, 0);
      return true;
    case kTagSound:
      medium(SpanKind::kSound, soundHeader(), kTagSoundEnd, 0);
      return true;
    case kTagMovie:
      medium(SpanKind::kFilm, 46, kTagMovieEnd, 0);
      return true;
    default:
      return false;
  }
}

// Two more bytes are the tag's than its walk counts, where there is room for them.
size_t BookTextDecoder::soundHeader() const {
  const size_t counted = lengthByArgument(word(kWord), 18, 16);
  return counted == 18 && word(counted) != kTagSoundEnd ? counted + kWord : counted;
}

// `header` bytes, then a name up to the closing tag, then `behind` bytes. One that isn't closed has no name.
void BookTextDecoder::medium(SpanKind kind, size_t header, uint16_t end, size_t behind) {
  BookSpan span;
  span.kind = kind;
  const uint64_t place = (uint64_t{start_.block} << kBlockShift) + start_.offset + at_;
  span.address = {static_cast<uint32_t>(place >> kBlockShift), static_cast<uint32_t>(place & kBlockMask)};
  size_t closing = header;
  while (has(closing + kWord) && word(closing) != end && word(closing) != kTagEnd &&
         closing < header + kLongestName)
    closing += kWord;
  if (word(closing) == end) {
    span.text = plainText(words_.substr(at_ + header, closing - header), characters_);
    closing += kWord + behind;
  } else {
    closing = header;
  }
  at_ = std::min(at_ + closing, words_.size());
  text_.lines.back().spans.push_back(std::move(span));
  apart_ = true;
}

void BookTextDecoder::feed() {
  text_.lines.emplace_back();
  text_.lines.back().indent = indent_;
  apart_ = true;
}

// Entries too short for the format are filled up with blanks, and an address may be that of a line's end.
void BookTextDecoder::tidy() {
  for (BookLine& line : text_.lines) {
    while (!line.spans.empty() && line.spans.back().kind == SpanKind::kText) {
      std::string& last = line.spans.back().text;
      while (last.ends_with(' ') || last.ends_with("　"))
        last.erase(last.size() - (last.back() == ' ' ? 1 : 3));
      if (!last.empty()) break;
      line.spans.pop_back();
    }
  }
  const auto hasInk = [](const BookLine& line) { return !line.spans.empty(); };
  text_.lines.erase(text_.lines.begin(), std::find_if(text_.lines.begin(), text_.lines.end(), hasInk));
  while (!text_.lines.empty() && text_.lines.back().spans.empty()) text_.lines.pop_back();
}

}  // namespace zavel::host
