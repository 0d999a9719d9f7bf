#include <gtest/gtest.h>

#include "engine/EngineFixture.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"

namespace zavel::engine {
namespace {

using test::DicWriter;
using test::IndexRow;
using test::writeFile;
using test::writeIndex;
using namespace std::string_literals;

class Index1SearchTest : public EngineTest {
 protected:
  // Loads an index in place of one of the opened engine's.
  void Load(const std::string& bytes, uint16_t type, uint16_t set = kSetKihon) {
    writeFile(folder_.prefix() + "x.idx", bytes);
    DeleteFileMapping();
    FsObj stream;
    ASSERT_TRUE(stream.Open(folder_.prefix() + "x.idx", true));
    ASSERT_TRUE(LoadIndex1(&stream, "SM_TEST", IndexInfo(type, set, 0), set, type, false));
  }

  // The block offset of a key in an opened basic set that holds `writer`'s words.
  uint32_t Kihon(uint16_t type, const std::string& key) {
    uint32_t offset = 7;
    EXPECT_EQ(GetIdxKihon(type, key, &offset), 1) << key;
    return offset;
  }
};

std::string Pair(unsigned code) {
  return {static_cast<char>(code >> 8), static_cast<char>(code)};
}

TEST_F(Index1SearchTest, SingleByteKeysCompareSigned) {
  Load(writeIndex(1, {{"\xE0xx", 1}, {"\x7Fxx", 2}, {"axx", 3}}).idx, kTypeE);
  EXPECT_EQ(Bsrch1(kTypeE, 0, 0xE0, kSetKihon), 0);
  EXPECT_EQ(Bsrch1(kTypeE, 0, 'a', kSetKihon), 1);
  EXPECT_EQ(Bsrch1(kTypeE, 0, 0x7F, kSetKihon), 2);
}

TEST_F(Index1SearchTest, TwoByteKeysCompareUnsigned) {
  Load(writeIndex(3, {{Pair(0x889F) + "\x88\x9F", 1}, {Pair(0x829F), 2}, {Pair(0xEA9E), 3}}).idx, kTypeKji);
  EXPECT_EQ(Bsrch1(kTypeKji, 0, 0x829F, kSetKihon), 0);
  EXPECT_EQ(Bsrch1(kTypeKji, 0, 0x889F, kSetKihon), 1);
  EXPECT_EQ(Bsrch1(kTypeKji, 0, 0xEA9E, kSetKihon), 2);
}

// Every row of tables of every size is found, and nothing that is not there.
TEST_F(Index1SearchTest, FindsEveryRowOfSingleByteTables) {
  for (int n = 1; n <= 127; ++n) {
    std::vector<IndexRow> rows;
    for (int i = 0; i < n; ++i) {
      const char even = static_cast<char>(-128 + 2 * i);
      if (even == 0) continue;  // would be a word that ended
      rows.push_back({{'m', even, 'm'}, 0});
      rows.push_back({{even, 'm', 'm'}, 0});
      rows.push_back({{'m', 'm', even}, 0});
    }
    Load(writeIndex(1, rows).idx, kTypeE);
    const uint16_t m = Bsrch1(kTypeE, 0, 'm', kSetKihon);
    ASSERT_LT(m, kRowBad) << n;
    const uint16_t mm = Bsrch2_1(kTypeE, 'm', m, kSetKihon);
    ASSERT_LT(mm, kRowBad) << n;
    for (int i = 0; i < n; ++i) {
      const uint16_t even = static_cast<uint8_t>(-128 + 2 * i);
      const bool there = even != 0;
      EXPECT_EQ(Bsrch1(kTypeE, 0, even, kSetKihon) < kRowBad, there) << n << " " << i;
      EXPECT_EQ(Bsrch2_1(kTypeE, even, m, kSetKihon) < kRowBad, there) << n << " " << i;
      EXPECT_EQ(Bsrch2_2(kTypeE, 0, even, mm, kSetKihon) < kRowBad, there) << n << " " << i;
      const uint16_t odd = static_cast<uint16_t>((even + 1) & 0xFF);
      if (odd == 'm') continue;
      EXPECT_EQ(Bsrch1(kTypeE, 0, odd, kSetKihon), kRowNotFound);
      EXPECT_EQ(Bsrch2_1(kTypeE, odd, m, kSetKihon), kRowNotFound);
      EXPECT_EQ(Bsrch2_2(kTypeE, 0, odd, mm, kSetKihon), kRowNotFound);
    }
  }
}

// A kanji index of n first characters 0x0100, 0x0101 ..., all of them without children but the first, which
// has n: 0x0101, 0x0102 ...
std::string WideKjiIndex(uint32_t n) {
  std::string idx;
  appendLE32(idx, n * 4);
  appendLE32(idx, 8 + n * 4);
  for (uint32_t i = 0; i < n; ++i) {
    appendBE16(idx, static_cast<uint16_t>(0x0100 + i));
    appendLE16(idx, static_cast<uint16_t>(i == 0 ? 0 : n));
  }
  appendLE32(idx, n * 6);
  for (uint32_t i = 0; i < n; ++i) {
    appendBE16(idx, static_cast<uint16_t>(0x0101 + i));
    appendLE32(idx, i);
  }
  return idx;
}

// Sizes around powers of two, where a rounded logarithm would slip.
TEST_F(Index1SearchTest, FindsEveryRowOfLargeKanjiTables) {
  for (const uint32_t n : {1u, 2u, 3u, 4u, 5u, 1000u, 8191u, 8192u, 8193u, 32767u, 32768u, 32769u, 65000u}) {
    Load(WideKjiIndex(n), kTypeKji);
    for (uint32_t i = 0; i < n; ++i) {
      ASSERT_EQ(Bsrch1(kTypeKji, 0, static_cast<uint16_t>(0x0100 + i), kSetKihon), i) << n;
      ASSERT_EQ(Bsrch2_2(kTypeKji, 0, static_cast<uint16_t>(0x0101 + i), 0, kSetKihon), i) << n;
    }
    EXPECT_EQ(Bsrch1(kTypeKji, 0, 0xFFFF, kSetKihon), kRowNotFound);
    EXPECT_EQ(Bsrch1(kTypeKji, 0, 0x00FF, kSetKihon), kRowNotFound);
    EXPECT_EQ(Bsrch2_2(kTypeKji, 0, 0xFFFF, 0, kSetKihon), kRowNotFound);
    EXPECT_EQ(Bsrch2_2(kTypeKji, 0, 0x0100, 0, kSetKihon), kRowNotFound);
    EXPECT_EQ(Bsrch2_2(kTypeKji, 0, 0x0101, static_cast<uint16_t>(n - 1), kSetKihon),
              n == 1 ? 0 : kRowNotFound);
  }
}

TEST_F(Index1SearchTest, AConjugationIndexIsSearchedInTableC) {
  Load(writeIndex(5, {{"went", 0}, {"ate", 0}, {"made", 0}}).idx, kTypeKatu);
  EXPECT_EQ(Bsrch1(kTypeKatu, 0, 'a', kSetKihon), 0);
  EXPECT_EQ(Bsrch1(kTypeKatu, 0, 'm', kSetKihon), 1);
  EXPECT_EQ(Bsrch1(kTypeKatu, 0, 'w', kSetKihon), 2);
  EXPECT_EQ(Bsrch1(kTypeKatu, 0, 'b', kSetKihon), kRowNotFound);
  EXPECT_EQ(Bsrch2_1(kTypeKatu, 'a', 0, kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch2_2(kTypeKatu, 0, 'a', 0, kSetKihon), kRowBad);
}

TEST_F(Index1SearchTest, AnEmptyTableHoldsNothing) {
  Load(writeIndex(1, {}).idx, kTypeE);
  EXPECT_EQ(Bsrch1(kTypeE, 0, 'a', kSetKihon), kRowNotFound);
  EXPECT_EQ(Bsrch2_1(kTypeE, 'a', 0, kSetKihon), kRowBad);
}

TEST_F(Index1SearchTest, UnloadedTablesAndBadArgumentsAreToldApart) {
  EXPECT_EQ(Bsrch1(kTypeE, 0, 'a', kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch1(0, 0, 'a', kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch1(6, 0, 'a', kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch1(kTypeE, 0, 'a', 3), kRowBad);
  EXPECT_EQ(Bsrch1(kTypeKji, 11, 0x889F, kSetUser), kRowBad);
  EXPECT_EQ(Bsrch1(kTypeHase, 0, 'a', kSetUser), kRowBad);
  Load(writeIndex(1, {{"apple", 0}}).idx, kTypeE);
  EXPECT_EQ(Bsrch2_1(kTypeE, 'p', 0, kSetKihon), 0);
  EXPECT_EQ(Bsrch2_1(kTypeE, 'p', 1, kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch2_1(kTypeKana, 'p', 0, kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch2_2(kTypeE, 0, 'p', 0, kSetKihon), 0);
  EXPECT_EQ(Bsrch2_2(kTypeE, 0, 'p', 1, kSetKihon), kRowBad);
}

TEST_F(Index1SearchTest, ChildRowsOutsideTheChildTableAreBad) {
  std::string idx = writeIndex(1, {{"apple", 0}, {"bee", 0}}).idx;  // A: a 0, b 1
  ASSERT_EQ(idx.substr(8, 6), "a\0\0b\x01\0"s);
  Load(std::string(idx).replace(12, 2, "\x03\0"s), kTypeE);  // b's children begin at row 3 of 2
  EXPECT_EQ(Bsrch2_1(kTypeE, 'e', 1, kSetKihon), kRowBad);
  EXPECT_EQ(Bsrch2_1(kTypeE, 'p', 0, kSetKihon), kRowBad);
  Load(std::string(idx).replace(9, 2, "\x02\0"s), kTypeE);  // a's children end before they begin
  EXPECT_EQ(Bsrch2_1(kTypeE, 'p', 0, kSetKihon), kRowBad);
  Load(std::string(idx).replace(12, 2, "\x02\0"s), kTypeE);  // b has none
  EXPECT_EQ(Bsrch2_1(kTypeE, 'e', 1, kSetKihon), kRowNotFound);
}

TEST_F(Index1SearchTest, WalksEnglishKeysOfAnyLength) {
  DicWriter writer = SmallSet();
  for (const char* word : {"a", "ax", "axe", "axes", "b", "to"}) writer.aliasE(word, 0);
  writer.write(folder_.path());
  ASSERT_EQ(OpenBasic(), 1);
  // Blocks of 13 bytes and one more for each letter of a remainder, in the order of their prefixes.
  EXPECT_EQ(Kihon(kTypeE, "a"), 0u);
  EXPECT_EQ(Kihon(kTypeE, "apple"), 13u);
  EXPECT_EQ(Kihon(kTypeE, "app"), 13u);
  EXPECT_EQ(Kihon(kTypeE, "ax"), 28u);
  EXPECT_EQ(Kihon(kTypeE, "axe"), 41u);  // holds axe and axes: 4 + 4 + 3 + 4 + 8 = 23 bytes
  EXPECT_EQ(Kihon(kTypeE, "axes"), 41u);
  EXPECT_EQ(Kihon(kTypeE, "b"), 64u);
  EXPECT_EQ(Kihon(kTypeE, "to"), 77u);
  for (const char* none : {"", "c", "ap", "t", "be", "axx", "toe", "aa"}) {
    EXPECT_EQ(Kihon(kTypeE, none), 0xFFFFFFFF) << none;
  }
}

TEST_F(Index1SearchTest, WalksDerivedWordsAsEnglish) {
  DicWriter writer = SmallSet();
  writer.addHase("apples", 0);
  writer.addHase("as", 0);
  writer.write(folder_.path());
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(Kihon(kTypeHase, "apples"), 0u);
  EXPECT_EQ(Kihon(kTypeHase, "as"), 16u);
  EXPECT_EQ(Kihon(kTypeHase, "apx"), 0xFFFFFFFF);
}

TEST_F(Index1SearchTest, WalksKanaAndKanji) {
  DicWriter writer;
  writer.addJ("き", "木", test::entryJ("き", "木", "tree"));
  writer.addJ("きく", "菊", test::entryJ("きく", "菊", "chrysanthemum"));
  writer.addJ("きあい", "気合い", test::entryJ("きあい", "気合い", "fighting spirit"));
  writer.write(folder_.path());
  ASSERT_EQ(OpenBasic(), 1);
  // き 0xAB, あ 0xA0, く 0xAD as signed bytes: きあ, きく, き.
  EXPECT_EQ(Kihon(kTypeKana, "\xAB\xA0\xA2"), 0u);
  EXPECT_EQ(Kihon(kTypeKana, "\xAB\xAD"), 14u);
  EXPECT_EQ(Kihon(kTypeKana, "\xAB"), 27u);
  EXPECT_EQ(Kihon(kTypeKana, "\xAB\xAE"), 0xFFFFFFFF);
  EXPECT_EQ(Kihon(kTypeKana, "\xAD"), 0xFFFFFFFF);
  EXPECT_EQ(Kihon(kTypeKana, ""), 0xFFFFFFFF);
  // 菊 0x8B65, 気 0x8B43, 木 0x96D8 as pairs: 気合, 菊, 木.
  EXPECT_EQ(Kihon(kTypeKji, test::sjis("気合い")), 0u);
  EXPECT_EQ(Kihon(kTypeKji, test::sjis("菊")), 15u);
  EXPECT_EQ(Kihon(kTypeKji, test::sjis("木")), 28u);
  EXPECT_EQ(Kihon(kTypeKji, test::sjis("気")), 0xFFFFFFFF);
  EXPECT_EQ(Kihon(kTypeKji, test::sjis("木木")), 0xFFFFFFFF);
}

TEST_F(Index1SearchTest, TakesTheRowOfAnEndedKanaWordAtEitherEnd) {
  WriteSmallSet();
  const std::string head =
      "\x03\0\0\0\x0B\0\0\0"
      "\xAB\0\0"
      "\x0F\0\0\0"s;
  const std::string ended = "\0\x07\0\0\0"s, a = "\xA0\x01\0\0\0"s, k = "\xAD\x02\0\0\0"s;
  for (const std::string& rows : {ended + a + k, a + k + ended}) {
    writeFile(BasicFile("je.idx"), head + rows);
    ASSERT_EQ(OpenBasic(), 1);
    EXPECT_EQ(Kihon(kTypeKana, "\xAB"), 7u);
    EXPECT_EQ(Kihon(kTypeKana, "\xAB\xA0"), 1u);
    EXPECT_EQ(Kihon(kTypeKana, "\xAB\xAD"), 2u);
    EXPECT_EQ(EndAPI(), 1);
  }
}

TEST_F(Index1SearchTest, DamagedTablesGiveStatus20) {
  WriteSmallSet();
  std::string idx = SmallSet().files().at("ej.idx");
  writeFile(BasicFile("ej.idx"), idx.replace(9, 2, "\x05\0"s));  // a's children begin at row 5 of 1
  ASSERT_EQ(OpenBasic(), 1);
  uint32_t offset = 0;
  EXPECT_EQ(GetIdxKihon(kTypeE, "apple", &offset), 20);
  EXPECT_EQ(offset, 0xFFFFFFFF);
  EXPECT_EQ(GetIdxKihon(kTypeE, "a", &offset), 20);
  EXPECT_EQ(GetIdxKihon(kTypeE, "b", &offset), 1);
}

TEST_F(Index1SearchTest, OtherTypesAreNotWalked) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  uint32_t offset = 0;
  for (const uint16_t type : {uint16_t{0}, kTypeKatu, uint16_t{6}}) {
    EXPECT_EQ(GetIdxKihon(type, "a", &offset), 20) << type;
    EXPECT_EQ(GetIdxUser(type, "a", &offset), 20) << type;
    EXPECT_EQ(offset, 0u);
  }
}

TEST_F(Index1SearchTest, NeedsEveryTableOfEveryOpenedSet) {
  EXPECT_EQ(CheckOuterVal(), 20);
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(CheckOuterVal(), 1);
  for (idx_info_ptr* info : {&g_sKihonEJ, &g_sKihonKna, &g_sKihonKji, &g_sKihonHase, &g_sKihonKatu}) {
    const idx_info_ptr kept = *info;
    info->tableB = nullptr;
    uint32_t offset = 0;
    EXPECT_EQ(GetIdxKihon(kTypeE, "apple", &offset), 20);
    EXPECT_EQ(offset, 0xFFFFFFFF);
    *info = kept;
  }
  for (const uint8_t user : {kDicUserE, kDicUserJ}) {
    g_dicType = kDicKihon | user;
    EXPECT_EQ(CheckOuterVal(), 20);
  }
}

}  // namespace
}  // namespace zavel::engine
