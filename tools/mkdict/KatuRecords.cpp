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
#include "mkdict/BaseForms.h"
#include "mkdict/FormCode.h"
#include "mkdict/Spelling.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

const std::string& label(uint8_t code) {
  static const std::array<std::string, 11> kLabels = [] {
    std::array<std::string, 11> made;
    constexpr const char* kUtf8[] = {"", "単", "複", "原", "比", "最", "現", "三", "過", "分", "進"};
    for (size_t i = 1; i < made.size(); ++i) made[i] = toShiftJis(kUtf8[i]).value();
    return made;
  }();
  return kLabels[code];
}

// Gives a form the capital of its base: "Frenchman", "Frenchmen".
std::string cased(std::string form, std::string_view base) {
  if (hasCapital(base) && !form.empty() && form[0] >= 'a') {
    form[0] = static_cast<char>(form[0] - 'a' + 'A');
  }
  return form;
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
  return firstBaseForm(key, [this](const std::string& base, uint8_t mask) {
    const auto found = groupsByKey_.find(base);
    return found != groupsByKey_.end() && (found->second & mask) != 0;
  });
}

void KatuRecords::addParadigm(const std::string& key, Group group, std::vector<Item> items, bool byRule) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
  Paradigm& paradigm = paradigms_.emplace_back(Paradigm{key, group, byRule, std::move(items), {}});
  for (const Item& item : paradigm.items) {
    std::string form = engine::ChangeMidasiStrE(item.form);
    if (!byRule && std::find(paradigm.filed.begin(), paradigm.filed.end(), form) == paradigm.filed.end()) {
      paradigm.filed.push_back(form);
    }
    std::vector<size_t>& users = formsByKey_[form];
    if (users.empty() || users.back() != paradigms_.size() - 1) users.push_back(paradigms_.size() - 1);
  }
}

// The entries that speak for a key: the engine reads the headword of the first one that can inflect, and the
// first line of each part of speech.
KatuRecords::Speakers KatuRecords::speakersOf(const Word& word) {
  Speakers out;
  std::string joined;
  for (const Entry& entry : word.entries) {
    if (entry.pos == PartOfSpeech::kAdverb && out.adverb == nullptr) out.adverb = &entry;
    const uint8_t groups = engine::DscvHinsi(entry.text, engine::kHinsiAll);
    if (groups == 0) continue;
    if (out.base.empty()) out.base = entry.word;
    if ((groups & kVerbGroup) != 0 && out.verb == nullptr) out.verb = &entry;
    if ((groups & kAdjectiveGroup) != 0 && out.adjective == nullptr) out.adjective = &entry;
    if ((groups & kNounGroup) != 0 && out.noun == nullptr) out.noun = &entry;
    joined += joined.empty() ? entry.text : entry.text.substr(2);
  }
  if (out.base.empty() && out.adverb != nullptr) out.base = out.adverb->word;
  engine::DicOneMidasiInfo info;
  engine::GetOneMidasiInfo(joined, &info);
  std::vector<engine::KatuyoForm> made;
  engine::SetConjugeteInfo(info, 0, &made);
  for (const engine::KatuyoForm& form : made) {
    const uint8_t code = engine::ConvHinnum(form.hinnum);
    out.byRule[engine::HinsiOfForm(code)].push_back({form.text, code});
  }
  for (auto& [group, items] : out.byRule) std::sort(items.begin(), items.end());
  return out;
}

// Appends forms with one label, in the capitals of their base.
void KatuRecords::put(std::vector<Item>& items, uint8_t code, const Forms& forms, const std::string& base) {
  for (const std::string& form : forms) items.push_back({cased(form, base), code});
}

// Adds a paradigm; its record is needed unless the rules make the same of it.
void KatuRecords::take(const std::string& key, Group group, std::vector<Item> items,
                       const Speakers& speakers) {
  std::sort(items.begin(), items.end());
  items.erase(std::unique(items.begin(), items.end()), items.end());
  const auto rule = speakers.byRule.find(group);
  const bool same = rule == speakers.byRule.end() ? items.empty() : rule->second == items;
  addParadigm(key, group, std::move(items), same);
}

void KatuRecords::nounParadigm(const std::string& key, const Speakers& speakers) {
  std::vector<Item> items = {{speakers.base, kSingular}};
  const auto rule = speakers.byRule.find(kNounGroup);
  // A noun without a plural by the rules has none here either, nor one of several words.
  if (rule != speakers.byRule.end() && rule->second.size() > 1 && !isPhrase(speakers.noun->word)) {
    put(items, kPlural, inflection_.plurals(speakers.base, speakers.noun->sounds), speakers.base);
  }
  take(key, kNounGroup, std::move(items), speakers);
}

void KatuRecords::adjectiveParadigm(const std::string& key, const Speakers& speakers) {
  const std::string& base = speakers.base;
  const Comparison adverb =
      speakers.adverb == nullptr ? Comparison() : inflection_.adverbComparison(speakers.adverb->word);
  std::vector<Item> items = {{base, kPositive}};
  if (speakers.adjective == nullptr) {
    if (adverb.comparative.empty()) return;
  } else if (isPhrase(speakers.adjective->word)) {
    items[0].form = speakers.adjective->word;
  } else {
    const Comparison own = inflection_.comparison(base, speakers.adjective->sounds);
    if (own.kind != Comparison::Kind::kEndings) {  // what the entry's line says is all there is
      const auto rule = speakers.byRule.find(kAdjectiveGroup);
      take(key, kAdjectiveGroup, rule == speakers.byRule.end() ? std::vector<Item>() : rule->second,
           speakers);
      return;
    }
    put(items, kComparative, own.comparative, base);
    put(items, kSuperlative, own.superlative, base);
  }
  put(items, kComparative, adverb.comparative, base);
  put(items, kSuperlative, adverb.superlative, base);
  take(key, kAdjectiveGroup, std::move(items), speakers);
}

