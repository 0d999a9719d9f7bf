// The frame of the functions that work on a user dictionary: the steps around their work.
#ifndef ENGINE_USERFRAME_H
#define ENGINE_USERFRAME_H

#include <functional>
#include <new>

#include "engine/EngineAPI.h"
#include "engine/EngineStatus.h"
#include "engine/Frame.h"

namespace zavel::engine {

using UserWork = std::function<Status()>;

// Runs `work` between opening and closing of the set that `code` belongs to, read-write for writers. Callers
// wrap a reference to their function, which takes no memory: a lack of it is caught only inside.
//   argumentsOk  false: kBadArgument before any file is opened
// Status: that of the work; 258 or 259 for a set that wasn't opened or a file that can't be; 18; 35; 17; 20
// for a set that a failed arrangement left without its index.
Status RunUserWriter(FunctionCode code, bool argumentsOk, const UserWork& work);
// The same without the opening, for work that opens and closes the set itself.
Status RunUserAdmitted(FunctionCode code, const UserWork& work);
Status RunUserReader(FunctionCode code, bool argumentsOk, const UserWork& work);

// Runs a step whose failure the caller must undo, also for a lack of memory.
template <typename Step>
Status NoMemoryAsStatus(const Step& step) try {
  return step();
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

}  // namespace zavel::engine

#endif
