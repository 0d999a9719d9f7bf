// Puts the entries of a file into the user dictionaries.
#ifndef ZAVEL_USER_USERIMPORT_H
#define ZAVEL_USER_USERIMPORT_H

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Failure.h"
#include "user/ProgressLine.h"
#include "user/UserOptions.h"
#include "user/UserStore.h"

namespace zavel::host {

// An entry of the file, or why it is none.
struct ImportItem {
  size_t line = 0;  // of a table or of one entry a line; else its number in the document
  UserEntry entry;
  std::string wrong;
};

// Finds out the form of `text` and takes it apart; entries are settled. A failure where it is none at all.
// *byLine: whether `line` counts lines.
// *damage: what it tells of the entries, where these were damaged when it was exported.
Failure readImport(std::string_view text, const UserLanguage* language, std::vector<ImportItem>* items,
                   bool* byLine, std::string* damage);

struct ImportCounts {
  size_t added = 0, replaced = 0, present = 0, skipped = 0, refused = 0;
};

// Stores items, one language after the other.
class UserImport {
 public:
  UserImport(const UserOptions& options, std::vector<ImportItem>* items);

  // Ends early at a signal, and at what no further entry could be stored after; what is in until then is
  // stored. Counts have only what is. Where the entries of one language are damaged, those of the other are
  // stored all the same.
  Failure run();

  const ImportCounts& counts() const { return counts_; }

 private:
  Failure runLanguage(UserLanguage language);
  // The entries of one word: how often the dictionary has each and the file had it so far.
  struct Word {
    struct Times {
      size_t stored = 0, read = 0;
    };
    std::map<std::string, Times> entries;  // by all that an entry has
    std::set<std::string> identities;      // of the dictionary's
  };

  Failure store(UserStore& store, const UserEntry& entry, ImportCounts* counts);
  Failure takeNew(UserStore& store, const UserEntry& entry, Word* word, ImportCounts* counts);
  // Puts it in the place of one that the file did not have so far, if there is one.
  Failure replace(UserStore& store, const UserEntry& entry, Word* word, bool* replaced);
  Failure wordOf(UserStore& store, const UserEntry& entry, Word** word);

  const UserOptions& options_;
  std::vector<ImportItem>& items_;
  ProgressLine progress_;
  size_t done_ = 0;
  std::map<std::string, Word> words_;  // of the language at hand, as far as they were met
  std::set<std::string> own_;          // identities of what came in by this import
  ImportCounts counts_;
};

}  // namespace zavel::host

#endif
