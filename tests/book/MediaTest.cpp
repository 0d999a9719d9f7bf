#include <gtest/gtest.h>

#include <ctime>

#include "OpenBook.h"
#include "Words.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// What an operation on a tag gave: code, name, data.
struct Media {
  std::string code;
  std::string name;
  std::string data;
};

using Operation = uint32_t (*)(void*, const char*, char**, uint16_t*, char**, uint32_t*);

Media get(OpenBook& book, Operation operation, std::string tag) {
  tag += std::string(64, '\0');
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 0;
  uint32_t length = 0;
  const uint32_t status = operation(book.handle, tag.c_str(), &name, &nameLength, &data, &length);
  Media found = {OpenBook::hex(status), "", ""};
  if (status != 0 && status != 0x80042001) return found;
  if (name) found.name.assign(name, nameLength);
  found.data.assign(data, length);
  std::free(name);
  std::free(data);
  return found;
}

Media picture(OpenBook& book, const std::string& tag) {
  return get(book, SDicGetPictureData, tag);
}

Media sound(OpenBook& book, const std::string& tag) {
  return get(book, SDicGetStreamData, tag);
}

std::string record(uint32_t id, const std::string& data) {
  return be16(id) + be16(static_cast<uint32_t>(data.size())) + data;
}

// Resolution of a picture: unit and value, for both ways.
std::string resolution(char xUnit, uint32_t x, char yUnit, uint32_t y) {
  return words({0x000A, 0}) + xUnit + be16(x) + yUnit + be16(y);
}

std::string monoTag(uint32_t number, uint32_t width, uint32_t height, const std::string& name, uint32_t block,
                    uint32_t offset) {
  return Text()
      .word(0x1F44)
      .raw(bcd(number, 2))
      .raw(bcd(height, 4))
      .raw(bcd(width, 4))
      .chars(name)
      .word(0x1F64)
      .address(block, offset)
      .bytes();
}

// The body has the bytes 00, 01 and so on to FF, over and over.
std::string counting() {
  std::string out;
  for (int i = 0; i < 2048; ++i) out += static_cast<char>(i);
  return out;
}

BookWriter monoBook(const std::string& records, char first = 1) {
  BookWriter writer;
  writer.region(0, 1, counting());
  return writer.region(0xD0, 10, padded(first + be16(static_cast<uint32_t>(records.size())) + records));
}

// 33 x 2 dots: rows of 5 bytes, in the file of 8. 0x4E is 78.
TEST(MonoPicture, IsABitmapFile) {
  OpenBook book(monoBook(record(7, resolution(1, 254, 0, 30)) + record(12, resolution(1, 300, 0, 50))));
  const Media found = picture(book, monoTag(12, 33, 2, "図", 1, 16));
  EXPECT_EQ(found.code, "00000000");
  EXPECT_EQ(found.name, jis("図"));
  // 300 dots an inch are 11811 a metre, 0x2E23; 50 a centimetre are 5000, 0x1388.
  EXPECT_EQ(hexOf(found.data),
            "424D"
            "4E000000"
            "00000000"
            "3E000000"
            "28000000"
            "21000000"
            "02000000"
            "0100"
            "0100"
            "00000000"
            "00000000"
            "232E0000"
            "88130000"
            "00000000"
            "00000000"
            "FFFFFF00"
            "00000000"
            "1516171819000000"
            "1011121314000000");
  EXPECT_EQ(hexOf(picture(book, monoTag(7, 33, 2, "", 1, 16)).data.substr(38, 8)), "10270000B80B0000");
}

TEST(MonoPicture, HasRowsOfWholeWords) {
  OpenBook book(monoBook(record(1, resolution(0, 1, 0, 1))));
  const struct {
    uint32_t width;
    size_t size;
  } rows[] = {{1, 66}, {31, 66}, {32, 66}, {33, 70}, {64, 70}, {65, 74}, {0, 62}};
  for (const auto& row : rows)
    EXPECT_EQ(picture(book, monoTag(1, row.width, 1, "", 1, 0)).data.size(), row.size);
}

