// Third-level blocks: reading one, checking it, finding rows in it.
#ifndef ENGINE_INDEX3_H
#define ENGINE_INDEX3_H

#include <cstdint>
#include <string>
#include <vector>

#include "engine/EngineStatus.h"
#include "engine/FsObj.h"
#include "engine/Globals.h"

namespace zavel::engine {

// One block read whole. Views into `bytes`.
struct Ix3Block {
  std::string bytes;  // the whole block, head included
  uint16_t count = 0; // rows
  uint16_t size = 0;  // bytes in the block, as its head says

  const uint8_t* rowOffsets() const;    // count u16
  const uint8_t* strings() const;       // string area
  size_t stringsSize() const;           // bytes in the string area
  const uint8_t* entryOffsets() const;  // count u32
};

// Reads the block at `offset`: kFileError on a short read, kInternal when its count and size contradict
// each other.
Status ReadIx3(FsObj* stream, uint32_t offset, Ix3Block* block);

// Validates a whole block: kOk, else kInternal.
Status CheckIdx3Data(const uint8_t* block, size_t size);
Status AccessCheckIdx3(const uint8_t* block, size_t size, size_t offset, size_t length);

// Rows whose remainder equals that of `key`: the first row with their number in `number`; kRowNotFound
// for none; kRowBad for a key shorter than the prefix or a row offset beyond `stringsSize`.
uint16_t CompleteAgree(uint16_t type, const uint8_t* strings, const uint8_t* rowOffsets, uint16_t count,
                       const std::string& key, uint16_t* number, size_t stringsSize);
// The same by the beginning of the remainder, types 1 to 3.
uint16_t FrontAgree(uint16_t type, const uint8_t* strings, const uint8_t* rowOffsets, uint16_t count,
                    const std::string& key, uint16_t* number, size_t stringsSize);

// The entry offsets of one search in one block, with where they stand in it.
struct Ix3Rows {
  std::vector<uint32_t> offsets;  // offsets in the .dic file, in row order
  uint16_t firstRow = 0;
  uint16_t blockCount = 0;  // rows in the block
  uint16_t blockSize = 0;   // bytes in the block
};

// Exact search, types 1 to 5, set 1 or 2.
Status GetDicOffImi(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows);
// Search by beginning, types 1 to 3.
Status GetIndex3(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows);
// All entry offsets of a block, nothing else read.
Status GetDicOfset(uint16_t type, uint16_t set, uint32_t offset, std::vector<uint32_t>* offsets);
// One whole user block (types 1 to 3), validated.
Status GetIdx3Data(uint32_t offset, uint16_t type, Ix3Block* block);

// Exact search in the derived-word index: offsets in ej.dic, empty when there are none.
Status SrchHasei(const std::string& key, std::vector<uint32_t>* offsets);

// The stream of a set's blocks or entries (opened if it is a basic one not open yet), null when it can't
// be had.
FsObj* Ix3Stream(uint16_t type, uint16_t set);
FsObj* DicStream(uint16_t type, uint16_t set);

}  // namespace zavel::engine

#endif
