// Tests: tests/engine/SaveIdx1Test.cpp
#include "engine/SaveIdx1.h"

#include <new>
#include <string>

#include "engine/Frame.h"
#include "engine/KjiIdx.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

// A user index with the file it belongs to.
struct UserIdx {
  idx_info_ptr* info = nullptr;
  FsObj* stream = nullptr;
  std::string path;
};

UserIdx ChooseIdx(uint16_t type, uint16_t fileNo) {
  if (type == kTypeE) return {&g_sUserEJ, g_fs_Ej_Idx_User, UserPathE("ej.idx")};
  if (type == kTypeKana) return {&g_sUserKna, g_fs_Je_Idx_User, UserPathJ("kna.idx")};
  if (type != kTypeKji || fileNo > kMaxKjiIndexes) return {};
  return {IndexInfo(type, kSetUser, fileNo), g_fs_Ke_Idx_User[fileNo], UserPathJ(KjiIdxName(fileNo).c_str())};
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
Status WriteAnew(const UserIdx& idx, uint16_t type) try {
  CloseFsObj(idx.stream);
  if (storage().exists(idx.path) && !DeleteFile(idx.path)) return kFileError;
  uint32_t offset = 0;
  const std::string bytes = FileBytes(*idx.info, type);
  const bool written = NewOpenFsObj(idx.stream, idx.path) &&
                       ApendData(idx.stream, bytes.data(), bytes.size(), &offset) == kOk &&
                       idx.stream->Sync();
  return written ? kOk : kFileError;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

}  // namespace

Status ApendData(FsObj* stream, const void* bytes, size_t length, uint32_t* offset) {
  if (stream == nullptr) return kInternal;
  return stream->Append({static_cast<const char*>(bytes), length}, offset) ? kOk : kFileError;
}

Status SaveIdx1(uint16_t type, uint16_t fileNo) {
  if (g_ProcessInfo == nullptr) return kInternal;
  const UserIdx idx = ChooseIdx(type, fileNo);
  if (idx.info == nullptr || idx.info->tableBase == nullptr || idx.stream == nullptr) return kInternal;
  if (!idx.info->dirty) return kOk;
  const std::string bkup = idx.path + ".bkup";
  // While an earlier save is unfinished the ".bkup" is the only whole index and must not be copied over.
  if (!idx.info->unfinished && !CopyFile(idx.path, bkup)) return kFileError;
  idx.info->unfinished = true;
  const Status status = WriteAnew(idx, type);
  if (status != kOk) {
    CloseFsObj(idx.stream);
    idx.info->unfinished = !CopyFile(bkup, idx.path);
    return status;
  }
  idx.info->unfinished = false;
  idx.info->dirty = 0;
  DeleteFile(bkup);
  return kOk;
}

Status SaveIdx1s() {
  Status result = kOk;
  const auto save = [&result](uint16_t type, uint16_t fileNo) {
    const Status status = SaveIdx1(type, fileNo);
    if (status != kOk) result = status;
  };
  if (g_dicType & kDicUserE) save(kTypeE, 0);
  if (!(g_dicType & kDicUserJ)) return result;
  save(kTypeKana, 0);
  for (uint16_t fileNo = 0; fileNo <= KjiIdxCount(); ++fileNo) save(kTypeKji, fileNo);
  return result;
}

}  // namespace zavel::engine
