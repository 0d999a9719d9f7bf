// Own entries in `zavel look`.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Outcome;

class UserLookTest : public test::RootTest {
 protected:
  Outcome run(std::vector<std::string> arguments) const { return inRoot(std::move(arguments)).run(); }
  void add(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"user", "add"});
    ASSERT_EQ(run(std::move(arguments)).status, 0);
  }
  std::string plain(const std::string& word) const { return run({"look", "--plain", word}).out; }
};

TEST_F(UserLookTest, AWordOfOnesOwnIsFoundAndMarkedOnEachLine) {
  add({"grok", "深く理解する", "--pos", "vt", "--example", "I grok it.=分かる。"});
  const Outcome text = run({"look", "grok"});
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.out, "+ grok  (your entry)\n+   [transitive] 深く理解する\n+     I grok it.  分かる。\n");
  EXPECT_EQ(plain("grok"),
            "grok\tgrok\t\tvt\t深く理解する\t\tuser\ngrok\tgrok\t\texample\tI grok it.\t分かる。\tuser\n");
  const Json entry = Json::parse(run({"look", "--json", "grok"}).out)["entries"][0];
  EXPECT_EQ(entry["user"], true);
  EXPECT_EQ(entry["source"], Json::parse(R"({"id":"user","name":"Your entries"})"));
  EXPECT_EQ(entry["senses"][0]["glosses"][0], "深く理解する");
}

TEST_F(UserLookTest, OwnEntriesStandAheadOfTheDictionarys) {
  add({"happy", "嬉しい", "--pos", "adj"});
  EXPECT_EQ(plain("happy"), "happy\thappy\t\tadj\t嬉しい\t\tuser\nhappy\thappy\t\tadj\t幸せな\t\n");
  const Json entries = Json::parse(run({"look", "--json", "happy"}).out)["entries"];
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_FALSE(entries[1].contains("user"));
}

TEST_F(UserLookTest, InflectedFormsLeadToOwnEntries) {
  add({"grok", "深く理解する", "--pos", "verb"});
  add({"go", "碁をさす", "--pos", "verb"});
  add({"ほげる", "to hoge"});
  add({"写す", "to copy", "--reading", "うつす"});
  EXPECT_EQ(plain("grokking"), "grokking\tgrok\t\tv\t深く理解する\t\tuser\n");
  for (const char* form : {"groks", "grokked", "Grokking"}) {
    EXPECT_EQ(plain(form), std::string(form) + "\tgrok\t\tv\t深く理解する\t\tuser\n");
  }
  EXPECT_EQ(plain("grokker"), "");  // a verb has no comparative
  EXPECT_TRUE(plain("went").starts_with("went\tgo\t\tv\t碁をさす\t\tuser\n"));
  EXPECT_EQ(plain("ほげた"), "ほげた\tほげる\t\t\tto hoge\t\tuser\n");
  EXPECT_EQ(plain("写した"), "写した\t写す\tうつす\t\tto copy\t\tuser\n");
  EXPECT_TRUE(run({"look", "grokking"}).out.starts_with("grokking: progressive of grok\n"));
}

// ル in katakana makes a name of it; adjectives are written so all the same.
TEST_F(UserLookTest, WhatIsWrittenAsANameDoesNotInflectAsAVerb) {
  add({"ググル", "(n) Google"});
  add({"ヤバイ", "awful"});
  EXPECT_EQ(plain("ググった"), "");
  EXPECT_EQ(plain("ググル"), "ググル\tググル\t\t\t(n) Google\t\tuser\n");
  EXPECT_EQ(plain("ヤバかった"), "ヤバかった\tヤバイ\t\t\tawful\t\tuser\n");
  add({"ググる", "to google"});
  EXPECT_EQ(plain("ググった"), "ググった\tググる\t\t\tto google\t\tuser\n");
}

struct Way {
  const char* query;
  const char* answer;  // headword, match and via of each entry of the user's; "" for none
};

