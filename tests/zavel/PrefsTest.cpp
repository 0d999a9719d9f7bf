// `zavel prefs dict`.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <thread>

#include "support/DicWriter.h"
#include "support/TempFolder.h"
#include "zavel/Command.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using test::Command;
using test::Outcome;

constexpr const char* kOff =
    "1  on   Standard dictionary     bilingual\n2  off  Translation dictionary  translation\n";
constexpr const char* kOn =
    "1  on   Standard dictionary     bilingual\n2  on   Translation dictionary  translation\n";
constexpr const char* kMoved =
    "1  off  Translation dictionary  translation\n2  on   Standard dictionary     bilingual\n";

class PrefsTest : public testing::Test {
 protected:
  std::string root() const { return folder_.path() + "/root"; }
  Command dict(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"prefs", "dict"});
    return Command(std::move(arguments)).env("ZAVEL_ROOT", root());
  }

  test::TempFolder folder_;
};

TEST_F(PrefsTest, TheListHasBothDictionariesFromTheFirstDay) {
  const Outcome outcome = dict({"list"}).run();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, kOff);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(PrefsTest, ADictionaryIsNamedByNumberNameOrType) {
  for (const char* name : {"2", "Translation dictionary", "translation dictionary", "translation"}) {
    EXPECT_EQ(dict({"enable", name}).run().out, kOn) << name;
    EXPECT_EQ(dict({"list"}).run().out, kOn) << name;
    EXPECT_EQ(dict({"disable", name}).run().out, kOff) << name;
    EXPECT_EQ(dict({"list"}).run().out, kOff) << name;
  }
}

TEST_F(PrefsTest, NamesAreInTheLanguageOfTheMoment) {
  constexpr const char* kJapanese = "ja_JP.UTF-8";
  EXPECT_EQ(dict({"enable", "翻訳辞書"}).run().out, kOn);
  EXPECT_EQ(dict({"list"}).env("LANG", kJapanese).run().out,
            "1  on   標準辞書  bilingual\n2  on   翻訳辞書  translation\n");
  EXPECT_EQ(dict({"disable", "Translation dictionary"}).env("LANG", kJapanese).run().out,
            "1  on   標準辞書  bilingual\n2  off  翻訳辞書  translation\n");
  EXPECT_EQ(dict({"move", "標準辞書", "2"}).run().out, kMoved);
  EXPECT_EQ(Json::parse(dict({"list", "--json"}).env("LANG", kJapanese).run().out)["dictionaries"][0]["name"],
            "翻訳辞書");
}

TEST_F(PrefsTest, ANameWithALineEndStaysOnItsLine) {
  ASSERT_EQ(dict({"list"}).run().status, 0);
  const std::string store = root() + "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist";
  std::string text = test::readFile(store);
  const size_t type = text.find(">tType<");
  ASSERT_NE(type, std::string::npos);
  text.replace(type, 7, ">eType<");
  text.replace(text.find("Translation dictionary"), 22, "A book\nof two lines");
  test::writeFile(store, text);
  const std::string list = dict({"list"}).run().out;
  EXPECT_NE(list.find("  A book of two lines  "), std::string::npos) << list;
  EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 3) << list;
  EXPECT_EQ(dict({"enable", "a book of two lines"}).run().status, 0);
}

TEST_F(PrefsTest, MovingKeepsWhatIsOn) {
  EXPECT_EQ(dict({"move", "translation", "1"}).run().out, kMoved);
  EXPECT_EQ(dict({"move", "1", "1"}).run().out, kMoved);
  EXPECT_EQ(dict({"move", "1", "2"}).run().out, kOff);
}

TEST_F(PrefsTest, TwoChangesAtOnceAreBothKept) {
  for (int round = 0; round < 20; ++round) {
    ASSERT_EQ(dict({"disable", "translation"}).run().status, 0);
    ASSERT_EQ(dict({"move", "translation", "2"}).run().out, kOff);
    std::thread other([this] { EXPECT_EQ(dict({"enable", "translation"}).run().status, 0); });
    EXPECT_EQ(dict({"move", "translation", "1"}).run().status, 0);
    other.join();
    ASSERT_EQ(dict({"list"}).run().out,
              "1  on   Translation dictionary  translation\n2  on   Standard dictionary     bilingual\n");
  }
}

TEST_F(PrefsTest, JsonHasTheSameList) {
  const Json json = Json::parse(dict({"move", "2", "1", "--json"}).run().out);
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["file"], root() + "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist");
  EXPECT_EQ(json["searched"], true);
  EXPECT_EQ(json["dictionaries"],
            Json::parse(R"([{"number":1,"on":false,"name":"Translation dictionary","type":"translation"},)"
                        R"({"number":2,"on":true,"name":"Standard dictionary","type":"bilingual"}])"));
}

