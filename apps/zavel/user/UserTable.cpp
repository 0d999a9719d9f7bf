// Tests: tests/zavel/user/UserTableTest.cpp
#include "user/UserTable.h"

#include <algorithm>
#include <array>
#include <span>

#include "Utf8.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::array<std::string_view, 8> kColumns = {"lang",   "word",    "kanji",    "pos",
                                                      "phrase", "meaning", "examples", "sentences"};

// Controls that would end a cell or a line.
std::string escaped(std::string_view text, bool inExample) {
  std::string out;
  for (const char c : text) {
    if (c == '\\' || (inExample && (c == '=' || c == '|'))) {
      out += '\\';
      out += c;
    } else if (c == '\t') {
      out += "\\t";
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\r') {
      out += "\\r";
    } else {
      out += c;
    }
  }
  return out;
}

// What a backslash may stand ahead of, and what both stand for. Ahead of anything else it is itself.
struct Escape {
  char letter, meant;
};
constexpr Escape kInCells[] = {{'\\', '\\'}, {'t', '\t'}, {'n', '\n'}, {'r', '\r'}};
constexpr Escape kInExamples[] = {{'\\', '\\'}, {'=', '='}, {'|', '|'}};
constexpr Escape kInExampleCells[] = {{'\\', '\\'}, {'=', '='},  {'|', '|'},
                                      {'t', '\t'},  {'n', '\n'}, {'r', '\r'}};

std::string plain(std::string_view cell, std::span<const Escape> escapes) {
  std::string out;
  for (size_t i = 0; i < cell.size(); ++i) {
    const char next = cell[i] == '\\' && i + 1 < cell.size() ? cell[i + 1] : '\0';
    const auto escape = std::find_if(escapes.begin(), escapes.end(),
                                     [next](const Escape& known) { return known.letter == next; });
    const bool known = next != '\0' && escape != escapes.end();
    out += known ? escape->meant : cell[i];
    if (known) ++i;
  }
  return out;
}

// Where `wanted` stands without a backslash ahead of it; npos for nowhere.
size_t findBare(std::string_view text, char wanted, size_t from = 0) {
  for (size_t i = from; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == wanted) {
      return i;
    }
  }
  return std::string_view::npos;
}

std::string joined(const std::vector<UserExample>& examples) {
  std::string out;
  for (const UserExample& example : examples) out += (out.empty() ? "" : "|") + exampleText(example);
  return out;
}

bool readPair(std::string_view text, std::span<const Escape> escapes, UserExample* example) {
  const size_t equals = findBare(text, '=');
  if (equals == std::string_view::npos) return false;
  *example = {plain(text.substr(0, equals), escapes), plain(text.substr(equals + 1), escapes)};
  return true;
}

// Empty, or which of them is none.
std::string readExamples(std::string_view cell, std::vector<UserExample>* examples) {
  while (!cell.empty()) {
    const size_t end = std::min(findBare(cell, '|'), cell.size());
    if (!readPair(cell.substr(0, end), kInExampleCells, &examples->emplace_back())) {
      return "number " + std::to_string(examples->size()) + " has no \"=\": each is ENGLISH=JAPANESE";
    }
    cell.remove_prefix(std::min(end + 1, cell.size()));
  }
  return {};
}

std::vector<std::string_view> cellsOf(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  std::vector<std::string_view> cells;
  for (size_t tab = 0; (tab = line.find('\t')) != std::string_view::npos; line.remove_prefix(tab + 1)) {
    cells.push_back(line.substr(0, tab));
  }
  cells.push_back(line);
  return cells;
}

}  // namespace

std::string exampleText(const UserExample& example) {
  return escaped(example.english, true) + "=" + escaped(example.japanese, true);
}

bool readExample(std::string_view text, UserExample* example) {
  return readPair(text, kInExamples, example);
}

std::string tableHeader() {
  std::string line;
  for (const std::string_view column : kColumns) line += (line.empty() ? "" : "\t") + std::string(column);
  return line + "\n";
}

std::string tableLine(const UserEntry& entry) {
  std::string line = languageCode(entry.language);
  for (const std::string& text :
       {entry.word, entry.kanji, std::string(posName(entry.pos)), entry.phrase, entry.meaning}) {
    line += '\t' + escaped(text, false);
  }
  return line + '\t' + joined(entry.examples) + '\t' + joined(entry.sentences) + '\n';
}

std::string TableReader::readHeader(std::string_view line) {
  columns_.clear();
  if (line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
  for (const std::string_view cell : cellsOf(line)) {
    const std::string column(cell);
    if (std::find(kColumns.begin(), kColumns.end(), column) == kColumns.end()) {
      return "there is no column " + inQuotes(column);
    }
    if (std::find(columns_.begin(), columns_.end(), column) != columns_.end()) {
      return "the column \"" + column + "\" stands there twice";
    }
    columns_.push_back(column);
  }
  for (const char* needed : {"word", "meaning"}) {
    if (std::find(columns_.begin(), columns_.end(), needed) == columns_.end()) {
      return std::string("the column \"") + needed + "\" is missing";
    }
  }
  return {};
}

std::string TableReader::take(const std::string& column, std::string_view cell, UserEntry* entry) const {
  if (column == "lang") {
    const std::optional<UserLanguage> language = languageOf(cell);
    if (!language && !cell.empty()) return "lang: " + inQuotes(cell) + " is neither en nor ja";
    if (language) entry->language = *language;
  } else if (column == "pos") {
    entry->pos = posOf(cell);
    if (entry->pos == 0 && !cell.empty()) {
      return "pos: " + inQuotes(cell) + " is none; it is one of " + posNames();
    }
  } else if (column == "examples" || column == "sentences") {
    const bool examples = column == "examples";
    const std::string wrong = readExamples(cell, examples ? &entry->examples : &entry->sentences);
    if (!wrong.empty()) return column + ": " + wrong;
  } else {
    std::string* texts[] = {&entry->word, &entry->kanji, &entry->phrase, &entry->meaning};
    constexpr std::string_view kNames[] = {"word", "kanji", "phrase", "meaning"};
    for (size_t i = 0; i < std::size(kNames); ++i) {
      if (column == kNames[i]) *texts[i] = plain(cell, kInCells);
    }
  }
  return {};
}

std::string TableReader::readLine(std::string_view line, const UserLanguage* language,
                                  UserEntry* entry) const {
  if (!isUtf8(line)) return "it is not UTF-8 text";
  const std::vector<std::string_view> cells = cellsOf(line);
  if (cells.size() > columns_.size()) {
    return "it has " + std::to_string(cells.size()) + " cells for " + std::to_string(columns_.size()) +
           " columns";
  }
  *entry = {};
  const auto word = std::find(columns_.begin(), columns_.end(), "word");
  const size_t at = static_cast<size_t>(word - columns_.begin());
  entry->language = language ? *language : guessLanguage(at < cells.size() ? cells[at] : "");
  for (size_t i = 0; i < cells.size(); ++i) {
    const std::string wrong = take(columns_[i], cells[i], entry);
    if (!wrong.empty()) return wrong;
  }
  return {};
}

}  // namespace zavel::host
