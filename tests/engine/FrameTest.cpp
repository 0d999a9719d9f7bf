#include "engine/Frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "engine/EngineFixture.h"
#include "engine/Index1.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::DicWriter;
using test::FaultyStorage;
using test::writeFile;

constexpr const char* kBasicFiles[] = {"ej.dic",   "ej.ix3",   "ej.idx",   "hase.ix3", "hase.idx",
                                       "katu.dic", "katu.ix3", "katu.idx", "je.dic",   "je.ix3",
                                       "je.idx",   "ke.ix3",   "ke.idx"};

// Files that this process has open.
long OpenFiles() {
  const std::filesystem::directory_iterator files("/proc/self/fd");
  return std::distance(begin(files), end(files));
}

class FrameTest : public EngineTest {
 protected:
  // The status of a search that would find the one English word, its result freed.
  Status SerchApple(uint8_t dic = 1) {
    size_ = 99;
    Handle list = reinterpret_cast<Handle>(&size_);
    const Status status = SerchMidasiE("apple", 0, &size_, &list, dic);
    lines_ = status == kOk ? test::takeLines(list, size_) : std::vector<std::string>();
    EXPECT_TRUE(status == kOk || list == nullptr);
    return status;
  }

  uint32_t size_ = 0;
  std::vector<std::string> lines_;
};

TEST_F(FrameTest, OpensAndClosesABasicSet) {
  WriteSmallSet();
  EXPECT_EQ(OpenBasic(), 1);
  EXPECT_TRUE(initAPIFlag);
  EXPECT_EQ(g_dicType, 1);
  EXPECT_EQ(SerchApple(), 1);
  EXPECT_EQ(lines_.size(), 1u);
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_FALSE(initAPIFlag);
}

TEST_F(FrameTest, ASecondInitAPIIs261AndTheEngineStaysOpen) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(OpenBasic(), 261);
  EXPECT_EQ(InitAPI(nullptr, nullptr, nullptr), 261);
  EXPECT_EQ(SerchApple(), 1);
  EXPECT_EQ(lines_.size(), 1u);
}

TEST_F(FrameTest, EndAPIBeforeAnyInitAPIIs20) {
  EXPECT_EQ(EndAPI(), 20);
  EXPECT_EQ(EndAPI(), 20);
}

TEST_F(FrameTest, ASecondEndAPIIs263) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(EndAPI(), 263);
  EXPECT_EQ(OpenBasic(), 1);
  EXPECT_EQ(EndAPI(), 1);
}

TEST_F(FrameTest, OnAnEngineNeverOpenedCallsAre20) {
  uint32_t size = 0;
  Handle list = nullptr;
  char word[] = "apple";
  EXPECT_EQ(SerchApple(), 20);
  EXPECT_EQ(SerchImiE(word, nullptr, 0, &size, &list, 1), 20);
  EXPECT_EQ(GetKatuyo(word, &size, &list), 20);
}

TEST_F(FrameTest, AfterEndAPICallsAre257) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  ASSERT_EQ(EndAPI(), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  char word[] = "apple";
  std::string kana = test::sjis("りんご");
  EXPECT_EQ(SerchApple(), 257);
  EXPECT_EQ(SerchMidasiJ(kana.data(), &size, &list, 1), 257);
  EXPECT_EQ(SerchImiE(word, nullptr, 0, &size, &list, 1), 257);
  EXPECT_EQ(SerchImiJ(kana.data(), nullptr, 0, &size, &list, 1), 257);
  EXPECT_EQ(GetKatuyo(word, &size, &list), 257);
}

TEST_F(FrameTest, AnyMissingBasicFileIs257) {
  for (const char* name : kBasicFiles) {
    WriteSmallSet();
    std::filesystem::remove(BasicFile(name));
    EXPECT_EQ(OpenBasic(), 257) << name;
    EXPECT_FALSE(initAPIFlag);
    EXPECT_EQ(SerchApple(), 257);
    EXPECT_EQ(EndAPI(), 263);
  }
  WriteSmallSet();
  EXPECT_EQ(OpenBasic(), 1);
}

TEST_F(FrameTest, ANullBasicPathIs18) {
  EXPECT_EQ(InitAPI(nullptr, nullptr, nullptr), 18);
  EXPECT_EQ(InitAPI(nullptr, UserPrefix().c_str(), nullptr), 18);
  EXPECT_FALSE(initAPIFlag);
}

