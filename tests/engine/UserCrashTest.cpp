// The power goes at each change of the disk in turn. Whatever was acknowledged by EndAPI is there afterwards,
// and what was under way is there wholly or not at all, in every index.
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <map>

#include "engine/Arrange.h"
#include "engine/KjiIdx.h"
#include "engine/UserDicFixture.h"
#include "foundation/ByteReader.h"
#include "support/CrashStorage.h"

namespace zavel::engine {
namespace {

namespace fs = std::filesystem;
using test::kCrashed;
using test::runAndCrash;

// The sets as a user sees them: a line for each entry found, and for each written form how many entries it
// finds. Each set is saved by itself.
struct State {
  std::vector<std::string> english;
  std::vector<std::string> japanese;

  bool operator==(const State&) const = default;
};

std::string LineOf(const Pairs& pairs) {
  std::string line;
  for (const auto& [eng, jpn] : pairs) line += " | " + eng + " = " + jpn;
  return line;
}

size_t EntriesOf(const std::string& kanji) {
  std::string word = test::sjis(kanji);
  uint32_t size = 0;
  Handle list = nullptr;
  EXPECT_EQ(SerchImiJ(word.data(), nullptr, 0, &size, &list, 2), 1) << kanji;
  return test::takeEntries(list, size).size();
}

// `kana`: the readings to look at, all of them when empty.
State TakeState(const std::vector<std::string>& kanji, const std::vector<std::string>& kana) {
  State state;
  for (const std::string& word : ListE()) {
    for (const FoundE& found : FindE(word)) {
      state.english.push_back(found.entry.word + ": " + found.entry.imi + LineOf(found.entry.youreis));
    }
  }
  for (const std::string& word : kana.empty() ? ListJ() : kana) {
    for (const FoundJ& found : FindJ(word)) {
      state.japanese.push_back(found.entry.kana + " " + found.entry.kanji + ": " + found.entry.imi +
                               LineOf(found.entry.kureis) + LineOf(found.entry.bunreis) +
                               (found.kanji.pos1 == 0xFFFF ? " by kana" : " by both"));
    }
  }
  for (const std::string& form : kanji)
    state.japanese.push_back(form + " " + std::to_string(EntriesOf(form)));
  return state;
}

// One session: what is done between InitAPI and EndAPI. Answers whether all of it went well.
using Session = std::function<bool()>;

class UserCrashTest : public EngineTest {
 protected:
  UserCrashTest() { WriteSmallSet(); }

  std::string Prefix(const std::string& folder) const { return folder_.path() + "/" + folder + "/u"; }
  // The English set and the Japanese one.
  Status OpenIn(const std::string& folder) {
    return InitAPI(folder_.prefix().c_str(), Prefix(folder).c_str(), Prefix(folder).c_str());
  }
  void CopyFolder(const std::string& from, const std::string& to) {
    fs::remove_all(folder_.path() + "/" + to);
    fs::copy(folder_.path() + "/" + from, folder_.path() + "/" + to);
  }

  // Runs the sessions in `folder`, telling each that was acknowledged.
  int RunSessions(const std::string& folder, const std::vector<Session>& sessions,
                  const std::function<void()>& acknowledged) {
    for (const Session& session : sessions) {
      if (OpenIn(folder) != 1 || !session() || EndAPI() != 1) return 1;
      acknowledged();
    }
    return 0;
  }

  // The states before, between and after the sessions.
  std::vector<State> ExpectedStates(const std::vector<Session>& sessions) {
    CopyFolder("start", "expected");
    std::vector<State> states = {StateIn("expected")};
    for (const Session& session : sessions) {
      EXPECT_EQ(RunSessions("expected", {session}, [] {}), 0);
      states.push_back(StateIn("expected"));
    }
    return states;
  }

  State StateIn(const std::string& folder) {
    EXPECT_EQ(OpenIn(folder), 1);
    State state = TakeState(kanji_, kana_);
    EXPECT_EQ(EndAPI(), 1);
    return state;
  }

