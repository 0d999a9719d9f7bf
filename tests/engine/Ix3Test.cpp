// Third-level blocks: reading, checking, and finding rows.
#include <gtest/gtest.h>

#include <random>

#include "engine/Index3.h"
#include "engine/SearchFixture.h"
#include "foundation/ByteReader.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

// A block read from a file of its own.
class Ix3Test : public testing::Test {
 protected:
  Status read(const std::string& file, uint32_t offset) {
    writeFile(folder.path() + "/x", file);
    EXPECT_TRUE(stream.Open(folder.path() + "/x", true));
    const Status status = ReadIx3(&stream, offset, &block);
    stream.Close();
    return status;
  }

  TempFolder folder;
  FsObj stream;
  Ix3Block block;
};

Status check(const std::string& block) {
  return CheckIdx3Data(reinterpret_cast<const uint8_t*>(block.data()), block.size());
}

// Where a search finds its rows.
struct Found {
  uint16_t first;
  uint16_t number;
  bool operator==(const Found&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Found& found) {
  return out << found.first << " x " << found.number;
}
constexpr Found kNone = {kRowNotFound, 0};

using Agree = uint16_t (*)(uint16_t, const uint8_t*, const uint8_t*, uint16_t, const std::string&, uint16_t*,
                           size_t);

Found find(Agree agree, uint16_t type, const std::string& bytes, const std::string& key) {
  const Ix3View view{reinterpret_cast<const uint8_t*>(bytes.data()),
                     readLE16(reinterpret_cast<const uint8_t*>(bytes.data())),
                     static_cast<uint16_t>(bytes.size())};
  uint16_t number = 99;
  const uint16_t first =
      agree(type, view.strings(), view.rowOffsets(), view.count, key, &number, view.stringsSize());
  return {first, number};
}

std::string blockOf(const std::vector<std::string>& remainders) {
  return writeBlock(remainders, std::vector<uint32_t>(remainders.size(), 7));
}

// The block of a dictionary with the one word apple.
const std::string kAppleBlock(
    "\x01\x00\x0F\x00"
    "\x00\x00"
    "\x02\x00le\x00"
    "\x00\x00\x00\x00",
    15);

TEST_F(Ix3Test, ReadsABlockByItsHead) {
  ASSERT_EQ(1, read(kAppleBlock, 0));
  EXPECT_EQ(1, block.count);
  EXPECT_EQ(15, block.size);
  EXPECT_EQ(kAppleBlock, block.bytes);
  EXPECT_EQ(5u, block.stringsSize());
  EXPECT_EQ(0u, readLE32(block.entryOffsets()));
}

TEST_F(Ix3Test, ReadsABlockInTheMiddleOfAFile) {
  ASSERT_EQ(1, read("xyz" + kAppleBlock + "xyz", 3));
  EXPECT_EQ(kAppleBlock, block.bytes);
}

TEST_F(Ix3Test, ReadsABlockOfNoRows) {
  ASSERT_EQ(1, read(blockOf({}), 0));
  EXPECT_EQ(0, block.count);
  EXPECT_EQ(4, block.size);
}

TEST_F(Ix3Test, ReadsTheLongestBlock) {
  const std::string longest = blockOf({std::string(65535 - 13, 'x')});
  ASSERT_EQ(65535u, longest.size());
  ASSERT_EQ(1, read(longest, 0));
  EXPECT_EQ(longest, block.bytes);
  EXPECT_EQ(1, check(longest));
}

TEST_F(Ix3Test, ReportsAShortReadWith21) {
  for (size_t length = 0; length < kAppleBlock.size(); ++length) {
    EXPECT_EQ(21, read(kAppleBlock.substr(0, length), 0)) << length;
  }
  EXPECT_EQ(21, read(kAppleBlock, 15)) << "at the end of the file";
  EXPECT_EQ(21, read(kAppleBlock, 4000000000u));
  const std::string longer = blockOf({std::string(5000, 'x')});
  EXPECT_EQ(21, read(longer.substr(0, longer.size() - 1), 0)) << "a block that takes a second read";
}

TEST_F(Ix3Test, ReportsACountThatTheSizeCannotHoldWith20) {
  EXPECT_EQ(20, read(std::string("\x02\x00\x0F\x00", 4) + std::string(11, '\0'), 0))
      << "2 rows take 16 bytes";
  EXPECT_EQ(1, read(std::string("\x02\x00\x10\x00", 4) + std::string(12, '\0'), 0));
  EXPECT_EQ(20, read(std::string("\x00\x00\x03\x00", 4), 0)) << "shorter than its head";
  EXPECT_EQ(20, read(std::string("\x01\x80\xFF\xFF", 4) + std::string(65531, '\0'), 0))
      << "the highest bit of the count is part of it";
}

TEST(CheckIdx3Data, AcceptsWellMadeBlocks) {
  EXPECT_EQ(1, check(kAppleBlock));
  EXPECT_EQ(1, check(blockOf({})));
  EXPECT_EQ(1, check(blockOf({"", "", "a", "ab"})));
}

TEST(CheckIdx3Data, RefusesEveryOtherValueOfEveryHeadAndLengthByte) {
  const std::string good = blockOf({"", "ab"});
  // count, size, row offsets, then the two lengths and the NULs in the string area of 8 bytes
  for (const size_t at : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15}) {
    for (int value = 0; value < 256; ++value) {
      std::string bad = good;
      bad[at] = static_cast<char>(value);
      const bool sameRow = at == 4 && value == 3;  // both rows at one string are no contradiction
      EXPECT_EQ(bad == good || sameRow ? 1 : 20, check(bad)) << at << " = " << value;
    }
  }
}

