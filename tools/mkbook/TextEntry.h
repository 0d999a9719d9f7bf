// The parts of a hand-made book's file (docs/man/mkbook-text.5.scd): lines that say what they are, and text.
#ifndef MKBOOK_TEXTENTRY_H
#define MKBOOK_TEXTENTRY_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mkbook/BookSource.h"
#include "mkbook/MarkedText.h"
#include "mkbook/TextLines.h"

namespace zavel::mkbook {

// "@word apple tree".
struct Directive {
  std::string_view name;      // without the @
  std::string_view argument;  // without blanks at its ends; may be empty
  size_t offset = 0;          // of the argument, in its line
};

// Nothing for a line that is none.
std::optional<Directive> directiveOf(std::string_view line);

// Whether nobody but the writer reads a line.
bool isComment(std::string_view line);

// Blanks ahead of a text: a tab goes to the next multiple of eight.
unsigned blanksAhead(std::string_view line);

// A part of the file: a directive's line and those behind it, numbers of TextLines.
struct TextSection {
  size_t first = 0;
  size_t end = 0;
};

// What is wrong at an offset of a line.
using TextComplaint = std::function<void(size_t line, size_t offset, const std::string& message)>;

struct TextEntry {
  BookEntry entry;
  std::vector<std::string> keywords, crossWords;            // besides those that it has anyhow
  std::vector<std::pair<std::string, size_t>> labels;       // with their lines
  std::vector<std::pair<std::string, std::string>> values;  // of fields: label of the field, value
};

// Reads sections. What marks mean is told by `meanings`, whose offsets are of the line that `line` gives.
class TextSectionReader {
 public:
  // All borrowed. `meanings(line, shift)`: for a text that begins at byte `shift` of line number `line`.
  using Meanings = std::function<MarkMeanings(size_t line, size_t shift)>;
  TextSectionReader(const TextLines& lines, const Meanings& meanings, const TextComplaint& complain)
      : lines_(lines), meanings_(meanings), complain_(complain) {}

  TextEntry entry(const TextSection& section) const;
  Menu menu(const TextSection& section) const;
  MultiSearch form(const TextSection& section) const;

 private:
  void take(const Directive& directive, size_t line, TextEntry* out) const;
  void value(const Directive& directive, size_t line, TextEntry* out) const;
  void choice(std::string_view line, size_t number, std::vector<Choice>* choices) const;
  std::vector<Span> spans(std::string_view text, size_t line, size_t shift) const;
  std::vector<Line> body(const TextSection& section) const;
  void demandShort(const Directive& directive, size_t line, size_t most) const;

  const TextLines& lines_;
  const Meanings& meanings_;
  const TextComplaint& complain_;
};

}  // namespace zavel::mkbook

#endif