  // Runs the sessions in a child that crashes ahead of change `n`; the number of those acknowledged, -1 when
  // it came to the end.
  int Crash(long n, unsigned seed, const std::vector<Session>& sessions) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const int result = runAndCrash(n, seed, [&] {
      return RunSessions("crashed", sessions, [&] {
        if (write(ends[1], "+", 1) != 1) _exit(2);
      });
    });
    close(ends[1]);
    char acknowledged[64];
    const ssize_t count = read(ends[0], acknowledged, sizeof acknowledged);
    close(ends[0]);
    EXPECT_TRUE(result == kCrashed || result == 0) << "change " << n << " result " << result;
    return result == kCrashed ? static_cast<int>(count) : -1;
  }

  // Backups back into their places, as whoever opens a set has to see to.
  void PutBackupsBack() {
    PutBackIf("ej.idx.arrbkp", ".arrbkp", {"ej.idx", "ej.dic", "ej.ix3"});
    PutBackIf("kna.idx.arrbkp", ".arrbkp", FilesJ());
    PutBackIf("kji.idx.Bkup", ".Bkup", {"kji.idx"});
    PutBackIf("ej.idx.bkup", ".bkup", {"ej.idx"});
    PutBackIf("kna.idx.bkup", ".bkup", FilesJ());
    for (const std::string& name : FilesJ()) {
      if (!fs::exists(Prefix("crashed") + name)) PutBackIf(name + ".bkup", ".bkup", {name});
    }
  }

  // What was appended and never came into an index is cut off: where only parts of it reached the disk, the
  // last whole entry would seem to go on with them.
  void CutTails() {
    ASSERT_EQ(OpenIn("crashed"), 1);
    const Ends ends = FindEnds({kTypeE}, "ej.dic", {"ej.ix3"});
    const Ends endsJ = FindEnds({kTypeKana, kTypeKji}, "je.dic", {"kna.ix3", "kji.ix3"});
    ASSERT_EQ(EndAPI(), 1);
    for (const Ends& all : {ends, endsJ}) {
      for (const auto& [name, end] : all) {
        if (end < fs::file_size(Prefix("crashed") + name)) fs::resize_file(Prefix("crashed") + name, end);
      }
    }
  }

  // The crash at every change, each with another damage.
  void CrashEverywhere(const std::vector<Session>& sessions) {
    const std::vector<State> states = ExpectedStates(sessions);
    long crashes = 0;
    for (long n = 1;; ++n) {
      CopyFolder("start", "crashed");
      const int acknowledged = Crash(n, static_cast<unsigned>(n) + kSeed, sessions);
      if (acknowledged < 0) break;
      ++crashes;
      PutBackupsBack();
      CutTails();
      ASSERT_EQ(OpenIn("crashed"), 1) << "change " << n;
      const State state = TakeState(kanji_, kana_);
      const auto at = static_cast<size_t>(acknowledged);
      const State& before = states[at];
      const State& after = states[at + 1];
      ASSERT_TRUE(state.english == before.english || state.english == after.english) << "change " << n;
      ASSERT_TRUE(state.japanese == before.japanese || state.japanese == after.japanese) << "change " << n;
      if (n % 4 == 0) {
        GoOn(n, state);
      } else {
        ASSERT_EQ(EndAPI(), 1);
      }
    }
    EXPECT_GT(crashes, 20);
  }

  std::vector<std::string> kanji_;
  std::vector<std::string> kana_;

 private:
  static constexpr unsigned kSeed = 20;

  test::CrashStorage disk_{0, 0};  // for speed: it puts nothing on the real one

  using Ends = std::map<std::string, size_t>;

  // Where the last entry and, in each file of blocks, the last block end.
  Ends FindEnds(const std::vector<uint16_t>& types, const std::string& dic,
                const std::vector<std::string>& ix3) {
    Ends ends = {{dic, 128}};
    EXPECT_TRUE(OpenFsObjsUserE(false, true) && OpenFsObjsUserJ(false, true) == 1);
    const std::string text = test::readFile(Prefix("crashed") + dic);
    for (size_t i = 0; i < types.size(); ++i) {
      size_t& end = ends[ix3[i]] = 128;
      for (const idx3_offset& element : ListIdx3Offsets(types[i])) {
        if (element.offset == 0) continue;
        Ix3Block block;
        EXPECT_EQ(GetIdx3Data(element.offset, types[i], &block), 1);
        end = std::max(end, size_t{element.offset} + block.size);
        for (uint16_t row = 0; row < block.count; ++row) {
          ends[dic] = std::max(ends[dic], EntryEnd(text, block.view().entryOffset(row)));
        }
      }
    }
    CloseFsObjs();
    return ends;
  }

