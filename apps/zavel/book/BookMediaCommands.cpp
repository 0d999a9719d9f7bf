// `zavel book picture`, `sound` and `icon`. Tests: tests/zavel/book/BookMediaTest.cpp
#include <cstdio>
#include <cstdlib>

#include "book/BookFailure.h"
#include "book/BookMedia.h"
#include "book/BookOptions.h"
#include "book/BookSound.h"
#include "book/BookStatus.h"
#include "book/SDic.h"
#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

constexpr size_t kIconHeader = 118;                   // with its palette
constexpr size_t kLargeIcon = 512, kSmallIcon = 120;  // bytes of dots

Failure open(const BookOptions& options, ShelvedBook* book) {
  BookPlace place;
  const Failure failure = findBook(options.book, &place);
  return failure ? failure : book->open(place);
}

// The length of a bitmap file stands in its header.
std::string takenBitmap(char* bitmap) {
  constexpr size_t kLength = 2;
  return taken(bitmap, readLE32(reinterpret_cast<const uint8_t*>(bitmap) + kLength));
}

Failure readPicture(ShelvedBook& book, const std::string& place, BookMedium* medium) {
  std::string tag;
  if (const Failure failure = findTag(book, place, SpanKind::kPicture, &tag, medium)) return failure;
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  uint32_t length = 0;
  const uint32_t code = SDicGetPictureData(book.handle(), tag.data(), &name, &nameLength, &data, &length);
  if (code != book::kDone) return bookFailure(code, book.name(), "the picture");
  std::free(name);
  medium->data = taken(data, length);
  return {};
}

// A sound with a known fault is given with word of it.
Failure readSound(ShelvedBook& book, const std::string& place, BookMedium* medium) {
  std::string tag;
  if (const Failure failure = findTag(book, place, SpanKind::kSound, &tag, medium)) return failure;
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  uint32_t length = 0;
  const uint32_t code = SDicGetStreamData(book.handle(), tag.data(), &name, &nameLength, &data, &length);
  if (code != book::kDone && code != book::kKnownSoundFault)
    return bookFailure(code, book.name(), "the sound");
  if (code == book::kKnownSoundFault) warn("this sound has a fault since the book was published");
  std::free(name);
  medium->data = taken(data, length);
  return {};
}

Failure cutIcon(const ShelvedBook& book, const std::string& which) {
  return {kExitDamaged, kDamagedBook,
          "the book " + quoted(book.name()) + " is damaged: its " + which + " is cut short",
          "Make it again from its source, or put back a copy that is whole."};
}

// A catalog without an icon gives a bitmap without dots.
Failure readIcon(ShelvedBook& book, bool small, BookMedium* medium) {
  char* icon = nullptr;
  const char* const catalog = book.place().catalog.c_str();
  const uint32_t code = SDicGetDicIconInformation(catalog, small ? nullptr : &icon, small ? &icon : nullptr);
  const std::string which = small ? "small icon" : "large icon";
  if (code != book::kDone) return cutIcon(book, which);
  medium->data = takenBitmap(icon);
  medium->kind = "icon";
  if (medium->data.size() <= kIconHeader) return lacking(book.name(), which);
  const bool whole = medium->data.size() >= kIconHeader + (small ? kSmallIcon : kLargeIcon);
  return whole ? Failure() : cutIcon(book, which);
}

template <typename Read>
Failure readFrom(const BookOptions& options, ShelvedBook* book, BookMedium* medium, const Read& read) {
  const Failure failure = open(options, book);
  return failure ? failure : read(*book, medium);
}

template <typename Read>
int run(const BookOptions& options, const Read& read) {
  ShelvedBook book;
  BookMedium medium;
  const Failure failure = readFrom(options, &book, &medium, read);
  return failure ? report(failure, options.json) : deliver(book, medium, options);
}

// What it is stands there while it is heard. A document comes last: there is one, whatever fails.
int deliverAndPlay(const ShelvedBook& book, const BookMedium& sound, const BookOptions& options) {
  if (!options.json) {
    const int status = deliver(book, sound, options);
    std::fflush(stdout);
    if (status != kExitFound) return status;
  }
  if (const Failure failure = playSound(book, sound)) return report(failure, options.json);
  return options.json ? deliver(book, sound, options) : kExitFound;
}

}  // namespace

int runBookPicture(const BookOptions& options) {
  return run(options,
             [&](ShelvedBook& book, BookMedium* medium) { return readPicture(book, options.place, medium); });
}

int runBookSound(const BookOptions& options) {
  const auto read = [&](ShelvedBook& from, BookMedium* sound) {
    return readSound(from, options.place, sound);
  };
  if (!options.play) return run(options, read);
  ShelvedBook book;
  BookMedium sound;
  const Failure failure = readFrom(options, &book, &sound, read);
  return failure ? report(failure, options.json) : deliverAndPlay(book, sound, options);
}

int runBookIcon(const BookOptions& options) {
  return run(options,
             [&](ShelvedBook& book, BookMedium* medium) { return readIcon(book, options.small, medium); });
}

}  // namespace zavel::host
