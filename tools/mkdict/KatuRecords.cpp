// Tests: tests/mkdict/KatuRecordsTest.cpp.
#include "mkdict/KatuRecords.h"

#include <algorithm>
#include <array>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/KatuyoForms.h"
#include "engine/KatuyoGenkei.h"
#include "engine/KatuyoKatati.h"
#include "engine/KatuyoMidasi.h"
#include "mkdict/Spelling.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

// Form codes of the engine.
enum Code : uint8_t {
  kSingular = 1,
  kPlural,
  kPositive,
  kComparative,
  kSuperlative,
  kPresent,
  kThird,
  kPast,
  kParticiple,
  kProgressive
};

constexpr size_t kMostItems = engine::kKatuWindow - 2;  // the braces take two bytes

const std::string& label(uint8_t code) {
  static const std::array<std::string, 11> kLabels = [] {
    std::array<std::string, 11> made;
    constexpr const char* kUtf8[] = {"", "単", "複", "原", "比", "最", "現", "三", "過", "分", "進"};
    for (size_t i = 1; i < made.size(); ++i) made[i] = toShiftJis(kUtf8[i]).value();
    return made;
  }();
  return kLabels[code];
}

bool isPhrase(std::string_view word) {
  return word.find(' ') != std::string_view::npos;
}

// Gives a form the capital of its base: "Frenchman", "Frenchmen".
std::string cased(std::string form, std::string_view base) {
  if (!base.empty() && !form.empty() && base[0] >= 'A' && base[0] <= 'Z' && form[0] >= 'a') {
    form[0] = static_cast<char>(form[0] - 'a' + 'A');
  }
  return form;
}

// Capitals behind the first letter: "TV", "McJob". Their forms are left to the rules.
bool isMixed(std::string_view word) {
  return std::any_of(word.begin() + 1, word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

}  // namespace

void KatuRecords::add(const Entry& entry) {
  const std::string key = engine::ChangeMidasiStrE(entry.word);
  words_[key].entries.push_back(entry);
  groupsByKey_[key] |= engine::DscvHinsi(entry.text, engine::kHinsiAll);
}

// The base that the engine finds for a word without a record of its own; empty when it finds none.
std::string KatuRecords::reachedFrom(const std::string& key) const {
  const auto own = groupsByKey_.find(key);
  if (own != groupsByKey_.end()) return own->second != 0 ? key : std::string();
  std::string candidate;
  uint8_t mask = 0;
  for (uint16_t stage = 0;
       engine::GetOriginalForm(key, &candidate, static_cast<uint16_t>(stage + 1), &stage, &mask);) {
    const auto found = groupsByKey_.find(candidate);
    if (found != groupsByKey_.end() && (found->second & mask) != 0) return candidate;
    if (stage == engine::kLastStage) break;
  }
  return {};
}

void KatuRecords::addParadigm(const std::string& key, Group group, std::vector<Item> items, bool byRule) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
  Paradigm& paradigm = paradigms_.emplace_back(Paradigm{key, group, std::move(items), {}});
  for (const Item& item : paradigm.items) {
    std::string form = engine::ChangeMidasiStrE(item.form);
    if (!byRule && std::find(paradigm.filed.begin(), paradigm.filed.end(), form) == paradigm.filed.end()) {
      paradigm.filed.push_back(form);
    }
    std::vector<size_t>& users = formsByKey_[form];
    if (users.empty() || users.back() != paradigms_.size() - 1) users.push_back(paradigms_.size() - 1);
  }
}

