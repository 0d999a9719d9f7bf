// The process operations, on top of what the platform tells of running applications.
// Tests: tests/config/ProcessesTest.cpp
#include <string_view>

#include "config/ZavelCommonModule.h"
#include "platform/Platform.h"

namespace zavel {
namespace {

constexpr int kRuns = 1;
constexpr int kDoesNotRunYet = 0;
constexpr int kNotStarted = -1;

constexpr int kLooks = 20;
constexpr double kSecondsBetweenLooks = 3;

std::string lastComponent(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return std::string(path.substr(path.rfind('/') + 1));
}

// Fills in the first that `fits`.
template <class Fits>
bool findRunning(ProcessNumber* process, Fits fits) {
  for (const RunningApplication& application : platform().applications().running()) {
    if (!fits(application)) continue;
    *process = application.process;
    return true;
  }
  return false;
}

}  // namespace

int ZavelCommonModule::getPSN2Creator(const std::string& creator, const std::string& type,
                                      ProcessNumber* process) {
  const std::optional<ProcessNumber> found = platform().applications().find(creator, type);
  *process = found.value_or(ProcessNumber());
  return found ? kProcessFound : kNoSuchProcess;
}

int ZavelCommonModule::getPSN2Name(const std::string& name, ProcessNumber* process) {
  *process = ProcessNumber();
  const bool found = findRunning(process, [&](const RunningApplication& a) { return a.name == name; });
  return found ? kProcessFound : kNoSuchProcess;
}

bool ZavelCommonModule::getNextPSN(ProcessNumber* process) {
  const ProcessNumber before = *process;
  *process = ProcessNumber();
  return !findRunning(process, [&](const RunningApplication& a) { return a.process > before; });
}

bool ZavelCommonModule::targetApplicationName(const std::string& name, ProcessNumber* process) {
  return findRunning(
      process, [&](const RunningApplication& a) { return !a.path.empty() && lastComponent(a.path) == name; });
}

int ZavelCommonModule::launchedApplication(const std::string& path, ProcessNumber* process, bool until) {
  Applications& applications = platform().applications();
  if (path.empty() || !applications.start(path, true)) return kNotStarted;
  const std::string name = lastComponent(path);
  if (targetApplicationName(name, process)) return kRuns;
  for (int look = 0; until && look < kLooks; ++look) {
    applications.pause(kSecondsBetweenLooks);
    if (targetApplicationName(name, process)) return kRuns;
  }
  return kDoesNotRunYet;
}

}  // namespace zavel
