// Tests: tests/config/ZavelPathTest.cpp, tests/config/PathTableTest.cpp
#include "config/ZavelPath.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "config/TwcServices.h"
#include "config/WorkPathTable.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "platform/ToolRunner.h"

namespace zavel {
namespace {

// The copy command takes its paths through buffers of this size, the NUL included.
constexpr size_t kCopyPathBuffer = 1024;

struct AppletKey {
  int applet;
  const char* key;
};

constexpr AppletKey kAppletKeys[] = {
    {ZAVEL_APPLET_TRANSLATION_EDITOR, "QN"},
    {ZAVEL_APPLET_MEMORY_BROWSER, "OSL"},
    {ZAVEL_APPLET_USER_DICTIONARY_EDITOR, "VN"},
    {ZAVEL_APPLET_TOOL_GX, "GX"},
    {ZAVEL_APPLET_CORRESPONDENCE, "FQ"},
    {ZAVEL_APPLET_CORRESPONDENCE2, "QUIR"},
    {ZAVEL_APPLET_UPDATER, "XJ"},
    {ZAVEL_APPLET_PRODUCT_MENU, "BLT"},
    {ZAVEL_APPLET_BROWSER, "VX"},
    {ZAVEL_APPLET_CASE_EDITOR, "DRN"},
    {ZAVEL_APPLET_TOOL_WZ, "WZ"},
    {ZAVEL_APPLET_MEMORY_EDITOR, "YPH"},
};

// True when `text` holds a character that a shell would not pass on as it stands. A blank is none of
// them: it parts two words. No argument can hold a NUL.
bool hasShellCharacter(std::string_view text) {
  using namespace std::string_view_literals;
  return text.find_first_of("|&;<>()$`\\\"'\n*?[{}\0"sv) != std::string_view::npos;
}

// A word that a shell or the command itself would take for something else than a path.
bool isNoPath(std::string_view word) {
  return word[0] == '#' || word[0] == '~' || word[0] == '-';
}

std::vector<std::string> splitAtBlanks(std::string_view text) {
  std::vector<std::string> words;
  size_t begin = 0;
  while ((begin = text.find_first_not_of(" \t", begin)) != std::string_view::npos) {
    const size_t end = std::min(text.find_first_of(" \t", begin), text.size());
    words.emplace_back(text.substr(begin, end - begin));
    begin = end;
  }
  return words;
}

// Replaces the tilde of a leading "~/" by the home folder; false when there is none.
bool expandHome(std::string* path) {
  if (!path->starts_with("~/")) return true;
  const std::unique_ptr<char, decltype(&std::free)> home(twcUserFolderCreateCopy(), &std::free);
  if (!home) return false;
  path->replace(0, 1, home.get());
  return true;
}

}  // namespace

int ZavelPath::loadDictAndHelper(const char* path) {
  // Copied before the former path goes, because it may be the one that was given.
  std::string next = path ? std::string(path) : defaultPathTablePath();
  dictAndHelper_ = std::move(next);
  if (!synchronize()) return kPathTableMissing;
  for (const PathGroupRow& group : kPathGroupRows) {
    if (const int code = loadGroup(group)) return code;
  }
  return kPathTableLoaded;
}

bool ZavelPath::synchronize() {
  table_ = Value();
  if (dictAndHelper_->empty()) return false;
  Value table;
  if (!platform().propertyLists().readFile(*dictAndHelper_ + ".plist", &table)) return false;
  if (!table.isDict()) return false;
  table_ = std::move(table);
  return true;
}

int ZavelPath::loadGroup(const PathGroupRow& group) {
  if (group.key) {
    const Value* map = table_.find(group.key);
    if (!map || !map->isDict()) return group.missingCode;
    if (group.group == PathGroup::kDictionary) names_.fill(nullptr);
    groups_[static_cast<int>(group.group)] = *map;
  }
  const Value& map = groups_[static_cast<int>(group.group)];
  for (const PathRow& row : kPathRows) {
    if (row.group != group.group) continue;
    if (const int code = loadRow(row, map)) return code;
  }
  if (group.group == PathGroup::kTwed) loadTwedApplication();
  const bool released = group.group == PathGroup::kTwed || group.group == PathGroup::kAddress;
  if (released) groups_[static_cast<int>(group.group)] = Value();
  return 0;
}

int ZavelPath::loadRow(const PathRow& row, const Value& map) {
  const int index = static_cast<int>(row.entry);
  if (row.kind == PathKind::kName) {
    const Value* name = map.find(row.key);
    names_[index] = name && name->isString() ? name->asString()->c_str() : nullptr;
    return 0;
  }
  const bool folder = row.kind == PathKind::kFolder;
  values_[index] = row.group == PathGroup::kTop ? extractFromPlistCreateCopy(row.key, folder)
                                                : extractFromDictionaryCreateCopy(map, row.key, folder);
  return values_[index] ? 0 : row.missingCode;
}

void ZavelPath::loadTwedApplication() {
  std::optional<std::string>& application = values_[static_cast<int>(PathEntry::kTwedApplication)];
  if (application) return;
  const Value& map = groups_[static_cast<int>(PathGroup::kTwed)];
  application = extractFromDictionaryCreateCopy(map, kSecondTwedApplicationKey, false);
}

const char* ZavelPath::pathDictAndHelper() {
  return dictAndHelper_ ? dictAndHelper_->c_str() : nullptr;
}

const char* ZavelPath::getAppleyPath(int applet) {
  if (!applicationPath_ && dictAndHelper_) {
    const Value* map = table_.find(kApplicationPathKey);
    if (map && map->isDict()) applicationPath_ = *map;
  }
  const char* key = appKeyWithEnum(applet);
  if (!applicationPath_ || !key) return nullptr;
  const Value* path = applicationPath_->find(key);
  return path && path->isString() ? path->asString()->c_str() : nullptr;
}

const char* ZavelPath::appKeyWithEnum(int applet) {
  for (const AppletKey& row : kAppletKeys) {
    if (row.applet == applet) return row.key;
  }
  return nullptr;
}

std::optional<std::string> ZavelPath::extractFromPlistCreateCopy(const std::string& key, bool createFolder) {
  return extractFromDictionaryCreateCopy(table_, key, createFolder);
}

std::optional<std::string> ZavelPath::extractFromDictionaryCreateCopy(const Value& map,
                                                                      const std::string& key,
                                                                      bool createFolder) {
  const Value* found = map.find(key);
  if (!found || !found->isString()) return std::nullopt;
  std::string path = *found->asString();
  if (!expandHome(&path)) return std::nullopt;
  if (createFolder && twcCreateFolder(path.c_str()) != 0) return std::nullopt;
  return path;
}

bool ZavelPath::fileCopyAndRename(const std::string& from, const std::string& to) {
  if (from.empty() || to.empty()) return false;
  if (from.size() >= kCopyPathBuffer || to.size() >= kCopyPathBuffer) return false;
  const std::string operands = from + " " + to;
  if (hasShellCharacter(operands)) return false;
  // Kept: the paths are parted at their blanks, as by a shell that gets them without quotes. So a path
  // with a blank isn't copied. docs/quirks.md
  const std::vector<std::string> words = splitAtBlanks(operands);
  for (const std::string& word : words) {
    if (isNoPath(word)) return false;
  }
  const ToolResult result = platform().tools().run("/bin/cp", words);
  return result.started && result.exitStatus == 0;
}

const char* ZavelPath::value(PathEntry entry) const {
  const int index = static_cast<int>(entry);
  return values_[index] ? values_[index]->c_str() : names_[index];
}

}  // namespace zavel
