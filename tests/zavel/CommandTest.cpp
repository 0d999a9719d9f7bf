// The program as a user meets it, where zavel-test.sh can't: terminals, signals, closed streams, damage.
#include "zavel/Command.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/DicWriter.h"
#include "support/TempFolder.h"
#include "zavel/HostDictionary.h"

namespace zavel::host {
namespace {

using test::Command;
using test::Outcome;
using test::readFile;
using test::writeFile;
namespace fs = std::filesystem;

constexpr const char* kTable = "/Library/Application Support/Tarnwick/ZavelLex/ZavelPath.plist";

class CommandTest : public testing::Test {
 protected:
  void SetUp() override { test::writeHostDictionary(basic()); }

  std::string root() const { return folder_.path() + "/root"; }
  std::string basic() const { return root() + "/dictionaries/basic"; }
  std::string table() const { return root() + kTable; }

  Command zavel(std::vector<std::string> arguments) const {
    return Command(std::move(arguments))
        .env("ZAVEL_ROOT", root())
        .env("ZAVEL_MKDICT", MKDICT_PROGRAM)
        .env("ZAVEL_EDICT", folder_.path());
  }
  Command onTerminal(std::vector<std::string> arguments) const {
    return zavel(std::move(arguments)).terminal(24, 60).env("TERM", "xterm");
  }

  // A stand-in for the compiler, so that a test decides when it ends.
  std::string script(const std::string& lines) const {
    const std::string path = folder_.file("mkdict.sh");
    std::ofstream(path) << "#!/bin/sh\n" << lines;
    chmod(path.c_str(), 0700);
    return path;
  }

  test::TempFolder folder_;
};

std::vector<std::string> lines(const std::string& text) {
  std::vector<std::string> out;
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find('\n', at), text.size());
    out.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return out;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// Help and wrong usage

TEST_F(CommandTest, TheNameAloneGivesTenLines) {
  const Outcome outcome = zavel({}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(lines(outcome.out).size(), 10u);
}

TEST_F(CommandTest, HelpWinsOverAllElse) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"look", "--nonsense", "--help"},
                                             {"look", "--mode", "none", "-h"},
                                             {"-h", "look"},
                                             {"look", "-jh"}}) {
    const Outcome outcome = zavel(words).run();
    EXPECT_EQ(outcome.status, 0) << words[1];
    EXPECT_TRUE(outcome.out.starts_with("Examples:\n  zavel look goes\n")) << outcome.out;
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(CommandTest, EveryCommandsHelpBeginsWithExamples) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"help", "look"},
                                             {"help", "dict"},
                                             {"help", "dict", "build"},
                                             {"help", "dict", "verify"},
                                             {"help", "dict", "info"},
                                             {"help", "prefs"},
                                             {"help", "prefs", "dict"},
                                             {"help", "prefs", "dict", "list"},
                                             {"help", "prefs", "dict", "enable"},
                                             {"help", "prefs", "dict", "disable"},
                                             {"help", "prefs", "dict", "move"},
                                             {"help", "paths"},
                                             {"help", "about"}}) {
    EXPECT_TRUE(zavel(words).run().out.starts_with("Examples:\n  zavel ")) << words.back();
  }
}

TEST_F(CommandTest, HelpOfHelpIsTheShortHelp) {
  EXPECT_EQ(zavel({"help", "help"}).run().out, zavel({}).run().out);
  EXPECT_EQ(zavel({"help", "--help"}).run().out, zavel({}).run().out);
}

TEST_F(CommandTest, FlagsMayStandAheadOfTheCommand) {
  const std::string expected = zavel({"look", "--json", "--mode", "pos", "church"}).run().out;
  EXPECT_NE(expected.find("教会"), std::string::npos);
  EXPECT_EQ(zavel({"--json", "--mode", "pos", "look", "church"}).run().out, expected);
  EXPECT_EQ(zavel({"-j", "look", "church", "--mode=pos"}).run().out, expected);
  EXPECT_EQ(zavel({"--json", "dict", "info"}).run().out, zavel({"dict", "info", "--json"}).run().out);
  EXPECT_EQ(zavel({"dict", "--json", "info"}).run().out, zavel({"dict", "info", "--json"}).run().out);
}

