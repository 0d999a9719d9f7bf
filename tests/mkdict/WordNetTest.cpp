#include "mkdict/WordNet.h"

#include <gtest/gtest.h>

#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using Pairs = std::vector<std::pair<uint32_t, uint32_t>>;

// "build" (verb) and "builder" (noun) are derived from each other by their first words.
constexpr char kNouns[] =
    "  1 The licence is indented.\n"
    "00000100 18 n 02 builder 0 constructor 1 002 @ 00000300 n 0000 + 00000200 v 0101 | a person who builds  "
    "\n"
    "00000300 03 n 01 United_States 0 000 | a nation  \n";
constexpr char kVerbs[] =
    "00000200 36 v 02 build 0 make 2 001 + 00000100 n 0101 01 + 08 00 | put together  \n";
constexpr char kAdjectives[] =
    "00000400 00 a 01 galore(ip) 0 000 | in great numbers  \n"
    "00000500 01 a 02 dental 0 odontic 0 001 \\ 00000300 n 0100 | of the teeth  \n"
    "00000600 00 s 01 dental 1 000 | made at the teeth  \n";

struct Loaded {
  Loaded() {
    EXPECT_TRUE(net.readData(WordNet::kNoun, kNouns, {}, {}));
    EXPECT_TRUE(net.readData(WordNet::kVerb, kVerbs, {}, {}));
    EXPECT_TRUE(net.readData(WordNet::kAdjective, kAdjectives, {}, {}));
  }
  WordNet net;
};

TEST(WordNet, KnowsWordsByPartOfSpeech) {
  Loaded l;
  EXPECT_TRUE(l.net.is("builder", WordNet::kNoun));
  EXPECT_FALSE(l.net.is("builder", WordNet::kVerb));
  EXPECT_TRUE(l.net.is("galore", WordNet::kAdjective));  // its marker is no part of it
  EXPECT_EQ(nullptr, l.net.lemma("licence"));
  EXPECT_EQ(2u, l.net.lemma("dental")->senses[WordNet::kAdjective]);
}

TEST(WordNet, FoldsCapitalsAndUnderlinesAndRemembersCapitals) {
  Loaded l;
  ASSERT_NE(nullptr, l.net.lemma("united states"));
  EXPECT_FALSE(l.net.lemma("united states")->lowerCase);
  EXPECT_TRUE(l.net.lemma("builder")->lowerCase);
  ASSERT_TRUE(l.net.readCounts("united_states%1:15:00:: 1 3\nmore_than%4:02:00:: 1 9\n"));
  EXPECT_FALSE(l.net.lemma("united states")->lowerCase);  // the counts know no capitals
  EXPECT_TRUE(l.net.lemma("more than")->lowerCase);
}

// "China" the country, counted ten times, and "china" the ware, counted twice.
TEST(WordNet, TellsNamesFromWordsOfTheSameLetters) {
  WordNet net;
  ASSERT_TRUE(net.readData(WordNet::kNoun,
                           "00000100 15 n 01 China 0 000 | a nation  \n"
                           "00000200 06 n 01 china 1 000 | ware  \n"
                           "00000300 15 n 01 Paris 0 000 | a city  \n",
                           {}, {}));
  ASSERT_TRUE(net.readCounts("china%1:15:00:: 1 10\nchina%1:06:01:: 2 2\nparis%1:15:00:: 1 5\n"));
  const WordNet::Lemma& china = *net.lemma("china");
  EXPECT_TRUE(china.isName(WordNet::kNoun));
  EXPECT_TRUE(china.isCommon(WordNet::kNoun));
  EXPECT_TRUE(china.tellsNames());
  EXPECT_EQ(12u, china.allUses());
  EXPECT_EQ(10u, china.spelledUses(true));
  EXPECT_EQ(2u, china.spelledUses(false));
  EXPECT_EQ(2u, china.spelledUses(WordNet::kNoun, false));
  const WordNet::Lemma& paris = *net.lemma("paris");
  EXPECT_TRUE(paris.isName(WordNet::kNoun));
  EXPECT_FALSE(paris.isCommon(WordNet::kNoun));
  EXPECT_FALSE(paris.tellsNames());
  EXPECT_EQ(5u, paris.spelledUses(false));  // nobody else is spelled so
}

TEST(WordNet, SortsNounsByKind) {
  EXPECT_EQ(WordNet::kLiving, WordNet::kindOf(18));
  EXPECT_EQ(WordNet::kLiving, WordNet::kindOf(5));
  EXPECT_EQ(WordNet::kThing, WordNet::kindOf(6));
  EXPECT_EQ(WordNet::kMixed, WordNet::kindOf(9));
  EXPECT_EQ(WordNet::kMass, WordNet::kindOf(27));
  EXPECT_EQ(WordNet::kMixed, WordNet::kindOf(99));
  Loaded l;
  EXPECT_EQ(1u, l.net.lemma("builder")->kinds[WordNet::kLiving]);
}

TEST(WordNet, CountsSensesThatOnlyRelate) {
  Loaded l;
  EXPECT_EQ(1u, l.net.lemma("dental")->relational);  // the first word alone points
  EXPECT_EQ(0u, l.net.lemma("odontic")->relational);
}

