#include "Look.h"

#include <gtest/gtest.h>

#include <map>

#include "support/DicWriter.h"
#include "zavel/HostDictionary.h"

namespace zavel::host {
namespace {

using Strings = std::vector<std::string>;

class LookTest : public testing::Test {
 protected:
  void SetUp() override {
    test::writeHostDictionary(folder_.path() + "/dic");
    const FileReference file(folder_.path() + "/result");
    const std::string prefix = folder_.path() + "/dic/";
    ASSERT_TRUE(manager_.InitializeDictionaries(prefix.c_str(), nullptr, nullptr, &file));
  }

  LookResult look(const std::string& word, Mode mode = Mode::kAll) {
    LookRequest request;
    request.word = word;
    request.mode = mode;
    request.suggestions = 5;
    return look(request);
  }

  LookResult look(const LookRequest& request) {
    LookResult result;
    Failure failure;
    EXPECT_TRUE(Look(manager_).run(request, &result, &failure)) << failure.message;
    return result;
  }

  test::TempFolder folder_;
  MirellDictionaryManager manager_;
};

TEST_F(LookTest, AHeadwordMatchesExactly) {
  const LookResult result = look("church");
  ASSERT_EQ(result.entries.size(), 1u);
  const Entry& entry = result.entries[0];
  EXPECT_EQ(entry.headword, "church");
  EXPECT_EQ(entry.match, Match::kExact);
  EXPECT_EQ(entry.stars, 2);
  EXPECT_EQ(entry.homograph, 0);  // the only entry of its spelling shows no number
  ASSERT_EQ(entry.senses.size(), 1u);
  EXPECT_EQ(entry.senses[0].pos, (Strings{"n", "countable"}));
  EXPECT_EQ(entry.senses[0].glosses, Strings{"教会"});
}

TEST_F(LookTest, AWordIsNotTakenForWhatStandsAheadOfItsNul) {
  using namespace std::string_literals;
  for (const std::string& word : {"church\0"s, "church\0es"s, "\0church"s, "いく\0"s}) {
    const LookResult result = look(word);
    EXPECT_TRUE(result.entries.empty());
    EXPECT_TRUE(result.headwords.empty());
    EXPECT_TRUE(result.suggestions.empty());
  }
}

TEST_F(LookTest, AnInflectedWordSaysWhichFormItIs) {
  const LookResult result = look("goes");
  EXPECT_EQ(result.origin, "go");
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].homograph, 1);
  EXPECT_EQ(result.entries[1].homograph, 2);
  EXPECT_EQ(result.entries[1].match, Match::kInflected);
  EXPECT_EQ(result.entries[1].via, Strings{"third person singular"});
  ASSERT_EQ(result.entries[1].senses.size(), 2u);
  EXPECT_EQ(result.entries[1].senses[0].glosses, (Strings{"行く", "動く"}));
  EXPECT_EQ(result.entries[1].senses[0].note, "of a machine, to work");
  ASSERT_EQ(result.entries[1].senses[1].examples.size(), 1u);
  EXPECT_EQ(result.entries[1].senses[1].examples[0].target, "家に帰る");
}

TEST_F(LookTest, ARegularFormIsReducedByRule) {
  const LookResult result = look("making");
  EXPECT_EQ(result.origin, "make");
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].via, Strings{"present participle"});
  EXPECT_EQ(look("churches").entries.at(0).via, Strings{"plural"});
}

TEST_F(LookTest, ADerivedWordLeadsToItsBase) {
  const LookResult result = look("happiness");
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].headword, "happy");
  EXPECT_EQ(result.entries[0].match, Match::kDerived);
}

TEST_F(LookTest, TheOtherSpellingFollows) {
  const LookResult result = look("colour");
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].match, Match::kExact);
  EXPECT_EQ(result.entries[1].headword, "color");
  EXPECT_EQ(result.entries[1].match, Match::kSpelling);
}

TEST_F(LookTest, CaseAndHyphensDoNotMatter) {
  EXPECT_EQ(look("GO").entries.size(), 2u);
  EXPECT_EQ(look("cape-town").entries.at(0).headword, "Cape Town");
}

TEST_F(LookTest, JapaneseByReadingFormAndKatakana) {
  for (const char* word : {"いく", "行く", "イク"}) {
    const LookResult result = look(word);
    ASSERT_EQ(result.entries.size(), 1u) << word;
    EXPECT_EQ(result.entries[0].headword, "行く");
    EXPECT_EQ(result.entries[0].reading, "いく");
    EXPECT_EQ(result.entries[0].senses.at(0).glosses, (Strings{"to go", "to proceed"}));
  }
}

