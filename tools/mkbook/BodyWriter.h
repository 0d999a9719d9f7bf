// The text of entries and menus, as words with tags (docs/book-format.md, "Text").
#ifndef MKBOOK_BODYWRITER_H
#define MKBOOK_BODYWRITER_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/BookSource.h"
#include "mkbook/CustomCharacters.h"

namespace zavel::mkbook {

class MediaWriter;

class BodyWriter {
 public:
  // Where what a reference or a menu's item leads to stands; nothing when there is none: its text is then
  // plain.
  using Resolver = std::function<std::optional<_SDICADDRESS>(const Span& span)>;

  // All borrowed. Without `media` pictures and sounds are their captions.
  BodyWriter(CustomCharacters& characters, const Resolver& resolver, const MediaWriter* media = nullptr)
      : characters_(characters), resolver_(resolver), media_(media) {}

  // One entry: indent and keyword, note, line feed; then each line behind its indent. The length depends on
  // which references lead somewhere, not on where. An entry has two characters at least, since a reader takes
  // one of less for a part of the next.
  std::string entry(const BookEntry& entry);

  // The lines of a menu. What leads somewhere is an item.
  std::string menu(const std::vector<Line>& lines);

 private:
  void word(uint16_t value);
  void half(bool on);
  void text(std::string_view utf8);
  void span(const Span& span);
  void content(const Span& span);
  void style(const Span& span, uint16_t on, uint16_t off);
  void keyword(const Span& span);
  void lead(const Span& span);
  void medium(const Span& span);
  void indent(unsigned depth);
  void feed();
  void lines(const std::vector<Line>& lines);

  CustomCharacters& characters_;
  const Resolver& resolver_;
  const MediaWriter* media_;
  std::string out_;
  bool half_ = false;
  bool items_ = false;  // references are items of a menu
  size_t written_ = 0;  // characters
};

// `value` in packed decimal of `bytes` bytes.
void appendBcd(std::string* out, uint32_t value, size_t bytes);

}  // namespace zavel::mkbook

#endif
