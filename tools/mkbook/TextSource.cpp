// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/TextSource.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <set>

#include "mkbook/Failure.h"
#include "mkbook/MediumFault.h"
#include "mkbook/PictureFile.h"
#include "mkdict/Trimmed.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kLongestTitle = 63, kLongestPublisher = 240;  // bytes
constexpr uint32_t kFirstOwnIdentity = 65536;
constexpr const char* kHint = "The form is described in mkbook-text(5).";
constexpr const char* kPlain = ", written as plain text";

std::string folderOfFile(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

// Small letters are the same to a search as capitals.
std::string folded(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return out;
}

bool beginsSection(std::string_view name) {
  return name == "book" || name == "entry" || name == "menu" || name == "picture-menu" || name == "form";
}

}  // namespace

TextSource::TextSource(const std::string& path, mkdict::Summary* summary)
    : errors_(path), lines_(path, &errors_), media_(folderOfFile(path)) {
  findSections();
  readForms();
  readEntries();
  readMenus();
  checkValues();
  errors_.throwIfAny(kHint);
  if (entries_.empty()) throw Failure(mkdict::kExitDamaged, "empty_input", path + " has no entries", kHint);
  tellLost(summary);
}

void TextSource::complain(size_t line, size_t offset, const std::string& message) {
  errors_.add(line + 1, columnOf(lines_[line], offset), message);
}

// The header is read at once; the others wait, since they may lead to what comes later.
void TextSource::findSections() {
  std::vector<TextSection>* current = nullptr;
  std::vector<TextSection> headers;
  for (size_t i = 0; i < lines_.size(); ++i) {
    const std::optional<Directive> directive = directiveOf(lines_[i]);
    if (directive && beginsSection(directive->name)) {
      current = directive->name == "book"    ? &headers
                : directive->name == "entry" ? &entries_
                : directive->name == "form"  ? &formSections_
                                             : &menuSections_;
      if (current == &headers && !headers.empty()) complain(i, 0, "a second @book; a file is one book");
      current->push_back({i, i});
    } else if (current == nullptr && !isComment(lines_[i]) && !mkdict::trimmed(lines_[i]).empty()) {
      return complain(i, 0, "a book begins with @book and its title");
    }
    if (current != nullptr) current->back().end = i + 1;
  }
  if (headers.empty()) return errors_.add(1, 1, "a book begins with @book and its title");
  readHeader(headers.front());
}

void TextSource::readHeader(const TextSection& section) {
  for (size_t i = section.first; i < section.end; ++i) {
    if (const std::optional<Directive> directive = directiveOf(lines_[i])) {
      readHeaderLine(*directive, i);
    } else if (!isComment(lines_[i]) && !mkdict::trimmed(lines_[i]).empty()) {
      complain(i, 0, "text ahead of the first @entry");
    }
  }
}

void TextSource::readHeaderLine(const Directive& directive, size_t line) {
  if (directive.argument.empty())
    return complain(line, directive.offset, "@" + std::string(directive.name) + " of nothing");
  if (directive.name == "book") {
    title_ = directive.argument;
    if (platform().encoding().toSjisLossy(title_).bytes().size() > kLongestTitle)
      complain(line, directive.offset, "too long; a title has at most 31 Japanese characters or 63 letters");
  } else if (directive.name == "publisher") {
    publisher_ = directive.argument;
    if (publisher_.size() > kLongestPublisher)
      complain(line, directive.offset, "too long; at most 240 bytes go here");
  } else if (directive.name == "id") {
    identity_ = numberIn(directive, line, kFirstOwnIdentity);
  } else if (directive.name == "version") {
    version_ = numberIn(directive, line, 1);
  } else if (directive.name == "icon") {
    largeIcon_ = iconIn(directive, line, 32, 32);
  } else if (directive.name == "small-icon") {
    smallIcon_ = iconIn(directive, line, 16, 15);
  } else {
    complain(line, 0,
             "unknown ahead of the first @entry; there are @publisher, @id, @version, @icon and @small-icon");
  }
}

uint32_t TextSource::numberIn(const Directive& directive, size_t line, uint32_t least) {
  constexpr uint32_t kMost = INT32_MAX;
  uint32_t value = 0;
  const char* const end = directive.argument.data() + directive.argument.size();
  const auto [last, code] = std::from_chars(directive.argument.data(), end, value);
  if (code == std::errc() && last == end && value >= least && value <= kMost) return value;
  complain(line, directive.offset,
           "a number from " + std::to_string(least) + " to " + std::to_string(kMost) + " is looked for");
  return 0;
}

std::string TextSource::iconIn(const Directive& directive, size_t line, uint32_t width, uint32_t height) {
  try {
    return readIcon(media_.read(std::string(directive.argument)), width, height);
  } catch (const MediumFault& fault) {
    complain(line, directive.offset, std::string(directive.argument) + " " + fault.what());
    return "";
  }
}

