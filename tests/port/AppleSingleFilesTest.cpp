#include "base/AppleSingleFiles.h"

#include <gtest/gtest.h>

#include "base/ResourceFork.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using namespace std::string_literals;
using test::FaultyStorage;
using test::TempFolder;
using Names = std::vector<std::string>;

class AppleSingleFilesTest : public testing::Test {
 protected:
  bool write(const std::string& text, const std::string& style) {
    const auto writer = files_.create(path_, "TEXT", "ttxt");
    return writer && writer->writeText(text) && writer->writeStyle("styl", 128, style) && writer->close();
  }
  // Text and record as one string, "(refused)" when reading fails.
  std::string read(const char* type = "styl", uint16_t number = 128) {
    std::string text = "old", record = "old";
    if (!files_.read(path_, type, number, &text, &record)) {
      EXPECT_EQ(text + record, "");
      return "(refused)";
    }
    return text + "|" + record;
  }

  TempFolder folder_;
  std::string path_ = folder_.file("Result");
  AppleSingleFiles files_;
};

TEST_F(AppleSingleFilesTest, ReadsBackBothParts) {
  EXPECT_TRUE(write("go\r\x82\xA0\0x"s, "\0\1\xFF"s));
  EXPECT_EQ(read(), "go\r\x82\xA0\0x|\0\1\xFF"s);
  EXPECT_EQ(folder_.names(), Names{"Result"});
}

// The whole file by the published layouts, byte for byte.
TEST_F(AppleSingleFilesTest, LaysTheFileOutAsPublished) {
  ASSERT_TRUE(write("Hi!", "ab"));
  const std::string head =
      "\x00\x05\x16\x00"s  // magic
      "\x00\x02\x00\x00"s  // version
      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s
      "\x00\x03"s                                          // three entries
      "\x00\x00\x00\x09\x00\x00\x00\x3E\x00\x00\x00\x20"s  // Finder information: 62, 32 bytes
      "\x00\x00\x00\x02\x00\x00\x00\x5E\x00\x00\x01\x38"s  // resource fork: 94, 312 bytes
      "\x00\x00\x00\x01\x00\x00\x01\x96\x00\x00\x00\x03"s  // data fork: 406, 3 bytes
      "TEXTttxt\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;
  const std::string resources =
      "\x00\x00\x01\x00"s    // data at 256
      "\x00\x00\x01\x06"s    // map at 262
      "\x00\x00\x00\x06"s    // 6 bytes of data
      "\x00\x00\x00\x32"s +  // 50 bytes of map
      std::string(240, '\0') +
      "\x00\x00\x00\x02"
      "ab"s                                                 // the record
      + std::string(24, '\0') +                             // of use in memory only
      "\x00\x1C"s                                           // type list at 28
      "\x00\x32"s                                           // name list at the end
      "\x00\x00"s                                           // one type
      "styl\x00\x00\x00\x0A"s                               // one record, references at 10 of the type list
      "\x00\x80\xFF\xFF\x00\x00\x00\x00\x00\x00\x00\x00"s;  // number 128, no name, at 0 of the data
  EXPECT_EQ(folder_.read("Result"), head + resources + "Hi!");
}

TEST_F(AppleSingleFilesTest, LeavesTheResourceForkOutWithoutRecords) {
  const auto writer = files_.create(path_, "TEXT", "ttxt");
  EXPECT_TRUE(writer->writeText("Hi!"));
  EXPECT_TRUE(writer->close());
  const std::string bytes = folder_.read("Result");
  EXPECT_EQ(bytes.size(), 26u + 2 * 12 + 32 + 3);
  EXPECT_EQ(bytes.substr(24, 2), "\0\2"s);
  EXPECT_EQ(read(), "Hi!|");
}

TEST_F(AppleSingleFilesTest, GivesAnEmptyRecordWhereThereIsNone) {
  ASSERT_TRUE(write("text", "style"));
  EXPECT_EQ(read("styl", 129), "text|");
  EXPECT_EQ(read("font", 128), "text|");
}

TEST_F(AppleSingleFilesTest, KeepsSeveralRecordsApart) {
  const auto writer = files_.create(path_, "TEXT", "ttxt");
  EXPECT_TRUE(writer->writeStyle("styl", 128, "first"));
  EXPECT_TRUE(writer->writeStyle("styl", 5, ""));
  EXPECT_TRUE(writer->writeStyle("font", 128, "third"));
  EXPECT_TRUE(writer->writeStyle("styl", 128, "again"));
  EXPECT_TRUE(writer->close());
  EXPECT_EQ(read("styl", 128), "|again");
  EXPECT_EQ(read("styl", 5), "|");
  EXPECT_EQ(read("font", 128), "|third");
}