TEST(WordNet, AddsUpUses) {
  Loaded l;
  ASSERT_TRUE(l.net.readCounts(
      "build%2:36:00:: 1 40\nbuild%2:36:01:: 2 2\nbuild%1:07:00:: 1 3\ndental%5:00:00:x:00 1 4\n"));
  EXPECT_EQ(42u, l.net.lemma("build")->uses[WordNet::kVerb]);
  EXPECT_EQ(3u, l.net.lemma("build")->uses[WordNet::kNoun]);
  EXPECT_EQ(45u, l.net.lemma("build")->allUses());
  EXPECT_EQ(30u, l.net.lemma("build")->kinds[WordNet::kMass]);      // ten times three uses as an attribute
  EXPECT_EQ(4u, l.net.lemma("dental")->uses[WordNet::kAdjective]);  // 5: a satellite
  ASSERT_TRUE(l.net.readCounts("more_than%4:02:00:: 1 9\n"));
  EXPECT_TRUE(l.net.is("more than", WordNet::kAdverb));  // counted, though no synset has it
}

TEST(WordNet, FollowsDerivationsBothWays) {
  Loaded l;
  l.net.finish();
  const uint32_t build = l.net.find("build"), builder = l.net.find("builder"),
                 states = l.net.find("united states");
  const uint32_t dental = l.net.find("dental");
  const Pairs& pairs = l.net.derivations();
  EXPECT_EQ(3u, pairs.size());
  const auto has = [&](uint32_t a, uint32_t b) {
    return std::find(pairs.begin(), pairs.end(), std::pair(a, b)) != pairs.end();
  };
  EXPECT_TRUE(has(build, builder));
  EXPECT_TRUE(has(builder, build));
  EXPECT_TRUE(has(dental, states));  // a target of 00 is all words of the synset
}

TEST(WordNet, CountsPointersThatLeadNowhere) {
  WordNet net;
  ASSERT_TRUE(net.readData(WordNet::kNoun, kNouns, {}, {}));
  EXPECT_EQ(1u, net.finish());  // "builder" points to a verb that was not read
  Loaded whole;
  EXPECT_EQ(0u, whole.net.finish());
}

TEST(WordNet, ReadsExceptions) {
  WordNet net;
  ASSERT_TRUE(net.readExceptions(WordNet::kNoun, "leaves leaf leave\nattorneys_general attorney_general\n"));
  const WordNet::Exceptions expected = {
      {"leaves", "leaf"}, {"leaves", "leave"}, {"attorneys general", "attorney general"}};
  EXPECT_EQ(expected, net.exceptions(WordNet::kNoun));
}

TEST(WordNet, HandsOverGlossesAndSynsets) {
  WordNet net;
  std::vector<std::string> glosses;
  std::vector<size_t> sizes;
  ASSERT_TRUE(net.readData(
      WordNet::kNoun, kNouns, [&](std::string_view gloss) { glosses.emplace_back(gloss); },
      [&](WordNet::Pos, const std::vector<uint32_t>& lemmas) { sizes.push_back(lemmas.size()); }));
  EXPECT_EQ((std::vector<std::string>{"a person who builds  ", "a nation  "}), glosses);
  EXPECT_EQ(std::vector<size_t>{2}, sizes);
}

TEST(WordNet, RefusesDamagedLines) {
  for (const char* line :
       {"x", "00000100", "00000100 18 n", "00000100 18 n 00 000 | g", "00000100 18 n 02 builder 0 000 | g",
        "00000100 18 n 01 builder 0 001 + 00000200 | g", "00000100 18 n 01 builder 0 001 + 200 q 0101 | g",
        "00000100 18 n 01 builder 0 001 + 200 v 0201 | g",
        "00000100 18 n 01 builder 0 001 + 200 v 1010101 | g", "00000100 18 n zz builder 0 000 | g",
        "00000100 18 n 01 builder 0 | g"}) {
    WordNet net;
    EXPECT_FALSE(net.readData(WordNet::kNoun, line, {}, {})) << line;
  }
  WordNet net;
  EXPECT_FALSE(net.readExceptions(WordNet::kVerb, "went\n"));
  for (const char* line : {"build", "build%2:36:00:: 1", "build%9:36:00:: 1 2", "build:2 1 2", "build%2 1 2",
                           "build%2:36:00:: 1 x"}) {
    EXPECT_FALSE(net.readCounts(line)) << line;
  }
}

TEST(WordNet, AsksForEachOfItsFiles) {
  const char* names[] = {"data.noun", "noun.exc", "data.verb", "verb.exc",   "data.adj",
                         "adj.exc",   "data.adv", "adv.exc",   "cntlist.rev"};
  for (const char* missing : names) {
    test::TempFolder folder;
    for (const char* name : names) {
      if (name != missing) test::writeFile(folder.path() + "/" + name, "");
    }
    WordNet net;
    std::string error;
    EXPECT_FALSE(net.load(folder.path(), {}, {}, &error));
    EXPECT_EQ("can't read " + folder.path() + "/" + missing, error);
  }
}

TEST(WordNet, NamesADamagedFile) {
  test::TempFolder folder;
  test::writeFile(folder.path() + "/data.noun", "rubbish\n");
  WordNet net;
  std::string error;
  EXPECT_FALSE(net.load(folder.path(), {}, {}, &error));
  EXPECT_EQ(folder.path() + "/data.noun is damaged", error);
}

}  // namespace
}  // namespace zavel::mkdict
