// Tests: tests/lookup/ByteTextTest.cpp, tests/lookup/RandomWalksTest.cpp
//
// Both walks mean "find from the beginning, cut, find from the beginning again", and both give
// results of their own where a cut brings two halves of a mark together. Read literally they copy the rest
// of the text at each cut. Here the text is one buffer with a gap: [0, write) is settled, [read, size) is
// still to be looked at, and what a cut leaves on its left goes back to the right side as far as a mark
// could reach across.
#include "lookup/ByteText.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace zavel {
namespace {

// A longer `to` may breed new occurrences for ever ("ab" to "bbaa" in "aab"). It ends where the text has
// grown past what one round over it can give, and past any entry.
void replaceGrowing(std::string& text, std::string_view from, std::string_view to) {
  constexpr size_t kAnyEntry = 0x10000;
  const size_t limit = std::max(kAnyEntry, (text.size() / from.size() + 1) * to.size());
  size_t at = text.find(from);
  while (at != std::string::npos && text.size() < limit) {
    text.replace(at, from.size(), to);
    at = text.find(from, at - std::min(at, from.size() - 1));
  }
}

bool endsWith(const std::string& text, size_t end, std::string_view mark) {
  return end >= mark.size() && text[end - 1] == mark.back() &&
         text.compare(end - mark.size(), mark.size(), mark) == 0;
}

}  // namespace

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
  if (from.empty() || to.find(from) != std::string_view::npos) return;
  const size_t first = text.find(from);
  if (first == std::string::npos) return;
  if (to.size() > from.size()) return replaceGrowing(text, from, to);
  size_t write = first;
  size_t read = first;
  while (read < text.size()) {
    text[write++] = text[read++];
    if (!endsWith(text, write, from)) continue;
    write -= from.size();
    read -= to.size();  // the replacement is read like any other text
    to.copy(&text[read], to.size());
  }
  text.resize(write);
}

void removeRanges(std::string& text, std::string_view start, std::string_view end) {
  const size_t reach = std::max<size_t>(std::max(start.size(), end.size()), 1) - 1;
  size_t write = 0;
  size_t read = 0;
  for (;;) {
    const size_t from = text.find(start, read);
    const size_t to = from == std::string::npos ? from : text.find(end, read);
    if (to == std::string::npos) break;
    std::memmove(&text[write], &text[read], from - read);
    write += from - read;
    const size_t count = to < from ? text.size() - from : to - from + end.size();
    read = from + count;
    if (count == 0) break;  // two empty marks
    const size_t back = std::min(reach, write);
    write -= back;
    read -= back;
    std::memmove(&text[read], &text[write], back);
  }
  text.erase(write, read - write);
}

void removeBlanks(std::string& text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
}

void cutAtZero(std::string& text) {
  text.resize(std::min(text.size(), text.find('\0')));
}

}  // namespace zavel
