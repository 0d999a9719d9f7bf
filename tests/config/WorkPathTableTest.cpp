#include "config/WorkPathTable.h"

#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "platform/PropertyLists.h"

namespace zavel::test {
namespace {

class WorkPathTable : public ConfigTest {
 protected:
  WorkPathTable() { zavelPathInitialize(); }
  ~WorkPathTable() override { zavelPathTerminate(); }

  PathTableRoots rootsBelow(const std::string& base) const {
    return PathTableRoots{at(base + "/data"),         at(base + "/cache"),  at(base + "/preferences"),
                          at(base + "/documents"),    "/usr/libexec/zavel", "https://support.example/",
                          "https://homepage.example/"};
  }
};

struct GroupKeys {
  const char* group;
  std::vector<std::string> keys;
};

TEST_F(WorkPathTable, HasEveryKeyOfEveryGroup) {
  const GroupKeys groups[] = {
      {"CachePath",
       {"CacheFolder", "CacheFolderOther", "WTCacheFolder", "FQCacheFolder", "RSSCacheFolder",
        "VXCacheFolder", "QNCacheFolder"}},
      {"ExamplePath",
       {"ExampleArchives", "ExampleMemoryEJ", "ExampleMemoryJE", "ExampleMemoryTitleEJ",
        "ExampleMemoryTitleJE"}},
      {"DictionaryPath",
       {"SystemDictionaryEJName", "SystemDictionaryEJ2Name", "ProperNounDictionaryEJName",
        "SystemDictionaryJEName", "UserDictionaryEJName", "UserDictionaryJEName", "UserOSLEJName",
        "UserOSLJEName", "EnhancedDictionaryEJFolder", "EnhancedDictionaryJEFolder",
        "TechnicalDictionaryEJFolder", "TechnicalDictionaryJEFolder", "UserDictionaryFolder", "UserOSLFolder",
        "LearningDictionaryFolder", "KenkyuDictionaryFolder", "JJCheckerDictionaryFolder"}},
      {"HelperPath",
       {"PathTextTranslation", "PathWebTranslation", "PathKenkyuDictionary", "PathDRP2Text",
        "PathSpellCheck2File"}},
      {"ModulePath",
       {"PathKModule", "PathTEModule", "PathTSModule", "PathTJModule", "PathWEModule", "PathWJModule",
        "PathUEModule", "PathUJModule", "GrammarHelp", "HowToMail"}},
      {"TWED", {"TarnwickApplication", "HollowayApplication"}},
      {"TarnwickURL", {"Support", "Homepage"}},
      {"ApplicationPath", {"QN", "OSL", "VN", "GX", "FQ", "QUIR", "XJ", "BLT", "VX", "DRN", "WZ", "YPH"}},
  };
  const Value table = defaultPathTable(rootsBelow("r"));
  for (const char* key : {"PreferencesFolder", "DocumentsFolder", "TranslationStylePath", "PresetRSSPath"})
    EXPECT_TRUE(table.find(key) && table.find(key)->isString()) << key;
  EXPECT_EQ(table.asDict()->size(), 4 + std::size(groups));
  for (const GroupKeys& group : groups) {
    const Value* map = table.find(group.group);
    ASSERT_TRUE(map && map->isDict()) << group.group;
    EXPECT_EQ(map->asDict()->size(), group.keys.size()) << group.group;
    for (const std::string& key : group.keys)
      EXPECT_TRUE(map->find(key) && map->find(key)->isString()) << group.group << " " << key;
  }
}

TEST_F(WorkPathTable, LoadsWithCode0) {
  ASSERT_TRUE(writePathTableIfMissing(at("p/ZavelPath"), rootsBelow("r")));
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("p/ZavelPath").c_str()), 0);
  EXPECT_STREQ(zavelPathKenkyuDicFolderURL(), at("r/data/dictionaries/basic").c_str());
  EXPECT_STREQ(zavelPathCacheFolderURL(), at("r/cache").c_str());
  EXPECT_STREQ(zavelPathPreferencesFolderURL(), at("r/preferences").c_str());
  EXPECT_STREQ(zavelPathDocumentsFolderURL(), at("r/documents").c_str());
  EXPECT_STREQ(zavelKenkyuEngine(), "/usr/libexec/zavel/zavel-dicttool");
  EXPECT_STREQ(zavelPathTextEtoJEngine(), "/usr/libexec/zavel/zavel-text-ej");
  EXPECT_STREQ(zavelPathHelperKenkyuDictionary(), "/usr/libexec/zavel/zavel-dictionary-server");
  EXPECT_STREQ(zavelPathGetAppleyPath(17), "/usr/libexec/zavel/zavel-browser");
  EXPECT_STREQ(zavelPathUserDicEngName(), "UserDictionaryEJ");
  EXPECT_STREQ(zavelPathSupportURL(), "https://support.example/");
  EXPECT_TRUE(isFolder(at("r/cache/rss")));
  EXPECT_TRUE(isFolder(at("r/data/dictionaries/user")));
}

