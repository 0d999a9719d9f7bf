// Words, keywords, words of texts, and forms. Tests: tests/mkbook/BuildTest.cpp,
// tests/mkbook/ExampleBookTest.cpp
#include <algorithm>

#include "book/BookFormat.h"
#include "book/BookStatus.h"
#include "book/IndexKey.h"
#include "foundation/ByteReader.h"
#include "foundation/StringType.h"
#include "mkbook/IndexBuilder.h"
#include "mkbook/JisTable.h"
#include "mkbook/Verification.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr size_t kSearched = 62 * 2;  // bytes of a word that a search takes in

uint16_t codeAt(std::string_view text, size_t at) {
  return readBE16(reinterpret_cast<const uint8_t*>(text.data() + at));
}

bool isToken(uint16_t code) {
  return (code >= kTokenExact && code <= kTokenField) || code == kTokenOpen || code == kTokenClose ||
         code == kTokenAnd || code == kTokenOr;
}

// Of a word what a host asks for, its first characters, or for `end` its last: not the signs that a query has
// for its own ends, and not what is nothing by itself at its ends: a key that ends in a blank, once signs are
// dropped, finds no word that doesn't.
std::string asQuery(std::string_view word, bool (*isNothing)(uint16_t code), bool end = false) {
  std::string out;
  for (size_t at = 0; at + 2 <= word.size(); at += 2)
    if (!isToken(codeAt(word, at))) out += word.substr(at, 2);
  const auto trim = [&out, isNothing] {
    while (!out.empty() && isNothing(codeAt(out, out.size() - 2))) out.resize(out.size() - 2);
    while (!out.empty() && isNothing(codeAt(out, 0))) out.erase(0, 2);
  };
  trim();
  if (out.size() > kSearched) out = end ? out.substr(out.size() - kSearched) : out.substr(0, kSearched);
  trim();
  return out;
}

// Indexes of words drop signs, those of forms don't.
bool isNothingInWords(uint16_t code) {
  std::string text;
  appendBE16(text, code);
  return IndexBuilder::keyOf(kKindExact, kPlainKeys, text).empty();
}

// Which of a method's indexes a key is looked for in.
int indexOf(const std::string& key) {
  const int type = foundation::GFnGetStringType(key.c_str());
  return type == foundation::kStringDigits ? foundation::kStringMixed : type;
}

// The query itself, or, for each index in which its beginnings or ends are looked for, the longest of them.
std::vector<std::string> partsOf(const std::string& query, WordSearch::Part part) {
  if (query.empty()) return {};
  if (part == WordSearch::Part::kWhole) return {query};
  std::map<int, std::string> longest;
  for (size_t length = query.size(); length > 0; length -= 2) {
    const size_t at = part == WordSearch::Part::kEnd ? query.size() - length : 0;
    std::string key = asQuery(query.substr(at, length), isNothingInWords);
    if (const int index = indexOf(key); index != foundation::kStringNone) longest.try_emplace(index, key);
  }
  std::vector<std::string> parts;
  for (auto& [index, key] : longest) parts.push_back(std::move(key));
  return parts;
}

}  // namespace

// A word with characters that can't be typed is asked for as it is typed.
std::string Verification::queryFor(const std::string& word, bool end) const {
  const std::string typed = typedForm(word);
  return asQuery(typed.empty() ? codesOf(word, table_) : typed, isNothingInWords, end);
}

// In the order of the words, so that neighbours in the index are asked for one after the other.
bool Verification::askWords(const WordSearch& search) {
  std::map<std::string, std::vector<size_t>> expected;
  for (size_t i = 0; i < places_.size(); ++i) {
    for (const std::string& word : source_.entry(i).words) {
      for (const std::string& query :
           partsOf(queryFor(word, search.part == WordSearch::Part::kEnd), search.part)) {
        std::vector<size_t>& entries = expected[query];
        if (entries.empty() || entries.back() != i) entries.push_back(i);
      }
    }
  }
  progress_.stage("asking for words", expected.size());
  uint64_t asked = 0;
  for (const auto& [query, entries] : expected) {
    if (progress_.cancelled()) return false;
    const std::vector<size_t> found = entriesFor(search.method + query);
    for (const size_t number : entries) {
      if (!std::binary_search(found.begin(), found.end(), number))
        fault(number, "a word of \"" + source_.entry(number).headword + "\"" + search.missing);
    }
    if (search.part == WordSearch::Part::kWhole) asked_ += entries.size();
    progress_.advance(++asked);
  }
  return true;
}

std::vector<size_t> Verification::entriesFor(const std::string& query) {
  std::vector<size_t> out;
  long count = 0, first = 0;
  if (SDicExecIndexSearch(book_.get(), query.c_str(), false, false, &count, &first) != kDone) return out;
  for (long i = 0; i < count; ++i) {
    _SDICITEMADDRESS hit{};
    SDicGetSearchResult(book_.get(), static_cast<unsigned long>(i), &hit);
    out.push_back(static_cast<size_t>(numberAt(hit.body)));
  }
  return out;
}

