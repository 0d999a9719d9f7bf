// Tests: tests/engine/AddUserDicTest.cpp, tests/engine/DelUserDicTest.cpp
#include "engine/RenewIndex.h"

#include <string>

#include "engine/DicFormat.h"
#include "engine/Index1.h"
#include "engine/Ix3Update.h"
#include "engine/KjiIdxGrowth.h"
#include "engine/Sikibetu.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

Status BuildBlock(const index_info& info, uint32_t offset, uint16_t type, Way way, uint16_t row,
                  std::string* block) {
  if (way == kWayNew) return NewIdx3(info, offset, type, block);
  if (way == kWayRemake) return RemakeIdx3(info, offset, type, block);
  return ChangeIdx3(row, info, offset, type, block);
}

// `changed` keeps the old offset until the index holds the new one.
Status PointAt(uint16_t type, uint32_t blockOffset, index_info* info) {
  index_info changed = *info;
  changed.ix3Offset = blockOffset;
  const Status status = RenewIdx1(&changed, type);
  if (status == kOk) *info = changed;
  return status;
}

Status RenewIndex(uint16_t type, index_info* info, uint32_t offset, Way way, uint16_t row) {
  std::string block;
  uint32_t blockOffset = 0;
  Status status = BuildBlock(*info, offset, type, way, row, &block);
  if (status == kOk) status = WriteIx3(block, type, &blockOffset);
  return status == kOk ? PointAt(type, blockOffset, info) : status;
}

}  // namespace

Status RenewIndexE(index_info* info, uint32_t offset, Way way, uint16_t row) {
  return RenewIndex(kTypeE, info, offset, way, row);
}

Status RenewIndexJ(index_info* info, uint32_t offset, Way way, uint16_t row) {
  return RenewIndex(kTypeKana, info, offset, way, row);
}

Status RenewIndexK(index_info* info, uint32_t offset, Way way, uint16_t row) {
  return RenewIndex(kTypeKji, info, offset, way, row);
}

Status RenewIdx1(index_info* info, uint16_t type) {
  if (type == kTypeKji && info->pos1 == kNoPosition) {
    const Status status = MakeRoomForKji();
    return status == kOk ? AddKanjiIdx(info) : status;
  }
  idx_info_ptr* idx = IndexInfo(type, kSetUser, info->fileNo);
  uint8_t* const offset = BlockOffsetOf(idx, type, info->pos3);
  if (offset == nullptr) return kInternal;
  writeLE32(offset, info->ix3Offset);
  idx->dirty = 1;
  return kOk;
}

Status DeleteIdx3(uint16_t type, const sikibetu_data& sikibetu) {
  index_info info = PlaceOf(sikibetu);
  uint32_t offset = kNoBlockUser;
  if (sikibetu.ix3Count > 1) {
    std::string block;
    Status status = DelIdx3(type, sikibetu, &block);
    if (status == kOk) status = WriteIx3(block, type, &offset);
    if (status != kOk) return status;
  }
  return PointAt(type, offset, &info);
}

index_info PlaceOf(const sikibetu_data& sikibetu) {
  index_info info;
  info.fileNo = sikibetu.fileNo;
  info.pos1 = sikibetu.pos1;
  info.pos2 = sikibetu.pos2;
  info.pos3 = sikibetu.pos3;
  info.ix3Offset = sikibetu.ix3Offset;
  info.ix3Size = sikibetu.ix3Size;
  info.ix3Count = sikibetu.ix3Count;
  return info;
}

}  // namespace zavel::engine
