// Several dictionaries at once: the program with helper programs that answer, fail, hang or write nonsense.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "support/DicWriter.h"
#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Command;
using test::Outcome;
using test::readFile;
using test::writeFile;
namespace fs = std::filesystem;

constexpr const char* kPreferences = "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist";
constexpr const char* kChurch = "church **\n\n-[名][Ｃ]\n教会\n";
// Finds the files in the helper program's arguments.
constexpr const char* kArguments =
    "while [ $# -gt 1 ]; do case \"$1\" in -r) result=$2 ;; -e) source=$2 ;; -d) parameters=$2 ;; "
    "-i) styles=$2 ;; esac; shift; done\n";

std::string answer(const std::string& text) {
  return "printf '<plist version=\"1.0\"><dict><key>Search</key><array><string>%s</string></array></dict>"
         "</plist>' \"" +
         text + "\" >\"$result\"\n";
}

class DictionariesTest : public test::RootTest {
 protected:
  void SetUp() override {
    RootTest::SetUp();
    fs::create_directories(helpers());
    fs::create_directories(temporary());
  }

  std::string helpers() const { return file("helpers"); }
  std::string temporary() const { return file("tmp"); }

  Command zavel(std::vector<std::string> arguments) const {
    return inRoot(std::move(arguments)).env("ZAVEL_LIBEXEC", helpers()).env("TMPDIR", temporary());
  }

  // The helper program of both directions, a shell script.
  void helper(const std::string& lines) const {
    for (const char* name : {"/zavel-text-ej", "/zavel-text-je"})
      script(helpers() + name, kArguments + lines);
  }

  void enable() const { ASSERT_EQ(zavel({"prefs", "dict", "enable", "translation"}).run().status, 0); }

  // One line about the helper program for English words.
  std::string complaint(const std::string& start, const std::string& end) const {
    return "zavel: the translation dictionary " + start + helpers() + "/zavel-text-ej" + end + "\n";
  }
};

// Which dictionaries are asked

TEST_F(DictionariesTest, OnTheFirstDayTheTranslationDictionaryIsOff) {
  helper(": >'" + file("started") + "'\n" + answer("words"));
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.out, kChurch);
  EXPECT_EQ(outcome.err, "");
  EXPECT_FALSE(fs::exists(file("started")));
  EXPECT_EQ(zavel({"prefs", "dict", "list"}).run().out,
            "1  on   Standard dictionary     bilingual\n2  off  Translation dictionary  translation\n");
}

TEST_F(DictionariesTest, EachDictionaryAnswersBelowItsName) {
  helper(answer("church: a house"));
  enable();
  EXPECT_EQ(zavel({"look", "church"}).run().out, std::string("── Standard dictionary ──\n") + kChurch +
                                                     "\n── Translation dictionary ──\nchurch: a house\n");
}

TEST_F(DictionariesTest, TheOrderIsTheUsers) {
  helper(answer("church: a house"));
  enable();
  ASSERT_EQ(zavel({"prefs", "dict", "move", "translation", "1"}).run().status, 0);
  EXPECT_EQ(
      zavel({"look", "church"}).run().out,
      std::string("── Translation dictionary ──\nchurch: a house\n\n── Standard dictionary ──\n") + kChurch);
  const Json rows = Json::parse(zavel({"look", "--json", "church"}).run().out)["rows"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0]["type"], "translation");
  EXPECT_EQ(rows[1]["type"], "bilingual");
}

TEST_F(DictionariesTest, ADictionaryThatIsOffIsNotAsked) {
  helper(answer("a house"));
  enable();
  ASSERT_EQ(zavel({"prefs", "dict", "disable", "1"}).run().status, 0);
  EXPECT_EQ(zavel({"look", "church"}).run().out, "── Translation dictionary ──\na house\n");
  // What is the bilingual dictionary's alone is still to be had.
  EXPECT_EQ(zavel({"look", "--list", "chu"}).run().out, "**church [教会]\n");
}

TEST_F(DictionariesTest, NothingSwitchedOnIsTold) {
  ASSERT_EQ(zavel({"prefs", "dict", "disable", "1"}).run().status, 0);
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "zavel: no dictionary is switched on\nRun: zavel prefs dict enable bilingual\n");
}

