// Tests: tests/zavel/CommandTest.cpp
#include "SilentOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace zavel::host {

SilentOutput::SilentOutput() {
  std::fflush(stdout);
  const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nothing < 0) return;
  saved_ = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
  if (saved_ >= 0) dup2(nothing, STDOUT_FILENO);
  close(nothing);
}

SilentOutput::~SilentOutput() {
  std::fflush(stdout);
  if (saved_ < 0) return;
  dup2(saved_, STDOUT_FILENO);
  close(saved_);
}

}  // namespace zavel::host
