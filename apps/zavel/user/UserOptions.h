// What the command line gives to `zavel user`, and its commands. Each gives the exit status.
#ifndef ZAVEL_USER_USEROPTIONS_H
#define ZAVEL_USER_USEROPTIONS_H

#include <optional>
#include <string>
#include <vector>

#include "user/UserEntry.h"

namespace zavel::host {

struct UserOptions {
  std::string word, meaning;
  std::string lang;  // "en", "ja" or empty: guessed
  std::string pos, phrase, kanji, reading;
  std::vector<std::string> examples, sentences, settings;
  std::string file = "-";      // of import and export
  std::string format = "tsv";  // of export: "tsv", "json" or "jsonl"
  std::string progress = "auto";
  std::string filter;  // beginning of the words to list
  long number = 0;     // of the entry, from 1 on; 0: not given
  bool all = false, yes = false, force = false, replace = false, skipExisting = false, noInput = false,
       accept = false;
  bool json = false;

  std::optional<UserLanguage> language() const { return languageOf(lang); }
};

int runUserAdd(const UserOptions& options);
int runUserEdit(const UserOptions& options);
int runUserFind(const UserOptions& options);
int runUserList(const UserOptions& options);
int runUserDelete(const UserOptions& options);
int runUserArrange(const UserOptions& options);
int runUserImport(const UserOptions& options);
int runUserExport(const UserOptions& options);

}  // namespace zavel::host

#endif
