// The two files of an index, byte for byte where a format is small enough to be written by hand.
#include "mkdict/IndexWriter.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <map>

#include "foundation/ByteReader.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

std::string bytes(std::initializer_list<int> list) {
  std::string out;
  for (int b : list) out += static_cast<char>(b);
  return out;
}

// Files the keys under the types' rules, entry i at offset 100 * i.
struct Filed {
  Filed(uint16_t type, const std::vector<IndexRow>& rows) : writer(type) {
    std::vector<uint32_t> offsets;
    for (const IndexRow& row : rows) {
      writer.add(row);
      while (offsets.size() <= row.entry) offsets.push_back(static_cast<uint32_t>(100 * offsets.size()));
    }
    writer.arrange([this](const IndexRow& row, RowFault fault) { out[fault].push_back(row.key); });
    files = writer.write(offsets);
  }
  std::vector<std::string> keys() const {
    std::vector<std::string> all;
    for (const IndexRow& row : writer.rows()) all.push_back(row.key);
    return all;
  }
  IndexWriter writer;
  IndexWriter::Files files;
  std::map<RowFault, std::vector<std::string>> out;
};

TEST(IndexWriter, OneEnglishWord) {
  const Filed filed(1, {{"apple", 0, 0}});
  EXPECT_EQ(bytes({3, 0, 0, 0, 11,  0, 0, 0, 'a', 0, 0,  // table A, the next one at 11
                   3, 0, 0, 0, 22,  0, 0, 0, 'p', 0, 0,  // table B, the next one at 22
                   5, 0, 0, 0, 'p', 0, 0, 0, 0}),        // table C, block at 0
            filed.files.idx);
  EXPECT_EQ(bytes({1, 0, 15, 0, 0, 0, 2, 0, 'l', 'e', 0, 0, 0, 0, 0}), filed.files.ix3);
}

TEST(IndexWriter, ShortWordsAreFiledUnderZeros) {
  const Filed filed(1, {{"axe", 0, 0}, {"ax", 1, 0}, {"a", 2, 0}, {"b", 3, 0}});
  EXPECT_EQ(bytes({6,  0, 0, 0, 14, 0, 0, 0, 'a', 0, 0,  'b', 2, 0,              //
                   9,  0, 0, 0, 31, 0, 0, 0, 0,   0, 0,  'x', 1, 0, 0,   3,  0,  //
                   20, 0, 0, 0, 0,  0, 0, 0, 0,   0, 13, 0,   0, 0, 'e', 26, 0, 0, 0, 0, 39, 0, 0, 0}),
            filed.files.idx);
  // Four blocks of one row without remainder: count, size 13, row 0, length 0, NUL, entry.
  EXPECT_EQ(bytes({1, 0, 13, 0, 0, 0, 0, 0, 0, 200, 0, 0, 0,    // a
                   1, 0, 13, 0, 0, 0, 0, 0, 0, 100, 0, 0, 0,    // ax
                   1, 0, 13, 0, 0, 0, 0, 0, 0, 0,   0, 0, 0,    // axe
                   1, 0, 13, 0, 0, 0, 0, 0, 0, 44,  1, 0, 0}),  // b
            filed.files.ix3);
}

TEST(IndexWriter, SortsRemaindersAsStrcmpAndKeepsEqualOnesByRankThenSource) {
  const Filed filed(
      1, {{"abcz", 0, 9}, {"abc", 1, 9}, {"abca", 2, 9}, {"abcaa", 3, 9}, {"abca", 4, 9}, {"abca", 5, 1}});
  std::vector<uint32_t> entries;
  for (const IndexRow& row : filed.writer.rows()) entries.push_back(row.entry);
  EXPECT_EQ((std::vector<uint32_t>{1, 5, 2, 4, 3, 0}), entries);
}

TEST(IndexWriter, DropsRepeatsOfOneWordAndEntry) {
  const Filed filed(1, {{"apple", 0, 0}, {"apple", 0, 0}, {"apple", 1, 0}});
  EXPECT_EQ(2u, filed.writer.rows().size());
  EXPECT_TRUE(filed.out.empty());
}

