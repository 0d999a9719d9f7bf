// Tests: tests/zavel/LookTest.cpp, LookRealTest.cpp
#include "EnglishRoad.h"

#include <algorithm>
#include <iterator>

#include "EnglishContractions.h"
#include "WordBytes.h"

namespace zavel::host {
namespace {

bool isPlain(const std::string& word) {
  return std::all_of(word.begin(), word.end(), [](char c) { return (c >= 'a' && c <= 'z') || c == ' '; });
}

// 0 as it was asked for, 1 in other case, 2 as another word that is filed with it, 3 by reference.
int rankOf(const Entry& entry, const std::string& word) {
  if (entry.match == Match::kNear) return 2;
  if (entry.match != Match::kExact) return 3;
  return entry.headword == word ? 0 : 1;
}

void keepExactAhead(const std::string& word, std::vector<Entry>* entries) {
  std::stable_sort(entries->begin(), entries->end(),
                   [&](const Entry& a, const Entry& b) { return rankOf(a, word) < rankOf(b, word); });
}

// Decides for each entry of one search why it answers `word`.
void explain(const std::string& word, std::vector<Entry>* entries) {
  const std::string key = englishKeyOf(word);
  std::vector<bool> own;
  for (const Entry& entry : *entries) own.push_back(englishKeyOf(entry.headword) == key);
  const bool any = std::find(own.begin(), own.end(), true) != own.end();
  for (size_t i = 0; i < entries->size(); ++i) {
    Entry& entry = (*entries)[i];
    if (own[i]) {
      const bool same = (isPlain(word) && entry.headword == word) ||
                        englishSpelling(entry.headword) == englishSpelling(word);
      entry.match = same ? Match::kExact : Match::kNear;
    } else {
      entry.match = any ? Match::kSpelling : Match::kDerived;
    }
    entry.base = any ? word : entry.headword;
  }
}

bool isOwn(const Entry& entry) {
  return entry.match == Match::kExact || entry.match == Match::kNear;
}

// Adds the entries that are not there yet. One that was there as derived is better explained as inflected.
void merge(std::vector<Entry> more, std::vector<Entry>* entries) {
  for (Entry& entry : more) {
    const auto same = [&entry](const Entry& known) {
      return known.headword == entry.headword && known.homograph == entry.homograph;
    };
    const auto known = std::find_if(entries->begin(), entries->end(), same);
    if (known == entries->end()) {
      entries->push_back(std::move(entry));
    } else if (known->match == Match::kDerived) {
      *known = std::move(entry);
    }
  }
}

bool sameForm(const Form& a, const Form& b) {
  return a.code == b.code && a.form == b.form;
}

// Takes the forms of `other` out of the table of another word in which they stand as well.
void takeOut(const std::vector<Form>& other, std::vector<Form>* forms) {
  std::erase_if(*forms, [&other](const Form& form) {
    return std::any_of(other.begin(), other.end(), [&form](const Form& o) { return sameForm(form, o); });
  });
}

}  // namespace

void EnglishRoad::run(const std::string& word, LookResult* result) {
  if (request_.wantForms) addForms(word, result);
  if (request_.wantEntries) addEntries(word, result);
  if (!request_.wantHeadwords) return;
  // As further headwords behind entries those that begin like the base are of use.
  const std::optional<std::string> origin = wordBytes(result->origin);
  result->headwords = request_.wantEntries ? source_.headwords(origin ? *origin : word, true)
                                           : source_.allHeadwords(word, true);
}

void EnglishRoad::addEntries(const std::string& word, LookResult* result) {
  std::vector<Entry> entries = ownEntries(word, false, result);
  merge(inflectedEntries(word, result), &entries);
  if (entries.empty()) entries = entriesByOrigin(word, result);
  const auto exact = [](const Entry& entry) { return entry.match == Match::kExact; };
  const bool contracted = word.find('\'') != std::string::npos;
  if (contracted && std::none_of(entries.begin(), entries.end(), exact)) {
    std::vector<Entry> parts = contractedEntries(word, result);
    // "cant" is no answer to "can't" where there is a true one.
    if (!parts.empty()) entries = std::move(parts);
  }
  const bool own = std::any_of(entries.begin(), entries.end(), isOwn);
  const auto inflected = std::find_if(entries.begin(), entries.end(),
                                      [](const Entry& entry) { return entry.match == Match::kInflected; });
  if (!own && inflected != entries.end()) result->origin = inflected->base;
  std::move(entries.begin(), entries.end(), std::back_inserter(result->entries));
  if (!result->entries.empty()) result->lacksPart = false;
}

std::vector<Entry> EnglishRoad::ownEntries(const std::string& word, bool labels, LookResult* result) {
  Fetched fetched = source_.fetch(word, true, request_.mode, labels);
  if (fetched.lacksPart) result->lacksPart = true;
  const std::string asked = shownText(word);
  explain(asked, &fetched.entries);
  keepExactAhead(asked, &fetched.entries);
  return std::move(fetched.entries);
}

std::vector<Entry> EnglishRoad::inflectedEntries(const std::string& word, LookResult* result) {
  std::vector<Entry> entries;
  for (const InflectedFrom& base : basesIn(source_.forms(word, false), shownText(word))) {
    merge(entriesOfBase(base, result), &entries);
  }
  return entries;
}

// Of the base's homographs those that inflect so. When no entry's part of speech allows it, the dictionary
// does not know the part of speech, and all are shown.
std::vector<Entry> EnglishRoad::entriesOfBase(const InflectedFrom& base, LookResult* result) {
  const std::optional<std::string> word = wordBytes(base.base);
  if (!word) return {};
  std::vector<Entry> entries = ownEntries(*word, true, result);
  const bool told = std::any_of(entries.begin(), entries.end(), [&base](const Entry& entry) {
    return isOwn(entry) && !base.namesFor(paradigmsOf(entry.labels)).empty();
  });
  std::vector<Entry> kept;
  for (Entry& entry : entries) {
    if (entry.match == Match::kSpelling) {
      kept.push_back(std::move(entry));
      continue;
    }
    if (entry.match != Match::kExact) continue;
    entry.via = base.namesFor(told ? paradigmsOf(entry.labels) : static_cast<unsigned>(kAllForms));
    if (entry.via.empty()) continue;
    entry.match = Match::kInflected;
    entry.base = base.base;
    kept.push_back(std::move(entry));
  }
  return kept;
}

// A word whose ending leads to a base, though the table of the base has another form in its place.
std::vector<Entry> EnglishRoad::entriesByOrigin(const std::string& word, LookResult* result) {
  const std::string origin = source_.origin(word);
  if (englishKey(origin) == englishKey(word)) return {};
  std::vector<Entry> entries = ownEntries(origin, false, result);
  for (Entry& entry : entries) {
    if (!isOwn(entry)) continue;
    entry.match = Match::kInflected;
    entry.base = shownText(origin);
  }
  return entries;
}

// The entries of the words that an apostrophe joins, by themselves or by their own base: "isn't" leads to
// "is", and through it to "be".
std::vector<Entry> EnglishRoad::contractedEntries(const std::string& word, LookResult* result) {
  std::vector<Entry> entries;
  for (const Contraction& part : contractionsOf(word)) {
    for (Entry& entry : ownEntries(part.word, false, result)) {
      if (entry.match != Match::kExact) continue;
      entry.match = Match::kInflected;
      entry.via = {part.reason};
      entries.push_back(std::move(entry));
    }
    std::vector<Entry> inflected = inflectedEntries(part.word, result);
    for (Entry& entry : inflected) {
      for (std::string& name : entry.via) name = part.reason + " of " + name;
    }
    merge(std::move(inflected), &entries);
  }
  return entries;
}

// The tables of the word itself and of each base, one behind the other.
void EnglishRoad::addForms(const std::string& word, LookResult* result) {
  const std::vector<Form> forms = source_.forms(word, false);
  const std::string asked = shownText(word);
  const auto add = [&](const std::string& base, unsigned paradigms) {
    std::vector<Form> own = formsOf(base, paradigms);
    std::move(own.begin(), own.end(), std::back_inserter(result->forms));
  };
  if (isBaseIn(forms, asked)) add(asked, kAllForms);
  for (const InflectedFrom& base : basesIn(forms, asked)) add(base.base, base.paradigms());
  if (result->forms.empty() && !forms.empty()) add(shownText(source_.origin(word)), kAllForms);
}

// The table of one base: without the forms of other words, whose table holds this word ("saw" stands in the
// table of "see"), and of the paradigms `asked` those alone that the word's entries have parts of speech for.
std::vector<Form> EnglishRoad::formsOf(const std::string& base, unsigned asked) {
  const std::optional<std::string> word = wordBytes(base);
  if (!word) return {};
  std::vector<Form> forms = source_.forms(*word, true);
  for (const InflectedFrom& other : basesIn(forms, base)) {
    const std::optional<std::string> otherWord = wordBytes(other.base);
    if (otherWord) takeOut(source_.forms(*otherWord, false), &forms);
  }
  std::vector<std::string> labels;
  for (const Entry& entry : source_.fetch(*word, true, Mode::kAll, true).entries) {
    if (englishKeyOf(entry.headword) != englishKey(*word)) continue;
    labels.insert(labels.end(), entry.labels.begin(), entry.labels.end());
  }
  const unsigned paradigms = paradigmsOf(labels) & asked;
  const auto fits = [&](const Form& form) { return (paradigmOf(form.code) & paradigms) != 0; };
  if (std::any_of(forms.begin(), forms.end(), fits)) {
    std::erase_if(forms, [&](const Form& form) { return !fits(form); });
  }
  for (Form& form : forms) form.base = base;
  return forms;
}

}  // namespace zavel::host
