#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::vector<std::string> decoded(const std::string& records) {
  const Block block(records);
  BareManager manager;
  EXPECT_TRUE(manager.DecodeMidashiData(block.size(), block.handle()));
  return manager.midashiList;
}

std::vector<size_t> sizes(const std::vector<std::string>& list) {
  std::vector<size_t> result;
  for (const std::string& text : list) result.push_back(text.size());
  return result;
}

TEST(DecodeMidashiData, KeepsEachLinesZeroByte) {
  EXPECT_EQ(decoded(lineRecord(sjis("go [行く]")) + lineRecord("goal")),
            (std::vector<std::string>{sjis("go [行く]") + raw("\0"), raw("goal\0")}));
}

TEST(DecodeMidashiData, RemovesTagsAndWritesSuperscriptsInBrackets) {
  EXPECT_EQ(decoded(lineRecord(tag(0xF5B1) + "go" + tag(0xF5C1) + tag(0xF4B5) + "1" + tag(0xF4D0))),
            (std::vector<std::string>{raw("go(1)\0")}));
}

TEST(DecodeMidashiData, ReplacesTheListBefore) {
  BareManager manager;
  manager.midashiList = {"old"};
  const Block block(lineRecord("go"));
  manager.DecodeMidashiData(block.size(), block.handle());
  EXPECT_EQ(manager.midashiList, (std::vector<std::string>{raw("go\0")}));
}

TEST(DecodeMidashiData, IsFalseAndEmptiesTheListForASizeOfZero) {
  BareManager manager;
  manager.midashiList = {"old"};
  EXPECT_FALSE(manager.DecodeMidashiData(0, nullptr));
  EXPECT_TRUE(manager.midashiList.empty());
}

TEST(DecodeMidashiData, StopsAtASingleByte) {
  EXPECT_EQ(decoded(lineRecord("go") + "\x05").size(), 1u);
}

TEST(DecodeMidashiData, CutsALineThatTheBlockDoesNotHold) {
  EXPECT_EQ(decoded(lineRecord("go") + raw("\xFF\xFFgoal")), (std::vector<std::string>{raw("go\0"), "goal"}));
  EXPECT_EQ(decoded(raw("\x05\0")), (std::vector<std::string>{""}));
}

TEST(DecodeMidashiData, ALineOfLengthZeroIsAnEmptyLine) {
  EXPECT_EQ(decoded(raw("\0\0") + lineRecord("go")), (std::vector<std::string>{"", raw("go\0")}));
}

TEST(DecodeMidashiData, WrapsAtSixtyFourKilobytesAndEndsWhereItHasBeenBefore) {
  std::string records;
  records += raw("\xE8\xFD") + std::string(65000, 'A');  // 65,000 is 0xFDE8
  records += raw("\x58\x02") + std::string(600, 'B');    // at 65,002
  ASSERT_EQ(records.size(), 65604u);
  // Behind the second line the offset is 65,604, that is 68: inside the first line, whose bytes "AA" read
  // as the length 0x4141 = 16,705. So it goes on by 16,707 from 68 to 16,775, 33,482 and 50,189, where
  // 15,413 bytes are left; that ends at 65,604 again.
  EXPECT_EQ(sizes(decoded(records)), (std::vector<size_t>{65000, 600, 16705, 16705, 16705, 15413}));
}

TEST(DecodeMidashiData, EndsWhereALineLeadsBackToItself) {
  // Length 0xFFFE at offset 0: 0 + 2 + 65,534 is 65,536, that is 0.
  EXPECT_EQ(sizes(decoded(raw("\xFE\xFF") + std::string(65534, 'A') + lineRecord("go"))),
            (std::vector<size_t>{65534}));
}

TEST(DecodeMidashiData, BoundsWhatOverlappingLinesAskFor) {
  // Every offset reads the length 0xFFFF and leads to the next one: 4 GiB of text in all.
  const Block block(std::string(140000, '\xFF'));
  BareManager manager;
  EXPECT_TRUE(manager.DecodeMidashiData(block.size(), block.handle()));
  EXPECT_LT(manager.midashiList.size(), 300u);
}

TEST(GetMidashiData, IsEmptyBeyondTheList) {
  BareManager manager;
  manager.midashiList = {"a", "b"};
  EXPECT_EQ(manager.GetMidashiData(1), "b");
  EXPECT_EQ(manager.GetMidashiData(2), "");
  EXPECT_EQ(manager.GetMidashiData(0xFFFFFFFF), "");
}

TEST(CountMidashiData, IsZeroWhileNotInitialized) {
  BareManager manager;
  manager.midashiList = {"a", "b"};
  EXPECT_EQ(manager.CountMidashiData(), 2u);
  manager.initialized = 0;
  EXPECT_EQ(manager.CountMidashiData(), 0u);
}

}  // namespace
}  // namespace zavel::test
