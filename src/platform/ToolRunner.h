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
};

class ToolRunner {
 public:
  virtual ~ToolRunner() = default;
  // Runs `program` (an absolute path) with `arguments`, standard input empty, and waits for its end.
  virtual ToolResult run(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

}  // namespace zavel

#endif
