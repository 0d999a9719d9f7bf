#include "mkdict/SpellingPairs.h"

#include <gtest/gtest.h>

#include "EnglishSupport.h"

namespace zavel::mkdict {
namespace {

TEST(SpellingPairs, KnowsTheCorrespondences) {
  const std::pair<const char*, const char*> table[] = {
      {"colour", "color"},       {"centre", "center"},
      {"realise", "realize"},    {"organisation", "organization"},
      {"analyse", "analyze"},    {"defence", "defense"},
      {"licence", "license"},    {"catalogue", "catalog"},
      {"anaemia", "anemia"},     {"oestrogen", "estrogen"},
      {"manoeuvre", "maneuver"}, {"anaesthetise", "anesthetize"},
      {"programme", "program"},  {"grey", "gray"},
      {"aluminium", "aluminum"}, {"mould", "mold"},
      {"plough", "plow"},        {"sulphur", "sulfur"},
      {"tyre", "tire"},          {"sceptic", "skeptic"},
      {"cosy", "cozy"},          {"moustache", "mustache"},
      {"judgement", "judgment"}, {"ageing", "aging"},
      {"cheque", "check"},       {"kerb", "curb"},
      {"gaol", "jail"},          {"pyjama", "pajama"},
      {"jewellery", "jewelry"},  {"draught", "draft"},
      {"yoghurt", "yogurt"},     {"axe", "ax"},
      {"enquiry", "inquiry"},    {"aeroplane", "airplane"},
      {"mummy", "mommy"},
  };
  for (const auto& [british, american] : table) {
    EXPECT_TRUE(SpellingPairs::corresponds(british, american)) << british;
    EXPECT_FALSE(SpellingPairs::corresponds(american, british)) << american;
  }
}

TEST(SpellingPairs, TakesNoOtherWords) {
  const std::pair<const char*, const char*> table[] = {
      {"lift", "elevator"}, {"rise", "rice"},     {"color", "color"},  {"four", "fore"},   {"is", "iz"},
      {"flour", "flower"},  {"timbre", "timber"}, {"daemon", "demon"}, {"humous", "humus"}};
  for (const auto& [a, b] : table) {
    EXPECT_FALSE(SpellingPairs::corresponds(a, b)) << a;
    EXPECT_FALSE(SpellingPairs::corresponds(b, a)) << b;
  }
}

// WordNet has these as other spellings, but Britain does not write so.
TEST(SpellingPairs, TakesNoSpellingThatBritainAvoids) {
  EXPECT_FALSE(SpellingPairs::corresponds("humourous", "humorous"));
  EXPECT_FALSE(SpellingPairs::corresponds("deodourant", "deodorant"));
  EXPECT_FALSE(SpellingPairs::corresponds("partisan", "partizan"));
  EXPECT_TRUE(SpellingPairs::corresponds("honourable", "honorable"));
  EXPECT_TRUE(SpellingPairs::corresponds("organisation", "organization"));
}

TEST(SpellingPairs, FindsTheDoubledL) {
  EXPECT_EQ(5u, SpellingPairs::doubledL("traveller", "traveler"));
  EXPECT_EQ(4u, SpellingPairs::doubledL("enroll", "enrol"));
  EXPECT_FALSE(SpellingPairs::doubledL("traveller", "travelers"));
  EXPECT_FALSE(SpellingPairs::doubledL("butter", "buter"));
}

// Pairs among synsets, as "british american pos shared".
std::vector<std::string> pairsOf(
    const std::vector<std::pair<WordNet::Pos, std::vector<std::string>>>& synsets) {
  SmallEnglish english;
  SpellingPairs pairs;
  english.synsets = [&](WordNet::Pos pos, const std::vector<uint32_t>& lemmas) {
    pairs.add(english.wordNet, pos, lemmas);
  };
  for (const auto& [pos, words] : synsets) english.synset(pos, words);
  std::vector<std::string> out;
  for (const SpellingPairs::Pair& pair : pairs.pairs(english.wordNet)) {
    out.push_back(pair.british + " " + pair.american + " " + std::to_string(pair.pos) + " " +
                  std::to_string(pair.shared));
  }
  return out;
}

using Lines = std::vector<std::string>;

TEST(SpellingPairs, PairsMembersOfOneSynset) {
  EXPECT_EQ((Lines{"colour color 0 2", "grey gray 2 1"}),
            pairsOf({{WordNet::kNoun, {"color", "colour", "hue"}},
                     {WordNet::kNoun, {"colour", "color"}},
                     {WordNet::kAdjective, {"gray", "grey"}},
                     {WordNet::kNoun, {"centre"}},
                     {WordNet::kNoun, {"lift", "elevator"}},
                     {WordNet::kNoun, {"center"}}}));
}

TEST(SpellingPairs, PairsWordsThatDifferAtTheirFirstLetter) {
  EXPECT_EQ((Lines{"enquiry inquiry 0 1", "oestrogen estrogen 0 1"}),
            pairsOf({{WordNet::kNoun, {"estrogen", "oestrogen"}}, {WordNet::kNoun, {"inquiry", "enquiry"}}}));
}

TEST(SpellingPairs, TellsWhoseDoubledLItIs) {
  EXPECT_EQ((Lines{"enrol enroll 1 1", "fulfilment fulfillment 0 1", "traveller traveler 0 1"}),
            pairsOf({{WordNet::kNoun, {"traveler", "traveller"}},
                     {WordNet::kVerb, {"enroll", "enrol"}},
                     {WordNet::kVerb, {"fulfill"}},
                     {WordNet::kNoun, {"fulfillment", "fulfilment"}}}));
}

TEST(SpellingPairs, TakesALThatIsNoSuffixMatterForAnotherWord) {
  EXPECT_TRUE(
      pairsOf({{WordNet::kNoun, {"ola", "olla"}}, {WordNet::kNoun, {"postilion", "postillion"}}}).empty());
}

TEST(SpellingPairs, TurnsThePracticeOfVerbs) {
  EXPECT_EQ((Lines{"practise practice 1 1"}), pairsOf({{WordNet::kVerb, {"practice", "practise"}}}));
}

TEST(SpellingPairs, PassesOverPhrasesAndHyphens) {
  EXPECT_TRUE(pairsOf({{WordNet::kNoun, {"colour_tv", "color_tv"}}}).empty());
}

}  // namespace
}  // namespace zavel::mkdict
