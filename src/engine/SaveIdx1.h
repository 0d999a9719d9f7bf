// Writing changed user indexes back.
#ifndef ENGINE_SAVEIDX1_H
#define ENGINE_SAVEIDX1_H

#include <cstddef>
#include <cstdint>

#include "engine/EngineStatus.h"
#include "engine/FsObj.h"

namespace zavel::engine {

// Appends `length` bytes at the end of `stream` and reports where they went. kInternal for a null stream,
// kFileError for a failed write. Nothing is held back; what must survive a power cut is synced by the
// writer once its chain of appends is complete.
Status ApendData(FsObj* stream, const void* bytes, size_t length, uint32_t* offset);

// Writes a user index back if it changed: type 1 ej.idx, 2 kna.idx, 3 kji.idx or continuation index
// `fileNo`. The old file stands as ".bkup" beside it until the new one is complete and on the disk; after a
// failure either the old index is back in its place or the ".bkup" holds it. Leaves the stream open on
// success. kOk also when nothing changed, kInternal when the index is not loaded or there is no such index,
// kFileError, kNoMemory.
Status SaveIdx1(uint16_t type, uint16_t fileNo);

// Saves every index of the opened user sets; the last status other than 1 stands.
Status SaveIdx1s();

}  // namespace zavel::engine

#endif
