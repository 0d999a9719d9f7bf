// The walk over the words of a text that decodeText() makes.
#ifndef ZAVEL_BOOK_BOOKTEXTDECODER_H
#define ZAVEL_BOOK_BOOKTEXTDECODER_H

#include <optional>
#include <utility>

#include "book/BookText.h"

namespace zavel::host {

class BookTextDecoder {
 public:
  BookTextDecoder(std::string_view words, const BookCharacters& characters, const _SDICADDRESS& at)
      : words_(words), characters_(characters), start_(at) {}

  BookText decode();

 private:
  bool has(size_t bytes) const { return at_ + bytes <= words_.size(); }
  uint16_t word(size_t offset) const;  // 0 behind the end
  _SDICADDRESS address(size_t offset) const;

  void tag(uint16_t tag);
  size_t lengthOf(uint16_t tag) const;
  bool style(uint16_t tag);
  void indent();
  void character(uint16_t code);
  void unicode();
  void append(const std::string& utf8);
  void open();
  void close(SpanKind kind);
  bool media(uint16_t tag);
  size_t soundHeader() const;
  void medium(SpanKind kind, size_t header, uint16_t end, size_t behind);
  void feed();
  void tidy();

  std::string_view words_;
  const BookCharacters& characters_;
  const _SDICADDRESS start_;
  size_t at_ = 0;
  bool half_ = false, apart_ = true;  // the next character begins a span
  unsigned indent_ = 0, links_ = 0;
  BookSpan look_;  // how characters look at this place
  // Line and span at which what may be a reference begins.
  std::optional<std::pair<size_t, size_t>> opened_;
  BookText text_;
};

}  // namespace zavel::host

#endif
