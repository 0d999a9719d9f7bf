#include "engine/SaveIdx1.h"

#include <gtest/gtest.h>

#include "engine/EngineFixture.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::FaultyStorage;
using test::readFile;
using test::writeFile;
using test::writeIndex;
using namespace std::string_literals;

class SaveIdx1Test : public EngineTest {
 protected:
  SaveIdx1Test() {
    WriteSmallSet();
    MakeUserFolder();
    EXPECT_EQ(Open(), 1);
  }

  Status Open() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()); }

  // Points the first row of table C at a block, as adding a word does.
  static void Change(idx_info_ptr* info, uint32_t offset) {
    writeLE32(info->tableC + kTableHeadC + 1, offset);
    info->dirty = 1;
  }

  bool Exists(const std::string& name) const { return std::filesystem::exists(UserFile(name)); }
};

constexpr size_t kFirstRowE = 2332;    // of table C in a new ej.idx
constexpr size_t kFirstRowKana = 389;  // in a new kna.idx

TEST_F(SaveIdx1Test, WritesAChangedIndexAndNoOther) {
  const std::string before = readFile(UserFile("ej.idx"));
  Change(&g_sUserEJ, 0x12345678);
  EXPECT_EQ(SaveIdx1(kTypeE, 0), 1);
  EXPECT_EQ(g_sUserEJ.dirty, 0);
  EXPECT_FALSE(Exists("ej.idx.bkup"));
  std::string expected = before;
  expected.replace(kFirstRowE + 1, 4, "\x78\x56\x34\x12");
  EXPECT_TRUE(readFile(UserFile("ej.idx")) == expected);
}

TEST_F(SaveIdx1Test, AnUnchangedIndexIsNotTouched) {
  FaultyStorage disk;
  EXPECT_EQ(SaveIdx1(kTypeE, 0), 1);
  EXPECT_EQ(SaveIdx1(kTypeKana, 0), 1);
  EXPECT_EQ(SaveIdx1(kTypeKji, 0), 1);
  EXPECT_EQ(disk.operations(), 0);
}

TEST_F(SaveIdx1Test, EndAPISavesWhatChanged) {
  Change(&g_sUserEJ, 300);
  Change(&g_sUserKna, 400);
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(readFile(UserFile("ej.idx")).substr(kFirstRowE, 5), "\0\x2C\x01\0\0"s);
  EXPECT_EQ(readFile(UserFile("kna.idx")).substr(kFirstRowKana, 5), "\x9F\x90\x01\0\0"s);
  ASSERT_EQ(Open(), 1);
  uint32_t offset = 0;
  EXPECT_EQ(GetIdxUser(kTypeE, "a", &offset), 1);
  EXPECT_EQ(offset, 300u);
  EXPECT_EQ(GetIdxUser(kTypeKana, "\x9F\x9F", &offset), 1);
  EXPECT_EQ(offset, 400u);
}

TEST_F(SaveIdx1Test, AKanjiIndexIsWrittenAtItsOwnSize) {
  ASSERT_EQ(EndAPI(), 1);
  const std::string idx = writeIndex(kTypeKji, {{test::sjis("猫犬"), 128}}, true).idx;
  std::string counted = idx;
  counted[10] = 1;
  writeFile(UserFile("kji.idx"), counted);
  writeFile(UserFile("001.idx"), idx);
  ASSERT_EQ(Open(), 1);
  g_sUserKji.dirty = 1;
  writeLE32(g_pKjiIdx1s[0].tableC + kTableHeadC + 2, 500);
  g_pKjiIdx1s[0].dirty = 1;
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(readFile(UserFile("kji.idx")), counted);
  EXPECT_EQ(readFile(UserFile("001.idx")), std::string(idx).replace(146, 4, "\xF4\x01\0\0"s));
}

TEST_F(SaveIdx1Test, GapsBetweenTablesAreClosed) {
  ASSERT_EQ(EndAPI(), 1);
  const std::string header(128, '\0');
  writeFile(UserFile("kna.idx"), header +
                                     "\x03\0\0\0\x8D\0\0\0"
                                     "\xAD\0\0"
                                     "??"
                                     "\x05\0\0\0"
                                     "\xBE\x80\0\0\0"s);
  ASSERT_EQ(Open(), 1);
  g_sUserKna.dirty = 1;
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(readFile(UserFile("kna.idx")), header +
                                               "\x03\0\0\0\x8B\0\0\0"
                                               "\xAD\0\0"
                                               "\x05\0\0\0"
                                               "\xBE\x80\0\0\0"s);
}

