// Tests: tests/zavel/book/BookQueryTest.cpp
#include "book/BookQuery.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "book/BookQueryReader.h"

namespace zavel::host {

std::unique_ptr<BookQuery> readQuery(std::string_view text, BookMethod method, std::string* wrong) {
  return BookQueryReader(text, method).read(wrong);
}

// Groups are 200 deep at most, but a long row of words leans as deep to the left as it is long: that side is
// walked down, not called down.
BookHits runQuery(BookSearch& search, const BookQuery& query) {
  std::vector<const BookQuery*> row;
  const BookQuery* leftmost = &query;
  for (; leftmost->left; leftmost = leftmost->left.get()) row.push_back(leftmost);
  BookHits all = leftmost->kind == BookQuery::Kind::kForm ? search.findForm(leftmost->form, leftmost->keys)
                                                          : search.find(leftmost->method, leftmost->word);
  for (; !row.empty() && !all.failure && all.available; row.pop_back()) {
    BookHits other = runQuery(search, *row.back()->right);
    std::vector<BookHit> both;
    if (row.back()->kind == BookQuery::Kind::kAnd) {
      std::set_intersection(all.hits.begin(), all.hits.end(), other.hits.begin(), other.hits.end(),
                            std::back_inserter(both));
    } else {
      std::set_union(all.hits.begin(), all.hits.end(), other.hits.begin(), other.hits.end(),
                     std::back_inserter(both));
    }
    all.hits = std::move(both);
    all.unknown += other.unknown;
    all.failure = std::move(other.failure);
    all.available = other.available;
  }
  if (!all.hits.empty()) all.unknown.clear();
  return all;
}

}  // namespace zavel::host
