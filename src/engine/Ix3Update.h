// New third-level blocks. A block is never changed in place: each change builds a new one, which is appended
// and to which the index then points.
#ifndef ENGINE_IX3UPDATE_H
#define ENGINE_IX3UPDATE_H

#include <cstdint>
#include <string>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// `offset` is that of an entry, `type` 1 to 3; *block gets the new block. kBlockTooLong when it would pass
// 65,535 bytes; kInternal, kFileError and the status of a stream that can't be had for an old block that
// can't be read.

// The block of a key that has none yet: one row.
Status NewIdx3(const index_info& info, uint32_t offset, uint16_t type, std::string* block);
// The old block and a row for the word, behind the rows that equal it.
Status RemakeIdx3(const index_info& info, uint32_t offset, uint16_t type, std::string* block);
// The old block with another entry in `row`; kInternal for a row that it doesn't have.
Status ChangeIdx3(uint16_t row, const index_info& info, uint32_t offset, uint16_t type, std::string* block);
// The old block without the row that `sikibetu` names; kInternal for a row that it doesn't have.
Status DelIdx3(uint16_t type, const sikibetu_data& sikibetu, std::string* block);

// Appends a block to ej.ix3, kna.ix3 or kji.ix3. kInternal, kFileError.
Status WriteIx3(const std::string& block, uint16_t type, uint32_t* offset);

}  // namespace zavel::engine

#endif
