// Forms of multi searches and their lists of choices: the length of the form (low byte first), the form, then
// what its indexes and lists hold.
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
  const std::string form = input.bytes(input.word() & 0xFFF);
  BookWriter writer;
  const std::string flags(4, '\0');
  writer.record({.kind = 0, .start = 1, .end = 1, .flags = flags, .name = "r1"});
  writer.record({.kind = 2, .start = 12, .end = 27, .flags = flags, .name = "lists"});
  writer.record({.kind = 0xFF, .start = 28, .end = 43, .flags = flags, .name = "form"});
  BookFolder book({{"BOOK", writer.catalog()}, {"form", packed(form)}, {"lists", packed(input.rest())}});
  if (!book.handle()) return 0;
  BookCalls calls;
  calls.multi(book.handle());
  for (const char* query : {"▽０▼０AB", "▽０▼１A▼０AB", "▽０▼２AB│▼３AB"})
    calls.search(book.handle(), jis(query));
  return 0;
}
