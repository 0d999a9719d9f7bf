// Tests: tests/config/WorkPathTableTest.cpp
#include "config/WorkPathTable.h"

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
    (group ? groups[group] : table)[row.key] = value;
  }
  groups[groupKey(PathGroup::kTwed)][kSecondTwedApplicationKey] = roots.helpers + kBookBrowser;
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

std::string defaultPathTablePath() {
  return platform().folders().root() + kDefaultPathTable;
}

}  // namespace zavel
