// Tests: tests/zavel/user/UserJsonTest.cpp
#include "user/UserJson.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "user/UserView.h"

namespace zavel::host {
namespace {

using Json = nlohmann::json;

void textOrNull(JsonWriter& json, const char* key, const std::string& text) {
  if (text.empty()) {
    json.key(key).null();
  } else {
    json.member(key, text);
  }
}

void writeExamples(JsonWriter& json, const char* key, const std::vector<UserExample>& examples) {
  json.key(key).beginArray();
  for (const UserExample& example : examples) {
    json.beginObject().member("english", example.english).member("japanese", example.japanese).endObject();
  }
  json.endArray();
}

// Takes the text at `key`; an absent one and null are empty.
std::string takeText(const Json& object, const char* key, std::string* text) {
  const auto value = object.find(key);
  if (value == object.end() || value->is_null()) return {};
  if (!value->is_string()) return std::string(key) + ": it is no string";
  *text = value->get<std::string>();
  return {};
}

std::string takeExamples(const Json& object, const char* key, std::vector<UserExample>* examples) {
  const auto list = object.find(key);
  if (list == object.end() || list->is_null()) return {};
  if (!list->is_array()) return std::string(key) + ": it is no list";
  for (const Json& item : *list) {
    UserExample& example = examples->emplace_back();
    if (!item.is_object() || !takeText(item, "english", &example.english).empty() ||
        !takeText(item, "japanese", &example.japanese).empty()) {
      return std::string(key) + ": number " + std::to_string(examples->size()) +
             " is no object with the strings \"english\" and \"japanese\"";
    }
  }
  return {};
}

std::string takeLanguage(const Json& object, const UserLanguage* language, UserEntry* entry) {
  std::string code;
  if (std::string wrong = takeText(object, "lang", &code); !wrong.empty()) return wrong;
  const std::optional<UserLanguage> told = languageOf(code);
  if (!told && !code.empty()) return "lang: " + inQuotes(code) + " is neither en nor ja";
  entry->language = told ? *told : language ? *language : guessLanguage(entry->word);
  return {};
}

std::string takeEntry(const Json& object, const UserLanguage* language, UserEntry* entry) {
  if (!object.is_object()) return "it is no object";
  std::string pos, wrong;
  const std::pair<const char*, std::string*> texts[] = {{"word", &entry->word},
                                                        {"kanji", &entry->kanji},
                                                        {"pos", &pos},
                                                        {"phrase", &entry->phrase},
                                                        {"meaning", &entry->meaning}};
  for (const auto& [key, text] : texts) {
    if (wrong.empty()) wrong = takeText(object, key, text);
  }
  if (wrong.empty()) wrong = takeLanguage(object, language, entry);
  if (wrong.empty()) wrong = takeExamples(object, "examples", &entry->examples);
  if (wrong.empty()) wrong = takeExamples(object, "sentences", &entry->sentences);
  if (!wrong.empty()) return wrong;
  entry->pos = posOf(pos);
  if (entry->pos > 0 || pos.empty()) return {};
  return "pos: " + inQuotes(pos) + " is none; it is one of " + posNames();
}

JsonEntry entryOf(const Json& object, const UserLanguage* language) {
  JsonEntry read;
  read.wrong = takeEntry(object, language, &read.entry);
  return read;
}

}  // namespace

void writeEntry(JsonWriter& json, const UserEntry& entry, size_t number) {
  json.beginObject();
  if (number > 0) json.member("number", static_cast<int64_t>(number));
  json.member("lang", languageCode(entry.language)).member("word", entry.word);
  textOrNull(json, "kanji", entry.kanji);
  textOrNull(json, "pos", posName(entry.pos));
  textOrNull(json, "phrase", entry.phrase);
  json.member("meaning", entry.meaning);
  writeExamples(json, "examples", entry.examples);
  writeExamples(json, "sentences", entry.sentences);
  json.endObject();
}

JsonEntry readJsonEntry(std::string_view object, const UserLanguage* language) {
  const Json json = Json::parse(object, nullptr, false);
  if (json.is_discarded()) return {{}, "it is no JSON"};
  return entryOf(json, language);
}

bool readJsonDocument(std::string_view text, const UserLanguage* language, std::vector<JsonEntry>* entries) {
  const Json json = Json::parse(text, nullptr, false);
  const Json* list = &json;
  if (json.is_object()) {
    const auto found = json.find("entries");
    if (found == json.end()) {
      entries->push_back(entryOf(json, language));
      return json.contains("word");
    }
    list = &*found;
  }
  if (!list->is_array()) return false;
  for (const Json& object : *list) entries->push_back(entryOf(object, language));
  return true;
}

bool isJsonDocument(std::string_view text) {
  return Json::accept(text);
}

}  // namespace zavel::host
