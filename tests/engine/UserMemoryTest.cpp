// User sets without memory: each request for some is refused once. The call answers 17, the set is as it was,
// and the engine goes on.
#include <deque>
#include <functional>

#include "engine/RamDicFixture.h"
#include "engine/SaveIdx1.h"
#include "engine/UserFrame.h"
#include "support/FailingMemory.h"

namespace zavel::engine {
namespace {

using test::refuseEachRequest;
using test::sjis;

// Made ahead of a call, so that the call itself is all that asks for memory.
struct ReadyE {
  std::string word, imi = sjis("意味"), eng = "eng", jpn = sjis("例");
  yourei example{eng.data(), jpn.data()};
  yourei* examples[1] = {&example};
  add_dic_e entry{};

  explicit ReadyE(const std::string& text) : word(text) {
    entry = {word.data(), 1, 1, imi.data(), nullptr, 1, examples, nullptr};
  }
};
struct ReadyJ {
  std::string kana, kanji, imi = "meaning", eng = "eng", jpn = sjis("例");
  kurei phrase{eng.data(), jpn.data()};
  kurei* phrases[1] = {&phrase};
  add_dic_j entry{};

  ReadyJ(const std::string& reading, const std::string& form) : kana(sjis(reading)), kanji(sjis(form)) {
    entry = {kana.data(), kanji.data(), imi.data(), 1, phrases, 0, nullptr, nullptr, nullptr};
  }
};

class UserMemoryTest : public RamDicTest {
 protected:
  // Each refused run must answer 17 and leave what `look` sees as it was; the run that gets all answers 1.
  int RefuseEach(const std::function<Status()>& call, const std::function<size_t()>& look) {
    const size_t before = look();
    Status status = 0;
    return refuseEachRequest([&] { status = call(); },
                             [&](bool refused) {
                               EXPECT_EQ(status, refused ? 17 : 1);
                               EXPECT_TRUE(!refused || look() == before);
                               EXPECT_EQ(g_ProcessInfo->stateE + g_ProcessInfo->stateJ, 0);
                             });
  }
};

TEST_F(UserMemoryTest, AddingOverwritingAndDeletingEnglish) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ReadyE ready("catalog");
  const auto look = [] { return ReadState().english.size(); };
  EXPECT_GE(RefuseEach([&] { return AddUserDicE(&ready.entry); }, look), 5);
  auto found = FindE("catalog");
  ready.entry.sikibetu = &found[0].sikibetu;
  EXPECT_GE(RefuseEach([&] { return AddUserDicE(&ready.entry); }, look), 5);
  found = FindE("catalog");
  EXPECT_GE(RefuseEach([&] { return DelUserDicE(&found[0].sikibetu); }, look), 5);
  EXPECT_EQ(ListE(), std::vector<std::string>{"cat"});
}

TEST_F(UserMemoryTest, AddingOverwritingAndDeletingJapanese) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ReadyJ ready("ねこか", "猫科");
  const auto look = [] { return ReadState().japanese.size(); };
  EXPECT_GE(RefuseEach([&] { return AddUserDicJ(&ready.entry); }, look), 10);
  auto found = FindJ("ねこか");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_NE(found[0].kanji.pos1, 0xFFFF);
  ready.entry.sikibetuKana = &found[0].kana;
  ready.entry.sikibetuKanji = &found[0].kanji;
  EXPECT_GE(RefuseEach([&] { return AddUserDicJ(&ready.entry); }, look), 10);
  found = FindJ("ねこか");
  EXPECT_GE(RefuseEach([&] { return DelUserDicJ(&found[0].kana, &found[0].kanji); }, look), 10);
  EXPECT_EQ(ListJ(), std::vector<std::string>{"ねこ"});
  Reopen();
  ASSERT_EQ(ArrangeUserDicJ(), 1) << "no kanji row is left without its kana row";
}

