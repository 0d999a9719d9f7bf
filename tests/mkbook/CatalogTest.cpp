// Catalogs: the file's bytes, and what the reader makes of them.
#include "mkbook/Catalog.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "book/SDic.h"
#include "mkbook/RegionFile.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using test::be16;
using test::be32;

std::string zeroes(size_t count) {
  return std::string(count, '\0');
}

TEST(Catalog, HasHeaderRecordsAndIcons) {
  Catalog catalog;
  catalog.title = "Test";
  catalog.identity = 0x01020304;
  catalog.records.push_back({0x91, 5, 9, {0, 0x31, 0x7F, 0x7E}, "F.DAT"});
  catalog.largeIcon = "LARGE";
  catalog.smallIcon = "SMALL!";
  const std::string header = "HWEDINFO" + be32(0x20001) + "\x04Test" + zeroes(59) + be16(1) + zeroes(2) +
                             be32(176) + be32(5) + be32(181) + be32(6) + be32(0x01020304) + zeroes(28);
  const std::string record = zeroes(2) + be16(0x91) + be32(5) + be32(9) + zeroes(1) +
                             "\x31\x7F\x7E\x05"
                             "F.DAT" +
                             zeroes(26);
  EXPECT_EQ(catalog.bytes(), header + record + "LARGESMALL!");
  catalog.readsThrough = false;
  EXPECT_EQ(catalog.bytes()[100], 1);
}

// 63 bytes: 31 characters of two bytes, never half of one.
TEST(Catalog, CutsTitlesThatAreTooLong) {
  Catalog catalog;
  for (int i = 0; i < 40; ++i) catalog.title += "\x82\xA0";
  EXPECT_EQ(catalog.bytes()[12], 62);
  EXPECT_EQ(catalog.bytes().substr(13 + 62, 2), zeroes(2));
}

TEST(Catalog, RefusesFileNamesThatAreTooLong) {
  Catalog catalog;
  catalog.records.push_back({0x91, 5, 9, {}, std::string(31, 'x')});
  EXPECT_EQ(catalog.bytes().size(), 176u);
  catalog.records.push_back({0x91, 5, 9, {}, std::string(32, 'x')});
  EXPECT_THROW(catalog.bytes(), std::length_error);
}

TEST(Catalog, OpensAsABook) {
  const test::TempFolder folder;
  RegionFile text(folder.file("BODY.DAT"), 3);
  text.finish();
  Catalog catalog;
  catalog.title = "\x8E\xAB\x8F\x91";
  catalog.identity = 700;
  catalog.records.push_back({0, 1, 3, {}, "BODY.DAT"});
  catalog.largeIcon = largeBookIcon();
  catalog.smallIcon = smallBookIcon();
  folder.write("BOOK.CAT", catalog.bytes());
  void* book = nullptr;
  ASSERT_EQ(SDicOpenDictionary(folder.file("BOOK.CAT").c_str(), &book, nullptr, false, false), 0u);
  uint32_t first = 0, last = 0;
  EXPECT_EQ(SDicGetHonbunBlockInformation(book, &first, &last), 0u);
  EXPECT_EQ(first, 1u);
  EXPECT_EQ(last, 3u);
  EXPECT_STREQ(SDicGetDicName(book), "\x8E\xAB\x8F\x91");
  EXPECT_EQ(SDicGetDicID(book), 700u);
  EXPECT_TRUE(SDicIsZenbunSearch(book));
  SDicCloseDictionary(book);
}

TEST(Icons, AreSeenByTheReader) {
  EXPECT_EQ(largeBookIcon().size(), 512u);
  EXPECT_EQ(smallBookIcon().size(), 120u);
  EXPECT_EQ(largeBookIcon()[0], '\xFF');            // a white corner
  EXPECT_EQ(largeBookIcon()[16 * 8 + 10], '\x44');  // the cover
  const test::TempFolder folder;
  Catalog catalog;
  catalog.largeIcon = largeBookIcon();
  catalog.smallIcon = smallBookIcon();
  folder.write("BOOK.CAT", catalog.bytes());
  char* large = nullptr;
  char* small = nullptr;
  ASSERT_EQ(SDicGetDicIconInformation(folder.file("BOOK.CAT").c_str(), &large, &small), 0u);
  EXPECT_EQ(std::string(large + 118, 512), largeBookIcon());
  EXPECT_EQ(std::string(small + 118, 120), smallBookIcon());
  std::free(large);
  std::free(small);
}

}  // namespace
}  // namespace zavel::mkbook
