// The dictionary compiler as a child process: it shares this process's terminal, so that its progress
// shows as if it were our own.
#ifndef ZAVEL_MKDICTPROGRAM_H
#define ZAVEL_MKDICTPROGRAM_H

#include <string>
#include <vector>

namespace zavel::host {

// Where mkdict stands: ZAVEL_MKDICT, beside this program, or in the build tree. Empty when nowhere.
std::string findMkdict();

// How it ended.
struct MkdictEnd {
  bool started = true;
  int status = 0;  // exit status
  int signal = 0;  // the signal that ended it; 0 for none
};

// Runs it and waits. SIGINT, SIGTERM and SIGHUP are handed on to it, so that it can remove what it has begun
// before this process ends; when this process is killed, it gets SIGTERM. `keptOpen`, a descriptor or -1, stays
// open in it: a lock on that file is held until both have ended. `output` takes what it writes to standard
// output; null lets it through. Serves for every program of that kind.
MkdictEnd runMkdict(const std::string& program, const std::vector<std::string>& arguments, int keptOpen,
                    std::string* output = nullptr);

}  // namespace zavel::host

#endif
