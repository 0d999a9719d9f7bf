// A text of a book, taken out of its words and tags.
#ifndef ZAVEL_BOOK_BOOKTEXT_H
#define ZAVEL_BOOK_BOOKTEXT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookCharacters.h"
#include "book/BookTypes.h"

namespace zavel::host {

enum class SpanKind { kText, kReference, kItem, kPicture, kSound, kFilm };

struct BookSpan {
  SpanKind kind = SpanKind::kText;
  std::string text;  // UTF-8; of pictures, sounds and films their name, which may be empty
  bool keyword = false;
  bool emphasis = false;
  bool subscript = false;
  bool superscript = false;
  // Of references and items of menus where they lead to, of pictures, sounds and films where their tag
  // stands.
  _SDICADDRESS address = {};
  // Spans of one reference or item have the same number, from 1 on; 0 for all others.
  unsigned link = 0;
};

struct BookLine {
  unsigned indent = 0;  // columns
  std::vector<BookSpan> spans;
};

struct BookText {
  std::vector<BookLine> lines;  // blank lines at the end are left out, and so are blanks there

  bool empty() const { return lines.empty(); }
  bool has(SpanKind kind) const;
};

// The text in `words`, which stand at `at` in the book. Words that end inside a tag end the text.
BookText decodeText(std::string_view words, const BookCharacters& characters, const _SDICADDRESS& at);

// The same in one line of plain text, as headwords are shown; pictures and the like are left out.
std::string oneLine(const BookText& text);

// The characters of a text, half-width ones as far as its tags say so, tags left out.
std::string plainText(std::string_view words, const BookCharacters& characters);

}  // namespace zavel::host

#endif
