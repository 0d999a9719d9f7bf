// What each command says of damaged files: the damage, by name, with status 5, nothing changed on the disk,
// and every entry that can be read.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

namespace fs = std::filesystem;
using Bytes = std::string;
using Files = std::map<std::string, Bytes>;

Bytes empty(const Bytes&) {
  return {};
}
Bytes half(const Bytes& bytes) {
  return bytes.substr(0, bytes.size() / 2);
}
Bytes shorter(const Bytes& bytes) {
  return bytes.substr(0, bytes.size() - 1);
}
Bytes zeroed(const Bytes& bytes) {
  return Bytes(bytes.size(), '\0');
}

struct Damage {
  const char* name;  // of the file that is damaged
  Bytes (*how)(const Bytes&);
  const char* other;  // whose content it gets, in place of `how`
  const char* wrong;  // what is said to be wrong
  const char* words;  // what can still be read
  const char* lost;   // what is said of the rest
};

void PrintTo(const Damage& damage, std::ostream* out) {
  *out << damage.name << damage.wrong;
}

constexpr const char* kBlocks = " holds other blocks than its index leads to, or ends too soon";
constexpr const char* kEntries = " holds other entries than are looked for in it";
constexpr const char* kShort = " ends too soon";
constexpr const char* kNoIndex = " is no index";
constexpr const char* kAll = "each of them can be read";
constexpr const char* kMore = "entries that you deleted or changed may be among those that can be read";
constexpr const char* kNone = "the entries \"ant\", \"bee\", \"grok\" can't be read";
constexpr const char* kNoBlocks = "the entries \"ant...\", \"bee...\", \"gro...\" can't be read";
constexpr const char* kNoneJ = "the entries \"あり\", \"はち\" can't be read";

const Damage kDamages[] = {
    {"ej.idx", empty, nullptr, kNoIndex, "ant\nbee\ngrok\n", kMore},
    {"ej.idx", half, nullptr, kNoIndex, "ant\nbee\ngrok\n", kMore},
    {"ej.idx", shorter, nullptr, kNoIndex, "ant\nbee\ngrok\n", kMore},
    {"ej.idx", zeroed, nullptr, kNoIndex, "ant\nbee\ngrok\n", kMore},
    {"ej.idx", nullptr, "kna.idx", kNoIndex, "ant\nbee\ngrok\n", kMore},
    {"ej.ix3", empty, nullptr, kShort, "", kNoBlocks},
    {"ej.ix3", half, nullptr, kShort, "", kNoBlocks},
    {"ej.ix3", shorter, nullptr, kBlocks, "ant\nbee\n", "the entry \"gro...\" can't be read"},
    {"ej.ix3", zeroed, nullptr, kBlocks, "", kNoBlocks},
    {"ej.ix3", nullptr, "kji.ix3", kShort, "ant\n", "the entries \"bee\", \"gro...\" can't be read"},
    {"ej.dic", empty, nullptr, kShort, "", kNone},
    {"ej.dic", half, nullptr, kShort, "", kNone},
    {"ej.dic", shorter, nullptr, kShort, "ant\nbee\n", "the entry \"grok\" can't be read"},
    {"ej.dic", zeroed, nullptr, kEntries, "", kNone},
    {"ej.dic", nullptr, "je.dic", kEntries, "", kNone},
    {"kna.idx", empty, nullptr, kNoIndex, "あり\nはち\n", kMore},
    {"kna.idx", shorter, nullptr, kNoIndex, "あり\nはち\n", kMore},
    {"kna.idx", nullptr, "ej.idx", kNoIndex, "あり\nはち\n", kMore},
    {"kji.idx", empty, nullptr, kNoIndex, "あり\nはち\n", kAll},
    {"kji.idx", half, nullptr, kNoIndex, "あり\nはち\n", kAll},
    {"kji.idx", shorter, nullptr, kNoIndex, "あり\nはち\n", kAll},
    {"kji.idx", zeroed, nullptr, kNoIndex, "あり\nはち\n", kAll},
    {"kna.ix3", empty, nullptr, kShort, "あり\nはち\n", "the entries \"あり...\", \"はち...\" can't be read"},
    {"kna.ix3", shorter, nullptr, kBlocks, "あり\nはち\n", "the entry \"はち...\" can't be read"},
    {"kji.ix3", empty, nullptr, kShort, "あり\nはち\n", kAll},
    {"kji.ix3", shorter, nullptr, kBlocks, "あり\nはち\n", kAll},
    {"kji.ix3", zeroed, nullptr, kBlocks, "あり\nはち\n", kAll},
    {"je.dic", empty, nullptr, kShort, "", kNoneJ},
    {"je.dic", shorter, nullptr, kShort, "あり\n", "the entry \"はち\" can't be read"},
    {"je.dic", zeroed, nullptr, kEntries, "", kNoneJ},
    {"je.dic", nullptr, "ej.dic", kEntries, "", kNoneJ},
};

