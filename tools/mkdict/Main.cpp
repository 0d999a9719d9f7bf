// The program mkdict: reads the command line, runs, and tells how it went.
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "mkdict/Build.h"
#include "mkdict/Report.h"

namespace {

using namespace zavel::mkdict;

volatile std::sig_atomic_t g_stop = 0;

void stop(int) {
  g_stop = 1;
}

void watchSignals() {
  struct sigaction action = {};
  action.sa_handler = stop;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &action, nullptr);
}

unsigned terminalColumns() {
  struct winsize size = {};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col < 20) return 79;
  return size.ws_col - 1u;
}

Progress::Style styleOf(const Options& options) {
  if (options.progress == "bar") return Progress::Style::kBar;
  if (options.progress == "plain") return Progress::Style::kPlain;
  if (options.progress == "json") return Progress::Style::kJson;
  const bool bar = options.progress == "auto" && !options.quiet && isatty(STDERR_FILENO) != 0;
  return bar ? Progress::Style::kBar : Progress::Style::kNone;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int status = kExitDone;
  if (!parseOptions(argc, argv, &options, std::cout, std::cerr, &status)) return status;
  watchSignals();
  Progress progress(styleOf(options), std::cerr, {}, terminalColumns());
  progress.watch(&g_stop);
  Summary summary;
  Faults faults;
  const bool checks = !options.verify.empty();
  const Outcome outcome =
      checks ? verify(options, progress, &summary, &faults) : build(options, progress, &summary);
  const Report report{options, outcome, summary, faults};
  std::cout << (options.json ? report.json() : report.text());
  std::cerr << report.errors();
  if (std::cout.flush() || outcome.status != kExitDone) return outcome.status;
  // Nobody may take a cut account for a whole one.
  std::cerr << "mkdict: the output can't be written\nCheck that the disk isn't full and that standard output "
               "is open.\n";
  return kExitEnvironment;
}
