// Indexes of bytes that never were a book's, under every method: the kind of the index, the length of a
// query, the query's codes, then the index's blocks.
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
  const uint16_t kind = input.byte();
  const std::string flags = input.bytes(4);
  const std::string query = input.bytes(input.byte());
  const std::string index = packed(input.rest());
  if (flags.size() < 4) return 0;
  BookWriter writer;
  writer.record({.kind = 0, .start = 1, .end = 1, .flags = flags, .name = "r1"});
  writer.record({.kind = kind, .start = 4, .end = 19, .flags = flags, .name = "index"});
  BookFolder book({{"BOOK", writer.catalog()}, {"index", index}});
  if (!book.handle()) return 0;
  BookCalls calls;
  calls.search(book.handle(), query);
  calls.search(book.handle());
  return 0;
}
