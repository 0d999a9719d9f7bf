// User entries as tab-separated text: a header line, then an entry a line. The manual page zavel-user(1) has
// the columns.
#ifndef ZAVEL_USER_USERTABLE_H
#define ZAVEL_USER_USERTABLE_H

#include <string>
#include <string_view>
#include <vector>

#include "user/UserEntry.h"

namespace zavel::host {

// Both with their line end.
std::string tableHeader();
std::string tableLine(const UserEntry& entry);

// "ENGLISH=JAPANESE" with a backslash ahead of "=", "|" and backslashes in the texts; ahead of anything else
// a backslash is itself. False without a "=".
bool readExample(std::string_view text, UserExample* example);
std::string exampleText(const UserExample& example);

class TableReader {
 public:
  // Takes the header line, also behind a mark of the byte order. Empty, or why it is none. Columns may stand
  // in any order; "word" and "meaning" must be there.
  std::string readHeader(std::string_view line);

  // Takes one line behind it. `language` is for a table without the column "lang", or with an empty one: null
  // means to guess. Empty, or why the line is no entry. Texts are as they stand, not settled.
  std::string readLine(std::string_view line, const UserLanguage* language, UserEntry* entry) const;

 private:
  std::string take(const std::string& column, std::string_view cell, UserEntry* entry) const;

  std::vector<std::string> columns_;
};

}  // namespace zavel::host

#endif
