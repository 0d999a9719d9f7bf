// Pictures, sounds and icons on their way out of a book.
#ifndef ZAVEL_BOOK_BOOKMEDIA_H
#define ZAVEL_BOOK_BOOKMEDIA_H

#include <string>

#include "Failure.h"
#include "book/BookEntry.h"
#include "book/BookImage.h"
#include "book/BookOptions.h"

namespace zavel::host {

struct BookMedium {
  const char* kind = "picture";  // "picture", "sound", "icon", "character"
  std::string place;             // empty: it stands in no text
  std::string name;              // UTF-8, may be empty
  std::string data;              // a file
};

// The tag of the picture or sound at a place, or of the only one of the entry there, with zeroes behind it.
Failure findTag(ShelvedBook& book, const std::string& placeOrWord, SpanKind kind, std::string* tag,
                BookMedium* medium);

// Writes it to the file that is asked for; without one tells what it is and shows a bitmap. The exit status.
int deliver(const ShelvedBook& book, const BookMedium& medium, const BookOptions& options);

// "1 channel, 22050 Hz, 16 bits, 1.5 s" of a WAVE file; empty for one that doesn't tell.
std::string soundFacts(std::string_view wav);

}  // namespace zavel::host

#endif
