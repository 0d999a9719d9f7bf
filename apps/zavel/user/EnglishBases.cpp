// Tests: tests/zavel/user/UserLookTest.cpp
#include "user/EnglishBases.h"

#include <string_view>

namespace zavel::host {
namespace {

using Ways = std::vector<InflectedFrom::Way>;

struct Ending {
  std::string_view ending;
  std::string_view with;  // what stands in its place in the base
  Ways ways;
  bool doubles;  // the consonant ahead of it may be doubled
};

const std::vector<Ending>& endings() {
  static const Ways kS = {{kNounForms, "plural"}, {kVerbForms, "third person singular"}};
  static const Ways kEd = {{kVerbForms, "past"}, {kVerbForms, "past participle"}};
  static const Ways kIng = {{kVerbForms, "progressive"}};
  static const Ways kEr = {{kAdjectiveForms, "comparative"}};
  static const Ways kEst = {{kAdjectiveForms, "superlative"}};
  static const std::vector<Ending> kEndings = {
      {"ies", "y", kS, false},  {"es", "", kS, false},    {"s", "", kS, false},    {"ied", "y", kEd, false},
      {"ed", "", kEd, true},    {"ed", "e", kEd, false},  {"ing", "", kIng, true}, {"ing", "e", kIng, false},
      {"ier", "y", kEr, false}, {"er", "", kEr, true},    {"er", "e", kEr, false}, {"iest", "y", kEst, false},
      {"est", "", kEst, true},  {"est", "e", kEst, false}};
  return kEndings;
}

bool endsInDouble(const std::string& stem) {
  const size_t size = stem.size();
  return size > 2 && stem[size - 1] == stem[size - 2];
}

}  // namespace

std::vector<InflectedFrom> regularBases(const std::string& word) {
  std::vector<InflectedFrom> bases;
  for (const Ending& ending : endings()) {
    if (word.size() < ending.ending.size() + 2 || !word.ends_with(ending.ending)) continue;
    const std::string stem = word.substr(0, word.size() - ending.ending.size());
    bases.push_back({stem + std::string(ending.with), ending.ways});
    if (ending.doubles && endsInDouble(stem)) bases.push_back({stem.substr(0, stem.size() - 1), ending.ways});
  }
  return bases;
}

}  // namespace zavel::host