TEST_F(PrefsTest, WhatIsNotInTheListIsTold) {
  for (const char* name : {"0", "3", "", "oed", "99999999999999999999"}) {
    const Outcome outcome = dict({"enable", name}).run();
    EXPECT_EQ(outcome.status, 2) << name;
    EXPECT_EQ(outcome.err, "zavel: there is no dictionary \"" + std::string(name) +
                               "\"\nChoose one by its number, name or type from: zavel prefs dict list\n");
  }
  const Outcome place = dict({"move", "1", "3"}).run();
  EXPECT_EQ(place.status, 2);
  EXPECT_EQ(place.err, "zavel: the list has no place 3\nChoose a place from 1 to 2.\n");
  const Outcome noNumber = dict({"move", "1", "x"}).run();
  EXPECT_EQ(noNumber.status, 2);
  EXPECT_EQ(noNumber.err,
            "zavel: position: \"x\" is not a number from 1 to 1000000\nRun: zavel prefs dict move --help\n");
  EXPECT_EQ(dict({"move", "1", "0"}).run().status, 2);
  EXPECT_EQ(dict({"move", "1", "-1"}).run().status, 2);
  EXPECT_EQ(dict({"move", "1"}).run().status, 2);
  EXPECT_EQ(dict({"enable"}).run().status, 2);
  EXPECT_EQ(dict({"list"}).run().out, kOff);
}

TEST_F(PrefsTest, AStoreThatCannotBeWrittenIsTold) {
  std::filesystem::create_directories(root());
  std::ofstream(root() + "/Library") << "a file in the way";
  EXPECT_EQ(dict({"list"}).run().out, kOff);
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"enable", "2"}, {"move", "2", "1"}}) {
    const Outcome outcome = dict(words).run();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "zavel: the preferences can't be written: " + root() +
                  "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist: Not a directory\n"
                  "Check that the disk isn't full and that the folder is yours.\n");
  }
}

TEST_F(PrefsTest, ALinkIsWrittenThrough) {
  ASSERT_EQ(dict({"list"}).run().status, 0);
  const std::string store = root() + "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist";
  const std::string kept = root() + "/kept.plist";
  std::filesystem::rename(store, kept);
  std::filesystem::create_symlink(kept, store);
  ASSERT_EQ(dict({"enable", "2"}).run().status, 0);
  EXPECT_TRUE(std::filesystem::is_symlink(store));
  EXPECT_NE(test::readFile(kept).find("YES</string>"), std::string::npos) << test::readFile(kept);
  EXPECT_EQ(dict({"list"}).run().out.find("2  on "), dict({"list"}).run().out.find('\n') + 1);
}

// A look-up ends with a failure there.
TEST_F(PrefsTest, APathTableThatIsNoneIsToldAndChangesNothing) {
  ASSERT_EQ(dict({"list"}).run().err, "");
  const Outcome paths = Command({"paths"}).env("ZAVEL_ROOT", root()).run();
  const size_t at = paths.out.find('/', paths.out.find("path_table"));
  const std::string table = paths.out.substr(at, paths.out.find('\n', at) - at);
  std::filesystem::create_directories(table.substr(0, table.rfind('/')));
  test::writeFile(table, "no table");
  const std::string line = "zavel: the path table " + table +
                           " can't be used, so look-ups fail; remove it: a new one is written then\n";
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"paths"}, {"paths", "--json"}, {"prefs", "dict", "list"}}) {
    const Outcome outcome = Command(words).env("ZAVEL_ROOT", root()).run();
    EXPECT_EQ(outcome.status, 0) << words[0];
    EXPECT_EQ(outcome.err, line) << words[0];
  }
}

TEST_F(PrefsTest, OtherPreferencesStayAsTheyAre) {
  ASSERT_EQ(dict({"list"}).run().status, 0);
  const std::string store = root() + "/Library/Preferences/local.tarnwick.ZavelLex_ZavelLex.plist";
  std::string text = test::readFile(store);
  text.replace(text.find("<dict>"), 6, "<dict><key>Mine</key><string>stays</string>");
  test::writeFile(store, text);
  ASSERT_EQ(dict({"enable", "2"}).run().status, 0);
  EXPECT_NE(test::readFile(store).find("stays"), std::string::npos);
}

TEST_F(PrefsTest, WithoutAPlaceThereIsNothingToShow) {
  EXPECT_EQ(Command({"prefs", "dict", "list"}).run().status, 3);
}

}  // namespace
}  // namespace zavel::host
