// Every key of every document that the program writes, read back by another parser: its place in the order,
// its type, what it says; and whether docs/json.md tells of it.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>

#include "zavel/RootTest.h"

namespace zavel::host {
namespace {

using Json = nlohmann::ordered_json;
using Keys = std::vector<std::string>;
using test::Command;

Keys keysOf(const Json& object) {
  Keys keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

void collect(const Json& value, std::set<std::string>* keys) {
  if (value.is_object()) {
    for (const auto& [key, below] : value.items()) {
      keys->insert(key);
      if (key != "figures") collect(below, keys);  // its names are for readers, not for programs
    }
  } else if (value.is_array()) {
    for (const Json& below : value) collect(below, keys);
  }
}

class JsonKeysTest : public test::RootTest {
 protected:
  Command command(std::vector<std::string> arguments) const {
    return inRoot(std::move(arguments))
        .env("ZAVEL_MKDICT", MKDICT_PROGRAM)
        .env("ZAVEL_EDICT", folder_.path());
  }
  // The one document of a run. Its keys are documented ones in snake_case.
  Json document(std::vector<std::string> arguments) const {
    return parse(command(std::move(arguments)).run().out);
  }
  static Json parse(const std::string& text) {
    EXPECT_TRUE(text.ends_with('\n'));
    EXPECT_EQ(text.find('\n'), text.size() - 1) << "one document, one line";
    const Json json = Json::parse(text);
    checkKeys(json);
    return json;
  }
  static void checkKeys(const Json& json) {
    std::ifstream in(ZAVEL_DOCS "/json.md");
    const std::string documented{std::istreambuf_iterator<char>(in), {}};
    std::set<std::string> keys;
    collect(json, &keys);
    for (const std::string& key : keys) {
      EXPECT_EQ(key.find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << key;
      EXPECT_TRUE(documented.find("`" + key + "`") != std::string::npos ||
                  documented.find("." + key + "`") != std::string::npos)
          << key << " is not in docs/json.md";
    }
  }
};

TEST_F(JsonKeysTest, OfALookUp) {
  const Json json = document({"look", "--json", "goes"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "query", "status", "origin", "unknown", "entries", "suggestions",
                                "rows", "dictionaries"}));
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["query"], "goes");
  EXPECT_EQ(json["status"], "found");
  EXPECT_EQ(json["origin"], "go");
  EXPECT_EQ(json["entries"].size(), 1u);  // the noun "go" has no such form
  EXPECT_EQ(json["suggestions"], Json::array());
}

TEST_F(JsonKeysTest, OfTheRows) {
  const Json rows = document({"look", "--json", "go"})["rows"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(keysOf(rows[0]), (Keys{"number", "type", "dictionary", "title", "shown", "looked_up", "text"}));
  EXPECT_EQ(rows[0]["number"], 1);
  EXPECT_EQ(rows[0]["type"], "bilingual");
  EXPECT_EQ(rows[0]["dictionary"], "Standard dictionary");
  EXPECT_EQ(rows[0]["title"], "go [碁]");
  EXPECT_EQ(rows[0]["shown"], true);
  EXPECT_TRUE(rows[1]["text"].is_null());
  EXPECT_EQ(document({"look", "--json", "--row", "2", "go"})["rows"][1]["shown"], true);
  EXPECT_EQ(document({"look", "--json", "-n", "1", "go"})["rows"].size(), 1u);
}

TEST_F(JsonKeysTest, OfTheDictionaries) {
  const Json dictionaries = document({"look", "--json", "go"})["dictionaries"];
  ASSERT_EQ(dictionaries.size(), 1u);
  EXPECT_EQ(keysOf(dictionaries[0]), (Keys{"type", "name", "status", "error"}));
  EXPECT_EQ(dictionaries[0]["type"], "bilingual");
  EXPECT_EQ(dictionaries[0]["name"], "Standard dictionary");
  EXPECT_EQ(dictionaries[0]["status"], "found");
  EXPECT_TRUE(dictionaries[0]["error"].is_null());
  ASSERT_EQ(command({"prefs", "dict", "enable", "translation"}).run().status, 0);
  const Json failed = parse(command({"look", "--json", "go"}).env("ZAVEL_LIBEXEC", "/nowhere").run().out);
  EXPECT_EQ(failed["dictionaries"][1]["status"], "failed");
  EXPECT_EQ(keysOf(failed["dictionaries"][1]["error"]), (Keys{"code", "message", "hint"}));
  EXPECT_EQ(failed["dictionaries"][1]["error"]["code"], "helper_missing");
}

TEST_F(JsonKeysTest, OfAnUnknownCharacter) {
  EXPECT_EQ(document({"look", "--json", "go😀"})["unknown"], "😀");
}

TEST_F(JsonKeysTest, OfAnEntry) {
  const Json entry = document({"look", "--json", "goes"})["entries"][0];
  EXPECT_EQ(keysOf(entry),
            (Keys{"headword", "reading", "homograph", "stars", "match", "via", "source", "senses"}));
  EXPECT_EQ(entry["headword"], "go");
  EXPECT_TRUE(entry["reading"].is_null());
  EXPECT_EQ(entry["homograph"], 2);
  EXPECT_EQ(entry["stars"], 3);
  EXPECT_EQ(entry["match"], "inflected");
  EXPECT_EQ(entry["via"], Json({"third person singular"}));
  EXPECT_EQ(keysOf(entry["source"]), (Keys{"id", "name"}));
  EXPECT_EQ(entry["source"]["id"], "builtin");
  EXPECT_EQ(entry["source"]["name"], "Standard dictionary");
}

TEST_F(JsonKeysTest, OfASense) {
  const Json senses = document({"look", "--json", "goes"})["entries"][0]["senses"];
  ASSERT_EQ(senses.size(), 2u);
  EXPECT_EQ(keysOf(senses[0]), (Keys{"pos", "glosses", "note", "examples"}));
  EXPECT_EQ(senses[0]["pos"], Json({"v"}));
  EXPECT_EQ(senses[0]["glosses"], Json({"行く", "動く"}));
  EXPECT_EQ(senses[0]["note"], "of a machine, to work");
  EXPECT_EQ(senses[0]["examples"], Json::array());
  EXPECT_TRUE(senses[1]["note"].is_null());
  ASSERT_EQ(senses[1]["examples"].size(), 1u);
  EXPECT_EQ(keysOf(senses[1]["examples"][0]), (Keys{"source", "target"}));
  EXPECT_EQ(senses[1]["examples"][0]["source"], "go home");
  EXPECT_EQ(senses[1]["examples"][0]["target"], "家に帰る");
}

TEST_F(JsonKeysTest, WhatStandsInThePlaceOfNull) {
  const Json church = document({"look", "--json", "church"});
  EXPECT_TRUE(church["origin"].is_null());
  EXPECT_TRUE(church["entries"][0]["homograph"].is_null());
  const Json iku = document({"look", "--json", "行く"});
  EXPECT_EQ(iku["entries"][0]["headword"], "行く");
  EXPECT_EQ(iku["entries"][0]["reading"], "いく");
  EXPECT_EQ(iku["entries"][0]["stars"], 0);
}

TEST_F(JsonKeysTest, EachReasonOfAMatch) {
  EXPECT_EQ(document({"look", "--json", "church"})["entries"][0]["match"], "exact");
  EXPECT_EQ(document({"look", "--json", "making"})["entries"][0]["match"], "inflected");
  EXPECT_EQ(document({"look", "--json", "happiness"})["entries"][0]["match"], "derived");
  EXPECT_EQ(document({"look", "--json", "colour"})["entries"][1]["match"], "spelling");
  EXPECT_EQ(document({"look", "--json", "ビール"})["entries"][1]["match"], "near");
}

TEST_F(JsonKeysTest, APartOfAnEntryKeepsAllKeys) {
  const Json entry = document({"look", "--json", "--mode", "pos", "go"})["entries"][1];
  EXPECT_EQ(entry["headword"], "go");
  EXPECT_EQ(entry["homograph"], 2);
  EXPECT_EQ(entry["stars"], 3);
  EXPECT_EQ(entry["senses"][1]["glosses"], Json({"消える"}));
  EXPECT_EQ(entry["senses"][1]["examples"], Json::array());
  const Json example = document({"look", "--json", "--mode", "example", "go"})["entries"];
  ASSERT_EQ(example.size(), 1u);
  EXPECT_EQ(example[0]["homograph"], 2);
  EXPECT_EQ(example[0]["senses"][0]["examples"][0]["source"], "go home");
  const Json japanese = document({"look", "--json", "--mode", "pos", "こう"})["entries"];
  ASSERT_EQ(japanese.size(), 2u);
  EXPECT_EQ(japanese[1]["headword"], "功");
  EXPECT_EQ(japanese[1]["reading"], "こう");
}

TEST_F(JsonKeysTest, OfALookUpWithoutAnAnswer) {
  const Json json = document({"look", "--json", "curch"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "query", "status", "origin", "unknown", "entries", "suggestions",
                                "rows", "dictionaries"}));
  EXPECT_EQ(json["status"], "not_found");
  EXPECT_EQ(json["entries"], Json::array());
  EXPECT_EQ(json["suggestions"], Json({"church"}));
}

TEST_F(JsonKeysTest, OfAListOfHeadwords) {
  const Json json = document({"look", "--json", "--list", "chu"});
  EXPECT_EQ(keysOf(json),
            (Keys{"schema", "query", "status", "origin", "unknown", "headwords", "suggestions"}));
  ASSERT_EQ(json["headwords"].size(), 1u);
  EXPECT_EQ(keysOf(json["headwords"][0]), (Keys{"word", "line"}));
  EXPECT_EQ(json["headwords"][0]["word"], "church");
  EXPECT_EQ(json["headwords"][0]["line"], "**church [教会]");
}

TEST_F(JsonKeysTest, OfAnInflectionTable) {
  const Json json = document({"look", "--json", "--forms", "went"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "query", "status", "origin", "unknown", "forms", "suggestions"}));
  ASSERT_EQ(json["forms"].size(), 5u);
  EXPECT_EQ(keysOf(json["forms"][2]), (Keys{"code", "form", "label", "base"}));
  EXPECT_EQ(json["forms"][2]["code"], 8);
  EXPECT_EQ(json["forms"][2]["form"], "went");
  EXPECT_EQ(json["forms"][2]["label"], "[動　詞：過去形]");
  EXPECT_EQ(json["forms"][2]["base"], "go");
}

TEST_F(JsonKeysTest, TheLimitHoldsForAllLists) {
  EXPECT_EQ(document({"look", "--json", "-n", "1", "go"})["entries"].size(), 1u);
  EXPECT_EQ(document({"look", "--json", "-n", "1", "--list", "こう"})["headwords"].size(), 1u);
  EXPECT_LE(document({"look", "--json", "-n", "1", "こうこう"})["suggestions"].size(), 1u);
}

TEST_F(JsonKeysTest, OfAFailure) {
  std::filesystem::remove_all(root() + "/dictionaries");
  const Json json = document({"look", "--json", "church"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "status", "error"}));
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["status"], "error");
  EXPECT_EQ(keysOf(json["error"]), (Keys{"code", "message", "hint"}));
  EXPECT_EQ(json["error"]["code"], "no_dictionary");
  EXPECT_EQ(json["error"]["message"], "there is no dictionary in " + root() + "/dictionaries/basic yet");
  EXPECT_EQ(json["error"]["hint"], "Run: zavel dict build");
}

