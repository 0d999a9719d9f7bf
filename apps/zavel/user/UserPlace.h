// Where the user dictionaries stand, and what their files are called.
#ifndef ZAVEL_USER_USERPLACE_H
#define ZAVEL_USER_USERPLACE_H

#include <string>
#include <vector>

#include "user/UserEntry.h"

namespace zavel::host {

class UserPlace {
 public:
  explicit UserPlace(std::string folder) : folder_(std::move(folder)) {}

  const std::string& folder() const { return folder_; }
  // What all files of both dictionaries begin with; the engine's user path.
  std::string prefix() const { return folder_ + "/my"; }
  std::string file(const std::string& name) const { return prefix() + name; }
  std::string lockFile() const { return folder_ + "/.lock"; }
  // Stands while a dictionary is being changed: a change that broke off is seen by it.
  std::string marker(UserLanguage language) const;
  // Says what this program left, beside the files and named like them, so that it is copied with them.
  std::string stamp(UserLanguage language) const;

  // Whether any file of the dictionary is there, or anything that may bring one back.
  bool exists(UserLanguage language) const;

  // Bytes of all its files together.
  uintmax_t size(UserLanguage language) const;

 private:
  std::string folder_;
};

// What to do where a file can't be written.
inline constexpr char kWriteHint[] = "Make room on the disk, or make the folder writable, and try again.";

// Names behind the prefix: the index that decides over the set first, then the others that every set has.
const std::vector<std::string>& userFiles(UserLanguage language);
// The further kanji indexes, of which there are as many as the header of "kji.idx" says.
constexpr int kMostKanjiIndexes = 10;
std::string kanjiIndexName(int number);

// The user's own place; its folder is empty where there is no home.
UserPlace userPlace();

}  // namespace zavel::host

#endif
