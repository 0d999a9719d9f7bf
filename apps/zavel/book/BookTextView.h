// A book's text for the eye, and as JSON.
#ifndef ZAVEL_BOOK_BOOKTEXTVIEW_H
#define ZAVEL_BOOK_BOOKTEXTVIEW_H

#include <cstddef>
#include <string>

#include "JsonWriter.h"
#include "book/BookText.h"

namespace zavel::host {

struct BookLook {
  bool colour = false;
  size_t width = 0;    // columns to wrap at; 0 wraps nothing
  bool places = true;  // behind references, where they lead to
};

// Lines ended by "\n". A reference reads "word→39:10", a picture "[picture 21:40 name]".
std::string textForEye(const BookText& text, const BookLook& look);

// A list of lines, each {"indent","spans":[{"type","text","styles","place"}]}.
void writeLines(JsonWriter& json, const BookText& text);

}  // namespace zavel::host

#endif
