#include "config/ZFWPlistController.h"

#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/ZavelPath.h"
#include "platform/PropertyLists.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

constexpr char kFile[] = "home/Library/Preferences/local.test.ZavelLex_ZavelLex.plist";

class ZFWPlist : public ConfigTest {
 protected:
  ZFWPlist() { zavelPathLoadDictAndHelper(""); }
  ~ZFWPlist() override { zavelPathLoadDictAndHelper(""); }

  // What stands in the file, read past the store; null when it can't be read.
  Value content() {
    Value file;
    return platform.propertyLists().readFile(at(kFile), &file) ? file : Value();
  }

  void writeStore(const Value& value) {
    makeFolder(at("home/Library/Preferences"));
    writeText(at(kFile), platform.propertyLists().serialize(value, PropertyListFormat::kXml));
  }
};

TEST_F(ZFWPlist, StandsInThePreferencesByEditionAndLibrary) {
  EXPECT_EQ(ZFWPlistController().path(), at(kFile));
  zavelPathLoadDictAndHelper("/Medical");
  EXPECT_EQ(ZFWPlistController().path(), at("home/Library/Preferences/local.test.ZavelLex_Medical.plist"));
}

TEST_F(ZFWPlist, BeginsEmptyWithTheFoldersAboveIt) {
  const ZFWPlistController store;
  EXPECT_EQ(content(), Value(Value::Dict()));
  EXPECT_EQ(store.damagedFile(), "");
  EXPECT_TRUE(store.objectForKey(ZFWDictTabKey).isNull());
}

TEST_F(ZFWPlist, GivesBackWhatWasSet) {
  ZFWPlistController store;
  const Value map = Value::Dict{{ZFWDictTabAppletItem, 3}, {"日本", Value::Array{"x", true, 2.5}}};
  EXPECT_TRUE(store.setObject(map, ZFWDictTabKey));
  EXPECT_TRUE(store.setObject("single", ZFWRssKey));
  EXPECT_EQ(store.objectForKey(ZFWDictTabKey), map);
  EXPECT_EQ(store.objectForKey(ZFWRssKey), Value("single"));
  EXPECT_EQ(content(), Value(Value::Dict{{"ZFWDictTabKey", map}, {"ZFWRssKey", "single"}}));
  EXPECT_EQ(ZFWPlistController().objectForKey(ZFWDictTabKey), map);
}

TEST_F(ZFWPlist, AStoreThatIsThereIsKept) {
  writeStore(Value::Dict{{"a", 1}});
  ZFWPlistController store;
  EXPECT_EQ(store.objectForKey("a"), Value(1));
  EXPECT_TRUE(store.setObject(2, "b"));
  EXPECT_EQ(content(), Value(Value::Dict{{"a", 1}, {"b", 2}}));
}

TEST_F(ZFWPlist, TwoStoresSeeEachOthersChanges) {
  ZFWPlistController one, other;
  EXPECT_TRUE(one.setObject("one", "a"));
  EXPECT_TRUE(other.setObject("other", "b"));
  EXPECT_EQ(one.objectForKey("b"), Value("other"));
  EXPECT_EQ(other.objectForKey("a"), Value("one"));
  EXPECT_TRUE(other.setObject(Value::Dict{{"y", 2}}, "a"));
  EXPECT_EQ(one.objectForKey("a"), Value(Value::Dict{{"y", 2}}));
}

TEST_F(ZFWPlist, AChangeToAReadObjectIsNotStored) {
  ZFWPlistController store;
  store.setObject(Value::Dict{{"x", 1}}, "a");
  Value read = store.objectForKey("a");
  (*read.asDict())["x"] = 2;
  EXPECT_EQ(store.objectForKey("a"), Value(Value::Dict{{"x", 1}}));
}

TEST_F(ZFWPlist, ADeletedFileRefusesUntilTheNextStart) {
  ZFWPlistController store;
  EXPECT_TRUE(store.setObject(1, "a"));
  ASSERT_TRUE(storage().remove(at(kFile)));
  EXPECT_FALSE(store.setObject(1, "a"));
  EXPECT_FALSE(store.setItem(1, "a", "b"));
  EXPECT_TRUE(store.objectForKey("a").isNull());
  EXPECT_FALSE(exists(at(kFile)));
  ZFWPlistController next;
  EXPECT_TRUE(next.setObject(1, "a"));
  EXPECT_TRUE(store.setObject(2, "b"));
}

