// Tests: tests/port/SpawnToolRunnerTest.cpp, tests/port/LoopChildProcessesTest.cpp
#include "base/SpawnedProgram.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

namespace zavel {
namespace {

// What the child does before it becomes the program.
class SpawnSetup {
 public:
  explicit SpawnSetup(const SpawnRequest& request) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    ready_ = put(request.input, STDIN_FILENO, O_RDONLY) && put(request.output, STDOUT_FILENO, O_WRONLY) &&
             (!request.quiet || put(-1, STDERR_FILENO, O_WRONLY)) &&
             ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1) == 0 &&
             setAttributes(request.ownSession);
  }
  ~SpawnSetup() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  SpawnSetup(const SpawnSetup&) = delete;
  SpawnSetup& operator=(const SpawnSetup&) = delete;

  pid_t start(const std::string& program, char* const* arguments, char* const* environment) const {
    pid_t pid = -1;
    if (!ready_) return -1;
    const int error = ::posix_spawn(&pid, program.c_str(), &actions_, &attributes_, arguments, environment);
    return error == 0 ? pid : -1;
  }

 private:
  bool put(int given, int place, int mode) {
    if (given >= 0) return ::posix_spawn_file_actions_adddup2(&actions_, given, place) == 0;
    return ::posix_spawn_file_actions_addopen(&actions_, place, "/dev/null", mode, 0) == 0;
  }

  // A host may ignore or block signals that a program relies on, SIGPIPE first of all.
  bool setAttributes(bool ownSession) {
    const int flags = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | (ownSession ? POSIX_SPAWN_SETSID : 0);
    sigset_t all;
    sigset_t none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    return ::posix_spawnattr_setsigdefault(&attributes_, &all) == 0 &&
           ::posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
           ::posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)) == 0;
  }

  posix_spawn_file_actions_t actions_;
  posix_spawnattr_t attributes_;
  bool ready_;
};

bool canBePassed(const std::string& text) {
  return text.find('\0') == std::string::npos;
}

std::string_view nameOf(std::string_view variable) {
  return variable.substr(0, variable.find('='));
}

// Pointers into this process's environment and into `added`, which wins.
std::vector<char*> environmentWith(const std::vector<std::string>& added) {
  std::vector<char*> all;
  for (char** own = environ; own && *own; ++own) {
    const bool replaced = std::any_of(added.begin(), added.end(), [own](const std::string& variable) {
      return nameOf(variable) == nameOf(*own);
    });
    if (!replaced) all.push_back(*own);
  }
  for (const std::string& variable : added) all.push_back(const_cast<char*>(variable.c_str()));
  all.push_back(nullptr);
  return all;
}

// Moves a descriptor out of the way of the standard ones.
int aboveStandard(int fd) {
  if (fd < 0 || fd > STDERR_FILENO) return fd;
  const int moved = ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  ::close(fd);
  return moved;
}

}  // namespace

pid_t spawnProgram(const SpawnRequest& request) {
  if (!request.program.starts_with('/') || !canBePassed(request.program)) return -1;
  if (!std::all_of(request.arguments.begin(), request.arguments.end(), canBePassed)) return -1;
  if (!std::all_of(request.environment.begin(), request.environment.end(), canBePassed)) return -1;
  std::vector<char*> arguments = {const_cast<char*>(request.program.c_str())};
  for (const std::string& argument : request.arguments)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const std::vector<char*> environment = environmentWith(request.environment);
  return SpawnSetup(request).start(request.program, arguments.data(), environment.data());
}

int exitStatusOf(int waitStatus) {
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : 128 + WTERMSIG(waitStatus);
}

int openProcessDescriptor(pid_t pid) {
  return static_cast<int>(::syscall(SYS_pidfd_open, pid, 0));
}

Pipe::Pipe() {
  if (::pipe2(ends_, O_CLOEXEC) != 0) return;
  for (int& end : ends_) end = aboveStandard(end);
}

Pipe::~Pipe() {
  closeRead();
  closeWrite();
}

int Pipe::takeEnd(int which) {
  const int end = ends_[which];
  ends_[which] = -1;
  return end;
}

void Pipe::closeEnd(int which) {
  if (ends_[which] >= 0) ::close(ends_[which]);
  ends_[which] = -1;
}

}  // namespace zavel