TEST_F(CommandTest, WordsThatNameCommandsAreWordsBehindLook) {
  const Outcome outcome = zavel({"look", "dict", "look", "help", "church"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err.find("zavel: no entry for \"dict\"\n"), 0u);
}

TEST_F(CommandTest, AWordMayLookLikeAFlagBehindTwoHyphens) {
  EXPECT_EQ(zavel({"look", "--suggest", "0", "--", "--help"}).run().err, "zavel: no entry for \"--help\"\n");
}

TEST_F(CommandTest, NoFlagMayBeAbbreviated) {
  const Outcome outcome = zavel({"look", "--js", "church"}).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "zavel: there is no option --js\nRun: zavel look --help\n");
}

TEST_F(CommandTest, WrongUsageIsToldInOneLineAndLeadsToHelp) {
  struct Case {
    std::vector<std::string> words;
    const char* message;
    const char* command;
  };
  const Case cases[] = {
      {{"--nosuch"}, "there is no option --nosuch", "zavel"},
      {{"look", "--nosuch", "x"}, "there is no option --nosuch", "zavel look"},
      {{"look", "--mode", "foo, bar", "x"},
       "--mode: \"foo, bar\" is none of all, pos, phrase, example",
       "zavel look"},
      {{"look", "--mode"}, "--mode: its value is missing", "zavel look"},
      {{"look", "--limit", "abc", "x"}, "--limit: \"abc\" is not a number from 1 to 1000000", "zavel look"},
      {{"look", "-n", "5", "--limit", "6", "x"}, "--limit is given more than once", "zavel look"},
      {{"look", "--list", "--forms", "x"}, "--list and --forms exclude each other", "zavel look"},
      {{"dict"}, "the command is missing", "zavel dict"},
      {{"dict", "build", "extra"}, "there is no place for: extra", "zavel dict build"},
      {{"prefs", "dict", "enable", "1", "2"}, "there is no place for: 2", "zavel prefs dict enable"},
      {{"prefs", "dict", "move", "1"}, "the position is missing", "zavel prefs dict move"},
      {{"user", "add", "a"}, "the meaning is missing", "zavel user add"},
  };
  for (const Case& wrong : cases) {
    const Outcome outcome = zavel(wrong.words).run();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, std::string("zavel: ") + wrong.message + "\nRun: " + wrong.command + " --help\n");
  }
}

TEST_F(CommandTest, AWrongCommandNamesTheNearOne) {
  EXPECT_EQ(zavel({"lok"}).run().err, "zavel: there is no command \"lok\"\nDid you mean: zavel look\n");
  EXPECT_EQ(zavel({"dict", "buld"}).run().err,
            "zavel: there is no command \"dict buld\"\nDid you mean: zavel dict build\n");
  EXPECT_EQ(zavel({"dict", "zzz"}).run().err,
            "zavel: there is no command \"dict zzz\"\nRun: zavel dict --help\n");
  EXPECT_EQ(zavel({"help", "pahts"}).run().err,
            "zavel: there is no command \"pahts\"\nDid you mean: zavel paths\n");
  EXPECT_EQ(zavel({"lok"}).run().status, 2);
}

TEST_F(CommandTest, OptionsWithoutACommandAreWrong) {
  EXPECT_EQ(zavel({"--", "look", "go"}).run().status, 2);
  EXPECT_EQ(zavel({"--json"}).run().status, 2);
}

TEST_F(CommandTest, RootMovesAllFilesAndWinsOverTheEnvironment) {
  const Outcome outcome = Command({"--root", root(), "look", "church"}).env("ZAVEL_ROOT", "/nowhere").run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("church **\n")) << outcome.out;
}

// Terminals

