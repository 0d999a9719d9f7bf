#include "foundation/Storage.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "support/FaultyStorage.h"
#include "support/RacingStorage.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::FaultyStorage;
using test::RacingStorage;
using test::TempFolder;
using Names = std::vector<std::string>;

TEST(ReadWholeFile, GivesAllBytes) {
  TempFolder folder;
  folder.write("a", std::string("x\0y\r\n", 5));
  std::string content;
  EXPECT_TRUE(readWholeFile(folder.file("a"), 5, &content));
  EXPECT_EQ(content, std::string("x\0y\r\n", 5));
}

TEST(ReadWholeFile, GivesAnEmptyFile) {
  TempFolder folder;
  folder.write("a", "");
  std::string content = "old";
  EXPECT_TRUE(readWholeFile(folder.file("a"), 0, &content));
  EXPECT_EQ(content, "");
}

TEST(ReadWholeFile, RefusesAFileOverTheLimit) {
  TempFolder folder;
  folder.write("a", "12345");
  std::string content = "old";
  EXPECT_FALSE(readWholeFile(folder.file("a"), 4, &content));
  EXPECT_EQ(content, "old");
}

TEST(ReadWholeFile, RefusesWhatIsNoFile) {
  TempFolder folder;
  std::string content = "old";
  EXPECT_FALSE(readWholeFile(folder.file("none"), 100, &content));
  EXPECT_FALSE(readWholeFile(folder.path(), 100, &content));
  EXPECT_FALSE(readWholeFile("/dev/zero", 100, &content));
  EXPECT_EQ(content, "old");
}

TEST(ReadWholeFile, TellsOfEveryFailingOperation) {
  TempFolder folder;
  folder.write("a", "12345");
  FaultyStorage disk;
  std::string content = "old";
  for (long n = 1; n <= 3; ++n) {  // open, size, readAt
    disk.failAt(n);
    EXPECT_FALSE(readWholeFile(folder.file("a"), 100, &content)) << n;
    EXPECT_EQ(disk.faults(), 1);
    EXPECT_EQ(content, "old");
  }
  disk.failAt(4);
  EXPECT_TRUE(readWholeFile(folder.file("a"), 100, &content));
  EXPECT_EQ(disk.operations(), 3);
}

TEST(WriteFileAtomically, MakesAndReplaces) {
  TempFolder folder;
  EXPECT_TRUE(writeFileAtomically(folder.file("a"), "first"));
  EXPECT_EQ(folder.read("a"), "first");
  EXPECT_TRUE(writeFileAtomically(folder.file("a"), ""));
  EXPECT_EQ(folder.read("a"), "");
  EXPECT_EQ(folder.names(), Names{"a"});
}

TEST(WriteFileAtomically, SyncsTheFileBeforeAndTheFolderAfterTheRename) {
  TempFolder folder;
  FaultyStorage disk;
  EXPECT_TRUE(writeFileAtomically(folder.file("a"), "text"));
  Names kinds;
  for (const std::string& entry : disk.history()) kinds.push_back(entry.substr(0, entry.find(' ')));
  EXPECT_EQ(kinds, (Names{"openTemporary", "writeAt", "sync", "close", "rename", "syncFolder"}));
}

TEST(WriteFileAtomically, LeavesTheOldContentWhenAnyStepFails) {
  TempFolder folder;
  FaultyStorage disk;
  for (long n = 1; n <= 5; ++n) {  // all up to the rename
    folder.write("a", "old");
    disk.failAt(n);
    EXPECT_FALSE(writeFileAtomically(folder.file("a"), "new content")) << disk.history().back();
    EXPECT_EQ(disk.faults(), 1);
    EXPECT_EQ(folder.read("a"), "old") << n;
    EXPECT_EQ(folder.names(), Names{"a"}) << n;
  }
}

TEST(WriteFileAtomically, StaysWholeWhenTheFolderCanNotBeSynced) {
  TempFolder folder;
  folder.write("a", "old");
  FaultyStorage disk;
  disk.failAt(6);
  EXPECT_FALSE(writeFileAtomically(folder.file("a"), "new content"));
  EXPECT_EQ(folder.read("a"), "new content");
  EXPECT_EQ(folder.names(), Names{"a"});
}

TEST(WriteFileAtomically, NeverShowsAHalfOnADiskThatFailsForGood) {
  TempFolder folder;
  FaultyStorage disk;
  for (long n = 1; n <= 6; ++n) {
    folder.write("a", "old");
    disk.failAt(n, FaultyStorage::kForEver);
    EXPECT_FALSE(writeFileAtomically(folder.file("a"), "new content")) << n;
    EXPECT_EQ(folder.read("a"), n < 6 ? "old" : "new content") << n;
  }
}

TEST(WriteFileAtomically, MakesNothingInAFolderThatIsNotThere) {
  TempFolder folder;
  EXPECT_FALSE(writeFileAtomically(folder.file("none/a"), "text"));
  EXPECT_EQ(folder.names(), Names{});
}

TEST(WriteFileAtomically, DoesNotReplaceAFolder) {
  TempFolder folder;
  ASSERT_EQ(storage().makeFolder(folder.file("a")), 0);
  EXPECT_FALSE(writeFileAtomically(folder.file("a"), "text"));
  EXPECT_EQ(folder.names(), Names{"a"});
}

TEST(MakeFolderOrFind, MakesOneFolder) {
  TempFolder folder;
  EXPECT_EQ(makeFolderOrFind(folder.file("a")), 0);
  EXPECT_TRUE(storage().isFolder(folder.file("a")));
  EXPECT_EQ(makeFolderOrFind(folder.file("b/c")), ENOENT);
}

TEST(MakeFolderOrFind, IsContentWithAFolderThatAnotherProcessMade) {
  TempFolder folder;
  RacingStorage disk(RacingStorage::kMakesTheFolder);
  EXPECT_EQ(disk.makeFolder(folder.file("a")), EEXIST);
  EXPECT_EQ(makeFolderOrFind(folder.file("b")), 0);
  EXPECT_TRUE(storage().isFolder(folder.file("b")));
}

TEST(MakeFolderOrFind, TellsOfAFileThatStandsThere) {
  TempFolder folder;
  RacingStorage disk(RacingStorage::kMakesAFile);
  EXPECT_EQ(makeFolderOrFind(folder.file("a")), EEXIST);
  EXPECT_FALSE(storage().isFolder(folder.file("a")));
}

TEST(SetStorage, GivesWhatWasInUseBefore) {
  Storage& usual = storage();
  EXPECT_EQ(&usual, &defaultStorage());
  {
    FaultyStorage disk;
    EXPECT_EQ(&storage(), &disk);
    EXPECT_EQ(setStorage(&disk), &disk);
  }
  EXPECT_EQ(&storage(), &usual);
}

}  // namespace
}  // namespace zavel
