// Kanji indexes that grow: rows inserted in order, a full index moved aside.
#include "engine/KjiIdxGrowth.h"

#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "engine/RamDicFixture.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::sjis;
using namespace std::string_literals;

class KjiIdxGrowthTest : public RamDicTest {
 protected:
  static EntryJ Written(const std::string& kanji) { return {.kana = "ねこ", .kanji = kanji}; }

  // A full kji.idx by hand: `rows` children of 0xE040, and after them of 0xE041, without blocks.
  static std::string FullKjiIdx(size_t rows, uint16_t count = 0) {
    std::string c;
    for (size_t row = 0; row < rows; ++row) {
      c += {static_cast<char>(0xE1 + row / 5000), static_cast<char>(row % 5000 / 252 + 0x40)};
      c.back() = static_cast<char>(row & 0xFF);
      c[c.size() - 2] = static_cast<char>(0x81 + row / 256);
      c += Le32(0);
    }
    std::string header(128, '\0');
    header.replace(10, 2, Le16(count));
    return header + Le32(4) + Le32(140) + "\xE0\x40\0\0"s + Le32(static_cast<uint32_t>(c.size())) + c;
  }
  // Opens the Japanese set alone, or with the English one, on this kanji index.
  void OpenOn(const std::string& kji, bool both) {
    EndAPI();
    SetFile("kji.idx", kji);
    ASSERT_EQ(both ? OpenBoth() : OpenJ(), 1);
  }
};

// 愛 88A4, 犬 8CA2, 猫 944C, 鳥 92B9; や 82E2, 科 89C8, 屋 89AE.
TEST_F(KjiIdxGrowthTest, RowsAreInsertedInOrder) {
  // The first, ahead of it, behind it, between; children ahead of, behind and between those of a row.
  for (const char* kanji : {"犬", "愛", "猫", "鳥", "犬科", "犬や", "犬屋", "猫や", "愛犬"}) {
    ASSERT_EQ(Add(Written(kanji)), 1) << kanji;
  }
  Reopen();
  // Blocks of 13 bytes in the order of adding.
  const auto block = [](uint32_t number) { return Le32(128 + 13 * (number - 1)); };
  EXPECT_EQ(Body("kji.idx"),
            Le32(16) + Le32(152) + "\x88\xA4\0\0\x8C\xA2\x02\0\x92\xB9\x06\0\x94\x4C\x07\0"s + Le32(54) +
                "\0\0"s + block(2) + "\x8C\xA2" + block(9) +  // 愛 愛犬
                "\0\0"s + block(1) + "\x82\xE2" + block(6) + "\x89\xAE" + block(7) + "\x89\xC8" +
                block(5) +                                                         // 犬 や 屋 科
                "\0\0"s + block(4) + "\0\0"s + block(3) + "\x82\xE2" + block(8));  // 鳥, 猫 猫や
  const auto found = FindJ("ねこ");
  ASSERT_EQ(found.size(), 9u);
  const uint16_t rowA[] = {1, 0, 3, 2, 1, 1, 1, 3, 0}, rowC[] = {2, 0, 7, 6, 5, 3, 4, 8, 1};
  for (size_t i = 0; i < 9; ++i) {
    EXPECT_EQ(found[i].kanji.pos1, rowA[i]) << i;
    EXPECT_EQ(found[i].kanji.pos3, rowC[i]) << i;
    EXPECT_EQ(found[i].kanji.pos2, 0xFFFF);
    EXPECT_EQ(found[i].kanji.fileNo, 0);
  }
}

