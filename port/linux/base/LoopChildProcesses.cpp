// Tests: tests/port/LoopChildProcessesTest.cpp
#include "base/LoopChildProcesses.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "base/SpawnedProgram.h"

namespace zavel {
namespace {

constexpr size_t kReadChunk = size_t{64} * 1024;
constexpr double kWaitForOutput = 0.5;  // seconds, once the program has ended
constexpr double kLookEvery = 0.02;     // seconds, where the kernel doesn't tell of the end
constexpr int kWaitForEnd = 200;        // milliseconds, from SIGTERM to SIGKILL

// Writes without the signal that a closed pipe sends, which would end the host.
ssize_t writeQuietly(int fd, const char* bytes, size_t count) {
  sigset_t pipeSignal;
  sigset_t before;
  sigset_t pending;
  ::sigemptyset(&pipeSignal);
  ::sigaddset(&pipeSignal, SIGPIPE);
  ::sigpending(&pending);
  ::pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
  const ssize_t written = ::write(fd, bytes, count);
  const int error = errno;
  if (written < 0 && error == EPIPE && !::sigismember(&pending, SIGPIPE)) {
    const struct timespec now = {0, 0};
    ::sigtimedwait(&pipeSignal, nullptr, &now);
  }
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return written;
}

bool isForLater(int error) {
  return error == EAGAIN || error == EINTR;
}

// One end of a pipe or a process descriptor, with the source of the loop that looks at it.
class Watched {
 public:
  explicit Watched(LinuxRunLoop& loop) : loop_(loop) {}
  ~Watched() { close(); }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;

  void open(int fd, int events, std::function<void()> ready) {
    fd_ = fd;
    source_ = loop_.watch(fd, events, std::move(ready));
  }
  void close() {
    if (fd_ < 0) return;
    loop_.stop(source_);
    ::close(fd_);
    fd_ = -1;
  }
  bool isOpen() const { return fd_ >= 0; }
  int fd() const { return fd_; }

 private:
  LinuxRunLoop& loop_;
  int fd_ = -1;  // owned; -1: closed
  LinuxRunLoop::TimerId source_ = 0;
};

// A program and its pipes. Held by its LoopChild, and by each callback of its own while it runs, because the
// host may let go of the program from inside.
class Child : public std::enable_shared_from_this<Child> {
 public:
  Child(LinuxRunLoop& loop, pid_t pid, ChildEvents events)
      : loop_(loop), pid_(pid), events_(std::move(events)), input_(loop), output_(loop), end_(loop) {}

  // Owns both descriptors; `input` is -1 without one.
  void begin(int input, int output, std::string bytes);
  bool isRunning() const { return pid_ > 0; }
  void terminate() const {
    if (isRunning()) ::kill(pid_, SIGTERM);
  }
  void letGo();

 private:
  using Step = void (Child::*)();

  // A callback that does nothing once the child is gone.
  std::function<void()> calling(Step step) {
    return [weak = weak_from_this(), step] {
      if (const std::shared_ptr<Child> self = weak.lock()) (self.get()->*step)();
    };
  }
  void writeInput();
  void readOutput();
  void lookForEnd();
  void stopReading() {
    output_.close();
    tellEnd();
  }
  void tellEnd();
  void stopLooking();
  bool reap(int options);

