// A search halves the file until what is left fits one read, so a large index costs a few reads more than a
// small one. Tests: tests/translators/DictdIndexTest.cpp
#include "dicttool/DictdIndex.h"

#include <algorithm>

namespace zavel::dicttool {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr size_t kMostDigits = 6;       // 36 bits: more than any text has
constexpr size_t kProbe = 512;          // bytes of one step; most lines are under fifty
constexpr size_t kWindow = 4096;        // what is read through line by line
constexpr size_t kLongestLine = 16384;  // a longer one is no index
constexpr size_t kMostOptions = 64;

std::string withoutHyphens(std::string_view text) {
  std::string out(text);
  std::erase(out, '-');
  return out;
}

std::string_view wordOf(std::string_view line) {
  return line.substr(0, line.find('\t'));
}

}  // namespace

std::optional<uint64_t> indexNumber(std::string_view digits) {
  if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
  uint64_t value = 0;
  for (const char digit : digits) {
    const size_t place = kDigits.find(digit);
    if (place == std::string_view::npos) return std::nullopt;
    value = value * kDigits.size() + place;
  }
  return value;
}

std::string indexNumberText(uint64_t number) {
  std::string digits;
  do {
    digits.insert(digits.begin(), kDigits[number % kDigits.size()]);
    number /= kDigits.size();
  } while (number > 0);
  return digits;
}

std::optional<IndexLine> IndexLine::parse(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);  // an editor's line end
  const size_t first = line.find('\t');
  const size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const size_t third = std::min(line.find('\t', second + 1), line.size());
  const std::optional<uint64_t> offset = indexNumber(line.substr(first + 1, second - first - 1));
  const std::optional<uint64_t> length = indexNumber(line.substr(second + 1, third - second - 1));
  if (!offset || !length) return std::nullopt;
  const std::string_view word = line.substr(0, first);
  return IndexLine{word, third < line.size() ? line.substr(third + 1) : word, *offset, *length};
}

bool DictdIndex::open(const std::string& path, std::string* error) {
  path_ = path;
  options_.clear();
  rules_ = {};
  block_.clear();
  file_ = storage().open(path, OpenMode::kRead);
  const int64_t size = file_ ? file_->size() : -1;
  if (size < 0) {
    *error = path + (storage().exists(path) ? " can't be read" : " is missing");
    return false;
  }
  size_ = static_cast<uint64_t>(size);
  char last = 0;
  if (size_ == 0 || file_->readAt(size_ - 1, &last, 1) != 1 || last != '\n') {
    *error = path + (size_ == 0 ? " is damaged: it is empty" : " is damaged: its last line is incomplete");
    return false;
  }
  // They are filed in the order that they tell of, so they are looked for in both.
  readOptions({}, "00database");
  readOptions({.allCharacters = true, .caseSensitive = false}, "00-database-");
  rules_ = {hasOption("allchars"), hasOption("casesensitive")};
  return true;
}

// An index without any is a sound one: the first programs that made some wrote none.
void DictdIndex::readOptions(FoldRules rules, std::string_view prefix) {
  const std::optional<uint64_t> start = firstLine(prefix, rules);
  if (!start) return;
  size_t left = kMostOptions;
  visitLines(*start, [&](std::string_view line) {
    const std::string word = foldWord(wordOf(line), rules);
    if (!word.starts_with(prefix) || left-- == 0) return false;
    options_.insert(withoutHyphens(word.substr(prefix.size())));
    return true;
  });
}

bool DictdIndex::find(std::string_view word, const std::function<bool(const IndexLine&)>& visit,
                      std::string* error) {
  const std::string folded = foldWord(word, rules_);
  if (folded.empty()) return true;  // signs alone would find every entry whose word is signs alone
  bool sound = true;
  const std::optional<uint64_t> start = firstLine(folded, rules_);
  sound = start &&
          visitLines(*start,
                     [&](std::string_view line) {
                       if (compareFolded(foldWord(wordOf(line), rules_), folded) != 0) return false;
                       const std::optional<IndexLine> parsed = IndexLine::parse(line);
                       sound = parsed.has_value();
                       return sound && visit(*parsed);
                     }) &&
          sound;
  if (!sound) *error = path_ + " is damaged: it is not a valid index";
  return sound;
}