class UserDamageTest : public test::RootTest, public testing::WithParamInterface<Damage> {
 protected:
  test::Outcome user(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "user");
    return inRoot(std::move(arguments)).run();
  }
  std::string users() const { return root() + "/user/"; }
  Files files() const {
    Files all;
    for (const auto& entry : fs::directory_iterator(users())) {
      const std::string name = entry.path().filename();
      if (name == ".lock") continue;
      std::ifstream in(entry.path(), std::ios::binary);
      all[name] = Bytes(std::istreambuf_iterator<char>(in), {});
    }
    return all;
  }
  void put(const std::string& name, const Bytes& bytes) const {
    std::ofstream(users() + name, std::ios::binary | std::ios::trunc) << bytes;
  }
  void makeSets() const {
    for (const char* word : {"ant", "bee", "grok"}) ASSERT_EQ(user({"add", word, "x"}).status, 0);
    ASSERT_EQ(user({"add", "あり", "x", "--kanji", "蟻"}).status, 0);
    ASSERT_EQ(user({"add", "はち", "x", "--kanji", "蜂"}).status, 0);
  }
};

TEST_P(UserDamageTest, EveryCommandTellsItAndLosesNothing) {
  const Damage& damage = GetParam();
  makeSets();
  for (const char* stamp : {"myej.stamp", "myje.stamp"}) fs::remove(users() + stamp);
  const std::string name = std::string("my") + damage.name;
  Files whole = files();
  put(name, damage.how ? damage.how(whole[name]) : whole["my" + std::string(damage.other)]);
  const Files damaged = files();
  const bool english = damage.name[0] == 'e';
  const std::string lang = english ? "en" : "ja";
  const std::string told = std::string("zavel: your ") + (english ? "English" : "Japanese") + " entries in " +
                           root() + "/user are damaged: ";

  const test::Outcome list = user({"list", "--lang", lang});
  EXPECT_EQ(list.status, 5);
  EXPECT_EQ(list.out, damage.words);
  EXPECT_TRUE(list.err.starts_with(told + name)) << list.err;
  EXPECT_EQ(list.err.substr(0, list.err.find('\n')),
            told + name + damage.wrong + "; no backup stands there, nothing was changed; " + damage.lost);
  const test::Outcome exported = user({"export", "--lang", lang});
  EXPECT_EQ(exported.status, 5);
  EXPECT_EQ(exported.err, list.err);
  const auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
  EXPECT_EQ(lines(exported.out), *damage.words ? lines(damage.words) + 1 : 0);

  const std::string word = english ? "ant" : "あり";
  const test::Outcome found = user({"find", word});
  EXPECT_EQ(found.status, 5);
  EXPECT_EQ(found.err, list.err);
  EXPECT_EQ(found.out.empty(), std::string(damage.words).find(word) == std::string::npos) << found.out;
  const std::string other = english ? "cat" : "ねこ";
  const std::string file = this->file("words.tsv");
  std::ofstream(file) << "lang\tword\tmeaning\n" << lang << "\t" << other << "\tx\n";
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"add", other, "x"},
                                                    {"import", file},
                                                    {"delete", word, "--all"},
                                                    {"edit", word, "--set", "meaning=y"},
                                                    {"arrange", "--lang", lang}}) {
    const test::Outcome outcome = user(arguments);
    EXPECT_EQ(outcome.status, 5) << arguments[0] << outcome.out;
    EXPECT_TRUE(outcome.err.starts_with(told + name)) << arguments[0] << ": " << outcome.err;
  }
  EXPECT_EQ(files(), damaged);
}

