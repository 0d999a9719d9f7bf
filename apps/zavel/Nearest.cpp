// Tests: tests/zavel/NearestTest.cpp
#include "Nearest.h"

#include <algorithm>
#include <cstddef>

namespace zavel::host {
namespace {

// Slips between two words, row by row of the usual table: row i holds the slips between the first i letters
// of `a` and each beginning of `b`.
size_t slips(const std::string& a, const std::string& b) {
  std::vector<std::vector<size_t>> table(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) {
    for (size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        table[i][j] = i + j;
        continue;
      }
      const size_t changed = table[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      table[i][j] = std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, changed});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
    }
  }
  return table[a.size()][b.size()];
}

}  // namespace

std::string nearest(const std::string& word, const std::vector<std::string>& known) {
  constexpr size_t kLongestWord = 64;  // no command comes near it
  std::string found;
  size_t fewest = 0;
  if (word.size() < 2 || word.size() > kLongestWord) return found;
  for (const std::string& candidate : known) {
    const size_t count = candidate.starts_with(word) ? 0 : slips(word, candidate);
    if (count * 3 > std::max(word.size(), candidate.size())) continue;
    if (!found.empty() && count >= fewest) continue;
    found = candidate;
    fewest = count;
  }
  return found;
}

}  // namespace zavel::host
