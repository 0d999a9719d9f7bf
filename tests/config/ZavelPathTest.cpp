#include "config/ZavelPath.h"

#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "config/ConfigTest.h"

namespace zavel::test {
namespace {

// The least that loads with 0.
Value::Dict leastTable(const std::string& below) {
  const auto place = [&](const char* name) { return below + "/" + name; };
  return Value::Dict{
      {"PreferencesFolder", place("Preferences")},
      {"DocumentsFolder", place("Documents")},
      {"TranslationStylePath", place("ZavelStyle")},
      {"PresetRSSPath", place("PresetRSS")},
      {"HelperPath", Value::Dict{{"PathTextTranslation", place("text")},
                                 {"PathKenkyuDictionary", place("kenkyu")},
                                 {"PathDRP2Text", place("drp")},
                                 {"PathSpellCheck2File", place("spell")}}},
      {"ModulePath", Value::Dict{{"PathKModule", place("k")},
                                 {"PathTEModule", place("te")},
                                 {"PathTSModule", place("ts")},
                                 {"PathTJModule", place("tj")},
                                 {"PathWEModule", place("we")},
                                 {"PathWJModule", place("wj")},
                                 {"PathUEModule", place("ue")}}},
  };
}

class ZavelPathTest : public ConfigTest {
 protected:
  ZavelPathTest() { zavelPathInitialize(); }
  ~ZavelPathTest() override {
    zavelPathTerminate();
    setEditionGeneral();
  }

  static void setEditionGeneral() { zavelPathLoadDictAndHelper(nullptr); }

  int load(const std::string& path, const Value& table) {
    writeTable(path, table);
    return zavelPathLoadDictAndHelper(path.c_str());
  }
};

using ZavelPathLoad = ZavelPathTest;
using ZavelPathEdition = ZavelPathTest;
using ZavelPathValues = ZavelPathTest;
using ZavelPathApplets = ZavelPathTest;
using ZavelPathCopy = ZavelPathTest;

// --- Life of the table ---

TEST_F(ZavelPathLoad, TheLeastTableLoads) {
  EXPECT_EQ(load(at("table"), leastTable(at("p"))), 0);
  EXPECT_STREQ(zavelPathTextEtoJEngine(), at("p/te").c_str());
}

TEST_F(ZavelPathLoad, WithoutATableThereIsNothing) {
  zavelPathTerminate();
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("table").c_str()), 1);
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
  EXPECT_EQ(zavelPathGetAppleyPath(1), nullptr);
  EXPECT_EQ(zavelPathCacheFolderURL(), nullptr);
}

TEST_F(ZavelPathLoad, TerminateTwiceIsHarmless) {
  zavelPathTerminate();
  zavelPathTerminate();
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
}

TEST_F(ZavelPathLoad, ASecondInitializeStartsEmpty) {
  load(at("table"), leastTable(at("p")));
  zavelPathInitialize();
  EXPECT_EQ(zavelPathTextEtoJEngine(), nullptr);
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
}

TEST_F(ZavelPathLoad, TheTablesPathIsHeldBeforeAndAfterALoad) {
  EXPECT_EQ(zavelPathDictAndHelper(), nullptr);
  load(at("table"), leastTable(at("p")));
  EXPECT_STREQ(zavelPathDictAndHelper(), at("table").c_str());
}

TEST_F(ZavelPathLoad, AMissingFileIsCode1) {
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("nothing").c_str()), 1);
  EXPECT_STREQ(zavelPathDictAndHelper(), at("nothing").c_str());
}

TEST_F(ZavelPathLoad, AFileThatIsNoPropertyListIsCode1) {
  writeText(at("broken.plist"), "<plist><dict><key>a");
  EXPECT_EQ(zavelPathLoadDictAndHelper(at("broken").c_str()), 1);
}

TEST_F(ZavelPathLoad, ATopLevelThatIsNoMapIsCode1) {
  EXPECT_EQ(load(at("list"), Value::Array{Value("PreferencesFolder")}), 1);
}

TEST_F(ZavelPathLoad, AnEmptyPathIsCode1) {
  EXPECT_EQ(zavelPathLoadDictAndHelper(""), 1);
}

TEST_F(ZavelPathLoad, AnEmptyMapIsTheCodeOfItsFirstKey) {
  EXPECT_EQ(load(at("empty"), Value::Dict()), 18);
}

