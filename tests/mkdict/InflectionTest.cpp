#include "mkdict/Inflection.h"

#include <gtest/gtest.h>

#include "EnglishSupport.h"
#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;

Sounds unknown(std::string_view word) {
  return Pronunciation::sounds(word, "");
}

TEST(Spelling, AddsS) {
  const std::pair<const char*, const char*> table[] = {
      {"cat", "cats"},        {"bus", "buses"},
      {"box", "boxes"},       {"waltz", "waltzes"},
      {"church", "churches"}, {"wash", "washes"},
      {"fly", "flies"},       {"boy", "boys"},
      {"make", "makes"},      {"soliloquy", "soliloquies"},
      {"guy", "guys"},        {"photo", "photos"},
      {"glass", "glasses"},
  };
  for (const auto& [word, expected] : table) EXPECT_EQ(expected, withS(word));
  EXPECT_EQ("stomachs", withS("stomach", true));
}

TEST(Spelling, AddsEndingsOfVerbs) {
  EXPECT_EQ("baked", withEd("bake"));
  EXPECT_EQ("tried", withEd("try"));
  EXPECT_EQ("played", withEd("play"));
  EXPECT_EQ("stopped", withEd("stop", true));
  EXPECT_EQ("agreed", withEd("agree"));
  EXPECT_EQ("baking", withIng("bake", false));
  EXPECT_EQ("seeing", withIng("see", true));
  EXPECT_EQ("trying", withIng("try", false));
  EXPECT_EQ("stopping", withIng("stop", false, true));
  EXPECT_EQ("birdieing", withIng("birdie", false));
}

TEST(Spelling, AddsEndingsOfAdjectives) {
  EXPECT_EQ("nicer", withEr("nice"));
  EXPECT_EQ("happier", withEr("happy"));
  EXPECT_EQ("grayer", withEr("gray"));
  EXPECT_EQ("bigger", withEr("big", true));
  EXPECT_EQ("nicest", withEst("nice"));
  EXPECT_EQ("happiest", withEst("happy"));
  EXPECT_EQ("biggest", withEst("big", true));
}

TEST(Spelling, SeesShortSyllables) {
  for (const char* word : {"stop", "quit", "plan", "dig"}) EXPECT_TRUE(endsInShortSyllable(word)) << word;
  for (const char* word : {"play", "fix", "look", "bus", "open", "by", "on", "A.B"}) {
    EXPECT_FALSE(endsInShortSyllable(word)) << word;
  }
}

// Verbs with the exceptions that WordNet lists of them.
struct Verbs {
  VerbForms of(const std::string& verb, const Texts& listed, const std::string& attested = "",
               const std::string& ipa = "") {
    SmallEnglish english;
    english.synset(WordNet::kVerb, {verb});
    for (const std::string& form : listed) english.exception(WordNet::kVerb, form + " " + verb);
    english.attest(attested);
    return english.inflection().verb(verb, Pronunciation::sounds(verb, ipa));
  }
};

