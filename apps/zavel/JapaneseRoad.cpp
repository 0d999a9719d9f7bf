// Tests: tests/zavel/LookTest.cpp, LookRealTest.cpp
#include "JapaneseRoad.h"

#include <algorithm>
#include <iterator>

#include "WordBytes.h"

namespace zavel::host {
namespace {

// 0 written as the query, 1 in the other kana, 2 filed with it by the index, which passes over "ー".
int rankOf(const Entry& entry, const std::string& word) {
  return std::min(kanaDistance(entry.headword, word), kanaDistance(entry.reading, word));
}

}  // namespace

void JapaneseRoad::run(const std::string& word, LookResult* result) {
  if (request_.wantEntries) addEntries(word, result);
  if (!request_.wantHeadwords) return;
  result->headwords =
      request_.wantEntries ? source_.headwords(word, false) : source_.allHeadwords(word, false);
}

void JapaneseRoad::addEntries(const std::string& word, LookResult* result) {
  const std::string shown = shownText(word);
  Fetched fetched = source_.fetch(word, false, request_.mode, false);
  if (fetched.lacksPart) result->lacksPart = true;
  for (Entry& entry : fetched.entries) {
    entry.match = rankOf(entry, shown) < 2 ? Match::kExact : Match::kNear;
    entry.base = shown;
  }
  std::stable_sort(fetched.entries.begin(), fetched.entries.end(),
                   [&](const Entry& a, const Entry& b) { return rankOf(a, shown) < rankOf(b, shown); });
  result->entries = std::move(fetched.entries);
  addBases(shown, result);
  // What is only filed alike stands behind what is meant.
  std::stable_partition(result->entries.begin(), result->entries.end(),
                        [](const Entry& entry) { return entry.match != Match::kNear; });
  if (!result->entries.empty()) result->lacksPart = false;
}

// The words that `shown` is a form of. One that is a word itself, as it is written, is taken for a form of
// others only where its ending leaves little doubt; へんな is 変な, though there is ヘンナ as well.
void JapaneseRoad::addBases(const std::string& shown, LookResult* result) {
  const bool own = std::any_of(result->entries.begin(), result->entries.end(),
                               [&shown](const Entry& entry) { return rankOf(entry, shown) == 0; });
  for (const BaseForm& base : baseFormsOf(shown, own)) {
    std::vector<Entry> entries = entriesOfBase(base, result);
    if (!entries.empty() && !own && result->origin == result->query) result->origin = base.word;
    std::move(entries.begin(), entries.end(), std::back_inserter(result->entries));
  }
}

std::vector<Entry> JapaneseRoad::entriesOfBase(const BaseForm& base, LookResult* result) {
  const std::optional<std::string> word = wordBytes(base.word);
  // A look at the index is cheap, laying entries out is not.
  if (!word || !source_.has(*word, false)) return {};
  Fetched fetched = source_.fetch(*word, false, request_.mode, true);
  std::vector<Entry> entries;
  for (Entry& entry : fetched.entries) {
    if (rankOf(entry, base.word) == 2 || !inflectsSo(base, entry.labels)) continue;
    entry.match = Match::kInflected;
    entry.via = base.reasons;
    entry.base = base.word;
    entries.push_back(std::move(entry));
  }
  if (fetched.lacksPart && result->entries.empty()) result->lacksPart = true;
  return entries;
}

}  // namespace zavel::host
