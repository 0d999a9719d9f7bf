// Tests: tests/zavel/user/UserJsonTest.cpp
#include "user/UserJson.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <utility>

#include "user/UserView.h"

namespace zavel::host {
namespace {

using Json = nlohmann::json;

constexpr const char* kBlanks = " \t\r\n";

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

// What a parser's complaint says behind the place, without the text that led there.
std::string reasonIn(const std::string& complaint) {
  const size_t dash = complaint.find(" - "), start = dash == std::string::npos ? 0 : dash + 3;
  return complaint.substr(start, complaint.find("; last read:", start) - start);
}

// The complaint and the byte, counted from 1, at which a text stops being JSON; 0 for JSON.
size_t findFault(std::string_view text, std::string* complaint) try {
  return Json::parse(text).is_discarded() ? 1 : 0;
} catch (const Json::exception& error) {
  *complaint = reasonIn(error.what());
  const auto* const parse = dynamic_cast<const Json::parse_error*>(&error);
  return parse ? std::clamp<size_t>(parse->byte, 1, text.size() + 1) : 1;
}

std::string damageOf(const Json& document) {
  const auto damage = document.find("damage");
  if (damage == document.end()) return {};
  const bool told = damage->is_object() && damage->contains("message") && (*damage)["message"].is_string();
  return told ? (*damage)["message"].get<std::string>() : "they were damaged";
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
  if (json.is_discarded()) return {{}, "it is no JSON: " + jsonFault(object)};
  return entryOf(json, language);
}

bool readJsonDocument(std::string_view text, const UserLanguage* language, std::vector<JsonEntry>* entries,
                      std::string* damage) {
  const Json json = Json::parse(text, nullptr, false);
  const Json* list = &json;
  if (json.is_object()) {
    const auto found = json.find("entries");
    if (found == json.end()) {
      entries->push_back(entryOf(json, language));
      return json.contains("word");
    }
    list = &*found;
    *damage = damageOf(json);
  }
  if (!list->is_array()) return false;
  for (const Json& object : *list) entries->push_back(entryOf(object, language));
  return true;
}

bool isJsonDocument(std::string_view text) {
  if (Json::accept(text)) return true;
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return false;
  if (text[first] == '[') return true;
  const size_t end = text.find('\n', first);
  const size_t next = text.find_first_not_of(kBlanks, end);
  if (next == std::string_view::npos || Json::accept(text.substr(next, text.find('\n', next) - next)))
    return false;
  const std::string_view line = text.substr(first, end - first);
  std::string complaint;
  return findFault(line, &complaint) > line.find_last_not_of(kBlanks) + 1;
}

std::string jsonFault(std::string_view text) {
  std::string complaint;
  const size_t byte = findFault(text, &complaint);
  if (byte == 0) return {};
  const std::string_view ahead = text.substr(0, byte - 1);
  const auto isFirst = [](char c) { return (static_cast<uint8_t>(c) & 0xC0) != 0x80; };
  const size_t start = ahead.rfind('\n') + 1;
  const auto line = std::count(ahead.begin(), ahead.end(), '\n') + 1;
  const auto column =
      std::count_if(ahead.begin() + static_cast<std::ptrdiff_t>(start), ahead.end(), isFirst) + 1;
  const bool oneLine = text.find('\n') == std::string_view::npos;
  return (oneLine ? "" : "line " + std::to_string(line) + ", ") + "column " + std::to_string(column) + ": " +
         complaint;
}

}  // namespace zavel::host
