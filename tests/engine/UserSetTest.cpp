#include <gtest/gtest.h>

#include <iterator>
#include <new>

#include "engine/EngineFixture.h"
#include "engine/IdxInfo.h"
#include "engine/Index1.h"
#include "engine/KjiIdx.h"
#include "engine/MakeUserDic.h"
#include "engine/MidasiCheck.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::FaultyStorage;
using test::readFile;
using test::writeFile;
using test::writeIndex;
using namespace std::string_literals;

const std::string kHeader(128, '\0');

class UserSetTest : public EngineTest {
 protected:
  UserSetTest() {
    WriteSmallSet();
    MakeUserFolder();
  }

  Status OpenE() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), nullptr); }
  Status OpenJ() { return InitAPI(folder_.prefix().c_str(), nullptr, UserPrefix().c_str()); }
  Status OpenBoth() { return InitAPI(folder_.prefix().c_str(), UserPrefix().c_str(), UserPrefix().c_str()); }

  long UserFiles() const {
    const std::filesystem::directory_iterator files(folder_.path() + "/user");
    return std::distance(begin(files), end(files));
  }

  void EmptyUserFolder() {
    std::filesystem::remove_all(folder_.path() + "/user");
    MakeUserFolder();
  }

  // A Japanese set of one word, 猫 (0x944C) read ねこ, and continuation indexes with one kanji each.
  void WriteSetJ(uint16_t count) {
    writeFile(UserFile("je.dic"), kHeader + test::entryJ("ねこ", "猫", "cat"));
    const auto kana = writeIndex(kTypeKana, {{"\xCB\xB1", 128}}, true);
    auto kanji = writeIndex(kTypeKji, {{test::sjis("猫"), 128}}, true);
    kanji.idx[10] = static_cast<char>(count);
    kanji.idx[11] = static_cast<char>(count >> 8);
    writeFile(UserFile("kna.idx"), kana.idx);
    writeFile(UserFile("kna.ix3"), kana.ix3);
    writeFile(UserFile("kji.idx"), kanji.idx);
    writeFile(UserFile("kji.ix3"), kanji.ix3);
  }

  // Continuation index `number` files one kanji under the block that is there.
  void WriteContinuation(uint16_t number, const char* kanji) {
    writeFile(UserFile(KjiIdxName(number)), writeIndex(kTypeKji, {{test::sjis(kanji), 128}}, true).idx);
  }
};

TEST_F(UserSetTest, InitAPICreatesAnEnglishSetOfWhichNoFileExists) {
  ASSERT_EQ(OpenE(), 1);
  EXPECT_EQ(g_dicType, 5);
  EXPECT_EQ(UserFiles(), 3);
  EXPECT_EQ(readFile(UserFile("ej.dic")), kHeader);
  EXPECT_EQ(readFile(UserFile("ej.ix3")), kHeader);
  // A: 26 letters. B: for each letter the ended word and 26 letters. C: one row below an ended word, 27 below
  // each pair.
  const std::string idx = readFile(UserFile("ej.idx"));
  ASSERT_EQ(idx.size(), 128u + 8 + 26 * 3 + 8 + 26 * 27 * 3 + 4 + 26 * (1 + 26 * 27) * 5);
  EXPECT_EQ(idx.substr(0, 128), kHeader);
  EXPECT_EQ(idx.substr(128, 14),
            "\x4E\0\0\0\xD6\0\0\0"
            "a\0\0"
            "b\x1B\0"s);  // 78 bytes, B at 214
  EXPECT_EQ(idx.substr(214, 17),
            "\x3A\x08\0\0\x18\x09\0\0"
            "\0\0\0"
            "a\x01\0"
            "b\x1C\0"s);  // 2,106, C at 2,328
  EXPECT_EQ(idx.substr(2328, 24),
            "\xFE\x64\x01\0"
            "\0\0\0\0\0"
            "\0\0\0\0\0"
            "a\0\0\0\0"
            "b\0\0\0\0"s);  // 91,390
  EXPECT_EQ(idx.substr(idx.size() - 10), "y\0\0\0\0z\0\0\0\0"s);
}

