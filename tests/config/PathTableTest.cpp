// Every row of the path table: its key, its folder, its code and its accessor.
#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "platform/PropertyLists.h"

namespace zavel::test {
namespace {

constexpr char kNoGroup[] = "";

struct Row {
  const char* group;  // "": top level
  const char* key;
  bool folder;      // made at load
  bool expands;     // a leading "~/" is replaced
  int missingCode;  // 0: may be missing
  const char* (*accessor)(void);
};

// In the order in which a load reads them.
const Row kRows[] = {
    {kNoGroup, "PreferencesFolder", true, true, 18, zavelPathPreferencesFolderURL},
    {kNoGroup, "DocumentsFolder", true, true, 19, zavelPathDocumentsFolderURL},
    {kNoGroup, "TranslationStylePath", false, true, 20, zavelPathTranslationStylePathURL},
    {kNoGroup, "PresetRSSPath", false, true, 26, zavelPathPresetRssPathURL},

    {"CachePath", "CacheFolder", true, true, 15, zavelPathCacheFolderURL},
    {"CachePath", "CacheFolderOther", true, true, 15, zavelPathAtokCacheFolderURL},
    {"CachePath", "WTCacheFolder", true, true, 16, zavelPathWTCacheFolderURL},
    {"CachePath", "FQCacheFolder", true, true, 17, zavelPathFQCacheFolderURL},
    {"CachePath", "RSSCacheFolder", true, true, 23, zavelPathRSSCacheFolderURL},
    {"CachePath", "VXCacheFolder", true, true, 24, zavelPathVXCacheFolderURL},
    {"CachePath", "QNCacheFolder", true, true, 24, zavelPathQNCacheFolderURL},

    {"ExamplePath", "ExampleArchives", false, true, 0, zavelPathArchivesURL},
    {"ExamplePath", "ExampleMemoryEJ", false, true, 0, zavelPathMemoryEtoJURL},
    {"ExamplePath", "ExampleMemoryJE", false, true, 0, zavelPathMemoryJtoEURL},
    {"ExamplePath", "ExampleMemoryTitleEJ", false, true, 0, zavelPathMemoryEtoJTitle},
    {"ExamplePath", "ExampleMemoryTitleJE", false, true, 0, zavelPathMemoryJtoETitle},

    {"DictionaryPath", "SystemDictionaryEJName", false, true, 2, zavelPathSystemDicEngURL},
    {"DictionaryPath", "SystemDictionaryEJ2Name", false, true, 2, zavelPathSystemDicEng2URL},
    {"DictionaryPath", "ProperNounDictionaryEJName", false, true, 2, zavelPathProperNounDicEngURL},
    {"DictionaryPath", "SystemDictionaryJEName", false, true, 0, zavelPathSystemDicJpnURL},
    {"DictionaryPath", "UserDictionaryEJName", false, false, 0, zavelPathUserDicEngName},
    {"DictionaryPath", "UserDictionaryJEName", false, false, 0, zavelPathUserDicJpnName},
    {"DictionaryPath", "UserOSLEJName", false, false, 0, zavelPathUserOslEngName},
    {"DictionaryPath", "UserOSLJEName", false, false, 0, zavelPathUserOslJpnName},
    {"DictionaryPath", "EnhancedDictionaryEJFolder", false, true, 6, zavelPathEnhancedDicEngFolderURL},
    {"DictionaryPath", "EnhancedDictionaryJEFolder", false, true, 0, zavelPathEnhancedDicJpnFolderURL},
    {"DictionaryPath", "TechnicalDictionaryEJFolder", false, true, 8, zavelPathTechnicalDicEngFolderURL},
    {"DictionaryPath", "TechnicalDictionaryJEFolder", false, true, 9, zavelPathTechnicalDicJpnFolderURL},
    {"DictionaryPath", "UserDictionaryFolder", true, true, 0, zavelPathUserDicFolderURL},
    {"DictionaryPath", "UserOSLFolder", true, true, 0, zavelPathUserOslFolderURL},
    {"DictionaryPath", "LearningDictionaryFolder", true, true, 10, zavelPathlearningDicJpnFolderURL},
    {"DictionaryPath", "KenkyuDictionaryFolder", false, true, 0, zavelPathKenkyuDicFolderURL},
    {"DictionaryPath", "JJCheckerDictionaryFolder", false, true, 0, zavelPathJJCheckerDicFolderURL},

    {"HelperPath", "PathTextTranslation", false, true, 12, zavelPathHelperTextTranslation},
    {"HelperPath", "PathWebTranslation", false, true, 0, zavelPathHelperWebTranslation},
    {"HelperPath", "PathKenkyuDictionary", false, true, 14, zavelPathHelperKenkyuDictionary},
    {"HelperPath", "PathDRP2Text", false, true, 21, zavelPathHelperDRP2Text},
    {"HelperPath", "PathSpellCheck2File", false, true, 22, zavelPathHelperSpellCheck2File},

    {"ModulePath", "PathKModule", false, true, 12, zavelKenkyuEngine},
    {"ModulePath", "PathTEModule", false, true, 12, zavelPathTextEtoJEngine},
    {"ModulePath", "PathTSModule", false, true, 12, zavelPathTextESEngine},
    {"ModulePath", "PathTJModule", false, true, 12, zavelPathTextJtoEEngine},
    {"ModulePath", "PathWEModule", false, true, 12, zavelPathHtmlEtoJEngine},
    {"ModulePath", "PathWJModule", false, true, 12, zavelPathHtmlJtoEEngine},
    {"ModulePath", "PathUEModule", false, true, 29, zavelPathUserEtoJEngine},
    {"ModulePath", "PathUJModule", false, true, 0, zavelPathUserJtoEEngine},
    {"ModulePath", "GrammarHelp", false, true, 0, zavelPathGrammarHelp},
    {"ModulePath", "HowToMail", false, true, 0, zavelPathHowToMail},

    {"TWED", "TarnwickApplication", false, true, 0, zavelPathTwedApplicationURL},

    {"TarnwickURL", "Support", false, true, 0, zavelPathSupportURL},
    {"TarnwickURL", "Homepage", false, true, 0, zavelPathHomepageURL},
};

struct Group {
  const char* key;
  int missingCode;
};

const Group kGroups[] = {
    {"CachePath", 0},  {"ExamplePath", 0}, {"DictionaryPath", 0}, {"HelperPath", 1},
    {"ModulePath", 1}, {"TWED", 0},        {"TarnwickURL", 0},
};

class PathTable : public ConfigTest {
 protected:
  PathTable() { startAfresh(); }
  ~PathTable() override { zavelPathTerminate(); }

