// Any bytes as a property list, as the path table and as the table of entities; what was read must be written
// and read again alike.
#include <cstring>

#include "EngineCalls.h"
#include "MemoryStorage.h"
#include "config/ZavelCommonModule.h"
#include "config/ZavelPath.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace {

using namespace zavel;

// Numbers and dates may lose digits the first time they are written, not the second time. Compared as XML,
// which is the same for values that are (a NaN is equal to nothing, and binary lists share parts or don't).
void writeAndRead(const Value& value, PropertyListFormat format) {
  PropertyLists& lists = platform().propertyLists();
  const std::string written = lists.serialize(value, format);
  if (written.empty()) return;  // past a limit
  Value once, twice;
  fuzz::demand(lists.parse(written, &once), "what was written can be read");
  fuzz::demand(lists.parse(lists.serialize(once, format), &twice), "once more");
  const PropertyListFormat xml = PropertyListFormat::kXml;
  fuzz::demand(lists.serialize(once, xml) == lists.serialize(twice, xml), "and is the same");
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

void loadEntities(const std::string& bytes) {
  fuzz::MemoryStorage disk;
  disk.files["/entities.plist"] = bytes;
  ZavelCommonModule("/entities.plist").convertEntities("&amp; &lt;x");
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
  loadEntities(bytes);
  return 0;
}
