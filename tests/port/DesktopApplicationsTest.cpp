// Two programs and this one, on a bus of their own.
#include "base/DesktopApplications.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "base/LoopChildProcesses.h"
#include "base/ProgramPlaces.h"
#include "support/EnvironmentVariable.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::EnvironmentVariable;
using test::TempFolder;

constexpr char kConfiguration[] = R"(<busconfig>
  <listen>unix:path=%SOCKET%</listen>
  <policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>)";

// A bus that only these tests know.
class PrivateBus {
 public:
  PrivateBus() {
    std::string configuration = kConfiguration;
    configuration.replace(configuration.find("%SOCKET%"), 8, folder_.file("bus"));
    folder_.write("bus.conf", configuration);
    start();
  }
  ~PrivateBus() { daemon_.reset(); }

  std::string address() const { return "unix:path=" + folder_.file("bus"); }
  void start() {
    daemon_.reset();
    std::filesystem::remove(folder_.file("bus"));
    output_.clear();
    daemon_ = children_.start({"/usr/bin/dbus-daemon",
                               {"--nofork", "--nopidfile", "--nosyslog", "--print-address",
                                "--config-file=" + folder_.file("bus.conf")},
                               {},
                               {}},
                              {[this](std::string_view bytes) { output_ += bytes; }, {}});
    ASSERT_TRUE(daemon_) << "dbus-daemon can't be started";
    ASSERT_TRUE(loop_.runUntil([this] { return output_.ends_with('\n'); }, 20));
  }

 private:
  TempFolder folder_;
  std::string output_;
  LinuxRunLoop loop_;
  LoopChildProcesses children_{loop_};
  std::unique_ptr<ChildProcess> daemon_;
};

// One bus for all tests of the program: what is connected to it stays so.
PrivateBus& theBus() {
  static PrivateBus bus;
  return bus;
}

std::string peerProgram() {
  return std::filesystem::path(pathOfThisCode()).parent_path() / "message-peer";
}

Message text(const std::string& id, const std::string& value = {}) {
  return {"test", id, {{"----", "TEXT", value}}};
}

class DesktopApplicationsTest : public testing::Test {
 protected:
  DesktopApplicationsTest() : address_("DBUS_SESSION_BUS_ADDRESS", theBus().address().c_str()) {}

  struct Peer {
    std::unique_ptr<ChildProcess> process;
    std::string output;
    int status = -1;
  };
  // Started and known.
  std::unique_ptr<Peer> peer(const std::string& creator, const std::string& type = "APPL",
                             const std::string& name = "Peer", const std::string& path = {}) {
    auto started = std::make_unique<Peer>();
    Peer* const p = started.get();
    p->process = children_.start(
        {peerProgram(), {creator, type, name, path}, {}, {}},
        {[p](std::string_view bytes) { p->output += bytes; }, [p](int status) { p->status = status; }});
    EXPECT_TRUE(p->process);
    EXPECT_TRUE(loop_.runUntil([p] { return p->output == "ready\n" || p->status >= 0; }, 20));
    EXPECT_EQ(p->output, "ready\n");
    return started;
  }
  void waitForEnd(Peer& p) {
    EXPECT_TRUE(loop_.runUntil([&p] { return p.status >= 0; }, 20));
  }

  EnvironmentVariable address_;
  LinuxRunLoop loop_;
  LoopChildProcesses children_{loop_};
  DesktopApplications applications_{loop_};
};

TEST_F(DesktopApplicationsTest, FindsAnApplicationByItsSignature) {
  EXPECT_EQ(applications_.find("zFN8", "APPL"), std::nullopt);
  const auto one = peer("zFN8");
  const auto found = applications_.find("zFN8", "APPL");
  ASSERT_TRUE(found);
  EXPECT_EQ(applications_.find("zFN8", "appe"), std::nullopt);
  EXPECT_EQ(applications_.find("yFN8", "APPL"), std::nullopt);
  EXPECT_EQ(applications_.find("zFN", "APPL"), std::nullopt);
  EXPECT_EQ(applications_.find("", ""), std::nullopt);
  EXPECT_EQ(applications_.find("z\xC3\xA9"
                               "8",
                               "APPL"),
            std::nullopt);
  EXPECT_EQ(applications_.send(*found, text("quit"), nullptr), SendResult::kSent);
  waitForEnd(*one);
  EXPECT_EQ(one->status, 0);
  EXPECT_EQ(applications_.find("zFN8", "APPL"), std::nullopt);
}

