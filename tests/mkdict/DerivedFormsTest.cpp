#include "mkdict/DerivedForms.h"

#include <gtest/gtest.h>

#include <cctype>
#include <deque>

#include "EnglishSupport.h"
#include "mkdict/Coverage.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

struct Set {
  void entry(const std::string& word, PartOfSpeech pos) {
    EnglishEntries::Item item;
    item.draft.word = word;
    item.draft.pos = pos;
    item.draft.senses.push_back({{"x"}, {}});
    item.key = word;
    std::erase(item.key, ' ');
    for (char& c : item.key) c = static_cast<char>(std::tolower(c));
    item.rank = static_cast<uint32_t>(items.size());
    items.push_back(item);
  }
  void finish() {
    katu = std::make_unique<KatuRecords>(english.inflection());
    for (const auto& item : items) texts.push_back(EntryText::of(item.draft));
    for (size_t i = 0; i < items.size(); ++i) {
      katu->add({items[i].draft.word, texts[i], items[i].draft.pos,
                 Pronunciation::sounds(items[i].draft.word, "")});
    }
    katu->finish();
    derived = DerivedForms(english.wordNet, *katu, items).make();
  }
  // "form: words of its entries"
  Texts made() {
    finish();
    Texts out;
    for (const DerivedForm& form : derived) {
      std::string line = form.form + ":";
      for (const size_t entry : form.entries) line += " " + items[entry].draft.word;
      out.push_back(line);
    }
    return out;
  }
  SmallEnglish english;
  std::vector<EnglishEntries::Item> items;
  std::deque<std::string> texts;
  std::unique_ptr<KatuRecords> katu;
  std::vector<DerivedForm> derived;
};

TEST(DerivedForms, FollowsWordNet) {
  Set set;
  set.english.synset(WordNet::kNoun, {"vocation"});  // at 100
  set.english.synset(WordNet::kAdjective, {"vocational"}, 1, "001 + 00000100 n 0101");
  set.english.synset(WordNet::kAdjective, {"lunar"}, 1, "001 \\ 00000100 n 0101");
  set.entry("vocation", PartOfSpeech::kNoun);
  // "lunar" does not begin like its word: no derived form of it.
  EXPECT_EQ(Texts{"vocational: vocation"}, set.made());
}

TEST(DerivedForms, StripsRegularSuffixes) {
  const std::tuple<const char*, const char*, PartOfSpeech> table[] = {
      {"quickly", "quick", PartOfSpeech::kAdjective},
      {"happily", "happy", PartOfSpeech::kAdjective},
      {"basically", "basic", PartOfSpeech::kAdjective},
      {"possibly", "possible", PartOfSpeech::kAdjective},
      {"simply", "simple", PartOfSpeech::kAdjective},
      {"fully", "full", PartOfSpeech::kAdjective},
      {"truly", "true", PartOfSpeech::kAdjective},
      {"darkness", "dark", PartOfSpeech::kAdjective},
      {"happiness", "happy", PartOfSpeech::kAdjective},
      {"readable", "read", PartOfSpeech::kVerb},
      {"movable", "move", PartOfSpeech::kVerb},
      {"forgettable", "forget", PartOfSpeech::kVerb},
      {"reliable", "rely", PartOfSpeech::kVerb},
      {"singer", "sing", PartOfSpeech::kVerb},
      {"baker", "bake", PartOfSpeech::kVerb},
      {"swimmer", "swim", PartOfSpeech::kVerb},
      {"actor", "act", PartOfSpeech::kVerb},
      {"movement", "move", PartOfSpeech::kVerb},
      {"homeless", "home", PartOfSpeech::kNoun},
      {"careful", "care", PartOfSpeech::kNoun},
      {"childish", "child", PartOfSpeech::kNoun},
      {"realism", "real", PartOfSpeech::kAdjective},
      {"artist", "art", PartOfSpeech::kNoun},
      {"readability", "readable", PartOfSpeech::kAdjective},
      {"purity", "pure", PartOfSpeech::kAdjective},
      {"organization", "organize", PartOfSpeech::kVerb},
      {"creation", "create", PartOfSpeech::kVerb},
      {"modernize", "modern", PartOfSpeech::kAdjective},
  };
  for (const auto& [derived, base, pos] : table) {
    Set set;
    set.english.synset(WordNet::kNoun, {derived});
    set.entry(base, pos);
    EXPECT_EQ(Texts{std::string(derived) + ": " + base}, set.made()) << derived;
  }
}

TEST(DerivedForms, LeadsToNoAbbreviationAndNoShortName) {
  const std::pair<const char*, const char*> table[] = {
      {"lutist", "LUT"}, {"monish", "Mon"}, {"tvish", "TV"}, {"nanism", "nan"}};
  for (const auto& [derived, base] : table) {
    Set set;
    set.english.synset(WordNet::kNoun, {derived});
    set.entry(base, PartOfSpeech::kNoun);
    EXPECT_TRUE(set.made().empty()) << derived;
  }
  Set marx;
  marx.english.synset(WordNet::kNoun, {"marxist"});
  marx.entry("Marx", PartOfSpeech::kProperNoun);
  EXPECT_EQ(Texts{"marxist: Marx"}, marx.made());
}

