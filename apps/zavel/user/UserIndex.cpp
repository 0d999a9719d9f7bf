// Tests: tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserIndex.h"

#include <algorithm>
#include <string_view>

#include "engine/DicFormat.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr size_t kLongestIndex = 16 << 20;  // the engine's own limit

bool passTable(const ByteReader& file, size_t* offset) {
  uint32_t size = 0, next = 0;
  if (!file.readLE32At(*offset, &size) || !file.readLE32At(*offset + 4, &next)) return false;
  if (!file.contains(*offset + kTableHead, size) || next < *offset + kTableHead + size) return false;
  *offset = next;
  return true;
}

// The byte where the entry in `text` ends: behind its last whole line.
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

}  // namespace

UserIndex::UserIndex(const std::string& path, uint16_t type) {
  std::string bytes;
  sound_ = readWholeFile(path, kLongestIndex, &bytes) && read(bytes, type);
}

bool UserIndex::read(const std::string& bytes, uint16_t type) {
  const ByteReader file(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  if (bytes.size() < kUserHeader) return false;
  further_ = readLE16(reinterpret_cast<const uint8_t*>(bytes.data()) + kKjiCountOffset);
  size_t table = kUserHeader;
  if (!passTable(file, &table) || (type == kTypeE && !passTable(file, &table))) return false;
  uint32_t size = 0;
  if (!file.readLE32At(table, &size) || !file.contains(table + kTableHeadC, size)) return false;
  const size_t row = type == kTypeKji ? kRowCKji : kRowC;
  const size_t key = row - 4;
  for (size_t at = 0; at + row <= size; at += row) {
    uint32_t block = 0;
    if (file.readLE32At(table + kTableHeadC + at + key, &block) && block != kNoBlockUser) {
      blocks_.push_back(block);
    }
  }
  return true;
}

bool measureBlocks(const std::string& ix3, const std::vector<UserIndex>& indexes, uint64_t* ix3End,
                   uint32_t* lastEntry) {
  const std::unique_ptr<StorageFile> file = storage().open(ix3, OpenMode::kRead);
  const int64_t fileSize = file ? file->size() : -1;
  if (fileSize < 0) return false;
  std::string block;
  for (const UserIndex& index : indexes) {
    for (const uint32_t offset : index.blocks()) {
      uint8_t head[kIx3Head];
      if (file->readAt(offset, head, sizeof head) != sizeof head) return false;
      const size_t rows = readLE16(head), size = readLE16(head + 2);
      const uint64_t end = uint64_t{offset} + size;
      if (size < kIx3Head + 4 * rows || end > static_cast<uint64_t>(fileSize)) return false;
      block.resize(4 * rows);
      if (file->readAt(end - block.size(), block.data(), block.size()) !=
          static_cast<int64_t>(block.size())) {
        return false;
      }
      for (size_t at = 0; at < block.size(); at += 4) {
        *lastEntry = std::max(*lastEntry, readLE32(reinterpret_cast<const uint8_t*>(block.data()) + at));
      }
      *ix3End = std::max(*ix3End, end);
    }
  }
  return true;
}

bool measureEntry(const std::string& dic, uint32_t offset, uint64_t* end) {
  const std::unique_ptr<StorageFile> file = storage().open(dic, OpenMode::kRead);
  if (!file) return false;
  std::string text(kMaxEntry, '\0');
  const int64_t length = file->readAt(offset, text.data(), text.size());
  if (length <= 0) return false;
  const size_t size = entryEnd(std::string_view(text).substr(0, static_cast<size_t>(length)));
  *end = offset + size;
  return size > 0;
}

}  // namespace zavel::host
