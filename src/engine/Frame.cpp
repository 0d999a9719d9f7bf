// Opening and closing the engine. Admission: Admission.cpp. Streams: FsObjs.cpp. Indexes: ShMems.cpp.
// Tests: tests/engine/FrameTest.cpp
#include "engine/Frame.h"

#include <cstring>
#include <new>

#include "engine/KjiIdx.h"
#include "engine/SaveIdx1.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

constexpr size_t kMaxUserName = 5;  // bytes of the prefix that stands in a user file's name

bool FitsProcessTable(const char* path) {
  return path == nullptr || strnlen(path, sizeof(processInfo::pathKihon)) < sizeof(processInfo::pathKihon);
}

bool IsUserPrefix(const char* path) {
  if (path == nullptr) return true;
  const SplitPath parts = _splitpath(path);
  return parts.ext.empty() && !parts.name.empty() && parts.name.size() <= kMaxUserName;
}

std::string WithoutBackslashes(std::string path) {
  while (!path.empty() && path.back() == '\\') path.pop_back();
  return path;
}

const char* OrEmpty(const char* path) {
  return path == nullptr ? "" : path;
}

bool SamePaths(const char* kihonPath, const char* userPathE, const char* userPathJ) {
  return WithoutBackslashes(kihonPath) == WithoutBackslashes(g_ProcessInfo->pathKihon) &&
         std::strcmp(OrEmpty(userPathE), g_ProcessInfo->pathUserE) == 0 &&
         std::strcmp(OrEmpty(userPathJ), g_ProcessInfo->pathUserJ) == 0;
}

void StorePaths(const char* kihonPath, const char* userPathE, const char* userPathJ) {
  std::strcpy(g_ProcessInfo->pathKihon, kihonPath);
  std::strcpy(g_ProcessInfo->pathUserE, OrEmpty(userPathE));
  std::strcpy(g_ProcessInfo->pathUserJ, OrEmpty(userPathJ));
}

// The steps of opening, each with its own status.
Status OpenEngine(const char* kihonPath, const char* userPathE, const char* userPathJ) try {
  Status status = CheckPathName(kihonPath, userPathE, userPathJ);
  if (status != kOk) return status;
  DeleteFsObjs();
  status = CreateFsObjs();
  if (status == kOk && (g_dicType & kDicUserJ)) status = InitKjiIdx1Info();
  if (status == kOk) status = OpenFsObjs();
  return status == kOk ? CreateShMems() : status;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

Status SaveEngine() try { return SaveIdx1s(); } catch (const std::bad_alloc&) {
  return kNoMemory;
}

// A failed InitAPI keeps nothing: a named block that stayed would keep its size for the next dictionary.
void AbandonEngine(Status status) {
  CloseShMems();
  DeleteFileMapping();
  CloseFsObjs();
  DeleteFsObjs();
  if (status == kMutexNotTaken || status == kRefused || status == kAttached) return;
  CheckOutMP(kCodeInitAPI);
  if (g_ProcessInfo != nullptr && g_ProcessInfo->attachCount > 0) --g_ProcessInfo->attachCount;
  g_fInitAPI = false;
}

}  // namespace

void InitGlobalVal() {
  CloseShMems();
  DeleteFileMapping();
  DeleteFsObjs();
  UnLoadProcessInfo();
  g_hMutex = 0;
  g_fInitAPI = false;
  g_dicType = 0;
}

void InitProcessInfo() {
  gProcessInfoBuffer = processInfo{};
  gProcessInfoBuffer.openCount = 1;
  g_ProcessInfo = &gProcessInfoBuffer;
}

void UnLoadProcessInfo() {
  g_ProcessInfo = nullptr;
}

Status CheckPathName(const char* kihonPath, const char* userPathE, const char* userPathJ) {
  g_dicType = static_cast<uint8_t>((kihonPath ? kDicKihon : 0) | (userPathE ? kDicUserE : 0) |
                                   (userPathJ ? kDicUserJ : 0));
  if (kihonPath == nullptr) return kBadArgument;
  if (!FitsProcessTable(kihonPath) || !FitsProcessTable(userPathE) || !FitsProcessTable(userPathJ))
    return kBadArgument;
  if (g_ProcessInfo->attachCount >= 2 && !SamePaths(kihonPath, userPathE, userPathJ)) return kAlreadyOpen;
  if (!IsUserPrefix(userPathE) || !IsUserPrefix(userPathJ)) return kBadArgument;
  if (g_ProcessInfo->attachCount == 1) StorePaths(kihonPath, userPathE, userPathJ);
  return kOk;
}

Status _InitAPI(const char* kihonPath, const char* userPathE, const char* userPathJ) {
  Status status = CheckInMP(kCodeInitAPI);
  if (status == kOk) status = OpenEngine(kihonPath, userPathE, userPathJ);
  if (status == kOk) return CheckOutMP(kCodeInitAPI);
  AbandonEngine(status);
  return status;
}

Status _EndAPI() {
  Status status = CheckInMP(kCodeEndAPI);
  if (status == kOk) {
    status = SaveEngine();
    CloseShMems();
    CloseFsObjs();
    DeleteFsObjs();
  }
  if (status != kMutexNotTaken && status != kRefused && status != kNotAttached) CheckOutMP(kCodeEndAPI);
  return status;
}

}  // namespace zavel::engine
