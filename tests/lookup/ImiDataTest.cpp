#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string joined(const std::string& records) {
  const Block block(records);
  return BareManager().DecodeImiData(1, block.size(), block.handle());
}

std::vector<std::string> listed(const std::string& records) {
  const Block block(records);
  BareManager manager;
  EXPECT_EQ(manager.DecodeImiData(0, block.size(), block.handle()), "");
  return manager.meaningList;
}

TEST(DecodeImiData, ListsEntriesInTheAnswersOrderEachWithTwoCarriageReturns) {
  EXPECT_EQ(listed(imiRecord("first entry") + imiRecord("second entry")),
            (std::vector<std::string>{"first entry\r\r", "second entry\r\r"}));
}

TEST(DecodeImiData, JoinsEntries) {
  EXPECT_EQ(joined(imiRecord("first entry") + imiRecord("second entry")), "first entry\r\rsecond entry\r\r");
}

TEST(DecodeImiData, JoiningFillsNoList) {
  const Block block(imiRecord("entry"));
  BareManager manager;
  manager.meaningList = {"old"};
  manager.outputText = "old";
  manager.DecodeImiData(1, block.size(), block.handle());
  EXPECT_TRUE(manager.meaningList.empty());
  EXPECT_EQ(manager.outputText, "");
}

TEST(DecodeImiData, TurnsLineFeedsAndZeroBytesOverExceptInTheLastFourBytes) {
  EXPECT_EQ(joined(imiRecord(raw("a\nb\0c\nd\ne\0"))), raw("a\rb c\rd\ne\0\r\r"));
  EXPECT_EQ(joined(imiRecord("\n\n\n\n\n\n")), "\r\r\n\n\n\n\r\r");
}

TEST(DecodeImiData, LeavesRecordsOfUnderFiveBytesAsTheyAre) {
  EXPECT_EQ(joined(imiRecord("\n\n\n\n")), "\n\n\n\n\r\r");
  EXPECT_EQ(joined(imiRecord("\n\n\n\n\n")), "\r\n\n\n\n\r\r");
  EXPECT_EQ(joined(imiRecord("")), "\r\r");
}

TEST(DecodeImiData, DropsTheMarkedStretchesOfText) {
  EXPECT_EQ(joined(imiRecord(sjis("go ≦gou≧ 行く"))), sjis("go  行く\r\r"));
  EXPECT_EQ(listed(imiRecord(sjis("≦a≧b≦c≧d"))), (std::vector<std::string>{"bd\r\r"}));
}

TEST(DecodeImiData, AnEndMarkAheadErasesToTheEndWithTheCarriageReturns) {
  EXPECT_EQ(joined(imiRecord(sjis("a≧b≦c≧d"))), sjis("a≧b"));
}

TEST(DecodeImiData, AStartMarkWithoutAnEndStays) {
  EXPECT_EQ(joined(imiRecord(sjis("a≦bcd"))), sjis("a≦bcd\r\r"));
}

TEST(DecodeImiData, ChangesNothingForASizeOfZeroOrWhileNotInitialized) {
  const Block block(imiRecord("entry"));
  BareManager manager;
  manager.meaningList = {"old"};
  manager.outputText = "old";
  EXPECT_EQ(manager.DecodeImiData(1, 0, nullptr), "");
  EXPECT_EQ(manager.DecodeImiData(0, 0, block.handle()), "");
  manager.initialized = 0;
  EXPECT_EQ(manager.DecodeImiData(1, block.size(), block.handle()), "");
  EXPECT_EQ(manager.meaningList, (std::vector<std::string>{"old"}));
  EXPECT_EQ(manager.outputText, "old");
}

TEST(DecodeImiData, CutsARecordThatTheBlockDoesNotHoldAndStops) {
  EXPECT_EQ(joined(imiRecord("entry") + raw("\xFF\xFF\xFF\xFFrest")), "entry\r\rrest\r\r");
  EXPECT_EQ(joined(imiRecord("entry") + raw("\x01\0\0")), "entry\r\r");
  EXPECT_EQ(joined(raw("\x05\0\0\0")), "\r\r");
}

TEST(GetHeadLine, EndsAheadOfTheFirstCarriageReturn) {
  BareManager manager;
  EXPECT_EQ(manager.GetHeadLine("go\rbe\r"), "go");
  EXPECT_EQ(manager.GetHeadLine("go"), "go");
  EXPECT_EQ(manager.GetHeadLine("\rgo"), "");
  EXPECT_EQ(manager.GetHeadLine("go\nbe"), "go\nbe");
}

TEST(GetImiData, IsTheOutputTextOnceInitialized) {
  BareManager manager;
  manager.outputText = "text";
  EXPECT_EQ(manager.GetImiData(), "text");
  manager.initialized = 0;
  EXPECT_EQ(manager.GetImiData(), "");
}

}  // namespace
}  // namespace zavel::test
