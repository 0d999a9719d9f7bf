#include "mkdict/KatuRecords.h"

#include <gtest/gtest.h>

#include <list>

#include "EnglishSupport.h"
#include "mkdict/EntryText.h"
#include "mkdict/ToShiftJis.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

// Entries of a small set, and the records they get as "items | forms".
struct Set {
  void entry(const std::string& word, PartOfSpeech pos, bool countable = false) {
    EntryDraft draft;
    draft.word = word;
    draft.pos = pos;
    draft.senses.push_back({{"x"}, {}});
    draft.countable = countable;
    draft.pronunciation = Pronunciation::encode(word, "");
    words.push_back({word, EntryText::of(draft), pos});
  }
  Texts records() {
    katu = std::make_unique<KatuRecords>(english.inflection());
    for (const Entry& entry : words) {
      katu->add({entry.word, entry.text, entry.pos, Pronunciation::sounds(entry.word, "")});
    }
    katu->finish();
    Texts out;
    for (const KatuRecord& record : katu->take()) {
      std::string line = toUtf8(record.items) + " |";
      for (const std::string& form : record.forms) line += " " + form;
      out.push_back(line);
    }
    return out;
  }
  struct Entry {
    std::string word, text;
    PartOfSpeech pos;
  };
  SmallEnglish english;
  std::list<Entry> words;
  std::unique_ptr<KatuRecords> katu;
};

TEST(KatuRecords, WritesNoneWhereTheRulesAreRight) {
  Set set;
  set.entry("box", PartOfSpeech::kNoun, true);
  set.entry("church", PartOfSpeech::kNoun, true);
  set.entry("fly", PartOfSpeech::kNoun, true);
  set.entry("make", PartOfSpeech::kVerb);
  set.entry("wash", PartOfSpeech::kVerb);
  set.entry("see", PartOfSpeech::kVerb);
  set.entry("agree", PartOfSpeech::kVerb);
  set.entry("dye", PartOfSpeech::kVerb);
  set.entry("stomach", PartOfSpeech::kNoun, true);
  set.entry("information", PartOfSpeech::kNoun);
  EXPECT_EQ(Texts{}, set.records());
}

TEST(KatuRecords, WritesWholeParadigmsOfIrregularVerbs) {
  Set set;
  set.english.synset(WordNet::kVerb, {"go"});
  set.english.exception(WordNet::kVerb, "went go");
  set.english.exception(WordNet::kVerb, "gone go");
  set.entry("go", PartOfSpeech::kVerb);
  EXPECT_EQ(Texts{"go:現,goes:三,went:過,gone:分,going:進 | go goes going gone went"}, set.records());
  EXPECT_EQ(Texts{"go"}, set.katu->basesOf("went"));
  EXPECT_TRUE(set.katu->basesOf("go").empty());
  EXPECT_TRUE(set.katu->isForm("going"));
  EXPECT_FALSE(set.katu->isForm("goings"));
}

TEST(KatuRecords, WritesIrregularNounsAndAdjectives) {
  Set set;
  set.english.synset(WordNet::kNoun, {"child"});
  set.english.synset(WordNet::kAdjective, {"good"});
  set.english.exception(WordNet::kNoun, "children child");
  set.english.exception(WordNet::kAdjective, "better good");
  set.english.exception(WordNet::kAdjective, "best good");
  set.entry("child", PartOfSpeech::kNoun, true);
  set.entry("good", PartOfSpeech::kAdjective);
  set.entry("good", PartOfSpeech::kNoun);
  EXPECT_EQ((Texts{"child:単,children:複 | child children", "good:原,better:比,best:最 | best better good"}),
            set.records());
}

TEST(KatuRecords, FilesHomographsOfAFormTogether) {
  Set set;
  set.english.synset(WordNet::kVerb, {"find"});
  set.english.synset(WordNet::kVerb, {"found"});
  set.english.exception(WordNet::kVerb, "found find");
  set.entry("find", PartOfSpeech::kVerb);
  set.entry("found", PartOfSpeech::kVerb);
  EXPECT_EQ((Texts{"find:現,finds:三,found:過,found:分,finding:進 | find finding finds found",
                   "found:現,founds:三,founded:過,founded:分,founding:進 | found"}),
            set.records());
}

TEST(KatuRecords, WritesDoubledConsonants) {
  Set set;
  set.entry("stop", PartOfSpeech::kVerb);
  EXPECT_EQ(Texts{"stop:現,stops:三,stopped:過,stopped:分,stopping:進 | stop stopped stopping stops"},
            set.records());
}

TEST(KatuRecords, LeadsAFormPastAnotherWord) {
  // The rule "ing" makes "plan" of "planing" before it thinks of "plane".
  Set set;
  set.entry("plan", PartOfSpeech::kVerb);
  set.entry("plane", PartOfSpeech::kVerb);
  EXPECT_EQ((Texts{"plan:現,plans:三,planned:過,planned:分,planning:進 | plan planned planning plans",
                   "plane:現,planes:三,planed:過,planed:分,planing:進 | planing"}),
            set.records());
}

