#include "dicttool/DictionaryList.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

using Paths = std::vector<std::string>;

class DictionaryListTest : public ::testing::Test {
 protected:
  DictionaryListTest() {
    for (const char* name : {"own", "system", "zp"}) std::filesystem::create_directory(folder_.file(name));
  }

  void plist(const std::string& name, const Value& value) {
    ASSERT_TRUE(platform().propertyLists().writeFile(folder_.file(name), value, PropertyListFormat::kXml));
  }
  Value entry(const std::string& name) { return Value::Dict{{"Path", folder_.file(name)}, {"Learning", ""}}; }
  DictionaryList list(Direction direction) {
    return DictionaryList(direction, {folder_.file("own"), folder_.file("system")});
  }
  Paths below(const Paths& paths) const {
    Paths short_;
    for (std::string path : paths) {
      for (size_t at; (at = path.find(folder_.prefix())) != std::string::npos;) {
        path.erase(at, folder_.prefix().size());
      }
      short_.push_back(path);
    }
    return short_;
  }

  test::TempFolder folder_;
};

TEST_F(DictionaryListTest, TakesTheParameterFilesDictionaries) {
  for (const char* name : {"zp/tech.index", "zp/proper.index", "zp/system.index"}) folder_.write(name, "");
  plist("ZP.plist", Value::Dict{
                        {"UserDictionaryEJ", Value::Array{entry("zp/user")}},  // of another kind
                        {"TechnicalDictionaryEJ", Value::Array{entry("zp/tech.sdej"), entry("zp/tech")}},
                        {"EnhancedDictionaryEJ", Value::Array()},
                        {"SystemDictionaryEJ", Value::Array{entry("zp/proper"), entry("zp/system"), "no map",
                                                            entry("zp/named.dict.dz")}},
                        {"UserOslEJ", Value::Array{entry("zp/proper")}},
                        {"SystemDictionaryJE", Value::Array{entry("zp/system")}},
                    });
  DictionaryList english = list(Direction::kEnglish);
  EXPECT_FALSE(english.addParameterFile(folder_.file("ZP.plist")));
  EXPECT_EQ(below(english.indexes()),
            (Paths{"zp/tech.index", "zp/proper.index", "zp/system.index", "zp/named.index"}));
  DictionaryList japanese = list(Direction::kJapanese);
  EXPECT_FALSE(japanese.addParameterFile(folder_.file("ZP.plist")));
  EXPECT_EQ(below(japanese.indexes()), Paths{"zp/system.index"});
}

TEST_F(DictionaryListTest, RefusesAParameterFileThatItCantRead) {
  DictionaryList english = list(Direction::kEnglish);
  Failure failure = english.addParameterFile(folder_.file("none.plist"));
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(below({failure.message}), Paths{"the parameter file none.plist is missing"});
  folder_.write("bad.plist", "<plist><dict>");
  failure = english.addParameterFile(folder_.file("bad.plist"));
  EXPECT_EQ(failure.status, 5);
  EXPECT_EQ(below({failure.message}), Paths{"the parameter file bad.plist can't be read as a property list"});
}

TEST_F(DictionaryListTest, TakesTheDistributionsAndTheUsersDictionariesByName) {
  for (const char* name :
       {"system/freedict-eng-jpn.index", "system/freedict-jpn-eng.index", "system/freedict-eng-deu.index",
        "own/enamdict.index", "own/compdic.index", "own/x.dict"}) {
    folder_.write(name, "");
  }
  DictionaryList english = list(Direction::kEnglish);
  english.addConfiguration();
  EXPECT_EQ(below(english.indexes()),
            (Paths{"system/freedict-eng-jpn.index", "own/compdic.index", "own/enamdict.index"}));
  DictionaryList japanese = list(Direction::kJapanese);
  japanese.addConfiguration();
  EXPECT_EQ(below(japanese.indexes()),
            (Paths{"system/freedict-jpn-eng.index", "own/compdic.index", "own/enamdict.index"}));
  EXPECT_EQ(japanese.complaints(), Paths{});
}

TEST_F(DictionaryListTest, MissesTheIndexOfATextThatIsMadeAtSetUp) {
  for (const char* name : {"own/compdic.index", "own/compdic.dict", "own/enamdict.dict", "own/x.dict"}) {
    folder_.write(name, "");
  }
  DictionaryList japanese = list(Direction::kJapanese);
  japanese.addConfiguration();
  EXPECT_EQ(below(japanese.indexes()), (Paths{"own/compdic.index", "own/enamdict.index"}));
}

TEST_F(DictionaryListTest, FollowsTheUsersConfiguration) {
  for (const char* name : {"own/a.index", "own/b.index", "zp/c.index"}) folder_.write(name, "");
  plist("own/dictionaries.plist", Value::Dict{{"EJ", Value::Array{"b", folder_.file("zp/c"), "missing"}}});
  DictionaryList english = list(Direction::kEnglish);
  english.addConfiguration();
  EXPECT_EQ(below(english.indexes()), (Paths{"own/b.index", "zp/c.index"}));
  EXPECT_EQ(below(english.complaints()),
            Paths{"own/missing, named in own/dictionaries.plist, has no index file next to it"});
  DictionaryList japanese = list(Direction::kJapanese);  // which it doesn't speak of
  japanese.addConfiguration();
  EXPECT_EQ(below(japanese.indexes()), (Paths{"own/a.index", "own/b.index"}));
}

TEST_F(DictionaryListTest, GoesOnWithoutADamagedConfiguration) {
  folder_.write("own/a.index", "");
  folder_.write("own/dictionaries.plist", "nonsense");
  DictionaryList english = list(Direction::kEnglish);
  english.addConfiguration();
  EXPECT_EQ(below(english.indexes()), Paths{"own/a.index"});
  EXPECT_EQ(below(english.complaints()), Paths{"own/dictionaries.plist can't be read as a property list; all "
                                               "dictionaries are searched, in the usual order"});
}

TEST_F(DictionaryListTest, TakesTheStylesDictionariesFirst) {
  for (const char* name : {"own/a.index", "own/b.index", "outside.index"}) folder_.write(name, "");
  const Value je = Value::Dict{{"TD", Value::Array{"b.sdje", "none", "../outside", 5}}};
  plist("styles.plist", Value::Dict{{"Style", Value::Array{Value::Dict(), Value::Dict{{"JE", je}}}}});
  DictionaryList japanese = list(Direction::kJapanese);
  japanese.addStyle(folder_.file("styles.plist"), 1);
  japanese.addConfiguration();
  EXPECT_EQ(below(japanese.indexes()), (Paths{"own/b.index", "own/a.index"}));
  DictionaryList english = list(Direction::kEnglish);
  english.addStyle(folder_.file("styles.plist"), 1);
  EXPECT_EQ(english.indexes(), Paths{});
  EXPECT_EQ(english.complaints(), Paths{});
}

TEST_F(DictionaryListTest, GoesOnWithoutAStyle) {
  DictionaryList english = list(Direction::kEnglish);
  english.addStyle(folder_.file("none.plist"), 0);
  plist("styles.plist", Value::Dict{{"Style", Value::Array{Value::Dict()}}});
  english.addStyle(folder_.file("styles.plist"), 1);
  english.addStyle(folder_.file("styles.plist"), -1);
  EXPECT_EQ(below(english.complaints()),
            (Paths{"the style file none.plist can't be read; its dictionaries are left out",
                   "the style file styles.plist has no style 1; its dictionaries are left out",
                   "the style file styles.plist has no style -1; its dictionaries are left out"}));
}

}  // namespace
}  // namespace zavel::dicttool