TEST(MonoPicture, MayHaveNoName) {
  OpenBook book(monoBook(record(1, resolution(0, 1, 0, 1))));
  const std::string tag = monoTag(1, 8, 1, "", 1, 0) + std::string(64, '\0');
  char *name = nullptr, *data = nullptr;
  uint16_t nameLength = 9;
  uint32_t length = 0;
  ASSERT_EQ(SDicGetPictureData(book.handle, tag.c_str(), &name, &nameLength, &data, &length), 0u);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(nameLength, 0);
  std::free(data);
  // A caller may not want the name.
  const std::string named = monoTag(1, 8, 1, "A", 1, 0) + std::string(64, '\0');
  ASSERT_EQ(SDicGetPictureData(book.handle, named.c_str(), nullptr, nullptr, &data, &length), 0u);
  std::free(data);
}

TEST(MonoPicture, NeedsItsTable) {
  const std::string tag = monoTag(1, 8, 1, "", 1, 0);
  const auto code = [&](const BookWriter& writer) {
    OpenBook book(writer);
    return picture(book, tag).code;
  };
  EXPECT_EQ(code(monoBook(record(1, resolution(0, 1, 0, 1)))), "00000000");
  EXPECT_EQ(code(BookWriter().region(0, 1, padded("body"))), "8004100E");
  EXPECT_EQ(code(monoBook(record(1, resolution(0, 1, 0, 1)), 2)), "80041001");
  EXPECT_EQ(code(monoBook(record(2, resolution(0, 1, 0, 1)))), "8004100E");
  EXPECT_EQ(code(monoBook("")), "8004100E");
  EXPECT_EQ(code(monoBook(record(1, resolution(2, 1, 0, 1)))), "80041001");
  EXPECT_EQ(code(monoBook(record(1, resolution(0, 1, 2, 1)))), "80041001");
  EXPECT_EQ(code(monoBook(record(1, words({0x000E, 0, 0, 0, 0})))), "80041001");
  EXPECT_EQ(code(monoBook(record(1, words({0x000A, 0})))), "80041001");
  EXPECT_EQ(code(monoBook(record(1, ""))), "80041001");
  EXPECT_EQ(code(monoBook(record(1, resolution(0, 1, 0, 1)).substr(0, 13))), "8004100E");  // leaves the table
}

TEST(MonoPicture, IsReadOrNothing) {
  OpenBook book(monoBook(record(1, resolution(0, 1, 0, 1))));
  EXPECT_EQ(picture(book, monoTag(1, 8, 1, "", 5, 0)).code, "8004100D");
  EXPECT_EQ(picture(book, monoTag(1, 8, 1, "", 1, 2047)).code, "00000000");
  EXPECT_EQ(picture(book, monoTag(1, 8, 2, "", 1, 2047)).code, "8004100D");
  EXPECT_EQ(picture(book, monoTag(1, 99999999, 99999999, "", 1, 0)).code, "8004100D");
}

TEST(MonoPicture, WithoutWidthTakesNoTimeForItsRows) {
  OpenBook book(monoBook(record(1, resolution(0, 1, 0, 1))));
  const std::clock_t begin = std::clock();
  EXPECT_EQ(picture(book, monoTag(1, 0, 99999999, "", 1, 0)).data.size(), 62u);
  EXPECT_LT(std::clock() - begin, CLOCKS_PER_SEC / 10);
}

TEST(Picture, IsOfATagForOne) {
  OpenBook book(monoBook(record(1, resolution(0, 1, 0, 1))));
  EXPECT_EQ(picture(book, words({0x1F4A, 1, 2, 3})).code, "8004100E");
  EXPECT_EQ(picture(book, "").code, "8004100E");
  // The tag that closes the name is missing.
  EXPECT_EQ(picture(book, monoTag(1, 8, 1, "A", 1, 0).substr(0, 14)).code, "8004100E");
}

