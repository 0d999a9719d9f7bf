#include "book/BlockSet.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "OpenBook.h"
#include "foundation/Storage.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

constexpr size_t kSetBytes = 32768;

// What the codes give, by a loop over single bytes; the first `length` bytes of the set.
std::string plainly(std::string_view codes, uint8_t fill, size_t length = kSetBytes) {
  std::vector<uint8_t> work(4080 + kSetBytes + 4200, 0);
  std::fill_n(work.begin(), 4080, fill);
  size_t written = 0;
  for (size_t i = 0; i + 3 <= codes.size() && written < kSetBytes; i += 3) {
    const uint8_t b0 = static_cast<uint8_t>(codes[i]), b1 = static_cast<uint8_t>(codes[i + 1]);
    const size_t distance = static_cast<size_t>(b0 << 4 | b1 >> 4);
    for (size_t left = b1 & 15u, from = written + distance; left > 0; --left, ++from) {
      work[4080 + written] = work[from];
      ++written;
    }
    work[4080 + written++] = static_cast<uint8_t>(codes[i + 2]);
  }
  std::fill(work.begin() + 4080 + static_cast<ptrdiff_t>(std::min(written, kSetBytes)), work.end(),
            uint8_t{0});
  return {reinterpret_cast<char*>(work.data()) + 4080, length};
}

std::string decoded(std::string_view codes, uint8_t fill, size_t length = kSetBytes) {
  std::vector<uint8_t> set(kSetBytes, 0xEE);
  decodeBlockSet(set.data(), reinterpret_cast<const uint8_t*>(codes.data()),
                 static_cast<uint32_t>(codes.size() / 3), fill);
  return {reinterpret_cast<char*>(set.data()), length};
}

TEST(BlockSet, AppendsALiteralForEachCode) {
  EXPECT_EQ(decoded(code(0, 0, 'a') + code(0, 0, 'b'), ' ', 3), std::string("ab\0", 3));
}

TEST(BlockSet, CopiesTheFillByteFromTheWindow) {
  EXPECT_EQ(decoded(code(0, 3, 'a'), '-', 5), std::string("---a\0", 5));
  EXPECT_EQ(decoded(code(4079, 1, 'a'), '-', 2), "-a");
}

// "abc" is written; field 4077 leads 3 bytes back from position 3, where the copy goes.
TEST(BlockSet, CopiesWhatWasWritten) {
  const std::string codes = code(0, 0, 'a') + code(0, 0, 'b') + code(0, 0, 'c') + code(4077, 3, 'd');
  EXPECT_EQ(decoded(codes, 0, 7), "abcabcd");
}

// The last byte written is field 4079: a copy of it repeats itself.
TEST(BlockSet, RepeatsWhatItIsWriting) {
  EXPECT_EQ(decoded(code(0, 0, 'a') + code(4079, 5, 'b'), 0, 7), "aaaaaab");
  const std::string two = code(0, 0, 'a') + code(0, 0, 'b') + code(4078, 5, 'c');
  EXPECT_EQ(decoded(two, 0, 8), "abababac");
}

// Fields 4080 and up lead to bytes not written yet.
TEST(BlockSet, ReadsZeroesAhead) {
  EXPECT_EQ(decoded(code(0, 0, 'a') + code(4080, 3, 'b'), 'x', 5), std::string("a\0\0\0b", 5));
  EXPECT_EQ(decoded(code(0, 0, 'a') + code(4095, 15, 'b'), 'x', 17), "a" + std::string(15, '\0') + "b");
}

TEST(BlockSet, StopsAtTheSetsEnd) {
  std::string codes;
  for (size_t i = 0; i < 2047; ++i) codes += code(0, 15, 'a');
  codes += code(0, 14, 'y') + code(0, 0, 'z') + code(0, 15, '!') + code(0, 0, '!');
  const std::string set = decoded(codes, '.');
  EXPECT_EQ(set.substr(kSetBytes - 17), "a" + std::string(14, '.') + "yz");
}

TEST(BlockSet, CutsACopyAtTheSetsEnd) {
  std::string codes;
  for (size_t i = 0; i < 2047; ++i) codes += code(0, 15, 'a');
  codes += code(0, 9, 'y') + code(0, 15, '!');
  EXPECT_EQ(decoded(codes, '.').substr(kSetBytes - 7), "y.....a");  // six of what stands 4080 bytes ahead
}

