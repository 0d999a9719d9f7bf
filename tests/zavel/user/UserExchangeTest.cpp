// `zavel user import` and `zavel user export`.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Outcome;

constexpr const char* kHeader = "lang\tword\tkanji\tpos\tphrase\tmeaning\texamples\tsentences\n";
constexpr const char* kTable =
    "lang\tword\tkanji\tpos\tphrase\tmeaning\texamples\tsentences\n"
    "en\tbank\t\tnoun\t\t銀行\ta bank=銀行|b \\= c=\\|\\\\\t\n"
    "en\tbank\t\t\tbank on\t当てにする\t\t\n"
    "en\tBank\t\tverb\t\t預ける\t\t\n"
    "ja\tいぬ\t犬\t\t\tdog\ta dog=犬\tA dog.=犬。\n"
    "ja\tイヌ\t\t\t\tInu\t\t\n";

class UserExchangeTest : public test::RootTest {
 protected:
  test::Command user(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "user");
    return inRoot(std::move(arguments));
  }
  Outcome import(const std::string& text, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), "import");
    return user(std::move(more)).input(text).run();
  }
  std::string out(std::vector<std::string> arguments) const { return user(std::move(arguments)).run().out; }
  void forget() const { std::filesystem::remove_all(root() + "/user"); }
};

TEST_F(UserExchangeTest, EveryFormGoesBothWaysWithoutLoss) {
  const Outcome first = import(kTable);
  EXPECT_EQ(first.out, "5 entries added\n");
  EXPECT_EQ(first.err, "");
  EXPECT_EQ(first.status, 0);
  for (const char* format : {"tsv", "json", "jsonl"}) {
    const std::string before = out({"export", "--format", format});
    forget();
    EXPECT_EQ(import(before).out, "5 entries added\n") << before;
    EXPECT_EQ(out({"export", "--format", format}), before);
  }
  EXPECT_EQ(out({"export"}), kTable);
}

TEST_F(UserExchangeTest, ExportsHaveAnEntryALine) {
  import(kTable);
  EXPECT_EQ(
      out({"export", "--lang", "ja", "--format", "json"}),
      "{\"schema\":1,\"entries\":[\n"
      R"({"lang":"ja","word":"いぬ","kanji":"犬","pos":null,"phrase":null,"meaning":"dog",)"
      R"("examples":[{"english":"a dog","japanese":"犬"}],"sentences":[{"english":"A dog.","japanese":"犬。"}]},)"
      "\n"
      R"({"lang":"ja","word":"イヌ","kanji":null,"pos":null,"phrase":null,"meaning":"Inu","examples":[],"sentences":[]})"
      "\n]}\n");
  EXPECT_EQ(out({"export", file("x.tsv")}), "5 entries written to " + file("x.tsv") + "\n");
  EXPECT_EQ(folder_.read("x.tsv"), kTable);
  const Outcome lost = user({"export", file("no/x.tsv")}).run();
  EXPECT_EQ(lost.status, 3);
  EXPECT_EQ(lost.err,
            "zavel: the file " + file("no/x.tsv") +
                " can't be written\nMake room on the disk, or make the folder writable, and try again.\n");
}

