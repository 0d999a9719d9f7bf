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