// Each word once, and the entries that it leads to, no more and no less.
bool Verification::askTextWords(const TextSearch& search, uint64_t* asked) {
  std::map<std::string, WordOfTexts> expected;
  progress_.stage(std::string("collecting ") + search.name, places_.size());
  for (size_t i = 0; i < places_.size(); ++i) {
    if (progress_.cancelled()) return false;
    for (const std::string& word : (source_.*search.words)(i)) {
      for (const std::string& codes : {codesOf(word, table_), typedForm(word)}) {
        const std::string key = IndexBuilder::keyOf(kKindKeyword, kPlainKeys, codes);
        if (key.empty()) continue;
        WordOfTexts& filed = expected.try_emplace(key, WordOfTexts{word, {}}).first->second;
        if (filed.entries.empty() || filed.entries.back() != i) filed.entries.push_back(i);
      }
    }
    progress_.advance(i + 1);
  }
  progress_.stage(std::string("asking for ") + search.name, expected.size());
  for (const auto& [key, filed] : expected) {
    if (progress_.cancelled()) return false;
    if (entriesFor(search.method + key) != filed.entries)
      fault(filed.entries[0], "\"" + filed.word + "\", one of the " + search.name +
                                  ", leads to other entries than in the source");
    progress_.advance(++*asked);
  }
  return true;
}

bool Verification::choicesAre(const std::vector<Choice>& choices, const _SDICMULTIREFLIST* list) const {
  for (const Choice& choice : choices) {
    if (list == nullptr || codesOf(choice.name, table_) != std::string_view(list->name)) return false;
    if (!choicesAre(choice.below, list->child)) return false;
    list = list->next;
  }
  return list == nullptr;
}

// Names, labels and choices.
void Verification::compareForms() {
  for (size_t i = 0; i < forms_.size(); ++i) {
    const auto form = static_cast<uint16_t>(i);
    char* name = nullptr;
    uint8_t count = 0;
    bool good = SDicGetMultiSearchName(book_.get(), form, &name) == kDone && eucOf(forms_[i].name) == name &&
                SDicGetMultiSearchEntryCount(book_.get(), form, &count) == kDone &&
                count == forms_[i].fields.size();
    std::free(name);
    for (size_t k = 0; good && k < count; ++k) {
      const SearchField& field = forms_[i].fields[k];
      _SDICMULTIREFLIST* list = nullptr;
      char* label = nullptr;
      bool hasList = false;
      const auto entry = static_cast<uint8_t>(k);
      good = SDicGetMultiSearchEntryInfo(book_.get(), form, entry, &label, &hasList) == kDone;
      std::free(label);
      if (good && hasList) good = SDicGetMultiSearchReferenceList(book_.get(), form, entry, &list) == kDone;
      good = good && choicesAre(field.choices, list);
    }
    if (!good) faults_->add(multiFile(i), i, "the form \"" + forms_[i].name + "\" differs");
  }
}

// Each value of each field by itself, once: all entries that have it must be among those it leads to.
bool Verification::askFields() {
  if (forms_.empty()) return true;
  compareForms();
  std::map<std::string, WordOfTexts> expected;
  progress_.stage("collecting fields", places_.size());
  for (size_t i = 0; i < places_.size(); ++i) {
    if (progress_.cancelled()) return false;
    for (size_t form = 0; form < forms_.size(); ++form) collectFields(i, form, &expected);
    progress_.advance(i + 1);
  }
  progress_.stage("asking by fields", expected.size());
  for (const auto& [query, filed] : expected) {
    if (progress_.cancelled()) return false;
    const std::vector<size_t> found = entriesFor(query);
    for (const size_t number : filed.entries) {
      if (!std::binary_search(found.begin(), found.end(), number))
        fault(number, "\"" + filed.word + "\" in its field leads elsewhere");
    }
    progress_.advance(++fieldsAsked_);
  }
  return true;
}

void Verification::collectFields(size_t number, size_t form,
                                 std::map<std::string, WordOfTexts>* expected) const {
  const std::vector<std::vector<std::string>> values = source_.fieldValues(number, form);
  for (size_t field = 0; field < values.size(); ++field) {
    std::string query;
    for (const size_t word :
         {size_t{kTokenMulti}, kTokenZero + form, size_t{kTokenField}, kTokenZero + field})
      appendBE16(query, static_cast<uint16_t>(word));
    for (const std::string& value : values[field]) {
      const std::string key = asQuery(codesOf(value, table_), isPassedOver);
      if (!key.empty())
        expected->try_emplace(query + key, WordOfTexts{value, {}}).first->second.entries.push_back(number);
    }
  }
}

}  // namespace zavel::mkbook
