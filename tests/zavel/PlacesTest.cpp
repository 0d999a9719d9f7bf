#include "Places.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace zavel::host {
namespace {

class PlacesTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : kNames) unsetenv(name);
    setenv("HOME", "/home/u", 1);
  }
  static constexpr const char* kNames[] = {"ZAVEL_ROOT", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME",
                                           "XDG_CACHE_HOME"};
};

TEST_F(PlacesTest, StandBelowHomeByDefault) {
  const Places places = findPlaces();
  EXPECT_EQ(places.data, "/home/u/.local/share/zavel");
  EXPECT_EQ(places.config, "/home/u/.config/zavel");
  EXPECT_EQ(places.state, "/home/u/.local/state/zavel");
  EXPECT_EQ(places.cache, "/home/u/.cache/zavel");
  EXPECT_EQ(places.dictionary, "/home/u/.local/share/zavel/dictionaries/basic");
}

TEST_F(PlacesTest, FollowTheBaseFolders) {
  setenv("XDG_DATA_HOME", "/d/", 1);
  setenv("XDG_CACHE_HOME", "/c", 1);
  EXPECT_EQ(findPlaces().data, "/d/zavel");
  EXPECT_EQ(findPlaces().cache, "/c/zavel");
}

TEST_F(PlacesTest, AnEmptyOrRelativeFolderCountsAsUnset) {
  setenv("XDG_DATA_HOME", "", 1);
  setenv("XDG_CACHE_HOME", "cache", 1);
  EXPECT_EQ(findPlaces().data, "/home/u/.local/share/zavel");
  EXPECT_EQ(findPlaces().cache, "/home/u/.cache/zavel");
}

TEST_F(PlacesTest, TheRootOfTheDiskIsARootToo) {
  setenv("ZAVEL_ROOT", "/", 1);
  const Places places = findPlaces();
  EXPECT_EQ(places.data, "/");
  EXPECT_EQ(places.config, "/config");
  EXPECT_EQ(places.dictionary, "/dictionaries/basic");
  EXPECT_EQ(inFolder(places.data, "user"), "/user");
  EXPECT_EQ(inFolder("/r", "user"), "/r/user");
}

TEST_F(PlacesTest, OneRootOverridesAll) {
  setenv("XDG_DATA_HOME", "/d", 1);
  setenv("ZAVEL_ROOT", "/r/", 1);
  const Places places = findPlaces();
  EXPECT_EQ(places.root, "/r");
  EXPECT_EQ(places.data, "/r");
  EXPECT_EQ(places.cache, "/r/cache");
  EXPECT_EQ(places.dictionary, "/r/dictionaries/basic");
}

TEST_F(PlacesTest, WithoutAHomeThereAreNone) {
  unsetenv("HOME");
  EXPECT_EQ(findPlaces().data, "");
}

TEST_F(PlacesTest, ARelativePathInAVariableOfOurOwnIsAnError) {
  for (const char* name :
       {"ZAVEL_ROOT", "ZAVEL_LIBEXEC", "ZAVEL_MKDICT", "ZAVEL_MKBOOK", "ZAVEL_EDICT", "ZAVEL_DICTD"}) {
    setenv(name, "place\x07", 1);
    const Failure failure = relativePlace();
    EXPECT_EQ(failure.status, 3);
    EXPECT_EQ(failure.code, "relative_path");
    EXPECT_EQ(failure.message, std::string(name) + " is not an absolute path: place\uFFFD");
    EXPECT_EQ(failure.hint, "Give the whole path, or leave the variable unset.");
    setenv(name, "", 1);  // as good as unset
    EXPECT_FALSE(relativePlace());
    setenv(name, "/place", 1);
    EXPECT_FALSE(relativePlace());
    unsetenv(name);
  }
}

}  // namespace
}  // namespace zavel::host
