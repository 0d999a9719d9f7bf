#include "zavel/Command.h"

#include <fcntl.h>
#include <pty.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "support/TempFolder.h"

namespace zavel::test {
namespace {

void take(const std::string& path, int flags, int fd) {
  const int opened = open(path.c_str(), flags, 0600);
  if (opened < 0 || dup2(opened, fd) < 0) _exit(125);
  if (opened != fd) close(opened);
}

int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// All that a terminal shows until its last user has closed it.
std::string readTerminal(int master) {
  std::string text;
  char piece[4096];
  for (ssize_t count = 0; (count = read(master, piece, sizeof piece)) > 0;) {
    text.append(piece, static_cast<size_t>(count));
  }
  std::erase(text, '\r');
  return text;
}

}  // namespace

Command& Command::env(const std::string& name, const std::string& value) {
  env_[name] = value;
  return *this;
}

Command& Command::input(std::string bytes) {
  input_ = std::move(bytes);
  return *this;
}

Command& Command::inputFile(std::string path) {
  inputFile_ = std::move(path);
  return *this;
}

Command& Command::outputFile(std::string path) {
  outputFile_ = std::move(path);
  return *this;
}

Command& Command::closed(int fd) {
  closed_ = fd;
  return *this;
}

Command& Command::descriptors(unsigned most) {
  descriptors_ = most;
  return *this;
}

Command& Command::terminal(unsigned short rows, unsigned short columns) {
  rows_ = rows;
  columns_ = columns;
  return *this;
}

Command& Command::typed(std::string keys) {
  keys_ = std::move(keys);
  return *this;
}

Command& Command::signalAt(std::string path, int signal, int times) {
  awaited_ = std::move(path);
  signal_ = signal;
  times_ = times;
  return *this;
}

void Command::become(const std::string& folder, int slave) const {
  if (slave >= 0) {
    setsid();
    ioctl(slave, TIOCSCTTY, 0);
    for (const int fd : {0, 1, 2}) dup2(slave, fd);
    if (slave > 2) close(slave);
  } else {
    take(inputFile_.empty() ? folder + "/in" : inputFile_, O_RDONLY, 0);
    take(outputFile_.empty() ? folder + "/out" : outputFile_, O_WRONLY | O_CREAT, 1);
    take(folder + "/err", O_WRONLY | O_CREAT, 2);
  }
  if (closed_ >= 0) close(closed_);
  std::vector<std::string> variables{"PATH=/usr/bin:/bin"};
  for (const auto& [name, value] : env_) variables.push_back(name + "=" + value);
  // What a sanitizer run asks of every program.
  for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"}) {
    if (const char* value = std::getenv(name)) variables.push_back(std::string(name) + "=" + value);
  }
  std::vector<char*> argv{const_cast<char*>("zavel")}, envp;
  for (const std::string& argument : arguments_) argv.push_back(const_cast<char*>(argument.c_str()));
  for (const std::string& variable : variables) envp.push_back(const_cast<char*>(variable.c_str()));
  argv.push_back(nullptr);
  envp.push_back(nullptr);
  const rlimit limit{descriptors_, descriptors_};
  // Those that the test was started with would count, too.
  if (descriptors_ > 0) close_range(3, ~0u, 0);
  if (descriptors_ > 0 && setrlimit(RLIMIT_NOFILE, &limit) != 0) _exit(124);
  execve(ZAVEL_PROGRAM, argv.data(), envp.data());
  _exit(126);
}

void Command::sendSignal(int child) const {
  for (int waited = 0; waited < 2000 && access(awaited_.c_str(), F_OK) != 0; ++waited) usleep(10000);
  usleep(50000);  // what the program does right behind that is done, too
  for (int sent = 0; sent < times_; ++sent) {
    if (sent > 0) usleep(300000);
    kill(child, signal_);
  }
}

Outcome Command::run() const {
  const TempFolder folder;
  folder.write("in", input_);
  folder.write("out", "");
  folder.write("err", "");
  int master = -1, slave = -1;
  if (columns_ > 0) {
    winsize size{};
    size.ws_row = rows_;
    size.ws_col = columns_;
    EXPECT_EQ(openpty(&master, &slave, nullptr, nullptr, &size), 0);
  }
  const pid_t child = fork();
  if (child == 0) become(folder.path(), slave);
  if (master >= 0) {
    EXPECT_EQ(write(master, keys_.data(), keys_.size()), static_cast<ssize_t>(keys_.size()));
  }
  if (slave >= 0) close(slave);
  if (signal_ != 0) sendSignal(child);
  Outcome outcome;
  if (master >= 0) outcome.out = readTerminal(master);
  outcome.status = statusOf(child);
  if (master >= 0) {
    close(master);
    return outcome;
  }
  outcome.out = folder.read("out");
  outcome.err = folder.read("err");
  return outcome;
}

}  // namespace zavel::test
