// Pictures and sounds: tables and tags byte by byte, and what the book engine gives for them.
#include "mkbook/MediaWriter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "book/SDic.h"
#include "mkbook/RegionFile.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using Kind = MediumShape::Kind;
using test::bcd;
using test::be16;

// A picture of dots, a "JPEG" of bytes that look like markers, two sounds: one in bare samples, one in
// chunks.
class FourMedia : public BookSource {
 public:
  size_t size() const override { return 0; }
  BookEntry entry(size_t) const override { return {}; }
  std::string title() const override { return ""; }
  std::string publisher() const override { return ""; }
  std::vector<MediumShape> media() const override {
    return {{Kind::kMonoPicture, 9, 2, 300, 0, 4},
            {Kind::kColorPicture, 0, 0, 72, 0, 9},
            {Kind::kSound, 0, 0, 72, 0x0112, 3001},
            {Kind::kSound, 0, 0, 72, 0, 12}};
  }
  std::string mediumBytes(size_t number) const override {
    const std::string all[] = {std::string("\x80\x00\x00\x80", 4),
                               "\xFF\xD8\xFF\xDA"
                               "ABCDE",
                               std::string(3000, '\x81') + "\x7F", "fmt chunks.."};
    return all[number];
  }
};

std::string address(uint32_t block, uint32_t offset) {
  return bcd(block, 4) + bcd(offset, 2);
}

class Media : public testing::Test {
 protected:
  // Regions: 2 dots, 3 colours, 4 and 5 sounds.
  void SetUp() override {
    EXPECT_EQ(writer_.place(2), 6u);
    BookFolder folder(folder_.file("book"));
    Catalog catalog;
    catalog.records = writer_.write(source_, folder);
    RegionFile text(folder.path(kBodyFile), 1);
    text.finish();
    catalog.records.insert(catalog.records.begin(), {0, 1, 1, {}, kBodyFile});
    folder.write(kCatalogFile, catalog.bytes());
    folder.putInPlace();
    ASSERT_EQ(SDicOpenDictionary(folder_.file("book/BOOK.CAT").c_str(), &book_, nullptr, false, false), 0u);
  }
  void TearDown() override { SDicCloseDictionary(book_); }

  std::string block(uint32_t number, uint32_t length) {
    const _SDICADDRESS at = {number, 0};
    char* bytes = nullptr;
    EXPECT_EQ(SDicReadData(book_, &at, length, &bytes), 0u);
    const std::string out(bytes, length);
    std::free(bytes);
    return out;
  }

  // What the engine makes of a medium's tag: "name|data", or the code.
  std::string get(size_t number, bool sound) {
    const std::string tag =
        writer_.opening(number) + test::jis("名") + writer_.closing(number) + std::string(64, '\0');
    char *name = nullptr, *data = nullptr;
    uint16_t nameLength = 0;
    uint32_t length = 0;
    const auto function = sound ? SDicGetStreamData : SDicGetPictureData;
    if (const uint32_t code = function(book_, tag.data(), &name, &nameLength, &data, &length); code != 0)
      return std::to_string(code);
    const std::string out = test::fromJis({name, nameLength}) + "|" + std::string(data, length);
    std::free(name);
    std::free(data);
    return out;
  }

  FourMedia source_;
  MediaWriter writer_{source_.media()};
  test::TempFolder folder_;
  void* book_ = nullptr;
};

TEST_F(Media, OfDotsHaveATable) {
  EXPECT_EQ(block(2, 22), "\1" + be16(14) + be16(1) + be16(10) + be16(0x000A) + be16(0) + "\1" + be16(300) +
                              "\1" + be16(300) + std::string(1, '\0') + std::string("\x80\x00\x00\x80", 4));
}

TEST_F(Media, OfColoursHaveATable) {
  const std::string zeroes(13, '\0');
  EXPECT_EQ(block(3, 51), std::string(1, '\0') + be16(18) + zeroes + be16(1) + be16(14) + be16(0x000E) +
                              std::string("\x11\0", 2) + std::string(10, '\0') + "data" +
                              std::string("\x09\0\0\0", 4) +
                              "\xFF\xD8\xFF\xDA"
                              "ABCDE");
}

TEST_F(Media, HaveTags) {
  EXPECT_EQ(writer_.opening(0), be16(0x1F44) + bcd(1, 2) + bcd(2, 4) + bcd(9, 4));
  EXPECT_EQ(writer_.closing(0), be16(0x1F64) + address(2, 18));
  EXPECT_EQ(writer_.opening(1), be16(0x1F4D) + be16(0) + be16(1) + std::string(8, '\0') + address(3, 34));
  EXPECT_EQ(writer_.closing(1), be16(0x1F6D));
  EXPECT_EQ(writer_.opening(2),
            be16(0x1F4A) + be16(0x0101) + be16(0x0112) + address(4, 0) + address(5, 953) + be16(0x1F05));
  EXPECT_EQ(writer_.closing(2), be16(0x1F6A));
  EXPECT_EQ(writer_.opening(3),
            be16(0x1F4A) + be16(0x0101) + be16(0) + address(5, 954) + address(5, 966) + be16(0x1F05));
}

TEST_F(Media, AreFoundByTheEngine) {
  const std::string dots = get(0, false);
  EXPECT_EQ(dots.substr(0, 6), "名|BM");
  EXPECT_EQ(dots.substr(4 + 62), std::string("\x00\x80\0\0\x80\x00\0\0", 8));
  EXPECT_EQ(get(1, false),
            "名|\xFF\xD8\xFF\xDA"
            "ABCDE");
  const std::string samples = get(2, true);
  EXPECT_EQ(samples.size(), 4u + 44 + 3001);
  EXPECT_EQ(samples.substr(4, 4), "RIFF");
  EXPECT_EQ(samples.substr(4 + 22, 2), std::string("\1\0", 2));          // one channel
  EXPECT_EQ(samples.substr(4 + 24, 4), std::string("\x11\x2B\0\0", 4));  // 11025
  EXPECT_EQ(samples.substr(4 + 34, 2), std::string("\x08\0", 2));        // bits
  EXPECT_EQ(samples.substr(4 + 44), source_.mediumBytes(2));
  EXPECT_EQ(get(3, true), "名|RIFF" + std::string("\x10\0\0\0", 4) + "WAVEfmt chunks..");
}

TEST(MediaLimits, AreToldByWhatTablesHold) {
  const MediumShape dots{Kind::kMonoPicture, 1, 1, 72, 0, 1};
  const MediumShape colours{Kind::kColorPicture, 1, 1, 72, 0, 1};
  EXPECT_NO_THROW(MediaWriter(std::vector<MediumShape>(4681, dots)));
  EXPECT_THROW(MediaWriter(std::vector<MediumShape>(4682, dots)), std::length_error);
  EXPECT_NO_THROW(MediaWriter(std::vector<MediumShape>(65535, colours)));
  EXPECT_THROW(MediaWriter(std::vector<MediumShape>(65536, colours)), std::length_error);
}

}  // namespace
}  // namespace zavel::mkbook
