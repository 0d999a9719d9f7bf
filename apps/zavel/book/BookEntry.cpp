// Tests: tests/zavel/book/BookShowTest.cpp
#include "book/BookEntry.h"

#include <cstdlib>

#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookFormat.h"
#include "book/BookSearch.h"
#include "book/BookStatus.h"
#include "book/SDic.h"

namespace zavel::host {
namespace {

constexpr size_t kSuggestions = 5;

_SDICADDRESS normal(const _SDICADDRESS& place) {
  return {place.block + (place.offset >> book::kBlockShift),
          static_cast<uint32_t>(place.offset & book::kBlockMask)};
}

// Words begin at even offsets.
bool isInText(const ShelvedBook& book, const _SDICADDRESS& place) {
  uint32_t first = 0, last = 0;
  SDicGetHonbunBlockInformation(book.handle(), &first, &last);
  return place.block >= first && place.block <= last && place.offset % 2 == 0 && book.has(place);
}

Failure noSuchWord(ShelvedBook& book, const std::string& word) {
  BookSearch search(book);
  std::string near;
  size_t count = 0;
  for (const BookHit& hit : search.find(BookMethod::kForward, word).hits) {
    if (count++ == kSuggestions) break;
    near += (near.empty() ? "" : ", ") + search.headword(hit);
  }
  return {kExitNothing, kNotFound, "no entry for " + quoted(word) + " in the book " + quoted(book.name()),
          near.empty() ? "Search for a part of it: zavel book search --method forward"
                       : "Headwords that begin so: " + near};
}

}  // namespace

std::string taken(char* bytes, size_t length) {
  std::string text(bytes ? bytes : "", bytes ? length : 0);
  std::free(bytes);
  return text;
}

Failure readEntry(ShelvedBook& book, const _SDICADDRESS& given, BookEntry* entry, bool anywhere) {
  const _SDICADDRESS place = normal(given);
  if (!(anywhere ? book.has(place) && place.offset % 2 == 0 : isInText(book, place))) {
    return book.noSuchPlace(given);
  }
  char* bytes = nullptr;
  uint32_t length = 0;
  const uint32_t code = SDicGetBodyData(book.handle(), &place, &bytes, &length);
  if (code != book::kDone) return bookFailure(code, book.name(), "reading the entry");
  entry->place = place;
  entry->words = taken(bytes, length);
  entry->text = decodeText(entry->words, book.characters(), place);
  entry->headword = BookSearch(book).headwordAt(place);
  return {};
}

Failure placesOf(ShelvedBook& book, const std::string& placeOrWord, std::vector<_SDICADDRESS>* places) {
  _SDICADDRESS place = {};
  if (readPlace(placeOrWord, &place)) {
    places->push_back(place);
    return {};
  }
  if (!isUtf8(placeOrWord))
    return {kExitUsage, "not_text", "the word is not UTF-8 text", "Write it in UTF-8."};
  const BookHits hits = BookSearch(book).find(BookMethod::kExact, placeOrWord);
  if (hits.failure) return hits.failure;
  for (const BookHit& hit : hits.hits) places->push_back(hit.body);
  return places->empty() ? noSuchWord(book, placeOrWord) : Failure();
}

Failure neighbour(ShelvedBook& book, bool next, const _SDICADDRESS& given, _SDICADDRESS* neighbour) {
  const _SDICADDRESS place = normal(given);
  if (!isInText(book, place)) return book.noSuchPlace(given);
  const bool through = SDicIsZenbunSearch(book.handle());
  const auto step = next ? (through ? SDicGetZenbunNextEntryAddress : SDicGetNextEntryAddress)
                         : (through ? SDicGetZenbunPrevEntryAddress : SDicGetPrevEntryAddress);
  const uint32_t code = step(book.handle(), &place, neighbour);
  if (code == book::kNoFurtherEntry) {
    return {kExitNothing, "no_further_entry",
            std::string("there is no entry ") + (next ? "behind " : "ahead of ") + placeText(given) +
                " in the book " + quoted(book.name()),
            next ? "It is the last one." : "It is the first one."};
  }
  return bookFailure(code, book.name(), "the way to the next entry");
}

}  // namespace zavel::host
