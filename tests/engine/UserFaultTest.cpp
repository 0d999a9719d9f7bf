// User sets on a disk that fails at each of its operations in turn, once and for ever: whatever a call
// answers, afterwards the set is as it was before or as it should be, and what answered 1 is there.
#include <functional>
#include <set>

#include "engine/KjiIdx.h"
#include "engine/RamDicFixture.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::FaultyStorage;
using test::RamDisk;
using namespace std::string_literals;

using Operation = std::function<Status()>;

class UserFaultTest : public RamDicTest {
 protected:
  // Brings the files and the engine into the state that an operation starts from.
  void Start(const RamDisk::Files& files) {
    EndAPI();
    disk_.setFiles(files);
    ASSERT_EQ(OpenBoth(), 1);
  }
  UserState StateAfter(const RamDisk::Files& files, const Operation& operation) {
    Start(files);
    EXPECT_EQ(operation(), 1);
    const bool closed = !initAPIFlag;
    EXPECT_EQ(EndAPI(), closed ? 263 : 1);
    EXPECT_EQ(OpenBoth(), 1);
    return ReadState();
  }
  UserState RecoveredState() {
    EndAPI();
    Recover();
    EXPECT_EQ(OpenBoth(), 1);
    return ReadState();
  }

  // Runs `operation`, which may look at the set first, with its n-th file operation failing, for each n.
  // `work` gets a function that lets the disk fail from there on.
  using Work = std::function<Status(const std::function<void()>& failFromHere)>;
  void FailEach(const Work& work, const std::set<Status>& allowed) {
    const RamDisk::Files files = disk_.files();
    const UserState before = (Start(files), ReadState());
    const UserState after = StateAfter(files, [&] { return work([] {}); });
    for (const auto repeat : {FaultyStorage::kOnce, FaultyStorage::kForEver}) {
      for (long n = 1;; ++n) {
        SCOPED_TRACE(std::to_string(n) + (repeat == FaultyStorage::kOnce ? " once" : " for ever"));
        Start(files);
        FaultyStorage disk;
        const Status status = work([&] { disk.failAt(n, repeat); });
        if (disk.faults() == 0) break;
        SCOPED_TRACE("failed: " + disk.history()[static_cast<size_t>(n) - 1]);
        disk.failAt(0);
        EXPECT_TRUE(status == 1 || allowed.contains(status)) << status;
        CheckAfterFailure(status, before, after);
        if (HasFailure()) return;
      }
    }
  }

 private:
  void CheckAfterFailure(Status status, const UserState& before, const UserState& after) {
    const bool closed = !initAPIFlag;
    const Status ended = EndAPI();
    EXPECT_TRUE(ended == (closed ? 263 : 1) || (status != 1 && ended == 20)) << ended;
    const UserState found = RecoveredState();
    EXPECT_TRUE(status == 1 ? found == after : found == before || found == after);
    if (status == 1) return;
    EXPECT_EQ(ArrangeUserDicE(), 1);
    EXPECT_EQ(ArrangeUserDicJ(), 1);
    EXPECT_TRUE(ReadState() == found);
  }

 protected:
  // A few entries of each kind, saved, with dead ones between them.
  void Fill() {
    for (const char* word : {"cat", "Cat", "catalog", "a", "dog", "dead"})
      ASSERT_EQ(Add(EntryE{.word = word}), 1);
    ASSERT_EQ(Add(EntryE{.word = "rain", .kind = 2, .hinsi = 0, .phrase = "rain cats"}), 1);
    const std::pair<const char*, const char*> japanese[] = {
        {"ねこ", "猫"}, {"ネコ", "猫"}, {"ねこか", "猫科"}, {"いぬ", "犬"}, {"か", ""}, {"しぬ", "死ぬ"}};
    for (const auto& [kana, kanji] : japanese) ASSERT_EQ(Add(EntryJ{.kana = kana, .kanji = kanji}), 1);
    auto dead = FindE("dead");
    ASSERT_EQ(DelUserDicE(&dead[0].sikibetu), 1);
    auto deadJ = FindJ("しぬ");
    ASSERT_EQ(DelUserDicJ(&deadJ[0].kana, &deadJ[0].kanji), 1);
    Reopen();
  }
  // Splits the kanji index in two by hand: 猫 in the continuation index, 犬 in kji.idx.
  void FillWithContinuation() {
    Fill();
    ASSERT_EQ(EndAPI(), 1);
    std::string first = File("kji.idx");
    SetFile("001.idx", first);
    SetFile("kji.idx",
            std::string(10, '\0') + "\x01" + std::string(117, '\0') + Le32(0) + Le32(136) + Le32(0));
    ASSERT_EQ(OpenBoth(), 1);
    ASSERT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1);
    ASSERT_EQ(FindJ("いぬ")[0].kanji.fileNo, 1);
    ASSERT_EQ(FindJ("とり")[0].kanji.fileNo, 0);
    Reopen();
  }
};

