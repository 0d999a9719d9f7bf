// The program mkbook: reads the command line, runs, and tells how it went.
#include <iostream>

#include "mkbook/Build.h"
#include "mkdict/ProgramRun.h"

using namespace zavel::mkdict;

int main(int argc, char** argv) {
  zavel::mkbook::Options options;
  int status = kExitDone;
  if (!zavel::mkbook::parseOptions(argc, argv, &options, std::cout, std::cerr, &status)) return status;
  Progress progress = terminalProgress(options.progress, options.quiet);
  progress.watch(watchSignals());
  Summary summary;
  Faults faults;
  const Outcome outcome = zavel::mkbook::build(options, progress, &summary, &faults);
  const std::string account = options.json ? zavel::mkbook::reportJson(options, outcome, summary, faults)
                                           : zavel::mkbook::reportText(options, outcome, summary, faults);
  return tell("mkbook", account, zavel::mkbook::reportErrors(outcome), outcome.status);
}