TEST_F(CommandTest, OnATerminalEntriesAreColoured) {
  const Outcome outcome = onTerminal({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("\x1b[0;1;31mchurch\x1b[0m **\n")) << outcome.out;
}

TEST_F(CommandTest, EachWishForNoColourIsHeard) {
  const std::string plain = "church **\n";
  EXPECT_TRUE(onTerminal({"look", "church"}).env("NO_COLOR", "1").run().out.starts_with(plain));
  EXPECT_TRUE(onTerminal({"look", "church"}).env("TERM", "dumb").run().out.starts_with(plain));
  EXPECT_TRUE(onTerminal({"look", "church", "--color", "never"}).run().out.starts_with(plain));
  EXPECT_TRUE(onTerminal({"look", "church"})
                  .env("NO_COLOR", "1")
                  .env("FORCE_COLOR", "1")
                  .run()
                  .out.starts_with(plain));
}

TEST_F(CommandTest, AnEmptyVariableIsNoWish) {
  EXPECT_TRUE(onTerminal({"look", "church"}).env("NO_COLOR", "").run().out.starts_with("\x1b["));
  EXPECT_TRUE(zavel({"look", "church"}).env("CLICOLOR_FORCE", "").run().out.starts_with("church"));
  EXPECT_TRUE(zavel({"look", "church"}).env("CLICOLOR_FORCE", "1").run().out.starts_with("\x1b["));
  EXPECT_TRUE(zavel({"look", "church"}).env("FORCE_COLOR", "1").run().out.starts_with("\x1b["));
}

TEST_F(CommandTest, LinesAreWrappedToTheTerminalAndNotInAPipe) {
  const std::string whole = "    1 行く, 動く (of a machine, to work)\n";
  EXPECT_NE(zavel({"look", "goes"}).run().out.find(whole), std::string::npos);
  const Outcome narrow =
      zavel({"look", "goes", "--color", "never"}).terminal(50, 24).env("TERM", "xterm").run();
  // "    1 行く, 動く (of a" has 22 columns; "machine," would pass 24.
  EXPECT_NE(narrow.out.find("    1 行く, 動く (of a\n      machine, to work)\n"), std::string::npos)
      << narrow.out;
}

TEST_F(CommandTest, WithoutWordsOnATerminalThereIsHelpAndNoWaiting) {
  const Outcome outcome = onTerminal({"look"}).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_TRUE(outcome.out.starts_with("Examples:\n"));
}

TEST_F(CommandTest, ALongAnswerGoesThroughThePager) {
  const auto paged = [&](const char* name, const std::string& command) {
    return zavel({"look", "goes", "--color", "never"})
        .terminal(5, 60)
        .env("TERM", "xterm")
        .env(name, command);
  };
  const std::string mark = "sed 's/^/> /'";
  EXPECT_TRUE(paged("PAGER", mark).run().out.starts_with("> goes: third person singular of go\n"));
  EXPECT_TRUE(paged("ZAVEL_PAGER", mark).env("PAGER", "false").run().out.starts_with("> goes:"));
  EXPECT_EQ(paged("PAGER", mark).run().status, 0);
}

TEST_F(CommandTest, APagerThatCannotBeStartedIsDoneWithout) {
  const Outcome outcome = zavel({"look", "goes", "--color", "never"})
                              .terminal(5, 60)
                              .env("PAGER", "/nowhere/pager 2>/dev/null")
                              .run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("goes: third person singular of go\n"), std::string::npos);
}

TEST_F(CommandTest, WhatFitsTheScreenAndWhatIsForProgramsNeedsNoPager) {
  const auto shown = [&](std::vector<std::string> words, unsigned short rows) {
    return zavel(std::move(words))
        .terminal(rows, 60)
        .env("TERM", "xterm")
        .env("PAGER", "sed 's/^/> /'")
        .run()
        .out;
  };
  EXPECT_EQ(shown({"look", "goes"}, 60).find("> "), std::string::npos);
  EXPECT_EQ(shown({"look", "goes", "--no-pager"}, 5).find("> "), std::string::npos);
  EXPECT_EQ(shown({"look", "goes", "--plain"}, 5).find("> "), std::string::npos);
  EXPECT_EQ(shown({"look", "goes", "--json"}, 1).find("> "), std::string::npos);
}

TEST_F(CommandTest, LeavingThePagerEarlyIsNoFailure) {
  const Outcome outcome =
      zavel({"look", "goes"}).terminal(5, 60).env("TERM", "xterm").env("PAGER", "true").run();
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(CommandTest, ControlCharactersOfAQueryReachNoTerminal) {
  const Outcome outcome = zavel({"look", "--suggest", "0", "a\x1b[31mb\nc\xC2\x9B"}).run();
  EXPECT_EQ(outcome.err,
            "zavel: no entry for \"a\xEF\xBF\xBD[31mb c\xEF\xBF\xBD\": no dictionary here knows the "
            "character \xEF\xBF\xBD\n");
  EXPECT_EQ(zavel({"a\x1b[31mb"}).run().err.find('\x1b'), std::string::npos);
  EXPECT_EQ(zavel({"look", "--\x1b[31mb"}).run().err.find('\x1b'), std::string::npos);
}

// Words on standard input

TEST_F(CommandTest, ATabIsABlank) {
  const Outcome outcome = zavel({"look", "--json", "no\tsuch"}).run();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, zavel({"look", "--json", "no such"}).run().out);
  EXPECT_EQ(zavel({"look", "--suggest", "0", "no\tsuch"}).run().err, "zavel: no entry for \"no such\"\n");
}

