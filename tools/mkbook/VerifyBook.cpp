// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/VerifyBook.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

#include "book/Address.h"
#include "book/BookFormat.h"
#include "book/BookStatus.h"
#include "book/IndexKey.h"
#include "book/SDic.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"
#include "mkbook/BookFolder.h"
#include "mkbook/BookText.h"
#include "mkbook/Compiler.h"
#include "mkbook/Failure.h"
#include "mkbook/IndexBuilder.h"
#include "mkbook/JisTable.h"
#include "mkbook/WordKeys.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr size_t kTableLimit = size_t{1} << 20;
constexpr size_t kSearched = 62 * 2;  // bytes of a word that a search takes in
constexpr uint32_t kTextBegins = 2;   // behind the tag that every text begins with

struct CloseBook {
  void operator()(void* book) const { SDicCloseDictionary(book); }
};
struct FreeBytes {
  void operator()(char* bytes) const { std::free(bytes); }
};

bool before(const _SDICADDRESS& a, const _SDICADDRESS& b) {
  return a.block != b.block ? a.block < b.block : a.offset < b.offset;
}

bool same(const _SDICADDRESS& a, const _SDICADDRESS& b) {
  return !before(a, b) && !before(b, a);
}

uint16_t codeAt(std::string_view text, size_t at) {
  return readBE16(reinterpret_cast<const uint8_t*>(text.data() + at));
}

bool isToken(uint16_t code) {
  return (code >= kTokenExact && code <= kTokenField) || code == kTokenOpen || code == kTokenClose ||
         code == kTokenAnd || code == kTokenOr;
}

// Of a word what a host asks for: not the signs that a query has for its own ends, and not what is nothing by
// itself at its ends: a key that ends in a blank, once signs are dropped, finds no word that doesn't.
std::string asQuery(std::string_view word, bool (*isNothing)(uint16_t code)) {
  std::string out;
  for (size_t at = 0; at + 2 <= word.size() && out.size() < kSearched; at += 2)
    if (!isToken(codeAt(word, at))) out += word.substr(at, 2);
  while (!out.empty() && isNothing(codeAt(out, out.size() - 2))) out.resize(out.size() - 2);
  while (!out.empty() && isNothing(codeAt(out, 0))) out.erase(0, 2);
  return out;
}

// Indexes of words drop signs, those of forms don't.
bool isNothingInWords(uint16_t code) {
  std::string text;
  appendBE16(text, code);
  return IndexBuilder::keyOf(kKindExact, kPlainKeys, text).empty();
}

// A way to search by words that entries have, and what they have.
struct TextSearch {
  const char* method;  // its sign in queries
  std::vector<std::string> (BookSource::*words)(size_t number) const;
  const char* name;
};
struct WordOfTexts {
  std::string word;             // as it first comes
  std::vector<size_t> entries;  // that have it
};

class Verification {
 public:
  Verification(const BookSource& source, const std::string& folder, mkdict::Progress& progress,
               mkdict::Faults* faults)
      : source_(source), folder_(folder), progress_(progress), faults_(faults) {
    open();
  }

  bool run(mkdict::Summary* summary);

 private:
  void open();
  bool walk();
  bool walkBack();
  bool compareTexts();
  bool askWords();
  bool askTextWords(const TextSearch& search, uint64_t* asked);
  bool askFields();
  void askField(size_t number, size_t field, const std::string& value);
  void compareText(size_t number);
  std::string queryFor(const std::string& word) const;
  bool leadsTo(const std::string& query, const _SDICADDRESS& address);
  std::vector<size_t> entriesFor(const std::string& query);
  int64_t numberAt(const _SDICADDRESS& address) const;
  void fault(size_t entry, const std::string& message) { faults_->add(kBodyFile, entry, message); }

  const BookSource& source_;
  std::string folder_;
  mkdict::Progress& progress_;
  mkdict::Faults* faults_;
  std::unique_ptr<void, CloseBook> book_;
  CustomTable table_;
  std::vector<_SDICADDRESS> places_;
  WordTable words_;
  uint64_t asked_ = 0, keywordsAsked_ = 0, crossWordsAsked_ = 0, fieldsAsked_ = 0;
};

void Verification::open() {
  const std::string path = folder_ + "/" + kCatalogFile;
  void* book = nullptr;
  const uint32_t status = SDicOpenDictionary(path.c_str(), &book, nullptr, false, false);
  book_.reset(book);
  uint32_t methods = 0;
  if (status != kDone || SDicGetAvailableMethods(book, &methods) != kDone) {
    throw Failure(storage().exists(path) ? mkdict::kExitDamaged : mkdict::kExitEnvironment,
                  storage().exists(path) ? "damaged_book" : "no_book",
                  path + " is no book that can be opened", "Compile it first.");
  }
  std::string bytes;
  if (readWholeFile(folder_ + "/" + kUniFile, kTableLimit, &bytes)) table_ = CustomTable(bytes);
}

// From the first entry to the last by the way that leads on. More entries than the source has are a fault.
bool Verification::walk() {
  progress_.stage("walking the book", source_.size());
  _SDICADDRESS at = {kFirstBlock, kTextBegins};
  for (size_t i = 0; i < source_.size(); ++i) {
    if (progress_.cancelled()) return false;
    places_.push_back(at);
    const uint32_t status = SDicGetNextEntryAddress(book_.get(), &at, &at);
    const bool last = i + 1 == source_.size();
    if ((status == kNoFurtherEntry) != last) {
      fault(i, last ? "the book goes on behind its last entry" : "the way to the next entry ends here");
      break;
    }
    progress_.advance(i + 1);
  }
  return true;
}

