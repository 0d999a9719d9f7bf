// Tests: tests/zavel/CommandTest.cpp, DictionariesTest.cpp
#include "Interrupt.h"

#include <signal.h>

#include <atomic>
#include <initializer_list>

namespace zavel::host {
namespace {

volatile sig_atomic_t g_signal = 0;
volatile sig_atomic_t g_toolWasInterrupted = 0;
std::atomic<ToolRunner*> g_tools{nullptr};  // while a tool runs

void note(int number) {
  ToolRunner* const tools = g_tools.load();
  if (tools) tools->interrupt();
  if (tools && number == SIGINT && g_toolWasInterrupted == 0) {
    g_toolWasInterrupted = 1;
    return;
  }
  // Who has asked before waits for no tool that takes its time.
  if (tools && number == SIGINT) tools->interrupt();
  g_signal = number;
  signal(number, SIG_DFL);  // the next one ends the process
}

}  // namespace

void watchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = note;  // no SA_RESTART: a read that waits must return
  // A file that may not grow any further is a failed write, which is told as one.
  signal(SIGXFSZ, SIG_IGN);
  for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
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

ToolWatch::ToolWatch(ToolRunner& tools) {
  g_tools = &tools;
}

ToolWatch::~ToolWatch() {
  g_tools = nullptr;
}

}  // namespace zavel::host
