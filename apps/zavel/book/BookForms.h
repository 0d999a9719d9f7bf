// Forms: searches of a book's own with several fields.
#ifndef ZAVEL_BOOK_BOOKFORMS_H
#define ZAVEL_BOOK_BOOKFORMS_H

#include <optional>
#include <string>
#include <vector>

#include "Failure.h"
#include "book/ShelvedBook.h"

namespace zavel::host {

struct BookChoice {
  std::string name;
  std::vector<BookChoice> choices;  // below it
};

struct BookField {
  std::string label;
  bool hasChoices = false;
  std::vector<BookChoice> choices;
};

struct BookForm {
  std::string name;
  std::vector<BookField> fields;
};

// With their choices; the failure of a list that can't be read comes with all the rest.
Failure readForms(ShelvedBook& book, std::vector<BookForm>* forms);

// The form of a number from 1 on, or of a name; nothing when there is none.
std::optional<size_t> formIndex(const std::vector<BookForm>& forms, const std::string& given);

// The field of a number from 1 on, or of a label.
std::optional<size_t> fieldIndex(const BookForm& form, const std::string& given);

// How many choices there are that have none below them.
size_t choiceCount(const std::vector<BookChoice>& choices);

}  // namespace zavel::host

#endif