  // Behind the last line that an entry can hold.
  static size_t EntryEnd(const std::string& text, size_t at) {
    for (bool first = true;; first = false) {
      const std::string tag = text.substr(at, 2);
      const bool goesOn = first ? tag == "\xF5\xD1" : tag.size() == 2 && tag[0] == '\xF5' && tag[1] != '\xD1';
      const size_t line = text.find('\n', at);
      if (!goesOn || line == std::string::npos) return at;
      at = line + 1;
    }
  }

  static std::vector<std::string> FilesJ() {
    std::vector<std::string> names = {"kna.idx", "je.dic", "kna.ix3", "kji.ix3"};
    for (uint16_t number = 0; number <= 10; ++number) names.push_back(KjiIdxName(number));
    return names;
  }

  void PutBackIf(const std::string& marker, const std::string& suffix,
                 const std::vector<std::string>& names) {
    const std::string prefix = Prefix("crashed");
    const bool counts = fs::exists(prefix + marker);
    for (const std::string& name : names) {
      const std::string backup = prefix + name + suffix;
      if (!fs::exists(backup)) continue;
      if (counts) fs::copy_file(backup, prefix + name, fs::copy_options::overwrite_existing);
      if (suffix != ".bkup" || counts) fs::remove(backup);
    }
    // What was saved while the set was being arranged is of files that are gone.
    if (!counts || suffix != ".arrbkp") return;
    for (const std::string& name : names) fs::remove(prefix + name + ".bkup");
  }

