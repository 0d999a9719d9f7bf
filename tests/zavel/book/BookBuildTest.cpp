// `zavel book build`: which books it makes, of what, and how it ends.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "support/DictdFiles.h"
#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::host {
namespace {

namespace fs = std::filesystem;
using test::Command;
using test::Outcome;

class BookBuildTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folder_.file("dictd"));
    fs::create_directories(folder_.file("edict"));
    test::DictdFiles words;
    words.entry("00-database-short\nSmall Words\n", {"00-database-short"})
        .entry("ant\n    an insect\n", {"ant"});
    words.write(folder_.file("dictd/wn"));
  }

  Command zavel(std::vector<std::string> arguments) const {
    return Command(std::move(arguments))
        .env("ZAVEL_ROOT", root())
        .env("ZAVEL_MKBOOK", MKBOOK_PROGRAM)
        .env("ZAVEL_DICTD", folder_.file("dictd"))
        .env("ZAVEL_EDICT", folder_.file("edict"));
  }
  void writeKanjidic() const {
    // 亜 with a reading and a meaning, in EUC-JP.
    folder_.write("edict/kanjidic", "\xB0\xA1 3021 U4e9c B7 G8 S7 \xA5\xA2 {Asia} \n");
  }
  // A stand-in for the compiler, so that a test decides how it ends.
  std::string script(const std::string& lines) const {
    const std::string path = folder_.file("mkbook.sh");
    std::ofstream(path) << "#!/bin/sh\n" << lines;
    chmod(path.c_str(), 0700);
    return path;
  }
  std::string root() const { return folder_.file("root"); }
  std::string book(const std::string& name) const { return root() + "/books/" + name; }
  bool made(const std::string& name) const { return fs::exists(book(name) + "/BOOK.CAT"); }

  test::TempFolder folder_;
};

TEST_F(BookBuildTest, MakesTheUsualBooksThatAreInstalled) {
  Outcome outcome = zavel({"book", "build"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out.starts_with("          1  entries\n")) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("Written to " + book("wordnet") + "\n")) << outcome.out;
  EXPECT_FALSE(made("kanjidic"));
  EXPECT_EQ(zavel({"book", "list", "--plain"}).run().out, "wordnet\tSmall Words\t" + book("wordnet") + "\n");

  writeKanjidic();
  outcome = zavel({"book", "build"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("wordnet\n          1  entries\n")) << outcome.out;
  EXPECT_NE(outcome.out.find("\nkanjidic\n          1  entries\n"), std::string::npos) << outcome.out;
  EXPECT_TRUE(made("kanjidic"));
}

TEST_F(BookBuildTest, TellsWhatToInstallWhereThereIsNothing) {
  const Outcome outcome = zavel({"book", "build"}).env("ZAVEL_DICTD", "/nowhere").run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.err,
      "zavel: neither WordNet nor KANJIDIC is installed\n"
      "Install the Debian packages dict-wn and kanjidic, or name another source: zavel book build --list\n");
}