TEST_F(UserSetTest, InitAPICreatesAJapaneseSetOfWhichNoFileExists) {
  ASSERT_EQ(OpenJ(), 1);
  EXPECT_EQ(g_dicType, 3);
  EXPECT_EQ(UserFiles(), 5);
  for (const char* name : {"je.dic", "kna.ix3", "kji.ix3"})
    EXPECT_EQ(readFile(UserFile(name)), kHeader) << name;
  // A: 83 kana. C: below each 83 kana, then the ended word.
  const std::string kana = readFile(UserFile("kna.idx"));
  ASSERT_EQ(kana.size(), 128u + 8 + 83 * 3 + 4 + 83 * 84 * 5);
  EXPECT_EQ(kana.substr(0, 128), kHeader);
  EXPECT_EQ(kana.substr(128, 14),
            "\xF9\0\0\0\x81\x01\0\0"
            "\x9F\0\0"
            "\xA0\x54\0"s);  // 249 bytes, C at 385
  EXPECT_EQ(kana.substr(385, 14),
            "\x2C\x88\0\0"
            "\x9F\0\0\0\0"
            "\xA0\0\0\0\0"s);  // 34,860 bytes
  EXPECT_EQ(kana.substr(385 + 4 + 82 * 5, 10),
            "\xF1\0\0\0\0"
            "\0\0\0\0\0"s);
  EXPECT_EQ(readFile(UserFile("kji.idx")), kHeader +
                                               "\0\0\0\0\x88\0\0\0"
                                               "\0\0\0\0"s);  // C at 136
  EXPECT_EQ(g_sUserKji.size, 100140u);
  EXPECT_EQ(GetKjiIdxWordCnt(), 0u);
}

TEST_F(UserSetTest, ANewEnglishIndexHasARowForEveryPrefix) {
  ASSERT_EQ(OpenE(), 1);
  uint16_t pos1, pos2, pos3, fileNo, expected = 0;
  uint32_t offset;
  const auto check = [&](const std::string& word) {
    ASSERT_EQ(ChkMidasiStrE(word.c_str()), 1);
    ASSERT_EQ(GetIdx1Info(word, kTypeE, &pos1, &pos2, &pos3, &offset, &fileNo), 1) << word;
    EXPECT_EQ(offset, 0u);
    ASSERT_EQ(pos3, expected++) << word;
  };
  for (char a = 'a'; a <= 'z'; ++a) {
    check({a});
    for (char b = 'a'; b <= 'z'; ++b) {
      check({a, b});
      for (char c = 'a'; c <= 'z'; ++c) check({a, b, c});
    }
  }
  EXPECT_EQ(expected, 18278);
}

TEST_F(UserSetTest, ANewKanaIndexHasARowForEveryPrefix) {
  ASSERT_EQ(OpenJ(), 1);
  // Every kana that a word may hold, hiragana, katakana and the voiced u.
  std::vector<std::string> kana = {"\x88\x68"};
  for (unsigned code = 0x829F; code <= 0x8396; ++code) {
    const std::string character{static_cast<char>(code >> 8), static_cast<char>(code)};
    if (ChkMidasiStrJ(character.c_str()) == 1) kana.push_back(character);
  }
  ASSERT_EQ(kana.size(), 1u + 83 + 86);
  for (const std::string& first : kana) {
    for (const std::string& second : kana) {
      for (const std::string& word : {first, first + second}) {
        index_info info;
        info.word = word;
        ASSERT_EQ(GetIdxInfo(&info, kTypeKana), 1);
        ASSERT_EQ(info.ix3Offset, 0u);
        ASSERT_NE(info.pos3, 0xFFFF);
      }
    }
  }
}

