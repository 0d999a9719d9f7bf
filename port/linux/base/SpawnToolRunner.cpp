// Tests: tests/port/SpawnToolRunnerTest.cpp
#include "base/SpawnToolRunner.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

namespace zavel {
namespace {

constexpr size_t kOutputLimit = size_t{64} * 1024 * 1024;
constexpr size_t kReadChunk = size_t{64} * 1024;

class Pipe {
 public:
  Pipe() { open_ = ::pipe2(ends_, O_CLOEXEC) == 0; }
  ~Pipe() {
    closeRead();
    closeWrite();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  bool isOpen() const { return open_; }
  int readEnd() const { return ends_[0]; }
  int writeEnd() const { return ends_[1]; }
  void closeRead() { closeEnd(0); }
  void closeWrite() { closeEnd(1); }

 private:
  void closeEnd(int which) {
    if (ends_[which] >= 0) ::close(ends_[which]);
    ends_[which] = -1;
  }

  int ends_[2] = {-1, -1};
  bool open_;
};

// What the child does before it becomes the tool.
class SpawnSetup {
 public:
  explicit SpawnSetup(int output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    // Output first: where the host has no standard input, the pipe may have got its number.
    ready_ = ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO) == 0 &&
             ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0) == 0 &&
             ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1) == 0 && resetSignals();
  }
  ~SpawnSetup() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  SpawnSetup(const SpawnSetup&) = delete;
  SpawnSetup& operator=(const SpawnSetup&) = delete;

  bool start(const std::string& program, char* const* arguments, pid_t* pid) const {
    return ready_ && ::posix_spawn(pid, program.c_str(), &actions_, &attributes_, arguments, environ) == 0;
  }

 private:
  // A host may ignore or block signals that a tool relies on, SIGPIPE first of all.
  bool resetSignals() {
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    return ::posix_spawnattr_setsigdefault(&attributes_, &all) == 0 &&
           ::posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
           ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK) == 0;
  }

  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
  bool ready_;
};

bool canBePassed(const std::string& text) {
  return text.find('\0') == std::string::npos;
}

// True at the end of the output, false when the limit was reached first.
bool readOutput(int fd, std::string* output) {
  std::vector<char> chunk(kReadChunk);
  for (;;) {
    const ssize_t n = ::read(fd, chunk.data(), chunk.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return true;
    const size_t room = kOutputLimit - output->size();
    output->append(chunk.data(), std::min(room, static_cast<size_t>(n)));
    if (static_cast<size_t>(n) > room) return false;
  }
}

int waitFor(pid_t pid) {
  int status = 0;
  pid_t ended;
  do {
    ended = ::waitpid(pid, &status, 0);
  } while (ended < 0 && errno == EINTR);
  if (ended != pid) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ToolResult SpawnToolRunner::run(const std::string& program, const std::vector<std::string>& arguments) {
  ToolResult result;
  if (program.empty() || program[0] != '/' || !canBePassed(program)) return result;
  if (!std::all_of(arguments.begin(), arguments.end(), canBePassed)) return result;
  std::vector<char*> argv = {const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  Pipe pipe;
  if (!pipe.isOpen()) return result;
  pid_t pid = 0;
  if (!SpawnSetup(pipe.writeEnd()).start(program, argv.data(), &pid)) return result;
  result.started = true;
  pipe.closeWrite();
  if (!readOutput(pipe.readEnd(), &result.output)) ::kill(pid, SIGKILL);
  pipe.closeRead();
  result.exitStatus = waitFor(pid);
  return result;
}

}  // namespace zavel
