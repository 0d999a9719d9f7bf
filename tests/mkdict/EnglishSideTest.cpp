// The English side as a build runs it, over small files of each source.
#include "mkdict/EnglishSide.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "mkdict/EdictSupport.h"
#include "mkdict/ToShiftJis.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using Texts = std::vector<std::string>;
using test::sjis;

struct Sources {
  Sources() {
    paths.freedictIndex = folder.path() + "/index";
    paths.freedictText = folder.path() + "/text";
    paths.wordnetFolder = folder.path();
    for (const char* name : {"data.noun", "data.verb", "data.adj", "data.adv", "noun.exc", "verb.exc",
                             "adj.exc", "adv.exc", "cntlist.rev"}) {
      write(name, "");
    }
    freedict({"00databaseinfo\n\nEdition: 2022.11.18\nSize: 3\n", "go //ɡoʊ// <v>\n行く\nto move\n",
              "phobia //x// <suffix>\n, 怖症\n", "quick //kwɪk// <adj>\n速い\n"});
    write("data.verb", "00000200 38 v 01 go 0 000 | move about; he went  \n");
    write("data.adj", "00000300 00 a 01 quick 0 000 | fast  \n");
    write("data.adv", "00000400 02 r 01 quickly 0 001 \\ 00000300 a 0101 | in a quick way  \n");
    write("data.noun", "00000100 05 n 01 dog 0 000 | an animal  \n");
    write("verb.exc", "gone go\nwent go\n");
    write("cntlist.rev", "go%2:38:00:: 1 9\nquickly%4:02:00:: 1 8\ndog%1:05:00:: 1 7\n");
  }
  void write(const std::string& name, const std::string& text) {
    test::writeFile(folder.path() + "/" + name, text);
  }
  void freedict(const Texts& entries) {
    std::string text, index;
    for (const std::string& entry : entries) {
      const auto digits = [](size_t n) {
        constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        return std::string{kDigits[n / 64], kDigits[n % 64]};
      };
      index += entry.substr(0, entry.find_first_of(" \n")) + "\t" + digits(text.size()) + "\t" +
               digits(entry.size()) + "\n";
      text += entry;
    }
    write("index", index);
    write("text", text);
  }
  Compilation compile() {
    Compilation compilation;
    EnglishSide side;
    Progress progress;
    std::string error;
    EXPECT_TRUE(side.open(paths, progress, &error)) << error;
    for (const char* line : {"犬 [いぬ] /(n) dog/(P)/", "行く [いく] /(v5k-s) to go/(P)/"}) {
      side.takeEdict(edictLine(line));
    }
    EXPECT_TRUE(side.compile(compilation, progress));
    return compilation;
  }
  test::TempFolder folder;
  EnglishSources paths;
};

TEST(EnglishSide, CompilesAllThreeSources) {
  const Compilation compilation = Sources().compile();
  ASSERT_EQ(3u, compilation.english.size());
  EXPECT_EQ("go", compilation.english[0].word);
  EXPECT_EQ(
      "\xF5\xD1***\xF4\xB5"
      "1\xF4\xD0go" +
          sjis("≦") + "goU" + sjis("≧") + "\n\xF5\xD3" + sjis("-[動]") + "\n\xF5\xD4" +
          sjis("行く (to move)") + " \n",
      compilation.english[0].text);
  EXPECT_EQ("dog", compilation.english[1].word);
  EXPECT_EQ("quick", compilation.english[2].word);
  EXPECT_EQ((Texts{"0", "1", "2"}),
            (Texts{std::to_string(compilation.english[0].rank), std::to_string(compilation.english[1].rank),
                   std::to_string(compilation.english[2].rank)}));
  ASSERT_EQ(1u, compilation.derived.size());
  EXPECT_EQ("quickly", compilation.derived[0].form);
  EXPECT_EQ(std::vector<size_t>{2}, compilation.derived[0].entries);
  ASSERT_EQ(1u, compilation.katu.size());
  EXPECT_EQ(sjis("go:現,goes:三,went:過,gone:分,going:進"), compilation.katu[0].items);
  EXPECT_EQ((Texts{"go", "goes", "going", "gone", "went"}), compilation.katu[0].forms);
}

