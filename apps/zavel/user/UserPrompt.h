// Questions on the terminal.
#ifndef ZAVEL_USER_USERPROMPT_H
#define ZAVEL_USER_USERPROMPT_H

#include <optional>
#include <string>
#include <vector>

#include "Failure.h"
#include "user/UserOptions.h"
#include "user/UserRecords.h"

namespace zavel::host {

// Whether somebody is there to be asked.
bool canAsk(const UserOptions& options);

// Writes `question` to standard error and reads a line, without blanks around it. Nothing at the end of the
// input and at a signal that is watched for.
std::optional<std::string> askLine(const std::string& question);
// The same; empty for nothing.
std::string ask(const std::string& question);

// Shows `found` and asks which are meant. Empty, with *failure, for none.
std::vector<StoredEntry> askWhich(const std::vector<StoredEntry>& found, bool manyAllowed, Failure* failure);

// Which of `found` are meant: by number, all, or, where there are several, whoever sits at the terminal says.
// Empty where nobody could say, or said none; *failure then tells why.
std::vector<StoredEntry> choose(const UserOptions& options, const std::vector<StoredEntry>& found,
                                bool manyAllowed, Failure* failure);

}  // namespace zavel::host

#endif
