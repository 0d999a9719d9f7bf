#include "base/LoopChildProcesses.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

#include "support/NoProcessDescriptors.h"
#include "support/TempFolder.h"

namespace zavel {
namespace {

using test::TempFolder;

class LoopChildProcessesTest : public testing::Test {
 protected:
  ChildEvents events() {
    return {[this](std::string_view bytes) { output_ += bytes; },
            [this](int status) {
              status_ = status;
              ++ends_;
            }};
  }
  std::unique_ptr<ChildProcess> shell(const std::string& script, const std::string& input = {}) {
    return children_.start({"/bin/sh", {"-c", script}, {}, input}, events());
  }
  // Waits for the end of the program that was started last.
  void wait() {
    EXPECT_TRUE(loop_.runUntil([this] { return ends_ > 0; }, 20));
  }
  bool waitFor(const std::string& output) {
    return loop_.runUntil([&] { return output_ == output; }, 20);
  }

  LinuxRunLoop loop_;
  LoopChildProcesses children_{loop_};
  std::string output_;
  int status_ = -1;
  int ends_ = 0;
};

TEST_F(LoopChildProcessesTest, TellsOutputAndEndThroughTheLoop) {
  const auto child = shell("printf 'a\\000b'; exit 3");
  ASSERT_TRUE(child);
  ::usleep(100000);
  EXPECT_EQ(output_, "");
  EXPECT_TRUE(child->isRunning());  // nobody has looked yet
  wait();
  EXPECT_EQ(output_, std::string("a\0b", 3));
  EXPECT_EQ(status_, 3);
  EXPECT_FALSE(child->isRunning());
  EXPECT_FALSE(loop_.runUntil([] { return false; }, 0.05));
  EXPECT_EQ(ends_, 1);
}

TEST_F(LoopChildProcessesTest, NeedsNoProcessDescriptors) {
  EXPECT_TRUE(test::withoutProcessDescriptors([this] {
    const auto child = shell("cat; sleep 0.1; exit 3", "input");
    const bool ended = loop_.runUntil([this] { return ends_ > 0; }, 20);
    auto other = shell("exec sleep 30");
    other.reset();
    return ended && output_ == "input" && status_ == 3 && !child->isRunning();
  }));
}

TEST_F(LoopChildProcessesTest, OutputComesAsItIsWritten) {
  const auto child = shell("echo one; sleep 0.2; echo two");
  EXPECT_TRUE(waitFor("one\n"));
  EXPECT_EQ(ends_, 0);
  wait();
  EXPECT_EQ(output_, "one\ntwo\n");
}

TEST_F(LoopChildProcessesTest, PassesArgumentsWithoutAShell) {
  const auto child =
      children_.start({"/usr/bin/printf", {"[%s]", "a b", "", "$HOME;*", "\"'"}, {}, {}}, events());
  wait();
  EXPECT_EQ(output_, "[a b][][$HOME;*][\"']");
}

TEST_F(LoopChildProcessesTest, AddsToTheEnvironment) {
  ::setenv("ZAVEL_TEST_OWN", "own", 1);
  ::setenv("ZAVEL_TEST_BOTH", "own", 1);
  const auto child = children_.start({"/bin/sh",
                                      {"-c", "echo $ZAVEL_TEST_OWN $ZAVEL_TEST_BOTH $ZAVEL_TEST_NEW"},
                                      {"ZAVEL_TEST_BOTH=given", "ZAVEL_TEST_NEW=a=b"},
                                      {}},
                                     events());
  wait();
  ::unsetenv("ZAVEL_TEST_OWN");
  ::unsetenv("ZAVEL_TEST_BOTH");
  EXPECT_EQ(output_, "own given a=b\n");
}

TEST_F(LoopChildProcessesTest, FeedsStandardInputAndClosesIt) {
  const auto child = shell("cat; echo end", std::string("in\0put", 6));
  wait();
  EXPECT_EQ(output_, std::string("in\0putend\n", 10));
}

TEST_F(LoopChildProcessesTest, WithoutInputItIsEmpty) {
  const auto child = shell("cat; echo end");
  wait();
  EXPECT_EQ(output_, "end\n");
}

TEST_F(LoopChildProcessesTest, FeedsAndReadsMoreThanPipesHold) {
  std::string much;
  for (int i = 0; i < 200000; ++i) much += std::to_string(i) + "\n";
  const auto child = shell("cat", much);
  wait();
  EXPECT_EQ(output_.size(), much.size());
  EXPECT_TRUE(output_ == much);
  EXPECT_EQ(status_, 0);
}

TEST_F(LoopChildProcessesTest, AProgramMayLeaveItsInputUnread) {
  const auto child = shell("exec <&-; echo gone; sleep 0.1; exit 2", std::string(1000000, 'x'));
  wait();
  EXPECT_EQ(output_, "gone\n");
  EXPECT_EQ(status_, 2);
}

TEST_F(LoopChildProcessesTest, StartsNothingThatIsNoProgram) {
  TempFolder folder;
  folder.write("text", "echo x");
  ::chmod(folder.file("text").c_str(), 0644);
  for (const std::string& program : {std::string(), std::string("sh"), folder.file("none"),
                                     folder.file("text"), folder.path(), std::string("/bin/sh\0x", 9)}) {
    EXPECT_FALSE(children_.start({program, {}, {}, {}}, events())) << program;
  }
  EXPECT_FALSE(children_.start({"/bin/echo", {std::string("a\0b", 3)}, {}, {}}, events()));
  EXPECT_FALSE(children_.start({"/bin/echo", {}, {std::string("A=a\0b", 5)}, {}}, events()));
  EXPECT_FALSE(loop_.runUntil([] { return false; }, 0.02));
  EXPECT_EQ(ends_, 0);
}

TEST_F(LoopChildProcessesTest, TellsTheSignalThatEndedAProgram) {
  const auto child = shell("echo a; kill -SEGV $$");
  wait();
  EXPECT_EQ(output_, "a\n");
  EXPECT_EQ(status_, 128 + SIGSEGV);
}

TEST_F(LoopChildProcessesTest, ASilentProgramTellsItsEnd) {
  const auto child = children_.start({"/bin/true", {}, {}, {}}, events());
  wait();
  EXPECT_EQ(output_, "");
  EXPECT_EQ(status_, 0);
}

TEST_F(LoopChildProcessesTest, EventsMayBeEmpty) {
  const auto child = children_.start({"/bin/echo", {"a"}, {}, {}}, {});
  EXPECT_TRUE(loop_.runUntil([&] { return !child->isRunning(); }, 20));
  EXPECT_FALSE(loop_.runUntil([] { return false; }, 0.05));
}

TEST_F(LoopChildProcessesTest, HandsBytesOnAsTheyAre) {
  const auto child = shell("head -c 300000 /dev/urandom");
  wait();
  EXPECT_EQ(output_.size(), 300000u);
}

TEST_F(LoopChildProcessesTest, LeavesNoDescriptorOpenToTheProgram) {
  const int leak = ::open("/dev/null", O_RDONLY);  // without close on exec
  const int high = ::fcntl(leak, F_DUPFD, 200);
  const auto other = shell("sleep 5");
  const auto child = children_.start({"/bin/ls", {"/proc/self/fd"}, {}, "input"}, events());
  wait();
  ::close(leak);
  ::close(high);
  EXPECT_EQ(output_, "0\n1\n2\n3\n");  // the fourth is the listing's own
}

TEST_F(LoopChildProcessesTest, GivesTheSignalsBackTheirUsualMeaning) {
  const auto old = ::signal(SIGPIPE, SIG_IGN);
  const auto child = shell("kill -PIPE $$; echo alive");
  wait();
  ::signal(SIGPIPE, old);
  EXPECT_EQ(status_, 128 + SIGPIPE);
}

TEST_F(LoopChildProcessesTest, AsksAProgramToEnd) {
  const auto child = shell("trap 'echo tidy; exit 9' TERM; echo ready; while :; do sleep 0.02; done");
  EXPECT_TRUE(waitFor("ready\n"));
  child->terminate();
  EXPECT_EQ(ends_, 0);
  wait();
  EXPECT_EQ(output_, "ready\ntidy\n");
  EXPECT_EQ(status_, 9);
  child->terminate();  // it is over
}

TEST_F(LoopChildProcessesTest, LettingGoEndsAProgram) {
  auto child = shell("echo $$; exec sleep 30");
  EXPECT_TRUE(loop_.runUntil([&] { return output_.ends_with("\n"); }, 20));
  const pid_t pid = std::stoi(output_);
  const auto begin = std::chrono::steady_clock::now();
  child.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(::kill(pid, 0), -1);
  EXPECT_FALSE(loop_.runUntil([] { return false; }, 0.05));
  EXPECT_EQ(ends_, 0);
}

TEST_F(LoopChildProcessesTest, LettingGoEndsAProgramThatDoesNotListen) {
  auto child = shell("trap '' TERM; echo $$; while :; do sleep 0.02; done");
  EXPECT_TRUE(loop_.runUntil([&] { return output_.ends_with("\n"); }, 20));
  const pid_t pid = std::stoi(output_);
  child.reset();
  EXPECT_EQ(::kill(pid, 0), -1);
}

TEST_F(LoopChildProcessesTest, ACallbackMayLetGo) {
  std::unique_ptr<ChildProcess> child;
  child = children_.start({"/bin/sh", {"-c", "echo a; sleep 0.05; echo b"}, {}, {}},
                          {[&](std::string_view bytes) {
                             output_ += bytes;
                             child.reset();
                           },
                           [&](int) { ++ends_; }});
  EXPECT_TRUE(loop_.runUntil([&] { return !child; }, 20));
  EXPECT_FALSE(loop_.runUntil([] { return false; }, 0.1));
  EXPECT_EQ(output_, "a\n");
  EXPECT_EQ(ends_, 0);
  child = children_.start({"/bin/true", {}, {}, {}}, {{}, [&](int) {
                                                        ++ends_;
                                                        child.reset();
                                                      }});
  EXPECT_TRUE(loop_.runUntil([&] { return !child; }, 20));
  EXPECT_EQ(ends_, 1);
}

TEST_F(LoopChildProcessesTest, ACallbackMayWaitForTheSameProgram) {
  std::string seen;
  const auto child = children_.start({"/bin/sh", {"-c", "echo a; sleep 0.05; echo b"}, {}, {}},
                                     {[&](std::string_view bytes) {
                                        output_ += bytes;
                                        if (output_ == "a\n") {
                                          EXPECT_TRUE(loop_.runUntil([&] { return ends_ > 0; }, 20));
                                          seen = output_;
                                        }
                                      },
                                      [&](int) { ++ends_; }});
  EXPECT_TRUE(loop_.runUntil([&] { return !seen.empty(); }, 20));
  EXPECT_EQ(seen, "a\nb\n");
}

TEST_F(LoopChildProcessesTest, ACallbackMayStartAnother) {
  std::unique_ptr<ChildProcess> second;
  const auto first = children_.start({"/bin/echo", {"a"}, {}, {}},
                                     {[this](std::string_view bytes) { output_ += bytes; },
                                      [&](int) {
                                        second = children_.start({"/bin/echo", {"b"}, {}, {}}, events());
                                      }});
  wait();
  EXPECT_EQ(output_, "a\nb\n");
}

TEST_F(LoopChildProcessesTest, AnExceptionOfACallbackLeavesTheRun) {
  const auto child =
      children_.start({"/bin/echo", {"a"}, {}, {}},
                      {[](std::string_view) { throw std::runtime_error("no"); }, [this](int) { ++ends_; }});
  EXPECT_THROW(loop_.runUntil([this] { return ends_ > 0; }, 20), std::runtime_error);
  wait();
}

TEST_F(LoopChildProcessesTest, WhatAProgramLeavesBehindIsNotWaitedFor) {
  const auto begin = std::chrono::steady_clock::now();
  const auto child = shell("sleep 8 & echo a; exit 4");
  wait();
  EXPECT_EQ(output_, "a\n");
  EXPECT_EQ(status_, 4);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(6));
}

TEST_F(LoopChildProcessesTest, AProgramThatClosesItsOutputStillTellsItsEnd) {
  const auto child = shell("echo a; exec >&-; sleep 0.1; exit 6");
  wait();
  EXPECT_EQ(status_, 6);
}

TEST_F(LoopChildProcessesTest, ManyRunBesideEachOther) {
  std::vector<std::unique_ptr<ChildProcess>> many;
  for (int i = 0; i < 50; ++i) many.push_back(shell("cat; exit 0", "x"));
  EXPECT_TRUE(loop_.runUntil([this] { return ends_ == 50; }, 60));
  EXPECT_EQ(output_, std::string(50, 'x'));
  many.clear();
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(LoopChildProcessesTest, KeepsNoDescriptorsOpen) {
  const auto open = [] {
    const int lowest = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ::close(lowest);
    return lowest;
  };
  shell("exit 0").reset();
  const int before = open();
  for (int i = 0; i < 20; ++i) {
    ends_ = 0;
    const auto child = shell("cat", "x");
    wait();
  }
  shell("sleep 5").reset();
  children_.start({"/none", {}, {}, "x"}, {});
  EXPECT_EQ(open(), before);
}

}  // namespace
}  // namespace zavel
