// Queries of several words: what stands between them, and which entries they mean together.
#ifndef ZAVEL_BOOK_BOOKQUERY_H
#define ZAVEL_BOOK_BOOKQUERY_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookSearch.h"

namespace zavel::host {

// As a person types one:
//   domestic dog               one word of two
//   dog and cat, dog ◇ cat     both; "or" and │: either; from left to right
//   (dog or cat) and tooth     groups, also in ⊂ and ⊃
//   dog*, *dog                 beginning and end
//   ◆dog □dog ■dog △dog ▲dog   exactly, beginning, end, cross, keyword; else as the search is asked for
//   "rock and roll"            a word that holds such words or signs
//   ▽０▼０dog▼１noun            fields of a form, each counted from 0
struct BookQuery {
  enum class Kind { kWord, kForm, kAnd, kOr };

  Kind kind = Kind::kWord;
  BookMethod method = BookMethod::kExact;  // of a word
  std::string word;
  unsigned form = 0;
  std::vector<FieldKey> keys;              // of a form
  std::unique_ptr<BookQuery> left, right;  // of "and" and "or"
};

// Null with `wrong` telling why, as a message goes on: "it ends behind \"and\"".
std::unique_ptr<BookQuery> readQuery(std::string_view text, BookMethod method, std::string* wrong);

// The entries that a query means. The engine is asked for each word; and, or and groups are made of its
// answers here: its own way of combining takes a word without entries for an error, or passes over it.
BookHits runQuery(BookSearch& search, const BookQuery& query);

}  // namespace zavel::host

#endif
