// Tests: tests/zavel/user/UserFormTest.cpp
#include "user/UserForm.h"

#include <algorithm>
#include <map>

#include "Utf8.h"
#include "user/UserTable.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

constexpr const char* kRules =
    "# A field a line. Lines that begin with # are passed over. Save and leave to store the entry; leave it\n"
    "# unchanged to store nothing. An example is ENGLISH=JAPANESE, each on a line of its own; a backslash "
    "stands\n"
    "# ahead of =, | and backslashes in its texts.\n";

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// An empty text of a plain field empties it.
std::string takeField(const std::string& name, std::string_view text, UserEntry* entry) {
  const bool english = entry->language == UserLanguage::kEnglish;
  std::map<std::string, std::string*> plain = {{"word", &entry->word}, {"meaning", &entry->meaning}};
  if (english) plain["phrase"] = &entry->phrase;
  if (!english) plain["kanji"] = &entry->kanji;
  if (const auto field = plain.find(name); field != plain.end()) {
    *field->second = text;
    return {};
  }
  if (english && name == "pos") {
    entry->pos = posOf(text);
    return entry->pos > 0 || text.empty() ? std::string() : "pos: it is one of " + posNames();
  }
  if (name != "example" && (english || name != "sentence")) {
    return "there is no field \"" + printable(name) + "\"";
  }
  UserExample example;
  if (!readExample(text, &example)) return name + ": it is ENGLISH=JAPANESE";
  (name == "example" ? entry->examples : entry->sentences).push_back(example);
  return {};
}

}  // namespace

std::string formOf(const UserEntry& entry) {
  std::string text = kRules;
  const bool english = entry.language == UserLanguage::kEnglish;
  if (english) text += "# pos: " + posNames() + "; none where there is a phrase\n";
  text += "word: " + entry.word + "\n";
  if (english) {
    text += std::string("pos: ") + posName(entry.pos) + "\nphrase: " + entry.phrase + "\n";
  } else {
    text += "kanji: " + entry.kanji + "\n";
  }
  text += "meaning: " + entry.meaning + "\n";
  for (const UserExample& example : entry.examples) text += "example: " + exampleText(example) + "\n";
  for (const UserExample& example : entry.sentences) text += "sentence: " + exampleText(example) + "\n";
  return text;
}

std::string readForm(std::string_view text, UserLanguage language, UserEntry* entry) {
  *entry = {};
  entry->language = language;
  for (size_t number = 1; !text.empty(); ++number) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty() || line[0] == '#') continue;
    const size_t colon = line.find(':');
    const std::string at = "line " + std::to_string(number) + ": ";
    if (colon == std::string_view::npos) return at + "it is FIELD: TEXT";
    const std::string_view value = trimmed(line.substr(colon + 1));
    const std::string name(trimmed(line.substr(0, colon)));
    const bool list = name == "example" || name == "sentence";
    const std::string wrong = list && value.empty() ? std::string() : takeField(name, value, entry);
    if (!wrong.empty()) return at + wrong;
  }
  return settleEntry(entry);
}

std::string setField(std::string_view setting, UserEntry* entry) {
  const size_t equals = setting.find('=');
  if (equals == std::string_view::npos) return "--set \"" + printable(setting) + "\": it is FIELD=TEXT";
  const std::string name(setting.substr(0, equals));
  const std::string_view value = setting.substr(equals + 1);
  const bool english = entry->language == UserLanguage::kEnglish;
  if (value.empty() && (name == "example" || (!english && name == "sentence"))) {
    (name == "example" ? entry->examples : entry->sentences).clear();
    return {};
  }
  // A phrase has no part of speech: setting the one takes the other away.
  if (english && name == "phrase" && !value.empty()) entry->pos = 0;
  if (english && name == "pos" && !value.empty()) entry->phrase.clear();
  return takeField(name, value, entry);
}

}  // namespace zavel::host