TEST(Inflection, TellsPastFromParticiple) {
  struct Row {
    const char* verb;
    Texts listed, past, participle;
  };
  const Row table[] = {
      {"go", {"gone", "went"}, {"went"}, {"gone"}},
      {"see", {"saw", "seen"}, {"saw"}, {"seen"}},
      {"take", {"taken", "took"}, {"took"}, {"taken"}},
      {"write", {"written", "wrote"}, {"wrote"}, {"written"}},
      {"blow", {"blew", "blown"}, {"blew"}, {"blown"}},
      {"lie", {"lain", "lay", "lying"}, {"lay"}, {"lain"}},
      {"bear", {"bore", "born", "borne"}, {"bore"}, {"born", "borne"}},
      {"swim", {"swam", "swimming", "swum"}, {"swam"}, {"swum"}},
      {"begin", {"began", "beginning", "begun"}, {"began"}, {"begun"}},
      {"shrink", {"shrank", "shrunk", "shrunken"}, {"shrank"}, {"shrunk", "shrunken"}},
      {"get", {"getting", "got", "gotten"}, {"got"}, {"gotten", "got"}},
      {"behold", {"beheld", "beholden"}, {"beheld"}, {"beholden", "beheld"}},
      // one form for both
      {"find", {"found"}, {"found"}, {"found"}},
      {"win", {"winning", "won"}, {"won"}, {"won"}},
      {"shine", {"shone"}, {"shone", "shined"}, {"shone", "shined"}},
      {"strike", {"struck"}, {"struck"}, {"struck"}},
      // participle alone: the past is regular
      {"show", {"shown"}, {"showed"}, {"shown"}},
      {"swell", {"swollen"}, {"swelled"}, {"swollen"}},
      {"beat", {"beaten"}, {"beat"}, {"beaten"}},
      {"come", {"came"}, {"came"}, {"come"}},
      {"run", {"ran", "running"}, {"ran"}, {"run"}},
      {"bid", {"bade", "bidden", "bidding"}, {"bade", "bid"}, {"bidden", "bid"}},
      {"cut", {"cutting"}, {"cut"}, {"cut"}},
      {"dive", {"dove"}, {"dove", "dived"}, {"dived"}},
      // worn-down endings stand beside the regular one, archaic ones fall
      {"mean", {"meant"}, {"meant"}, {"meant"}},
      {"address", {"addrest"}, {"addressed"}, {"addressed"}},
      // doubled letters and other spellings of -ed
      {"stop", {"stopped", "stopping"}, {"stopped"}, {"stopped"}},
      {"panic", {"panicked", "panicking"}, {"panicked"}, {"panicked"}},
      {"pen", {"penned", "penning", "pent"}, {"penned"}, {"penned"}},
      {"study", {}, {"studied"}, {"studied"}},
  };
  for (const Row& row : table) {
    const VerbForms forms = Verbs().of(row.verb, row.listed);
    EXPECT_EQ(row.past, forms.past) << row.verb;
    EXPECT_EQ(row.participle, forms.participle) << row.verb;
  }
}

TEST(Inflection, TakesTheRegularFormWhereDefinitionsUseIt) {
  EXPECT_EQ((Texts{"burnt", "burned"}), Verbs().of("burn", {"burnt"}, "burnt").past);
  EXPECT_EQ(Texts{"burned"}, Verbs().of("burn", {"burnt"}, "").past);  // nobody writes "burnt" here
  EXPECT_EQ((Texts{"hung", "hanged"}), Verbs().of("hang", {"hung"}, "he was hanged").past);
  EXPECT_EQ(Texts{"hung"}, Verbs().of("hang", {"hung"}).past);
  EXPECT_EQ((Texts{"proven", "proved"}), Verbs().of("prove", {"proven"}, "proved").participle);
}

TEST(Inflection, TakesNoRegularFormThatIsOfAnotherWord) {
  SmallEnglish english;
  english.synset(WordNet::kVerb, {"sit"});
  english.synset(WordNet::kVerb, {"site"});
  english.synset(WordNet::kVerb, {"see"});
  english.synset(WordNet::kVerb, {"seed"});
  english.exception(WordNet::kVerb, "sat sit");
  english.exception(WordNet::kVerb, "saw see");
  english.exception(WordNet::kVerb, "seen see");
  english.attest("sited seed leaved");
  EXPECT_EQ(Texts{"sat"}, english.inflection().verb("sit", unknown("sit")).past);
  EXPECT_EQ(Texts{"saw"}, english.inflection().verb("see", unknown("see")).past);
}

TEST(Inflection, InflectsToBeByHand) {
  const VerbForms be = Verbs().of("be", {"am", "are", "is", "was", "were", "been"});
  EXPECT_EQ((Texts{"am", "are"}), be.present);
  EXPECT_EQ(Texts{"is"}, be.third);
  EXPECT_EQ((Texts{"was", "were"}), be.past);
  EXPECT_EQ(Texts{"been"}, be.participle);
  EXPECT_EQ(Texts{"being"}, be.progressive);
}

TEST(Inflection, MakesTheThirdPerson) {
  EXPECT_EQ(Texts{"has"}, Verbs().of("have", {"had", "has"}).third);
  EXPECT_EQ(Texts{"goes"}, Verbs().of("go", {"gone", "went"}).third);
  EXPECT_EQ(Texts{"undergoes"}, Verbs().of("undergo", {"undergone", "underwent"}).third);
  EXPECT_EQ(Texts{"echoes"}, Verbs().of("echo", {}, "echoes").third);
  EXPECT_EQ(Texts{"solos"}, Verbs().of("solo", {}).third);
  EXPECT_EQ(Texts{"quizzes"}, Verbs().of("quiz", {"quizzed", "quizzes", "quizzing"}).third);
  EXPECT_EQ(Texts{"radios"}, Verbs().of("radio", {}, "radioes").third);  // a vowel before the o
}

