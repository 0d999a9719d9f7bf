#include "base/SpawnToolRunner.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "support/NoProcessDescriptors.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::TempFolder;

class SpawnToolRunnerTest : public testing::Test {
 protected:
  ToolResult shell(const std::string& script) { return tools_.run("/bin/sh", {"-c", script}); }

  SpawnToolRunner tools_;
};

TEST_F(SpawnToolRunnerTest, GivesOutputAndStatus) {
  const ToolResult result = shell("printf 'a\\000b\\n'; exit 3");
  EXPECT_TRUE(result.started);
  EXPECT_EQ(result.exitStatus, 3);
  EXPECT_EQ(result.output, std::string("a\0b\n", 4));
}

TEST_F(SpawnToolRunnerTest, PassesArgumentsWithoutAShell) {
  const ToolResult result = tools_.run("/usr/bin/printf", {"[%s]", "a b", "", "$HOME;*", "\"'"});
  EXPECT_EQ(result.output, "[a b][][$HOME;*][\"']");
  EXPECT_EQ(result.exitStatus, 0);
}

TEST_F(SpawnToolRunnerTest, StartsNothingThatIsNoProgram) {
  TempFolder folder;
  folder.write("text", "echo x");
  for (const std::string& program :
       {std::string(), std::string("sh"), std::string("./sh"), folder.file("none"), folder.file("text"),
        folder.path(), std::string("/bin/sh\0x", 9)}) {
    const ToolResult result = tools_.run(program, {});
    EXPECT_FALSE(result.started) << program;
    EXPECT_EQ(result.exitStatus, -1);
    EXPECT_EQ(result.output, "");
  }
  EXPECT_FALSE(tools_.run("/bin/echo", {std::string("a\0b", 3)}).started);
}

TEST_F(SpawnToolRunnerTest, TellsTheSignalThatEndedATool) {
  EXPECT_EQ(shell("kill -TERM $$").exitStatus, 128 + SIGTERM);
  EXPECT_EQ(shell("kill -KILL $$").exitStatus, 128 + SIGKILL);
}

TEST_F(SpawnToolRunnerTest, GivesAnEmptyStandardInput) {
  const ToolResult result = shell("cat; echo end");
  EXPECT_EQ(result.output, "end\n");
}

TEST_F(SpawnToolRunnerTest, LeavesNoDescriptorOpenToTheTool) {
  const int leak = ::open("/dev/null", O_RDONLY);  // without close on exec
  const int high = ::fcntl(leak, F_DUPFD, 200);
  // The fourth is the listing's own.
  const ToolResult result = tools_.run("/bin/ls", {"/proc/self/fd"});
  ::close(leak);
  ::close(high);
  EXPECT_EQ(result.output, "0\n1\n2\n3\n");
}

TEST_F(SpawnToolRunnerTest, GivesTheSignalsBackTheirUsualMeaning) {
  const auto old = ::signal(SIGPIPE, SIG_IGN);
  const ToolResult result = shell("kill -PIPE $$; echo alive");
  ::signal(SIGPIPE, old);
  EXPECT_EQ(result.exitStatus, 128 + SIGPIPE);
  EXPECT_EQ(result.output, "");
}

TEST_F(SpawnToolRunnerTest, ReadsMoreThanAPipeHolds) {
  const ToolResult result = shell("head -c 1000000 /dev/zero");
  EXPECT_EQ(result.output, std::string(1000000, '\0'));
  EXPECT_EQ(result.exitStatus, 0);
}

TEST_F(SpawnToolRunnerTest, StopsAToolThatWritesWithoutEnd) {
  const ToolResult result = tools_.run("/bin/cat", {"/dev/zero"});
  EXPECT_EQ(result.output.size(), 64u * 1024 * 1024);
  EXPECT_EQ(result.exitStatus, 128 + SIGKILL);
  EXPECT_TRUE(result.stopped);
}

