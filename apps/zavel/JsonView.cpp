// Tests: tests/zavel/JsonViewTest.cpp
#include "JsonView.h"

#include <algorithm>
#include <map>

#include "Dictionaries.h"
#include "JsonWriter.h"
#include "TranslationLines.h"

namespace zavel::host {
namespace {

constexpr const char* kOwnName = "Your entries";

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

void writeEntry(JsonWriter& json, const Entry& entry, const std::string& dictionary) {
  json.beginObject().member("headword", entry.headword);
  textOrNull(json, "reading", entry.reading);
  if (entry.homograph > 0) {
    json.member("homograph", entry.homograph);
  } else {
    json.key("homograph").null();
  }
  json.member("stars", entry.stars).member("match", matchName(entry.match)).strings("via", entry.via);
  json.key("source").beginObject().member("id", entry.user ? "user" : "builtin");
  json.member("name", entry.user ? kOwnName : dictionary).endObject();
  if (entry.user) json.key("user").boolean(true);
  json.key("senses").beginArray();
  for (const Sense& sense : entry.senses) writeSense(json, sense);
  json.endArray().endObject();
}

void writeHeadwords(JsonWriter& json, const LookResult& result, size_t limit) {
  json.key("headwords").beginArray();
  const size_t count = shown(result.headwords.size(), limit);
  for (size_t i = 0; i < count; ++i) {
    const Headword& headword = result.headwords[i];
    json.beginObject().member("word", headword.keyword).member("line", headword.line);
    if (headword.user) json.key("user").boolean(true);
    json.endObject();
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

using Names = std::map<RowKind, std::string>;

void writeRow(JsonWriter& json, const Row& row, size_t number, const std::string& name, size_t limit) {
  json.beginObject().member("number", static_cast<int64_t>(number)).member("type", kindName(row.kind));
  json.member("dictionary", name).member("title", row.title).key("shown").boolean(row.shown);
  textOrNull(json, "looked_up", row.lookedUp);
  textOrNull(json, "text",
             row.kind == RowKind::kBilingual ? row.text : firstEntries(row.text, row.title, limit));
  json.endObject();
}

// The limit is for the bilingual dictionary's rows, which may be hundreds; what is shown stays.
void writeRows(JsonWriter& json, const LookResult& result, const Names& names, size_t limit) {
  json.key("rows").beginArray();
  size_t bilingual = 0;
  for (size_t i = 0; i < result.rows.size(); ++i) {
    const Row& row = result.rows[i];
    const bool within = row.kind != RowKind::kBilingual || limit == 0 || ++bilingual <= limit;
    if (within || row.shown) writeRow(json, row, i + 1, names.at(row.kind), limit);
  }
  json.endArray();
}

const char* statusOf(const LookResult& result, RowKind kind) {
  if (result.failures.count(kind) > 0) return "failed";
  const bool entries = std::any_of(result.entries.begin(), result.entries.end(),
                                   [](const Entry& entry) { return !entry.user; });
  const bool found = kind == RowKind::kBilingual ? entries : result.hasAnswer(kind);
  if (found) return "found";
  if (kind == RowKind::kBilingual && !result.unknown.empty()) return "not_asked";
  return kind == RowKind::kTranslation && result.translationUnasked ? "not_asked" : "not_found";
}

void writeError(JsonWriter& json, const Failure& failure) {
  json.key("error").beginObject().member("code", failure.code).member("message", failure.message);
  json.member("hint", failure.hint).endObject();
}

// The user's own entries stand ahead of all dictionaries.
void writeOwn(JsonWriter& json, const LookResult& result) {
  if (!result.ownAsked) return;
  const bool found = std::any_of(result.entries.begin(), result.entries.end(),
                                 [](const Entry& entry) { return entry.user; });
  json.beginObject().member("type", "user").member("name", kOwnName);
  json.member("status", result.ownFailure ? "failed" : found ? "found" : "not_found");
  if (result.ownFailure) {
    writeError(json, result.ownFailure);
  } else {
    json.key("error").null();
  }
  json.endObject();
}

void writeDictionaries(JsonWriter& json, const LookResult& result, const Names& names) {
  json.key("dictionaries").beginArray();
  writeOwn(json, result);
  for (const RowKind kind : result.kinds) {
    json.beginObject().member("type", kindName(kind)).member("name", names.at(kind));
    json.member("status", statusOf(result, kind));
    const auto failure = result.failures.find(kind);
    if (failure == result.failures.end()) {
      json.key("error").null();
    } else {
      writeError(json, failure->second);
    }
    json.endObject();
  }
  json.endArray();
}

bool hasAnswer(const LookResult& result, const JsonParts& parts) {
  const bool hasRow = parts.row > 0 && parts.row <= result.rows.size();
  return (parts.entries && (hasRow ? !result.rows[parts.row - 1].text.empty() : result.found())) ||
         (parts.headwords && !result.headwords.empty()) || (parts.forms && !result.forms.empty());
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
  textOrNull(json, "unknown", result.unknown);
  Names names;
  for (const RowKind kind : {RowKind::kBilingual, RowKind::kTranslation}) {
    if (parts.entries) names[kind] = dictionaryName(kind);
  }
  if (parts.entries) {
    json.key("entries").beginArray();
    const size_t count = shown(result.entries.size(), parts.limit);
    for (size_t i = 0; i < count; ++i) writeEntry(json, result.entries[i], names[RowKind::kBilingual]);
    json.endArray();
  }
  if (parts.headwords) writeHeadwords(json, result, parts.limit);
  if (parts.forms) writeForms(json, result);
  const auto begin = result.suggestions.begin();
  json.strings("suggestions",
               {begin, begin + static_cast<std::ptrdiff_t>(shown(result.suggestions.size(), parts.limit))});
  if (parts.entries) {
    writeRows(json, result, names, parts.limit);
    writeDictionaries(json, result, names);
  }
  json.endObject();
  return json.text();
}

}  // namespace zavel::host
