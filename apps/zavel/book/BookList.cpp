// `zavel book list`. Tests: tests/zavel/book/BookCommandTest.cpp
#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookFailure.h"
#include "book/BookOptions.h"
#include "book/ShelvedBook.h"

namespace zavel::host {
namespace {

struct Row {
  BookPlace place;
  std::string title;  // empty with a failure
  Failure failure;
};

std::vector<Row> readRows(const std::vector<BookPlace>& places) {
  std::vector<Row> rows;
  for (const BookPlace& place : places) {
    ShelvedBook book;
    Failure failure = book.open(place);
    std::string title = failure ? std::string() : book.title();
    rows.push_back({place, std::move(title), std::move(failure)});
  }
  return rows;
}

void printJson(const std::vector<Row>& rows) {
  JsonWriter json;
  json.beginObject().member("schema", 1).key("books").beginArray();
  for (const Row& row : rows) {
    json.beginObject().member("name", row.place.name).key("title");
    if (row.failure) {
      json.null();
    } else {
      json.string(row.title);
    }
    json.member("folder", row.place.folder).key("error");
    writeError(json, row.failure);
    json.endObject();
  }
  json.endArray().endObject();
  std::printf("%s\n", json.text().c_str());
}

void printRows(const std::vector<Row>& rows, bool plain) {
  size_t width = 0;
  for (const Row& row : rows) width = std::max(width, row.failure ? 0 : columns(printable(row.place.name)));
  for (const Row& row : rows) {
    if (row.failure) continue;
    const std::string name = printable(row.place.name);
    if (plain) {
      std::printf("%s\t%s\t%s\n", name.c_str(), row.title.c_str(), printable(row.place.folder).c_str());
    } else {
      std::printf("%s%*s  %s\n", name.c_str(), static_cast<int>(width - columns(name)), "",
                  row.title.c_str());
    }
  }
}

}  // namespace

// Books that can't be opened are named behind the others.
int runBookList(const BookOptions& options) {
  std::vector<BookPlace> places;
  if (const Failure failure = chooseBooks({}, &places)) return report(failure, options.json);
  const std::vector<Row> rows = readRows(places);
  if (options.json) {
    printJson(rows);
  } else {
    printRows(rows, options.plain);
  }
  size_t failed = 0;
  int status = kExitFound;
  for (const Row& row : rows) {
    if (!row.failure) continue;
    ++failed;
    status = report(row.failure, false);
  }
  return failed > 0 && failed < rows.size() ? kExitPartly : status;
}

}  // namespace zavel::host
