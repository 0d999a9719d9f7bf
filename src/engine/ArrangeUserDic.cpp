// Compacting a user set: backups, passes, the exchange of files. A crash at any moment leaves the files or
// the backups whole. The backup of the first index is made last and goes first: while it stands, all backups
// are the state before and the files may be in between; without it the files are whole and other backups are
// left over.
// Tests: tests/engine/ArrangeUserDicTest.cpp
#include <functional>
#include <string>
#include <vector>

#include "engine/Arrange.h"
#include "engine/DicFormat.h"
#include "engine/Frame.h"
#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "engine/SaveIdx1.h"
#include "engine/Shim.h"
#include "engine/TemporaryFile.h"
#include "engine/UserFrame.h"
#include "engine/Workers.h"
#include "foundation/Storage.h"

namespace zavel::engine {
namespace {

// Paths of a set's files, that of the first index last.
using Paths = std::vector<std::string>;

std::string BackupOf(const std::string& path) {
  return path + ".arr" + "bkp";
}

std::string FolderOf(const std::string& path) {
  const std::string folder = _splitpath(path).dir;
  return folder.empty() ? "." : folder;
}

Status MakeBackups(const Paths& paths) {
  const std::string first = BackupOf(paths.back());
  if (storage().exists(first) && !DropBackup(first)) return kFileError;
  for (const std::string& path : paths) {
    if (!CopyFile(path, BackupOf(path))) return kFileError;
  }
  return kOk;
}

// The last step: from here on the new files are the set.
Status DropBackups(const Paths& paths) {
  if (!storage().syncFolder(FolderOf(paths.back())) || !DropBackup(BackupOf(paths.back()))) return kFileError;
  for (const std::string& path : paths) DeleteFile(BackupOf(path));
  return kOk;
}

// A file of the set, its stream, and what the names of its successors begin with.
struct ArrangedFile {
  std::string path;
  FsObj* stream;
  const char* prefix;

