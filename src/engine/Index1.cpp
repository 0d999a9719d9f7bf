// Loading first-level indexes. An index is read whole with one read, then its tables are proved to lie in
// what was read, so that no later search needs to look at file offsets again.
// Searching: Index1Search.cpp. Tests: tests/engine/Index1Test.cpp
#include "engine/Index1.h"

#include <algorithm>
#include <cstring>

#include "engine/Shim.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// Row numbers have 16 bits, so three full tables take less than 1 MB; more than this is no index.
constexpr int64_t kMaxIdxFile = 16 << 20;

constexpr size_t kUserKjiMaxA = kUserKjiRows * kRowAKji;
constexpr size_t kUserKjiMaxC = kUserKjiRows * kRowCKji;
static_assert(kUserHeader + kTableHead + kUserKjiMaxA + kTableHeadC + kUserKjiMaxC == kUserKjiBlock);

bool HasTableA(uint16_t type) {
  return type != kTypeKatu;
}
bool HasTableB(uint16_t type) {
  return type == kTypeE || type == kTypeHase;
}
bool IsUserKji(uint16_t set, uint16_t type) {
  return set == kSetUser && type == kTypeKji;
}

// The table at *offset with its head and rows inside the view; *offset then is that of the next table, which
// stands behind it.
bool PassTable(const ByteReader& file, size_t* offset) {
  uint32_t size = 0;
  uint32_t next = 0;
  if (!file.readLE32At(*offset, &size) || !file.readLE32At(*offset + 4, &next)) return false;
  if (!file.contains(*offset + kTableHead, size) || next < *offset + kTableHead + size) return false;
  *offset = next;
  return true;
}

bool LastTableFits(const ByteReader& file, size_t offset) {
  uint32_t size = 0;
  return file.readLE32At(offset, &size) && file.contains(offset + kTableHeadC, size);
}

// Sets the table pointers into `base`, of which the first `filled` bytes came from the file.
bool SetTables(idx_info_ptr* info, uint8_t* base, size_t filled, uint16_t set, uint16_t type) {
  const ByteReader file(base, filled);
  const size_t a = set == kSetUser ? kUserHeader : 0;
  size_t b = a;
  if (HasTableA(type) && !PassTable(file, &b)) return false;
  size_t c = b;
  if (HasTableB(type) && !PassTable(file, &c)) return false;
  if (!LastTableFits(file, c)) return false;
  info->tableBase = base;
  info->tableA = base + a;
  info->tableB = base + b;
  info->tableC = base + c;
  return true;
}

// A user kanji index grows in place, so its tables must keep to their shares of the fixed block.
bool KjiTablesFit(const idx_info_ptr& info) {
  return readLE32(info.tableA) <= kUserKjiMaxA && readLE32(info.tableC) <= kUserKjiMaxC;
}

bool ReadIndex(FsObj* stream, uint8_t* block, size_t blockSize, size_t fileSize) {
  std::memset(block + fileSize, 0, blockSize - fileSize);
  return stream->ReadExact(0, block, fileSize);
}

}  // namespace

uint8_t* CreateShMem(const char* name, uint32_t size, bool* existed) {
  FileMapping* mapping = CreateFileMapping(-1, nullptr, 4, 0, size, name);
  if (mapping == nullptr) return nullptr;
  *existed = GetLastError() == kAlreadyExists;
  // A known name keeps its first size.
  return mapping->size < size ? nullptr : static_cast<uint8_t*>(MapViewOfFile(mapping));
}

bool LoadIndex1(FsObj* stream, const char* name, idx_info_ptr* info, uint16_t set, uint16_t type,
                bool reload) {
  *info = idx_info_ptr{};
  const int64_t size = stream != nullptr ? stream->Size() : -1;
  if (size < 0 || size > kMaxIdxFile) return false;
  const size_t fileSize = static_cast<size_t>(size);
  const size_t blockSize = IsUserKji(set, type) ? kUserKjiBlock : fileSize;
  if (fileSize > blockSize) return false;
  bool existed = false;
  uint8_t* block = CreateShMem(name, static_cast<uint32_t>(blockSize), &existed);
  if (block == nullptr) return false;
  const bool asItIs = existed && !reload;
  if (!asItIs && !ReadIndex(stream, block, blockSize, fileSize)) return false;
  idx_info_ptr loaded;
  if (!SetTables(&loaded, block, asItIs ? blockSize : fileSize, set, type)) return false;
  if (IsUserKji(set, type) && !KjiTablesFit(loaded)) return false;
  loaded.size = static_cast<uint32_t>(blockSize);
  *info = loaded;
  return true;
}

void UnLoadIndex1(idx_info_ptr* info) {
  UnmapViewOfFile(info->tableBase);
  *info = idx_info_ptr{};
}

}  // namespace zavel::engine