void KatuRecords::makeParadigms(const std::string& key, const Word& word) {
  // The engine reads the headword of the first entry that can inflect and the first line of each part of
  // speech.
  std::string joined;
  const Entry *head = nullptr, *verb = nullptr, *adjective = nullptr, *noun = nullptr, *adverb = nullptr;
  for (const Entry& entry : word.entries) {
    if (entry.pos == PartOfSpeech::kAdverb && adverb == nullptr) adverb = &entry;
    const uint8_t groups = engine::DscvHinsi(entry.text, engine::kHinsiAll);
    if (groups == 0) continue;
    if (head == nullptr) head = &entry;
    if ((groups & kVerbGroup) != 0 && verb == nullptr) verb = &entry;
    if ((groups & kAdjectiveGroup) != 0 && adjective == nullptr) adjective = &entry;
    if ((groups & kNounGroup) != 0 && noun == nullptr) noun = &entry;
    joined += joined.empty() ? entry.text : entry.text.substr(2);
  }
  if (head == nullptr || isPhrase(head->word) || isMixed(head->word)) return;
  const std::string base(head->word);

  engine::DicOneMidasiInfo info;
  engine::GetOneMidasiInfo(joined, &info);
  std::vector<engine::KatuyoForm> made;
  engine::SetConjugeteInfo(info, 0, &made);
  std::map<uint8_t, std::vector<Item>> byRule;
  for (const engine::KatuyoForm& form : made) {
    const uint8_t code = engine::ConvHinnum(form.hinnum);
    byRule[engine::HinsiOfForm(code)].push_back({form.text, code});
  }
  const auto take = [&](Group group, std::vector<Item> items) {
    std::vector<Item> rule = byRule[group];
    std::sort(rule.begin(), rule.end());
    std::sort(items.begin(), items.end());
    items.erase(std::unique(items.begin(), items.end()), items.end());
    const bool same = rule == items;
    addParadigm(key, group, std::move(items), same);
  };
  const auto put = [&](std::vector<Item>& items, uint8_t code, const Forms& forms) {
    for (const std::string& form : forms) items.push_back({cased(form, base), code});
  };

  if (noun != nullptr) {
    std::vector<Item> items = {{base, kSingular}};
    // A noun without a plural by the rules has none here either.
    if (byRule[kNounGroup].size() > 1) put(items, kPlural, inflection_.plurals(base, noun->sounds));
    take(kNounGroup, std::move(items));
  }
  if (adjective != nullptr) {
    const Comparison comparison = inflection_.comparison(base, adjective->sounds);
    std::vector<Item> items = byRule[kAdjectiveGroup];
    if (comparison.kind == Comparison::Kind::kEndings) {
      items = {{base, kPositive}};
      put(items, kComparative, comparison.comparative);
      put(items, kSuperlative, comparison.superlative);
    }
    if (adverb != nullptr && comparison.kind == Comparison::Kind::kEndings) {
      put(items, kComparative, inflection_.adverbComparison(base).comparative);
      put(items, kSuperlative, inflection_.adverbComparison(base).superlative);
    }
    take(kAdjectiveGroup, std::move(items));
  } else if (adverb != nullptr && !inflection_.adverbComparison(base).comparative.empty()) {
    std::vector<Item> items = {{base, kPositive}};
    put(items, kComparative, inflection_.adverbComparison(base).comparative);
    put(items, kSuperlative, inflection_.adverbComparison(base).superlative);
    take(kAdjectiveGroup, std::move(items));
  }
  if (verb != nullptr) {
    const VerbForms forms = inflection_.verb(base, verb->sounds);
    std::vector<Item> items = {{base, kPresent}};
    // "am" and "are" stand with the third person: a present form before "be" would become its origin.
    put(items, kThird, forms.present);
    put(items, kThird, forms.third);
    put(items, kPast, forms.past);
    put(items, kParticiple, forms.participle);
    put(items, kProgressive, forms.progressive);
    take(kVerbGroup, std::move(items));
    const std::string_view modal = Inflection::modalPast(base);
    if (!modal.empty()) {
      addParadigm(key, kVerbGroup, {{base, kPresent}, {std::string(modal), kPast}}, false);
    }
  }
}

