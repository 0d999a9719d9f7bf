// The ten functions of user dictionaries in every state of the engine.
#include <functional>

#include "engine/KjiIdx.h"
#include "engine/RamDicFixture.h"
#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::sjis;

class UserFrameTest : public RamDicTest {
 protected:
  struct Call {
    const char* name;
    bool english;
    bool arranges;
    std::function<Status()> call;
  };
  // Each with arguments that are sound; identifications that name nothing.
  std::vector<Call> Calls() {
    const auto serch = [this](auto function, const std::string& word) {
      return [this, function, word] { return function(word.c_str(), nullptr, &count_, &list_); };
    };
    const auto list = [this](auto function) {
      return [this, function] { return function(&count_, &list_, &size_); };
    };
    return {{"AddUserDicE", true, false, [] { return Add(EntryE{.word = "cat"}); }},
            {"SerchUserDicE", true, false, serch(SerchUserDicE, "dog")},
            {"GetListUserDicE", true, false, list(GetListUserDicE)},
            {"DelUserDicE", true, false, [this] { return DelUserDicE(&any_); }},
            {"ArrangeUserDicE", true, true, ArrangeUserDicE},
            {"AddUserDicJ", false, false, [] { return Add(EntryJ{.kana = "ねこ", .kanji = "猫"}); }},
            {"SerchUserDicJ", false, false, serch(SerchUserDicJ, sjis("いぬ"))},
            {"GetListUserDicJ", false, false, list(GetListUserDicJ)},
            {"DelUserDicJ", false, false, [this] { return DelUserDicJ(&any_, &any_); }},
            {"ArrangeUserDicJ", false, true, ArrangeUserDicJ}};
  }

  uint16_t count_ = 0;
  uint32_t size_ = 0;
  Handle list_ = nullptr;
  sikibetu_data any_{};
};

TEST_F(UserFrameTest, WithoutItsSetACallIs258Or259) {
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(InitAPI(folder_.prefix().c_str(), nullptr, nullptr), 1);
  for (const Call& call : Calls()) EXPECT_EQ(call.call(), call.english ? 258 : 259) << call.name;
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenE(), 1);
  for (const Call& call : Calls()) {
    EXPECT_TRUE(call.english || call.call() == 259) << call.name;
  }
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenJ(), 1);
  for (const Call& call : Calls()) {
    EXPECT_TRUE(!call.english || call.call() == 258) << call.name;
  }
}

TEST_F(UserFrameTest, OnAnEngineNeverOpenedThereIsNoSet) {
  EndAPI();
  InitGlobalVal();
  for (const Call& call : Calls()) EXPECT_EQ(call.call(), call.english ? 258 : 259) << call.name;
}

TEST_F(UserFrameTest, OnAClosedEngineTheFilesCannotBeOpened) {
  ASSERT_EQ(EndAPI(), 1);
  for (const Call& call : Calls())
    EXPECT_EQ(call.call(), call.arranges ? 20 : call.english ? 258 : 259) << call.name;
}

TEST_F(UserFrameTest, WhereFilesAreGoneACallIs258Or259) {
  disk_.removeFile("uej.dic");
  disk_.removeFile("uje.dic");
  for (const Call& call : Calls()) {
    EXPECT_EQ(call.call(), call.arranges ? 21 : call.english ? 258 : 259) << call.name;
    EXPECT_EQ(g_ProcessInfo->stateE + g_ProcessInfo->stateJ, 0) << call.name;
  }
}

// A reader that never left keeps writers out; a writer everyone.
TEST_F(UserFrameTest, WhatIsRunningRefusesOthersWith35) {
  ASSERT_EQ(CheckInMP(kCodeSerchUserDicE), 1);
  for (const Call& call : Calls()) {
    const bool reads =
        std::string(call.name).starts_with("Serch") || std::string(call.name).starts_with("GetList");
    EXPECT_EQ(call.call(), reads ? 1 : 35) << call.name;
  }
  EXPECT_EQ(g_ProcessInfo->readersE, 1);
  ASSERT_EQ(CheckOutMP(kCodeSerchUserDicE), 1);
  ASSERT_EQ(CheckInMP(kCodeAddUserDicJ), 1);
  for (const Call& call : Calls()) EXPECT_EQ(call.call(), 35) << call.name;
  ASSERT_EQ(CheckOutMP(kCodeAddUserDicJ), 1);
  for (const Call& call : Calls()) {
    const bool deletes = std::string(call.name).starts_with("Del");
    EXPECT_EQ(call.call(), deletes ? 18 : 1) << call.name;
    EXPECT_EQ(
        g_ProcessInfo->stateE + g_ProcessInfo->stateJ + g_ProcessInfo->readersE + g_ProcessInfo->readersJ, 0);
    GlobalFree(std::exchange(list_, nullptr));
  }
}

// The header of kji.idx is read again by every writer. One that can't be read must not hide the continuation
// indexes that are loaded: EndAPI would leave them unsaved.
TEST_F(UserFrameTest, AHeaderThatCannotBeReadLeavesTheCountAlone) {
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  SetFile("001.idx", File("kji.idx"));
  SetFile("kji.idx", std::string(10, '\0') + "\x01" + std::string(117, '\0') + Le32(0) + Le32(136) + Le32(0));
  ASSERT_EQ(OpenBoth(), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  {
    test::FaultyStorage disk;
    disk.failAt(6, test::FaultyStorage::kForEver);  // behind the five that open the set
    EXPECT_EQ(Add(EntryJ{.kana = "ねこ"}), 259);
    EXPECT_EQ(disk.history()[5].substr(0, 7), "readAt ");
  }
  EXPECT_EQ(KjiIdxCount(), 1);
  Reopen();
  EXPECT_EQ(FindJ("いぬ")[1].kanji.fileNo, 1);
}

}  // namespace
}  // namespace zavel::engine
