#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "config/ConfigTest.h"
#include "config/TwcServices.h"
#include "config/WTModule.h"
#include "config/ZavelCommonModule.h"
#include "config/ZavelPath.h"

namespace zavel::test {
namespace {

using Module = ZavelCommonModule;
using Lines = std::vector<std::string>;

RunningApplication application(uint32_t low, const char* creator, const char* name, const char* path) {
  return {{0, low}, creator, "APPL", name, path};
}

std::string text(const ProcessNumber& process) {
  return std::to_string(process.high) + "." + std::to_string(process.low);
}

std::string text(const TwcProcessNumber& process) {
  return std::to_string(process.high) + "." + std::to_string(process.low);
}

std::string taken(char* string) {
  const std::unique_ptr<char, decltype(&std::free)> owner(string, &std::free);
  return string ? string : "(null)";
}

class Processes : public ConfigTest {
 protected:
  Processes() {
    running.list = {application(3, "zFQ8", "Mail", "/Apps/Mail.app"),
                    application(5, "zVX8", "Browser", "/Apps/The Browser.app"),
                    application(9, "zQN8", "Editor", "/Apps/Editor.app")};
    running.list.push_back({{1, 0}, "zQN8", "APPL", "Editor", "/Other/Editor.app"});
  }

  FakeApplications& running = platform.fakeApplications;
  ProcessNumber process{7, 7};
};

// --- Looking ---

TEST_F(Processes, AreFoundByCreatorAndType) {
  EXPECT_EQ(Module::getPSN2Creator("zVX8", "APPL", &process), 0);
  EXPECT_EQ(text(process), "0.5");
  EXPECT_EQ(Module::getPSN2Creator("zQN8", "APPL", &process), 0);
  EXPECT_EQ(text(process), "0.9");  // the first
}

TEST_F(Processes, ThatDoNotRunAreMinus600) {
  EXPECT_EQ(Module::getPSN2Creator("zVX8", "FNDR", &process), -600);
  EXPECT_EQ(text(process), "0.0");
  EXPECT_EQ(Module::getPSN2Creator("yVX8", "APPL", &process), -600);
  process = {7, 7};
  EXPECT_EQ(Module::getPSN2Name("browser", &process), -600);
  EXPECT_EQ(text(process), "0.0");
}

TEST_F(Processes, AreFoundByName) {
  EXPECT_EQ(Module::getPSN2Name("Browser", &process), 0);
  EXPECT_EQ(text(process), "0.5");
}

TEST_F(Processes, AreSteppedThroughFromNumber0) {
  Lines steps;
  process = {};
  while (!Module::getNextPSN(&process)) steps.push_back(text(process));
  EXPECT_EQ(steps, (Lines{"0.3", "0.5", "0.9", "1.0"}));
  EXPECT_EQ(text(process), "0.0");
}

TEST_F(Processes, OneThatEndedBetweenTwoStepsIsPassedOver) {
  process = {0, 5};
  running.list.erase(running.list.begin() + 1, running.list.begin() + 3);
  EXPECT_FALSE(Module::getNextPSN(&process));
  EXPECT_EQ(text(process), "1.0");
  running.list.clear();
  EXPECT_TRUE(Module::getNextPSN(&process));
}

TEST_F(Processes, AreFoundByTheFileNameOfTheirBundle) {
  EXPECT_TRUE(Module::targetApplicationName("The Browser.app", &process));
  EXPECT_EQ(text(process), "0.5");
  process = {7, 7};
  EXPECT_FALSE(Module::targetApplicationName("Browser", &process));  // that is its own name
  EXPECT_FALSE(Module::targetApplicationName("The Browser.ap", &process));
  EXPECT_EQ(text(process), "7.7");
  running.list = {application(1, "zVX8", "Browser", "")};
  EXPECT_FALSE(Module::targetApplicationName("", &process));
}

// --- Starting ---

TEST_F(Processes, AStartThatFailsIsMinus1) {
  running.canStart = false;
  EXPECT_EQ(Module::launchedApplication("/Apps/Mail.app", &process, true), -1);
  EXPECT_EQ(running.started, Lines{"/Apps/Mail.app|front"});
  EXPECT_TRUE(running.pauses.empty());
  EXPECT_EQ(Module::launchedApplication("", &process, true), -1);
  EXPECT_EQ(running.started.size(), 1u);
  EXPECT_EQ(text(process), "7.7");
}

TEST_F(Processes, OneThatRunsAfterItsStartIs1) {
  running.comingUp = application(20, "abcd", "New", "/Apps/New.app");
  EXPECT_EQ(Module::launchedApplication("/Apps/New.app", &process, false), 1);
  EXPECT_EQ(text(process), "0.20");
  EXPECT_EQ(Module::launchedApplication("/Apps/New.app//", &process, true), 1);
  EXPECT_TRUE(running.pauses.empty());
}

TEST_F(Processes, WithoutWaitingOneThatIsNotUpYetIs0) {
  running.comingUp = application(20, "abcd", "New", "/Apps/New.app");
  running.pausesBefore = 1;
  EXPECT_EQ(Module::launchedApplication("/Apps/New.app", &process, false), 0);
  EXPECT_TRUE(running.pauses.empty());
  EXPECT_EQ(text(process), "7.7");
}

TEST_F(Processes, WaitingLooksAgainEvery3Seconds) {
  running.comingUp = application(20, "abcd", "New", "/Apps/New.app");
  running.pausesBefore = 4;
  EXPECT_EQ(Module::launchedApplication("/Apps/New.app", &process, true), 1);
  EXPECT_EQ(text(process), "0.20");
  EXPECT_EQ(running.pauses, (std::vector<double>{3, 3, 3, 3}));
}

TEST_F(Processes, WaitingLooks20TimesAndNoMore) {
  running.comingUp = application(20, "abcd", "New", "/Apps/New.app");
  running.pausesBefore = 20;
  EXPECT_EQ(Module::launchedApplication("/Apps/New.app", &process, true), 1);
  EXPECT_EQ(running.pauses, std::vector<double>(20, 3.0));

  running.comingUp = application(21, "abcd", "Late", "/Apps/Late.app");
  running.pauses.clear();
  running.pausesBefore = 21;
  EXPECT_EQ(Module::launchedApplication("/Apps/Late.app", &process, true), 0);
  EXPECT_EQ(running.pauses.size(), 20u);
}

// --- The flat services ---

TEST_F(Processes, TheFlatLookupsAnswerTheSame) {
  TwcProcessNumber number{7, 7};
  EXPECT_EQ(twcGetPSN2("zVX8", "APPL", &number), 0);
  EXPECT_EQ(text(number), "0.5");
  EXPECT_EQ(twcGetPSN2("zzzz", "APPL", &number), -600);
  EXPECT_EQ(text(number), "0.0");
  EXPECT_EQ(twcGetPSN2(nullptr, nullptr, &number), -600);
  EXPECT_EQ(twcGetProcessSerialNumberByName("Mail", &number), 0);
  EXPECT_EQ(text(number), "0.3");
  EXPECT_EQ(twcGetProcessSerialNumberByName("Nothing", &number), -600);
  EXPECT_EQ(twcGetProcessSerialNumberByName(nullptr, &number), -600);
  EXPECT_TRUE(twcIsLaunchedApp("zFQ8", "APPL"));
  EXPECT_FALSE(twcIsLaunchedApp("zFQ8", "FNDR"));
  Lines steps;
  for (number = {0, 0}; !twcGetNextPSN(&number);) steps.push_back(text(number));
  EXPECT_EQ(steps, (Lines{"0.3", "0.5", "0.9", "1.0"}));
}

TEST_F(Processes, OneLookupThrowsMinus600) {
  TwcProcessNumber number{7, 7};
  twcGetPSN("zVX8", "APPL", &number);
  EXPECT_EQ(text(number), "0.5");
  try {
    twcGetPSN("zzzz", "APPL", &number);
    FAIL() << "nothing was thrown";
  } catch (int32_t error) {
    EXPECT_EQ(error, -600);
  }
}

TEST_F(Processes, ThisProgramIsKnownByThePlatform) {
  running.self = running.list[1];
  TwcProcessNumber number{7, 7};
  EXPECT_EQ(twcGetMyPSN(&number), 0);
  EXPECT_EQ(text(number), "0.5");
  EXPECT_EQ(taken(twcGetCurrentFSSpec()), "/Apps/The Browser.app");
  EXPECT_EQ(taken(twcGetCurrentCreator()), "zVX8");
}

TEST_F(Processes, AnUnknownProgramHasNeitherNumberNorPath) {
  TwcProcessNumber number{7, 7};
  EXPECT_EQ(twcGetMyPSN(&number), -600);
  EXPECT_EQ(text(number), "0.0");
  EXPECT_EQ(twcGetCurrentFSSpec(), nullptr);
  EXPECT_EQ(twcGetCurrentCreator(), nullptr);
  EXPECT_EQ(twcMakeMeFront(), -600);
  EXPECT_FALSE(twcIsMyTopPSN());
  running.self = RunningApplication{{0, 5}, "", "", "", ""};
  EXPECT_EQ(twcGetCurrentFSSpec(), nullptr);
  EXPECT_EQ(twcGetCurrentCreator(), nullptr);
}

TEST_F(Processes, ComeForward) {
  running.self = running.list[0];
  EXPECT_EQ(twcMakeMeFront(), 0);
  const TwcProcessNumber editor{1, 0}, none{0, 4};
  EXPECT_EQ(twcSetFront(&editor), 0);
  EXPECT_EQ(twcSetFront(&none), -600);
  EXPECT_EQ(running.calls, (Lines{"front 0.3", "front 1.0", "front 0.4"}));
}

TEST_F(Processes, ThisProgramIsOnTopWhenItIsInFront) {
  running.self = running.list[0];
  EXPECT_FALSE(twcIsMyTopPSN());
  running.inFront = ProcessNumber{0, 5};
  EXPECT_FALSE(twcIsMyTopPSN());
  running.inFront = ProcessNumber{0, 3};
  EXPECT_TRUE(twcIsMyTopPSN());
}

TEST_F(Processes, AProgramIsStartedInFrontOrBehind) {
  EXPECT_EQ(LaunchTargetApplication("/Apps/A.app", true), 0);
  EXPECT_EQ(LaunchTargetApplication("/Apps/B.app", false), 0);
  EXPECT_EQ(running.started, (Lines{"/Apps/A.app|front", "/Apps/B.app"}));
  EXPECT_EQ(LaunchTargetApplication(nullptr, true), -50);
  EXPECT_EQ(LaunchTargetApplication("", true), -50);
  running.canStart = false;
  EXPECT_EQ(LaunchTargetApplication("/Apps/A.app", true), -1);
}

// --- What a platform answers that knows less ---

class FewApplications : public Applications {
 public:
  std::optional<ProcessNumber> find(const std::string&, const std::string&) override { return std::nullopt; }
  int launch(const std::string& path, bool wait, ProcessNumber* process) override {
    EXPECT_FALSE(wait);
    *process = {1, 1};
    return path == "/starts" ? 0 : -1;
  }
  SendResult send(const ProcessNumber&, const Message&, Message*) override { return SendResult::kNotSent; }
};

TEST(FewApplicationsTest, TellNothingAndStartWhatCanBeLaunched) {
  FewApplications few;
  EXPECT_TRUE(few.running().empty());
  EXPECT_FALSE(few.current());
  EXPECT_FALSE(few.front());
  EXPECT_FALSE(few.bringToFront({0, 1}));
  EXPECT_TRUE(few.start("/starts", true));
  EXPECT_FALSE(few.start("/other", true));
}

// --- The browser client ---

class GoWebTranslator : public Processes {
 protected:
  GoWebTranslator() {
    zavelPathInitialize();
    writeTable(at("table"), Value::Dict{{"ApplicationPath", Value::Dict{{"VX", "/Apps/The Browser.app"}}}});
    zavelPathLoadDictAndHelper(at("table").c_str());
  }
  ~GoWebTranslator() override { zavelPathTerminate(); }
};

TEST_F(GoWebTranslator, BringsTheRunningBrowserForwardAndSendsTheUrl) {
  EXPECT_TRUE(WTModule::goWebTranslator("http://x.example/日本"));
  EXPECT_TRUE(running.started.empty());
  EXPECT_EQ(running.calls, (Lines{"front 0.5", "send 0.5"}));
  ASSERT_EQ(running.sent.size(), 1u);
  const Message& message = running.sent[0];
  EXPECT_EQ(message.eventClass + message.eventId, "miscwURL");
  ASSERT_EQ(message.parameters.size(), 1u);
  EXPECT_EQ(message.parameters[0].keyword + message.parameters[0].type, "----TEXT");
  EXPECT_EQ(message.parameters[0].value, "http://x.example/\x93\xFA\x96\x7B");
  EXPECT_FALSE(running.replyWanted);
}

TEST_F(GoWebTranslator, WhatShiftJisLacksIsLost) {
  EXPECT_TRUE(WTModule::goWebTranslator("http://x/é"));
  EXPECT_EQ(running.sent[0].parameters[0].value, "http://x/?");
}

TEST_F(GoWebTranslator, StartsTheBrowserAndWaitsForIt) {
  running.list.clear();
  running.comingUp = application(30, "zVX8", "Browser", "/Apps/The Browser.app");
  running.pausesBefore = 2;
  EXPECT_TRUE(WTModule::goWebTranslator("http://x/"));
  EXPECT_EQ(running.started, Lines{"/Apps/The Browser.app|front"});
  EXPECT_EQ(running.pauses.size(), 2u);
  EXPECT_EQ(running.calls, (Lines{"front 0.30", "send 0.30"}));
}

TEST_F(GoWebTranslator, NothingIsSentToABrowserThatDoesNotComeUp) {
  running.list.clear();
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
  EXPECT_EQ(running.pauses.size(), 20u);
  running.canStart = false;
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
  zavelPathTerminate();
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
  EXPECT_TRUE(running.calls.empty());
  EXPECT_EQ(running.started.size(), 2u);
}

TEST_F(GoWebTranslator, IsFalseWhenTheMessageDoesNotGo) {
  running.sendResult = SendResult::kNotSent;
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
  running.sendResult = SendResult::kNotBuilt;
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
}

TEST_F(GoWebTranslator, TheMedicalBrowserIsNotLookedFor) {
  running.list = {application(5, "yVX8", "Browser", "/Apps/Medical Browser.app")};
  running.canStart = false;
  EXPECT_FALSE(WTModule::goWebTranslator("http://x/"));
}

}  // namespace
}  // namespace zavel::test