// Every code that the sources name is documented.
TEST_F(JsonKeysTest, EveryFailureCodeIsDocumented) {
  std::ifstream in(ZAVEL_DOCS "/json.md");
  const std::string documented{std::istreambuf_iterator<char>(in), {}};
  for (const char* code :
       {"usage", "no_home", "no_dictionary", "unreadable_dictionary", "damaged_dictionary", "long_path",
        "damaged_path_table", "no_mkdict", "mkdict_killed", "no_mkbook", "mkbook_killed", "no_source",
        "no_folder", "locked", "too_long", "not_text", "input"}) {
    EXPECT_NE(documented.find(std::string("| `") + code + "` |"), std::string::npos) << code;
  }
}

TEST_F(JsonKeysTest, EveryPartOfSpeechIsDocumented) {
  std::ifstream in(ZAVEL_DOCS "/json.md");
  const std::string documented{std::istreambuf_iterator<char>(in), {}};
  for (const char* pos : {"n",        "countable", "pn",     "n-temporal", "n-adv",    "pron",
                          "num",      "counter",   "adj",    "adj-na",     "adj-no",   "adj-attributive",
                          "adj-taru", "adj-nari",  "adj-ku", "adj-shiku",  "adj-kari", "aux-adj",
                          "adv",      "adv-to",    "v",      "vs",         "vt",       "vi",
                          "aux",      "part",      "prep",   "conj",       "int",      "art",
                          "det",      "pref",      "suf",    "exp",        "symbol"}) {
    EXPECT_NE(documented.find("\"" + std::string(pos) + "\""), std::string::npos) << pos;
  }
}

