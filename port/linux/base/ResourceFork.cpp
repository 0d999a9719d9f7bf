// All numbers are big end first.
//   0    header: place of the data, place of the map, length of the data, length of the map (32 bits each)
//   16   240 bytes left to the system and the application
//   256  data: each record as length (32 bits) and bytes
//   then the map: 24 bytes that are used in memory only, the place of the type list and of the name list in
//   the map (16 bits each), and the type list: number of types less 1; for each type its four characters,
//   number of records less 1, place of its references from the type list on; the references, 12 bytes each:
//   number, place of the name (0xFFFF none), attributes (8 bits) and place in the data (24), 4 bytes used in
//   memory only.
// Tests: tests/port/AppleSingleFilesTest.cpp
#include "base/ResourceFork.h"

#include <algorithm>
#include <vector>

#include "foundation/ByteReader.h"

namespace zavel {
namespace {

constexpr size_t kDataAt = 256;
constexpr size_t kMapHeaderSize = 28;
constexpr size_t kTypeListAt = 24;  // where the map tells the place of the type list
constexpr size_t kTypeSize = 8;
constexpr size_t kReferenceSize = 12;
constexpr size_t kMaxData = size_t{16} * 1024 * 1024;  // places in it have 24 bits
constexpr size_t kMaxPlace = 0xFFFF;
constexpr uint16_t kNoName = 0xFFFF;

struct TypeGroup {
  std::string type;
  std::vector<std::pair<uint16_t, uint32_t>> records;  // number, place in the data
};

// The records' data, and what the map must tell about them.
bool gather(const ResourceRecords& records, std::string* data, std::vector<TypeGroup>* groups) {
  for (const auto& [name, bytes] : records) {
    if (bytes.size() > kMaxData || data->size() + bytes.size() + 4 > kMaxData) return false;
    if (groups->empty() || groups->back().type != name.first) groups->push_back({name.first, {}});
    groups->back().records.push_back({name.second, static_cast<uint32_t>(data->size())});
    appendBE32(*data, static_cast<uint32_t>(bytes.size()));
    *data += bytes;
  }
  return true;
}

void appendTypeList(std::string& map, const std::vector<TypeGroup>& groups) {
  appendBE16(map, static_cast<uint16_t>(groups.size() - 1));
  size_t place = 2 + groups.size() * kTypeSize;
  for (const TypeGroup& group : groups) {
    map += group.type;
    appendBE16(map, static_cast<uint16_t>(group.records.size() - 1));
    appendBE16(map, static_cast<uint16_t>(place));
    place += group.records.size() * kReferenceSize;
  }
  for (const TypeGroup& group : groups) {
    for (const auto& [number, at] : group.records) {
      appendBE16(map, number);
      appendBE16(map, kNoName);
      appendBE32(map, at);  // attributes 0
      appendBE32(map, 0);
    }
  }
}

std::string_view viewAt(std::string_view bytes, uint32_t offset, uint32_t length, bool* inside) {
  *inside = offset <= bytes.size() && length <= bytes.size() - offset;
  return *inside ? bytes.substr(offset, length) : std::string_view();
}

ByteReader readerOf(std::string_view bytes) {
  return ByteReader(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

// Data and map of a fork. False when the header points outside it.
bool splitFork(std::string_view fork, std::string_view* data, std::string_view* map) {
  const ByteReader header = readerOf(fork);
  uint32_t dataAt, mapAt, dataLength, mapLength;
  if (!header.readBE32At(0, &dataAt) || !header.readBE32At(4, &mapAt) || !header.readBE32At(8, &dataLength) ||
      !header.readBE32At(12, &mapLength))
    return false;
  bool dataInside, mapInside;
  *data = viewAt(fork, dataAt, dataLength, &dataInside);
  *map = viewAt(fork, mapAt, mapLength, &mapInside);
  return dataInside && mapInside;
}

// Where something stands, if it is there at all.
struct Found {
  bool intact = false;  // nothing on the way was damaged
  bool present = false;
  size_t place = 0;
  size_t count = 0;
};

// The references of `type`: their place in the type list and their number.
Found findType(const ByteReader& types, const char* type) {
  uint16_t lastType;
  if (!types.readBE16At(0, &lastType)) return {};
  const size_t count = (lastType + 1u) & kMaxPlace;  // an empty list tells 0xFFFF
  for (size_t i = 0; i < count; ++i) {
    const size_t at = 2 + i * kTypeSize;
    uint32_t name;
    uint16_t lastRecord, place;
    if (!types.readBE32At(at, &name) || !types.readBE16At(at + 4, &lastRecord) ||
        !types.readBE16At(at + 6, &place))
      return {};
    if (name == readBE32(reinterpret_cast<const uint8_t*>(type))) return {true, true, place, lastRecord + 1u};
  }
  return {true, false, 0, 0};
}

// Place in the data of record `number` among `group`.
Found findNumber(const ByteReader& types, const Found& group, uint16_t number) {
  for (size_t i = 0; i < group.count; ++i) {
    const size_t at = group.place + i * kReferenceSize;
    uint16_t own;
    uint32_t place;
    if (!types.readBE16At(at, &own) || !types.readBE32At(at + 4, &place)) return {};
    if (own == number) return {true, true, place & 0xFFFFFFu, 1};
  }
  return {true, false, 0, 0};
}

}  // namespace

std::string writeResourceFork(const ResourceRecords& records) {
  std::string data;
  std::vector<TypeGroup> groups;
  if (records.empty() || !gather(records, &data, &groups)) return std::string();
  const size_t listSize = 2 + groups.size() * kTypeSize + records.size() * kReferenceSize;
  if (kMapHeaderSize + listSize > kMaxPlace) return std::string();

  std::string fork;
  fork.reserve(kDataAt + data.size() + kMapHeaderSize + listSize);
  appendBE32(fork, kDataAt);
  appendBE32(fork, static_cast<uint32_t>(kDataAt + data.size()));
  appendBE32(fork, static_cast<uint32_t>(data.size()));
  appendBE32(fork, static_cast<uint32_t>(kMapHeaderSize + listSize));
  fork.resize(kDataAt);
  fork += data;
  fork.append(kTypeListAt, '\0');
  appendBE16(fork, kMapHeaderSize);
  appendBE16(fork, static_cast<uint16_t>(kMapHeaderSize + listSize));
  appendTypeList(fork, groups);
  return fork;
}

bool readResource(std::string_view fork, const char* type, uint16_t number, std::string* record) {
  record->clear();
  std::string_view data, map;
  uint16_t listAt;
  if (!splitFork(fork, &data, &map) || !readerOf(map).readBE16At(kTypeListAt, &listAt)) return false;
  if (listAt > map.size()) return false;
  const ByteReader types = readerOf(map.substr(listAt));
  const Found group = findType(types, type);
  if (!group.present) return group.intact;
  const Found found = findNumber(types, group, number);
  if (!found.present) return found.intact;
  uint32_t length;
  if (!readerOf(data).readBE32At(found.place, &length)) return false;
  bool inside;
  *record = viewAt(data, static_cast<uint32_t>(found.place + 4), length, &inside);
  return inside;
}

}  // namespace zavel
