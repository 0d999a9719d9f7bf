#include "mkdict/EnglishEntries.h"

#include <gtest/gtest.h>

#include "EnglishSupport.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

EnglishWord word(const std::string& headword, PartOfSpeech pos, const Texts& translations,
                 const Texts& ipa = {}) {
  EnglishWord out{headword, pos, ipa, {}};
  for (const std::string& translation : translations) out.senses.push_back({{translation}, {}});
  return out;
}

GlossIndex::Turned turned(const std::string& headword, PartOfSpeech pos, const Texts& translations,
                          bool known = true, bool common = true) {
  return {headword, pos, translations, translations, common, known};
}

struct Gathering {
  EnglishEntries& entries() {
    if (!entries_) {
      entries_ =
          std::make_unique<EnglishEntries>(english.wordNet, english.attested, english.inflection(), &summary);
    }
    return *entries_;
  }
  // "word 1 [pos number] translations" of each entry, by rank.
  Texts arranged() {
    entries().arrange();
    Texts out;
    for (const EnglishEntries::Item& item : entries().items()) {
      std::string line = item.draft.word + " " + std::to_string(item.draft.homograph) + " " +
                         toUtf8(EntryText::label(item.draft.pos));
      for (const EnglishSense& sense : item.draft.senses) {
        for (const std::string& text : sense.translations) line += " " + toUtf8(text);
      }
      out.push_back(line);
    }
    return out;
  }
  const EntryDraft& only() { return entries().items().at(0).draft; }
  SmallEnglish english;
  Summary summary;

 private:
  std::unique_ptr<EnglishEntries> entries_;
};

TEST(EnglishEntries, OrdersHomographsByTheirUses) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"run"});
  g.english.synset(WordNet::kVerb, {"run"});
  g.english.uses("run%1:04:00:: 1 3");
  g.english.uses("run%2:38:00:: 1 50");
  g.entries().add(word("run", PartOfSpeech::kNoun, {"区間"}), {});
  g.entries().add(word("run", PartOfSpeech::kVerb, {"走る"}), {});
  EXPECT_EQ((Texts{"run 1 -[動] 走る", "run 2 -[名] 区間"}), g.arranged());
}

TEST(EnglishEntries, PutsWordsOfGrammarAmongThem) {
  Gathering g;
  for (const char* uses : {"like%2:37:00:: 1 31", "like%1:09:00:: 1 29"}) g.english.uses(uses);
  g.entries().add(word("like", PartOfSpeech::kNoun, {"類"}), {});
  g.entries().add(word("like", PartOfSpeech::kPreposition, {"ように"}), {});
  g.entries().add(word("like", PartOfSpeech::kVerb, {"好む"}), {});
  EXPECT_EQ((Texts{"like 1 -[動] 好む", "like 2 -[前] ように", "like 3 -[名] 類"}), g.arranged());
}

TEST(EnglishEntries, PutsCapitalsAndPhrasesBehindTheWordOfTheirKey) {
  Gathering g;
  g.entries().add(word("Turkey", PartOfSpeech::kProperNoun, {"トルコ"}), {});
  g.entries().add(word("set up", PartOfSpeech::kVerb, {"立てる"}), {});
  g.entries().add(word("setup", PartOfSpeech::kNoun, {"装置"}), {});
  g.entries().add(word("turkey", PartOfSpeech::kNoun, {"七面鳥"}), {});
  EXPECT_EQ((Texts{"setup 1 -[名] 装置", "set up 1 -[動] 立てる", "turkey 1 -[名] 七面鳥",
                   "Turkey 1 -[名][固] トルコ"}),
            g.arranged());
}

TEST(EnglishEntries, RanksByUsesThenSourceThenAlphabet) {
  Gathering g;
  g.english.uses("zebra%1:05:00:: 1 9");
  g.english.attest("the the the the the the the the the the");
  g.entries().add(word("yak", PartOfSpeech::kNoun, {"ヤク"}), {});
  g.entries().add(word("zebra", PartOfSpeech::kNoun, {"縞馬"}), {});
  g.entries().add(word("the", PartOfSpeech::kArticle, {"その"}), {});
  g.entries().addTurned(turned("ant", PartOfSpeech::kNoun, {"蟻"}));
  EXPECT_EQ((Texts{"the 1 -[冠] その", "zebra 1 -[名] 縞馬", "yak 1 -[名] ヤク", "ant 1 -[名] 蟻"}),
            g.arranged());
  EXPECT_EQ(3u, g.entries().items()[3].rank);
  EXPECT_TRUE(g.entries().items()[3].turned);
}

