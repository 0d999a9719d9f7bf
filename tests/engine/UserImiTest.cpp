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