TEST_F(JsonKeysTest, FailuresOfEachCommandAreDocumentsToo) {
  EXPECT_EQ(document({"look", "--json", "--nonsense"})["error"]["code"], "usage");
  EXPECT_EQ(document({"lok", "--json"})["error"]["code"], "usage");
  std::filesystem::remove_all(root() + "/dictionaries");
  EXPECT_EQ(document({"dict", "info", "--json"})["error"]["code"], "no_dictionary");
  EXPECT_EQ(document({"dict", "verify", "--json"})["error"]["code"], "no_dictionary");
  const auto nowhere = [](std::vector<std::string> words) {
    return parse(Command(std::move(words)).run().out)["error"]["code"];
  };
  EXPECT_EQ(nowhere({"paths", "--json"}), "no_home");
  EXPECT_EQ(nowhere({"look", "--json", "x"}), "no_home");
  EXPECT_EQ(nowhere({"dict", "build", "--json"}), "no_home");
  EXPECT_EQ(
      parse(command({"dict", "build", "--json"}).env("ZAVEL_MKDICT", "/nowhere").run().out)["error"]["code"],
      "no_mkdict");
}

TEST_F(JsonKeysTest, OfTheDictionarysState) {
  const Json json = document({"dict", "info", "--json"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "folder", "complete", "files", "bytes", "translation"}));
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["folder"], root() + "/dictionaries/basic");
  EXPECT_EQ(json["complete"], true);
  ASSERT_EQ(json["files"].size(), 13u);
  uintmax_t total = 0;
  for (const Json& file : json["files"]) {
    EXPECT_EQ(keysOf(file), (Keys{"name", "bytes"}));
    const std::string name = file["name"];
    const uintmax_t size = std::filesystem::file_size(root() + "/dictionaries/basic/" + name);
    EXPECT_EQ(file["bytes"], size);
    total += size;
  }
  EXPECT_EQ(json["bytes"], total);
  EXPECT_EQ(json["files"][0]["name"], "ej.dic");

  std::filesystem::remove(root() + "/dictionaries/basic/ej.dic");
  const Json lacking = document({"dict", "info", "--json"});
  EXPECT_EQ(lacking["complete"], false);
  EXPECT_TRUE(lacking["files"][0]["bytes"].is_null());
}