// Appends all forms of a verb but its present, each followed by `rest`.
void KatuRecords::putVerb(std::vector<Item>& items, const VerbForms& forms, const std::string& rest) {
  const auto append = [&](uint8_t code, const Forms& list) {
    for (const std::string& form : list) items.push_back({form + rest, code});
  };
  // "am" and "are" stand with the third person: a present form before "be" would become its origin.
  append(kThird, forms.present);
  append(kThird, forms.third);
  append(kPast, forms.past);
  append(kParticiple, forms.participle);
  append(kProgressive, forms.progressive);
}

void KatuRecords::verbParadigm(const std::string& key, const Speakers& speakers) {
  const std::string& base = speakers.base;
  const Entry* entry = speakers.verb;
  if (entry != nullptr && isPhrase(entry->word)) return;  // addPhrase serves it
  if (entry != nullptr && Inflection::isDefective(base)) {
    std::vector<Item> items = {{base, kPresent}};
    const std::string_view past = Inflection::modalPast(base);
    if (!past.empty()) items.push_back({std::string(past), kPast});
    addParadigm(key, kVerbGroup, std::move(items), false);
  }
  // A verb that no source translates, of a noun or an adjective: "shod" leads to the shoe nevertheless.
  if (entry == nullptr && inflection_.isKnownVerb(base)) {
    entry = speakers.noun != nullptr ? speakers.noun : speakers.adjective;
  }
  if (entry == nullptr || inflection_.isMereForm(base)) return;
  std::vector<Item> items = {{base, kPresent}};
  const size_t first = items.size();
  putVerb(items, inflection_.verb(base, entry->sounds), "");
  for (size_t i = first; i < items.size(); ++i) items[i].form = cased(items[i].form, base);
  take(key, kVerbGroup, std::move(items), speakers);
}

void KatuRecords::makeParadigms(const std::string& key, const Word& word) {
  const Speakers speakers = speakersOf(word);
  if (speakers.base.empty() || isPhrase(speakers.base) || isMixed(speakers.base)) return;
  if (speakers.base.find('.') != std::string::npos) return;  // abbreviations
  if (speakers.noun != nullptr) nounParadigm(key, speakers);
  adjectiveParadigm(key, speakers);
  verbParadigm(key, speakers);
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
  std::vector<Item> items = {{std::string(entry.word), kPresent}};
  putVerb(items, inflection_.verb(first, verb->sounds), rest);
  addParadigm(key, kVerbGroup, std::move(items), false);
}

// Files a paradigm that the rules make right under those of its forms that the rules lead elsewhere, an entry
// of the form itself included ("boxing").
void KatuRecords::fileUnreachable(Paradigm& paradigm) {
  for (const Item& item : paradigm.items) {
    if (isPhrase(item.form)) continue;  // nobody looks up "more beautiful"
    const std::string form = engine::ChangeMidasiStrE(item.form);
    if (form == paradigm.base || reachedFrom(form) == paradigm.base || isBase(form, paradigm.group)) continue;
    if (std::find(paradigm.filed.begin(), paradigm.filed.end(), form) == paradigm.filed.end()) {
      paradigm.filed.push_back(form);
    }
  }
}

// The engine gives no forms at all for a word whose own entries have nothing to inflect, or whose headword is
// a phrase.
bool KatuRecords::isMute(const std::string& key) const {
  const auto word = words_.find(key);
  if (word == words_.end()) return false;
  for (const Entry& entry : word->second.entries) {
    if (engine::LookForDousi(entry.text)) return isPhrase(entry.word);
  }
  return true;
}

// True for a word with forms of its own in this part of speech. The regular plural of a rare "bu" makes no
// form of "bus"; but "days", which some dictionary has, is still the plural of "day".
bool KatuRecords::isBase(const std::string& key, Group group) const {
  const auto users = formsByKey_.find(key);
  if (users == formsByKey_.end()) return false;
  return std::any_of(users->second.begin(), users->second.end(), [&](size_t user) {
    const Paradigm& paradigm = paradigms_[user];
    return paradigm.base == key && paradigm.group == group && paradigm.items.size() > 1;
  });
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
      const Paradigm& paradigm = paradigms_[user];
      const bool other = paradigm.byRule && paradigm.base != form && isBase(form, paradigm.group);
      if ((served & paradigm.group) != 0 && !files(paradigm) && !other) more.emplace_back(user, form);
    }
  }
  for (const auto& [user, form] : more) paradigms_[user].filed.push_back(form);
}

void KatuRecords::write(const Paradigm& paradigm) {
  std::string items;
  for (const Item& item : paradigm.items) {
    if (!items.empty()) items += ',';
    items += item.form + ":" + label(item.code);
  }
  KatuRecord record{paradigm.filed, std::move(items)};
  std::sort(record.forms.begin(), record.forms.end());
  records_.push_back(std::move(record));
}

void KatuRecords::finish() {
  for (const auto& [key, word] : words_) makeParadigms(key, word);
  for (const auto& [key, word] : words_) {
    for (const Entry& entry : word.entries) addPhrase(entry, key);
  }
  for (Paradigm& paradigm : paradigms_) fileUnreachable(paradigm);
  closeOver();
  for (Paradigm& paradigm : paradigms_) {
    std::erase_if(paradigm.filed, [this](const std::string& key) { return isMute(key); });
  }
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
