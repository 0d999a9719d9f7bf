// Tests: tests/mkbook/JapaneseSourcesTest.cpp
#include "mkbook/KanjidicSource.h"

#include <algorithm>
#include <optional>
#include <set>

#include "mkbook/EucLines.h"
#include "mkdict/Utf8.h"

namespace zavel::mkbook {
namespace {

constexpr const char* kHint = "Install the Debian package kanjidic, or name another file.";

// The part up to a blank, or in braces up to the closing one; *line moves past it.
std::string takeField(std::string_view* line) {
  line->remove_prefix(std::min(line->find_first_not_of(' '), line->size()));
  const bool braced = line->starts_with("{");
  const size_t end = std::min(line->find(braced ? '}' : ' '), line->size());
  const std::string field(line->substr(0, end));
  line->remove_prefix(std::min(end + 1, line->size()));
  return field;
}

bool isKatakanaReading(std::string_view reading) {
  size_t at = reading.starts_with("-") ? 1 : 0;
  char32_t character = 0;
  return mkdict::takeUtf8(reading, &at, &character) && mkdict::isKatakana(character);
}

// Readings as they are looked for: "つ.ぐ" つぐ, "-め" め.
std::string plainReading(std::string_view reading) {
  std::string out;
  for (const char c : reading)
    if (c != '.' && c != '-') out += c;
  return out;
}

// Kana as hiragana or as katakana.
std::string inScript(std::string_view kana, bool katakana) {
  std::string out;
  for (size_t at = 0; at < kana.size();) {
    char32_t character = 0;
    mkdict::takeUtf8(kana, &at, &character);
    if (katakana && character >= 0x3041 && character <= 0x3096) character += 0x60;
    if (!katakana && character >= 0x30A1 && character <= 0x30F6) character -= 0x60;
    mkdict::appendUtf8(out, character);
  }
  return out;
}

std::string joined(const std::vector<std::string>& parts, const char* separator) {
  std::string out;
  for (const std::string& part : parts) out += (out.empty() ? "" : separator) + part;
  return out;
}

class LineParser {
 public:
  LineParser(std::string_view line, Kanji* out) : line_(line), out_(out) {}

  bool run() {
    out_->character = takeField(&line_);
    const std::optional<std::u32string> character = mkdict::decodeUtf8(out_->character);
    if (!character || character->size() != 1) return false;
    out_->jis = takeField(&line_);
    if (out_->jis.size() != 4 || out_->jis.find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos)
      return false;
    while (!line_.empty()) {
      if (const std::string field = takeField(&line_); !field.empty()) take(field);
    }
    return true;
  }

 private:
  void take(const std::string& field) {
    const unsigned char first = static_cast<unsigned char>(field[0]);
    if (first == '{') {
      out_->meanings.push_back(field.substr(1));
    } else if (first >= 0x80 || (first == '-' && field.size() > 1)) {
      reading(field);
    } else if (field == "T1" || field == "T2") {
      names_ = field[1];
    } else {
      number(field);
    }
  }

  void reading(const std::string& field) {
    if (names_ == '1') {
      out_->names.push_back(field);
    } else if (names_ == '2') {
      out_->radicalNames.push_back(field);
    } else {
      (isKatakanaReading(field) ? out_->on : out_->kun).push_back(field);
    }
  }

  // Of several counts of strokes the first is the right one, the others are common mistakes.
  void number(const std::string& field) {
    const struct {
      char letter;
      std::string* value;
    } known[] = {{'U', &out_->unicode}, {'B', &out_->radical},   {'C', &out_->classical}, {'G', &out_->grade},
                 {'S', &out_->strokes}, {'F', &out_->frequency}, {'J', &out_->level}};
    for (const auto& [letter, value] : known)
      if (field[0] == letter && value->empty()) *value = field.substr(1);
  }