  bool makeNew(TemporaryFile* file) const { return file->open(FolderOf(path), prefix); }
  // The new file takes the place and the stream of the old one.
  bool exchange(TemporaryFile* file) const {
    if (!file->finish()) return false;
    CloseFsObj(stream);
    return file->replace(path) && OpenFsObj(stream, path, false);
  }
};

ArrangedFile Ix3File(uint16_t type) {
  if (type == kTypeE) return {UserPathE("ej.ix3"), g_fs_Ej_Ix3_User, "ix3"};
  if (type == kTypeKana) return {UserPathJ("kna.ix3"), g_fs_Je_Ix3_User, "kna"};
  return {UserPathJ("kji.ix3"), g_fs_Ke_Ix3_User, "kji"};
}

ArrangedFile DicFile(uint16_t type) {
  if (type == kTypeE) return {UserPathE("ej.dic"), g_fs_Ej_Dic_User, "dic"};
  return {UserPathJ("je.dic"), g_fs_Je_Dic_User, "dic"};
}

Status FirstPass(Idx3Offsets* list, uint16_t type) {
  const ArrangedFile ix3 = Ix3File(type);
  TemporaryFile file;
  if (!ix3.makeNew(&file)) return kFileError;
  const Status status = ArrangeIdx3(list, type, file.stream());
  if (status != kOk) return status;
  return ix3.exchange(&file) ? kOk : kFileError;
}

Status ArrangeE() {
  Idx3Offsets list = ListIdx3Offsets(kTypeE);
  Status status = FirstPass(&list, kTypeE);
  if (status != kOk) return status;
  const ArrangedFile dic = DicFile(kTypeE);
  const ArrangedFile ix3 = Ix3File(kTypeE);
  TemporaryFile newDic;
  TemporaryFile newIx3;
  EntryMoves moves;
  if (!dic.makeNew(&newDic) || !ix3.makeNew(&newIx3)) return kFileError;
  status = ArrangeDic(&list, kTypeE, newDic.stream(), newIx3.stream(), &moves);
  if (status != kOk) return status;
  return dic.exchange(&newDic) && ix3.exchange(&newIx3) ? kOk : kFileError;
}

Status ArrangeJ() {
  Idx3Offsets kana = ListIdx3Offsets(kTypeKana);
  Idx3Offsets kanji = ListIdx3Offsets(kTypeKji);
  Status status = FirstPass(&kana, kTypeKana);
  if (status == kOk) status = FirstPass(&kanji, kTypeKji);
  if (status != kOk) return status;
  const ArrangedFile dic = DicFile(kTypeKana);
  const ArrangedFile kna = Ix3File(kTypeKana);
  const ArrangedFile kji = Ix3File(kTypeKji);
  TemporaryFile newDic;
  TemporaryFile newKna;
  TemporaryFile newKji;
  EntryMoves moves;
  if (!dic.makeNew(&newDic) || !kna.makeNew(&newKna) || !kji.makeNew(&newKji)) return kFileError;
  status = ArrangeDic(&kana, kTypeKana, newDic.stream(), newKna.stream(), &moves);
  if (status == kOk) status = ArrangeDicKANJI(&kanji, newKji.stream(), moves);
  if (status != kOk) return status;
  return dic.exchange(&newDic) && kna.exchange(&newKna) && kji.exchange(&newKji) ? kOk : kFileError;
}

Paths PathsE() {
  return {UserPathE("ej.ix3"), UserPathE("ej.dic"), UserPathE("ej.idx")};
}

Paths PathsJ() {
  Paths paths = {UserPathJ("je.dic"), UserPathJ("kna.ix3"), UserPathJ("kji.ix3")};
  for (uint16_t fileNo = 0; fileNo <= KjiIdxCount(); ++fileNo) {
    paths.push_back(UserPathJ(KjiIdxName(fileNo).c_str()));
  }
  paths.push_back(UserPathJ("kna.idx"));
  return paths;
}

// After a failure the index in memory may belong to a file that is gone. Without it the set refuses all work
// and nothing is saved over it; the backups wait for whoever opened the engine.
void AbandonE() {
  UnLoadIndex1(&g_sUserEJ);
}
void AbandonJ() {
  UnLoadIndex1(&g_sUserKna);
  UnLoadIndex1(&g_sUserKji);
  UnLoadKjiIdx1s();
}

// The indexes on the disk as they are in memory, and the set open for the passes.
Status SaveFirstE() {
  if (!OpenFsObjsUserE(false, false)) return kFileError;
  const Status status = SaveIdx1(kTypeE, 0);
  CloseFsObjsUserE();
  return status != kOk || OpenFsObjsUserE(false, false) ? status : kFileError;
}
Status SaveFirstJ() {
  if (OpenFsObjsUserJ(false, false) != kOk) return kFileError;
  const Status status = SaveIdx1sJ();
  CloseFsObjsUserJ();
  return status != kOk || OpenFsObjsUserJ(false, false) == kOk ? status : kFileError;
}

// What differs between the two sets.
struct ArrangedSet {
  Status (*saveFirst)();
  Paths (*paths)();
  Status (*passes)();
  void (*abandon)();
};

Status Arrange(const ArrangedSet& set) {
  const Status saved = set.saveFirst();
  if (saved != kOk) return saved;
  const Paths paths = set.paths();
  const std::string first = BackupOf(paths.back());
  Status status = NoMemoryAsStatus([&] { return MakeBackups(paths); });
  // A first backup that stands takes back whatever is saved from now on, so nothing more may be.
  if (status != kOk && (!storage().exists(first) || DropBackup(first))) return status;
  if (status == kOk) status = NoMemoryAsStatus(set.passes);
  if (status == kOk) status = NoMemoryAsStatus([&] { return DropBackups(paths); });
  if (status != kOk) set.abandon();
  return status;
}

}  // namespace

Status _ArrangeUserDicE() {
  const auto work = [] {
    if (g_fs_Ej_Ix3_User == nullptr || g_fs_Ej_Dic_User == nullptr) return kInternal;
    return Arrange({SaveFirstE, PathsE, ArrangeE, AbandonE});
  };
  return RunUserAdmitted(kCodeArrangeUserDicE, std::cref(work));
}

Status _ArrangeUserDicJ() {
  const auto work = [] {
    if (g_fs_Je_Ix3_User == nullptr || g_fs_Je_Dic_User == nullptr) return kInternal;
    return Arrange({SaveFirstJ, PathsJ, ArrangeJ, AbandonJ});
  };
  return RunUserAdmitted(kCodeArrangeUserDicJ, std::cref(work));
}

}  // namespace zavel::engine
