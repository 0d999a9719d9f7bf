// An open book: the engine's functions with texts as UTF-8 and failures in words.
#ifndef ZAVEL_BOOK_SHELVEDBOOK_H
#define ZAVEL_BOOK_SHELVEDBOOK_H

#include <cstdint>
#include <optional>
#include <string>

#include "Failure.h"
#include "book/BookCharacters.h"
#include "book/BookPlaces.h"
#include "book/BookTypes.h"

namespace zavel::host {

// Searches of two books must not interleave, and all is used from one thread.
class ShelvedBook {
 public:
  ShelvedBook() = default;
  ~ShelvedBook();
  ShelvedBook(const ShelvedBook&) = delete;
  ShelvedBook& operator=(const ShelvedBook&) = delete;

  Failure open(const BookPlace& place);

  void* handle() const { return handle_; }  // of the engine's functions
  const BookPlace& place() const { return place_; }
  const std::string& name() const { return place_.name; }
  std::string title() const;  // what the catalog says; the name where it says nothing
  uint32_t methods() const;   // bits of book::Method

  // Read when first asked for.
  const BookCharacters& characters();

  // The failure of a book that lacks files which its catalog names: it opens, and what they hold isn't found.
  Failure incomplete() const;

  // Whether the place lies in the book; `type` as the engine has it, 0 for any data.
  bool has(const _SDICADDRESS& address, uint16_t type = 0) const;
  // The failure of a place that doesn't.
  Failure noSuchPlace(const _SDICADDRESS& address) const;

 private:
  BookPlace place_;
  void* handle_ = nullptr;
  std::optional<BookCharacters> characters_;
};

// The bytes of a file; nothing when it can't be read or has more than 64 MiB.
std::optional<std::string> bytesOf(const std::string& path);

// What the publisher or a form's maker wrote, in whichever encoding it is, as UTF-8 without controls.
std::string foreignText(const std::string& bytes);

// "39:10", as the command line takes it.
std::string placeText(const _SDICADDRESS& address);

// The address that a text of that form tells. False for any other text.
bool readPlace(const std::string& text, _SDICADDRESS* address);

}  // namespace zavel::host

#endif