// The stamp tells which entries in the file of entries are to be there: no other file is needed to read them.
TEST_P(UserDamageTest, WithAStampDamageOfOtherFilesHidesNothing) {
  const Damage& damage = GetParam();
  if (std::string(damage.name).ends_with(".dic")) return;
  for (const char* word : {"deleted", "さくじょ"}) {
    ASSERT_EQ(user({"add", word, "x"}).status, 0);
    ASSERT_EQ(user({"delete", word}).status, 0);
  }
  makeSets();
  const std::string name = std::string("my") + damage.name;
  Files whole = files();
  put(name, damage.how ? damage.how(whole[name]) : whole["my" + std::string(damage.other)]);
  const bool english = damage.name[0] == 'e';
  const test::Outcome list = user({"list", "--lang", english ? "en" : "ja"});
  EXPECT_EQ(list.status, 5);
  EXPECT_EQ(list.out, english ? "ant\nbee\ngrok\n" : "あり\nはち\n");
  EXPECT_NE(list.err.find("; each of them can be read\n"), std::string::npos) << list.err;
  EXPECT_EQ(user({"export", "--lang", english ? "en" : "ja"}).status, 5);
}

INSTANTIATE_TEST_SUITE_P(All, UserDamageTest, testing::ValuesIn(kDamages));

using UserDamage = UserDamageTest;

TEST_F(UserDamage, OneBadEntryKeepsNoOtherFromBeingExported) {
  makeSets();
  Bytes dic = files()["myej.dic"];
  const size_t bee = dic.find("bee");
  dic.replace(dic.find("\xF5\xD4", bee), 2, "\xF5\xD7");
  put("myej.dic", dic);
  const std::string told =
      "zavel: your English entries in " + root() +
      "/user are damaged: myej.dic holds an entry that was cut or changed; no backup stands there, nothing "
      "was changed; the entry \"bee\" can't be read\n";
  const std::string words = this->file("words.tsv");
  const test::Outcome exported = user({"export", words});
  EXPECT_EQ(exported.status, 5);
  EXPECT_EQ(exported.out, "4 entries written to " + words + "\n");
  EXPECT_TRUE(exported.err.starts_with(told)) << exported.err;
  const test::Outcome found = user({"find", "bee"});
  EXPECT_EQ(found.status, 5);
  EXPECT_EQ(found.out, "");
  EXPECT_TRUE(found.err.starts_with(told)) << found.err;
  const test::Outcome other = user({"find", "ant"});
  EXPECT_EQ(other.status, 5);
  EXPECT_EQ(other.out, "1  ant  [noun]  x\n");
}

// Entries that are filed alike have one name among the lost.
TEST_F(UserDamage, AsManyEntriesAsAreLostAreTold) {
  for (const char* meaning : {"x", "y", "z"}) ASSERT_EQ(user({"add", "bee", meaning}).status, 0);
  ASSERT_EQ(user({"add", "grok", "x"}).status, 0);
  Bytes dic = files()["myej.dic"];
  for (const char* meaning : {"\xF5\xD4x", "\xF5\xD4z"}) dic.replace(dic.find(meaning), 2, "\xF5\xD7");
  put("myej.dic", dic);
  const test::Outcome list = user({"list"});
  EXPECT_EQ(list.status, 5);
  EXPECT_EQ(list.out, "bee\ngrok\n");
  EXPECT_NE(list.err.find("; the entries \"bee\" (2 entries) can't be read\n"), std::string::npos)
      << list.err;
  dic.replace(dic.rfind("\xF5\xD4x"), 2, "\xF5\xD7");
  put("myej.dic", dic);
  EXPECT_NE(user({"list"}).err.find("; the entries \"bee\" (2 entries), \"grok\" can't be read\n"),
            std::string::npos);
}

