// Tests: tests/zavel/CommandTest.cpp
#include "QueryReader.h"

#include <cstddef>
#include <cstdio>

#include "Interrupt.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestQuery = 64 * 1024;  // bytes; a word has 255 at most, the rest can only be blanks

}  // namespace

bool QueryReader::next(std::string* query, bool* tooLong) {
  query->clear();
  *tooLong = false;
  if (interrupted()) return false;
  int c = getc_unlocked(stdin);
  if (c == EOF) return false;
  for (; c != EOF && c != end_; c = getc_unlocked(stdin)) {
    if (query->size() < kLongestQuery) {
      query->push_back(static_cast<char>(c));
    } else {
      *tooLong = true;
    }
  }
  return !interrupted();
}

}  // namespace zavel::host
