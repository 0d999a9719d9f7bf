// Regions: the file's bytes, and what the reader's decoder makes of them.
#include "mkbook/RegionFile.h"

#include <gtest/gtest.h>

#include "book/BlockSet.h"
#include "mkbook/Failure.h"
#include "support/BookWriter.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::be32;
using test::blockSet;
using test::code;
using test::TempFolder;

std::string set(const std::string& path, uint32_t number) {
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  std::string out(32768, '?');
  EXPECT_TRUE(book::SFDecodeBlockSet(reinterpret_cast<uint8_t*>(out.data()), number, *file));
  return out;
}

std::string bytesOf(const std::string& path) {
  std::string out;
  EXPECT_TRUE(readWholeFile(path, 1 << 24, &out));
  return out;
}

// One block: "ab", then 2046 zeroes in 127 matches of fifteen, the last one shorter.
TEST(RegionFile, StandsBehindItsTable) {
  const TempFolder folder;
  RegionFile file(folder.file("R"), 1);
  file.append("a");
  file.append("b");
  file.finish();
  std::string codes = code(4079, 1, 'b') + code(0, 0, 0);
  for (int i = 0; i < 127; ++i) codes += code(4079, 15, 0);
  codes += code(4079, 12, 0);
  EXPECT_EQ(bytesOf(folder.file("R")), std::string(64, '\0') + be32(68) + blockSet('a', codes));
}

TEST(RegionFile, HoldsManySets) {
  const TempFolder folder;
  std::string all;
  for (int i = 0; all.size() < 40 * 2048 - 10; ++i) all += "number " + std::to_string(i) + "; ";
  all.resize(40 * 2048 - 10);
  RegionFile file(folder.file("R"), 40);
  for (size_t at = 0; at < all.size(); at += 1000) file.append(std::string_view(all).substr(at, 1000));
  file.finish();
  all.resize(3 * 32768);
  EXPECT_EQ(set(folder.file("R"), 0), all.substr(0, 32768));
  EXPECT_EQ(set(folder.file("R"), 1), all.substr(32768, 32768));
  EXPECT_EQ(set(folder.file("R"), 2), all.substr(65536));
}

TEST(RegionFile, FillsUpMissingBlocks) {
  const TempFolder folder;
  RegionFile file(folder.file("R"), 17);
  file.append("x");
  file.finish();
  EXPECT_EQ(set(folder.file("R"), 0), "x" + std::string(32767, '\0'));
  EXPECT_EQ(set(folder.file("R"), 1), std::string(32768, '\0'));
}

TEST(RegionFile, RefusesMoreThanWasAnnounced) {
  const TempFolder folder;
  RegionFile file(folder.file("R"), 1);
  file.append(std::string(2048, 'x'));
  EXPECT_THROW(file.append("x"), std::logic_error);
}

TEST(RegionFile, TellsWhereItCantBeMade) {
  try {
    RegionFile file("/nowhere/at/all", 1);
    FAIL() << "made";
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), "making /nowhere/at/all failed: No such file or directory");
    EXPECT_EQ(failure.status(), 3);
    EXPECT_EQ(failure.code(), "write_failed");
  }
}

}  // namespace
}  // namespace zavel::mkbook
