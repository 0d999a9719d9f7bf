// Where a word stands in the levels of a user index: what adding, listing and deleting go by.
#ifndef ENGINE_IDXINFO_H
#define ENGINE_IDXINFO_H

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/EngineStatus.h"
#include "engine/Index3.h"

namespace zavel::engine {

struct index_info {
  std::string word;            // the word, after GetIdxInfo its key
  uint16_t fileNo = 0;         // 0 for kji.idx, k for continuation index k
  uint16_t pos1 = 0xFFFF;      // row in the first table
  uint16_t pos2 = 0xFFFF;      // row in the second table
  uint16_t pos3 = 0xFFFF;      // row in the last table
  uint32_t ix3Offset = 0;      // offset of the third-level block, 0 if none
  uint16_t ix3Size = 0;        // bytes in that block
  uint16_t ix3Count = 0;       // words in that block
  uint16_t ix3First = 0xFFFF;  // first row with a remainder not below the word's; the block's count if none
  uint16_t ix3Matches = 0;     // rows equal to it
};

// Start values.
void InitIdxInfo(index_info* info);
// Gives the word's memory back; the other fields stay.
void FreeIdxInfo(index_info* info);

// The position of a key in a user index. For English and kana a key without a row is kInternal, because the
// prefilled tables know every key; a kanji key without a row leaves pos1 and pos3 at 0xFFFF with kOk. An
// empty key is kInternal.
Status GetIdx1Info(const std::string& word, uint16_t type, uint16_t* pos1, uint16_t* pos2, uint16_t* pos3,
                   uint32_t* offset, uint16_t* fileNo);

// Reads the block at ix3Offset and fills the ix3 fields; without a block they stay.
Status GetIdx3Info(index_info* info, uint16_t type);

// Finds the place of `remainder` among the rows of a block that was checked.
void GetIdx3(const Ix3View& block, const std::string& remainder, uint16_t* first, uint16_t* matches);

// The part of a key that a block of `type` files: what follows the key prefix.
std::string KeyRemainder(const std::string& key, uint16_t type);
// The remainder in row `number` of a block that was checked, borrowed from it.
std::string_view RowText(const Ix3View& block, uint16_t number);

// All of it: turns info->word into its key and fills the other fields. kBadArgument for a word that is none,
// kInternal for unloaded or damaged tables, kFileError.
Status GetIdxInfo(index_info* info, uint16_t type);

}  // namespace zavel::engine

#endif
