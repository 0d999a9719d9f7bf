// Tests: tests/engine/IdxInfoTest.cpp
#include "engine/IdxInfo.h"

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/Index1.h"
#include "engine/MidasiCheck.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {

std::string KeyRemainder(const std::string& key, uint16_t type) {
  return key.size() > kPrefixLength[type] ? key.substr(kPrefixLength[type]) : std::string();
}

std::string_view RowText(const Ix3View& block, uint16_t number) {
  const uint8_t* record = block.strings() + readLE16(block.rowOffsets() + size_t{2} * number);
  return {reinterpret_cast<const char*>(record) + 2, readLE16(record)};
}

void InitIdxInfo(index_info* info) {
  *info = index_info{};
}

void FreeIdxInfo(index_info* info) {
  info->word = std::string();
}

Status GetIdx1Info(const std::string& word, uint16_t type, uint16_t* pos1, uint16_t* pos2, uint16_t* pos3,
                   uint32_t* offset, uint16_t* fileNo) {
  if (word.empty()) return kInternal;
  Idx1Position position;
  const Status status = GetIdxUserPosition(type, word, &position);
  if (status != kOk) return status;
  if (position.pos3 == kRowNotFound && type != kTypeKji) return kInternal;
  *pos1 = position.pos1;
  *pos2 = position.pos2;
  *pos3 = position.pos3;
  *offset = position.offset;
  *fileNo = position.fileNo;
  return kOk;
}

void GetIdx3(const Ix3View& block, const std::string& remainder, uint16_t* first, uint16_t* matches) {
  *first = block.count;
  *matches = 0;
  for (uint16_t row = 0; row < block.count; ++row) {
    const int order = RowText(block, row).compare(remainder);
    if (order >= 0 && *first == block.count) *first = row;
    if (order > 0) return;
    if (order == 0) ++*matches;
  }
}

Status GetIdx3Info(index_info* info, uint16_t type) {
  if (info->ix3Offset == kNoBlockUser) return kOk;
  Ix3Block block;
  const Status status = GetIdx3Data(info->ix3Offset, type, &block);
  if (status != kOk) return status;
  const Ix3View view = block.view();
  info->ix3Count = view.count;
  info->ix3Size = view.size;
  GetIdx3(view, KeyRemainder(info->word, type), &info->ix3First, &info->ix3Matches);
  return kOk;
}

Status GetIdxInfo(index_info* info, uint16_t type) {
  if (CheckOuterVal() != kOk) return kInternal;
  std::string key;
  Status status = CheckInput(info->word.c_str(), type);
  if (status == kOk) status = ChangeMidasi(info->word, type, &key);
  if (status != kOk) return status;
  info->word = std::move(key);
  status =
      GetIdx1Info(info->word, type, &info->pos1, &info->pos2, &info->pos3, &info->ix3Offset, &info->fileNo);
  return status == kOk ? GetIdx3Info(info, type) : status;
}

}  // namespace zavel::engine
