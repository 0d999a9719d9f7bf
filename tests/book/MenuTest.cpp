#include <gtest/gtest.h>

#include "OpenBook.h"
#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// The menu with "+" behind it where there is more, in hexadecimal, or the code.
std::string menu(OpenBook& book, const _SDICADDRESS* address = nullptr) {
  char* bytes = nullptr;
  uint32_t length = 0;
  bool more = false;
  const uint32_t status = SDicGetMenuData(book.handle, address, &bytes, &length, &more);
  if (status != 0) return OpenBook::hex(status);
  const std::string found(bytes, length);
  EXPECT_EQ(std::string(bytes + length, 64), std::string(64, '\0'));
  std::free(bytes);
  return hexOf(found) + (more ? "+" : "");
}

std::string menuAt(OpenBook& book, uint32_t block, uint32_t offset) {
  const _SDICADDRESS at = {block, offset};
  return menu(book, &at);
}

std::string colorMenu(OpenBook& book, const _SDICADDRESS* address = nullptr) {
  char* bytes = nullptr;
  uint32_t length = 0;
  const uint32_t status = SDicGetColorMenuData(book.handle, address, &bytes, &length);
  if (status != 0) return OpenBook::hex(status);
  const std::string found(bytes, length);
  std::free(bytes);
  return hexOf(found);
}

BookWriter bookWith(uint16_t kind, const std::string& text, const std::string& body = "body") {
  BookWriter writer;
  writer.region(0, 1, padded(body));
  writer.region(kind, 2, padded(text));
  return writer;
}

TEST(Menu, IsTheTextAtTheStartOfItsRegion) {
  for (const uint16_t kind : {0x01, 0x20, 0x0101, 0xFE20}) {
    OpenBook book(bookWith(kind, words({0x1F02, 0x2341, 0x1F03})));
    EXPECT_EQ(menu(book), "1F0223411F03+") << kind;
  }
}

TEST(Menu, IsWholeBehindABeginAndUpToAnEnd) {
  OpenBook book(
      bookWith(0x01, words({0x1F02, 0x2341, 0x1F0A, 0x2342, 0x1F03, 0x1F02, 0x2341, 0x2342, 0x1F41, 1})));
  EXPECT_EQ(menuAt(book, 2, 2), "23411F0A23421F03");
  EXPECT_EQ(menuAt(book, 2, 4), "1F0A23421F03+");
  EXPECT_EQ(menuAt(book, 2, 12), "23412342+");
  EXPECT_EQ(menuAt(book, 1, 2048 + 2), "23411F0A23421F03");
}

TEST(Menu, LooksForItsBeginInTheBlockAhead) {
  OpenBook book(bookWith(0x01, words({0x2341, 0x1F03}), std::string(2046, '\0') + words({0x1F02})));
  EXPECT_EQ(menu(book), "23411F03");
  // Nothing is mapped ahead.
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  writer.region(1, 9, padded(words({0x2341, 0x1F03})));
  OpenBook alone(writer);
  EXPECT_EQ(menu(alone), "23411F03+");
}

TEST(Menu, IsNoneWithoutARegionOfItsKind) {
  for (const uint16_t kind : {0x10, 0x02, 0xFF01, 0xFF20}) {
    OpenBook book(bookWith(kind, words({0x2341, 0x1F03})));
    EXPECT_EQ(menu(book), "8004100C") << kind;
    EXPECT_EQ(menuAt(book, 2, 0), "8004100C") << kind;
  }
}

TEST(Menu, PassesHiddenRegions) {
  BookWriter writer = bookWith(0xFF01, words({0x2341, 0x1F03}));
  OpenBook book(writer.region(0x20, 3, padded(words({0x2342, 0x1F03}))));
  EXPECT_EQ(menu(book), "23421F03+");
}

TEST(Menu, TakesTheFirstRegionOfEitherKind) {
  BookWriter writer = bookWith(0x20, words({0x2341, 0x1F03}));
  OpenBook book(writer.region(0x01, 3, padded(words({0x2342, 0x1F03}))));
  EXPECT_EQ(menu(book), "23411F03+");
}

TEST(Menu, FailsWhereItCantBeRead) {
  OpenBook book(bookWith(0x01, words({0x2341})));
  EXPECT_EQ(menu(book), "8004100D");
  EXPECT_EQ(menuAt(book, 7, 0), "8004100D");
  EXPECT_EQ(menuAt(book, 0, 0), "8004100D");
}

TEST(ColorMenu, BeginsWithAPictureOrAFrame) {
  const std::string picture = words({0x1F4B, 0, 0, 0, 0x2341, 0x1F03});
  const std::string frame = words({0x1F4C, 0, 0x2341, 0x1F03});
  OpenBook book(bookWith(0x10, picture + frame));
  EXPECT_EQ(colorMenu(book), hexOf(picture));
  const _SDICADDRESS at = {2, 12};
  EXPECT_EQ(colorMenu(book, &at), hexOf(frame));
  const _SDICADDRESS other = {2, 8};
  EXPECT_EQ(colorMenu(book, &other), "8004100E");
}

TEST(ColorMenu, IsNoneWithoutARegionOfItsKind) {
  for (const uint16_t kind : {0x01, 0x11, 0xFF10}) {
    OpenBook book(bookWith(kind, words({0x1F4C, 0, 0x1F03})));
    EXPECT_EQ(colorMenu(book), "8004100C") << kind;
  }
  OpenBook book(bookWith(0x0110, words({0x1F4C, 0, 0x1F03})));
  EXPECT_EQ(colorMenu(book), "1F4C00001F03");
}

TEST(ColorMenu, PassesHiddenRegions) {
  BookWriter writer = bookWith(0xFF10, words({0x1F4C, 0, 0x1F03}));
  OpenBook book(writer.region(0x10, 3, padded(words({0x1F4C, 1, 0x1F03}))));
  EXPECT_EQ(colorMenu(book), "1F4C00011F03");
}

TEST(ColorMenu, FailsWhereItCantBeRead) {
  OpenBook book(bookWith(0x10, words({0x1F4C, 0})));
  EXPECT_EQ(colorMenu(book), "8004100D");
}

}  // namespace
}  // namespace zavel::book