TEST_F(ZFWPlist, AFileDamagedMeanwhileIsLeftAlone) {
  ZFWPlistController store;
  writeText(at(kFile), "damaged");
  EXPECT_FALSE(store.setObject(1, "a"));
  EXPECT_TRUE(store.objectForKey("a").isNull());
  EXPECT_EQ(readText(at(kFile)), "damaged");
}

TEST_F(ZFWPlist, ADamagedFileIsKeptAsideAtTheStart) {
  makeFolder(at("home/Library/Preferences"));
  writeText(at(kFile), "first");
  ZFWPlistController store;
  EXPECT_EQ(store.damagedFile(), at(kFile) + ".damaged");
  EXPECT_EQ(readText(at(kFile) + ".damaged"), "first");
  EXPECT_EQ(content(), Value(Value::Dict()));
  EXPECT_TRUE(store.setObject(1, "a"));

  writeText(at(kFile), "second");
  EXPECT_EQ(ZFWPlistController().damagedFile(), at(kFile) + ".damaged-2");
  writeText(at(kFile), "third");
  EXPECT_EQ(ZFWPlistController().damagedFile(), at(kFile) + ".damaged-3");
  EXPECT_EQ(readText(at(kFile) + ".damaged"), "first");
  EXPECT_EQ(readText(at(kFile) + ".damaged-2"), "second");
  EXPECT_EQ(readText(at(kFile) + ".damaged-3"), "third");
}

TEST_F(ZFWPlist, OfDamagedFilesAThousandAreKeptAndTheNextOneStays) {
  makeFolder(at("home/Library/Preferences"));
  writeText(at(kFile) + ".damaged", "old");
  for (int number = 2; number <= 999; ++number)
    writeText(at(kFile) + ".damaged-" + std::to_string(number), "old");
  writeText(at(kFile), "the thousandth");
  EXPECT_EQ(ZFWPlistController().damagedFile(), at(kFile) + ".damaged-1000");
  EXPECT_EQ(readText(at(kFile) + ".damaged-1000"), "the thousandth");

  writeText(at(kFile), "one more");
  ZFWPlistController store;
  EXPECT_EQ(store.damagedFile(), "");
  EXPECT_EQ(readText(at(kFile)), "one more");
  EXPECT_FALSE(exists(at(kFile) + ".damaged-1001"));
  EXPECT_FALSE(store.setObject(1, "a"));
  EXPECT_FALSE(store.setItem(1, "a", "b"));
  EXPECT_EQ(readText(at(kFile)), "one more");
}

TEST_F(ZFWPlist, ADamagedFileThatCannotBeKeptAsideStays) {
  makeFolder(at("home/Library/Preferences"));
  writeText(at(kFile), "mine");
  FaultyStorage disk;
  disk.failAt(1, FaultyStorage::kForEver);
  const ZFWPlistController store;
  ASSERT_EQ(disk.count("rename"), 1);
  disk.failAt(0);
  EXPECT_EQ(store.damagedFile(), "");
  EXPECT_EQ(readText(at(kFile)), "mine");
  EXPECT_FALSE(exists(at(kFile) + ".damaged"));
}

TEST_F(ZFWPlist, AListThatIsNoMapIsDamaged) {
  writeStore(Value::Array{1});
  EXPECT_EQ(ZFWPlistController().damagedFile(), at(kFile) + ".damaged");
  EXPECT_EQ(content(), Value(Value::Dict()));
}

TEST_F(ZFWPlist, AHomelessUserHasNoStore) {
  platform.fakeFolders.homePath = "";
  ZFWPlistController store;
  EXPECT_EQ(store.path(), "");
  EXPECT_FALSE(store.setObject(1, "a"));
  EXPECT_TRUE(store.objectForKey("a").isNull());
}

TEST_F(ZFWPlist, WhatAPropertyListCannotHoldIsRefused) {
  ZFWPlistController store;
  store.setObject(1, "a");
  EXPECT_FALSE(store.setObject(Value(), "a"));
  EXPECT_FALSE(store.setItem(Value(), "m", "x"));
  EXPECT_FALSE(store.setObject(Value::Array{Value()}, "a"));
  EXPECT_EQ(content(), Value(Value::Dict{{"a", 1}}));
}

