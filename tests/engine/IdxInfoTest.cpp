#include "engine/IdxInfo.h"

#include <gtest/gtest.h>

#include "engine/EngineFixture.h"

namespace zavel::engine {
namespace {

using test::sjis;
using test::writeFile;
using test::writeIndex;

class IdxInfoTest : public EngineTest {
 protected:
  // English: car, card, card, care, cart, ox. Japanese: ねこ 猫, ねこむ 寝込む, and 犬 in a continuation
  // index.
  IdxInfoTest() {
    WriteSmallSet();
    MakeUserFolder();
    const std::string header(128, '\0');
    const auto ej = writeIndex(
        kTypeE, {{"car", 200}, {"card", 201}, {"card", 202}, {"care", 203}, {"cart", 204}, {"ox", 205}},
        true);
    const auto kna = writeIndex(kTypeKana, {{"\xCB\xB1", 206}, {"\xCB\xB1\xDE", 207}}, true);
    auto kji = writeIndex(kTypeKji, {{sjis("猫"), 206}, {sjis("寝込む"), 207}}, true);
    kji.idx[10] = 1;
    const std::vector<std::pair<const char*, std::string>> files = {
        {"ej.dic", header},
        {"ej.idx", ej.idx},
        {"ej.ix3", ej.ix3},
        {"je.dic", header},
        {"kna.idx", kna.idx},
        {"kna.ix3", kna.ix3},
        {"kji.idx", kji.idx},
        {"kji.ix3", kji.ix3},
        {"001.idx", writeIndex(kTypeKji, {{sjis("犬"), 206}}, true).idx}};
    for (const auto& [name, bytes] : files) writeFile(UserFile(name), bytes);
    EXPECT_EQ(InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()), 1);
    EXPECT_TRUE(OpenFsObjsUserE(false, true));
    EXPECT_EQ(OpenFsObjsUserJ(false, true), 1);
  }
  ~IdxInfoTest() override { CloseFsObjs(); }

  Status Find(const std::string& word, uint16_t type) {
    InitIdxInfo(&info_);
    info_.word = word;
    return GetIdxInfo(&info_, type);
  }

  // fileNo pos1 pos2 pos3 | ix3Offset ix3Size ix3Count ix3First ix3Matches; "-" for 0xFFFF.
  std::string Text() const {
    const auto row = [](uint16_t pos) { return pos == 0xFFFF ? "-" : std::to_string(pos); };
    return std::to_string(info_.fileNo) + " " + row(info_.pos1) + " " + row(info_.pos2) + " " +
           row(info_.pos3) + " | " + std::to_string(info_.ix3Offset) + " " + std::to_string(info_.ix3Size) +
           " " + std::to_string(info_.ix3Count) + " " + row(info_.ix3First) + " " +
           std::to_string(info_.ix3Matches);
  }

