#include "engine/FsObj.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::FaultyStorage;
using test::readFile;
using test::TempFolder;
using test::writeFile;

class FsObjTest : public ::testing::Test {
 protected:
  // Bytes that tell their place: 00 00, 00 01, ... big-endian.
  static std::string Counting(size_t bytes) {
    std::string out;
    for (size_t i = 0; i < bytes / 2; ++i) out += {static_cast<char>(i >> 8), static_cast<char>(i)};
    return out;
  }

  TempFolder folder_;
  const std::string path_ = folder_.prefix() + "file";
  FsObj stream_;
};

TEST_F(FsObjTest, OpensOnlyWhatExists) {
  EXPECT_FALSE(stream_.Open(path_, true));
  EXPECT_FALSE(stream_.Open(path_, false));
  EXPECT_FALSE(stream_.IsOpen());
  EXPECT_FALSE(std::filesystem::exists(path_));
  writeFile(path_, "x");
  EXPECT_TRUE(stream_.Open(path_, true));
  EXPECT_TRUE(stream_.IsOpen());
  EXPECT_TRUE(stream_.Close());
  EXPECT_FALSE(stream_.IsOpen());
  EXPECT_TRUE(stream_.Close());
}

TEST_F(FsObjTest, AClosedStreamRefusesEverything) {
  char byte;
  uint32_t offset;
  std::string_view view;
  EXPECT_EQ(stream_.Size(), -1);
  EXPECT_FALSE(stream_.ReadExact(0, &byte, 1));
  EXPECT_FALSE(stream_.ReadWindow(0, 1, &view));
  EXPECT_FALSE(stream_.Append("x", &offset));
  EXPECT_FALSE(stream_.WriteAt(0, "x"));
  EXPECT_FALSE(stream_.Sync());
}

TEST_F(FsObjTest, ReadExactTakesAllOrFails) {
  writeFile(path_, "abcdef");
  ASSERT_TRUE(stream_.Open(path_, true));
  char out[3] = {};
  EXPECT_TRUE(stream_.ReadExact(3, out, 3));
  EXPECT_EQ(std::string(out, 3), "def");
  EXPECT_FALSE(stream_.ReadExact(4, out, 3));
  EXPECT_EQ(stream_.Size(), 6);
}

TEST_F(FsObjTest, ReadWindowGivesAtLeastWhatIsAskedUnlessTheFileEnds) {
  const std::string bytes = Counting(200000);
  writeFile(path_, bytes);
  ASSERT_TRUE(stream_.Open(path_, true));
  std::string_view view;
  for (const uint64_t offset : {0u, 2u, 4095u, 4096u, 150000u, 199999u, 7u}) {
    for (const size_t atLeast : {0u, 1u, 5000u, 70000u}) {
      ASSERT_TRUE(stream_.ReadWindow(offset, atLeast, &view));
      EXPECT_GE(view.size(), std::min<size_t>(atLeast, 200000 - offset));
      EXPECT_EQ(view, std::string_view(bytes).substr(offset, view.size()));
    }
  }
}

TEST_F(FsObjTest, ReadWindowIsEmptyAtTheEndOfTheFile) {
  writeFile(path_, "abc");
  ASSERT_TRUE(stream_.Open(path_, true));
  std::string_view view = "old";
  EXPECT_TRUE(stream_.ReadWindow(3, 10, &view));
  EXPECT_EQ(view, "");
  view = "old";
  EXPECT_TRUE(stream_.ReadWindow(1000000, 10, &view));
  EXPECT_EQ(view, "");
}

TEST_F(FsObjTest, RowsThatFollowEachOtherShareReads) {
  writeFile(path_, Counting(60000));
  FaultyStorage disk;
  ASSERT_TRUE(stream_.Open(path_, true));
  std::string_view view;
  for (uint64_t offset = 0; offset < 60000; offset += 300)
    ASSERT_TRUE(stream_.ReadWindow(offset, 300, &view));
  EXPECT_LE(disk.count("readAt"), 8);
}

TEST_F(FsObjTest, ALoneReadStaysSmall) {
  writeFile(path_, Counting(200000));
  ASSERT_TRUE(stream_.Open(path_, true));
  std::string_view view;
  ASSERT_TRUE(stream_.ReadWindow(100000, 10, &view));
  EXPECT_EQ(view.size(), 1024u);
}

TEST_F(FsObjTest, AFailedReadIsToldAndForgotten) {
  writeFile(path_, "abcdef");
  FaultyStorage disk;
  ASSERT_TRUE(stream_.Open(path_, true));
  disk.failAt(1);
  std::string_view view;
  char out[3];
  EXPECT_FALSE(stream_.ReadWindow(0, 3, &view));
  EXPECT_TRUE(stream_.ReadWindow(0, 3, &view));
  EXPECT_EQ(view, "abcdef");
  disk.failAt(1);
  EXPECT_FALSE(stream_.ReadExact(0, out, 3));
}

TEST_F(FsObjTest, AppendTellsWhereTheBytesWent) {
  writeFile(path_, "abc");
  ASSERT_TRUE(stream_.Open(path_, false));
  uint32_t offset = 99;
  EXPECT_TRUE(stream_.Append("defg", &offset));
  EXPECT_EQ(offset, 3u);
  EXPECT_TRUE(stream_.Append("h", &offset));
  EXPECT_EQ(offset, 7u);
  EXPECT_TRUE(stream_.Sync());
  EXPECT_EQ(readFile(path_), "abcdefgh");
}

TEST_F(FsObjTest, AppendStopsWhereOffsetsEnd) {
  writeFile(path_, "");
  std::filesystem::resize_file(path_, 0xFFFFFFFE);
  ASSERT_TRUE(stream_.Open(path_, false));
  uint32_t offset = 0;
  EXPECT_FALSE(stream_.Append("ab", &offset));
  EXPECT_TRUE(stream_.Append("a", &offset));
  EXPECT_EQ(offset, 0xFFFFFFFEu);
}

TEST_F(FsObjTest, WritingIsSeenByLaterReads) {
  writeFile(path_, "abc");
  ASSERT_TRUE(stream_.Open(path_, false));
  std::string_view view;
  ASSERT_TRUE(stream_.ReadWindow(0, 10, &view));
  uint32_t offset;
  ASSERT_TRUE(stream_.Append("d", &offset));
  ASSERT_TRUE(stream_.WriteAt(0, "A"));
  ASSERT_TRUE(stream_.ReadWindow(0, 10, &view));
  EXPECT_EQ(view, "Abcd");
}

TEST_F(FsObjTest, AReadOnlyStreamCannotWrite) {
  writeFile(path_, "abc");
  ASSERT_TRUE(stream_.Open(path_, true));
  uint32_t offset;
  EXPECT_FALSE(stream_.Append("d", &offset));
  EXPECT_EQ(readFile(path_), "abc");
}

TEST_F(FsObjTest, CreateCutsWhatWasThere) {
  writeFile(path_, "abc");
  ASSERT_TRUE(stream_.Create(path_));
  uint32_t offset = 9;
  EXPECT_TRUE(stream_.Append("x", &offset));
  EXPECT_EQ(offset, 0u);
  EXPECT_EQ(readFile(path_), "x");
  EXPECT_FALSE(stream_.Create(folder_.prefix() + "missing/file"));
}

}  // namespace
}  // namespace zavel::engine