TEST(Inflection, MakesTheProgressive) {
  EXPECT_EQ(Texts{"dying"}, Verbs().of("die", {"dying"}).progressive);
  EXPECT_EQ(Texts{"making"}, Verbs().of("make", {"made"}).progressive);
  EXPECT_EQ(Texts{"seeing"}, Verbs().of("see", {"saw", "seen"}).progressive);
  EXPECT_EQ(Texts{"dyeing"}, Verbs().of("dye", {}).progressive);
  EXPECT_EQ(Texts{"singeing"}, Verbs().of("singe", {"singing"}).progressive);
  EXPECT_EQ(Texts{"stopping"}, Verbs().of("stop", {"stopped", "stopping"}).progressive);
  EXPECT_EQ(Texts{"inputting"}, Verbs().of("input", {}).progressive);
  EXPECT_EQ(Texts{"reading"}, Verbs().of("read", {}).progressive);
  EXPECT_EQ(Texts{"blogging"}, Verbs().of("blog", {}).progressive);  // not listed, but of one short syllable
}

TEST(Inflection, DoublesAlwaysUnderTheStressAndSometimesElsewhere) {
  const Texts listed = {"travelled", "travelling"};
  EXPECT_EQ((Texts{"traveled", "travelled"}), Verbs().of("travel", listed, "", "ˈtɹævəl").past);
  EXPECT_EQ((Texts{"traveling", "travelling"}), Verbs().of("travel", listed, "", "ˈtɹævəl").progressive);
  EXPECT_EQ(Texts{"compelled"}, Verbs().of("compel", {"compelled", "compelling"}, "", "kəmˈpɛl").past);
  const Texts worship = {"worshipped", "worshipping"};
  EXPECT_EQ(Texts{"worshipped"}, Verbs().of("worship", worship, "worshiped", "ˈwɜːʃɪp").past);
  EXPECT_EQ((Texts{"worshiped", "worshipped"}),
            Verbs().of("worship", worship, "worshiped worshiping worshiped", "ˈwɜːʃɪp").past);
}

TEST(Inflection, KnowsVerbsThatLackForms) {
  EXPECT_EQ("could", Inflection::modalPast("can"));
  EXPECT_EQ("", Inflection::modalPast("go"));
  EXPECT_TRUE(Inflection::isDefective("must"));
  EXPECT_FALSE(Inflection::isDefective("go"));
  SmallEnglish english;
  english.synset(WordNet::kVerb, {"can"});  // to put into tins
  english.synset(WordNet::kVerb, {"find"});
  english.synset(WordNet::kVerb, {"found"});
  english.exception(WordNet::kVerb, "found find");
  english.exception(WordNet::kVerb, "clung cling");
  const Inflection& inflection = english.inflection();
  EXPECT_FALSE(inflection.isMereForm("can"));
  EXPECT_FALSE(inflection.isMereForm("found"));
  EXPECT_TRUE(inflection.isMereForm("clung"));
  EXPECT_TRUE(inflection.isMereForm("shall"));
  EXPECT_TRUE(inflection.isMereForm("should"));
}

Texts pluralsOf(const std::string& noun, const Texts& listed, const std::string& attested = "",
                bool verb = false) {
  SmallEnglish english;
  english.synset(WordNet::kNoun, {noun});
  if (verb) english.synset(WordNet::kVerb, {noun});
  for (const std::string& form : listed) english.exception(WordNet::kNoun, form + " " + noun);
  english.attest(attested);
  return english.inflection().plurals(noun, unknown(noun));
}

TEST(Inflection, MakesPlurals) {
  EXPECT_EQ(Texts{"cats"}, pluralsOf("cat", {}));
  EXPECT_EQ(Texts{"children"}, pluralsOf("child", {"children"}));
  EXPECT_EQ(Texts{"analyses"}, pluralsOf("analysis", {"analyses"}));
  EXPECT_EQ(Texts{"potatoes"}, pluralsOf("potato", {"potatoes"}, "potatoes potatoes potatoes"));
  EXPECT_EQ(Texts{"lenses"}, pluralsOf("lens", {}));
  EXPECT_EQ((Texts{"goldfish", "goldfishes"}), pluralsOf("goldfish", {}));
  EXPECT_EQ(Texts{"sheep"}, pluralsOf("sheep", {}));
  EXPECT_EQ(Texts{"stomachs"}, pluralsOf("stomach", {}));
}