  index_info info_;
};

TEST_F(IdxInfoTest, StartValuesAndFree) {
  info_.word = "x";
  info_.fileNo = info_.ix3Size = 7;
  FreeIdxInfo(&info_);
  EXPECT_EQ(info_.word, "");
  EXPECT_EQ(info_.fileNo, 7);
  InitIdxInfo(&info_);
  EXPECT_EQ(Text(), "0 - - - | 0 0 0 - 0");
}

// The block of car: 4 + 5 * 2 + (3 + 4 * 4) + 5 * 4 = 53 bytes behind the header.
TEST_F(IdxInfoTest, TellsRowsAndMatches) {
  EXPECT_EQ(Find("card", kTypeE), 1);
  EXPECT_EQ(Text(), "0 0 0 0 | 128 53 5 1 2");
  EXPECT_EQ(Find("cart", kTypeE), 1);
  EXPECT_EQ(Text(), "0 0 0 0 | 128 53 5 4 1");
  EXPECT_EQ(Find("car", kTypeE), 1);
  EXPECT_EQ(Text(), "0 0 0 0 | 128 53 5 0 1");
}

TEST_F(IdxInfoTest, WithoutAMatchTellsWhereTheWordBelongs) {
  EXPECT_EQ(Find("cards", kTypeE), 1);
  EXPECT_EQ(Text(), "0 0 0 0 | 128 53 5 3 0");
  EXPECT_EQ(Find("carz", kTypeE), 1);
  EXPECT_EQ(Text(), "0 0 0 0 | 128 53 5 5 0");
}

TEST_F(IdxInfoTest, TurnsTheWordIntoItsKey) {
  EXPECT_EQ(Find("Car-D", kTypeE), 1);
  EXPECT_EQ(info_.word, "card");
  EXPECT_EQ(info_.ix3Matches, 2);
}

TEST_F(IdxInfoTest, AWordShorterThanThePrefixHasAnEmptyRemainder) {
  EXPECT_EQ(Find("ox", kTypeE), 1);
  EXPECT_EQ(Text(), "0 1 1 1 | 181 13 1 0 1");
}

TEST_F(IdxInfoTest, FindsKana) {
  EXPECT_EQ(Find(sjis("ネコ"), kTypeKana), 1);
  EXPECT_EQ(Text(), "0 0 - 0 | 128 23 2 0 1");  // 4 + 2 * 2 + (3 + 4) + 2 * 4 bytes
  EXPECT_EQ(Find(sjis("ねこむ"), kTypeKana), 1);
  EXPECT_EQ(info_.ix3First, 1);
}

TEST_F(IdxInfoTest, FindsKanjiInEveryIndex) {
  EXPECT_EQ(Find(sjis("猫"), kTypeKji), 1);
  EXPECT_EQ(info_.fileNo, 0);
  EXPECT_EQ(info_.ix3Matches, 1);
  EXPECT_EQ(Find(sjis("犬"), kTypeKji), 1);
  EXPECT_EQ(info_.fileNo, 1);
  EXPECT_EQ(info_.pos1, 0);
  EXPECT_EQ(info_.pos2, 0xFFFF);
  EXPECT_EQ(info_.pos3, 0);
}

TEST_F(IdxInfoTest, AKanjiKeyWithoutARowIsNoFailure) {
  EXPECT_EQ(Find(sjis("鳥"), kTypeKji), 1);
  EXPECT_EQ(Text(), "0 - - - | 0 0 0 - 0");
  EXPECT_EQ(Find(sjis("猫犬"), kTypeKji), 1);  // its first table has the row, its last one not
  EXPECT_EQ(Text(), "0 - - - | 0 0 0 - 0");
}

TEST_F(IdxInfoTest, AnEnglishOrKanaKeyWithoutARowIs20) {
  EXPECT_EQ(Find("dog", kTypeE), 20);
  EXPECT_EQ(Find(sjis("いぬ"), kTypeKana), 20);
}

TEST_F(IdxInfoTest, AnEmptyKeyIs20) {
  EXPECT_EQ(Find("-", kTypeE), 20);
  EXPECT_EQ(Find(sjis("ー"), kTypeKana), 20);
  EXPECT_EQ(Find(sjis("ー"), kTypeKji), 20);
}

TEST_F(IdxInfoTest, AWordThatIsNoneIs18) {
  EXPECT_EQ(Find(sjis("猫"), kTypeE), 18);
  EXPECT_EQ(Find("cat", kTypeKana), 18);
  EXPECT_EQ(Find("cat", kTypeHase), 18);
}

TEST_F(IdxInfoTest, UnloadedTablesAre20) {
  g_sUserKji.tableC = nullptr;
  EXPECT_EQ(Find("card", kTypeE), 20);
}

TEST_F(IdxInfoTest, ADamagedBlockIs20AndAMissingOne21) {
  const std::string ix3 = test::readFile(UserFile("ej.ix3"));
  std::string damaged = ix3;
  damaged[128 + 14] = 9;  // length of the first remainder
  CloseFsObjs();
  writeFile(UserFile("ej.ix3"), damaged);
  ASSERT_TRUE(OpenFsObjsUserE(false, true));
  EXPECT_EQ(Find("card", kTypeE), 20);
  CloseFsObjs();
  writeFile(UserFile("ej.ix3"), ix3.substr(0, 140));
  ASSERT_TRUE(OpenFsObjsUserE(false, true));
  EXPECT_EQ(Find("card", kTypeE), 21);
}

}  // namespace
}  // namespace zavel::engine