TEST_F(LookTest, AllWordsOfOneReadingCome) {
  const LookResult result = look("こう");
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].headword, "甲");
  EXPECT_EQ(result.entries[1].headword, "功");
}

TEST_F(LookTest, AKanaWordHasNoReading) {
  const LookResult result = look("パン");
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].headword, "パン");
  EXPECT_EQ(result.entries[0].reading, "");
}

TEST_F(LookTest, ExamplesAloneCarryTheirHeadword) {
  const LookResult result = look("go", Mode::kExample);
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].headword, "go");
  EXPECT_NE(result.entries[0].text.find("go home"), std::string::npos);
  EXPECT_EQ(result.entries[0].text.find("行く"), std::string::npos);
}

TEST_F(LookTest, PhrasesOfAWordWithoutAnyAreNothing) {
  EXPECT_FALSE(look("church", Mode::kPhrase).found());
}

TEST_F(LookTest, APartKeepsTheOrderTheNumbersAndTheOtherSpelling) {
  const LookResult go = look("goes", Mode::kPos);
  ASSERT_EQ(go.entries.size(), 2u);
  EXPECT_EQ(go.entries[0].homograph, 1);
  EXPECT_EQ(go.entries[0].text, "go\n\n-[名][Ｃ]\n碁 (board game)");
  EXPECT_EQ(go.entries[1].homograph, 2);
  EXPECT_EQ(go.entries[1].stars, 3);
  EXPECT_EQ(go.entries[1].match, Match::kInflected);
  EXPECT_EQ(go.entries[1].text.find("go home"), std::string::npos);
  // The number is that among all entries of the word, though one alone has an example.
  EXPECT_EQ(look("go", Mode::kExample).entries.at(0).homograph, 2);
  const LookResult colour = look("colour", Mode::kPos);
  ASSERT_EQ(colour.entries.size(), 2u);
  EXPECT_EQ(colour.entries[1].headword, "color");
  EXPECT_EQ(colour.entries[1].match, Match::kSpelling);
  EXPECT_EQ(colour.entries[1].senses.at(0).glosses, Strings{"色彩"});
  EXPECT_EQ(look("happiness", Mode::kPos).entries.at(0).match, Match::kDerived);
}

TEST_F(LookTest, APartOfJapaneseEntries) {
  const LookResult result = look("こう", Mode::kPos);
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].headword, "甲");
  EXPECT_EQ(result.entries[0].reading, "こう");
  EXPECT_EQ(result.entries[1].senses.at(0).glosses, Strings{"merit"});
}

TEST_F(LookTest, LackingThePartIsNotLackingTheWord) {
  const LookResult church = look("church", Mode::kExample);
  EXPECT_FALSE(church.found());
  EXPECT_TRUE(church.lacksPart);
  EXPECT_TRUE(church.suggestions.empty());
  EXPECT_FALSE(look("curch", Mode::kExample).lacksPart);
}

TEST_F(LookTest, ANearWordIsSuggested) {
  const LookResult result = look("curch");
  EXPECT_FALSE(result.found());
  ASSERT_FALSE(result.suggestions.empty());
  EXPECT_EQ(result.suggestions[0], "church");
}

TEST_F(LookTest, AJapanesePrefixSuggestsItsWords) {
  EXPECT_EQ(look("パンくず").suggestions, Strings{"パン"});
}

TEST_F(LookTest, WordsThatNoHeadwordCanHoldAreNotFound) {
  for (const char* word : {"", "😀", "123", "go!", "Ａ", "行く!"}) {
    EXPECT_FALSE(look(word).found()) << word;
  }
}

TEST_F(LookTest, ATooLongWordIsRefused) {
  LookRequest request;
  request.word = std::string(256, 'a');
  LookResult result;
  Failure failure;
  EXPECT_FALSE(Look(manager_).run(request, &result, &failure));
  EXPECT_EQ(failure.code, "too_long");
  request.word.pop_back();
  EXPECT_TRUE(Look(manager_).run(request, &result, &failure));
}

TEST_F(LookTest, FormsAreTheWholeTable) {
  LookRequest request;
  request.wantForms = true;
  const auto formsOf = [&](const std::string& word) {
    request.word = word;
    std::map<int, std::string> forms;
    for (const Form& form : look(request).forms) forms[form.code] = form.form;
    return forms;
  };
  const std::map<int, std::string> verb = {{6, "go"}, {7, "goes"}, {8, "went"}, {9, "gone"}, {10, "going"}};
  EXPECT_EQ(formsOf("went"), verb);
  // The noun's forms are made by rule, from the entry of the base form.
  std::map<int, std::string> both = verb;
  both[1] = "go";
  both[2] = "gos";
  EXPECT_EQ(formsOf("go"), both);
}

}  // namespace
}  // namespace zavel::host
