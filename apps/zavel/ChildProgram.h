// A compiler of dictionaries or books as a child process: it shares this process's terminal, so that its
// progress shows as if it were our own.
#ifndef ZAVEL_CHILDPROGRAM_H
#define ZAVEL_CHILDPROGRAM_H

#include <signal.h>

#include <array>
#include <string>
#include <vector>

namespace zavel::host {

// Where a compiler stands: the absolute path in this variable, beside this program, or in the build tree.
// Empty when nowhere.
std::string findProgram(const char* variable, const std::string& name);

// How it ended.
struct ProgramEnd {
  bool started = true;
  int status = 0;  // exit status
  int signal = 0;  // the signal that ended it; 0 for none
};

// While one lives, SIGINT, SIGTERM and SIGHUP don't end this process: the program that runs is asked to end,
// so that it can remove what it has begun, and programs that are started later are asked at once.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  // The number of the last one that came; 0 for none.
  static int came();

 private:
  std::array<struct sigaction, 3> before_ = {};
};

// What becomes of the lines that a program writes.
struct Taken {
  std::string* output = nullptr;  // takes what goes to standard output; null lets it through
  bool errors = false;            // standard error goes there, too
};

// Runs it and waits, with an EndSignals alive. When this process is killed, it gets SIGTERM. `keptOpen`, a
// descriptor or -1, stays open in it: a lock on that file is held until both have ended.
ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments, int keptOpen,
                      Taken taken = {});

}  // namespace zavel::host

#endif
