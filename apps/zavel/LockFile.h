// One lock file beside a store, naming the process that holds it.
#ifndef ZAVEL_LOCKFILE_H
#define ZAVEL_LOCKFILE_H

#include <chrono>
#include <string>

namespace zavel::host {

// Held until destroyed or the process ends, and as long as a child has the descriptor. The file itself stays:
// removing it would let two processes hold two files of one name.
class LockFile {
 public:
  // Waits up to `patience` for another process to let go.
  explicit LockFile(const std::string& path, std::chrono::milliseconds patience = {});
  ~LockFile();
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;

  bool held() const { return held_; }
  // Of the open file; -1 where it could not be opened. A child that inherits it holds the lock too.
  int descriptor() const { return fd_; }
  // Who holds it instead ("process 4711"), where it is not held.
  const std::string& holder() const { return holder_; }

 private:
  int fd_ = -1;
  bool held_ = false;
  std::string holder_;
};

}  // namespace zavel::host

#endif