TEST_F(AppleSingleFilesTest, ShowsNothingBeforeClosing) {
  folder_.write("Result", "old");
  const auto writer = files_.create(path_, "TEXT", "ttxt");
  ASSERT_NE(writer, nullptr);
  EXPECT_TRUE(writer->writeText("new"));
  EXPECT_EQ(folder_.read("Result"), "old");
  EXPECT_TRUE(writer->close());
  EXPECT_EQ(read(), "new|");
  EXPECT_FALSE(writer->close());
}

TEST_F(AppleSingleFilesTest, LeavesTheOldFileWhenNeverClosed) {
  folder_.write("Result", "old");
  files_.create(path_, "TEXT", "ttxt")->writeText("new");
  EXPECT_EQ(folder_.read("Result"), "old");
  EXPECT_EQ(folder_.names(), Names{"Result"});
}

TEST_F(AppleSingleFilesTest, LeavesTheOldFileWhenAnyStepFails) {
  FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    folder_.write("Result", "old");
    disk.failAt(n);
    const bool written = write("text", "style");
    if (disk.faults() == 0) break;
    // Of the last three a failing exchange leaves renaming as the way, a failing removal the new file.
    EXPECT_EQ(written, n > 3) << n;
    EXPECT_EQ(folder_.read("Result") == "old", n <= 3) << n;
    EXPECT_EQ(folder_.names().size(), n <= 4 ? 1u : 2u) << n;
  }
  EXPECT_EQ(disk.history()[0], "openTemporary " + folder_.path());
  EXPECT_EQ(disk.count("writeAt"), 1);
  EXPECT_EQ(disk.count("sync"), 0);
  EXPECT_GE(n, 5);
  disk.failAt(0);
  EXPECT_EQ(read(), "text|style");
}

TEST_F(AppleSingleFilesTest, LeavesTheOldFileWhenAllFailsFromAStepOn) {
  FaultyStorage disk;
  for (long n = 1; n <= 4; ++n) {
    folder_.write("Result", "old");
    disk.failAt(n, FaultyStorage::kForEver);
    EXPECT_FALSE(write("text", "style")) << n;
    EXPECT_EQ(folder_.read("Result"), "old") << n;
  }
}

TEST_F(AppleSingleFilesTest, BeginsNothingWhereNoFileCanStand) {
  EXPECT_EQ(files_.create(folder_.file("none/Result"), "TEXT", "ttxt"), nullptr);
  EXPECT_EQ(files_.create(folder_.path(), "TEXT", "ttxt"), nullptr);
  EXPECT_EQ(files_.create(path_, "TEXTS", "ttxt"), nullptr);
  EXPECT_EQ(files_.create(path_, "TEXT", "ttx"), nullptr);
  EXPECT_EQ(folder_.names(), Names{});
}

TEST_F(AppleSingleFilesTest, RefusesRecordsThatTheLayoutCanNotHold) {
  const auto writer = files_.create(path_, "TEXT", "ttxt");
  EXPECT_FALSE(writer->writeStyle("sty", 128, "x"));
  EXPECT_TRUE(writer->writeStyle("styl", 128, std::string(16 * 1024 * 1024 - 3, 'x')));
  EXPECT_FALSE(writer->close());
  EXPECT_EQ(folder_.names(), Names{});
}

TEST_F(AppleSingleFilesTest, RefusesWhatIsNoSuchFile) {
  EXPECT_EQ(read(), "(refused)");
  folder_.write("Result", "");
  EXPECT_EQ(read(), "(refused)");
  folder_.write("Result", "plain text of more than twenty-six bytes");
  EXPECT_EQ(read(), "(refused)");
  ASSERT_TRUE(write("text", "style"));
  EXPECT_EQ(read("sty"), "(refused)");
}

TEST_F(AppleSingleFilesTest, RefusesOtherContainers) {
  ASSERT_TRUE(write("text", "style"));
  const std::string good = folder_.read("Result");
  for (const size_t at : {3u, 5u, 53u}) {  // magic, version, the id of the data fork
    std::string other = good;
    other[at] = static_cast<char>(other[at] + 7);
    folder_.write("Result", other);
    EXPECT_EQ(read(), "(refused)") << at;
  }
}

