// Third-level blocks: reading one, checking it, finding rows in it.
//
//   u16 count n | u16 size | n x u16 row offset | string area: n x { u16 length, remainder, NUL } | n x u32
//   entry
//
// Row offsets are measured from the start of the string area, entry offsets are positions in the .dic file.
#ifndef ENGINE_INDEX3_H
#define ENGINE_INDEX3_H

#include <cstdint>
#include <string>
#include <vector>

#include "engine/EngineStatus.h"
#include "engine/FsObj.h"
#include "engine/Globals.h"

namespace zavel::engine {

// One whole block in borrowed bytes. Its count and size agree with each other; the rows are unchecked.
struct Ix3View {
  const uint8_t* data = nullptr;  // `size` bytes, head included
  uint16_t count = 0;             // rows
  uint16_t size = 0;              // bytes in the block, as its head says

  const uint8_t* rowOffsets() const;         // count u16
  const uint8_t* strings() const;            // string area
  size_t stringsSize() const;                // bytes in the string area
  const uint8_t* entryOffsets() const;       // count u32
  uint32_t entryOffset(uint16_t row) const;  // of a row below `count`
};

// One whole block that owns its bytes.
struct Ix3Block {
  std::string bytes;   // the whole block, head included
  uint16_t count = 0;  // rows
  uint16_t size = 0;   // bytes in the block, as its head says

  Ix3View view() const;  // borrowed from `bytes`
  const uint8_t* rowOffsets() const { return view().rowOffsets(); }
  const uint8_t* strings() const { return view().strings(); }
  size_t stringsSize() const { return view().stringsSize(); }
  const uint8_t* entryOffsets() const { return view().entryOffsets(); }
};

// Reads the block at `offset`: kFileError on a short read, kInternal when its count and size contradict
// each other. A view is borrowed from the stream and lasts until its next read.
Status ViewIx3(FsObj* stream, uint32_t offset, Ix3View* block);
Status ReadIx3(FsObj* stream, uint32_t offset, Ix3Block* block);

// Validates a whole block of `size` bytes row by row: kOk, else kInternal. A block of no rows is its head
// alone.
Status CheckIdx3Data(const uint8_t* block, size_t size);
// kOk if the `length` bytes from `offset` lie inside a block of `size` bytes, else kInternal.
Status AccessCheckIdx3(const uint8_t* block, size_t size, size_t offset, size_t length);

// Rows whose remainder equals that of `key`: the first row with their number in `number`; kRowNotFound
// for none; kRowBad for a key shorter than the prefix, or when a row that is looked at runs beyond
// `stringsSize`.
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

// Exact search in the block at `offset`, types 1 to 5, set 1 or 2. A key shorter than its prefix takes the
// whole block, at most 50 rows (type 4: all), if the first remainder is empty. No rows is kOk. Else
// kNoKihonFile, kFileError, kInternal; `rows` is then unsettled.
Status GetDicOffImi(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows);
// Search by beginning, types 1 to 3, the rest as above. A key that leaves nothing to compare takes the
// whole block: at most 50 rows of a basic one.
Status GetIndex3(uint16_t type, uint16_t set, const std::string& key, uint32_t offset, Ix3Rows* rows);
// All entry offsets of a block, its strings unread.
Status GetDicOfset(uint16_t type, uint16_t set, uint32_t offset, std::vector<uint32_t>* offsets);
// One whole user block (types 1 to 3), validated.
Status GetIdx3Data(uint32_t offset, uint16_t type, Ix3Block* block);

// Exact search in the derived-word index: offsets in ej.dic, empty when there are none.
Status SrchHasei(const std::string& key, std::vector<uint32_t>* offsets);

// The stream of a set's blocks or entries (opened if it is a basic one not open yet), null when it can't
// be had; NoStreamStatus is then what the call reports.
FsObj* Ix3Stream(uint16_t type, uint16_t set);
FsObj* DicStream(uint16_t type, uint16_t set);
// What a call reports when a stream of this type and set can't be had: 257, 258 or 259.
Status NoStreamStatus(uint16_t type, uint16_t set);

}  // namespace zavel::engine

#endif
