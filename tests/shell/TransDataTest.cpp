#include "shell/TransData.h"

#include <gtest/gtest.h>

#include "platform/PropertyLists.h"
#include "platform/TextEncoding.h"
#include "support/FakePlatform.h"
#include "support/TempFolder.h"

namespace zavel::test {
namespace {

class TransRow : public ::testing::Test {
 protected:
  TransRow() { platform.ownBundle.texts["StarMark"] = "★"; }

  // The detail of a result file with these members.
  std::string detail(const Value& file, bool english) {
    EXPECT_TRUE(platform.propertyLists().writeFile(folder.file("r"), file, PropertyListFormat::kXml));
    TransData row;
    row.initWithIndexTitleData(TextEncoding::adoptSjis("q"), folder.file("r"), english);
    EXPECT_EQ(row.isAvailable(), !row.detailString().empty());
    return row.detailString();
  }
  std::string japanese(const Value::Array& search) {
    return detail(
        Value::Dict{{"Search", search},
                    {"DictInfoJE", Value::Dict{{"1", "/d/One.sdje"}, {"2", "/d/.two"}, {"3", "/d/x/"}}}},
        false);
  }

  TempFolder folder;
  FakePlatform platform;
};

TEST_F(TransRow, ANumberAndTwoTextsGiveThreeLines) {
  EXPECT_EQ(japanese({1, "go", "walk"}), "★One\n    go\n    walk\n");
}

TEST_F(TransRow, AListThatBeginsWithATextHasNoHeading) {
  EXPECT_EQ(japanese({"go", 1, "walk"}), "    go\n\n★One\n    walk\n");
}

TEST_F(TransRow, AHeadingIsTheFileNameWithoutItsExtension) {
  EXPECT_EQ(japanese({2}), "★.two\n");
  EXPECT_EQ(japanese({3}), "★x\n");
  EXPECT_EQ(japanese({1, 1}), "★One\n\n★One\n");
}

TEST_F(TransRow, ANumberWithoutADictionaryGivesAHeadingWithoutAName) {
  EXPECT_EQ(japanese({9, "go"}), "★\n    go\n");
  EXPECT_EQ(detail(Value::Dict{{"Search", Value::Array{1, "go"}}}, false), "★\n    go\n");
}

TEST_F(TransRow, AnEnglishListShowsItsFirstElement) {
  EXPECT_EQ(detail(Value::Dict{{"Search", Value::Array{"one", "two"}}}, true), "one");
}

TEST_F(TransRow, WithoutAUsableListTheDetailIsEmpty) {
  for (const bool english : {true, false}) {
    EXPECT_EQ(detail(Value::Dict{}, english), "");
    EXPECT_EQ(detail(Value::Dict{{"Search", "text"}}, english), "");
    EXPECT_EQ(detail(Value::Dict{{"Search", Value::Array{}}}, english), "");
    EXPECT_EQ(detail(Value::Array{"x"}, english), "");
  }
  TransData row;
  row.initWithIndexTitleData(TextEncoding::adoptSjis("q"), folder.file("missing"), true);
  EXPECT_FALSE(row.isAvailable());
}

TEST_F(TransRow, TheTitleIsTheQueryAsTextAndTheFlagIsKept) {
  TransData row;
  row.initWithIndexTitleData(*platform.encoding().toSjisStrict("行く"), folder.file("missing"), false);
  EXPECT_EQ(row.indexTitle(), "行く");
  EXPECT_FALSE(row.english());
  row.initWithIndexTitleData(TextEncoding::adoptSjis("go"), folder.file("missing"), true);
  EXPECT_TRUE(row.english());
  row.setIndexTitle("other", "detail");
  EXPECT_TRUE(row.english());
}

TEST_F(TransRow, TitleAndDetailCanBeSetAndCopied) {
  TransData row;
  row.initWithIndexTitle("title", "detail");
  EXPECT_TRUE(row.isAvailable());
  const TransData copy = row.copyWithZone();
  row.setIndexTitle("other", "");
  EXPECT_FALSE(row.isAvailable());
  EXPECT_FALSE(row.english());
  EXPECT_EQ(copy.indexTitle(), "title");
  EXPECT_EQ(copy.detailString(), "detail");
}

}  // namespace
}  // namespace zavel::test
