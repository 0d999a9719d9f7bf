// Searches of one book by words and methods.
#ifndef ZAVEL_BOOK_BOOKSEARCH_H
#define ZAVEL_BOOK_BOOKSEARCH_H

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Failure.h"
#include "book/ShelvedBook.h"

namespace zavel::host {

enum class BookMethod { kExact, kForward, kBackward, kKeyword, kCross };

// "exact" and so on.
const char* methodName(BookMethod method);
std::optional<BookMethod> methodOf(std::string_view name);

struct BookHit {
  _SDICADDRESS body = {};
  _SDICADDRESS headword = {};

  // The order of a book's text. Hits of one body are one hit.
  bool operator<(const BookHit& other) const {
    return std::pair(body.block, body.offset) < std::pair(other.body.block, other.body.offset);
  }
};

// What a search gave in one book.
struct BookHits {
  std::vector<BookHit> hits;  // in the order of the book's text
  bool available = true;      // the book has an index for it
  std::string unknown;        // characters that the book can't write, where that is why nothing was found
  Failure failure;
};

// A field of a form with the key that it must have.
using FieldKey = std::pair<unsigned, std::string>;

class BookSearch {
 public:
  // The book is borrowed.
  explicit BookSearch(ShelvedBook& book) : book_(book) {}

  // The entries of a word (UTF-8): of the first of its spellings that has any. By keywords and across texts,
  // where each word stands for itself, those that have all words.
  BookHits find(BookMethod method, std::string_view word);

  // The entries of a form, by number from 0, whose fields (from 0) have all these keys.
  BookHits findForm(unsigned form, const std::vector<FieldKey>& keys);

  // The entries that such a query of the engine's finds.
  BookHits run(const std::string& query);

  // UTF-8, one line; empty when it can't be read.
  std::string headword(const BookHit& hit);
  std::string headwordAt(const _SDICADDRESS& address);

 private:
  BookHits findWord(BookMethod method, std::string_view word);
  bool nextCombination(std::vector<size_t>* choice, const std::vector<std::vector<std::string>>& spellings);

  ShelvedBook& book_;
};

}  // namespace zavel::host

#endif
