// Compacting user sets. Adding and deleting only append; arranging writes new files with what the indexes
// reach and nothing else. First pass: live blocks into a new .ix3 file. Second pass: live entries into a new
// .dic file, and the blocks once more with the new offsets. Third pass, kanji: the blocks once more with the
// offsets that the second pass gave the entries, which both Japanese indexes share.
#ifndef ENGINE_ARRANGE_H
#define ENGINE_ARRANGE_H

#include <cstdint>
#include <string>
#include <vector>

#include "engine/EngineStatus.h"
#include "engine/FsObj.h"
#include "engine/Index3.h"

namespace zavel::engine {

// The block of one row of table C; its row is its place among those of the same fileNo.
struct idx3_offset {
  uint32_t offset = 0;  // 0: no block
  uint16_t fileNo = 0;  // kanji index; 0 for the other types
};
using Idx3Offsets = std::vector<idx3_offset>;

// An entry's offset before and after.
struct EntryMove {
  uint32_t oldOffset = 0;
  uint32_t newOffset = 0;
};
using EntryMoves = std::vector<EntryMove>;

// The rows of the loaded index of `type`, for kanji of all its files in order.
Idx3Offsets ListIdx3Offsets(uint16_t type);

// First pass into `stream`, an empty file; the list and the index in memory, saved, then belong to that file.
Status ArrangeIdx3(Idx3Offsets* list, uint16_t type, FsObj* stream);
// Copies the file header and each live block, and notes the new offsets. A block without rows is not copied.
Status MakeArrangeIdx3(Idx3Offsets* list, uint16_t type, FsObj* stream);
// Stores the offsets of the list in the rows of the index.
Status ReArrangeIdx2_2(const Idx3Offsets& list, uint16_t type);
Status ChangeIdx1Data(uint32_t offset, uint16_t fileNo, uint32_t row, uint16_t type);

// Second pass, types 1 and 2, into two empty files; `moves` comes back sorted by old offset.
Status ArrangeDic(Idx3Offsets* list, uint16_t type, FsObj* dicStream, FsObj* ix3Stream, EntryMoves* moves);
// Copies the entries at `offsets`, replaces each by its new one and notes the moves. kInternal where no entry
// stands.
Status MakeArrangeDic(std::vector<uint32_t>* offsets, uint16_t type, FsObj* stream, EntryMoves* moves);
// Stores entry offsets, as many as rows, in a block.
void ReArrangeIdx3(const std::vector<uint32_t>& offsets, Ix3Block* block);

// Third pass. kInternal for an entry that no kana row reaches.
Status ArrangeDicKANJI(Idx3Offsets* list, FsObj* stream, const EntryMoves& moves);
// Stores the new offsets of a block's entries in it.
Status ReArrangeKeIdx3(const EntryMoves& moves, Ix3Block* block);
// The new offset of an entry, kInternal for one that was not moved.
Status GetNewOffset(const EntryMoves& moves, uint32_t oldOffset, uint32_t* newOffset);

// Order of offsets, and of moves by their old one: below 0, 0, above 0.
int compare(uint32_t a, uint32_t b);
int compareLoHiChange(const EntryMove& a, const EntryMove& b);

}  // namespace zavel::engine

#endif