TEST(KatuRecords, LeadsAFormPastAnEntryOfItsOwn) {
  Set set;
  set.entry("judge", PartOfSpeech::kVerb);
  set.entry("Judges", PartOfSpeech::kProperNoun);
  EXPECT_EQ(Texts{"judge:現,judges:三,judged:過,judged:分,judging:進 | judges"}, set.records());
}

TEST(KatuRecords, PutsToBeAheadOfItsForms) {
  Set set;
  for (const char* form : {"am", "are", "is", "was", "were", "been"}) {
    set.english.exception(WordNet::kVerb, std::string(form) + " be");
  }
  set.entry("be", PartOfSpeech::kVerb);
  EXPECT_EQ(
      Texts{"be:現,am:三,are:三,is:三,was:過,were:過,been:分,being:進 | am are be been being is was were"},
      set.records());
}

TEST(KatuRecords, GivesVerbsThatLackFormsNoOthers) {
  Set set;
  set.english.synset(WordNet::kVerb, {"can"});
  set.entry("can", PartOfSpeech::kVerb);
  set.entry("must", PartOfSpeech::kVerb);
  set.entry("clung", PartOfSpeech::kVerb);
  set.english.exception(WordNet::kVerb, "clung cling");
  EXPECT_EQ(
      (Texts{"can:現,could:過 | can could",
             "can:現,cans:三,canned:過,canned:分,canning:進 | can canned canning cans", "must:現 | must"}),
      set.records());
}

TEST(KatuRecords, InflectsPhrasesByTheirVerb) {
  Set set;
  set.english.synset(WordNet::kVerb, {"take"});
  set.english.exception(WordNet::kVerb, "took take");
  set.english.exception(WordNet::kVerb, "taken take");
  set.entry("take", PartOfSpeech::kVerb);
  set.entry("take off", PartOfSpeech::kVerb);
  set.entry("worked up", PartOfSpeech::kAdjective);
  set.entry("work up", PartOfSpeech::kVerb);
  set.entry("work", PartOfSpeech::kVerb);
  const Texts records = set.records();
  ASSERT_EQ(3u, records.size());
  EXPECT_EQ("take:現,takes:三,took:過,taken:分,taking:進 | take taken takes taking took", records[0]);
  // Not under the phrase itself, which conjugates in no way, nor under a form that is a phrase of its own.
  EXPECT_EQ(
      "take off:現,takes off:三,took off:過,taken off:分,taking off:進 | takenoff takesoff takingoff tookoff",
      records[1]);
  EXPECT_EQ("work up:現,works up:三,worked up:過,worked up:分,working up:進 | workingup worksup", records[2]);
}

TEST(KatuRecords, KeepsAWordApartFromThePhraseOfTheSameKey) {
  Set set;
  set.english.synset(WordNet::kVerb, {"set"});
  set.english.exception(WordNet::kVerb, "setting set");
  set.entry("set", PartOfSpeech::kVerb);
  set.entry("setup", PartOfSpeech::kNoun, true);
  set.entry("set up", PartOfSpeech::kVerb);
  set.entry("set up", PartOfSpeech::kAdjective);
  const Texts records = set.records();
  ASSERT_EQ(3u, records.size());
  EXPECT_EQ("set up:原 | setup", records[1]);
  EXPECT_EQ("set up:現,sets up:三,set up:過,set up:分,setting up:進 | setsup settingup setup", records[2]);
}

TEST(KatuRecords, InflectsANounsVerbThatNoEntryTells) {
  Set set;
  set.english.synset(WordNet::kVerb, {"shoe"});
  set.english.exception(WordNet::kVerb, "shod shoe");
  set.entry("shoe", PartOfSpeech::kNoun, true);
  EXPECT_EQ(Texts{"shoe:現,shoes:三,shod:過,shod:分,shoeing:進 | shod shoe shoeing shoes"}, set.records());
}

TEST(KatuRecords, KeepsCapitalsAndLeavesMixedWordsAlone) {
  Set set;
  set.english.synset(WordNet::kNoun, {"Frenchman"}, 18);
  set.english.synset(WordNet::kAdjective, {"French"});
  set.entry("Frenchman", PartOfSpeech::kNoun, true);
  set.entry("McJob", PartOfSpeech::kNoun, true);
  set.entry("etc.", PartOfSpeech::kNoun, true);
  EXPECT_EQ(Texts{"Frenchman:単,Frenchmen:複 | frenchman frenchmen"}, set.records());
}

TEST(KatuRecords, ComparesAFewAdverbs) {
  Set set;
  set.entry("well", PartOfSpeech::kAdverb);
  set.entry("soon", PartOfSpeech::kAdverb);
  // Not under words that have nothing to inflect themselves: the engine gives no forms for them.
  EXPECT_EQ(
      (Texts{"soon:原,sooner:比,soonest:最 | sooner soonest", "well:原,better:比,best:最 | best better"}),
      set.records());
}

}  // namespace
}  // namespace zavel::mkdict
