// Settings of applications, a property list for each.
#ifndef PORT_LINUX_BASE_PLISTUSERDEFAULTS_H
#define PORT_LINUX_BASE_PLISTUSERDEFAULTS_H

#include <string>

#include "platform/Folders.h"
#include "platform/PropertyLists.h"
#include "platform/UserDefaults.h"

namespace zavel {

// The preferences folder is "Library/Preferences" in the home folder of the platform; it is made when
// something is first written there. Lists are XML. Of two processes that write at the same moment the last
// one wins, whole.
class PlistUserDefaults : public UserDefaults {
 public:
  PlistUserDefaults(PropertyLists& lists, Folders& folders) : lists_(lists), folders_(folders) {}

  bool synchronize(const std::string& identifier) override;
  Value value(const std::string& identifier, const std::string& key) override;
  bool setValue(const std::string& identifier, const std::string& key, const Value& value) override;

 private:
  // Empty for a name that leads out of the preferences folder, and where there is no home.
  std::string path(const std::string& identifier);
  bool read(const std::string& path, Value::Dict* all);

  PropertyLists& lists_;
  Folders& folders_;
};

}  // namespace zavel

#endif
