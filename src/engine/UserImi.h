// Exact search in a user dictionary that also tells where the word stands, for identifications.
#ifndef ENGINE_USERIMI_H
#define ENGINE_USERIMI_H

#include <cstdint>
#include <string>

#include "engine/DicFormat.h"
#include "engine/EngineStatus.h"

namespace zavel::engine {

// Where a word stands in the levels of one user index.
struct index_info {
  std::string word;                   // the normalised word
  uint16_t fileNo = 0;                // 0 for kji.idx, k for continuation index k
  uint16_t pos1 = kRowNotFound;       // row in the first table
  uint16_t pos2 = kRowNotFound;       // row in the second table
  uint16_t pos3 = kRowNotFound;       // row in the last table
  uint32_t ix3Offset = kNoBlockUser;  // offset of the third-level block, 0 if none
  uint16_t ix3Size = 0;               // bytes in that block
  uint16_t ix3Count = 0;              // rows in that block
  uint16_t ix3First = 0xFFFF;         // the word's first row in it; its count if there is none
  uint16_t ix3Matches = 0;            // rows with the word's remainder
};

// Fills `info` for `key` (types 1 to 3) and appends the text of each of its entries to *block as u32 length
// and bytes; *count tells their number. A key that is not there is kOk with a count of 0.
// kBadArgument for another type, else kInternal, kFileError, kNoUserE or kNoUserJ.
Status SrchUserImi(uint16_t type, const std::string& key, index_info* info, std::string* block,
                   uint16_t* count);

}  // namespace zavel::engine

#endif