TEST(EnglishEntries, PutsTheBestKnownSenseFirst) {
  Gathering g;
  EnglishWord color = word("color", PartOfSpeech::kNoun, {"業績", "色", "幟"});
  color.senses.push_back({{"染料", "色"}, {}});
  g.entries().add(color, {"カラー", "色"});
  // 色 alone, 色 at the second place, then those that nothing ranks in their order
  EXPECT_EQ(Texts{"color 1 -[名] 色 染料 色 業績 幟"}, g.arranged());
}

TEST(EnglishEntries, SpellsHeadwordsInAsciiOrLeavesThemOut) {
  Gathering g;
  g.entries().add(word("café", PartOfSpeech::kNoun, {"喫茶店"}), {});
  g.entries().add(word("C++", PartOfSpeech::kNoun, {"言語"}), {});
  g.entries().add(word("acne", PartOfSpeech::kNoun, {"痤瘡"}), {});
  EXPECT_EQ(Texts{"cafe 1 -[名] 喫茶店"}, g.arranged());
  EXPECT_EQ(1u, g.summary.valueOf("English headwords spelled in ASCII"));
  EXPECT_EQ(1u, g.summary.leftOutCount("English headwords with characters that searches refuse"));
  EXPECT_EQ(1u, g.summary.leftOutCount("English words without a translation"));
}

TEST(EnglishEntries, AddsWhatFreeDictLacks) {
  Gathering g;
  g.english.synset(WordNet::kVerb, {"answer"});
  g.entries().add(word("answer", PartOfSpeech::kNoun, {"答え"}), {});
  g.entries().addTurned(turned("answer", PartOfSpeech::kNoun, {"返事"}));
  g.entries().addTurned(turned("answer", PartOfSpeech::kVerb, {"答える"}));
  EXPECT_EQ((Texts{"answer 1 -[名] 答え", "answer 2 -[動] 答える"}), g.arranged());
}

TEST(EnglishEntries, AddsAHomographOnlyWhenItIsKnownAndUsedOrCommon) {
  Gathering g;
  g.english.synset(WordNet::kVerb, {"dog"});
  for (const char* headword : {"dog", "cat", "ape"})
    g.entries().add(word(headword, PartOfSpeech::kNoun, {"x"}), {});
  g.entries().addTurned(turned("dog", PartOfSpeech::kVerb, {"追う"}, true, false));
  g.entries().addTurned(turned("cat", PartOfSpeech::kVerb, {"吐く"}, false, true));
  g.entries().addTurned(turned("ape", PartOfSpeech::kVerb, {"真似る"}, true, true));
  EXPECT_EQ((Texts{"ape 1 -[名] x", "ape 2 -[動] 真似る", "cat 1 -[名] x", "dog 1 -[名] x"}), g.arranged());
}

TEST(EnglishEntries, AddsNothingBesideAPhraseWithoutAPartOfSpeech) {
  Gathering g;
  g.entries().add(word("at last", PartOfSpeech::kNone, {"遂に"}), {});
  g.entries().addTurned(turned("at last", PartOfSpeech::kAdverb, {"やっと"}));
  EXPECT_EQ(Texts{"at last 1  遂に"}, g.arranged());
}

TEST(EnglishEntries, MakesNoHeadwordOfAForm) {
  Gathering g;
  g.english.synset(WordNet::kVerb, {"walk"});
  g.english.synset(WordNet::kVerb, {"stop"});
  g.english.exception(WordNet::kNoun, "children child");
  for (const char* form : {"walking", "walked", "stopping", "children"}) {
    g.entries().addTurned(turned(form, PartOfSpeech::kNoun, {"x"}, false));
  }
  g.entries().addTurned(turned("sashimi", PartOfSpeech::kNoun, {"刺身"}, false));
  EXPECT_EQ(Texts{"sashimi 1 -[名] 刺身"}, g.arranged());
}

