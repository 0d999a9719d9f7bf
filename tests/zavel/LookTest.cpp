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
  // The noun "go" (number 1) has no such form.
  ASSERT_EQ(result.entries.size(), 1u);
  const Entry& verb = result.entries[0];
  EXPECT_EQ(verb.homograph, 2);
  EXPECT_EQ(verb.match, Match::kInflected);
  EXPECT_EQ(verb.via, Strings{"third person singular"});
  EXPECT_EQ(verb.base, "go");
  ASSERT_EQ(verb.senses.size(), 2u);
  EXPECT_EQ(verb.senses[0].glosses, (Strings{"行く", "動く"}));
  EXPECT_EQ(verb.senses[0].note, "of a machine, to work");
  ASSERT_EQ(verb.senses[1].examples.size(), 1u);
  EXPECT_EQ(verb.senses[1].examples[0].target, "家に帰る");
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
  const LookResult go = look("go", Mode::kPos);
  ASSERT_EQ(go.entries.size(), 2u);
  EXPECT_EQ(go.entries[0].homograph, 1);
  EXPECT_EQ(go.entries[0].text, "go\n\n-[名][Ｃ]\n碁 (board game)");
  EXPECT_EQ(go.entries[1].homograph, 2);
  EXPECT_EQ(go.entries[1].stars, 3);
  EXPECT_EQ(go.entries[1].match, Match::kExact);
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
  for (const char* word : {"", "😀", "123", "!", "Ａ", "行く猫!", "go2"}) {
    EXPECT_FALSE(look(word).found()) << word;
  }
}

TEST_F(LookTest, CharactersThatNoHeadwordHoldsAreTold) {
  const LookResult go = look("x😀한😀y");
  EXPECT_EQ(go.unknown, "😀한");
  EXPECT_FALSE(go.found());
  EXPECT_EQ(look("go2").unknown, "");
  EXPECT_EQ(look("café").unknown, "");
}

TEST_F(LookTest, WhatIsLeftWithoutThemIsSuggestedFirst) {
  EXPECT_EQ(look("go😀").suggestions.at(0), "go");
  EXPECT_EQ(look("한行く").suggestions, Strings{"行く"});
  EXPECT_EQ(look("curch😀").suggestions.at(0), "church");
  EXPECT_TRUE(look("😀").suggestions.empty());
  LookRequest one;
  one.word = "go😀";
  one.suggestions = 1;
  EXPECT_EQ(look(one).suggestions, Strings{"go"});
  one.suggestions = 0;
  EXPECT_TRUE(look(one).suggestions.empty());
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

// Words that are headwords and forms of others

TEST_F(LookTest, OwnEntriesComeAheadOfThoseOfTheBase) {
  const LookResult result = look("saw");
  ASSERT_EQ(result.entries.size(), 3u);
  EXPECT_EQ(result.entries[0].headword, "saw");
  EXPECT_EQ(result.entries[0].match, Match::kExact);
  EXPECT_EQ(result.entries[1].headword, "saw");
  EXPECT_EQ(result.entries[2].headword, "see");
  EXPECT_EQ(result.entries[2].match, Match::kInflected);
  EXPECT_EQ(result.entries[2].via, Strings{"past"});
  EXPECT_EQ(result.entries[2].base, "see");
  EXPECT_EQ(result.origin, "saw");  // a dictionary form itself
}

TEST_F(LookTest, TheTablesOfHomonymsStandOneBehindTheOther) {
  LookRequest request;
  request.word = "saw";
  request.wantEntries = false;
  request.wantForms = true;
  Strings forms;
  for (const Form& form : look(request).forms) forms.push_back(form.base + ": " + form.form);
  EXPECT_EQ(forms, (Strings{"saw: saw", "saw: saws", "saw: sawed", "saw: sawn", "saw: sawing", "saw: saw",
                            "saw: saws", "see: see", "see: sees", "see: saw", "see: seen", "see: seeing"}));
}

TEST_F(LookTest, AFormWithoutItsPartOfSpeechIsNone) {
  LookRequest request;
  request.word = "church";
  request.wantForms = true;
  Strings forms;
  for (const Form& form : look(request).forms) forms.push_back(form.form);
  EXPECT_EQ(forms, (Strings{"church", "churches"}));
}

TEST_F(LookTest, AContractionLeadsToItsFirstWord) {
  const LookResult result = look("can't");
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].headword, "can");
  EXPECT_EQ(result.entries[0].match, Match::kInflected);
  EXPECT_EQ(result.entries[0].via, Strings{"contraction with not"});
  EXPECT_EQ(look("cant").entries.at(0).match, Match::kExact);
  EXPECT_EQ(look("can’t").entries.at(0).headword, "can");
}

TEST_F(LookTest, APossessiveOfAPluralLeadsToTheSingular) {
  const LookResult result = look("children's");
  ASSERT_EQ(result.entries.size(), 1u);
  EXPECT_EQ(result.entries[0].headword, "child");
  EXPECT_EQ(result.entries[0].via, Strings{"possessive of plural"});
}

