// `zavel book menu`. Tests: tests/zavel/book/BookShowTest.cpp
#include <cstdio>
#include <cstdlib>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookEntry.h"
#include "book/BookFailure.h"
#include "book/BookFormat.h"
#include "book/BookOptions.h"
#include "book/BookScreen.h"
#include "book/BookStatus.h"
#include "book/SDic.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

struct Menu {
  std::string place;  // empty where a catalog doesn't tell that of the first one
  BookText text;
};

// Where the first menu stands, which the engine shows and doesn't tell of: places in its text count from
// there. Block 0 when the catalog doesn't tell either.
_SDICADDRESS firstMenu(const ShelvedBook& book, bool words) {
  const std::string catalog = bytesOf(book.place().catalog).value_or("");
  const auto* const bytes = reinterpret_cast<const uint8_t*>(catalog.data());
  if (catalog.size() < book::kHeader) return {};
  const size_t count = readBE16(bytes + book::kHeaderRecords);
  for (size_t i = 0, at = book::kHeader; i < count && at + book::kRecord <= catalog.size();
       ++i, at += book::kRecord) {
    const uint16_t kind = readBE16(bytes + at + book::kRecordKind);
    const uint8_t low = book::lowByte(kind);
    const bool wanted =
        words ? low == book::kKindMenu || low == book::kKindMenuToo : low == book::kKindColorMenu;
    const _SDICADDRESS start = {readBE32(bytes + at + book::kRecordStart), 0};
    if (wanted && book::highByte(kind) != 0xFF && book.has(start)) return start;
  }
  return {};
}

// A book may have a menu of words, of pictures, or both.
Failure readMenu(ShelvedBook& book, const std::string& place, bool pictures, Menu* menu) {
  _SDICADDRESS address = {};
  if (!place.empty() && !readPlace(place, &address)) {
    return {kExitUsage, "usage", quoted(place) + " is no place",
            "Places are as in 39:10: what the menu prints."};
  }
  if (!place.empty() && !(book.has(address) && address.offset % 2 == 0)) return book.noSuchPlace(address);
  const bool words = !pictures && (book.methods() & book::kMethodMenu) != 0;
  if (!words && (book.methods() & book::kMethodColorMenu) == 0) {
    return lacking(book.name(), pictures ? "menu of pictures" : "menu");
  }
  char* bytes = nullptr;
  uint32_t length = 0;
  bool more = false;  // said of every menu that doesn't begin behind the mark of a text
  if (place.empty()) address = firstMenu(book, words);
  const _SDICADDRESS* const at = address.block == 0 ? nullptr : &address;
  const uint32_t code = words ? SDicGetMenuData(book.handle(), at, &bytes, &length, &more)
                              : SDicGetColorMenuData(book.handle(), at, &bytes, &length);
  if (code != book::kDone) return bookFailure(code, book.name(), "reading the menu");
  if (at) menu->place = placeText(address);
  menu->text = decodeText(taken(bytes, length), book.characters(), address);
  return {};
}

void printJson(const ShelvedBook& book, const Menu& menu) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", "found").member("book", book.name());
  json.member("title", book.title()).key("place");
  if (menu.place.empty()) {
    json.null();
  } else {
    json.string(menu.place);
  }
  json.member("text", textForEye(menu.text, {.places = LinkPlaces::kNone})).key("lines");
  writeLines(json, menu.text);
  std::printf("%s\n", json.endObject().text().c_str());
}

}  // namespace

int runBookMenu(const BookOptions& options) {
  ShelvedBook book;
  BookPlace place;
  Menu menu;
  Failure failure = findBook(options.book, &place);
  if (!failure) failure = book.open(place);
  if (!failure) failure = readMenu(book, options.place, options.pictures, &menu);
  if (failure) return report(failure, options.json);
  if (options.json) {
    printJson(book, menu);
    return kExitFound;
  }
  BookScreen screen(options, true);
  BookLook look = screen.look();
  look.places = LinkPlaces::kBehind;
  screen.write(textForEye(menu.text, look));
  return kExitFound;
}

}  // namespace zavel::host
