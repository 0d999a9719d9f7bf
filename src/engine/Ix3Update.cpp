// Tests: tests/engine/Ix3UpdateTest.cpp
#include "engine/Ix3Update.h"

#include <vector>

#include "engine/SaveIdx1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// A block taken apart into its rows, so that each change is one change of a list.
struct Row {
  std::string remainder;
  uint32_t offset = 0;
};
using Rows = std::vector<Row>;

Rows TakeApart(const Ix3Block& block) {
  const Ix3View view = block.view();
  Rows rows;
  rows.reserve(size_t{view.count} + 1);
  for (uint16_t row = 0; row < view.count; ++row) {
    rows.push_back({std::string(RowText(view, row)), view.entryOffset(row)});
  }
  return rows;
}

// A row's share of the string area: its length, its text, a NUL.
size_t StringSize(const Row& row) {
  return 2 + row.remainder.size() + 1;
}

size_t BlockSize(const Rows& rows) {
  size_t size = kIx3Head;
  for (const Row& row : rows) size += kIx3RowOverhead + row.remainder.size();
  return size;
}

Status PutTogether(const Rows& rows, std::string* block) {
  const size_t size = BlockSize(rows);
  if (size > kMaxIx3) return kBlockTooLong;
  block->clear();
  block->reserve(size);
  appendLE16(*block, static_cast<uint16_t>(rows.size()));
  appendLE16(*block, static_cast<uint16_t>(size));
  size_t at = 0;
  for (const Row& row : rows) {
    appendLE16(*block, static_cast<uint16_t>(at));
    at += StringSize(row);
  }
  for (const Row& row : rows) {
    appendLE16(*block, static_cast<uint16_t>(row.remainder.size()));
    block->append(row.remainder).push_back('\0');
  }
  for (const Row& row : rows) appendLE32(*block, row.offset);
  return kOk;
}

Status ReadRows(uint32_t offset, uint16_t type, Rows* rows) {
  Ix3Block block;
  const Status status = GetIdx3Data(offset, type, &block);
  if (status == kOk) *rows = TakeApart(block);
  return status;
}

FsObj* BlockStream(uint16_t type) {
  if (type == kTypeE) return g_fs_Ej_Ix3_User;
  if (type == kTypeKana) return g_fs_Je_Ix3_User;
  return type == kTypeKji ? g_fs_Ke_Ix3_User : nullptr;
}

}  // namespace

Status NewIdx3(const index_info& info, uint32_t offset, uint16_t type, std::string* block) {
  return PutTogether({{KeyRemainder(info.word, type), offset}}, block);
}

Status RemakeIdx3(const index_info& info, uint32_t offset, uint16_t type, std::string* block) {
  Rows rows;
  const Status status = ReadRows(info.ix3Offset, type, &rows);
  if (status != kOk) return status;
  const size_t place = size_t{info.ix3First} + info.ix3Matches;
  if (place > rows.size()) return kInternal;
  rows.insert(rows.begin() + static_cast<ptrdiff_t>(place), {KeyRemainder(info.word, type), offset});
  return PutTogether(rows, block);
}

Status ChangeIdx3(uint16_t row, const index_info& info, uint32_t offset, uint16_t type, std::string* block) {
  Rows rows;
  const Status status = ReadRows(info.ix3Offset, type, &rows);
  if (status != kOk) return status;
  if (row >= rows.size()) return kInternal;
  rows[row].offset = offset;
  return PutTogether(rows, block);
}

Status DelIdx3(uint16_t type, const sikibetu_data& sikibetu, std::string* block) {
  Rows rows;
  const Status status = ReadRows(sikibetu.ix3Offset, type, &rows);
  if (status != kOk) return status;
  if (sikibetu.ix3Index >= rows.size()) return kInternal;
  rows.erase(rows.begin() + sikibetu.ix3Index);
  return PutTogether(rows, block);
}

Status WriteIx3(const std::string& block, uint16_t type, uint32_t* offset) {
  return ApendData(BlockStream(type), block.data(), block.size(), offset);
}

}  // namespace zavel::engine