TEST_F(AppleSingleFilesTest, ReadsAnEmptyRecordAtTheEnd) {
  ASSERT_TRUE(write("text", ""));
  EXPECT_EQ(read(), "text|");
}

TEST_F(AppleSingleFilesTest, ReadsALargeResultWhole) {
  const std::string text(300000, 't');
  std::string style;
  for (int i = 0; i < 200000; ++i) style += static_cast<char>(i);
  ASSERT_TRUE(write(text, style));
  EXPECT_EQ(read(), text + "|" + style);
}

TEST_F(AppleSingleFilesTest, TellsTheCodesThatAFileWasCreatedWith) {
  ASSERT_TRUE(write("Hi!", "ab"));
  const std::optional<FileSignature> signature = files_.signature(folder_.file("Result"));
  ASSERT_TRUE(signature);
  EXPECT_EQ(signature->type + "|" + signature->creator, "TEXT|ttxt");
}

TEST_F(AppleSingleFilesTest, FilesWithoutCodesTellNone) {
  EXPECT_FALSE(files_.signature(folder_.file("nothing")));
  EXPECT_FALSE(files_.signature(folder_.path()));
  folder_.write("Result", "");
  EXPECT_FALSE(files_.signature(folder_.file("Result")));
  folder_.write("Result", "plain text, more than a head");
  EXPECT_FALSE(files_.signature(folder_.file("Result")));
  ASSERT_TRUE(write("Hi!", ""));
  const std::string good = folder_.read("Result");
  for (size_t length = 0; length < 26 + 2 * 12 + 32; ++length) {  // head, two entries, Finder information
    folder_.write("Result", good.substr(0, length));
    EXPECT_FALSE(files_.signature(folder_.file("Result"))) << length;
  }
}

// Every cut and every changed byte of a small file: read or refused, never a read outside.
TEST_F(AppleSingleFilesTest, StandsEveryDamage) {
  ASSERT_TRUE(write("Hi!", "ab"));
  const std::string good = folder_.read("Result");
  for (size_t length = 0; length < good.size(); ++length) {
    folder_.write("Result", good.substr(0, length));
    EXPECT_EQ(read(), "(refused)") << length;  // the text stands last
  }
  int readable = 0, changes = 0;
  for (size_t at = 0; at < good.size(); ++at) {
    const char old = good[at];
    for (char now :
         {'\0', '\xFF', static_cast<char>(old ^ 1), static_cast<char>(old + 1), static_cast<char>(old - 1)}) {
      std::string damaged = good;
      damaged[at] = now;
      folder_.write("Result", damaged);
      ++changes;
      readable += read() != "(refused)" ? 1 : 0;
    }
  }
  EXPECT_GT(readable, 0);
  EXPECT_LT(readable, changes);
}

TEST(ResourceFork, WritesNoMoreThanItsMapCanTell) {
  ResourceRecords records;
  for (int i = 0; i < 5000; ++i) records[{"styl", static_cast<uint16_t>(i)}] = "x";
  EXPECT_FALSE(writeResourceFork(records).empty());
  for (int i = 5000; i < 6000; ++i) records[{"styl", static_cast<uint16_t>(i)}] = "x";
  EXPECT_TRUE(writeResourceFork(records).empty());
  EXPECT_TRUE(writeResourceFork({}).empty());
}

TEST(ResourceFork, HoldsSixteenMebibytesAndNoMore) {
  const std::string longest(16 * 1024 * 1024 - 4, 'x');
  const std::string fork = writeResourceFork({{{"styl", 128}, longest}});
  std::string record;
  EXPECT_TRUE(readResource(fork, "styl", 128, &record));
  EXPECT_EQ(record, longest);
  EXPECT_EQ(writeResourceFork({{{"styl", 128}, longest + "x"}}), "");
}

TEST(ResourceFork, ReadsAForkWithoutTypes) {
  // A fork as other programs leave it when they took the last record out: the list tells -1 types.
  std::string fork = "\0\0\1\0\0\0\1\0\0\0\0\0\0\0\0\x1E"s + std::string(240, '\0') + std::string(24, '\0') +
                     "\0\x1C\0\x1E\xFF\xFF"s;
  std::string record = "old";
  EXPECT_TRUE(readResource(fork, "styl", 128, &record));
  EXPECT_EQ(record, "");
}

}  // namespace
}  // namespace zavel
