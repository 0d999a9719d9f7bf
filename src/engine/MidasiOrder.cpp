// Tests: tests/engine/MidasiOrderTest.cpp
#include "engine/MidasiOrder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/ByteWords.h"
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

// What a byte of a line is to the order of words: its letter in capitals, or one of these.
constexpr uint8_t kNoLetter = 0;
constexpr uint8_t kWordEnd = 1;  // below every letter

constexpr std::array<uint8_t, 256> MakeLetters() {
  std::array<uint8_t, 256> letters{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    if (_isalpha(byte)) letters[byte] = static_cast<uint8_t>(byte & ~0x20u);
  }
  letters[','] = letters['['] = kWordEnd;
  return letters;
}
constexpr std::array<uint8_t, 256> kLetters = MakeLetters();

// Bytes that both lines begin with and that don't end the word: neighbours in a list share much.
size_t SharedStart(std::string_view a, std::string_view b) {
  const size_t shorter = std::min(a.size(), b.size());
  size_t at = 0;
  for (; shorter - at >= sizeof(ByteWord); at += sizeof(ByteWord)) {
    const ByteWord word = WordAt(a.data() + at);
    if (word != WordAt(b.data() + at) || Holds(word, ',') || Holds(word, '[')) break;
  }
  while (at < shorter && a[at] == b[at] && a[at] != ',' && a[at] != '[') ++at;
  return at;
}

// Compares what WordFilter would leave of the lines, without case.
int CompareWordsE(std::string_view a, std::string_view b) {
  const auto letterAt = [](std::string_view line, size_t at) {
    return at < line.size() ? kLetters[static_cast<uint8_t>(line[at])] : kWordEnd;
  };
  for (size_t i = SharedStart(a, b), j = i;;) {
    const uint8_t x = letterAt(a, i);
    const uint8_t y = letterAt(b, j);
    if (x == y) {
      if (x == kWordEnd) return 0;
      ++i;
      ++j;
    } else if (x == kNoLetter) {
      ++i;
    } else if (y == kNoLetter) {
      ++j;
    } else {
      return x - y;
    }
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
