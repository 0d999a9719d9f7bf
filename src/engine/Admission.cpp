// The admission control of Frame.h: who may run beside whom. One thread is all there is, so the mutex never
// blocks, but the states are kept as if there were many. Tests: tests/engine/AdmissionTest.cpp
#include "engine/Frame.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

enum State : uint8_t { kIdle = 0, kReading = 1, kExclusive = 2 };

constexpr uint32_t kForever = 0xFFFFFFFF;
constexpr uint32_t kWaitAbandoned = 128;

bool IsReaderE(uint16_t code) {
  return code == kCodeSerchMidasiE || code == kCodeSerchImiE || code == kCodeGetKatuyo ||
         code == kCodeSerchUserDicE || code == kCodeGetListUserDicE;
}

bool IsReaderJ(uint16_t code) {
  return code == kCodeSerchMidasiJ || code == kCodeSerchImiJ || code == kCodeSerchUserDicJ ||
         code == kCodeGetListUserDicJ;
}

bool IsWriter(uint16_t code) {
  return code == kCodeAddUserDicE || code == kCodeAddUserDicJ || code == kCodeDelUserDicE ||
         code == kCodeDelUserDicJ || code == kCodeArrangeUserDicE || code == kCodeArrangeUserDicJ;
}

// Codes whose mutex stays taken from CheckInMP to CheckOutMP.
bool HoldsMtx(uint16_t code) {
  return code == kCodeInitAPI || code == kCodeEndAPI || IsWriter(code);
}

bool BothStatesAre(State state) {
  return g_ProcessInfo->stateE == state && g_ProcessInfo->stateJ == state;
}

void SetBothStates(State state) {
  g_ProcessInfo->stateE = g_ProcessInfo->stateJ = state;
}

Status EnterInitAPI() {
  if (!BothStatesAre(kIdle)) return kRefused;
  if (g_fInitAPI) return kAttached;
  SetBothStates(kExclusive);
  ++g_ProcessInfo->attachCount;
  g_fInitAPI = true;
  return kOk;
}

Status EnterEndAPI() {
  if (!BothStatesAre(kIdle)) return kRefused;
  if (!g_fInitAPI) return kNotAttached;
  SetBothStates(kExclusive);
  return kOk;
}

Status EnterReader(uint8_t* state, uint16_t* readers) {
  if (*state == kExclusive) return kRefused;
  *state = kReading;
  ++*readers;
  return kOk;
}

Status EnterWriter() {
  if (!BothStatesAre(kIdle)) return kRefused;
  SetBothStates(kExclusive);
  return kOk;
}

Status Enter(uint16_t code) {
  if (code == kCodeInitAPI) return EnterInitAPI();
  if (code == kCodeEndAPI) return EnterEndAPI();
  if (IsReaderE(code)) return EnterReader(&g_ProcessInfo->stateE, &g_ProcessInfo->readersE);
  if (IsReaderJ(code)) return EnterReader(&g_ProcessInfo->stateJ, &g_ProcessInfo->readersJ);
  return IsWriter(code) ? EnterWriter() : kInternal;
}

void Detach() {
  SetBothStates(kIdle);
  if (g_ProcessInfo->attachCount <= 1) {
    g_ProcessInfo->pathKihon[0] = g_ProcessInfo->pathUserE[0] = g_ProcessInfo->pathUserJ[0] = 0;
  }
  if (g_ProcessInfo->attachCount == 0) return;
  --g_ProcessInfo->attachCount;
  g_fInitAPI = false;
}

void LeaveReader(uint8_t* state, uint16_t* readers) {
  if (g_ProcessInfo->stateE == kExclusive || g_ProcessInfo->stateJ == kExclusive) return;
  if (*readers > 0) --*readers;
  if (*readers == 0) *state = kIdle;
}

Status Leave(uint16_t code) {
  const bool exclusive = BothStatesAre(kExclusive);
  if (IsReaderE(code)) LeaveReader(&g_ProcessInfo->stateE, &g_ProcessInfo->readersE);
  if (IsReaderJ(code)) LeaveReader(&g_ProcessInfo->stateJ, &g_ProcessInfo->readersJ);
  if (IsWriter(code) && !exclusive) return kInternal;
  if (code == kCodeEndAPI && exclusive && g_fInitAPI) Detach();
  if ((code == kCodeInitAPI || IsWriter(code)) && exclusive) SetBothStates(kIdle);
  return kOk;
}

}  // namespace

int GetMtx(int wait) {
  if (WaitForSingleObject(g_hMutex, wait ? kForever : 0) != kWaitAbandoned) return 1;
  FreeMtx();
  return 0;
}

void FreeMtx() {
  ReleaseMutex(g_hMutex);
}

Status InitMtx() {
  g_hMutex = CreateMutex(nullptr, 0, "MT_MP_CTRL");
  return g_hMutex != 0 ? kOk : kNoMutex;
}

void CloseMtx() {
  CloseHandle(g_hMutex);
  g_hMutex = 0;
}

Status CheckInMP(uint16_t code) {
  if (g_ProcessInfo == nullptr) return kInternal;
  if (GetMtx(1) < 1) return kMutexNotTaken;
  const Status status = Enter(code);
  const bool turnedAway = status == kRefused || status == kAttached || status == kNotAttached;
  if (!HoldsMtx(code) || turnedAway) FreeMtx();
  return status;
}

Status CheckOutMP(uint16_t code) {
  if (!HoldsMtx(code) && GetMtx(0) < 1) return kMutexNotTaken;
  const Status status = g_ProcessInfo == nullptr ? kInternal : Leave(code);
  FreeMtx();
  return status;
}

}  // namespace zavel::engine