TEST_F(UserDamage, OneBadMarkKeepsNoOtherWordFromBeingListed) {
  makeSets();
  Bytes dic = files()["myej.dic"];
  put("myej.dic", dic.replace(dic.find("\xF5\xB1"
                                       "bee") -
                                  2,
                              1, "x"));
  const test::Outcome list = user({"list"});
  EXPECT_EQ(list.status, 5);
  EXPECT_EQ(list.out, "ant\ngrok\nあり\nはち\n");
  EXPECT_NE(list.err.find("; the entry \"bee\" can't be read\n"), std::string::npos) << list.err;
}

// Their spelling is not what they are filed under.
TEST_F(UserDamage, WordsThatAreSpelledOtherwiseAreReadToo) {
  ASSERT_EQ(user({"add", "時々", "sometimes", "--reading", "ときどき"}).status, 0);
  put("mykji.ix3", "");
  const test::Outcome found = user({"find", "時々"});
  EXPECT_EQ(found.status, 5);
  EXPECT_EQ(found.out, "1  時々 (ときどき)  sometimes\n");
  EXPECT_NE(found.err.find("; each of them can be read\n"), std::string::npos) << found.err;
}

// The stamp tells, though what is there reads well.
TEST_F(UserDamage, EntriesThatMayBeOthersAreNotSaidToBeAll) {
  const char* const unsure = "; those that can be read may not be all, nor as you left them\n";
  ASSERT_EQ(user({"add", "犬", "dog", "--reading", "いぬ"}).status, 0);
  const Bytes whole = files()["myje.dic"];
  Bytes other = whole;
  put("myje.dic", other.replace(other.find("\x8C\xA2"), 2, "\x8C\xA3"));  // another kanji
  const test::Outcome altered = user({"list"});
  EXPECT_EQ(altered.status, 5);
  EXPECT_NE(altered.err.find(unsure), std::string::npos) << altered.err;
  put("myje.dic", whole);
  ASSERT_EQ(user({"add", "apple", "x"}).status, 0);
  const Files older = files();
  ASSERT_EQ(user({"add", "banana", "x"}).status, 0);
  for (const char* name : {"myej.dic", "myej.stamp"}) put(name, older.at(name));
  const test::Outcome list = user({"list", "--lang", "en"});
  EXPECT_EQ(list.status, 5);
  EXPECT_EQ(list.out, "apple\n");
  EXPECT_NE(list.err.find(unsure), std::string::npos) << list.err;
}

TEST_F(UserDamage, AnExportFromBeforeTheDamageIsNotReplaced) {
  makeSets();
  const std::string words = this->file("words.tsv");
  ASSERT_EQ(user({"export", words}).status, 0);
  put("myej.dic", shorter(files()["myej.dic"]));
  const auto size = fs::file_size(words);
  const test::Outcome exported = user({"export", words});
  EXPECT_EQ(exported.status, 5);
  EXPECT_NE(exported.err.find("; nothing was exported, because " + words + " is there and may hold more\n"),
            std::string::npos)
      << exported.err;
  EXPECT_EQ(fs::file_size(words), size);
  EXPECT_EQ(user({"export", words + "2"}).status, 5);
  EXPECT_TRUE(fs::exists(words + "2"));
}

TEST_F(UserDamage, AnImportGoesOnWithTheOtherLanguage) {
  makeSets();
  put("myej.dic", shorter(files()["myej.dic"]));
  const std::string words = this->file("words.tsv");
  std::ofstream(words) << "lang\tword\tmeaning\nen\tcat\t猫\nja\tねこ\tcat\nja\tいぬ\tdog\n";
  const test::Outcome imported = user({"import", words});
  EXPECT_EQ(imported.status, 5);
  EXPECT_EQ(imported.out, "2 entries added\n");
  EXPECT_TRUE(imported.err.starts_with("zavel: your English entries in ")) << imported.err;
  EXPECT_EQ(user({"list", "--lang", "ja"}).out, "あり\nいぬ\nねこ\nはち\n");
}