TEST_F(CommandTest, LineNAnswersLineN) {
  const std::string tooLong(70000, 'a');
  const Outcome outcome = zavel({"look", "--json"}).input("church\r\n\n" + tooLong + "\n\xFF\nmake").run();
  const std::vector<std::string> documents = lines(outcome.out);
  ASSERT_EQ(documents.size(), 5u);
  EXPECT_TRUE(documents[0].starts_with(R"({"schema":1,"query":"church","status":"found")"));
  EXPECT_TRUE(documents[1].starts_with(R"({"schema":1,"query":"","status":"not_found")"));
  EXPECT_TRUE(documents[2].starts_with(R"({"schema":1,"status":"error","error":{"code":"too_long")"));
  EXPECT_TRUE(documents[3].starts_with(R"({"schema":1,"status":"error","error":{"code":"not_text")"));
  EXPECT_TRUE(documents[4].starts_with(R"({"schema":1,"query":"make","status":"found")"));
  EXPECT_EQ(outcome.status, 4);
}

TEST_F(CommandTest, AHyphenAmongWordsReadsStandardInputThere) {
  const Outcome outcome = zavel({"look", "--plain", "make", "-", "color"}).input("church\n").run();
  EXPECT_EQ(outcome.out,
            "make\tmake\t\tv\t作る\t\nchurch\tchurch\t\tn,countable\t教会\t\n"
            "color\tcolor\t\tn\t色彩\t\n");
}

TEST_F(CommandTest, BlanksOfAllKindsAndAByteOrderMarkBelongToNoWord) {
  const std::string input =
      "\xEF\xBB\xBF"
      "church\n　行く　\n";
  EXPECT_EQ(zavel({"look", "--plain"}).input(input).run().out.substr(0, 7), "church\t");
  EXPECT_NE(zavel({"look", "--plain"}).input(input).run().out.find("\n行く\t行く\tいく\t"),
            std::string::npos);
}

TEST_F(CommandTest, ALineWithANulIsNoWord) {
  const Outcome outcome = zavel({"look", "--json"}).input(std::string("church\0x\nchurch\n", 16)).run();
  EXPECT_EQ(lines(outcome.out).size(), 2u);
  EXPECT_NE(lines(outcome.out).at(0).find(R"("status":"not_found")"), std::string::npos);
  EXPECT_NE(lines(outcome.out).at(1).find(R"("status":"found")"), std::string::npos);
}

TEST_F(CommandTest, AnInflectionTableThatIsThereNeedsNoSuggestions) {
  const std::string found = zavel({"look", "--json", "--forms", "went"}).run().out;
  EXPECT_TRUE(found.ends_with("\"suggestions\":[]}\n")) << found;
}

TEST_F(CommandTest, HelpTellsWhatIsNotSupported) {
  const std::string help = zavel({"look", "--help"}).run().out;
  EXPECT_TRUE(
      help.ends_with("\nWords are matched whole: wildcards (? and *) and Japanese in Latin letters "
                     "(romaji) are not supported.\n"
                     "Put two hyphens before a word that begins with one: zavel look -- -able\n"))
      << help;
}

TEST_F(CommandTest, WordsFromATerminalAreAskedFor) {
  const Outcome outcome = onTerminal({"look", "-"}).signalAt(root() + "/cache", SIGTERM).run();
  EXPECT_NE(outcome.out.find("Reading words, one per line. Press Ctrl-D to end.\n"), std::string::npos)
      << outcome.out;
}

TEST_F(CommandTest, StandardInputThatCannotBeReadIsTold) {
  for (const Outcome& outcome :
       {zavel({"look"}).inputFile(folder_.path()).run(), zavel({"look"}).closed(0).run()}) {
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err,
              "zavel: standard input can't be read\n"
              "Give the words on the command line, or use a file that can be read.\n");
  }
}

TEST_F(CommandTest, OtherLocalesChangeNothing) {
  const std::string expected = zavel({"look", "行く"}).run().out;
  EXPECT_TRUE(expected.starts_with("いく 行く\n"));
  for (const char* locale : {"C", "POSIX", "ja_JP.eucJP", "de_DE.ISO-8859-1", "nonsense"}) {
    EXPECT_EQ(zavel({"look", "行く"}).env("LC_ALL", locale).env("LANG", locale).run().out, expected)
        << locale;
  }
}

// Output that can't be written

TEST_F(CommandTest, NoCutAnswerPassesForAWholeOne) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{},
                                             {"--version"},
                                             {"look", "--help"},
                                             {"look", "church"},
                                             {"look", "--json", "church"},
                                             {"dict", "info"},
                                             {"paths"},
                                             {"about"},
                                             {"about", "--json"}}) {
    const Outcome full = zavel(words).outputFile("/dev/full").run();
    EXPECT_EQ(full.status, 3);
    EXPECT_EQ(full.err,
              "zavel: the output can't be written\n"
              "Check that the disk isn't full and that standard output is open.\n");
    EXPECT_EQ(zavel(words).closed(1).run().status, 3);
  }
}

