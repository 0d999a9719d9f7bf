#include "config/WorkPaths.h"

#include <filesystem>
#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/WorkPathTable.h"
#include "config/ZavelPath.h"
#include "config/ZavelStyle.h"

namespace zavel::test {
namespace {

// As the process begins with it, ahead of any test.
const int kAppletAtStart = ownedApplet;

class WorkPaths : public ConfigTest {
 protected:
  WorkPaths() {
    ownedApplet = 6;
    zavelPathInitialize();
  }
  ~WorkPaths() override {
    zavelPathTerminate();
    zavelStyleTerminate();
    ownedApplet = 6;
  }

  Value table() const {
    return defaultPathTable({at("data"), at("cache"), at("preferences"), at("documents"), "/helpers",
                             "https://s/", "https://h/"});
  }

  void load(const Value& pathTable) {
    writeTable(at("table"), pathTable);
    zavelPathLoadDictAndHelper(at("table").c_str());
    zavelStyleInitialize();
  }

  void loadWithEngine(const std::string& path) {
    Value changed = table();
    Value::Dict& modules = *(*changed.asDict())["ModulePath"].asDict();
    modules["PathTEModule"] = path;
    load(changed);
  }

  std::string engineAt(const std::string& path, uint32_t systemVersion) {
    loadWithEngine(path);
    platform.fakeBundle.version = systemVersion;
    setWorkPaths();
    return gEJEnginePath;
  }
};

// --- ownedApplet ---

TEST_F(WorkPaths, TheApplicationIsTheCorrespondenceClientAtFirst) {
  EXPECT_EQ(kAppletAtStart, 6);
  checkOwnApplet();
  EXPECT_EQ(ownedApplet, 6);
}

TEST_F(WorkPaths, TheApplicationIsToldByItsSignature) {
  const std::vector<std::pair<const char*, int>> rows = {
      {"zQN8", 1}, {"yQN8", 1}, {"zOS8", 3}, {"yOS8", 3},  {"zVN8", 4},  {"yVN8", 4},
      {"zGX8", 5}, {"zFQ8", 6}, {"yFQ8", 6}, {"zVX8", 17}, {"yVX8", 17},
  };
  for (const auto& [signature, applet] : rows) {
    ownedApplet = 99;
    platform.fakeBundle.signature = signature;
    checkOwnApplet();
    EXPECT_EQ(ownedApplet, applet) << signature;
  }
}

TEST_F(WorkPaths, AnyOtherSignatureLeavesItAsItIs) {
  for (const char* signature : {"", "yGX8", "zWZ8", "yWZ8", "ZQN8", "zQN", "zQN88", "zCV7"}) {
    ownedApplet = 4;
    platform.fakeBundle.signature = signature;
    checkOwnApplet();
    EXPECT_EQ(ownedApplet, 4) << signature;
  }
}

// --- The cache folder ---

TEST_F(WorkPaths, TwoApplicationsHaveACacheFolderOfTheirOwn) {
  load(table());
  for (int applet : {0, 1, 2, 3, 4, 5, 7, 9, 15, 16, 18, 20, 21}) {
    ownedApplet = applet;
    EXPECT_EQ(chooseCacheFolder(), at("cache")) << applet;
  }
  ownedApplet = 6;
  EXPECT_EQ(chooseCacheFolder(), at("cache/fq"));
  ownedApplet = 17;
  EXPECT_EQ(chooseCacheFolder(), at("cache/vx"));
}

TEST_F(WorkPaths, TheCacheFolderIsMadeWithItsParents) {
  load(table());
  ASSERT_TRUE(isFolder(at("cache/fq")));
  std::filesystem::remove_all(at("cache"));
  EXPECT_EQ(chooseCacheFolder(), at("cache/fq"));
  EXPECT_TRUE(isFolder(at("cache/fq")));
}

TEST_F(WorkPaths, WithoutACacheFolderTheWorkIsDoneInTmp) {
  EXPECT_EQ(chooseCacheFolder(), "/tmp");  // no table
  load(table());
  std::filesystem::remove_all(at("cache"));
  writeText(at("cache"), "a file");
  EXPECT_EQ(chooseCacheFolder(), "/tmp");
  ownedApplet = 1;
  EXPECT_EQ(chooseCacheFolder(), "/tmp");
  setWorkPaths();
  EXPECT_EQ(gSourcePath, "/tmp/SourceFile.txt");
  EXPECT_EQ(gResultPath, "/tmp/ResultFile.plist");
  EXPECT_EQ(readText(at("cache")), "a file");
}

// --- The six paths ---

TEST_F(WorkPaths, StandWhereTheTableSays) {
  load(table());
  setWorkPaths();
  EXPECT_EQ(gSourcePath, at("cache/fq/SourceFile.txt"));
  EXPECT_EQ(gResultPath, at("cache/fq/ResultFile.plist"));
  EXPECT_EQ(gDictPath, at("preferences/ZP.plist"));
  EXPECT_EQ(gEJEnginePath, "/helpers/zavel-text-ej");
  EXPECT_EQ(gJEEnginePath, "/helpers/zavel-text-je");
  EXPECT_EQ(gStylePath, at("root/Library/Application Support/Tarnwick/ZavelLex/ZavelStyle2008.plist"));
}

TEST_F(WorkPaths, ALaterCallSettlesThemAnew) {
  load(table());
  setWorkPaths();
  ownedApplet = 17;
  writeText(at("preferences/ZavelStyle.plist"), "");
  setWorkPaths();
  EXPECT_EQ(gSourcePath, at("cache/vx/SourceFile.txt"));
  EXPECT_EQ(gStylePath, at("preferences/ZavelStyle.plist"));
}

TEST_F(WorkPaths, TheUsersStyleFileCountsWhenItIsThereAtTheStart) {
  load(table());
  setWorkPaths();
  writeText(at("preferences/ZavelStyle.plist"), "");
  EXPECT_EQ(gStylePath, at("root/Library/Application Support/Tarnwick/ZavelLex/ZavelStyle2008.plist"));
}

TEST_F(WorkPaths, MakesThePreferencesAndLearningFolders) {
  load(table());
  std::filesystem::remove_all(at("preferences"));
  std::filesystem::remove_all(at("data"));
  setWorkPaths();
  EXPECT_TRUE(isFolder(at("preferences")));
  EXPECT_TRUE(isFolder(at("data/dictionaries/learning")));
}

TEST_F(WorkPaths, WhatTheTableLacksIsEmpty) {
  setWorkPaths();
  EXPECT_EQ(gSourcePath, "/tmp/SourceFile.txt");
  EXPECT_EQ(gDictPath, "");
  EXPECT_EQ(gEJEnginePath, "");
  EXPECT_EQ(gJEEnginePath, "");
  EXPECT_EQ(gStylePath, "");
}

// --- Engines of old systems ---

TEST_F(WorkPaths, OldSystemsHaveAnEngineOfTheirOwn) {
  EXPECT_EQ(engineAt("/E/Text.app", 0x105F), "/E/Text105.app");
  EXPECT_EQ(engineAt("/E/Text.app", 0x1060), "/E/Text.app");
  EXPECT_EQ(engineAt("/E/Text.app", 0x1049), "/E/Text105.app");
  EXPECT_EQ(engineAt("/E/Text.app", 0), "/E/Text105.app");
}

TEST_F(WorkPaths, TheMarkStandsBeforeTheLastApp) {
  EXPECT_EQ(engineAt("/A.app/Contents/B.app/TE", 0x1050), "/A.app/Contents/B105.app/TE");
  EXPECT_EQ(engineAt("/A.app/Contents/TE", 0x1050), "/A105.app/Contents/TE");
  EXPECT_EQ(engineAt("/E/x.apple", 0x1050), "/E/x105.apple");
}

TEST_F(WorkPaths, TheMarkStandsBehindAPathWithoutApp) {
  EXPECT_EQ(engineAt("/helpers/zavel-text-ej", 0x105F), "/helpers/zavel-text-ej105");
  EXPECT_EQ(engineAt("/E/x.App", 0x105F), "/E/x.App105");
}

TEST_F(WorkPaths, TheOtherEngineIsTheSameOnEverySystem) {
  platform.fakeBundle.version = 0x1040;
  load(table());
  setWorkPaths();
  EXPECT_EQ(gJEEnginePath, "/helpers/zavel-text-je");
}

TEST_F(WorkPaths, AnEngineThatTheTableLacksGetsNoMark) {
  platform.fakeBundle.version = 0x1040;
  setWorkPaths();
  EXPECT_EQ(gEJEnginePath, "");
}

}  // namespace
}  // namespace zavel::test
