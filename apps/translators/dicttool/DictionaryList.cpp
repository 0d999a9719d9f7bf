// Tests: tests/translators/DictionaryListTest.cpp
#include "dicttool/DictionaryList.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <system_error>

#include "dicttool/DictdDictionary.h"
#include "foundation/Storage.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel::dicttool {
namespace {

constexpr const char* kFolder = "/dictionaries/translation";
constexpr const char* kSystemFolder = "/usr/share/dictd";
constexpr const char* kConfiguration = "/dictionaries.plist";
// What the user made or chose comes first, the general words next, proper nouns where the file has them.
constexpr const char* kLists[] = {"UserDictionary", "TechnicalDictionary", "EnhancedDictionary",
                                  "SystemDictionary"};

const Value::Array* listOf(const Value& map, const std::string& key) {
  const Value* list = map.find(key);
  return list ? list->asArray() : nullptr;
}

// Strings of a list; nothing for what is no list.
std::vector<std::string> stringsOf(const Value* list) {
  std::vector<std::string> strings;
  if (!list || !list->asArray()) return strings;
  for (const Value& item : *list->asArray()) {
    if (item.isString()) strings.push_back(*item.asString());
  }
  return strings;
}

// Whether it is the text of a dictionary that is made at set-up.
bool isMadeText(const std::string& path) {
  return path.ends_with("/enamdict.dict") || path.ends_with("/compdic.dict");
}

// Index files in a folder, by name. What is made at set-up and has lost its index counts too: a file of
// another kind may have a name like a text, that one can't.
std::vector<std::string> indexesIn(const std::string& folder) {
  std::set<std::string> paths;
  std::error_code error;
  for (std::filesystem::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    const std::string path = it->path().string();
    if (path.ends_with(".index") || isMadeText(path)) {
      paths.insert(DictdDictionary::indexOf(path).value_or(path));
    }
  }
  return {paths.begin(), paths.end()};
}

std::string below(const std::string& folder, const std::string& path) {
  return path.starts_with('/') ? path : folder + "/" + path;
}

}  // namespace

DictionaryPlaces DictionaryPlaces::standard() {
  return {platform().folders().root() + kFolder, kSystemFolder};
}

bool DictionaryList::add(const std::string& path) {
  const std::optional<std::string> index = DictdDictionary::indexOf(path);
  if (!index) return false;
  if (std::find(indexes_.begin(), indexes_.end(), *index) == indexes_.end()) indexes_.push_back(*index);
  return true;
}

Failure DictionaryList::addParameterFile(const std::string& path) {
  if (!storage().exists(path)) {
    return {kExitEnvironment, "the parameter file " + path + " is missing"};
  }
  Value file;
  if (!platform().propertyLists().readFile(path, &file) || !file.isDict()) {
    return {kExitDamaged, "the parameter file " + path + " can't be read as a property list"};
  }
  for (const char* name : kLists) {
    const Value::Array* list = listOf(file, std::string(name) + code());
    if (!list) continue;
    for (const Value& item : *list) {
      const Value* place = item.find("Path");
      if (place && place->isString()) add(*place->asString());
    }
  }
  return {};
}

void DictionaryList::addStyle(const std::string& path, int64_t number) {
  Value file;
  if (!platform().propertyLists().readFile(path, &file)) {
    complaints_.push_back("the style file " + path + " can't be read; its dictionaries are left out");
    return;
  }
  const Value::Array* styles = listOf(file, "Style");
  if (!styles || number < 0 || static_cast<uint64_t>(number) >= styles->size()) {
    complaints_.push_back("the style file " + path + " has no style " + std::to_string(number) +
                          "; its dictionaries are left out");
    return;
  }
  const Value* options = (*styles)[static_cast<size_t>(number)].find(code());
  for (const char* key : {"UD", "TD"}) {
    for (const std::string& name : stringsOf(options ? options->find(key) : nullptr)) {
      // A name, not a path: a style goes from hand to hand.
      if (name.find('/') != std::string::npos) continue;
      const std::string place = below(places_.folder, name);
      const std::optional<std::string> index = DictdDictionary::indexOf(place);
      if (index && storage().exists(*index)) add(*index);
    }
  }
}

void DictionaryList::addConfiguration() {
  const std::string path = places_.folder + kConfiguration;
  Value file;
  if (storage().exists(path) && (!platform().propertyLists().readFile(path, &file) || !file.isDict())) {
    complaints_.push_back(
        path + " can't be read as a property list; all dictionaries are searched, in the usual order");
    file = {};
  }
  const Value* own = file.find(code());
  if (!own || !own->asArray()) {
    addStandard();
    return;
  }
  for (const std::string& place : stringsOf(own)) {
    if (add(below(places_.folder, place))) continue;
    complaints_.push_back(below(places_.folder, place) + ", named in " + path +
                          ", has no index file next to it");
  }
}

void DictionaryList::addStandard() {
  const char* general =
      direction_ == Direction::kEnglish ? "/freedict-eng-jpn.index" : "/freedict-jpn-eng.index";
  if (storage().exists(places_.systemFolder + general)) add(places_.systemFolder + general);
  for (const std::string& index : indexesIn(places_.folder)) add(index);
}

}  // namespace zavel::dicttool