// Kana bytes are 0x9F to 0xF1: as signed bytes negative, so that the word that has ended (0) comes last.
TEST(IndexWriter, KanaPrefixesSortAsSignedBytes) {
  const std::string a = "\xA0", i = "\xA2", n = "\xF1";
  const Filed filed(2, {{a, 0, 0}, {a + i, 1, 0}, {a + n + i, 2, 0}, {i, 3, 0}});
  EXPECT_EQ((std::vector<std::string>{a + i, a + n + i, a, i}), filed.keys());
  EXPECT_EQ(bytes({6, 0, 0, 0, 14,   0,  0, 0, 0xA0, 0, 0,  0xA2, 3, 0, 20, 0,  0, 0, 0xA2,
                   0, 0, 0, 0, 0xF1, 13, 0, 0, 0,    0, 27, 0,    0, 0, 0,  40, 0, 0, 0}),
            filed.files.idx);
}

TEST(IndexWriter, KanaRemaindersSortUnsigned) {
  const std::string p = "\xA0\xA2";
  const Filed filed(2, {{p + "\xF1", 0, 0}, {p + "\xA0", 1, 0}, {p, 2, 0}});
  EXPECT_EQ((std::vector<std::string>{p, p + "\xA0", p + "\xF1"}), filed.keys());
}

// 亜 0x889F and 医 0x88E3 are followed by 唖 0x88A0; 腕 0x9872 ends level 1, 弌 0x989F begins level 2.
TEST(IndexWriter, KanjiPrefixesSortUnsignedByCharacter) {
  const std::string a = "\x88\x9F", i = "\x88\xE3", e = "\xE0\x40";
  const Filed filed(3, {{e, 0, 0}, {a + i + e, 1, 0}, {a, 2, 0}, {i + a, 3, 0}});
  EXPECT_EQ((std::vector<std::string>{a, a + i + e, i + a, e}), filed.keys());
  EXPECT_EQ(bytes({12,   0,    0, 0, 20,   0,    0,  0, 0x88, 0x9F, 0, 0, 0x88, 0xE3, 2,    0,
                   0xE0, 0x40, 3, 0, 24,   0,    0,  0, 0,    0,    0, 0, 0,    0,    0x88, 0xE3,
                   13,   0,    0, 0, 0x88, 0x9F, 28, 0, 0,    0,    0, 0, 41,   0,    0,    0}),
            filed.files.idx);
  EXPECT_EQ(bytes({1, 0, 15, 0, 0, 0, 2, 0, 0xE0, 0x40, 0, 100, 0, 0, 0}), filed.files.ix3.substr(13, 15));
}

TEST(IndexWriter, ConjugatedFormsHaveTableCAlone) {
  const Filed filed(5, {{"went", 0, 0}, {"goes", 0, 0}});
  EXPECT_EQ(bytes({10, 0, 0, 0, 'g', 0, 0, 0, 0, 'w', 16, 0, 0, 0}), filed.files.idx);
  EXPECT_EQ(bytes({1, 0, 16, 0, 0, 0, 3, 0, 'o', 'e', 's', 0, 0, 0, 0, 0,  //
                   1, 0, 16, 0, 0, 0, 3, 0, 'e', 'n', 't', 0, 0, 0, 0, 0}),
            filed.files.ix3);
}

TEST(IndexWriter, AnEmptyIndexHasEmptyTables) {
  EXPECT_EQ(bytes({0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0}), Filed(4, {}).files.idx);
  EXPECT_EQ(bytes({0, 0, 0, 0, 8, 0, 0, 0, 0, 0, 0, 0}), Filed(2, {}).files.idx);
  EXPECT_EQ(bytes({0, 0, 0, 0}), Filed(5, {}).files.idx);
  EXPECT_EQ("", Filed(1, {}).files.ix3);
}

TEST(IndexWriter, RefusesKeysThatNoReaderCouldAskFor) {
  const Filed filed(3,
                    {{"", 0, 0}, {"\x88", 1, 0}, {std::string("\x88\x9F\0\0", 4), 2, 0}, {"\x88\x9F", 3, 0}});
  EXPECT_EQ(std::vector<std::string>{""}, filed.out.at(RowFault::kEmptyKey));
  EXPECT_EQ(2u, filed.out.at(RowFault::kBadKey).size());
  EXPECT_EQ(std::vector<std::string>{"\x88\x9F"}, filed.keys());
}

// A row costs 9 bytes and its remainder; with 4 for the head, 65,535 = 4 + 2 * 9 + 32,756 + 32,757.
TEST(IndexWriter, ABlockIsFilledToItsLastByte) {
  const std::string p = "abc";
  const Filed filed(1, {{p + std::string(32756, 'x'), 0, 0}, {p + std::string(32757, 'y'), 1, 0}});
  EXPECT_TRUE(filed.out.empty());
  ASSERT_EQ(65535u, filed.files.ix3.size());
  EXPECT_EQ(bytes({2, 0, 0xFF, 0xFF}), filed.files.ix3.substr(0, 4));
}

