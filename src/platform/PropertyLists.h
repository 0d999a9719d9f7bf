// Property lists in files, XML and binary.
#ifndef PLATFORM_PROPERTYLISTS_H
#define PLATFORM_PROPERTYLISTS_H

#include <string>
#include <string_view>

#include "platform/Value.h"

namespace zavel {

enum class PropertyListFormat { kXml, kBinary };

// Reading is guarded: a list of over 64 MiB, nested deeper than 512, with bytes that are not UTF-8 or
// with control bytes that XML can't hold, a key without value or a declared encoding other than UTF-8 is
// refused, and so is one with integers over 64 signed bits or dates that are none. Writing takes out of
// strings what XML can't hold. The port may have further limits and tells them.
class PropertyLists {
 public:
  virtual ~PropertyLists() = default;

  // False when `bytes` is no property list; `out` is then untouched.
  virtual bool parse(std::string_view bytes, Value* out) = 0;

  // Empty when `value` can't be written: nested deeper than 512, over 64 MiB, or a null other than as a
  // member of a map (where it is left out).
  virtual std::string serialize(const Value& value, PropertyListFormat format) = 0;

  // The same on a file. Reading false: missing, unreadable or refused. Writing is atomic.
  virtual bool readFile(const std::string& path, Value* out) = 0;
  virtual bool writeFile(const std::string& path, const Value& value, PropertyListFormat format) = 0;
};

}  // namespace zavel

#endif
