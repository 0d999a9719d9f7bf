// Exact search in user sets with identification.
#include "engine/UserImi.h"

#include <gtest/gtest.h>

#include "engine/SearchFixture.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

class UserImiTest : public SearchTest {
 protected:
  void openUser() {
    withUserE = withUserJ = true;
    dic.addE("a", head("a"));
    open();
    ASSERT_TRUE(OpenFsObjsUserE(false, true));
    ASSERT_EQ(1, OpenFsObjsUserJ(false, true));
  }
  ~UserImiTest() override { CloseFsObjs(); }

  // u32-prefixed entry texts, as they come.
  std::string search(uint16_t type, const std::string& key) {
    std::string block;
    status = SrchUserImi(type, key, &info, &block, &count);
    return block;
  }

  index_info info;
  uint16_t count = 99;
};

TEST_F(UserImiTest, GivesEntriesWithTheirPlace) {
  userE.add("abacus", head("abacus"));
  userE.add("apple", head("Apple"));
  userE.add("apple", head("apple"));
  userE.add("apply", head("apply"));
  openUser();
  EXPECT_EQ(
      std::string("\x08\x00\x00\x00", 4) + head("Apple") + std::string("\x08\x00\x00\x00", 4) + head("apple"),
      search(1, "apple"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(2, count);
  EXPECT_EQ("apple", info.word);
  EXPECT_EQ(0, info.fileNo);
  EXPECT_EQ(0, info.pos1) << "a is the only first letter";
  EXPECT_EQ(1, info.pos2) << "b, then p";
  EXPECT_EQ(1, info.pos3) << "aba, then app";
  // the block of abacus: 4 + 2 + (2 + 3 + 1) + 4 = 16 bytes behind the header of 128
  EXPECT_EQ(144u, info.ix3Offset);
  // three rows: 4 + 6 + (5 + 5 + 5) + 12
  EXPECT_EQ(37, info.ix3Size);
  EXPECT_EQ(3, info.ix3Count);
  EXPECT_EQ(0, info.ix3First);
  EXPECT_EQ(2, info.ix3Matches);
}

TEST_F(UserImiTest, FindsNothingWithStatus1) {
  userE.add("apple", head("apple"));
  openUser();
  EXPECT_EQ("", search(1, "zebra"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(0, count);
  EXPECT_EQ(0xFFFF, info.pos1);
  EXPECT_EQ(0u, info.ix3Offset);
  EXPECT_EQ("", search(1, "appla"));
  EXPECT_EQ(1, status);
  EXPECT_EQ(0, count);
  EXPECT_EQ(128u, info.ix3Offset) << "its block is there";
  EXPECT_EQ(1, info.ix3Count);
  EXPECT_EQ(0, info.ix3Matches);
}

TEST_F(UserImiTest, SearchesKanaAndKanji) {
  const std::string entry = entryJ("くだもの", "果物", "fruit");
  userJ.add("\xAD\xBE\xE0\xCC", entry, sjis("果物"));
  openUser();
  const std::string record = std::string(1, static_cast<char>(entry.size())) + std::string(3, '\0') + entry;
  EXPECT_EQ(record, search(2, "\xAD\xBE\xE0\xCC"));
  EXPECT_EQ(1, count);
  EXPECT_EQ(record, search(3, sjis("果物")));
  EXPECT_EQ(0, info.fileNo);
  EXPECT_EQ(0, info.pos3);
}

TEST_F(UserImiTest, SearchesTheContinuationIndexesOfKanji) {
  withUserJ = true;
  const std::string fruit = entryJ("くだもの", "果物", "fruit"), dog = entryJ("いぬ", "犬", "dog");
  userJ.add("\xAD\xBE\xE0\xCC", fruit, sjis("果物"));
  const uint32_t dogOffset = userJ.add("\xA2\xCA", dog);
  dic.addE("a", head("a"));
  writeFiles();
  // The continuation index files 犬 under a block behind the others.
  const std::string blocks = readFile(path("ujkji.ix3")), header(128, '\0');
  IndexFiles further = writeIndex(3, {{sjis("犬"), dogOffset}}, true);
  const size_t offsetAt = further.idx.size() - 4;  // its one row of table C ends with it
  further.idx[offsetAt] = static_cast<char>(blocks.size());
  std::string first = readFile(path("ujkji.idx"));
  first[10] = 1;
  writeFile(path("ujkji.idx"), first);
  writeFile(path("uj001.idx"), further.idx);
  writeFile(path("ujkji.ix3"), blocks + further.ix3.substr(128));
  ASSERT_LT(blocks.size(), 256u);
  ASSERT_EQ(1, InitAPI(folder.prefix().c_str(), nullptr, path("uj").c_str()));
  ASSERT_EQ(1, OpenFsObjsUserJ(false, true));
  EXPECT_EQ(std::string(1, static_cast<char>(dog.size())) + std::string(3, '\0') + dog,
            search(3, sjis("犬")));
  EXPECT_EQ(1, info.fileNo);
  EXPECT_EQ(0, info.pos1);
  EXPECT_EQ(0xFFFF, info.pos2);
  EXPECT_EQ(0, info.pos3);
  EXPECT_EQ(blocks.size(), info.ix3Offset);
  EXPECT_EQ(1, info.ix3Matches);
  search(3, sjis("果物"));
  EXPECT_EQ(0, info.fileNo);
  EXPECT_EQ(1, count);
  CloseFsObjs();
  EXPECT_EQ(Lines{dog}, imiJ(sjis("犬"), 0, kUser));
  EXPECT_EQ(Lines{sjis("犬 [いぬ]")}, midasiJ(sjis("犬"), kUser));
}

TEST_F(UserImiTest, EndsWith17WhereEntriesGrowWithoutEnd) {
  const uint32_t offset = userE.add("apple", head("apple") + std::string(65000, 'x'));
  for (int i = 0; i < 200; ++i) userE.kana.push_back({"apple", offset});
  openUser();
  EXPECT_LE(search(1, "apple").size(), size_t{8} << 20);
  EXPECT_EQ(17, status);
}

TEST_F(UserImiTest, RefusesOtherTypesWith18) {
  openUser();
  for (const uint16_t type : {0, 4, 5, 6}) {
    search(type, "apple");
    EXPECT_EQ(18, status) << type;
    EXPECT_EQ(0, count);
  }
}

TEST_F(UserImiTest, ReportsDamageAndAClosedEngine) {
  userE.add("apple", head("apple"));
  openUser();
  writeFile(path("ueej.ix3"),
            std::string(128, '\0') + std::string("\x02\x00\x0F\x00", 4) + std::string(11, 'x'));
  search(1, "apple");
  EXPECT_EQ(20, status);
  CloseFsObjs();
  search(1, "apple");
  EXPECT_EQ(258, status) << "its stream is closed";
  EndAPI();
  search(1, "apple");
  EXPECT_EQ(20, status) << "its tables are gone";
}

}  // namespace
}  // namespace zavel::test