// Two words that differ behind the second character share a row and a block.
TEST_F(KjiIdxGrowthTest, ALongerWordTakesTheRowOfItsFirstTwoCharacters) {
  for (const char* kanji : {"猫屋敷", "猫屋", "猫屋番"}) ASSERT_EQ(Add(Written(kanji)), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  for (const FoundJ& found : FindJ("ねこ")) EXPECT_EQ(found.kanji.ix3Count, 3);
}

// The row of a deleted word stays, without a block, and is taken again.
TEST_F(KjiIdxGrowthTest, ARowWithoutBlockIsTakenAgain) {
  ASSERT_EQ(Add(Written("猫")), 1);
  auto found = FindJ("ねこ");
  ASSERT_EQ(DelUserDicJ(&found[0].kana, &found[0].kanji), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  ASSERT_EQ(Add(Written("猫")), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  EXPECT_EQ(FindJ("ねこ")[0].kanji.pos3, 0);
}

TEST_F(KjiIdxGrowthTest, TheTenThousandthRowIsTheLastOfItsFile) {
  OpenOn(FullKjiIdx(9998), true);
  ASSERT_EQ(Add(Written("犬")), 1);
  ASSERT_EQ(Add(Written("猫")), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 10000u);
  EXPECT_FALSE(Exists("001.idx"));
  ASSERT_EQ(Add(Written("犬")), 1) << "a row that is there needs no room";
  EXPECT_FALSE(Exists("001.idx"));
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ"}), 1) << "nor does a word without kanji";
  EXPECT_FALSE(Exists("001.idx"));

  ASSERT_EQ(Add(Written("鳥")), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  EXPECT_EQ(KjiIdxCount(), 1);
  EXPECT_FALSE(Exists("kji.idx.Bkup"));
  EXPECT_EQ(File("001.idx").size(), 128u + 8 + 3 * 4 + 4 + 60000);
  auto found = FindJ("ねこ");
  ASSERT_EQ(found.size(), 5u);
  const uint16_t fileNo[] = {1, 1, 1, 0, 0};
  for (size_t i = 0; i < 5; ++i) EXPECT_EQ(found[i].kanji.fileNo, fileNo[i]) << i;
  EXPECT_EQ(found[3].kanji.pos1, 0xFFFF);
  Reopen();
  EXPECT_EQ(Files().size(), 9u);
  EXPECT_EQ(File("kji.idx").substr(0, 128), std::string(10, '\0') + '\x01' + std::string(117, '\0'));
  EXPECT_EQ(File("kji.idx").size(), 128u + 8 + 4 + 4 + 6);
}

// Adding to, searching, overwriting and deleting words whose row stands in a continuation index.
TEST_F(KjiIdxGrowthTest, WordsInAContinuationIndexAreWorkedWithAsOthers) {
  OpenOn(FullKjiIdx(9999), true);
  ASSERT_EQ(Add(Written("猫")), 1);
  ASSERT_EQ(Add(Written("犬")), 1);
  ASSERT_EQ(Add(Written("猫")), 1);
  Reopen();
  auto found = FindJ("ねこ");
  ASSERT_EQ(found.size(), 3u);
  EXPECT_EQ(found[2].kanji.fileNo, 1);
  EXPECT_EQ(found[2].kanji.ix3Count, 2);
  EntryJ changed = Written("猫");
  changed.imi = "changed";
  ASSERT_EQ(Add(changed, &found[2].kana, &found[2].kanji), 1);
  Reopen();
  std::string kanji = sjis("猫");
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(SerchImiJ(kanji.data(), nullptr, 0, &size, &list, 2), 1);
  EXPECT_EQ(test::takeEntries(list, size).size(), 2u);
  found = FindJ("ねこ");
  EXPECT_EQ(found[2].entry.imi, "changed");
  sikibetu_data elsewhere = found[0].kanji;
  elsewhere.fileNo = 0;
  EXPECT_EQ(DelUserDicJ(&found[0].kana, &elsewhere), 18);
  ASSERT_EQ(DelUserDicJ(&found[0].kana, &found[0].kanji), 1);
  Reopen();
  found = FindJ("ねこ");
  ASSERT_EQ(found.size(), 2u);
  ASSERT_EQ(DelUserDicJ(&found[1].kana, &found[1].kanji), 1);
  Reopen();
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  Reopen();
  EXPECT_EQ(FindJ("ねこ").size(), 1u);
  ASSERT_EQ(Add(Written("猫")), 1) << "its row, without a block, is taken again where it is";
  EXPECT_EQ(FindJ("ねこ")[1].kanji.fileNo, 1);
}

// Ten memory blocks: five basic indexes, two of the user's Japanese, the count; one of the user's English.
TEST_F(KjiIdxGrowthTest, WithBothSetsTheSecondContinuationIndexFindsNoRoom) {
  OpenOn(FullKjiIdx(10000), true);
  ASSERT_EQ(Add(Written("猫")), 1);
  ASSERT_EQ(EndAPI(), 1);
  SetFile("kji.idx", FullKjiIdx(10000, 1));
  ASSERT_EQ(OpenBoth(), 1);
  const auto files = disk_.files();
  EXPECT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 260);
  EXPECT_TRUE(disk_.files() == files) << "nothing has changed";
  EXPECT_TRUE(FindJ("とり").empty());
  EXPECT_EQ(Add(EntryJ{.kana = "とり"}), 1) << "the engine goes on";
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenJ(), 1);
  EXPECT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1) << "without the English set there is a block left";
  EXPECT_TRUE(Exists("002.idx"));
  EXPECT_EQ(KjiIdxCount(), 2);
}

TEST_F(KjiIdxGrowthTest, WithTheJapaneseSetAloneTheThirdFindsNoRoom) {
  ASSERT_EQ(EndAPI(), 1);
  SetFile("001.idx", FullKjiIdx(10000));
  SetFile("002.idx", FullKjiIdx(10000));
  OpenOn(FullKjiIdx(10000, 2), false);
  const auto files = disk_.files();
  EXPECT_EQ(Add(Written("猫")), 260);
  EXPECT_TRUE(disk_.files() == files);
}

// A disk that fails to make way for the new kji.idx.
class StubbornDisk : public test::FaultyStorage {
 public:
  bool remove(const std::string& path) override {
    return !path.ends_with("kji.idx") && test::FaultyStorage::remove(path);
  }
};

// The full index stays in its place, and no copy of it that would later put it back.
TEST_F(KjiIdxGrowthTest, AFailedMoveLeavesNoCopyThatCounts) {
  OpenOn(FullKjiIdx(10000), true);
  {
    StubbornDisk disk;
    EXPECT_EQ(Add(Written("猫")), 21);
  }
  EXPECT_FALSE(Exists("kji.idx.Bkup"));
  EXPECT_EQ(GetKjiIdxWordCnt(), 10000u);
  EXPECT_EQ(Add(Written("猫")), 1);
  EXPECT_EQ(KjiIdxCount(), 1);
}

// A copy that was left over would take back what is saved after it.
TEST_F(KjiIdxGrowthTest, ACopyThatIsLeftOverGoesWhenTheIndexIsSaved) {
  SetFile("kji.idx.Bkup", "old");
  SetFile("kji.idx.bkup", "old");
  ASSERT_EQ(Add(Written("猫")), 1);
  ASSERT_EQ(EndAPI(), 1);
  EXPECT_EQ(Files().size(), 8u);
  ASSERT_EQ(OpenBoth(), 1);
}

// Ten files can't be opened together, so that the count is forged.
TEST_F(KjiIdxGrowthTest, AnEleventhContinuationIndexIs2049) {
  OpenOn(FullKjiIdx(10000), false);
  const auto files = disk_.files();
  writeLE16(g_sUserKjiIdxInfo, 10);
  EXPECT_EQ(MakeRoomForKji(), 2049);
  EXPECT_EQ(MakeNewKjiIdx(), 2049);
  EXPECT_TRUE(disk_.files() == files);
  writeLE16(g_sUserKjiIdxInfo, 0);
}

TEST_F(KjiIdxGrowthTest, ARowThatIsThereAlreadyIs19) {
  ASSERT_EQ(Add(Written("猫")), 1);
  index_info info;
  info.word = sjis("猫");
  EXPECT_EQ(AddKanjiIdx(&info), 19);
  info.word = sjis("猫") + "\0\0"s;
  EXPECT_EQ(AddKanjiIdx(&info), 19);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  info.word = "x";
  EXPECT_EQ(AddKanjiIdx(&info), 20);
}

TEST_F(KjiIdxGrowthTest, AFullIndexTakesNoRow) {
  OpenOn(FullKjiIdx(10000), false);
  index_info info;
  info.word = sjis("猫");
  EXPECT_EQ(AddKanjiIdx(&info), 20);
  EXPECT_EQ(g_sUserKji.dirty, 0);
}

TEST_F(KjiIdxGrowthTest, ChildRowsOutsideTheTableAre20) {
  std::string idx = FullKjiIdx(3);
  idx[138] = 4;  // the first child, of three rows
  OpenOn(idx, false);
  index_info info;
  info.word = "\xE0\x40\x99\x99";
  EXPECT_EQ(AddKanjiIdx(&info), 20);
  info.word = sjis("猫");
  EXPECT_EQ(AddKanjiIdx(&info), 20);
}

// Size words that count bytes beyond whole rows must not grow the tables out of their block.
TEST_F(KjiIdxGrowthTest, BytesBeyondWholeRowsAreLeftBehind) {
  std::string a;
  for (unsigned row = 0; row < 9999; ++row) {
    a += {static_cast<char>(0x81 + row / 256), static_cast<char>(row)};
    a += Le16(row);
  }
  std::string c;
  for (unsigned row = 0; row < 9999; ++row) c += "\0\0"s + Le32(0);
  const std::string idx =
      std::string(128, '\0') + Le32(39999) + Le32(136 + 39999) + a + "???" + Le32(59999) + c + "?????";
  OpenOn(idx, false);
  ASSERT_EQ(GetKjiIdxWordCnt(), 9999u);
  ASSERT_EQ(Add(Written("漾")), 1) << "E040, behind all";
  EXPECT_EQ(readLE32(g_sUserKji.tableA), 40000u);
  EXPECT_EQ(readLE32(g_sUserKji.tableC), 60000u);
  Reopen();
  EXPECT_EQ(File("kji.idx").size(), 100140u);
  EXPECT_EQ(FindJ("ねこ").size(), 1u);
  EXPECT_NE(FindJ("ねこ")[0].kanji.pos1, 0xFFFF);
}

}  // namespace
}  // namespace zavel::engine
