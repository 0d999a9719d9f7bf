#include "foundation/PathHelpers.h"

#include <gtest/gtest.h>

#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::foundation {
namespace {

using test::FaultyStorage;
using test::TempFolder;

std::string add(std::string path, char delimiter) {
  path.resize(path.size() + 1);  // the byte of room that the function asks for
  GFnAddParhDelim(path.data(), delimiter);
  return path.c_str();
}

std::string remove(std::string path, char delimiter) {
  GFnRemovePathDelim(path.data(), delimiter);
  return path.c_str();
}

TEST(PathHelpers, AddsADelimiterOnlyWhereNoneStands) {
  EXPECT_EQ(add("/books", '/'), "/books/");
  EXPECT_EQ(add("/books/", '/'), "/books/");
  EXPECT_EQ(add("/books/", ':'), "/books/:");
  EXPECT_EQ(add("", '/'), "/");
}

TEST(PathHelpers, CutsOneDelimiter) {
  EXPECT_EQ(remove("/books/", '/'), "/books");
  EXPECT_EQ(remove("/books//", '/'), "/books/");
  EXPECT_EQ(remove("/books", '/'), "/books");
  EXPECT_EQ(remove("/", '/'), "");
  EXPECT_EQ(remove("", '/'), "");
}

TEST(GFnCreateTmpFile, CountsFromZero) {
  TempFolder folder;
  std::string path;
  EXPECT_NE(GFnCreateTmpFile(folder.path(), "book", "tmp", &path), nullptr);
  EXPECT_EQ(path, folder.file("book0.tmp"));
  EXPECT_EQ(folder.read("book0.tmp"), "");
}

TEST(GFnCreateTmpFile, PassesOverNamesThatExist) {
  TempFolder folder;
  folder.write("book0.tmp", "kept");
  folder.write("book1.tmp", "kept");
  folder.write("book3.tmp", "kept");
  std::string path;
  const auto file = GFnCreateTmpFile(folder.path(), "book", "tmp", &path);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(path, folder.file("book2.tmp"));
  EXPECT_TRUE(file->writeAt(0, "new"));
  EXPECT_EQ(folder.read("book2.tmp"), "new");
  EXPECT_EQ(folder.read("book0.tmp"), "kept");
}

TEST(GFnCreateTmpFile, TriesTwiceAndThenGivesNull) {
  TempFolder folder;
  FaultyStorage disk;
  std::string path = "old";
  disk.failAt(1);
  EXPECT_NE(GFnCreateTmpFile(folder.path(), "a", "tmp", &path), nullptr);
  EXPECT_EQ(path, folder.file("a0.tmp"));
  path = "old";
  disk.failAt(1, FaultyStorage::kForEver);
  EXPECT_EQ(GFnCreateTmpFile(folder.path(), "b", "tmp", &path), nullptr);
  EXPECT_EQ(disk.operations(), 2);
  EXPECT_EQ(path, "old");
  EXPECT_EQ(GFnCreateTmpFile(folder.file("none"), "b", "tmp", &path), nullptr);
}

}  // namespace
}  // namespace zavel::foundation
