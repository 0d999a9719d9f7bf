// Tests: tests/config/ZFWPlistControllerTest.cpp
#include "config/ZFWPlistController.h"

#include "config/TwcServices.h"
#include "config/ZavelPath.h"
#include "foundation/Storage.h"
#include "platform/Bundle.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel {
namespace {

constexpr char kPreferencesFolder[] = "/Library/Preferences";
constexpr char kDamagedExtension[] = ".damaged";
constexpr int kMostDamagedFiles = 1000;

// Empty without a home.
std::string storePath() {
  const std::string home = platform().folders().home();
  if (home.empty()) return std::string();
  const char* edition = zavelType() == ZAVEL_TYPE_GENERAL ? "_ZavelLex.plist" : "_Medical.plist";
  return home + kPreferencesFolder + "/" + platform().bundle().libraryIdentifier() + edition;
}

bool writeAll(const std::string& path, Value::Dict all) {
  return platform().propertyLists().writeFile(path, Value(std::move(all)), PropertyListFormat::kXml);
}

}  // namespace

std::unique_ptr<ZFWPlistController> gZFWPlist;

ZFWPlistController::ZFWPlistController() : path_(storePath()) {
  if (!path_.empty()) begin();
}

void ZFWPlistController::begin() {
  Value::Dict all;
  if (readAll(&all)) return;
  if (storage().exists(path_) && !keepAside()) return;
  twcCreateFolder(path_.substr(0, path_.rfind('/')).c_str());
  writeAll(path_, Value::Dict());
}

bool ZFWPlistController::keepAside() {
  std::string aside = path_ + kDamagedExtension;
  for (int number = 2; storage().exists(aside); ++number) {
    if (number > kMostDamagedFiles) return false;
    aside = path_ + kDamagedExtension + "-" + std::to_string(number);
  }
  if (!storage().rename(path_, aside)) return false;
  damagedFile_ = aside;
  return true;
}

bool ZFWPlistController::readAll(Value::Dict* all) const {
  Value file;
  if (path_.empty() || !platform().propertyLists().readFile(path_, &file) || !file.isDict()) return false;
  *all = std::move(*file.asDict());
  return true;
}

bool ZFWPlistController::setObject(const Value& object, const std::string& key) {
  Value::Dict all;
  if (object.isNull() || !readAll(&all)) return false;
  all[key] = object;
  return writeAll(path_, std::move(all));
}

Value ZFWPlistController::objectForKey(const std::string& key) const {
  Value::Dict all;
  if (!readAll(&all)) return Value();
  const auto found = all.find(key);
  return found == all.end() ? Value() : std::move(found->second);
}

// One reading and one writing: a map that could not be read must not be taken for one that isn't there.
bool ZFWPlistController::setItem(const Value& object, const std::string& key, const std::string& item) {
  Value::Dict all;
  if (object.isNull() || !readAll(&all)) return false;
  Value& map = all.try_emplace(key, Value::Dict()).first->second;
  if (!map.isDict()) return false;
  (*map.asDict())[item] = object;
  return writeAll(path_, std::move(all));
}

Value ZFWPlistController::itemForKey(const std::string& key, const std::string& item) const {
  Value object;
  readItem(key, item, &object);
  return object;
}

bool ZFWPlistController::readItem(const std::string& key, const std::string& item, Value* object) const {
  Value::Dict all;
  if (!readAll(&all)) return false;
  const auto map = all.find(key);
  const Value* found = map == all.end() ? nullptr : map->second.find(item);
  *object = found ? *found : Value();
  return true;
}

}  // namespace zavel
