#include "engine/Index1.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

#include "engine/EngineFixture.h"
#include "foundation/ByteReader.h"
#include "support/DicWriter.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::IndexFiles;
using test::writeFile;
using test::writeIndex;
using namespace std::string_literals;

class LoadIndex1Test : public EngineTest {
 protected:
  bool Load(const std::string& bytes, uint16_t set, uint16_t type) {
    writeFile(folder_.prefix() + "x.idx", bytes);
    DeleteFileMapping();
    FsObj stream;
    EXPECT_TRUE(stream.Open(folder_.prefix() + "x.idx", true));
    return LoadIndex1(&stream, "SM_TEST", &info_, set, type, false);
  }

  size_t Place(const uint8_t* table) const { return static_cast<size_t>(table - info_.tableBase); }

  idx_info_ptr info_;
};

TEST_F(LoadIndex1Test, PutsTheTablesWhereTheFileHasThem) {
  const std::string idx = writeIndex(1, {{"apple", 0}}).idx;
  ASSERT_TRUE(Load(idx, kSetKihon, kTypeE));
  EXPECT_EQ(std::string(reinterpret_cast<char*>(info_.tableBase), idx.size()), idx);
  EXPECT_EQ(Place(info_.tableA), 0u);
  EXPECT_EQ(Place(info_.tableB), 11u);
  EXPECT_EQ(Place(info_.tableC), 22u);
  EXPECT_EQ(info_.size, 31u);
  EXPECT_EQ(info_.dirty, 0);
}

TEST_F(LoadIndex1Test, AUserIndexBeginsBehindItsHeader) {
  ASSERT_TRUE(Load(writeIndex(1, {{"apple", 128}}, true).idx, kSetUser, kTypeE));
  EXPECT_EQ(Place(info_.tableA), 128u);
  EXPECT_EQ(Place(info_.tableB), 139u);
  EXPECT_EQ(Place(info_.tableC), 150u);
}

TEST_F(LoadIndex1Test, AnIndexWithoutTableBHasItEqualTableC) {
  ASSERT_TRUE(Load(writeIndex(2, {{"\xAD\xBE", 0}}).idx, kSetKihon, kTypeKana));
  EXPECT_EQ(Place(info_.tableA), 0u);
  EXPECT_EQ(Place(info_.tableC), 11u);
  EXPECT_EQ(info_.tableB, info_.tableC);
}

TEST_F(LoadIndex1Test, AConjugationIndexIsTableCAlone) {
  ASSERT_TRUE(Load(writeIndex(5, {{"went", 0}}).idx, kSetKihon, kTypeKatu));
  EXPECT_EQ(Place(info_.tableA), 0u);
  EXPECT_EQ(Place(info_.tableB), 0u);
  EXPECT_EQ(Place(info_.tableC), 0u);
}

TEST_F(LoadIndex1Test, AUserKanjiIndexHasRoomToGrow) {
  ASSERT_TRUE(Load(writeIndex(3, {{"\x97\xD1\x8C\xE7", 128}}, true).idx, kSetUser, kTypeKji));
  EXPECT_EQ(info_.size, 100140u);
  EXPECT_EQ(Place(info_.tableA), 128u);
  EXPECT_EQ(Place(info_.tableC), 140u);
  EXPECT_EQ(info_.tableBase[150], 0);
  EXPECT_EQ(info_.tableBase[100139], 0);
}

// A kanji index of `rowsA` and `rowsC` rows, all zero but the size words.
std::string KjiOf(uint32_t rowsA, uint32_t rowsC) {
  std::string idx(128, '\0');
  uint8_t word[4];
  const auto put = [&](uint32_t value) {
    writeLE32(word, value);
    idx.append(reinterpret_cast<char*>(word), 4);
  };
  put(rowsA * 4);
  put(136 + rowsA * 4);
  idx.append(rowsA * 4, '\0');
  put(rowsC * 6);
  return idx.append(rowsC * 6, '\0');
}

TEST_F(LoadIndex1Test, AUserKanjiIndexHoldsTenThousandRowsInEachTable) {
  EXPECT_TRUE(Load(KjiOf(10000, 10000), kSetUser, kTypeKji));
  EXPECT_FALSE(Load(KjiOf(10001, 0), kSetUser, kTypeKji));
  EXPECT_FALSE(Load(KjiOf(0, 10001), kSetUser, kTypeKji));
  EXPECT_FALSE(Load(KjiOf(10000, 10001), kSetUser, kTypeKji));
  EXPECT_FALSE(Load(KjiOf(10000, 10000) + "x", kSetUser, kTypeKji));
  EXPECT_EQ(info_.tableBase, nullptr);
}

TEST_F(LoadIndex1Test, TablesMayStandApart) {
  const std::string apart =
      "\x03\0\0\0\x0D\0\0\0"
      "\xAD\0\0"  // A, C at 13
      "??"
      "\x05\0\0\0"
      "\xBE\0\0\0\0"s;
  ASSERT_TRUE(Load(apart, kSetKihon, kTypeKana));
  EXPECT_EQ(Place(info_.tableC), 13u);
}

