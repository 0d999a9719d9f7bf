// Any bytes as a two-part file; what was read must be written and read again alike.
#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "platform/ForkedFiles.h"
#include "platform/Platform.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 65536) return 0;
  fuzz::MemoryStorage disk;
  disk.files["/f"] = std::string(reinterpret_cast<const char*>(data), size);
  ForkedFiles& files = platform().forkedFiles();
  std::string text, record;
  if (!files.read("/f", "styl", 128, &text, &record)) {
    fuzz::demand(text.empty() && record.empty(), "a failure gives nothing");
    return 0;
  }
  const auto writer = files.create("/g", "TEXT", "ttxt");
  const bool written = writer && writer->writeText(text) && writer->writeStyle("styl", 128, record);
  fuzz::demand(written && writer->close(), "what was read can be written");
  std::string textAgain, recordAgain;
  fuzz::demand(files.read("/g", "styl", 128, &textAgain, &recordAgain), "what was written can be read");
  fuzz::demand(text == textAgain && record == recordAgain, "and is the same");
  return 0;
}
