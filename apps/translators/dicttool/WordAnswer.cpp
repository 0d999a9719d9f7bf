// Tests: tests/translators/WordAnswerTest.cpp
#include "dicttool/WordAnswer.h"

#include <filesystem>
#include <optional>

#include "dicttool/DictdDictionary.h"
#include "dicttool/EnglishBases.h"
#include "dicttool/EntryLine.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kMostLines = 20;

// What whoever shows a Japanese answer puts in front of headings and lines.
constexpr const char* kHeading = "★";
constexpr const char* kIndent = "    ";

std::vector<std::string> linesOf(const DictdMatches& matches) {
  std::vector<std::string> lines;
  for (const DictdEntry& entry : matches.entries) {
    std::string line = entryLine(entry);
    if (!line.empty()) lines.push_back(std::move(line));
  }
  if (matches.more > 0) lines.push_back("… and " + std::to_string(matches.more) + " more");
  return lines;
}

std::string nameOf(const std::string& path) {
  return std::filesystem::path(path).stem().string();
}

std::string asText(const std::vector<AnswerGroup>& groups) {
  std::string text;
  for (const AnswerGroup& group : groups) {
    if (!text.empty()) text += "\n";
    text += kHeading + nameOf(group.dictionary) + "\n";
    for (const std::string& line : group.lines) text += kIndent + line + "\n";
  }
  return text;
}

// One dictionary in the course of a search.
struct Asked {
  std::string index;
  DictdDictionary dictionary;
  bool sound = true;
  bool holdsWord = false;
  std::optional<bool> ofNames;  // nothing while nobody asked
};

// The search of one word in all dictionaries.
class Search {
 public:
  Search(const std::string& word, const std::vector<std::string>& indexes);

  WordAnswer run();

 private:
  std::vector<std::string> find(Asked& asked, const std::string& word);
  bool isOfNames(Asked& asked);
  void giveUp(Asked& asked, const std::string& error);
  void lookUpBase();
  bool askForBases(const std::vector<std::string>& bases, bool ofWords, bool ofNames);

  std::string word_;
  std::vector<Asked> asked_;
  WordAnswer answer_;
};

Search::Search(const std::string& word, const std::vector<std::string>& indexes) : word_(word) {
  for (const std::string& index : indexes) {
    Asked asked;
    asked.index = index;
    std::string error;
    asked.sound = asked.dictionary.open(index, &error);
    if (!asked.sound) answer_.complaints.push_back(error);
    asked_.push_back(std::move(asked));
  }
}

// The lines for `word`; a dictionary that turns out to be damaged is named and not asked again.
std::vector<std::string> Search::find(Asked& asked, const std::string& word) {
  DictdMatches matches;
  std::string error;
  if (asked.dictionary.find(word, kMostLines, &matches, &error)) return linesOf(matches);
  giveUp(asked, error);
  return {};
}

bool Search::isOfNames(Asked& asked) {
  bool ofNames = false;
  std::string error;
  if (!asked.ofNames && !asked.dictionary.tellNames(&ofNames, &error)) giveUp(asked, error);
  if (!asked.ofNames) asked.ofNames = ofNames;
  return *asked.ofNames;
}

void Search::giveUp(Asked& asked, const std::string& error) {
  asked.sound = false;
  answer_.complaints.push_back(error);
}

WordAnswer Search::run() {
  for (Asked& asked : asked_) {
    if (!asked.sound) continue;
    std::vector<std::string> lines = find(asked, word_);
    asked.holdsWord = !lines.empty();
    if (asked.holdsWord) answer_.groups.push_back({asked.index, std::move(lines)});
  }
  lookUpBase();
  for (const Asked& asked : asked_) answer_.searched += asked.sound ? 1 : 0;
  return std::move(answer_);
}

// "goes" is a surname, too, but whoever writes it small asks for "go".
void Search::lookUpBase() {
  const bool anySmall = !word_.empty() && word_.front() >= 'a' && word_.front() <= 'z';
  for (Asked& asked : asked_) {
    if (asked.holdsWord && !(anySmall && isOfNames(asked))) return;
  }
  const bool held = !answer_.groups.empty();
  const std::vector<std::vector<std::string>> bases = englishBases(word_);
  for (const std::vector<std::string>& alternatives : bases) {
    if (askForBases(alternatives, true, !anySmall)) return;
  }
  for (const std::vector<std::string>& alternatives : bases) {
    if (!held && anySmall && askForBases(alternatives, false, true)) return;
  }
}

// Whether some dictionary of the kinds that are asked holds one of `bases`.
bool Search::askForBases(const std::vector<std::string>& bases, bool ofWords, bool ofNames) {
  bool found = false;
  for (Asked& asked : asked_) {
    if (!asked.sound || asked.holdsWord) continue;
    if (ofWords != ofNames && isOfNames(asked) != ofNames) continue;
    AnswerGroup group{asked.index, {}};
    for (const std::string& base : bases) {
      if (!asked.sound) break;
      const std::vector<std::string> lines = find(asked, base);
      if (lines.empty()) continue;
      group.lines.push_back(word_ + ": form of " + base);
      group.lines.insert(group.lines.end(), lines.begin(), lines.end());
    }
    if (group.lines.empty()) continue;
    answer_.groups.push_back(std::move(group));
    found = true;
  }
  return found;
}

}  // namespace

WordAnswer WordAnswer::of(const std::string& word, const std::vector<std::string>& indexes) {
  return Search(word, indexes).run();
}

Value WordAnswer::result(Direction form) const {
  Value::Array search;
  Value::Dict paths;
  int64_t number = 0;
  for (const AnswerGroup& group : groups) {
    paths[std::to_string(++number)] = group.dictionary;
    if (form == Direction::kEnglish) continue;
    search.emplace_back(number);
    for (const std::string& line : group.lines) search.emplace_back(line);
  }
  if (form == Direction::kEnglish && !groups.empty()) search.emplace_back(asText(groups));
  Value::Dict map{{"Search", search}, {"DictInfoJE", paths}};
  if (!complaints.empty()) map["Unsearched"] = Value::Array(complaints.begin(), complaints.end());
  return map;
}

}  // namespace zavel::dicttool