SpellingPairs::Pair pair(const std::string& british, const std::string& american, uint32_t shared = 1) {
  return {british, american, WordNet::kNoun, shared};
}

TEST(EnglishEntries, LetsTwoSpellingsReferToEachOther) {
  Gathering g;
  g.entries().add(word("colour", PartOfSpeech::kVerb, {"塗る"}), {});
  g.entries().add(word("colour", PartOfSpeech::kNoun, {"色"}), {});
  g.entries().add(word("color", PartOfSpeech::kNoun, {"色"}), {});
  g.entries().addSpellings({pair("colour", "color")});
  EXPECT_EQ((Texts{"color 1 -[名] 色", "colour 1 -[名] 色", "colour 2 -[動] 塗る"}), g.arranged());
  const auto& items = g.entries().items();
  ASSERT_EQ(1u, items[0].draft.references.size());
  EXPECT_EQ("colour", items[0].draft.references[0].word);
  EXPECT_FALSE(items[0].draft.references[0].british);
  EXPECT_EQ(std::vector<int>{1}, items[0].draft.references[0].homographs);
  EXPECT_TRUE(items[1].draft.references.at(0).british);
  EXPECT_TRUE(items[2].draft.references.empty());
}

TEST(EnglishEntries, GivesTheOtherSpellingAShortEntry) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"color"});
  EnglishWord color = word("color", PartOfSpeech::kNoun, {"色", "二", "三", "四"}, {"ˈkʌlə"});
  color.senses[0] = {{"色", "彩り", "彩色", "カラー"}, {"hue"}};
  g.entries().add(color, {});
  g.entries().addSpellings({pair("colour", "color")});
  EXPECT_EQ((Texts{"color 1 -[名] 色 彩り 彩色 カラー 二 三 四", "colour 1 -[名] 色 彩り 彩色 二 三"}),
            g.arranged());
  const auto& items = g.entries().items();
  EXPECT_TRUE(items[0].draft.references.at(0).homographs.empty());  // a remark
  EXPECT_EQ("color", items[1].draft.references.at(0).word);
  EXPECT_TRUE(items[1].draft.references[0].british);
  EXPECT_EQ(std::vector<int>{1}, items[1].draft.references[0].homographs);
  EXPECT_TRUE(items[1].draft.senses[0].notes.empty());
  EXPECT_EQ(items[0].draft.pronunciation, items[1].draft.pronunciation);
  EXPECT_EQ(1u, g.summary.valueOf("entries of another spelling"));
}

TEST(EnglishEntries, CopiesNoTranslationsForOneSenseOfMany) {
  Gathering g;
  for (int i = 0; i < 3; ++i) g.english.synset(WordNet::kNoun, {"check"});
  g.entries().add(word("check", PartOfSpeech::kNoun, {"検査"}), {});
  g.entries().addSpellings({pair("cheque", "check")});
  EXPECT_EQ((Texts{"check 1 -[名] 検査", "cheque 1 -[名]"}), g.arranged());
}

TEST(EnglishEntries, PassesOverPairsWithoutAnEntry) {
  Gathering g;
  g.entries().addSpellings({pair("colour", "color")});
  EXPECT_TRUE(g.arranged().empty());
}

TEST(EnglishEntries, StarsTheMostFrequent) {
  Gathering g;
  // The words w0 to w4000 by falling uses; "yy" beyond them.
  std::string counts;
  for (int i = 0; i <= 4000; ++i) {
    std::string name = "w";
    for (int n = i; n > 0; n /= 10) name += static_cast<char>('a' + n % 10);
    counts += name + "%1:04:00:: 1 " + std::to_string(9000 - i) + "\n";
  }
  ASSERT_TRUE(g.english.wordNet.readCounts(counts));
  const auto add = [&](const char* text) { g.entries().add(word(text, PartOfSpeech::kNoun, {"x"}), {}); };
  add("w");      // 0
  add("wjjj");   // 999
  add("waaab");  // 1000
  add("wjjjd");  // 3999
  add("waaae");  // 4000
  g.entries().arrange();
  Texts stars;
  for (const auto& item : g.entries().items()) stars.push_back(item.draft.stars);
  EXPECT_EQ((Texts{"***", "***", "**", "**", ""}), stars);
}