bool Verification::walkBack() {
  progress_.stage("walking back", places_.size());
  for (size_t i = places_.size(); i > 0; --i) {
    if (progress_.cancelled()) return false;
    _SDICADDRESS at{};
    const uint32_t status = SDicGetPrevEntryAddress(book_.get(), &places_[i - 1], &at);
    const bool good = i == 1 ? status == kNoFurtherEntry : status == kDone && same(at, places_[i - 2]);
    if (!good) fault(i - 1, "the way back from here leads elsewhere");
    progress_.advance(places_.size() - i + 1);
  }
  return true;
}

int64_t Verification::numberAt(const _SDICADDRESS& address) const {
  const auto found = std::lower_bound(places_.begin(), places_.end(), address, before);
  return found != places_.end() && same(*found, address) ? found - places_.begin() : -1;
}

void Verification::compareText(size_t number) {
  char* bytes = nullptr;
  uint32_t length = 0;
  const uint32_t status = SDicGetBodyData(book_.get(), &places_[number], &bytes, &length);
  const std::unique_ptr<char, FreeBytes> owner(status == kDone ? bytes : nullptr);
  if (status != kDone) {
    fault(number, "its text can't be read");
    return;
  }
  const BookEntry entry = source_.entry(number);
  const std::string expected = expectedText(
      entry, table_, [this](const std::string& word) { return words_.find(codesOf(word, table_)); });
  const std::string found =
      decodedText({bytes, length}, table_, [this](const auto& at) { return numberAt(at); });
  if (found != expected) fault(number, "the text of \"" + entry.headword + "\" differs");
}

bool Verification::compareTexts() {
  for (size_t i = 0; i < source_.size(); ++i)
    for (const std::string& word : source_.entry(i).words) words_.add(codesOf(word, table_), i);
  progress_.stage("comparing texts", places_.size());
  for (size_t i = 0; i < places_.size(); ++i) {
    if (progress_.cancelled()) return false;
    compareText(i);
    progress_.advance(i + 1);
  }
  return true;
}

bool Verification::leadsTo(const std::string& query, const _SDICADDRESS& address) {
  long count = 0, first = 0;
  if (SDicExecIndexSearch(book_.get(), query.c_str(), false, false, &count, &first) != kDone) return false;
  for (long i = 0; i < count; ++i) {
    _SDICITEMADDRESS hit{};
    SDicGetSearchResult(book_.get(), static_cast<unsigned long>(i), &hit);
    if (same(hit.body, address)) return true;
  }
  return false;
}

// A word with characters that can't be typed is asked for as it is typed.
std::string Verification::queryFor(const std::string& word) const {
  const std::string typed = typedForm(word);
  return asQuery(typed.empty() ? codesOf(word, table_) : typed, isNothingInWords);
}

// In the order of the words, so that neighbours in the index are asked for one after the other.
bool Verification::askWords() {
  std::vector<std::pair<std::string, size_t>> queries;
  for (size_t i = 0; i < places_.size(); ++i)
    for (const std::string& word : source_.entry(i).words)
      if (std::string query = queryFor(word); !query.empty()) queries.emplace_back(std::move(query), i);
  std::sort(queries.begin(), queries.end());
  queries.erase(std::unique(queries.begin(), queries.end()), queries.end());
  progress_.stage("asking for words", queries.size());
  for (const auto& [query, number] : queries) {
    if (progress_.cancelled()) return false;
    if (!leadsTo("\x22\x21" + query, places_[number]))
      fault(number, "a word of \"" + source_.entry(number).headword + "\" isn't found");
    progress_.advance(++asked_);
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

// Each field by itself: what an entry has in it must lead there.
bool Verification::askFields() {
  if (source_.multiSearch().fields.empty()) return true;
  progress_.stage("asking by fields", places_.size());
  for (size_t i = 0; i < places_.size(); ++i) {
    if (progress_.cancelled()) return false;
    const std::vector<std::vector<std::string>> values = source_.fieldValues(i);
    for (size_t field = 0; field < values.size(); ++field)
      for (const std::string& value : values[field]) askField(i, field, value);
    progress_.advance(i + 1);
  }
  return true;
}

void Verification::askField(size_t number, size_t field, const std::string& value) {
  const std::string key = asQuery(codesOf(value, table_), isPassedOver);
  if (key.empty()) return;
  std::string query = "\x22\x26\x23\x30\x22\x27\x23";
  query += static_cast<char>('0' + field);
  ++fieldsAsked_;
  if (!leadsTo(query + key, places_[number])) fault(number, "\"" + value + "\" in its field leads elsewhere");
}

bool Verification::run(mkdict::Summary* summary) {
  if (!walk() || !walkBack() || !compareTexts() || !askWords() ||
      !askTextWords({"\x22\x25", &BookSource::keywords, "keywords"}, &keywordsAsked_) ||
      !askTextWords({"\x22\x24", &BookSource::crossWords, "words of texts"}, &crossWordsAsked_) ||
      !askFields())
    return false;
  summary->figure("entries", places_.size());
  summary->figure("words asked for", asked_);
  summary->figure("keywords asked for", keywordsAsked_);
  summary->figure("words of texts asked for", crossWordsAsked_);
  if (fieldsAsked_ > 0) summary->figure("values of fields asked for", fieldsAsked_);
  return true;
}

}  // namespace

bool verifyBook(const BookSource& source, const std::string& folder, mkdict::Progress& progress,
                mkdict::Summary* summary, mkdict::Faults* faults) {
  return Verification(source, folder, progress, faults).run(summary);
}

}  // namespace zavel::mkbook
