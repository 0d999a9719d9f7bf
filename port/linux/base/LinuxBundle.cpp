// Tests: tests/port/LinuxBundleTest.cpp
#include "base/LinuxBundle.h"

#include <stdlib.h>
#include <string.h>

#include "base/ProgramPlaces.h"
#include "foundation/Storage.h"
#include "platform/Log.h"

namespace zavel {
namespace {

constexpr char kNoFolder[] = "/dev/null";  // nothing stands below it

bool isJapanese(const char* locale) {
  return ::strncmp(locale, "ja", 2) == 0 && ::strchr("_.@", locale[2]);  // the end of the text is found, too
}

const char* userLanguage() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* locale = ::getenv(name);
    if (locale && *locale) return isJapanese(locale) ? "ja" : "en";
  }
  return "en";
}

bool isPlainName(const std::string& name) {
  return !name.empty() && name[0] != '.' && name.find('/') == std::string::npos;
}

}  // namespace

std::string LinuxBundle::libraryIdentifier() {
  return "local.tarnwick.ZavelLex";
}

std::optional<std::string> LinuxBundle::resourcePath(const std::string& name, const std::string& type) {
  if (!isPlainName(name) || type.find('/') != std::string::npos) return std::nullopt;
  const std::string file = type.empty() ? name : name + "." + type;
  for (const std::string& path : {folder() + "/" + language() + ".lproj/" + file, folder() + "/" + file}) {
    if (storage().exists(path) && !storage().isFolder(path)) return path;
  }
  return std::nullopt;
}

std::string LinuxBundle::localized(const std::string& key) {
  const Value* text = texts().find(key);
  return text ? text->string(key) : key;
}

const std::string& LinuxBundle::folder() {
  if (folder_.empty()) folder_ = resourceFolder();
  if (folder_.empty()) {
    logLine("The folder share/zavel/resources is missing: texts are shown by their keys");
    folder_ = kNoFolder;
  }
  return folder_;
}

const std::string& LinuxBundle::language() {
  if (language_.empty()) language_ = userLanguage();
  return language_;
}

const Value& LinuxBundle::texts() {
  if (!texts_) {
    texts_.emplace();
    const std::string path = folder() + "/" + language() + ".lproj/Localizable.plist";
    if (storage().exists(path) && !lists_.readFile(path, &*texts_)) logLine("Error read : " + path);
  }
  return *texts_;
}

}  // namespace zavel