TEST_F(UserSetTest, ANewSetOpensAgainAndHoldsNothing) {
  ASSERT_EQ(OpenBoth(), 1);
  EXPECT_EQ(g_dicType, 7);
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenBoth(), 1);
  uint32_t size = 9;
  Handle list = nullptr;
  EXPECT_EQ(SerchMidasiE("apple", 0, &size, &list, 2), 1);
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(list, nullptr);
  std::string kana = test::sjis("りんご"), kanji = test::sjis("林檎");
  EXPECT_EQ(SerchMidasiJ(kana.data(), &size, &list, 2), 1);
  EXPECT_EQ(SerchMidasiJ(kanji.data(), &size, &list, 2), 1);
  EXPECT_EQ(size, 0u);
  EXPECT_EQ(EndAPI(), 1);
}

TEST_F(UserSetTest, ASetOfWhichSomeFilesAreMissingIsRefusedAndLeftAlone) {
  for (const char* missing : {"ej.dic", "ej.ix3", "ej.idx"}) {
    ASSERT_EQ(OpenE(), 1);
    ASSERT_EQ(EndAPI(), 1);
    std::filesystem::remove(UserFile(missing));
    EXPECT_EQ(OpenE(), 258) << missing;
    EXPECT_EQ(UserFiles(), 2);
    EmptyUserFolder();
  }
  for (const char* missing : {"je.dic", "kna.ix3", "kji.ix3", "kna.idx", "kji.idx"}) {
    ASSERT_EQ(OpenJ(), 1);
    ASSERT_EQ(EndAPI(), 1);
    std::filesystem::remove(UserFile(missing));
    EXPECT_EQ(OpenJ(), 259) << missing;
    EXPECT_EQ(UserFiles(), 4);
    EmptyUserFolder();
  }
}

// A disk on which no user file can be opened for reading, as with files of another owner.
class LockedDisk : public FaultyStorage {
 public:
  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override {
    const bool locked = mode == OpenMode::kRead && path.find("/user/u") != std::string::npos;
    return locked ? nullptr : FaultyStorage::open(path, mode);
  }
};

TEST_F(UserSetTest, FilesThatCannotBeOpenedAreNotReplaced) {
  for (const char* name : {"ej.dic", "kji.idx"}) writeFile(UserFile(name), "precious");
  LockedDisk disk;
  EXPECT_EQ(OpenE(), 258);
  EXPECT_EQ(OpenJ(), 21);
  EXPECT_EQ(UserFiles(), 2);
  for (const char* name : {"ej.dic", "kji.idx"}) EXPECT_EQ(readFile(UserFile(name)), "precious");
}

TEST_F(UserSetTest, AMissingFolderIs258Or21) {
  const std::string nowhere = folder_.prefix() + "nowhere/u";
  EXPECT_EQ(InitAPI(folder_.prefix().c_str(), nowhere.c_str(), nullptr), 258);
  EXPECT_EQ(InitAPI(folder_.prefix().c_str(), nullptr, nowhere.c_str()), 21);
}

TEST_F(UserSetTest, AFailureWhileCreatingLeavesAllOrNothing) {
  FaultyStorage disk;
  for (const bool english : {true, false}) {
    const auto open = [&] { return english ? OpenE() : OpenJ(); };
    for (long n = 1;; ++n) {
      disk.failAt(n);
      const Status status = open();
      const bool failed = disk.faults() > 0;
      disk.failAt(0);
      EXPECT_EQ(EndAPI(), status == kOk ? 1 : 263) << n;
      const long files = UserFiles();
      EXPECT_TRUE(files == 0 || files == (english ? 3 : 5)) << n << " " << files;
      if (files > 0) {
        EXPECT_EQ(open(), 1) << n;
        EXPECT_EQ(EndAPI(), 1);
        EmptyUserFolder();
      }
      if (!failed) break;
    }
  }
}

