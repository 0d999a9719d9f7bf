#include "engine/KatuyoGenkei.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "support/DicWriter.h"

namespace zavel::engine {
namespace {

using test::sjis;

struct Row {
  const char* word;
  uint16_t stage;
  const char* base;
  uint16_t rule;
  uint8_t mask;
};

void ExpectHit(const Row& row) {
  SCOPED_TRACE(testing::Message() << row.word << " from rule " << row.stage);
  std::string base;
  uint16_t rule = 0;
  uint8_t mask = 0;
  EXPECT_TRUE(GetOriginalForm(row.word, &base, row.stage, &rule, &mask));
  EXPECT_EQ(base, row.base);
  EXPECT_EQ(rule, row.rule);
  EXPECT_EQ(mask, row.mask);
}

void ExpectNone(const char* word, uint16_t stage) {
  SCOPED_TRACE(testing::Message() << word << " from rule " << stage);
  std::string base = "kept";
  uint16_t rule = 0;
  uint8_t mask = 2;
  EXPECT_FALSE(GetOriginalForm(word, &base, stage, &rule, &mask));
  EXPECT_EQ(base, "kept");
  EXPECT_EQ(rule, 18);
  EXPECT_EQ(mask, 2);
}

TEST(GetOriginalForm, HasSeventeenRules) {
  const Row rows[] = {
      {"walked", 1, "walke", 1, 4},     {"walked", 2, "walk", 2, 4},     {"boxes", 3, "boxe", 3, 5},
      {"boxes", 4, "box", 4, 5},        {"cats", 5, "cat", 5, 5},        {"larger", 6, "large", 6, 2},
      {"longer", 7, "long", 7, 2},      {"going", 8, "go", 8, 4},        {"making", 9, "make", 9, 4},
      {"carring", 10, "carry", 10, 4},  {"largest", 11, "large", 11, 2}, {"longest", 12, "long", 12, 2},
      {"tried", 13, "try", 13, 4},      {"tries", 14, "try", 14, 4},     {"happier", 15, "happy", 15, 2},
      {"happiest", 16, "happy", 16, 2}, {"flies", 17, "fly", 17, 1},
  };
  for (const Row& row : rows) ExpectHit(row);
}

TEST(GetOriginalForm, FallsThroughToTheNextRuleThatFits) {
  const Row rows[] = {
      {"walked", 0, "walke", 1, 4},     {"boxes", 1, "boxe", 3, 5},       {"cats", 1, "cat", 5, 5},
      {"boxes", 5, "boxe", 5, 5},       {"longer", 1, "longe", 6, 2},     {"going", 1, "go", 8, 4},
      {"happiest", 1, "happie", 11, 2}, {"happiest", 12, "happi", 12, 2}, {"happiest", 13, "happy", 16, 2},
      {"tries", 6, "try", 14, 4},       {"tries", 15, "try", 17, 1},      {"happier", 8, "happy", 15, 2},
      {"tried", 3, "try", 13, 4},
  };
  for (const Row& row : rows) ExpectHit(row);
}

TEST(GetOriginalForm, TakesWordsOfTheLeastLength) {
  const Row rows[] = {
      {"xed", 1, "xe", 1, 4},       {"xed", 2, "x", 2, 4},       {"xes", 3, "xe", 3, 5},
      {"xes", 4, "x", 4, 5},        {"as", 5, "a", 5, 5},        {"xer", 6, "xe", 6, 2},
      {"xer", 7, "x", 7, 2},        {"going", 8, "go", 8, 4},    {"going", 9, "goe", 9, 4},
      {"going", 10, "goy", 10, 4},  {"guest", 11, "gue", 11, 2}, {"guest", 12, "gu", 12, 2},
      {"dried", 13, "dry", 13, 4},  {"dries", 14, "dry", 14, 4}, {"drier", 15, "dry", 15, 2},
      {"driest", 16, "dry", 16, 2}, {"dries", 17, "dry", 17, 1},
  };
  for (const Row& row : rows) ExpectHit(row);
}

TEST(GetOriginalForm, GoesOnWithRuleFiveWhenAWordIsTooShortForTheFirstFour) {
  for (const uint16_t stage : {1, 2, 3, 4}) ExpectHit({"es", stage, "e", 5, 5});
  for (const uint16_t stage : {1, 2, 3, 4}) ExpectNone("ed", stage);
}

TEST(GetOriginalForm, GoesOnWithRuleSeventeenWhenAWordIsTooShortForTheSixteenth) {
  ExpectHit({"flies", 16, "fly", 17, 1});
  ExpectNone("xiest", 16);
}

TEST(GetOriginalForm, StopsWhenAWordIsTooShortForAnyOtherRule) {
  ExpectNone("s", 5);
  ExpectNone("s", 1);
  ExpectNone("er", 6);
  ExpectNone("er", 7);
  ExpectNone("ring", 8);
  ExpectNone("ring", 9);
  ExpectNone("ring", 10);
  ExpectNone("test", 11);
  ExpectNone("test", 12);
  ExpectNone("died", 13);
  ExpectNone("dies", 14);
  ExpectNone("tier", 15);
  ExpectNone("dies", 17);
}

TEST(GetOriginalForm, StopsWhenNoRuleIsLeft) {
  ExpectNone("", 1);
  ExpectNone("apple", 1);
  ExpectNone("walked", 3);
  ExpectNone("flies", 18);
}

TEST(GetOriginalForm, IgnoresCase) {
  ExpectHit({"GOES", 3, "GOE", 3, 5});
  ExpectHit({"Tried", 13, "Try", 13, 4});
  ExpectHit({"HAPPIEST", 16, "HAPPy", 16, 2});
}

TEST(GetOriginalForm, AddsItsPartsOfSpeechToTheMask) {
  std::string base;
  uint16_t rule = 0;
  uint8_t mask = 2;
  EXPECT_TRUE(GetOriginalForm("walked", &base, 1, &rule, &mask));
  EXPECT_EQ(mask, 6);
}

// The guesses as a search asks for them: each time from the rule behind the one that hit.
std::vector<std::pair<int, std::string>> Guesses(const char* word) {
  std::vector<std::pair<int, std::string>> guesses;
  std::string base;
  uint16_t rule = 0;
  uint8_t mask = 0;
  while (GetOriginalForm(word, &base, static_cast<uint16_t>(rule + 1), &rule, &mask)) {
    guesses.emplace_back(rule, base);
  }
  return guesses;
}

TEST(GetOriginalForm, SkipsNoRuleOfAWord) {
  using List = std::vector<std::pair<int, std::string>>;
  EXPECT_EQ(Guesses("walked"), (List{{1, "walke"}, {2, "walk"}}));
  EXPECT_EQ(Guesses("goes"), (List{{3, "goe"}, {4, "go"}, {5, "goe"}}));
  EXPECT_EQ(Guesses("flies"), (List{{3, "flie"}, {4, "fli"}, {5, "flie"}, {14, "fly"}, {17, "fly"}}));
  EXPECT_EQ(Guesses("making"), (List{{8, "mak"}, {9, "make"}, {10, "maky"}}));
  EXPECT_EQ(Guesses("happiest"), (List{{11, "happie"}, {12, "happi"}, {16, "happy"}}));
  EXPECT_EQ(Guesses("happier"), (List{{6, "happie"}, {7, "happi"}, {15, "happy"}}));
  EXPECT_EQ(Guesses("tried"), (List{{1, "trie"}, {2, "tri"}, {13, "try"}}));
}

TEST(LookForDousi, FindsAPartOfSpeechThatInflects) {
  EXPECT_TRUE(LookForDousi(sjis("x-[名]y")));
  EXPECT_TRUE(LookForDousi(sjis("-[形]")));
  EXPECT_TRUE(LookForDousi(sjis("-[動][他]")));
}

TEST(LookForDousi, PassesOverAllOthers) {
  EXPECT_FALSE(LookForDousi(""));
  EXPECT_FALSE(LookForDousi(sjis("-[副]")));
  EXPECT_FALSE(LookForDousi(sjis("[名]")));
  EXPECT_FALSE(LookForDousi(sjis("-[名詞]")));
  EXPECT_FALSE(LookForDousi(sjis("-[助動]")));
  EXPECT_FALSE(LookForDousi("-[\x93\xAE"));
}

TEST(DscvHinsi, TellsWhatTheTextHoldsAsFarAsAsked) {
  const std::string all = sjis("-[動]\n-[名]\n-[形]");
  EXPECT_EQ(DscvHinsi(all, 7), 7);
  EXPECT_EQ(DscvHinsi(all, 5), 5);
  EXPECT_EQ(DscvHinsi(all, 0), 0);
  EXPECT_EQ(DscvHinsi(sjis("-[名]"), 7), 1);
  EXPECT_EQ(DscvHinsi(sjis("-[形]"), 7), 2);
  EXPECT_EQ(DscvHinsi(sjis("-[動]"), 7), 4);
  EXPECT_EQ(DscvHinsi(sjis("-[名]"), 4), 0);
  EXPECT_EQ(DscvHinsi("", 7), 0);
}

}  // namespace
}  // namespace zavel::engine
