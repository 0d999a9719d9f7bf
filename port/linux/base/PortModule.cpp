// Tests: tests/port/ProgramPlacesTest.cpp
#include "base/PortModule.h"

#include <dlfcn.h>

#include "base/ProgramPlaces.h"
#include "platform/Log.h"

namespace zavel {

void* loadPortModule(const std::string& file, const char* symbol) {
  const std::string path = modulePath(file);
  if (path.empty()) {
    logLine("The module " + file + " is missing");
    return nullptr;
  }
  void* const module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void* const found = module ? ::dlsym(module, symbol) : nullptr;
  if (!found) {
    const char* reason = ::dlerror();
    logLine("The module " + path + " can't be used: " + (reason ? reason : symbol));
  }
  return found;
}

}  // namespace zavel
