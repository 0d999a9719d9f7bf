// Exact search in a user dictionary that also tells where the word stands, for identifications.
#ifndef ENGINE_USERIMI_H
#define ENGINE_USERIMI_H

#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// Fills `info` for `key` (types 1 to 3) and appends the text of each of its entries to *block as u32 length
// and bytes; *count tells their number. A key that is not there is kOk with a count of 0.
// kBadArgument for another type, kNoMemory past kMaxGathered bytes, else kInternal, kFileError, kNoUserE or
// kNoUserJ.
Status SrchUserImi(uint16_t type, const std::string& key, index_info* info, std::string* block,
                   uint16_t* count);

}  // namespace zavel::engine

#endif
