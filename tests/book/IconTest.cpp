#include <gtest/gtest.h>

#include <cerrno>

#include "OpenBook.h"
#include "Words.h"
#include "book/DicIcon.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

struct Icons {
  explicit Icons(const std::string& path) {
    status = SDicGetDicIconInformation(path.c_str(), &large, &small);
  }
  ~Icons() {
    std::free(large);
    std::free(small);
  }
  uint32_t status;
  char* large = nullptr;
  char* small = nullptr;
};

BookWriter bookWithIcons() {
  BookWriter writer;
  writer.largeIcon = std::string(512, '\x12');
  writer.smallIcon = std::string(120, '\x34');
  writer.region(0, 1, padded("body"));
  return writer;
}

const char* const kPalette =
    "00000000"
    "00008000"
    "00800000"
    "00808000"
    "80000000"
    "80008000"
    "80800000"
    "C0C0C000"
    "80808000"
    "0000FF00"
    "00FF0000"
    "00FFFF00"
    "FF000000"
    "FF00FF00"
    "FFFF0000"
    "FFFFFF00";

// 0x76 is 118: 54 bytes of headers, 64 of palette. Resolution 100 dots a metre both ways.
TEST(DicIcon, IsABitmapFileOfSixteenColours) {
  const TempFolder folder;
  const Icons icons(bookWithIcons().write(folder));
  ASSERT_EQ(icons.status, 0u);
  EXPECT_EQ(hexOf(std::string(icons.large, 118)), std::string("424D"
                                                              "76020000"
                                                              "00000000"
                                                              "76000000"
                                                              "28000000"
                                                              "20000000"
                                                              "20000000"
                                                              "0100"
                                                              "0400"
                                                              "00000000"
                                                              "00000000"
                                                              "64000000"
                                                              "64000000"
                                                              "00000000"
                                                              "00000000") +
                                                      kPalette);
  EXPECT_EQ(std::string(icons.large + 118, 512), std::string(512, '\x12'));
  EXPECT_EQ(hexOf(std::string(icons.small, 118)), std::string("424D"
                                                              "EE000000"
                                                              "00000000"
                                                              "76000000"
                                                              "28000000"
                                                              "10000000"
                                                              "0F000000"
                                                              "0100"
                                                              "0400"
                                                              "00000000"
                                                              "00000000"
                                                              "64000000"
                                                              "64000000"
                                                              "00000000"
                                                              "00000000") +
                                                      kPalette);
  EXPECT_EQ(std::string(icons.small + 118, 120), std::string(120, '\x34'));
}

TEST(DicIcon, MayBeAskedForAlone) {
  const TempFolder folder;
  const std::string path = bookWithIcons().write(folder);
  char* icon = nullptr;
  EXPECT_EQ(SDicGetDicIconInformation(path.c_str(), &icon, nullptr), 0u);
  EXPECT_EQ(icon[118], '\x12');
  std::free(icon);
  EXPECT_EQ(SDicGetDicIconInformation(path.c_str(), nullptr, &icon), 0u);
  EXPECT_EQ(icon[118], '\x34');
  std::free(icon);
  EXPECT_EQ(SDicGetDicIconInformation(path.c_str(), nullptr, nullptr), 0u);
}

TEST(DicIcon, IsNoneWithoutABook) {
  const TempFolder folder;
  const Icons missing(folder.file("none"));
  EXPECT_EQ(missing.status, 0x80041004u);
  folder.write("short", "HWEDINFO");
  EXPECT_EQ(Icons(folder.file("short")).status, 0x80041004u);
  BookWriter other = bookWithIcons();
  other.magic = "HWEDINFX";
  const std::string path = other.write(folder);
  EXPECT_EQ(Icons(path).status, 0x80041004u);
  errno = 5;
  EXPECT_EQ(GFnGetDicIconBitmap(path.c_str(), true), nullptr);
  EXPECT_EQ(errno, 0);
  char* icon = nullptr;
  EXPECT_EQ(SDicGetDicIconInformation(nullptr, &icon, nullptr), 0x80041004u);
  EXPECT_EQ(icon, nullptr);
}

TEST(DicIcon, IsNoneWhereTheFileIsCut) {
  const TempFolder folder;
  const std::string whole = bookWithIcons().catalog();
  folder.write("cut", whole.substr(0, whole.size() - 1));
  const Icons icons(folder.file("cut"));  // the large one is there, the small one isn't
  EXPECT_EQ(icons.status, 0x80041004u);
  EXPECT_EQ(icons.large, nullptr);
  EXPECT_EQ(icons.small, nullptr);
}

TEST(DicIcon, IsNoneWhereItsSizeIsALie) {
  const TempFolder folder;
  std::string catalog = bookWithIcons().catalog();
  for (const std::string& size : {be32(0xFFFFFFFF), be32(0x7FFFFFFF), be32(0xFFFFFF8A)}) {
    catalog.replace(84, 4, size);
    folder.write("lie", catalog);
    EXPECT_EQ(Icons(folder.file("lie")).status, 0x80041004u);
  }
}

}  // namespace
}  // namespace zavel::book