TEST_F(DictionariesTest, AWordThatOneOfThemHasIsFound) {
  helper(answer("a name"));
  enable();
  const Outcome outcome = zavel({"look", "Tanaka"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "── Translation dictionary ──\na name\n");
  const Json json = Json::parse(zavel({"look", "--json", "Tanaka"}).run().out);
  EXPECT_EQ(json["status"], "found");
  EXPECT_EQ(json["entries"], Json::array());
  EXPECT_EQ(json["rows"],
            Json::parse(R"([{"number":1,"type":"translation","dictionary":"Translation dictionary",)"
                        R"("title":"Tanaka","shown":true,"looked_up":null,"text":"a name"}])"));
}

TEST_F(DictionariesTest, InflectedWordsKeepTheirReasonsBesideAnotherDictionary) {
  helper(answer("walks"));
  enable();
  EXPECT_TRUE(
      zavel({"look", "goes"})
          .run()
          .out.starts_with("── Standard dictionary ──\ngoes: third person singular of go\n\ngo² ***\n"));
}

TEST_F(DictionariesTest, PlainRecordsTellWhatIsTheTranslationDictionarys) {
  helper(answer("head\n    a\tb"));
  enable();
  EXPECT_EQ(zavel({"look", "--plain", "church"}).run().out,
            "church\tchurch\t\tn,countable\t教会\t\nchurch\tchurch\t\ttranslation\thead\t\n"
            "church\tchurch\t\ttranslation\ta b\t\n");
}

TEST_F(DictionariesTest, NamesAreInTheUsersLanguage) {
  helper(answer("a house"));
  enable();
  EXPECT_TRUE(zavel({"look", "church"}).env("LANG", "ja_JP.UTF-8").run().out.starts_with("── 標準辞書 ──\n"));
}

TEST_F(DictionariesTest, NamesAreDimmedOnATerminal) {
  helper(answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "church"}).terminal(24, 60).env("TERM", "xterm").run();
  EXPECT_TRUE(outcome.out.starts_with("\x1b[2m── Standard dictionary ──\x1b[0m\n")) << outcome.out;
}

TEST_F(DictionariesTest, EscapeSequencesOfAnAnswerReachNoTerminal) {
  helper(
      "printf '<plist version=\"1.0\"><dict><key>Search</key><array><string>a\\302\\233b</string></array>"
      "</dict></plist>' >\"$result\"\n");
  enable();
  EXPECT_NE(zavel({"look", "church"})
                .run()
                .out.find("\na\xEF\xBF\xBD"
                          "b\n"),
            std::string::npos);
}

TEST_F(DictionariesTest, EscapeSequencesOfAHelpersComplaintReachNoTerminal) {
  helper("printf 'one \\033[31mred\\n\\377two' >&2\n" + answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "church", "make"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "one \uFFFD[31mred\n\uFFFDtwo\n");
}

TEST_F(DictionariesTest, AHelperThatComplainsWithoutEndIsNotKeptWaiting) {
  helper("trap '' PIPE\nhead -c 300000 /dev/zero 2>&1 | tr '\\0' x >&2\n" + answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("a house"), std::string::npos) << outcome.out;
  EXPECT_GT(outcome.err.size(), 1000u);
}

// What goes to the helper program

TEST_F(DictionariesTest, TheHelperGetsTheWordTheParametersTheStylesAndTheRoot) {
  helper("iconv -f CP932 -t UTF-8 \"$source\" >'" + file("word") + "'\ncp \"$parameters\" '" +
         file("parameters") + "'\ncp \"$styles\" '" + file("styles") + "'\n" + answer("$ZAVEL_ROOT"));
  enable();
  EXPECT_NE(zavel({"--root", root(), "look", "行く"}).env("ZAVEL_ROOT", "/nowhere").run().out.find(root()),
            std::string::npos);
  EXPECT_EQ(readFile(file("word")), "行く");
  EXPECT_NE(readFile(file("parameters")).find("SystemDictionaryEJ"), std::string::npos);
  EXPECT_NE(readFile(file("styles")).find("Business letters"), std::string::npos);
}

