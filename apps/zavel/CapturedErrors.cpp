// Tests: tests/zavel/DictionariesTest.cpp
#include "CapturedErrors.h"

#include <fcntl.h>
#include <unistd.h>

namespace zavel::host {

CapturedErrors::CapturedErrors() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
  saved_ = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (saved_ >= 0) dup2(ends[1], STDERR_FILENO);
  close(ends[1]);
  read_ = ends[0];
}

CapturedErrors::~CapturedErrors() {
  restore();
  if (read_ >= 0) close(read_);
}

void CapturedErrors::restore() {
  if (saved_ < 0) return;
  dup2(saved_, STDERR_FILENO);
  close(saved_);
  saved_ = -1;
}

// No longer than there is something: a process that was left behind may hold the other end.
std::string CapturedErrors::take() {
  restore();
  std::string all;
  char piece[4096];
  for (ssize_t count = 0; read_ >= 0 && (count = read(read_, piece, sizeof piece)) > 0;) {
    all.append(piece, static_cast<size_t>(count));
  }
  return all;
}

}  // namespace zavel::host
