// Tests: tests/zavel/book/BookSearchTest.cpp
#include "book/BookSearcher.h"

#include <algorithm>
#include <cstdio>

#include "QueryText.h"
#include "Utf8.h"
#include "book/BookFailure.h"

namespace zavel::host {
namespace {

constexpr size_t kMostCharacters = 255;  // of a word; a query may hold many words
constexpr size_t kSuggestions = 5;
constexpr size_t kLongestEcho = 60;  // bytes of a query in a message

std::string echo(std::string_view query) {
  std::string start = printable(beginning(query, kLongestEcho));
  std::replace(start.begin(), start.end(), '\n', ' ');
  return query.size() <= kLongestEcho ? start : start + "...";
}

bool hasTooManyCharacters(std::string_view word) {
  return std::count_if(word.begin(), word.end(), [](char c) { return (c & 0xC0) != 0x80; }) >
         static_cast<std::ptrdiff_t>(kMostCharacters);
}

Failure tooLongWord() {
  return {kExitUsage, "too_long", "the word is too long: no entry has more than 255 characters",
          "Search for a part of it."};
}

bool isSeveral(const std::string& characters) {
  char32_t first = 0;
  return decodeUtf8(characters, &first) != characters.size();
}

}  // namespace

BookSearcher::BookSearcher(const BookOptions& options, bool batch)
    : options_(options),
      batch_(batch),
      method_(methodOf(options.method)),
      screen_(options, !batch && !options.json && !options.plain) {}

Failure BookSearcher::open() {
  std::vector<BookPlace> places;
  if (const Failure failure = chooseBooks(options_.books, &places)) return failure;
  for (const BookPlace& place : places) {
    auto book = std::make_unique<ShelvedBook>();
    const Failure failure = book->open(place);
    if (!failure) {
      books_.push_back(std::move(book));
      continue;
    }
    lost_.push_back({place.name, place.name, {}, 0, true, failure});
    if (places.size() == 1) return failure;
    complain(failure);
  }
  return books_.empty() ? lost_.front().failure : Failure();
}

void BookSearcher::answer(std::string_view query, bool tooLong) {
  std::string blanks(query);
  std::replace(blanks.begin(), blanks.end(), '\t', ' ');
  const std::string word(withoutOuterBlanks(blanks));
  Failure failure;
  std::unique_ptr<BookQuery> parsed;
  if (tooLong || (!options_.query && hasTooManyCharacters(word))) {
    failure = tooLongWord();
  } else if (!isUtf8(word)) {
    failure = {kExitUsage, "not_text", "the word is not UTF-8 text", "Write it in UTF-8."};
  } else if (options_.query && !word.empty()) {
    std::string wrong;
    parsed = readQuery(word, method_.value_or(BookMethod::kExact), &wrong);
    if (!parsed) {
      failure = {kExitUsage, "bad_query", "the query can't be read: " + wrong,
                 "See how queries are written: zavel help book search"};
    }
  }
  if (!failure) {
    const BookAnswer answer = ask(word, parsed.get());
    if (answer.unavailable()) {
      failure = {kExitNothing, "not_available",
                 options_.query ? "no book here can answer this query"
                                : "no book here has an index for --method " + answer.method,
                 "See what a book can be asked for: zavel book info BOOK"};
    } else {
      show(answer);
    }
  }
  if (failure) refuse(word, failure);
  ++answered_;
}

// Searches of two books must not interleave, and a later one forgets the hits of the one ahead of it: each
// book is done with before the next.
BookAnswer BookSearcher::ask(const std::string& word, const BookQuery* query) {
  BookAnswer answer{
      word, options_.query ? "query" : methodName(method_.value_or(BookMethod::kExact)), {}, {}, ""};
  bool known = false;
  for (const std::unique_ptr<ShelvedBook>& book : books_) {
    BookHits hits = word.empty() ? BookHits() : search(*book, word, query);
    if (!hits.failure) hits.failure = book->incomplete();
    answer.parts.push_back(answerPart(*book, hits, static_cast<size_t>(options_.limit)));
    if (hits.failure) complain(hits.failure);
    known = known || hits.unknown.empty();
    answer.unknown = hits.unknown;
  }
  if (known) answer.unknown.clear();
  answer.parts.insert(answer.parts.end(), lost_.begin(), lost_.end());
  const bool alone = !method_ && !options_.query && !batch_ && !word.empty();
  if (alone && !answer.found()) suggest(word, &answer);
  return answer;
}

BookHits BookSearcher::search(ShelvedBook& book, const std::string& word, const BookQuery* query) const {
  BookSearch search(book);
  return query ? runQuery(search, *query) : search.find(method_.value_or(BookMethod::kExact), word);
}

// Headwords that begin with the word, each once, those of the first books first.
void BookSearcher::suggest(const std::string& word, BookAnswer* answer) {
  for (const std::unique_ptr<ShelvedBook>& book : books_) {
    BookSearch search(*book);
    for (const BookHit& hit : search.find(BookMethod::kForward, word).hits) {
      if (answer->suggestions.size() == kSuggestions) return;
      std::string headword = search.headword(hit);
      const bool known = std::find(answer->suggestions.begin(), answer->suggestions.end(), headword) !=
                         answer->suggestions.end();
      if (!headword.empty() && !known) answer->suggestions.push_back(std::move(headword));
    }
  }
}

void BookSearcher::show(const BookAnswer& answer) {
  const bool found = answer.found();
  if (const Failure failure = answer.failure()) {
    someFailed_ = true;
    allFailed_ = allFailed_ || answer.allFailed();
    lastFailure_ = failure.status;
  }
  if (options_.json) {
    screen_.write(answerJson(answer) + "\n");
  } else if (options_.plain) {
    screen_.write(answerRecords(answer));
  } else if (found) {
    if (answered_ > 0) screen_.write("\n");
    if (batch_ || options_.words.size() > 1)
      screen_.write(screen_.bold(printable(answer.query) + ":") + "\n");
    screen_.write(answerText(answer, screen_));
  }
  if (batch_) std::fflush(stdout);
  if (found) {
    ++found_;
  } else if (answer.query.empty() && batch_) {
    if (!options_.json) screen_.write("\n");
  } else if (!options_.json) {
    tellNotFound(answer);
  }
}

void BookSearcher::tellNotFound(const BookAnswer& answer) const {
  std::fflush(stdout);
  std::string line = "no entry for \"" + echo(answer.query) + "\" in " + whichBooks();
  if (!answer.unknown.empty()) {
    line += std::string(": ") + (isSeveral(answer.unknown) ? "its characters " : "its character ") +
            echo(answer.unknown) + (books_.size() == 1 ? " is none of the book's" : " is in none of them");
  }
  std::fprintf(stderr, "zavel: %s\n", line.c_str());
  std::string near;
  for (const std::string& word : answer.suggestions) near += (near.empty() ? "" : ", ") + word;
  if (!near.empty()) std::fprintf(stderr, "Headwords that begin so: %s\n", near.c_str());
}

std::string BookSearcher::whichBooks() const {
  return books_.size() == 1 ? "the book " + quoted(books_.front()->name())
                            : "the " + std::to_string(books_.size()) + " books";
}

void BookSearcher::refuse(std::string_view query, const Failure& failure) {
  ++refused_;
  lastFailure_ = failure.status;
  if (options_.json) {
    screen_.write(failureJson(failure) + "\n");
    if (batch_) std::fflush(stdout);
    return;
  }
  std::fflush(stdout);
  std::fprintf(stderr, "zavel: \"%s\": %s\n%s\n", echo(query).c_str(), failure.message.c_str(),
               failure.hint.c_str());
}

// Once for many words that fail alike.
void BookSearcher::complain(const Failure& failure) {
  if (std::find(complaints_.begin(), complaints_.end(), failure.message) != complaints_.end()) return;
  complaints_.push_back(failure.message);
  warn(failure.message + ". " + failure.hint);
}

int BookSearcher::status() const {
  if (answered_ == 1 && (refused_ == 1 || allFailed_)) return lastFailure_;
  if (refused_ > 0 || someFailed_) return kExitPartly;
  return found_ > 0 ? kExitFound : kExitNothing;
}

}  // namespace zavel::host
