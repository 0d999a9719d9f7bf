// Own entries in `zavel look`.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>

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
  const int fd = open((root() + "/user/.lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(fd, LOCK_EX), 0);
  const Outcome outcome = run({"look", "--plain", "happy"});
  close(fd);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "happy\thappy\t\tadj\t幸せな\t\n");
  EXPECT_EQ(outcome.err, "zavel: your entries are in use: another process; they are left out\n");
}

TEST_F(UserLookTest, DamagedOnesAreLeftOut) {
  add({"go", "碁をさす"});
  std::filesystem::remove(root() + "/user/myej.dic");
  const Outcome outcome = run({"look", "--plain", "happy"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "happy\thappy\t\tadj\t幸せな\t\n");
  EXPECT_TRUE(outcome.err.ends_with("; they are left out\n")) << outcome.err;
}

}  // namespace
}  // namespace zavel::host
