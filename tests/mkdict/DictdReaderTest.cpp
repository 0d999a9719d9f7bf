#include "mkdict/DictdReader.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

// One gzip member, with an extra field as dictzip writes it when `chunked`.
std::string gzip(const std::string& text, bool chunked = false) {
  std::string out(compressBound(static_cast<uLong>(text.size())) + 64, '\0');
  z_stream stream = {};
  EXPECT_EQ(Z_OK, deflateInit2(&stream, 9, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY));
  unsigned char extra[] = {'R', 'A', 6, 0, 1, 0, 0xCB, 0xE3, 0, 0};
  gz_header header = {};
  header.extra = extra;
  header.extra_len = sizeof extra;
  if (chunked) deflateSetHeader(&stream, &header);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  EXPECT_EQ(Z_STREAM_END, deflate(&stream, Z_FINISH));
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

struct Files {
  bool open(const std::string& index, const std::string& text) {
    test::writeFile(folder.path() + "/x.index", index);
    test::writeFile(folder.path() + "/x.dict", text);
    return reader.open(folder.path() + "/x.index", folder.path() + "/x.dict", &error);
  }
  test::TempFolder folder;
  DictdReader reader;
  std::string error;
};

TEST(DictdNumber, ReadsBase64DigitsMostSignificantFirst) {
  EXPECT_EQ(0u, DictdReader::number("A"));
  EXPECT_EQ(25u, DictdReader::number("Z"));
  EXPECT_EQ(26u, DictdReader::number("a"));
  EXPECT_EQ(52u, DictdReader::number("0"));
  EXPECT_EQ(62u, DictdReader::number("+"));
  EXPECT_EQ(63u, DictdReader::number("/"));
  EXPECT_EQ(64u, DictdReader::number("BA"));
  EXPECT_EQ(4096u + 2 * 64 + 3, DictdReader::number("BCD"));
  EXPECT_EQ(64ull * 64 * 64 * 64 * 64 * 64 - 1, DictdReader::number("//////"));
}

TEST(DictdNumber, RefusesForeignDigitsAndTooMany) {
  EXPECT_FALSE(DictdReader::number(""));
  EXPECT_FALSE(DictdReader::number("A-"));
  EXPECT_FALSE(DictdReader::number("="));
  EXPECT_FALSE(DictdReader::number("AAAAAAA"));
}

TEST(DictdUnzip, ReadsPlainAndChunkedMembersOneAfterTheOther) {
  EXPECT_EQ("hello", DictdReader::unzip(gzip("hello"), 100));
  EXPECT_EQ("hello", DictdReader::unzip(gzip("hello", true), 100));
  EXPECT_EQ("hello world", DictdReader::unzip(gzip("hello ") + gzip("world"), 100));
  EXPECT_EQ("", DictdReader::unzip(gzip(""), 100));
}

TEST(DictdUnzip, HoldsToTheLimit) {
  EXPECT_EQ("12345", DictdReader::unzip(gzip("12345"), 5));
  EXPECT_FALSE(DictdReader::unzip(gzip("123456"), 5));
  // A megabyte of one letter is a kilobyte of gzip.
  EXPECT_FALSE(DictdReader::unzip(gzip(std::string(1 << 20, 'a')), (1 << 20) - 1));
}

TEST(DictdUnzip, RefusesWhatIsDamagedOrCutShort) {
  const std::string sound = gzip("a text that is long enough to be packed, long enough");
  for (size_t length = 0; length < sound.size(); ++length) {
    EXPECT_FALSE(DictdReader::unzip(sound.substr(0, length), 1000)) << length;
  }
  std::string damaged = sound;
  damaged[sound.size() - 6] ^= 1;  // the checksum
  EXPECT_FALSE(DictdReader::unzip(damaged, 1000));
  EXPECT_FALSE(DictdReader::unzip(sound + "x", 1000));
}

TEST(DictdReader, FindsEntriesByTheIndex) {
  Files files;
  ASSERT_TRUE(files.open("cat\tA\tE\ndog\tE\tE\n", "cat\ndog\n")) << files.error;
  ASSERT_EQ(2u, files.reader.entries().size());
  EXPECT_EQ("dog", files.reader.entries()[1].word);
  EXPECT_EQ("cat\n", files.reader.textOf(files.reader.entries()[0]));
  EXPECT_EQ("dog\n", files.reader.textOf(files.reader.entries()[1]));
}

TEST(DictdReader, ReadsDictzipAndAFourthColumn) {
  Files files;
  ASSERT_TRUE(files.open("cat\tA\tE\tCat\n", gzip("Cat\n", true))) << files.error;
  EXPECT_EQ("Cat\n", files.reader.textOf(files.reader.entries().at(0)));
}

TEST(DictdReader, TellsWhichFileIsMissing) {
  Files files;
  EXPECT_FALSE(files.reader.open(files.folder.path() + "/none", files.folder.path() + "/none", &files.error));
  EXPECT_EQ("can't read " + files.folder.path() + "/none", files.error);
}

TEST(DictdReader, RefusesAnIndexThatLeadsOutside) {
  for (const char* line : {"cat\tA\tF\n", "cat\tB\tE\n", "cat\tE\tB\n", "cat\tF\tA\n", "cat\tA\n", "cat\n",
                           "cat\t\tA\n", "cat\tA\t?\n", "cat\t//////\t//////\n"}) {
    Files files;
    EXPECT_FALSE(files.open(std::string("dog\tA\tA\n") + line, "cat\n")) << line;
    EXPECT_EQ(files.folder.path() + "/x.index is damaged: line 2 of the index leads nowhere", files.error);
    EXPECT_TRUE(files.reader.entries().empty());
    EXPECT_TRUE(files.reader.text().empty());
  }
}

TEST(DictdReader, TakesASpanUpToTheEnd) {
  Files files;
  EXPECT_TRUE(files.open("cat\tA\tE\nend\tE\tA\n", "cat\n"));
}

TEST(DictdReader, RefusesAnIndexThatIsCutShort) {
  Files line;
  EXPECT_FALSE(line.open("cat\tA\tE\ndog\tE\tE", "cat\ndog\n"));
  EXPECT_EQ(line.folder.path() + "/x.index is damaged: its last line does not end", line.error);
  // 35 of 40 bytes are too few, 36 are enough; the same bytes twice count once.
  const std::string text(40, 'x');
  Files most;
  EXPECT_TRUE(most.open("a\tA\tU\nb\tU\tQ\n", text)) << most.error;  // 0 to 20, 20 to 36
  Files less;
  EXPECT_FALSE(less.open("a\tA\tU\na\tA\tU\nb\tU\tP\n", text));  // 20 to 35
  EXPECT_EQ(less.folder.path() + "/x.index is damaged: it leads to less than nine tenths of the text",
            less.error);
}

TEST(DictdReader, RefusesDamagedText) {
  Files files;
  EXPECT_FALSE(files.open("cat\tA\tE\n", gzip("cat\n").substr(0, 12)));
  EXPECT_EQ(files.folder.path() + "/x.dict is damaged: its compressed text can't be unpacked", files.error);
}

}  // namespace
}  // namespace zavel::mkdict
