// Tests: tests/translators/EntryLineTest.cpp
#include "dicttool/EntryLine.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "dicttool/WordFold.h"
#include "foundation/Utf8.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kLongest = 200;  // characters of a line: two or three rows of a window
constexpr size_t kCutBack = 20;   // characters given up to end a line between words
constexpr const char* kCut = "…";

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const size_t end = std::min(text.find(separator), text.size());
    if (end > 0) parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

std::string withoutControls(std::string text) {
  for (char& byte : text) {
    if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F) byte = ' ';
  }
  return text;
}

// Lines that hold something, without control characters.
std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  for (const std::string& line : split(text, '\n')) {
    std::string tidy = tidyQuery(withoutControls(line));
    if (!tidy.empty()) lines.push_back(std::move(tidy));
  }
  return lines;
}

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : " ") + part;
  return text;
}

bool isDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isSenseNumber(std::string_view token) {
  return token.size() < 4 && token.ends_with('.') && isDigits(token.substr(0, token.size() - 1));
}

// "[ichi1]", "[news2]": how frequent a spelling is.
bool isFrequencyMark(std::string_view token) {
  if (!token.starts_with('[') || !token.ends_with(']')) return false;
  const std::string_view inside = token.substr(1, token.size() - 2);
  const size_t digits = inside.find_first_not_of("abcdefghijklmnopqrstuvwxyz");
  return digits != 0 && digits != std::string_view::npos && isDigits(inside.substr(digits));
}

bool closesPronunciation(std::string_view token) {
  return token.ends_with('/') || token.ends_with("/,");
}

// Takes "/kæt/" and "//kat// /[kʰæt]/" out, also where there are blanks inside; as it was when one doesn't
// end. A comma behind one goes to the word in front of it.
std::vector<std::string> withoutPronunciations(const std::vector<std::string>& tokens) {
  std::vector<std::string> kept;
  bool inside = false;
  for (const std::string& token : tokens) {
    const bool opens = !inside && token.size() > 1 && token.starts_with('/');
    if (!inside && !opens) {
      kept.push_back(token);
      continue;
    }
    inside = !(closesPronunciation(token) && (inside || token.size() > 2));
    if (!inside && token.ends_with(',') && !kept.empty() && !kept.back().ends_with(',')) kept.back() += ',';
  }
  return inside ? tokens : kept;
}

// The first line of an entry that has more of them.
std::string headOf(const std::string& line) {
  std::vector<std::string> tokens = withoutPronunciations(split(line, ' '));
  std::erase_if(tokens, isFrequencyMark);
  for (std::string& token : tokens) {
    if (token.size() < 3 || !token.starts_with('<') || !token.ends_with('>')) continue;
    token = "(" + token.substr(1, token.size() - 2) + ")";  // a part of speech
  }
  return joined(tokens);
}

// Glosses of one line, each without the commas that a missing word left behind.
std::string bodyOf(const std::string& line) {
  std::vector<std::string> tokens = split(line, ' ');
  if (!tokens.empty() && isSenseNumber(tokens.back())) tokens.pop_back();
  std::erase(tokens, ",");
  std::string text = joined(tokens);
  while (text.ends_with(',')) text.pop_back();
  return text;
}

bool isParenthesis(std::string_view text) {
  return text.starts_with('(') && text.ends_with(')');
}

std::string wholeLine(const std::vector<std::string>& lines) {
  if (lines.size() == 1) return lines.front();
  std::string text = headOf(lines.front());
  bool first = true;
  std::string_view last;
  for (size_t i = 1; i < lines.size(); ++i) {
    const std::string body = bodyOf(lines[i]);
    if (body.empty()) continue;
    if (!text.empty()) text += first || isParenthesis(last) ? " " : "; ";
    text += body;
    last = isParenthesis(body) ? lines[i] : std::string_view();
    first = false;
  }
  return text;
}

bool names(const std::string& line, const std::string& word) {
  const FoldRules rules;
  const std::string folded = foldWord(withUsualLetters(line), rules);
  return folded.find(foldWord(withUsualLetters(word), rules)) != std::string::npos;
}

std::string cut(const std::string& text) {
  std::string_view rest = text;
  std::vector<size_t> places;  // where each character begins
  while (!rest.empty() && places.size() <= kLongest) {
    places.push_back(text.size() - rest.size());
    rest.remove_prefix(readUtf8(rest).length);
  }
  if (places.size() <= kLongest) return text;
  const size_t latest = places[kLongest - 1];  // one character for the mark
  const size_t blank = text.rfind(' ', latest);
  const bool between = blank != std::string::npos && blank >= places[kLongest - 1 - kCutBack];
  return text.substr(0, between ? blank : latest) + kCut;
}

}  // namespace

std::string entryLine(const DictdEntry& entry) {
  const std::vector<std::string> lines = linesOf(entry.text);
  if (lines.empty()) return "";
  std::string line = wholeLine(lines);
  const bool foundByTranslation = isAscii(entry.word) && static_cast<signed char>(lines.front()[0]) < 0;
  if (!foundByTranslation && !names(lines.front(), entry.word)) {
    line = tidyQuery(withoutControls(entry.word)) + ": " + line;
  }
  return cut(line);
}

}  // namespace zavel::dicttool
