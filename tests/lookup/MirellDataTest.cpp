#include "lookup/MirellData.h"

#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"
#include "platform/TextEncoding.h"

namespace zavel::test {
namespace {

MirellData row(const std::string& midashi, const std::string& keyword, bool english) {
  MirellData data;
  data.initWithMidashiBytes(midashi.data(), midashi.size(), keyword.data(), keyword.size(), english);
  return data;
}

TEST(MirellData, CopiesBothByteStrings) {
  const std::string midashi = sjis("みち [道]") + raw("\0");
  const MirellData data = row(midashi, sjis("みち"), false);
  EXPECT_EQ(std::string(data.midashiBytes(), data.midashiLength()), midashi);
  EXPECT_EQ(std::string(data.keywordBytes(), data.keywordLength()), sjis("みち"));
  EXPECT_FALSE(data.english());
  EXPECT_TRUE(row("go", "go", true).english());
}

TEST(MirellData, TitlesAreDecodedUpToTheZeroByte) {
  const MirellData data = row(sjis("みち [道]") + raw("\0"), sjis("みち") + raw("\0x"), false);
  EXPECT_EQ(data.indexTitle(), "みち [道]");
  EXPECT_EQ(data.iPodTitle(), "みち");
  EXPECT_EQ(data.cacheFile(), "");
}

TEST(MirellData, SetDataIndexTitleReplacesTitleAndFile) {
  MirellData data = row("go", "go", true);
  data.setDataIndexTitle("行く", "/cache/x");
  EXPECT_EQ(data.indexTitle(), "行く");
  EXPECT_EQ(data.cacheFile(), "/cache/x");
  EXPECT_EQ(data.iPodTitle(), "go");
}

TEST(MirellData, SetDataDecodesTheTitle) {
  MirellData data;
  data.setData(TextEncoding::adoptSjis(sjis("行く")), "/cache/y");
  EXPECT_EQ(data.indexTitle(), "行く");
  EXPECT_EQ(data.cacheFile(), "/cache/y");
}

TEST(MirellData, ACopyHasNoBytes) {
  MirellData data = row("go [x]", "go", true);
  data.setDataIndexTitle("title", "file");
  const MirellData copy = data.copyWithZone();
  EXPECT_EQ(copy.indexTitle(), "title");
  EXPECT_EQ(copy.cacheFile(), "file");
  EXPECT_EQ(copy.midashiLength(), 0u);
  EXPECT_EQ(copy.keywordLength(), 0u);
  EXPECT_FALSE(copy.english());
  EXPECT_EQ(copy.iPodTitle(), "");
}

}  // namespace
}  // namespace zavel::test