const std::set<Status> kWriterE = {21, 258};
const std::set<Status> kWriterJ = {21, 259};

TEST_F(UserFaultTest, AddingAnEnglishEntry) {
  Fill();
  for (const char* word : {"zebra", "catty", "cat", "b"}) {
    SCOPED_TRACE(word);
    FailEach(
        [&](const auto& fail) {
          fail();
          return Add(EntryE{.word = word, .imi = "新"});
        },
        kWriterE);
  }
}

TEST_F(UserFaultTest, OverwritingAndDeletingAnEnglishEntry) {
  Fill();
  for (const char* word : {"cat", "catalog", "dog"}) {
    SCOPED_TRACE(word);
    FailEach(
        [&](const auto& fail) {
          auto found = FindE(word);
          fail();
          return Add(EntryE{.word = word, .imi = "新"}, &found.back().sikibetu);
        },
        kWriterE);
    FailEach(
        [&](const auto& fail) {
          auto found = FindE(word);
          fail();
          return DelUserDicE(&found[0].sikibetu);
        },
        kWriterE);
  }
}

TEST_F(UserFaultTest, AddingAJapaneseEntry) {
  Fill();
  for (const auto& [kana, kanji] :
       {std::pair("とり", "鳥"), {"ねこ", "猫"}, {"ねこか", "猫歌"}, {"とり", ""}}) {
    SCOPED_TRACE(kana + std::string(kanji));
    FailEach(
        [&, entry = EntryJ{.kana = kana, .kanji = kanji, .imi = "new"}](const auto& fail) {
          fail();
          return Add(entry);
        },
        kWriterJ);
  }
}

TEST_F(UserFaultTest, OverwritingAndDeletingAJapaneseEntry) {
  Fill();
  for (const char* kana : {"ねこ", "いぬ", "か"}) {
    SCOPED_TRACE(kana);
    FailEach(
        [&](const auto& fail) {
          auto found = FindJ(kana);
          EntryJ entry = found[0].entry;
          entry.imi = "new";
          fail();
          return Add(entry, &found[0].kana, &found[0].kanji);
        },
        kWriterJ);
    FailEach(
        [&](const auto& fail) {
          auto found = FindJ(kana);
          fail();
          return DelUserDicJ(&found[0].kana, &found[0].kanji);
        },
        kWriterJ);
  }
}

TEST_F(UserFaultTest, WithAContinuationIndex) {
  FillWithContinuation();
  FailEach(
      [&](const auto& fail) {
        auto found = FindJ("ねこ");
        fail();
        return DelUserDicJ(&found[0].kana, &found[0].kanji);
      },
      kWriterJ);
  FailEach(
      [&](const auto& fail) {
        EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
        EXPECT_EQ(Add(EntryJ{.kana = "むし", .kanji = "虫"}), 1);
        fail();
        return EndAPI();
      },
      {21});
}

// A full kanji index is moved aside ahead of the entry that needs a row. Where the indexes can't be loaded
// again (260), all that was there is in the files.
TEST_F(UserFaultTest, MovingAFullKanjiIndexAside) {
  Fill();
  ASSERT_EQ(EndAPI(), 1);
  // 9,997 rows without a block behind the three that are there.
  std::string full = File("kji.idx");
  const uint32_t rowsA = 4 * 3, rowsC = 6 * 10000;
  ASSERT_EQ(full.substr(128, 8), Le32(rowsA) + Le32(136 + rowsA));
  std::string tail;
  for (unsigned second = 0x40; tail.size() < 6 * 9997; ++second) {
    tail += {static_cast<char>(0xE0 + (second >> 8)), static_cast<char>(second & 0xFF)};
    tail += Le32(0);
  }
  full = full.substr(0, 136 + rowsA) + Le32(rowsC) + full.substr(136 + rowsA + 4) + tail;
  SetFile("kji.idx", full);
  ASSERT_EQ(OpenBoth(), 1);
  ASSERT_EQ(GetKjiIdxWordCnt(), 10000u);
  FailEach(
      [&](const auto& fail) {
        fail();
        return Add(EntryJ{.kana = "とり", .kanji = "鳥"});
      },
      {21, 259, 260});
  ASSERT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1);
  EXPECT_TRUE(Exists("001.idx"));
}

// A full disk takes part of an entry or of a block; the part doesn't stay behind the last whole one.
TEST_F(UserFaultTest, AHalfAppendIsCutOff) {
  Fill();
  const RamDisk::Files files = disk_.files();
  for (const std::string name : {"ej.dic", "ej.ix3"}) {
    Start(files);
    FaultyStorage disk;
    ASSERT_EQ(Add(EntryE{.word = "zebra"}), 1);
    long n = 0;
    while (disk.history()[static_cast<size_t>(n++)] != "writeAt " + UserFile(name)) {
    }
    Start(files);
    disk.failAt(n);
    EXPECT_EQ(Add(EntryE{.word = "zebra"}), 21);
    EXPECT_TRUE(File(name) == files.at("u" + name)) << name;
  }
}

