#include "EnglishContractions.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

using Contractions = std::vector<Contraction>;

TEST(EnglishContractions, NeedAnApostrophe) {
  for (const char* word : {"", "cant", "dogs", "can not"}) EXPECT_EQ(contractionsOf(word), Contractions{});
}

TEST(EnglishContractions, WithNot) {
  EXPECT_EQ(contractionsOf("isn't"), (Contractions{{"is", "contraction with not"}}));
  EXPECT_EQ(contractionsOf("can't"), (Contractions{{"can", "contraction with not"}}));
  EXPECT_EQ(contractionsOf("won't"), (Contractions{{"will", "contraction with not"}}));
  EXPECT_EQ(contractionsOf("Shan't"), (Contractions{{"shall", "contraction with not"}}));
  EXPECT_EQ(contractionsOf("ain't"), (Contractions{{"be", "contraction with not"}}));
}

TEST(EnglishContractions, WithAVerb) {
  EXPECT_EQ(contractionsOf("I'm"), (Contractions{{"I", "contraction with am"}}));
  EXPECT_EQ(contractionsOf("I'll"), (Contractions{{"I", "contraction with will"}}));
  EXPECT_EQ(contractionsOf("you're"), (Contractions{{"you", "contraction with are"}}));
  EXPECT_EQ(contractionsOf("they've"), (Contractions{{"they", "contraction with have"}}));
  EXPECT_EQ(contractionsOf("she'd"), (Contractions{{"she", "contraction with had or would"}}));
  EXPECT_EQ(contractionsOf("it's"), (Contractions{{"it", "contraction with is or has"}}));
  EXPECT_EQ(contractionsOf("Who's"), (Contractions{{"Who", "contraction with is or has"}}));
  EXPECT_EQ(contractionsOf("let's"), (Contractions{{"let", "contraction with us"}}));
}

TEST(EnglishContractions, Possessives) {
  EXPECT_EQ(contractionsOf("children's"), (Contractions{{"children", "possessive"}}));
  EXPECT_EQ(contractionsOf("dogs'"), (Contractions{{"dogs", "possessive"}}));
}

TEST(EnglishContractions, AnEndingAloneIsNone) {
  for (const char* word : {"'", "'s", "n't", "s'", "o'clock"}) {
    EXPECT_EQ(contractionsOf(word), Contractions{}) << word;
  }
}

}  // namespace
}  // namespace zavel::host