std::string colorTag(uint32_t tag, uint32_t number, const std::string& name, uint32_t block,
                     uint32_t offset) {
  return Text()
      .word(tag)
      .word(0)
      .word(number)
      .raw(std::string(8, '\0'))
      .address(block, offset)
      .chars(name)
      .word(tag == 0x1F3C ? 0x1F5C : 0x1F6D)
      .bytes();
}

std::string colorRecord(uint8_t first, uint8_t second) {
  std::string out = be16(0x000E) + static_cast<char>(first) + static_cast<char>(second);
  out.resize(14);
  return out;
}

BookWriter colorBook(const std::string& records, const std::string& data) {
  std::string table(1, '\0');
  table += be16(static_cast<uint32_t>(records.size()));
  table.resize(16);
  BookWriter writer;
  writer.region(0, 1, padded("body"));
  return writer.region(0xD2, 10, padded(table + records) + padded(data));
}

TEST(ColorPicture, IsGivenAsTheBookHasIt) {
  const std::string data = std::string("data\x03\0\0\0abcdef", 14);
  OpenBook book(colorBook(record(3, colorRecord(0x11, 0)), data));
  for (const uint32_t tag : {0x1F4Du, 0x1F3Cu}) {
    const Media found = picture(book, colorTag(tag, 3, "絵", 11, 0));
    EXPECT_EQ(found.code, "00000000");
    EXPECT_EQ(found.name, jis("絵"));
    EXPECT_EQ(found.data, "abc");
  }
}

TEST(ColorPicture, NeedsMarksWhereItHasARecord) {
  for (int first = 0x10; first <= 0x14; ++first) {
    for (int second = 0; second <= 4; ++second) {
      OpenBook book(
          colorBook(record(3, colorRecord(static_cast<uint8_t>(first), static_cast<uint8_t>(second))),
                    std::string("data\0\0\0\0", 8)));
      const bool good = first >= 0x11 && first <= 0x13 && (second == 0 || second == 2 || second == 3);
      EXPECT_EQ(picture(book, colorTag(0x1F4D, 3, "", 11, 0)).code, good ? "00000000" : "80041001");
      EXPECT_EQ(picture(book, colorTag(0x1F4D, 4, "", 11, 0)).code, "00000000");  // without a record
    }
  }
  OpenBook other(colorBook(record(3, be16(0x000A) + std::string(12, '\x11')), ""));
  EXPECT_EQ(picture(other, colorTag(0x1F4D, 3, "", 11, 0)).code, "80041001");
  OpenBook nothing(colorBook(record(3, ""), ""));
  EXPECT_EQ(picture(nothing, colorTag(0x1F4D, 3, "", 11, 0)).code, "80041001");
  OpenBook none(BookWriter().region(0, 1, padded("body")));
  EXPECT_EQ(picture(none, colorTag(0x1F4D, 3, "", 1, 0)).code, "8004100E");
}

// Markers with their lengths up to the one that ends.
TEST(ColorPicture, MeasuresAStreamByItsMarkers) {
  const std::string ends[] = {words({0xFFD8, 0xFFE0, 4, 0x1111, 0xFFDB, 2, 0xFFD9}),
                              words({0x2439, 0xFFE0, 2, 0x2448}), words({0xFFD8, 0xFFD9}),
                              words({0x2439, 0xFFE1, 4, 0xFFD9, 0xFFD9})};
  for (const std::string& stream : ends) {
    OpenBook book(colorBook("", stream + "behind"));
    EXPECT_EQ(hexOf(picture(book, colorTag(0x1F4D, 1, "", 11, 0)).data), hexOf(stream));
  }
}

TEST(ColorPicture, IsEmptyWithAnotherBeginning) {
  OpenBook book(colorBook("", "GIF89a"));
  const Media found = picture(book, colorTag(0x1F4D, 1, "", 11, 0));
  EXPECT_EQ(found.code, "00000000");
  EXPECT_EQ(found.data, "");
}

