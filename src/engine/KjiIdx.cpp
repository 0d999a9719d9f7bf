// Tests: tests/engine/UserSetTest.cpp
#include "engine/KjiIdx.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "engine/Globals.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {

Status InitKjiIdx1Info() {
  bool existed = false;
  g_sUserKjiIdxInfo = CreateShMem("SM_USER_KJI_IDX_INFO", 2, &existed);
  if (g_sUserKjiIdxInfo == nullptr) return kNoIndexMemory;
  if (!existed) writeLE16(g_sUserKjiIdxInfo, 0);
  return kOk;
}

Status ReadKjiIdxInfo() {
  constexpr size_t kInfoOffset = 6;  // user_knj_info: eight bytes, the count at its fifth
  uint8_t info[8] = {};
  if (g_sUserKjiIdxInfo == nullptr) return kInternal;
  FsObj* stream = g_fs_Ke_Idx_User[0];
  if (stream == nullptr || !stream->ReadExact(kInfoOffset, info, sizeof(info))) return kMalformed;
  writeLE16(g_sUserKjiIdxInfo, readLE16(info + (kKjiCountOffset - kInfoOffset)));
  return kOk;
}

uint16_t KjiIdxCount() {
  return g_sUserKjiIdxInfo == nullptr ? 0 : std::min(readLE16(g_sUserKjiIdxInfo), kMaxKjiIndexes);
}

std::string KjiIdxName(uint16_t fileNo) {
  if (fileNo == 0) return "kji.idx";
  char name[16];
  std::snprintf(name, sizeof(name), "%03d.idx", fileNo);
  return name;
}

bool LoadKjiIdx1s(bool reload) {
  for (uint16_t number = 1; number <= KjiIdxCount(); ++number) {
    char name[32];
    std::snprintf(name, sizeof(name), "SM_USER_KJI%03d", number);
    if (!LoadIndex1(g_fs_Ke_Idx_User[number], name, &g_pKjiIdx1s[number - 1], kSetUser, kTypeKji, reload))
      return false;
  }
  return true;
}

void UnLoadKjiIdx1s() {
  for (idx_info_ptr& info : g_pKjiIdx1s) UnLoadIndex1(&info);
}

uint32_t GetKjiIdxWordCnt() {
  return g_sUserKji.tableC == nullptr ? 0 : RowCount(g_sUserKji.tableC, kRowCKji);
}

}  // namespace zavel::engine
