// Damaged books under every call: catalog, fonts, block sets as they stand in their files.
#include "BookFolder.h"
#include "Input.h"
#include "MemoryStorage.h"
#include "support/BookCalls.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel::fuzz;
  if (size > 4096) return 0;
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (const auto& [name, content] : baseBook()) all.push_back(name);
    return all;
  }();
  Input input(data, size);
  std::map<std::string, std::string> files = baseBook();
  damage(input, files, names);
  MemoryStorage disk;
  for (const auto& [name, content] : files) disk.files["d/" + name] = content;
  zavel::test::BookCalls().useAll("d/BOOK");
  return 0;
}
