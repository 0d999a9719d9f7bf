// Tests: tests/mkbook/DictdSourceTest.cpp
#include "mkbook/DictdSource.h"

#include <algorithm>
#include <map>

#include "foundation/Storage.h"
#include "foundation/Utf8.h"
#include "mkbook/Failure.h"
#include "mkdict/Trimmed.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

constexpr std::string_view kIndexEnding = ".index";
constexpr unsigned kTab = 8;
constexpr size_t kLongestReference = 200;  // a brace that doesn't close is a brace

bool isAboutItself(std::string_view word) {
  return word.starts_with("00-database") || word.starts_with("00database");
}

std::string textPathOf(const std::string& index) {
  const std::string base =
      index.ends_with(kIndexEnding) ? index.substr(0, index.size() - kIndexEnding.size()) : index;
  const std::string packed = base + ".dict.dz";
  return storage().exists(packed) ? packed : base + ".dict";
}

std::string fromLatin1(std::string_view bytes) {
  std::string out;
  for (const char byte : bytes) mkdict::appendUtf8(out, static_cast<unsigned char>(byte));
  return out;
}

std::string readable(std::string_view bytes) {
  return isValidUtf8(bytes) ? std::string(bytes) : fromLatin1(bytes);
}

// Letters and digits, small; characters beyond ASCII as they are.
std::string bare(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c >= 'A' && c <= 'Z') {
      out += static_cast<char>(c + 32);
    } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80) {
      out += c;
    }
  }
  return out;
}

// Blanks and line ends in a row as one blank.
std::string joined(std::string_view text) {
  std::string out;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n' || c == '\t' || c == '\r';
    if (!blank) out += c;
    if (blank && !out.empty() && out.back() != ' ') out += ' ';
  }
  return std::string(mkdict::trimmed(out));
}

// A word that goes over a line's end at a hyphen goes on without a blank.
std::string unbroken(std::string_view text) {
  std::string out;
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find("-\n", at);
    out += text.substr(at, end == text.npos ? end : end + 1 - at);
    at = end == text.npos ? text.size() : std::min(text.find_first_not_of(" \t\r\n", end + 1), text.size());
  }
  return joined(out);
}

// Where a reference that opens at `open` closes; npos where it is none.
size_t closing(std::string_view text, size_t open) {
  const size_t close = text.find_first_of("{}", open + 1);
  const bool sound = close != std::string_view::npos && text[close] == '}' && close > open + 1 &&
                     close - open <= kLongestReference &&
                     text.substr(open, close - open).find("\n\n") == text.npos;
  return sound ? close : std::string_view::npos;
}

// Without the mark of how an adjective is used that some words bear: "few(a)".
std::string withoutMark(std::string word) {
  constexpr size_t kLongestMark = 4;  // with its brackets
  const size_t open = word.rfind('(');
  const bool marked = word.ends_with(')') && open != std::string::npos && open > 0 && word[open - 1] != ' ' &&
                      word.size() - open <= kLongestMark;
  return marked ? word.substr(0, open) : word;
}

// From the word that tells the terms of use on, else all of it.
std::string licenceIn(const std::string& info) {
  for (const char* const word :
       {"Licensed under", "LICENSED under", "Copyright", "copyright", "License", "Licence"}) {
    if (const size_t at = info.find(word); at != std::string::npos) return info.substr(at);
  }
  return info;
}

// Takes a text apart into lines, a character at a time at most.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : text_(text) { beginLine(0); }

  std::vector<Line> run() {
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '\n') {
        beginLine(++at_);
      } else if (c == '{' && closing(text_, at_) != std::string_view::npos) {
        reference(closing(text_, at_));
      } else {
        plain(c);
        ++at_;
      }
    }
    while (!lines_.empty() && lines_.back().spans.empty()) lines_.pop_back();
    return std::move(lines_);
  }

 private:
  void beginLine(size_t at) {
    lines_.emplace_back();
    unsigned columns = 0;
    for (; at < text_.size() && (text_[at] == ' ' || text_[at] == '\t'); ++at)
      columns = text_[at] == ' ' ? columns + 1 : (columns / kTab + 1) * kTab;
    lines_.back().indent = 1 + columns;
    at_ = at;
  }

  void plain(char c) {
    if (c == '\r') return;
    std::vector<Span>& spans = lines_.back().spans;
    if (spans.empty() || spans.back().kind != Span::Kind::kPlain) spans.emplace_back();
    spans.back().text += c;
  }

  // One that goes over a line's end is one on each line, and leads to the same word.
  void reference(size_t close) {
    const std::string_view inside = text_.substr(at_ + 1, close - at_ - 1);
    const std::string target = withoutMark(unbroken(inside));
    for (size_t from = 0; from <= inside.size();) {
      const size_t end = std::min(inside.find('\n', from), inside.size());
      if (from > 0) beginLine(static_cast<size_t>(inside.data() - text_.data()) + from);
      const std::string_view part = mkdict::trimmed(inside.substr(from, end - from));
      if (!part.empty()) lines_.back().spans.push_back({Span::Kind::kReference, std::string(part), target});
      from = end + 1;
    }
    at_ = close + 1;
  }

  std::string_view text_;
  size_t at_ = 0;
  std::vector<Line> lines_;
};