// Where the first line begins that is not filed ahead of `folded`; the file's size when all are. Nothing when
// the file can't be read there or holds no lines.
std::optional<uint64_t> DictdIndex::firstLine(std::string_view folded, FoldRules rules) {
  uint64_t low = 0, high = size_;  // lines that begin below `low` are ahead of it, those from `high` on not
  // `high` may stand inside a line, and `low` behind that line's end.
  while (low < high && high - low > kWindow) {
    const uint64_t middle = low + (high - low) / 2;
    const std::optional<uint64_t> start = lineStart(middle);
    if (!start) return std::nullopt;
    if (*start >= high) {
      high = middle;
      continue;
    }
    const std::optional<std::string_view> line = lineAt(*start);
    if (!line) return std::nullopt;
    if (compareFolded(foldWord(wordOf(*line), rules), folded) < 0) {
      low = *start + line->size() + 1;
    } else {
      high = middle;
    }
  }
  uint64_t found = low;
  const bool read = visitLines(low, [&](std::string_view line) {
    if (compareFolded(foldWord(wordOf(line), rules), folded) >= 0) return false;
    found += line.size() + 1;
    return true;
  });
  return read ? std::optional<uint64_t>(found) : std::nullopt;
}

// The first line that begins at `from` or behind it.
std::optional<uint64_t> DictdIndex::lineStart(uint64_t from) {
  if (from == 0) return 0;
  for (uint64_t at = from - 1; at < size_ && at < from + kLongestLine;) {
    if (!fill(at, 1)) return std::nullopt;
    const std::string_view bytes = filled(at);
    const size_t end = bytes.find('\n');
    if (end != std::string_view::npos) return at + end + 1;
    at += bytes.size();
  }
  return std::nullopt;
}

// The line that begins at `start`, without its line feed; valid until the next read.
std::optional<std::string_view> DictdIndex::lineAt(uint64_t start) {
  for (size_t wanted = 1; wanted <= kLongestLine; wanted *= 4) {
    if (!fill(start, wanted)) return std::nullopt;
    const std::string_view bytes = filled(start);
    const size_t end = bytes.find('\n');
    if (end != std::string_view::npos) return bytes.substr(0, end);
    wanted = std::max(wanted, bytes.size());
  }
  return std::nullopt;
}

// Every line from `start` on, until `visit` answers false. False when there is something that is no line.
bool DictdIndex::visitLines(uint64_t start, const LineVisitor& visit) {
  while (start < size_) {
    if (block_.empty() || start < blockStart_ || start >= blockStart_ + block_.size()) {
      if (!fill(start, kWindow)) return false;
    }
    const std::optional<std::string_view> line = lineAt(start);
    if (!line) return false;
    start += line->size() + 1;
    if (!visit(*line)) return true;
  }
  return true;
}

// Makes sure that block_ holds `wanted` bytes from `offset` on, or all that the file has there.
bool DictdIndex::fill(uint64_t offset, size_t wanted) {
  const size_t length = static_cast<size_t>(std::min<uint64_t>(wanted, size_ - offset));
  if (offset >= blockStart_ && offset + length <= blockStart_ + block_.size()) return true;
  const size_t asked = static_cast<size_t>(std::min<uint64_t>(std::max(wanted, kProbe), size_ - offset));
  block_.resize(asked);
  blockStart_ = offset;
  const bool read = file_->readAt(offset, block_.data(), asked) == static_cast<int64_t>(asked);
  if (!read) block_.clear();
  return read;
}

std::string_view DictdIndex::filled(uint64_t offset) const {
  return std::string_view(block_).substr(static_cast<size_t>(offset - blockStart_));
}

}  // namespace zavel::dicttool