  std::string_view line_;
  Kanji* out_;  // borrowed
  char names_ = 0;
};

void addLine(BookEntry* entry, const char* label, const std::string& text) {
  if (text.empty()) return;
  entry->lines.push_back({2, {{Span::Kind::kEmphasis, label, ""}, {Span::Kind::kPlain, " " + text, ""}}});
}

std::string numbers(const Kanji& kanji) {
  const struct {
    const char* label;
    const std::string& value;
  } all[] = {
      {"strokes", kanji.strokes}, {"radical", kanji.radical},     {"classical radical", kanji.classical},
      {"grade", kanji.grade},     {"frequency", kanji.frequency}, {"level", kanji.level},
      {"JIS", kanji.jis},         {"Unicode", kanji.unicode}};
  std::string out;
  for (const auto& [label, value] : all)
    if (!value.empty()) out += (out.empty() ? "" : ", ") + std::string(label) + " " + value;
  return out;
}

}  // namespace

bool Kanji::parse(std::string_view line, Kanji* out) {
  *out = {};
  return LineParser(line, out).run();
}

KanjidicSource::KanjidicSource(const std::string& path, mkdict::Summary* summary) {
  size_t unsound = 0;
  readEucLines(path, kHint, [&](std::string_view line) {
    if (line.starts_with("#")) return;
    Kanji kanji;
    if (Kanji::parse(line, &kanji)) {
      kanji_.push_back(std::move(kanji));
    } else {
      ++unsound;
      summary->leftOut("lines of another form", std::string(line.substr(0, line.find(' '))));
    }
  });
  demandSoundLines(path, "KANJIDIC", kanji_.size(), unsound);
}

BookEntry KanjidicSource::entry(size_t number) const {
  const Kanji& kanji = kanji_[number];
  BookEntry out;
  out.headword = kanji.character;
  out.words.push_back(kanji.character);
  for (const auto* const readings : {&kanji.on, &kanji.kun, &kanji.names})
    for (const std::string& reading : *readings) out.words.push_back(plainReading(reading));
  out.words.insert(out.words.end(), kanji.meanings.begin(), kanji.meanings.end());
  if (!kanji.meanings.empty())
    out.lines.push_back({2, {{Span::Kind::kPlain, joined(kanji.meanings, "; "), ""}}});
  addLine(&out, "on", joined(kanji.on, "、"));
  addLine(&out, "kun", joined(kanji.kun, "、"));
  addLine(&out, "names", joined(kanji.names, "、"));
  addLine(&out, "as a radical", joined(kanji.radicalNames, "、"));
  out.lines.push_back({2, {{Span::Kind::kPlain, numbers(kanji), ""}}});
  return out;
}

std::vector<MultiSearch> KanjidicSource::forms() const {
  return {{"Kanji",
           {{"Radical", false, choicesOf(&Kanji::radical)},
            {"Strokes", false, choicesOf(&Kanji::strokes)},
            {"Grade", false, choicesOf(&Kanji::grade)},
            {"Reading", true, {}},
            {"Meaning", true, {}}}}};
}

// The values of a number that kanji have, the least first.
std::vector<Choice> KanjidicSource::choicesOf(std::string Kanji::*number) const {
  std::set<std::pair<size_t, std::string>> values;
  for (const Kanji& kanji : kanji_)
    if (const std::string& value = kanji.*number; !value.empty()) values.insert({value.size(), value});
  std::vector<Choice> out;
  for (const auto& [size, value] : values) out.emplace_back(value);
  return out;
}

std::vector<std::vector<std::string>> KanjidicSource::fieldValues(size_t number, size_t) const {
  const Kanji& kanji = kanji_[number];
  std::vector<std::string> readings;
  for (const auto* const some : {&kanji.on, &kanji.kun, &kanji.names}) {
    for (const std::string& reading : *some) {
      const std::string plain = plainReading(reading);
      readings.push_back(inScript(plain, false));
      readings.push_back(inScript(plain, true));
    }
  }
  return {{kanji.radical}, {kanji.strokes}, {kanji.grade}, readings, kanji.meanings};
}

std::string KanjidicSource::publisher() const {
  return "KANJIDIC, (c) Electronic Dictionary Research and Development Group, CC BY-SA 3.0, "
         "http://www.edrdg.org/";
}

}  // namespace zavel::mkbook
