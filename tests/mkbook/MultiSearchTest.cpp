// Forms: their bytes, and what a host gets from them.
#include "mkbook/MultiSearchWriter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "book/SDic.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::be16;
using test::be32;
using test::jis;

class Form : public testing::Test {
 protected:
  // A book of one form over three entries at 1/2, 1/4, 1/6, opened.
  void SetUp() override {
    MultiSearchWriter writer({"Words", {{"Size", false, {"1", "12"}}, {"Name", true, {}}}}, characters_);
    writer.add({{"1"}, {"ant (red)", "アリ"}}, {1, 2});
    writer.add({{"12"}, {"anteater"}}, {1, 4});
    writer.add({{"1"}, {"bee"}}, {1, 6});
    writer.settle();
    ASSERT_EQ(writer.blocks(), 4u);
    RegionFile text(folder_.file("BODY"), 1), file(folder_.file("MULTI"), 4);
    text.finish();
    writer.write(2, file);
    file.finish();
    Catalog catalog;
    catalog.records = {{0, 1, 1, {}, "BODY"}, {0xFF, 2, 5, {}, "MULTI"}};
    folder_.write("BOOK", catalog.bytes());
    folder_.write("EXINFO.INI", "[GENERAL]\nMUL0NAME=Words\n");
    ASSERT_EQ(SDicOpenDictionary(folder_.file("BOOK").c_str(), &book_, nullptr, false, false), 0u);
  }
  void TearDown() override { SDicCloseDictionary(book_); }

  std::string search(const std::string& query) {
    long count = 0, first = 0;
    const uint32_t code = SDicExecIndexSearch(book_, jis(query).c_str(), false, false, &count, &first);
    if (code != 0) return "code " + std::to_string(code);
    std::string out;
    for (long i = 0; i < count; ++i) {
      _SDICITEMADDRESS hit{};
      EXPECT_EQ(SDicGetSearchResult(book_, static_cast<unsigned long>(i), &hit), 0u);
      out += std::to_string(hit.body.offset) + " ";
    }
    return out;
  }
  std::string block(uint32_t number) {
    const _SDICADDRESS at = {number, 0};
    char* bytes = nullptr;
    EXPECT_EQ(SDicReadData(book_, &at, 2048, &bytes), 0u);
    const std::string out(bytes, 2048);
    std::free(bytes);
    return out;
  }

  Unifont font_{""};
  CustomCharacters characters_{font_};
  test::TempFolder folder_;
  void* book_ = nullptr;
};

std::string field(std::string text, size_t size) {
  text.resize(size);
  return text;
}

TEST_F(Form, HasADefinition) {
  const std::string none(6, '\0');
  EXPECT_EQ(block(2), field(field(be16(2), 16) + field(std::string("\2\0", 2) + jis("Size"), 32) +
                                std::string("\1\0", 2) + be32(3) + be32(1) + none + std::string("\xA1\0", 2) +
                                be32(4) + be32(1) + none + field(std::string("\1\0", 2) + jis("Name"), 32) +
                                std::string("\x91\0", 2) + be32(5) + be32(1) + none,
                            2048));
}

TEST_F(Form, HasChoices) {
  const std::string nowhere(6, '\0');
  EXPECT_EQ(block(3), field(be16(0x1F02) + be16(0x1F43) + jis("1") + be16(0x1F63) + nowhere + be16(0x1F43) +
                                jis("12") + be16(0x1F63) + nowhere + be16(0x1F03),
                            2048));
}

TEST_F(Form, FilesWholeValuesInGroups) {
  using test::place;
  EXPECT_EQ(block(4), test::IndexBlock(0xB0)
                          .tagged(0, jis("1"), place(1, 2) + place(1, 2))
                          .tagged(0, jis("1"), place(1, 6) + place(1, 6))
                          .tagged(0, jis("12"), place(1, 4) + place(1, 4))
                          .bytes());
}

