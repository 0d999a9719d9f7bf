#include <gtest/gtest.h>

#include "lookup/LookupTesting.h"
#include "lookup/MirellModule.h"

namespace zavel::test {
namespace {

std::string long4(uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<char>(number >> shift));
  return bytes;
}

// Applications that a test sets up and looks into afterwards.
class Programs : public Applications {
 public:
  std::optional<ProcessNumber> find(const std::string& creator, const std::string& type) override {
    EXPECT_EQ(creator, "ZXds");
    EXPECT_EQ(type, "APPL");
    if (!running) return std::nullopt;
    return ProcessNumber{1, 2};
  }
  int launch(const std::string& path, bool wait, ProcessNumber* process) override {
    launched.push_back(path);
    EXPECT_TRUE(wait);
    *process = {3, 4};
    return launchResult;
  }
  SendResult send(const ProcessNumber& process, const Message& message, Message* reply) override {
    sentTo = process;
    sent.push_back(message);
    EXPECT_NE(reply, nullptr);
    reply->parameters = answer;
    return sendResult;
  }

  bool running = true;
  int launchResult = 1;
  SendResult sendResult = SendResult::kSent;
  std::vector<MessageParameter> answer = {{"----", "long", long4(1)}};

  std::vector<std::string> launched;
  ProcessNumber sentTo;
  std::vector<Message> sent;
};

using Lines = std::vector<std::string>;

class MirellLookup : public testing::Test {
 protected:
  MirellLookup() { platform_.programs = &programs; }

  std::optional<std::string> lookUp() { return MirellModule::mirellLookup("take", 3, true, 12, "cache1"); }

  // The lines logged for an answer of that number, or what was returned.
  void expectAnswer(int32_t number, const Lines& lines) {
    programs.answer = {{"----", "long", long4(static_cast<uint32_t>(number))}};
    LogLines::lines.clear();
    const std::optional<std::string> result = lookUp();
    EXPECT_EQ(LogLines::lines, lines) << number;
    EXPECT_EQ(result.has_value(), lines.empty()) << number;
  }