// By each road that the dictionary itself answers by.
constexpr Way kWays[] = {
    // Written otherwise.
    {"café", "cafe exact"},
    {"CAFÉ", "cafe exact"},
    {"ｃａｆé", "cafe exact"},
    {"ｇｒｏｋ", "grok exact"},
    {"GROK", "grok exact"},
    {"“grok”", "grok exact"},
    {"「grok」", "grok exact"},
    {"run up", "run-up exact"},
    {"runup", "run-up exact"},
    {"RUN‐UP", "run-up exact"},
    {"cant", "can't near"},
    {"can’t", "can't exact"},
    // Inflected, with accents and apostrophes too.
    {"cafés", "cafe inflected plural"},
    {"went", "go inflected past"},
    {"Grokking", "grok inflected progressive"},
    {"run-ups", "run-up inflected plural"},
    {"grokn't", "grok inflected contraction with not"},
    {"children's", "child inflected possessive of plural"},
    {"she", ""},
    {"bananas", "banana inflected plural, third person singular"},  // a phrase has no part of speech
    // Other spellings, and words that the dictionary derives from others.
    {"colour", "color spelling"},
    {"happiness", "happy derived"},
    // Kana, width, shapes of kanji.
    {"消しごむ", "消しゴム exact"},
    {"ケシゴム", "消しゴム exact"},
    {"ｹｼｺﾞﾑ", "消しゴム exact"},
    {"びーる", "ビール exact"},
    {"ビル", "ビール near"},
    {"髙橋", "高橋 exact"},
    {"「写す」", "写す exact"},
    {"２月", "二月 exact"},
    {"人々", "人人 exact"},
    // Inflected Japanese.
    {"写さなかった", "写す inflected past, negative"},
    {"うつした", "写す inflected past"},
    {"へんな", "ヘンナ exact|変 inflected attributive"},
    {"変だった", "変 inflected past"},
    {"😀", ""},
};

std::string ownAnswer(const Json& result) {
  std::vector<std::string> answers;
  for (const Json& entry : result["entries"]) {
    if (!entry.contains("user")) continue;
    std::string one = entry["headword"].get<std::string>() + " " + entry["match"].get<std::string>();
    for (const Json& way : entry["via"]) {
      one += (way == entry["via"][0] ? " " : ", ") + way.get<std::string>();
    }
    answers.push_back(one);
  }
  std::sort(answers.begin(), answers.end());
  std::string all;
  for (const std::string& one : answers) all += (all.empty() ? "" : "|") + one;
  return all;
}

TEST_F(UserLookTest, TheyAnswerByAllRoadsOfTheDictionary) {
  for (const char* word : {"cafe", "run-up", "color", "child"}) add({word, "意味", "--pos", "noun"});
  for (const char* word : {"grok", "go", "can't"}) add({word, "意味", "--pos", "verb"});
  add({"happy", "意味", "--pos", "adj"});
  add({"banana", "意味", "--phrase", "go bananas"});
  add({"ビール", "beer"});
  add({"ヘンナ", "henna"});
  constexpr std::pair<const char*, const char*> kWritten[] = {{"消しゴム", "けしごむ"}, {"高橋", "たかはし"},
                                                              {"写す", "うつす"},       {"二月", "にがつ"},
                                                              {"人人", "ひとびと"},     {"変", "へん"}};
  for (const auto& [word, reading] : kWritten) add({word, "meaning", "--reading", reading});
  std::string lines;
  for (const Way& way : kWays) lines += std::string(way.query) + "\n";
  std::istringstream batch(inRoot({"look", "--json"}).input(lines).run().out);
  for (const Way& way : kWays) {
    EXPECT_EQ(ownAnswer(Json::parse(run({"look", "--json", way.query}).out)), way.answer) << way.query;
    std::string line;
    ASSERT_TRUE(std::getline(batch, line));
    EXPECT_EQ(ownAnswer(Json::parse(line)), way.answer) << way.query << " of a batch";
  }
}

TEST_F(UserLookTest, WordsWithMarksThatNoIndexHasAreShownAsTheyAreSpelled) {
  add({"色々", "various", "--reading", "いろいろ"});
  add({"アイス・クリーム", "ice cream"});
  for (const std::string word : {"色々", "いろいろ", "色色"}) {
    EXPECT_EQ(plain(word), word + "\t色々\tいろいろ\t\tvarious\t\tuser\n");
  }
  for (const std::string word : {"アイス・クリーム", "アイスクリーム", "ｱｲｽ･ｸﾘｰﾑ"}) {
    EXPECT_EQ(plain(word), word + "\tアイス・クリーム\t\t\tice cream\t\tuser\n");
  }
  EXPECT_EQ(run({"look", "--list", "色々"}).out, "色々 [いろいろ] (your entry)\n");
  const std::string all = run({"user", "export"}).out;
  EXPECT_EQ(all,
            "lang\tword\tkanji\tpos\tphrase\tmeaning\texamples\tsentences\n"
            "ja\tアイス・クリーム\t\t\t\tice cream\t\t\n"
            "ja\tいろいろ\t色々\t\t\tvarious\t\t\n");
  ASSERT_EQ(run({"user", "delete", "色々", "--yes"}).status, 0);
  ASSERT_EQ(inRoot({"user", "import", "-"}).input(all).run().status, 0);
  EXPECT_EQ(run({"user", "export"}).out, all);
  EXPECT_EQ(run({"user", "add", "々", "x", "--reading", "あ"}).status, 2);
  EXPECT_EQ(run({"user", "add", "・", "x"}).status, 2);
}

