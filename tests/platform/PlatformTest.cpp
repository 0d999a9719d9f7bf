#include "platform/Platform.h"

#include <gtest/gtest.h>

#include "base/LinuxPlatform.h"
#include "support/FakePlatform.h"

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

TEST(Platform, AHostReplacesSingleServices) {
  const test::FakePlatform host;
  EXPECT_EQ(&platform().userServices(), &host.user);
  EXPECT_EQ(&platform().bundle(), &host.ownBundle);
  EXPECT_EQ(&platform().sound(), &host.sounds);
  EXPECT_EQ(&platform().encoding(), &defaultPlatform().encoding());
  EXPECT_EQ(&platform().propertyLists(), &defaultPlatform().propertyLists());
  EXPECT_EQ(&platform().fonts(), &defaultPlatform().fonts());
  EXPECT_EQ(&platform().forkedFiles(), &defaultPlatform().forkedFiles());
  EXPECT_EQ(&platform().tools(), &defaultPlatform().tools());
  EXPECT_EQ(&platform().applications(), &defaultPlatform().applications());
  EXPECT_EQ(&platform().folders(), &defaultPlatform().folders());
  EXPECT_EQ(&platform().runLoop(), &defaultPlatform().runLoop());
  EXPECT_EQ(&platform().children(), &defaultPlatform().children());
  EXPECT_EQ(&platform().userDefaults(), &defaultPlatform().userDefaults());
}

TEST(Platform, PutsOneReplacementOverAnother) {
  test::FakePlatform below;
  ForwardingPlatform above(&below);
  EXPECT_EQ(&above.userServices(), &below.user);
  EXPECT_EQ(&above.bundle(), &below.ownBundle);
  EXPECT_EQ(&above.sound(), &below.sounds);
}

}  // namespace
}  // namespace zavel
