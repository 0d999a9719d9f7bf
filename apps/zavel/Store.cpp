// Tests: tests/zavel/StoreTest.cpp, DictionariesTest.cpp
#include "Store.h"

#include <algorithm>

#include "Dictionaries.h"
#include "config/ZFWPlistController.h"
#include "foundation/Storage.h"

namespace zavel::host {
namespace {

std::string member(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

// False when the store can't be read.
bool readItems(Value::Array* items) {
  Value list;
  if (!gZFWPlist->readItem(ZFWDictTabKey, ZFWDictTabTWEDItem, &list)) return false;
  *items = list.isArray() ? *list.asArray() : Value::Array();
  return true;
}

// The list of a run, which is not stored.
void pretendItems(const std::string& path, const Value::Array& items, HostPlatform& platform) {
  Value::Dict tab, all;
  tab.emplace(ZFWDictTabTWEDItem, items);
  all.emplace(ZFWDictTabKey, std::move(tab));
  platform.propertyLists().pretend(path, std::move(all));
}

bool addIfMissing(const char* type, RowKind kind, const char* status, Value::Array* items) {
  const auto same = [type](const Value& item) { return member(item, ZFWDictTypeKey) == type; };
  if (std::any_of(items->begin(), items->end(), same)) return false;
  Value::Dict item{
      {ZFWDictTypeKey, type}, {ZFWDictTitleKey, dictionaryName(kind)}, {ZFWSelectStatusKey, status}};
  items->emplace_back(std::move(item));
  return true;
}

}  // namespace

std::string openStore(HostPlatform& platform) {
  gZFWPlist = std::make_unique<ZFWPlistController>();
  const std::string& path = gZFWPlist->path();
  platform.propertyLists().keep(path);
  Value::Array list;
  const bool known = readItems(&list);
  bool added = addIfMissing(ZFWMirellType, RowKind::kBilingual, ZFWYesStatus, &list);
  added = addIfMissing(ZFWTransType, RowKind::kTranslation, ZFWNoStatus, &list) || added;
  // A list that could not be read may hold the user's choices: nothing is put in its place.
  const bool stored = added && known && gZFWPlist->setItem(list, ZFWDictTabKey, ZFWDictTabTWEDItem);
  if (added && !stored) pretendItems(path, list, platform);
  if (!known && storage().exists(path)) {
    return "the preferences in " + path + " can't be read; the defaults are used this time";
  }
  if (gZFWPlist->damagedFile().empty()) return {};
  return "the preferences could not be read and were reset; the old file is now " + gZFWPlist->damagedFile();
}

bool searchesTranslation() {
  Value::Array items;
  readItems(&items);
  return std::any_of(items.begin(), items.end(), [](const Value& item) {
    return member(item, ZFWDictTypeKey) == ZFWTransType && member(item, ZFWSelectStatusKey) != ZFWNoStatus;
  });
}

void closeStore() {
  gZFWPlist.reset();
}

}  // namespace zavel::host
