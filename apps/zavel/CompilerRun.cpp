// Tests: tests/zavel/CommandTest.cpp
#include "CompilerRun.h"

#include <signal.h>

#include <cstdio>

#include "Places.h"

namespace zavel::host {

std::string findCompiler(const Compiler& compiler) {
  return findProgram(compiler.variable, compiler.name);
}

Failure noCompiler(const Compiler& compiler) {
  const std::string name = compiler.name;
  return {kExitEnvironment, "no_" + name, std::string(compiler.what) + " " + name + " is missing",
          "Install it beside zavel, or set " + std::string(compiler.variable) + " to its path."};
}

Failure noFolder(const std::string& folder) {
  return {kExitEnvironment, "no_folder", "the folder " + folder + " can't be made" + reasonAgainst(folder),
          "Check that there is room on the disk, and that the folder above it is yours."};
}

Failure notLocked(const LockFile& lock, const std::string& folder) {
  if (lock.holder().empty()) {
    const std::string path = folder + "/.lock";
    return {kExitEnvironment, "locked", "the lock file " + path + " can't be made" + reasonAgainst(path),
            "Check that there is room on the disk, and that the folder is yours."};
  }
  return {kExitEnvironment, "locked", "another build is running: " + lock.holder(),
          "Wait for it to end, then try again."};
}

// One line: who interrupted it knows why.
int interruptedBy(int signal, bool json) {
  const Failure failure{static_cast<ExitStatus>(128 + signal), "interrupted",
                        "interrupted; run it again to finish", "Run it again."};
  if (json) std::printf("%s\n", failureJson(failure).c_str());
  warn(failure.message);
  return failure.status;
}

int statusOf(const ProgramEnd& end, const Compiler& compiler, bool json) {
  if (!end.started) return report(noCompiler(compiler), json);
  // The compiler ends alike whatever signal asked it to.
  const bool ended = end.status == 128 + SIGINT && EndSignals::came() != 0;
  if (end.signal == 0) return ended ? 128 + EndSignals::came() : end.status;
  if (end.signal == SIGINT || end.signal == SIGTERM || end.signal == SIGHUP)
    return interruptedBy(end.signal, json);
  return report({kExitEnvironment, std::string(compiler.name) + "_killed",
                 std::string(compiler.what) + " was ended by signal " + std::to_string(end.signal),
                 "Check that there is enough memory, then try again."},
                json);
}

}  // namespace zavel::host