TEST(ColorPicture, IsReadOrNothing) {
  const auto code = [](const std::string& data, uint32_t block = 11) {
    OpenBook book(colorBook("", data));
    return picture(book, colorTag(0x1F4D, 1, "", block, 0)).code;
  };
  EXPECT_EQ(code(std::string("data\0\x08\0\0", 8)), "8004100D");  // 2048 bytes, and 2040 are there
  EXPECT_EQ(code("data\xFF\xFF\xFF\xFF"), "8004100D");
  EXPECT_EQ(code(words({0xFFD8, 0xFFE0, 0xFFFF})), "8004100D");
  EXPECT_EQ(code("", 15), "8004100D");
}

TEST(PictureDirect, HasItsSizeAheadOfIt) {
  OpenBook book(colorBook("", std::string("....\x03\0\0\0abcdef", 14)));
  const auto direct = [&](uint32_t block, uint32_t offset) {
    const _SDICADDRESS at = {block, offset};
    char* data = nullptr;
    uint32_t length = 0;
    const uint32_t status = SDicGetPictureDataDirect(book.handle, &at, &data, &length);
    if (status != 0) return OpenBook::hex(status);
    const std::string found(data, length);
    std::free(data);
    return found;
  };
  EXPECT_EQ(direct(11, 0), "abc");
  EXPECT_EQ(direct(10, 2048), "abc");
  EXPECT_EQ(direct(11, 100), "");
  EXPECT_EQ(direct(11, 4), "8004100D");  // "abcd" as a size
  EXPECT_EQ(direct(12, 0), "8004100D");
  EXPECT_EQ(direct(11, 2040), "8004100D");  // the size is there, and nothing behind it
}

std::string soundTag(uint32_t format, const _SDICADDRESS& start, const _SDICADDRESS& end,
                     const std::string& name, bool book300 = false, uint32_t argument = 0x0101) {
  Text tag;
  tag.word(0x1F4A)
      .word(argument)
      .word(format)
      .address(start.block, start.offset)
      .address(end.block, end.offset);
  if (!book300) tag.word(0x2121);
  return tag.chars(name).word(0x1F6A).bytes();
}

BookWriter soundBook(uint32_t identity = 1) {
  BookWriter writer;
  writer.identity = identity;
  writer.region(0, 1, padded("body"));
  return writer.region(0xD8, 10, counting() + counting() + counting() + counting());
}

TEST(Sound, OfChunksBecomesAWaveFile) {
  OpenBook book(soundBook());
  const Media found = sound(book, soundTag(0, {10, 0x30}, {10, 0x34}, "音"));
  EXPECT_EQ(found.code, "00000000");
  EXPECT_EQ(found.name, jis("音"));
  EXPECT_EQ(hexOf(found.data),
            "52494646"
            "08000000"
            "57415645"
            "30313233");
}

TEST(Sound, OfBareSamplesGetsAHeader) {
  OpenBook book(soundBook());
  const Media found = sound(book, soundTag(0x0100, {10, 0x30}, {10, 0x34}, ""));
  EXPECT_EQ(found.code, "00000000");
  EXPECT_EQ(found.name, "");
  // 44100 samples a second of 16 bits: 0xAC44, 88200 bytes are 0x15888.
  EXPECT_EQ(hexOf(found.data),
            "52494646"
            "28000000"
            "57415645"
            "666D7420"
            "10000000"
            "0100"
            "0100"
            "44AC0000"
            "88580100"
            "0200"
            "1000"
            "64617461"
            "04000000"
            "30313233");
}