// While the file is read for the first time: what is wrong is told, files are read, and where marks lead is
// noted for when all of it is known.
MarkMeanings TextSource::firstMeanings(size_t line, size_t shift, bool inMenu) {
  MarkMeanings out;
  out.complain = [=, this](size_t offset, const std::string& message) {
    complain(line, shift + offset, message);
  };
  out.label = [=, this](Span*, const std::string& label) { toLabels_.emplace_back(label, line); };
  out.menu = [=, this](Span*, const std::string& menu, size_t offset) {
    if (inMenu) {
      toMenus_.push_back({menu, inPictureMenu_, line, shift + offset});
    } else {
      complain(line, shift + offset, "only menus lead to menus");
    }
  };
  out.medium = [=, this](Span* span, const std::string& file, size_t offset) {
    try {
      span->medium = media_.add(file, span->kind == Span::Kind::kSound);
    } catch (const MediumFault& fault) {
      complain(line, shift + offset, file + " " + fault.what());
    }
  };
  return out;
}

// When all is known.
MarkMeanings TextSource::laterMeanings() const {
  MarkMeanings out;
  out.complain = [](size_t, const std::string&) {};
  out.label = [this](Span* span, const std::string& label) { lead(span, label); };
  out.menu = [this](Span* span, const std::string& name, size_t) {
    const auto known = [&](const Menu& menu) { return menu.name == name; };
    if (std::none_of(menus_.begin(), menus_.end(), known)) span->kind = Span::Kind::kPlain;
  };
  out.medium = [this](Span* span, const std::string& file, size_t) {
    span->medium = media_.numberOf(file, span->kind == Span::Kind::kSound);
  };
  return out;
}

void TextSource::lead(Span* span, const std::string& label) const {
  const auto found = labels_.find(label);
  const bool bare = span->text.empty() && span->inside.empty();
  if (found == labels_.end()) {
    span->kind = Span::Kind::kPlain;
    if (bare) span->text = label;
    return;
  }
  span->entry = static_cast<int64_t>(found->second);
  if (bare) span->text = directiveOf(lines_[entries_[found->second].first])->argument;
}

void TextSource::readEntries() {
  const TextSectionReader::Meanings meanings = [this](size_t line, size_t shift) {
    return firstMeanings(line, shift, false);
  };
  const TextComplaint complaint = [this](size_t line, size_t offset, const std::string& message) {
    complain(line, offset, message);
  };
  const TextSectionReader reader(lines_, meanings, complaint);
  for (size_t i = 0; i < entries_.size(); ++i) {
    for (const auto& [label, line] : reader.entry(entries_[i]).labels) {
      const auto [known, isNew] = labels_.emplace(label, i);
      if (!isNew)
        complain(line, 0,
                 "the label " + label + " is taken by the entry of line " +
                     std::to_string(entries_[known->second].first + 1));
    }
  }
}

void TextSource::readMenus() {
  const TextSectionReader::Meanings first = [this](size_t line, size_t shift) {
    return firstMeanings(line, shift, true);
  };
  const TextSectionReader::Meanings later = [this](size_t, size_t) { return laterMeanings(); };
  const TextComplaint complaint = [this](size_t line, size_t offset, const std::string& message) {
    complain(line, offset, message);
  };
  const TextComplaint silent = [](size_t, size_t, const std::string&) {};
  for (const TextSection& section : menuSections_) {
    inPictureMenu_ = directiveOf(lines_[section.first])->name == "picture-menu";
    Menu menu = TextSectionReader(lines_, first, complaint).menu(section);
    const auto same = [&](const Menu& other) { return other.name == menu.name; };
    if (std::any_of(menus_.begin(), menus_.end(), same))
      complain(section.first, 0, "a second menu of the name " + menu.name);
    menus_.push_back(std::move(menu));
  }
  for (const ToMenu& lead : toMenus_) {
    for (const Menu& menu : menus_)
      if (menu.name == lead.name && menu.pictures != lead.pictures)
        complain(lead.line, lead.offset, "menus with pictures and those without don't lead to each other");
  }
  if (errors_.total() > 0) return;
  for (size_t i = 0; i < menus_.size(); ++i)
    menus_[i] = TextSectionReader(lines_, later, silent).menu(menuSections_[i]);
}

void TextSource::readForms() {
  const TextSectionReader::Meanings none;
  const TextComplaint complaint = [this](size_t line, size_t offset, const std::string& message) {
    complain(line, offset, message);
  };
  for (const TextSection& section : formSections_)
    forms_.push_back(TextSectionReader(lines_, none, complaint).form(section));
  if (forms_.size() > kMostForms)
    complain(formSections_[kMostForms].first, 0, "more than " + std::to_string(kMostForms) + " forms");
}