TEST_F(DesktopApplicationsTest, SignaturesMayHoldBlanksAndSigns) {
  const auto one = peer("a -.", "*~1 ");
  EXPECT_TRUE(applications_.find("a -.", "*~1 "));
}

TEST_F(DesktopApplicationsTest, OfSeveralTheFirstIsFound) {
  const auto one = peer("zMN8");
  const auto first = applications_.find("zMN8", "APPL");
  const auto two = peer("zMN8");
  EXPECT_EQ(applications_.find("zMN8", "APPL"), first);
  EXPECT_EQ(applications_.send(*first, text("quit"), nullptr), SendResult::kSent);
  waitForEnd(*one);
  const auto second = applications_.find("zMN8", "APPL");
  ASSERT_TRUE(second);
  EXPECT_GT(*second, *first);
}

TEST_F(DesktopApplicationsTest, ListsWhatRuns) {
  const auto one = peer("zLA8", "APPL", "辞書", "/opt/a.app/");
  const auto two = peer("zLB8", "appe", "Other");
  const std::vector<RunningApplication> all = applications_.running();
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0].creator, "zLA8");
  EXPECT_EQ(all[0].type, "APPL");
  EXPECT_EQ(all[0].name, "辞書");
  EXPECT_EQ(all[0].path, "/opt/a.app");
  EXPECT_EQ(all[0].process, *applications_.find("zLA8", "APPL"));
  EXPECT_EQ(all[1].creator, "zLB8");
  EXPECT_EQ(all[1].type, "appe");
  EXPECT_EQ(all[1].path, peerProgram());  // it told none
  EXPECT_LT(all[0].process, all[1].process);
}

TEST_F(DesktopApplicationsTest, SendsTypedParametersAndGetsThemBack) {
  const auto one = peer("zEC8");
  const auto process = *applications_.find("zEC8", "APPL");
  const Message message = {"test",
                           "echo",
                           {{"----", "TEXT", "\x8D\x73\x82\xAD"},
                            {"hwID", "long", std::string("\0\0\x01\xFF", 4)},
                            {"hwTX", "TEXT", ""}}};
  Message reply;
  EXPECT_EQ(applications_.send(process, message, &reply), SendResult::kSent);
  ASSERT_EQ(reply.parameters.size(), 3u);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(reply.parameters[i].keyword, message.parameters[i].keyword);
    EXPECT_EQ(reply.parameters[i].type, message.parameters[i].type);
    EXPECT_EQ(reply.parameters[i].value, message.parameters[i].value);
  }
  EXPECT_EQ(reply.eventClass, "");
  EXPECT_EQ(applications_.send(process, text("void"), &reply), SendResult::kSent);
  EXPECT_TRUE(reply.parameters.empty());
  const std::string much(5000000, '\xFF');
  EXPECT_EQ(applications_.send(process, text("echo", much), &reply), SendResult::kSent);
  ASSERT_EQ(reply.parameters.size(), 1u);
  EXPECT_TRUE(reply.parameters[0].value == much);
}

TEST_F(DesktopApplicationsTest, WaitsForASlowAnswer) {
  const auto one = peer("zSL8");
  Message reply;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(applications_.send(*applications_.find("zSL8", "APPL"), text("slow"), &reply), SendResult::kSent);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1500));
  ASSERT_EQ(reply.parameters.size(), 1u);
  EXPECT_EQ(reply.parameters[0].value, std::string("\0\0\0\1", 4));
}

TEST_F(DesktopApplicationsTest, DoesNotWaitForAnAnswerThatNobodyWants) {
  const auto one = peer("zNW8");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(applications_.send(*applications_.find("zNW8", "APPL"), text("long"), nullptr),
            SendResult::kSent);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
}

TEST_F(DesktopApplicationsTest, TellsWhatWasNotSent) {
  const auto one = peer("zNS8");
  const auto process = *applications_.find("zNS8", "APPL");
  Message reply = text("kept");
  EXPECT_EQ(applications_.send(process, text("none"), &reply), SendResult::kNotSent);  // not understood
  EXPECT_EQ(applications_.send(process, {"misc", "echo", {}}, &reply), SendResult::kNotSent);
  EXPECT_EQ(applications_.send(process, text("badr"), &reply), SendResult::kNotSent);  // answers nonsense
  EXPECT_EQ(applications_.send(process, text("thrw"), &reply), SendResult::kNotSent);
  EXPECT_EQ(reply.eventId, "kept");
  EXPECT_EQ(applications_.send({9, 99999}, text("echo"), &reply), SendResult::kNotSent);
  EXPECT_EQ(applications_.send({9, 99999}, text("echo"), nullptr), SendResult::kNotSent);
  EXPECT_EQ(applications_.send({0, 0}, text("echo"), nullptr), SendResult::kNotSent);
  EXPECT_EQ(applications_.send(process, text("die!"), &reply), SendResult::kNotSent);  // ends instead
  waitForEnd(*one);
  EXPECT_EQ(one->status, 3);
}