TEST(BlockSet, LeavesZeroesBehindTooFewCodes) {
  EXPECT_EQ(decoded("", 'x'), std::string(kSetBytes, '\0'));
  EXPECT_EQ(decoded(code(0, 2, 'a'), 'x'), "xxa" + std::string(kSetBytes - 3, '\0'));
}

TEST(BlockSet, AgreesWithAByteWiseLoop) {
  std::mt19937 random(11);
  for (int round = 0; round < 50; ++round) {
    std::string codes;
    const unsigned near = round % 2 == 0 ? 4096 : 40;
    for (int i = 0; i < 6000; ++i) {
      const unsigned distance = 4095 - random() % near;
      codes += code(distance, random() % 16, static_cast<uint8_t>(random()));
    }
    ASSERT_EQ(decoded(codes, static_cast<uint8_t>(round)), plainly(codes, static_cast<uint8_t>(round)))
        << round;
  }
}

// Every length from places all through the window, and from each of those that are near, repeat themselves or
// aren't written yet.
TEST(BlockSet, AgreesWithAByteWiseLoopWhereverAMatchBegins) {
  std::mt19937 random(12);
  for (unsigned field = 0; field < 4096; field += field < 4040 ? 101 : 1) {
    std::string codes;
    for (unsigned i = 0; i < 4000; ++i) {
      const unsigned length = i % 2 == 0 ? i / 2 % 16 : random() % 4;
      codes += code(i % 2 == 0 ? field : random() % 4080, length, static_cast<uint8_t>(random()));
    }
    ASSERT_EQ(decoded(codes, 0x5A), plainly(codes, 0x5A)) << field;
  }
}

// The last match ends with the set or goes on behind it, by up to 14 bytes.
TEST(BlockSet, AgreesWithAByteWiseLoopAtTheSetsEnd) {
  for (unsigned field : {0u, 4064u, 4065u, 4072u, 4077u, 4078u, 4079u, 4080u, 4095u}) {
    for (unsigned missing = 1; missing <= 16; ++missing) {
      std::string codes;
      for (size_t i = 0; i < 32768 - missing; ++i) codes += code(0, 0, static_cast<uint8_t>(i * 7));
      codes += code(field, 15, '!') + code(field, 15, '?');
      ASSERT_EQ(decoded(codes, 0x5A), plainly(codes, 0x5A)) << field << " " << missing;
    }
  }
}

class BlockSetFile : public testing::Test {
 protected:
  bool decode(std::string_view bytes, uint32_t set) {
    folder.write("set", bytes);
    const auto file = storage().open(folder.file("set"), OpenMode::kRead);
    return SFDecodeBlockSet(out.data(), set, *file);
  }

  TempFolder folder;
  std::vector<uint8_t> out = std::vector<uint8_t>(kSetBytes);
};

TEST_F(BlockSetFile, FindsEachSetByTheTable) {
  const std::string file = blockSetFile({blockSet(0, code(0, 0, 'a')), blockSet(0, code(0, 0, 'b'))});
  EXPECT_TRUE(decode(file, 0));
  EXPECT_EQ(out[0], 'a');
  EXPECT_TRUE(decode(file, 1));
  EXPECT_EQ(out[0], 'b');
}

TEST_F(BlockSetFile, RefusesWhatEndsTooSoon) {
  const std::string file =
      blockSetFile(std::vector<std::string>{blockSet(0, code(0, 0, 'a') + code(0, 0, 'b'))});
  EXPECT_TRUE(decode(file, 0));
  for (size_t length = 0; length < file.size(); ++length)
    EXPECT_FALSE(decode(file.substr(0, length), 0)) << length;
  EXPECT_FALSE(decode(file, 0xFFFFFFFF));
}

// Four thousand million codes are claimed, and none is there.
TEST_F(BlockSetFile, RefusesACountBeyondTheFile) {
  EXPECT_FALSE(decode(blockSetFile(std::vector<std::string>{be32(0xFFFFFFFF) + std::string(400, '\0')}), 0));
}