TEST_F(ZavelPathLoad, NullTakesTheDefaultPathBelowTheRoot) {
  const std::string place = at("root/Library/Application Support/Tarnwick/ZavelLex");
  makeFolder(place);
  writeTable(place + "/ZavelPath", leastTable(at("p")));
  EXPECT_EQ(zavelPathLoadDictAndHelper(nullptr), 0);
  EXPECT_EQ(zavelPathDictAndHelper(), place + "/ZavelPath");
}

TEST_F(ZavelPathLoad, ATableMayBeLoadedAgainByItsOwnPath) {
  load(at("table"), leastTable(at("p")));
  EXPECT_EQ(zavelPathLoadDictAndHelper(zavelPathDictAndHelper()), 0);
  EXPECT_STREQ(zavelPathDictAndHelper(), at("table").c_str());
}

TEST_F(ZavelPathLoad, AnExistingFolderIsTakenAsItIs) {
  makeFolder(at("p/Preferences"));
  writeText(at("p/Preferences/kept"), "kept");
  EXPECT_EQ(load(at("table"), leastTable(at("p"))), 0);
  EXPECT_EQ(readText(at("p/Preferences/kept")), "kept");
}

TEST_F(ZavelPathLoad, ARequiredFolderThatCannotBeMadeEndsTheLoadAndKeepsEarlierKeys) {
  writeText(at("file"), "");
  Value::Dict table = leastTable(at("p"));
  table["DocumentsFolder"] = at("file/Documents");
  EXPECT_EQ(load(at("table"), table), 19);
  EXPECT_STREQ(zavelPathPreferencesFolderURL(), at("p/Preferences").c_str());
  EXPECT_EQ(zavelPathDocumentsFolderURL(), nullptr);
  EXPECT_EQ(zavelPathTranslationStylePathURL(), nullptr);
}

TEST_F(ZavelPathLoad, ASecondLoadReplacesTheValuesThatItReads) {
  load(at("one"), leastTable(at("1")));
  EXPECT_EQ(load(at("two"), leastTable(at("2"))), 0);
  EXPECT_STREQ(zavelPathTextEtoJEngine(), at("2/te").c_str());
  EXPECT_STREQ(zavelPathDictAndHelper(), at("two").c_str());
}

TEST_F(ZavelPathLoad, ASecondLoadThatEndsEarlyKeepsWhatItDidNotReach) {
  load(at("one"), leastTable(at("1")));
  Value::Dict table = leastTable(at("2"));
  table.erase("TranslationStylePath");
  EXPECT_EQ(load(at("two"), table), 20);
  EXPECT_STREQ(zavelPathPreferencesFolderURL(), at("2/Preferences").c_str());
  EXPECT_EQ(zavelPathTranslationStylePathURL(), nullptr);
  EXPECT_STREQ(zavelPathPresetRssPathURL(), at("1/PresetRSS").c_str());
}

TEST_F(ZavelPathLoad, AGroupThatTheSecondTableLacksKeepsItsValues) {
  Value::Dict table = leastTable(at("1"));
  table["ExamplePath"] = Value::Dict{{"ExampleArchives", at("archives")}};
  load(at("one"), table);
  EXPECT_EQ(load(at("two"), leastTable(at("2"))), 0);
  EXPECT_STREQ(zavelPathArchivesURL(), at("archives").c_str());
}

TEST_F(ZavelPathLoad, PlainNamesGoWithTheDictionaryMapTheyStandIn) {
  const Value::Dict whole = {
      {"SystemDictionaryEJName", at("a")},      {"SystemDictionaryEJ2Name", at("b")},
      {"ProperNounDictionaryEJName", at("c")},  {"EnhancedDictionaryEJFolder", at("d")},
      {"TechnicalDictionaryEJFolder", at("e")}, {"TechnicalDictionaryJEFolder", at("f")},
      {"LearningDictionaryFolder", at("g")},    {"UserDictionaryEJName", "mine"}};
  Value::Dict table = leastTable(at("1"));
  table["DictionaryPath"] = whole;
  EXPECT_EQ(load(at("one"), table), 0);
  EXPECT_STREQ(zavelPathUserDicEngName(), "mine");

  // Ends at the first dictionary, before the names: those of the former map are gone with it.
  table["DictionaryPath"] = Value::Dict{{"UserDictionaryEJName", "other"}};
  EXPECT_EQ(load(at("two"), table), 2);
  EXPECT_EQ(zavelPathUserDicEngName(), nullptr);

  table["DictionaryPath"] = whole;
  EXPECT_EQ(load(at("three"), table), 0);
  EXPECT_STREQ(zavelPathUserDicEngName(), "mine");
}

