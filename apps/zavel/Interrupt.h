// SIGINT, SIGTERM, SIGHUP and SIGQUIT as a wish to end that is looked at between two steps, so that none of
// them leaves a temporary file behind.
#ifndef ZAVEL_INTERRUPT_H
#define ZAVEL_INTERRUPT_H

#include "platform/ToolRunner.h"

namespace zavel::host {

// From now on the signals only leave word, and calls that wait (reading standard input) return. SIGXFSZ is
// ignored: what can't be written any more is seen where it is written.
void watchInterrupts();

// The number of the signal that came, 0 while none has. A second one ends the process at once.
int interrupted();

// The exit status that goes with it, 128 and the signal's number.
int interruptedStatus();

// While one lives, a tool runs. The first SIGINT of the process is then for the tool, which is asked to end:
// this program goes on with what it has. A second one, and the other signals, end both.
class ToolWatch {
 public:
  explicit ToolWatch(ToolRunner& tools);  // borrowed
  ~ToolWatch();
  ToolWatch(const ToolWatch&) = delete;
  ToolWatch& operator=(const ToolWatch&) = delete;
};

}  // namespace zavel::host

#endif