TEST(Sound, TellsChannelsRateAndBitsByItsFormat) {
  OpenBook book(soundBook());
  // From the channels on: channels, rate, bytes a second, bytes a sample, bits.
  const struct {
    uint32_t format;
    const char* fields;
  } rows[] = {{0x0100,
               "0100"
               "44AC0000"
               "88580100"
               "0200"
               "1000"},
              {0x1100,
               "0200"
               "44AC0000"
               "10B10200"
               "0400"
               "1000"},
              {0xF101,
               "0200"
               "22560000"
               "88580100"
               "0400"
               "1000"},
              {0x0102,
               "0100"
               "112B0000"
               "22560000"
               "0200"
               "1000"},
              {0x010F,
               "0100"
               "112B0000"
               "22560000"
               "0200"
               "1000"},
              {0x0110,
               "0100"
               "44AC0000"
               "44AC0000"
               "0100"
               "0800"},
              {0x1111,
               "0200"
               "22560000"
               "44AC0000"
               "0200"
               "0800"},
              {0x01F2,
               "0100"
               "112B0000"
               "112B0000"
               "0100"
               "0800"}};
  for (const auto& row : rows) {
    const std::string data = sound(book, soundTag(row.format, {10, 0}, {10, 4}, "")).data;
    ASSERT_EQ(data.size(), 48u);
    EXPECT_EQ(hexOf(data.substr(22, 14)), row.fields) << std::hex << row.format;
  }
  for (const uint32_t format : {0x0000u, 0x0200u, 0x1011u, 0x0F00u})
    EXPECT_EQ(sound(book, soundTag(format, {10, 0}, {10, 4}, "")).data.size(), 16u);
}

TEST(Sound, ReachesFromItsStartToItsEnd) {
  OpenBook book(soundBook());
  const auto size = [&](const _SDICADDRESS& start, const _SDICADDRESS& end) {
    const Media found = sound(book, soundTag(0, start, end, ""));
    return found.code == "00000000" ? std::to_string(found.data.size() - 12) : found.code;
  };
  EXPECT_EQ(size({10, 100}, {10, 100}), "0");
  EXPECT_EQ(size({10, 100}, {10, 300}), "200");
  EXPECT_EQ(size({10, 100}, {11, 300}), "2248");
  EXPECT_EQ(size({10, 100}, {12, 300}), "4296");
  EXPECT_EQ(size({10, 0}, {13, 2048}), "8192");
  EXPECT_EQ(size({10, 0}, {13, 2049}), "8004100D");
  EXPECT_EQ(size({10, 300}, {10, 100}), "8004100D");
  EXPECT_EQ(size({11, 100}, {10, 300}), "2248");  // an end ahead of the start counts as the next block
  EXPECT_EQ(size({10, 0}, {99999999, 0}), "8004100D");
  EXPECT_EQ(size({50, 0}, {50, 4}), "8004100D");
}

TEST(Sound, NeedsItsTagAndItsRegion) {
  OpenBook book(soundBook());
  const _SDICADDRESS start = {10, 0}, end = {10, 4};
  EXPECT_EQ(sound(book, words({0x1F44, 0x0101})).code, "8004100E");
  EXPECT_EQ(sound(book, soundTag(0, start, end, "", false, 0x0001)).code, "00000000");
  EXPECT_EQ(sound(book, soundTag(0, start, end, "", false, 0xFFF1)).code, "00000000");
  EXPECT_EQ(sound(book, soundTag(0, start, end, "", false, 0x0100)).code, "80041001");
  EXPECT_EQ(sound(book, soundTag(0, start, end, "", false, 0x0102)).code, "80041001");
  EXPECT_EQ(sound(book, soundTag(0, start, end, "A").substr(0, 22)).code,
            "8004100E");  // without its closing tag
  OpenBook silent(BookWriter().region(0, 1, padded("body")));
  EXPECT_EQ(sound(silent, soundTag(0, start, end, "")).code, "8004100E");
}

