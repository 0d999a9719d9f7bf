#include "base/PlistUserDefaults.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "base/PlistPropertyLists.h"
#include "support/FaultyStorage.h"
#include "support/RacingStorage.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::FaultyStorage;
using test::RacingStorage;
using test::TempFolder;

class FixedFolders : public Folders {
 public:
  std::string root() override { return place; }
  std::string home() override { return place; }

  std::string place;
};

class PlistUserDefaultsTest : public testing::Test {
 protected:
  PlistUserDefaultsTest() { folders_.place = folder_.path(); }
  std::string content(const std::string& name) { return folder_.read("Library/Preferences/" + name); }
  void store(const std::string& bytes) {
    std::filesystem::create_directories(folder_.file("Library/Preferences"));
    folder_.write("Library/Preferences/app.plist", bytes);
  }

  TempFolder folder_;
  FixedFolders folders_;
  PlistPropertyLists lists_;
  PlistUserDefaults defaults_{lists_, folders_};
};

TEST_F(PlistUserDefaultsTest, KeepsValuesByIdentifierAndKey) {
  EXPECT_TRUE(defaults_.setValue("local.tarnwick.TWEDBrowser", "FindMax", Value(400)));
  EXPECT_TRUE(defaults_.setValue("local.tarnwick.TWEDBrowser", "Name", Value("辞書")));
  EXPECT_TRUE(defaults_.setValue("other", "FindMax", Value(1)));
  PlistUserDefaults another(lists_, folders_);
  EXPECT_EQ(another.value("local.tarnwick.TWEDBrowser", "FindMax"), Value(400));
  EXPECT_EQ(another.value("local.tarnwick.TWEDBrowser", "Name"), Value("辞書"));
  EXPECT_EQ(another.value("other", "FindMax"), Value(1));
  EXPECT_TRUE(content("local.tarnwick.TWEDBrowser.plist").starts_with("<?xml"));
}

TEST_F(PlistUserDefaultsTest, TakesAnAbsolutePathForAnIdentifier) {
  const std::string path = folder_.file("a/b/store");
  EXPECT_TRUE(defaults_.setValue(path, "k", Value("v")));
  EXPECT_NE(folder_.read("a/b/store.plist"), "(none)");
  EXPECT_EQ(defaults_.value(path, "k"), Value("v"));
}

TEST_F(PlistUserDefaultsTest, GivesNullForWhatIsMissing) {
  EXPECT_TRUE(defaults_.value("app", "k").isNull());
  EXPECT_TRUE(defaults_.synchronize("app"));
  EXPECT_TRUE(defaults_.setValue("app", "other", Value(1)));
  EXPECT_TRUE(defaults_.value("app", "k").isNull());
}

TEST_F(PlistUserDefaultsTest, ANullTakesTheKeyAway) {
  EXPECT_TRUE(defaults_.setValue("app", "k", Value()));
  EXPECT_EQ(content("app.plist"), "(none)");  // nothing to take away: nothing written
  EXPECT_TRUE(defaults_.setValue("app", "k", Value(1)));
  EXPECT_TRUE(defaults_.setValue("app", "l", Value(2)));
  EXPECT_TRUE(defaults_.setValue("app", "k", Value()));
  EXPECT_TRUE(defaults_.value("app", "k").isNull());
  EXPECT_EQ(defaults_.value("app", "l"), Value(2));
}

TEST_F(PlistUserDefaultsTest, SeesWhatOthersWrite) {
  EXPECT_TRUE(defaults_.setValue("app", "k", Value(1)));
  store(lists_.serialize(Value(Value::Dict{{"k", 2}, {"m", 3}}), PropertyListFormat::kBinary));
  EXPECT_EQ(defaults_.value("app", "k"), Value(2));
  EXPECT_TRUE(defaults_.setValue("app", "k", Value(4)));
  EXPECT_EQ(defaults_.value("app", "m"), Value(3));
}

TEST_F(PlistUserDefaultsTest, NeverWritesOverWhatItCanNotRead) {
  for (const std::string& bytes :
       {std::string("damaged"), std::string(), lists_.serialize(Value("no map"), PropertyListFormat::kXml)}) {
    store(bytes);
    EXPECT_FALSE(defaults_.synchronize("app"));
    EXPECT_TRUE(defaults_.value("app", "k").isNull());
    EXPECT_FALSE(defaults_.setValue("app", "k", Value(1)));
    EXPECT_EQ(content("app.plist"), bytes);
  }
}

TEST_F(PlistUserDefaultsTest, WhatCanNotBeHeldIsNotWritten) {
  EXPECT_TRUE(defaults_.setValue("app", "k", Value(1)));
  const std::string before = content("app.plist");
  EXPECT_FALSE(defaults_.setValue("app", "k", Value(Value::Array{Value()})));
  EXPECT_EQ(content("app.plist"), before);
}

TEST_F(PlistUserDefaultsTest, NoNameLeadsOutOfThePreferences) {
  for (const char* name : {"", "../app", "a/b", ".."}) {
    EXPECT_EQ(defaults_.setValue(name, "k", Value(1)), std::string(name) == "..") << name;
  }
  EXPECT_EQ(folder_.names(), std::vector<std::string>{"Library"});  // "...plist", a name like others
  folders_.place.clear();
  EXPECT_FALSE(defaults_.synchronize("app"));
  EXPECT_FALSE(defaults_.setValue("app", "k", Value(1)));
}

TEST_F(PlistUserDefaultsTest, WritesIntoFoldersThatAnotherProcessMakesFirst) {
  const RacingStorage disk(RacingStorage::kMakesTheFolder);
  EXPECT_TRUE(defaults_.setValue("local.tarnwick.ZavelLex", "key", "value"));
  EXPECT_EQ(defaults_.value("local.tarnwick.ZavelLex", "key"), Value("value"));
}

TEST_F(PlistUserDefaultsTest, AFailingDiskLeavesOldOrNew) {
  EXPECT_TRUE(defaults_.setValue("app", "k", Value(1)));
  const std::string old = content("app.plist");
  std::string made = old;
  made.replace(made.find("<integer>1<"), 11, "<integer>2<");
  for (const FaultyStorage::Repeat repeat : {FaultyStorage::kOnce, FaultyStorage::kForEver}) {
    long n = 1;
    for (;; ++n) {
      folder_.write("Library/Preferences/app.plist", old);
      FaultyStorage disk;
      disk.failAt(n, repeat);
      const bool written = defaults_.setValue("app", "k", Value(2));
      if (disk.faults() == 0) {
        EXPECT_TRUE(written);
        break;
      }
      const std::string now = content("app.plist");
      // The folder's sync comes after the rename: the new file is whole, but not yet safe.
      EXPECT_EQ(now, disk.history().back().starts_with("syncFolder") ? made : old) << n;
      EXPECT_FALSE(written) << n;
      size_t files = 0;
      for ([[maybe_unused]] const auto& entry :
           std::filesystem::directory_iterator(folder_.file("Library/Preferences")))
        ++files;
      // A disk on which nothing works any more keeps the temporary file, too.
      if (repeat == FaultyStorage::kOnce) {
        EXPECT_EQ(files, 1u) << n;
      }
      for (const auto& entry : std::filesystem::directory_iterator(folder_.file("Library/Preferences")))
        if (entry.path().filename() != "app.plist") std::filesystem::remove(entry.path());
    }
    EXPECT_GT(n, 8);  // open, size, read; temporary, write, sync, close, rename, sync of the folder
  }
}

}  // namespace
}  // namespace zavel
