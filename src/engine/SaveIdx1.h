// Writing changed user indexes back.
//
// A set of files is whole again after a crash at any moment: what indexes point at is on the disk before
// they are, the old index stands as ".bkup" beside its file from before the first change until the new one is
// on the disk, and indexes that belong together are saved together. Whoever finds a ".bkup" puts it back:
//
//   kna.idx.bkup is there   every ".bkup" of the Japanese set is the state before; put all back
//   another one, without it  of indexes that were whole already; they are left over
//   ej.idx.bkup is there     put it back
#ifndef ENGINE_SAVEIDX1_H
#define ENGINE_SAVEIDX1_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "engine/EngineStatus.h"
#include "engine/FsObj.h"

namespace zavel::engine {

// Appends `length` bytes at the end of `stream` and reports where they went. kInternal for a null stream,
// kFileError for a failed write. Nothing is held back; what must survive a power cut is synced by the
// writer once its chain of appends is complete.
Status ApendData(FsObj* stream, const void* bytes, size_t length, uint32_t* offset);

// Writes a user index back if it changed: type 1 ej.idx, 2 kna.idx, 3 kji.idx or continuation index
// `fileNo`. After a failure either the old index is back in its place or the ".bkup" holds it, and the index
// stays marked as changed. Leaves the stream open on success. kOk also when nothing changed, kInternal when
// the index is not loaded or there is no such index, kFileError, kNoMemory.
Status SaveIdx1(uint16_t type, uint16_t fileNo);

// Saves the changed indexes of the user Japanese set together: all of them or none. Status as SaveIdx1.
Status SaveIdx1sJ();

// Saves every index of the opened user sets; the last status other than 1 stands.
Status SaveIdx1s();

// Removes a backup so that it can't come back after a power cut. False: it is or may be still there.
bool DropBackup(const std::string& path);

}  // namespace zavel::engine

#endif