// Regions of book 300 whose sets are all alike: 'a' from 692142, 'b' from 696192, 'c' from 269826.
BookWriter faultyBook(uint32_t identity) {
  BookWriter writer = soundBook(identity);
  const struct {
    char byte;
    uint32_t start, end;
  } regions[] = {{'a', 692142, 696191}, {'b', 696192, 700243}, {'c', 269826, 269859}};
  for (const auto& region : regions) {
    const uint32_t sets = (region.end - region.start) / 16 + 1;
    std::string file(64, '\0'), codes;
    for (uint32_t i = 0; i < sets; ++i) file += be32(64 + 4 * sets);
    for (int i = 0; i < 2048; ++i) codes += code(4079, 15, static_cast<uint8_t>(region.byte));
    writer.file({region.byte}, file + blockSet(static_cast<uint8_t>(region.byte), codes));
    writer.record({.kind = 0x02,
                   .start = region.start,
                   .end = region.end,
                   .flags = std::string(4, '\0'),
                   .name = {region.byte}});
  }
  return writer;
}

TEST(SoundsOfBook300, AreReadWhereTheyAre) {
  OpenBook book(faultyBook(300));
  OpenBook other(faultyBook(299));
  const _SDICADDRESS a = {692142, 284}, aEnd = {696192, 1420}, b = {696192, 1432}, bEnd = {700243, 520};
  const std::string atB = soundTag(0, b, bEnd, "A", true), atA = soundTag(0, a, aEnd, "A", true);
  const Media first = sound(book, atB);
  EXPECT_EQ(first.code, "00000000");
  EXPECT_EQ(first.name, jis("A"));  // it stands two bytes further ahead
  EXPECT_EQ(first.data.size(), 8295536u + 12);
  EXPECT_EQ(first.data[12], 'a');
  EXPECT_EQ(sound(book, atA).data[12], 'b');
  EXPECT_EQ(sound(book, soundTag(0, a, {696192, 1418}, "", true)).data[12], 'a');
  EXPECT_EQ(sound(other, soundTag(0, b, bEnd, "")).data[12], 'b');
  EXPECT_EQ(sound(other, soundTag(0, a, aEnd, "")).data[12], 'a');
}

TEST(SoundsOfBook300, HaveOneThatIsFaulty) {
  OpenBook book(faultyBook(300));
  const Media found = sound(book, soundTag(0, {0x41E02, 8}, {0x41E23, 1536}, "", true));
  EXPECT_EQ(found.code, "80042001");
  EXPECT_EQ(found.data.size(), 33u * 2048 + 1536 - 8 + 12);
  EXPECT_EQ(found.data[12], 'c');
  OpenBook other(faultyBook(299));
  EXPECT_EQ(sound(other, soundTag(0, {0x41E02, 8}, {0x41E23, 1536}, "")).code, "00000000");
}

TEST(SoundsOfBook300, HaveOneThatCantBeRead) {
  OpenBook book(faultyBook(300));
  const _SDICADDRESS start = {0xD395B, 1200}, end = {0xD4881, 1792};
  EXPECT_EQ(sound(book, soundTag(0, start, end, "", true)).code, "80042002");
  EXPECT_EQ(sound(book, soundTag(0x0100, start, end, "", true)).code, "8004100D");
  EXPECT_EQ(sound(book, soundTag(0, start, {0xD4881, 1790}, "", true)).code, "8004100D");
  OpenBook other(faultyBook(299));
  EXPECT_EQ(sound(other, soundTag(0, start, end, "")).code, "8004100D");
}

std::string filmTag(uint32_t kind, std::string file, const std::string& title) {
  file.resize(24);
  return Text()
      .word(0x1F39)
      .raw(bcd(kind, 2))
      .word(0)
      .raw(bcd(12, 2))
      .raw(bcd(345, 2))
      .raw(bcd(6789, 2))
      .raw(bcd(1, 2))
      .raw(std::string(8, '\0'))
      .raw(file)
      .chars(title)
      .word(0x1F59)
      .bytes();
}