TEST_F(UserMemoryTest, SearchingAndListing) {
  ASSERT_EQ(Add(EntryE{.word = "cat", .youreis = {{"a", "い"}}}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫", .kureis = {{"a", "い"}}, .bunreis = {{"b", "ろ"}}}), 1);
  const std::string kana = sjis("ねこ");
  uint16_t count = 0;
  uint32_t size = 0;
  Handle list = nullptr;
  const std::function<Status()> calls[] = {
      [&] { return SerchUserDicE("cat", nullptr, &count, &list); },
      [&] { return SerchUserDicJ(kana.c_str(), nullptr, &count, &list); },
      [&] { return GetListUserDicE(&count, &list, &size); },
      [&] { return GetListUserDicJ(&count, &list, &size); },
  };
  for (const auto& call : calls) {
    Status status = 0;
    // Sorting does without the memory that it would like to have.
    const int refusals = refuseEachRequest([&] { status = call(); },
                                           [&](bool refused) {
                                             EXPECT_TRUE(status == 1 || (refused && status == 17));
                                             EXPECT_EQ(count, status == 1 ? 1 : 0);
                                             EXPECT_EQ(list != nullptr, status == 1);
                                             GlobalFree(list);
                                           });
    EXPECT_GE(refusals, 5);
  }
}

// EndAPI closes the engine whatever it answers; the files then hold the set before or after, with their
// backups.
TEST_F(UserMemoryTest, EndAPI) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  const auto files = disk_.files();
  ASSERT_EQ(OpenBoth(), 1);
  const auto addBoth = [] {
    ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
    ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  };
  addBoth();
  Status status = 0;
  const int refusals =
      refuseEachRequest([&] { status = EndAPI(); },
                        [&](bool refused) {
                          EXPECT_EQ(status, refused ? 17 : 1);
                          Recover();
                          ASSERT_EQ(OpenBoth(), 1);
                          const UserState state = ReadState();
                          EXPECT_TRUE(state.english.size() == 1 || state.english.size() == 2);
                          EXPECT_TRUE(state.japanese.size() == 1 || state.japanese.size() == 2);
                          EXPECT_TRUE(refused || state.english.size() + state.japanese.size() == 4);
                          for (const auto& [entry, kanji] : state.japanese) EXPECT_TRUE(kanji);
                          EXPECT_EQ(ArrangeUserDicJ(), 1);
                          EndAPI();
                          disk_.setFiles(files);
                          ASSERT_EQ(OpenBoth(), 1);
                          addBoth();
                        });
  EXPECT_GE(refusals, 20);
}

// A save that was refused has its backup as long as it counts as unfinished: the next one makes none.
TEST_F(UserMemoryTest, SavingTogether) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  Status status = 0;
  const int refusals = refuseEachRequest([&] { status = NoMemoryAsStatus(SaveIdx1sJ); },
                                         [&](bool refused) {
                                           EXPECT_EQ(status, refused ? 17 : 1);
                                           EXPECT_TRUE(!g_sUserKna.unfinished || Exists("kna.idx.bkup"));
                                           EXPECT_TRUE(!g_sUserKji.unfinished || Exists("kji.idx.bkup"));
                                         });
  EXPECT_GE(refusals, 20);
  Reopen();
  EXPECT_EQ(FindJ("ねこ").size(), 1u);
  EXPECT_EQ(Files().size(), 8u);
}

// A full kanji index is in its place whatever is refused while it is moved aside.
TEST_F(UserMemoryTest, MovingAFullKanjiIndexAside) {
  ASSERT_EQ(EndAPI(), 1);
  std::string rows;
  for (int row = 0; row < 10000; ++row) {
    rows += {static_cast<char>(0x81 + row / 256), static_cast<char>(row & 0xFF)};
    rows += Le32(0);
  }
  const std::string full =
      std::string(128, '\0') + Le32(4) + Le32(140) + "\xE0\x40" + Le16(0) + Le32(60000) + rows;
  SetFile("kji.idx", full);
  const auto files = disk_.files();
  ASSERT_EQ(OpenBoth(), 1);
  ReadyJ ready("ねこ", "猫");
  Status status = 0;
  const int refusals = refuseEachRequest([&] { status = AddUserDicJ(&ready.entry); },
                                         [&](bool refused) {
                                           EXPECT_EQ(status, refused ? 17 : 1);
                                           EXPECT_TRUE(Exists("kji.idx"));
                                           EXPECT_FALSE(Exists("kji.idx.Bkup"));
                                           const bool moved = File("kji.idx") != full;
                                           EXPECT_TRUE(!moved || File("001.idx") == full);
                                           EndAPI();
                                           ASSERT_EQ(OpenBoth(), 1);
                                           EXPECT_EQ(FindJ("ねこ").size(), refused ? 0u : 1u);
                                           ASSERT_EQ(EndAPI(), 1);
                                           disk_.setFiles(files);
                                           ASSERT_EQ(OpenBoth(), 1);
                                         });
  EXPECT_GE(refusals, 30);
}

// What was refused while arranging is in the backups, and nothing is saved over it afterwards.
TEST_F(UserMemoryTest, Arranging) {
  for (const char* word : {"cat", "dog"}) ASSERT_EQ(Add(EntryE{.word = word}), 1);
  for (const char* kana : {"ねこ", "いぬ"}) ASSERT_EQ(Add(EntryJ{.kana = kana, .kanji = "犬猫"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  const auto files = disk_.files();
  ASSERT_EQ(OpenBoth(), 1);
  const UserState whole = ReadState();
  for (const auto arrange : {ArrangeUserDicE, ArrangeUserDicJ}) {
    Status status = 0;
    const int refusals = refuseEachRequest([&] { status = arrange(); },
                                           [&](bool refused) {
                                             EXPECT_EQ(status, refused ? 17 : 1);
                                             const bool goesOn = Add(EntryE{.word = "late"}) == 1;
                                             const Status ended = EndAPI();
                                             EXPECT_EQ(ended, goesOn ? 1 : 20);
                                             Recover();
                                             ASSERT_EQ(OpenBoth(), 1);
                                             UserState found = ReadState();
                                             if (goesOn) {
                                               ASSERT_EQ(found.english.size(), 3u)
                                                   << "what was added with success is there";
                                               found.english.pop_back();
                                             }
                                             EXPECT_TRUE(found == whole);
                                             ASSERT_EQ(EndAPI(), 1);
                                             disk_.setFiles(files);
                                             ASSERT_EQ(OpenBoth(), 1);
                                           });
    EXPECT_GE(refusals, 50);
  }
}

}  // namespace
}  // namespace zavel::engine
