// Tests: tests/zavel/PlacesTest.cpp
#include "Places.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "Utf8.h"
#include "base/ProgramPlaces.h"

namespace zavel::host {
namespace {

// The variable's value if it is an absolute path, else empty: an empty or relative one counts as unset.
std::string absolute(const char* name) {
  const char* value = std::getenv(name);
  if (!value || *value != '/') return {};
  std::string path = value;
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

std::string baseFolder(const char* variable, const std::string& home, const char* fallback) {
  std::string path = absolute(variable);
  if (path.empty() && !home.empty()) path = home + fallback;
  return path.empty() ? path : path + "/zavel";
}

Places below(const std::string& root) {
  return {root,
          inFolder(root, "config"),
          root,
          inFolder(root, "state"),
          inFolder(root, "cache"),
          inFolder(root, "dictionaries/basic")};
}

}  // namespace

Places findPlaces() {
  const std::string root = absolute("ZAVEL_ROOT");
  if (!root.empty()) return below(root);
  const std::string home = absolute("HOME");
  Places places;
  places.data = baseFolder("XDG_DATA_HOME", home, "/.local/share");
  if (places.data.empty()) return {};
  places.root = places.data;
  places.config = baseFolder("XDG_CONFIG_HOME", home, "/.config");
  places.state = baseFolder("XDG_STATE_HOME", home, "/.local/state");
  places.cache = baseFolder("XDG_CACHE_HOME", home, "/.cache");
  places.dictionary = places.data + "/dictionaries/basic";
  return places;
}

std::string inFolder(const std::string& folder, const std::string& name) {
  return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

std::string helpersFolder() {
  const std::string given = absolute("ZAVEL_LIBEXEC");
  if (!given.empty()) return given;
  const std::string& program = pathOfThisCode();
  std::string above = program.substr(0, program.rfind('/'));
  for (int level = 0; level < 2 && !above.empty(); ++level) {
    above.resize(std::min(above.size(), above.rfind('/')));
    std::string place = above + "/libexec/zavel";
    std::error_code error;
    if (std::filesystem::is_directory(place, error)) return place;
  }
  return ZAVEL_INSTALLED_HELPERS;
}

Failure relativePlace() {
  for (const char* name :
       {"ZAVEL_ROOT", "ZAVEL_LIBEXEC", "ZAVEL_MKDICT", "ZAVEL_MKBOOK", "ZAVEL_EDICT", "ZAVEL_DICTD"}) {
    const char* value = std::getenv(name);
    if (!value || !*value || *value == '/') continue;
    return {kExitEnvironment, "relative_path",
            std::string(name) + " is not an absolute path: " + printable(value),
            "Give the whole path, or leave the variable unset."};
  }
  return {};
}

bool makeFolders(const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  return !error && std::filesystem::is_directory(path, error);
}

std::string reasonAgainst(const std::string& path) {
  std::filesystem::path folder = std::filesystem::path(path).parent_path();
  while (access(folder.c_str(), F_OK) != 0 && errno == ENOENT && folder.has_relative_path()) {
    folder = folder.parent_path();
  }
  if (access((folder / ".").c_str(), W_OK) == 0) return {};
  return std::string(": ") + std::strerror(errno);
}

}  // namespace zavel::host