TEST_F(DictionariesTest, ProcessesSideBySideGetTheirOwnAnswers) {
  helper("word=$(cat \"$source\")\nsleep 0.2\n" + answer("about $word"));
  enable();
  std::vector<pid_t> children;
  for (int i = 0; i < 6; ++i) {
    const std::string word = "word" + std::string(1, static_cast<char>('a' + i));
    const pid_t child = fork();
    if (child == 0) {
      _exit(zavel({"look", word}).run().out == "── Translation dictionary ──\nabout " + word + "\n" ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_TRUE(fs::is_empty(temporary()));
}

TEST_F(DictionariesTest, TheAnswerToAnEarlierWordIsNotTakenForThisOnes) {
  helper("[ \"$(cat \"$source\")\" = church ] || exit 0\n" + answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "--plain"}).input("church\nmake\n").run();
  EXPECT_EQ(outcome.out,
            "church\tchurch\t\tn,countable\t教会\t\nchurch\tchurch\t\ttranslation\ta house\t\n"
            "make\tmake\t\tv\t作る\t\n");
}

// Helpers that fail

TEST_F(DictionariesTest, AHelperThatFailsIsToldOnceAndLosesNothing) {
  struct Case {
    const char* script;
    const char* start;
    const char* end;
  };
  for (const Case& failing : {
           Case{"kill -SEGV $$\n", "gave no answer: its program ",
                " was killed by signal 11 (Segmentation fault)"},
           Case{"exit 137\n", "gave no answer: its program ", " was killed by signal 9 (Killed)"},
           Case{"exit 3\n", "gave no answer: its program ", " ended with status 3"},
           Case{"exit 0\n", "gave no answer: what its program ", " wrote can't be read"},
           Case{"head -c 3000 /dev/urandom >\"$result\"\n", "gave no answer: what its program ",
                " wrote can't be read"},
           Case{"printf '<plist version=\"1.0\"><dict><key>Search</key><string>x</string></dict></plist>' "
                ">\"$result\"\n",
                "gave no answer: what its program ", " wrote can't be read"},
       }) {
    helper(failing.script);
    enable();
    const Outcome outcome = zavel({"look", "church", "make"}).run();
    EXPECT_EQ(outcome.status, 0) << failing.script;
    EXPECT_TRUE(outcome.out.starts_with(kChurch)) << failing.script;
    EXPECT_EQ(outcome.err, complaint(failing.start, failing.end));
    EXPECT_TRUE(fs::is_empty(temporary()));
  }
}

TEST_F(DictionariesTest, AHelperThatIsMissingIsTold) {
  enable();
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.out, kChurch);
  EXPECT_EQ(outcome.err, complaint("was not searched: its program ", " can't be started"));
}

TEST_F(DictionariesTest, AnEmptyAnswerIsNoFailure) {
  helper("printf '<plist version=\"1.0\"><dict><key>Search</key><array/></dict></plist>' >\"$result\"\n");
  enable();
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.out, kChurch);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(zavel({"look", "Tanaka"}).run().status, 1);
}

TEST_F(DictionariesTest, NumbersThatLeadToNoDictionaryMakeNoAnswer) {
  const auto plist = [](const std::string& elements) {
    return "printf '<plist version=\"1.0\"><dict><key>Search</key><array>" + elements +
           "</array></dict></plist>' >\"$result\"\n";
  };
  enable();
  helper(plist("<integer>7</integer><string>a house</string><integer>1</integer>"));
  EXPECT_EQ(zavel({"look", "田中"}).run().out, "── Translation dictionary ──\n    a house\n");
  helper(plist("<integer>7</integer>"));
  for (const char* word : {"田中", "Tanaka"}) {
    const Outcome outcome = zavel({"look", word}).run();
    EXPECT_EQ(outcome.status, 3) << word;
    EXPECT_EQ(outcome.out, "") << word;
    EXPECT_NE(outcome.err.find(" wrote can't be read\n"), std::string::npos) << outcome.err;
  }
}

TEST_F(DictionariesTest, ASlowHelperIsWaitedFor) {
  helper("sleep 0.5\n" + answer("at last"));
  enable();
  EXPECT_NE(zavel({"look", "church"}).run().out.find("at last"), std::string::npos);
}

TEST_F(DictionariesTest, AHelperThatFillsItsOutputIsRead) {
  helper("head -c 300000 /dev/zero\n" + answer("at last"));
  enable();
  EXPECT_NE(zavel({"look", "church"}).run().out.find("at last"), std::string::npos);
}

