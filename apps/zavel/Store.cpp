// Tests: tests/zavel/DictionariesTest.cpp
#include "Store.h"

#include <algorithm>

#include "Dictionaries.h"
#include "config/ZFWPlistController.h"

namespace zavel::host {
namespace {

std::string member(const Value& map, const char* key) {
  const Value* value = map.find(key);
  return value ? value->string() : std::string();
}

Value::Array storedItems() {
  const Value list = gZFWPlist->itemForKey(ZFWDictTabKey, ZFWDictTabTWEDItem);
  return list.isArray() ? *list.asArray() : Value::Array();
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
  Value::Array list = storedItems();
  bool added = addIfMissing(ZFWMirellType, RowKind::kBilingual, ZFWYesStatus, &list);
  added = addIfMissing(ZFWTransType, RowKind::kTranslation, ZFWNoStatus, &list) || added;
  if (added && !gZFWPlist->setItem(list, ZFWDictTabKey, ZFWDictTabTWEDItem)) {
    Value::Dict tab, all;
    tab.emplace(ZFWDictTabTWEDItem, list);
    all.emplace(ZFWDictTabKey, std::move(tab));
    platform.propertyLists().pretend(path, std::move(all));
  }
  if (gZFWPlist->damagedFile().empty()) return {};
  return "the preferences could not be read and begin anew; the old file is " + gZFWPlist->damagedFile();
}

bool searchesTranslation() {
  const Value::Array items = storedItems();
  return std::any_of(items.begin(), items.end(), [](const Value& item) {
    return member(item, ZFWDictTypeKey) == ZFWTransType && member(item, ZFWSelectStatusKey) != ZFWNoStatus;
  });
}

void closeStore() {
  gZFWPlist.reset();
}

}  // namespace zavel::host