std::string_view firstLine(std::string_view text) {
  return text.substr(0, std::min(text.find('\n'), text.size()));
}

}  // namespace

std::vector<Line> dictdLines(std::string_view text) {
  return LineReader(text).run();
}

size_t headwordLength(std::string_view line, const std::vector<std::string>& words) {
  std::vector<std::string> keys;
  size_t longest = 0;
  for (const std::string& word : words) {
    keys.push_back(bare(word));
    longest = std::max(longest, keys.back().size());
  }
  size_t found = 0, foundKey = 0;  // signs alone make a headword no longer
  std::string key;
  for (size_t at = 0; at < line.size() && key.size() <= longest; ++at) {
    key += bare(line.substr(at, 1));
    const bool ends = at + 1 == line.size() || line[at + 1] == ' ' || line[at + 1] == ',';
    if (!ends || key.size() == foundKey || std::find(keys.begin(), keys.end(), key) == keys.end()) continue;
    found = at + 1;
    foundKey = key.size();
  }
  return found;
}

DictdSource::DictdSource(const std::string& index, mkdict::Summary* summary) {
  const std::string text = textPathOf(index);
  for (const std::string& path : {index, text}) {
    if (!storage().exists(path) || storage().isFolder(path))
      throw Failure(mkdict::kExitEnvironment, "missing_input", path + " is missing",
                    "Name the index of a dictionary in dictd form, such as /usr/share/dictd/wn.index.");
  }
  std::string error;
  if (!reader_.open(index, text, &error))
    throw Failure(mkdict::kExitDamaged, "damaged_input", error,
                  "Install its package again, or name another file.");
  collect(summary);
  if (entries_.empty())
    throw Failure(mkdict::kExitDamaged, "empty_input", index + " has no entries", "Name another file.");
}

void DictdSource::collect(mkdict::Summary* summary) {
  std::map<std::pair<size_t, size_t>, std::vector<std::string>> places;
  for (const mkdict::DictdReader::Entry& entry : reader_.entries()) {
    const std::string word = readable(entry.word);
    const std::string_view text = reader_.textOf(entry);
    const bool empty = mkdict::trimmed(joined(text)).empty();
    if (isAboutItself(word)) continue;
    if (!isValidUtf8(text) || !isValidUtf8(entry.word))
      summary->leftOut("entries that are not UTF-8, read as Latin-1", word);
    if (empty || mkdict::trimmed(word).empty()) {
      summary->leftOut(empty ? "words that lead to no text" : "entries without a word", word);
    } else {
      places[{entry.offset, entry.length}].push_back(word);
    }
  }
  for (auto& [place, words] : places) entries_.push_back({place.first, place.second, std::move(words)});
  title_ = about("short");
  publisher_ = joined(title_ + " " + about("url") + " " + licenceIn(about("info")));
}

// The first line but one of what the dictionary says of itself: the first repeats the question.
std::string DictdSource::about(std::string_view what) const {
  for (const mkdict::DictdReader::Entry& entry : reader_.entries()) {
    if (!isAboutItself(entry.word) || !entry.word.ends_with(what)) continue;
    std::string_view text = reader_.textOf(entry);
    while (!text.empty() && (text[0] == '\n' || firstLine(text).starts_with("00"))) {
      text.remove_prefix(std::min(firstLine(text).size() + 1, text.size()));
    }
    return joined(readable(text));
  }
  return "";
}

BookEntry DictdSource::entry(size_t number) const {
  const Place& place = entries_[number];
  std::string whole = readable(reader_.text().substr(place.offset, place.length));
  whole.erase(0, std::min(whole.find_first_not_of("\n\r"), whole.size()));
  BookEntry out;
  out.words = place.words;
  const std::string_view line = mkdict::trimmed(firstLine(whole));
  const size_t length = headwordLength(line, out.words);
  if (length == 0) {
    out.headword = out.words.front();
    out.lines = dictdLines(whole);
    return out;
  }
  const size_t start = static_cast<size_t>(line.data() - whole.data());
  out.headword = line.substr(0, length);
  out.words.push_back(out.headword);
  out.lines = dictdLines(std::string_view(whole).substr(start + length));
  if (out.lines.empty()) return out;
  // The rest of the headword's line keeps the blank ahead of it.
  if (!out.lines.front().spans.empty()) {
    out.note = {{Span::Kind::kPlain, " ", ""}};
    for (Span& span : out.lines.front().spans) out.note.push_back(std::move(span));
  }
  out.lines.erase(out.lines.begin());
  return out;
}

}  // namespace zavel::mkbook