TEST_F(BlockSetFile, TakesMoreCodesThanFit) {
  std::string codes;
  for (size_t i = 0; i < 40000; ++i) codes += code(0, 0, static_cast<uint8_t>('a' + i % 26));
  EXPECT_TRUE(decode(blockSetFile(std::vector<std::string>{blockSet(0, codes)}), 0));
  EXPECT_EQ(out[32767], 'a' + 32767 % 26);
}

// 20 blocks, numbered by their first byte; the second set has four.
std::string numbered(size_t blocks) {
  std::string bytes;
  for (size_t i = 0; i < blocks; ++i) bytes += static_cast<char>('A' + i) + std::string(2047, '.');
  return bytes;
}

TEST(ReadBook, ReadsAcrossBlocksAndSets) {
  OpenBook book(BookWriter().region(0, 5, numbered(20)));
  ASSERT_EQ(book.status, 0u);
  EXPECT_EQ(book.read(5, 0, 1), "A");
  EXPECT_EQ(book.read(5, 2047, 2), ".B");
  EXPECT_EQ(book.read(20, 2047, 2), ".Q");  // the last of the first set
  EXPECT_EQ(book.read(24, 2047, 1), ".");
  EXPECT_EQ(book.read(5, 0, 40960), numbered(20));
}

TEST(ReadBook, NormalisesOffsets) {
  OpenBook book(BookWriter().region(0, 5, numbered(20)));
  EXPECT_EQ(book.read(5, 2048, 1), "B");
  EXPECT_EQ(book.read(5, 3 * 2048, 1), "D");
  EXPECT_EQ(book.read(0xFFFFFFFF, 2048, 1), "8004100D");
}

// As long as nothing was read: the text goes on in block 1.
TEST(ReadBook, TakesBlock0ForZeroesAtFirst) {
  BookWriter writer;
  writer.region(0, 1, padded(be16(0x2341) + be16(0x1F03)));
  OpenBook book(writer);
  EXPECT_EQ(book.headword(0, 2000), be16(0x2341) + std::string(2, '\0'));
  EXPECT_EQ(book.headword(0, 2000), "8004100D");  // the place holds another set now
  EXPECT_EQ(book.read(0, 0, 1), "8004100D");
}

TEST(ReadBook, HoldsNothingWhereASetFailed) {
  BookWriter writer;
  std::string file = blockSetFile(numbered(32));
  file.replace(68, 4, be32(0x7FFFFFFF));  // where the second set would be
  writer.file("two", file);
  writer.record({.kind = 0, .start = 5, .end = 36, .flags = std::string(4, '\0'), .name = "two"});
  OpenBook book(writer);
  EXPECT_EQ(book.read(6, 0, 1), "B");
  EXPECT_EQ(book.read(21, 0, 1), "8004100D");
  EXPECT_EQ(book.read(6, 0, 1), "B");
  EXPECT_EQ(book.read(20, 2047, 2), "8004100D");
}

TEST(ReadBook, FailsOutsideTheRegions) {
  OpenBook book(BookWriter().region(0, 5, numbered(2)));
  EXPECT_EQ(book.read(4, 0, 1), "8004100D");
  EXPECT_EQ(book.read(7, 0, 1), "8004100D");
  EXPECT_EQ(book.read(6, 2047, 1), ".");
  EXPECT_EQ(book.read(6, 2047, 2), "8004100D");  // more than the book has
  EXPECT_EQ(book.read(5, 0, 0xFFFFFFFF), "8004100D");
}

TEST(ReadBook, ReadsAcrossNeighbouringRegions) {
  OpenBook book(BookWriter().region(0, 5, numbered(1)).region(0x90, 6, "index"));
  EXPECT_EQ(book.read(5, 2046, 5), "..ind");
}

TEST(ReadBook, RefusesBadArguments) {
  OpenBook book(BookWriter().region(0, 5, numbered(1)));
  const _SDICADDRESS at = {5, 0};
  char* bytes = nullptr;
  EXPECT_EQ(SDicReadData(book.handle, nullptr, 1, &bytes), 0x80000016u);
  EXPECT_EQ(SDicReadData(book.handle, &at, 1, nullptr), 0x80000016u);
  EXPECT_EQ(SDicReadData(book.handle, &at, 0, &bytes), 0x80000016u);
}

}  // namespace
}  // namespace zavel::book
