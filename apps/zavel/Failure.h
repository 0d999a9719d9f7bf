// A failure as the user meets it: what happened, what to do next, and the exit status that goes with it.
#ifndef ZAVEL_FAILURE_H
#define ZAVEL_FAILURE_H

#include <string>

#include "ExitStatus.h"

namespace zavel::host {

struct Failure {
  ExitStatus status = kExitFound;
  std::string code;     // for programs: "no_dictionary", "damaged_dictionary", "too_long", ...
  std::string message;  // one line, UTF-8
  std::string hint;     // what to do next

  explicit operator bool() const { return status != kExitFound; }
};

// Writes message and hint to standard error, with `json` the document to standard output too, and gives the
// status.
int report(const Failure& failure, bool json);

// One line on standard error about something that is gone on without.
void warn(const std::string& message);

// {"schema":1,"status":"error","error":{...}}
std::string failureJson(const Failure& failure);

}  // namespace zavel::host

#endif
