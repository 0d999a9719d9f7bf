#include "platform/Platform.h"

#include <gtest/gtest.h>

#include "base/LinuxPlatform.h"

namespace zavel {
namespace {

TEST(Platform, IsThePortsOwnUntilReplaced) {
  EXPECT_EQ(&platform(), &defaultPlatform());
  LinuxPlatform other;
  EXPECT_EQ(setPlatform(&other), nullptr);
  EXPECT_EQ(&platform(), &other);
  EXPECT_EQ(setPlatform(nullptr), &other);
  EXPECT_EQ(&platform(), &defaultPlatform());
}

TEST(Platform, GivesTheSameServiceEachTime) {
  EXPECT_EQ(&platform().encoding(), &platform().encoding());
  EXPECT_EQ(&platform().propertyLists(), &platform().propertyLists());
  EXPECT_EQ(&platform().forkedFiles(), &platform().forkedFiles());
}

}  // namespace
}  // namespace zavel
