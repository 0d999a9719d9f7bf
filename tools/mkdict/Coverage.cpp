// Tests: tests/mkdict/CoverageTest.cpp.
#include "mkdict/Coverage.h"

#include <algorithm>
#include <unordered_set>

#include "engine/ChangeMidasi.h"

namespace zavel::mkdict {

Coverage Coverage::measure(size_t most, const WordNet& wordNet,
                           const std::vector<EnglishEntries::Item>& items, const KatuRecords& katu,
                           const std::vector<DerivedForm>& derived) {
  std::unordered_set<std::string> translated, derivedKeys;
  for (const EnglishEntries::Item& item : items) {
    if (!item.draft.senses.empty()) translated.insert(item.key);
  }
  for (const DerivedForm& form : derived) derivedKeys.insert(engine::ChangeMidasiStrE(form.form));

  std::vector<const WordNet::Lemma*> lemmas;
  for (const WordNet::Lemma& lemma : wordNet.lemmas()) {
    const bool digit = lemma.text.find_first_of("0123456789") != std::string::npos;
    if (lemma.allUses() > 0 && !digit) lemmas.push_back(&lemma);
  }
  std::sort(lemmas.begin(), lemmas.end(), [](const WordNet::Lemma* a, const WordNet::Lemma* b) {
    return a->allUses() != b->allUses() ? a->allUses() > b->allUses() : a->text < b->text;
  });
  if (lemmas.size() > most) lemmas.resize(most);

  Coverage out;
  out.asked = lemmas.size();
  for (const WordNet::Lemma* lemma : lemmas) {
    const std::string key = engine::ChangeMidasiStrE(lemma->text);
    const std::vector<std::string> bases = katu.basesOf(key);
    if (translated.contains(key)) {
      ++out.itself;
    } else if (std::any_of(bases.begin(), bases.end(),
                           [&](const std::string& base) { return translated.contains(base); })) {
      ++out.byBase;
    } else if (derivedKeys.contains(key)) {
      ++out.derived;
    } else {
      out.gaps.push_back(lemma->text);
    }
  }
  return out;
}

}  // namespace zavel::mkdict