TEST(IndexWriter, AFullBlockLeavesOutTheLeastFrequent) {
  const std::string p = "abc";
  const Filed filed(1, {{p + std::string(32756, 'x'), 0, 2}, {p + std::string(32758, 'y'), 1, 1}, {p, 2, 3}});
  EXPECT_EQ(std::vector<std::string>{p + std::string(32756, 'x')}, filed.out.at(RowFault::kFullBlock));
  EXPECT_EQ((std::vector<std::string>{p, p + std::string(32758, 'y')}),
            filed.keys());  // a short one still fits
  EXPECT_EQ(4u + 9 + 9 + 32758, filed.files.ix3.size());
}

TEST(IndexWriter, KeepsTheTablesBelowTheReservedRowNumbers) {
  // 65,536 prefixes: the two that have neither the frequent word nor the second word go.
  std::vector<IndexRow> rows;
  for (unsigned n = 0; n < 65536; ++n) {
    const auto high = static_cast<char>(0x81 + n / 188 / 188), mid = static_cast<char>(0x40 + n / 188 % 188),
               low = static_cast<char>(0x40 + n % 188);
    const std::string key = {static_cast<char>(0x88), mid, high, low};
    rows.push_back({key, n, n == 65535 ? 0u : 5u});
    if (n != 10 && n != 65534) rows.push_back({key + "\x88\x9F", n, 5});
  }
  const Filed filed(3, rows);
  ASSERT_EQ(2u, filed.out.at(RowFault::kFullTable).size());
  EXPECT_EQ(rows[20].key, filed.out.at(RowFault::kFullTable)[0]);
  EXPECT_EQ(65534u, filed.writer.prefixes());
  const auto* idx = reinterpret_cast<const uint8_t*>(filed.files.idx.data());
  const uint32_t tableC = readLE32(idx + 4);
  EXPECT_EQ(65534u * 6, readLE32(idx + tableC));
  EXPECT_EQ(filed.files.idx.size(), tableC + 4 + 65534 * 6);
}

// A second writer, made for tests and knowing nothing of this one, gives the same bytes.
TEST(IndexWriter, AgreesWithTheTestsOwnWriter) {
  for (const uint16_t type : {1, 2, 3, 4, 5}) {
    std::vector<IndexRow> rows;
    std::vector<test::IndexRow> same;
    uint32_t seed = 12345;
    for (uint32_t entry = 0; entry < 3000; ++entry) {
      std::string key;
      seed = seed * 1103515245 + 12345;
      for (unsigned letters = 1 + (seed >> 16) % 6; letters > 0; --letters) {
        seed = seed * 1103515245 + 12345;
        const auto n = static_cast<char>((seed >> 16) % 5);
        if (type == 3) key += static_cast<char>(0x88 + n);
        key += static_cast<char>((type == 2 ? 0x9F : type == 3 ? 0xA0 : 'a') + n);
      }
      rows.push_back({key, entry, 0});
      same.push_back({key, 100 * entry});
    }
    const test::IndexFiles expected = test::writeIndex(type, same);
    const Filed filed(type, rows);
    EXPECT_EQ(expected.idx, filed.files.idx) << type;
    EXPECT_EQ(expected.ix3, filed.files.ix3) << type;
  }
}

TEST(IndexWriter, ComparesPrefixesAsReadersDo) {
  EXPECT_LT(IndexWriter::comparePrefixes(1, "a", "ab"), 0);
  EXPECT_GT(IndexWriter::comparePrefixes(2, "\xA0", "\xA0\xA2"), 0);
  EXPECT_LT(IndexWriter::comparePrefixes(3, "\x88\x9F", "\x88\x9F\x88\x9F"), 0);
  EXPECT_EQ(IndexWriter::comparePrefixes(1, "abcd", "abce"), 0);
  EXPECT_EQ(std::string("a\0\0", 3), IndexWriter::prefixOf(1, "a"));
  EXPECT_EQ("d", IndexWriter::remainderOf(4, "abcd"));
  EXPECT_EQ("", IndexWriter::remainderOf(3, "\x88\x9F"));
}

}  // namespace
}  // namespace zavel::mkdict