TEST_F(DictionariesTest, AFailedHelperIsNotNothingFound) {
  helper("exit 3\n");
  enable();
  EXPECT_EQ(zavel({"look", "Tanaka"}).run().status, 3);
  EXPECT_EQ(zavel({"look", "Tanaka", "church"}).run().status, 4);
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
  const Outcome outcome = zavel({"look", "--json", "Tanaka"}).run();
  EXPECT_EQ(outcome.status, 3);
  const Json json = Json::parse(outcome.out);
  EXPECT_EQ(json["status"], "not_found");
  EXPECT_EQ(json["dictionaries"][0]["status"], "not_found");
  EXPECT_EQ(json["dictionaries"][1]["status"], "failed");
  EXPECT_EQ(json["dictionaries"][1]["error"]["code"], "helper_failed");
  EXPECT_EQ(json["dictionaries"][1]["error"]["hint"],
            "To go on without it, run: zavel prefs dict disable translation");
}

// Words that the dictionaries can't be asked for

TEST_F(DictionariesTest, AWordWithAnUnknownCharacterIsNotAskedForWithoutIt) {
  helper(": >'" + file("started") + "'\n" + answer("another word"));
  enable();
  const Outcome outcome = zavel({"look", "--suggest", "0", "go😀"}).run();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "zavel: no entry for \"go😀\": no dictionary here knows the character 😀\n");
  EXPECT_EQ(zavel({"look", "--suggest", "0", "한田中😀"}).run().err,
            "zavel: no entry for \"한田中😀\": no dictionary here knows the characters 한😀\n");
  EXPECT_EQ(zavel({"look", "go😀"}).run().err.substr(outcome.err.size()).find("Near headwords: go"), 0u);
  const Json json = Json::parse(zavel({"look", "--json", "go😀"}).run().out);
  EXPECT_EQ(json["status"], "not_found");
  EXPECT_EQ(json["unknown"], "😀");
  EXPECT_EQ(json["rows"], Json::array());
  EXPECT_EQ(json["dictionaries"][0]["status"], "not_asked");
  EXPECT_EQ(json["dictionaries"][1]["status"], "not_asked");
  EXPECT_FALSE(fs::exists(file("started")));
}

TEST_F(DictionariesTest, AWordOfTooManyCharactersIsTooLongWhateverTheyAre) {
  std::string word;
  for (int i = 0; i < 255; ++i) word += "😀";
  EXPECT_EQ(zavel({"look", word}).run().status, 1);
  const Outcome outcome = zavel({"look", word + "a"}).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.err.find("the word is too long"), std::string::npos) << outcome.err;
}

TEST_F(DictionariesTest, TheTranslationDictionaryAloneTellsOfUnknownCharactersToo) {
  helper(answer("another word"));
  enable();
  ASSERT_EQ(zavel({"prefs", "dict", "disable", "bilingual"}).run().status, 0);
  EXPECT_EQ(zavel({"look", "go😀"}).run().err,
            "zavel: no entry for \"go😀\": no dictionary here knows the character 😀\n");
}

TEST_F(DictionariesTest, AWordOfOtherCharactersIsAskedForInThoseOfHeadwords) {
  helper("word=$(iconv -f CP932 -t UTF-8 \"$source\")\n" + answer("about $word"));
  enable();
  for (const auto& [typed, asked] : std::vector<std::pair<std::string, std::string>>{
           {"zürich", "zurich"}, {"𠮷野家", "吉野家"}, {"zoo\u200B", "zoo"}}) {
    const Json json = Json::parse(zavel({"look", "--json", typed}).run().out);
    EXPECT_EQ(json["origin"], asked);
    EXPECT_EQ(json["rows"][0]["title"], asked);
    EXPECT_NE(json["rows"][0]["text"].get<std::string>().find("about " + asked), std::string::npos);
  }
}

TEST_F(DictionariesTest, AKanaWithASoundMarkBehindItIsAskedForAsOneSound) {
  helper("word=$(iconv -f CP932 -t UTF-8 \"$source\")\n" + answer("about $word"));
  enable();
  for (const auto& [typed, asked] : std::vector<std::pair<std::string, std::string>>{
           {"か゛", "が"}, {"き゛んこう", "ぎんこう"}, {"ハ゜ン", "パン"}}) {
    const Json json = Json::parse(zavel({"look", "--json", typed}).run().out);
    ASSERT_EQ(json["query"], typed);
    std::string text;
    for (const Json& row : json["rows"]) {
      if (row["type"] == "translation") text = row["text"];
    }
    EXPECT_EQ(text, "    about " + asked);
  }
}

