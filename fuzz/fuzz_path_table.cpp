// Any bytes as a property list, and as the path table; what was read must be written and read again alike.
#include "MemoryStorage.h"
#include "config/ZavelPath.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zavel;
  if (size > 65536) return 0;
  setLogSink([](const std::string&) {});
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  PropertyLists& lists = platform().propertyLists();
  Value value;
  if (lists.parse(bytes, &value)) {
    for (const PropertyListFormat format : {PropertyListFormat::kXml, PropertyListFormat::kBinary}) {
      const std::string written = lists.serialize(value, format);
      Value again;
      if (!written.empty() && !lists.parse(written, &again)) __builtin_trap();
    }
  }
  fuzz::MemoryStorage disk;
  disk.files["/table.plist"] = bytes;
  zavelPathInitialize();
  zavelPathLoadDictAndHelper("/table");
  for (int applet = 0; applet < 23; ++applet) zavelPathGetAppleyPath(applet);
  zavelPathTerminate();
  return 0;
}
