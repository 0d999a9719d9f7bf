// User entries as JSON; docs/json.md has the keys.
#ifndef ZAVEL_USER_USERJSON_H
#define ZAVEL_USER_USERJSON_H

#include <string>
#include <string_view>
#include <vector>

#include "JsonWriter.h"
#include "user/UserEntry.h"

namespace zavel::host {

// {"lang":"en","word":...}, with "number" ahead where it isn't 0.
void writeEntry(JsonWriter& json, const UserEntry& entry, size_t number = 0);

// One entry as read, or why it is none.
struct JsonEntry {
  UserEntry entry;
  std::string wrong;  // empty: nothing
};

// Reads one entry object. `language` as for tables.
JsonEntry readJsonEntry(std::string_view object, const UserLanguage* language);

// Reads a document: a list of entries, or an object that has one as "entries". False when it is none of
// these.
// `damage`: what an export of damaged entries tells of them; untouched otherwise.
bool readJsonDocument(std::string_view text, const UserLanguage* language, std::vector<JsonEntry>* entries,
                      std::string* damage);

// Whether the text is meant as one JSON value, not as one entry a line: it is one, or begins a list, or its
// first line goes on in the next, which is no value either.
bool isJsonDocument(std::string_view text);

// Where and why a text is no JSON value: "line 3, column 12: ...", a text of one line without its number.
// Empty for JSON.
std::string jsonFault(std::string_view text);

}  // namespace zavel::host

#endif
