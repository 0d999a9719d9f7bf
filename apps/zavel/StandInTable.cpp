// Tests: tests/zavel/DictionariesTest.cpp
#include "StandInTable.h"

#include "config/PathTableRows.h"
#include "config/ZavelPath.h"

namespace zavel::host {
namespace {

const char* groupKey(PathGroup group) {
  for (const PathGroupRow& row : kPathGroupRows) {
    if (row.group == group) return row.key;
  }
  return nullptr;
}

}  // namespace

Value standInTable(const Value& table, const std::string& folder) {
  Value::Dict out = table.isDict() ? *table.asDict() : Value::Dict();
  for (const PathRow& row : kPathRows) {
    if (row.kind != PathKind::kFolder) continue;
    const char* key = groupKey(row.group);
    const auto group = key ? out.find(key) : out.end();
    Value::Dict* map = key ? (group == out.end() ? nullptr : group->second.asDict()) : &out;
    if (!map || ZavelPath().extractFromDictionaryCreateCopy(*map, row.key, true)) continue;
    (*map)[row.key] = folder + "/" + row.key;
  }
  return out;
}

}  // namespace zavel::host