TEST(EnglishEntries, StarsWordsOfGrammarByTheirUseInDefinitions) {
  for (const auto& [uses, stars] :
       {std::pair(99, ""), std::pair(100, "**"), std::pair(999, "**"), std::pair(1000, "***")}) {
    Gathering g;
    for (int i = 0; i < uses; ++i) g.english.attest("of");
    g.entries().add(word("of", PartOfSpeech::kPreposition, {"の"}), {});
    g.entries().arrange();
    EXPECT_EQ(stars, g.only().stars) << uses;
  }
}

TEST(EnglishEntries, GivesANameTheStarsOfItsSpellingOnlyWhenItStandsAlone) {
  Gathering g;
  g.english.uses("china%1:06:00:: 1 9");
  g.english.uses("turkey%1:05:00:: 1 8");
  g.entries().add(word("China", PartOfSpeech::kProperNoun, {"中国"}), {});
  g.entries().add(word("Turkey", PartOfSpeech::kProperNoun, {"トルコ"}), {});
  g.entries().add(word("turkey", PartOfSpeech::kNoun, {"七面鳥"}), {});
  g.entries().arrange();
  Texts stars;
  for (const auto& item : g.entries().items()) stars.push_back(item.draft.word + item.draft.stars);
  EXPECT_EQ((Texts{"China***", "turkey***", "Turkey"}), stars);
}

TEST(EnglishEntries, GivesANameItsOwnStarsWhereWordNetTellsIt) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"China"}, 15);
  g.english.synset(WordNet::kNoun, {"china"});
  g.english.uses("china%1:15:00:: 1 9");
  g.entries().add(word("china", PartOfSpeech::kNoun, {"磁器"}), {});
  g.entries().add(word("China", PartOfSpeech::kProperNoun, {"中国"}), {});
  g.entries().arrange();
  Texts stars;
  for (const auto& item : g.entries().items()) stars.push_back(item.draft.word + item.draft.stars);
  EXPECT_EQ((Texts{"china", "China***"}), stars);
}

// WordNet writes the moon with a capital, FreeDict without as well.
TEST(EnglishEntries, CountsTheUsesOfAWordAndANameOfTheSameThingForBoth) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"Moon"}, 17);
  g.english.synset(WordNet::kNoun, {"moon"});
  g.english.synset(WordNet::kVerb, {"moon"});
  for (const char* uses : {"moon%1:17:00:: 1 9", "moon%2:29:00:: 1 2"}) g.english.uses(uses);
  g.entries().add(word("moon", PartOfSpeech::kVerb, {"ぼんやりする"}), {});
  g.entries().add(word("moon", PartOfSpeech::kNoun, {"太陰", "月"}), {});
  g.entries().add(word("Moon", PartOfSpeech::kProperNoun, {"月"}), {});
  EXPECT_EQ((Texts{"moon 1 -[名] 太陰 月", "moon 2 -[動] ぼんやりする", "Moon 1 -[名][固] 月"}),
            g.arranged());
  EXPECT_EQ("***", g.entries().items()[0].draft.stars);
  EXPECT_EQ("", g.entries().items()[2].draft.stars);
}

TEST(EnglishEntries, PutsModalVerbsAmongTheWordsOfGrammar) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"must"});
  g.english.uses("must%1:09:00:: 1 2");
  g.entries().add(word("must", PartOfSpeech::kNoun, {"必需品"}), {});
  g.entries().add(word("must", PartOfSpeech::kVerb, {"ねばならない"}), {});
  EXPECT_EQ((Texts{"must 1 -[動] ねばならない", "must 2 -[名] 必需品"}), g.arranged());
}

TEST(EnglishEntries, AddsNoNamesakeOfAWordOfGrammarThatNobodyUses) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"he"});
  g.english.synset(WordNet::kNoun, {"round"});
  g.english.uses("round%1:14:00:: 1 4");
  g.entries().add(word("he", PartOfSpeech::kPronoun, {"彼"}), {});
  g.entries().add(word("round", PartOfSpeech::kPreposition, {"回って"}), {});
  g.entries().addTurned(turned("he", PartOfSpeech::kNoun, {"同氏"}));
  g.entries().addTurned(turned("round", PartOfSpeech::kNoun, {"回戦"}));
  EXPECT_EQ((Texts{"round 1 -[前] 回って", "round 2 -[名] 回戦", "he 1 -[代] 彼"}), g.arranged());
}

