// Tests: tests/translators/WordAnswerTest.cpp
#include "dicttool/WordAnswer.h"

#include <filesystem>

#include "dicttool/DictdDictionary.h"
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

}  // namespace

WordAnswer WordAnswer::of(const std::string& word, const std::vector<std::string>& indexes) {
  WordAnswer answer;
  for (const std::string& index : indexes) {
    DictdDictionary dictionary;
    DictdMatches matches;
    std::string error;
    if (!dictionary.open(index, &error) || !dictionary.find(word, kMostLines, &matches, &error)) {
      answer.complaints.push_back(error);
      continue;
    }
    ++answer.searched;
    std::vector<std::string> lines = linesOf(matches);
    if (!lines.empty()) answer.groups.push_back({index, std::move(lines)});
  }
  return answer;
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
  return Value::Dict{{"Search", search}, {"DictInfoJE", paths}};
}

}  // namespace zavel::dicttool