TEST_F(DesktopApplicationsTest, TellsWhatCanNotBeBuilt) {
  const auto one = peer("zNB8");
  const auto process = *applications_.find("zNB8", "APPL");
  const auto sent = [&](const Message& message) { return applications_.send(process, message, nullptr); };
  EXPECT_EQ(sent({"tes", "echo", {}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent({"test", "echos", {}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent({"test", std::string("ec\0o", 4), {}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent({"test", "\x81\x40\x81\x40", {}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent({"test", "echo", {{"---", "TEXT", ""}}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent({"test", "echo", {{"----", "TEX\n", ""}}}), SendResult::kNotBuilt);
  EXPECT_EQ(sent(text("echo", std::string(40 * 1024 * 1024, 'x'))), SendResult::kNotBuilt);
  EXPECT_EQ(sent(text("echo", "x")), SendResult::kSent);
}

TEST_F(DesktopApplicationsTest, AMessageToItselfIsHandedOver) {
  const auto one = peer("zSE8");
  Message reply;
  EXPECT_EQ(applications_.send(*applications_.find("zSE8", "APPL"), text("self"), &reply), SendResult::kSent);
  ASSERT_EQ(reply.parameters.size(), 1u);
  EXPECT_EQ(reply.parameters[0].value, "to myself");
}

TEST_F(DesktopApplicationsTest, BringsAnApplicationToTheFront) {
  const auto one = peer("zBF8");
  const auto process = *applications_.find("zBF8", "APPL");
  EXPECT_TRUE(applications_.bringToFront(process));
  EXPECT_FALSE(applications_.bringToFront({9, 99999}));
  EXPECT_FALSE(applications_.bringToFront({}));
  Message reply;
  EXPECT_EQ(applications_.send(process, text("frnt"), &reply), SendResult::kSent);
  EXPECT_EQ(reply.parameters.at(0).value, std::string("\0\0\0\1", 4));
  EXPECT_EQ(applications_.front(), std::nullopt);
}

TEST_F(DesktopApplicationsTest, IsKnownItselfOnceItHasSaidSo) {
  EXPECT_EQ(applications_.current(), std::nullopt);
  const auto none = [](const Message&) { return std::optional<Message>(Message{}); };
  EXPECT_TRUE(applications_.announce({{}, "zME8", "APPL", "Me", "/opt/me/"}, none, {}));
  const auto self = applications_.current();
  ASSERT_TRUE(self);
  EXPECT_EQ(applications_.find("zME8", "APPL"), self->process);
  const auto all = applications_.running();
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].name, "Me");
  EXPECT_EQ(all[0].path, "/opt/me");
  EXPECT_EQ(all[0].process, self->process);
  EXPECT_TRUE(applications_.bringToFront(self->process));
  // Under another signature in its place.
  EXPECT_TRUE(applications_.announce({{}, "yME8", "APPL", "Me", ""}, none, {}));
  EXPECT_EQ(applications_.find("zME8", "APPL"), std::nullopt);
  EXPECT_TRUE(applications_.find("yME8", "APPL"));
}

TEST_F(DesktopApplicationsTest, WhatCanNotBeAnnouncedChangesNothing) {
  int received = 0;
  const auto count = [&](const Message&) {
    ++received;
    return std::optional<Message>(Message{});
  };
  EXPECT_TRUE(applications_.announce({{}, "zWC8", "APPL", "Me", ""}, count, {}));
  const auto self = applications_.current()->process;
  const auto never = [](const Message&) { return std::optional<Message>(); };
  EXPECT_FALSE(applications_.announce({{}, "zWC", "APPL", "Me", ""}, never, {}));
  EXPECT_FALSE(applications_.announce({{}, "zWC8", "\x81\x40\x81\x40", "Me", ""}, never, {}));
  EXPECT_FALSE(applications_.announce({{}, "zWC8", "APPL", "\xFF", ""}, never, {}));
  EXPECT_FALSE(applications_.announce({{}, "zWC8", "APPL", "Me", ""}, {}, {}));
  EXPECT_EQ(applications_.send(self, text("echo"), nullptr), SendResult::kSent);
  EXPECT_EQ(received, 1);
}

TEST_F(DesktopApplicationsTest, IsNotKnownAnyMoreOnceItIsGone) {
  {
    DesktopApplications brief(loop_);
    EXPECT_TRUE(brief.announce({{}, "zGO8", "APPL", "", ""},
                               [](const Message&) { return std::optional<Message>(Message{}); }, {}));
    EXPECT_TRUE(applications_.find("zGO8", "APPL"));
  }
  EXPECT_EQ(applications_.find("zGO8", "APPL"), std::nullopt);
}

TEST_F(DesktopApplicationsTest, AnApplicationThatHangsDoesNotKeepTheListLong) {
  const auto one = peer("zHA8");
  const auto process = *applications_.find("zHA8", "APPL");
  EXPECT_EQ(applications_.send(process, text("long"), nullptr), SendResult::kSent);
  const auto begin = std::chrono::steady_clock::now();
  const auto all = applications_.running();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
  ASSERT_EQ(all.size(), 1u);
  EXPECT_EQ(all[0].name, "");
  EXPECT_EQ(all[0].path, peerProgram());
}

TEST_F(DesktopApplicationsTest, ComesBackWhenTheBusDoes) {
  const auto none = [](const Message&) { return std::optional<Message>(Message{}); };
  EXPECT_TRUE(applications_.announce({{}, "zCB8", "APPL", "Me", ""}, none, {}));
  theBus().start();
  // The end of the old bus is told a moment later.
  bool back = false;
  for (int i = 0; i < 500 && !back; ++i) {
    ::usleep(10000);
    back = applications_.announce({{}, "zCB8", "APPL", "Me", ""}, none, {}) &&
           applications_.find("zCB8", "APPL") == applications_.current()->process;
  }
  EXPECT_TRUE(back);
  const auto one = peer("zCC8");
  Message reply;
  EXPECT_EQ(applications_.send(*applications_.find("zCC8", "APPL"), text("echo", "x"), &reply),
            SendResult::kSent);
  EXPECT_EQ(reply.parameters.at(0).value, "x");
}

// Starting applications. Each is a script that becomes the peer, so that signature and path are the test's.
class LaunchTest : public DesktopApplicationsTest {
 protected:
  ~LaunchTest() override {
    for (const RunningApplication& a : applications_.running())
      applications_.send(a.process, text("quit"), nullptr);
  }
  void script(const std::string& name, const std::string& body) {
    folder_.write(name, "#!/bin/sh\n" + body + "\n");
    ::chmod(folder_.file(name).c_str(), 0755);
  }
  std::string becomePeer(const std::string& creator, const std::string& path) {
    return "exec " + peerProgram() + " " + creator + " APPL Launched '" + path + "'";
  }

  TempFolder folder_;
  ProcessNumber process_;
};

TEST_F(LaunchTest, StartsAProgramAndWaitsUntilItIsKnown) {
  script("tool", "sleep 0.2; " + becomePeer("zLT8", folder_.file("tool")));
  EXPECT_EQ(applications_.launch(folder_.file("tool"), true, &process_), 1);
  EXPECT_EQ(applications_.find("zLT8", "APPL"), process_);
}

TEST_F(LaunchTest, DoesNotStartOneThatRuns) {
  script("tool", "echo x >>" + folder_.file("starts") + "; " + becomePeer("zLR8", folder_.file("tool")));
  EXPECT_EQ(applications_.launch(folder_.file("tool"), true, &process_), 1);
  ProcessNumber again;
  EXPECT_EQ(applications_.launch(folder_.file("tool") + "/", true, &again), 1);
  EXPECT_EQ(again, process_);
  EXPECT_TRUE(applications_.start(folder_.file("tool"), true));
  EXPECT_EQ(folder_.read("starts"), "x\n");
  Message reply;
  EXPECT_EQ(applications_.send(process_, text("frnt"), &reply), SendResult::kSent);
  EXPECT_EQ(reply.parameters.at(0).value, std::string("\0\0\0\1", 4));
}

TEST_F(LaunchTest, StartsAFolderThatIsAnApplication) {
  std::filesystem::create_directory(folder_.file("Tool.app"));
  script("Tool.app/Tool", becomePeer("zLF8", folder_.file("Tool.app")));
  EXPECT_EQ(applications_.launch(folder_.file("Tool.app"), true, &process_), 1);
  EXPECT_EQ(applications_.find("zLF8", "APPL"), process_);
}

TEST_F(LaunchTest, KnowsAProgramByItsProcess) {
  script("tool", becomePeer("zLP8", "/somewhere/else"));
  EXPECT_EQ(applications_.launch(folder_.file("tool"), true, &process_), 1);
  EXPECT_EQ(applications_.find("zLP8", "APPL"), process_);
}

TEST_F(LaunchTest, OneThatStartsAnotherAndEndsIsWaitedFor) {
  script("tool", "(sleep 0.2; " + becomePeer("zLO8", folder_.file("tool")) + ") & exit 0");
  EXPECT_EQ(applications_.launch(folder_.file("tool"), true, &process_), 1);
  EXPECT_EQ(applications_.find("zLO8", "APPL"), process_);
}

TEST_F(LaunchTest, WithoutWaitingItIsStartedButNotFound) {
  script("tool", "sleep 0.3; " + becomePeer("zLN8", folder_.file("tool")));
  EXPECT_EQ(applications_.launch(folder_.file("tool"), false, &process_), 0);
  for (int i = 0; i < 200 && !applications_.find("zLN8", "APPL"); ++i) ::usleep(20000);
  EXPECT_TRUE(applications_.find("zLN8", "APPL"));
}

TEST_F(LaunchTest, OneThatFailsIsNotWaitedFor) {
  script("tool", "exit 1");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(applications_.launch(folder_.file("tool"), true, &process_), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST_F(LaunchTest, TellsWhatCanNotBeStarted) {
  folder_.write("text", "no program");
  EXPECT_EQ(applications_.launch(folder_.file("none"), true, &process_), -1);
  EXPECT_EQ(applications_.launch(folder_.file("text"), true, &process_), -1);
  EXPECT_EQ(applications_.launch(folder_.path(), true, &process_), -1);
  EXPECT_EQ(applications_.launch("", true, &process_), -1);
  EXPECT_EQ(applications_.launch("sh", true, &process_), -1);
  EXPECT_FALSE(applications_.start(folder_.file("none"), false));
}

// Counts the rounds of waiting in place of spending a minute in them.
class ImpatientApplications : public DesktopApplications {
 public:
  using DesktopApplications::DesktopApplications;
  void pause(double seconds) override { waited += seconds; }
  double waited = 0;
};

TEST_F(LaunchTest, OneThatRunsWithoutBeingKnownIsGivenUp) {
  script("tool", "exec sleep 70");
  ImpatientApplications impatient(loop_);
  EXPECT_EQ(impatient.launch(folder_.file("tool"), true, &process_), 0);
  EXPECT_NEAR(impatient.waited, 60, 1);
}

TEST(NoBus, ThereAreNoOthers) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", nullptr);
  const EnvironmentVariable runtime("XDG_RUNTIME_DIR", nullptr);
  LinuxRunLoop loop;
  DesktopApplications applications(loop);
  EXPECT_EQ(applications.find("zVX8", "APPL"), std::nullopt);
  EXPECT_TRUE(applications.running().empty());
  EXPECT_EQ(applications.current(), std::nullopt);
  EXPECT_FALSE(applications.bringToFront({1, 2}));
  EXPECT_EQ(applications.send({1, 2}, text("echo"), nullptr), SendResult::kNotSent);
  EXPECT_FALSE(applications.announce({{}, "zVX8", "APPL", "", ""},
                                     [](const Message&) { return std::optional<Message>(); }, {}));
  ProcessNumber process;
  EXPECT_EQ(applications.launch("/none", true, &process), -1);
  EXPECT_EQ(applications.launch("/bin/false", true, &process), 0);
}

// In a program of its own each, since a connection stays as long as its process.
TEST(NoBus, ABusThatIsGoneIsNoBus) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/none/bus");
  const pid_t pid = ::fork();
  ASSERT_GE(pid, 0);
  if (pid == 0) {
    ::execl(peerProgram().c_str(), "message-peer", "zVX8", "APPL", "x", nullptr);
    ::_exit(1);
  }
  int status = 0;
  EXPECT_EQ(::waitpid(pid, &status, 0), pid);
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

}  // namespace
}  // namespace zavel