struct Film {
  Film(OpenBook& book, std::string tag) {
    tag += std::string(64, '\0');
    char *fileOut = nullptr, *titleOut = nullptr;
    uint32_t fileLength = 77, titleLength = 77;
    code = OpenBook::hex(SDicGetMovieFileName(book.handle, tag.c_str(), &fileOut, &fileLength, &titleOut,
                                              &titleLength, numbers));
    file = fileOut ? std::string(fileOut, fileLength) : "(null)";
    title = titleOut ? std::string(titleOut, titleLength) : "(null)";
    std::free(fileOut);
    std::free(titleOut);
  }
  std::string code, file, title;
  uint32_t numbers[4] = {9, 9, 9, 9};
};

TEST(Film, HasAFileATitleAndNumbers) {
  OpenBook book(soundBook());
  ASSERT_EQ(filmTag(1000, "", "").size(), 48u);
  const Film film(book, filmTag(1000, "FILM.MOV", "題"));
  EXPECT_EQ(film.code, "00000000");
  EXPECT_EQ(film.file, "FILM.MOV");
  EXPECT_EQ(film.title, jis("題"));
  EXPECT_EQ(film.numbers[0], 12u);
  EXPECT_EQ(film.numbers[1], 345u);
  EXPECT_EQ(film.numbers[2], 6789u);
  EXPECT_EQ(film.numbers[3], 1u);
  EXPECT_EQ(Film(book, filmTag(1999, "ABC", "")).file, "ABC");
}

TEST(Film, HasANameUpToABlank) {
  OpenBook book(soundBook());
  EXPECT_EQ(Film(book, filmTag(1000, "AB CD", "")).file, "AB");
  EXPECT_EQ(Film(book, filmTag(1000, "ABC D", "")).file, "ABC");
  EXPECT_EQ(Film(book, filmTag(1000, std::string(24, 'x'), "")).file, std::string(24, 'x'));
  EXPECT_EQ(Film(book, filmTag(1000, "", "")).file, "");
}

TEST(Film, HasNoFileOfAnotherKind) {
  OpenBook book(soundBook());
  for (const uint32_t kind : {0u, 999u, 2000u, 9999u}) {
    const Film film(book, filmTag(kind, "FILM", "題"));
    EXPECT_EQ(film.code, "80041001");
    EXPECT_EQ(film.file, "(null)");
    EXPECT_EQ(film.title, jis("題"));
    EXPECT_EQ(film.numbers[2], 6789u);
  }
}

TEST(Film, IsNothingOfAnotherTag) {
  OpenBook book(soundBook());
  const Film film(book, words({0x1F44, 1, 2}));
  EXPECT_EQ(film.code, "00000000");
  EXPECT_EQ(film.file, "(null)");
  EXPECT_EQ(film.title, "(null)");
  EXPECT_EQ(film.numbers[0], 9u);
}

TEST(Film, IsBrokenWithoutItsEnd) {
  OpenBook book(soundBook());
  EXPECT_EQ(Film(book, filmTag(1000, "FILM", "題").substr(0, 48)).code, "8004100E");
}

// A tag of a body may be the last thing in it: what it lacks are zeroes.
TEST(Tags, ThatATextCutsOffAreBroken) {
  for (const uint32_t tag : {0x1F44u, 0x1F4Du, 0x1F3Cu, 0x1F4Au, 0x1F39u}) {
    std::unique_ptr<char[]> text(new char[66]{});
    const std::string word = be16(tag);
    std::copy(word.begin(), word.end(), text.get());
    OpenBook book(soundBook());
    char *name = nullptr, *data = nullptr;
    uint16_t nameLength = 0;
    uint32_t length = 0, titleLength = 0, numbers[4];
    if (tag == 0x1F39) {
      EXPECT_EQ(SDicGetMovieFileName(book.handle, text.get(), &name, &length, &data, &titleLength, numbers),
                0x8004100Eu);
    } else if (tag == 0x1F4A) {
      EXPECT_EQ(SDicGetStreamData(book.handle, text.get(), &name, &nameLength, &data, &length), 0x80041001u);
    } else {
      EXPECT_EQ(SDicGetPictureData(book.handle, text.get(), &name, &nameLength, &data, &length), 0x8004100Eu);
    }
  }
}

}  // namespace
}  // namespace zavel::book
