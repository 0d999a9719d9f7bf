#include "base/NoApplications.h"

#include <gtest/gtest.h>

namespace zavel {
namespace {

TEST(NoApplications, FindsStartsAndReachesNone) {
  NoApplications applications;
  ProcessNumber process{7, 8};
  EXPECT_FALSE(applications.find("zVX8", "APPL").has_value());
  EXPECT_EQ(applications.launch("/bin/true", true, &process), -1);
  EXPECT_EQ(process.high, 7u);
  EXPECT_EQ(process.low, 8u);
  EXPECT_EQ(applications.send(process, Message{"misc", "wURL", {}}, nullptr), SendResult::kNotSent);
}

}  // namespace
}  // namespace zavel
