#include "mkdict/PronunciationChoice.h"

#include <gtest/gtest.h>

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

std::string chosen(const Texts& ipa, const std::string& word, PartOfSpeech pos = PartOfSpeech::kNoun,
                   bool shared = false) {
  return std::string(choosePronunciation(ipa, word, pos, shared));
}

TEST(PronunciationChoice, TakesAWholeAndPlainOne) {
  EXPECT_EQ("ˈkɒlə", chosen({"-lə", "ˈkʌl.ə(ɹ)", "ˈkɒlə", "x"}, "collar"));
  EXPECT_EQ("ˈkʌl.ə(ɹ)", chosen({"-lə", "ˈkʌl.ə(ɹ)"}, "collar"));
  EXPECT_EQ("", chosen({"-lə"}, "collar"));
  EXPECT_EQ("", chosen({""}, "collar"));
  EXPECT_EQ("", chosen({}, "collar"));
}

TEST(PronunciationChoice, PassesOverWeakForms) {
  EXPECT_EQ("ˈhɪm", chosen({"əm", "ˈhɪm"}, "him"));
  EXPECT_EQ("ˈhɝ", chosen({"ɚ", "ˈhɝ"}, "her"));
  EXPECT_EQ("ənd", chosen({"ənd"}, "and"));  // better than none
}

TEST(PronunciationChoice, PassesOverVowelsOfOneRegion) {
  EXPECT_EQ("fɪʃ", chosen({"fɘʃ", "fɪʃ"}, "fish"));
  EXPECT_EQ("bɹɛd", chosen({"bɹeːd", "bɹɛd"}, "bread"));
  EXPECT_EQ("ˈoʊld", chosen({"aʉld", "ˈoʊld", "ˈəʊld"}, "old"));
  EXPECT_EQ("ˈðæt", chosen({"ˈd̪æt", "ˈðæt"}, "that"));
  EXPECT_EQ("lʌv", chosen({"lʊv", "lʌv"}, "love"));
  EXPECT_EQ("wʌn", chosen({"oʊn", "wan", "wɒn", "wʌn"}, "one"));
  EXPECT_EQ("fɘʃ", chosen({"fɘʃ"}, "fish"));
}

TEST(PronunciationChoice, TakesTheMostTypicalOne) {
  EXPECT_EQ("bæd", chosen({"baːd", "bæd", "bæːd", "bɛd", "bɛəd"}, "bad"));
  // America's and Britain's count as one, so two stand against the first.
  EXPECT_EQ("ˈnɑlɪdʒ", chosen({"ˈnoʊlɪdʒ", "ˈnɑlɪdʒ", "ˈnɒlɪdʒ"}, "knowledge"));
  EXPECT_EQ("hæv", chosen({"heɪv", "hæf", "hæv", "həv", "ə", "əv"}, "have", PartOfSpeech::kVerb));
  EXPECT_EQ("maɪ",
            chosen({"maɪ", "mi", "mə", "mɪ"}, "my", PartOfSpeech::kDeterminer));  // a diphthong is one sound
  EXPECT_EQ("eɪ", chosen({"eɪ", "æ", "æɪ", "ɑː"}, "a"));
  EXPECT_EQ("bi", chosen({"bi", "biː"}, "be", PartOfSpeech::kVerb));  // equals: the first
}

TEST(PronunciationChoice, PassesOverSoundsThatTheLastLetterDoesNotSpell) {
  EXPECT_EQ("ˈæbəkəs", chosen({"-saɪ", "ˈæbəkaɪ", "ˈæbəkəs", "ˈæbəˌkaɪ"}, "abacus"));
  EXPECT_EQ("kɔː", chosen({"kɔː", "kɔːz"}, "corps"));  // an s may be mute
  EXPECT_EQ("wɪð", chosen({"wɪf", "wɪð", "wɪθ"}, "with"));
  EXPECT_EQ("ænd", chosen({"n̩", "æn", "ænd", "ɛnd"}, "and"));
}

TEST(PronunciationChoice, StressesVerbsLateAndNounsEarly) {
  const Texts object = {"əbˈd͡ʒɛkt", "ˈɑb.d͡ʒɛkt", "ˈɒb.d͡ʒɛkt"};
  EXPECT_EQ("ˈɑb.d͡ʒɛkt", chosen(object, "object", PartOfSpeech::kNoun, true));
  EXPECT_EQ("əbˈd͡ʒɛkt", chosen(object, "object", PartOfSpeech::kVerb, true));
  EXPECT_EQ("ˈwɔːtə", chosen({"ˈwɔːtə", "wɔːtə"}, "water", PartOfSpeech::kVerb, true));  // no mark, no stress
  // A word of one class keeps its stress, whatever the list holds.
  EXPECT_EQ("hoʊˈtɛl", chosen({"hoʊˈtɛl", "ˈhoʊtɛl"}, "hotel", PartOfSpeech::kNoun, false));
}

TEST(PronunciationChoice, EndsVerbsVoiced) {
  const Texts use = {"jus", "juz", "juːs", "juːz"};
  EXPECT_EQ("jus", chosen(use, "use", PartOfSpeech::kNoun, true));
  EXPECT_EQ("juz", chosen(use, "use", PartOfSpeech::kVerb, true));
}

TEST(PronunciationChoice, SoundsAteInVerbsAlone) {
  const Texts separate = {"ˈsɛpəɹeɪt", "ˈsɛpəɹət"};
  EXPECT_EQ("ˈsɛpəɹeɪt", chosen(separate, "separate", PartOfSpeech::kVerb));
  EXPECT_EQ("ˈsɛpəɹət", chosen(separate, "separate", PartOfSpeech::kAdjective));
  EXPECT_EQ("steɪt", chosen({"steɪt"}, "state"));
}

TEST(PronunciationChoice, TakesWhatIsNotUtf8AsItIs) {
  EXPECT_EQ("\xFF", chosen({"\xFF"}, "x"));
}

}  // namespace
}  // namespace zavel::mkdict