// FreeDict calls Monday a noun, WordNet writes it with a capital.
TEST(EnglishEntries, SaysNothingTwiceAsNounAndName) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"Monday"}, 28);
  g.english.synset(WordNet::kNoun, {"American"}, 18);
  g.entries().add(word("Monday", PartOfSpeech::kNoun, {"月曜日", "月曜"}), {});
  g.entries().add(word("American", PartOfSpeech::kNoun, {"アメリカ人"}), {});
  g.entries().addTurned(turned("Monday", PartOfSpeech::kProperNoun, {"月曜", "月"}));
  g.entries().addTurned(turned("American", PartOfSpeech::kProperNoun, {"米国民"}));
  EXPECT_EQ(
      (Texts{"American 1 -[名] アメリカ人", "American 2 -[名][固] 米国民", "Monday 1 -[名] 月曜日 月曜"}),
      g.arranged());
}

TEST(EnglishEntries, LendsNoPronunciationToAnAbbreviation) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"US"}, 15);
  g.entries().add(word("us", PartOfSpeech::kPronoun, {"私達"}, {"ʌs"}), {});
  g.entries().addTurned(turned("US", PartOfSpeech::kProperNoun, {"米国"}));
  g.entries().arrange();
  ASSERT_EQ(2u, g.entries().items().size());
  EXPECT_EQ("Vs", g.entries().items()[0].draft.pronunciation);
  EXPECT_EQ("", g.entries().items()[1].draft.pronunciation);
}

TEST(EnglishEntries, ChoosesThePronunciationOfThePartOfSpeech) {
  Gathering g;
  g.english.synset(WordNet::kVerb, {"use"});
  g.entries().add(word("use", PartOfSpeech::kNoun, {"使用"}, {"juːs", "juːz"}), {});
  g.entries().add(word("use", PartOfSpeech::kVerb, {"使う"}, {"juːs", "juːz"}), {});
  g.entries().arrange();
  EXPECT_EQ("ju:s", g.entries().items()[0].draft.pronunciation);
  EXPECT_EQ("ju:z", g.entries().items()[1].draft.pronunciation);
}

TEST(EnglishEntries, LabelsNounsAndAdjectives) {
  Gathering g;
  g.english.synset(WordNet::kNoun, {"doctor"}, 18);
  g.english.synset(WordNet::kNoun, {"family_doctor"}, 18);
  g.english.synset(WordNet::kAdjective, {"tall"});
  g.entries().add(word("doctor", PartOfSpeech::kNoun, {"医者"}), {});
  g.entries().add(word("family doctor", PartOfSpeech::kNoun, {"主治医"}), {});
  g.entries().add(word("tall", PartOfSpeech::kAdjective, {"高い"}), {});
  g.entries().add(word("beautiful", PartOfSpeech::kAdjective, {"美しい"}), {});
  g.entries().arrange();
  for (const auto& item : g.entries().items()) {
    EXPECT_EQ(item.draft.word == "doctor", item.draft.countable) << item.draft.word;
    EXPECT_EQ(item.draft.word == "beautiful", item.draft.comparesByMore) << item.draft.word;
    EXPECT_FALSE(item.draft.comparesNot);
  }
}

TEST(EnglishEntries, SharesThePronunciationOfAHeadword) {
  Gathering g;
  g.english.synset(WordNet::kVerb, {"wash"});
  g.entries().add(word("wash", PartOfSpeech::kNoun, {"洗濯"}, {"wɒʃ"}), {});
  g.entries().addTurned(turned("wash", PartOfSpeech::kVerb, {"洗う"}));
  g.entries().arrange();
  EXPECT_EQ("wQA\xD8", g.entries().items()[0].draft.pronunciation);
  EXPECT_EQ("wQA\xD8", g.entries().items()[1].draft.pronunciation);
}

}  // namespace
}  // namespace zavel::mkdict