// --- Edition and number of styles ---

TEST_F(ZavelPathEdition, TheStyleCountIsAlwaysTen) {
  EXPECT_EQ(styleNum(), 10);
  zavelPathLoadDictAndHelper(nullptr);
  EXPECT_EQ(styleNum(), 10);
}

TEST_F(ZavelPathEdition, IsGeneralForAnOrdinaryPath) {
  zavelPathLoadDictAndHelper(at("table").c_str());
  EXPECT_EQ(zavelType(), 0);
}

TEST_F(ZavelPathEdition, IsMedicalWhenThePathHoldsTheWordAnywhere) {
  zavelPathLoadDictAndHelper("/nowhere/TarnwickMedical/ZavelPath");
  EXPECT_EQ(zavelType(), 1);
  zavelPathLoadDictAndHelper("/nowhere/table");
  EXPECT_EQ(zavelType(), 0);
  zavelPathLoadDictAndHelper("/nowhere/Paramedical/ZavelPath");
  EXPECT_EQ(zavelType(), 0);
  zavelPathLoadDictAndHelper("/nowhere/MedicalPath");
  EXPECT_EQ(zavelType(), 1);
}

TEST_F(ZavelPathEdition, ANullOrEmptyPathIsGeneralAgain) {
  zavelPathLoadDictAndHelper("/nowhere/Medical");
  zavelPathLoadDictAndHelper(nullptr);
  EXPECT_EQ(zavelType(), 0);
  zavelPathLoadDictAndHelper("/nowhere/Medical");
  zavelPathLoadDictAndHelper("");
  EXPECT_EQ(zavelType(), 0);
}

TEST_F(ZavelPathEdition, IsSettledThoughTheTableIsMissing) {
  EXPECT_EQ(zavelPathLoadDictAndHelper("/nowhere/Medical"), 1);
  EXPECT_EQ(zavelType(), 1);
}

TEST_F(ZavelPathEdition, StaysAfterTheTableIsGone) {
  zavelPathLoadDictAndHelper("/nowhere/Medical");
  zavelPathTerminate();
  EXPECT_EQ(zavelType(), 1);
}

TEST_F(ZavelPathEdition, TheStyleCountIsLoggedForAPathOnly) {
  zavelPathLoadDictAndHelper(nullptr);
  zavelPathLoadDictAndHelper("");
  EXPECT_TRUE(log().empty());
  zavelPathLoadDictAndHelper("/nowhere/table");
  ASSERT_EQ(log().size(), 1u);
  EXPECT_EQ(log()[0], "Syle Number=10");
}

// --- Reading one value ---

TEST_F(ZavelPathValues, ATildeFurtherAlongStaysAsItIs) {
  ZavelPath path;
  const Value map = Value::Dict{{"k", "/a/~/b"}};
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "k", false), "/a/~/b");
}

TEST_F(ZavelPathValues, OnlyTheFirstTildeIsReplaced) {
  ZavelPath path;
  const Value map = Value::Dict{{"k", "~/a/~/b"}};
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "k", false), at("home") + "/a/~/b");
}

TEST_F(ZavelPathValues, ATildeWithoutASlashIsAName) {
  ZavelPath path;
  const Value map = Value::Dict{{"user", "~someone/a"}, {"alone", "~"}};
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "user", false), "~someone/a");
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "alone", false), "~");
}

TEST_F(ZavelPathValues, AnAbsentKeyOrNoMapGivesNothing) {
  ZavelPath path;
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(Value::Dict(), "k", true), std::nullopt);
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(Value("text"), "k", true), std::nullopt);
}

TEST_F(ZavelPathValues, AnEmptyValueIsAPathButNoFolder) {
  ZavelPath path;
  const Value map = Value::Dict{{"k", ""}};
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "k", false), "");
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "k", true), std::nullopt);
}

TEST_F(ZavelPathValues, MakesAllFoldersOnTheWay) {
  ZavelPath path;
  const Value map = Value::Dict{{"k", "~/one/two/three"}};
  EXPECT_EQ(path.extractFromDictionaryCreateCopy(map, "k", true), at("home/one/two/three"));
  EXPECT_TRUE(isFolder(at("home/one/two/three")));
}

