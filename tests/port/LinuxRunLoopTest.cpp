#include "base/LinuxRunLoop.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <limits>
#include <stdexcept>
#include <string>

namespace zavel {
namespace {

using Clock = std::chrono::steady_clock;

double since(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

const auto kNever = [] { return false; };

TEST(LinuxRunLoop, FiresATimerOnce) {
  LinuxRunLoop loop;
  int fired = 0;
  const auto begin = Clock::now();
  EXPECT_NE(loop.startTimer(0.05, false, [&] { ++fired; }), 0u);
  EXPECT_EQ(fired, 0);  // by the loop alone
  EXPECT_TRUE(loop.runUntil([&] { return fired > 0; }));
  EXPECT_GE(since(begin), 0.05);
  EXPECT_FALSE(loop.runUntil(kNever, 0.1));
  EXPECT_EQ(fired, 1);
}

TEST(LinuxRunLoop, FiresARepeatingTimerUntilItIsStopped) {
  LinuxRunLoop loop;
  int fired = 0;
  RunLoop::TimerId timer = 0;
  timer = loop.startTimer(0.01, true, [&] {
    if (++fired == 3) loop.stopTimer(timer);
  });
  EXPECT_TRUE(loop.runUntil([&] { return fired == 3; }, 5));
  EXPECT_FALSE(loop.runUntil(kNever, 0.05));
  EXPECT_EQ(fired, 3);
}

TEST(LinuxRunLoop, TimersFireInTheOrderOfTheirTime) {
  LinuxRunLoop loop;
  std::string order;
  loop.startTimer(0.4, false, [&] { order += 'c'; });
  loop.startTimer(0, false, [&] { order += 'a'; });
  loop.startTimer(0.2, false, [&] { order += 'b'; });
  EXPECT_TRUE(loop.runUntil([&] { return order.size() == 3; }, 5));
  EXPECT_EQ(order, "abc");
}

TEST(LinuxRunLoop, OddTimesFireAtTheNextTurn) {
  LinuxRunLoop loop;
  int fired = 0;
  const auto count = [&] { ++fired; };
  loop.startTimer(0, false, count);
  loop.startTimer(-3, false, count);
  loop.startTimer(std::numeric_limits<double>::quiet_NaN(), false, count);
  const auto far = loop.startTimer(std::numeric_limits<double>::infinity(), false, count);
  EXPECT_FALSE(loop.runUntil(kNever, 0.05));
  EXPECT_EQ(fired, 3);
  loop.stopTimer(far);
}

TEST(LinuxRunLoop, ATimerThatIsAlwaysReadyLeavesTimeForOthers) {
  LinuxRunLoop loop;
  int often = 0;
  bool other = false;
  const auto begin = Clock::now();
  const auto timer = loop.startTimer(0, true, [&] { ++often; });
  loop.startTimer(0.05, false, [&] { other = true; });
  EXPECT_TRUE(loop.runUntil([&] { return other; }, 5));
  EXPECT_GT(often, 1);
  EXPECT_LE(often, since(begin) * 1000 + 1);
  loop.stopTimer(timer);
}

TEST(LinuxRunLoop, StoppingWhatIsOverDoesNothing) {
  LinuxRunLoop loop;
  bool fired = false;
  const auto timer = loop.startTimer(0, false, [&] { fired = true; });
  EXPECT_TRUE(loop.runUntil([&] { return fired; }, 5));
  loop.stopTimer(timer);
  loop.stopTimer(0);
  loop.stopTimer(123456);
}

TEST(LinuxRunLoop, ACallbackMayStopItselfAndOthers) {
  LinuxRunLoop loop;
  int fired = 0;
  RunLoop::TimerId one = 0;
  RunLoop::TimerId two = 0;
  // Held in the callback alone: it must stay whole until it has returned.
  one = loop.startTimer(0, true, [&, text = std::string(100, 'x')] {
    loop.stopTimer(one);
    loop.stopTimer(two);
    fired += text == std::string(100, 'x') ? 1 : 100;
  });
  two = loop.startTimer(0.03, false, [&] { fired += 1000; });
  EXPECT_FALSE(loop.runUntil(kNever, 0.1));
  EXPECT_EQ(fired, 1);
}

TEST(LinuxRunLoop, ACallbackMayRunTheLoop) {
  LinuxRunLoop loop;
  std::string order;
  bool inner = false;
  loop.startTimer(0.01, false, [&] {
    order += 'a';
    loop.startTimer(0.01, false, [&] { inner = true; });
    EXPECT_TRUE(loop.runUntil([&] { return inner; }, 5));
    order += 'b';
  });
  EXPECT_TRUE(loop.runUntil([&] { return order == "ab"; }, 5));
}

TEST(LinuxRunLoop, ARepeatingTimerGoesOnInARunInsideItself) {
  LinuxRunLoop loop;
  int depth = 0;
  int fired = 0;
  const auto timer = loop.startTimer(0.01, true, [&] {
    ++fired;
    if (depth++ == 0) {
      EXPECT_TRUE(loop.runUntil([&] { return fired == 4; }, 5));
    }
    --depth;
  });
  EXPECT_TRUE(loop.runUntil([&] { return fired >= 4; }, 5));
  loop.stopTimer(timer);
}

TEST(LinuxRunLoop, GivesUpAfterItsTime) {
  LinuxRunLoop loop;
  const auto begin = Clock::now();
  EXPECT_FALSE(loop.runUntil(kNever, 0.1));
  EXPECT_GE(since(begin), 0.1);
  EXPECT_LT(since(begin), 2);
  EXPECT_FALSE(loop.runUntil(kNever, 0));
}

TEST(LinuxRunLoop, AsksBeforeEachTurn) {
  LinuxRunLoop loop;
  bool fired = false;
  loop.startTimer(0, false, [&] { fired = true; });
  EXPECT_TRUE(loop.runUntil([] { return true; }));
  EXPECT_FALSE(fired);
  EXPECT_TRUE(loop.runUntil([&] { return fired; }, 5));
}

TEST(LinuxRunLoop, AnExceptionLeavesTheRun) {
  LinuxRunLoop loop;
  bool other = false;
  loop.startTimer(0, false, [] { throw std::runtime_error("no"); });
  loop.startTimer(0, false, [&] { other = true; });
  EXPECT_THROW(loop.runUntil([&] { return other; }, 5), std::runtime_error);
  EXPECT_TRUE(loop.runUntil([&] { return other; }, 5));  // nothing was lost
}

TEST(LinuxRunLoop, AnExceptionLeavesAnInnerRunFirst) {
  LinuxRunLoop loop;
  std::string order;
  loop.startTimer(0, false, [&] {
    loop.startTimer(0, false, [] { throw std::runtime_error("no"); });
    try {
      loop.runUntil(kNever, 5);
    } catch (const std::runtime_error&) {
      order += "inner";
    }
  });
  EXPECT_TRUE(loop.runUntil([&] { return !order.empty(); }, 5));
  EXPECT_EQ(order, "inner");
}

TEST(LinuxRunLoop, WatchesADescriptor) {
  LinuxRunLoop loop;
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  int calls = 0;
  char byte = 0;
  const auto watch = loop.watch(ends[0], POLLIN, [&] {
    ++calls;
    EXPECT_EQ(::read(ends[0], &byte, 1), 1);
  });
  EXPECT_FALSE(loop.runUntil(kNever, 0.02));
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(::write(ends[1], "ab", 2), 2);
  EXPECT_TRUE(loop.runUntil([&] { return byte == 'b'; }, 5));
  EXPECT_EQ(calls, 2);
  loop.stop(watch);
  EXPECT_EQ(::write(ends[1], "c", 1), 1);
  EXPECT_FALSE(loop.runUntil(kNever, 0.02));
  EXPECT_EQ(calls, 2);
  ::close(ends[0]);
  ::close(ends[1]);
}

TEST(LinuxRunLoop, TakesItsSourcesAlong) {
  bool fired = false;
  {
    LinuxRunLoop brief;
    brief.startTimer(0, false, [&] { fired = true; });
  }
  LinuxRunLoop loop;  // on the same loop of the process
  EXPECT_FALSE(loop.runUntil(kNever, 0.05));
  EXPECT_FALSE(fired);
}

}  // namespace
}  // namespace zavel
