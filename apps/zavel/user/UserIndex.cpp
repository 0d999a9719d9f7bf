// Tests: tests/zavel/user/UserCheckTest.cpp, tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserIndex.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kLongestIndex = 16 << 20;  // the engine's own limit

const uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

uint64_t hashOf(std::string_view bytes) {
  uint64_t hash = 0xCBF29CE484222325;
  for (const char c : bytes) hash = (hash ^ static_cast<uint8_t>(c)) * 0x100000001B3;
  return hash;
}

// The rows of the table at *offset; goes on to the next table.
bool takeTable(std::string_view bytes, size_t* offset, std::string_view* rows) {
  const ByteReader file(bytesOf(bytes), bytes.size());
  uint32_t size = 0, next = 0;
  if (!file.readLE32At(*offset, &size) || !file.readLE32At(*offset + 4, &next)) return false;
  if (!file.contains(*offset + kTableHead, size) || next < *offset + kTableHead + size) return false;
  *rows = bytes.substr(*offset + kTableHead, size);
  *offset = next;
  return true;
}

// The last row of a table whose first child is not behind `child`; children stand in the order of parents.
size_t parentOf(std::string_view table, size_t rowSize, size_t child, size_t from) {
  size_t row = from;
  while ((row + 2) * rowSize <= table.size() && readLE16(bytesOf(table) + (row + 2) * rowSize - 2) <= child) {
    ++row;
  }
  return row;
}

// A row's part of a key: without the zeros of a word that ended.
std::string keyPart(std::string_view table, size_t rowSize, size_t row, size_t length) {
  if ((row + 1) * rowSize > table.size()) return {};
  std::string key(table.substr(row * rowSize, length));
  std::erase(key, '\0');
  return key;
}

}  // namespace

UserIndex::UserIndex(const std::string& path, uint16_t type) {
  std::string bytes;
  readable_ = readWholeFile(path, kLongestIndex, &bytes);
  if (!readable_) return;
  hash_ = hashOf(bytes);
  sound_ = read(bytes, type);
}

bool UserIndex::read(const std::string& bytes, uint16_t type) {
  if (bytes.size() < kUserHeader) return false;
  further_ = readLE16(bytesOf(bytes) + kKjiCountOffset);
  size_t table = kUserHeader;
  std::string_view a, b;
  if (!takeTable(bytes, &table, &a) || (type == kTypeE && !takeTable(bytes, &table, &b))) return false;
  const ByteReader file(bytesOf(bytes), bytes.size());
  uint32_t size = 0;
  if (!file.readLE32At(table, &size) || !file.contains(table + kTableHeadC, size)) return false;
  readRows(a, b, std::string_view(bytes).substr(table + kTableHeadC, size), type);
  return true;
}

void UserIndex::readRows(std::string_view tableA, std::string_view tableB, std::string_view tableC,
                         uint16_t type) {
  const size_t row = type == kTypeKji ? kRowCKji : kRowC, key = row - 4;
  const size_t rowA = type == kTypeKji ? kRowAKji : kRowAE;
  size_t a = 0, b = 0;
  for (size_t at = 0; (at + 1) * row <= tableC.size(); ++at) {
    const uint32_t block = readLE32(bytesOf(tableC) + at * row + key);
    if (block == kNoBlockUser) continue;
    if (type == kTypeE) b = parentOf(tableB, kRowB, at, b);
    a = parentOf(tableA, rowA, type == kTypeE ? b : at, a);
    std::string whole = keyPart(tableA, rowA, a, key);
    if (type == kTypeE) whole += keyPart(tableB, kRowB, b, 1);
    rows_.push_back({whole + keyPart(tableC, row, at, key), block});
  }
}

size_t entryEnd(std::string_view text) {
  size_t end = 0;
  for (size_t at = 0; at + 2 <= text.size();) {
    uint16_t tag = 0;
    if (!IsTag(static_cast<uint8_t>(text[at]), static_cast<uint8_t>(text[at + 1]), &tag)) break;
    if ((tag == kTagEntry) != (at == 0)) break;
    const size_t feed = text.find('\n', at);
    if (feed == std::string_view::npos) break;
    at = end = feed + 1;
  }
  return end;
}

}  // namespace zavel::host
