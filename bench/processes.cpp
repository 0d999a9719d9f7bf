// Times whole processes in turn, so that a change of the machine's speed meets all alike.
// Usage: zavel_processes RUNS [--stdin FILE] NAME=COMMAND...    (COMMAND is split at blanks; no shell)
// Prints the median and the 99th percentile of the wall time and the largest resident size of each, and the
// ratio of its median to the first command's.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Command {
  std::string name;
  std::vector<std::string> words;
  std::vector<double> milliseconds;
  long peakKiB = 0;
  int status = 0;
};

Command parse(const std::string& text) {
  Command command;
  const size_t equals = text.find('=');
  command.name = text.substr(0, equals);
  std::istringstream words(text.substr(equals + 1));
  for (std::string word; words >> word;) command.words.push_back(word);
  return command;
}

void run(Command& command, const char* input) {
  std::vector<char*> argv;
  for (std::string& word : command.words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, input, O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ) != 0) {
    std::fprintf(stderr, "%s can't be started\n", argv[0]);
    std::exit(3);
  }
  rusage usage{};
  int status = 0;
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
  posix_spawn_file_actions_destroy(&actions);
  command.milliseconds.push_back(took.count());
  command.peakKiB = std::max(command.peakKiB, usage.ru_maxrss);
  command.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

double percentile(std::vector<double> times, double p) {
  std::sort(times.begin(), times.end());
  return times[std::min(times.size() - 1, static_cast<size_t>(p * static_cast<double>(times.size())))];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const int runs = std::atoi(argv[1]);
  const char* input = "/dev/null";
  std::vector<Command> commands;
  for (int i = 2; i < argc; ++i) {
    if (std::strcmp(argv[i], "--stdin") == 0 && i + 1 < argc) {
      input = argv[++i];
    } else {
      commands.push_back(parse(argv[i]));
    }
  }
  for (Command& command : commands) run(command, input);  // warms the page cache
  for (Command& command : commands) command.milliseconds.clear();
  for (int i = 0; i < runs; ++i) {
    for (Command& command : commands) run(command, input);
  }
  const double first = percentile(commands[0].milliseconds, 0.5);
  std::printf("%-34s %10s %10s %10s %10s %7s\n", "", "median ms", "p99 ms", "x first", "peak MiB", "status");
  for (const Command& command : commands) {
    const double median = percentile(command.milliseconds, 0.5);
    std::printf("%-34s %10.2f %10.2f %10.2f %10.1f %7d\n", command.name.c_str(), median,
                percentile(command.milliseconds, 0.99), median / first,
                static_cast<double>(command.peakKiB) / 1024, command.status);
  }
  return 0;
}
