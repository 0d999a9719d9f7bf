// Single settings of applications, by application identifier.
#ifndef PLATFORM_USERDEFAULTS_H
#define PLATFORM_USERDEFAULTS_H

#include <string>

#include "foundation/Export.h"
#include "platform/Value.h"

namespace zavel {

// An identifier is either a name ("local.tarnwick.TWEDBrowser": a property list of that name in the user's
// preferences folder) or the absolute path of a property list without ".plist". Nothing is kept in memory:
// each call reads the file, so processes see each other's changes.
class ZAVEL_API UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  // Whether the identifier's file can be read, or isn't there.
  virtual bool synchronize(const std::string& identifier) = 0;
  // The value at the top-level key; null when file or key is missing or the file can't be read.
  virtual Value value(const std::string& identifier, const std::string& key) = 0;
  // A null `value` takes the key away. False when the file could not be written; it is then as it was. A file
  // that is there and can't be read is never written over: false.
  virtual bool setValue(const std::string& identifier, const std::string& key, const Value& value) = 0;
};

}  // namespace zavel

#endif
