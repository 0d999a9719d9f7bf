// Tests: tests/engine/UserFrameTest.cpp
#include "engine/UserFrame.h"

namespace zavel::engine {
namespace {

bool IsEnglish(FunctionCode code) {
  return code == kCodeAddUserDicE || code == kCodeSerchUserDicE || code == kCodeDelUserDicE ||
         code == kCodeGetListUserDicE || code == kCodeArrangeUserDicE;
}

Status NoSet(FunctionCode code) {
  return IsEnglish(code) ? kNoUserE : kNoUserJ;
}

bool SetIsOpened(FunctionCode code) {
  return (g_dicType & (IsEnglish(code) ? kDicUserE : kDicUserJ)) != 0;
}

Status OpenSet(FunctionCode code, bool readOnly) {
  const bool opened =
      IsEnglish(code) ? OpenFsObjsUserE(false, readOnly) : OpenFsObjsUserJ(false, readOnly) == kOk;
  return opened ? kOk : NoSet(code);
}

void CloseSet(FunctionCode code) {
  IsEnglish(code) ? CloseFsObjsUserE() : CloseFsObjsUserJ();
}

// A set that has its streams but not its index: nothing may be found in it or saved over it.
bool IsAbandoned(FunctionCode code) {
  const FsObj* stream = IsEnglish(code) ? g_fs_Ej_Idx_User : g_fs_Je_Idx_User;
  return stream != nullptr && (IsEnglish(code) ? g_sUserEJ : g_sUserKna).tableBase == nullptr;
}

Status OpenAndWork(FunctionCode code, bool readOnly, bool argumentsOk, const UserWork& work) {
  if (!argumentsOk) return kBadArgument;
  const Status status = OpenSet(code, readOnly);
  return status == kOk ? work() : status;
}

// Leaves what was admitted; a status that says it wasn't is left alone.
void Leave(FunctionCode code, Status status) {
  CloseSet(code);
  if (status != kMutexNotTaken && status != kRefused) CheckOutMP(code);
}

}  // namespace

Status RunUserAdmitted(FunctionCode code, const UserWork& work) {
  if (!SetIsOpened(code)) return NoSet(code);
  Status status = CheckInMP(code);
  if (status != kOk) return status;
  status = IsAbandoned(code) ? kInternal : NoMemoryAsStatus(work);
  Leave(code, status);
  return status;
}

Status RunUserWriter(FunctionCode code, bool argumentsOk, const UserWork& work) {
  const auto opened = [&] { return OpenAndWork(code, false, argumentsOk, work); };
  return RunUserAdmitted(code, std::cref(opened));
}

Status RunUserReader(FunctionCode code, bool argumentsOk, const UserWork& work) {
  const auto opened = [&] { return OpenAndWork(code, true, argumentsOk, work); };
  return RunUserAdmitted(code, std::cref(opened));
}

}  // namespace zavel::engine
