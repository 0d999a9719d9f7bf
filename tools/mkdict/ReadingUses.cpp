// Tests: tests/mkdict/ReadingUsesTest.cpp.
#include "mkdict/ReadingUses.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/Shim.h"
#include "mkdict/EntryCheck.h"

namespace zavel::mkdict {
namespace {

// Text is Shift_JIS of two bytes for each character: so is every word that is filed.
constexpr size_t kPair = 2;

bool isHiraganaAt(std::string_view text, size_t at) {
  return at + 1 < text.size() &&
         engine::_ismbchira(static_cast<uint8_t>(text[at]) << 8 | static_cast<uint8_t>(text[at + 1]));
}

// The end of the hiragana from `at` on.
size_t behindHiragana(std::string_view text, size_t at) {
  while (isHiraganaAt(text, at)) at += kPair;
  return at;
}

struct Word {
  std::string_view written, reading;
  size_t entry;
};

class Counting {
 public:
  explicit Counting(const std::vector<JapaneseEntry>& entries);

  std::vector<uint32_t> run(const std::vector<bool>& heard);

 private:
  // The words of one written form: [begin, end).
  struct Range {
    size_t begin, end;
  };
  void lookInto(const Word& longer);
  void lookAt(const Word& longer, size_t begin, size_t end);
  bool goesOn(std::string_view text, size_t begin, size_t end) const;

  std::vector<uint32_t> uses_;  // by entry
  std::vector<Word> words_;     // in the order of their written forms
  std::unordered_map<std::string_view, Range> byWritten_;
};

Counting::Counting(const std::vector<JapaneseEntry>& entries) : uses_(entries.size(), 0) {
  for (size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].kanji.empty()) continue;
    words_.push_back({entries[i].kanji, EntryCheck::kana(entries[i].text), i});
  }
  std::sort(words_.begin(), words_.end(), [](const Word& a, const Word& b) { return a.written < b.written; });
  for (size_t begin = 0, end; begin < words_.size(); begin = end) {
    for (end = begin + 1; end < words_.size() && words_[end].written == words_[begin].written;) ++end;
    byWritten_[words_[begin].written] = {begin, end};
  }
}

// Whether a part of a word is read so, as far as the kana around it tell.
bool readsSo(const Word& longer, size_t begin, size_t end, std::string_view reading) {
  const std::string_view text = longer.written;
  const size_t behind = behindHiragana(text, end);
  size_t before = begin;
  while (before > 0 && isHiraganaAt(text, before - kPair)) before -= kPair;
  std::string around(text.substr(before, begin - before));
  around += reading;
  around += text.substr(end, behind - end);
  if (before == 0 && behind == text.size()) return longer.reading == around;
  if (before == 0) return longer.reading.starts_with(around);
  if (behind == text.size()) return longer.reading.ends_with(around);
  return longer.reading.find(around) != std::string_view::npos;
}

// Whether it is the beginning of another word within the longer one, as 三 of 三つ.
bool Counting::goesOn(std::string_view text, size_t begin, size_t end) const {
  const size_t behind = behindHiragana(text, end);
  for (size_t further = end + kPair; further <= behind && further - begin < text.size(); further += kPair) {
    if (byWritten_.contains(text.substr(begin, further - begin))) return true;
  }
  return false;
}

void Counting::lookAt(const Word& longer, size_t begin, size_t end) {
  const std::string_view text = longer.written;
  const auto known = byWritten_.find(text.substr(begin, end - begin));
  if (known == byWritten_.end()) return;
  const auto [first, last] = known->second;
  if (last - first == 1 || goesOn(text, begin, end)) return;
  for (size_t i = first; i < last; ++i) {
    if (readsSo(longer, begin, end, words_[i].reading)) ++uses_[words_[i].entry];
  }
}

void Counting::lookInto(const Word& longer) {
  const std::string_view text = longer.written;
  for (size_t begin = 0; begin < text.size(); begin += kPair) {
    if (begin > 0 && !isHiraganaAt(text, begin - kPair)) continue;
    for (size_t end = begin + kPair; end <= text.size(); end += kPair) {
      const bool whole = end - begin == text.size();
      if (!whole && (end == text.size() || isHiraganaAt(text, end))) lookAt(longer, begin, end);
    }
  }
}

std::vector<uint32_t> Counting::run(const std::vector<bool>& heard) {
  for (const Word& word : words_) {
    if (heard[word.entry]) lookInto(word);
  }
  return std::move(uses_);
}

}  // namespace

std::vector<uint32_t> usesByThemselves(const std::vector<JapaneseEntry>& entries,
                                       const std::vector<bool>& heard) {
  return Counting(entries).run(heard);
}

}  // namespace zavel::mkdict
