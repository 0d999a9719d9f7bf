#include "mkdict/Countable.h"

#include <gtest/gtest.h>

#include "EnglishSupport.h"

namespace zavel::mkdict {
namespace {

constexpr int kArtifact = 6, kPerson = 18, kSubstance = 27, kAct = 4;

struct Noun {
  Noun(const std::string& word, int file) : word_(word) { english.synset(WordNet::kNoun, {word}, file); }
  bool counts() {
    const Inflection& inflection = english.inflection();
    const Sounds sounds = Pronunciation::sounds(word_, "");
    return isCountable(word_, inflection.plurals(word_, sounds), english.wordNet, english.attested,
                       inflection);
  }
  SmallEnglish english;

 private:
  std::string word_;
};

TEST(Countable, CountsPersonsAndThings) {
  EXPECT_TRUE(Noun("doctor", kPerson).counts());
  EXPECT_TRUE(Noun("table", kArtifact).counts());
}

TEST(Countable, CountsNoThingThatIsOftenNamedAndNeverInThePlural) {
  for (const int uses : {39, 40}) {
    Noun noun("furniture", kArtifact);
    for (int i = 0; i < uses; ++i) noun.english.attest("furniture");
    EXPECT_EQ(uses == 39, noun.counts()) << uses;
  }
}

TEST(Countable, CountsOtherNounsByTheUseOfTheirPlural) {
  EXPECT_FALSE(Noun("iron", kSubstance).counts());
  Noun gas("gas", kSubstance);
  gas.english.attest("gases");
  EXPECT_TRUE(gas.counts());
  EXPECT_FALSE(Noun("work", kAct).counts());
}

TEST(Countable, TakesAPluralAmongManyUsesForASlip) {
  for (const int uses : {150, 151}) {
    Noun noun("advice", 10);
    noun.english.attest("advices");
    for (int i = 0; i < uses; ++i) noun.english.attest("advice");
    EXPECT_EQ(uses == 150, noun.counts()) << uses;
  }
}

TEST(Countable, DoesNotTakeAVerbsThirdPersonForAPlural) {
  for (const int uses : {2, 3}) {
    Noun noun("love", 12);
    noun.english.synset(WordNet::kVerb, {"love"});
    for (int i = 0; i < uses; ++i) noun.english.attest("loves");
    EXPECT_EQ(uses == 3, noun.counts()) << uses;
  }
}

TEST(Countable, CountsIrregularPlurals) {
  Noun noun("crisis", 26);
  noun.english.exception(WordNet::kNoun, "crises crisis");
  EXPECT_TRUE(noun.counts());
}

TEST(Countable, CountsNothingWithoutAPlural) {
  EXPECT_FALSE(Noun("physics", kArtifact).counts());
}

TEST(Countable, CountsUnknownNounsByUse) {
  SmallEnglish english;
  english.attest("sashimis");
  const Inflection& inflection = english.inflection();
  EXPECT_TRUE(isCountable("sashimi", {"sashimis"}, english.wordNet, english.attested, inflection));
  EXPECT_FALSE(isCountable("ramen", {"ramens"}, english.wordNet, english.attested, inflection));
}

}  // namespace
}  // namespace zavel::mkdict
