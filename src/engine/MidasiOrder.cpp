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

// What display order compares behind the word: the end of the line.
std::string_view GlossOf(std::string_view line) {
  const size_t bracket = line.find(kBracket);
  return bracket == std::string_view::npos ? std::string_view() : line.substr(bracket + kBracket.size());
}

// Gives what WordFilter would leave of a line, letter by letter and in capitals; 0 at its end.
class Letters {
 public:
  explicit Letters(std::string_view line) : at_(line.data()), end_(line.data() + line.size()) {}

  char next() {
    while (at_ != end_ && *at_ != ',' && *at_ != '[') {
      const char c = *at_++;
      if (_isalpha(static_cast<unsigned char>(c))) return static_cast<char>(c & ~0x20);
    }
    return '\0';
  }

 private:
  const char* at_;
  const char* end_;
};

int CompareWordsE(std::string_view a, std::string_view b) {
  Letters left(a);
  Letters right(b);
  for (;;) {
    const char x = left.next();
    const char y = right.next();
    if (x != y || x == '\0') return x - y;
  }
}

int CompareWordsJ(std::string_view a, std::string_view b) {
  return WordFilterJ(a).compare(WordFilterJ(b));
}

using CompareWords = int (*)(std::string_view a, std::string_view b);

int CompareLines(CompareWords compare, std::string_view a, std::string_view b) {
  const int words = compare(a, b);
  return words != 0 ? words : GlossOf(a).compare(GlossOf(b));
}

// In display order, lines that it can't tell apart by their bytes; a line that stands twice once. The lines
// come in the order of the index, which is nearly this order, so most of them stay where they are.
void SortMidasi(CompareWords compare, MidasiLines* lines) {
  const auto before = [compare](std::string_view a, std::string_view b) {
    const int order = CompareLines(compare, a, b);
    return order != 0 ? order < 0 : a < b;
  };
  auto end = lines->begin();  // of the sorted ones
  for (const std::string_view line : *lines) {
    const auto begin = lines->begin();
    auto place = end;
    if (end != begin && !before(*std::prev(end), line)) {
      place = std::partition_point(begin, end, [&](std::string_view other) { return before(other, line); });
      if (*place == line) continue;
      std::move_backward(place, end, std::next(end));
    }
    *place = line;
    ++end;
  }
  lines->erase(end, lines->end());
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
  return CompareLines(CompareWordsE, a, b);
}

int compare_NJ(std::string_view a, std::string_view b) {
  return CompareLines(CompareWordsJ, a, b);
}

void SortMidasiE(MidasiLines* lines) {
  SortMidasi(CompareWordsE, lines);
}

void SortMidasiJ(MidasiLines* lines) {
  SortMidasi(CompareWordsJ, lines);
}

MidasiLines IncludingUser(const MidasiLines& kihon, const MidasiLines& user) {
  return Including(WordFilter, kihon, user);
}

MidasiLines IncludingUserJ(const MidasiLines& kihon, const MidasiLines& user) {
  return Including(WordFilterJ, kihon, user);
}

}  // namespace zavel::engine
