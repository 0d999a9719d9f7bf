// `zavel book show`, `next` and `prev`. Tests: tests/zavel/book/BookShowTest.cpp
#include <cstdio>
#include <string>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookEntry.h"
#include "book/BookFailure.h"
#include "book/BookOptions.h"
#include "book/BookScreen.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

constexpr size_t kWordsInRow = 8;

// The words of an entry in rows, each with its place.
std::string rawText(const BookEntry& entry) {
  std::string out;
  char number[8];
  for (size_t at = 0; at + 2 <= entry.words.size(); at += 2) {
    const size_t inRow = at / 2 % kWordsInRow;
    if (inRow == 0) {
      const uint64_t place = uint64_t{entry.place.block} * 2048 + entry.place.offset + at;
      out += placeText({static_cast<uint32_t>(place / 2048), static_cast<uint32_t>(place % 2048)}) + " ";
    }
    std::snprintf(number, sizeof number, " %04X",
                  readBE16(reinterpret_cast<const uint8_t*>(entry.words.data()) + at));
    out += number;
    if (inRow + 1 == kWordsInRow || at + 4 > entry.words.size()) out += "\n";
  }
  return out;
}

std::string entryText(const ShelvedBook& book, const BookEntry& entry, const BookScreen& screen, bool raw) {
  const std::string where = printable(book.name()) + " " + placeText(entry.place);
  BookLook look = screen.look();
  look.self = entry.place;
  return screen.dim(where) + "\n" + (raw ? rawText(entry) : textForEye(entry.text, look));
}

void writeEntry(JsonWriter& json, const BookEntry& entry, bool raw) {
  json.beginObject().member("place", placeText(entry.place)).member("headword", entry.headword);
  if (raw) {
    std::string digits;
    char pair[4];
    for (const char c : entry.words) {
      std::snprintf(pair, sizeof pair, "%02X", static_cast<unsigned char>(c));
      digits += pair;
    }
    json.member("raw", digits);
  } else {
    json.member("text", textForEye(entry.text, {.places = LinkPlaces::kNone})).key("lines");
    writeLines(json, entry.text);
  }
  json.endObject();
}

// What is asked for, then entries as they come.
class EntryView {
 public:
  EntryView(const BookOptions& options, const ShelvedBook& book)
      : options_(options), book_(book), screen_(options, !options.json) {}

  void add(const BookEntry& entry) {
    if (options_.json) {
      if (count_ == 0) begin("found");
      writeEntry(json_, entry, options_.raw);
    } else {
      screen_.write((count_ > 0 ? "\n" : "") + entryText(book_, entry, screen_, options_.raw));
    }
    ++count_;
  }

  // The exit status; `failure` ended it. A word that isn't there is no failure to who reads documents.
  int finish(const Failure& failure) {
    const bool nothing = options_.json && count_ == 0 && failure.code == kNotFound;
    if (count_ == 0 && failure && !nothing) return report(failure, options_.json);
    screen_.finish();
    if (nothing) begin(kNotFound);
    if (options_.json) std::printf("%s\n", json_.endArray().endObject().text().c_str());
    if (nothing) return kExitNothing;
    if (!failure) return kExitFound;
    report(failure, false);
    return failure.status == kExitNothing ? kExitFound : kExitPartly;
  }

 private:
  void begin(const char* status) {
    json_.beginObject().member("schema", 1).member("query", options_.place).member("status", status);
    json_.member("book", book_.name()).member("title", book_.title()).key("entries").beginArray();
  }

  const BookOptions& options_;
  const ShelvedBook& book_;
  BookScreen screen_;
  JsonWriter json_;
  size_t count_ = 0;
};

Failure openFor(const BookOptions& options, ShelvedBook* book, std::vector<_SDICADDRESS>* places) {
  BookPlace place;
  Failure failure = findBook(options.book, &place);
  if (!failure) failure = book->open(place);
  if (!failure) failure = placesOf(*book, options.place, places);
  return failure;
}

int walk(const BookOptions& options, bool next) {
  ShelvedBook book;
  std::vector<_SDICADDRESS> places;
  Failure failure = openFor(options, &book, &places);
  if (failure) return EntryView(options, book).finish(failure);
  if (places.size() > 1) {
    std::string all;
    for (const _SDICADDRESS& place : places) all += (all.empty() ? "" : ", ") + placeText(place);
    return report({kExitUsage, "several_entries", "there are several entries of " + quoted(options.place),
                   "Choose the place of one: " + all},
                  options.json);
  }
  EntryView view(options, book);
  _SDICADDRESS at = places.front();
  for (long i = 0; i < std::max(options.limit, 1L) && !failure; ++i) {
    BookEntry entry;
    failure = neighbour(book, next, at, &at);
    if (!failure) failure = readEntry(book, at, &entry);
    if (!failure) view.add(entry);
  }
  return view.finish(failure);
}

}  // namespace

int runBookShow(const BookOptions& options) {
  ShelvedBook book;
  std::vector<_SDICADDRESS> places;
  Failure failure = openFor(options, &book, &places);
  if (failure) return EntryView(options, book).finish(failure);
  if (options.limit > 0 && places.size() > static_cast<size_t>(options.limit))
    places.resize(static_cast<size_t>(options.limit));
  EntryView view(options, book);
  for (size_t i = 0; i < places.size() && !failure; ++i) {
    BookEntry entry;
    failure = readEntry(book, places[i], &entry);
    if (!failure) view.add(entry);
  }
  return view.finish(failure);
}

int runBookNext(const BookOptions& options) {
  return walk(options, true);
}

int runBookPrev(const BookOptions& options) {
  return walk(options, false);
}

}  // namespace zavel::host
