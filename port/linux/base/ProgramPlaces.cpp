// Tests: tests/port/ProgramPlacesTest.cpp
#include "base/ProgramPlaces.h"

#include <dlfcn.h>
#include <stdlib.h>
#include <sys/auxv.h>
#include <sys/stat.h>

#include <initializer_list>
#include <memory>

namespace zavel {
namespace {

std::string resolved(const char* path) {
  const std::unique_ptr<char, decltype(&::free)> whole(::realpath(path, nullptr), &::free);
  return whole ? whole.get() : std::string();
}

// The dynamic linker tells the program's own name as it was typed, in terms of a folder that may no longer be
// the current one: so the kernel is asked for it.
std::string findThisCode() {
  Dl_info code;
  Dl_info program;
  if (::dladdr(reinterpret_cast<const void*>(&pathOfThisCode), &code) == 0) return {};
  const void* const headers = reinterpret_cast<const void*>(::getauxval(AT_PHDR));
  const bool isProgram = ::dladdr(headers, &program) != 0 && program.dli_fbase == code.dli_fbase;
  return resolved(isProgram ? "/proc/self/exe" : code.dli_fname);
}

bool isFolder(const std::string& path) {
  struct stat status;
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isTrusted(const std::string& module) {
  struct stat status;
  struct stat code;
  if (::stat(module.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return status.st_uid == 0 || (::stat(pathOfThisCode().c_str(), &code) == 0 && status.st_uid == code.st_uid);
}

}  // namespace

const std::string& pathOfThisCode() {
  static const std::string path = findThisCode();
  return path;
}

std::string resourceFolder() {
  const std::string folder = pathOfThisCode().substr(0, pathOfThisCode().rfind('/'));
  for (const std::string& place :
       {folder + "/../share/zavel", folder + "/../../share/zavel", std::string(ZAVEL_INSTALLED_DATA)}) {
    const std::string resources = place + "/resources";
    if (isFolder(resources)) return resolved(resources.c_str());
  }
  return {};
}

std::string modulePath(const std::string& name) {
  const std::string folder = pathOfThisCode().substr(0, pathOfThisCode().rfind('/'));
  for (const std::string& place :
       {folder + "/zavel", folder + "/../" ZAVEL_LIBRARY_FOLDER "/zavel",
        folder + "/../../" ZAVEL_LIBRARY_FOLDER "/zavel", std::string(ZAVEL_INSTALLED_LIBRARIES)}) {
    const std::string module = place + "/" + name;
    if (isTrusted(module)) return resolved(module.c_str());
  }
  return {};
}

}  // namespace zavel
