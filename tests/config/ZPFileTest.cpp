#include "config/ZPFile.h"

#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/WorkPathTable.h"
#include "config/WorkPaths.h"
#include "config/ZavelPath.h"
#include "platform/PropertyLists.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

class ZPFile : public ConfigTest {
 protected:
  ZPFile() {
    zavelPathInitialize();
    writeTable(at("table"),
               defaultPathTable({"/d", at("cache"), at("preferences"), "/docs", "/helpers", "", ""}));
    loadTable(at("table"));
    gStylePath = at("styles.plist");
    gDictPath = at("ZP.plist");
    clearLog();
  }
  ~ZPFile() override { zavelPathTerminate(); }

  // The folders of the table can't all be made below "/d", and needn't be: what is only named is read first.
  void loadTable(const std::string& path) {
    Value table;
    ASSERT_TRUE(platform.propertyLists().readFile(path + ".plist", &table));
    Value::Dict& top = *table.asDict();
    top["DocumentsFolder"] = at("docs");
    Value::Dict& dictionaries = *top["DictionaryPath"].asDict();
    dictionaries["LearningDictionaryFolder"] = at("learn");
    dictionaries["UserDictionaryFolder"] = at("user");
    dictionaries["UserOSLFolder"] = at("osl");
    writeTable(path, table);
    ASSERT_EQ(zavelPathLoadDictAndHelper(path.c_str()), 0);
  }

  void writeStyles(const Value::Array& list) { writeTable(at("styles"), Value::Dict{{"Style", list}}); }

  static Value styleWith(Value::Array technical) {
    return Value::Dict{{"ID", 100}, {"EJ", Value::Dict{{"TD", std::move(technical)}}}};
  }

  void writeInstalled(const Value& list) {
    const std::string installed = at("root/Library/Application Support/Tarnwick/TWDictionary");
    makeFolder(installed);
    writeTable(installed + "/TRInfo", list);
  }

  Value written() {
    Value file;
    EXPECT_TRUE(platform.propertyLists().readFile(at("ZP.plist"), &file));
    return file;
  }

  // "path > learning" of the technical dictionaries that are written for these names.
  std::vector<std::string> technical(const Value::Array& names) {
    writeStyles({styleWith(names)});
    EXPECT_TRUE(saveZP(0));
    std::vector<std::string> entries;
    const Value file = written();
    for (const Value& entry : *file.find("TechnicalDictionaryEJ")->asArray())
      entries.push_back(entry.find("Path")->string() + " > " + entry.find("Learning")->string());
    return entries;
  }
  using Entries = std::vector<std::string>;
};

Value entry(const std::string& path, const std::string& learning) {
  return Value::Dict{{"Path", path}, {"Learning", learning}};
}

TEST_F(ZPFile, NamesEveryDictionary) {
  writeStyles({styleWith({"compdic"})});
  EXPECT_TRUE(saveZP(0));
  const Value expected = Value::Dict{
      {"UserDictionaryEJ", Value::Array{entry(at("docs/UserDictionaryEJ"), "")}},
      {"UserOslEJ", Value::Array{entry(at("docs/UserMemoryEJ"), "")}},
      {"TechnicalDictionaryEJ",
       Value::Array{entry("/d/dictionaries/technical/EJ/compdic", at("learn/compdic"))}},
      {"EnhancedDictionaryEJ", Value::Array{}},
      {"SystemDictionaryEJ",
       Value::Array{entry("/d/dictionaries/system/ProperNounEJ", at("learn/ProperNounEJ")),
                    entry("/d/dictionaries/system/EJ", at("learn/EJ")),
                    entry("/d/dictionaries/system/EJ2", at("learn/EJ2"))}},
  };
  EXPECT_EQ(written(), expected);
  EXPECT_TRUE(log().empty());
  EXPECT_EQ(readText(at("ZP.plist")).substr(0, 5), "<?xml");
}

TEST_F(ZPFile, TheNumberIsAPlaceInTheListAndNoId) {
  writeStyles({styleWith({"first"}), styleWith({"second"})});
  ASSERT_TRUE(saveZP(1));
  const Value file = written();
  EXPECT_EQ((*file.find("TechnicalDictionaryEJ")->asArray())[0].find("Path")->string(),
            "/d/dictionaries/technical/EJ/second");
  EXPECT_FALSE(saveZP(100));
}

// --- Technical dictionaries that come one by one ---

TEST_F(ZPFile, WithoutAListOfInstalledOnesAllStandInTheFolder) {
  EXPECT_EQ(technical({"a", "b.sdej"}),
            (Entries{"/d/dictionaries/technical/EJ/a > " + at("learn/a"),
                     "/d/dictionaries/technical/EJ/b.sdej > " + at("learn/b.sdej")}));
  writeInstalled(Value::Dict{{"Other", Value::Array{"/x/b.sdej"}}});
  EXPECT_EQ(technical({"b.sdej"}), (Entries{"/d/dictionaries/technical/EJ/b.sdej > " + at("learn/b.sdej")}));
}

TEST_F(ZPFile, InstalledOnesAreFoundByTheFirstPathThatHoldsTheName) {
  writeInstalled(Value::Dict{{"TRPath", Value::Array{"/t/law.sdej", "/t/old law.sdej", 5, "/t/tea.SDEJ"}}});
  EXPECT_EQ(technical({"law.sdej"}), (Entries{"/t/law.sdej > " + at("learn/law.sdej")}));
  EXPECT_EQ(technical({"old law.sdej"}), (Entries{"/t/old law.sdej > " + at("learn/old law.sdej")}));
  EXPECT_EQ(technical({"aw.sdej"}), (Entries{"/t/law.sdej > " + at("learn/aw.sdej")}));  // anywhere in it
  EXPECT_EQ(technical({"tea.SDEJ"}), (Entries{"/t/tea.SDEJ > " + at("learn/tea.SDEJ")}));
}

