// Any bytes as a two-part file.
#include "MemoryStorage.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 65536) return 0;
  fuzz::MemoryStorage disk;
  disk.files["/f"] = std::string(reinterpret_cast<const char*>(data), size);
  std::string text, record;
  const bool read = platform().forkedFiles().read("/f", "styl", 128, &text, &record);
  if (!read && (!text.empty() || !record.empty())) __builtin_trap();
  if (read) {
    auto writer = platform().forkedFiles().create("/g", "TEXT", "ttxt");
    if (!writer || !writer->writeText(text) || !writer->writeStyle("styl", 128, record) || !writer->close())
      __builtin_trap();
    std::string text2, record2;
    if (!platform().forkedFiles().read("/g", "styl", 128, &text2, &record2) || text2 != text)
      __builtin_trap();
  }
  return 0;
}