TEST_F(ZFWPlist, AnItemIsSetInACopyOfItsMap) {
  ZFWPlistController store;
  EXPECT_TRUE(store.itemForKey(ZFWRssTabKey, ZFWRssTabStockItem).isNull());
  EXPECT_TRUE(store.setItem(4, ZFWRssTabKey, ZFWRssTabIntervalItem));
  EXPECT_TRUE(store.setItem(true, ZFWRssTabKey, ZFWRssTabRangeItem));
  EXPECT_EQ(store.itemForKey(ZFWRssTabKey, ZFWRssTabIntervalItem), Value(4));
  EXPECT_EQ(store.objectForKey(ZFWRssTabKey),
            Value(Value::Dict{{"ZFWRssTabIntervalItem", 4}, {"ZFWRssTabRangeItem", true}}));
  store.setObject("no map", ZFWTransTabKey);
  EXPECT_FALSE(store.setItem(1, ZFWTransTabKey, ZFWTransTabModeItem));
  EXPECT_TRUE(store.itemForKey(ZFWTransTabKey, ZFWTransTabModeItem).isNull());
  EXPECT_EQ(store.objectForKey(ZFWTransTabKey), Value("no map"));
}

TEST_F(ZFWPlist, ReadingAnItemTellsWhatIsMissingFromWhatCannotBeRead) {
  ZFWPlistController store;
  ASSERT_TRUE(store.setItem(3, ZFWDictTabKey, ZFWDictTabAppletItem));
  ASSERT_TRUE(store.setObject("no map", ZFWTransTabKey));
  Value object = "before";
  EXPECT_TRUE(store.readItem(ZFWDictTabKey, ZFWDictTabAppletItem, &object));
  EXPECT_EQ(object, Value(3));
  EXPECT_TRUE(store.readItem(ZFWDictTabKey, ZFWDictTabTWEDItem, &object));
  EXPECT_TRUE(object.isNull());
  object = "before";
  EXPECT_TRUE(store.readItem(ZFWRssTabKey, ZFWRssTabStockItem, &object));
  EXPECT_TRUE(object.isNull());
  object = "before";
  EXPECT_TRUE(store.readItem(ZFWTransTabKey, ZFWTransTabModeItem, &object));
  EXPECT_TRUE(object.isNull());
  object = "before";
  writeText(at(kFile), "damaged");
  EXPECT_FALSE(store.readItem(ZFWDictTabKey, ZFWDictTabAppletItem, &object));
  ASSERT_TRUE(storage().remove(at(kFile)));
  EXPECT_FALSE(store.readItem(ZFWDictTabKey, ZFWDictTabAppletItem, &object));
  EXPECT_EQ(object, Value("before"));
}

TEST_F(ZFWPlist, KeysAreWrittenAsTheyAreNamed) {
  const std::vector<std::pair<const char*, const char*>> rows = {
      {ZFWDictTabKey, "ZFWDictTabKey"},
      {ZFWDictTabTWEDItem, "ZFWDictTabTWEDItem"},
      {ZFWDictTabAppletItem, "ZFWDictTabAppletItem"},
      {ZFWRssTabKey, "ZFWRssTabKey"},
      {ZFWRssTabIntervalItem, "ZFWRssTabIntervalItem"},
      {ZFWRssTabStockItem, "ZFWRssTabStockItem"},
      {ZFWRssTabRangeItem, "ZFWRssTabRangeItem"},
      {ZFWSearchTabKey, "ZFWSearchTabKey"},
      {ZFWSearchTabColorItem, "ZFWSearchTabColorItem"},
      {ZFWTransTabKey, "ZFWTransTabKey"},
      {ZFWTransTabAppletItem, "ZFWTransTabAppletItem"},
      {ZFWTransTabModeItem, "ZFWTransTabModeItem"},
      {ZFWTranslationKey, "ZFWTranslationKey"},
      {ZFWTranslateSearchKey, "ZFWTranslateSearchKey"},
      {ZFWAutoTranslateMode, "ZFWAutoTranslateMode"},
      {ZFWRssKey, "ZFWRssKey"},
      {ZFWUseBrowser, "ZFWUseBrowser"},
      {ZFWDictTypeKey, "dictType"},
      {ZFWDictTitleKey, "dictTitle"},
      {ZFWSelectStatusKey, "selectStatus"},
      {ZFWMirellType, "oType"},
      {ZFWHwType, "sType"},
      {ZFWTransType, "tType"},
      {ZFWYesStatus, "YES"},
      {ZFWNoStatus, "NO"},
  };
  for (const auto& [constant, text] : rows) EXPECT_STREQ(constant, text);
  EXPECT_EQ(kRssTabIntervalWhenAbsent, 4);
  EXPECT_EQ(kRssTabStockWhenAbsent, 2);
}

