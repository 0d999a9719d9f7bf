// Texts of bytes that never were a book's, under bodies, headwords, the ways forth and back, and menus: the
// book's identity (low byte first), a place, then the text.
#include "BookFolder.h"
#include "Input.h"
#include "support/BookCalls.h"
#include "support/BookWriter.h"
#include "support/SmallBook.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::fuzz;
  using namespace zavel::test;
  if (size > 8192) return 0;
  Input input(data, size);
  BookWriter writer;
  writer.identity = input.word();
  const uint32_t place = input.word() & 0x1FFF;
  const std::string flags(4, '\0');
  // The blocks that some books' rules name, and the menus' as well.
  writer.record({.kind = 0, .start = 25, .end = 28, .flags = flags, .name = "text"});
  writer.record({.kind = 1, .start = 29, .end = 30, .flags = flags, .name = "text"});
  writer.record({.kind = 0x10, .start = 31, .end = 32, .flags = flags, .name = "text"});
  BookFolder book({{"BOOK", writer.catalog()}, {"text", packed(input.rest())}});
  if (!book.handle()) return 0;
  BookCalls calls;
  calls.texts(book.handle(), {25, 0});
  calls.texts(book.handle(), {25, 1550});
  calls.texts(book.handle(), {25, place});
  calls.menus(book.handle());
  return 0;
}