TEST_F(SpawnToolRunnerTest, RunsWithTheStandardDescriptorsClosed) {
  // In a child of its own, which has nothing to tell but its status.
  const pid_t pid = ::fork();
  ASSERT_GE(pid, 0);
  if (pid == 0) {
    ::close(0);
    ::close(1);
    ::close(2);
    const ToolResult result = shell("cat; echo end");
    ::_exit(result.output == "end\n" && result.exitStatus == 0 ? 0 : 1);
  }
  int status = -1;
  EXPECT_EQ(::waitpid(pid, &status, 0), pid);
  EXPECT_EQ(status, 0);
}

TEST_F(SpawnToolRunnerTest, LeavesNoChildBehind) {
  shell("exit 0");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

// Runs with short limits, so that a test of one takes no longer than it must.
class HelpedTools : public testing::Test {
 protected:
  static ToolLimits limits() {
    ToolLimits limits;
    limits.asked = std::chrono::milliseconds(200);
    limits.leftBehind = std::chrono::milliseconds(200);
    return limits;
  }
  ToolResult shell(const std::string& script) {
    const auto begin = std::chrono::steady_clock::now();
    const ToolResult result = tools_.run("/bin/sh", {"-c", script});
    took_ = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    return result;
  }

  SpawnToolRunner tools_{limits()};
  double took_ = 0;  // seconds, of the last run
};

TEST_F(HelpedTools, NeedNoProcessDescriptors) {
  EXPECT_TRUE(test::withoutProcessDescriptors([this] {
    const ToolResult ended = shell("echo a; sleep 0.1; exit 7");
    const ToolResult closed = shell("exec >&-; sleep 0.3; exit 6");
    const ToolResult left = shell("sleep 8 & exit 5");
    return ended.output == "a\n" && ended.exitStatus == 7 && closed.exitStatus == 6 && left.exitStatus == 5 &&
           took_ < 6;
  }));
}

TEST_F(HelpedTools, NeedNoHelpWhenTheyEnd) {
  const ToolResult result = shell("echo a; sleep 0.5; echo b; exit 7");
  EXPECT_EQ(result.output, "a\nb\n");
  EXPECT_EQ(result.exitStatus, 7);
  EXPECT_FALSE(result.stopped);
  EXPECT_FALSE(result.interrupted);
}

// Ten seconds and more: what they do in the meantime is their own affair.
TEST_F(SpawnToolRunnerTest, WaitsForAToolThatRunsOnWithItsOutputClosed) {
  const ToolResult result = shell("echo a; exec >&-; sleep 10.5; exit 3");
  EXPECT_EQ(result.output, "a\n");
  EXPECT_EQ(result.exitStatus, 3);
  EXPECT_FALSE(result.stopped);
  EXPECT_FALSE(result.interrupted);
}

TEST_F(HelpedTools, AreNotWaitedForByWhatTheyLeaveBehind) {
  const ToolResult result = shell("sleep 8 & echo a; exit 5");
  EXPECT_EQ(result.output, "a\n");
  EXPECT_EQ(result.exitStatus, 5);
  EXPECT_FALSE(result.stopped);
  EXPECT_GE(took_, 0.2);
  EXPECT_LT(took_, 6);
}

TEST_F(HelpedTools, GetTheOutputOfWhatTheyLeaveBehindForAMoment) {
  ToolLimits patient = limits();
  patient.leftBehind = std::chrono::seconds(20);
  SpawnToolRunner tools(patient);
  const ToolResult result = tools.run("/bin/sh", {"-c", "(sleep 0.1; echo late) & echo a; exit 0"});
  EXPECT_EQ(result.output, "a\nlate\n");
}

TEST_F(HelpedTools, WhatTheyLeaveBehindMayNotWriteWithoutEnd) {
  ToolLimits few = limits();
  few.output = 100000;
  SpawnToolRunner tools(few);
  const ToolResult result = tools.run("/bin/sh", {"-c", "cat /dev/zero & exit 0"});
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_EQ(result.output.size(), 100000u);
}

// Interrupts this process after a moment, by a signal whose handler interrupts the tool, as a host's does.
SpawnToolRunner* g_interrupted = nullptr;

class InterruptedTools : public HelpedTools {
 protected:
  InterruptedTools() {
    g_interrupted = &tools_;
    struct sigaction action = {};
    action.sa_handler = [](int) { g_interrupted->interrupt(); };
    ::sigaction(SIGALRM, &action, &before_);
  }
  ~InterruptedTools() override {
    alarmAfter(0, 0);
    ::sigaction(SIGALRM, &before_, nullptr);
  }
  static void alarmAfter(long milliseconds, long again = 0) {
    const struct itimerval timer = {{0, again * 1000}, {0, milliseconds * 1000}};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
  }
  struct sigaction before_ = {};
};

TEST_F(InterruptedTools, EndOnRequest) {
  alarmAfter(100);
  const ToolResult result = shell("echo a; exec sleep 30");
  EXPECT_EQ(result.output, "a\n");
  EXPECT_EQ(result.exitStatus, 128 + SIGTERM);
  EXPECT_TRUE(result.interrupted);
  EXPECT_FALSE(result.stopped);
  EXPECT_LT(took_, 5);
}

TEST_F(InterruptedTools, EndOnRequestWithTheirOutputClosed) {
  alarmAfter(200);
  const ToolResult result = shell("exec sleep 30 >&-");
  EXPECT_EQ(result.exitStatus, 128 + SIGTERM);
  EXPECT_TRUE(result.interrupted);
  EXPECT_FALSE(result.stopped);
  EXPECT_LT(took_, 5);
}

TEST_F(InterruptedTools, MayTidyUp) {
  alarmAfter(100);
  const ToolResult result = shell("trap 'echo tidy; exit 9' TERM; echo a; while :; do sleep 0.02; done");
  EXPECT_EQ(result.output, "a\ntidy\n");
  EXPECT_EQ(result.exitStatus, 9);
  EXPECT_TRUE(result.interrupted);
}

TEST_F(InterruptedTools, AreKilledWhenTheyDontEnd) {
  alarmAfter(100);
  const ToolResult result = shell("trap '' TERM; while :; do sleep 0.02; done");
  EXPECT_EQ(result.exitStatus, 128 + SIGKILL);
  EXPECT_TRUE(result.interrupted);
  EXPECT_GE(took_, 0.3);
  EXPECT_LT(took_, 5);
}

TEST_F(InterruptedTools, AreKilledAtOnceByASecondInterrupt) {
  ToolLimits patient = limits();
  patient.asked = std::chrono::seconds(30);
  SpawnToolRunner tools(patient);
  g_interrupted = &tools;
  alarmAfter(100, 100);
  const ToolResult result = tools.run("/bin/sh", {"-c", "trap '' TERM; while :; do sleep 0.02; done"});
  EXPECT_EQ(result.exitStatus, 128 + SIGKILL);
  EXPECT_TRUE(result.interrupted);
}

TEST_F(InterruptedTools, TellWhenTheyWouldHaveEndedAnyway) {
  alarmAfter(100);
  const ToolResult result = shell("trap 'exit 0' TERM; while :; do sleep 0.02; done");
  EXPECT_EQ(result.exitStatus, 0);
  EXPECT_TRUE(result.interrupted);
}

TEST_F(InterruptedTools, LeaveTheNextOneAlone) {
  tools_.interrupt();
  EXPECT_EQ(shell("sleep 0.1; exit 4").exitStatus, 4);
  tools_.interrupt();
  const ToolResult result = shell("sleep 0.1; exit 4");
  EXPECT_EQ(result.exitStatus, 4);
  EXPECT_FALSE(result.interrupted);
}

TEST_F(InterruptedTools, OneOfMany) {
  alarmAfter(100);
  EXPECT_TRUE(shell("exec sleep 30").interrupted);
  const ToolResult next = shell("echo next");
  EXPECT_EQ(next.output, "next\n");
  EXPECT_EQ(next.exitStatus, 0);
  EXPECT_FALSE(next.interrupted);
}

TEST_F(InterruptedTools, OtherSignalsDontDisturb) {
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  ::sigaction(SIGALRM, &action, nullptr);
  alarmAfter(5, 5);
  const ToolResult result =
      shell("for i in 1 2 3 4 5; do head -c 100000 /dev/zero; sleep 0.02; done; exit 3");
  EXPECT_EQ(result.output.size(), 500000u);
  EXPECT_EQ(result.exitStatus, 3);
  EXPECT_FALSE(result.interrupted);
}

}  // namespace
}  // namespace zavel
