// Puts a user dictionary right that a crash, a kill or a power cut left in the middle of a change.
//
// The engine keeps the state before a change in backups beside the files while the files are in between, and
// leaves it to whoever opens them to put the backups back:
//
//   ej.idx.arrbkp, kna.idx.arrbkp   the files were being rewritten: every ".arrbkp" is the state before
//   kji.idx.Bkup                    the kanji index was being moved aside: this is what it was
//   ej.idx.bkup, kna.idx.bkup       indexes were being saved: every ".bkup" is the state before
//   such files without these        are left over
//
// Backups also come from elsewhere: from copies of the folder, from programs that keep folders alike, from
// restores by hand. So none is trusted: it counts when the marker of a change that broke off stands there, it
// fits what the marker says, and the files with it in its place belong together. One that doesn't count is
// moved to a name of its own ("myej.idx.bkup.kept-1") where the files are whole without it; where they are
// not, nothing is touched and both are named.
//
// Each step leaves a state from which all of this can be done again, so that it may break off itself. Backups
// are renamed into their places, which needs no room on a full disk.
#ifndef ZAVEL_USER_USERRECOVERY_H
#define ZAVEL_USER_USERRECOVERY_H

#include <string>
#include <vector>

#include "Failure.h"
#include "user/UserCheck.h"
#include "user/UserMarker.h"
#include "user/UserPlace.h"

namespace zavel::host {

class UserRecovery {
 public:
  UserRecovery(const UserPlace& place, UserLanguage language) : place_(place), language_(language) {}

  // Whether anything stands there that a whole end would not have left. Opens no file.
  bool needed() const;

  // Whether any backup stands there.
  bool backups() const;

  // To be run under the lock, alone. What was put right goes to `told`, a line each. A failure: the
  // dictionary is damaged, or a file can't be read or written; whatever was there still is.
  Failure run(std::vector<std::string>* told);

  // Takes what is whole and not clear as it stands, from now on. Copies of its files are kept, and told.
  void accept(std::vector<std::string>* told) { accepted_ = told; }

  // What a look at the whole files found.
  struct Standing {
    FileRanges gaps;       // in the file of entries
    bool stamped = false;  // the stamp fits
  };
  // The failure of a dictionary that can't be used as it stands: files missing, an index that is none, files
  // that don't belong together, or that don't lead to all that was stored. None for one that is whole and
  // clear, or that has no file at all. `standing`: may be null; filled where kAll finds nothing wrong.
  Failure damage(UserCheck::Depth depth, Standing* standing) const;

 private:
  // The files with backups of these suffixes in their places, where there are any.
  UserPaths pathsWith(const std::vector<std::string>& suffixes) const;
  // Of what a change that broke off may have left, as its marker says.
  UserCheck check(const UserPaths& paths) const;
  UserCheck filesAsTheyAre() const { return check(pathsWith({})); }
  std::string path(const std::string& name) const { return place_.file(name); }
  std::string firstIndex() const { return userFiles(language_).front(); }
  bool there(const std::string& name) const;
  std::vector<std::string> allNames() const;
  std::vector<std::string> withSuffix(const std::string& suffix) const;
  std::vector<std::string> strays() const;
  Failure settle(const char* suffix, std::vector<std::string>* told);
  bool counts(const char* suffix, const UserCheck& backup, const UserCheck& files) const;
  bool countsAsSaved(const UserCheck& backup, const UserCheck& files) const;
  Failure putBack(const char* suffix, std::vector<std::string>* told);
  Failure moveAway(const char* suffix, std::vector<std::string>* told);
  // Under the first name that is free.
  bool keep(const std::string& file, std::string* name, bool copied = false) const;
  bool removeAll(const std::vector<std::string>& names, const char* suffix);
  bool undoMaking(std::vector<std::string>* told);
  bool removeSpareIndexes();
  Failure finishChange(const UserCheck& files, std::vector<std::string>* told);
  Failure notClear(const UserCheck& files, Standing* standing) const;
  Failure takeAsItStands(const UserCheck& files) const;
  void stampAnew(const UserCheck& files) const;
  bool trim(const UserCheck& files, std::vector<std::string>* told);
  bool trimTo(const std::string& name, uint64_t end, uint64_t* cut);
  bool anyFile() const;
  Failure failureOf(const UserCheck& files) const;
  Failure notWritten() const;
  Failure notTaken() const;

  UserPlace place_;
  UserLanguage language_;
  UserMarker marker_;
  std::vector<std::string>* accepted_ = nullptr;
};

}  // namespace zavel::host

#endif
