// The three passes. The files around them: ArrangeUserDic.cpp. Tests: tests/engine/ArrangeUserDicTest.cpp
#include "engine/Arrange.h"

#include <algorithm>

#include "engine/DicFormat.h"
#include "engine/Entry.h"
#include "engine/EntryBound.h"
#include "engine/Frame.h"
#include "engine/Globals.h"
#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "engine/SaveIdx1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

uint16_t LastFileNo(uint16_t type) {
  return type == kTypeKji ? KjiIdxCount() : 0;
}

// Where the block offset of a row of table C stands.
uint8_t* OffsetOfRow(uint16_t type, uint16_t fileNo, uint32_t row) {
  return BlockOffsetOf(IndexInfo(type, kSetUser, fileNo), type, static_cast<uint16_t>(row));
}

// The file header of `from` into the new file, where it must come first.
Status CopyHeader(FsObj* from, FsObj* to, uint32_t* offset) {
  char header[kUserHeader];
  if (from == nullptr || !from->ReadExact(0, header, sizeof header)) return kFileError;
  return ApendData(to, header, sizeof header, offset);
}

Status CopyHeaderFirst(FsObj* from, FsObj* to) {
  uint32_t offset = 0;
  const Status status = CopyHeader(from, to, &offset);
  return status == kOk && offset != 0 ? kInternal : status;
}

// Saves the indexes that now belong to a new file, and opens the set anew.
Status SaveAndReopen(uint16_t type) {
  Status status = kOk;
  for (uint16_t fileNo = 0; fileNo <= LastFileNo(type) && status == kOk; ++fileNo) {
    IndexInfo(type, kSetUser, fileNo)->dirty = 1;
    status = SaveIdx1(type, fileNo);
  }
  if (status != kOk) return status;
  if (type == kTypeE) {
    CloseFsObjsUserE();
    return OpenFsObjsUserE(false, false) ? kOk : kFileError;
  }
  CloseFsObjsUserJ();
  return OpenFsObjsUserJ(false, false) == kOk ? kOk : kFileError;
}

Status PointAndSave(const Idx3Offsets& list, uint16_t type) {
  const Status status = ReArrangeIdx2_2(list, type);
  return status == kOk ? SaveAndReopen(type) : status;
}

std::vector<uint32_t> EntryOffsets(const Ix3Block& block) {
  std::vector<uint32_t> offsets(block.count);
  for (uint16_t row = 0; row < block.count; ++row) offsets[row] = block.view().entryOffset(row);
  return offsets;
}

// Carries each live block over to `stream`, changed by `change`.
template <typename Change>
Status CarryBlocks(Idx3Offsets* list, uint16_t type, FsObj* stream, const Change& change) {
  EntryBound bound(type);
  for (idx3_offset& element : *list) {
    if (element.offset == kNoBlockUser) continue;
    Ix3Block block;
    Status status = GetIdx3Data(element.offset, type, &block);
    if (status == kOk) status = bound.take(block.count);
    if (status == kOk) status = change(&block);
    if (status != kOk) return status;
    element.offset = kNoBlockUser;
    if (block.count == 0) continue;
    status = ApendData(stream, block.bytes.data(), block.bytes.size(), &element.offset);
    if (status != kOk) return status;
  }
  return kOk;
}

}  // namespace

Idx3Offsets ListIdx3Offsets(uint16_t type) {
  Idx3Offsets list;
  for (uint16_t fileNo = 0; fileNo <= LastFileNo(type); ++fileNo) {
    const uint32_t rows = RowCount(IndexInfo(type, kSetUser, fileNo)->tableC, RowSizeC(type));
    for (uint32_t row = 0; row < rows; ++row) {
      list.push_back({readLE32(OffsetOfRow(type, fileNo, row)), fileNo});
    }
  }
  return list;
}

Status MakeArrangeIdx3(Idx3Offsets* list, uint16_t type, FsObj* stream) {
  uint32_t offset = 0;
  const Status status = CopyHeader(Ix3Stream(type, kSetUser), stream, &offset);
  if (status != kOk || offset != 0) return status;
  return CarryBlocks(list, type, stream, [](Ix3Block*) { return kOk; });
}

Status ReArrangeIdx2_2(const Idx3Offsets& list, uint16_t type) {
  uint32_t row = 0;
  for (size_t i = 0; i < list.size(); ++i) {
    row = i > 0 && list[i].fileNo == list[i - 1].fileNo ? row + 1 : 0;
    const Status status = ChangeIdx1Data(list[i].offset, list[i].fileNo, row, type);
    if (status != kOk) return status;
  }
  return kOk;
}

