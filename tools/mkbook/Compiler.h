// From a source to the files of a book.
#ifndef MKBOOK_COMPILER_H
#define MKBOOK_COMPILER_H

#include <cstdint>
#include <string>

#include "mkbook/BookFolder.h"
#include "mkbook/BookSource.h"
#include "mkbook/Unifont.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

struct BookIdentity {
  std::string title;    // UTF-8
  uint32_t number = 0;  // 0: made from the title
};

// Where a book's text begins.
inline constexpr uint32_t kFirstBlock = 1;

// Writes all files of the book into `folder`, which the caller then puts in place. Entries are read three
// times, so that no more than their places and words is held: for the words, for the places, for the text.
// Throws Failure. False when `progress` was cancelled.
bool compileBook(const BookSource& source, const BookIdentity& identity, const Unifont& font,
                 BookFolder& folder, mkdict::Progress& progress, mkdict::Summary* summary);

// The number that a title stands for, the same each time, above those that publishers have.
uint32_t identityOf(const std::string& title);

}  // namespace zavel::mkbook

#endif
