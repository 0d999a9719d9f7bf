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

// What display order compares: word, then gloss, which is the end of the line itself.
struct SortKey {
  std::string word;
  std::string_view gloss;
};

std::string_view GlossOf(std::string_view line) {
  const size_t bracket = line.find(kBracket);
  return bracket == std::string_view::npos ? std::string_view() : line.substr(bracket + kBracket.size());
}

// WordFilter in capitals, in one pass.
SortKey SortKeyE(std::string_view line) {
  std::string word(std::min(line.size(), line.find('[')), '\0');
  size_t length = 0;
  for (size_t at = 0; at < word.size() && line[at] != ','; ++at) {
    const char c = line[at];
    if (_isalpha(static_cast<unsigned char>(c))) word[length++] = static_cast<char>(c & ~0x20);
  }
  word.resize(length);
  return {std::move(word), GlossOf(line)};
}

SortKey SortKeyJ(std::string_view line) {
  return {WordFilterJ(line), GlossOf(line)};
}

int CompareKeys(const SortKey& a, const SortKey& b) {
  const int words = a.word.compare(b.word);
  return words != 0 ? words : a.gloss.compare(b.gloss);
}

struct Keyed {
  SortKey key;
  std::string* line;  // borrowed
};

bool Before(const Keyed& a, const Keyed& b) {
  const int keys = CompareKeys(a.key, b.key);
  return keys != 0 ? keys < 0 : *a.line < *b.line;
}

// By key, lines of one key by their bytes; a line that stands twice once. The lines come in the order of
// the index, which is nearly this order, so that most of them go to the end.
void SortMidasi(SortKey (*keyOf)(std::string_view line), MidasiLines* lines) {
  if (lines->size() < 2) return;
  std::vector<Keyed> sorted;
  sorted.reserve(lines->size());
  for (std::string& line : *lines) {
    Keyed keyed{keyOf(line), &line};
    if (sorted.empty() || Before(sorted.back(), keyed)) {
      sorted.push_back(std::move(keyed));
      continue;
    }
    const auto place = std::partition_point(sorted.begin(), sorted.end(),
                                            [&](const Keyed& other) { return Before(other, keyed); });
    if (*place->line != line) sorted.insert(place, std::move(keyed));
  }
  MidasiLines ordered;
  ordered.reserve(sorted.size());
  for (const Keyed& keyed : sorted) ordered.push_back(std::move(*keyed.line));
  *lines = std::move(ordered);
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
  for (const char c : text) {
    if (c == ',' || c == '[') break;
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
  return std::string(GlossOf(text));
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
