// Tests: tests/zavel/CommandTest.cpp
#include "PlacesInUse.h"

#include <unistd.h>

#include "Failure.h"
#include "config/PathTableRows.h"
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

// Replaces `*folder` by what `table` has for `entry`; false when it has nothing.
bool takeFrom(const Value& table, PathEntry entry, std::string* folder) {
  for (const PathRow& row : kPathRows) {
    if (row.entry != entry) continue;
    const char* key = groupKey(row.group);
    const Value* group = key ? table.find(key) : nullptr;
    if (!group) return false;
    const std::optional<std::string> path =
        ZavelPath().extractFromDictionaryCreateCopy(*group, row.key, false);
    if (!path || path->empty()) return false;
    *folder = *path;
    while (folder->size() > 1 && folder->back() == '/') folder->pop_back();
    return true;
  }
  return false;
}

}  // namespace

std::string pathTableFile() {
  return defaultPathTablePath() + ".plist";
}

PathTableRoots pathTableRoots(const Places& places) {
  PathTableRoots roots;
  roots.data = places.data;
  roots.cache = places.cache;
  roots.preferences = places.config;
  roots.documents = inFolder(places.data, "documents");
  roots.helpers = helpersFolder();
  return roots;
}

bool pathTableNamesDictionary() {
  Value table;
  std::string folder;
  return platform().propertyLists().readFile(pathTableFile(), &table) &&
         takeFrom(table, PathEntry::kKenkyuDictionaryFolder, &folder);
}

void warnOfDamagedPathTable() {
  const std::string file = pathTableFile();
  if (access(file.c_str(), F_OK) != 0 || pathTableNamesDictionary()) return;
  warn("the path table " + file + " can't be used, so look-ups fail; remove it: a new one is written then");
}

Places placesInUse() {
  Places places = findPlaces();
  Value table;
  if (places.data.empty() || !renewPathTable(defaultPathTablePath(), pathTableRoots(places))) return places;
  if (!platform().propertyLists().readFile(pathTableFile(), &table)) return places;
  takeFrom(table, PathEntry::kKenkyuDictionaryFolder, &places.dictionary);
  takeFrom(table, PathEntry::kCacheFolder, &places.cache);
  return places;
}

}  // namespace zavel::host
