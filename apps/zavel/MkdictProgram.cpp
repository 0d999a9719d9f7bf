// Tests: tests/zavel/zavel-test.sh
#include "MkdictProgram.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

extern char** environ;

namespace zavel::host {
namespace {

std::string folderOfThisProgram() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return {};
  const std::string program(path, static_cast<size_t>(length));
  return program.substr(0, program.rfind('/'));
}

}  // namespace

std::string findMkdict() {
  const char* given = std::getenv("ZAVEL_MKDICT");
  if (given && *given == '/') return given;
  const std::string folder = folderOfThisProgram();
  for (const char* place : {"/mkdict", "/../../tools/mkdict/mkdict"}) {
    const std::string path = folder + place;
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

int runMkdict(const std::string& program, const std::vector<std::string>& arguments) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  pid_t child = 0;
  if (posix_spawn(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0) return 127;
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return 127;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace zavel::host
