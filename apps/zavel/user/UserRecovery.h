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
// Each step leaves a state from which all of this can be done again, so that it may break off itself.
#ifndef ZAVEL_USER_USERRECOVERY_H
#define ZAVEL_USER_USERRECOVERY_H

#include <string>
#include <vector>

#include "Failure.h"
#include "user/UserPlace.h"

namespace zavel::host {

class UserRecovery {
 public:
  UserRecovery(const UserPlace& place, UserLanguage language) : place_(place), language_(language) {}

  // Whether anything stands there that a whole end would not have left. Opens no file.
  bool needed() const;

  // To be run under the lock, alone. What was put right goes to `told`, a line each. A failure: the
  // dictionary is damaged, or a file can't be written; whatever was there still is.
  Failure run(std::vector<std::string>* told);

  // The failure of a dictionary that can't be used as it stands: files missing, an index that is none. None
  // for one that is whole, or that has no file at all.
  Failure damage() const;

 private:
  std::string path(const std::string& name) const { return place_.file(name); }
  bool there(const std::string& name) const;
  std::vector<std::string> allNames() const;
  std::vector<std::string> withSuffix(const std::string& suffix) const;
  std::vector<std::string> strays() const;
  bool removeAll(const std::vector<std::string>& names, const char* suffix);
  bool undoArranging(std::vector<std::string>* told);
  bool undoMovingKanji(std::vector<std::string>* told);
  bool undoSaving(std::vector<std::string>* told);
  bool undoMaking(std::vector<std::string>* told);
  bool putBackSaved(const std::vector<std::string>& names);
  bool settleLeftOver(const std::string& name);
  bool removeSpareIndexes();
  bool trim(std::vector<std::string>* told);
  bool trimTo(const std::string& name, uint64_t end, uint64_t* cut);
  uint16_t typeOf(const std::string& name) const;
  Failure notWritten() const;

  UserPlace place_;
  UserLanguage language_;
};

}  // namespace zavel::host

#endif