TEST(CheckIdx3Data, RefusesAnotherSize) {
  EXPECT_EQ(20, check(kAppleBlock + '\0'));
  EXPECT_EQ(20, check(kAppleBlock.substr(0, 14)));
  EXPECT_EQ(20, check(std::string("\x00\x00\x05\x00\x00", 5))) << "no rows, one byte too many";
  for (size_t length = 0; length < 4; ++length) EXPECT_EQ(20, check(std::string(length, '\0')));
  EXPECT_EQ(20, CheckIdx3Data(nullptr, 15));
}

TEST(AccessCheckIdx3, KeepsASpanInsideTheBlock) {
  const uint8_t block[10] = {};
  EXPECT_EQ(1, AccessCheckIdx3(block, 10, 0, 10));
  EXPECT_EQ(1, AccessCheckIdx3(block, 10, 10, 0));
  EXPECT_EQ(20, AccessCheckIdx3(block, 10, 0, 11));
  EXPECT_EQ(20, AccessCheckIdx3(block, 10, 10, 1));
  EXPECT_EQ(20, AccessCheckIdx3(block, 10, 11, 0));
  EXPECT_EQ(20, AccessCheckIdx3(block, 10, 1, SIZE_MAX));
  EXPECT_EQ(20, AccessCheckIdx3(nullptr, 10, 0, 1));
}

TEST(CompleteAgree, FindsARowByTheWholeRemainder) {
  const std::string block = blockOf({"", "le", "lication", "ly"});
  EXPECT_EQ((Found{0, 1}), find(CompleteAgree, 1, block, "app"));
  EXPECT_EQ((Found{1, 1}), find(CompleteAgree, 1, block, "apple"));
  EXPECT_EQ((Found{3, 1}), find(CompleteAgree, 1, block, "apply"));
  EXPECT_EQ(kNone, find(CompleteAgree, 1, block, "appl"));
  EXPECT_EQ(kNone, find(CompleteAgree, 1, block, "apples"));
}

TEST(CompleteAgree, TakesInAllEqualNeighbours) {
  const std::string block = blockOf({"a", "b", "b", "b", "c"});
  EXPECT_EQ((Found{1, 3}), find(CompleteAgree, 1, block, "xxxb"));
}

TEST(CompleteAgree, SkipsThePrefixOfItsIndexType) {
  EXPECT_EQ((Found{0, 1}), find(CompleteAgree, 2, blockOf({"cd"}), "abcd"));
  EXPECT_EQ((Found{0, 1}), find(CompleteAgree, 3, blockOf({"ef"}), "abcdef"));
  EXPECT_EQ((Found{0, 1}), find(CompleteAgree, 4, blockOf({"de"}), "abcde"));
  EXPECT_EQ((Found{0, 1}), find(CompleteAgree, 5, blockOf({"bc"}), "abc"));
}

TEST(CompleteAgree, RefusesAKeyShorterThanThePrefix) {
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 1, blockOf({""}), "ab"));
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 2, blockOf({""}), "a"));
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 3, blockOf({""}), "abc"));
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 5, blockOf({""}), ""));
}

TEST(CompleteAgree, ComparesUnsignedBytes) {
  EXPECT_EQ((Found{1, 1}), find(CompleteAgree, 1, blockOf({"z", "\xE9"}), "xxx\xE9"));
}

