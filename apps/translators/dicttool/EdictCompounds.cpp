// Sorted by their written forms, all words that begin with one stand behind it, so one walk over them sees
// each word with those that it begins with. For the ends all words are turned around, and the walk is the
// same. Tests: tests/translators/EdictCompoundsTest.cpp
#include "dicttool/EdictCompounds.h"

#include <algorithm>
#include <numeric>

namespace zavel::dicttool {
namespace {

constexpr size_t kMostOpen =
    512;  // far more than any word begins with; a file of one word alone ends in time, too

bool isLonger(std::string_view word, std::string_view beginning) {
  return word.size() > beginning.size() && word.starts_with(beginning);
}

}  // namespace

void EdictCompounds::add(std::string_view written, std::string_view reading) {
  if (reading.empty()) reading = written;
  entries_.push_back(
      {text_.size(), static_cast<uint32_t>(written.size()), static_cast<uint32_t>(reading.size())});
  text_.append(written).append(reading);
}

std::string_view EdictCompounds::writtenOf(const Entry& entry) const {
  return std::string_view(text_).substr(entry.offset, entry.written);
}

std::string_view EdictCompounds::readingOf(const Entry& entry) const {
  return std::string_view(text_).substr(entry.offset + entry.written, entry.reading);
}

void EdictCompounds::count() {
  countBeginnings();
  turnAround();
  countBeginnings();
  turnAround();
}

void EdictCompounds::countBeginnings() {
  std::vector<uint32_t> order(entries_.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [this](uint32_t one, uint32_t other) {
    return writtenOf(entries_[one]) < writtenOf(entries_[other]);
  });
  std::vector<Entry*> open;  // words that those at hand may begin with, shorter ones first
  for (const uint32_t number : order) {
    Entry& entry = entries_[number];
    while (!open.empty() && !writtenOf(entry).starts_with(writtenOf(*open.back()))) open.pop_back();
    for (Entry* shorter : open) {
      const bool compound =
          isLonger(writtenOf(entry), writtenOf(*shorter)) && isLonger(readingOf(entry), readingOf(*shorter));
      if (compound) ++shorter->compounds;
    }
    if (open.size() < kMostOpen) open.push_back(&entry);
  }
}

void EdictCompounds::turnAround() {
  for (const Entry& entry : entries_) {
    const auto written = text_.begin() + static_cast<std::ptrdiff_t>(entry.offset);
    const auto reading = written + entry.written;
    std::reverse(written, reading);
    std::reverse(reading, reading + entry.reading);
  }
}

}  // namespace zavel::dicttool
