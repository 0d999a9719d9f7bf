#include "mkdict/GlossIndex.h"

#include <gtest/gtest.h>

#include "EnglishSupport.h"
#include "mkdict/EdictSupport.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

// Lines of EDICT against a WordNet with a few words.
struct Turning {
  Turning() {
    english.synset(WordNet::kNoun, {"dog"}, 5);
    english.synset(WordNet::kNoun, {"footstep"});
    english.synset(WordNet::kNoun, {"one-third"});
    english.synset(WordNet::kNoun, {"World_Health_Organization", "WHO"}, 14);
    english.synset(WordNet::kNoun, {"Paris"}, 15);
    english.synset(WordNet::kVerb, {"eat"});
    english.synset(WordNet::kVerb, {"rely_on"});
    english.synset(WordNet::kAdjective, {"red"});
    english.synset(WordNet::kAdverb, {"elsewhere"});
    english.synset(WordNet::kAdverb, {"a_bit"});
    english.synset(WordNet::kAdverb, {"for_the_first_time"});
  }
  void line(const std::string& text) { index.add(edictLine(text)); }
  // What one word gathered; empty when it is no headword.
  GlossIndex::Turned of(const std::string& word, PartOfSpeech pos) {
    for (const GlossIndex::Turned& turned : index.take()) {
      if (turned.word == word && turned.pos == pos) return turned;
    }
    return {};
  }
  Texts one(const std::string& text, const std::string& word, PartOfSpeech pos) {
    line(text);
    return of(word, pos).translations;
  }
  SmallEnglish english;
  GlossIndex index{english.wordNet};
};

TEST(GlossIndex, TakesPartsOfSpeechFromBothLanguages) {
  EXPECT_EQ(Texts{"食べる"}, Turning().one("食べる [たべる] /(v1,vt) to eat/", "eat", PartOfSpeech::kVerb));
  EXPECT_EQ(Texts{"犬"}, Turning().one("犬 [いぬ] /(n) dog/", "dog", PartOfSpeech::kNoun));
  EXPECT_EQ(Texts{"赤い"}, Turning().one("赤い [あかい] /(adj-i) red/", "red", PartOfSpeech::kAdjective));
  EXPECT_EQ(Texts{"赤"}, Turning().one("赤 [あか] /(n,adj-no) red/", "red", PartOfSpeech::kAdjective));
  EXPECT_EQ(Texts{"他所"}, Turning().one("他所 [よそ] /(n) elsewhere/", "elsewhere", PartOfSpeech::kAdverb));
  EXPECT_EQ(Texts{"誰"}, Turning().one("誰 [だれ] /(pn) who/", "who", PartOfSpeech::kPronoun));
  EXPECT_EQ(Texts{"巴里"}, Turning().one("巴里 [パリ] /(n) Paris/", "Paris", PartOfSpeech::kProperNoun));
}

TEST(GlossIndex, TakesAVerbOnlyByItsTo) {
  EXPECT_TRUE(Turning().one("食う [くう] /(v5u) eat/", "eat", PartOfSpeech::kVerb).empty());
  EXPECT_TRUE(Turning().one("犬 [いぬ] /(n) to eat/", "eat", PartOfSpeech::kVerb).empty());
}

TEST(GlossIndex, StripsArticlesRemarksAndObjects) {
  EXPECT_EQ(Texts{"犬"}, Turning().one("犬 [いぬ] /(n) a dog (Canis)/", "dog", PartOfSpeech::kNoun));
  EXPECT_EQ(Texts{"頼る"},
            Turning().one("頼る [たよる] /(v5r) to rely on someone/", "rely on", PartOfSpeech::kVerb));
  EXPECT_EQ(Texts{"足音"}, Turning().one("足音 [あしおと] /(n) footsteps/", "footstep", PartOfSpeech::kNoun));
}

TEST(GlossIndex, KeepsPhrasesThatWordNetHas) {
  EXPECT_EQ(Texts{"少し"}, Turning().one("少し [すこし] /(adv) a bit/", "a bit", PartOfSpeech::kAdverb));
  EXPECT_EQ(Texts{"初めて"}, Turning().one("初めて [はじめて] /(adv) for the first time/",
                                           "for the first time", PartOfSpeech::kAdverb));
  EXPECT_EQ(Texts{"三分の一"},
            Turning().one("三分の一 [さんぶんのいち] /(n) one third/", "one third", PartOfSpeech::kNoun));
}

