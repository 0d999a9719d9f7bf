// Tests: tests/mkdict/DerivedFormsTest.cpp.
#include "mkdict/DerivedForms.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "engine/ChangeMidasi.h"
#include "engine/MidasiCheck.h"
#include "mkdict/PartsOfSpeech.h"
#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kCommonStart = 4;  // letters that a word and its base must share
constexpr size_t kShortestBase = 3;
constexpr std::optional<WordNet::Pos> kAnyPos;

struct Suffix {
  std::string_view ending, replacement;
  WordNet::Pos pos;  // of the base
};

constexpr std::array<Suffix, 40> kSuffixes = {{
    {"ically", "ic", WordNet::kAdjective},
    {"ally", "al", WordNet::kAdjective},
    {"ily", "y", WordNet::kAdjective},
    {"bly", "ble", WordNet::kAdjective},
    {"ply", "ple", WordNet::kAdjective},
    {"tly", "tle", WordNet::kAdjective},
    {"ully", "ull", WordNet::kAdjective},
    {"uly", "ue", WordNet::kAdjective},
    {"ly", "", WordNet::kAdjective},
    {"iness", "y", WordNet::kAdjective},
    {"ness", "", WordNet::kAdjective},
    {"iable", "y", WordNet::kVerb},
    {"able", "", WordNet::kVerb},
    {"able", "e", WordNet::kVerb},
    {"ier", "y", WordNet::kVerb},
    {"er", "", WordNet::kVerb},
    {"er", "e", WordNet::kVerb},
    {"or", "", WordNet::kVerb},
    {"or", "e", WordNet::kVerb},
    {"ment", "", WordNet::kVerb},
    {"less", "", WordNet::kNoun},
    {"ful", "", WordNet::kNoun},
    {"ish", "", WordNet::kNoun},
    {"ish", "e", WordNet::kNoun},
    {"ism", "", WordNet::kNoun},
    {"ism", "", WordNet::kAdjective},
    {"ist", "", WordNet::kNoun},
    {"ist", "", WordNet::kAdjective},
    {"ist", "y", WordNet::kNoun},
    {"ability", "able", WordNet::kAdjective},
    {"ibility", "ible", WordNet::kAdjective},
    {"ity", "", WordNet::kAdjective},
    {"ity", "e", WordNet::kAdjective},
    {"ization", "ize", WordNet::kVerb},
    {"isation", "ise", WordNet::kVerb},
    {"ation", "ate", WordNet::kVerb},
    {"ation", "e", WordNet::kVerb},
    {"ation", "", WordNet::kVerb},
    {"ize", "", WordNet::kNoun},
    {"ize", "", WordNet::kAdjective},
}};

// Words of grammar, which WordNet does not have.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kGrammar = {
    {{"towards", "toward"}, {"whom", "who"}}};

// "monish" is not of "Mon", "lutist" not of "LUT" and "nanism" not of "nan": a suffix alone leads to no
// abbreviation and to no short name, and a creed is seldom named after three letters.
bool mayTakeSuffix(std::string_view base, std::string_view headword, std::string_view word) {
  if (isMixed(headword)) return false;
  if (base.size() > kShortestBase) return true;
  return !hasCapital(headword) && !word.ends_with("ism");
}

bool beginAlike(std::string_view a, std::string_view b) {
  const size_t need = std::min({kCommonStart, a.size(), b.size()});
  return need >= 3 && a.substr(0, need) == b.substr(0, need);
}

}  // namespace

DerivedForms::DerivedForms(const WordNet& wordNet, const KatuRecords& katu,
                           const std::vector<EnglishEntries::Item>& items)
    : wordNet_(wordNet), katu_(katu), items_(items) {
  for (size_t i = 0; i < items.size(); ++i) byKey_[items[i].key].push_back(i);
}

std::vector<DerivedForms::Guess> DerivedForms::guesses(std::string_view word) {
  std::vector<Guess> out;
  for (const Suffix& suffix : kSuffixes) {
    const size_t left = word.size() - std::min(word.size(), suffix.ending.size());
    if (!word.ends_with(suffix.ending) || left + suffix.replacement.size() < kShortestBase || left == 0)
      continue;
    const std::string_view stem = word.substr(0, word.size() - suffix.ending.size());
    out.push_back({std::string(stem) + std::string(suffix.replacement), suffix.pos});
    // "swimmer", "forgettable"
    const bool doubled = suffix.replacement.empty() && suffix.pos == WordNet::kVerb && stem.size() > 3 &&
                         stem.back() == stem[stem.size() - 2] && !isVowelLetter(stem.back());
    if (doubled) out.push_back({std::string(stem.substr(0, stem.size() - 1)), suffix.pos});
  }
  return out;
}

