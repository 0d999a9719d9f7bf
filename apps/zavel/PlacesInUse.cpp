// Tests: tests/zavel/CommandTest.cpp
#include "PlacesInUse.h"

#include "config/PathTableRows.h"
#include "config/WorkPathTable.h"
#include "config/ZavelPath.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel::host {
namespace {

const char* groupKey(PathGroup group) {
  for (const PathGroupRow& row : kPathGroupRows) {
    if (row.group == group) return row.key;
  }
  return nullptr;
}

// Replaces `*folder` by what `table` has for `entry`, if it has anything.
void takeFrom(const Value& table, PathEntry entry, std::string* folder) {
  for (const PathRow& row : kPathRows) {
    if (row.entry != entry) continue;
    const char* key = groupKey(row.group);
    const Value* group = key ? table.find(key) : nullptr;
    if (!group) return;
    const std::optional<std::string> path =
        ZavelPath().extractFromDictionaryCreateCopy(*group, row.key, false);
    if (path && !path->empty()) *folder = *path;
    while (folder->size() > 1 && folder->back() == '/') folder->pop_back();
    return;
  }
}

}  // namespace

std::string pathTableFile() {
  return defaultPathTablePath() + ".plist";
}

Places placesInUse() {
  Places places = findPlaces();
  Value table;
  if (places.data.empty() || !platform().propertyLists().readFile(pathTableFile(), &table)) return places;
  takeFrom(table, PathEntry::kKenkyuDictionaryFolder, &places.dictionary);
  takeFrom(table, PathEntry::kCacheFolder, &places.cache);
  return places;
}

}  // namespace zavel::host