TEST_F(DictionariesTest, ANameIsAskedForInTheShapesOfKanjiThatHeadwordsHave) {
  helper("word=$(iconv -f CP932 -t UTF-8 \"$source\")\ncase $word in\n高橋|濱田|山崎) " +
         answer("about $word") +
         ";;\n*) printf '<plist version=\"1.0\"><dict><key>Search</key><array/></dict>" +
         "</plist>' >\"$result\";;\nesac\n");
  enable();
  for (const auto& [typed, asked] : std::vector<std::pair<std::string, std::string>>{
           {"髙橋", "高橋"}, {"濵田", "濱田"}, {"山﨑", "山崎"}}) {
    const Json json = Json::parse(zavel({"look", "--json", typed}).run().out);
    EXPECT_EQ(json["query"], typed);
    EXPECT_EQ(json["origin"], asked);
    ASSERT_EQ(json["rows"].size(), 1u) << typed;
    EXPECT_EQ(json["rows"][0]["title"], asked);
    EXPECT_EQ(json["rows"][0]["text"], "    about " + asked);
  }
  const Outcome outcome = zavel({"look", "--suggest", "0", "德川"}).run();
  EXPECT_EQ(outcome.err, "zavel: no entry for \"德川\" or \"徳川\"\n");
}

TEST_F(DictionariesTest, WhatWasTriedIsToldWhenNothingIsFound) {
  EXPECT_EQ(zavel({"look", "--suggest", "0", "𠮷野家"}).run().err,
            "zavel: no entry for \"𠮷野家\" or \"吉野家\"\n");
  EXPECT_EQ(zavel({"look", "--suggest", "0", "「zzz」"}).run().err, "zavel: no entry for \"「zzz」\"\n");
}

TEST_F(DictionariesTest, AnAnswerThatPassesOverSignsSaysSo) {
  helper(answer("★letters\n    C (n) a letter"));
  enable();
  EXPECT_EQ(zavel({"look", "C++"}).run().out,
            "── Translation dictionary ──\nC++: looked up as C\n\n★letters\n    C (n) a letter\n");
  EXPECT_EQ(zavel({"look", "--row", "1", "C++"}).run().out,
            "── 1/1 C++, Translation dictionary ──\nC++: looked up as C\n\n★letters\n    C (n) a letter\n");
  EXPECT_EQ(zavel({"look", "--plain", "C++"}).run().out,
            "C++\tC\t\ttranslation\t★letters\t\nC++\tC\t\ttranslation\tC (n) a letter\t\n");
  EXPECT_EQ(Json::parse(zavel({"look", "--json", "C++"}).run().out)["rows"][0]["looked_up"], "C");
}

// Helpers that hang

constexpr const char* kHang = "while :; do sleep 0.05; done\n";

TEST_F(DictionariesTest, TheFirstInterruptIsForTheHelper) {
  for (const char* trap : {"", "trap '' TERM INT\n"}) {
    fs::remove(file("started"));
    helper(std::string(trap) + ": >'" + file("started") + "'\n" + kHang);
    enable();
    const Outcome outcome = zavel({"look", "church"}).signalAt(file("started"), SIGINT).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kChurch);
    EXPECT_EQ(outcome.err, "zavel: the translation dictionary was interrupted\n");
    EXPECT_TRUE(fs::is_empty(temporary()));
  }
}

TEST_F(DictionariesTest, ASecondInterruptEndsTheProgram) {
  helper("trap '' TERM INT\n: >'" + file("started") + "'\n" + kHang);
  enable();
  const Outcome outcome = zavel({"look", "church", "make"}).signalAt(file("started"), SIGINT, 2).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "zavel: interrupted\n");
  EXPECT_TRUE(fs::is_empty(temporary()));
}

