// Tests: tests/zavel/EntryTextTest.cpp
#include "EntryText.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "Utf8.h"

namespace zavel::host {
namespace {

uint32_t colourOf(const ScrpSTElement& run) {
  const auto& c = run.scrpColor;
  return (static_cast<uint32_t>(c.red >> 8) << 16) | (static_cast<uint32_t>(c.green >> 8) << 8) |
         static_cast<uint32_t>(c.blue >> 8);
}

bool isLineStart(const std::string& text, size_t at) {
  return at == 0 || text[at - 1] == '\r';
}

// Where entries begin: a run in the headword colour at the start of a line.
std::vector<size_t> entryStarts(const std::string& text, const std::vector<ScrpSTElement>& runs,
                                uint32_t headwordColour) {
  std::vector<size_t> starts;
  for (const ScrpSTElement& run : runs) {
    const size_t at = static_cast<size_t>(run.scrpStartChar);
    if (colourOf(run) != headwordColour || at >= text.size() || !isLineStart(text, at)) continue;
    if (starts.empty() || starts.back() < at) starts.push_back(at);
  }
  if (starts.empty() || text.find_first_not_of("\r ") < starts.front()) starts.insert(starts.begin(), 0);
  return starts;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Reads frequency marks and "(number)" ahead of a headword; both stand in the text as the dictionary has
// them, and are shown in the host's own way. The result is where the word begins.
size_t readMarks(const std::string& text, size_t at, Entry* entry) {
  size_t stars = 0;
  while (at + stars < text.size() && text[at + stars] == '*') ++stars;
  if (stars == 2 || stars == 3) {
    entry->stars = static_cast<int>(stars);
    at += stars;
  }
  if (at >= text.size() || text[at] != '(') return at;
  size_t end = at + 1;
  while (end < text.size() && isDigit(text[end]) && end - at <= 2) ++end;
  if (end == at + 1 || end >= text.size() || text[end] != ')') return at;
  entry->homograph = std::stoi(text.substr(at + 1, end - at - 1));
  return end + 1;
}

Span spanOf(size_t begin, const ScrpSTElement& run) {
  return {begin, (run.scrpFace & 1) != 0, (run.scrpFace & 2) != 0, colourOf(run)};
}

// UTF-8 for the eye; what would steer a terminal stays out, whatever a damaged dictionary holds.
std::string shown(std::string sjis, const TextEncoding& encoding) {
  std::replace(sjis.begin(), sjis.end(), '\r', '\n');
  return withoutControls(encoding.fromSjisLossy(sjis));
}

// Converts text[begin, end) piece by piece, a span for each stretch between two runs.
void convert(const std::string& text, size_t begin, size_t end, const std::vector<ScrpSTElement>& runs,
             const TextEncoding& encoding, Entry* entry) {
  size_t at = begin;
  // Runs rise, and the last one at `begin` or ahead of it holds there. A text may have as many entries as
  // runs.
  auto run = std::partition_point(runs.begin(), runs.end(), [begin](const ScrpSTElement& element) {
    return static_cast<size_t>(element.scrpStartChar) <= begin;
  });
  Span current = run == runs.begin() ? Span{0, false, false, 0} : spanOf(0, *std::prev(run));
  for (; run != runs.end(); ++run) {
    const size_t start = static_cast<size_t>(run->scrpStartChar);
    if (start >= end) break;
    if (start > at) {
      entry->spans.push_back(current);
      entry->text += shown(text.substr(at, start - at), encoding);
      at = start;
    }
    current = spanOf(entry->text.size(), *run);
  }
  entry->spans.push_back(current);
  entry->text += shown(text.substr(at, end - at), encoding);
}

void trimEnd(Entry* entry) {
  std::string& text = entry->text;
  text.erase(text.find_last_not_of("\n ") + 1);
  while (entry->spans.size() > 1 && entry->spans.back().begin >= text.size()) entry->spans.pop_back();
}

std::string_view trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(" \r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \r\n") - first + 1);
}

// Records repeat the headword of an entry in each of its lines. A damaged dictionary can make one of the
// whole entry, and then the records grow with its square; the longest true ones have some hundred bytes.
constexpr size_t kMostHeadwordBytes = 2048;

std::string_view headwordLine(const std::string& text) {
  return beginning(trimmed(std::string_view(text).substr(0, text.find('\n'))), kMostHeadwordBytes);
}

// "reading written-form" of a Japanese entry: readings hold no blank.
void readHeadword(bool hasHeadword, Entry* entry) {
  if (!hasHeadword) return;
  const std::string_view line = headwordLine(entry->text);
  entry->headword = line;
  const size_t blank = line.find(' ');
  const bool japanese = !line.empty() && static_cast<unsigned char>(line[0]) >= 0x80;
  if (!japanese || blank == std::string_view::npos) return;
  entry->reading = line.substr(0, blank);
  entry->headword = trimmed(line.substr(blank));
}

}  // namespace

std::vector<Entry> entriesFromLayout(const std::string& text, const std::vector<ScrpSTElement>& runs,
                                     uint32_t headwordColour, const TextEncoding& encoding, bool whole) {
  std::vector<Entry> entries;
  if (text.find_first_not_of("\r\n ") == std::string::npos) return entries;
  const bool headwords = std::any_of(
      runs.begin(), runs.end(), [&](const ScrpSTElement& run) { return colourOf(run) == headwordColour; });
  const std::vector<size_t> starts = entryStarts(text, runs, headwordColour);
  for (size_t i = 0; i < starts.size(); ++i) {
    const size_t end = i + 1 < starts.size() ? starts[i + 1] : text.size();
    Entry entry;
    const size_t begin = headwords ? readMarks(text, starts[i], &entry) : starts[i];
    convert(text, begin, whole ? end : std::min(text.find('\r', begin), end), runs, encoding, &entry);
    trimEnd(&entry);
    readHeadword(headwords, &entry);
    if (!entry.text.empty()) entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace zavel::host