TEST_F(UserLookTest, AKanaWithASoundMarkBehindItIsOneSound) {
  add({"ずんだ", "bean paste"});
  EXPECT_EQ(plain("す゛んた゛"), "す゛んた゛\tずんだ\t\t\tbean paste\t\tuser\n");
  const Outcome batch = inRoot({"look", "--plain"}).input("す゛んた゛\n").run();
  EXPECT_EQ(batch.out, "す゛んた゛\tずんだ\t\t\tbean paste\t\tuser\n");
}

TEST_F(UserLookTest, BatchesHaveThemToo) {
  add({"grok", "深く理解する", "--pos", "verb"});
  add({"犬", "dog", "--reading", "いぬ"});
  EXPECT_EQ(
      inRoot({"look", "--plain"}).input("grokked\n犬\nいぬ\nパン\n").run().out,
      "grokked\tgrok\t\tv\t深く理解する\t\tuser\n犬\t犬\tいぬ\t\tdog\t\tuser\nいぬ\t犬\tいぬ\t\tdog\t\tuser\n"
      "パン\tパン\t\t\tbread\t\n");
}

TEST_F(UserLookTest, ListsHaveThemToo) {
  add({"goalie", "ゴールキーパー"});
  EXPECT_EQ(run({"look", "--list", "goa"}).out, "goalie (your entry)\n");
  const Json json = Json::parse(run({"look", "--list", "--json", "goa"}).out);
  EXPECT_EQ(json["status"], "found");
  EXPECT_EQ(json["headwords"],
            Json::parse(R"x([{"word":"goalie","line":"goalie (your entry)","user":true}])x"));
}

TEST_F(UserLookTest, ListsHaveWrittenFormsAndFoldedBeginnings) {
  add({"写す", "to copy", "--reading", "うつす"});
  add({"cafeteria", "食堂"});
  EXPECT_EQ(run({"look", "--list", "写"}).out, "写す [うつす] (your entry)\n");
  EXPECT_EQ(inRoot({"look", "--list"}).input("写\n").run().out, "写す [うつす] (your entry)\n");
  EXPECT_EQ(run({"look", "--list", "うつす"}).out, "うつす (your entry)\n");
  EXPECT_EQ(run({"look", "--list", "ウツス"}).out, "うつす (your entry)\n");
  EXPECT_EQ(run({"look", "--list", "Cafét"}).out, "cafeteria (your entry)\n");
}

