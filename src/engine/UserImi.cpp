// Tests: tests/engine/UserImiTest.cpp
#include "engine/UserImi.h"

#include "engine/Entry.h"
#include "engine/Index1.h"
#include "engine/Index3.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

void TakePosition(const Idx1Position& position, index_info* info) {
  info->fileNo = position.fileNo;
  info->pos1 = position.pos1;
  info->pos2 = position.pos2;
  info->pos3 = position.pos3;
  info->ix3Offset = position.offset;
}

void TakeRows(const Ix3Rows& rows, index_info* info) {
  info->ix3Count = rows.blockCount;
  info->ix3Size = rows.blockSize;
  info->ix3Matches = static_cast<uint16_t>(rows.offsets.size());
  info->ix3First = rows.offsets.empty() ? rows.blockCount : rows.firstRow;
}

}  // namespace

Status SrchUserImi(uint16_t type, const std::string& key, index_info* info, std::string* block,
                   uint16_t* count) {
  *count = 0;
  *info = {};
  info->word = key;
  if (type < kTypeE || type > kTypeKji) return kBadArgument;
  Idx1Position position;
  Status status = GetIdxUserPosition(type, key, &position);
  if (status != kOk) return status;
  TakePosition(position, info);
  if (position.offset == kNoBlockUser) return kOk;
  Ix3Rows rows;
  status = GetDicOffImi(type, kSetUser, key, position.offset, &rows);
  if (status != kOk) return status;
  TakeRows(rows, info);
  for (const uint32_t offset : rows.offsets) {
    std::string entry;
    status = GetDicData(nullptr, type, kSetUser, offset, &entry);
    if (status != kOk) return status;
    if (block->size() + entry.size() > kMaxGathered) return kNoMemory;
    appendLE32(*block, static_cast<uint32_t>(entry.size()));
    block->append(entry);
    ++*count;
  }
  return kOk;
}

}  // namespace zavel::engine