// A value must have its field. Choices that no entry has are told.
void TextSource::checkValues() {
  if (errors_.total() > 0) return;
  std::set<std::pair<std::string, std::string>> values;
  std::set<std::string> labels;
  for (const MultiSearch& form : forms_)
    for (const SearchField& field : form.fields) labels.insert(field.label);
  for (const TextSection& section : entries_) {
    for (size_t i = section.first + 1; i < section.end; ++i) {
      const std::optional<Directive> directive = directiveOf(lines_[i]);
      if (!directive || directive->name != "value") continue;
      const size_t colon = directive->argument.find(':');
      const std::string label(mkdict::trimmed(directive->argument.substr(0, colon)));
      values.emplace(label, folded(mkdict::trimmed(directive->argument.substr(colon + 1))));
      if (!labels.contains(label)) complain(i, directive->offset, "no form has a field " + label);
    }
  }
  findStrayValues(values);
  const auto note = [&](const SearchField& field, const std::string& choice) {
    const auto at = values.lower_bound({field.label, folded(choice)});
    const bool found = at != values.end() && at->first == field.label &&
                       at->second.starts_with(folded(choice)) &&
                       (field.byBeginning || at->second.size() == choice.size());
    if (!found) deadChoices_.emplace_back(field.label, choice);
  };
  for (const MultiSearch& form : forms_) {
    for (const SearchField& field : form.fields) {
      for (const Choice& choice : field.choices) {
        if (choice.below.empty()) note(field, choice.name);
        for (const Choice& below : choice.below) note(field, below.name);
      }
    }
  }
}

// Where a field is asked for by one of its choices, a value that is none of them can't be asked for.
void TextSource::findStrayValues(const std::set<std::pair<std::string, std::string>>& values) {
  std::set<std::pair<std::string, std::string>> choices;
  std::set<std::string> chosen;
  for (const MultiSearch& form : forms_) {
    for (const SearchField& field : form.fields) {
      if (field.byBeginning || field.choices.empty()) continue;
      chosen.insert(field.label);
      for (const Choice& choice : field.choices) {
        choices.emplace(field.label, folded(choice.name));
        for (const Choice& below : choice.below) choices.emplace(field.label, folded(below.name));
      }
    }
  }
  for (const MultiSearch& form : forms_)
    for (const SearchField& field : form.fields)
      if (field.byBeginning || field.choices.empty()) chosen.erase(field.label);
  for (const auto& value : values)
    if (chosen.contains(value.first) && !choices.contains(value)) strayValues_.push_back(value);
}

void TextSource::tellLost(mkdict::Summary* summary) const {
  const auto place = [](const std::string& name, size_t line) {
    return name + " (line " + std::to_string(line + 1) + ")";
  };
  for (const auto& [label, line] : toLabels_)
    if (!labels_.contains(label))
      summary->leftOut(std::string("references to labels that no entry has") + kPlain,
                       place("#" + label, line));
  for (const ToMenu& lead : toMenus_) {
    const auto known = [&](const Menu& menu) { return menu.name == lead.name; };
    if (std::none_of(menus_.begin(), menus_.end(), known))
      summary->leftOut(std::string("items that lead to no menu") + kPlain, place(lead.name, lead.line));
  }
  for (size_t i = 0; i < menus_.size(); ++i) {
    const auto same = [&](const Menu& menu) { return menu.pictures == menus_[i].pictures; };
    const auto leadsHere = [&](const ToMenu& lead) { return lead.name == menus_[i].name; };
    const bool first = std::none_of(menus_.begin(), menus_.begin() + static_cast<ptrdiff_t>(i), same);
    if (!first && std::none_of(toMenus_.begin(), toMenus_.end(), leadsHere))
      summary->leftOut("menus that nothing leads to", menus_[i].name);
  }
  for (const auto& [field, choice] : deadChoices_)
    summary->leftOut("choices that no entry has", field + ": " + choice);
  for (const auto& [field, value] : strayValues_)
    summary->leftOut("values that are none of their field's choices", field + ": " + value);
}

TextEntry TextSource::parsed(size_t number) const {
  const TextSectionReader::Meanings meanings = [this](size_t, size_t) { return laterMeanings(); };
  const TextComplaint silent = [](size_t, size_t, const std::string&) {};
  return TextSectionReader(lines_, meanings, silent).entry(entries_[number]);
}

BookEntry TextSource::entry(size_t number) const {
  return parsed(number).entry;
}

std::vector<std::string> TextSource::keywords(size_t number) const {
  std::vector<std::string> out = BookSource::keywords(number);
  for (std::string& word : parsed(number).keywords) out.push_back(std::move(word));
  return out;
}

std::vector<std::string> TextSource::crossWords(size_t number) const {
  std::vector<std::string> out = BookSource::crossWords(number);
  for (std::string& word : parsed(number).crossWords) out.push_back(std::move(word));
  return out;
}

std::vector<std::vector<std::string>> TextSource::fieldValues(size_t entry, size_t form) const {
  std::vector<std::vector<std::string>> out(forms_[form].fields.size());
  for (const auto& [label, value] : parsed(entry).values) {
    for (size_t i = 0; i < out.size(); ++i)
      if (forms_[form].fields[i].label == label) out[i].push_back(value);
  }
  return out;
}

}  // namespace zavel::mkbook
