#include "ui/Signal.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace zavel {
namespace {

TEST(Signal, CallsHandlersInTheOrderInWhichTheyConnected) {
  Signal<const std::string&, int> signal;
  std::string heard;
  const Connection a = signal.connect([&](const std::string& s, int n) { heard += "a" + s + char('0' + n); });
  const Connection b = signal.connect([&](const std::string& s, int n) { heard += "b" + s + char('0' + n); });
  signal.emit("x", 7);
  EXPECT_EQ(heard, "ax7bx7");
  EXPECT_EQ(signal.count(), 2u);
}

TEST(Signal, EmitsToNobody) {
  Signal<> signal;
  signal.emit();
  EXPECT_EQ(signal.count(), 0u);
}

TEST(Signal, AConnectionEndsWithItsObject) {
  Signal<> signal;
  int calls = 0;
  {
    const Connection c = signal.connect([&] { ++calls; });
    signal.emit();
  }
  signal.emit();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(signal.count(), 0u);
}

TEST(Signal, AConnectionEndsWithItsNewValue) {
  Signal<> signal;
  std::string heard;
  Connection c = signal.connect([&] { heard += "a"; });
  c = signal.connect([&] { heard += "b"; });
  signal.emit();
  EXPECT_EQ(heard, "b");
  c = Connection();
  signal.emit();
  EXPECT_EQ(heard, "b");
}

TEST(Signal, AMovedConnectionStays) {
  Signal<> signal;
  int calls = 0;
  Connection first = signal.connect([&] { ++calls; });
  const Connection second = std::move(first);
  EXPECT_FALSE(first.connected());  // NOLINT: what moving leaves is told
  EXPECT_TRUE(second.connected());
  signal.emit();
  EXPECT_EQ(calls, 1);
}

TEST(Signal, AConnectionMayOutliveItsSignal) {
  Connection c;
  {
    Signal<> signal;
    c = signal.connect([] {});
    EXPECT_TRUE(c.connected());
  }
  EXPECT_FALSE(c.connected());
  c.disconnect();
}

TEST(Signal, WhoConnectsInsideACallGetsTheNextEmission) {
  Signal<> signal;
  std::string heard;
  Connection late;
  const Connection c = signal.connect([&] {
    heard += "a";
    if (!late.connected()) late = signal.connect([&] { heard += "b"; });
  });
  signal.emit();
  EXPECT_EQ(heard, "a");
  signal.emit();
  EXPECT_EQ(heard, "aab");
}

TEST(Signal, WhoIsTakenOffInsideACallGetsNothingFromThenOn) {
  Signal<> signal;
  std::string heard;
  Connection b;
  const Connection a = signal.connect([&] {
    heard += "a";
    b.disconnect();
  });
  b = signal.connect([&] { heard += "b"; });
  const Connection c = signal.connect([&] { heard += "c"; });
  signal.emit();
  EXPECT_EQ(heard, "ac");
  EXPECT_EQ(signal.count(), 2u);
}

TEST(Signal, AHandlerMayTakeItselfOffAndGoOnUsingWhatItHolds) {
  Signal<> signal;
  std::string heard;
  Connection c;
  const auto held = std::make_shared<std::string>("held");
  c = signal.connect([&heard, &c, held] {
    c.disconnect();
    heard += *held;
  });
  EXPECT_EQ(held.use_count(), 2);
  signal.emit();
  signal.emit();
  EXPECT_EQ(heard, "held");
  EXPECT_EQ(held.use_count(), 1);  // let go of once it had returned
}

TEST(Signal, EmitsInsideACall) {
  Signal<int> signal;
  std::string heard;
  const Connection a = signal.connect([&](int n) {
    heard += "a" + std::to_string(n);
    if (n < 2) signal.emit(n + 1);
  });
  const Connection b = signal.connect([&](int n) { heard += "b" + std::to_string(n); });
  signal.emit(0);
  EXPECT_EQ(heard, "a0a1a2b2b1b0");
}

TEST(Signal, TakingOffInsideANestedEmissionHoldsForTheOuterOne) {
  Signal<int> signal;
  std::string heard;
  Connection b;
  const Connection a = signal.connect([&](int n) {
    heard += "a" + std::to_string(n);
    if (n == 0) signal.emit(1);
  });
  b = signal.connect([&](int n) {
    heard += "b" + std::to_string(n);
    b.disconnect();
  });
  const Connection c = signal.connect([&](int n) { heard += "c" + std::to_string(n); });
  signal.emit(0);
  EXPECT_EQ(heard, "a0a1b1c1c0");
}

TEST(Signal, AHandlerMayDestroyTheSignalAndNobodyFurtherIsCalled) {
  std::optional<Signal<>> signal(std::in_place);
  std::string heard;
  const Connection a = signal->connect([&] {
    heard += "a";
    signal.reset();
    heard += "A";
  });
  const Connection b = signal->connect([&] { heard += "b"; });
  signal->emit();
  EXPECT_EQ(heard, "aA");
  EXPECT_FALSE(b.connected());
}

TEST(Signal, GoesOnAfterAHandlerHasThrown) {
  Signal<> signal;
  int calls = 0;
  Connection thrower = signal.connect([&] {
    thrower.disconnect();
    throw std::runtime_error("no");
  });
  const Connection c = signal.connect([&] { ++calls; });
  EXPECT_THROW(signal.emit(), std::runtime_error);
  EXPECT_EQ(calls, 0);
  signal.emit();
  EXPECT_EQ(calls, 1);
}

TEST(Signal, KeepsNoRoomForThoseWhoCameAndWent) {
  Signal<> signal;
  const auto held = std::make_shared<int>(0);
  for (int i = 0; i < 1000; ++i) {
    const Connection c = signal.connect([held] { (void)held; });
    EXPECT_EQ(signal.count(), 1u);
  }
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace zavel