TEST_F(JsonKeysTest, OfAVerification) {
  const Json sound = document({"dict", "verify", "--json"});
  EXPECT_EQ(sound["schema"], 1);
  EXPECT_EQ(sound["status"], "good");
  EXPECT_EQ(sound["folder"], root() + "/dictionaries/basic");
  EXPECT_TRUE(sound["figures"].is_object());

  std::ofstream(root() + "/dictionaries/basic/ej.ix3", std::ios::trunc).close();
  const Json damaged = document({"dict", "verify", "--json"});
  EXPECT_EQ(damaged["status"], "damaged");
  EXPECT_GT(damaged["fault_count"], 0);
  EXPECT_EQ(keysOf(damaged["faults"][0]), (Keys{"file", "offset", "message"}));
  EXPECT_EQ(command({"dict", "verify", "--json"}).run().status, 5);
}

TEST_F(JsonKeysTest, OfThePaths) {
  const Json json = document({"paths", "--json"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "data", "dictionary", "books", "config", "state", "cache", "root",
                                "path_table"}));
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["data"], root());
  EXPECT_EQ(json["dictionary"], root() + "/dictionaries/basic");
  EXPECT_EQ(json["books"], root() + "/books");
  EXPECT_EQ(json["config"], root() + "/config");
  EXPECT_EQ(json["state"], root() + "/state");
  EXPECT_EQ(json["cache"], root() + "/cache");
  EXPECT_EQ(json["root"], root());
  EXPECT_EQ(json["path_table"], root() + "/Library/Application Support/Tarnwick/ZavelLex/ZavelPath.plist");
}

