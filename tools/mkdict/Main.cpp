// The program mkdict: reads the command line, runs, and tells how it went.
#include <iostream>

#include "mkdict/Build.h"
#include "mkdict/ProgramRun.h"
#include "mkdict/Report.h"

using namespace zavel::mkdict;

int main(int argc, char** argv) {
  Options options;
  int status = kExitDone;
  if (!parseOptions(argc, argv, &options, std::cout, std::cerr, &status)) return status;
  Progress progress = terminalProgress(options.progress, options.quiet);
  progress.watch(watchSignals());
  Summary summary;
  Faults faults;
  const bool checks = !options.verify.empty();
  const Outcome outcome =
      checks ? verify(options, progress, &summary, &faults) : build(options, progress, &summary);
  const Report report{options, outcome, summary, faults};
  return tell("mkdict", options.json ? report.json() : report.text(), report.errors(), outcome.status);
}