Status ChangeIdx1Data(uint32_t offset, uint16_t fileNo, uint32_t row, uint16_t type) {
  const idx_info_ptr* info = IndexInfo(type, kSetUser, fileNo);
  if (info == nullptr || info->tableC == nullptr || row >= RowCount(info->tableC, RowSizeC(type)))
    return kInternal;
  writeLE32(OffsetOfRow(type, fileNo, row), offset);
  return kOk;
}

Status ArrangeIdx3(Idx3Offsets* list, uint16_t type, FsObj* stream) {
  const Status status = MakeArrangeIdx3(list, type, stream);
  return status == kOk ? PointAndSave(*list, type) : status;
}

void ReArrangeIdx3(const std::vector<uint32_t>& offsets, Ix3Block* block) {
  auto* area = reinterpret_cast<uint8_t*>(block->bytes.data()) + block->size - size_t{4} * block->count;
  for (size_t row = 0; row < block->count; ++row) writeLE32(area + 4 * row, offsets[row]);
}

Status MakeArrangeDic(std::vector<uint32_t>* offsets, uint16_t type, FsObj* stream, EntryMoves* moves) {
  for (uint32_t& offset : *offsets) {
    std::string text;
    Status status = GetDicData(nullptr, type, kSetUser, offset, &text);
    if (status == kOk && FindEntryTag(text, 0) != 0) status = kInternal;
    EntryMove move{offset, 0};
    if (status == kOk) status = ApendData(stream, text.data(), text.size(), &move.newOffset);
    if (status != kOk) return status;
    offset = move.newOffset;
    moves->push_back(move);
  }
  return kOk;
}

Status ArrangeDic(Idx3Offsets* list, uint16_t type, FsObj* dicStream, FsObj* ix3Stream, EntryMoves* moves) {
  Status status = CopyHeaderFirst(DicStream(type, kSetUser), dicStream);
  if (status == kOk) status = CopyHeaderFirst(Ix3Stream(type, kSetUser), ix3Stream);
  if (status != kOk) return status;
  status = CarryBlocks(list, type, ix3Stream, [&](Ix3Block* block) {
    std::vector<uint32_t> offsets = EntryOffsets(*block);
    const Status copied = MakeArrangeDic(&offsets, type, dicStream, moves);
    if (copied == kOk) ReArrangeIdx3(offsets, block);
    return copied;
  });
  if (status != kOk) return status;
  std::sort(moves->begin(), moves->end(),
            [](const EntryMove& a, const EntryMove& b) { return compareLoHiChange(a, b) < 0; });
  return PointAndSave(*list, type);
}

Status GetNewOffset(const EntryMoves& moves, uint32_t oldOffset, uint32_t* newOffset) {
  const auto found =
      std::lower_bound(moves.begin(), moves.end(), EntryMove{oldOffset, 0},
                       [](const EntryMove& a, const EntryMove& b) { return compareLoHiChange(a, b) < 0; });
  if (found == moves.end() || found->oldOffset != oldOffset) return kInternal;
  *newOffset = found->newOffset;
  return kOk;
}

Status ReArrangeKeIdx3(const EntryMoves& moves, Ix3Block* block) {
  std::vector<uint32_t> offsets = EntryOffsets(*block);
  for (uint32_t& offset : offsets) {
    const Status status = GetNewOffset(moves, offset, &offset);
    if (status != kOk) return status;
  }
  ReArrangeIdx3(offsets, block);
  return kOk;
}

Status ArrangeDicKANJI(Idx3Offsets* list, FsObj* stream, const EntryMoves& moves) {
  Status status = CopyHeaderFirst(Ix3Stream(kTypeKji, kSetUser), stream);
  if (status != kOk) return status;
  status =
      CarryBlocks(list, kTypeKji, stream, [&](Ix3Block* block) { return ReArrangeKeIdx3(moves, block); });
  return status == kOk ? PointAndSave(*list, kTypeKji) : status;
}

int compare(uint32_t a, uint32_t b) {
  return (a > b) - (a < b);
}

int compareLoHiChange(const EntryMove& a, const EntryMove& b) {
  return compare(a.oldOffset, b.oldOffset);
}

}  // namespace zavel::engine
