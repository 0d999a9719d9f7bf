// A build from the sources to the folder, and the check of a folder: what the command line runs, and what
// tests and other programs call.
#ifndef MKDICT_BUILD_H
#define MKDICT_BUILD_H

#include <string>

#include "mkdict/ExitStatus.h"
#include "mkdict/Faults.h"
#include "mkdict/Options.h"
#include "mkdict/Progress.h"
#include "mkdict/Summary.h"

namespace zavel::mkdict {

// How a run ended. On kExitDone the three sentences are empty.
struct Outcome {
  int status = kExitDone;
  std::string code;     // for programs: "missing_input", "damaged_input", ...
  std::string message;  // what is wrong
  std::string hint;     // what to do about it
};

// Builds the set into options.target, whole or not at all. *summary tells what of the sources was taken,
// changed and left out.
Outcome build(const Options& options, Progress& progress, Summary* summary);

// Checks the set in options.verify.
Outcome verify(const Options& options, Progress& progress, Summary* summary, Faults* faults);

}  // namespace zavel::mkdict

#endif