TEST(Inflection, TakesForeignAndRegularPluralsByUse) {
  EXPECT_EQ((Texts{"formulae", "formulas"}), pluralsOf("formula", {"formulae"}, "formulas"));
  EXPECT_EQ(Texts{"criteria"}, pluralsOf("criterion", {"criteria"}, "criteria criteria criteria"));
  EXPECT_EQ((Texts{"gymnasia", "gymnasiums"}), pluralsOf("gymnasium", {"gymnasia"}));  // neither in use
  EXPECT_EQ(Texts{"cocci"}, pluralsOf("coccus", {"cocci"}));                           // a term
  EXPECT_EQ(Texts{"bimbos"}, pluralsOf("bimbo", {"bimboes"}, "bimbos"));
  // "mans" is a form of the verb; "buses" is more frequent than "busses".
  EXPECT_EQ(Texts{"men"}, pluralsOf("man", {"men"}, "men men mans", true));
  EXPECT_EQ((Texts{"busses", "buses"}), pluralsOf("bus", {"busses"}, "buses", true));
}

TEST(Inflection, KnowsMenFromWordsThatEndInMan) {
  SmallEnglish english;
  for (const char* noun : {"police", "sale", "man", "policeman", "human", "talisman", "german"}) {
    english.synset(WordNet::kNoun, {noun});
  }
  const Inflection& inflection = english.inflection();
  const auto plural = [&](const char* noun) { return inflection.plurals(noun, unknown(noun)); };
  EXPECT_EQ(Texts{"policemen"}, plural("policeman"));
  EXPECT_EQ(Texts{"salesmen"}, plural("salesman"));
  EXPECT_EQ(Texts{"women"}, plural("woman"));
  EXPECT_EQ(Texts{"men"}, plural("man"));
  EXPECT_EQ(Texts{"humans"}, plural("human"));
  EXPECT_EQ(Texts{"talismans"}, plural("talisman"));
  EXPECT_TRUE(plural("policemen").empty());
}

TEST(Inflection, GivesNoPluralToPluralsAndNamesOfSciences) {
  for (const char* noun : {"physics", "scissors", "trousers", "news", "co.", "a"}) {
    EXPECT_TRUE(pluralsOf(noun, {}).empty()) << noun;
  }
  SmallEnglish english;
  english.exception(WordNet::kNoun, "children child");
  english.exception(WordNet::kNoun, "dive diva");  // Italian, and a word of its own
  EXPECT_TRUE(english.inflection().plurals("children", unknown("children")).empty());
  EXPECT_EQ(Texts{"dives"}, english.inflection().plurals("dive", unknown("dive")));
}

TEST(Inflection, CountsPeoplesWithoutAnEnding) {
  SmallEnglish english;
  english.synset(WordNet::kAdjective, {"Japanese"});
  EXPECT_EQ(Texts{"japanese"}, english.inflection().plurals("Japanese", unknown("Japanese")));
  EXPECT_EQ(Texts{"cheeses"}, english.inflection().plurals("cheese", unknown("cheese")));
}

Comparison comparisonOf(const std::string& word, const Texts& listed, const std::string& attested = "") {
  SmallEnglish english;
  english.synset(WordNet::kAdjective, {word});
  for (const std::string& form : listed) english.exception(WordNet::kAdjective, form + " " + word);
  english.attest(attested);
  return english.inflection().comparison(word, unknown(word));
}