TEST_F(SaveIdx1Test, AnIndexThatIsNotThereIs20) {
  EXPECT_EQ(SaveIdx1(kTypeHase, 0), 20);
  EXPECT_EQ(SaveIdx1(kTypeKji, 11), 20);
  EXPECT_EQ(SaveIdx1(kTypeKji, 1), 20);
  ASSERT_EQ(EndAPI(), 1);
  EXPECT_EQ(SaveIdx1(kTypeE, 0), 20);
}

TEST_F(SaveIdx1Test, SaveIdx1sGoesOnAfterAFailureAndTellsIt) {
  Change(&g_sUserEJ, 300);
  Change(&g_sUserKna, 400);
  std::filesystem::remove(UserFile("ej.idx"));  // CopyFile finds nothing
  EXPECT_EQ(SaveIdx1s(), 21);
  EXPECT_EQ(g_sUserEJ.dirty, 1);
  EXPECT_EQ(g_sUserKna.dirty, 0);
  EXPECT_EQ(EndAPI(), 21);
  EXPECT_FALSE(initAPIFlag);
}

// Whatever breaks, a whole index is left: the old or the new one in its place, or the old one as ".bkup".
TEST_F(SaveIdx1Test, AFailureAtAnyFileOperationLosesNoIndex) {
  const std::string oldIdx = readFile(UserFile("ej.idx"));
  std::string newIdx = oldIdx;
  newIdx.replace(kFirstRowE + 1, 4, "\x2C\x01\0\0"s);
  for (const auto repeat : {FaultyStorage::kOnce, FaultyStorage::kForEver}) {
    for (long n = 1;; ++n) {
      FaultyStorage disk;
      Change(&g_sUserEJ, 300);
      disk.failAt(n, repeat);
      const Status status = SaveIdx1(kTypeE, 0);
      const bool failed = disk.faults() > 0;
      EXPECT_TRUE(status == 1 || (failed && status == 21)) << n << " " << status;
      const std::string place = Exists("ej.idx") ? readFile(UserFile("ej.idx")) : "";
      const std::string backup = Exists("ej.idx.bkup") ? readFile(UserFile("ej.idx.bkup")) : "";
      EXPECT_TRUE(place == newIdx || (status == 21 && (place == oldIdx || backup == oldIdx))) << n;
      // A second attempt on a sound disk always ends well, and never goes by way of a damaged backup.
      disk.failAt(1, FaultyStorage::kForEver);
      if (status == 21) {
        EXPECT_EQ(SaveIdx1(kTypeE, 0), 21) << n;
      }
      const std::string backupThen = Exists("ej.idx.bkup") ? readFile(UserFile("ej.idx.bkup")) : "";
      EXPECT_TRUE(status == 1 || place == oldIdx || place == newIdx || backupThen == oldIdx) << n;
      disk.failAt(0);
      EXPECT_EQ(SaveIdx1(kTypeE, 0), 1) << n;
      EXPECT_TRUE(readFile(UserFile("ej.idx")) == newIdx) << n;
      // Back to the start.
      CloseFsObjsUserE();
      std::filesystem::remove(UserFile("ej.idx.bkup"));
      writeFile(UserFile("ej.idx"), oldIdx);
      if (!failed) break;
    }
  }
}

TEST(ApendData, GoesToTheEndAndTellsWhere) {
  test::TempFolder folder;
  writeFile(folder.prefix() + "x", "abc");
  FsObj stream;
  uint32_t offset = 0;
  EXPECT_EQ(ApendData(nullptr, "x", 1, &offset), 20);
  EXPECT_EQ(ApendData(&stream, "x", 1, &offset), 21);
  ASSERT_TRUE(stream.Open(folder.prefix() + "x", false));
  EXPECT_EQ(ApendData(&stream, "de", 2, &offset), 1);
  EXPECT_EQ(offset, 3u);
  EXPECT_EQ(readFile(folder.prefix() + "x"), "abcde");
}

}  // namespace
}  // namespace zavel::engine