// What went in and what was refused of the other language is told with the failure.
TEST_F(UserDamage, AnImportTellsAsJsonWhatWentInBesideTheDamage) {
  makeSets();
  put("myej.dic", shorter(files()["myej.dic"]));
  const std::string words = this->file("words.tsv");
  std::ofstream(words) << "lang\tword\tmeaning\nen\tcat\t猫\nja\tねこ\tcat\nja\tいぬ\t犬\n";
  const test::Outcome imported = user({"import", words, "--json"});
  EXPECT_EQ(imported.status, 5);
  const auto json = nlohmann::json::parse(imported.out);
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["status"], "error");
  EXPECT_EQ(json["error"]["code"], "damaged_user_dictionary");
  EXPECT_EQ(imported.err.substr(imported.err.find('\n') + 1),
            "zavel: " + json["error"]["message"].get<std::string>() + "\n" +
                json["error"]["hint"].get<std::string>() + "\n");
  EXPECT_EQ(json["added"], 1);
  EXPECT_EQ(json["present"], 0);
  EXPECT_EQ(json["refused"].size(), 1u);
  EXPECT_EQ(json["refused"][0]["line"], 4);
}

TEST_F(UserDamage, AnImportThatCannotBeginTellsThatAlone) {
  makeSets();
  put("myej.dic", shorter(files()["myej.dic"]));
  const std::string words = this->file("words.tsv");
  std::ofstream(words) << "lang\tword\tmeaning\nen\tcat\tx\n";
  const test::Outcome imported = user({"import", words});
  EXPECT_EQ(imported.status, 5);
  EXPECT_EQ(imported.out, "");
  EXPECT_TRUE(imported.err.starts_with("zavel: your English entries in ")) << imported.err;
}

// Documents of damaged entries say so themselves, and an import passes it on.
TEST_F(UserDamage, DocumentsTellTheDamage) {
  makeSets();
  put("myej.dic", shorter(files()["myej.dic"]));
  const std::string message =
      "your English entries in " + root() +
      "/user are damaged: myej.dic ends too soon; no backup stands there, nothing was "
      "changed; the entry \"grok\" can't be read";
  const auto lost = nlohmann::json::parse(R"([{"lang":"en","word":"grok","entries":1}])");
  const std::string words = this->file("words.json");
  EXPECT_EQ(user({"export", words, "--format", "json"}).status, 5);
  std::ifstream in(words);
  const auto exported = nlohmann::json::parse(in);
  for (const auto& json : {exported, nlohmann::json::parse(user({"list", "--json"}).out),
                           nlohmann::json::parse(user({"find", "ant", "--json"}).out),
                           nlohmann::json::parse(user({"export", "--json"}).out)}) {
    EXPECT_EQ(json["damage"]["code"], "damaged_user_dictionary");
    EXPECT_EQ(json["damage"]["message"], message);
    EXPECT_EQ(json["damage"]["hint"].get<std::string>().substr(0, 10), "Put a copy");
    EXPECT_EQ(json["damage"]["lost"], lost);
  }
  EXPECT_EQ(exported["entries"].size(), 4u);
  fs::remove_all(users());
  const test::Outcome imported = user({"import", words});
  EXPECT_EQ(imported.status, 0);
  EXPECT_EQ(imported.out, "4 entries added\n");
  EXPECT_EQ(imported.err, "zavel: " + words + " was exported with a warning: " + message + "\n");
  EXPECT_EQ(nlohmann::json::parse(user({"import", words, "--json"}).out)["damaged_export"], message);
  EXPECT_FALSE(nlohmann::json::parse(user({"export", "--json"}).out).contains("damage"));
  EXPECT_FALSE(nlohmann::json::parse(user({"list", "--json"}).out).contains("damage"));
}

