// The program zavel-dicttool.
#include <signal.h>

#include <iostream>
#include <string_view>

#include "dicttool/Tool.h"

namespace {

volatile std::sig_atomic_t g_stop = 0;

void stop(int) {
  g_stop = 1;
}

// A conversion takes its temporary files away before it ends; a look-up just ends.
void watchSignals() {
  struct sigaction action = {};
  action.sa_handler = stop;
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction old = {};
    if (sigaction(number, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
      sigaction(number, &action, nullptr);
  }
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::string_view(argv[i]).starts_with("--convert")) watchSignals();
  }
  return zavel::dicttool::runTool(argc, argv, std::cout, std::cerr, &g_stop);
}
