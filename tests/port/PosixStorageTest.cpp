#include "base/PosixStorage.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::TempFolder;
using Names = std::vector<std::string>;

class PosixStorageTest : public testing::Test {
 protected:
  TempFolder folder_;
  PosixStorage disk_;
};

TEST_F(PosixStorageTest, OpensForReadingOnlyWhatIsThere) {
  EXPECT_EQ(disk_.open(folder_.file("a"), OpenMode::kRead), nullptr);
  EXPECT_EQ(disk_.open(folder_.file("a"), OpenMode::kReadWrite), nullptr);
  EXPECT_EQ(folder_.names(), Names{});
}

TEST_F(PosixStorageTest, CreatesAndCutsToNothing) {
  EXPECT_NE(disk_.open(folder_.file("a"), OpenMode::kCreate), nullptr);
  EXPECT_EQ(folder_.read("a"), "");
  folder_.write("a", "old");
  EXPECT_NE(disk_.open(folder_.file("a"), OpenMode::kCreate), nullptr);
  EXPECT_EQ(folder_.read("a"), "");
}

TEST_F(PosixStorageTest, ReadsAtOffsetsUpToTheEnd) {
  folder_.write("a", "0123456789");
  const auto file = disk_.open(folder_.file("a"), OpenMode::kRead);
  char buffer[8] = {};
  EXPECT_EQ(file->readAt(2, buffer, 3), 3);
  EXPECT_EQ(std::string(buffer, 3), "234");
  EXPECT_EQ(file->readAt(8, buffer, 8), 2);
  EXPECT_EQ(std::string(buffer, 2), "89");
  EXPECT_EQ(file->readAt(10, buffer, 8), 0);
  EXPECT_EQ(file->readAt(4000000000u, buffer, 8), 0);
  EXPECT_EQ(file->size(), 10);
}

TEST_F(PosixStorageTest, RefusesOffsetsThatNoFileHas) {
  const auto file = disk_.open(folder_.file("a"), OpenMode::kCreate);
  char buffer[8];
  EXPECT_EQ(file->readAt(UINT64_MAX, buffer, 8), -1);
  EXPECT_EQ(file->readAt(INT64_MAX, buffer, 8), -1);
  EXPECT_FALSE(file->writeAt(UINT64_MAX, "x"));
  EXPECT_FALSE(file->truncate(UINT64_MAX));
}

TEST_F(PosixStorageTest, WritesAtOffsetsAndLeavesTheRest) {
  folder_.write("a", "0123456789");
  const auto file = disk_.open(folder_.file("a"), OpenMode::kReadWrite);
  EXPECT_TRUE(file->writeAt(4, "xy"));
  EXPECT_TRUE(file->writeAt(12, "z"));
  EXPECT_TRUE(file->writeAt(0, ""));
  EXPECT_TRUE(file->sync());
  EXPECT_TRUE(file->close());
  EXPECT_EQ(folder_.read("a"), std::string("0123xy6789\0\0z", 13));
}

TEST_F(PosixStorageTest, WritesNothingToAFileOpenedForReading) {
  folder_.write("a", "old");
  const auto file = disk_.open(folder_.file("a"), OpenMode::kRead);
  EXPECT_FALSE(file->writeAt(0, "new"));
  EXPECT_FALSE(file->truncate(0));
  EXPECT_EQ(folder_.read("a"), "old");
}

TEST_F(PosixStorageTest, Truncates) {
  folder_.write("a", "0123456789");
  const auto file = disk_.open(folder_.file("a"), OpenMode::kReadWrite);
  EXPECT_TRUE(file->truncate(4));
  EXPECT_EQ(folder_.read("a"), "0123");
}

TEST_F(PosixStorageTest, AnswersFalseAfterClosing) {
  const auto file = disk_.open(folder_.file("a"), OpenMode::kCreate);
  char buffer[1];
  EXPECT_TRUE(file->close());
  EXPECT_FALSE(file->close());
  EXPECT_EQ(file->readAt(0, buffer, 1), -1);
  EXPECT_FALSE(file->writeAt(0, "x"));
  EXPECT_EQ(file->size(), -1);
  EXPECT_FALSE(file->sync());
}

TEST_F(PosixStorageTest, ReadsNothingFromFoldersPipesAndDevices) {
  char buffer[4];
  const auto folder = disk_.open(folder_.path(), OpenMode::kRead);
  if (folder) {
    EXPECT_EQ(folder->readAt(0, buffer, 4), -1);
    EXPECT_EQ(folder->size(), -1);
  }
  ASSERT_EQ(::mkfifo(folder_.file("pipe").c_str(), 0600), 0);
  const auto pipe = disk_.open(folder_.file("pipe"), OpenMode::kRead);  // comes back although nobody writes
  if (pipe) {
    EXPECT_EQ(pipe->readAt(0, buffer, 4), -1);
    EXPECT_EQ(pipe->size(), -1);
  }
}

TEST_F(PosixStorageTest, RefusesPathsThatHoldANul) {
  folder_.write("a", "old");
  const std::string path = folder_.file("a") + std::string("\0b", 2);
  EXPECT_EQ(disk_.open(path, OpenMode::kRead), nullptr);
  EXPECT_EQ(disk_.open(path, OpenMode::kCreate), nullptr);
  EXPECT_FALSE(disk_.exists(path));
  EXPECT_FALSE(disk_.remove(path));
  EXPECT_FALSE(disk_.rename(path, folder_.file("c")));
  EXPECT_FALSE(disk_.rename(folder_.file("a"), path));
  EXPECT_FALSE(disk_.copy(folder_.file("a"), path));
  EXPECT_EQ(disk_.makeFolder(path), EINVAL);
  EXPECT_FALSE(disk_.syncFolder(path));
  EXPECT_EQ(folder_.read("a"), "old");
}