TEST_F(Form, IsSeenByAHost) {
  uint16_t count = 0;
  EXPECT_EQ(SDicGetMultiSearchCount(book_, &count), 0u);
  EXPECT_EQ(count, 1);
  char* text = nullptr;
  ASSERT_EQ(SDicGetMultiSearchName(book_, 0, &text), 0u);
  EXPECT_STREQ(text, "Words");
  std::free(text);
  uint8_t fields = 0;
  EXPECT_EQ(SDicGetMultiSearchEntryCount(book_, 0, &fields), 0u);
  EXPECT_EQ(fields, 2);
  bool hasList = false;
  ASSERT_EQ(SDicGetMultiSearchEntryInfo(book_, 0, 0, &text, &hasList), 0u);
  EXPECT_STREQ(text, "\xA3\xD3\xA3\xE9\xA3\xFA\xA3\xE5");  // Ｓｉｚｅ in EUC-JP
  EXPECT_TRUE(hasList);
  std::free(text);
  _SDICMULTIREFLIST* list = nullptr;
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book_, 0, 0, &list), 0u);
  EXPECT_EQ(std::string(list->name), jis("1"));
  ASSERT_NE(list->next, nullptr);
  EXPECT_EQ(std::string(list->next->name), jis("12"));
  EXPECT_EQ(list->next->next, nullptr);
}

TEST_F(Form, FindsByWholeValuesAndByBeginnings) {
  EXPECT_EQ(search("▽0▼01"), "2 6 ");
  EXPECT_EQ(search("▽0▼012"), "4 ");
  EXPECT_EQ(search("▽0▼02"), "");
  EXPECT_EQ(search("▽0▼1ant"), "2 4 ");
  EXPECT_EQ(search("▽0▼1ant (red)"), "2 ");
  EXPECT_EQ(search("▽0▼1アリ"), "2 ");
  EXPECT_EQ(search("▽0▼01▼1an"), "2 ");
}

// The list of headings, then the list below the first of them at 7/40: each item has 2 + 2 + 2 + 6 bytes,
// each list 4 more.
TEST(ChoicesInTwoLevels, StandOneListBehindTheOther) {
  Unifont font{""};
  CustomCharacters characters{font};
  MultiSearchWriter writer({"色", {{"色", false, {{"緑", {"苔", "葉"}}, "赤", {"青", {"空"}}}}}}, characters);
  writer.settle();
  ASSERT_EQ(writer.blocks(), 3u);
  test::TempFolder folder;
  RegionFile text(folder.file("BODY"), 1), file(folder.file("MULTI"), 3);
  text.finish();
  writer.write(6, file);
  file.finish();
  Catalog catalog;
  catalog.records = {{0, 1, 1, {}, "BODY"}, {0xFF, 6, 8, {}, "MULTI"}};
  folder.write("BOOK", catalog.bytes());
  void* book = nullptr;
  ASSERT_EQ(SDicOpenDictionary(folder.file("BOOK").c_str(), &book, nullptr, false, false), 0u);
  const auto item = [](const std::string& name, uint32_t offset) {
    return be16(0x1F43) + jis(name) + be16(0x1F63) + test::bcd(offset == 0 ? 0 : 7, 4) + test::bcd(offset, 2);
  };
  const _SDICADDRESS at = {7, 0};
  char* bytes = nullptr;
  ASSERT_EQ(SDicReadData(book, &at, 84, &bytes), 0u);
  EXPECT_EQ(std::string(bytes, 84), be16(0x1F02) + item("緑", 40) + item("赤", 0) + item("青", 68) +
                                        be16(0x1F03) + be16(0x1F02) + item("苔", 0) + item("葉", 0) +
                                        be16(0x1F03) + be16(0x1F02) + item("空", 0) + be16(0x1F03));
  std::free(bytes);
  _SDICMULTIREFLIST* list = nullptr;
  ASSERT_EQ(SDicGetMultiSearchReferenceList(book, 0, 0, &list), 0u);
  EXPECT_EQ(std::string(list->name), jis("緑"));
  ASSERT_NE(list->child, nullptr);
  EXPECT_EQ(std::string(list->child->name), jis("苔"));
  EXPECT_EQ(std::string(list->child->next->name), jis("葉"));
  EXPECT_EQ(list->child->next->next, nullptr);
  EXPECT_EQ(std::string(list->next->name), jis("赤"));
  EXPECT_EQ(list->next->child, nullptr);
  EXPECT_EQ(std::string(list->next->next->child->name), jis("空"));
  SDicCloseDictionary(book);
}

TEST_F(Form, IsRefusedWhenItDoesNotFit) {
  EXPECT_THROW(MultiSearchWriter({"", {{std::string(16, 'x'), false, {}}}}, characters_), std::length_error);
  EXPECT_NO_THROW(MultiSearchWriter({"", {{std::string(15, 'x'), false, {}}}}, characters_));
  EXPECT_THROW(MultiSearchWriter({"", std::vector<SearchField>(43, {"x", false, {}})}, characters_),
               std::length_error);
}

}  // namespace
}  // namespace zavel::mkbook
