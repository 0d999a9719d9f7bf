#include "dicttool/DictdText.h"

#include <gtest/gtest.h>

#include "support/DictdFiles.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

using test::dictzip;
using test::plainGzip;

class DictdTextTest : public ::testing::Test {
 protected:
  // What stands at a place of the text that is packed in these bytes; the error when it can't be had.
  std::string at(const std::string& bytes, uint64_t offset, size_t length) {
    folder_.write("text", bytes);
    DictdText text;
    std::string out, error;
    if (!text.open(folder_.file("text"), &error) || !text.read(offset, length, &out, &error)) {
      return withoutFolder(error);
    }
    return out;
  }

  std::string withoutFolder(std::string error) const {
    const size_t place = error.find(folder_.prefix());
    return place == std::string::npos ? error : error.erase(place, folder_.prefix().size());
  }

  test::TempFolder folder_;
};

TEST_F(DictdTextTest, ReadsAPlainFile) {
  EXPECT_EQ(at("cat\ndog\n", 4, 3), "dog");
  EXPECT_EQ(at("cat\ndog\n", 0, 8), "cat\ndog\n");
  EXPECT_EQ(at("cat\ndog\n", 3, 0), "");
}

TEST_F(DictdTextTest, ReadsInsideAChunkAndAcrossChunks) {
  const std::string packed = dictzip("0123456789abcdefghij", 8);  // 01234567 89abcdef ghij
  EXPECT_EQ(at(packed, 0, 3), "012");
  EXPECT_EQ(at(packed, 8, 8), "89abcdef");
  EXPECT_EQ(at(packed, 6, 4), "6789");
  EXPECT_EQ(at(packed, 2, 18), "23456789abcdefghij");
  EXPECT_EQ(at(packed, 19, 1), "j");
}

TEST_F(DictdTextTest, PassesOverTheFormerName) {
  EXPECT_EQ(at(dictzip("0123456789", 4, "old.dict"), 3, 4), "3456");
}

TEST_F(DictdTextTest, UnpacksOneChunkOnceForEntriesThatStandTogether) {
  folder_.write("text", dictzip(std::string(1000, 'x') + std::string(1000, 'y'), 1000));
  test::FaultyStorage disk;
  disk.failAt(0);
  DictdText text;
  std::string out, error;
  ASSERT_TRUE(text.open(folder_.file("text"), &error));
  const long before = disk.count("readAt");
  ASSERT_TRUE(text.read(0, 10, &out, &error));
  ASSERT_TRUE(text.read(500, 10, &out, &error));
  EXPECT_EQ(out, "xxxxxxxxxx");
  EXPECT_EQ(disk.count("readAt") - before, 1);
  ASSERT_TRUE(text.read(1995, 5, &out, &error));
  EXPECT_EQ(out, "yyyyy");
  EXPECT_EQ(disk.count("readAt") - before, 2);
}

TEST_F(DictdTextTest, RefusesWhatLiesOutsideTheText) {
  EXPECT_EQ(at("cat\n", 2, 3), "text is damaged: an entry at 2 can't be read");
  EXPECT_EQ(at("cat\n", 1ull << 35, 1), "text is damaged: an entry at 34359738368 can't be read");
  const std::string packed = dictzip("0123456789", 8);
  EXPECT_EQ(at(packed, 9, 2), "text is damaged: an entry at 9 can't be read");
  EXPECT_EQ(at(packed, 10, 1), "text is damaged: an entry at 10 can't be read");
  EXPECT_EQ(at(packed, 1ull << 35, 1), "text is damaged: an entry at 34359738368 can't be read");
}

TEST_F(DictdTextTest, RefusesAMissingFile) {
  DictdText text;
  std::string error;
  EXPECT_FALSE(text.open(folder_.file("none"), &error));
  EXPECT_EQ(withoutFolder(error), "none is missing");
}

TEST_F(DictdTextTest, RefusesAGzipFileWithoutChunks) {
  EXPECT_EQ(at(plainGzip("0123456789"), 0, 1),
            "text is an ordinary gzip file, which can only be read from the start; compress it with dictzip "
            "instead");
}

TEST_F(DictdTextTest, RefusesAHeaderThatIsCutOrWrong) {
  const std::string packed = dictzip("0123456789", 8);
  const std::string damaged = "text is damaged: its table of chunks can't be read";
  EXPECT_EQ(at(packed.substr(0, 2), 0, 1), damaged);
  EXPECT_EQ(at(packed.substr(0, 20), 0, 1), damaged);
  for (const size_t place : {2, 12, 14, 16}) {  // method, name of the field, its length, version
    std::string wrong = packed;
    wrong[place] = '\x55';
    EXPECT_EQ(at(wrong, 0, 1), damaged) << place;
  }
  std::string noLength = packed;
  noLength[18] = noLength[19] = '\0';
  EXPECT_EQ(at(noLength, 0, 1), damaged);
}

TEST_F(DictdTextTest, NamesAChunkThatDoesNotUnpack) {
  std::string packed = dictzip("0123456789abcdefghij", 8);
  const size_t data = 12 + 10 + 6;  // header, table, three chunk lengths
  packed[data] = '\xFF';            // a block of no kind that there is
  EXPECT_EQ(at(packed, 0, 1), "text is damaged: an entry at 0 can't be read");
  EXPECT_EQ(at(packed, 8, 4), "89ab");  // the chunks behind it are sound
}

TEST_F(DictdTextTest, RefusesAChunkThatHoldsTooMuch) {
  std::string packed = dictzip("0123456789", 8);
  packed[18] = 4;  // chunks are said to hold four bytes
  EXPECT_EQ(at(packed, 0, 1), "text is damaged: an entry at 0 can't be read");
}

TEST_F(DictdTextTest, SurvivesEveryFaultOfTheDisk) {
  folder_.write("text", dictzip("0123456789abcdefghij", 8));
  for (long n = 1;; ++n) {
    test::FaultyStorage disk;
    disk.failAt(n);
    DictdText text;
    std::string out, error;
    const bool read = text.open(folder_.file("text"), &error) && text.read(6, 4, &out, &error);
    if (disk.faults() == 0) {
      EXPECT_TRUE(read);
      EXPECT_GT(n, 4);
      break;
    }
    EXPECT_TRUE(!read || out == "6789") << n;
    EXPECT_EQ(read, error.empty()) << n;
  }
}

}  // namespace
}  // namespace zavel::dicttool
