// The streams of the engine: made, opened and closed by sets. Tests: tests/engine/FrameTest.cpp
#include <initializer_list>
#include <iterator>
#include <new>
#include <span>

#include "engine/Frame.h"
#include "engine/KjiIdx.h"
#include "engine/MakeUserDic.h"

namespace zavel::engine {
namespace {

struct StreamFile {
  FsObj** stream;
  const char* name;
};

constexpr StreamFile kFilesKihonE[] = {
    {&g_fs_Ej_Dic_Kihon, "ej.dic"},   {&g_fs_Ej_Ix3_Kihon, "ej.ix3"},   {&g_fs_Ej_Idx_Kihon, "ej.idx"},
    {&g_fs_Ha_Ix3_Kihon, "hase.ix3"}, {&g_fs_Ha_Idx_Kihon, "hase.idx"}, {&g_fs_Ka_Dic_Kihon, "katu.dic"},
    {&g_fs_Ka_Ix3_Kihon, "katu.ix3"}, {&g_fs_Ka_Idx_Kihon, "katu.idx"},
};
constexpr StreamFile kFilesKihonJ[] = {
    {&g_fs_Je_Dic_Kihon, "je.dic"}, {&g_fs_Je_Ix3_Kihon, "je.ix3"}, {&g_fs_Je_Idx_Kihon, "je.idx"},
    {&g_fs_Ke_Ix3_Kihon, "ke.ix3"}, {&g_fs_Ke_Idx_Kihon, "ke.idx"},
};
constexpr StreamFile kFilesUserE[] = {
    {&g_fs_Ej_Dic_User, "ej.dic"},
    {&g_fs_Ej_Ix3_User, "ej.ix3"},
    {&g_fs_Ej_Idx_User, "ej.idx"},
};
// Blocks and entries first: all that a reader opens.
constexpr StreamFile kFilesUserJ[] = {
    {&g_fs_Je_Dic_User, "je.dic"},  {&g_fs_Je_Ix3_User, "kna.ix3"},    {&g_fs_Ke_Ix3_User, "kji.ix3"},
    {&g_fs_Je_Idx_User, "kna.idx"}, {&g_fs_Ke_Idx_User[0], "kji.idx"},
};
constexpr size_t kReadByReaderE = 2;
constexpr size_t kReadByReaderJ = 3;

using Files = std::span<const StreamFile>;
using PathOf = std::string (*)(const char* name);

bool Create(Files files) {
  for (const StreamFile& file : files) {
    *file.stream = new (std::nothrow) FsObj;
    if (*file.stream == nullptr) return false;
  }
  return true;
}

void Delete(Files files) {
  for (const StreamFile& file : files) {
    delete *file.stream;
    *file.stream = nullptr;
  }
}

uint16_t Open(Files files, PathOf pathOf, bool readOnly) {
  uint16_t opened = 0;
  for (const StreamFile& file : files) opened += OpenFsObj(*file.stream, pathOf(file.name), readOnly);
  return opened;
}

void Close(Files files) {
  for (const StreamFile& file : files) CloseFsObj(*file.stream);
}

bool CreateKjiIdxs() {
  for (uint16_t number = 1; number <= kMaxKjiIndexes; ++number) {
    g_fs_Ke_Idx_User[number] = new (std::nothrow) FsObj;
    if (g_fs_Ke_Idx_User[number] == nullptr) return false;
  }
  return true;
}

uint16_t OpenKjiIdxs(bool readOnly) {
  uint16_t opened = 0;
  for (uint16_t number = 1; number <= KjiIdxCount(); ++number) {
    opened += OpenFsObj(g_fs_Ke_Idx_User[number], UserPathJ(KjiIdxName(number).c_str()), readOnly);
  }
  return opened;
}

uint16_t AllUserJ() {
  return static_cast<uint16_t>(std::size(kFilesUserJ) + KjiIdxCount());
}

Status CreateIfNoneJ() {
  switch (CheckUserDicExistJ()) {
    case kExistAll:
      return kOk;
    case kExistNone:
      return MakeUserDicJ() ? kOk : kFileError;
    case kExistNoCountWord:
      return kInternal;
    default:
      return kNoUserJ;
  }
}

bool CreateIfNoneE() {
  const UserDicExist exist = CheckUserDicExistE();
  return exist == kExistAll || (exist == kExistNone && MakeUserDicE());
}

// Names a set's proof in OpenFsObjs: open all, close all.
Status Prove(bool opened, void (*close)(), Status failure) {
  close();
  return opened ? kOk : failure;
}

}  // namespace

std::string KihonPath(const char* name) {
  return std::string(g_ProcessInfo->pathKihon) + name;
}
std::string UserPathE(const char* name) {
  return std::string(g_ProcessInfo->pathUserE) + name;
}
std::string UserPathJ(const char* name) {
  return std::string(g_ProcessInfo->pathUserJ) + name;
}

bool OpenFsObj(FsObj* stream, const std::string& path, bool readOnly) {
  return stream != nullptr && stream->Open(path, readOnly);
}

bool NewOpenFsObj(FsObj* stream, const std::string& path) {
  return stream != nullptr && stream->Create(path);
}

void CloseFsObj(FsObj* stream) {
  if (stream != nullptr) stream->Close();
}

bool NeedKihon(FsObj* stream, const char* name) {
  return stream != nullptr && (stream->IsOpen() || OpenFsObj(stream, KihonPath(name), true));
}

Status CreateFsObjs() {
  bool made = Create(kFilesKihonE) && Create(kFilesKihonJ);
  if (g_dicType & kDicUserE) made = made && Create(kFilesUserE);
  if (g_dicType & kDicUserJ) made = made && Create(kFilesUserJ) && CreateKjiIdxs();
  return made ? kOk : kNoMemory;
}

void DeleteFsObjs() {
  for (const Files files :
       {Files(kFilesKihonE), Files(kFilesKihonJ), Files(kFilesUserE), Files(kFilesUserJ)}) {
    Delete(files);
  }
  for (FsObj*& stream : g_fs_Ke_Idx_User) {
    delete stream;
    stream = nullptr;
  }
}

bool OpenFsObjsKihonE() {
  return Open(kFilesKihonE, KihonPath, true) == std::size(kFilesKihonE);
}

bool OpenFsObjsKihonJ() {
  return Open(kFilesKihonJ, KihonPath, true) == std::size(kFilesKihonJ);
}

uint16_t OpenFsObjsUserCntE(bool readOnly) {
  return Open(kFilesUserE, UserPathE, readOnly);
}

uint16_t OpenFsObjsUserCntJ(bool readOnly) {
  const uint16_t opened = Open(kFilesUserJ, UserPathJ, readOnly);
  if (opened > 0) ReadKjiIdxInfo();
  return opened > 0 ? static_cast<uint16_t>(opened + OpenKjiIdxs(readOnly)) : opened;
}

UserDicExist CheckUserDicExistE() {
  const uint16_t opened = OpenFsObjsUserCntE(true);
  if (opened == 0) return kExistNone;
  return opened == std::size(kFilesUserE) ? kExistAll : kExistSome;
}

UserDicExist CheckUserDicExistJ() {
  if (g_sUserKjiIdxInfo == nullptr) return kExistNoCountWord;
  const uint16_t opened = OpenFsObjsUserCntJ(true);
  if (opened == 0) return kExistNone;
  return opened == AllUserJ() ? kExistAll : kExistSome;
}

bool OpenFsObjsUserE(bool create, bool readOnly) {
  if (create && !CreateIfNoneE()) return false;
  if (!create && readOnly)
    return Open(Files(kFilesUserE).first(kReadByReaderE), UserPathE, true) == kReadByReaderE;
  return OpenFsObjsUserCntE(readOnly) == std::size(kFilesUserE);
}

Status OpenFsObjsUserJ(bool create, bool readOnly) {
  const Status status = create ? CreateIfNoneJ() : kOk;
  if (status != kOk) return status;
  if (!create && readOnly) {
    return Open(Files(kFilesUserJ).first(kReadByReaderJ), UserPathJ, true) == kReadByReaderJ ? kOk : kNoUserJ;
  }
  return OpenFsObjsUserCntJ(readOnly) == AllUserJ() ? ReadKjiIdxInfo() : kNoUserJ;
}

void CloseFsObjsKihonE() {
  Close(kFilesKihonE);
}

void CloseFsObjsKihonJ() {
  Close(kFilesKihonJ);
}

void CloseFsObjsUserE() {
  Close(kFilesUserE);
}

void CloseFsObjsUserJ() {
  Close(kFilesUserJ);
  for (FsObj* stream : g_fs_Ke_Idx_User) CloseFsObj(stream);
}

void CloseFsObjs() {
  CloseFsObjsKihonE();
  CloseFsObjsKihonJ();
  CloseFsObjsUserE();
  CloseFsObjsUserJ();
}

Status OpenFsObjs() {
  Status status = Prove(OpenFsObjsKihonE(), CloseFsObjsKihonE, kNoKihonFile);
  if (status == kOk) status = Prove(OpenFsObjsKihonJ(), CloseFsObjsKihonJ, kNoKihonFile);
  if (status == kOk && (g_dicType & kDicUserE)) {
    status = Prove(OpenFsObjsUserE(true, true), CloseFsObjsUserE, kNoUserE);
  }
  if (status != kOk || !(g_dicType & kDicUserJ)) return status;
  status = OpenFsObjsUserJ(true, true);
  CloseFsObjsUserJ();
  return status;
}

}  // namespace zavel::engine