TEST_F(UserExchangeTest, AnExportGoesThroughLinksAndPipesAndKeepsTheMode) {
  import(kTable);
  folder_.write("real.tsv", "old");
  std::filesystem::permissions(file("real.tsv"),
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  std::filesystem::create_symlink("real.tsv", file("link.tsv"));
  EXPECT_EQ(user({"export", file("link.tsv")}).run().status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(file("link.tsv")));
  EXPECT_EQ(folder_.read("real.tsv"), kTable);
  EXPECT_EQ(std::filesystem::status(file("real.tsv")).permissions(), std::filesystem::perms(0600));

  std::filesystem::create_symlink("new.tsv", file("dangling.tsv"));
  EXPECT_EQ(user({"export", file("dangling.tsv")}).run().status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(file("dangling.tsv")));
  EXPECT_EQ(folder_.read("new.tsv"), kTable);

  ASSERT_EQ(::mkfifo(file("pipe").c_str(), 0600), 0);
  std::thread reader([this] { folder_.write("read.tsv", folder_.read("pipe")); });
  EXPECT_EQ(user({"export", file("pipe")}).run().status, 0);
  // Lets the reader go where the pipe was replaced instead of written.
  const int end = ::open(file("pipe").c_str(), O_WRONLY | O_NONBLOCK);
  if (end >= 0) ::close(end);
  reader.join();
  EXPECT_TRUE(std::filesystem::is_fifo(file("pipe")));
  EXPECT_EQ(folder_.read("read.tsv"), kTable);
}

TEST_F(UserExchangeTest, RefusedLinesAreToldAndTheRestGoesIn) {
  folder_.write(
      "x.tsv",
      std::string(kHeader) +
          "en\tant\t\t\t\t蟻\t\t\nen\tcafé\t\t\t\tx\t\t\n\nja\tいぬ\t\t\t\t犬\t\t\nen\tbee\t\t\t\t蜂\t\t\n"
          "en\tc\t\t\n");
  const Outcome outcome = user({"import", file("x.tsv")}).run();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "2 entries added, 3 refused\n");
  EXPECT_EQ(
      outcome.err,
      file("x.tsv") +
          ":3: word: \"é\" (U+00E9), character 4, can't stand here: an English word has letters, blanks "
          "and & ' , - . / _\n" +
          file("x.tsv") +
          ":5: meaning: \"犬\" (U+72AC), character 1, can't stand here: only ASCII can stand here\n" +
          file("x.tsv") + ":7: meaning: it is empty\n");
  EXPECT_EQ(out({"list"}), "ant\nbee\n");
}

TEST_F(UserExchangeTest, RefusalsOfTheEngineAreTold) {
  std::string text = "word\tmeaning\n";
  for (char c = 'a'; c <= 'j'; ++c) text += "con" + std::string(7000, c) + "\tx\n";
  const Outcome outcome = import(text + "dog\t犬\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "10 entries added, 1 refused\n");
  EXPECT_EQ(outcome.err,
            "standard input:11: too many of your words begin alike: there is no room for one more\n");
  EXPECT_EQ(out({"list", "dog"}), "dog\n");
}

TEST_F(UserExchangeTest, JsonTellsTheSame) {
  const Json json = Json::parse(
      import("{\"word\":\"ant\",\"meaning\":\"蟻\"}\n{\"word\":\"b\"}\nnonsense\n", {"--json"}).out);
  EXPECT_EQ(
      json,
      Json::parse(
          R"({"schema":1,"status":"partly","added":1,"replaced":0,"present":0,"skipped":0,)"
          R"("refused":[{"line":2,"reason":"meaning: it is empty"},{"line":3,"reason":"it is no JSON: column 2: invalid literal"}]})"));
}

TEST_F(UserExchangeTest, EntriesOfADocumentAreCounted) {
  const Outcome outcome = import("[{\"word\":\"ant\",\n\"meaning\":\"蟻\"},7]");
  EXPECT_EQ(outcome.out, "1 entry added, 1 refused\n");
  EXPECT_EQ(outcome.err, "standard input: entry 2: it is no object\n");
}

TEST_F(UserExchangeTest, WhatIsThereAlreadyStaysOnce) {
  import(kTable);
  const Outcome again = import(kTable);
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.out, "0 entries added, 5 there already\n");
  EXPECT_EQ(out({"export"}), kTable);
  EXPECT_EQ(import(kTable, {"--force"}).out, "5 entries added\n");
}

TEST_F(UserExchangeTest, EqualEntriesStayAsManyAsTheyAre) {
  const std::string twice = std::string(kHeader) + "en\tbank\t\tnoun\t\t銀行\t\t\n" +
                            "en\tbank\t\tnoun\t\t銀行\t\t\n" + "en\tbank\t\tverb\t\t預ける\t\t\n" +
                            "en\tbank\t\tnoun\t\t銀行\t\t\n" + "ja\tいぬ\t犬\t\t\tdog\t\t\n" +
                            "ja\tいぬ\t犬\t\t\tdog\t\t\n";
  EXPECT_EQ(import(twice).out, "6 entries added\n");
  EXPECT_EQ(out({"export"}), twice);
  for (const char* format : {"tsv", "json", "jsonl"}) {
    const std::string before = out({"export", "--format", format});
    EXPECT_EQ(import(before).out, "0 entries added, 6 there already\n");
    EXPECT_EQ(import(before, {"--replace"}).out, "0 entries added, 6 there already\n");
    forget();
    EXPECT_EQ(import(before).out, "6 entries added\n");
    EXPECT_EQ(out({"export", "--format", format}), before);
  }
  // As many as are missing.
  forget();
  import(std::string(kHeader) + "en\tbank\t\tnoun\t\t銀行\t\t\n");
  EXPECT_EQ(import(twice).out, "5 entries added, 1 there already\n");
}