TEST_F(CommandTest, AClosedOutputIsNotTakenForAFile) {
  zavel({"look", "church"}).closed(1).run();
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(zavel({"look", "zzz"}).closed(2).run().status, 1);
}

// Signals

TEST_F(CommandTest, AnInterruptedBatchAnswersNoMoreAndLeavesNoTemporaries) {
  const std::string fifo = folder_.file("words");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  // Open at both ends, so that the reader waits for words that never come.
  const int writer = open(fifo.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(write(writer, "church\n", 7), 7);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    fs::remove_all(root() + "/cache");
    const Outcome outcome = zavel({"look"}).inputFile(fifo).signalAt(root() + "/cache", signal).run();
    EXPECT_EQ(outcome.status, 128 + signal);
    for (const fs::directory_entry& file : fs::directory_iterator(root() + "/cache")) {
      EXPECT_NE(file.path().filename().string()[0], '.') << file.path();
    }
  }
  close(writer);
}

TEST_F(CommandTest, AnInterruptedBuildLetsTheCompilerCleanUp) {
  const std::string started = folder_.file("started"), cleaned = folder_.file("cleaned");
  const std::string compiler =
      script("trap 'sleep 0.2; : >\"" + cleaned + "\"; exit 130' INT TERM HUP\n: >\"" + started +
             "\"\nwhile :; do sleep 0.05; done\n");
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    fs::remove(started);
    fs::remove(cleaned);
    const Outcome outcome =
        zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).signalAt(started, signal).run();
    EXPECT_EQ(outcome.status, 128 + signal);
    EXPECT_TRUE(fs::exists(cleaned)) << "the program ended ahead of its child";
  }
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, ABuildWhoseProgramIsKilledEndsItsCompilerAndIsLockedTillThen) {
  const std::string started = folder_.file("started"), go = folder_.file("go"),
                    cleaned = folder_.file("cleaned");
  const std::string compiler =
      script("trap 'while [ ! -e \"" + go + "\" ]; do sleep 0.02; done; : >\"" + cleaned +
             "\"; exit 143' TERM\n: >\"" + started + "\"\nwhile :; do sleep 0.05; done\n");
  const Outcome killed =
      zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).signalAt(started, SIGKILL).run();
  EXPECT_EQ(killed.status, 128 + SIGKILL);
  const Outcome second = zavel({"dict", "build"}).env("ZAVEL_MKDICT", script("exit 0\n")).run();
  EXPECT_EQ(second.status, 3);
  EXPECT_TRUE(second.err.starts_with("zavel: another build is running: process ")) << second.err;
  writeFile(go, "");
  for (int waited = 0; waited < 2000 && !fs::exists(cleaned); ++waited) usleep(10000);
  EXPECT_TRUE(fs::exists(cleaned)) << "the compiler was not asked to end";
}

TEST_F(CommandTest, ACompilerThatIsKilledIsTold) {
  const Outcome outcome = zavel({"dict", "build"}).env("ZAVEL_MKDICT", script("kill -KILL $$\n")).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: the dictionary compiler was ended by signal 9\n"
            "Check that there is enough memory, then try again.\n");
}

TEST_F(CommandTest, TheCompilersStatusIsTheBuilds) {
  for (const int status : {0, 2, 3, 5, 130}) {
    const std::string compiler = script("exit " + std::to_string(status) + "\n");
    EXPECT_EQ(zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).run().status, status);
  }
}

// Several at once

