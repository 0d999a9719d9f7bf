// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/TextEntry.h"

#include <algorithm>

#include "mkdict/Trimmed.h"

namespace zavel::mkbook {
namespace {

using mkdict::trimmed;

constexpr unsigned kTab = 8;
constexpr size_t kLongestEntry = size_t{8} << 20;  // bytes
constexpr size_t kLongestWord = 500, kLongestFieldLabel = 15, kLongestFormName = 31,
                 kLongestValue = 61;  // a search takes in 63 characters, two of which name form and field
constexpr size_t kMostFields = 40, kMostChoices = 65536;
constexpr std::string_view kOpening = "【", kClosing = "】";

size_t charactersOf(std::string_view utf8) {
  return columnOf(utf8, utf8.size()) - 1;
}

// What stands ahead of a bracket and what is in it, readings parted by ・ or 、: "林檎【りんご】". Else all.
std::vector<std::string> headwordsIn(std::string_view headword) {
  const size_t open = headword.find(kOpening);
  if (open == std::string_view::npos || open == 0 || !headword.ends_with(kClosing))
    return {std::string(headword)};
  std::vector<std::string> out = {std::string(trimmed(headword.substr(0, open)))};
  std::string_view rest = headword.substr(open + kOpening.size());
  rest.remove_suffix(kClosing.size());
  while (!rest.empty()) {
    const size_t end = std::min({rest.find("・"), rest.find("、"), rest.size()});
    if (const std::string_view word = trimmed(rest.substr(0, end)); !word.empty()) out.emplace_back(word);
    rest.remove_prefix(std::min(end + std::string_view("、").size(), rest.size()));
  }
  return out;
}

}  // namespace

std::optional<Directive> directiveOf(std::string_view line) {
  if (!line.starts_with('@')) return std::nullopt;
  const size_t end = std::min(line.find_first_of(" \t"), line.size());
  const std::string_view argument = trimmed(line.substr(end));
  const size_t offset = argument.empty() ? end : static_cast<size_t>(argument.data() - line.data());
  return Directive{line.substr(1, end - 1), argument, offset};
}

bool isComment(std::string_view line) {
  return line.starts_with('#');
}

unsigned blanksAhead(std::string_view line) {
  unsigned columns = 0;
  for (const char c : line) {
    if (c != ' ' && c != '\t') break;
    columns = c == ' ' ? columns + 1 : (columns / kTab + 1) * kTab;
  }
  return columns;
}

std::vector<Span> TextSectionReader::spans(std::string_view text, size_t line, size_t shift) const {
  return MarkedText(text, line + 1, meanings_(line, shift)).spans();
}

void TextSectionReader::demandShort(const Directive& directive, size_t line, size_t most) const {
  if (charactersOf(directive.argument) > most)
    complain_(line, directive.offset, "too long; at most " + std::to_string(most) + " characters go here");
}

// Empty lines count between texts alone.
std::vector<Line> TextSectionReader::body(const TextSection& section) const {
  std::vector<Line> out;
  size_t empty = 0, bytes = 0;
  for (size_t i = section.first + 1; i < section.end; ++i) {
    const std::string_view line = lines_[i];
    bytes += line.size();
    if (isComment(line) || directiveOf(line)) continue;
    if (trimmed(line).empty()) {
      empty += out.empty() ? 0 : 1;
      continue;
    }
    for (; empty > 0; --empty) out.emplace_back();
    const std::string_view text = line.substr(line.find_first_not_of(" \t"));
    const size_t shift = line.size() - text.size();
    out.push_back({1 + blanksAhead(line), spans(text.substr(0, text.find_last_not_of(" \t") + 1), i, shift)});
  }
  if (bytes > kLongestEntry)
    complain_(section.first, 0, "more than 8 MB of text; make several entries of it");
  return out;
}

TextEntry TextSectionReader::entry(const TextSection& section) const {
  TextEntry out;
  const std::optional<Directive> head = directiveOf(lines_[section.first]);
  if (head->argument.empty()) complain_(section.first, head->offset, "an entry without a headword");
  demandShort(*head, section.first, kLongestWord);
  out.entry.headword = head->argument;
  out.entry.words = headwordsIn(head->argument);
  for (size_t i = section.first + 1; i < section.end; ++i)
    if (const std::optional<Directive> directive = directiveOf(lines_[i])) take(*directive, i, &out);
  out.entry.lines = body(section);
  return out;
}

void TextSectionReader::take(const Directive& directive, size_t line, TextEntry* out) const {
  constexpr std::string_view kKnown[] = {"word", "keyword", "cross", "label", "note", "value"};
  if (std::find(std::begin(kKnown), std::end(kKnown), directive.name) == std::end(kKnown))
    return complain_(
        line, 0,
        "unknown in an entry; there are @word, @keyword, @cross, @label, @note and @value. For text "
        "that begins with the sign write \\@");
  const std::string argument(directive.argument);
  const struct {
    const char* name;
    std::vector<std::string>* list;
  } lists[] = {{"word", &out->entry.words}, {"keyword", &out->keywords}, {"cross", &out->crossWords}};
  if (argument.empty())
    return complain_(line, directive.offset, "@" + std::string(directive.name) + " of nothing");
  for (const auto& [name, list] : lists) {
    if (directive.name != name) continue;
    demandShort(directive, line, kLongestWord);
    return list->push_back(argument);
  }
  if (directive.name == "label") {
    out->labels.emplace_back(argument, line);
  } else if (directive.name == "value") {
    value(directive, line, out);
  } else {
    out->entry.note = spans(directive.argument, line, directive.offset);
    out->entry.note.insert(out->entry.note.begin(), Span{Span::Kind::kPlain, " ", ""});
  }
}

void TextSectionReader::value(const Directive& directive, size_t line, TextEntry* out) const {
  const size_t colon = directive.argument.find(':');
  const std::string_view label = trimmed(directive.argument.substr(0, colon));
  if (colon == std::string_view::npos || label.empty() ||
      trimmed(directive.argument.substr(colon + 1)).empty())
    return complain_(line, directive.offset,
                     "a field and its value are looked for, as in: @value Colour: red");
  const std::string_view text = trimmed(directive.argument.substr(colon + 1));
  if (charactersOf(text) > kLongestValue)
    complain_(line, static_cast<size_t>(text.data() - lines_[line].data()),
              "too long; a value has at most 61 characters");
  out->values.emplace_back(label, text);
}

Menu TextSectionReader::menu(const TextSection& section) const {
  const std::optional<Directive> head = directiveOf(lines_[section.first]);
  Menu out{std::string(head->argument), head->name == "picture-menu", {}};
  if (out.name.empty()) complain_(section.first, head->offset, "a menu without a name");
  for (size_t i = section.first + 1; i < section.end; ++i)
    if (directiveOf(lines_[i]))
      complain_(i, 0, "unknown in a menu. For text that begins with the sign write \\@");
  out.lines = body(section);
  if (out.lines.empty()) complain_(section.first, 0, "a menu without lines");
  return out;
}

MultiSearch TextSectionReader::form(const TextSection& section) const {
  const std::optional<Directive> head = directiveOf(lines_[section.first]);
  MultiSearch out{std::string(head->argument), {}};
  if (out.name.empty()) complain_(section.first, head->offset, "a form without a name");
  demandShort(*head, section.first, kLongestFormName);
  size_t choices = 0;  // of the last field
  for (size_t i = section.first + 1; i < section.end; ++i) {
    const std::optional<Directive> directive = directiveOf(lines_[i]);
    if (directive && (directive->name == "field" || directive->name == "beginning")) {
      if (directive->argument.empty()) complain_(i, directive->offset, "a field without a label");
      if (directive->argument.find(':') != std::string_view::npos)
        complain_(i, directive->offset, "a label with a colon, which ends labels in @value");
      demandShort(*directive, i, kLongestFieldLabel);
      out.fields.push_back({std::string(directive->argument), directive->name == "beginning", {}});
      choices = 0;
    } else if (directive) {
      complain_(i, 0, "unknown in a form; there are @field and @beginning");
    } else if (!isComment(lines_[i]) && !trimmed(lines_[i]).empty()) {
      if (out.fields.empty()) return complain_(i, 0, "a choice without a field ahead of it"), out;
      choice(lines_[i], i, &out.fields.back().choices);
      if (++choices == kMostChoices + 1) complain_(i, 0, "a field of more than 65,536 choices");
    }
  }
  if (out.fields.empty()) complain_(section.first, 0, "a form without fields");
  if (out.fields.size() > kMostFields)
    complain_(section.first, 0, "a form of more than " + std::to_string(kMostFields) + " fields");
  return out;
}

// What is indented is below the choice ahead of it that isn't.
void TextSectionReader::choice(std::string_view line, size_t number, std::vector<Choice>* choices) const {
  const bool below = blanksAhead(line) > 0;
  std::string_view text = trimmed(line);
  const size_t offset = static_cast<size_t>(text.data() - line.data());
  if (text.starts_with("\\@") || text.starts_with("\\#")) text.remove_prefix(1);
  if (charactersOf(text) > kLongestValue)
    return complain_(number, offset, "too long; a choice has at most 61 characters");
  if (below && choices->empty()) return complain_(number, offset, "a choice below none");
  (below ? choices->back().below : *choices).emplace_back(std::string(text));
}

}  // namespace zavel::mkbook