TEST_F(LoadIndex1Test, ASizeThatIsNoMultipleCountsWholeRows) {
  ASSERT_TRUE(
      Load("\x06\0\0\0"
           "w\0\0\0\0?"s,
           kSetKihon, kTypeKatu));
  EXPECT_EQ(RowCount(info_.tableC, kRowC), 1u);
}

TEST_F(LoadIndex1Test, RefusesEveryTruncation) {
  const std::string english = writeIndex(1, {{"apple", 0}}).idx;
  for (size_t length = 0; length < english.size(); ++length) {
    EXPECT_FALSE(Load(english.substr(0, length), kSetKihon, kTypeE)) << length;
  }
  const std::string kanji = writeIndex(3, {{"\x97\xD1\x8C\xE7", 128}}, true).idx;
  for (size_t length = 0; length < kanji.size(); ++length) {
    EXPECT_FALSE(Load(kanji.substr(0, length), kSetUser, kTypeKji)) << length;
  }
}

TEST_F(LoadIndex1Test, RefusesTablesThatLeaveTheFileOrLieInEachOther) {
  std::string idx = writeIndex(1, {{"apple", 0}}).idx;
  const auto with = [&idx](size_t at, const std::string& bytes) {
    return std::string(idx).replace(at, bytes.size(), bytes);
  };
  EXPECT_FALSE(Load(with(0, "\x04"), kSetKihon, kTypeE));              // A runs into B
  EXPECT_FALSE(Load(with(0, "\xFF\xFF\xFF\xFF"), kSetKihon, kTypeE));  // A is longer than the file
  EXPECT_FALSE(Load(with(4, "\xFF\xFF\xFF\xFF"), kSetKihon, kTypeE));  // B behind the file
  EXPECT_FALSE(Load(with(4, "\0\0\0\0"s), kSetKihon, kTypeE));         // B on A
  EXPECT_FALSE(Load(with(15, "\x0B"), kSetKihon, kTypeE));             // C on B
  EXPECT_FALSE(Load(with(15, "\x1C"), kSetKihon, kTypeE));             // C's size word runs out of the file
  EXPECT_FALSE(Load(with(22, "\x06"), kSetKihon, kTypeE));             // C is one byte too long
  EXPECT_TRUE(Load(idx, kSetKihon, kTypeE));
}

TEST_F(LoadIndex1Test, RefusesAFileThatCanBeNoIndex) {
  writeFile(folder_.prefix() + "big", "");
  std::filesystem::resize_file(folder_.prefix() + "big", uint64_t{1} << 32);
  FsObj stream;
  ASSERT_TRUE(stream.Open(folder_.prefix() + "big", true));
  EXPECT_FALSE(LoadIndex1(&stream, "SM_TEST", &info_, kSetKihon, kTypeE, false));
}

TEST_F(LoadIndex1Test, ReportsAFailedRead) {
  writeFile(folder_.prefix() + "x.idx", writeIndex(1, {{"apple", 0}}).idx);
  FsObj stream;
  EXPECT_FALSE(LoadIndex1(&stream, "SM_TEST", &info_, kSetKihon, kTypeE, false));  // not open
  EXPECT_FALSE(LoadIndex1(nullptr, "SM_TEST", &info_, kSetKihon, kTypeE, false));
  test::FaultyStorage disk;
  for (long n = 1; n <= 2; ++n) {  // the size, the read
    ASSERT_TRUE(stream.Open(folder_.prefix() + "x.idx", true));
    disk.failAt(n);
    EXPECT_FALSE(LoadIndex1(&stream, "SM_TEST", &info_, kSetKihon, kTypeE, false)) << n;
    EXPECT_EQ(disk.faults(), 1);
    EXPECT_EQ(info_.tableBase, nullptr);
  }
}

TEST_F(LoadIndex1Test, RefusesABlockThatIsTooSmallForItsNewContent) {
  DeleteFileMapping();
  bool existed = true;
  ASSERT_NE(CreateShMem("SM_TEST", 30, &existed), nullptr);
  EXPECT_FALSE(existed);
  writeFile(folder_.prefix() + "x.idx", writeIndex(1, {{"apple", 0}}).idx);  // 31 bytes
  FsObj stream;
  ASSERT_TRUE(stream.Open(folder_.prefix() + "x.idx", true));
  EXPECT_FALSE(LoadIndex1(&stream, "SM_TEST", &info_, kSetKihon, kTypeE, false));
}

TEST(RowCount, NamesNoRowWhoseNumberMeansSomethingElse) {
  std::string table(4, '\0');
  writeLE32(reinterpret_cast<uint8_t*>(table.data()), 0x10000 * 5);
  EXPECT_EQ(RowCount(reinterpret_cast<const uint8_t*>(table.data()), 5), 0xFFFEu);
}

TEST(AccessCheck, WantsARowBelowTheCount) {
  const uint8_t table[] = {10, 0, 0, 0};
  EXPECT_EQ(AccessCheck(table, 1, 5), 1);
  EXPECT_EQ(AccessCheck(table, 2, 5), 20);
  EXPECT_EQ(AccessCheck(nullptr, 0, 5), 20);
}

}  // namespace
}  // namespace zavel::engine