TEST_F(ZavelPathValues, TheTableItselfIsReadByKey) {
  writeTable(at("table"), Value::Dict{{"Own", "~/x"}});
  ZavelPath path;
  EXPECT_EQ(path.extractFromPlistCreateCopy("Own", false), std::nullopt);
  path.loadDictAndHelper(at("table").c_str());
  EXPECT_EQ(path.extractFromPlistCreateCopy("Own", false), at("home/x"));
  EXPECT_EQ(path.extractFromPlistCreateCopy("Other", false), std::nullopt);
}

// --- Sibling applications ---

struct AppletKeyRow {
  int applet;
  const char* key;
};

TEST_F(ZavelPathApplets, HaveTheKeysOfThePathTable) {
  const AppletKeyRow rows[] = {{1, "QN"},  {3, "OSL"},  {4, "VN"},  {5, "GX"},   {6, "FQ"},  {9, "QUIR"},
                               {15, "XJ"}, {16, "BLT"}, {17, "VX"}, {18, "DRN"}, {20, "WZ"}, {21, "YPH"}};
  ZavelPath path;
  for (const AppletKeyRow& row : rows) EXPECT_STREQ(path.appKeyWithEnum(row.applet), row.key);
}

TEST_F(ZavelPathApplets, OtherNumbersHaveNoKey) {
  ZavelPath path;
  for (int applet : {-1, 0, 2, 7, 8, 10, 11, 12, 13, 14, 19, 22, 100})
    EXPECT_EQ(path.appKeyWithEnum(applet), nullptr) << applet;
}

TEST_F(ZavelPathApplets, PathIsTheMapsOwnText) {
  Value::Dict table = leastTable(at("p"));
  table["ApplicationPath"] = Value::Dict{{"VX", "~/Browser"}, {"OSL", "/Applications/メモリ"}};
  EXPECT_EQ(load(at("table"), table), 0);
  EXPECT_STREQ(zavelPathGetAppleyPath(17), "~/Browser");
  EXPECT_STREQ(zavelPathGetAppleyPath(3), "/Applications/メモリ");
}

TEST_F(ZavelPathApplets, NumbersWithoutKeyAndKeysWithoutPathGiveNull) {
  Value::Dict table = leastTable(at("p"));
  table["ApplicationPath"] = Value::Dict{{"VX", "/b"}, {"HG", "/h"}, {"PXW", "/p"}, {"QN", 5}};
  load(at("table"), table);
  for (int applet : {2, 7, 8, 19, 0, 22, 4, 1}) EXPECT_EQ(zavelPathGetAppleyPath(applet), nullptr) << applet;
}

TEST_F(ZavelPathApplets, WithoutAMapThereIsNoPath) {
  EXPECT_EQ(zavelPathGetAppleyPath(17), nullptr);
  load(at("table"), leastTable(at("p")));
  EXPECT_EQ(zavelPathGetAppleyPath(17), nullptr);
}

TEST_F(ZavelPathApplets, StandThoughTheLoadEndedEarly) {
  EXPECT_EQ(load(at("table"), Value::Dict{{"ApplicationPath", Value::Dict{{"VX", "/b"}}}}), 18);
  EXPECT_STREQ(zavelPathGetAppleyPath(17), "/b");
}

TEST_F(ZavelPathApplets, TheMapIsReadOnFirstUseAndThenKept) {
  Value::Dict table = leastTable(at("p"));
  table["ApplicationPath"] = Value::Dict{{"VX", "/first"}};
  load(at("one"), table);
  table["ApplicationPath"] = Value::Dict{{"VX", "/second"}};
  load(at("two"), table);
  EXPECT_STREQ(zavelPathGetAppleyPath(17), "/second");
  table["ApplicationPath"] = Value::Dict{{"VX", "/third"}};
  load(at("three"), table);
  EXPECT_STREQ(zavelPathGetAppleyPath(17), "/second");
}

// --- Copying a file ---

TEST_F(ZavelPathCopy, RunsTheCopyCommandWithBothPaths) {
  platform.fakeTools.answer = {true, 0, ""};
  EXPECT_TRUE(ZavelPath().fileCopyAndRename("/a/b", "/c/d"));
  ASSERT_EQ(platform.fakeTools.programs, std::vector<std::string>{"/bin/cp"});
  EXPECT_EQ(platform.fakeTools.arguments[0], (std::vector<std::string>{"/a/b", "/c/d"}));
}

