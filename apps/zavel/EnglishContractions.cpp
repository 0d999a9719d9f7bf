// Tests: tests/zavel/EnglishContractionsTest.cpp
#include "EnglishContractions.h"

#include <algorithm>

namespace zavel::host {
namespace {

struct Whole {
  std::string_view typed, word, reason;
};

// Those whose first part is not what stands ahead of the ending.
constexpr Whole kIrregular[] = {
    {"can't", "can", "contraction with not"},
    {"won't", "will", "contraction with not"},
    {"shan't", "shall", "contraction with not"},
    {"ain't", "be", "contraction with not"},
    {"let's", "let", "contraction with us"},
    {"y'all", "you", "contraction with all"},
    {"o'er", "over", "short form"},
    {"'tis", "it", "contraction with is"},
    {"'em", "them", "short form"},
    {"ma'am", "madam", "short form"},
};

struct Ending {
  std::string_view ending, reason;
};

constexpr Ending kEndings[] = {
    {"n't", "contraction with not"},
    {"'m", "contraction with am"},
    {"'re", "contraction with are"},
    {"'ve", "contraction with have"},
    {"'ll", "contraction with will"},
    {"'d", "contraction with had or would"},
    {"'s", "possessive"},
};

// Behind these an 's is a verb; behind other words it is mostly the possessive.
constexpr std::string_view kPronouns[] = {"he",  "she",   "it",   "that", "there", "here",
                                          "who", "where", "what", "when", "how",   "why"};

bool isPronoun(std::string_view word) {
  return std::find(std::begin(kPronouns), std::end(kPronouns), word) != std::end(kPronouns);
}

std::string lowered(std::string_view word) {
  std::string out(word);
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

}  // namespace

std::vector<Contraction> contractionsOf(std::string_view word) {
  if (word.find('\'') == std::string_view::npos) return {};
  const std::string typed = lowered(word);
  for (const Whole& row : kIrregular) {
    if (row.typed == typed) return {{std::string(row.word), std::string(row.reason)}};
  }
  if (typed.ends_with("s'") && typed.size() > 2) {
    return {{std::string(word.substr(0, word.size() - 1)), "possessive"}};
  }
  for (const Ending& row : kEndings) {
    if (!typed.ends_with(row.ending) || typed.size() == row.ending.size()) continue;
    const size_t length = word.size() - row.ending.size();
    const std::string base(word.substr(0, length));
    if (row.ending == "'s" && isPronoun(typed.substr(0, length))) {
      return {{base, "contraction with is or has"}};
    }
    return {{base, std::string(row.reason)}};
  }
  return {};
}

}  // namespace zavel::host
