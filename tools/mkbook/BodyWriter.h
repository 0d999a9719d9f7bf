// The text of entries, as words with tags (docs/book-format.md, "Text").
#ifndef MKBOOK_BODYWRITER_H
#define MKBOOK_BODYWRITER_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "book/BookTypes.h"
#include "mkbook/BookSource.h"
#include "mkbook/CustomCharacters.h"

namespace zavel::mkbook {

class BodyWriter {
 public:
  // Where the entry of a reference's word stands; nothing when there is none: its text is then plain.
  using Resolver = std::function<std::optional<_SDICADDRESS>(const std::string& word)>;

  // Both borrowed.
  BodyWriter(CustomCharacters& characters, const Resolver& resolver)
      : characters_(characters), resolver_(resolver) {}

  // One entry: indent and keyword, note, line feed; then each line behind its indent. The length depends on
  // which references lead somewhere, not on where. An entry has two characters at least, since a reader takes
  // one of less for a part of the next.
  std::string entry(const BookEntry& entry);

 private:
  void word(uint16_t value);
  void half(bool on);
  void text(std::string_view utf8);
  void span(const Span& span);
  void reference(const Span& span, const _SDICADDRESS& address);
  void indent(unsigned depth);
  void feed();

  CustomCharacters& characters_;
  const Resolver& resolver_;
  std::string out_;
  bool half_ = false;
  size_t written_ = 0;  // characters
};

// `value` in packed decimal of `bytes` bytes.
void appendBcd(std::string* out, uint32_t value, size_t bytes);

}  // namespace zavel::mkbook

#endif
