// Tools as child processes.
#ifndef PORT_LINUX_BASE_SPAWNTOOLRUNNER_H
#define PORT_LINUX_BASE_SPAWNTOOLRUNNER_H

#include <atomic>
#include <chrono>
#include <cstddef>

#include "platform/ToolRunner.h"

namespace zavel {

// What a tool is allowed before it is helped to its end.
struct ToolLimits {
  size_t output = size_t{64} * 1024 * 1024;   // bytes; one that writes more is killed and keeps these
  std::chrono::milliseconds asked{1000};      // from SIGTERM to SIGKILL
  std::chrono::milliseconds leftBehind{500};  // for output of processes that it left behind
};

// The tool inherits the environment and standard error, no other descriptor; its signals are as at a login. A
// relative path or an argument that holds a NUL is not started.
//
// A tool is waited for without a limit, with its output open or closed: interrupt() is the way out. It asks
// the tool to end, a second call while it still runs kills it.
class SpawnToolRunner : public ToolRunner {
 public:
  explicit SpawnToolRunner(ToolLimits limits = {}) : limits_(limits) {}
  ~SpawnToolRunner() override;
  SpawnToolRunner(const SpawnToolRunner&) = delete;
  SpawnToolRunner& operator=(const SpawnToolRunner&) = delete;

  ToolResult run(const std::string& program, const std::vector<std::string>& arguments) override;
  void interrupt() override;

 private:
  ToolLimits limits_;
  // An event counter that interrupt() raises and a run waits on. It stays open between runs, so that a
  // handler never writes to a descriptor that has become someone else's. -1 before the first run.
  std::atomic<int> interrupts_{-1};
};

}  // namespace zavel

#endif
