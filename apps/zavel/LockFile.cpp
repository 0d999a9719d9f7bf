// Tests: tests/zavel/PrefsTest.cpp, zavel-test.sh
#include "LockFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <thread>

namespace zavel::host {
namespace {

std::string readAll(int fd) {
  char text[64];
  const ssize_t length = pread(fd, text, sizeof text, 0);
  std::string name(text, length > 0 ? static_cast<size_t>(length) : 0);
  return name.substr(0, name.find('\n'));
}

bool lockWithin(int fd, int operation, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (flock(fd, operation | LOCK_NB) != 0) {
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace

LockFile::LockFile(const std::string& path, std::chrono::milliseconds patience, LockMode mode) {
  const bool shared = mode == LockMode::kShared;
  fd_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (fd_ < 0 && shared) {
    fd_ = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    held_ = fd_ < 0;
  }
  if (fd_ < 0) return;
  if (!lockWithin(fd_, shared ? LOCK_SH : LOCK_EX, patience)) {
    holder_ = readAll(fd_);
    if (holder_.empty()) holder_ = "another process";
    return;
  }
  held_ = shared || writeName();
}

bool LockFile::writeName() {
  const std::string name = "process " + std::to_string(getpid()) + "\n";
  named_ = true;
  return ftruncate(fd_, 0) == 0 &&
         pwrite(fd_, name.data(), name.size(), 0) == static_cast<ssize_t>(name.size());
}

LockFile::~LockFile() {
  if (fd_ < 0) return;
  // Who finds a shared lock in its way must not be told of a process that has ended.
  if (named_) static_cast<void>(ftruncate(fd_, 0) == 0);
  close(fd_);
}

}  // namespace zavel::host
