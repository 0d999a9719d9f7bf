// Property lists through libplist, with a door in front of its readers and one behind its writers.
#ifndef PORT_LINUX_BASE_PLISTPROPERTYLISTS_H
#define PORT_LINUX_BASE_PLISTPROPERTYLISTS_H

#include <string>

#include "platform/PropertyLists.h"

namespace zavel {

// Reading: bytes that begin with "bplist00" are a binary list, all others XML; what isSafeBinaryPlist and
// safeXmlPlist refuse is refused. Where a map names a key twice the last value stands. A map has at most
// 65,536 keys, a list 4 million values; dates reach from December 1932 to January 2069.
//
// Writing: a null member of a map is left out. Nothing is written (an empty result) for a null elsewhere,
// for a value nested too deep or too large to be read back, and for a date that is no number. Dates are
// written in whole seconds, cut downwards; those before December 1932 or after January 2069 become the
// first or last that a list can hold. Carriage returns are written as references, so that other readers of
// XML don't take them for line feeds.
class PlistPropertyLists : public PropertyLists {
 public:
  bool parse(std::string_view bytes, Value* out) override;
  std::string serialize(const Value& value, PropertyListFormat format) override;
  bool readFile(const std::string& path, Value* out) override;
  bool writeFile(const std::string& path, const Value& value, PropertyListFormat format) override;
};

}  // namespace zavel

#endif
