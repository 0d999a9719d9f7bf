// Tests: tests/mkdict/CountableTest.cpp.
#include "mkdict/Countable.h"

#include <algorithm>

#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

constexpr uint32_t kOften = 40;         // uses of a noun from which an unused plural tells something
constexpr uint32_t kBeyondTheVerb = 3;  // uses of a form that rule out that all are the verb's
constexpr uint32_t kSlip = 150;         // one plural in so many uses is a slip or a rare sense: "advices"

}  // namespace

bool isCountable(std::string_view noun, const Forms& plurals, const WordNet& wordNet,
                 const Attested& attested, const Inflection& inflection) {
  if (plurals.empty()) return false;
  const std::string word = lowerCase(noun);
  if (!inflection.listed(WordNet::kNoun, word).empty()) return true;
  uint32_t used = 0;
  for (const std::string& plural : plurals) used = std::max(used, attested.count(lowerCase(plural)));
  const WordNet::Lemma* lemma = wordNet.lemma(word);
  if (lemma == nullptr || !lemma->is(WordNet::kNoun)) return used > 0;
  if (std::find(plurals.begin(), plurals.end(), word) != plurals.end()) return true;  // "sheep"

  const auto [living, things, mixed, masses] = lemma->kinds;
  if (living + things > mixed && living + things > masses) {
    return living > things || used > 0 || attested.count(word) < kOften;
  }
  if (used * kSlip < attested.count(word)) return false;
  return used >= (lemma->is(WordNet::kVerb) ? kBeyondTheVerb : 1);
}

}  // namespace zavel::mkdict
