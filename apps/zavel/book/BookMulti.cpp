// `zavel book multi`. Tests: tests/zavel/book/BookMultiTest.cpp
#include <cstdio>
#include <string>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookAnswer.h"
#include "book/BookFailure.h"
#include "book/BookForms.h"
#include "book/BookOptions.h"
#include "book/BookScreen.h"
#include "book/BookSearch.h"

namespace zavel::host {
namespace {

void writeChoices(JsonWriter& json, const std::vector<BookChoice>& choices) {
  json.beginArray();
  for (const BookChoice& choice : choices) {
    json.beginObject().member("name", choice.name).key("choices");
    writeChoices(json, choice.choices);
    json.endObject();
  }
  json.endArray();
}

void writeForm(JsonWriter& json, const BookForm& form, size_t number) {
  json.beginObject().member("number", static_cast<int64_t>(number)).member("name", form.name);
  json.key("fields").beginArray();
  for (size_t i = 0; i < form.fields.size(); ++i) {
    json.beginObject().member("number", static_cast<int64_t>(i + 1)).member("label", form.fields[i].label);
    json.key("choices");
    if (form.fields[i].hasChoices) {
      writeChoices(json, form.fields[i].choices);
    } else {
      json.null();
    }
    json.endObject();
  }
  json.endArray().endObject();
}

// Choices of one level stand side by side, those below one on lines of their own.
std::string choicesText(const std::vector<BookChoice>& choices, size_t indent, size_t width) {
  std::string out, row;
  const std::string margin(indent, ' ');
  const auto end = [&] {
    for (const ByteRange& line : breakLines(row, width > indent ? width - indent : 0, 0)) {
      if (!row.empty()) out += margin + row.substr(line.begin, line.end - line.begin) + "\n";
    }
    row.clear();
  };
  for (const BookChoice& choice : choices) {
    if (choice.choices.empty()) {
      row += (row.empty() ? "" : "  ") + choice.name;
      continue;
    }
    end();
    out += margin + choice.name + "\n" + choicesText(choice.choices, indent + 2, width);
  }
  end();
  return out;
}

std::string formText(const BookForm& form, size_t number, bool withChoices, const BookScreen& screen) {
  std::string out = std::to_string(number) + "  " + screen.bold(form.name) + "\n";
  for (size_t i = 0; i < form.fields.size(); ++i) {
    const BookField& field = form.fields[i];
    out += "   " + std::to_string(i + 1) + "  " + field.label;
    if (field.hasChoices) {
      const size_t count = choiceCount(field.choices);
      out += screen.dim("  (" + std::to_string(count) + (count == 1 ? " choice)" : " choices)"));
    }
    out += "\n";
    if (withChoices) out += choicesText(field.choices, 6, screen.look().width);
  }
  return out;
}

int showForms(const ShelvedBook& book, const std::vector<BookForm>& forms, std::optional<size_t> one,
              const BookOptions& options) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("book", book.name()).member("title", book.title());
  json.key("forms").beginArray();
  BookScreen screen(options, !options.json);
  for (size_t i = 0; i < forms.size(); ++i) {
    if (one && *one != i) continue;
    if (options.json) {
      writeForm(json, forms[i], i + 1);
    } else {
      screen.write(formText(forms[i], i + 1, one.has_value(), screen));
    }
  }
  if (options.json) std::printf("%s\n", json.endArray().endObject().text().c_str());
  return kExitFound;
}

// "FIELD=VALUE", the field by its number or its label.
Failure readFields(const BookForm& form, const std::vector<std::string>& given, std::vector<FieldKey>* keys) {
  std::string labels;
  for (const BookField& field : form.fields) labels += (labels.empty() ? "" : ", ") + field.label;
  for (const std::string& pair : given) {
    const size_t sign = pair.find('=');
    if (sign == std::string::npos || sign + 1 == pair.size()) {
      return {kExitUsage, "usage", quoted(pair) + " is no FIELD=VALUE", "The fields are: " + labels};
    }
    const std::optional<size_t> field = fieldIndex(form, pair.substr(0, sign));
    if (!field) {
      return {kExitUsage, "no_such_field", "the form has no field " + quoted(pair.substr(0, sign)),
              "The fields are: " + labels};
    }
    if (!isUtf8(pair)) return {kExitUsage, "not_text", "the value is not UTF-8 text", "Write it in UTF-8."};
    keys->emplace_back(static_cast<unsigned>(*field), pair.substr(sign + 1));
  }
  return {};
}

int search(ShelvedBook& book, size_t form, const std::vector<FieldKey>& keys, const BookOptions& options) {
  BookAnswer answer;
  for (const std::string& field : options.fields) answer.query += (answer.query.empty() ? "" : " ") + field;
  answer.method = "form";
  const BookHits hits = BookSearch(book).findForm(static_cast<unsigned>(form), keys);
  if (hits.failure) return report(hits.failure, options.json);
  answer.unknown = hits.unknown;
  answer.parts.push_back(answerPart(book, hits, static_cast<size_t>(options.limit)));
  if (!hits.available) return report(lacking(book.name(), "index for one of these fields"), options.json);
  BookScreen screen(options, !options.json && !options.plain);
  if (options.json) {
    screen.write(answerJson(answer) + "\n");
  } else if (options.plain) {
    screen.write(answerRecords(answer));
  } else {
    screen.write(answerText(answer, screen));
  }
  screen.finish();
  if (answer.found()) return kExitFound;
  if (!options.json) {
    warn("no entry for " + quoted(answer.query) + " in the book " + quoted(book.name()));
  }
  return kExitNothing;
}

}  // namespace

// Choices that can't be read keep nobody from searching.
int runBookMulti(const BookOptions& options) {
  ShelvedBook book;
  BookPlace place;
  std::vector<BookForm> forms;
  Failure failure = findBook(options.book, &place);
  if (!failure) failure = book.open(place);
  if (!failure) failure = readForms(book, &forms);
  if (failure && (forms.empty() || options.json)) return report(failure, options.json);
  std::optional<size_t> form;
  if (!options.form.empty()) {
    form = formIndex(forms, options.form);
    if (!form) {
      return report({kExitUsage, "no_such_form",
                     "the book " + quoted(book.name()) + " has no form " + quoted(options.form),
                     "See which there are: zavel book multi " + printable(options.book)},
                    options.json);
    }
  }
  if (!options.fields.empty()) {
    std::vector<FieldKey> keys;
    const Failure wrong = readFields(forms[*form], options.fields, &keys);
    return wrong ? report(wrong, options.json) : search(book, *form, keys, options);
  }
  const int status = showForms(book, forms, form, options);
  return failure ? report(failure, false) : status;
}

}  // namespace zavel::host