// "looked after" can't be led back by any suffix rule; "look after" itself needs no record.
void KatuRecords::addPhrase(const Entry& entry, const std::string& key) {
  if (entry.pos != PartOfSpeech::kVerb || !isPhrase(entry.word)) return;
  const size_t blank = entry.word.find(' ');
  const std::string first(entry.word.substr(0, blank)), rest(entry.word.substr(blank));
  const auto known = groupsByKey_.find(engine::ChangeMidasiStrE(first));
  if (known == groupsByKey_.end() || (known->second & kVerbGroup) == 0) return;
  const Word& word = words_[known->first];
  const auto verb = std::find_if(word.entries.begin(), word.entries.end(),
                                 [](const Entry& e) { return e.pos == PartOfSpeech::kVerb; });
  if (verb == word.entries.end()) return;
  const VerbForms forms = inflection_.verb(first, verb->sounds);
  std::vector<Item> items = {{std::string(entry.word), kPresent}};
  const auto put = [&](uint8_t code, const Forms& list) {
    for (const std::string& form : list) items.push_back({form + rest, code});
  };
  put(kThird, forms.present);
  put(kThird, forms.third);
  put(kPast, forms.past);
  put(kParticiple, forms.participle);
  put(kProgressive, forms.progressive);
  addParadigm(key, kVerbGroup, std::move(items), false);
  std::erase(paradigms_.back().filed, key);
}

// Files a paradigm that the rules make right under those of its forms that the rules lead elsewhere.
void KatuRecords::fileUnreachable(Paradigm& paradigm) {
  for (const Item& item : paradigm.items) {
    const std::string form = engine::ChangeMidasiStrE(item.form);
    if (form == paradigm.base || groupsByKey_.contains(form))
      continue;  // a word of its own stands for itself
    if (std::find(paradigm.filed.begin(), paradigm.filed.end(), form) != paradigm.filed.end()) continue;
    if (reachedFrom(form) != paradigm.base) paradigm.filed.push_back(form);
  }
}

// Where a form has a record, all words of its part of speech that have this form need theirs: "lay" is the
// past of "lie" and a verb of its own.
void KatuRecords::closeOver() {
  std::vector<std::pair<size_t, std::string>> more;
  for (const auto& [form, users] : formsByKey_) {
    uint8_t served = 0;
    const auto files = [&form = form](const Paradigm& p) {
      return std::find(p.filed.begin(), p.filed.end(), form) != p.filed.end();
    };
    for (const size_t user : users) {
      if (files(paradigms_[user])) served |= paradigms_[user].group;
    }
    for (const size_t user : users) {
      if ((served & paradigms_[user].group) != 0 && !files(paradigms_[user])) more.emplace_back(user, form);
    }
  }
  for (const auto& [user, form] : more) paradigms_[user].filed.push_back(form);
}

void KatuRecords::write(const Paradigm& paradigm) {
  std::string items;
  for (const Item& item : paradigm.items) {
    std::string text = item.form + ":" + label(item.code);
    if (items.size() + text.size() + 1 > kMostItems) break;
    if (!items.empty()) items += ',';
    items += text;
  }
  KatuRecord record{paradigm.filed, std::move(items)};
  std::sort(record.forms.begin(), record.forms.end());
  records_.push_back(std::move(record));
}

void KatuRecords::finish() {
  for (const auto& [key, word] : words_) makeParadigms(key, word);
  for (const auto& [key, word] : words_) {
    if (!isPhrase(word.entries[0].word)) continue;
    for (const Entry& entry : word.entries) addPhrase(entry, key);
  }
  for (Paradigm& paradigm : paradigms_) fileUnreachable(paradigm);
  closeOver();
  for (const Paradigm& paradigm : paradigms_) {
    if (!paradigm.filed.empty()) write(paradigm);
  }
  words_.clear();
}

std::vector<std::string> KatuRecords::basesOf(const std::string& key) const {
  std::vector<std::string> bases;
  const auto found = formsByKey_.find(key);
  if (found == formsByKey_.end()) return bases;
  for (const size_t user : found->second) {
    if (paradigms_[user].base != key) bases.push_back(paradigms_[user].base);
  }
  std::sort(bases.begin(), bases.end());
  bases.erase(std::unique(bases.begin(), bases.end()), bases.end());
  return bases;
}

}  // namespace zavel::mkdict
