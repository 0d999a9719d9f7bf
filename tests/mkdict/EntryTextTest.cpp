#include "mkdict/EntryText.h"

#include <gtest/gtest.h>

#include "engine/Beiei.h"
#include "engine/KatuyoMidasi.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using test::sjis;
using Texts = std::vector<std::string>;

EntryDraft draft(const std::string& word, PartOfSpeech pos, const Texts& translations) {
  EntryDraft out;
  out.word = word;
  out.pos = pos;
  EnglishSense sense;
  for (const std::string& text : translations) sense.translations.push_back(sjis(text));
  out.senses.push_back(sense);
  return out;
}

TEST(EntryText, LaysOutAnEntry) {
  EntryDraft light = draft("light", PartOfSpeech::kNoun, {"光", "明かり"});
  light.senses[0].notes = {"electromagnetic waves"};
  light.stars = "***";
  light.homograph = 2;
  light.pronunciation = "laIt";
  light.countable = true;
  // The meaning's 33 bytes are an even number with its tag and line end.
  EXPECT_EQ(
      "\xF5\xD1***\xF4\xB5"
      "2\xF4\xD0light" +
          sjis("≦") + "laIt" + sjis("≧") + "\n\xF5\xD3" + sjis("-[名][Ｃ]") + "\n\xF5\xD4" +
          sjis("光,明かり (electromagnetic waves)") + "\n",
      EntryText::of(light));
}

TEST(EntryText, NumbersSeveralSensesAndJoinsNotes) {
  EntryDraft go = draft("go", PartOfSpeech::kVerb, {"行く"});
  go.senses.push_back({{sjis("なる")}, {"to become", "to turn"}});
  // Filled to an odd length, to which tag and line end add three bytes: 6 + 4 by a blank, 6 + 4 + 21 not.
  EXPECT_EQ(
      "\xF5\xD1\xF4\xB5"
      "1\xF4\xD0go\n\xF5\xD3" +
          sjis("-[動]") +
          "\n\xF5\xD4\xF5\xBD"
          "1\xF5\xC1 " +
          sjis("行く") +
          " \n\xF5\xD4\xF5\xBD"
          "2\xF5\xC1 " +
          sjis("なる") + " (to become; to turn)\n",
      EntryText::of(go));
}

TEST(EntryText, GivesEveryMeaningAnEvenLength) {
  for (const char* translation : {"犬", "犬a", "犬ab"}) {
    const std::string text = EntryText::of(draft("dog", PartOfSpeech::kNoun, {translation}));
    const size_t meaning = text.find("\xF5\xD4");
    EXPECT_EQ(0u, (text.size() - meaning) % 2) << translation;
  }
}

TEST(EntryText, WritesHowAnAdjectiveCompares) {
  EntryDraft red = draft("red", PartOfSpeech::kAdjective, {"赤い"});
  EXPECT_NE(std::string::npos, EntryText::of(red).find("\xF5\xD3" + sjis("-[形]") + "\n"));
  red.comparesByMore = true;
  EXPECT_NE(std::string::npos, EntryText::of(red).find("\xF5\xD3" + sjis("-[形](more ～; most ～)") + "\n"));
  red.comparesByMore = false;
  red.comparesNot = true;
  EXPECT_NE(std::string::npos, EntryText::of(red).find("\xF5\xD3" + sjis("-[形](比較なし)") + "\n"));
}

TEST(EntryText, KeepsTheStarOutOfTheHeadwordThatConjugationReads) {
  EntryDraft red = draft("red", PartOfSpeech::kAdjective, {"赤い"});
  red.stars = "**";
  const std::string text = EntryText::of(red);
  engine::DicOneMidasiInfo info;
  engine::GetOneMidasiInfo(text, &info);
  EXPECT_EQ("red", info.MidaInfo);
  EXPECT_FALSE(info.star);
}