TEST(GlossIndex, PassesOverDefinitions) {
  EXPECT_TRUE(Turning()
                  .one("犬 [いぬ] /(n) dog that barks loudly/", "dog that barks loudly", PartOfSpeech::kNoun)
                  .empty());
  EXPECT_TRUE(Turning().one("犬 [いぬ] /(n) dog; hound/", "dog", PartOfSpeech::kNoun).empty());
}

TEST(GlossIndex, PassesOverRareWordsAndParts) {
  EXPECT_TRUE(Turning().one("狗 [いぬ] /(oK) (n) dog/", "dog", PartOfSpeech::kNoun).empty());
  EXPECT_TRUE(Turning().one("狗 [いぬ] /(n) (arch) dog/", "dog", PartOfSpeech::kNoun).empty());
  EXPECT_TRUE(Turning().one("犬 [いぬ] /(pref) dog/", "dog", PartOfSpeech::kNoun).empty());
  EXPECT_TRUE(Turning().one("分生子 [ぶんせいし] /(n) conidi-/(P)/", "conidi-", PartOfSpeech::kNoun).empty());
  EXPECT_EQ(Texts{"犬"}, Turning().one("犬 [いぬ] /(n) dog-/", "dog", PartOfSpeech::kNoun));
}

TEST(GlossIndex, WritesKanaWhereThatIsUsual) {
  Turning turning;
  turning.line("狗 [いぬ] /(n) (uk) dog/");
  const GlossIndex::Turned dog = turning.of("dog", PartOfSpeech::kNoun);
  EXPECT_EQ(Texts{"いぬ"}, dog.translations);
  EXPECT_EQ((Texts{"いぬ", "狗"}), dog.ranked);
}

TEST(GlossIndex, PutsTheMainMeaningOfACommonWordFirst) {
  Turning turning;
  turning.line("間諜 [かんちょう] /(n) spy/dog/");                 // a later gloss
  turning.line("手先 [てさき] /(n) (1) finger/(n) (2) dog/(P)/");  // a later sense of a common word
  turning.line("洋犬 [ようけん] /(n) dog (of a western breed)/");
  turning.line("犬 [いぬ] /(n) dog/(P)/");
  const GlossIndex::Turned dog = turning.of("dog", PartOfSpeech::kNoun);
  // 0; 30; 70 + 4; 70 + 20
  EXPECT_EQ((Texts{"犬", "手先", "間諜"}), dog.translations);
  EXPECT_EQ((Texts{"犬", "手先", "間諜", "洋犬"}), dog.ranked);
  EXPECT_TRUE(dog.common);
  EXPECT_TRUE(dog.known);
}

TEST(GlossIndex, ShowsSixCommonAndThreeOtherTranslations) {
  for (const bool common : {true, false}) {
    Turning turning;
    for (const char* word : {"一", "二", "三", "四", "五", "六", "七"}) {
      turning.line(std::string(word) + " [" + word + "] /(n) dog/" + (common ? "(P)/" : ""));
    }
    EXPECT_EQ(common ? 6u : 3u, turning.of("dog", PartOfSpeech::kNoun).translations.size());
  }
}

TEST(GlossIndex, ShowsOneSpellingOfAWord) {
  Turning turning;
  turning.line("鋤く [すく] /(v5k) to eat/(P)/");
  turning.line("梳く [すく] /(v5k) to eat/(P)/");
  turning.line("イーター [イーター] /(v1) to eat/(P)/");
  turning.line("イー・ター [イー・ター] /(v1) to eat/(P)/");
  const GlossIndex::Turned eat = turning.of("eat", PartOfSpeech::kVerb);
  EXPECT_EQ((Texts{"鋤く", "イーター"}), eat.translations);
  EXPECT_EQ((Texts{"鋤く", "梳く", "イーター", "イー・ター"}), eat.ranked);
}