TEST_F(CommandTest, ASecondBuildNamesTheFirst) {
  const std::string started = folder_.file("started");
  const std::string compiler =
      script(": >\"" + started + "\"\nwhile [ -e \"" + started + "\" ]; do sleep 0.02; done\n");
  const pid_t first = fork();
  if (first == 0) {
    _exit(zavel({"dict", "build"}).env("ZAVEL_MKDICT", compiler).run().status);
  }
  for (int waited = 0; waited < 2000 && !fs::exists(started); ++waited) usleep(10000);
  const Outcome second = zavel({"dict", "build", "--json"}).env("ZAVEL_MKDICT", compiler).run();
  EXPECT_EQ(second.status, 3);
  EXPECT_TRUE(second.err.starts_with("zavel: another build is running: process ")) << second.err;
  EXPECT_TRUE(second.err.ends_with("\nWait for it to end, then try again.\n"));
  EXPECT_TRUE(second.out.starts_with(R"({"schema":1,"status":"error","error":{"code":"locked",)"));
  fs::remove(started);
  int status = 0;
  waitpid(first, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST_F(CommandTest, ManyFirstStartsAtOnceAllAnswer) {
  std::vector<pid_t> children;
  for (int i = 0; i < 8; ++i) {
    const pid_t child = fork();
    if (child == 0) {
      const Outcome outcome = zavel({"look", i % 2 == 0 ? "church" : "行く"}).run();
      _exit(outcome.status == 0 && outcome.err.empty() && !outcome.out.empty() ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
}

// Files

TEST_F(CommandTest, DeletingTheCacheLosesNothing) {
  const std::string before = zavel({"look", "church"}).run().out;
  fs::remove_all(root() + "/cache");
  EXPECT_EQ(zavel({"look", "church"}).run().out, before);
}

TEST_F(CommandTest, AFileThatCannotBeReadIsNamedWithTheReason) {
  fs::remove(basic() + "/je.dic");
  fs::create_symlink("je.dic", basic() + "/je.dic");  // leads to itself
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "zavel: the file je.dic of the dictionary in " + basic() +
                " can't be read: Too many levels of symbolic links\nCheck who may read it: ls -l " + basic() +
                "\n");
}

TEST_F(CommandTest, AMissingFileIsDamage) {
  fs::remove(basic() + "/hase.ix3");
  for (const char* command : {"look", "dict"}) {
    const std::vector<std::string> words = {command, command == std::string("look") ? "church" : "info"};
    const Outcome outcome = zavel(words).run();
    EXPECT_EQ(outcome.status, 5);
    EXPECT_EQ(outcome.err,
              "zavel: the dictionary in " + basic() + " lacks the file hase.ix3\nRun: zavel dict build\n");
  }
}

TEST_F(CommandTest, DamageBehindAWordIsNotMistakenForAMissingWord) {
  writeFile(basic() + "/ej.ix3", "xx");
  const Outcome outcome = zavel({"look", "church"}).run();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "zavel: \"church\": the dictionary is damaged where this word stands\n"
            "Run: zavel dict verify, then zavel dict build\n");
  const Outcome json = zavel({"look", "--json", "church"}).run();
  EXPECT_EQ(json.status, 5);
  EXPECT_EQ(json.err, "");
  EXPECT_TRUE(json.out.starts_with(R"({"schema":1,"status":"error","error":{"code":"damaged_dictionary",)"));
  // The rest is answered.
  const Outcome several = zavel({"look", "church", "行く"}).run();
  EXPECT_EQ(several.status, 4);
  EXPECT_TRUE(several.out.find("いく 行く\n") != std::string::npos);
}

TEST_F(CommandTest, DamagedFormsAreDamageOfTheWordsThatNeedThem) {
  writeFile(basic() + "/katu.dic", "xx");
  EXPECT_EQ(zavel({"look", "went"}).run().status, 5);
  EXPECT_EQ(zavel({"look", "--forms", "went"}).run().status, 5);
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, APathTableThatIsNoneIsDamaged) {
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  for (const char* content : {"not a list", "", "<plist version=\"1.0\"><dict></dict></plist>"}) {
    std::ofstream(table(), std::ios::trunc) << content;
    const Outcome outcome = zavel({"look", "--json", "church"}).run();
    EXPECT_EQ(outcome.status, 5) << content;
    EXPECT_TRUE(outcome.err.ends_with("\nRemove it: a new one is written at the next start.\n"));
    EXPECT_NE(outcome.out.find(R"("code":"damaged_path_table")"), std::string::npos);
  }
  fs::remove(table());
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, ARootThatIsCopiedOrMovedAnswersFromItself) {
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  const std::string moved = folder_.path() + "/moved";
  const auto there = [&](std::vector<std::string> words) {
    return Command(std::move(words)).env("ZAVEL_ROOT", moved).run();
  };
  fs::copy(root(), moved, fs::copy_options::recursive);
  fs::remove_all(root() + "/dictionaries");
  EXPECT_EQ(there({"look", "church"}).status, 0);
  fs::remove_all(root());
  EXPECT_EQ(there({"look", "church"}).status, 0);
  EXPECT_NE(there({"paths"}).out.find("dictionary  " + moved + "/dictionaries/basic\n"), std::string::npos);
  EXPECT_FALSE(fs::exists(root())) << "the folders of the old place were made again";
}

// Tables that hold whole paths, as earlier versions wrote them.
TEST_F(CommandTest, ATableOfAnotherPlaceIsRenewed) {
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  writeFile(table(), replaced(readFile(table()), "<string>~/", "<string>" + folder_.path() + "/gone/"));
  EXPECT_NE(readFile(table()).find("/gone/cache"), std::string::npos);
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
  EXPECT_EQ(readFile(table()).find("/gone/"), std::string::npos);
  EXPECT_FALSE(fs::exists(folder_.path() + "/gone"));
}

TEST_F(CommandTest, ATableThatTheUserChangedIsKept) {
  ASSERT_EQ(zavel({"look", "church"}).run().status, 0);
  const std::string elsewhere = folder_.path() + "/elsewhere";
  fs::rename(basic(), elsewhere);
  const Outcome missing = zavel({"look", "church"}).run();
  EXPECT_EQ(missing.status, 3);
  writeFile(table(), replaced(readFile(table()), "~/dictionaries/basic", elsewhere));
  const std::string changed = readFile(table());
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
  EXPECT_EQ(readFile(table()), changed);
  fs::remove_all(elsewhere);
  EXPECT_EQ(zavel({"look", "church"}).run().err,
            "zavel: there is no dictionary in " + elsewhere + " yet; the path table " + table() +
                " names that folder\nRemove the path table if the folder has moved: a new one is "
                "written at the next start.\n");
}

TEST_F(CommandTest, ALookUpNeedsNothingThatCanBeWritten) {
  const std::string expected = zavel({"look", "church"}).run().out;
  ASSERT_TRUE(expected.starts_with("church"));
  // The cache can't be made.
  fs::remove_all(root() + "/cache");
  std::ofstream(root() + "/cache") << "a file in the way";
  EXPECT_EQ(zavel({"look", "church"}).run().out, expected);
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
  EXPECT_EQ(zavel({"look", "church"}).run().err, "");
  // The path table can't be made either.
  fs::remove_all(root() + "/Library");
  std::ofstream(root() + "/Library") << "a file in the way";
  EXPECT_EQ(zavel({"look", "church"}).run().out, expected);
  EXPECT_EQ(zavel({"look", "goes"}).run().status, 0);
  EXPECT_EQ(zavel({"look", "curch"}).run().status, 1);
}

TEST_F(CommandTest, AFileThatHoldsNothingIsDamage) {
  for (const char* file : {"ej.dic", "ej.ix3", "ej.idx", "hase.ix3", "hase.idx", "katu.dic", "katu.ix3",
                           "katu.idx", "je.dic", "je.ix3", "je.idx", "ke.ix3", "ke.idx"}) {
    const std::string path = basic() + "/" + file, before = readFile(path);
    writeFile(path, "");
    for (const char* word : {"church", "zzzz", "行く"}) {
      const Outcome outcome = zavel({"look", word}).run();
      EXPECT_EQ(outcome.status, 5) << file << " " << word;
      EXPECT_EQ(outcome.err, "zavel: the file " + std::string(file) + " of the dictionary in " + basic() +
                                 " is empty\nRun: zavel dict build\n");
    }
    writeFile(path, before);
  }
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, AFileOfEntriesThatIsCutShortIsDamage) {
  for (const std::string name : {"ej", "je"}) {
    const std::string path = basic() + "/" + name + ".dic", before = readFile(path);
    const std::string rows = readFile(basic() + "/" + name + ".ix3");
    size_t lastEntry = 0;  // where the index's last row leads, low byte first
    for (size_t i = 1; i <= 4; ++i)
      lastEntry = lastEntry << 8 | static_cast<unsigned char>(rows[rows.size() - i]);
    ASSERT_LT(lastEntry, before.size());
    writeFile(path, before.substr(0, lastEntry));
    for (const char* word : {"church", "zzzz", "行く"}) {
      const Outcome outcome = zavel({"look", word}).run();
      EXPECT_EQ(outcome.status, 5) << name << " " << word;
      EXPECT_EQ(outcome.err, "zavel: the file " + name + ".dic of the dictionary in " + basic() +
                                 " is cut short, or its index is damaged\nRun: zavel dict build\n");
    }
    writeFile(path, before.substr(0, lastEntry + 1));
    EXPECT_NE(zavel({"look", "church"}).run().status, 5);
    writeFile(path, before);
  }
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, AFileOfZerosIsDamage) {
  for (const std::string name : {"ej", "je"}) {
    const std::string path = basic() + "/" + name + ".dic", before = readFile(path);
    const std::string zeros(before.size(), '\0');
    for (const std::string& bytes :
         {zeros, before.substr(0, 2) + zeros.substr(2), zeros.substr(0, 1) + before.substr(1)}) {
      writeFile(path, bytes);
      const Outcome outcome = zavel({"look", "zzzz"}).run();
      EXPECT_EQ(outcome.status, 5) << name;
      EXPECT_EQ(outcome.err, "zavel: the file " + name + ".dic of the dictionary in " + basic() +
                                 " holds no entries where they should stand\nRun: zavel dict build\n");
    }
    writeFile(path, before);
  }
  EXPECT_EQ(zavel({"look", "church"}).run().status, 0);
}

TEST_F(CommandTest, TooFewDescriptorsAreNoDamage) {
#ifdef __SANITIZE_ADDRESS__
  // Before a sanitizer judges an address it opens a pipe, and without one it takes sound objects for damaged.
  const std::vector<unsigned> limits = {8, 12};
#else
  const std::vector<unsigned> limits = {4, 8, 12};
#endif
  for (const unsigned most : limits) {
    const Outcome outcome = zavel({"look", "church"}).descriptors(most).run();
    EXPECT_EQ(outcome.status, 3) << most;
    EXPECT_EQ(outcome.err,
              "zavel: too few files may be open at once for the dictionary\n"
              "Allow more, as with: ulimit -n 256\n")
        << most;
  }
  EXPECT_EQ(zavel({"look", "church"}).descriptors(64).run().status, 0);
}

TEST_F(CommandTest, APathThatIsTooLongIsTold) {
  const std::string deep = root() + "/" + std::string(200, 'a') + "/" + std::string(60, 'b');
  fs::create_directories(deep + "/dictionaries");
  fs::copy(basic(), deep + "/dictionaries/basic", fs::copy_options::recursive);
  const Outcome outcome = Command({"look", "--json", "church"}).env("ZAVEL_ROOT", deep).run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.out.find(R"("code":"long_path")"), std::string::npos) << outcome.out;
}

TEST_F(CommandTest, ABuildThatHasNoPlaceIsTold) {
  std::ofstream(folder_.file("file")) << "no folder";
  const Outcome outcome = Command({"dict", "build", "--json"})
                              .env("ZAVEL_ROOT", folder_.file("file"))
                              .env("ZAVEL_MKDICT", "/bin/true")
                              .run();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.out.find(R"("code":"no_folder")"), std::string::npos);
  EXPECT_TRUE(outcome.err.starts_with("zavel: the folder " + folder_.file("file") +
                                      "/dictionaries can't be made: Not a directory\n"))
      << outcome.err;
}

TEST_F(CommandTest, ControlBytesOfADamagedEntryReachNoTerminal) {
  std::string entries;
  {
    std::ifstream in(basic() + "/ej.dic", std::ios::binary);
    entries.assign(std::istreambuf_iterator<char>(in), {});
  }
  const size_t at = entries.find("church");
  ASSERT_NE(at, std::string::npos);
  entries[at + 2] = '\x07';
  entries[at + 3] = '\x7F';
  std::ofstream(basic() + "/ej.dic", std::ios::binary | std::ios::trunc) << entries;
  const Outcome outcome = zavel({"look", "church"}).run();
  const std::string shown =
      "ch\xEF\xBF\xBD\xEF\xBF\xBD"
      "ch";
  EXPECT_TRUE(outcome.out.starts_with("church: derived from " + shown + "\n\n" + shown + " **\n"))
      << outcome.out;
}

// Parts of entries

TEST_F(CommandTest, APartOfAnEntryStandsBelowItsHeadword) {
  EXPECT_EQ(zavel({"look", "--mode", "pos", "go"}).run().out,
            "go¹\n\n-[名][Ｃ]\n碁 (board game)\n\n"
            "go² ***\n\n-[動]\n    1 行く, 動く (of a machine, to work)\n\n    2 消える\n");
  EXPECT_TRUE(zavel({"look", "--mode", "example", "goes"})
                  .run()
                  .out.starts_with("goes: third person singular of go\n\ngo² ***\n"));
}

TEST_F(CommandTest, AWordWithoutThePartIsToldApartFromAnUnknownOne) {
  EXPECT_EQ(zavel({"look", "--mode", "example", "church"}).run().err,
            "zavel: no examples in the entries for \"church\"\n");
  EXPECT_EQ(zavel({"look", "--mode", "phrase", "church"}).run().err,
            "zavel: no phrases in the entries for \"church\"\n");
  EXPECT_EQ(zavel({"look", "--mode", "phrase", "church"}).run().status, 1);
}

}  // namespace
}  // namespace zavel::host
