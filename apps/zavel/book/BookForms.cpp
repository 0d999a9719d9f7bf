// Tests: tests/zavel/book/BookMultiTest.cpp
#include "book/BookForms.h"

#include <cstdlib>

#include "QueryText.h"
#include "Utf8.h"
#include "book/BookEntry.h"
#include "book/BookFailure.h"
#include "book/BookStatus.h"
#include "book/BookText.h"
#include "book/SDic.h"

namespace zavel::host {
namespace {

// Letters, digits and signs as they are typed: such texts have the full-width ones alone.
std::string narrowed(const std::string& utf8) {
  std::string out;
  std::string_view left = utf8;
  char32_t c = 0;
  for (size_t length = 0; (length = decodeUtf8(left, &c)) > 0; left.remove_prefix(length)) {
    out += utf8Of(c >= 0xFF01 && c <= 0xFF5E ? c - 0xFEE0 : c == 0x3000 ? ' ' : c);
  }
  return out;
}

// Labels are filled up with blanks, and zeroes end them.
std::string labelText(char* text) {
  const std::string bytes = text;
  std::free(text);
  return std::string(withoutOuterBlanks(narrowed(foreignText(bytes))));
}

// Depth and number of nodes are bounded where the list is read.
std::vector<BookChoice> choicesOf(const _SDICMULTIREFLIST* node, const BookCharacters& characters) {
  std::vector<BookChoice> choices;
  for (; node; node = node->next) {
    size_t length = 0;
    while (length + 2 <= sizeof node->name && (node->name[length] != 0 || node->name[length + 1] != 0))
      length += 2;
    choices.push_back(
        {narrowed(plainText({node->name, length}, characters)), choicesOf(node->child, characters)});
  }
  return choices;
}

Failure readField(ShelvedBook& book, uint16_t form, uint8_t number, BookField* field) {
  char* label = nullptr;
  uint32_t code = SDicGetMultiSearchEntryInfo(book.handle(), form, number, &label, &field->hasChoices);
  if (code != book::kDone) return bookFailure(code, book.name(), "reading the form");
  field->label = labelText(label);
  if (!field->hasChoices) return {};
  _SDICMULTIREFLIST* list = nullptr;  // the book's own
  code = SDicGetMultiSearchReferenceList(book.handle(), form, number, &list);
  if (code != book::kDone)
    return bookFailure(code, book.name(), "reading the choices of " + quoted(field->label));
  field->choices = choicesOf(list, book.characters());
  return {};
}

// A number from 1 on as an index below `count`.
std::optional<size_t> indexOf(const std::string& given, size_t count) {
  if (given.empty() || given.size() > 5 || given.find_first_not_of("0123456789") != std::string::npos)
    return std::nullopt;
  const size_t number = std::stoul(given);
  return number >= 1 && number <= count ? std::optional(number - 1) : std::nullopt;
}

// As it can be compared with what was typed.
std::string comparable(const std::string& text) {
  std::string plain = plainCharacters(text);
  for (char& c : plain) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return plain;
}

}  // namespace

Failure readForms(ShelvedBook& book, std::vector<BookForm>* forms) {
  uint16_t count = 0;
  Failure first;
  if (SDicGetMultiSearchCount(book.handle(), &count) != book::kDone || count == 0) {
    return lacking(book.name(), "forms");
  }
  for (uint16_t number = 0; number < count; ++number) {
    char* name = nullptr;
    uint8_t fields = 0;
    uint32_t code = SDicGetMultiSearchName(book.handle(), number, &name);
    forms->emplace_back();
    if (code == book::kDone) forms->back().name = labelText(name);
    if (code == book::kDone) code = SDicGetMultiSearchEntryCount(book.handle(), number, &fields);
    if (code != book::kDone && !first) first = bookFailure(code, book.name(), "reading the form");
    for (uint8_t field = 0; code == book::kDone && field < fields; ++field) {
      forms->back().fields.emplace_back();
      const Failure failure = readField(book, number, field, &forms->back().fields.back());
      if (failure && !first) first = failure;
    }
  }
  return first;
}

std::optional<size_t> formIndex(const std::vector<BookForm>& forms, const std::string& given) {
  for (size_t i = 0; i < forms.size(); ++i) {
    if (comparable(forms[i].name) == comparable(given)) return i;
  }
  return indexOf(given, forms.size());
}

std::optional<size_t> fieldIndex(const BookForm& form, const std::string& given) {
  for (size_t i = 0; i < form.fields.size(); ++i) {
    if (comparable(form.fields[i].label) == comparable(given)) return i;
  }
  return indexOf(given, form.fields.size());
}

size_t choiceCount(const std::vector<BookChoice>& choices) {
  size_t count = 0;
  for (const BookChoice& choice : choices) count += choice.choices.empty() ? 1 : choiceCount(choice.choices);
  return count;
}

}  // namespace zavel::host