TEST_F(JsonKeysTest, OfTheProgramItself) {
  const Json json = document({"about", "--json"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "name", "version", "license", "sources"}));
  EXPECT_EQ(json["schema"], 1);
  EXPECT_EQ(json["name"], "ZavelLex");
  EXPECT_EQ("zavel " + std::string(json["version"]) + "\n", command({"--version"}).run().out);
  EXPECT_EQ(json["license"], "Apache-2.0");
  ASSERT_EQ(json["sources"].size(), 7u);
  for (const Json& source : json["sources"]) {
    EXPECT_EQ(keysOf(source), (Keys{"name", "package", "use", "license", "home"}));
    for (const auto& [key, value] : source.items()) EXPECT_TRUE(value.is_string() && value != "") << key;
  }
  EXPECT_EQ(json["sources"][0]["package"], "dict-freedict-eng-jpn");
  EXPECT_EQ(json["sources"][1]["package"], "edict");
  EXPECT_EQ(json["sources"][2]["package"], "wordnet-base");
  EXPECT_EQ(json["sources"][3]["package"], "enamdict");
  EXPECT_EQ(json["sources"][4]["use"], "technical terms of the translation dictionary");
  EXPECT_EQ(json["sources"][5]["package"], "dict-wn");
  EXPECT_EQ(json["sources"][6]["use"], "the book kanjidic");
}

TEST_F(JsonKeysTest, OfThePreferences) {
  const Json json = document({"prefs", "dict", "list", "--json"});
  EXPECT_EQ(keysOf(json), (Keys{"schema", "file", "searched", "dictionaries"}));
  ASSERT_EQ(json["dictionaries"].size(), 2u);
  EXPECT_EQ(keysOf(json["dictionaries"][0]), (Keys{"number", "on", "name", "type"}));
}

TEST_F(JsonKeysTest, ABatchIsOneDocumentALine) {
  const test::Outcome outcome = command({"look", "--json"}).input("church\n\n行く\n").run();
  size_t begin = 0, count = 0;
  for (size_t end = 0; (end = outcome.out.find('\n', begin)) != std::string::npos; begin = end + 1, ++count) {
    const Json json = Json::parse(outcome.out.substr(begin, end - begin));
    EXPECT_EQ(json["query"], (Keys{"church", "", "行く"})[count]);
  }
  EXPECT_EQ(count, 3u);
}

TEST_F(JsonKeysTest, TwoRunsAreEqual) {
  for (const char* word : {"goes", "curch", "こう"}) {
    EXPECT_EQ(command({"look", "--json", word}).run().out, command({"look", "--json", word}).run().out);
  }
}

}  // namespace
}  // namespace zavel::host
