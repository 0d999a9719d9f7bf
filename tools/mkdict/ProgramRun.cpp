// Tests: tests/mkdict/mkdict-test.sh, tests/mkbook/mkbook-test.sh
#include "mkdict/ProgramRun.h"

#include <signal.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

#include "mkdict/ExitStatus.h"

namespace zavel::mkdict {
namespace {

volatile std::sig_atomic_t g_stop = 0;

void stop(int) {
  g_stop = 1;
}

unsigned terminalColumns() {
  struct winsize size = {};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col < 20) return 79;
  return size.ws_col - 1u;
}

Progress::Style styleOf(const std::string& how, bool quiet) {
  if (how == "bar") return Progress::Style::kBar;
  if (how == "plain") return Progress::Style::kPlain;
  if (how == "json") return Progress::Style::kJson;
  const bool bar = how == "auto" && !quiet && isatty(STDERR_FILENO) != 0;
  return bar ? Progress::Style::kBar : Progress::Style::kNone;
}

}  // namespace

const volatile std::sig_atomic_t* watchSignals() {
  struct sigaction action = {};
  action.sa_handler = stop;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaction(number, &action, nullptr);
  // A file that may not grow further is a failed write, as on a full disk.
  signal(SIGXFSZ, SIG_IGN);
  return &g_stop;
}

Progress terminalProgress(const std::string& how, bool quiet) {
  return Progress(styleOf(how, quiet), std::cerr, {}, terminalColumns());
}

int tell(const std::string& program, const std::string& account, const std::string& errors, int status) {
  std::cout << account << std::flush;
  std::cerr << errors;
  if (std::cout || status != kExitDone) return status;
  // Nobody may take a cut account for a whole one.
  std::cerr << program << ": the output can't be written\n"
            << "Check that the disk isn't full and that standard output is open.\n";
  return kExitEnvironment;
}

}  // namespace zavel::mkdict