TEST_F(WorkPathTable, LoadsWithCode0BelowARootWithBlanksAndJapaneseCharacters) {
  const std::string base = "私の フォルダ & <other>";
  ASSERT_TRUE(writePathTableIfMissing(at(base + "/Application Support/表/ZavelPath"), rootsBelow(base)));
  EXPECT_EQ(zavelPathLoadDictAndHelper(at(base + "/Application Support/表/ZavelPath").c_str()), 0);
  EXPECT_STREQ(zavelPathCacheFolderURL(), at(base + "/cache").c_str());
  EXPECT_TRUE(isFolder(at(base + "/data/dictionaries/learning")));
}

TEST_F(WorkPathTable, StandsAtTheDefaultPathForALoadWithoutPath) {
  EXPECT_EQ(defaultPathTablePath(), at("root/Library/Application Support/Tarnwick/ZavelLex/ZavelPath"));
  ASSERT_TRUE(writePathTableIfMissing(defaultPathTablePath(), rootsBelow("r")));
  EXPECT_EQ(zavelPathLoadDictAndHelper(nullptr), 0);
}

TEST_F(WorkPathTable, IsWrittenAsXml) {
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), rootsBelow("r")));
  EXPECT_EQ(readText(at("ZavelPath.plist")).substr(0, 5), "<?xml");
  Value table;
  ASSERT_TRUE(platform.propertyLists().readFile(at("ZavelPath.plist"), &table));
  EXPECT_EQ(table, defaultPathTable(rootsBelow("r")));
}

TEST_F(WorkPathTable, ATableThatIsThereStays) {
  writeText(at("ZavelPath.plist"), "mine");
  EXPECT_TRUE(writePathTableIfMissing(at("ZavelPath"), rootsBelow("r")));
  EXPECT_EQ(readText(at("ZavelPath.plist")), "mine");
}

TEST_F(WorkPathTable, PathsBelowTheHomeFolderMoveAlongWithIt) {
  const std::string home = platform.folders().home();
  PathTableRoots roots{home + "/data",
                       home + "/cache",
                       home + "/config",
                       home + "/data/documents",
                       "/usr/libexec/zavel",
                       "",
                       ""};
  const Value table = defaultPathTable(roots);
  EXPECT_EQ(table.find("PreferencesFolder")->string(), "~/config");
  EXPECT_EQ(table.find("DocumentsFolder")->string(), "~/data/documents");
  EXPECT_EQ(table.find("CachePath")->find("RSSCacheFolder")->string(), "~/cache/rss");
  EXPECT_EQ(table.find("DictionaryPath")->find("KenkyuDictionaryFolder")->string(),
            "~/data/dictionaries/basic");
  EXPECT_EQ(table.find("DictionaryPath")->find("UserDictionaryEJName")->string(), "UserDictionaryEJ");
  EXPECT_EQ(table.find("ModulePath")->find("PathKModule")->string(), "/usr/libexec/zavel/zavel-dicttool");
  EXPECT_EQ(table.find("ApplicationPath")->find("VX")->string(), "/usr/libexec/zavel/zavel-browser");
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), roots));
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("ZavelPath").c_str()), 0);
  EXPECT_EQ(zavelPathKenkyuDicFolderURL(), home + "/data/dictionaries/basic");
}

TEST_F(WorkPathTable, AFolderThatOnlyBeginsLikeTheHomeFolderIsNotBelowIt) {
  const std::string home = platform.folders().home();
  PathTableRoots roots = rootsBelow("r");
  roots.preferences = home + "2/config";
  EXPECT_EQ(defaultPathTable(roots).find("PreferencesFolder")->string(), home + "2/config");
}