TEST_F(FrameTest, APathMayFillTheProcessTableButNotLeaveIt) {
  WriteSmallSet();
  std::string longest = folder_.prefix();
  while (longest.size() < 1022) longest += "./";
  if (longest.size() < 1023) longest += "/";
  ASSERT_EQ(longest.size(), 1023u);
  EXPECT_EQ(InitAPI(longest.c_str(), nullptr, nullptr), 1);
  EXPECT_EQ(EndAPI(), 1);
  EXPECT_EQ(InitAPI((longest + "/").c_str(), nullptr, nullptr), 18);
  EXPECT_EQ(InitAPI(std::string(5000, '/').c_str(), nullptr, nullptr), 18);
  const std::string user = std::string(1022, '/') + "ue";
  EXPECT_EQ(InitAPI(folder_.prefix().c_str(), user.c_str(), nullptr), 18);
  EXPECT_EQ(InitAPI(folder_.prefix().c_str(), nullptr, user.c_str()), 18);
}

TEST_F(FrameTest, AUserPrefixEndsInANameOfOneToFiveBytesWithoutExtension) {
  WriteSmallSet();
  std::filesystem::create_directory(folder_.prefix() + "d.ir");
  for (const char* bad : {"", "d.ir/", "d.ir/sixsix", "d.ir/u.e", "d.ir/.e", "d.ir/u."}) {
    const std::string prefix = *bad ? folder_.prefix() + bad : "";
    EXPECT_EQ(InitAPI(folder_.prefix().c_str(), prefix.c_str(), nullptr), 18) << bad;
    EXPECT_EQ(InitAPI(folder_.prefix().c_str(), nullptr, prefix.c_str()), 18) << bad;
  }
  for (const char* good : {"d.ir/u", "d.ir/fives"}) {
    EXPECT_EQ(InitAPI(folder_.prefix().c_str(), (folder_.prefix() + good).c_str(), nullptr), 1) << good;
    EXPECT_EQ(EndAPI(), 1);
  }
}

TEST_F(FrameTest, OtherPathsThanTheFirstProcessHasAre261) {
  InitProcessInfo();
  g_ProcessInfo->attachCount = 1;
  ASSERT_EQ(CheckPathName("k", "ue", nullptr), 1);
  EXPECT_EQ(g_dicType, kDicKihon | kDicUserE);
  g_ProcessInfo->attachCount = 2;
  EXPECT_EQ(CheckPathName("k\\\\", "ue", nullptr), 1);
  EXPECT_EQ(CheckPathName("other", "ue", nullptr), 261);
  EXPECT_EQ(CheckPathName("k", "uf", nullptr), 261);
  EXPECT_EQ(CheckPathName("k", "ue", "uj"), 261);
  EXPECT_STREQ(g_ProcessInfo->pathKihon, "k");
}

TEST_F(FrameTest, AMalformedIndexIs260) {
  for (const char* name : {"ej.idx", "hase.idx", "je.idx", "ke.idx", "katu.idx"}) {
    WriteSmallSet();
    writeFile(BasicFile(name), "\xFF");
    EXPECT_EQ(OpenBasic(), 260) << name;
    EXPECT_EQ(SerchApple(), 257);
  }
}

TEST_F(FrameTest, AFailedInitAPIKeepsNoBlockForTheNextDictionary) {
  WriteSmallSet();
  writeFile(BasicFile("katu.idx"), "");
  EXPECT_EQ(OpenBasic(), 260);  // the other four were loaded
  DicWriter larger = SmallSet();
  for (char c = 'a'; c <= 'z'; ++c) larger.aliasE(std::string(3, c), 0);
  larger.write(folder_.path());
  ASSERT_EQ(OpenBasic(), 1);
  uint32_t offset = 0;
  EXPECT_EQ(GetIdxKihon(kTypeE, "zzz", &offset), 1);
  EXPECT_NE(offset, 0xFFFFFFFF);
}

TEST_F(FrameTest, AFailureAtAnyFileOperationLeavesNothingHalfOpen) {
  WriteSmallSet();
  const long before = OpenFiles();
  FaultyStorage disk;
  long n = 1;
  for (;; ++n) {
    disk.failAt(n);
    const Status status = OpenBasic();
    if (disk.faults() == 0) break;
    const bool failed = status == 257 || status == 260;
    const bool passed = status == 1;  // a file that was read can fail to close
    EXPECT_TRUE(failed || passed) << n << " " << status << " " << disk.history().back();
    disk.failAt(0);
    EXPECT_EQ(EndAPI(), passed ? 1 : 263);
    EXPECT_EQ(OpenFiles(), before);
  }
  EXPECT_GT(n, 26);  // thirteen files opened, five indexes read
}

