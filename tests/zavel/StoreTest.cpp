#include "Store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "config/ZFWPlistController.h"
#include "platform/PropertyLists.h"
#include "support/EnvironmentVariable.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::host {
namespace {

class StoreTest : public testing::Test {
 protected:
  static Value item(const char* type, const char* status) {
    return Value::Dict{{ZFWDictTypeKey, type}, {ZFWDictTitleKey, type}, {ZFWSelectStatusKey, status}};
  }
  static Value listIn(const std::string& file) {
    Value all;
    if (!defaultPlatform().propertyLists().readFile(file, &all)) return Value();
    const Value* const tab = all.find(ZFWDictTabKey);
    const Value* const list = tab ? tab->find(ZFWDictTabTWEDItem) : nullptr;
    return list ? *list : Value();
  }
  // Opens and closes the store, as a run of the program does, with `list` stored; says where it is.
  std::string begin(const Value& list) {
    HostPlatform host;
    openStore(host);
    const std::string path = gZFWPlist->path();
    EXPECT_TRUE(gZFWPlist->setItem(list, ZFWDictTabKey, ZFWDictTabTWEDItem));
    closeStore();
    return path;
  }

  test::TempFolder folder_;
  test::EnvironmentVariable root_{"ZAVEL_ROOT", folder_.path().c_str()};
};

TEST_F(StoreTest, AFirstStartSearchesTheBilingualDictionaryAlone) {
  HostPlatform host;
  EXPECT_EQ(openStore(host), "");
  EXPECT_FALSE(searchesTranslation());
  const std::string path = gZFWPlist->path();
  closeStore();
  const Value list = listIn(path);
  ASSERT_TRUE(list.isArray());
  ASSERT_EQ(list.asArray()->size(), 2u);
  EXPECT_EQ((*list.asArray())[0].find(ZFWDictTypeKey)->string(), "oType");
  EXPECT_EQ((*list.asArray())[0].find(ZFWSelectStatusKey)->string(), "YES");
  EXPECT_EQ((*list.asArray())[1].find(ZFWDictTypeKey)->string(), "tType");
  EXPECT_EQ((*list.asArray())[1].find(ZFWSelectStatusKey)->string(), "NO");
}

// Read or not, a list of the user's stands somewhere: in its place, or aside where a line names it.
TEST_F(StoreTest, AFaultWhileOpeningLosesNoChoice) {
  for (const bool whole : {true, false}) {
    Value::Array items{item("tType", "YES")};
    if (whole) items.push_back(item("oType", "NO"));
    const std::string path = begin(items);
    std::string bytes;
    ASSERT_TRUE(readWholeFile(path, 1 << 20, &bytes));
    for (long n = 1;; ++n) {
      test::FaultyStorage disk;
      disk.failAt(n);
      HostPlatform host;
      const std::string line = openStore(host);
      const bool faulty = disk.faults() > 0;
      const std::string aside = gZFWPlist->damagedFile();
      closeStore();
      disk.failAt(0);
      const Value list = listIn(aside.empty() ? path : aside);
      ASSERT_TRUE(list.isArray()) << n;
      EXPECT_EQ((*list.asArray())[0], items[0]) << n;
      if (whole) {
        EXPECT_EQ(list, Value(items)) << n;
      }
      if (!aside.empty()) {
        EXPECT_NE(line.find(aside), std::string::npos) << n;
      }
      if (!aside.empty()) std::filesystem::remove(aside);
      ASSERT_TRUE(writeFileAtomically(path, bytes));
      if (!faulty) break;
    }
  }
}

TEST_F(StoreTest, AListThatCannotBeReadIsNotWrittenOver) {
  const Value::Array items{item("tType", "YES")};
  const std::string path = begin(items);
  HostPlatform host;
  ASSERT_EQ(openStore(host), "");
  closeStore();
  ASSERT_EQ(listIn(path).asArray()->size(), 2u);
  begin(items);
  long reads = 0;  // operations until the store is open, of which the last ones read the list
  {
    test::FaultyStorage disk;
    const ZFWPlistController store;
    reads = disk.operations();
  }
  test::FaultyStorage disk;
  disk.failAt(reads + 1);
  EXPECT_EQ(openStore(host),
            "the preferences in " + path + " can't be read; the defaults are used this time");
  EXPECT_EQ(disk.faults(), 1);
  EXPECT_FALSE(searchesTranslation());
  closeStore();
  EXPECT_EQ(listIn(path), Value(items));
}

}  // namespace
}  // namespace zavel::host