TEST_F(UserLookTest, AWordWithoutThePartIsSaidToLackIt) {
  add({"grok", "深く理解する"});
  const Outcome outcome = run({"look", "--mode", "phrase", "grok"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "zavel: no phrases in the entries for \"grok\"\n");
}

TEST_F(UserLookTest, PartsOfEntriesAreShown) {
  add({"grok", "深く理解する", "--example", "I grok it.=分かる。"});
  EXPECT_EQ(run({"look", "--plain", "--mode", "pos", "grok"}).out, "grok\tgrok\t\tn\t深く理解する\t\tuser\n");
  EXPECT_EQ(run({"look", "--mode", "phrase", "grok"}).status, 1);
  EXPECT_EQ(run({"look", "--mode", "example", "grok"}).status, 0);
}

TEST_F(UserLookTest, WithoutEntriesNothingIsMade) {
  EXPECT_EQ(run({"look", "go"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(root() + "/user"));
}

TEST_F(UserLookTest, WhileTheyAreWrittenTheRestIsShown) {
  add({"go", "碁をさす"});
  const int fd = open((root() + "/user/.lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(fd, LOCK_EX), 0);
  const Outcome outcome = run({"look", "--plain", "happy"});
  close(fd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "happy\thappy\t\tadj\t幸せな\t\n");
  EXPECT_EQ(outcome.err,
            "zavel: your entries are in use: another process; your English entries are left out\n");
}

// An addition by another process takes a few milliseconds, and on a slow disk some hundred.
TEST_F(UserLookTest, AShortChangeIsWaitedFor) {
  add({"grok", "深く理解する"});
  const int fd = open((root() + "/user/.lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(fd, LOCK_EX), 0);
  std::thread other([fd] {
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    close(fd);
  });
  const Outcome outcome = run({"look", "--plain", "grok"});
  other.join();
  EXPECT_EQ(outcome.out, "grok\tgrok\t\tn\t深く理解する\t\tuser\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(UserLookTest, TheDocumentTellsHowTheyFared) {
  add({"go", "碁をさす"});
  const auto own = [this](const std::string& word) {
    return Json::parse(run({"look", "--json", word}).out)["dictionaries"][0];
  };
  EXPECT_EQ(own("go"), Json::parse(R"({"type":"user","name":"Your entries","status":"found","error":null})"));
  EXPECT_EQ(own("happy")["status"], "not_found");
  EXPECT_EQ(own("パン")["type"], "bilingual");  // there are no Japanese ones
  const int fd = open((root() + "/user/.lock").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(fd, LOCK_EX), 0);
  const Outcome locked = run({"look", "--json", "happy"});
  // Nobody knows whether the word is there.
  const Outcome unknown = run({"look", "--json", "grok"});
  const Outcome batch = inRoot({"look", "--json"}).input("happy\n").run();
  close(fd);
  const Json expected = Json::parse(
      R"({"type":"user","name":"Your entries","status":"failed","error":{"code":"locked",)"
      R"("message":"your entries are in use: another process","hint":"Wait for it to end, then try again."}})");
  for (const Outcome& outcome : {locked, unknown, batch}) {
    EXPECT_EQ(Json::parse(outcome.out)["dictionaries"][0], expected);
  }
  EXPECT_EQ(locked.status, 0);
  EXPECT_EQ(unknown.status, 3);
  std::filesystem::remove(root() + "/user/myej.dic");
  EXPECT_EQ(own("happy")["error"]["code"], "damaged_user_dictionary");
}

TEST_F(UserLookTest, TheyAreShownWithoutTheDictionary) {
  add({"grok", "深く理解する"});
  const std::string basic = root() + "/dictionaries/basic";
  std::filesystem::remove_all(basic);
  const std::string lost = "zavel: there is no dictionary in " + basic + " yet. Run: zavel dict build\n";
  const Outcome found = run({"look", "--plain", "grok"});
  EXPECT_EQ(found.status, 0);
  EXPECT_EQ(found.out, "grok\tgrok\t\tn\t深く理解する\t\tuser\n");
  EXPECT_EQ(found.err, lost);
  const Outcome batch = inRoot({"look", "--plain"}).input("groks\ngrok\n").run();
  EXPECT_EQ(batch.status, 0);
  EXPECT_EQ(batch.out, "groks\tgrok\t\tn\t深く理解する\t\tuser\ngrok\tgrok\t\tn\t深く理解する\t\tuser\n");
  EXPECT_EQ(batch.err, lost);
  const Json json = Json::parse(run({"look", "--json", "grok"}).out);
  EXPECT_EQ(json["status"], "found");
  EXPECT_EQ(json["dictionaries"][1]["status"], "failed");
  EXPECT_EQ(json["dictionaries"][1]["error"]["code"], "no_dictionary");
  const Outcome list = run({"look", "--list", "gr"});
  EXPECT_EQ(list.out, "grok (your entry)\n");
  EXPECT_EQ(list.err, lost);
  const Outcome other = run({"look", "happy"});
  EXPECT_EQ(other.status, 3);
  EXPECT_EQ(other.out, "");
  EXPECT_EQ(other.err, lost + "zavel: no entry for \"happy\"\n");
  EXPECT_EQ(run({"look", "--forms", "grok"}).err,
            "zavel: there is no dictionary in " + basic + " yet\nRun: zavel dict build\n");
  EXPECT_EQ(run({"look", "猫"}).status, 3);
  std::filesystem::remove_all(root() + "/user");
  EXPECT_EQ(run({"look", "grok"}).err,
            "zavel: there is no dictionary in " + basic + " yet\nRun: zavel dict build\n");
}

TEST_F(UserLookTest, TheyAreShownBesideADamagedDictionary) {
  add({"go", "碁をさす"});
  const std::string basic = root() + "/dictionaries/basic/";
  std::filesystem::resize_file(basic + "ej.dic", std::filesystem::file_size(basic + "ej.dic") / 2);
  const Outcome outcome = run({"look", "--plain", "go"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with("go\tgo\t\tn\t碁をさす\t\tuser\n")) << outcome.out;
  EXPECT_TRUE(outcome.err.ends_with("Run: zavel dict build\n")) << outcome.err;
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1);
}

TEST_F(UserLookTest, TheyAreShownWhereNoDictionaryIsOn) {
  add({"grok", "深く理解する"});
  ASSERT_EQ(run({"prefs", "dict", "disable", "bilingual"}).status, 0);
  EXPECT_EQ(plain("grok"), "grok\tgrok\t\tn\t深く理解する\t\tuser\n");
}

TEST_F(UserLookTest, DamagedOnesAreLeftOut) {
  add({"go", "碁をさす"});
  std::filesystem::remove(root() + "/user/myej.dic");
  const Outcome outcome = run({"look", "--plain", "happy"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "happy\thappy\t\tadj\t幸せな\t\n");
  EXPECT_TRUE(outcome.err.ends_with("; your English entries are left out\n")) << outcome.err;
}

}  // namespace
}  // namespace zavel::host