TEST_F(FrameTest, ReadsEachIndexWithOneReadAndNothingElse) {
  WriteSmallSet();
  FaultyStorage disk;
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(disk.count("readAt"), 5);
}

TEST_F(FrameTest, NoFileStaysOpenBetweenCalls) {
  WriteSmallSet();
  MakeUserFolder();
  const long before = OpenFiles();
  ASSERT_EQ(InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()), 1);
  EXPECT_EQ(OpenFiles(), before);
  EXPECT_EQ(SerchApple(3), 1);
  EXPECT_EQ(OpenFiles(), before);
}

TEST_F(FrameTest, ReadersNeedOnlyTheFilesThatTheyRead) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  for (const char* name : kBasicFiles) {
    if (std::string(name) != "ej.dic" && std::string(name) != "ej.ix3")
      std::filesystem::remove(BasicFile(name));
  }
  EXPECT_EQ(SerchApple(), 1);
  EXPECT_EQ(lines_.size(), 1u);
  std::filesystem::remove(BasicFile("ej.dic"));
  EXPECT_EQ(SerchApple(), 257);
  EXPECT_EQ(size_, 0u);
}

TEST_F(FrameTest, NeedKihonOpensAStreamOnce) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  FaultyStorage disk;
  EXPECT_TRUE(NeedKihon(g_fs_Ej_Dic_Kihon, "ej.dic"));
  EXPECT_TRUE(NeedKihon(g_fs_Ej_Dic_Kihon, "ej.dic"));
  EXPECT_EQ(disk.count("open"), 1);
  CloseFsObjsKihonE();
  EXPECT_FALSE(g_fs_Ej_Dic_Kihon->IsOpen());
  EXPECT_FALSE(NeedKihon(nullptr, "ej.dic"));
  EXPECT_FALSE(NeedKihon(g_fs_Ej_Dic_Kihon, "missing"));
}

TEST_F(FrameTest, WholeBasicSetsOpenTogether) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_TRUE(OpenFsObjsKihonE());
  EXPECT_TRUE(g_fs_Ka_Idx_Kihon->IsOpen());
  EXPECT_TRUE(OpenFsObjsKihonJ());
  EXPECT_TRUE(g_fs_Ke_Idx_Kihon->IsOpen());
  CloseFsObjs();
  EXPECT_FALSE(g_fs_Ka_Idx_Kihon->IsOpen());
  EXPECT_FALSE(g_fs_Ke_Idx_Kihon->IsOpen());
  std::filesystem::remove(BasicFile("hase.ix3"));
  EXPECT_FALSE(OpenFsObjsKihonE());
  CloseFsObjs();
}

TEST_F(FrameTest, WithoutAUserSetDicThreeIsDicOneAndDicTwoIsRefused) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_EQ(SerchApple(3), 1);
  EXPECT_EQ(lines_.size(), 1u);
  EXPECT_EQ(SerchApple(2), 258);
  uint32_t size = 0;
  Handle list = nullptr;
  std::string kana = test::sjis("りんご");
  EXPECT_EQ(SerchMidasiJ(kana.data(), &size, &list, 2), 259);
}

TEST_F(FrameTest, StreamsExistForOpenedSetsOnly) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  EXPECT_NE(g_fs_Ke_Idx_Kihon, nullptr);
  EXPECT_EQ(g_fs_Ej_Dic_User, nullptr);
  EXPECT_EQ(g_fs_Ke_Idx_User[0], nullptr);
  ASSERT_EQ(EndAPI(), 1);
  EXPECT_EQ(g_fs_Ke_Idx_Kihon, nullptr);
}

TEST_F(FrameTest, EndAPIUnderAReaderIs35AndTheEngineIsClosed) {
  WriteSmallSet();
  ASSERT_EQ(OpenBasic(), 1);
  ASSERT_EQ(CheckInMP(kCodeSerchMidasiE), 1);
  EXPECT_EQ(EndAPI(), 35);
  EXPECT_FALSE(initAPIFlag);
  EXPECT_EQ(g_sKihonEJ.tableC, nullptr);
  EXPECT_EQ(SerchApple(), 20);
  EXPECT_EQ(OpenBasic(), 1);
  EXPECT_EQ(SerchApple(), 1);
}

}  // namespace
}  // namespace zavel::engine
