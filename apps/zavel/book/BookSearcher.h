// Answers one search after the other in all chosen books.
#ifndef ZAVEL_BOOK_BOOKSEARCHER_H
#define ZAVEL_BOOK_BOOKSEARCHER_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookAnswer.h"
#include "book/BookOptions.h"
#include "book/BookQuery.h"

namespace zavel::host {

class BookSearcher {
 public:
  // `batch`: words come from standard input too, so that each answer is for a program rather than for
  // reading.
  BookSearcher(const BookOptions& options, bool batch);

  // Books that can't be opened are named on standard error and left out of the searches.
  Failure open();

  void answer(std::string_view query, bool tooLong);
  void finish() { screen_.finish(); }

  // Of all answers together.
  int status() const;

 private:
  BookAnswer ask(const std::string& word, const BookQuery* query);
  BookHits search(ShelvedBook& book, const std::string& word, const BookQuery* query) const;
  void suggest(const std::string& word, BookAnswer* answer);
  void show(const BookAnswer& answer);
  void tellNotFound(const BookAnswer& answer) const;
  void refuse(std::string_view query, const Failure& failure);
  void complain(const Failure& failure);
  std::string whichBooks() const;

  const BookOptions& options_;
  const bool batch_;
  const std::optional<BookMethod> method_;
  BookScreen screen_;
  std::vector<std::unique_ptr<ShelvedBook>> books_;
  std::vector<BookAnswer::Part> lost_;  // books that can't be opened
  std::vector<std::string> complaints_;
  size_t answered_ = 0, found_ = 0, refused_ = 0;
  bool someFailed_ = false, allFailed_ = false;
  int lastFailure_ = kExitFound;
};

}  // namespace zavel::host

#endif
