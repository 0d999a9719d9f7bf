#include "Nearest.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

const std::vector<std::string> kKnown = {"look", "dict", "paths", "about", "help"};

TEST(Nearest, OneSlipOfEachKind) {
  EXPECT_EQ(nearest("lok", kKnown), "look");     // missing
  EXPECT_EQ(nearest("loook", kKnown), "look");   // too many
  EXPECT_EQ(nearest("loak", kKnown), "look");    // changed
  EXPECT_EQ(nearest("pahts", kKnown), "paths");  // changed places
}

TEST(Nearest, ABeginningIsNear) {
  EXPECT_EQ(nearest("ab", kKnown), "about");
  EXPECT_EQ(nearest("di", kKnown), "dict");
}

TEST(Nearest, WhatIsFarIsNothing) {
  for (const char* word : {"", "l", "goes", "lk", "dictionary", "xxxxxxxx"}) {
    EXPECT_EQ(nearest(word, kKnown), "") << word;
  }
  EXPECT_EQ(nearest(std::string(100000, 'a'), kKnown), "");
}

TEST(Nearest, TheFirstOfEquals) {
  EXPECT_EQ(nearest("aab", {"aac", "aad"}), "aac");
}

}  // namespace
}  // namespace zavel::host
