// Tests: tests/zavel/CommandTest.cpp
#include "ChildProgram.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <tuple>

namespace zavel::host {
namespace {

constexpr int kNotStarted = 127;  // of a child that could not become the program

volatile sig_atomic_t g_child = 0;   // its number, while it runs
volatile sig_atomic_t g_signal = 0;  // the last that came

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

void handOn(int number) {
  g_signal = number;
  if (g_child != 0) kill(static_cast<pid_t>(g_child), number);
}

// While one lives, those signals wait, so that none gets lost between two processes.
class SignalsWait {
 public:
  SignalsWait() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : kSignals) sigaddset(&signals, number);
    sigprocmask(SIG_BLOCK, &signals, &before_);
  }
  ~SignalsWait() { end(); }
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;

  void end() { sigprocmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_;
};

// The program begins with what this one began with.
void endSignalHandling() {
  for (const int number : kSignals) {
    struct sigaction action = {};
    if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == handOn) signal(number, SIG_DFL);
  }
}

// What the child does. When this process is killed, which it can't hand on, the child is asked to end.
[[noreturn]] void become(const std::string& program, char* const* argv, pid_t parent, int keptOpen,
                         int output, bool errors) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != parent) _exit(kNotStarted);  // it was killed already
  if (keptOpen >= 0) fcntl(keptOpen, F_SETFD, 0);
  if (output >= 0) dup2(output, STDOUT_FILENO);
  if (output >= 0 && errors) dup2(output, STDERR_FILENO);
  execv(program.c_str(), argv);
  _exit(kNotStarted);
}

// Reads until all that write into the pipe have ended.
void readAll(int pipe, std::string* output) {
  char piece[4096];
  for (;;) {
    const ssize_t count = read(pipe, piece, sizeof piece);
    if (count > 0) output->append(piece, static_cast<size_t>(count));
    if (count == 0 || (count < 0 && errno != EINTR)) return;
  }
}

std::string folderOfThisProgram() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return {};
  const std::string program(path, static_cast<size_t>(length));
  return program.substr(0, program.rfind('/'));
}

}  // namespace

EndSignals::EndSignals() {
  struct sigaction action = {};
  action.sa_handler = handOn;
  static_assert(std::size(kSignals) == std::tuple_size_v<decltype(before_)>);
  for (size_t i = 0; i < std::size(kSignals); ++i) {
    // What the caller had ignored (nohup) stays ignored.
    if (sigaction(kSignals[i], nullptr, &before_[i]) == 0 && before_[i].sa_handler != SIG_IGN) {
      sigaction(kSignals[i], &action, nullptr);
    }
  }
}

EndSignals::~EndSignals() {
  for (size_t i = 0; i < std::size(kSignals); ++i) sigaction(kSignals[i], &before_[i], nullptr);
}

int EndSignals::came() {
  return g_signal;
}

std::string findProgram(const char* variable, const std::string& name) {
  const char* given = std::getenv(variable);
  if (given && *given == '/') return given;
  const std::string folder = folderOfThisProgram();
  for (const std::string& path : {folder + "/" + name, folder + "/../../tools/" + name + "/" + name}) {
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

ProgramEnd runProgram(const std::string& program, const std::vector<std::string>& arguments, int keptOpen,
                      Taken taken) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  ProgramEnd end;
  int pipe[2] = {-1, -1};
  if (taken.output && pipe2(pipe, O_CLOEXEC) != 0) {
    end.started = false;
    return end;
  }
  const pid_t parent = getpid();
  SignalsWait wait;
  const pid_t child = fork();
  if (child == 0) {
    endSignalHandling();
    wait.end();
    become(program, argv.data(), parent, keptOpen, pipe[1], taken.errors);
  }
  if (pipe[1] >= 0) close(pipe[1]);
  if (child < 0) {
    if (pipe[0] >= 0) close(pipe[0]);
    end.started = false;
    return end;
  }
  g_child = child;
  wait.end();
  if (g_signal != 0) kill(child, g_signal);  // it came before there was a child
  if (taken.output) {
    readAll(pipe[0], taken.output);
    close(pipe[0]);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  g_child = 0;
  end.started = !WIFEXITED(status) || WEXITSTATUS(status) != kNotStarted;
  end.status = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
  end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
  return end;
}

}  // namespace zavel::host
