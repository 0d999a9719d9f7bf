// What a build tells while it runs. The clock is the test's own.
#include "mkdict/Progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zavel::mkdict {
namespace {

struct Watched {
  explicit Watched(Progress::Style style)
      : progress(
            style, out, [this] { return now; }, 40) {}
  double now = 100;
  std::ostringstream out;
  Progress progress;
};

TEST(Progress, BarAppearsAfterHalfASecondAndIsWiped) {
  Watched w(Progress::Style::kBar);
  w.progress.stage("reading EDICT", 1000);
  w.now += 0.4;
  w.progress.advance(256);
  EXPECT_EQ("", w.out.str());
  w.now += 0.1;
  w.progress.advance(500);  // too soon to look at the clock
  EXPECT_EQ("", w.out.str());
  w.progress.advance(512);
  EXPECT_EQ("\rreading EDICT: 512 of 1000, 1024/s, 0 s ", w.out.str().substr(0, 41));
  w.out.str("");
  w.progress.finish();
  EXPECT_EQ("\r" + std::string(40, ' ') + "\r", w.out.str());
}

TEST(Progress, QuickWorkShowsNoBar) {
  Watched w(Progress::Style::kBar);
  w.progress.stage("reading", 10);
  w.progress.advance(10);
  w.progress.finish();
  EXPECT_EQ("", w.out.str());
}

TEST(Progress, PlainWritesALineEachFiveSeconds) {
  Watched w(Progress::Style::kPlain);
  w.progress.stage("reading", 9000);
  w.now += 4.9;
  w.progress.advance(1000);
  EXPECT_EQ("", w.out.str());
  w.now += 0.1;
  w.progress.advance(2000);
  EXPECT_EQ("reading: 2000 of 9000\n", w.out.str());
  w.progress.advance(3000);
  w.progress.finish();
  EXPECT_EQ("reading: 2000 of 9000\n", w.out.str());
}

TEST(Progress, JsonWritesEachStageAndTheEnd) {
  Watched w(Progress::Style::kJson);
  w.progress.stage("index", 9);
  w.progress.advance(9);
  w.progress.finish();
  EXPECT_EQ(
      "{\"event\":\"progress\",\"stage\":\"index\",\"done\":0,\"total\":9}\n"
      "{\"event\":\"progress\",\"stage\":\"index\",\"done\":9,\"total\":9}\n",
      w.out.str());
}

TEST(Progress, IsSilentUnlessAsked) {
  Progress progress;
  progress.stage("x", 1);
  progress.advance(1);
  progress.finish();
  EXPECT_FALSE(progress.cancelled());
}

TEST(Progress, CarriesTheWishToStop) {
  volatile std::sig_atomic_t flag = 0;
  Progress progress;
  progress.watch(&flag);
  EXPECT_FALSE(progress.cancelled());
  flag = 1;
  EXPECT_TRUE(progress.cancelled());
}

}  // namespace
}  // namespace zavel::mkdict