TEST(DerivedForms, LeadsWordsOfGrammarToTheirs) {
  Set set;
  set.entry("who", PartOfSpeech::kPronoun);
  set.entry("toward", PartOfSpeech::kPreposition);
  EXPECT_EQ((Texts{"towards: toward", "whom: who"}), set.made());
  Set own;
  own.entry("whom", PartOfSpeech::kPronoun);
  own.entry("who", PartOfSpeech::kPronoun);
  EXPECT_TRUE(own.made().empty());
}

TEST(DerivedForms, AsksForTheRightPartOfSpeech) {
  Set set;
  set.english.synset(WordNet::kNoun, {"corner"});
  set.entry("corn", PartOfSpeech::kNoun);
  EXPECT_EQ(Texts{}, set.made());
}

TEST(DerivedForms, MakesNoneOfEntriesAndForms) {
  Set set;
  set.english.synset(WordNet::kAdjective, {"quick"});
  set.english.synset(WordNet::kAdjective, {"quicker"});
  set.english.synset(WordNet::kAdverb, {"quickly"});
  set.entry("quick", PartOfSpeech::kAdjective);
  set.entry("quick", PartOfSpeech::kVerb);
  set.entry("quickly", PartOfSpeech::kAdverb);
  EXPECT_EQ(Texts{}, set.made());
}

TEST(DerivedForms, PairsWordsThatDifferByLittle) {
  Set set;
  for (const char* word : {"afterward", "depend_upon", "good_deal", "a_hundred", "one_hundred", "hundredth",
                           "fortieth", "death"}) {
    set.english.synset(WordNet::kNoun, {word});
  }
  set.entry("afterwards", PartOfSpeech::kAdverb);
  set.entry("depend on", PartOfSpeech::kVerb);
  set.entry("a good deal", PartOfSpeech::kAdverb);
  set.entry("hundred", PartOfSpeech::kNumeral);
  set.entry("forty", PartOfSpeech::kNumeral);
  set.entry("dea", PartOfSpeech::kNoun);
  EXPECT_EQ((Texts{"a hundred: hundred", "afterward: afterwards", "depend upon: depend on", "fortieth: forty",
                   "good deal: a good deal", "hundredth: hundred", "one hundred: hundred"}),
            set.made());
}

TEST(DerivedForms, KeepsANameFromACommonWord) {
  Set set;
  set.english.synset(WordNet::kNoun, {"ala"});  // at 100
  set.english.synset(WordNet::kAdjective, {"alate"}, 0, "001 + 00000100 n 0101");
  set.entry("ALA", PartOfSpeech::kNoun);
  EXPECT_EQ(Texts{}, set.made());
}

TEST(DerivedForms, LeadsToAllEntriesOfABase) {
  Set set;
  set.english.synset(WordNet::kVerb, {"abuse"});  // at 100
  set.english.synset(WordNet::kNoun, {"abusage"}, 4, "001 + 00000100 v 0101");
  set.entry("zebra", PartOfSpeech::kNoun);
  set.entry("abuse", PartOfSpeech::kVerb);
  set.entry("abuse", PartOfSpeech::kNoun);
  set.finish();
  ASSERT_EQ(1u, set.derived.size());
  EXPECT_EQ((std::vector<size_t>{1, 2}), set.derived[0].entries);
}

TEST(Coverage, CountsByTheWayThatLeadsToATranslation) {
  Set set;
  set.english.synset(WordNet::kVerb, {"go"});
  set.english.synset(WordNet::kAdjective, {"quick"});
  set.english.exception(WordNet::kVerb, "gone go");
  for (const char* uses : {"go%2:38:00:: 1 9", "quickly%4:02:00:: 1 8", "gone%3:00:00:: 1 7",
                           "gap%1:06:00:: 1 6", "42%1:23:00:: 1 99", "rare%3:00:00:: 1 1"}) {
    set.english.uses(uses);
  }
  set.entry("go", PartOfSpeech::kVerb);
  set.entry("quick", PartOfSpeech::kAdjective);
  set.entry("gap", PartOfSpeech::kNoun);
  set.items.back().draft.senses.clear();  // a mere reference
  set.finish();
  const Coverage coverage = Coverage::measure(4, set.english.wordNet, set.items, *set.katu, set.derived);
  EXPECT_EQ(4u, coverage.asked);
  EXPECT_EQ(1u, coverage.itself);
  EXPECT_EQ(1u, coverage.byBase);
  EXPECT_EQ(1u, coverage.derived);
  EXPECT_EQ(3u, coverage.answered());
  EXPECT_EQ(Texts{"gap"}, coverage.gaps);
}

}  // namespace
}  // namespace zavel::mkdict
