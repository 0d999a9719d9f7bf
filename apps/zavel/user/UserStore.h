// One of the user dictionaries, open: the lock, what is left to put right, the engine's session, and the
// engine's answers as plain sentences. One at a time in a process, and not while look-ups have the engine.
#ifndef ZAVEL_USER_USERSTORE_H
#define ZAVEL_USER_USERSTORE_H

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Failure.h"
#include "LockFile.h"
#include "user/BasicSet.h"
#include "user/UserCheck.h"
#include "user/UserPlace.h"
#include "user/UserRecords.h"
#include "user/UserSalvage.h"

namespace zavel::host {

enum class UserAccess {
  kRead,   // beside other readers; an absent dictionary is not made
  kWrite,  // alone; an absent one is made
};

class UserStore {
 public:
  // `dictionary`: the folder of the basic dictionary.
  UserStore(UserPlace place, std::string dictionary);
  // Closes; what a failed close would tell is lost, so call close() where something was changed.
  ~UserStore();
  UserStore(const UserStore&) = delete;
  UserStore& operator=(const UserStore&) = delete;

  // How long to wait for others to let go; two seconds at first.
  void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

  // Waits a moment for others to let go. What an earlier process left in the middle is put right first, and
  // told on standard error.
  Failure open(UserLanguage language, UserAccess access);

  // For open() for writing: what is whole and not clear is taken as it stands.
  void acceptUnclear() { accepting_ = true; }

  // Why not all that is there may be found: open() for reading takes what isn't clear, too. None for a
  // dictionary that is.
  const Failure& unclear() const { return unclear_; }

  // False after open() for reading where there is no dictionary: searches then find nothing.
  bool hasEntries() const { return session_; }

  // Searches. `word` as it was typed: it is folded into the dictionary's characters, and one that no entry
  // can have finds nothing. English: entries filed under the same letters. Japanese: by reading, or by
  // written form.
  Failure find(const std::string& word, std::vector<StoredEntry>* found);

  // Entries filed with this word, as stored, however many there are.
  Failure findStored(const std::string& word, std::vector<StoredEntry>* found);

  // Whether the files belong together, as far as that shows without taking each entry apart. open() has
  // looked ahead of writing; ahead of reading it looks at the indexes alone.
  Failure check() const;

  // For the words of damaged dictionaries: the entries that can be read, one by one, whether open() went well
  // or not. The failure, with what can't be read in its message.
  Failure salvage(Failure damage, std::vector<UserEntry>* entries);
  // What the last of these didn't find.
  const std::vector<LostWord>& lost() const { return lost_; }

  // Every entry. Of a damaged dictionary those that can be read, with the failure that tells of the others.
  Failure readAll(Failure opened, std::vector<UserEntry>* entries);

  // Headwords, Japanese ones by reading, each once.
  Failure headwords(std::vector<std::string>* words);

  // Changes, of settled entries. After a change all that was found before has to be found anew.
  Failure add(const UserEntry& entry);
  Failure replace(const StoredEntry& old, const UserEntry& entry);
  Failure remove(const StoredEntry& old);
  // Finds an entry anew that was found in this session.
  Failure findAgain(StoredEntry* stored) const;
  // Where this fails, the entries are as they were before, and the session is over.
  Failure arrange();

  // Ends the session. Nothing counts as stored before this gave no failure: all is on the disk then.
  Failure close();

  const UserPlace& place() const { return place_; }

 private:
  Failure lock(UserAccess access);
  Failure noFolder() const;
  Failure unreadable() const;
  Failure recover();
  Failure look();
  Failure dropStamp();
  void stampAnew();
  Failure beginSession();
  Failure beginWithNewFiles();
  Failure undo();
  void unmark();
  Failure failureOf(uint16_t status, const std::string& what) const;
  Failure searchFailure(uint16_t status, const std::string& what) const;
  Failure statusFailure(uint16_t status, const std::string& what, bool writing) const;
  Failure readEach(std::vector<UserEntry>* entries);
  Failure findByKanji(const std::string& word, std::vector<StoredEntry>* found);
  bool english() const { return language_ == UserLanguage::kEnglish; }

  UserPlace place_;
  BasicSet basic_;
  UserLanguage language_ = UserLanguage::kEnglish;
  UserAccess access_ = UserAccess::kRead;
  std::chrono::milliseconds patience_{2000};
  std::unique_ptr<LockFile> lock_;
  bool session_ = false;
  bool changed_ = false;  // in memory: the index in its file is another
  bool accepting_ = false;
  Failure unclear_;
  std::vector<LostWord> lost_;
  // For the stamp: what nothing leads to.
  FileRanges dead_;
  bool refused_ = false;  // texts of entries may stand there that were not taken into the index then
};

}  // namespace zavel::host

#endif
