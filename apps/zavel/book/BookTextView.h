// A book's text for the eye, and as JSON.
#ifndef ZAVEL_BOOK_BOOKTEXTVIEW_H
#define ZAVEL_BOOK_BOOKTEXTVIEW_H

#include <cstddef>
#include <string>

#include "JsonWriter.h"
#include "book/BookText.h"

namespace zavel::host {

// Where references and items lead to: not told; behind each, as in "word→39:10"; or all below the text.
enum class LinkPlaces { kNone, kBehind, kBelow };

struct BookLook {
  bool colour = false;
  size_t width = 0;  // columns to wrap at; 0 wraps nothing
  LinkPlaces places = LinkPlaces::kBelow;
  _SDICADDRESS self = {};  // of the text: what leads to itself is not told below it
};

// Lines ended by "\n". A picture reads "[picture 21:40 name]".
std::string textForEye(const BookText& text, const BookLook& look);

// A list of lines, each {"indent","spans":[{"type","text","styles","place"}]}.
void writeLines(JsonWriter& json, const BookText& text);

}  // namespace zavel::host

#endif