TEST_F(ZPFile, AnInstalledOneThatNoPathHoldsIsLeftOut) {
  writeInstalled(Value::Dict{{"TRPath", Value::Array{"/t/law.sdej"}}});
  EXPECT_EQ(technical({"tea.sdej", "Law.sdej", "law.SDEJ", "a"}),
            (Entries{"/d/dictionaries/technical/EJ/a > " + at("learn/a")}));
  writeInstalled(Value::Dict{{"TRPath", Value::Array{}}});
  EXPECT_EQ(technical({"law.sdej"}), Entries{});
}

TEST_F(ZPFile, TheLastExtensionDecides) {
  writeInstalled(Value::Dict{{"TRPath", Value::Array{"/t/a.b.sdej", "/t/c.sdej.x", "/t/sdej", "/t/.sdej"}}});
  EXPECT_EQ(technical({"a.b.sdej", "c.sdej.x", "sdej", ".sdej", "x.sde"}),
            (Entries{"/t/a.b.sdej > " + at("learn/a.b.sdej"),
                     "/d/dictionaries/technical/EJ/c.sdej.x > " + at("learn/c.sdej.x"),
                     "/d/dictionaries/technical/EJ/sdej > " + at("learn/sdej"),
                     "/d/dictionaries/technical/EJ/.sdej > " + at("learn/.sdej"),
                     "/d/dictionaries/technical/EJ/x.sde > " + at("learn/x.sde")}));
}

TEST_F(ZPFile, ANameThatIsNoTextAndAMissingListAddNothing) {
  EXPECT_EQ(technical({5, "a"}), (Entries{"/d/dictionaries/technical/EJ/a > " + at("learn/a")}));
  writeStyles({Value::Dict{{"EJ", Value::Dict{}}}, Value::Dict{{"EJ", Value::Dict{{"TD", "a"}}}}});
  for (int style : {0, 1}) {
    EXPECT_TRUE(saveZP(style));
    EXPECT_EQ(*written().find("TechnicalDictionaryEJ"), Value(Value::Array{}));
  }
}

// --- Failures ---

TEST_F(ZPFile, AStyleFileThatCannotBeReadIsLoggedByItsPath) {
  writeText(at("ZP.plist"), "old");
  EXPECT_FALSE(saveZP(0));
  writeText(at("styles.plist"), "damaged");
  EXPECT_FALSE(saveZP(0));
  EXPECT_EQ(log(), std::vector<std::string>(2, "Error [" + at("styles.plist") + "]"));
  EXPECT_EQ(readText(at("ZP.plist")), "old");
}

TEST_F(ZPFile, AStyleThatIsNotThereIsLoggedLikeAnUnreadableFile) {
  writeStyles({styleWith({}), Value::Dict{{"JE", Value::Dict{}}}, "no map", Value::Dict{{"EJ", "no map"}}});
  for (int style : {-1, 1, 2, 3, 4, 2147483647, -2147483647 - 1}) EXPECT_FALSE(saveZP(style)) << style;
  writeTable(at("styles"), Value::Dict{{"Style", "no list"}});
  EXPECT_FALSE(saveZP(0));
  writeTable(at("styles"), Value::Array{});
  EXPECT_FALSE(saveZP(0));
  EXPECT_EQ(log(), std::vector<std::string>(9, "Error [" + at("styles.plist") + "]"));
  EXPECT_FALSE(exists(at("ZP.plist")));
}

TEST_F(ZPFile, AFileThatCannotBeWrittenIsLoggedByItsPath) {
  writeStyles({styleWith({})});
  gDictPath = at("missing/ZP.plist");
  EXPECT_FALSE(saveZP(0));
  EXPECT_EQ(log(), (std::vector<std::string>{"Error [" + at("missing/ZP.plist") + "]"}));
}

TEST_F(ZPFile, WithoutAPathTableTheEntriesStayEmpty) {
  zavelPathTerminate();
  writeStyles({styleWith({"a"})});
  EXPECT_TRUE(saveZP(0));
  const Value expected = Value::Dict{
      {"UserDictionaryEJ", Value::Array{entry("", "")}},
      {"UserOslEJ", Value::Array{entry("", "")}},
      {"TechnicalDictionaryEJ", Value::Array{entry("", "")}},
      {"EnhancedDictionaryEJ", Value::Array{}},
      {"SystemDictionaryEJ", Value::Array{entry("", ""), entry("", ""), entry("", "")}},
  };
  EXPECT_EQ(written(), expected);
}

TEST_F(ZPFile, AFaultOfTheDiskLeavesTheOldFileOrTheNewOne) {
  writeStyles({styleWith({"a"})});
  ASSERT_TRUE(saveZP(0));
  const Value fresh = written();
  FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    writeText(at("ZP.plist"), "old");
    disk.failAt(n);
    const bool saved = saveZP(0);
    const long faults = disk.faults();
    const std::string failedAt = faults ? disk.history()[static_cast<size_t>(n - 1)] : "";
    disk.failAt(0);
    if (saved) {
      // No fault, or one while the list of installed dictionaries is looked for, which isn't there anyway.
      EXPECT_EQ(written(), fresh) << n;
    } else if (readText(at("ZP.plist")) != "old") {
      EXPECT_EQ(written(), fresh) << n;  // in its place, but perhaps not for ever
      EXPECT_EQ(failedAt, "syncFolder " + folder) << n;
    }
    if (faults == 0) break;
  }
  EXPECT_GT(n, 6);
  EXPECT_EQ(written(), fresh);
}

}  // namespace
}  // namespace zavel::test
