// Tests: tests/mkbook/BuildTest.cpp, tests/mkbook/ExampleBookTest.cpp
#include "mkbook/VerifyBook.h"

#include <algorithm>

#include "book/Address.h"
#include "book/BookStatus.h"
#include "foundation/Storage.h"
#include "mkbook/Compiler.h"
#include "mkbook/Failure.h"
#include "mkbook/Verification.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kTableLimit = size_t{1} << 20;
constexpr uint32_t kTextBegins = 2;  // behind the tag that every text begins with

}  // namespace

using namespace book;

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

// As much of it as the book takes.
void Verification::comparePublisher() {
  OwnBytes bytes;
  char* given = nullptr;
  const bool read = SDicGetPublisherInfo(book_.get(), &given, &bytes.length) == kDone;
  if (read) bytes.take(given);
  const std::string_view found = read ? std::string_view(bytes.owner.get()) : std::string_view();
  const std::string expected = source_.publisher();
  if (!expected.starts_with(found) || found.empty() != expected.empty())
    faults_->add(kInfoFile, 0, "source and licence differ");
}

bool Verification::run(mkdict::Summary* summary) {
  if (!walk() || !walkBack() || !compareTexts() ||
      !askWords({"\x22\x21", WordSearch::Part::kWhole, " isn't found"}) ||
      !askWords({"\x22\x22", WordSearch::Part::kBeginning, " isn't found by its beginning"}) ||
      !askWords({"\x22\x23", WordSearch::Part::kEnd, " isn't found by its end"}) ||
      !askTextWords({"\x22\x25", &BookSource::keywords, "keywords"}, &keywordsAsked_) ||
      !askTextWords({"\x22\x24", &BookSource::crossWords, "words of texts"}, &crossWordsAsked_) ||
      !askFields())
    return false;
  walkMenus(false);
  walkMenus(true);
  comparePublisher();
  compareIcons();
  compareGlyphs();
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

bool verifyBook(const BookSource& source, const std::string& folder, const Unifont& font,
                mkdict::Progress& progress, mkdict::Summary* summary, mkdict::Faults* faults) {
  return Verification(source, folder, font, progress, faults).run(summary);
}

}  // namespace zavel::mkbook