class RenewedPathTable : public WorkPathTable {
 protected:
  // As a host arranges its folders.
  PathTableRoots placesBelow(const std::string& base) const {
    return {at(base + "/data"),
            at(base + "/cache"),
            at(base + "/config"),
            at(base + "/data/documents"),
            "/usr/libexec/zavel",
            "",
            ""};
  }
  Value read() {
    Value table;
    EXPECT_TRUE(platform.propertyLists().readFile(at("ZavelPath.plist"), &table));
    return table;
  }
  void write(const Value& table) {
    EXPECT_TRUE(platform.propertyLists().writeFile(at("ZavelPath.plist"), table, PropertyListFormat::kXml));
  }
};

TEST_F(RenewedPathTable, ATableOfOtherFoldersIsWrittenAnew) {
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), placesBelow("old")));
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("new")));
  EXPECT_EQ(read(), defaultPathTable(placesBelow("new")));
}

TEST_F(RenewedPathTable, NewHelpersAndOneMovedFolderAreTakenOver) {
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), placesBelow("old")));
  PathTableRoots roots = placesBelow("old");
  roots.helpers = "/opt/zavel";
  roots.cache = at("fast/cache");
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), roots));
  EXPECT_EQ(read(), defaultPathTable(roots));
}

TEST_F(RenewedPathTable, ATableThatSomebodyChangedStays) {
  struct {
    const char* group;
    const char* key;
  } const places[] = {{"CachePath", "CacheFolder"},
                      {"CachePath", "RSSCacheFolder"},
                      {"DictionaryPath", "KenkyuDictionaryFolder"},
                      {"DictionaryPath", "UserDictionaryEJName"},
                      {"ModulePath", "PathKModule"},
                      {nullptr, "PreferencesFolder"},
                      {nullptr, "DocumentsFolder"}};
  for (const auto& place : places) {
    Value table = defaultPathTable(placesBelow("old"));
    Value::Dict& all = *table.asDict();
    (place.group ? *all[place.group].asDict() : all)[place.key] = "/mine";
    write(table);
    EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("new")));
    EXPECT_EQ(read(), table) << place.key;
  }
}

TEST_F(RenewedPathTable, AnAddedKeyIsAChange) {
  Value table = defaultPathTable(placesBelow("old"));
  (*table.asDict())["Mine"] = "kept";
  write(table);
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("new")));
  EXPECT_EQ(read(), table);
}

TEST_F(RenewedPathTable, ATableOfTheseFoldersIsNotWritten) {
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), placesBelow("old")));
  const std::string before = readText(at("ZavelPath.plist"));
  writeText(at("ZavelPath.plist"), before + "\n");
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("old")));
  EXPECT_EQ(readText(at("ZavelPath.plist")), before + "\n");
}

TEST_F(RenewedPathTable, WholePathsBelowTheHomeFolderBecomeRelative) {
  PathTableRoots roots = placesBelow("old");
  Value old = defaultPathTable(roots);
  write(old);
  platform.fakeFolders.homePath = at("old");
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), roots));
  EXPECT_EQ(read().find("CachePath")->find("CacheFolder")->string(), "~/cache");
  EXPECT_NE(read(), old);
}

TEST_F(RenewedPathTable, WhatIsNoTableStays) {
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("new")));
  EXPECT_FALSE(exists(at("ZavelPath.plist")));
  writeText(at("ZavelPath.plist"), "mine");
  EXPECT_TRUE(renewPathTable(at("ZavelPath"), placesBelow("new")));
  EXPECT_EQ(readText(at("ZavelPath.plist")), "mine");
}

TEST_F(WorkPathTable, IsNotWrittenWhereNoFolderCanBeMade) {
  writeText(at("file"), "");
  EXPECT_FALSE(writePathTableIfMissing(at("file/below/ZavelPath"), rootsBelow("r")));
}

TEST_F(WorkPathTable, AddressesThatTheInstallerDoesNotKnowAreLeftOut) {
  PathTableRoots roots = rootsBelow("r");
  roots.support.clear();
  roots.homepage.clear();
  EXPECT_EQ(defaultPathTable(roots).find("TarnwickURL"), nullptr);
  ASSERT_TRUE(writePathTableIfMissing(at("ZavelPath"), roots));
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("ZavelPath").c_str()), 0);
  EXPECT_EQ(zavelPathSupportURL(), nullptr);
}

}  // namespace
}  // namespace zavel::test
