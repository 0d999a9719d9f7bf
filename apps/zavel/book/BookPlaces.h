// Where electronic books stand, and which one a name or a path means.
#ifndef ZAVEL_BOOK_BOOKPLACES_H
#define ZAVEL_BOOK_BOOKPLACES_H

#include <string>
#include <string_view>
#include <vector>

#include "Failure.h"

namespace zavel::host {

struct BookPlace {
  std::string name;     // of its folder among the books; of a book elsewhere the path as it was given
  std::string folder;   // absolute
  std::string catalog;  // the file that a book is opened by, absolute
};

// The folder for books of this user's own: one folder in it for each, named as the book is called. It need
// not be there. Empty when neither ZAVEL_ROOT nor HOME tells where.
std::string booksFolder();

// That folder, then those of the whole machine: "zavel/books" below each of XDG_DATA_DIRS, unless ZAVEL_ROOT
// is set. Of two books of one name the first is meant.
std::vector<std::string> bookFolders();

// The catalog of the book in `folder`; empty when there is none.
std::string catalogIn(const std::string& folder);

// Whether a book can have this name: one folder's name that isn't hidden.
bool isBookName(std::string_view name);

// All books of these folders, by name.
std::vector<BookPlace> listBooks();

// The book that is called so, or whose folder or catalog has this path.
Failure findBook(const std::string& given, BookPlace* place);

// The books that are given, each once; all that there are where none is.
Failure chooseBooks(const std::vector<std::string>& given, std::vector<BookPlace>* places);

}  // namespace zavel::host

#endif