  TestPlatform platform_;
  PathTable table{"/dictionaries", "/helpers/Kenkyu"};
  LogLines log;
  Programs programs;
};

TEST_F(MirellLookup, AsksTheRunningHelper) {
  EXPECT_EQ(lookUp(), table.cacheFolder() + "/cache1");
  EXPECT_TRUE(programs.launched.empty());
  EXPECT_EQ(programs.sentTo.high, 1u);
  EXPECT_EQ(programs.sentTo.low, 2u);
  EXPECT_EQ(LogLines::lines, Lines{});
}

TEST_F(MirellLookup, SendsTheFourParameters) {
  MirellModule::mirellLookup(sjis("みち"), 5, false, 300, "結果");
  ASSERT_EQ(programs.sent.size(), 1u);
  const Message& message = programs.sent[0];
  EXPECT_EQ(message.eventClass, "misc");
  EXPECT_EQ(message.eventId, "dsJE");
  ASSERT_EQ(message.parameters.size(), 4u);
  EXPECT_EQ(message.parameters[0].keyword, "file");
  EXPECT_EQ(message.parameters[0].type, "TEXT");
  EXPECT_EQ(message.parameters[0].value, sjis("結果"));
  EXPECT_EQ(message.parameters[1].keyword, "mode");
  EXPECT_EQ(message.parameters[1].type, "long");
  EXPECT_EQ(message.parameters[1].value, raw("\0\0\0\x05"));
  EXPECT_EQ(message.parameters[2].keyword, "qury");
  EXPECT_EQ(message.parameters[2].type, "TEXT");
  EXPECT_EQ(message.parameters[2].value, sjis("みち"));
  EXPECT_EQ(message.parameters[3].keyword, "size");
  EXPECT_EQ(message.parameters[3].type, "long");
  EXPECT_EQ(message.parameters[3].value, raw("\0\0\x01\x2C"));
}

TEST_F(MirellLookup, TellsTheDirectionByTheEventsId) {
  lookUp();
  EXPECT_EQ(programs.sent[0].eventId, "dsEJ");
}

TEST_F(MirellLookup, StartsTheHelperThatDoesNotRun) {
  programs.running = false;
  EXPECT_EQ(lookUp(), table.cacheFolder() + "/cache1");
  EXPECT_EQ(programs.launched, (Lines{"/helpers/Kenkyu"}));
  EXPECT_EQ(programs.sentTo.high, 3u);
  EXPECT_EQ(programs.sentTo.low, 4u);
}

TEST_F(MirellLookup, LogsTwoWhenTheHelperDoesNotStart) {
  programs.running = false;
  for (const int result : {0, -1, 2}) {
    LogLines::lines.clear();
    programs.launchResult = result;
    EXPECT_EQ(lookUp(), std::nullopt);
    EXPECT_EQ(LogLines::lines, (Lines{"Lookup error : 2"}));
  }
  EXPECT_TRUE(programs.sent.empty());
}

TEST_F(MirellLookup, MapsTheHelpersAnswers) {
  expectAnswer(1, {});
  expectAnswer(0x7FFFFFFF, {});
  expectAnswer(0, {"Lookup error : 1"});
  expectAnswer(-1, {"Lookup error : 3"});
  expectAnswer(-2, {"Lookup error : 3"});
  expectAnswer(-3, {"Lookup error : 3"});
  expectAnswer(-4, {"Lookup error : 4"});
  expectAnswer(-5, {"Lookup error : 5"});
  expectAnswer(-6, {});
  expectAnswer(-0x7FFFFFFF, {});
}

TEST_F(MirellLookup, LogsFourOrFiveWhenTheMessageDoesNotGoOut) {
  programs.sendResult = SendResult::kNotSent;
  EXPECT_EQ(lookUp(), std::nullopt);
  programs.sendResult = SendResult::kNotBuilt;
  EXPECT_EQ(lookUp(), std::nullopt);
  EXPECT_EQ(LogLines::lines, (Lines{"Lookup error : 4", "Lookup error : 5"}));
}

TEST_F(MirellLookup, LogsFiveForAnAnswerThatCannotBeRead) {
  const std::vector<std::vector<MessageParameter>> answers = {
      {},
      {{"errn", "long", long4(1)}},
      {{"----", "TEXT", long4(1)}},
      {{"----", "long", raw("\0\0\x01")}},
  };
  for (const auto& answer : answers) {
    LogLines::lines.clear();
    programs.answer = answer;
    EXPECT_EQ(lookUp(), std::nullopt);
    EXPECT_EQ(LogLines::lines, (Lines{"Lookup error : 5"}));
  }
}

TEST(MirellLookupPaths, AHelperThatThePathTableDoesNotNameDoesNotStart) {
  TestPlatform platform;
  Programs programs;
  programs.running = false;
  platform.programs = &programs;
  const PathTable table("/dictionaries", "");
  LogLines log;
  EXPECT_EQ(MirellModule::mirellLookup("take", 0, true, 12, "cache1"), std::nullopt);
  EXPECT_EQ(LogLines::lines, (Lines{"Lookup error : 2"}));
  EXPECT_TRUE(programs.launched.empty());
}

TEST(MirellLookupPaths, WithoutACacheFolderThereIsNoResult) {
  TestPlatform platform;
  Programs programs;
  platform.programs = &programs;
  const PathTable table("/dictionaries", "/helpers/Kenkyu", false);
  LogLines log;
  EXPECT_EQ(MirellModule::mirellLookup("take", 0, true, 12, "cache1"), std::nullopt);
  EXPECT_EQ(LogLines::lines, (Lines{"Lookup error : 5"}));
}

}  // namespace
}  // namespace zavel::test
