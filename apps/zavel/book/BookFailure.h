// What the book engine's result codes mean to a user.
#ifndef ZAVEL_BOOK_BOOKFAILURE_H
#define ZAVEL_BOOK_BOOKFAILURE_H

#include <cstdint>
#include <string>
#include <vector>

#include "Failure.h"
#include "JsonWriter.h"

namespace zavel::host {

inline constexpr const char* kDamagedBook = "damaged_book";
inline constexpr const char* kNotFound = "not_found";

// `name` is what the user calls the book by; `what` was under way, as a sentence begins: "the search".
Failure bookFailure(uint32_t code, const std::string& name, const std::string& what);

// Of a book that can't be opened.
Failure openFailure(uint32_t code, const std::string& name, const std::string& catalog);

// Of a file that is no catalog.
Failure noCatalog(const std::string& name, const std::string& catalog);

// What a book hasn't, as a sentence ends: "a menu".
Failure lacking(const std::string& name, const std::string& what);

// Of files that its catalog names and that are missing, one at least.
Failure lackingFiles(const std::string& name, const std::vector<std::string>& files);

// {"code","message","hint"}, or null for none.
void writeError(JsonWriter& json, const Failure& failure);

// A name in a message.
std::string quoted(const std::string& name);

}  // namespace zavel::host

#endif
