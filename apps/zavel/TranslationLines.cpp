// Tests: tests/zavel/TranslationLinesTest.cpp
#include "TranslationLines.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <vector>

#include "QueryText.h"

namespace zavel::host {
namespace {

constexpr std::string_view kStar = "★";
constexpr std::string_view kDots = "…";
constexpr std::string_view kFormOf = ": form of ";

enum class LineKind { kBlank, kHeading, kBase, kEntry, kRest };

LineKind kindOf(std::string_view line, std::string_view word) {
  const size_t begin = line.find_first_not_of(' ');
  if (begin == std::string_view::npos) return LineKind::kBlank;
  if (begin == 0 && line.starts_with(kStar)) return LineKind::kHeading;
  line.remove_prefix(begin);
  if (line.starts_with(word) && line.substr(word.size()).starts_with(kFormOf)) return LineKind::kBase;
  return line.starts_with(kDots) ? LineKind::kRest : LineKind::kEntry;
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (size_t begin = 0; begin < text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

// For comparing: width and case don't count.
std::string comparable(std::string_view text) {
  std::string plain = plainCharacters(text);
  std::transform(plain.begin(), plain.end(), plain.begin(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80 ? static_cast<char>(std::tolower(c)) : c;
  });
  return plain;
}

// Signs between words leave their blanks.
std::string withSingleBlanks(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c != ' ' || (!out.empty() && out.back() != ' ')) out += c;
  }
  if (out.ends_with(' ')) out.pop_back();
  return out;
}

}  // namespace

std::string lookedUpAs(const std::string& word, const std::string& answer) {
  const std::string rest = withoutSigns(word);
  if (rest == word || answer.empty()) return {};
  const std::string asked = comparable(word);
  bool explained = false;
  for (const std::string_view line : linesOf(answer)) {
    const LineKind kind = kindOf(line, word);
    if (kind == LineKind::kHeading) explained = false;
    if (kind == LineKind::kBase) explained = true;
    if (kind != LineKind::kEntry || explained) continue;
    if (comparable(line).find(asked) == std::string::npos) return withSingleBlanks(rest);
  }
  return {};
}

std::string namedEntries(const std::string& answer) {
  if (answer.find(std::string(kStar) + "\n") == std::string::npos && !answer.ends_with(kStar)) return answer;
  std::string out;
  bool blank = false;
  for (const std::string_view line : linesOf(answer)) {
    const bool empty = line.find_first_not_of(' ') == std::string_view::npos;
    blank = blank || empty;
    if (line == kStar || empty) continue;
    if (!out.empty()) out += blank ? "\n\n" : "\n";
    out += line;
    blank = false;
  }
  return out;
}

std::string firstEntries(const std::string& answer, const std::string& word, size_t most) {
  if (most == 0) return answer;
  std::string out;
  size_t count = 0;
  for (const std::string_view line : linesOf(answer)) {
    const LineKind kind = kindOf(line, word);
    if (kind == LineKind::kHeading) count = 0;
    if (kind == LineKind::kEntry) ++count;
    const bool counts = kind == LineKind::kEntry || kind == LineKind::kRest;
    const bool cut = (counts && count > most) || (kind == LineKind::kBase && count >= most);
    if (!cut) out.append(out.empty() ? "" : "\n").append(line);
  }
  return out;
}

}  // namespace zavel::host