TEST_F(UserExchangeTest, NoEntryOfTheFileIsReplaced) {
  const std::string head = "word\tpos\tmeaning\n";
  import(head + "bank\tnoun\t銀行\nbank\tnoun\t土手\n");
  EXPECT_EQ(import(head + "bank\tnoun\t銀行\nbank\tnoun\t列\n", {"--replace"}).out,
            "0 entries added, 1 replaced, 1 there already\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n2  bank  [noun]  列\n");
  forget();
  import(head + "bank\tnoun\t銀行\n");
  EXPECT_EQ(import(head + "bank\tnoun\t銀行\nbank\tnoun\t銀行\n", {"--replace"}).out,
            "1 entry added, 1 there already\n");
}

TEST_F(UserExchangeTest, ReplacingAndSkippingGoByWordAndPartOfSpeech) {
  const std::string head = "word\tpos\tmeaning\n";
  import(head + "bank\tnoun\t銀行\nbank\tverb\t預ける\n");
  EXPECT_EQ(import(head + "bank\tnoun\t土手\nshore\tnoun\t岸\n", {"--skip-existing"}).out,
            "1 entry added, 1 skipped\n");
  EXPECT_EQ(import(head + "bank\tnoun\t土手\nbank\tnoun\t列\n", {"--replace"}).out,
            "1 entry added, 1 replaced\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  土手\n2  bank  [verb]  預ける\n3  bank  [noun]  列\n");
  EXPECT_EQ(import(head + "bank\tnoun\t土手\nbank\tnoun\t列\n", {"--replace"}).out,
            "0 entries added, 2 there already\n");
  EXPECT_EQ(import(head, {"--replace", "--skip-existing"}).status, 2);
}

TEST_F(UserExchangeTest, WhatIsNoListOfEntriesIsRefused) {
  const Outcome table = import("bank\t銀行\n");
  EXPECT_EQ(table.status, 2);
  EXPECT_EQ(table.err,
            "zavel: this is no list of entries: there is no column \"bank\"\n"
            "A table begins with names of columns, parted by tabs, as `zavel user export` writes them; JSON "
            "with { or [.\n");
  EXPECT_EQ(import("{\"schema\":1}").err,
            "zavel: this is no list of entries: the JSON has neither entries nor a list of them\n"
            "A table begins with names of columns, parted by tabs, as `zavel user export` writes them; JSON "
            "with { or [.\n");
  EXPECT_EQ(import("").status, 1);
  const Outcome missing = user({"import", file("none")}).run();
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.err, "zavel: the file " + file("none") +
                             " can't be read\nGive a file that can be read, of at most 512 MB.\n");
  EXPECT_FALSE(std::filesystem::exists(root() + "/user"));
}

TEST_F(UserExchangeTest, ABrokenDocumentIsToldWithThePlace) {
  const std::string broken =
      "{\"schema\":1,\"entries\":[\n{\"word\":\"ant\",\"meaning\":\"蟻\"},\n{\"word\":\"bee\",\"meaning\":"
      "\"\\ud800\"}\n]}\n";
  const std::string hint =
      "A table begins with names of columns, parted by tabs, as `zavel user export` writes them; JSON with { "
      "or [.\n";
  const Outcome surrogate = import(broken);
  EXPECT_EQ(surrogate.status, 2);
  EXPECT_EQ(
      surrogate.err,
      "zavel: this is no list of entries: it breaks off at line 3, column 32: invalid string: surrogate "
      "U+D800..U+DBFF must be followed by U+DC00..U+DFFF\n" +
          hint);
  EXPECT_EQ(import("[{\"word\":\"ant\",\"meaning\":\"蟻\"},]").err,
            "zavel: this is no list of entries: it breaks off at column 31: unexpected ']'; expected '[', "
            "'{', or a "
            "literal\n" +
                hint);
}

TEST_F(UserExchangeTest, Utf32IsToldByItsName) {
  for (const std::string& text :
       {std::string("\xFF\xFE\0\0w\0\0\0", 8), std::string("\0\0\xFE\xFF\0\0\0w", 8)}) {
    const Outcome outcome = import(text);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "zavel: this is UTF-32 text, not UTF-8\nSave it as UTF-8, then try again.\n");
  }
}