TEST(EnglishSide, NamesItsSourcesAndFigures) {
  const Compilation compilation = Sources().compile();
  ASSERT_EQ(2u, compilation.sources.size());
  EXPECT_EQ("2022.11.18", compilation.sources[0].version);
  EXPECT_EQ("WordNet", compilation.sources[1].name);
  EXPECT_EQ(2u, compilation.summary.valueOf("FreeDict entries"));
  EXPECT_EQ(3u, compilation.summary.valueOf("English entries"));
  EXPECT_EQ(1u, compilation.summary.valueOf("English entries out of EDICT"));
  EXPECT_EQ(3u, compilation.summary.valueOf("frequent English words asked for"));
  EXPECT_EQ(2u, compilation.summary.valueOf("frequent words with an entry of their own"));
  EXPECT_EQ(1u, compilation.summary.valueOf("frequent words by derivation"));
  EXPECT_EQ(1000u, compilation.summary.valueOf("in a thousand frequent words answered"));
  EXPECT_EQ(1u, compilation.summary.leftOutCount(
                    "FreeDict affixes, whose translations are cut short at the source"));
}

TEST(EnglishSide, TellsTheGapsAmongFrequentWords) {
  Sources sources;
  sources.write("cntlist.rev", "go%2:38:00:: 1 9\nquickly%4:02:00:: 1 8\nzebra%1:05:00:: 1 7\n");
  const Compilation compilation = sources.compile();
  EXPECT_EQ(666u, compilation.summary.valueOf("in a thousand frequent words answered"));  // two of three
  EXPECT_EQ(1u, compilation.summary.leftOutCount("frequent English words without an answer"));
  EXPECT_NE(std::string::npos, compilation.summary.json().find("\"samples\":[\"zebra\"]"));
}

TEST(EnglishSide, GivesTheSameSetTwice) {
  Sources sources;
  const Compilation first = sources.compile(), second = sources.compile();
  ASSERT_EQ(first.english.size(), second.english.size());
  for (size_t i = 0; i < first.english.size(); ++i) EXPECT_EQ(first.english[i].text, second.english[i].text);
  EXPECT_EQ(first.summary.json(), second.summary.json());
}

TEST(EnglishSide, TellsWhichSourceFails) {
  for (const char* name : {"data.verb", "index", "text"}) {
    Sources sources;
    std::filesystem::remove(sources.folder.path() + "/" + name);
    EnglishSide side;
    Progress progress;
    std::string error;
    EXPECT_FALSE(side.open(sources.paths, progress, &error));
    EXPECT_EQ("can't read " + sources.folder.path() + "/" + name, error);
  }
}

TEST(EnglishSide, RefusesWordNetFilesThatAreCutShort) {
  const auto errorOf = [](Sources& sources) {
    EnglishSide side;
    Progress progress;
    std::string error;
    EXPECT_FALSE(side.open(sources.paths, progress, &error));
    return error.substr(sources.folder.path().size());
  };
  for (const char* name : {"data.noun", "verb.exc", "cntlist.rev"}) {
    Sources sources;
    std::string text = test::readFile(sources.folder.path() + "/" + name);
    text.pop_back();
    sources.write(name, text);
    EXPECT_EQ(std::string("/") + name + " is cut short", errorOf(sources));
  }
  Sources sources;
  sources.write("data.adj", "");  // "quickly" points there
  EXPECT_EQ(": 1 pointers lead nowhere; a data file is cut short", errorOf(sources));
}

TEST(EnglishSide, StopsWhenCancelled) {
  Sources sources;
  volatile std::sig_atomic_t stop = 1;
  EnglishSide side;
  Progress progress;
  progress.watch(&stop);
  std::string error = "x";
  EXPECT_FALSE(side.open(sources.paths, progress, &error));
  EXPECT_EQ("", error);
}

}  // namespace
}  // namespace zavel::mkdict
