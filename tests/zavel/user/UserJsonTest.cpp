#include "user/UserJson.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

constexpr const char* kDog =
    R"({"lang":"ja","word":"いぬ","kanji":"犬","pos":null,"phrase":null,"meaning":"dog",)"
    R"("examples":[],"sentences":[{"english":"A dog.","japanese":"犬。"}]})";

const UserEntry kDogEntry{.language = UserLanguage::kJapanese,
                          .word = "いぬ",
                          .kanji = "犬",
                          .meaning = "dog",
                          .sentences = {{"A dog.", "犬。"}}};

std::string wrongOf(const char* text) {
  return readJsonEntry(text, nullptr).wrong;
}

TEST(UserJsonTest, AnEntryIsWrittenAndReadBack) {
  JsonWriter json;
  writeEntry(json, kDogEntry);
  EXPECT_EQ(json.text(), kDog);
  const JsonEntry read = readJsonEntry(kDog, nullptr);
  EXPECT_EQ(read.wrong, "");
  EXPECT_EQ(read.entry, kDogEntry);
}

TEST(UserJsonTest, KeysMayBeAbsentAndOthersThere) {
  const JsonEntry read = readJsonEntry(R"({"word":"run","meaning":"走る","pos":"vi","x":1})", nullptr);
  EXPECT_EQ(read.wrong, "");
  EXPECT_EQ(read.entry, (UserEntry{.word = "run", .pos = 7, .meaning = "走る"}));
}

TEST(UserJsonTest, WhatIsNoEntrySaysWhy) {
  EXPECT_EQ(wrongOf("{"), "it is no JSON: column 2: unexpected end of input; expected string literal");
  EXPECT_EQ(wrongOf("\"\xFF\""), "it is no JSON: column 2: invalid string: ill-formed UTF-8 byte");
  EXPECT_EQ(wrongOf("1"), "it is no object");
  EXPECT_EQ(wrongOf(R"({"word":1})"), "word: it is no string");
  EXPECT_EQ(wrongOf(R"({"word":"a","lang":"fr"})"), "lang: \"fr\" is neither en nor ja");
  EXPECT_EQ(wrongOf(R"({"word":"a","examples":1})"), "examples: it is no list");
  EXPECT_EQ(wrongOf(R"({"word":"a","examples":[1]})"),
            "examples: number 1 is no object with the strings \"english\" and \"japanese\"");
  EXPECT_TRUE(
      wrongOf(R"({"word":"a","pos":"nown"})").starts_with("pos: \"nown\" is none; it is one of noun, "));
}

TEST(UserJsonTest, ADocumentIsAListOrHasOne) {
  std::vector<JsonEntry> entries;
  const std::string list = "[" + std::string(kDog) + "," + kDog + "]";
  std::string damage;
  EXPECT_TRUE(readJsonDocument(list, nullptr, &entries, &damage));
  EXPECT_EQ(entries.size(), 2u);
  EXPECT_TRUE(readJsonDocument("{\"entries\":" + list + "}", nullptr, &entries, &damage));
  EXPECT_EQ(entries.size(), 4u);
  EXPECT_TRUE(readJsonDocument(kDog, nullptr, &entries, &damage));
  EXPECT_EQ(entries.size(), 5u);
  EXPECT_FALSE(readJsonDocument("{\"entries\":1}", nullptr, &entries, &damage));
  EXPECT_EQ(damage, "");
  EXPECT_FALSE(readJsonDocument("3", nullptr, &entries, &damage));
  EXPECT_TRUE(isJsonDocument(kDog));
  EXPECT_FALSE(isJsonDocument(std::string(kDog) + "\n" + kDog));
}

TEST(UserJsonTest, FaultsHaveTheirPlaces) {
  EXPECT_EQ(jsonFault("[1,\n2]"), "");
  EXPECT_EQ(jsonFault("[1,]"), "column 4: unexpected ']'; expected '[', '{', or a literal");
  EXPECT_EQ(jsonFault("[\n\"犬\", x]"), "line 2, column 6: invalid literal");
  EXPECT_EQ(
      jsonFault("[\"; last read: ', \n'\",\n}"),
      "line 1, column 19: invalid string: control character U+000A (LF) must be escaped to \\u000A or \\n");
}

TEST(UserJsonTest, ABrokenDocumentIsStillOne) {
  for (const char* document : {"[", "[1,]", "{\n\"entries\":[", "{\"entries\":[\n{\"word\":\"a\"},\n{}]"}) {
    EXPECT_TRUE(isJsonDocument(document)) << document;
  }
  for (const char* lines : {"", "{", "{\"a\n{}", "{}\n{\n{}", "{x}\n{"}) {
    EXPECT_FALSE(isJsonDocument(lines)) << lines;
  }
}

TEST(UserJsonTest, DeepNestingIsNoDanger) {
  const std::string deep = "{\"word\":" + std::string(200000, '[') + std::string(200000, ']') + "}";
  EXPECT_EQ(wrongOf(deep.c_str()), "word: it is no string");
}

}  // namespace
}  // namespace zavel::host