// The program of the second word has not been asked to end before, but this one has.
TEST_F(DictionariesTest, ASecondInterruptAtALaterWordEndsTheProgramAtOnce) {
  helper("[ \"$(cat \"$source\")\" = church ] || trap '' TERM INT\n: >'" + file("started") + "'\n" + kHang);
  enable();
  // A third one would end it whatever it does, and leave files behind.
  const Outcome outcome = zavel({"look", "church", "make", "go"}).signalAt(file("started"), SIGINT, 3).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, kChurch);
  EXPECT_EQ(outcome.err, "zavel: the translation dictionary was interrupted\nzavel: interrupted\n");
  EXPECT_TRUE(fs::is_empty(temporary()));
}

TEST_F(DictionariesTest, OtherSignalsEndBoth) {
  for (const int signal : {SIGTERM, SIGHUP, SIGQUIT}) {
    fs::remove(file("started"));
    fs::remove(file("asked"));
    helper("trap ': >\"" + file("asked") + "\"; exit 1' TERM\n: >'" + file("started") + "'\n" + kHang);
    enable();
    const Outcome outcome = zavel({"look", "church"}).signalAt(file("started"), signal).run();
    EXPECT_EQ(outcome.status, 128 + signal);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(fs::exists(file("asked"))) << "the helper program was left running";
    EXPECT_TRUE(fs::is_empty(temporary())) << signal;
  }
}

// As from a limit of file sizes: what can't be written is a failure of its own.
TEST_F(DictionariesTest, ASignalOfFullFilesLeavesNothingBehind) {
  helper(": >'" + file("started") + "'\nsleep 0.2\n" + answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "church"}).signalAt(file("started"), SIGXFSZ).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(fs::is_empty(temporary()));
}

// Rows

TEST_F(DictionariesTest, ARowIsShownByItsNumber) {
  helper(answer("walks"));
  enable();
  EXPECT_EQ(zavel({"look", "--row", "1", "go"}).run().out,
            "── 1/3 go [碁], Standard dictionary ──\n(1)go\n\n-[名][Ｃ]\n碁 (board game)\n");
  EXPECT_EQ(zavel({"look", "--row", "3", "go"}).run().out, "── 3/3 go, Translation dictionary ──\nwalks\n");
  const Json rows = Json::parse(zavel({"look", "--json", "--row", "2", "go"}).run().out)["rows"];
  EXPECT_EQ(rows[0]["shown"], false);
  EXPECT_TRUE(rows[0]["text"].is_null());
  EXPECT_EQ(rows[1]["shown"], true);
  EXPECT_EQ(rows[1]["text"].get<std::string>().find("***(2)go\n\n-[動]\n"), 0u) << rows[1]["text"];
  EXPECT_EQ(rows[2]["text"], "walks");
}

TEST_F(DictionariesTest, ARowIsShownInItsColours) {
  EXPECT_TRUE(zavel({"look", "--row", "1", "--color", "always", "church"})
                  .run()
                  .out.starts_with("\x1b[2m── 1/1 **church [教会], Standard dictionary ──\x1b[0m\n"
                                   "\x1b[0;1;31m**(1)church\x1b[0m"));
}

TEST_F(DictionariesTest, ARowThatIsNotThereIsToldWithTheirNumber) {
  const Outcome outcome = zavel({"look", "--row", "3", "go"}).run();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "zavel: \"go\": there is no row 3: the result list has 2 rows\nChoose a row from 1 to 2.\n");
  EXPECT_EQ(zavel({"look", "--row", "1", "zzz"}).run().err,
            "zavel: \"zzz\": there is no row 1: the result list is empty\nLeave out --row to see near "
            "headwords.\n");
  // A blank word is asked nowhere.
  for (const char* blank : {"", " ", "\u3000", "\x01"}) {
    EXPECT_EQ(zavel({"look", "--row", "1", blank}).run().status, 1) << blank;
    EXPECT_EQ(zavel({"look", "--row", "1", "--json", blank}).run().status, 1) << blank;
  }
  EXPECT_EQ(zavel({"look", "--row", "2", "church", "go"}).run().status, 4);
  const Json json = Json::parse(zavel({"look", "--json", "--row", "9", "church"}).run().out);
  EXPECT_EQ(json["error"]["code"], "no_row");
}

