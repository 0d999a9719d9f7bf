#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

TEST(OutputResultFile, WritesTextAndStyleRecord) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  BareManager manager;
  manager.styleRuns = {styledRun(0, 1, kRed), plainRun(258)};
  EXPECT_TRUE(manager.OutputResultFile(FileReference("/cache/result"), raw("go\rx\0y")));
  const MemoryForkedFiles::File& file = files.files["/cache/result"];
  EXPECT_EQ(file.type, "TEXT");
  EXPECT_EQ(file.creator, "ttxt");
  EXPECT_EQ(file.text, raw("go\rx\0y"));
  EXPECT_EQ(file.recordType, "styl");
  EXPECT_EQ(file.number, 128);
  EXPECT_EQ(file.record,
            raw("\x00\x02"
                "\x00\x00\x00\x00\x00\x10\x00\x0C\x40\x00\x01\x00\x00\x0C\xFF\xFF\x00\x00\x00\x00"
                "\x00\x00\x01\x02\x00\x10\x00\x0C\x40\x00\x00\x00\x00\x0C\x00\x00\x00\x00\x00\x00"));
}

TEST(OutputResultFile, WritesAnEmptyTextAndAnEmptyRecord) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  EXPECT_TRUE(BareManager().OutputResultFile(FileReference("/r"), ""));
  EXPECT_EQ(files.files["/r"].text, "");
  EXPECT_EQ(files.files["/r"].record, raw("\0\0"));
}

TEST(OutputResultFile, TheRecordHoldsAtMostWhatItsCountCanTell) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  BareManager manager;
  manager.styleRuns.resize(70000);
  EXPECT_TRUE(manager.OutputResultFile(FileReference("/r"), "x"));
  EXPECT_EQ(files.files["/r"].record.size(), 2u + 65535u * 20u);
  EXPECT_EQ(files.files["/r"].record.substr(0, 2), "\xFF\xFF");
}

TEST(OutputResultFile, AnUnsetReferenceIsRefused) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  EXPECT_FALSE(BareManager().OutputResultFile(FileReference(), "x"));
  EXPECT_TRUE(files.files.empty());
}

TEST(OutputResultFile, TellsOfAFileThatCannotBeMadeOrPutInPlace) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  files.failCreate = true;
  EXPECT_FALSE(BareManager().OutputResultFile(FileReference("/r"), "x"));
  files.failCreate = false;
  files.failClose = true;
  EXPECT_FALSE(BareManager().OutputResultFile(FileReference("/r"), "x"));
}

TEST(OutputResultFile, DoesNotTellOfAFailedWriteOfEitherPart) {
  TestPlatform platform;
  MemoryForkedFiles files;
  platform.forked = &files;
  files.failText = true;
  EXPECT_TRUE(BareManager().OutputResultFile(FileReference("/r"), "x"));
  files.failText = false;
  files.failStyle = true;
  EXPECT_TRUE(BareManager().OutputResultFile(FileReference("/r"), "x"));
}

TEST(OutputResultFile, ComesBackWholeFromThePortsOwnFiles) {
  const TempFolder folder;
  const std::string path = folder.prefix() + "result";
  BareManager manager;
  const std::string text = manager.OutputResult(tag(0xF5D1) + sjis("みち") + tag(0xF5C1) + "\rroad\r");
  ASSERT_TRUE(manager.OutputResultFile(FileReference(path), text));
  std::string readText, record;
  ASSERT_TRUE(defaultPlatform().forkedFiles().read(path, "styl", 128, &readText, &record));
  EXPECT_EQ(readText, sjis("みち\rroad\r"));
  ASSERT_EQ(manager.styleRuns.size(), 4u);
  EXPECT_EQ(record.size(), 2u + 4u * 20u);
  EXPECT_EQ(record.substr(0, 2), raw("\0\x04"));
}

}  // namespace
}  // namespace zavel::test
