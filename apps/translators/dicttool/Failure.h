// How a run of the program failed.
#ifndef DICTTOOL_FAILURE_H
#define DICTTOOL_FAILURE_H

#include <string>

namespace zavel::dicttool {

// The same numbers as those of the command zavel.
enum ExitStatus : int {
  kExitDone = 0,
  kExitUsage = 2,
  kExitEnvironment = 3,  // a file missing or not to be written, no dictionary
  kExitDamaged = 5,
  kExitInterrupted = 130,
};

struct Failure {
  ExitStatus status = kExitDone;
  std::string message;  // one line, UTF-8

  explicit operator bool() const { return status != kExitDone; }
};

}  // namespace zavel::dicttool

#endif