// As a disk leaves it that lost a page.
TEST_F(UserDamage, WhatALostPageOfTheIndexHidesIsSaved) {
  makeSets();
  Bytes index = files()["myej.idx"];
  put("myej.idx", index.replace(5 * 4096, 4096, Bytes(4096, '\0')));
  for (const bool marked : {false, true}) {
    if (marked) put(".changing-en", "x");
    const test::Outcome exported = user({"export", "--lang", "en"});
    EXPECT_EQ(exported.status, 5);
    EXPECT_NE(exported.err.find("are damaged: myej.idx was changed or is damaged; "), std::string::npos)
        << exported.err;
    EXPECT_NE(exported.out.find("\tgrok\t"), std::string::npos) << exported.out;
    EXPECT_EQ(user({"arrange", "--lang", "en"}).status, 5);
  }
}

// With an older index in the place of the present one the newer words look deleted.
TEST_F(UserDamage, AnOlderIndexTakesNoWordAway) {
  makeSets();
  const Bytes old = files()["myej.idx"];
  ASSERT_EQ(user({"add", "later", "x"}).status, 0);
  put("myej.idx", old);
  const Files before = files();
  const std::string told =
      "zavel: your English entries in " + root() +
      "/user are not as they were left: myej.idx doesn't lead to an entry that is there: \"later\"; it may "
      "be older than the other files, or damaged, or another program deleted entries\nPut a copy of that "
      "folder in its place; or save all there is (zavel user export FILE), run \"zavel user arrange "
      "--accept\" and import what is missing then (zavel user import FILE).\n";
  const test::Outcome list = user({"list", "--lang", "en"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.out, "ant\nbee\ngrok\nlater\n");
  EXPECT_EQ(list.err, told);
  const test::Outcome found = user({"find", "later"});
  EXPECT_EQ(found.status, 0);
  EXPECT_EQ(found.out, "1  later  [noun]  x\n");
  EXPECT_EQ(found.err, told);
  EXPECT_EQ(user({"find", "latest"}).status, 1);
  const test::Outcome look = inRoot({"look", "later"}).run();
  EXPECT_NE(look.err.find("are not as they were left: myej.idx doesn't lead to an entry"), std::string::npos);
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"add", "cat", "x"},
                                                    {"delete", "later", "--all"},
                                                    {"edit", "ant", "--set", "meaning=y"},
                                                    {"arrange"}}) {
    const test::Outcome outcome = user(arguments);
    EXPECT_EQ(outcome.status, 5) << arguments[0] << outcome.out;
    EXPECT_EQ(outcome.err, told) << arguments[0];
  }
  EXPECT_EQ(files(), before);
  const std::string words = this->file("words.tsv");
  EXPECT_EQ(user({"export", words}).status, 0);
  const test::Outcome accepted = user({"arrange", "--accept", "--lang", "en"});
  EXPECT_EQ(accepted.status, 0);
  EXPECT_EQ(accepted.err,
            "zavel: your English entries are taken as they stand; copies of the files are kept as "
            "myej.idx.kept-1, myej.ix3.kept-1, myej.dic.kept-1\n");
  EXPECT_EQ(files()["myej.dic.kept-1"], before.at("myej.dic"));
  EXPECT_EQ(user({"list", "--lang", "en"}).out, "ant\nbee\ngrok\n");
  EXPECT_EQ(user({"import", words}).out, "1 entry added, 5 there already\n");
  EXPECT_EQ(user({"list", "--lang", "en"}).out, "ant\nbee\ngrok\nlater\n");
}

TEST_F(UserDamage, AStaleBackupTakesNoWordBack) {
  makeSets();
  const Bytes old = files()["myej.idx"];
  ASSERT_EQ(user({"add", "later", "x"}).status, 0);
  put("myej.idx.bkup", old);
  const test::Outcome list = user({"list", "--lang", "en"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.out, "ant\nbee\ngrok\nlater\n");
  EXPECT_EQ(list.err, "zavel: backups that your English entries don't need were found in " + root() +
                          "/user and moved to myej.idx.bkup.kept-1\n");
  EXPECT_EQ(files()["myej.idx.bkup.kept-1"], old);
  EXPECT_EQ(user({"list", "--lang", "en"}).err, "");
}

}  // namespace
}  // namespace zavel::host
