// Tools as child processes.
#ifndef PORT_LINUX_BASE_SPAWNTOOLRUNNER_H
#define PORT_LINUX_BASE_SPAWNTOOLRUNNER_H

#include "platform/ToolRunner.h"

namespace zavel {

// The tool inherits the environment and standard error, no other descriptor; its signals are as at a
// login. Output is read to its end; a tool that writes more than 64 MiB is killed and keeps its first
// 64 MiB. A relative path or an argument that holds a NUL is not started.
class SpawnToolRunner : public ToolRunner {
 public:
  ToolResult run(const std::string& program, const std::vector<std::string>& arguments) override;
};

}  // namespace zavel

#endif
