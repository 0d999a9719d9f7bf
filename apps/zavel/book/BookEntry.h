// Entries of a book, and the ways to them.
#ifndef ZAVEL_BOOK_BOOKENTRY_H
#define ZAVEL_BOOK_BOOKENTRY_H

#include <string>
#include <vector>

#include "Failure.h"
#include "book/BookText.h"
#include "book/ShelvedBook.h"

namespace zavel::host {

struct BookEntry {
  _SDICADDRESS place = {};
  std::string headword;
  std::string words;  // as the book has them, tags and all
  BookText text;
};

// The entry at a place of the book's text; with `anywhere` of any part of the book, as menus are.
Failure readEntry(ShelvedBook& book, const _SDICADDRESS& place, BookEntry* entry, bool anywhere = false);

// Where the entries stand that a place or a word means. For a word that isn't there the failure's status is
// that of nothing found.
Failure placesOf(ShelvedBook& book, const std::string& placeOrWord, std::vector<_SDICADDRESS>* places);

// The entry behind or ahead of one; of books that may be read through also beyond the end of a text.
Failure neighbour(ShelvedBook& book, bool next, const _SDICADDRESS& place, _SDICADDRESS* neighbour);

// Takes bytes over that the engine allocated.
std::string taken(char* bytes, size_t length);

}  // namespace zavel::host

#endif
