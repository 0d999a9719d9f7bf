// Programs run as tools: started without a shell, waited for, their output read.
#ifndef PLATFORM_TOOLRUNNER_H
#define PLATFORM_TOOLRUNNER_H

#include <string>
#include <vector>

namespace zavel {

struct ToolResult {
  bool started = false;  // false: the program could not be started, the rest is empty
  int exitStatus = -1;   // 0 to 255; 128 + signal number when a signal ended it
  std::string output;    // bytes of standard output

  // Why it ended, other than by itself. Both may be true of a tool that got a moment to end and used it,
  // whatever its exit status is then.
  bool interrupted = false;  // interrupt() was called while it ran
  bool stopped = false;      // it wrote too much
};

class ToolRunner {
 public:
  virtual ~ToolRunner() = default;
  // Runs `program` (an absolute path) with `arguments`, standard input empty, and waits for its end.
  virtual ToolResult run(const std::string& program, const std::vector<std::string>& arguments) = 0;

  // Ends the tool that runs, so that run() returns soon. Without one it does nothing, to later ones neither.
  // May be called from a signal handler and from another thread, on a runner that was asked for before:
  // making services is no work for a handler.
  virtual void interrupt() {}
};

}  // namespace zavel

#endif
