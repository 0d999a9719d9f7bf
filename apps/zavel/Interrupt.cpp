// Tests: tests/zavel/CommandTest.cpp
#include "Interrupt.h"

#include <signal.h>

#include <initializer_list>

namespace zavel::host {
namespace {

volatile sig_atomic_t g_signal = 0;

void note(int number) {
  g_signal = number;
}

}  // namespace

void watchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = note;
  action.sa_flags = static_cast<int>(SA_RESETHAND);  // and no SA_RESTART: a read that waits must return
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction old = {};
    // What the caller had ignored (nohup) stays ignored.
    if (sigaction(number, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) {
      sigaction(number, &action, nullptr);
    }
  }
}

int interrupted() {
  return g_signal;
}

int interruptedStatus() {
  return 128 + g_signal;
}

}  // namespace zavel::host
