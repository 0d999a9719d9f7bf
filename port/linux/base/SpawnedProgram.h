// Starting a program, the same way for all who start some: no shell, no descriptor but the three standard
// ones, signals as at a login.
#ifndef PORT_LINUX_BASE_SPAWNEDPROGRAM_H
#define PORT_LINUX_BASE_SPAWNEDPROGRAM_H

#include <sys/types.h>

#include <string>
#include <vector>

namespace zavel {

struct SpawnRequest {
  std::string program;                   // absolute path
  std::vector<std::string> arguments;    // after the program's own name
  std::vector<std::string> environment;  // "NAME=value", on top of this process's
  int input = -1;                        // its standard input, over 2; -1: empty
  int output = -1;                       // its standard output, over 2; -1: dropped
  bool ownSession = false;               // it survives this process's terminal
  bool quiet = false;                    // standard error is dropped; else it is this process's
};

// The process, which the caller waits for; -1 when it could not be started: a relative path, a text that
// holds a NUL, no such program.
pid_t spawnProgram(const SpawnRequest& request);

// 0 to 255, or 128 + signal number, from what waitpid() tells.
int exitStatusOf(int waitStatus);

// A descriptor that can be polled for the end of a child of this process; -1 where the kernel has no such
// thing.
int openProcessDescriptor(pid_t pid);

// Both ends close on exec and are over 2, whatever this process has closed, so that they can be put in the
// place of a child's standard descriptors in any order.
class Pipe {
 public:
  Pipe();
  ~Pipe();
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  bool isOpen() const { return ends_[0] >= 0 && ends_[1] >= 0; }
  int readEnd() const { return ends_[0]; }
  int writeEnd() const { return ends_[1]; }
  void closeRead() { closeEnd(0); }
  void closeWrite() { closeEnd(1); }
  // The caller owns the descriptor from then on.
  int takeRead() { return takeEnd(0); }
  int takeWrite() { return takeEnd(1); }

 private:
  int takeEnd(int which);
  void closeEnd(int which);

  int ends_[2] = {-1, -1};
};

}  // namespace zavel

#endif
