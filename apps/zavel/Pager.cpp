// Tests: tests/zavel/CommandTest.cpp
#include "Pager.h"

#include <signal.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zavel::host {
namespace {

constexpr int kNotExecutable = 126, kNotFound = 127;  // what the shell answers for a command it can't start

const char* pagerCommand() {
  for (const char* name : {"ZAVEL_PAGER", "PAGER"}) {
    const char* value = std::getenv(name);
    if (value && *value) return value;
  }
  return "less -FIRX";
}

// False when the pager could not be started.
bool pipeInto(const char* command, const std::string& text) {
  std::fflush(stdout);
  setenv("LESSCHARSET", "utf-8", 0);  // the text is UTF-8 whatever the locale says
  FILE* pager = popen(command, "w");
  if (!pager) return false;
  // Who leaves the pager early has seen enough, and an interrupt is the pager's affair while it runs.
  struct sigaction ignore = {}, pipeBefore = {}, interruptBefore = {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &pipeBefore);
  sigaction(SIGINT, &ignore, &interruptBefore);
  std::fwrite(text.data(), 1, text.size(), pager);
  const int status = pclose(pager);
  sigaction(SIGINT, &interruptBefore, nullptr);
  sigaction(SIGPIPE, &pipeBefore, nullptr);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
  return status != -1 && code != kNotExecutable && code != kNotFound;
}

}  // namespace

bool needsPager(const std::string& text, size_t rows) {
  return rows > 0 && static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) >= rows;
}

void showPaged(const std::string& text) {
  const char* command = pagerCommand();
  const bool shown = std::strcmp(command, "cat") != 0 && pipeInto(command, text);
  if (!shown) std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace zavel::host