TEST(Inflection, ComparesAdjectives) {
  const auto expectEndings = [](const Comparison& c, const Texts& comparative, const Texts& superlative) {
    EXPECT_EQ(Comparison::Kind::kEndings, c.kind);
    EXPECT_EQ(comparative, c.comparative);
    EXPECT_EQ(superlative, c.superlative);
  };
  expectEndings(comparisonOf("good", {"better", "best"}), {"better"}, {"best"});
  expectEndings(comparisonOf("big", {"bigger", "biggest"}), {"bigger"}, {"biggest"});
  expectEndings(comparisonOf("happy", {"happier", "happiest"}), {"happier"}, {"happiest"});
  expectEndings(comparisonOf("far", {}), {"farther", "further"}, {"farthest", "furthest"});
  expectEndings(comparisonOf("many", {}), {"more"}, {"most"});
  expectEndings(comparisonOf("tall", {}), {"taller"}, {"tallest"});
  expectEndings(comparisonOf("gray", {}, "grayer grayest"), {"grayer"}, {"grayest"});
  expectEndings(comparisonOf("narrow", {}, "narrower narrowest"), {"narrower"}, {"narrowest"});
}

TEST(Inflection, ComparesOthersByMore) {
  for (const char* word : {"beautiful", "narrow", "careful", "well-known", "fun"}) {
    EXPECT_EQ(Comparison::Kind::kMore, comparisonOf(word, {}).kind) << word;
  }
}

TEST(Inflection, ComparesParticiplesByMore) {
  SmallEnglish english;
  english.synset(WordNet::kVerb, {"tire"});
  english.synset(WordNet::kAdjective, {"tired", "torn", "red"});
  english.exception(WordNet::kVerb, "torn tear");
  english.exception(WordNet::kAdjective, "redder red");
  english.exception(WordNet::kAdjective, "reddest red");
  EXPECT_EQ(Comparison::Kind::kMore, english.inflection().comparison("tired", unknown("tired")).kind);
  EXPECT_EQ(Comparison::Kind::kMore, english.inflection().comparison("torn", unknown("torn")).kind);
  EXPECT_EQ(Comparison::Kind::kEndings, english.inflection().comparison("red", unknown("red")).kind);
}

TEST(Inflection, ComparesNeitherRelationsNorWhatIsCompared) {
  SmallEnglish english;
  english.synset(WordNet::kNoun, {"tooth"});
  english.synset(WordNet::kAdjective, {"dental"}, 1, "001 \\ 00000100 n 0101");
  english.synset(WordNet::kAdjective, {"old", "older", "better", "tender"});
  english.exception(WordNet::kAdjective, "better good");
  const Inflection& inflection = english.inflection();
  for (const char* word : {"dental", "older", "better", "least"}) {
    EXPECT_EQ(Comparison::Kind::kNone, inflection.comparison(word, unknown(word)).kind) << word;
  }
  EXPECT_EQ(Comparison::Kind::kMore, inflection.comparison("tender", unknown("tender")).kind);
}

TEST(Inflection, KeepsEndingsFromShortWordsThatDontTakeThem) {
  for (const char* word : {"live", "own", "wrong", "real"}) {
    EXPECT_EQ(Comparison::Kind::kMore, comparisonOf(word, {}).kind) << word;
  }
  for (const char* word : {"one", "fourth", "some", "gold"}) {
    EXPECT_EQ(Comparison::Kind::kNone, comparisonOf(word, {}).kind) << word;
  }
  EXPECT_EQ(Comparison::Kind::kMore, comparisonOf("French", {}).kind);
}

TEST(Inflection, ComparesAFewAdverbs) {
  SmallEnglish english;
  EXPECT_EQ(Texts{"better"}, english.inflection().adverbComparison("well").comparative);
  EXPECT_EQ(Texts{"soonest"}, english.inflection().adverbComparison("soon").superlative);
  EXPECT_TRUE(english.inflection().adverbComparison("slowly").comparative.empty());
}

TEST(Inflection, PassesOverSlipsOfTheLists) {
  SmallEnglish english;
  english.exception(WordNet::kVerb, "tranship transship");
  english.exception(WordNet::kVerb, "ski'd ski");
  english.exception(WordNet::kVerb, "co-ordinated coordinate");
  english.exception(WordNet::kNoun, "crying cry");
  EXPECT_TRUE(english.inflection().listed(WordNet::kVerb, "transship").empty());
  EXPECT_TRUE(english.inflection().listed(WordNet::kVerb, "ski").empty());
  EXPECT_TRUE(english.inflection().listed(WordNet::kVerb, "coordinate").empty());
  EXPECT_TRUE(english.inflection().listed(WordNet::kNoun, "cry").empty());
}

}  // namespace
}  // namespace zavel::mkdict
