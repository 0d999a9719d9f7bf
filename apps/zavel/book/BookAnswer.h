// What books answer to one search.
#ifndef ZAVEL_BOOK_BOOKANSWER_H
#define ZAVEL_BOOK_BOOKANSWER_H

#include <string>
#include <vector>

#include "book/BookScreen.h"
#include "book/BookSearch.h"

namespace zavel::host {

struct BookAnswer {
  struct Row {
    _SDICADDRESS place = {};  // of the entry
    std::string headword;
  };
  struct Part {
    std::string name, title;
    std::vector<Row> rows;  // as many as were wanted
    size_t count = 0;       // of all entries
    bool available = true;  // the book can be searched so
    Failure failure;
  };

  std::string query;
  std::string method;  // "exact", "query", "form"
  std::vector<Part> parts;
  std::vector<std::string> suggestions;  // headwords that begin with a word that wasn't found
  std::string unknown;                   // characters that no book can write

  bool found() const;
  // Whether no book can be searched so.
  bool unavailable() const;
  // The failure that comes first; none where there is none.
  Failure failure() const;
  bool allFailed() const;
};

// Entries of one book for an answer, `limit` at most (0: all).
BookAnswer::Part answerPart(ShelvedBook& book, const BookHits& hits, size_t limit);

// For the eye: each book that found something with its entries below its title.
std::string answerText(const BookAnswer& answer, const BookScreen& screen);

// query, book, place, headword: a line each, parted by tabs.
std::string answerRecords(const BookAnswer& answer);

// One document, without a line end.
std::string answerJson(const BookAnswer& answer);

}  // namespace zavel::host

#endif