TEST_F(DictionariesTest, RowsAreNumberedFromOneAndStandAlone) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"look", "--row", "0", "go"},
                                             {"look", "--row", "x", "go"},
                                             {"look", "--row", "1", "--list", "go"},
                                             {"look", "--row", "1", "--plain", "go"},
                                             {"look", "--row", "1", "--forms", "go"}}) {
    EXPECT_EQ(zavel(words).run().status, 2) << words[2] << words[3];
  }
  EXPECT_EQ(zavel({"look", "--row", "x", "go"}).run().err,
            "zavel: --row: \"x\" is not a number from 1 to 1000000\nRun: zavel look --help\n");
}

TEST_F(DictionariesTest, ARowWithoutThePartIsToldInThePlaceOfAnEmptyHeading) {
  const Outcome outcome = zavel({"look", "--row", "1", "--mode", "example", "go"}).run();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "zavel: no examples in row 1 for \"go\"\n");
  EXPECT_EQ(zavel({"look", "--row", "2", "--mode", "example", "go"}).run().status, 0);
  EXPECT_EQ(
      Json::parse(zavel({"look", "--json", "--row", "1", "--mode", "example", "go"}).run().out)["status"],
      "not_found");
}

TEST_F(DictionariesTest, TheLimitLeavesTheRowThatIsAskedFor) {
  helper(answer("walks"));
  enable();
  const auto numbers = [this](const std::vector<std::string>& words) {
    std::vector<int> found;
    const Json json = Json::parse(zavel(words).run().out);
    for (const Json& row : json["rows"]) found.push_back(row["number"]);
    return found;
  };
  EXPECT_EQ(numbers({"look", "--json", "-n", "1", "go"}), (std::vector<int>{1, 3}));
  EXPECT_EQ(numbers({"look", "--json", "-n", "1", "--row", "2", "go"}), (std::vector<int>{1, 2, 3}));
  EXPECT_NE(zavel({"look", "-n", "1", "go"}).run().out.find("walks"), std::string::npos);
}

TEST_F(DictionariesTest, TheModeHoldsForTheRowThatIsShown) {
  EXPECT_EQ(zavel({"look", "--row", "2", "--mode", "example", "go"}).run().out.find("行く, 動く (of"),
            std::string::npos);
}

// Damaged files

TEST_F(DictionariesTest, DamagedPreferencesBeginAnewAndAreKept) {
  for (const char* content : {"no list", "", "<plist version=\"1.0\"><array/></plist>"}) {
    const std::string store = root() + kPreferences;
    ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
    writeFile(store, content);
    fs::remove(store + ".damaged");
    const Outcome outcome = zavel({"look", "church"}).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kChurch);
    EXPECT_EQ(outcome.err, "zavel: the preferences could not be read and were reset; the old file is now " +
                               store + ".damaged\n");
    EXPECT_EQ(readFile(store + ".damaged"), content);
    EXPECT_EQ(zavel({"look", "church"}).run().err, "");
  }
}

TEST_F(DictionariesTest, DamagedStylesBeginAnewAndAreKept) {
  helper(answer("a house"));
  enable();
  const std::string styles = root() + "/config/ZavelStyle.plist";
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  writeFile(styles, "no list");
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_NE(outcome.out.find("a house"), std::string::npos);
  EXPECT_EQ(outcome.err,
            "zavel: the translation styles could not be read and were reset; the old file is now " + styles +
                ".damaged\n");
  EXPECT_EQ(readFile(styles + ".damaged"), "no list");
  EXPECT_NE(readFile(styles).find("Business letters"), std::string::npos);
}

TEST_F(DictionariesTest, TheFirstStartWritesTenStylesInTheUsersWords) {
  ASSERT_EQ(zavel({"look", "church"}).env("LANG", "ja_JP.UTF-8").run().status, 0);
  const std::string styles = readFile(root() + "/config/ZavelStyle.plist");
  size_t count = 0;
  for (size_t at = 0; (at = styles.find("<key>ID</key>", at)) != std::string::npos; ++at) ++count;
  EXPECT_EQ(count, 10u);
  EXPECT_NE(styles.find("論文・レポート"), std::string::npos);
}

