// Child processes on the run loop.
#ifndef PORT_LINUX_BASE_LOOPCHILDPROCESSES_H
#define PORT_LINUX_BASE_LOOPCHILDPROCESSES_H

#include <memory>

#include "base/LinuxRunLoop.h"
#include "platform/ChildProcesses.h"

namespace zavel {

// Signals of a program are as at a login; standard input is empty or a pipe, standard output always a pipe.
// When a program has ended, its output is waited for until it is closed, half a second at most: one that left
// a process behind is over all the same. Letting go of a running one takes a fifth of a second at most.
class LoopChildProcesses : public ChildProcesses {
 public:
  // The loop is borrowed and outlives all programs started.
  explicit LoopChildProcesses(LinuxRunLoop& loop) : loop_(loop) {}

  std::unique_ptr<ChildProcess> start(const ChildCommand& command, ChildEvents events) override;

 private:
  LinuxRunLoop& loop_;
};

}  // namespace zavel

#endif
