// Growing the kanji index. Its rows are inserted as words come, because the keys of kanji are too many to be
// prefilled; a full kji.idx becomes the next continuation index and an empty one takes its place.
#ifndef ENGINE_KJIIDXGROWTH_H
#define ENGINE_KJIIDXGROWTH_H

#include "engine/EngineStatus.h"
#include "engine/IdxInfo.h"

namespace zavel::engine {

// Makes sure that kji.idx takes one more row. kOk; with nothing changed kTooManyKjiIndexes when ten
// continuation indexes are in use and kNoIndexMemory when no memory slot is left for another. Else what
// MakeNewKjiIdx says, or kNoIndexMemory when the indexes can't be loaded again.
Status MakeRoomForKji();

// Inserts the row of info->word, with info->ix3Offset for its block, into the kji.idx in memory, and notes
// where it went. kMalformed when the row is there already, kInternal for an empty key, a full index or a
// damaged one.
Status AddKanjiIdx(index_info* info);

// Moves a full kji.idx aside as the next continuation index. The engine's streams of the set are open before
// and after. kFileError and kNoMemory, with kji.idx in its place and everything as it was, or, where that
// fails, in its backup "kji.idx.Bkup"; kTooManyKjiIndexes.
Status MakeNewKjiIdx();

}  // namespace zavel::engine

#endif