TEST_F(LookTest, WhatIsOnlyFiledAlikeIsNotExact) {
  EXPECT_EQ(look("un").entries.at(0).match, Match::kExact);
  EXPECT_EQ(look("un-").entries.at(0).match, Match::kNear);
  EXPECT_EQ(look("-un").entries.at(0).match, Match::kNear);
}

// Japanese

TEST_F(LookTest, TheSameKanaComeFirstAndTheOthersAreMarked) {
  const auto found = [&](const char* word) {
    Strings list;
    for (const Entry& entry : look(word).entries)
      list.push_back(entry.headword + " " + matchName(entry.match));
    return list;
  };
  EXPECT_EQ(found("ビール"), (Strings{"ビール exact", "ビル near", "びる near"}));
  EXPECT_EQ(found("ビル"), (Strings{"ビル exact", "びる exact", "ビール near"}));
  EXPECT_EQ(found("びる"), (Strings{"びる exact", "ビル exact", "ビール near"}));
}

// A word in the other kana leaves no less doubt than none.
TEST_F(LookTest, AFormThatIsAWordInTheOtherKanaLeadsToItsDictionaryFormToo) {
  const LookResult result = look("へんな");
  ASSERT_EQ(result.entries.size(), 2u);
  EXPECT_EQ(result.entries[0].headword, "ヘンナ");
  EXPECT_EQ(result.entries[1].headword, "変");
  EXPECT_EQ(result.entries[1].match, Match::kInflected);
  EXPECT_EQ(result.entries[1].via, Strings{"attributive"});
  EXPECT_EQ(look("ヘンナ").entries.size(), 1u);
}

TEST_F(LookTest, AnInflectedJapaneseWordLeadsToItsDictionaryForm) {
  struct {
    const char* typed;
    const char* headword;
    Strings via;
  } const cases[] = {
      {"行った", "行く", {"past"}},
      {"いった", "行く", {"past"}},
      {"行きます", "行く", {"polite"}},
      {"食べたい", "食べる", {"desire (たい)"}},
      {"食べられなかった", "食べる", {"past", "negative", "potential or passive"}},
      {"美しく", "美しい", {"adverbial"}},
      {"勉強する", "勉強", {"verb with する"}},
      {"勉強しました", "勉強", {"past", "polite", "verb with する"}},
      {"来ない", "来る", {"negative"}},
      {"きた", "来る", {"past"}},
      {"した", "為る", {"past"}},
  };
  for (const auto& row : cases) {
    const LookResult result = look(row.typed);
    ASSERT_EQ(result.entries.size(), 1u) << row.typed;
    EXPECT_EQ(result.entries[0].headword, row.headword) << row.typed;
    EXPECT_EQ(result.entries[0].match, Match::kInflected) << row.typed;
    EXPECT_EQ(result.entries[0].via, row.via) << row.typed;
  }
  EXPECT_EQ(look("行った").origin, "行く");
}

TEST_F(LookTest, NoWordInflectsInAWayThatIsNotItsOwn) {
  // A noun, a godan verb as an ichidan one, an adjective as a verb.
  for (const char* word : {"人人た", "行くた", "行きた", "美しいた", "美しった", "食べった", "勉強た"}) {
    EXPECT_FALSE(look(word).found()) << word;
  }
}

TEST_F(LookTest, AQueryIsFoldedOnlyWhereNothingIsFoundAsItStands) {
  EXPECT_EQ(look("人々").entries.at(0).headword, "人人");
  EXPECT_EQ(look("人々").query, "人々");
  EXPECT_EQ(look("人々").origin, "人人");
  EXPECT_EQ(look("１月").entries.at(0).headword, "一月");
  EXPECT_EQ(look("café").entries.at(0).headword, "cafe");
  EXPECT_EQ(look("ｃｈｕｒｃｈ").entries.at(0).headword, "church");
  EXPECT_EQ(look("ﾊﾟﾝ").entries.at(0).headword, "パン");
  EXPECT_EQ(look("「行く」。").entries.at(0).headword, "行く");
  EXPECT_EQ(look("church?").entries.at(0).headword, "church");
  EXPECT_EQ(look("cürch").suggestions.at(0), "church");
}

TEST_F(LookTest, AListOfAShortBeginningHoldsTheLongerOnes) {
  LookRequest request;
  request.wantEntries = false;
  const auto words = [&](const std::string& word) {
    request.word = word;
    Strings list;
    for (const Headword& headword : look(request).headwords) list.push_back(headword.keyword);
    return list;
  };
  EXPECT_EQ(words("c"), (Strings{"cafe", "can", "cant", "Cape Town", "child", "church", "color", "colour"}));
  EXPECT_EQ(words("ch"), (Strings{"child", "church"}));
  EXPECT_EQ(words("goes"), Strings{});
  EXPECT_EQ(words("こ"), (Strings{"こう", "こう"}));
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
