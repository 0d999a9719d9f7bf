#include "JsonWriter.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

TEST(JsonWriter, KeepsTheOrderOfItsKeys) {
  JsonWriter json;
  json.beginObject().member("b", 1).member("a", "x").key("list").beginArray();
  json.integer(1).integer(2).beginObject().endObject().endArray();
  json.key("none").null().key("yes").boolean(true).endObject();
  EXPECT_EQ(json.text(), R"({"b":1,"a":"x","list":[1,2,{}],"none":null,"yes":true})");
}

TEST(JsonWriter, EscapesWhatJsonCannotHold) {
  JsonWriter json;
  json.string(std::string_view("\"\\\n\t\x01\x00行", 9));
  EXPECT_EQ(json.text(), "\"\\\"\\\\\\n\\t\\u0001\\u0000行\"");
}

TEST(JsonWriter, ReplacesWhatIsNotUtf8) {
  JsonWriter json;
  json.string("a\xFF");
  EXPECT_EQ(json.text(), "\"a\xEF\xBF\xBD\"");
}

TEST(JsonWriter, WritesEmptyLists) {
  JsonWriter json;
  json.beginObject().strings("via", {}).strings("pos", {"n", "v"}).endObject();
  EXPECT_EQ(json.text(), R"({"via":[],"pos":["n","v"]})");
}

}  // namespace
}  // namespace zavel::host