TEST_F(DictionariesTest, WhereNothingCanBeWrittenTheBilingualDictionaryAnswers) {
  std::ofstream(root() + "/Library") << "a file in the way";
  helper(answer("a house"));
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.out, kChurch);
  EXPECT_EQ(outcome.err, "");
  const Json rows = Json::parse(zavel({"look", "--json", "church"}).run().out)["rows"];
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0]["title"], "**church [教会]");
  EXPECT_TRUE(zavel({"look", "--row", "1", "church"}).run().out.starts_with("── 1/1 **church [教会]"));
  EXPECT_TRUE(fs::is_empty(temporary()));
}

// The preferences are there, but not the path table, as on a disk that has become read only.
TEST_F(DictionariesTest, WithoutAPathTableAllDictionariesAnswer) {
  helper(answer("a house"));
  enable();
  std::ofstream(root() + "/Library/Application Support") << "a file in the way";
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.out, std::string("── Standard dictionary ──\n") + kChurch +
                             "\n── Translation dictionary ──\na house\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(zavel({"look", "--row", "2", "church"}).run().out,
            "── 2/2 church, Translation dictionary ──\na house\n");
  EXPECT_TRUE(fs::is_empty(temporary()));
}

TEST_F(DictionariesTest, WithoutAnyPlaceToWriteToTheBilingualDictionaryAnswersAndThatIsTold) {
  helper(answer("a house"));
  enable();
  std::ofstream(root() + "/Library/Application Support") << "a file in the way";
  constexpr const char* kLost =
      "zavel: the translation dictionary was not searched: no folder for its files can be made\n";
  const Outcome outcome = zavel({"look", "church", "make"}).env("TMPDIR", "/nowhere").run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with(kChurch)) << outcome.out;
  EXPECT_EQ(outcome.err, kLost);
  const Outcome row = zavel({"look", "--row", "1", "church"}).env("TMPDIR", "/nowhere").run();
  EXPECT_EQ(row.status, 3);
  EXPECT_EQ(row.err,
            std::string(kLost) +
                "zavel: \"church\": there is no result list: no folder for temporary files can be made\n"
                "Set TMPDIR to a folder that you can write to.\n");
  const Json json =
      Json::parse(zavel({"look", "--json", "church"}).env("TMPDIR", "/nowhere").run().out)["dictionaries"];
  EXPECT_EQ(json[0]["status"], "found");
  EXPECT_EQ(json[1]["status"], "failed");
  EXPECT_EQ(json[1]["error"]["code"], "no_folder");
}

TEST_F(DictionariesTest, WithoutACacheAllDictionariesAnswer) {
  helper(answer("a house"));
  enable();
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  fs::remove_all(root() + "/cache");
  std::ofstream(root() + "/cache") << "a file in the way";
  const Outcome outcome = zavel({"look", "church", "make"}).run();
  EXPECT_TRUE(outcome.out.starts_with(std::string("── Standard dictionary ──\n") + kChurch +
                                      "\n── Translation dictionary ──\na house\n"))
      << outcome.out;
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(fs::is_empty(temporary()));
}

TEST_F(DictionariesTest, WithoutAFolderOfItsOwnTheCommonFilesServe) {
  helper(answer("a house"));
  enable();
  const Outcome outcome = zavel({"look", "church"}).env("TMPDIR", "/nowhere").run();
  EXPECT_NE(outcome.out.find("a house"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

// A look-up must start as fast as a small program: GLib and D-Bus stay where they are, a helper program or
// not.
TEST_F(DictionariesTest, NothingHeavyIsLoaded) {
  helper(answer("a house"));
  for (const bool on : {false, true}) {
    if (on) enable();
    const Outcome outcome = zavel({"look", "church"}).env("LD_DEBUG", "files").run();
    EXPECT_EQ(outcome.out.find("a house") != std::string::npos, on);
    EXPECT_NE(outcome.err.find("libplist"), std::string::npos) << "the loader told nothing";
    for (const char* heavy : {"libglib", "libgio", "libgobject", "zavel-port"}) {
      EXPECT_EQ(outcome.err.find(heavy), std::string::npos) << heavy;
    }
  }
}

// The log of the library

TEST_F(DictionariesTest, TheLogIsSilentUnlessItIsWanted) {
  EXPECT_EQ(zavel({"look", "church"}).run().err, "");
  EXPECT_NE(zavel({"look", "church"}).env("ZAVEL_LOG", "1").run().err, "");
}

}  // namespace
}  // namespace zavel::host