// The backup of the kana index tells of those of the kanji indexes, so that there is one whenever they are
// saved.
TEST_F(UserFaultTest, TheKanaIndexIsSavedWithEveryKanjiIndex) {
  Fill();
  FaultyStorage disk;
  g_sUserKji.dirty = 1;
  ASSERT_EQ(EndAPI(), 1);
  std::vector<std::string> copies;
  for (const std::string& operation : disk.history()) {
    if (operation.starts_with("copy ")) copies.push_back(operation.substr(operation.rfind('/') + 1));
  }
  EXPECT_EQ(copies, (std::vector<std::string>{"ukna.idx.bkup", "ukji.idx.bkup"}));
}

// What an index leads to is synced ahead of the first change to the index.
TEST_F(UserFaultTest, EntriesAndBlocksAreSyncedAheadOfTheirIndex) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  FaultyStorage disk;
  ASSERT_EQ(EndAPI(), 1);
  const auto place = [&](const std::string& kind, const std::string& name) {
    for (size_t at = 0; at < disk.history().size(); ++at) {
      const std::string& operation = disk.history()[at];
      if (operation.starts_with(kind) && operation.ends_with("/u" + name)) return at;
    }
    ADD_FAILURE() << kind << " " << name;
    return size_t{0};
  };
  for (const char* name : {"ej.dic", "ej.ix3"})
    EXPECT_LT(place("sync", name), place("copy", "ej.idx.bkup")) << name;
  for (const char* name : {"je.dic", "kna.ix3", "kji.ix3"}) {
    EXPECT_LT(place("sync", name), place("copy", "kna.idx.bkup")) << name;
  }
  for (const char* name : {"ej.idx", "kna.idx", "kji.idx"}) {
    EXPECT_LT(place("sync", name), place("remove", name + ".bkup"s)) << name;
  }
}

// Both sets changed; the engine is closed whatever it answers.
TEST_F(UserFaultTest, EndAPI) {
  Fill();
  FailEach(
      [&](const auto& fail) {
        EXPECT_EQ(Add(EntryE{.word = "zebra"}), 1);
        fail();
        return EndAPI();
      },
      {21});
  FailEach(
      [&](const auto& fail) {
        EXPECT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1);
        auto found = FindJ("ねこ");
        EXPECT_EQ(DelUserDicJ(&found[0].kana, &found[0].kanji), 1);
        fail();
        return EndAPI();
      },
      {21});
}

// An operation that failed leaves the engine as it was: made again on a sound disk it ends well, and so does
// what was done before it.
TEST_F(UserFaultTest, AfterAFailureTheEngineGoesOn) {
  Fill();
  const RamDisk::Files files = disk_.files();
  const EntryJ bird{.kana = "とり", .kanji = "鳥"};
  for (long n = 1;; ++n) {
    SCOPED_TRACE(n);
    Start(files);
    ASSERT_EQ(Add(EntryJ{.kana = "むし", .kanji = "虫"}), 1);
    FaultyStorage disk;
    disk.failAt(n);
    const Status status = Add(bird);
    const bool failed = disk.faults() > 0;
    disk.failAt(0);
    if (failed && status != 1) {
      EXPECT_TRUE(FindJ("とり").empty());
      ASSERT_EQ(Add(bird), 1);
    }
    Reopen();
    EXPECT_EQ(FindJ("とり").size(), 1u);
    EXPECT_EQ(FindJ("むし").size(), 1u);
    if (!failed) break;
  }
}

TEST_F(UserFaultTest, ArrangingEnglish) {
  Fill();
  FailEach(
      [&](const auto& fail) {
        fail();
        return ArrangeUserDicE();
      },
      kWriterE);
  FailEach(
      [&](const auto& fail) {
        EXPECT_EQ(Add(EntryE{.word = "zebra"}), 1);
        fail();
        return ArrangeUserDicE();
      },
      kWriterE);
}

TEST_F(UserFaultTest, ArrangingJapanese) {
  Fill();
  FailEach(
      [&](const auto& fail) {
        EXPECT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1);
        fail();
        return ArrangeUserDicJ();
      },
      kWriterJ);
}

TEST_F(UserFaultTest, ArrangingJapaneseWithAContinuationIndex) {
  FillWithContinuation();
  FailEach(
      [&](const auto& fail) {
        fail();
        return ArrangeUserDicJ();
      },
      kWriterJ);
}

}  // namespace
}  // namespace zavel::engine
