// Tests: tests/zavel/book/BookSearchTest.cpp
#include "book/BookSearch.h"

#include <algorithm>
#include <cstdlib>

#include "book/BookFailure.h"
#include "book/BookFormat.h"
#include "book/BookKeys.h"
#include "book/BookStatus.h"
#include "book/BookText.h"
#include "book/SDic.h"

namespace zavel::host {
namespace {

struct MethodRow {
  BookMethod method;
  const char* name;
  uint16_t token;
};

constexpr MethodRow kMethods[] = {{BookMethod::kExact, "exact", book::kTokenExact},
                                  {BookMethod::kForward, "forward", book::kTokenForward},
                                  {BookMethod::kBackward, "backward", book::kTokenBackward},
                                  {BookMethod::kKeyword, "keyword", book::kTokenKeyword},
                                  {BookMethod::kCross, "cross", book::kTokenCross}};

const MethodRow& rowOf(BookMethod method) {
  return *std::find_if(std::begin(kMethods), std::end(kMethods),
                       [method](const MethodRow& row) { return row.method == method; });
}

// As much of a key as a search takes in. Of an end the last characters count.
std::string cut(const std::string& codes, BookMethod method) {
  constexpr size_t kMost = 2 * kLongestKey;
  if (codes.size() <= kMost) return codes;
  return method == BookMethod::kBackward ? codes.substr(codes.size() - kMost) : codes.substr(0, kMost);
}

std::vector<std::string_view> wordsBetweenBlanks(std::string_view text) {
  constexpr std::string_view kWideBlank = "\u3000";
  std::vector<std::string_view> words;
  for (size_t from = 0; from < text.size();) {
    const size_t end = std::min({text.find(' ', from), text.find(kWideBlank, from), text.size()});
    if (end > from) words.push_back(text.substr(from, end - from));
    from = end + (text.substr(end).starts_with(kWideBlank) ? kWideBlank.size() : 1);
  }
  return words;
}

}  // namespace

const char* methodName(BookMethod method) {
  return rowOf(method).name;
}

std::optional<BookMethod> methodOf(std::string_view name) {
  for (const MethodRow& row : kMethods) {
    if (name == row.name) return row.method;
  }
  return std::nullopt;
}

// Keywords of several words are filed whole, those that texts consist of one by one.
BookHits BookSearch::find(BookMethod method, std::string_view word) {
  BookHits found = findWord(method, word);
  const std::vector<std::string_view> words = wordsBetweenBlanks(word);
  const bool each = method == BookMethod::kKeyword || method == BookMethod::kCross;
  if (!each || words.size() < 2 || found.failure || !found.available || !found.hits.empty()) return found;
  found = findWord(method, words[0]);
  for (size_t i = 1; i < words.size() && !found.failure && !found.hits.empty(); ++i) {
    BookHits next = findWord(method, words[i]);
    std::erase_if(next.hits, [&found](const BookHit& hit) {
      return !std::binary_search(found.hits.begin(), found.hits.end(), hit);
    });
    found = std::move(next);
  }
  return found;
}

BookHits BookSearch::findWord(BookMethod method, std::string_view word) {
  BookHits found;
  for (const std::string& codes : keySpellings(word, book_.characters(), false, &found.unknown)) {
    std::string query;
    appendCode(&query, rowOf(method).token);
    found = run(query + cut(codes, method));
    if (found.failure || !found.available || !found.hits.empty()) break;
  }
  return found;
}

BookHits BookSearch::findForm(unsigned form, const std::vector<FieldKey>& keys) {
  BookHits found;
  std::vector<std::vector<std::string>> spellings;
  for (const auto& [field, key] : keys) {
    spellings.push_back(keySpellings(key, book_.characters(), true, &found.unknown));
    if (spellings.back().empty()) return found;
  }
  std::vector<size_t> choice(keys.size(), 0);
  do {
    std::string query;
    appendCode(&query, book::kTokenMulti);
    appendCode(&query, book::kTokenZero + form);
    for (size_t i = 0; i < keys.size(); ++i) {
      appendCode(&query, book::kTokenField);
      appendCode(&query, book::kTokenZero + keys[i].first);
      query += cut(spellings[i][choice[i]], BookMethod::kExact);
    }
    found = run(query);
  } while (!found.failure && found.available && found.hits.empty() && nextCombination(&choice, spellings));
  return found;
}

bool BookSearch::nextCombination(std::vector<size_t>* choice,
                                 const std::vector<std::vector<std::string>>& spellings) {
  for (size_t i = 0; i < choice->size(); ++i) {
    if (++(*choice)[i] < spellings[i].size()) return true;
    (*choice)[i] = 0;
  }
  return false;
}

// The engine answers a key that has nothing to search by, and an intersection without a common entry, as it
// answers a malformed query; those from here are well formed.
BookHits BookSearch::run(const std::string& query) {
  BookHits found;
  long count = 0, first = 0;
  const uint32_t code = SDicExecIndexSearch(book_.handle(), query.c_str(), false, false, &count, &first);
  found.available = code != book::kNotAvailable;
  if (code == book::kBadKey || code == book::kNotAvailable) return found;
  found.failure = bookFailure(code, book_.name(), "the search");
  if (found.failure) return found;
  for (long i = 0; i < count; ++i) {
    _SDICITEMADDRESS hit = {};
    if (SDicGetSearchResult(book_.handle(), static_cast<unsigned long>(i), &hit) == book::kDone)
      found.hits.push_back({hit.body, hit.headword});
  }
  return found;
}

// Some indexes don't tell where the headword stands.
std::string BookSearch::headword(const BookHit& hit) {
  return headwordAt(hit.headword.block == 0 ? hit.body : hit.headword);
}

std::string BookSearch::headwordAt(const _SDICADDRESS& address) {
  char* text = nullptr;
  uint16_t length = 0;
  if (SDicGetHeadword(book_.handle(), &address, &text, &length, true) != book::kDone) return {};
  const std::string words(text, length >= 2 ? length - 2u : 0);
  std::free(text);
  return oneLine(decodeText(words, book_.characters(), address));
}

}  // namespace zavel::host