TEST_F(ZavelPathCopy, SucceedsOnlyWithStatus0) {
  platform.fakeTools.answer = {true, 1, ""};
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("/a", "/b"));
  platform.fakeTools.answer = {false, 0, ""};
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("/a", "/b"));
}

TEST_F(ZavelPathCopy, PartsThePathsAtTheirBlanks) {
  platform.fakeTools.answer = {true, 0, ""};
  ZavelPath().fileCopyAndRename("/a b\tc", " /d ");
  ASSERT_EQ(platform.fakeTools.arguments.size(), 1u);
  EXPECT_EQ(platform.fakeTools.arguments[0], (std::vector<std::string>{"/a", "b", "c", "/d"}));
}

TEST_F(ZavelPathCopy, AnEmptyPathIsRefused) {
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("", "/b"));
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("/a", ""));
  EXPECT_TRUE(platform.fakeTools.programs.empty());
}

TEST_F(ZavelPathCopy, APathIsAtMost1023Bytes) {
  platform.fakeTools.answer = {true, 0, ""};
  const std::string longest = "/" + std::string(1022, 'a');
  EXPECT_TRUE(ZavelPath().fileCopyAndRename(longest, longest));
  EXPECT_FALSE(ZavelPath().fileCopyAndRename(longest + "a", "/b"));
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("/b", longest + "a"));
}

TEST_F(ZavelPathCopy, WhatAShellWouldActOnIsRefused) {
  platform.fakeTools.answer = {true, 0, ""};
  for (const char* path :
       {"/a;b",  "/a|b",  "/a&b", "/a>b", "/a<b", "/a$b",   "/a`b", "/a(b", "/a)b",  "/a\"b", "/a'b",
        "/a\\b", "/a\nb", "/a*",  "/a?",  "/[a]", "/{a,b}", "~/a",  "#a",   "/a #b", "/a ~/b"}) {
    EXPECT_FALSE(ZavelPath().fileCopyAndRename(path, "/c")) << path;
    EXPECT_FALSE(ZavelPath().fileCopyAndRename("/c", path)) << path;
  }
  EXPECT_FALSE(ZavelPath().fileCopyAndRename(std::string("/a\0b", 4), "/c"));
  EXPECT_TRUE(platform.fakeTools.programs.empty());
}

TEST_F(ZavelPathCopy, WhatTheCommandWouldTakeForAnOptionIsRefused) {
  platform.fakeTools.answer = {true, 0, ""};
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("-r", "/c"));
  EXPECT_FALSE(ZavelPath().fileCopyAndRename("/a --target-directory=/c", "/b"));
  EXPECT_TRUE(platform.fakeTools.programs.empty());
}

TEST_F(ZavelPathCopy, SignsThatMeanNothingThereArePassedOn) {
  platform.fakeTools.answer = {true, 0, ""};
  for (const char* path : {"/a#b", "/a~b", "/a-b", "/a=b", "/a%b", "/a,b", "/a@b:c!", "/辞書/ファイル"})
    EXPECT_TRUE(ZavelPath().fileCopyAndRename(path, "/c")) << path;
}

TEST_F(ZavelPathCopy, CopiesARealFile) {
  platform.realTools = true;
  writeText(at("from"), "content");
  EXPECT_TRUE(ZavelPath().fileCopyAndRename(at("from"), at("to")));
  EXPECT_EQ(readText(at("to")), "content");
  EXPECT_EQ(readText(at("from")), "content");
}

TEST_F(ZavelPathCopy, ARealFileWithABlankInItsPathIsNotCopied) {
  platform.realTools = true;
  writeText(at("two words"), "content");
  EXPECT_FALSE(ZavelPath().fileCopyAndRename(at("two words"), at("to")));
  EXPECT_FALSE(exists(at("to")));
  writeText(at("from"), "content");
  EXPECT_FALSE(ZavelPath().fileCopyAndRename(at("from"), at("two places")));
  EXPECT_FALSE(exists(at("two places")));
}

TEST_F(ZavelPathCopy, AMissingFileFails) {
  platform.realTools = true;
  EXPECT_FALSE(ZavelPath().fileCopyAndRename(at("nothing"), at("to")));
}

// --- The class ---

TEST(ZavelPathClass, IsABaseClassAndOwnsWhatItHolds) {
  EXPECT_TRUE(std::has_virtual_destructor_v<ZavelPath>);
  EXPECT_FALSE(std::is_copy_constructible_v<ZavelPath>);
}

}  // namespace
}  // namespace zavel::test
