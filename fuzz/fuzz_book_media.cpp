// Tags of pictures, sounds and films, and the tables and data that they lead to: the book is book 300 when
// the first byte is odd; the length of a tag, the tag, then the regions' bytes. The tables stand at the start
// of them.
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
  writer.identity = (input.byte() & 1) != 0 ? 300 : 1;
  const std::string tag = input.bytes(input.byte());
  const std::string flags(4, '\0');
  writer.record({.kind = 0, .start = 1, .end = 1, .flags = flags, .name = "r1"});
  uint32_t start = 2;
  for (const uint16_t kind : {0xD0, 0xD2, 0xD8}) {
    writer.record({.kind = kind, .start = start, .end = start + 3, .flags = flags, .name = "media"});
    start += 4;
  }
  BookFolder book({{"BOOK", writer.catalog()}, {"media", packed(input.rest())}});
  if (!book.handle()) return 0;
  BookCalls calls;
  calls.media(book.handle(), tag);
  for (const std::string& sound : {smallMonoTag(), smallColorTag(), smallSoundTag(0x0100)})
    calls.media(book.handle(), sound);
  return 0;
}