// Entries of a base in a part of speech, or in any; those without a translation don't count.
std::vector<size_t> DerivedForms::entriesOf(const std::string& base, std::optional<WordNet::Pos> pos) const {
  std::vector<size_t> out;
  const auto found = byKey_.find(engine::ChangeMidasiStrE(base));
  if (found == byKey_.end()) return out;
  for (const size_t i : found->second) {
    const EntryDraft& draft = items_[i].draft;
    if (draft.senses.empty() || lowerCase(draft.word) != base) continue;
    if (draft.word != base && isLowerCase(base)) continue;  // "ALA" is no "ala"
    if (!pos || wordNetPos(draft.pos) == pos) out.push_back(i);
  }
  return out;
}

bool DerivedForms::isLowerCase(const std::string& base) const {
  const WordNet::Lemma* lemma = wordNet_.lemma(base);
  return lemma != nullptr && lemma->lowerCase;
}

bool DerivedForms::isFree(const std::string& word) const {
  const std::string key = engine::ChangeMidasiStrE(word);
  return engine::ChkMidasiStrE(word.c_str()) == engine::kOk && !byKey_.contains(key) && !katu_.isForm(key);
}

std::vector<size_t> DerivedForms::numeralsOf(const std::string& base) const {
  std::vector<size_t> out = entriesOf(base, kAnyPos);
  std::erase_if(out, [this](size_t i) { return items_[i].draft.pos != PartOfSpeech::kNumeral; });
  return out;
}

// "afterward" as "afterwards", "depend upon" as "depend on", "good deal" as "a good deal", "a hundred" as
// "hundred", "nineteenth" as "nineteen", "fortieth" as "forty".
std::vector<size_t> DerivedForms::sameButForALetter(const std::string& word) const {
  const auto without = [&word](size_t end) { return word.substr(0, word.size() - end); };
  if (word.ends_with("ward")) return entriesOf(word + "s", kAnyPos);
  if (word.ends_with("wards")) return entriesOf(without(1), kAnyPos);
  if (word.ends_with(" upon")) return entriesOf(without(4) + "on", kAnyPos);
  if (word.ends_with("ieth")) return numeralsOf(without(4) + "y");
  if (word.ends_with("th")) return numeralsOf(without(2));
  if (word.starts_with("a ")) return numeralsOf(word.substr(2));
  if (word.starts_with("one ")) return numeralsOf(word.substr(4));
  return word.find(' ') == std::string::npos ? std::vector<size_t>() : entriesOf("a " + word, kAnyPos);
}

std::vector<DerivedForm> DerivedForms::make() const {
  std::map<std::string, std::set<size_t>> found;
  const auto lead = [&](const WordNet::Lemma& from, const WordNet::Lemma& to) {
    if (!isPlainWord(from.text) || !isFree(from.text) || !beginAlike(from.text, to.text)) return;
    const std::vector<size_t> entries = entriesOf(to.text, kAnyPos);
    found[from.text].insert(entries.begin(), entries.end());
  };
  const std::vector<WordNet::Lemma>& lemmas = wordNet_.lemmas();
  for (const auto& [a, b] : wordNet_.derivations()) {
    lead(lemmas[a], lemmas[b]);
    lead(lemmas[b], lemmas[a]);
  }
  for (const WordNet::Lemma& lemma : lemmas) {
    if (!lemma.lowerCase || !isFree(lemma.text)) continue;
    std::set<size_t>& entries = found[lemma.text];
    const std::vector<size_t> same = sameButForALetter(lemma.text);
    entries.insert(same.begin(), same.end());
    if (!isPlainWord(lemma.text)) continue;
    for (const Guess& guess : guesses(lemma.text)) {
      if (!entries.empty()) break;
      for (const size_t i : entriesOf(guess.base, guess.pos)) {
        if (mayTakeSuffix(guess.base, items_[i].draft.word, lemma.text)) entries.insert(i);
      }
    }
  }
  for (const auto& [word, base] : kGrammar) {
    if (!isFree(std::string(word))) continue;
    const std::vector<size_t> entries = entriesOf(std::string(base), kAnyPos);
    found[std::string(word)].insert(entries.begin(), entries.end());
  }
  std::vector<DerivedForm> out;
  const auto rank = static_cast<uint32_t>(items_.size());
  for (const auto& [word, entries] : found) {
    if (entries.empty()) continue;
    const WordNet::Lemma* lemma = wordNet_.lemma(word);
    const uint32_t uses = lemma == nullptr ? 0 : std::min(lemma->allUses(), 1000u);
    out.push_back({word, {entries.begin(), entries.end()}, rank + 1000 - uses});
  }
  return out;
}

}  // namespace zavel::mkdict
