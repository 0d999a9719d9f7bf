// Tests: tests/mkbook/JapaneseSourcesTest.cpp
#include "mkbook/EdictSource.h"

#include <algorithm>

#include "mkbook/EucLines.h"
#include "mkbook/TextWords.h"
#include "mkdict/EdictLine.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

constexpr std::string_view kTitleWord = "　？？？";
constexpr const char* kHint = "Install the Debian package edict, or name another file.";

// Katakana as hiragana.
std::string order(std::string_view reading) {
  std::string out;
  for (size_t at = 0; at < reading.size();) {
    char32_t character = 0;
    mkdict::takeUtf8(reading, &at, &character);
    if (character >= 0x30A1 && character <= 0x30F6) character -= 0x60;
    mkdict::appendUtf8(out, character);
  }
  return out;
}

std::string joined(const std::vector<std::string>& parts, const char* separator) {
  std::string out;
  for (const std::string& part : parts) out += (out.empty() ? "" : separator) + part;
  return out;
}

std::string dateIn(std::string_view title) {
  constexpr std::string_view kCreated = "Created: ";
  const size_t at = title.find(kCreated);
  if (at == std::string_view::npos) return "";
  const std::string_view date = title.substr(at + kCreated.size());
  return std::string(date.substr(0, date.find('/')));
}

Line senseLine(const mkdict::EdictSense& sense, size_t number) {
  std::vector<std::string> codes = sense.pos;
  codes.insert(codes.end(), sense.remarks.begin(), sense.remarks.end());
  Line line{2, {}};
  if (number > 0) line.spans.push_back({Span::Kind::kPlain, std::to_string(number) + " ", ""});
  if (!codes.empty()) {
    line.spans.push_back({Span::Kind::kEmphasis, "(" + joined(codes, ",") + ")", ""});
    line.spans.push_back({Span::Kind::kPlain, " ", ""});
  }
  line.spans.push_back({Span::Kind::kPlain, joined(sense.glosses, "; "), ""});
  return line;
}

}  // namespace

EdictSource::EdictSource(const std::string& path, mkdict::Summary* summary) {
  std::vector<std::pair<std::string, std::string>> ordered;
  size_t unsound = 0;
  readEucLines(path, kHint, [&](std::string_view line) {
    mkdict::EdictLine parsed;
    if (line.starts_with(kTitleWord)) {
      date_ = dateIn(line);
    } else if (mkdict::EdictLine::parse(line, &parsed)) {
      ordered.emplace_back(order(parsed.reading), line);
    } else {
      ++unsound;
      summary->leftOut("lines of another form", std::string(line.substr(0, line.find('/'))));
    }
  });
  demandSoundLines(path, "EDICT", ordered.size(), unsound);
  std::sort(ordered.begin(), ordered.end());
  for (auto& [key, line] : ordered) lines_.push_back(std::move(line));
}

BookEntry EdictSource::entry(size_t number) const {
  mkdict::EdictLine line;
  mkdict::EdictLine::parse(lines_[number], &line);
  BookEntry out;
  out.headword = line.written.empty() ? line.reading : line.written + "【" + line.reading + "】";
  out.words.push_back(line.reading);
  if (!line.written.empty()) out.words.push_back(line.written);
  if (!line.spelling.empty())
    out.note.push_back({Span::Kind::kPlain, " (" + joined(line.spelling, ",") + ")", ""});
  for (size_t i = 0; i < line.senses.size(); ++i)
    out.lines.push_back(senseLine(line.senses[i], line.senses.size() > 1 ? i + 1 : 0));
  return out;
}

std::vector<std::string> EdictSource::keywords(size_t number) const {
  std::vector<std::string> out = BookSource::keywords(number);
  mkdict::EdictLine line;
  mkdict::EdictLine::parse(lines_[number], &line);
  for (const mkdict::EdictSense& sense : line.senses) {
    for (const std::string& gloss : sense.glosses)
      for (std::string& word : wordsOf(gloss)) out.push_back(std::move(word));
  }
  return out;
}

std::string EdictSource::publisher() const {
  return "EDICT" + (date_.empty() ? "" : " of " + date_) +
         ", (c) Electronic Dictionary Research and Development Group, CC BY-SA 3.0, http://www.edrdg.org/";
}

}  // namespace zavel::mkbook
