// Tests: tests/engine/MidasiOrderTest.cpp
#include "engine/MidasiOrder.h"

#include <algorithm>
#include <utility>

#include "engine/DicFormat.h"
#include "engine/Shim.h"

namespace zavel::engine {
namespace {

constexpr std::string_view kBracket = " [";
constexpr unsigned kDropped[] = {0x815B, 0x817C, 0x8163};  // ー － …

// What display order compares: word, then gloss.
using SortKey = std::pair<std::string, std::string>;

SortKey SortKeyE(std::string_view line) {
  std::string word = WordFilter(line);
  for (char& c : word) {
    if (c >= 'a') c = static_cast<char>(o_toupper(static_cast<unsigned char>(c)));
  }
  return {std::move(word), KaniFilter(line)};
}

SortKey SortKeyJ(std::string_view line) {
  return {WordFilterJ(line), KaniFilterJ(line)};
}

int CompareKeys(const SortKey& a, const SortKey& b) {
  const int words = a.first.compare(b.first);
  return words != 0 ? words : a.second.compare(b.second);
}

// A key is made once for each line, not at each comparison.
void SortMidasi(SortKey (*keyOf)(std::string_view line), MidasiLines* lines) {
  std::sort(lines->begin(), lines->end());
  lines->erase(std::unique(lines->begin(), lines->end()), lines->end());
  std::vector<std::pair<SortKey, std::string>> keyed;
  for (std::string& line : *lines) {
    SortKey key = keyOf(line);
    keyed.emplace_back(std::move(key), std::move(line));
  }
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](const auto& a, const auto& b) { return CompareKeys(a.first, b.first) < 0; });
  for (size_t i = 0; i < keyed.size(); ++i) (*lines)[i] = std::move(keyed[i].second);
}

MidasiLines Including(std::string (*wordOf)(std::string_view line), const MidasiLines& kihon,
                      const MidasiLines& user) {
  MidasiLines merged;
  auto k = kihon.begin();
  auto u = user.begin();
  while (merged.size() < kMaxRows && (k != kihon.end() || u != user.end())) {
    const bool takesUser = k == kihon.end() || (u != user.end() && wordOf(*k).compare(wordOf(*u)) > 0);
    merged.push_back(takesUser ? *u++ : *k++);
  }
  return merged;
}

}  // namespace

// kept: bytes, not characters, so the second byte of ー ends the word and that of ア is a letter
// (docs/quirks.md)
std::string WordFilter(std::string_view text) {
  std::string word;
  for (const char c : text.substr(0, text.find_first_of(",["))) {
    if (_isalpha(static_cast<unsigned char>(c))) word.push_back(c);
  }
  return word;
}

std::string WordFilterJ(std::string_view text) {
  std::string word;
  for (; text.size() >= 2 && !text.starts_with(kBracket); text.remove_prefix(2)) {
    const unsigned code = static_cast<unsigned char>(text[0]) * 256u + static_cast<unsigned char>(text[1]);
    const unsigned shown = _mbctohira(code);
    if (std::find(std::begin(kDropped), std::end(kDropped), shown) != std::end(kDropped)) continue;
    word.push_back(static_cast<char>(HIBYTE(shown)));
    word.push_back(static_cast<char>(LOBYTE(shown)));
  }
  return word;
}

std::string KaniFilter(std::string_view text) {
  const size_t bracket = text.find(kBracket);
  return bracket == std::string_view::npos ? "" : std::string(text.substr(bracket + kBracket.size()));
}

std::string KaniFilterJ(std::string_view text) {
  return KaniFilter(text);
}

int compare_ONLY(std::string_view a, std::string_view b) {
  return a.compare(b);
}

int compare_N(std::string_view a, std::string_view b) {
  return CompareKeys(SortKeyE(a), SortKeyE(b));
}

int compare_NJ(std::string_view a, std::string_view b) {
  return CompareKeys(SortKeyJ(a), SortKeyJ(b));
}

void SortMidasiE(MidasiLines* lines) {
  SortMidasi(SortKeyE, lines);
}

void SortMidasiJ(MidasiLines* lines) {
  SortMidasi(SortKeyJ, lines);
}

MidasiLines IncludingUser(const MidasiLines& kihon, const MidasiLines& user) {
  return Including(WordFilter, kihon, user);
}

MidasiLines IncludingUserJ(const MidasiLines& kihon, const MidasiLines& user) {
  return Including(WordFilterJ, kihon, user);
}

}  // namespace zavel::engine
