// Words in what the open data compiles to: do forms lead to their words, and do the right entries come first?
// The compiled set is a fixture of ctest; run by hand, the program takes its folder from the environment
// variable REAL_DICTIONARY.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Look.h"
#include "support/TempFolder.h"

namespace zavel::host {
namespace {

using Strings = std::vector<std::string>;

struct Way {
  const char* query;
  const char* base;
  Strings via;
};

class LookReal : public testing::Test {
 protected:
  void SetUp() override {
    const char* folder = std::getenv("REAL_DICTIONARY");
    const std::string prefix = std::string(folder ? folder : REAL_DICTIONARY) + "/";
    const FileReference file(folder_.path() + "/result");
    ASSERT_TRUE(manager_.InitializeDictionaries(prefix.c_str(), nullptr, nullptr, &file)) << prefix;
  }

  LookResult look(const std::string& word) {
    LookRequest request;
    request.word = word;
    LookResult result;
    Failure failure;
    EXPECT_TRUE(Look(manager_).run(request, &result, &failure)) << word << failure.message;
    return result;
  }

  void leads(const std::vector<Way>& ways) {
    for (const Way& way : ways) {
      bool found = false;
      for (const Entry& entry : look(way.query).entries) {
        found =
            found || (entry.match == Match::kInflected && entry.headword == way.base && entry.via == way.via);
      }
      EXPECT_TRUE(found) << way.query << " does not lead to " << way.base;
    }
  }

  test::TempFolder folder_;
  MirellDictionaryManager manager_;
};

TEST_F(LookReal, WordsThatAreFormsOfOthersLeadThere) {
  leads({{"are", "be", {"present"}},
         {"was", "be", {"past"}},
         {"won", "win", {"past", "past participle"}},
         {"saw", "see", {"past"}},
         {"felt", "feel", {"past", "past participle"}},
         {"found", "find", {"past", "past participle"}},
         {"left", "leave", {"past", "past participle"}},
         {"said", "say", {"past", "past participle"}},
         {"led", "lead", {"past", "past participle"}},
         {"broke", "break", {"past"}},
         {"men", "man", {"plural"}},
         {"hands", "hand", {"plural"}},
         {"teeth", "tooth", {"plural"}},
         {"walking", "walk", {"present participle"}},
         {"going", "go", {"present participle"}},
         {"better", "good", {"comparative"}},
         {"leaves", "leaf", {"plural"}},
         {"leaves", "leave", {"third person singular"}}});
}

TEST_F(LookReal, OwnEntriesComeFirst) {
  for (const char* word : {"are", "won", "saw", "left", "walking", "teeth", "better"}) {
    const LookResult result = look(word);
    ASSERT_FALSE(result.entries.empty());
    EXPECT_EQ(result.entries[0].headword, word);
    EXPECT_EQ(result.entries[0].match, Match::kExact);
  }
}

TEST_F(LookReal, HomographsWithoutThePartOfSpeechStayOut) {
  for (const char* word : {"went", "stopped"}) {
    for (const Entry& entry : look(word).entries) EXPECT_EQ(entry.labels, Strings{"動"}) << word;
  }
  ASSERT_EQ(look("dogs").entries.size(), 1u);
  EXPECT_EQ(look("dogs").entries[0].via, Strings{"plural"});
}

TEST_F(LookReal, ApostrophesAreReadAsWritersMeanThem) {
  leads({{"can't", "can", {"contraction with not"}},
         {"I'm", "I", {"contraction with am"}},
         {"it's", "it", {"contraction with is or has"}},
         {"won't", "will", {"contraction with not"}},
         {"isn't", "be", {"contraction with not of third person singular"}},
         {"children's", "child", {"possessive of plural"}}});
  EXPECT_EQ(look("don’t").entries.at(0).headword, "don't");
  EXPECT_EQ(look("o’clock").entries.at(0).match, Match::kExact);
}

TEST_F(LookReal, JapaneseEndingsLeadToTheDictionaryForm) {
  leads({{"行った", "行く", {"past"}},
         {"行きます", "行く", {"polite"}},
         {"食べた", "食べる", {"past"}},
         {"食べたい", "食べる", {"desire (たい)"}},
         {"美しく", "美しい", {"adverbial"}},
         {"走っている", "走る", {"progressive"}},
         {"勉強する", "勉強", {"verb with する"}},
         {"食べられなかった", "食べる", {"past", "negative", "potential or passive"}},
         {"帰りたくなかった", "帰る", {"past", "negative", "desire (たい)"}},
         {"来ない", "来る", {"negative"}},
         {"いらっしゃいます", "いらっしゃる", {"polite"}}});
}

TEST_F(LookReal, ComingIsKuruWhereKitaruHasNoSuchForm) {
  for (const char* word : {"来られる", "来れる", "来れば", "来ました"}) {
    const LookResult result = look(word);
    ASSERT_FALSE(result.entries.empty()) << word;
    EXPECT_EQ(result.entries[0].reading, "くる") << word;
  }
  for (const char* word : {"来られる", "来れる"}) {
    for (const Entry& entry : look(word).entries) EXPECT_NE(entry.reading, "きたる") << word;
  }
}

TEST_F(LookReal, NaAdjectivesAndObligationsLeadToTheDictionaryForm) {
  leads({{"静かな", "静か", {"attributive"}},
         {"静かだ", "静か", {"predicative (だ)"}},
         {"静かだった", "静か", {"past"}},
         {"静かではない", "静か", {"negative"}},
         {"元気だった", "元気", {"past"}},
         {"変な", "変", {"attributive"}},
         {"食べなければならない", "食べる", {"obligation (なければならない)"}},
         {"来なければならない", "来る", {"obligation (なければならない)"}},
         {"行かなくちゃ", "行く", {"obligation (なくてはならない)"}},
         {"食べなきゃ", "食べる", {"obligation (なければならない)"}},
         {"飲んじゃった", "飲む", {"past", "completion (てしまう)"}},
         {"食べちゃう", "食べる", {"completion (てしまう)"}}});
  EXPECT_TRUE(look("机だった").entries.empty());  // a noun has no endings
}

TEST_F(LookReal, TheSameKanaComeFirst) {
  EXPECT_EQ(look("ビール").entries.at(0).headword, "ビール");
  for (const char* word : {"する", "くる", "みる"}) {
    EXPECT_EQ(look(word).entries.at(0).reading, word);
    bool near = false;
    for (const Entry& entry : look(word).entries) {
      EXPECT_FALSE(near && entry.match != Match::kNear) << word << ": nothing follows what is near";
      near = near || entry.match == Match::kNear;
    }
  }
}

TEST_F(LookReal, RepeatedKanjiAndOtherWidthsAreFound) {
  const std::pair<const char*, const char*> words[] = {
      {"人々", "人人"}, {"時々", "時時"}, {"色々", "色色"}, {"１月", "一月"}, {"ﾈｺ", "ネコ"}};
  for (const auto& [query, headword] : words) EXPECT_EQ(look(query).entries.at(0).headword, headword);
}

}  // namespace
}  // namespace zavel::host
