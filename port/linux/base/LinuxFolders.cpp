// Tests: tests/port/LinuxFoldersTest.cpp
#include "base/LinuxFolders.h"

#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <vector>

namespace zavel {
namespace {

// Below a file that is no folder: every attempt to make something there fails.
constexpr char kNowhere[] = "/dev/null/zavel";

// `path` without delimiters at its end, followed by `below`; empty when `path` is not absolute or is the
// root of all files, which the system must never fill.
std::string placeBelow(const char* path, const char* below) {
  if (!path || path[0] != '/') return std::string();
  std::string place = path;
  while (!place.empty() && place.back() == '/') place.pop_back();
  return place.empty() ? place : place + below;
}

std::string homeInUserDatabase() {
  std::vector<char> buffer(16384);
  struct passwd entry;
  struct passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return {};
  return found->pw_dir ? found->pw_dir : "";
}

std::string findRoot() {
  std::string place = placeBelow(::getenv("ZAVEL_ROOT"), "");
  if (place.empty()) place = placeBelow(::getenv("XDG_DATA_HOME"), "/zavel");
  if (place.empty()) place = placeBelow(::getenv("HOME"), "/.local/share/zavel");
  if (place.empty()) place = placeBelow(homeInUserDatabase().c_str(), "/.local/share/zavel");
  return place;
}

}  // namespace

std::string LinuxFolders::root() {
  std::string place = findRoot();
  return place.empty() ? kNowhere : place;
}

std::string LinuxFolders::home() {
  return findRoot();
}

}  // namespace zavel
