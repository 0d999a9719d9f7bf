#include "mkdict/Attested.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

TEST(Attested, CountsPlainWords) {
  Attested words;
  words.read("Traveled far; travelled far. \"far\"");
  EXPECT_EQ(1u, words.count("traveled"));
  EXPECT_EQ(1u, words.count("travelled"));
  EXPECT_EQ(3u, words.count("far"));
  EXPECT_FALSE(words.has("travel"));
  EXPECT_EQ(3u, words.size());
}

TEST(Attested, PassesOverPartsOfWords) {
  Attested words;
  words.read("broad-leaved dog's 'tis café K2");
  EXPECT_FALSE(words.has("leaved"));
  EXPECT_FALSE(words.has("broad"));
  EXPECT_FALSE(words.has("dog"));
  EXPECT_FALSE(words.has("tis"));
  EXPECT_FALSE(words.has("caf"));
  EXPECT_TRUE(words.has("k"));
}

TEST(Attested, KeepsCapitalsBehindTheFirst) {
  Attested words;
  words.read("NATO Paris");
  EXPECT_TRUE(words.has("paris"));
  EXPECT_TRUE(words.has("nATO"));
  EXPECT_FALSE(words.has("nato"));
}

}  // namespace
}  // namespace zavel::mkdict
