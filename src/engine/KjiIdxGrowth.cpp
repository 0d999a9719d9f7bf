// Tests: tests/engine/KjiIdxGrowthTest.cpp
#include "engine/KjiIdxGrowth.h"

#include <cstring>
#include <string>

#include "engine/Frame.h"
#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "engine/MakeUserDic.h"
#include "engine/SaveIdx1.h"
#include "engine/Shim.h"
#include "engine/UserFrame.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

constexpr size_t kKeyBytes = 2;

// The rows of both tables as strings, so that inserting a row is inserting bytes.
struct KjiRows {
  std::string a;
  std::string c;
};

// Whole rows alone: what a damaged size word counts beyond them would grow out of the fixed block.
std::string RowsOf(const uint8_t* table, size_t headSize, size_t rowSize) {
  return std::string(reinterpret_cast<const char*>(table) + headSize, readLE32(table) / rowSize * rowSize);
}

// Finds `key` among the rows from `first` to `end`: *row is that row, or the first greater one, or `end`.
bool FindKey(const std::string& rows, size_t rowSize, size_t first, size_t end, std::string_view key,
             size_t* row) {
  for (*row = first; *row < end; ++*row) {
    const int order = std::memcmp(rows.data() + *row * rowSize, key.data(), kKeyBytes);
    if (order == 0) return true;
    if (order > 0) return false;
  }
  return false;
}

size_t ChildOf(const KjiRows& rows, size_t rowA) {
  const size_t at = rowA * kRowAKji + kKeyBytes;
  if (at >= rows.a.size()) return rows.c.size() / kRowCKji;
  return readLE16(reinterpret_cast<const uint8_t*>(rows.a.data()) + at);
}

void ShiftChildren(KjiRows* rows, size_t fromA) {
  for (size_t at = fromA * kRowAKji + kKeyBytes; at < rows->a.size(); at += kRowAKji) {
    auto* child = reinterpret_cast<uint8_t*>(rows->a.data()) + at;
    writeLE16(child, static_cast<uint16_t>(readLE16(child) + 1));
  }
}

void InsertA(KjiRows* rows, size_t rowA, std::string_view key, size_t child) {
  std::string row(key);
  appendLE16(row, static_cast<uint16_t>(child));
  rows->a.insert(rowA * kRowAKji, row);
}

void InsertC(KjiRows* rows, size_t rowC, std::string_view key, uint32_t offset) {
  std::string row(key);
  appendLE32(row, offset);
  rows->c.insert(rowC * kRowCKji, row);
}

// Inserts the rows of a key of four bytes, the last two 0 for a word of one character.
Status InsertKey(KjiRows* rows, const std::string& key, uint32_t offset, index_info* info) {
  const std::string_view first = std::string_view(key).substr(0, kKeyBytes);
  const std::string_view second = std::string_view(key).substr(kKeyBytes);
  const size_t endA = rows->a.size() / kRowAKji;
  const size_t endC = rows->c.size() / kRowCKji;
  size_t rowA = 0;
  const bool known = FindKey(rows->a, kRowAKji, 0, endA, first, &rowA);
  const size_t child = ChildOf(*rows, rowA);
  const size_t end = known ? ChildOf(*rows, rowA + 1) : child;
  if (child > end || end > endC) return kInternal;
  size_t rowC = child;
  if (known && FindKey(rows->c, kRowCKji, child, end, second, &rowC)) return kMalformed;
  if (!known) InsertA(rows, rowA, first, child);
  ShiftChildren(rows, rowA + 1);
  InsertC(rows, rowC, second, offset);
  info->pos1 = static_cast<uint16_t>(rowA);
  info->pos3 = static_cast<uint16_t>(rowC);
  return kOk;
}

// Puts the rows back behind the header, one table after the other. They fit: the caller saw to it.
void PutBack(const KjiRows& rows, idx_info_ptr* info) {
  info->tableA = info->tableBase + kUserHeader;
  info->tableB = info->tableC = info->tableA + kTableHead + rows.a.size();
  writeLE32(info->tableA, static_cast<uint32_t>(rows.a.size()));
  writeLE32(info->tableA + 4, static_cast<uint32_t>(info->tableC - info->tableBase));
  std::memcpy(info->tableA + kTableHead, rows.a.data(), rows.a.size());
  writeLE32(info->tableC, static_cast<uint32_t>(rows.c.size()));
  std::memcpy(info->tableC + kTableHeadC, rows.c.data(), rows.c.size());
}

// An empty kji.idx in the place of the full one, with the streams open on it.
Status ReplaceKjiIdx(const std::string& path, const std::string& aside, uint16_t number) {
  CloseFsObjsUserJ();
  const bool made = DeleteFile(path) && MkUserDicJ(path, kFileKjiIdx, number) &&
                    OpenFsObjsUserJ(false, false) == kOk && DropBackup(aside);
  return made ? kOk : kFileError;
}

// kji.idx as it was, from its copy, with the streams open on it. The backup stays while it is needed.
void TakeBack(const std::string& path, const std::string& copy, const std::string& aside) {
  CloseFsObjsUserJ();
  if (CopyFile(copy, path)) DeleteFile(aside);
  OpenFsObjsUserJ(false, false);
}

}  // namespace

Status MakeRoomForKji() {
  if (GetKjiIdxWordCnt() < kUserKjiRows) return kOk;
  if (KjiIdxCount() >= kMaxKjiIndexes) return kTooManyKjiIndexes;
  if (FreeMappings() == 0) return kNoIndexMemory;
  Status status = SaveIdx1sJ();
  if (status == kOk) status = MakeNewKjiIdx();
  return status == kOk ? CreateShMemUserJ(true) : status;
}

Status AddKanjiIdx(index_info* info) {
  idx_info_ptr* idx = &g_sUserKji;
  if (idx->tableBase == nullptr || info->word.size() < kKeyBytes) return kInternal;
  KjiRows rows{RowsOf(idx->tableA, kTableHead, kRowAKji), RowsOf(idx->tableC, kTableHeadC, kRowCKji)};
  if (rows.c.size() / kRowCKji >= kUserKjiRows || rows.a.size() / kRowAKji >= kUserKjiRows) return kInternal;
  std::string key = info->word.substr(0, 2 * kKeyBytes);
  key.resize(2 * kKeyBytes, '\0');
  const Status status = InsertKey(&rows, key, info->ix3Offset, info);
  if (status != kOk) return status;
  PutBack(rows, idx);
  idx->dirty = 1;
  info->fileNo = 0;
  return kOk;
}

Status MakeNewKjiIdx() {
  const uint16_t number = static_cast<uint16_t>(KjiIdxCount() + 1);
  if (number > kMaxKjiIndexes) return kTooManyKjiIndexes;
  const Status saved = SaveIdx1(kTypeKji, 0);
  if (saved != kOk) return saved;
  const std::string path = UserPathJ("kji.idx");
  const std::string aside = path + ".Bkup";
  const std::string next = UserPathJ(KjiIdxName(number).c_str());
  if (!CopyFile(path, next) || !CopyFile(path, aside)) return kFileError;
  const Status status = NoMemoryAsStatus([&] { return ReplaceKjiIdx(path, aside, number); });
  if (status != kOk) TakeBack(path, next, aside);
  return status;
}

}  // namespace zavel::engine
