// Tests: tests/ui/AttributedTextTest.cpp
#include "ui/AttributedText.h"

#include <algorithm>

#include "foundation/Utf8.h"

namespace zavel {
namespace {

// Units and bytes of the character that begins with `first`, in valid UTF-8.
size_t unitsAt(char first) {
  return static_cast<uint8_t>(first) >= 0xF0 ? 2 : 1;
}

size_t bytesAt(char first) {
  const uint8_t byte = static_cast<uint8_t>(first);
  if (byte < 0x80) return 1;
  if (byte < 0xE0) return 2;
  return byte < 0xF0 ? 3 : 4;
}

// Of valid UTF-8: each character counts by its first byte, and those outside the basic plane, alone four
// bytes long, count twice.
size_t unitsOfValid(std::string_view utf8) {
  size_t units = 0;
  for (const char c : utf8) {
    const uint8_t byte = static_cast<uint8_t>(c);
    units += (byte & 0xC0) != 0x80;
    units += byte >= 0xF0;
  }
  return units;
}

}  // namespace

size_t AttributedText::unitsOf(std::string_view utf8) {
  size_t units = 0;
  for (size_t at = 0; at < utf8.size();) {
    const Utf8Char character = readUtf8(utf8.substr(at));
    units += character.valid && character.code > 0xFFFF ? 2 : 1;
    at += character.length;
  }
  return units;
}

const TextStyle* AttributedText::styleAt(size_t position) const {
  return position < length_ ? &runs_[runAt(position)].style : nullptr;
}

TextRange AttributedText::clip(TextRange range) const {
  size_t start = std::min(range.start, length_);
  size_t end = start + std::min(range.length, length_ - start);
  byteOf(&start);
  byteOf(&end);
  return {start, end - start};
}

AttributedText::Bytes AttributedText::bytesOf(TextRange range) const {
  size_t start = std::min(range.start, length_);
  size_t end = start + std::min(range.length, length_ - start);
  return {byteOf(&start), byteOf(&end)};
}

std::string AttributedText::substring(TextRange range) const {
  const Bytes bytes = bytesOf(range);
  return text_.substr(bytes.first, bytes.last - bytes.first);
}

void AttributedText::append(std::string_view utf8, const TextStyle& style) {
  if (utf8.empty()) return;
  const size_t from = text_.size();
  if (isValidUtf8(utf8)) {
    text_ += utf8;
  } else {
    text_ += replaceInvalidUtf8(utf8);
  }
  const size_t units = unitsOfValid(std::string_view(text_).substr(from));
  if (!runs_.empty() && runs_.back().style == style) {
    runs_.back().range.length += units;
  } else {
    runs_.push_back({{length_, units}, style});
  }
  length_ += units;
}

void AttributedText::append(const AttributedText& other) {
  if (&other == this) return append(AttributedText(other));
  for (const Run& run : other.runs_) append(other.substring(run.range), run.style);
}

void AttributedText::replace(TextRange range, std::string_view utf8, const TextStyle& style) {
  const TextRange cut = clip(range);
  const Bytes bytes = bytesOf(cut);
  const std::string inserted = replaceInvalidUtf8(utf8);
  const size_t units = unitsOf(inserted);
  const size_t first = splitAt(cut.start);
  const size_t last = splitAt(cut.end());
  runs_.erase(runs_.begin() + static_cast<ptrdiff_t>(first), runs_.begin() + static_cast<ptrdiff_t>(last));
  for (size_t i = first; i < runs_.size(); ++i) runs_[i].range.start += units - cut.length;  // wraps rightly
  if (units > 0) runs_.insert(runs_.begin() + static_cast<ptrdiff_t>(first), {{cut.start, units}, style});
  text_.replace(bytes.first, bytes.last - bytes.first, inserted);
  length_ += units - cut.length;
  joinAround(first, first + 1);
}

void AttributedText::replace(TextRange range, std::string_view utf8) {
  const TextRange cut = clip(range);
  const size_t model = cut.length > 0 || cut.start == 0 ? cut.start : cut.start - 1;
  const TextStyle* const style = styleAt(model);
  replace(cut, utf8, style ? TextStyle(*style) : TextStyle());
}

void AttributedText::restyle(TextRange range, const std::function<void(TextStyle&)>& edit) {
  const TextRange cut = clip(range);
  if (cut.length == 0) return;
  const size_t first = splitAt(cut.start);
  const size_t last = splitAt(cut.end());
  for (size_t i = first; i < last; ++i) edit(runs_[i].style);
  joinAround(first, last);
}

// The run that holds `position`, which lies inside the text.
size_t AttributedText::runAt(size_t position) const {
  const auto behind = std::upper_bound(runs_.begin(), runs_.end(), position,
                                       [](size_t p, const Run& run) { return p < run.range.start; });
  return static_cast<size_t>(behind - runs_.begin()) - 1;
}

// Makes a run begin at `position` and gives its index; the number of runs for the text's end.
size_t AttributedText::splitAt(size_t position) {
  if (position >= length_) return runs_.size();
  const size_t index = runAt(position);
  Run& run = runs_[index];
  if (run.range.start == position) return index;
  Run rest = run;
  rest.range = {position, run.range.end() - position};
  run.range.length = position - run.range.start;
  runs_.insert(runs_.begin() + static_cast<ptrdiff_t>(index) + 1, std::move(rest));
  return index + 1;
}

// Joins like neighbours among the runs from the one ahead of `first` up to `last`.
void AttributedText::joinAround(size_t first, size_t last) {
  if (runs_.empty()) return;
  size_t kept = first == 0 ? 0 : first - 1;
  const size_t end = std::min(last + 1, runs_.size());
  for (size_t i = kept + 1; i < end; ++i) {
    if (runs_[i].style == runs_[kept].style) {
      runs_[kept].range.length += runs_[i].range.length;
    } else if (++kept != i) {
      runs_[kept] = std::move(runs_[i]);
    }
  }
  if (kept + 1 < end)
    runs_.erase(runs_.begin() + static_cast<ptrdiff_t>(kept) + 1,
                runs_.begin() + static_cast<ptrdiff_t>(end));
}

// The byte at which unit *position stands. One that is the second half of a character is moved to the first.
size_t AttributedText::byteOf(size_t* position) const {
  if (*position >= length_) return text_.size();
  if (length_ == text_.size()) return *position;  // all ASCII
  size_t unit = 0;
  size_t byte = 0;
  while (unit + unitsAt(text_[byte]) <= *position) {
    unit += unitsAt(text_[byte]);
    byte += bytesAt(text_[byte]);
  }
  *position = unit;
  return byte;
}

}  // namespace zavel
