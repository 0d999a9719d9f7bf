// The flat services for processes.
// Tests: tests/config/ProcessesTest.cpp
#include <new>
#include <optional>
#include <string>

#include "config/NewString.h"
#include "config/TwcServices.h"
#include "config/ZavelCommonModule.h"
#include "platform/Applications.h"
#include "platform/Platform.h"

namespace {

using zavel::ProcessNumber;
using zavel::RunningApplication;
using zavel::ZavelCommonModule;

std::optional<RunningApplication> thisProgram() {
  return zavel::platform().applications().current();
}

std::string textOf(const char* string) {
  return string ? string : "";
}

// Null for what the platform doesn't know.
char* knownString(const std::string& text) {
  return text.empty() ? nullptr : zavel::newString(text);
}

// The answer of a lookup, stored for a host in C.
int32_t stored(int answer, const ProcessNumber& found, TwcProcessNumber* process) {
  *process = {found.high, found.low};
  return answer == ZavelCommonModule::kProcessFound ? 0 : TWC_ERROR_NO_PROCESS;
}

int32_t front(const ProcessNumber& process) {
  return zavel::platform().applications().bringToFront(process) ? 0 : TWC_ERROR_NO_PROCESS;
}

}  // namespace

int32_t twcGetMyPSN(TwcProcessNumber* process) try {
  *process = {0, 0};
  const std::optional<RunningApplication> self = thisProgram();
  if (!self) return TWC_ERROR_NO_PROCESS;
  return stored(ZavelCommonModule::kProcessFound, self->process, process);
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

int32_t twcGetPSN2(const char* creator, const char* type, TwcProcessNumber* process) try {
  ProcessNumber found;
  const int answer = ZavelCommonModule::getPSN2Creator(textOf(creator), textOf(type), &found);
  return stored(answer, found, process);
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

void twcGetPSN(const char* creator, const char* type, TwcProcessNumber* process) {
  const int32_t answer = twcGetPSN2(creator, type, process);
  if (answer != 0) throw answer;
}

int32_t twcGetProcessSerialNumberByName(const char* name, TwcProcessNumber* process) try {
  ProcessNumber found;
  const int answer = ZavelCommonModule::getPSN2Name(textOf(name), &found);
  return stored(answer, found, process);
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

bool twcGetNextPSN(TwcProcessNumber* process) try {
  ProcessNumber next{process->high, process->low};
  const bool atEnd = ZavelCommonModule::getNextPSN(&next);
  *process = {next.high, next.low};
  return atEnd;
} catch (const std::bad_alloc&) {
  *process = {0, 0};
  return true;
}

bool twcIsLaunchedApp(const char* creator, const char* type) {
  TwcProcessNumber ignored;
  return twcGetPSN2(creator, type, &ignored) == 0;
}

bool twcIsMyTopPSN(void) try {
  const std::optional<RunningApplication> self = thisProgram();
  return self && zavel::platform().applications().front() == self->process;
} catch (const std::bad_alloc&) {
  return false;
}

int32_t twcMakeMeFront(void) try {
  const std::optional<RunningApplication> self = thisProgram();
  return self ? front(self->process) : TWC_ERROR_NO_PROCESS;
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

int32_t twcSetFront(const TwcProcessNumber* process) try {
  return front({process->high, process->low});
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}

char* twcGetCurrentFSSpec(void) try {
  const std::optional<RunningApplication> self = thisProgram();
  return self ? knownString(self->path) : nullptr;
} catch (const std::bad_alloc&) {
  return nullptr;
}

char* twcGetCurrentCreator(void) try {
  const std::optional<RunningApplication> self = thisProgram();
  return self ? knownString(self->creator) : nullptr;
} catch (const std::bad_alloc&) {
  return nullptr;
}

int32_t LaunchTargetApplication(const char* spec, bool flag) try {
  const std::string path = textOf(spec);
  if (path.empty()) return TWC_ERROR_PARAMETER;
  return zavel::platform().applications().start(path, flag) ? 0 : TWC_ERROR_NOT_STARTED;
} catch (const std::bad_alloc&) {
  return TWC_ERROR_PARAMETER;
}
