// Tests: tests/config/ZPFileTest.cpp
#include "config/ZPFile.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "config/ByteStrings.h"
#include "config/WorkPaths.h"
#include "config/ZavelPath.h"
#include "platform/Folders.h"
#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel {
namespace {

// Where an installer tells the places of technical dictionaries that come one by one.
constexpr char kInstalledDictionaries[] = "/Library/Application Support/Tarnwick/TWDictionary/TRInfo.plist";
constexpr char kInstalledExtension[] = ".sdej";

bool failed(const std::string& path) {
  logLine("Error [" + path + "]");
  return false;
}

// Empty where the folder or the name is missing.
std::string joined(const char* folder, const char* name) {
  return folder && name ? std::string(folder) + "/" + name : std::string();
}

std::string joined(const char* folder, const std::string& name) {
  return joined(folder, name.c_str());
}

Value dictionary(std::string path, std::string learning) {
  return Value::Dict{{"Path", std::move(path)}, {"Learning", std::move(learning)}};
}

// A list of one dictionary, a file of the user's own.
Value userDictionary(const char* name) {
  return Value::Array{dictionary(joined(zavelPathDocumentsFolderURL(), name), "")};
}

// The "EJ" map of a style by its place in the list.
std::optional<Value> readEtojStyle(int32_t style) {
  Value file;
  if (!platform().propertyLists().readFile(gStylePath, &file)) return std::nullopt;
  const Value* list = file.find("Style");
  const Value::Array* styles = list ? list->asArray() : nullptr;
  if (!styles || style < 0 || static_cast<size_t>(style) >= styles->size()) return std::nullopt;
  const Value* etoj = (*styles)[static_cast<size_t>(style)].find("EJ");
  return etoj && etoj->isDict() ? std::optional<Value>(*etoj) : std::nullopt;
}

// The paths that the installer told; nothing when it told none.
std::optional<Value> readInstalledPaths() {
  Value file;
  const std::string path = platform().folders().root() + kInstalledDictionaries;
  if (!platform().propertyLists().readFile(path, &file)) return std::nullopt;
  const Value* paths = file.find("TRPath");
  return paths && paths->isArray() ? std::optional<Value>(*paths) : std::nullopt;
}

bool comesAlone(const std::string& name) {
  std::string extension = std::filesystem::path(name).extension().string();
  ToLower(true, extension, &extension);
  return extension == kInstalledExtension;
}

// The first path that holds the name anywhere.
std::optional<std::string> installedPath(const Value& paths, const std::string& name) {
  for (const Value& path : *paths.asArray()) {
    if (path.isString() && path.asString()->find(name) != std::string::npos) return *path.asString();
  }
  return std::nullopt;
}

Value technicalDictionaries(const Value& etoj) {
  Value::Array entries;
  const Value* list = etoj.find("TD");
  if (!list || !list->isArray()) return entries;
  const std::optional<Value> installed = readInstalledPaths();
  for (const Value& item : *list->asArray()) {
    if (!item.isString()) continue;
    const std::string& name = *item.asString();
    std::optional<std::string> path = joined(zavelPathTechnicalDicEngFolderURL(), name);
    if (installed && comesAlone(name)) path = installedPath(*installed, name);
    if (path) entries.push_back(dictionary(*path, joined(zavelPathlearningDicJpnFolderURL(), name)));
  }
  return entries;
}

Value systemDictionaries() {
  Value::Array entries;
  for (const char* path :
       {zavelPathProperNounDicEngURL(), zavelPathSystemDicEngURL(), zavelPathSystemDicEng2URL()}) {
    const std::string name = path ? std::filesystem::path(path).filename().string() : std::string();
    entries.push_back(
        dictionary(path ? path : "", path ? joined(zavelPathlearningDicJpnFolderURL(), name) : ""));
  }
  return entries;
}

}  // namespace

bool saveZP(int32_t style) {
  const std::optional<Value> etoj = readEtojStyle(style);
  if (!etoj) return failed(gStylePath);
  const Value parameters = Value::Dict{
      {"UserDictionaryEJ", userDictionary(zavelPathUserDicEngName())},
      {"UserOslEJ", userDictionary(zavelPathUserOslEngName())},
      {"TechnicalDictionaryEJ", technicalDictionaries(*etoj)},
      {"EnhancedDictionaryEJ", Value::Array()},
      {"SystemDictionaryEJ", systemDictionaries()},
  };
  if (platform().propertyLists().writeFile(gDictPath, parameters, PropertyListFormat::kXml)) return true;
  return failed(gDictPath);
}

}  // namespace zavel