TEST(CompleteAgree, RefusesARowThatLeavesTheStringArea) {
  std::string block = blockOf({"a", "b"});
  block[6] = 8;  // the string area has 8 bytes
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 1, block, "xxxb"));
  block = blockOf({"a", "b"});
  block[15] = 'x';  // the last NUL
  EXPECT_EQ((Found{kRowBad, 0}), find(CompleteAgree, 1, block, "xxxb"));
}

TEST(FrontAgree, FindsAllRowsThatBeginSo) {
  const std::string block = blockOf({"", "le", "lication", "ly", "oint"});
  EXPECT_EQ((Found{1, 3}), find(FrontAgree, 1, block, "appl"));
  EXPECT_EQ((Found{2, 1}), find(FrontAgree, 1, block, "appli"));
  EXPECT_EQ((Found{4, 1}), find(FrontAgree, 1, block, "appoint"));
  EXPECT_EQ(kNone, find(FrontAgree, 1, block, "appoints"));
  EXPECT_EQ(kNone, find(FrontAgree, 1, block, "appz"));
  EXPECT_EQ((Found{kRowBad, 0}), find(FrontAgree, 1, block, "ap"));
}

// The plain reference: every row compared.
Found scan(const std::vector<std::string>& remainders, const std::string& wanted, bool front) {
  Found found = kNone;
  for (size_t row = 0; row < remainders.size(); ++row) {
    const bool agrees = front ? remainders[row].starts_with(wanted) : remainders[row] == wanted;
    if (!agrees) continue;
    if (found.number == 0) found.first = static_cast<uint16_t>(row);
    ++found.number;
  }
  return found;
}

std::string randomWord(std::mt19937& random) {
  std::string word(random() % 4, ' ');
  for (char& c : word) c = static_cast<char>("abc\xE9"[random() % 4]);
  return word;
}

TEST(Agree, FindsWhatAScanFindsInBlocksOfEverySize) {
  std::mt19937 random(20240601);
  for (int count = 0; count <= 40; ++count) {
    for (int round = 0; round < 20; ++round) {
      std::vector<std::string> remainders;
      for (int row = 0; row < count; ++row) remainders.push_back(randomWord(random));
      std::sort(remainders.begin(), remainders.end());
      const std::string block = blockOf(remainders);
      std::vector<std::string> wanted = remainders;
      for (int i = 0; i < 20; ++i) wanted.push_back(randomWord(random));
      for (const std::string& word : wanted) {
        EXPECT_EQ(scan(remainders, word, false), find(CompleteAgree, 1, block, "xxx" + word))
            << count << word;
        if (word.empty()) continue;
        EXPECT_EQ(scan(remainders, word, true), find(FrontAgree, 1, block, "xxx" + word)) << count << word;
      }
    }
  }
}

// Words with fixed places in a basic English set; streams are opened by the engine.
class Ix3SearchTest : public SearchTest {
 protected:
  // Writes `blocks` as ej.ix3 (and `users` behind a header as the user's) and starts the engine.
  void openBlocks(const std::string& blocks, const std::string& users = "") {
    dic.addE("apple", head("apple"));
    withUserE = true;
    userE.add("apple", head("apple"));
    open();
    writeFile(path("ej.ix3"), blocks);
    writeFile(path("hase.ix3"), blocks);
    writeFile(path("katu.ix3"), blocks);
    writeFile(path("ueej.ix3"), std::string(128, '\0') + users);
    ASSERT_TRUE(OpenFsObjsUserE(false, true));
  }
  ~Ix3SearchTest() override {
    CloseFsObjsKihonE();
    CloseFsObjsUserE();
  }

  using Search = Status (*)(uint16_t, uint16_t, const std::string&, uint32_t, Ix3Rows*);
  std::vector<uint32_t> rowsOf(Search search, uint16_t type, const std::string& key, uint16_t set = 1) {
    status = search(type, set, key, set == 1 ? 0 : 128, &rows);
    return status == 1 ? rows.offsets : std::vector<uint32_t>{};
  }

  Ix3Rows rows;
};

// A block of `count` rows with the first remainder `first` and others behind it; entries 100, 101 ...
std::string longBlock(int count, const std::string& first) {
  std::vector<std::string> remainders;
  std::vector<uint32_t> offsets;
  for (int i = 0; i < count; ++i) {
    remainders.push_back(i == 0 ? first
                                : "m" + std::string(1, static_cast<char>('a' + i / 26)) +
                                      static_cast<char>('a' + i % 26));
    offsets.push_back(static_cast<uint32_t>(100 + i));
  }
  return writeBlock(remainders, offsets);
}

