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
#include "mkbook/MediumFault.h"
#include "mkbook/PictureFile.h"
#include "mkbook/WaveFile.h"
#include "mkbook/WordKeys.h"

namespace zavel::mkbook {
namespace {

using namespace book;

constexpr size_t kTableLimit = size_t{1} << 20;
constexpr size_t kIconHeader = 118;   // bytes of a bitmap file ahead of its dots
constexpr size_t kSearched = 62 * 2;  // bytes of a word that a search takes in
constexpr uint32_t kTextBegins = 2;   // behind the tag that every text begins with

struct CloseBook {
  void operator()(void* book) const { SDicCloseDictionary(book); }
};
struct FreeBytes {
  void operator()(char* bytes) const { std::free(bytes); }
};

// What a function gives out.
struct OwnBytes {
  std::unique_ptr<char, FreeBytes> owner;
  uint32_t length = 0;

  std::string_view view() const { return {owner.get(), length}; }
  // Takes over what was given.
  void take(char* bytes) { owner.reset(bytes); }
};

constexpr int64_t kToMenu = INT64_MAX;  // where an item leads that doesn't lead to an entry

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
  void askField(size_t number, size_t form, size_t field, const std::string& value);
  void compareForms();
  bool choicesAre(const std::vector<Choice>& choices, const _SDICMULTIREFLIST* list) const;
  void compareText(size_t number);
  void compareMedia(const char* bytes, const std::vector<size_t>& tags, const std::vector<size_t>& media,
                    size_t number);
  bool isMedium(const char* tag, size_t medium);
  void walkMenus(bool pictures);
  bool readMenu(bool pictures, const _SDICADDRESS* at, OwnBytes* bytes);
  std::vector<size_t> compareMenu(size_t menu, const OwnBytes& bytes, std::vector<_SDICADDRESS>* items);
  void compareIcons();
  int64_t numberOf(const Span& span) const;
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
  uint64_t asked_ = 0, keywordsAsked_ = 0, crossWordsAsked_ = 0, fieldsAsked_ = 0, menusWalked_ = 0;
  std::vector<Menu> menus_ = source_.menus();
  std::vector<MultiSearch> forms_ = source_.forms();
  std::vector<MediumShape> media_ = source_.media();
  std::vector<bool> sameMedia_ = std::vector<bool>(media_.size());  // of these the bytes were compared
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

int64_t Verification::numberOf(const Span& span) const {
  return span.entry >= 0 ? span.entry : words_.find(codesOf(span.target, table_));
}

void Verification::compareText(size_t number) {
  char* bytes = nullptr;
  OwnBytes body;
  if (SDicGetBodyData(book_.get(), &places_[number], &bytes, &body.length) != kDone) {
    fault(number, "its text can't be read");
    return;
  }
  body.take(bytes);
  const BookEntry entry = source_.entry(number);
  std::vector<size_t> tags, media;
  const std::string expected =
      expectedText(entry, table_, [this](const Span& span) { return numberOf(span); });
  const std::string found = decodedText(
      body.view(), table_, [this](const auto& at) { return numberAt(at); }, &tags);
  if (found != expected) fault(number, "the text of \"" + entry.headword + "\" differs");
  appendMedia(entry.note, &media);
  for (const Line& line : entry.lines) appendMedia(line.spans, &media);
  if (found == expected) compareMedia(bytes, tags, media, number);
}

// Each medium once.
void Verification::compareMedia(const char* bytes, const std::vector<size_t>& tags,
                                const std::vector<size_t>& media, size_t number) {
  for (size_t i = 0; i < tags.size() && i < media.size(); ++i) {
    if (sameMedia_[media[i]]) continue;
    sameMedia_[media[i]] = isMedium(bytes + tags[i], media[i]);
    if (!sameMedia_[media[i]]) fault(number, "picture or sound " + std::to_string(i + 1) + " of it differs");
  }
}

// What a reader gets is a file; what it is made of must be what the source's is made of.
bool Verification::isMedium(const char* tag, size_t medium) {
  const MediumShape& shape = media_[medium];
  const bool sound = shape.kind == MediumShape::Kind::kSound;
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  OwnBytes file;
  const auto get = sound ? SDicGetStreamData : SDicGetPictureData;
  if (get(book_.get(), tag, &name, &nameLength, &data, &file.length) != kDone) return false;
  const std::unique_ptr<char, FreeBytes> nameOwner(name);
  file.take(data);
  const std::string expected = source_.mediumBytes(medium);
  try {
    if (shape.kind == MediumShape::Kind::kColorPicture) return file.view() == expected;
    const Medium found = sound ? readWave(file.view()) : readPicture(std::string(file.view()));
    return found.bytes == expected && found.shape.format == shape.format &&
           found.shape.width == shape.width && found.shape.height == shape.height;
  } catch (const MediumFault&) {
    return false;
  }
}

bool Verification::readMenu(bool pictures, const _SDICADDRESS* at, OwnBytes* bytes) {
  char* data = nullptr;
  bool more = false;
  const uint32_t status = pictures ? SDicGetColorMenuData(book_.get(), at, &data, &bytes->length)
                                   : SDicGetMenuData(book_.get(), at, &data, &bytes->length, &more);
  if (status != kDone) return false;
  bytes->take(data);
  return !more;
}

// The menus that its items should lead to; *items gets where they do.
std::vector<size_t> Verification::compareMenu(size_t menu, const OwnBytes& bytes,
                                              std::vector<_SDICADDRESS>* items) {
  std::vector<size_t> leads, tags, media;
  const std::string expected = expectedText(menus_[menu].lines, table_, [&](const Span& span) {
    if (span.kind != Span::Kind::kMenu) return numberOf(span);
    const auto named = [&](const Menu& other) { return other.name == span.target; };
    leads.push_back(static_cast<size_t>(std::find_if(menus_.begin(), menus_.end(), named) - menus_.begin()));
    return kToMenu;
  });
  const auto numberOrMenu = [&](const _SDICADDRESS& at) {
    if (const int64_t number = numberAt(at); number >= 0) return number;
    items->push_back(at);
    return kToMenu;
  };
  if (decodedText(bytes.view(), table_, numberOrMenu, &tags) != expected) {
    faults_->add(kMenuFile, menu, "the menu \"" + menus_[menu].name + "\" differs");
    return {};
  }
  for (const Line& line : menus_[menu].lines) appendMedia(line.spans, &media);
  compareMedia(bytes.owner.get(), tags, media, 0);
  return leads;
}

// From the first menu on to all that its items lead to.
void Verification::walkMenus(bool pictures) {
  const auto first =
      std::find_if(menus_.begin(), menus_.end(), [&](const Menu& menu) { return menu.pictures == pictures; });
  if (first == menus_.end()) return;
  std::map<size_t, _SDICADDRESS> places;
  std::vector<size_t> waiting = {static_cast<size_t>(first - menus_.begin())};
  for (size_t next = 0; next < waiting.size(); ++next) {
    const size_t menu = waiting[next];
    OwnBytes bytes;
    std::vector<_SDICADDRESS> items;
    if (!readMenu(pictures, next == 0 ? nullptr : &places[menu], &bytes)) {
      faults_->add(kMenuFile, menu, "the menu \"" + menus_[menu].name + "\" can't be read");
      continue;
    }
    ++menusWalked_;
    const std::vector<size_t> leads = compareMenu(menu, bytes, &items);
    for (size_t i = 0; i < leads.size() && i < items.size(); ++i) {
      if (leads[i] == waiting[0]) continue;
      const auto [known, isNew] = places.emplace(leads[i], items[i]);
      if (isNew) waiting.push_back(leads[i]);
      if (!same(known->second, items[i]))
        faults_->add(kMenuFile, menu, "an item of the menu \"" + menus_[menu].name + "\" leads elsewhere");
    }
  }
}

void Verification::compareIcons() {
  const std::string path = folder_ + "/" + kCatalogFile;
  char *large = nullptr, *small = nullptr;
  OwnBytes icons[2];
  const uint32_t status = SDicGetDicIconInformation(path.c_str(), &large, &small);
  icons[0].take(large);
  icons[1].take(small);
  const std::string expected[] = {source_.largeIcon(), source_.smallIcon()};
  for (size_t i = 0; i < 2; ++i) {
    if (expected[i].empty()) continue;
    if (status != kDone ||
        std::string_view(icons[i].owner.get() + kIconHeader, expected[i].size()) != expected[i])
      faults_->add(kCatalogFile, i, i == 0 ? "the icon differs" : "the small icon differs");
  }
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

// Each field by itself: what an entry has in it must lead there.
bool Verification::askFields() {
  if (forms_.empty()) return true;
  compareForms();
  progress_.stage("asking by fields", places_.size());
  for (size_t i = 0; i < places_.size(); ++i) {
    if (progress_.cancelled()) return false;
    for (size_t form = 0; form < forms_.size(); ++form) {
      const std::vector<std::vector<std::string>> values = source_.fieldValues(i, form);
      for (size_t field = 0; field < values.size(); ++field)
        for (const std::string& value : values[field]) askField(i, form, field, value);
    }
    progress_.advance(i + 1);
  }
  return true;
}

void Verification::askField(size_t number, size_t form, size_t field, const std::string& value) {
  const std::string key = asQuery(codesOf(value, table_), isPassedOver);
  if (key.empty()) return;
  std::string query;
  for (const size_t word : {size_t{kTokenMulti}, kTokenZero + form, size_t{kTokenField}, kTokenZero + field})
    appendBE16(query, static_cast<uint16_t>(word));
  ++fieldsAsked_;
  if (!leadsTo(query + key, places_[number])) fault(number, "\"" + value + "\" in its field leads elsewhere");
}

bool Verification::run(mkdict::Summary* summary) {
  if (!walk() || !walkBack() || !compareTexts() || !askWords() ||
      !askTextWords({"\x22\x25", &BookSource::keywords, "keywords"}, &keywordsAsked_) ||
      !askTextWords({"\x22\x24", &BookSource::crossWords, "words of texts"}, &crossWordsAsked_) ||
      !askFields())
    return false;
  walkMenus(false);
  walkMenus(true);
  compareIcons();
  summary->figure("entries", places_.size());
  summary->figure("words asked for", asked_);
  summary->figure("keywords asked for", keywordsAsked_);
  summary->figure("words of texts asked for", crossWordsAsked_);
  if (menusWalked_ > 0) summary->figure("menus walked", menusWalked_);
  if (!media_.empty())
    summary->figure("pictures and sounds compared",
                    static_cast<uint64_t>(std::count(sameMedia_.begin(), sameMedia_.end(), true)));
  if (fieldsAsked_ > 0) summary->figure("values of fields asked for", fieldsAsked_);
  return true;
}

}  // namespace

bool verifyBook(const BookSource& source, const std::string& folder, mkdict::Progress& progress,
                mkdict::Summary* summary, mkdict::Faults* faults) {
  return Verification(source, folder, progress, faults).run(summary);
}

}  // namespace zavel::mkbook