  LinuxRunLoop& loop_;
  pid_t pid_;        // 0 once it was waited for
  int status_ = -1;  // its exit status then
  ChildEvents events_;
  Watched input_;
  Watched output_;
  Watched end_;                         // its process descriptor
  LinuxRunLoop::TimerId looking_ = 0;   // in place of end_
  LinuxRunLoop::TimerId patience_ = 0;  // with output after the end
  std::string bytes_;                   // for its standard input
  size_t written_ = 0;
  bool over_ = false;  // nothing more is called
};

void Child::begin(int input, int output, std::string bytes) {
  bytes_ = std::move(bytes);
  ::fcntl(output, F_SETFL, O_NONBLOCK);
  output_.open(output, POLLIN, calling(&Child::readOutput));
  if (input >= 0) {
    ::fcntl(input, F_SETFL, O_NONBLOCK);
    input_.open(input, POLLOUT, calling(&Child::writeInput));
  }
  const int descriptor = openProcessDescriptor(pid_);
  if (descriptor >= 0) {
    end_.open(descriptor, POLLIN, calling(&Child::lookForEnd));
  } else {
    looking_ = loop_.startTimer(kLookEvery, true, calling(&Child::lookForEnd));
  }
}

void Child::writeInput() {
  const ssize_t n = writeQuietly(input_.fd(), bytes_.data() + written_, bytes_.size() - written_);
  if (n < 0 && isForLater(errno)) return;
  if (n > 0) written_ += static_cast<size_t>(n);
  if (n <= 0 || written_ == bytes_.size()) input_.close();
}

void Child::readOutput() {
  std::vector<char> chunk(kReadChunk);
  const ssize_t n = ::read(output_.fd(), chunk.data(), chunk.size());
  if (n < 0 && isForLater(errno)) return;
  if (n <= 0) return stopReading();
  if (events_.output) events_.output(std::string_view(chunk.data(), static_cast<size_t>(n)));
}

bool Child::reap(int options) {
  int status = 0;
  pid_t ended;
  do {
    ended = ::waitpid(pid_, &status, options);
  } while (ended < 0 && errno == EINTR);
  if (ended == 0) return false;
  status_ = ended == pid_ ? exitStatusOf(status) : -1;
  pid_ = 0;
  return true;
}

void Child::lookForEnd() {
  if (!isRunning() || !reap(WNOHANG)) return;
  stopLooking();
  input_.close();
  if (output_.isOpen()) {
    patience_ = loop_.startTimer(kWaitForOutput, false, calling(&Child::stopReading));
  } else {
    tellEnd();
  }
}

// Once: when the program has ended and its output, too.
void Child::tellEnd() {
  if (over_ || isRunning() || output_.isOpen()) return;
  over_ = true;
  loop_.stop(patience_);
  if (events_.terminated) events_.terminated(status_);
}

void Child::stopLooking() {
  end_.close();
  loop_.stop(looking_);
}

void Child::letGo() {
  over_ = true;
  stopLooking();
  loop_.stop(patience_);
  input_.close();
  output_.close();
  if (!isRunning()) return;
  ::kill(pid_, SIGTERM);
  for (int waited = 0; waited < kWaitForEnd; ++waited) {
    if (reap(WNOHANG)) return;
    ::poll(nullptr, 0, 1);
  }
  ::kill(pid_, SIGKILL);
  reap(0);
}

class LoopChild : public ChildProcess {
 public:
  explicit LoopChild(std::shared_ptr<Child> child) : child_(std::move(child)) {}
  ~LoopChild() override { child_->letGo(); }
  bool isRunning() const override { return child_->isRunning(); }
  void terminate() override { child_->terminate(); }

 private:
  std::shared_ptr<Child> child_;
};

}  // namespace

std::unique_ptr<ChildProcess> LoopChildProcesses::start(const ChildCommand& command, ChildEvents events) {
  Pipe input;
  Pipe output;
  if (!loop_.works() || !input.isOpen() || !output.isOpen()) return nullptr;
  SpawnRequest request;
  request.program = command.program;
  request.arguments = command.arguments;
  request.environment = command.environment;
  request.input = command.input.empty() ? -1 : input.readEnd();
  request.output = output.writeEnd();
  const pid_t pid = spawnProgram(request);
  if (pid < 0) return nullptr;
  const auto child = std::make_shared<Child>(loop_, pid, std::move(events));
  child->begin(command.input.empty() ? -1 : input.takeWrite(), output.takeRead(), command.input);
  return std::make_unique<LoopChild>(child);
}

}  // namespace zavel