TEST_F(PosixStorageTest, ClosesItsDescriptorsOnExec) {
  const int before = ::open("/dev/null", O_RDONLY | O_CLOEXEC);  // the number the next one gets
  ::close(before);
  const auto file = disk_.open(folder_.file("a"), OpenMode::kCreate);
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(::fcntl(before, F_GETFD) & FD_CLOEXEC);
}

TEST_F(PosixStorageTest, ClosesWhatIsDestroyed) {
  const int before = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  ::close(before);
  disk_.open(folder_.file("a"), OpenMode::kCreate).reset();
  EXPECT_EQ(::fcntl(before, F_GETFD), -1);
}

TEST_F(PosixStorageTest, NamesEachTemporaryAnew) {
  std::string one, two;
  const auto first = disk_.openTemporary(folder_.path(), ".new-", &one);
  const auto second = disk_.openTemporary(folder_.path() + "/", ".new-", &two);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(one, two);
  EXPECT_TRUE(one.starts_with(folder_.file(".new-")));
  EXPECT_EQ(folder_.names().size(), 2u);
  EXPECT_TRUE(first->writeAt(0, "x"));
  std::string three;
  EXPECT_EQ(disk_.openTemporary(folder_.file("none"), ".new-", &three), nullptr);
}

TEST_F(PosixStorageTest, GivesNewFilesTheRightsOfTheMask) {
  const mode_t old = ::umask(027);
  std::string path;
  disk_.openTemporary(folder_.path(), "t", &path);
  ::umask(old);
  struct stat status;
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(PosixStorageTest, TellsFilesFromFolders) {
  folder_.write("a", "");
  EXPECT_TRUE(disk_.exists(folder_.file("a")));
  EXPECT_FALSE(disk_.isFolder(folder_.file("a")));
  EXPECT_TRUE(disk_.exists(folder_.path()));
  EXPECT_TRUE(disk_.isFolder(folder_.path()));
  EXPECT_FALSE(disk_.exists(folder_.file("b")));
  EXPECT_FALSE(disk_.isFolder(folder_.file("b")));
}

TEST_F(PosixStorageTest, RemovesFilesAndNoFolders) {
  folder_.write("a", "");
  EXPECT_TRUE(disk_.remove(folder_.file("a")));
  EXPECT_FALSE(disk_.remove(folder_.file("a")));
  EXPECT_FALSE(disk_.remove(folder_.path()));
  EXPECT_TRUE(disk_.isFolder(folder_.path()));
}

TEST_F(PosixStorageTest, RenamesOverWhatIsThere) {
  folder_.write("a", "new");
  folder_.write("b", "old");
  EXPECT_TRUE(disk_.rename(folder_.file("a"), folder_.file("b")));
  EXPECT_EQ(folder_.read("b"), "new");
  EXPECT_EQ(folder_.names(), Names{"b"});
  EXPECT_FALSE(disk_.rename(folder_.file("a"), folder_.file("b")));
  EXPECT_EQ(folder_.read("b"), "new");
}

TEST_F(PosixStorageTest, ExchangesTwoFiles) {
  folder_.write("a", "one");
  folder_.write("b", "two");
  if (!disk_.exchange(folder_.file("a"), folder_.file("b"))) GTEST_SKIP() << "not on this file system";
  EXPECT_EQ(folder_.read("a"), "two");
  EXPECT_EQ(folder_.read("b"), "one");
  EXPECT_FALSE(disk_.exchange(folder_.file("a"), folder_.file("c")));
  EXPECT_EQ(folder_.read("a"), "two");
}

TEST_F(PosixStorageTest, CopiesWholeFilesOverWhatIsThere) {
  const std::string content(700001, 'x');  // several rounds of the copy, the last one short
  folder_.write("a", content);
  folder_.write("b", "old");
  EXPECT_TRUE(disk_.copy(folder_.file("a"), folder_.file("b")));
  EXPECT_EQ(folder_.read("b"), content);
  EXPECT_EQ(folder_.names(), (Names{"a", "b"}));
}

TEST_F(PosixStorageTest, LeavesTheTargetOfAFailedCopyAsItWas) {
  folder_.write("b", "old");
  EXPECT_FALSE(disk_.copy(folder_.file("none"), folder_.file("b")));
  EXPECT_FALSE(disk_.copy(folder_.path(), folder_.file("b")));
  EXPECT_EQ(folder_.read("b"), "old");
  EXPECT_EQ(folder_.names(), Names{"b"});
}

TEST_F(PosixStorageTest, CopiesAFileOntoItself) {
  folder_.write("a", "text");
  EXPECT_TRUE(disk_.copy(folder_.file("a"), folder_.file("a")));
  EXPECT_EQ(folder_.read("a"), "text");
}

TEST_F(PosixStorageTest, MakesOneFolderOrTellsTheErrorNumber) {
  EXPECT_EQ(disk_.makeFolder(folder_.file("f")), 0);
  EXPECT_TRUE(disk_.isFolder(folder_.file("f")));
  EXPECT_EQ(disk_.makeFolder(folder_.file("f")), EEXIST);
  EXPECT_EQ(disk_.makeFolder(folder_.file("g/h")), ENOENT);
}

TEST_F(PosixStorageTest, SyncsFoldersOnly) {
  folder_.write("a", "");
  EXPECT_TRUE(disk_.syncFolder(folder_.path()));
  EXPECT_FALSE(disk_.syncFolder(folder_.file("a")));
  EXPECT_FALSE(disk_.syncFolder(folder_.file("none")));
}

}  // namespace
}  // namespace zavel
