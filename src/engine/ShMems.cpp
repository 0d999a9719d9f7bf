// The indexes of the opened sets in their named blocks. Tests: tests/engine/FrameTest.cpp
#include "engine/Frame.h"
#include "engine/Index1.h"
#include "engine/KjiIdx.h"

namespace zavel::engine {
namespace {

// Reads one basic index through its stream, which is open for this read alone.
bool LoadKihon(FsObj* stream, const char* file, const char* name, uint16_t type) {
  if (!NeedKihon(stream, file)) return false;
  const bool loaded = LoadIndex1(stream, name, IndexInfo(type, kSetKihon, 0), kSetKihon, type, false);
  CloseFsObj(stream);
  return loaded;
}

bool LoadKihonSet() {
  return LoadKihon(g_fs_Ej_Idx_Kihon, "ej.idx", "SM_KIHON_EJ", kTypeE) &&
         LoadKihon(g_fs_Ha_Idx_Kihon, "hase.idx", "SM_KIHON_HASE", kTypeHase) &&
         LoadKihon(g_fs_Je_Idx_Kihon, "je.idx", "SM_KIHON_KNA", kTypeKana) &&
         LoadKihon(g_fs_Ke_Idx_Kihon, "ke.idx", "SM_KIHON_KJI", kTypeKji) &&
         LoadKihon(g_fs_Ka_Idx_Kihon, "katu.idx", "SM_KIHON_KATU", kTypeKatu);
}

Status LoadUserE() {
  const bool loaded =
      OpenFsObj(g_fs_Ej_Idx_User, UserPathE("ej.idx"), true) && CreateShMemUserE(false) == kOk;
  CloseFsObjsUserE();
  return loaded ? kOk : kNoIndexMemory;
}

Status LoadUserJ() {
  OpenFsObjsUserCntJ(true);
  const Status status = CreateShMemUserJ(false);
  CloseFsObjsUserJ();
  return status;
}

}  // namespace

Status CreateShMemUserE(bool reload) {
  return LoadIndex1(g_fs_Ej_Idx_User, "SM_USER_EJ", &g_sUserEJ, kSetUser, kTypeE, reload) ? kOk
                                                                                          : kNoIndexMemory;
}

Status CreateShMemUserJ(bool reload) {
  const bool loaded =
      LoadIndex1(g_fs_Je_Idx_User, "SM_USER_KNA", &g_sUserKna, kSetUser, kTypeKana, reload) &&
      LoadIndex1(g_fs_Ke_Idx_User[0], "SM_USER_KJI", &g_sUserKji, kSetUser, kTypeKji, reload) &&
      LoadKjiIdx1s(reload);
  return loaded ? kOk : kNoIndexMemory;
}

Status CreateShMems() {
  Status status = LoadKihonSet() ? kOk : kNoIndexMemory;
  if (status == kOk && (g_dicType & kDicUserE)) status = LoadUserE();
  if (status == kOk && (g_dicType & kDicUserJ)) status = LoadUserJ();
  return status;
}

void CloseShMems() {
  for (uint16_t type = kTypeE; type <= kTypeKatu; ++type) UnLoadIndex1(IndexInfo(type, kSetKihon, 0));
  for (uint16_t type = kTypeE; type <= kTypeKji; ++type) UnLoadIndex1(IndexInfo(type, kSetUser, 0));
  UnLoadKjiIdx1s();
  g_sUserKjiIdxInfo = nullptr;
}

}  // namespace zavel::engine
