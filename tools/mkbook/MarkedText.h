// Text with marks, as hand-made books have it (docs/man/mkbook-text.5.scd): "see {>dog} and H{_2}O".
#ifndef MKBOOK_MARKEDTEXT_H
#define MKBOOK_MARKEDTEXT_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "mkbook/BookSource.h"

namespace zavel::mkbook {

// What a text's marks mean to its book. Offsets are bytes of the text.
struct MarkMeanings {
  // What is wrong; the rest of the text is then left alone.
  std::function<void(size_t offset, const std::string& message)> complain;
  // A reference to the entry of a label: sets span->entry, and a text if the span has none, or makes it
  // plain.
  std::function<void(Span* span, const std::string& label)> label;
  // An item that leads to the menu of that name, as above.
  std::function<void(Span* span, const std::string& menu, size_t offset)> menu;
  // A picture or sound of that file: sets span->medium.
  std::function<void(Span* span, const std::string& file, size_t offset)> medium;
};

class MarkedText {
 public:
  // Both borrowed. `line` is what spans say of their place.
  MarkedText(std::string_view text, size_t line, const MarkMeanings& meanings)
      : text_(text), line_(line), meanings_(meanings) {}

  std::vector<Span> spans();

 private:
  std::vector<Span> content();
  bool mark(std::vector<Span>* out);
  bool styled(Span::Kind kind, size_t open, std::vector<Span>* out);
  bool leading(size_t open, std::vector<Span>* out);
  bool medium(Span::Kind kind, size_t open, std::vector<Span>* out);
  bool caption(Span* span, size_t open);
  bool target(std::string* out, size_t open);
  bool escape(std::string* out);
  bool mayOpen(Span::Kind kind, size_t open);
  bool fail(size_t offset, const std::string& message);
  Span made(Span::Kind kind) const;

  std::string_view text_;
  size_t line_;
  const MarkMeanings& meanings_;
  size_t at_ = 0;
  std::vector<Span::Kind> open_;
  bool failed_ = false;
};

}  // namespace zavel::mkbook

#endif