  // A whole table, not yet loaded.
  void startAfresh() {
    platform.fakeFolders.homePath = at("home");
    table.clear();
    for (const Row& row : kRows) set(row, valueOf(row));
    zavelPathInitialize();
  }

  template <class Body>
  void forEachRow(Body body) {
    for (const Row& row : kRows) {
      SCOPED_TRACE(row.key);
      startAfresh();
      body(row);
    }
  }

  std::string valueOf(const Row& row) const { return at(std::string("place/") + row.key); }

  Value::Dict& mapOf(const Row& row) {
    if (*row.group == '\0') return table;
    Value& group = table[row.group];
    if (!group.isDict()) group = Value::Dict();
    return *group.asDict();
  }

  void set(const Row& row, const Value& value) { mapOf(row)[row.key] = value; }
  void unset(const Row& row) { mapOf(row).erase(row.key); }

  int load() {
    writeTable(at("table"), table);
    return zavelPathLoadDictAndHelper(at("table").c_str());
  }

  void expectValue(const Row& row, bool missing) {
    if (missing) {
      EXPECT_EQ(row.accessor(), nullptr) << row.key;
    } else {
      EXPECT_STREQ(row.accessor(), valueOf(row).c_str()) << row.key;
    }
  }

  Value::Dict table;
};

// A row that the table gains must be told to the tests below.
TEST_F(PathTable, HasFiftyOneRows) {
  EXPECT_EQ(std::size(kPathRows), 51u);
  EXPECT_EQ(std::size(kRows), 51u);
}

TEST_F(PathTable, GivesEveryValueOfAWholeTable) {
  EXPECT_EQ(load(), 0);
  for (const Row& row : kRows) EXPECT_STREQ(row.accessor(), valueOf(row).c_str()) << row.key;
}

TEST_F(PathTable, MakesTheFoldersThatMustExistAndNoOthers) {
  EXPECT_EQ(load(), 0);
  for (const Row& row : kRows) EXPECT_EQ(isFolder(valueOf(row)), row.folder) << row.key;
}

TEST_F(PathTable, MissingGivesItsCode) {
  forEachRow([this](const Row& row) {
    unset(row);
    EXPECT_EQ(load(), row.missingCode);
  });
}

TEST_F(PathTable, MissingLeavesWhatStandsBeforeItAndEndsTheLoadIfRequired) {
  forEachRow([this](const Row& missing) {
    unset(missing);
    load();
    const bool ended = missing.missingCode != 0;
    for (const Row& row : kRows) expectValue(row, &row == &missing || (ended && &row > &missing));
  });
}

TEST_F(PathTable, AValueThatIsNoStringIsMissing) {
  forEachRow([this](const Row& row) {
    set(row, 7);
    EXPECT_EQ(load(), row.missingCode);
    EXPECT_EQ(row.accessor(), nullptr);
  });
}

TEST_F(PathTable, ExpandsTheHomeFolderUnlessItIsAPlainName) {
  forEachRow([this](const Row& row) {
    const std::string below = std::string("/deep/") + row.key;
    set(row, "~" + below);
    EXPECT_EQ(load(), 0);
    const std::string expected = (row.expands ? at("home") : "~") + below;
    EXPECT_STREQ(row.accessor(), expected.c_str());
    EXPECT_EQ(exists(at("home") + below), row.folder);
  });
}

TEST_F(PathTable, AHomeFolderThatIsUnknownMakesTheValueMissing) {
  forEachRow([this](const Row& row) {
    platform.fakeFolders.homePath.clear();
    set(row, "~/place");
    EXPECT_EQ(load(), row.expands ? row.missingCode : 0);
    EXPECT_EQ(row.accessor() == nullptr, row.expands);
  });
}

TEST_F(PathTable, AFolderThatCannotBeMadeMakesTheValueMissing) {
  forEachRow([this](const Row& row) {
    writeText(at("plainfile"), "x");
    set(row, at("plainfile/below"));
    EXPECT_EQ(load(), row.folder ? row.missingCode : 0);
    EXPECT_EQ(row.accessor() == nullptr, row.folder);
  });
}

TEST_F(PathTable, IsNullWithoutATable) {
  forEachRow([this](const Row& row) {
    zavelPathTerminate();
    EXPECT_EQ(row.accessor(), nullptr);
    zavelPathInitialize();
    EXPECT_EQ(row.accessor(), nullptr);
  });
}

TEST_F(PathTable, AGroupAbsentAsAWholeGivesItsCode) {
  for (const Group& group : kGroups) {
    SCOPED_TRACE(group.key);
    startAfresh();
    table.erase(group.key);
    EXPECT_EQ(load(), group.missingCode);
    bool ended = false;
    for (const Row& row : kRows) {
      const bool ofGroup = std::string(row.group) == group.key;
      ended = ended || (ofGroup && group.missingCode != 0);
      expectValue(row, ofGroup || ended);
    }
  }
}

TEST_F(PathTable, AGroupThatIsNoMapIsAbsent) {
  for (const Group& group : kGroups) {
    SCOPED_TRACE(group.key);
    startAfresh();
    table[group.key] = "a text";
    EXPECT_EQ(load(), group.missingCode);
  }
}

TEST_F(PathTable, AGroupThatIsThereMustHoldItsCodedKeys) {
  table["CachePath"] = Value::Dict();
  EXPECT_EQ(load(), 15);
  table["CachePath"] = Value::Dict{{"CacheFolder", at("c")}};
  EXPECT_EQ(load(), 15);
  table.erase("CachePath");
  table["DictionaryPath"] = Value::Dict();
  EXPECT_EQ(load(), 2);
  table.erase("DictionaryPath");
  table["ExamplePath"] = Value::Dict();
  EXPECT_EQ(load(), 0);
}

TEST_F(PathTable, TheSecondViewerIsUsedWhenTheFirstIsAbsent) {
  table["TWED"] = Value::Dict{{"HollowayApplication", at("second")}};
  EXPECT_EQ(load(), 0);
  EXPECT_STREQ(zavelPathTwedApplicationURL(), at("second").c_str());
}

TEST_F(PathTable, TheSecondViewerIsNotUsedBesideTheFirst) {
  table["TWED"] = Value::Dict{{"HollowayApplication", at("second")}, {"TarnwickApplication", at("first")}};
  EXPECT_EQ(load(), 0);
  EXPECT_STREQ(zavelPathTwedApplicationURL(), at("first").c_str());
}

TEST_F(PathTable, WithoutEitherViewerThereIsNone) {
  table["TWED"] = Value::Dict();
  EXPECT_EQ(load(), 0);
  EXPECT_EQ(zavelPathTwedApplicationURL(), nullptr);
}

TEST_F(PathTable, TheSecondViewersHomeFolderIsExpanded) {
  table["TWED"] = Value::Dict{{"HollowayApplication", "~/viewer"}};
  EXPECT_EQ(load(), 0);
  EXPECT_STREQ(zavelPathTwedApplicationURL(), at("home/viewer").c_str());
}

TEST_F(PathTable, ABinaryTableLoadsToo) {
  ASSERT_TRUE(
      platform.propertyLists().writeFile(at("binary.plist"), Value(table), PropertyListFormat::kBinary));
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("binary").c_str()), 0);
  EXPECT_STREQ(zavelPathCacheFolderURL(), at("place/CacheFolder").c_str());
}

}  // namespace
}  // namespace zavel::test
