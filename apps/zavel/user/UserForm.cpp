// Tests: tests/zavel/user/UserFormTest.cpp
#include "user/UserForm.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "user/UserTable.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

bool isList(const UserEntry& entry, std::string_view name) {
  return name == "example" || (name == "sentence" && entry.language == UserLanguage::kJapanese);
}

std::vector<UserExample>& listOf(UserEntry* entry, std::string_view name) {
  return name == "example" ? entry->examples : entry->sentences;
}

std::string noField(const UserEntry& entry, std::string_view name) {
  const bool english = entry.language == UserLanguage::kEnglish;
  return "there is no field " + inQuotes(name) + ": " +
         (english ? "an English entry has word, pos, phrase, meaning, example"
                  : "a Japanese entry has word, kanji, meaning, example, sentence");
}

// An empty text of a plain field empties it.
std::string takeField(const std::string& name, std::string_view text, UserEntry* entry) {
  const bool english = entry->language == UserLanguage::kEnglish;
  if (isList(*entry, name)) {
    UserExample example;
    if (!readExample(text, &example)) return name + ": " + inQuotes(text) + " is not ENGLISH=JAPANESE";
    listOf(entry, name).push_back(example);
    return {};
  }
  if (english && name == "pos") {
    entry->pos = posOf(text);
    if (entry->pos > 0 || text.empty()) return {};
    return "pos: " + inQuotes(text) + " is none; it is one of " + posNames();
  }
  const std::map<std::string_view, std::string*> plain = {
      {"word", &entry->word},
      {"meaning", &entry->meaning},
      english ? std::pair{"phrase", &entry->phrase} : std::pair{"kanji", &entry->kanji}};
  const auto field = plain.find(name);
  if (field == plain.end()) return noField(*entry, name);
  *field->second = text;
  return {};
}

// One line of a form; *lines has where each field stands.
std::string takeLine(std::string_view line, size_t number, std::map<std::string, size_t>* lines,
                     UserEntry* entry) {
  const size_t colon = line.find(':');
  if (colon == std::string_view::npos) return "it is FIELD: TEXT";
  const std::string name(trimmed(line.substr(0, colon)));
  const std::string_view value = trimmed(line.substr(colon + 1));
  if (isList(*entry, name) && value.empty()) return {};
  const auto [first, isNew] = lines->emplace(name, number);
  if (!isNew && !isList(*entry, name)) {
    return inQuotes(name) + " stands in line " + std::to_string(first->second) + " already";
  }
  return takeField(name, value, entry);
}

std::string takeSetting(std::string_view setting, std::set<std::string>* names, UserEntry* entry) {
  const size_t equals = setting.find('=');
  if (equals == std::string_view::npos) {
    return "--set " + inQuotes(setting) + ": it is FIELD=TEXT, as in --set meaning=TEXT";
  }
  const std::string name(setting.substr(0, equals));
  const std::string_view value = setting.substr(equals + 1);
  if (isList(*entry, name) && value.empty()) {
    listOf(entry, name).clear();
    return {};
  }
  if (!isList(*entry, name) && !names->insert(name).second)
    return "--set: " + inQuotes(name) + " is given twice";
  const std::string wrong = takeField(name, value, entry);
  return wrong.empty() ? wrong : "--set: " + wrong;
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
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::map<std::string, size_t> lines;
  for (size_t number = 1; !text.empty(); ++number) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty() || line[0] == '#') continue;
    const std::string wrong = takeLine(line, number, &lines, entry);
    if (!wrong.empty()) return "line " + std::to_string(number) + ": " + wrong;
  }
  return settleEntry(entry);
}

std::string setFields(const std::vector<std::string>& settings, UserEntry* entry) {
  std::set<std::string> names;
  for (const std::string& setting : settings) {
    const std::string wrong = takeSetting(setting, &names, entry);
    if (!wrong.empty()) return wrong;
  }
  const bool both = entry->language == UserLanguage::kEnglish && entry->pos > 0 && !entry->phrase.empty();
  if (both && names.contains("pos")) {
    return "--set pos: a phrase has no part of speech; --set phrase= takes the phrase " +
           inQuotes(entry->phrase) + " away";
  }
  if (both && entry->pos > 1) {
    return std::string("--set phrase: a phrase has no part of speech; --set pos= takes the ") +
           posName(entry->pos) + " away";
  }
  if (both) entry->pos = 0;
  return settleEntry(entry);
}

}  // namespace zavel::host