// --- Faults of the disk ---

// Sets with a fault at each operation of the disk in turn, and puts the file back each time.
template <class Set>
long failEverywhere(const std::string& path, const Value& old, const Value& fresh, Set set) {
  PropertyLists& lists = platform().propertyLists();
  FaultyStorage disk;
  for (long n = 1;; ++n) {
    EXPECT_TRUE(lists.writeFile(path, old, PropertyListFormat::kXml));
    disk.failAt(n);
    const bool stored = set();
    const long faults = disk.faults();
    const std::string failedAt = faults ? disk.history()[static_cast<size_t>(n - 1)] : "";
    disk.failAt(0);
    // Once the new file is in its place, a fault can't take it back.
    const bool inPlace = faults == 0 || failedAt.starts_with("syncFolder");
    Value content;
    EXPECT_TRUE(lists.readFile(path, &content)) << n;
    EXPECT_EQ(content, inPlace ? fresh : old) << n << " " << failedAt;
    EXPECT_EQ(stored, faults == 0) << n << " " << failedAt;
    if (faults == 0) return n;
  }
}

TEST_F(ZFWPlist, AFaultWhileSettingLosesNothing) {
  ZFWPlistController store;
  const long n = failEverywhere(at(kFile), Value::Dict{{"a", "old"}}, Value::Dict{{"a", "new"}},
                                [&] { return store.setObject("new", "a"); });
  EXPECT_GT(n, 6);
}

TEST_F(ZFWPlist, AFaultWhileSettingAnItemLosesNothing) {
  ZFWPlistController store;
  const Value list = Value::Array{"mine"};
  const Value old = Value::Dict{
      {"ZFWDictTabKey", Value::Dict{{"ZFWDictTabAppletItem", 3}, {"Other", "kept"}}}, {"b", "kept"}};
  const Value fresh =
      Value::Dict{{"ZFWDictTabKey",
                   Value::Dict{{"ZFWDictTabAppletItem", 3}, {"Other", "kept"}, {"ZFWDictTabTWEDItem", list}}},
                  {"b", "kept"}};
  const long n = failEverywhere(at(kFile), old, fresh,
                                [&] { return store.setItem(list, ZFWDictTabKey, ZFWDictTabTWEDItem); });
  EXPECT_GT(n, 6);
}

TEST_F(ZFWPlist, AFaultWhileBeginningLosesNothing) {
  makeFolder(at("home/Library/Preferences"));
  FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    writeText(at(kFile), "mine");
    storage().remove(at(kFile) + ".damaged");
    disk.failAt(n);
    const std::string damaged = ZFWPlistController().damagedFile();
    const long faults = disk.faults();
    disk.failAt(0);
    EXPECT_EQ(readText(damaged.empty() ? at(kFile) : damaged), "mine") << n;
    if (faults == 0) break;
  }
  EXPECT_GT(n, 5);
}

TEST_F(ZFWPlist, ASoundFileThatCannotBeReadAtTheStartIsKeptToo) {
  writeStore(Value::Dict{{"a", 1}});
  const std::string sound = readText(at(kFile));
  std::string damaged;
  {
    FaultyStorage disk;
    disk.failAt(1);
    damaged = ZFWPlistController().damagedFile();
  }
  EXPECT_EQ(damaged, at(kFile) + ".damaged");
  EXPECT_EQ(readText(damaged), sound);
}

}  // namespace
}  // namespace zavel::test
