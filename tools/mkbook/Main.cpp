// The program mkbook: reads the command line, runs, and tells how it went.
#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "mkbook/Build.h"

namespace {

using namespace zavel::mkbook;
using zavel::mkdict::Progress;

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
  int status = zavel::mkdict::kExitDone;
  if (!parseOptions(argc, argv, &options, std::cout, std::cerr, &status)) return status;
  watchSignals();
  Progress progress(styleOf(options), std::cerr, {}, terminalColumns());
  progress.watch(&g_stop);
  zavel::mkdict::Summary summary;
  zavel::mkdict::Faults faults;
  const zavel::mkdict::Outcome outcome = build(options, progress, &summary, &faults);
  std::cout << (options.json ? reportJson(options, outcome, summary, faults)
                             : reportText(options, outcome, summary, faults));
  std::cerr << reportErrors(outcome);
  if (std::cout.flush() || outcome.status != zavel::mkdict::kExitDone) return outcome.status;
  // Nobody may take a cut account for a whole one.
  std::cerr << "mkbook: the output can't be written\nCheck that the disk isn't full and that standard output "
               "is open.\n";
  return zavel::mkdict::kExitEnvironment;
}
