// The rows of the path table, in the order in which they are loaded: the one place where their keys,
// folders and codes stand.
#ifndef CONFIG_PATHTABLEROWS_H
#define CONFIG_PATHTABLEROWS_H

namespace zavel {

// One value of the table.
enum class PathEntry {
  kPreferencesFolder,
  kDocumentsFolder,
  kTranslationStyle,
  kPresetRss,
  kCacheFolder,
  kCacheFolderOther,
  kWTCacheFolder,
  kFQCacheFolder,
  kRSSCacheFolder,
  kVXCacheFolder,
  kQNCacheFolder,
  kExampleArchives,
  kExampleMemoryEJ,
  kExampleMemoryJE,
  kExampleMemoryTitleEJ,
  kExampleMemoryTitleJE,
  kSystemDictionaryEJ,
  kSystemDictionaryEJ2,
  kProperNounDictionaryEJ,
  kSystemDictionaryJE,
  kUserDictionaryEJName,
  kUserDictionaryJEName,
  kUserOSLEJName,
  kUserOSLJEName,
  kEnhancedDictionaryEJFolder,
  kEnhancedDictionaryJEFolder,
  kTechnicalDictionaryEJFolder,
  kTechnicalDictionaryJEFolder,
  kUserDictionaryFolder,
  kUserOSLFolder,
  kLearningDictionaryFolder,
  kKenkyuDictionaryFolder,
  kJJCheckerDictionaryFolder,
  kTextTranslationHelper,
  kWebTranslationHelper,
  kKenkyuDictionaryHelper,
  kDRP2TextHelper,
  kSpellCheck2FileHelper,
  kKModule,
  kTEModule,
  kTSModule,
  kTJModule,
  kWEModule,
  kWJModule,
  kUEModule,
  kUJModule,
  kGrammarHelp,
  kHowToMail,
  kTwedApplication,
  kSupport,
  kHomepage,
};
inline constexpr int kPathEntryCount = static_cast<int>(PathEntry::kHomepage) + 1;

// The map that holds a value; kTop is the table itself.
enum class PathGroup { kTop, kCache, kExample, kDictionary, kHelper, kModule, kTwed, kAddress };
inline constexpr int kPathGroupCount = static_cast<int>(PathGroup::kAddress) + 1;

enum class PathKind {
  kPath,    // a leading "~/" is expanded
  kFolder,  // the same, and the folder is made
  kName,    // taken as it stands
};

// Codes of a load that rows share or that belong to no row.
inline constexpr int kPathTableLoaded = 0;
inline constexpr int kPathTableMissing = 1;
inline constexpr int kTolerated = 0;  // in a row: the value may be missing

struct PathGroupRow {
  PathGroup group;
  const char* key;  // null for the table itself
  int missingCode;  // of the group as a whole
};

struct PathRow {
  PathEntry entry;
  PathGroup group;
  const char* key;
  PathKind kind;
  int missingCode;
};

inline constexpr PathGroupRow kPathGroupRows[kPathGroupCount] = {
    {PathGroup::kTop, nullptr, kPathTableMissing},
    {PathGroup::kCache, "CachePath", kTolerated},
    {PathGroup::kExample, "ExamplePath", kTolerated},
    {PathGroup::kDictionary, "DictionaryPath", kTolerated},
    {PathGroup::kHelper, "HelperPath", kPathTableMissing},
    {PathGroup::kModule, "ModulePath", kPathTableMissing},
    {PathGroup::kTwed, "TWED", kTolerated},
    {PathGroup::kAddress, "TarnwickURL", kTolerated},
};

inline constexpr PathRow kPathRows[kPathEntryCount] = {
    {PathEntry::kPreferencesFolder, PathGroup::kTop, "PreferencesFolder", PathKind::kFolder, 18},
    {PathEntry::kDocumentsFolder, PathGroup::kTop, "DocumentsFolder", PathKind::kFolder, 19},
    {PathEntry::kTranslationStyle, PathGroup::kTop, "TranslationStylePath", PathKind::kPath, 20},
    {PathEntry::kPresetRss, PathGroup::kTop, "PresetRSSPath", PathKind::kPath, 26},

    {PathEntry::kCacheFolder, PathGroup::kCache, "CacheFolder", PathKind::kFolder, 15},
    {PathEntry::kCacheFolderOther, PathGroup::kCache, "CacheFolderOther", PathKind::kFolder, 15},
    {PathEntry::kWTCacheFolder, PathGroup::kCache, "WTCacheFolder", PathKind::kFolder, 16},
    {PathEntry::kFQCacheFolder, PathGroup::kCache, "FQCacheFolder", PathKind::kFolder, 17},
    {PathEntry::kRSSCacheFolder, PathGroup::kCache, "RSSCacheFolder", PathKind::kFolder, 23},
    {PathEntry::kVXCacheFolder, PathGroup::kCache, "VXCacheFolder", PathKind::kFolder, 24},
    {PathEntry::kQNCacheFolder, PathGroup::kCache, "QNCacheFolder", PathKind::kFolder, 24},

    {PathEntry::kExampleArchives, PathGroup::kExample, "ExampleArchives", PathKind::kPath, kTolerated},
    {PathEntry::kExampleMemoryEJ, PathGroup::kExample, "ExampleMemoryEJ", PathKind::kPath, kTolerated},
    {PathEntry::kExampleMemoryJE, PathGroup::kExample, "ExampleMemoryJE", PathKind::kPath, kTolerated},
    {PathEntry::kExampleMemoryTitleEJ, PathGroup::kExample, "ExampleMemoryTitleEJ", PathKind::kPath,
     kTolerated},
    {PathEntry::kExampleMemoryTitleJE, PathGroup::kExample, "ExampleMemoryTitleJE", PathKind::kPath,
     kTolerated},

    {PathEntry::kSystemDictionaryEJ, PathGroup::kDictionary, "SystemDictionaryEJName", PathKind::kPath, 2},
    {PathEntry::kSystemDictionaryEJ2, PathGroup::kDictionary, "SystemDictionaryEJ2Name", PathKind::kPath, 2},
    {PathEntry::kProperNounDictionaryEJ, PathGroup::kDictionary, "ProperNounDictionaryEJName",
     PathKind::kPath, 2},
    {PathEntry::kSystemDictionaryJE, PathGroup::kDictionary, "SystemDictionaryJEName", PathKind::kPath,
     kTolerated},
    {PathEntry::kUserDictionaryEJName, PathGroup::kDictionary, "UserDictionaryEJName", PathKind::kName,
     kTolerated},
    {PathEntry::kUserDictionaryJEName, PathGroup::kDictionary, "UserDictionaryJEName", PathKind::kName,
     kTolerated},
    {PathEntry::kUserOSLEJName, PathGroup::kDictionary, "UserOSLEJName", PathKind::kName, kTolerated},
    {PathEntry::kUserOSLJEName, PathGroup::kDictionary, "UserOSLJEName", PathKind::kName, kTolerated},
    {PathEntry::kEnhancedDictionaryEJFolder, PathGroup::kDictionary, "EnhancedDictionaryEJFolder",
     PathKind::kPath, 6},
    {PathEntry::kEnhancedDictionaryJEFolder, PathGroup::kDictionary, "EnhancedDictionaryJEFolder",
     PathKind::kPath, kTolerated},
    {PathEntry::kTechnicalDictionaryEJFolder, PathGroup::kDictionary, "TechnicalDictionaryEJFolder",
     PathKind::kPath, 8},
    {PathEntry::kTechnicalDictionaryJEFolder, PathGroup::kDictionary, "TechnicalDictionaryJEFolder",
     PathKind::kPath, 9},
    {PathEntry::kUserDictionaryFolder, PathGroup::kDictionary, "UserDictionaryFolder", PathKind::kFolder,
     kTolerated},
    {PathEntry::kUserOSLFolder, PathGroup::kDictionary, "UserOSLFolder", PathKind::kFolder, kTolerated},
    {PathEntry::kLearningDictionaryFolder, PathGroup::kDictionary, "LearningDictionaryFolder",
     PathKind::kFolder, 10},
    {PathEntry::kKenkyuDictionaryFolder, PathGroup::kDictionary, "KenkyuDictionaryFolder", PathKind::kPath,
     kTolerated},
    {PathEntry::kJJCheckerDictionaryFolder, PathGroup::kDictionary, "JJCheckerDictionaryFolder",
     PathKind::kPath, kTolerated},

    {PathEntry::kTextTranslationHelper, PathGroup::kHelper, "PathTextTranslation", PathKind::kPath, 12},
    {PathEntry::kWebTranslationHelper, PathGroup::kHelper, "PathWebTranslation", PathKind::kPath, kTolerated},
    {PathEntry::kKenkyuDictionaryHelper, PathGroup::kHelper, "PathKenkyuDictionary", PathKind::kPath, 14},
    {PathEntry::kDRP2TextHelper, PathGroup::kHelper, "PathDRP2Text", PathKind::kPath, 21},
    {PathEntry::kSpellCheck2FileHelper, PathGroup::kHelper, "PathSpellCheck2File", PathKind::kPath, 22},

    {PathEntry::kKModule, PathGroup::kModule, "PathKModule", PathKind::kPath, 12},
    {PathEntry::kTEModule, PathGroup::kModule, "PathTEModule", PathKind::kPath, 12},
    {PathEntry::kTSModule, PathGroup::kModule, "PathTSModule", PathKind::kPath, 12},
    {PathEntry::kTJModule, PathGroup::kModule, "PathTJModule", PathKind::kPath, 12},
    {PathEntry::kWEModule, PathGroup::kModule, "PathWEModule", PathKind::kPath, 12},
    {PathEntry::kWJModule, PathGroup::kModule, "PathWJModule", PathKind::kPath, 12},
    {PathEntry::kUEModule, PathGroup::kModule, "PathUEModule", PathKind::kPath, 29},
    {PathEntry::kUJModule, PathGroup::kModule, "PathUJModule", PathKind::kPath, kTolerated},
    {PathEntry::kGrammarHelp, PathGroup::kModule, "GrammarHelp", PathKind::kPath, kTolerated},
    {PathEntry::kHowToMail, PathGroup::kModule, "HowToMail", PathKind::kPath, kTolerated},

    {PathEntry::kTwedApplication, PathGroup::kTwed, "TarnwickApplication", PathKind::kPath, kTolerated},

    {PathEntry::kSupport, PathGroup::kAddress, "Support", PathKind::kPath, kTolerated},
    {PathEntry::kHomepage, PathGroup::kAddress, "Homepage", PathKind::kPath, kTolerated},
};

// Stands in for the viewer application when "TarnwickApplication" gives nothing.
inline constexpr char kSecondTwedApplicationKey[] = "HollowayApplication";

inline constexpr char kApplicationPathKey[] = "ApplicationPath";

// Where the product's table stands below the platform's root, without ".plist".
inline constexpr char kDefaultPathTable[] = "/Library/Application Support/Tarnwick/ZavelLex/ZavelPath";

}  // namespace zavel

#endif
