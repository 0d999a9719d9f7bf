#include "dicttool/DictdWriter.h"

#include <gtest/gtest.h>

#include "dicttool/DictdDictionary.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

using Names = std::vector<std::string>;

bool writeSmall(const std::string& base) {
  DictdWriter writer(base);
  bool done = writer.addEntry("dog\n");
  writer.addWord("Dog!", 0);
  done = done && writer.addEntry("猫\ncat\n");
  writer.addWord("猫", 0);
  writer.addWord("cat", 1);
  writer.addWord("Cat", 0);
  writer.addWord("?", 0);
  done = done && writer.addEntry("cat's paw\n");
  writer.addWord("cat", 0);
  return done && writer.finish();
}

TEST(DictdWriter, FilesFoldedWordsByTheirBytes) {
  test::TempFolder folder;
  ASSERT_TRUE(writeSmall(folder.file("d")));
  EXPECT_EQ(folder.read("d.dict"), "dog\n猫\ncat\ncat's paw\nindex of 32 bytes\n");
  // Entries of one word by rank, then as they came; "cat" leads to the second entry once.
  EXPECT_EQ(folder.read("d.index"), "cat\tE\tI\ncat\tM\tK\ndog\tA\tE\n猫\tE\tI\n");
  EXPECT_EQ(folder.names(), (Names{"d.dict", "d.index"}));
}

TEST(DictdWriter, PutsALowerRankFirst) {
  test::TempFolder folder;
  DictdWriter writer(folder.file("d"));
  writer.addEntry("1\n");
  writer.addWord("x", 1);
  writer.addEntry("2\n");
  writer.addWord("x", 0);
  ASSERT_TRUE(writer.finish());
  EXPECT_EQ(writer.words(), 2u);
  EXPECT_EQ(folder.read("d.index"), "x\tC\tC\nx\tA\tC\n");
}

TEST(DictdWriter, LeavesNothingBehindUnfinished) {
  test::TempFolder folder;
  {
    DictdWriter writer(folder.file("d"));
    writer.addEntry(std::string(3 << 20, 'x'));
    writer.addWord("x", 0);
  }
  EXPECT_EQ(folder.names(), Names{});
}

TEST(DictdWriter, SurvivesEveryFaultOfTheDisk) {
  for (long n = 1;; ++n) {
    test::TempFolder folder;
    folder.write("d.dict", "old text");
    folder.write("d.index", "old index");
    test::FaultyStorage disk;
    disk.failAt(n);
    const bool done = writeSmall(folder.file("d"));
    if (disk.faults() == 0) {
      EXPECT_TRUE(done);
      break;
    }
    disk.failAt(0);
    // Both old, both new, or no index at all: never the one's index over the other's text.
    const std::string index = folder.read("d.index"), text = folder.read("d.dict");
    const bool old = index == "old index" && text == "old text";
    const bool fresh = index.starts_with("cat\t") && text.starts_with("dog\n");
    EXPECT_TRUE(old || fresh || index == "(none)") << "operation " << n;
    EXPECT_LE(folder.names().size(), 2u) << "operation " << n;
  }
}

}  // namespace
}  // namespace zavel::dicttool
