// The entries of a damaged user dictionary that can still be read, one by one: the engine gives a list whole
// or not at all.
#ifndef ZAVEL_USER_USERSALVAGE_H
#define ZAVEL_USER_USERSALVAGE_H

#include <string>
#include <vector>

#include "user/UserCheck.h"
#include "user/UserEntry.h"
#include "user/UserStamp.h"

namespace zavel::host {

struct LostWord {
  UserLanguage language = UserLanguage::kEnglish;
  std::string word;
  size_t entries = 1;  // filed so; of a beginning alone nothing tells how many

  bool operator==(const LostWord&) const = default;
};

struct SalvagedEntries {
  std::vector<UserEntry> entries;  // in the order of the index
  // The words of those that can't be read whole, as far as the index spells them: in small letters, in
  // hiragana. A beginning alone, with "..." behind it, where words that begin so can't be.
  std::vector<LostWord> lost;
  // That the first index is none: the entries are all that their file holds, in the order in which they were
  // added, among them those that were deleted or changed later.
  bool byFile = false;
  // That there is more in that file than entries that can be read.
  bool gaps = false;
};

// With a stamp also what no index leads to and the stamp doesn't have for deleted, at the end. Where it fits
// and is of the whole file of entries, that file alone counts: nothing in it is lost.
SalvagedEntries salvageEntries(UserLanguage language, const UserPaths& paths, const UserStamp& stamp = {},
                               bool fits = false);

// The words of the entries, each once, in the order of lists.
std::vector<std::string> headwordsOf(const std::vector<UserEntry>& entries);

// How far they can be read, for a message: "the entry "grok" can't be read". Empty where there are none at
// all. `sure`: nothing tells that their file is of another time than the stamp or the index, or was altered.
std::string lostText(const SalvagedEntries& entries, bool sure);

}  // namespace zavel::host

#endif