// One Ctrl-D at the beginning of a line ends it.
TEST_F(UserExchangeTest, ATerminalIsReadUpToItsFirstEnd) {
  for (const bool named : {false, true}) {
    test::Command command = named ? user({"import", "-"}) : user({"import"});
    const Outcome outcome = command.terminal(24, 80).typed("word\tmeaning\nbank\t銀行\n\x04").run();
    EXPECT_EQ(outcome.status, named ? 1 : 0) << outcome.out;
    EXPECT_NE(outcome.out.find("Reading entries from the terminal; Ctrl-D ends them\n"), std::string::npos)
        << outcome.out;
  }
}

TEST_F(UserExchangeTest, OneEntryIsOne) {
  import("word\tmeaning\nbank\t銀行\n");
  EXPECT_EQ(out({"export", file("x.tsv")}), "1 entry written to " + file("x.tsv") + "\n");
}

TEST_F(UserExchangeTest, TheCharacterThatCantStandThereIsBlamed) {
  EXPECT_TRUE(import("word\tmeaning\nbad\xEE\x80\x80\tx\n")
                  .err.starts_with(
                      "standard input:2: word: \"\xEE\x80\x80\" (U+E000), character 4, can't stand here"));
}

TEST_F(UserExchangeTest, MarksAndLineEndsOfOtherSystemsAreTaken) {
  EXPECT_EQ(import("\xEF\xBB\xBFword\tmeaning\r\nbank\t銀行\r\n").out, "1 entry added\n");
  EXPECT_EQ(out({"find", "bank"}), "1  bank  [noun]  銀行\n");
}

TEST_F(UserExchangeTest, Utf16IsToldByItsName) {
  for (const std::string& text : {std::string("\xFF\xFEw\0o\0", 6), std::string("\xFE\xFF\0w\0o", 6)}) {
    const Outcome outcome = import(text);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "zavel: this is UTF-16 text, not UTF-8\nSave it as UTF-8, then try again.\n");
  }
}

TEST_F(UserExchangeTest, ProgressComesAsJson) {
  const Outcome outcome = import(kTable, {"--progress", "json"});
  EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')),
            R"({"event":"progress","stage":"Importing","done":1,"total":5})");
  const Outcome refused = import("word\tmeaning\nbee\t蜂\n7\tx\n", {"--progress", "json"});
  EXPECT_EQ(refused.err.substr(0, refused.err.find('\n')),
            R"({"event":"progress","stage":"Importing","done":1,"total":1})");
}

// Standard input is a pipe that nothing comes from; the signal finds the program waiting for it.
TEST_F(UserExchangeTest, AnInterruptAheadOfTheEntriesIsTold) {
  const std::string pipe = file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const int both = open(pipe.c_str(), O_RDWR);
  ASSERT_GE(both, 0);
  for (const bool json : {false, true}) {
    std::vector<std::string> arguments = {"import", "-"};
    if (json) arguments.push_back("--json");
    const std::string ready = file(json ? "ready-json" : "ready");
    std::thread feeder([&] {
      EXPECT_EQ(write(both, "word\tmeaning\n", 13), 13);
      for (int left = 1; left > 0; usleep(1000)) ioctl(both, FIONREAD, &left);
      usleep(50000);
      std::ofstream(ready).flush();
    });
    const Outcome outcome = user(arguments).inputFile(pipe).signalAt(ready, SIGINT).run();
    feeder.join();
    EXPECT_EQ(outcome.status, 130);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zavel: interrupted; nothing was added\n");
  }
  close(both);
}

TEST_F(UserExchangeTest, AnInterruptKeepsWhatIsIn) {
  std::string text = "word\tmeaning\n";
  for (int i = 0; i < 100000; ++i) {
    std::string word;
    for (int n = i + 1000; n > 0; n /= 26) word += static_cast<char>('a' + n % 26);
    text += word + "\tx\n";
  }
  folder_.write("x.tsv", text);
  const Outcome outcome =
      user({"import", file("x.tsv")}).signalAt(root() + "/user/.changing-en", SIGINT).run();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "zavel: interrupted; what was added is stored\n");
  std::string told = outcome.out.substr(0, outcome.out.find(' '));
  std::erase(told, ',');
  const size_t added = std::stoul(told);
  const std::string words = out({"list"});
  EXPECT_EQ(static_cast<size_t>(std::count(words.begin(), words.end(), '\n')), added);
  EXPECT_GT(added, 0u);
  EXPECT_LT(added, 100000u);
}

}  // namespace
}  // namespace zavel::host