TEST(EntryText, LabelsPartsOfSpeech) {
  EXPECT_EQ("", EntryText::label(PartOfSpeech::kNone));
  EXPECT_EQ(sjis("-[名][固]"), EntryText::label(PartOfSpeech::kProperNoun));
  EXPECT_EQ(sjis("-[副]"), EntryText::label(PartOfSpeech::kAdverb));
  EXPECT_EQ(sjis("-[前]"), EntryText::label(PartOfSpeech::kPreposition));
  EXPECT_EQ(sjis("-[代]"), EntryText::label(PartOfSpeech::kPronoun));
  EXPECT_EQ(sjis("-[接]"), EntryText::label(PartOfSpeech::kConjunction));
  EXPECT_EQ(sjis("-[間]"), EntryText::label(PartOfSpeech::kInterjection));
  EXPECT_EQ(sjis("-[数]"), EntryText::label(PartOfSpeech::kNumeral));
  EXPECT_EQ(sjis("-[限]"), EntryText::label(PartOfSpeech::kDeterminer));
  EXPECT_EQ(sjis("-[冠]"), EntryText::label(PartOfSpeech::kArticle));
  EXPECT_EQ(sjis("-[小辞]"), EntryText::label(PartOfSpeech::kParticle));
  EXPECT_EQ(sjis("-[成句]"), EntryText::label(PartOfSpeech::kIdiom));
  EXPECT_EQ(sjis("-[諺]"), EntryText::label(PartOfSpeech::kProverb));
  EXPECT_EQ(sjis("-[記号]"), EntryText::label(PartOfSpeech::kSymbol));
  EXPECT_EQ(std::string::npos,
            EntryText::of(draft("at last", PartOfSpeech::kNone, {"遂に"})).find("\xF5\xD3"));
}

TEST(EntryText, RefersToAnotherSpelling) {
  EntryDraft colour = draft("colour", PartOfSpeech::kNoun, {"色"});
  colour.references.push_back({true, "color", {1, 3}});
  EXPECT_TRUE(EntryText::of(colour).ends_with("\xF5\xD4" + sjis("《英》 =color") +
                                              "\xF4\xB5"
                                              "1,3\xF4\xD0.\n"));
  EntryDraft color = draft("color", PartOfSpeech::kNoun, {"色"});
  color.references.push_back({false, "colour", {2}});
  EXPECT_TRUE(EntryText::of(color).ends_with("\xF5\xD4" + sjis("《米》 =colour") +
                                             "\xF4\xB5"
                                             "2\xF4\xD0 .\n"));
}

// The scan for references walks all entries of a key as one text, by two bytes in a meaning.
TEST(EntryText, WritesReferencesThatTheScanFindsBehindAnyText) {
  for (const char* before : {"犬", "犬a", "員", "ab", "a犬b"}) {
    for (const char* other : {"color", "colour"}) {
      EntryDraft first = draft("dog", PartOfSpeech::kNoun, {before});
      EntryDraft second = draft("colors", PartOfSpeech::kVerb, {before, before});
      second.senses[0].notes = {"a note"};
      second.references.push_back({true, other, {1}});
      EntryDraft third = second;
      third.references[0].homographs = {2};
      const std::string block = EntryText::of(first) + EntryText::of(second) + EntryText::of(third);
      const std::vector<std::string> found = engine::FindBeiei(block);
      ASSERT_EQ(2u, found.size()) << before;
      for (int number : {1, 2}) {
        std::vector<engine::BeieiWord> words;
        engine::GetBeiEiMidasi(found[number - 1], &words);
        EXPECT_EQ((std::vector<engine::BeieiWord>{{other, number}}), words);
      }
    }
  }
}

TEST(EntryText, MentionsASpellingThatIsOnlyAReference) {
  EntryDraft color = draft("color", PartOfSpeech::kNoun, {"色"});
  color.references.push_back({false, "colour", {}});
  EXPECT_TRUE(EntryText::of(color).ends_with("\xF5\xD4" + sjis("《英》 colour") + "\n"));
}

TEST(EntryText, LeavesOutWhatShiftJisCannotWrite) {
  Texts lacking;
  const auto sense = EntryText::sense({{"犬", "痤瘡"}, {"a 😀"}}, &lacking);
  ASSERT_TRUE(sense);
  EXPECT_EQ(Texts{sjis("犬")}, sense->translations);
  EXPECT_TRUE(sense->notes.empty());
  EXPECT_EQ((Texts{"痤瘡", "a 😀"}), lacking);
  EXPECT_FALSE(EntryText::sense({{"痤瘡"}, {}}, nullptr));
}

TEST(EntryText, TakesHeadwordsThatSearchesAccept) {
  EXPECT_EQ("cafe", EntryText::headword("café"));
  EXPECT_EQ("raison d'etre", EntryText::headword("raison d’être"));
  EXPECT_EQ("Yahoo", EntryText::headword("Yahoo!"));
  EXPECT_EQ("R&D", EntryText::headword("R&D"));
  EXPECT_EQ("you can lead a horse to water but", EntryText::headword("you can lead a horse to water, but"));
  for (const char* word : {"1-up", "C++", "s*x", "λ", "犬", "", "!", "I'm ... (old)"}) {
    EXPECT_FALSE(EntryText::headword(word)) << word;
  }
}

}  // namespace
}  // namespace zavel::mkdict
