// Bringing a user index up to date: the new block into its file, its offset into the index in memory. The
// index reaches its own file when it is saved.
#ifndef ENGINE_RENEWINDEX_H
#define ENGINE_RENEWINDEX_H

#include <cstdint>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"
#include "engine/WordParam.h"

namespace zavel::engine {

// Builds the block by `way`, appends it and points the index at it; `offset` is that of the entry and `row`
// the one to change (kWayChange). kBlockTooLong, kInternal, kFileError, and for a kanji without a row yet
// what MakeRoomForKji and AddKanjiIdx say. The index is as it was unless the status is 1.
Status RenewIndexE(index_info* info, uint32_t offset, Way way, uint16_t row);
Status RenewIndexJ(index_info* info, uint32_t offset, Way way, uint16_t row);
Status RenewIndexK(index_info* info, uint32_t offset, Way way, uint16_t row);

// Stores info->ix3Offset into the row of table C that `info` names, after making that row for a kanji
// without one.
Status RenewIdx1(index_info* info, uint16_t type);

// Takes the row that `sikibetu` names, which was proved to be current, out of its block and the index.
Status DeleteIdx3(uint16_t type, const sikibetu_data& sikibetu);

// The place that an identification names, with its block as it was.
index_info PlaceOf(const sikibetu_data& sikibetu);

}  // namespace zavel::engine

#endif