TEST_F(BookBuildTest, ListsItsSources) {
  test::DictdFiles().entry("bat\n    an animal\n", {"bat"}).write(folder_.file("dictd/animals"));
  const Outcome outcome = zavel({"book", "build", "--list"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "wordnet   " + folder_.file("dictd/wn.index") +
                             "\nedict     not installed: package edict\n"
                             "kanjidic  not installed: package kanjidic\n"
                             "animals   " +
                             folder_.file("dictd/animals.index") + "\n");
  const auto json = nlohmann::json::parse(zavel({"book", "build", "--list", "--json"}).run().out);
  EXPECT_EQ(json["schema"], 1);
  ASSERT_EQ(json["sources"].size(), 4u);
  EXPECT_EQ(json["sources"][1], (nlohmann::json{{"name", "edict"},
                                                {"form", "edict"},
                                                {"path", folder_.file("edict/edict")},
                                                {"package", "edict"},
                                                {"installed", false}}));
  EXPECT_EQ(json["sources"][3]["installed"], true);
}

TEST_F(BookBuildTest, MakesTheBooksThatAreNamedOrAll) {
  test::DictdFiles().entry("bat\n    an animal\n", {"bat"}).write(folder_.file("dictd/animals"));
  EXPECT_EQ(zavel({"book", "build", "animals", "animals", "-q"}).run().out, "");
  EXPECT_TRUE(made("animals"));
  EXPECT_FALSE(made("wordnet"));
  fs::remove_all(book("animals"));
  EXPECT_EQ(zavel({"book", "build", "--all", "-q"}).run().status, 0);
  EXPECT_TRUE(made("animals"));
  EXPECT_TRUE(made("wordnet"));
}

TEST_F(BookBuildTest, RefusesNamesItDoesNotKnow) {
  Outcome outcome = zavel({"book", "build", "wordnt"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel: no source of a book is called \"wordnt\"\nDid you mean: wordnet\n");
  outcome = zavel({"book", "build", "kanjidic"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel: the source " + folder_.file("edict/kanjidic") +
                             " is missing\nInstall the Debian package kanjidic.\n");
}

TEST_F(BookBuildTest, MakesABookOfASourceOfOnesOwn) {
  const Outcome outcome = zavel({"book", "build", "mine", "--form", "dictd", "--source",
                                 folder_.file("dictd/wn.index"), "--title", "Mine", "-q"})
                              .run();
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(zavel({"book", "list", "--plain"}).run().out, "mine\tMine\t" + book("mine") + "\n");
  for (const std::vector<std::string>& wrong :
       std::vector<std::vector<std::string>>{{"mine", "--form", "dictd"},
                                             {"--form", "dictd", "--source", "x"},
                                             {"one", "two", "--form", "dictd", "--source", "x"},
                                             {"../mine", "--form", "dictd", "--source", "x"},
                                             {"wordnet", "--form", "tree", "--source", "x"}}) {
    std::vector<std::string> arguments = {"book", "build"};
    arguments.insert(arguments.end(), wrong.begin(), wrong.end());
    EXPECT_EQ(zavel(arguments).run().status, 2) << wrong[0];
  }
}

TEST_F(BookBuildTest, KeepsWhatCanBeOpened) {
  EXPECT_EQ(zavel({"book", "build", "-q"}).run().status, 0);
  // Whatever program it were, it isn't run.
  const std::string never = script("exit 3\n");
  EXPECT_EQ(zavel({"book", "build", "--if-missing"}).env("ZAVEL_MKBOOK", never).run().status, 0);
  const Outcome outcome = zavel({"book", "build", "--if-missing", "--json"}).env("ZAVEL_MKBOOK", never).run();
  EXPECT_EQ(outcome.out, "{\"schema\":1,\"status\":\"kept\",\"name\":\"wordnet\",\"folder\":\"" +
                             book("wordnet") + "\"}\n");
  std::ofstream(book("wordnet") + "/BOOK.CAT") << "nothing";
  EXPECT_EQ(zavel({"book", "build", "--if-missing"}).env("ZAVEL_MKBOOK", never).run().status, 3);
  EXPECT_EQ(zavel({"book", "build", "--if-missing", "-q"}).run().status, 0);
  EXPECT_NE(zavel({"book", "list"}).run().out, "");
}

TEST_F(BookBuildTest, ComparesABookWithItsSource) {
  EXPECT_EQ(zavel({"book", "build", "-q"}).run().status, 0);
  Outcome outcome = zavel({"book", "build", "--verify", "wordnet"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.ends_with(book("wordnet") + " holds what its source says.\n")) << outcome.out;
  test::DictdFiles().entry("bat\n    an animal\n", {"bat"}).write(folder_.file("dictd/wn"));
  outcome = zavel({"book", "build", "--verify"}).run();
  EXPECT_EQ(outcome.status, 5);
}

// One document a line, of the compiler's own.
TEST_F(BookBuildTest, AnswersInJson) {
  writeKanjidic();
  const Outcome outcome = zavel({"book", "build", "--json"}).run();
  EXPECT_EQ(outcome.status, 0);
  const size_t end = outcome.out.find('\n');
  ASSERT_NE(end, std::string::npos);
  const auto first = nlohmann::json::parse(outcome.out.substr(0, end));
  const auto second = nlohmann::json::parse(outcome.out.substr(end + 1));
  EXPECT_EQ(first["status"], "built");
  EXPECT_EQ(first["folder"], book("wordnet"));
  EXPECT_EQ(second["folder"], book("kanjidic"));
}

TEST_F(BookBuildTest, GoesOnBehindABookThatFails) {
  writeKanjidic();
  folder_.write("dictd/wn.dict", "cut");
  const Outcome outcome = zavel({"book", "build"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_TRUE(made("kanjidic"));
  EXPECT_FALSE(made("wordnet"));
  const std::string compiler = script("case \"$*\" in *wn.index*) echo lost >&2; exit 3;; esac\n");
  EXPECT_EQ(zavel({"book", "build"}).env("ZAVEL_MKBOOK", compiler).run().status, 4);
  EXPECT_EQ(zavel({"book", "build", "wordnet"}).env("ZAVEL_MKBOOK", compiler).run().status, 3);
}

TEST_F(BookBuildTest, TellsWhenTheCompilerIsMissingOrKilled) {
  Outcome outcome = zavel({"book", "build"}).env("ZAVEL_MKBOOK", "/nowhere/mkbook").run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: the compiler of books mkbook is missing\n"
            "Install it beside zavel, or set ZAVEL_MKBOOK to its path.\n");
  outcome = zavel({"book", "build"}).env("ZAVEL_MKBOOK", script("kill -KILL $$\n")).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find("the compiler of books was ended by signal 9"), std::string::npos)
      << outcome.err;
}

TEST_F(BookBuildTest, StopsWhenItIsInterrupted) {
  writeKanjidic();
  const std::string started = folder_.file("started");
  const std::string compiler = script("touch " + started + "; exec sleep 60\n");
  const Outcome outcome =
      zavel({"book", "build"}).env("ZAVEL_MKBOOK", compiler).signalAt(started, SIGINT).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_FALSE(made("kanjidic"));
}

TEST_F(BookBuildTest, RefusesASecondBuildMeanwhile) {
  const std::string started = folder_.file("started"), second = folder_.file("second");
  const std::string compiler = script(
      "touch " + started + "; ZAVEL_MKBOOK=/bin/true " ZAVEL_PROGRAM " book build 2> " + second + "\n");
  EXPECT_EQ(zavel({"book", "build", "-q"}).env("ZAVEL_MKBOOK", compiler).run().status, 3);
  std::string told;
  std::getline(std::ifstream(second), told);
  EXPECT_TRUE(told.starts_with("zavel: another build is running: ")) << told;
}

}  // namespace
}  // namespace zavel::host
