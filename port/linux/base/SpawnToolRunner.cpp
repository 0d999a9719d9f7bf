// Tests: tests/port/SpawnToolRunnerTest.cpp
#include "base/SpawnToolRunner.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

#include "base/SpawnedProgram.h"

namespace zavel {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr size_t kReadChunk = size_t{64} * 1024;
constexpr milliseconds kLookEvery{20};  // where the kernel doesn't tell of a process's end

// How many times the counter was raised since it was last asked; it is then 0.
uint64_t takeCount(int counter) {
  uint64_t count = 0;
  return ::read(counter, &count, sizeof count) == sizeof count ? count : 0;
}

// One tool from its start to its end.
class ToolRun {
 public:
  // Descriptors are borrowed.
  ToolRun(const ToolLimits& limits, pid_t pid, int output, int interrupts)
      : limits_(limits),
        pid_(pid),
        output_(output),
        interrupts_(interrupts),
        end_(openProcessDescriptor(pid)) {
    result_.started = true;
  }
  ~ToolRun() {
    if (end_ >= 0) ::close(end_);
  }
  ToolRun(const ToolRun&) = delete;
  ToolRun& operator=(const ToolRun&) = delete;

  ToolResult finish();

 private:
  void waitForEvents(bool* readable);
  int patience() const;
  void readOutput();
  void reap();
  void obeyInterrupts();
  void lookAtTheClock();
  void askToEnd();
  void kill();
  void send(int signal) const;
  void setDeadline(milliseconds wait) { deadline_ = Clock::now() + wait; }

  const ToolLimits& limits_;
  pid_t pid_;       // 0 once it was waited for
  int output_;      // -1 once nothing more is read
  int interrupts_;  // -1 when there is none
  int end_;         // process descriptor; -1 where the kernel has none
  bool asked_ = false;
  bool killed_ = false;
  std::optional<Clock::time_point> deadline_;
  ToolResult result_;
};

ToolResult ToolRun::finish() {
  while (pid_ > 0 || output_ >= 0) {
    bool readable = false;
    waitForEvents(&readable);
    obeyInterrupts();
    if (readable) readOutput();
    if (pid_ > 0) reap();
    lookAtTheClock();
  }
  obeyInterrupts();  // one that came together with the end
  return std::move(result_);
}

void ToolRun::waitForEvents(bool* readable) {
  struct pollfd descriptors[] = {
      {output_, POLLIN, 0}, {interrupts_, POLLIN, 0}, {pid_ > 0 ? end_ : -1, POLLIN, 0}};
  if (::poll(descriptors, 3, patience()) > 0) *readable = output_ >= 0 && descriptors[0].revents != 0;
}

// Milliseconds to wait for the next event, -1 for as long as it takes.
int ToolRun::patience() const {
  std::optional<milliseconds> wait;
  if (deadline_) wait = std::chrono::ceil<milliseconds>(*deadline_ - Clock::now());
  if (pid_ > 0 && end_ < 0) wait = wait ? std::min(*wait, kLookEvery) : kLookEvery;
  return wait ? static_cast<int>(std::max<milliseconds::rep>(0, wait->count())) : -1;
}

void ToolRun::readOutput() {
  char chunk[kReadChunk];
  const ssize_t n = ::read(output_, chunk, sizeof chunk);
  if (n < 0 && errno == EINTR) return;
  if (n <= 0) {
    output_ = -1;
    return;
  }
  const size_t room = limits_.output - result_.output.size();
  result_.output.append(chunk, std::min(room, static_cast<size_t>(n)));
  if (static_cast<size_t>(n) <= room) return;
  output_ = -1;
  result_.stopped = true;
  kill();
}

void ToolRun::reap() {
  int status = 0;
  const pid_t ended = ::waitpid(pid_, &status, WNOHANG);
  if (ended == 0 || (ended < 0 && errno == EINTR)) return;
  if (ended == pid_) result_.exitStatus = exitStatusOf(status);
  pid_ = 0;
  setDeadline(limits_.leftBehind);
}

void ToolRun::obeyInterrupts() {
  if (interrupts_ < 0) return;
  const uint64_t count = takeCount(interrupts_);
  if (count == 0) return;
  const bool again = result_.interrupted || count > 1;
  result_.interrupted = true;
  if (pid_ <= 0) {
    output_ = -1;
  } else if (again) {
    kill();
  } else {
    askToEnd();
  }
}

void ToolRun::lookAtTheClock() {
  if (!deadline_ || Clock::now() < *deadline_) return;
  deadline_.reset();
  if (pid_ <= 0) {
    output_ = -1;  // held open by a process that the tool has left behind
  } else {
    kill();  // it was asked to end
  }
}

void ToolRun::askToEnd() {
  if (asked_ || killed_) return;
  asked_ = true;
  send(SIGTERM);
  setDeadline(limits_.asked);
}

void ToolRun::kill() {
  killed_ = true;
  send(SIGKILL);
  deadline_.reset();
}

// Process 0 would be this process's whole group.
void ToolRun::send(int signal) const {
  if (pid_ > 0) ::kill(pid_, signal);
}

}  // namespace

SpawnToolRunner::~SpawnToolRunner() {
  if (interrupts_ >= 0) ::close(interrupts_);
}

ToolResult SpawnToolRunner::run(const std::string& program, const std::vector<std::string>& arguments) {
  if (interrupts_ < 0) interrupts_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (interrupts_ >= 0) takeCount(interrupts_);  // what came while nothing ran
  Pipe pipe;
  if (!pipe.isOpen()) return {};
  SpawnRequest request;
  request.program = program;
  request.arguments = arguments;
  request.output = pipe.writeEnd();
  const pid_t pid = spawnProgram(request);
  if (pid < 0) return {};
  pipe.closeWrite();
  return ToolRun(limits_, pid, pipe.readEnd(), interrupts_).finish();
}

void SpawnToolRunner::interrupt() {
  const int before = errno;
  const int counter = interrupts_.load();
  const uint64_t one = 1;
  if (counter >= 0 && ::write(counter, &one, sizeof one) < 0) {
    // Only a counter that is full can't be raised: the run has enough to see.
  }
  errno = before;
}

}  // namespace zavel
