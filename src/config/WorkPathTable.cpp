// Tests: tests/config/WorkPathTableTest.cpp
#include "config/WorkPathTable.h"

#include <cstring>

#include "config/PathTableRows.h"
#include "config/TwcServices.h"
#include "config/ZavelPath.h"
#include "foundation/Storage.h"
#include "platform/Folders.h"
#include "platform/Platform.h"
#include "platform/PropertyLists.h"

namespace zavel {
namespace {

struct Application {
  int applet;
  const char* program;
};

constexpr Application kApplications[] = {
    {ZAVEL_APPLET_TRANSLATION_EDITOR, "zavel-translation-editor"},
    {ZAVEL_APPLET_MEMORY_BROWSER, "zavel-memory-browser"},
    {ZAVEL_APPLET_USER_DICTIONARY_EDITOR, "zavel-user-dictionary-editor"},
    {ZAVEL_APPLET_TOOL_GX, "zavel-tool-gx"},
    {ZAVEL_APPLET_CORRESPONDENCE, "zavel-correspondence"},
    {ZAVEL_APPLET_CORRESPONDENCE2, "zavel-correspondence2"},
    {ZAVEL_APPLET_UPDATER, "zavel-updater"},
    {ZAVEL_APPLET_PRODUCT_MENU, "zavel-product-menu"},
    {ZAVEL_APPLET_BROWSER, "zavel-browser"},
    {ZAVEL_APPLET_CASE_EDITOR, "zavel-case-editor"},
    {ZAVEL_APPLET_TOOL_WZ, "zavel-tool-wz"},
    {ZAVEL_APPLET_MEMORY_EDITOR, "zavel-memory-editor"},
};

constexpr char kBookBrowser[] = "/zavel-book-browser";

struct Default {
  PathEntry entry;
  std::string PathTableRoots::*root;  // null: the rest alone
  const char* rest;
};

constexpr Default kDefaults[kPathEntryCount] = {
    {PathEntry::kPreferencesFolder, &PathTableRoots::preferences, ""},
    {PathEntry::kDocumentsFolder, &PathTableRoots::documents, ""},
    {PathEntry::kTranslationStyle, &PathTableRoots::preferences, "/ZavelStyle"},
    {PathEntry::kPresetRss, &PathTableRoots::preferences, "/PresetRSS.plist"},
    {PathEntry::kCacheFolder, &PathTableRoots::cache, ""},
    {PathEntry::kCacheFolderOther, &PathTableRoots::cache, "/other"},
    {PathEntry::kWTCacheFolder, &PathTableRoots::cache, "/wt"},
    {PathEntry::kFQCacheFolder, &PathTableRoots::cache, "/fq"},
    {PathEntry::kRSSCacheFolder, &PathTableRoots::cache, "/rss"},
    {PathEntry::kVXCacheFolder, &PathTableRoots::cache, "/vx"},
    {PathEntry::kQNCacheFolder, &PathTableRoots::cache, "/qn"},
    {PathEntry::kExampleArchives, &PathTableRoots::data, "/archives"},
    {PathEntry::kExampleMemoryEJ, &PathTableRoots::data, "/memories/EJ"},
    {PathEntry::kExampleMemoryJE, &PathTableRoots::data, "/memories/JE"},
    {PathEntry::kExampleMemoryTitleEJ, nullptr, "English to Japanese"},
    {PathEntry::kExampleMemoryTitleJE, nullptr, "Japanese to English"},
    {PathEntry::kSystemDictionaryEJ, &PathTableRoots::data, "/dictionaries/system/EJ"},
    {PathEntry::kSystemDictionaryEJ2, &PathTableRoots::data, "/dictionaries/system/EJ2"},
    {PathEntry::kProperNounDictionaryEJ, &PathTableRoots::data, "/dictionaries/system/ProperNounEJ"},
    {PathEntry::kSystemDictionaryJE, &PathTableRoots::data, "/dictionaries/system/JE"},
    {PathEntry::kUserDictionaryEJName, nullptr, "UserDictionaryEJ"},
    {PathEntry::kUserDictionaryJEName, nullptr, "UserDictionaryJE"},
    {PathEntry::kUserOSLEJName, nullptr, "UserMemoryEJ"},
    {PathEntry::kUserOSLJEName, nullptr, "UserMemoryJE"},
    {PathEntry::kEnhancedDictionaryEJFolder, &PathTableRoots::data, "/dictionaries/enhanced/EJ"},
    {PathEntry::kEnhancedDictionaryJEFolder, &PathTableRoots::data, "/dictionaries/enhanced/JE"},
    {PathEntry::kTechnicalDictionaryEJFolder, &PathTableRoots::data, "/dictionaries/technical/EJ"},
    {PathEntry::kTechnicalDictionaryJEFolder, &PathTableRoots::data, "/dictionaries/technical/JE"},
    {PathEntry::kUserDictionaryFolder, &PathTableRoots::data, "/dictionaries/user"},
    {PathEntry::kUserOSLFolder, &PathTableRoots::data, "/dictionaries/memories"},
    {PathEntry::kLearningDictionaryFolder, &PathTableRoots::data, "/dictionaries/learning"},
    {PathEntry::kKenkyuDictionaryFolder, &PathTableRoots::data, "/dictionaries/basic"},
    {PathEntry::kJJCheckerDictionaryFolder, &PathTableRoots::data, "/dictionaries/checker"},
    {PathEntry::kTextTranslationHelper, &PathTableRoots::helpers, "/zavel-translation-server"},
    {PathEntry::kWebTranslationHelper, &PathTableRoots::helpers, "/zavel-page-server"},
    {PathEntry::kKenkyuDictionaryHelper, &PathTableRoots::helpers, "/zavel-dictionary-server"},
    {PathEntry::kDRP2TextHelper, &PathTableRoots::helpers, "/zavel-drp2text"},
    {PathEntry::kSpellCheck2FileHelper, &PathTableRoots::helpers, "/zavel-spellcheck2file"},
    {PathEntry::kKModule, &PathTableRoots::helpers, "/zavel-dicttool"},
    {PathEntry::kTEModule, &PathTableRoots::helpers, "/zavel-text-ej"},
    {PathEntry::kTSModule, &PathTableRoots::helpers, "/zavel-text-es"},
    {PathEntry::kTJModule, &PathTableRoots::helpers, "/zavel-text-je"},
    {PathEntry::kWEModule, &PathTableRoots::helpers, "/zavel-page-ej"},
    {PathEntry::kWJModule, &PathTableRoots::helpers, "/zavel-page-je"},
    {PathEntry::kUEModule, &PathTableRoots::helpers, "/zavel-user-ej"},
    {PathEntry::kUJModule, &PathTableRoots::helpers, "/zavel-user-je"},
    {PathEntry::kGrammarHelp, &PathTableRoots::data, "/help/grammar.html"},
    {PathEntry::kHowToMail, &PathTableRoots::data, "/help/mail.html"},
    {PathEntry::kTwedApplication, &PathTableRoots::helpers, kBookBrowser},
    {PathEntry::kSupport, &PathTableRoots::support, ""},
    {PathEntry::kHomepage, &PathTableRoots::homepage, ""},
};

// Where a value stands in the default table. Empty: it is left out.
std::string defaultValue(PathEntry entry, const PathTableRoots& roots) {
  for (const Default& row : kDefaults) {
    if (row.entry == entry) return (row.root ? roots.*row.root : std::string()) + row.rest;
  }
  return std::string();
}

const char* groupKey(PathGroup group) {
  for (const PathGroupRow& row : kPathGroupRows) {
    if (row.group == group) return row.key;
  }
  return nullptr;
}

// A path below the home folder begins with "~", so that the table moves along with that folder.
std::string fromHome(const std::string& path) {
  const std::string home = platform().folders().home();
  const bool below = !home.empty() && path.starts_with(home + "/");
  return below ? "~" + path.substr(home.size()) : path;
}

Value::Dict applications(const PathTableRoots& roots) {
  ZavelPath keys;
  Value::Dict map;
  for (const Application& row : kApplications) {
    map[keys.appKeyWithEnum(row.applet)] = roots.helpers + "/" + row.program;
  }
  return map;
}

}  // namespace

Value defaultPathTable(const PathTableRoots& roots) {
  Value::Dict table;
  std::map<std::string, Value::Dict> groups;
  for (const PathRow& row : kPathRows) {
    const std::string value = defaultValue(row.entry, roots);
    if (value.empty()) continue;
    const char* group = groupKey(row.group);
    (group ? groups[group] : table)[row.key] = row.kind == PathKind::kName ? value : fromHome(value);
  }
  groups[groupKey(PathGroup::kTwed)][kSecondTwedApplicationKey] = fromHome(roots.helpers + kBookBrowser);
  groups[kApplicationPathKey] = applications(roots);
  for (auto& [key, group] : groups) table[key] = std::move(group);
  return table;
}

bool writePathTableIfMissing(const std::string& path, const PathTableRoots& roots) {
  const std::string file = path + ".plist";
  if (storage().exists(file)) return true;
  const size_t name = file.rfind('/');
  if (name != std::string::npos && name > 0 && twcCreateFolder(file.substr(0, name).c_str()) != 0)
    return false;
  return platform().propertyLists().writeFile(file, defaultPathTable(roots), PropertyListFormat::kXml);
}

namespace {

std::string pathIn(const Value& table, PathEntry entry) {
  for (const PathRow& row : kPathRows) {
    if (row.entry != entry) continue;
    const char* key = groupKey(row.group);
    const Value* group = key ? table.find(key) : &table;
    if (!group) return {};
    return ZavelPath().extractFromDictionaryCreateCopy(*group, row.key, false).value_or(std::string());
  }
  return {};
}

// The root of an entry: its value without what the default table puts behind the root. Empty when the value
// does not end so.
std::string rootOf(const Value& table, PathEntry entry) {
  const std::string value = pathIn(table, entry);
  for (const Default& row : kDefaults) {
    if (row.entry != entry) continue;
    return value.ends_with(row.rest) ? value.substr(0, value.size() - std::strlen(row.rest)) : std::string();
  }
  return {};
}

// The roots that a default table was made with, as far as a value of each tells.
PathTableRoots rootsOf(const Value& table) {
  PathTableRoots roots;
  roots.data = rootOf(table, PathEntry::kKenkyuDictionaryFolder);
  roots.cache = rootOf(table, PathEntry::kCacheFolder);
  roots.preferences = rootOf(table, PathEntry::kPreferencesFolder);
  roots.documents = rootOf(table, PathEntry::kDocumentsFolder);
  roots.helpers = rootOf(table, PathEntry::kKModule);
  roots.support = pathIn(table, PathEntry::kSupport);
  roots.homepage = pathIn(table, PathEntry::kHomepage);
  return roots;
}

// The table with every path expanded, so that two ways of writing one path compare equal.
Value expanded(const Value& table) {
  if (const std::string* text = table.asString()) {
    const bool home = text->starts_with("~/");
    return home ? platform().folders().home() + text->substr(1) : *text;
  }
  if (!table.isDict()) return table;
  Value::Dict out;
  for (const auto& [key, value] : *table.asDict()) out[key] = expanded(value);
  return out;
}

// Whether the host alone wrote the table: every value follows from the roots, and the documents stand to the
// data as they do in `roots`. A table in which the user changed a folder doesn't hold together so.
bool isUntouched(const Value& table, const PathTableRoots& made, const PathTableRoots& roots) {
  if (expanded(table) != expanded(defaultPathTable(made))) return false;
  const bool below = roots.documents.starts_with(roots.data + "/");
  return !below || made.documents == made.data + roots.documents.substr(roots.data.size());
}

// Whether the file holds a value of each root as it stands in the table of `roots`. That is so at nearly
// every start, and a look at the bytes tells it in a tenth of the time that parsing them takes. A path that
// XML writes otherwise is only found by parsing.
bool plainlyNames(const std::string& file, const PathTableRoots& roots) {
  constexpr size_t kLongestTable = 1 << 20;
  std::string text;
  if (!readWholeFile(file, kLongestTable, &text)) return false;
  for (const PathEntry entry :
       {PathEntry::kKenkyuDictionaryFolder, PathEntry::kCacheFolder, PathEntry::kPreferencesFolder,
        PathEntry::kDocumentsFolder, PathEntry::kKModule}) {
    const std::string value = fromHome(defaultValue(entry, roots));
    if (text.find("<string>" + value + "</string>") == std::string::npos) return false;
  }
  return true;
}

}  // namespace

bool renewPathTable(const std::string& path, const PathTableRoots& roots) {
  if (plainlyNames(path + ".plist", roots)) return true;
  Value table;
  if (!platform().propertyLists().readFile(path + ".plist", &table) || !table.isDict()) return true;
  const PathTableRoots made = rootsOf(table);
  const Value now = defaultPathTable(roots);
  if (table == now || !isUntouched(table, made, roots)) return true;
  // One that says the same in other words, whole paths for "~", is no worse for staying.
  return platform().propertyLists().writeFile(path + ".plist", now, PropertyListFormat::kXml) ||
         expanded(table) == expanded(now);
}

std::string defaultPathTablePath() {
  return platform().folders().root() + kDefaultPathTable;
}

}  // namespace zavel
