// Tests: tests/port/PlistUserDefaultsTest.cpp
#include "base/PlistUserDefaults.h"

#include "foundation/Storage.h"

namespace zavel {
namespace {

constexpr char kPreferences[] = "/Library/Preferences";

bool makeFolders(const std::string& path) {
  if (path.empty() || storage().isFolder(path)) return true;
  return makeFolders(path.substr(0, path.rfind('/'))) && makeFolderOrFind(path) == 0;
}

}  // namespace

bool PlistUserDefaults::synchronize(const std::string& identifier) {
  Value::Dict all;
  return read(path(identifier), &all);
}

Value PlistUserDefaults::value(const std::string& identifier, const std::string& key) {
  Value::Dict all;
  if (!read(path(identifier), &all)) return Value();
  const auto found = all.find(key);
  return found == all.end() ? Value() : found->second;
}

bool PlistUserDefaults::setValue(const std::string& identifier, const std::string& key, const Value& value) {
  const std::string file = path(identifier);
  Value::Dict all;
  if (!read(file, &all)) return false;
  const auto found = all.find(key);
  if (found == all.end() ? value.isNull() : found->second == value) return true;  // nothing to change
  if (value.isNull()) {
    all.erase(found);
  } else {
    all[key] = value;
  }
  return makeFolders(file.substr(0, file.rfind('/'))) &&
         lists_.writeFile(file, Value(std::move(all)), PropertyListFormat::kXml);
}

std::string PlistUserDefaults::path(const std::string& identifier) {
  if (identifier.starts_with('/')) return identifier + ".plist";
  const std::string home = folders_.home();
  if (home.empty() || identifier.empty() || identifier.find('/') != std::string::npos) return {};
  return home + kPreferences + "/" + identifier + ".plist";
}

bool PlistUserDefaults::read(const std::string& path, Value::Dict* all) {
  if (path.empty()) return false;
  if (!storage().exists(path)) return true;
  Value value;
  if (!lists_.readFile(path, &value) || !value.isDict()) return false;
  *all = std::move(*value.asDict());
  return true;
}

}  // namespace zavel
