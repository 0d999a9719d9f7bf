#include "mkdict/Pronunciation.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

TEST(Pronunciation, WritesSoundsInAscii) {
  EXPECT_EQ("laIt", Pronunciation::encode("light", "laɪt"));
  EXPECT_EQ("'{p@l", Pronunciation::encode("apple", "ˈæp.əl"));
  EXPECT_EQ("'bju:tIf@l", Pronunciation::encode("beautiful", "ˈbjuːtɪfəl"));
  EXPECT_EQ("%Inf@'meIS@n", Pronunciation::encode("information", "ˌɪnfəˈmeɪʃən"));
  EXPECT_EQ("Tri: dZVmps", Pronunciation::encode("three jumps", "θɹiː d͡ʒʌmps"));
  EXPECT_EQ("laik", Pronunciation::encode("lack", "laik,"));  // no comma: it would end the sounds
}

// What CheckES looks at: z, A 0xD8, A 0xD9.
TEST(Pronunciation, EndsSoThatHissingWordsTakeEs) {
  EXPECT_EQ("wQA\xD8", Pronunciation::encode("wash", "wɒʃ"));
  EXPECT_EQ("tS3:A\xD9", Pronunciation::encode("church", "tʃɜːtʃ"));
  EXPECT_EQ("tS3:A\xD9", Pronunciation::encode("church", "t͡ʃɜːt͡ʃ"));
  EXPECT_EQ("'stVm@k", Pronunciation::encode("stomach", "ˈstʌmək"));
  EXPECT_EQ("wO:ltz", Pronunciation::encode("waltz", "wɔːlts"));
  EXPECT_EQ("bVz", Pronunciation::encode("buzz", "bʌz"));
}

// What the rule for "ing" looks at: e, A 0xC5.
TEST(Pronunciation, EndsSoThatASpokenEStays) {
  EXPECT_EQ("se", Pronunciation::encode("see", "siː"));
  EXPECT_EQ("be", Pronunciation::encode("be", "biː"));
  EXPECT_EQ("@'gre", Pronunciation::encode("agree", "əˈɡɹiː"));
  EXPECT_EQ("'rEsIpe", Pronunciation::encode("recipe", "ˈɹɛsɪpi"));
  EXPECT_EQ("daIA\xC5", Pronunciation::encode("dye", "daɪ"));
  EXPECT_EQ("Su:A\xC5", Pronunciation::encode("shoe", "ʃuː"));
  EXPECT_EQ("k@'nu:A\xC5", Pronunciation::encode("canoe", "kəˈnuː"));
  EXPECT_EQ("meIk", Pronunciation::encode("make", "meɪk"));
  EXPECT_EQ("s@Ute", Pronunciation::encode("saute", "səʊteɪ"));
}

TEST(Pronunciation, SuppliesTheEndThatTheRulesNeed) {
  EXPECT_EQ("-A\xD8", Pronunciation::encode("splash", ""));
  EXPECT_EQ("-A\xD9", Pronunciation::encode("branch", ""));
  EXPECT_EQ("-e", Pronunciation::encode("referee", ""));
  EXPECT_EQ("-A\xC5", Pronunciation::encode("tiptoe", ""));
  EXPECT_EQ("", Pronunciation::encode("monarch", ""));
  EXPECT_EQ("", Pronunciation::encode("stone", ""));
}

TEST(Pronunciation, CountsSyllablesAndFindsTheStress) {
  const Sounds travel = Pronunciation::sounds("travel", "ˈtɹæv.əl");
  EXPECT_TRUE(travel.known);
  EXPECT_EQ(2u, travel.syllables);
  EXPECT_FALSE(travel.lastStressed);
  const Sounds compel = Pronunciation::sounds("compel", "kəmˈpɛl");
  EXPECT_TRUE(compel.lastStressed);
  EXPECT_EQ(1u, Pronunciation::sounds("fire", "faɪə").syllables);
  EXPECT_EQ(2u, Pronunciation::sounds("able", "ˈeɪ.bl̩").syllables);  // a syllabic consonant
  EXPECT_TRUE(Pronunciation::sounds("stop", "stɒp").lastStressed);
}

TEST(Pronunciation, GuessesByTheSpellingWithoutSounds) {
  EXPECT_EQ(1u, Pronunciation::sounds("stone", "").syllables);
  EXPECT_EQ(2u, Pronunciation::sounds("simple", "").syllables);
  EXPECT_EQ(3u, Pronunciation::sounds("happily", "").syllables);
  EXPECT_FALSE(Pronunciation::sounds("stone", "").known);
  EXPECT_TRUE(Pronunciation::sounds("stomach", "").hardCh);
  EXPECT_FALSE(Pronunciation::sounds("search", "").hardCh);
}

}  // namespace
}  // namespace zavel::mkdict
