#include "HostPlatform.h"

#include <gtest/gtest.h>

#include "support/DicWriter.h"
#include "support/TempFolder.h"

namespace zavel::host {
namespace {

TEST(MemoryFiles, AFileShowsWhenItIsClosed) {
  MemoryFiles files;
  std::string text, record;
  auto writer = files.create("/nowhere/a", "TEXT", "ttxt");
  ASSERT_NE(writer, nullptr);
  EXPECT_TRUE(writer->writeText("go"));
  EXPECT_TRUE(writer->writeStyle("styl", 128, std::string_view("\0x", 2)));
  EXPECT_FALSE(files.read("/nowhere/a", "styl", 128, &text, &record));
  EXPECT_TRUE(writer->close());
  ASSERT_TRUE(files.read("/nowhere/a", "styl", 128, &text, &record));
  EXPECT_EQ(text, "go");
  EXPECT_EQ(record, std::string("\0x", 2));
}

TEST(MemoryFiles, WhatIsNotClosedLeavesWhatStoodThere) {
  MemoryFiles files;
  std::string text, record = "left";
  auto first = files.create("/nowhere/a", "TEXT", "ttxt");
  first->writeText("first");
  first->close();
  files.create("/nowhere/a", "TEXT", "ttxt")->writeText("second");
  ASSERT_TRUE(files.read("/nowhere/a", "styl", 128, &text, &record));
  EXPECT_EQ(text, "first");
  EXPECT_EQ(record, "");
  EXPECT_FALSE(files.read("/nowhere/b", "styl", 128, &text, &record));
  EXPECT_EQ(text, "");
}

class KeptListsTest : public testing::Test {
 protected:
  std::string read(const std::string& path) {
    Value value;
    return host_.propertyLists().readFile(path, &value) ? value.string() : "unread";
  }
  bool write(const std::string& path, const std::string& text) {
    return host_.propertyLists().writeFile(path, Value(text), PropertyListFormat::kXml);
  }

  test::TempFolder folder_;
  const std::string path_ = folder_.file("list.plist");
  HostPlatform host_;
};

TEST_F(KeptListsTest, AKeptFileIsReadOnce) {
  host_.propertyLists().keep(path_);
  EXPECT_EQ(read(path_), "unread");
  ASSERT_TRUE(defaultPlatform().propertyLists().writeFile(path_, Value("one"), PropertyListFormat::kXml));
  EXPECT_EQ(read(path_), "one");
  ASSERT_TRUE(defaultPlatform().propertyLists().writeFile(path_, Value("two"), PropertyListFormat::kXml));
  EXPECT_EQ(read(path_), "one");
  ASSERT_TRUE(write(path_, "three"));
  EXPECT_EQ(read(path_), "three");
  EXPECT_NE(test::readFile(path_).find("three"), std::string::npos);
}

TEST_F(KeptListsTest, OtherFilesAreReadEachTime) {
  ASSERT_TRUE(write(path_, "one"));
  EXPECT_EQ(read(path_), "one");
  ASSERT_TRUE(defaultPlatform().propertyLists().writeFile(path_, Value("two"), PropertyListFormat::kXml));
  EXPECT_EQ(read(path_), "two");
}

TEST_F(KeptListsTest, APretendedFileIsNeitherReadNorWritten) {
  ASSERT_TRUE(write(path_, "one"));
  host_.propertyLists().pretend(path_, Value("another"));
  EXPECT_EQ(read(path_), "another");
  EXPECT_FALSE(write(path_, "two"));
  EXPECT_NE(test::readFile(path_).find("one"), std::string::npos);
}

TEST(HostPlatform, IsInUseWhileItLives) {
  Platform* const before = &platform();
  {
    const HostPlatform host;
    EXPECT_EQ(&platform(), &host);
  }
  EXPECT_EQ(&platform(), before);
}

TEST(BareBundle, HasTheMarkOfRowsAndNoLabels) {
  HostPlatform host;
  EXPECT_EQ(host.bundle().localized("DictList"), "DictList");
  EXPECT_EQ(host.bundle().localized("StarMark"), "★");
  EXPECT_FALSE(host.bundle().resourcePath("SearchSite", "plist").has_value());
}

}  // namespace
}  // namespace zavel::host
