// The loop that a host runs between events: timers, and whatever the port connects to it.
#ifndef PLATFORM_RUNLOOP_H
#define PLATFORM_RUNLOOP_H

#include <cstdint>
#include <functional>

#include "foundation/Export.h"

namespace zavel {

// One thread carries everything: callbacks run inside run calls, one after the other. A callback may start
// and stop timers, itself included, and run the loop again inside (a blocking wait that still serves events);
// a timer that repeats may then be called again before it has returned. An exception of a callback leaves the
// run call.
class ZAVEL_API RunLoop {
 public:
  using TimerId = uint64_t;  // never 0

  virtual ~RunLoop() = default;

  // Calls `fired` after `seconds` (0 or less: at the next turn of the loop), again and again with `repeats`,
  // then a millisecond apart at least.
  virtual TimerId startTimer(double seconds, bool repeats, std::function<void()> fired) = 0;
  // An id that is over does nothing.
  virtual void stopTimer(TimerId timer) = 0;

  // Serves events until `done` answers true, asked before each turn, or `seconds` have passed (negative: no
  // limit). The last answer of `done`. A negative `seconds` with a `done` that stays false never returns.
  virtual bool runUntil(const std::function<bool()>& done, double seconds = -1) = 0;
};

}  // namespace zavel

#endif
