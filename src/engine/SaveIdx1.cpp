// Tests: tests/engine/SaveIdx1Test.cpp
#include "engine/SaveIdx1.h"

#include <algorithm>
#include <new>
#include <string>
#include <vector>

#include "engine/Frame.h"
#include "engine/KjiIdx.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::engine {
namespace {

// A user index with the file it belongs to.
struct UserIdx {
  idx_info_ptr* info = nullptr;
  FsObj* stream = nullptr;
  std::string path;
  uint16_t type = 0;

  std::string backup() const { return path + ".bkup"; }
  bool loaded() const { return info != nullptr && info->tableBase != nullptr && stream != nullptr; }
};
using UserIdxs = std::vector<UserIdx>;

UserIdx ChooseIdx(uint16_t type, uint16_t fileNo) {
  if (type == kTypeE) return {&g_sUserEJ, g_fs_Ej_Idx_User, UserPathE("ej.idx"), type};
  if (type == kTypeKana) return {&g_sUserKna, g_fs_Je_Idx_User, UserPathJ("kna.idx"), type};
  if (type != kTypeKji || fileNo > kMaxKjiIndexes) return {};
  return {IndexInfo(type, kSetUser, fileNo), g_fs_Ke_Idx_User[fileNo], UserPathJ(KjiIdxName(fileNo).c_str()),
          type};
}

bool SyncFolderOf(const std::string& path) {
  const std::string folder = _splitpath(path).dir;
  return storage().syncFolder(folder.empty() ? "." : folder);
}

// Puts what was appended to a file on the disk, through its stream if that is open.
bool SyncFile(FsObj* stream, const std::string& path) {
  if (stream != nullptr && stream->IsOpen()) return stream->Sync();
  FsObj file;
  return file.Open(path, false) && file.Sync() && file.Close();
}

// An index must not reach the disk ahead of the blocks and entries that it leads to.
bool SyncBehind(uint16_t type) {
  if (type == kTypeE) {
    return SyncFile(g_fs_Ej_Dic_User, UserPathE("ej.dic")) && SyncFile(g_fs_Ej_Ix3_User, UserPathE("ej.ix3"));
  }
  if (!SyncFile(g_fs_Je_Dic_User, UserPathJ("je.dic"))) return false;
  return type == kTypeKana ? SyncFile(g_fs_Je_Ix3_User, UserPathJ("kna.ix3"))
                           : SyncFile(g_fs_Ke_Ix3_User, UserPathJ("kji.ix3"));
}

std::string Rows(const uint8_t* table, size_t headSize) {
  return std::string(reinterpret_cast<const char*>(table) + headSize, readLE32(table));
}

void AppendTable(std::string& idx, const uint8_t* table) {
  const std::string rows = Rows(table, kTableHead);
  appendLE32(idx, static_cast<uint32_t>(rows.size()));
  appendLE32(idx, static_cast<uint32_t>(idx.size() + 4 + rows.size()));
  idx += rows;
}

// The index as its file holds it, tables one after the other whatever gaps they had.
std::string FileBytes(const idx_info_ptr& info, uint16_t type) {
  std::string idx(reinterpret_cast<const char*>(info.tableBase), kUserHeader);
  AppendTable(idx, info.tableA);
  if (type == kTypeE) AppendTable(idx, info.tableB);
  appendLE32(idx, readLE32(info.tableC));
  return idx + Rows(info.tableC, kTableHeadC);
}

// Caught here and not further up, so that the caller can put the old index back whatever went wrong.
Status WriteAnew(const UserIdx& idx) try {
  CloseFsObj(idx.stream);
  if (storage().exists(idx.path) && !DeleteFile(idx.path)) return kFileError;
  uint32_t offset = 0;
  const std::string bytes = FileBytes(*idx.info, idx.type);
  const bool written = NewOpenFsObj(idx.stream, idx.path) &&
                       ApendData(idx.stream, bytes.data(), bytes.size(), &offset) == kOk &&
                       idx.stream->Sync();
  return written ? kOk : kFileError;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

// While an earlier save is unfinished the ".bkup" is the only whole index and must not be copied over.
bool BackUp(const UserIdx& idx) {
  if (!idx.info->unfinished && !CopyFile(idx.path, idx.backup())) return false;
  idx.info->unfinished = true;
  return true;
}

bool IsAmong(const UserIdxs& idxs, const std::string& path) {
  return std::any_of(idxs.begin(), idxs.end(), [&](const UserIdx& idx) { return idx.path == path; });
}

// Backups of other kanji indexes that a crash left over were worth nothing without the first one, and would
// count again beside a new first one. The copy of a kji.idx that was to be moved aside is older than the one
// in its place.
bool DropLeftovers(const UserIdxs& idxs) {
  if (idxs.front().type != kTypeKana) return true;
  const std::string aside = UserPathJ("kji.idx") + ".Bkup";
  if (storage().exists(aside) && !DropBackup(aside)) return false;
  for (uint16_t fileNo = 0; fileNo <= kMaxKjiIndexes; ++fileNo) {
    const UserIdx idx = ChooseIdx(kTypeKji, fileNo);
    if (IsAmong(idxs, idx.path) || !storage().exists(idx.backup())) continue;
    if (!DropBackup(idx.backup())) return false;
  }
  return true;
}

Status WriteAll(const UserIdxs& idxs) {
  for (const UserIdx& idx : idxs) {
    if (!SyncBehind(idx.type)) return kFileError;
  }
  if (!DropLeftovers(idxs)) return kFileError;
  for (const UserIdx& idx : idxs) {
    if (!BackUp(idx)) return kFileError;
  }
  for (const UserIdx& idx : idxs) {
    const Status status = WriteAnew(idx);
    if (status != kOk) return status;
  }
  return SyncFolderOf(idxs.front().path) ? kOk : kFileError;
}

// The old indexes back in their places. A backup is needed as long as its index isn't back, and the first
// one as long as any other is: it tells what the others are worth.
void PutBack(const UserIdxs& idxs) {
  bool all = true;
  for (const UserIdx& idx : idxs) {
    CloseFsObj(idx.stream);
    if (idx.info->unfinished) all = CopyFile(idx.backup(), idx.path) && all;
  }
  for (const UserIdx& idx : idxs) idx.info->unfinished = idx.info->unfinished && !all;
}

// Once the first backup is gone the new state is the one that counts, though a power cut may still bring the
// backup back while that isn't on the disk.
Status DropBackups(const UserIdxs& idxs) {
  if (!DeleteFile(idxs.front().backup())) return kFileError;
  for (const UserIdx& idx : idxs) idx.info->unfinished = false;
  const Status status = SyncFolderOf(idxs.front().path) ? kOk : kFileError;
  for (size_t i = 1; i < idxs.size(); ++i) DeleteFile(idxs[i].backup());
  return status;
}

// Saves indexes of one set as one step. The one that tells of the others comes first.
Status SaveTogether(const UserIdxs& idxs) {
  Status status = WriteAll(idxs);
  if (status == kOk) status = DropBackups(idxs);
  if (status != kOk) {
    PutBack(idxs);
    return status;
  }
  for (const UserIdx& idx : idxs) idx.info->dirty = 0;
  return kOk;
}

}  // namespace

Status ApendData(FsObj* stream, const void* bytes, size_t length, uint32_t* offset) {
  if (stream == nullptr) return kInternal;
  return stream->Append({static_cast<const char*>(bytes), length}, offset) ? kOk : kFileError;
}

Status SaveIdx1(uint16_t type, uint16_t fileNo) {
  if (g_ProcessInfo == nullptr) return kInternal;
  const UserIdx idx = ChooseIdx(type, fileNo);
  if (!idx.loaded()) return kInternal;
  return idx.info->dirty ? SaveTogether({idx}) : kOk;
}

Status SaveIdx1sJ() {
  if (g_ProcessInfo == nullptr) return kInternal;
  UserIdxs idxs = {ChooseIdx(kTypeKana, 0)};
  for (uint16_t fileNo = 0; fileNo <= KjiIdxCount(); ++fileNo) idxs.push_back(ChooseIdx(kTypeKji, fileNo));
  for (const UserIdx& idx : idxs) {
    if (!idx.loaded()) return kInternal;
  }
  const auto unchanged = [](const UserIdx& idx) { return !idx.info->dirty; };
  if (std::all_of(idxs.begin(), idxs.end(), unchanged)) return kOk;
  // The kana index is saved with any other, because its backup tells of theirs.
  idxs.erase(std::remove_if(idxs.begin() + 1, idxs.end(), unchanged), idxs.end());
  return SaveTogether(idxs);
}

Status SaveIdx1s() {
  const Status statusE = g_dicType & kDicUserE ? SaveIdx1(kTypeE, 0) : kOk;
  const Status statusJ = g_dicType & kDicUserJ ? SaveIdx1sJ() : kOk;
  return statusJ != kOk ? statusJ : statusE;
}

bool DropBackup(const std::string& path) {
  return DeleteFile(path) && SyncFolderOf(path);
}

}  // namespace zavel::engine
