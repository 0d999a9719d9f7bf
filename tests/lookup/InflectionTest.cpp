#include "lookup/Inflection.h"

#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"

namespace zavel::test {
namespace {

std::string origin(const std::string& records) {
  const Block block(records);
  return BareManager().PickupOriginData(block.size(), block.handle());
}

std::vector<Inflection> decoded(const std::string& records) {
  const Block block(records);
  BareManager manager;
  EXPECT_TRUE(manager.DecodeInflectionData(block.size(), block.handle()));
  return manager.inflectionList;
}

TEST(InflectionLabel, NamesEachFormCode) {
  EXPECT_EQ(inflectionLabel(1), sjis(" [名　詞：単数形]"));
  EXPECT_EQ(inflectionLabel(2), sjis(" [名　詞：複数形]"));
  EXPECT_EQ(inflectionLabel(3), sjis(" [形容詞：原　級]"));
  EXPECT_EQ(inflectionLabel(4), sjis(" [形容詞：比較級]"));
  EXPECT_EQ(inflectionLabel(5), sjis(" [形容詞：最上級]"));
  EXPECT_EQ(inflectionLabel(6), sjis(" [動　詞：現在分詞]"));
  EXPECT_EQ(inflectionLabel(7), sjis(" [動　詞：三単現]"));
  EXPECT_EQ(inflectionLabel(8), sjis(" [動　詞：過去形]"));
  EXPECT_EQ(inflectionLabel(9), sjis(" [動　詞：過去分詞]"));
  EXPECT_EQ(inflectionLabel(10), sjis(" [動　詞：現在分詞]"));
}

TEST(InflectionLabel, AsksForAnyOtherCode) {
  for (const uint32_t code : {0u, 11u, 255u, 0xFFFFFFFFu}) {
    EXPECT_EQ(inflectionLabel(code), sjis(" [？？？？]")) << code;
  }
}

TEST(PickupOriginData, TakesTheFirstFormThatNamesTheWordItself) {
  for (const uint8_t code : {1, 3, 6, 7}) {
    EXPECT_EQ(origin(formRecord(2, "x") + formRecord(code, "go") + formRecord(1, "y")), "go") << int{code};
  }
}

TEST(PickupOriginData, PassesOverAllOtherForms) {
  std::string records;
  for (const uint8_t code : {0, 2, 4, 5, 8, 9, 10, 11, 33, 35, 38, 39, 255}) records += formRecord(code, "x");
  EXPECT_EQ(origin(records), "");
}

TEST(PickupOriginData, IsEmptyForASizeOfZero) {
  const Block block(formRecord(1, "go"));
  EXPECT_EQ(BareManager().PickupOriginData(0, block.handle()), "");
  EXPECT_EQ(BareManager().PickupOriginData(0, nullptr), "");
}

TEST(PickupOriginData, ARecordOfLengthZeroHasAnEmptyText) {
  EXPECT_EQ(origin(raw("\0\0\1") + formRecord(1, "go")), "");
  EXPECT_EQ(origin(raw("\0\0\2") + formRecord(1, "go")), "go");
}

TEST(PickupOriginData, StopsWhereTheBlockEndsInsideARecord) {
  EXPECT_EQ(origin(raw("\x03")), "");
  EXPECT_EQ(origin(raw("\x03\0")), "");
  EXPECT_EQ(origin(raw("\x03\0\1go")), "");  // the zero byte is missing
  EXPECT_EQ(origin(raw("\xFF\xFF\1go\0")), "");
}

TEST(PickupOriginData, ReadsNoFurtherThanTheBlock) {
  const Block block(formRecord(2, "x"));
  EXPECT_EQ(BareManager().PickupOriginData(block.size() + 100, block.handle()), "");
  EXPECT_EQ(BareManager().PickupOriginData(100, nullptr), "");
}

TEST(DecodeInflectionData, KeepsCodesOneToTenWithTheirLabels) {
  std::vector<Inflection> expected;
  std::string records;
  for (uint8_t code = 0; code <= 11; ++code) {
    const std::string form = "f" + std::to_string(code);
    records += formRecord(code, form);
    if (code >= 1 && code <= 10) expected.push_back({code, form, inflectionLabel(code)});
  }
  EXPECT_EQ(decoded(records), expected);
}

TEST(DecodeInflectionData, LeavesOutAFormWithoutALabelAndDoesNotCountIt) {
  const Block block(formRecord(8, "went") + formRecord(11, "gone") + formRecord(9, "gone"));
  BareManager manager;
  manager.DecodeInflectionData(block.size(), block.handle());
  EXPECT_EQ(manager.CountInflectionData(), 2u);
}

TEST(DecodeInflectionData, ReplacesTheListBefore) {
  BareManager manager;
  manager.inflectionList.push_back({1, "old", ""});
  const Block block(formRecord(8, "went"));
  EXPECT_TRUE(manager.DecodeInflectionData(block.size(), block.handle()));
  ASSERT_EQ(manager.inflectionList.size(), 1u);
  EXPECT_EQ(manager.inflectionList[0].form, "went");
}

TEST(DecodeInflectionData, IsFalseAndEmptiesTheListForASizeOfZero) {
  BareManager manager;
  manager.inflectionList.push_back({1, "old", ""});
  EXPECT_FALSE(manager.DecodeInflectionData(0, nullptr));
  EXPECT_TRUE(manager.inflectionList.empty());
}

TEST(DecodeInflectionData, StopsWhereTheBlockEndsInsideARecord) {
  EXPECT_EQ(decoded(formRecord(8, "went") + raw("\x05\0\x09gone")).size(), 1u);
}

TEST(GetInflectionData, GivesFormLabelAndCarriageReturn) {
  BareManager manager;
  const Block block(formRecord(6, "go") + formRecord(8, "went"));
  manager.DecodeInflectionData(block.size(), block.handle());
  uint32_t code = 99;
  EXPECT_EQ(manager.GetInflectionData(1, &code), sjis("went [動　詞：過去形]\r"));
  EXPECT_EQ(code, 8u);
  EXPECT_EQ(manager.GetPureInflectionData(0, &code), "go");
  EXPECT_EQ(code, 6u);
}

TEST(GetInflectionData, BeyondTheListIsEmptyAndLeavesTheCodeAlone) {
  BareManager manager;
  const Block block(formRecord(8, "went"));
  manager.DecodeInflectionData(block.size(), block.handle());
  uint32_t code = 99;
  EXPECT_EQ(manager.GetInflectionData(1, &code), "");
  EXPECT_EQ(manager.GetPureInflectionData(1, &code), "");
  EXPECT_EQ(manager.GetPureInflectionData(0xFFFFFFFF, &code), "");
  EXPECT_EQ(code, 99u);
}

TEST(CountInflectionData, IsZeroWhileNotInitialized) {
  BareManager manager;
  manager.inflectionList.resize(3);
  EXPECT_EQ(manager.CountInflectionData(), 3u);
  manager.initialized = 0;
  EXPECT_EQ(manager.CountInflectionData(), 0u);
}

}  // namespace
}  // namespace zavel::test
