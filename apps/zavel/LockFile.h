// One lock file beside a store, naming the process that holds it.
#ifndef ZAVEL_LOCKFILE_H
#define ZAVEL_LOCKFILE_H

#include <chrono>
#include <string>

namespace zavel::host {

// Whether others may hold the lock at the same time, as long as none of them wants it alone.
enum class LockMode { kAlone, kShared };

// Held until destroyed or the process ends, and as long as a child has the descriptor. The file itself stays:
// removing it would let two processes hold two files of one name.
class LockFile {
 public:
  // Waits up to `patience` for another process to let go.
  // A shared lock needs no right to write: where there is no lock file and none can be made, nobody can write
  // there, and it counts as held.
  explicit LockFile(const std::string& path, std::chrono::milliseconds patience = {},
                    LockMode mode = LockMode::kAlone);
  ~LockFile();
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;

  bool held() const { return held_; }
  // Of the open file; -1 where it could not be opened. A child that inherits it holds the lock too.
  int descriptor() const { return fd_; }
  // Who holds it instead, or "another process" where those who do gave no name ("process 4711"), where it is
  // not held.
  const std::string& holder() const { return holder_; }

 private:
  bool writeName();

  int fd_ = -1;
  bool named_ = false;
  bool held_ = false;
  std::string holder_;
};

}  // namespace zavel::host

#endif
