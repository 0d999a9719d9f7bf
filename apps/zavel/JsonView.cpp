// Tests: tests/zavel/JsonViewTest.cpp
#include "JsonView.h"

#include <algorithm>
#include <map>

#include "Dictionaries.h"
#include "JsonWriter.h"

namespace zavel::host {
namespace {

size_t shown(size_t count, size_t limit) {
  return limit > 0 ? std::min(count, limit) : count;
}

void textOrNull(JsonWriter& json, const char* key, const std::string& text) {
  if (text.empty()) {
    json.key(key).null();
  } else {
    json.member(key, text);
  }
}

void writeSense(JsonWriter& json, const Sense& sense) {
  json.beginObject().strings("pos", sense.pos).strings("glosses", sense.glosses);
  textOrNull(json, "note", sense.note);
  json.key("examples").beginArray();
  for (const Example& example : sense.examples) {
    json.beginObject().member("source", example.source).member("target", example.target).endObject();
  }
  json.endArray().endObject();
}

void writeEntry(JsonWriter& json, const Entry& entry) {
  json.beginObject().member("headword", entry.headword);
  textOrNull(json, "reading", entry.reading);
  if (entry.homograph > 0) {
    json.member("homograph", entry.homograph);
  } else {
    json.key("homograph").null();
  }
  json.member("stars", entry.stars).member("match", matchName(entry.match)).strings("via", entry.via);
  json.key("source")
      .beginObject()
      .member("id", "builtin")
      .member("name", "ZavelLex basic dictionary")
      .endObject();
  json.key("senses").beginArray();
  for (const Sense& sense : entry.senses) writeSense(json, sense);
  json.endArray().endObject();
}

void writeHeadwords(JsonWriter& json, const LookResult& result, size_t limit) {
  json.key("headwords").beginArray();
  const size_t count = shown(result.headwords.size(), limit);
  for (size_t i = 0; i < count; ++i) {
    const Headword& headword = result.headwords[i];
    json.beginObject().member("word", headword.keyword).member("line", headword.line).endObject();
  }
  json.endArray();
}

void writeForms(JsonWriter& json, const LookResult& result) {
  json.key("forms").beginArray();
  for (const Form& form : result.forms) {
    json.beginObject().member("code", form.code).member("form", form.form).member("label", form.label);
    json.member("base", form.base);
    json.endObject();
  }
  json.endArray();
}

void writeRows(JsonWriter& json, const LookResult& result, size_t limit) {
  std::map<RowKind, std::string> names;
  for (const RowKind kind : result.kinds) names[kind] = dictionaryName(kind);
  json.key("rows").beginArray();
  const size_t count = shown(result.rows.size(), limit);
  for (size_t i = 0; i < count; ++i) {
    const Row& row = result.rows[i];
    json.beginObject().member("type", kindName(row.kind)).member("dictionary", names[row.kind]);
    json.member("title", row.title).key("shown").boolean(row.shown);
    textOrNull(json, "text", row.text);
    json.endObject();
  }
  json.endArray();
}

bool hasAnswer(const LookResult& result, const JsonParts& parts) {
  return (parts.entries && result.found()) || (parts.headwords && !result.headwords.empty()) ||
         (parts.forms && !result.forms.empty());
}

}  // namespace

std::string resultJson(const LookResult& result, const JsonParts& parts) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("query", result.query);
  json.member("status", hasAnswer(result, parts) ? "found" : "not_found");
  if (result.origin != result.query) {
    json.member("origin", result.origin);
  } else {
    json.key("origin").null();
  }
  if (parts.entries) {
    json.key("entries").beginArray();
    const size_t count = shown(result.entries.size(), parts.limit);
    for (size_t i = 0; i < count; ++i) writeEntry(json, result.entries[i]);
    json.endArray();
  }
  if (parts.headwords) writeHeadwords(json, result, parts.limit);
  if (parts.forms) writeForms(json, result);
  const auto begin = result.suggestions.begin();
  json.strings("suggestions",
               {begin, begin + static_cast<std::ptrdiff_t>(shown(result.suggestions.size(), parts.limit))});
  if (parts.entries) writeRows(json, result, parts.limit);
  json.endObject();
  return json.text();
}

}  // namespace zavel::host