TEST(GlossIndex, PassesOverSensesFarDownBesideAMainOne) {
  const auto down = [](int senses) {
    std::string line = "上げる [あげる] /(v1) ";
    for (int i = 1; i < senses; ++i)
      line += "(" + std::to_string(i) + ") to x" + std::string(static_cast<size_t>(i), 'y') + "/";
    return line + "(" + std::to_string(senses) + ") to eat/(P)/";
  };
  for (const int senses : {6, 7}) {  // 150 and 180 behind
    Turning turning;
    turning.line("食べる [たべる] /(v1) to eat/(P)/");
    turning.line(down(senses));
    EXPECT_EQ(senses == 6 ? (Texts{"食べる", "上げる"}) : Texts{"食べる"},
              turning.of("eat", PartOfSpeech::kVerb).translations);
  }
  Turning alone;
  alone.line(down(7));
  EXPECT_EQ(Texts{"上げる"}, alone.of("eat", PartOfSpeech::kVerb).translations);
}

TEST(GlossIndex, TakesWordsThatWordNetLacksAfterTheirJapanese) {
  Turning turning;
  turning.line("刺身 [さしみ] /(n) sashimi/");
  const GlossIndex::Turned sashimi = turning.of("sashimi", PartOfSpeech::kNoun);
  EXPECT_EQ(Texts{"刺身"}, sashimi.translations);
  EXPECT_FALSE(sashimi.known);
}

TEST(GlossIndex, TakesUnknownPhrasesOnlyAsMainMeaningsOfCommonWords) {
  const auto taken = [](const std::string& line, const std::string& phrase) {
    return !Turning().one(line, phrase, PartOfSpeech::kNoun).empty();
  };
  EXPECT_TRUE(taken("灯台守 [とうだいもり] /(n) lighthouse keeper/(P)/", "lighthouse keeper"));
  EXPECT_FALSE(taken("灯台守 [とうだいもり] /(n) lighthouse keeper/", "lighthouse keeper"));
  EXPECT_FALSE(taken("灯台守 [とうだいもり] /(n) guard/lighthouse keeper/(P)/", "lighthouse keeper"));
  EXPECT_FALSE(taken("受注 [じゅちゅう] /(n) accepting an order/(P)/", "accepting an order"));
  EXPECT_FALSE(taken("何より [なにより] /(n) above anything else/(P)/", "above anything else"));
}

TEST(GlossIndex, KeepsNamesAndAbbreviationsApartFromWords) {
  Turning turning;
  turning.english.synset(WordNet::kNoun, {"China"}, 15);
  turning.english.synset(WordNet::kNoun, {"china"});
  turning.english.synset(WordNet::kAdverb, {"far"});
  turning.line("中国 [ちゅうごく] /(n) China/(P)/");
  turning.line("磁器 [じき] /(n) china/(P)/");
  turning.line("遠く [とおく] /(adv) far/(P)/");
  turning.line("容積率 [ようせきりつ] /(n) FAR/(P)/");
  const std::vector<GlossIndex::Turned> all = turning.index.take();
  Texts found;
  for (const GlossIndex::Turned& one : all) {
    found.push_back(one.word + (one.pos == PartOfSpeech::kProperNoun ? " name " : " ") + one.translations[0]);
  }
  EXPECT_EQ((Texts{"China name 中国", "FAR 容積率", "china 磁器", "far 遠く"}), found);
}

TEST(GlossIndex, TakesNoNameForAWord) {
  // WordNet's only noun "be" is Be, beryllium.
  Turning turning;
  turning.english.synset(WordNet::kNoun, {"Be"}, 27);
  turning.english.synset(WordNet::kVerb, {"be"});
  EXPECT_TRUE(turning.one("だ /(cop-da) be/is/(P)/", "be", PartOfSpeech::kNoun).empty());
}

TEST(GlossIndex, PrefersSmallLetters) {
  Turning turning;
  turning.line("赤 [あか] /(adj-i) Red/");
  turning.line("赤い [あかい] /(adj-i) red/(P)/");
  EXPECT_EQ((Texts{"赤い", "赤"}), turning.of("red", PartOfSpeech::kAdjective).translations);
}

}  // namespace
}  // namespace zavel::mkdict
