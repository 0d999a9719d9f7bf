// Programs that run beside the host: started without a shell, fed and read through pipes, their end told by
// the run loop.
#ifndef PLATFORM_CHILDPROCESSES_H
#define PLATFORM_CHILDPROCESSES_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Export.h"

namespace zavel {

struct ChildCommand {
  std::string program;  // absolute path
  std::vector<std::string> arguments;
  std::vector<std::string> environment;  // "NAME=value" on top of the host's own
  std::string input;                     // written to standard input, which is then closed
};

// Called by the run loop, never from inside start(). Each may be empty.
struct ChildEvents {
  std::function<void(std::string_view bytes)> output;  // standard output as it comes
  // After the last output. 0 to 255; 128 + signal number when a signal ended it.
  std::function<void(int exitStatus)> terminated;
};

// A started program. Letting go of one that still runs ends it (SIGTERM, then SIGKILL) and calls nothing
// more.
class ZAVEL_API ChildProcess {
 public:
  virtual ~ChildProcess() = default;
  virtual bool isRunning() const = 0;
  // Asks it to end (SIGTERM). `terminated` follows through the run loop.
  virtual void terminate() = 0;
};

class ZAVEL_API ChildProcesses {
 public:
  virtual ~ChildProcesses() = default;
  // Null when it can't be started. No descriptor of the host reaches the program but the three standard ones;
  // standard error stays the host's.
  virtual std::unique_ptr<ChildProcess> start(const ChildCommand& command, ChildEvents events) = 0;
};

}  // namespace zavel

#endif