TEST_F(Ix3SearchTest, ExactSearchReportsWhereTheRowsStand) {
  openBlocks(writeBlock({"a", "le", "le", "z"}, {10, 20, 30, 40}));
  EXPECT_EQ((std::vector<uint32_t>{20, 30}), rowsOf(GetDicOffImi, 1, "apple"));
  EXPECT_EQ(1, rows.firstRow);
  EXPECT_EQ(4, rows.blockCount);
  EXPECT_EQ(4 + 8 + (4 + 5 + 5 + 4) + 16, rows.blockSize);
  EXPECT_EQ(std::vector<uint32_t>{}, rowsOf(GetDicOffImi, 1, "appl"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(4, rows.blockCount);
}

TEST_F(Ix3SearchTest, ExactSearchForAShortKeyTakesTheBlockIfItsFirstRemainderIsEmpty) {
  openBlocks(longBlock(3, ""), longBlock(60, ""));
  EXPECT_EQ((std::vector<uint32_t>{100, 101, 102}), rowsOf(GetDicOffImi, 1, "ap"));
  EXPECT_EQ((std::vector<uint32_t>{100, 101, 102}), rowsOf(GetDicOffImi, 4, "ap"));
  EXPECT_EQ((std::vector<uint32_t>{100}), rowsOf(GetDicOffImi, 1, "app")) << "three letters are no short key";
  EXPECT_EQ(50u, rowsOf(GetDicOffImi, 1, "ap", 2).size()) << "at most fifty, of a user block too";
}

TEST_F(Ix3SearchTest, ExactSearchForAShortKeyFindsNothingBehindAFirstRemainder) {
  openBlocks(longBlock(3, "a"));
  EXPECT_TRUE(rowsOf(GetDicOffImi, 1, "ap").empty());
  EXPECT_EQ(1, status);
  EXPECT_TRUE(rowsOf(GetDicOffImi, 4, "a").empty());
  EXPECT_EQ(1, status);
}

TEST_F(Ix3SearchTest, ExactSearchCapsShortKeysButNotDerivedWords) {
  openBlocks(longBlock(60, ""));
  EXPECT_EQ(50u, rowsOf(GetDicOffImi, 1, "ap").size());
  EXPECT_EQ(60u, rowsOf(GetDicOffImi, 4, "ap").size());
}

TEST_F(Ix3SearchTest, ExactSearchDoesNotCapEqualRows) {
  openBlocks(writeBlock(std::vector<std::string>(60, "le"), std::vector<uint32_t>(60, 5)));
  EXPECT_EQ(60u, rowsOf(GetDicOffImi, 1, "apple").size());
}

TEST_F(Ix3SearchTest, ExactSearchForConjugatedFormsSkipsOneByte) {
  openBlocks(writeBlock({"", "ent"}, {1, 2}));
  EXPECT_EQ((std::vector<uint32_t>{2}), rowsOf(GetDicOffImi, 5, "went"));
  EXPECT_EQ((std::vector<uint32_t>{1}), rowsOf(GetDicOffImi, 5, "w"));
}

TEST_F(Ix3SearchTest, AnEmptyKeyAndAnEmptyBlockFindNothing) {
  openBlocks(writeBlock({}, {}));
  for (const char* key : {"", "ap", "app", "apple"}) {
    EXPECT_TRUE(rowsOf(GetDicOffImi, 1, key).empty());
    EXPECT_EQ(1, status) << key;
    EXPECT_TRUE(rowsOf(GetIndex3, 1, key).empty());
    EXPECT_EQ(1, status) << key;
  }
  writeFile(path("katu.ix3"), writeBlock({""}, {1}));
  EXPECT_TRUE(rowsOf(GetDicOffImi, 5, "").empty());
  EXPECT_EQ(1, status);
}

TEST_F(Ix3SearchTest, FrontSearchTakesTheRowsThatBeginSo) {
  openBlocks(writeBlock({"", "le", "ly", "z"}, {10, 20, 30, 40}));
  EXPECT_EQ((std::vector<uint32_t>{20, 30}), rowsOf(GetIndex3, 1, "appl"));
  EXPECT_EQ(1, rows.firstRow);
}

TEST_F(Ix3SearchTest, FrontSearchForThePrefixAloneTakesTheWholeBlock) {
  openBlocks(longBlock(60, "a"), longBlock(60, "a"));
  EXPECT_EQ(50u, rowsOf(GetIndex3, 1, "app").size()) << "fifty rows of a basic block";
  EXPECT_EQ(60u, rowsOf(GetIndex3, 1, "app", 2).size()) << "all rows of a user block";
  EXPECT_EQ(59u, rowsOf(GetIndex3, 1, "appm").size()) << "with something to compare there is no cap here";
}

TEST_F(Ix3SearchTest, FrontSearchForLessThanThePrefixWantsAnEmptyFirstRemainder) {
  openBlocks(longBlock(3, "a"), longBlock(3, ""));
  EXPECT_TRUE(rowsOf(GetIndex3, 1, "ap").empty());
  EXPECT_EQ(1, status);
  EXPECT_EQ(3u, rowsOf(GetIndex3, 1, "ap", 2).size());
}

TEST_F(Ix3SearchTest, BothSearchesReportDamageWith20AndShortReadsWith21) {
  std::string bad = writeBlock({"", "le", "z"}, {10, 20, 30});
  bad[6] = '\x7F';  // the row in the middle
  openBlocks(bad);
  for (const Search search : {GetDicOffImi, GetIndex3}) {
    rowsOf(search, 1, "apple");
    EXPECT_EQ(20, status);
    EXPECT_EQ(21, search(1, 1, "apple", static_cast<uint32_t>(bad.size()), &rows));
  }
}

TEST_F(Ix3SearchTest, GetDicOfsetGivesEveryRow) {
  openBlocks(writeBlock({"", "le", "z"}, {10, 20, 3000000000u}));
  std::vector<uint32_t> offsets;
  EXPECT_EQ(1, GetDicOfset(1, 1, 0, &offsets));
  EXPECT_EQ((std::vector<uint32_t>{10, 20, 3000000000u}), offsets);
  writeFile(path("ej.ix3"), writeBlock({}, {}));
  EXPECT_EQ(1, GetDicOfset(1, 1, 0, &offsets));
  EXPECT_TRUE(offsets.empty());
}

TEST_F(Ix3SearchTest, GetDicOfsetReportsDamage) {
  openBlocks(std::string("\x02\x00\x0F\x00", 4) + std::string(11, '\0'));
  std::vector<uint32_t> offsets;
  EXPECT_EQ(20, GetDicOfset(1, 1, 0, &offsets));
  EXPECT_EQ(21, GetDicOfset(1, 1, 13, &offsets));
  EXPECT_EQ(21, GetDicOfset(1, 1, 1000, &offsets));
  writeFile(path("ej.ix3"), writeBlock({"abc"}, {1}).substr(0, 15));
  EXPECT_EQ(21, GetDicOfset(1, 1, 0, &offsets));
}

TEST_F(Ix3SearchTest, GetIdx3DataGivesACheckedUserBlock) {
  const std::string good = writeBlock({"", "le"}, {10, 20});
  std::string bad = good;
  bad[8] = 1;  // length of the first remainder
  openBlocks("", good + bad);
  Ix3Block block;
  EXPECT_EQ(1, GetIdx3Data(128, 1, &block));
  EXPECT_EQ(good, block.bytes);
  EXPECT_EQ(20, GetIdx3Data(static_cast<uint32_t>(128 + good.size()), 1, &block));
  EXPECT_EQ(21, GetIdx3Data(static_cast<uint32_t>(128 + 2 * good.size()), 1, &block));
  EXPECT_EQ(259, GetIdx3Data(128, 2, &block)) << "no user Japanese set";
}

TEST_F(SearchTest, SrchHaseiFindsTheEntriesOfADerivedForm) {
  const uint32_t quick = dic.addE("quick", head("quick"));
  dic.addHase("quickly", quick);
  dic.addHase("qu", quick);
  open();
  std::vector<uint32_t> offsets = {9};
  EXPECT_EQ(1, SrchHasei("quickly", &offsets));
  EXPECT_EQ(std::vector<uint32_t>{quick}, offsets);
  EXPECT_EQ(1, SrchHasei("qu", &offsets));
  EXPECT_EQ(std::vector<uint32_t>{quick}, offsets);
  EXPECT_EQ(1, SrchHasei("quick", &offsets)) << "its block has other rows";
  EXPECT_TRUE(offsets.empty());
  EXPECT_EQ(1, SrchHasei("zebra", &offsets));
  EXPECT_TRUE(offsets.empty());
  CloseFsObjsKihonE();
}

}  // namespace
}  // namespace zavel::test
