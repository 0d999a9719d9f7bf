// First-level indexes: loading, searching their tables, walking them to a block offset.
#ifndef ENGINE_INDEX1_H
#define ENGINE_INDEX1_H

#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"
#include "engine/Globals.h"

namespace zavel::engine {

// The named block `name` of at least `size` bytes, its content unsettled unless *existed; null when it
// can't be had. Freed by DeleteFileMapping alone.
uint8_t* CreateShMem(const char* name, uint32_t size, bool* existed);

// Loads an index whole into the named block `name` and fills `info`. `set` 1 basic, 2 user. False on a
// read failure, a malformed file or when no block can be had; `info` is then unloaded. With `reload` false
// a block that existed is taken as it is. After success every table lies inside the block with its rows.
bool LoadIndex1(FsObj* stream, const char* name, idx_info_ptr* info, uint16_t set, uint16_t type,
                bool reload);
void UnLoadIndex1(idx_info_ptr* info);

// Table searches: a row, kRowNotFound, or kRowBad for a bad argument or an unloaded table.
// Single-byte keys compare signed, two-byte keys unsigned. For set 2 and type 3 `fileNo` 0 is the first
// kanji index, k continuation index k. Type 5 searches table C.
uint16_t Bsrch1(uint16_t type, uint16_t fileNo, uint16_t key, uint16_t set);
uint16_t Bsrch2_1(uint16_t type, uint16_t key, uint16_t parentRow, uint16_t set);
uint16_t Bsrch2_2(uint16_t type, uint16_t fileNo, uint16_t key, uint16_t parentRow, uint16_t set);

// 1 if every table pointer of every opened set is set, else 20.
Status CheckOuterVal();

// Walks the tables for a key: kOk with the block offset or the "no block" value (also for an empty key),
// kInternal for damaged tables. Types 1, 2, 3; GetIdxKihon walks the derived-word index as type 4.
Status GetIdxKihon(uint16_t type, const std::string& key, uint32_t* offset);
Status GetIdxUser(uint16_t type, const std::string& key, uint32_t* offset);

// The same in a user index with every row position recorded (kRowNotFound where there is none).
struct Idx1Position {
  uint16_t fileNo = 0;
  uint16_t pos1 = kRowNotFound;
  uint16_t pos2 = kRowNotFound;
  uint16_t pos3 = kRowNotFound;
  uint32_t offset = kNoBlockUser;
};
Status GetIdxUserPosition(uint16_t type, const std::string& key, Idx1Position* position);

// Rows of `table` (its size word first): the size by the row size, at most what a row number can name.
uint32_t RowCount(const uint8_t* table, size_t rowSize);

// kOk if `row` is below the row count of `table`, else kInternal.
Status AccessCheck(const uint8_t* table, uint16_t row, size_t rowSize);

// Where row `row` of table C holds the offset of its block (u32, low byte first); null for no such row.
uint8_t* BlockOffsetOf(const idx_info_ptr* info, uint16_t type, uint16_t row);

}  // namespace zavel::engine

#endif