  // The set is as good as ever.
  void GoOn(long n, const State& state) {
    ASSERT_EQ(ArrangeUserDicE(), 1) << n;
    ASSERT_EQ(ArrangeUserDicJ(), 1) << n;
    ASSERT_TRUE(TakeState(kanji_, kana_) == state) << n;
    ASSERT_EQ(Add(EntryE{.word = "afterwards"}), 1) << n;
    ASSERT_EQ(EndAPI(), 1) << n;
    ASSERT_EQ(OpenIn("crashed"), 1) << n;
    ASSERT_EQ(FindE("afterwards").size(), 1u) << n;
    ASSERT_EQ(EndAPI(), 1) << n;
  }
};

class UserSessionsTest : public UserCrashTest {
 protected:
  UserSessionsTest() {
    fs::create_directory(folder_.path() + "/start");
    EXPECT_EQ(OpenIn("start"), 1);
    EXPECT_EQ(Add(EntryE{.word = "cat", .imi = "猫"}), 1);
    EXPECT_EQ(Add(EntryE{.word = "catalog", .imi = "目録"}), 1);
    EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫", .imi = "cat"}), 1);
    EXPECT_EQ(Add(EntryJ{.kana = "ねこぜ", .kanji = "猫背", .imi = "stoop"}), 1);
    EXPECT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬", .imi = "dog"}), 1);
    EXPECT_EQ(EndAPI(), 1);
    kanji_ = {"猫", "猫背", "犬", "馬"};
  }
};

TEST_F(UserSessionsTest, AddingOneWordAfterTheOther) {
  CrashEverywhere({[] { return Add(EntryE{.word = "dog", .imi = "犬"}) == 1; },
                   [] { return Add(EntryE{.word = "cat", .imi = "ネコ"}) == 1; },
                   [] { return Add(EntryJ{.kana = "うま", .kanji = "馬", .imi = "horse"}) == 1; },
                   [] { return Add(EntryJ{.kana = "ねこ", .kanji = "猫", .imi = "pussy"}) == 1; }});
}

TEST_F(UserSessionsTest, ManyChangesInOneSession) {
  CrashEverywhere({[] {
    bool well = true;
    for (int i = 0; i < 12; ++i) {
      well = well && Add(EntryE{.word = "catal" + std::string(i, 'o'), .imi = "目録"}) == 1;
      well = well && Add(EntryJ{.kana = "うま", .kanji = "馬", .imi = "horse"}) == 1;
    }
    return well;
  }});
}

TEST_F(UserSessionsTest, OverwritingAndDeleting) {
  CrashEverywhere({[] {
                     auto found = FindE("cat");
                     return Add(EntryE{.word = "Cat", .imi = "三毛猫"}, &found.at(0).sikibetu) == 1;
                   },
                   [] {
                     auto found = FindJ("ねこ");
                     const EntryJ changed{.kana = "ねこ", .kanji = "猫", .imi = "tomcat"};
                     return Add(changed, &found.at(0).kana, &found.at(0).kanji) == 1;
                   },
                   [] { return DelUserDicE(&FindE("catalog").at(0).sikibetu) == 1; },
                   [] {
                     const auto found = FindJ("ねこぜ");
                     return DelUserDicJ(&found.at(0).kana, &found.at(0).kanji) == 1;
                   }});
}

TEST_F(UserSessionsTest, Arranging) {
  CrashEverywhere({[] { return DelUserDicE(&FindE("cat").at(0).sikibetu) == 1; },
                   [] { return ArrangeUserDicE() == 1; },
                   [] {
                     const auto found = FindJ("いぬ");
                     return DelUserDicJ(&found.at(0).kana, &found.at(0).kanji) == 1;
                   },
                   [] { return ArrangeUserDicJ() == 1; }});
}

// A kanji index of 10,000 rows: the next new form moves it aside.
class FullKanjiIndexTest : public UserCrashTest {
 protected:
  FullKanjiIndexTest() {
    fs::create_directory(folder_.path() + "/start");
    const std::string start = Prefix("start");
    std::string dic(128, '\0');
    std::vector<test::IndexRow> kana;
    std::vector<test::IndexRow> kanji;
    // Pairs of a hundred kanji of level 1, under 1,600 readings of two kana.
    for (int i = 0; i < 10000; ++i) {
      const std::string form = Kanji(i / 100) + Kanji(i % 100);
      const std::string key = {static_cast<char>(0x9F + i % 40), static_cast<char>(0x9F + i / 40 % 40)};
      const std::string reading = {'\x82', key[0], '\x82', key[1]};
      kana.push_back({key, static_cast<uint32_t>(dic.size())});
      kanji.push_back({form, static_cast<uint32_t>(dic.size())});
      dic += "\xF5\xD1" + reading + "\x1B" + form + "\n\xF5\xD4" + "two kanji\n";
    }
    kanji_ = {test::utf8(Kanji(43) + Kanji(21)), "馬"};
    kana_ = {"ああ", "うか"};
    const test::IndexFiles kna = test::writeIndex(kTypeKana, kana, true);
    const test::IndexFiles kji = test::writeIndex(kTypeKji, kanji, true);
    test::writeFile(start + "je.dic", dic);
    test::writeFile(start + "kna.idx", kna.idx);
    test::writeFile(start + "kna.ix3", kna.ix3);
    test::writeFile(start + "kji.idx", kji.idx);
    test::writeFile(start + "kji.ix3", kji.ix3);
    EXPECT_EQ(OpenIn("start"), 1);  // makes the English set
    EXPECT_EQ(GetKjiIdxWordCnt(), 10000u);
    EXPECT_EQ(EndAPI(), 1);
  }

  static std::string Kanji(int i) {
    const int trail = 0x9F + i;
    return trail <= 0xFC ? std::string{'\x88', static_cast<char>(trail)}
                         : std::string{'\x89', static_cast<char>(0x40 + trail - 0xFD)};
  }
};

TEST_F(FullKanjiIndexTest, MovingItAside) {
  CrashEverywhere({[] { return Add(EntryJ{.kana = "うか", .kanji = "馬", .imi = "horse"}) == 1; }});
}

}  // namespace
}  // namespace zavel::engine
