// Tests: tests/engine/FrameTest.cpp
#include "engine/Globals.h"

namespace zavel::engine {

FsObj* g_fs_Ej_Dic_Kihon = nullptr;
FsObj* g_fs_Ej_Ix3_Kihon = nullptr;
FsObj* g_fs_Ej_Idx_Kihon = nullptr;
FsObj* g_fs_Ha_Ix3_Kihon = nullptr;
FsObj* g_fs_Ha_Idx_Kihon = nullptr;
FsObj* g_fs_Ka_Dic_Kihon = nullptr;
FsObj* g_fs_Ka_Ix3_Kihon = nullptr;
FsObj* g_fs_Ka_Idx_Kihon = nullptr;
FsObj* g_fs_Je_Dic_Kihon = nullptr;
FsObj* g_fs_Je_Ix3_Kihon = nullptr;
FsObj* g_fs_Je_Idx_Kihon = nullptr;
FsObj* g_fs_Ke_Ix3_Kihon = nullptr;
FsObj* g_fs_Ke_Idx_Kihon = nullptr;

FsObj* g_fs_Ej_Dic_User = nullptr;
FsObj* g_fs_Ej_Ix3_User = nullptr;
FsObj* g_fs_Ej_Idx_User = nullptr;

FsObj* g_fs_Je_Dic_User = nullptr;
FsObj* g_fs_Je_Ix3_User = nullptr;
FsObj* g_fs_Ke_Ix3_User = nullptr;
FsObj* g_fs_Je_Idx_User = nullptr;
FsObj* g_fs_Ke_Idx_User[kMaxKjiIndexes + 1] = {};

idx_info_ptr g_sKihonEJ, g_sKihonKna, g_sKihonKji, g_sKihonHase, g_sKihonKatu;
idx_info_ptr g_sUserEJ, g_sUserKna, g_sUserKji;
idx_info_ptr g_pKjiIdx1s[kMaxKjiIndexes];
uint8_t* g_sUserKjiIdxInfo = nullptr;

uint8_t g_dicType = 0;
bool g_fInitAPI = false;
bool initAPIFlag = false;
int g_hMutex = 0;

processInfo gProcessInfoBuffer;
processInfo* g_ProcessInfo = nullptr;

namespace {

idx_info_ptr* KihonInfo(uint16_t type) {
  switch (type) {
    case kTypeE:
      return &g_sKihonEJ;
    case kTypeKana:
      return &g_sKihonKna;
    case kTypeKji:
      return &g_sKihonKji;
    case kTypeHase:
      return &g_sKihonHase;
    case kTypeKatu:
      return &g_sKihonKatu;
    default:
      return nullptr;
  }
}

idx_info_ptr* UserInfo(uint16_t type, uint16_t fileNo) {
  if (type == kTypeE) return &g_sUserEJ;
  if (type == kTypeKana) return &g_sUserKna;
  if (type != kTypeKji || fileNo > kMaxKjiIndexes) return nullptr;
  return fileNo == 0 ? &g_sUserKji : &g_pKjiIdx1s[fileNo - 1];
}

}  // namespace

idx_info_ptr* IndexInfo(uint16_t type, uint16_t set, uint16_t fileNo) {
  if (set == kSetKihon) return KihonInfo(type);
  return set == kSetUser ? UserInfo(type, fileNo) : nullptr;
}

}  // namespace zavel::engine
