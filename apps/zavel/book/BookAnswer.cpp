// Tests: tests/zavel/book/BookSearchTest.cpp
#include "book/BookAnswer.h"

#include <algorithm>

#include "JsonWriter.h"
#include "Utf8.h"
#include "book/BookFailure.h"

namespace zavel::host {
namespace {

constexpr const char* kNoHeadword = "(no headword)";

std::string field(const std::string& text) {
  std::string one = printable(text);
  std::replace_if(
      one.begin(), one.end(), [](char c) { return c == '\t' || c == '\n'; }, ' ');
  return one;
}

std::string rowsText(const BookAnswer::Part& part, const BookScreen& screen) {
  size_t width = 0;
  for (const BookAnswer::Row& row : part.rows) width = std::max(width, placeText(row.place).size());
  std::string out;
  for (const BookAnswer::Row& row : part.rows) {
    const std::string place = placeText(row.place);
    out += "  " + screen.dim(place) + std::string(width - place.size(), ' ') + "  " + row.headword + "\n";
  }
  if (part.count > part.rows.size()) {
    out += "  " + screen.dim("and " + std::to_string(part.count - part.rows.size()) + " more") + "\n";
  }
  return out;
}

const char* statusOf(const BookAnswer::Part& part) {
  if (part.failure) return "failed";
  if (!part.available) return "not_available";
  return part.count > 0 ? "found" : "not_found";
}

}  // namespace

bool BookAnswer::found() const {
  return std::any_of(parts.begin(), parts.end(), [](const Part& part) { return part.count > 0; });
}

bool BookAnswer::unavailable() const {
  return std::none_of(parts.begin(), parts.end(), [](const Part& part) { return part.available; });
}

Failure BookAnswer::failure() const {
  const auto failed =
      std::find_if(parts.begin(), parts.end(), [](const Part& part) { return bool(part.failure); });
  return failed == parts.end() ? Failure() : failed->failure;
}

bool BookAnswer::allFailed() const {
  return std::all_of(parts.begin(), parts.end(), [](const Part& part) { return bool(part.failure); });
}

BookAnswer::Part answerPart(ShelvedBook& book, const BookHits& hits, size_t limit) {
  BookAnswer::Part part{book.name(), book.title(), {}, hits.hits.size(), hits.available, hits.failure};
  BookSearch search(book);
  const size_t shown = limit > 0 ? std::min(limit, hits.hits.size()) : hits.hits.size();
  for (size_t i = 0; i < shown; ++i) {
    std::string headword = search.headword(hits.hits[i]);
    part.rows.push_back({hits.hits[i].body, headword.empty() ? kNoHeadword : std::move(headword)});
  }
  return part;
}

std::string answerText(const BookAnswer& answer, const BookScreen& screen) {
  std::string out;
  for (const BookAnswer::Part& part : answer.parts) {
    if (part.count == 0) continue;
    const std::string name = printable(part.name);
    out += screen.bold(part.title) + (name == part.title ? "" : screen.dim("  [" + name + "]")) + "\n";
    out += rowsText(part, screen);
  }
  return out;
}

std::string answerRecords(const BookAnswer& answer) {
  std::string out;
  for (const BookAnswer::Part& part : answer.parts) {
    for (const BookAnswer::Row& row : part.rows) {
      out += field(answer.query) + "\t" + field(part.name) + "\t" + placeText(row.place) + "\t" +
             field(row.headword) + "\n";
    }
  }
  return out;
}

std::string answerJson(const BookAnswer& answer) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("query", answer.query);
  json.member("status", answer.found() ? "found" : "not_found").member("method", answer.method);
  json.key("unknown");
  if (answer.unknown.empty()) {
    json.null();
  } else {
    json.string(answer.unknown);
  }
  json.key("entries").beginArray();
  for (const BookAnswer::Part& part : answer.parts) {
    for (const BookAnswer::Row& row : part.rows) {
      json.beginObject().member("book", part.name).member("place", placeText(row.place));
      json.member("headword", row.headword).endObject();
    }
  }
  json.endArray().strings("suggestions", answer.suggestions).key("books").beginArray();
  for (const BookAnswer::Part& part : answer.parts) {
    json.beginObject().member("name", part.name).member("title", part.title).member("status", statusOf(part));
    json.member("count", static_cast<int64_t>(part.count)).key("error");
    writeError(json, part.failure);
    json.endObject();
  }
  json.endArray().endObject();
  return json.text();
}

}  // namespace zavel::host
