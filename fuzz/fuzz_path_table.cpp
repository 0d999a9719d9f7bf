// Any bytes as a property list, and as the path table; what was read must be written and read again alike.
#include <cstring>

#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "config/ZavelPath.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace {

using namespace zavel;

// Numbers and dates may lose digits the first time they are written, not the second time.
void writeAndRead(const Value& value, PropertyListFormat format) {
  PropertyLists& lists = platform().propertyLists();
  const std::string written = lists.serialize(value, format);
  if (written.empty()) return;  // past a limit
  Value again;
  fuzz::demand(lists.parse(written, &again), "what was written can be read");
  fuzz::demand(lists.serialize(again, format) == written, "and is written alike");
}

void loadTable(const std::string& bytes) {
  fuzz::MemoryStorage disk;
  disk.files["/table.plist"] = bytes;
  ZavelPath table;
  table.loadDictAndHelper("/table");
  size_t length = 0;  // every byte of every value is read
  for (int entry = 0; entry < kPathEntryCount; ++entry) {
    const char* value = table.value(static_cast<PathEntry>(entry));
    if (value != nullptr) length += std::strlen(value);
  }
  for (int applet = 0; applet < 24; ++applet) {
    const char* path = table.getAppleyPath(applet);
    if (path != nullptr) length += std::strlen(path);
  }
  volatile size_t sink = length;
  (void)sink;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 65536) return 0;
  setLogSink([](const std::string&) {});
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Value value;
  if (!platform().propertyLists().parse(bytes, &value)) return 0;
  writeAndRead(value, PropertyListFormat::kXml);
  writeAndRead(value, PropertyListFormat::kBinary);
  loadTable(bytes);
  return 0;
}