TEST_F(UserSetTest, MkUserDicMakesTheFilesOfItsOwnSet) {
  const std::string path = UserFile("x");
  EXPECT_FALSE(MkUserDicE(path, kFileJeDic));
  EXPECT_FALSE(MkUserDicJ(path, kFileEjIdx, 0));
  EXPECT_FALSE(MkUserDicJ(path, 8, 0));
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_TRUE(MkUserDicE(path, kFileEjIx3));
  EXPECT_EQ(readFile(path), kHeader);
  EXPECT_TRUE(MkUserDicJ(path, 7, 3));  // an empty kanji index, three continuation indexes
  const std::string kji = readFile(path);
  EXPECT_EQ(kji.size(), 140u);
  EXPECT_EQ(kji.substr(0, 16), "\0\0\0\0\0\0\0\0\0\0\x03\0\0\0\0\0"s);
}

TEST_F(UserSetTest, AnEnglishSetIsSearched) {
  writeFile(UserFile("ej.dic"), kHeader + test::entryE("apple", "名", "パソコン"));
  const auto index = writeIndex(kTypeE, {{"apple", 128}}, true);
  writeFile(UserFile("ej.idx"), index.idx);
  writeFile(UserFile("ej.ix3"), index.ix3);
  ASSERT_EQ(OpenE(), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  char word[] = "apple";
  ASSERT_EQ(SerchImiE(word, nullptr, 0, &size, &list, 2), 1);
  EXPECT_EQ(test::takeEntries(list, size), std::vector<std::string>{test::entryE("apple", "名", "パソコン")});
  std::filesystem::remove(UserFile("ej.ix3"));
  EXPECT_EQ(SerchImiE(word, nullptr, 0, &size, &list, 3), 258);
}

TEST_F(UserSetTest, KanjiAreFoundInContinuationIndexes) {
  WriteSetJ(1);
  WriteContinuation(1, "犬");
  ASSERT_EQ(OpenBoth(), 1);  // with both user sets this takes the last of ten slots
  EXPECT_EQ(KjiIdxCount(), 1);
  EXPECT_EQ(GetKjiIdxWordCnt(), 1u);
  Idx1Position position;
  EXPECT_EQ(GetIdxUserPosition(kTypeKji, test::sjis("猫"), &position), 1);
  EXPECT_EQ(position.fileNo, 0);
  EXPECT_EQ(position.pos1, 0);
  EXPECT_EQ(position.pos2, 0xFFFF);
  EXPECT_EQ(position.pos3, 0);
  EXPECT_EQ(position.offset, 128u);
  EXPECT_EQ(GetIdxUserPosition(kTypeKji, test::sjis("犬"), &position), 1);
  EXPECT_EQ(position.fileNo, 1);
  EXPECT_EQ(position.offset, 128u);
  uint32_t offset = 0;
  EXPECT_EQ(GetIdxUser(kTypeKji, test::sjis("犬"), &offset), 1);
  EXPECT_EQ(offset, 128u);
  EXPECT_EQ(GetIdxUserPosition(kTypeKji, test::sjis("鳥"), &position), 1);
  EXPECT_EQ(position.fileNo, 0);
  EXPECT_EQ(position.pos1, 0xFFFF);
  EXPECT_EQ(position.offset, 0u);
}

TEST_F(UserSetTest, ASecondContinuationIndexFindsNoSlot) {
  WriteSetJ(2);
  WriteContinuation(1, "犬");
  WriteContinuation(2, "鳥");
  EXPECT_EQ(OpenBoth(), 260);  // the eleventh slot
  ASSERT_EQ(OpenJ(), 1);       // without the user English set there is one slot more
  uint32_t offset = 0;
  EXPECT_EQ(GetIdxUser(kTypeKji, test::sjis("鳥"), &offset), 1);
  EXPECT_EQ(offset, 128u);
}

TEST_F(UserSetTest, EveryCountedContinuationIndexMustBeThere) {
  WriteSetJ(1);
  EXPECT_EQ(OpenJ(), 259);
  WriteContinuation(1, "犬");
  EXPECT_EQ(OpenJ(), 1);
  EXPECT_EQ(EndAPI(), 1);
  WriteSetJ(0xFFFF);  // taken as ten
  EXPECT_EQ(OpenJ(), 259);
  for (uint16_t number = 2; number <= 10; ++number) WriteContinuation(number, "犬");
  EXPECT_EQ(OpenJ(), 260);
  EXPECT_TRUE(std::filesystem::exists(UserFile("010.idx")));
}

TEST_F(UserSetTest, EveryIndexHasItsNamedBlock) {
  WriteSetJ(1);
  WriteContinuation(1, "犬");
  ASSERT_EQ(OpenBoth(), 1);
  struct Block {
    const char* name;
    uint32_t size;
    const uint8_t* bytes;
  };
  // Of the basic set one word each: heads of 8, 8 and 4 bytes (8 and 4 without table B, 4 for table C alone)
  // and a row in each table. The user English set is new; kanji indexes have their fixed size.
  const Block blocks[] = {{"SM_KIHON_EJ", 31, g_sKihonEJ.tableBase},
                          {"SM_KIHON_KNA", 20, g_sKihonKna.tableBase},
                          {"SM_KIHON_KJI", 22, g_sKihonKji.tableBase},
                          {"SM_KIHON_HASE", 20, g_sKihonHase.tableBase},
                          {"SM_KIHON_KATU", 4, g_sKihonKatu.tableBase},
                          {"SM_USER_EJ", 93722, g_sUserEJ.tableBase},
                          {"SM_USER_KNA", 148, g_sUserKna.tableBase},
                          {"SM_USER_KJI", 100140, g_sUserKji.tableBase},
                          {"SM_USER_KJI001", 100140, g_pKjiIdx1s[0].tableBase},
                          {"SM_USER_KJI_IDX_INFO", 2, g_sUserKjiIdxInfo}};
  for (const Block& block : blocks) {
    // All ten slots are taken, so that a name which isn't known has no block.
    FileMapping* const mapping = CreateFileMapping(-1, nullptr, 4, 0, 1, block.name);
    ASSERT_NE(mapping, nullptr) << block.name;
    EXPECT_EQ(mapping->size, block.size) << block.name;
    EXPECT_EQ(mapping->block, block.bytes) << block.name;
  }
  EXPECT_EQ(CreateFileMapping(-1, nullptr, 4, 0, 1, "SM_USER_KJI002"), nullptr);
}

// A disk whose n-th open, of whatever kind, ends for want of memory.
class DiskWithoutMemory : public FaultyStorage {
 public:
  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override {
    if (--countdown_ == 0) throw std::bad_alloc();
    return FaultyStorage::open(path, mode);
  }
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override {
    if (--countdown_ == 0) throw std::bad_alloc();
    return FaultyStorage::openTemporary(folder, prefix, path);
  }
  // 0: there is memory enough.
  void failAtOpen(int n) { countdown_ = n; }
  bool failed() const { return countdown_ <= 0; }

 private:
  int countdown_ = 0;
};

TEST_F(UserSetTest, WithoutMemoryOpeningIs17AndTheEngineIsClosed) {
  ASSERT_EQ(OpenBoth(), 1);  // makes the sets
  ASSERT_EQ(EndAPI(), 1);
  DiskWithoutMemory disk;
  int opens = 0;
  for (int n = 1;; ++n) {
    disk.failAtOpen(n);
    const Status status = OpenBoth();
    if (!disk.failed()) {
      EXPECT_EQ(status, 1);
      break;
    }
    opens = n;
    EXPECT_EQ(status, 17) << n;
    EXPECT_FALSE(initAPIFlag);
    EXPECT_EQ(g_fs_Ej_Dic_Kihon, nullptr);
    EXPECT_EQ(g_sKihonEJ.tableBase, nullptr);
    EXPECT_EQ(EndAPI(), 263) << n;
  }
  // 13 files of the basic set proved; 8 of the user sets proved twice, their existence first; 5 + 1 + 5
  // loaded with the Japanese set opened whole.
  EXPECT_EQ(opens, 13 + 8 * 2 + 5 + 1 + 5);
}

TEST_F(UserSetTest, WithoutMemoryWhileCreatingThereIsAllOrNothing) {
  DiskWithoutMemory disk;
  for (const bool english : {true, false}) {
    const auto open = [&] { return english ? OpenE() : OpenJ(); };
    const int files = english ? 3 : 5;
    // 13 basic files and those of the set are looked for, then made.
    for (int n = 13 + files + 1; n <= 13 + files + files; ++n) {
      disk.failAtOpen(n);
      EXPECT_EQ(open(), 17) << n;
      EXPECT_EQ(UserFiles(), 0) << n;
    }
    disk.failAtOpen(13 + files + files + 1);
    EXPECT_EQ(open(), 17);
    EXPECT_EQ(UserFiles(), files) << "made, and then not opened";
    disk.failAtOpen(0);
    EXPECT_EQ(open(), 1);
    EXPECT_EQ(EndAPI(), 1);
    EmptyUserFolder();
  }
}

TEST_F(UserSetTest, WithoutMemorySearchesAre17AndLeaveTheEngineUsable) {
  ASSERT_EQ(OpenBoth(), 1);
  DiskWithoutMemory disk;
  uint32_t size = 9;
  Handle list = nullptr;
  for (int n = 1; n <= 4; ++n) {  // the user's blocks and entries, then the basic ones
    disk.failAtOpen(n);
    EXPECT_EQ(SerchMidasiE("apple", 0, &size, &list, 3), 17) << n;
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(list, nullptr);
    EXPECT_EQ(g_ProcessInfo->stateE, 0);
  }
  disk.failAtOpen(0);
  ASSERT_EQ(SerchMidasiE("apple", 0, &size, &list, 3), 1);
  EXPECT_EQ(size, 17u);  // u16, "apple [" with six bytes of gloss, "]", NUL
  GlobalFree(list);
}

TEST_F(UserSetTest, WithoutMemoryEndAPIIs17AndTheEngineIsClosed) {
  ASSERT_EQ(OpenBoth(), 1);
  const std::string idx = readFile(UserFile("ej.idx"));
  DiskWithoutMemory disk;
  g_sUserEJ.dirty = 1;
  disk.failAtOpen(1);
  EXPECT_EQ(EndAPI(), 17);
  EXPECT_FALSE(initAPIFlag);
  EXPECT_TRUE(readFile(UserFile("ej.idx")) == idx);
  EXPECT_EQ(EndAPI(), 263);
  EXPECT_EQ(OpenBoth(), 1);
}

// Paths, then the files of the basic set, of the English and of the Japanese one, then the indexes.
TEST_F(UserSetTest, OfSeveralFailuresTheFirstStepTellsItsStatus) {
  const std::string whole = readFile(BasicFile("ej.idx"));
  writeFile(BasicFile("ej.idx"), "\xFF");
  writeFile(UserFile("ej.dic"), kHeader);
  writeFile(UserFile("je.dic"), kHeader);
  std::filesystem::remove(BasicFile("ke.idx"));
  const std::string prefix = folder_.prefix(), sixBytes = UserPrefix() + "sixby";
  EXPECT_EQ(InitAPI(prefix.c_str(), UserPrefix().c_str(), sixBytes.c_str()), 18);
  EXPECT_EQ(OpenBoth(), 257);
  EXPECT_EQ(UserFiles(), 2) << "without a basic set no user set is made";
  WriteSmallSet();
  writeFile(BasicFile("ej.idx"), "\xFF");
  EXPECT_EQ(OpenBoth(), 258);
  std::filesystem::remove(UserFile("ej.dic"));
  EXPECT_EQ(OpenBoth(), 259);
  EXPECT_EQ(UserFiles(), 4) << "the English set was made";
  std::filesystem::remove(UserFile("je.dic"));
  EXPECT_EQ(OpenBoth(), 260);
  writeFile(BasicFile("ej.idx"), whole);
  EXPECT_EQ(OpenBoth(), 1);
}

TEST_F(UserSetTest, ABrokenHeaderOfTheKanjiIndexIs19) {
  WriteSetJ(0);
  const std::string whole = readFile(UserFile("kji.idx"));
  for (const size_t length : {0u, 6u, 13u}) {
    writeFile(UserFile("kji.idx"), whole.substr(0, length));
    EXPECT_EQ(OpenJ(), 19) << length;
  }
  writeFile(UserFile("kji.idx"), whole.substr(0, 14));
  EXPECT_EQ(OpenJ(), 260);
}

TEST_F(UserSetTest, AMalformedUserIndexIs260) {
  WriteSetJ(0);
  writeFile(UserFile("kna.idx"), kHeader);
  EXPECT_EQ(OpenJ(), 260);
  ASSERT_EQ(OpenE(), 1);
  ASSERT_EQ(EndAPI(), 1);
  writeFile(UserFile("ej.idx"), kHeader);
  EXPECT_EQ(OpenE(), 260);
}

TEST_F(UserSetTest, AVanishedSetIs258Or259AtItsCall) {
  ASSERT_EQ(OpenBoth(), 1);
  std::filesystem::remove(UserFile("ej.dic"));
  std::filesystem::remove(UserFile("je.dic"));
  uint32_t size = 0;
  Handle list = nullptr;
  std::string kana = test::sjis("りんご");
  EXPECT_EQ(SerchMidasiE("apple", 0, &size, &list, 2), 258);
  EXPECT_EQ(SerchMidasiE("apple", 0, &size, &list, 3), 258);
  EXPECT_EQ(SerchMidasiJ(kana.data(), &size, &list, 2), 259);
  ASSERT_EQ(SerchMidasiE("apple", 0, &size, &list, 1), 1);
  GlobalFree(list);
}

TEST_F(UserSetTest, OpenedForWritingAllFilesMustBeThere) {
  ASSERT_EQ(OpenBoth(), 1);
  EXPECT_TRUE(OpenFsObjsUserE(false, false));
  EXPECT_TRUE(g_fs_Ej_Idx_User->IsOpen());
  CloseFsObjsUserE();
  EXPECT_EQ(OpenFsObjsUserJ(false, false), 1);
  EXPECT_TRUE(g_fs_Ke_Idx_User[0]->IsOpen());
  CloseFsObjsUserJ();
  EXPECT_FALSE(g_fs_Ke_Idx_User[0]->IsOpen());
  std::filesystem::remove(UserFile("ej.idx"));
  std::filesystem::remove(UserFile("kji.idx"));
  EXPECT_FALSE(OpenFsObjsUserE(false, false));
  EXPECT_EQ(OpenFsObjsUserJ(false, false), 259);
  CloseFsObjs();
}

TEST_F(UserSetTest, WithoutACountWordTheJapaneseSetIs20) {
  ASSERT_EQ(OpenJ(), 1);
  uint8_t* const count = g_sUserKjiIdxInfo;
  g_sUserKjiIdxInfo = nullptr;
  EXPECT_EQ(CheckUserDicExistJ(), kExistNoCountWord);
  EXPECT_EQ(OpenFsObjsUserJ(true, true), 20);
  g_sUserKjiIdxInfo = count;
  CloseFsObjsUserJ();
}

}  // namespace
}  // namespace zavel::engine
