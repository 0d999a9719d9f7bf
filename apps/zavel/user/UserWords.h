// The user's own entries as look-ups show them.
#ifndef ZAVEL_USER_USERWORDS_H
#define ZAVEL_USER_USERWORDS_H

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "LookResult.h"
#include "user/UserRoads.h"
#include "user/UserStore.h"

namespace zavel::host {

// The engine is one in a process, and a look-up opens it with the basic dictionary alone. So the user's
// entries are read in a session of their own, ahead of that: those of the words that will be asked for, or,
// where they are not known yet, all.
class UserWords {
 public:
  // Costs a look at the folder where the user has no entries. What keeps them from being read is told on
  // standard error, and the look-up goes on without them.
  void readFor(const std::vector<std::string>& words);
  void readAll();
  // What lists show. `words`: the beginnings that will be asked for; none: not known yet.
  void readHeadwords(const std::vector<std::string>& words);

  // Whether there are entries that could be read.
  bool any() const;

  // Puts the entries of `result->query` ahead of what is there, with the part that `mode` asks for, and tells
  // how that went. All words count by which the basic dictionary would answer too.
  void addEntries(Mode mode, LookResult* result) const;
  // Puts the headwords that begin as the query does ahead.
  void addHeadwords(LookResult* result) const;

 private:
  struct Found {
    UserEntry entry;
    Match match = Match::kExact;
    std::vector<std::string> via;
    std::string base;
  };
  // How reading the entries of a language went.
  struct Reading {
    bool done = false;  // there are entries, and they were read
    Failure failure;
  };
  using Entries = std::multimap<std::string, UserEntry>;  // by key

  static size_t indexOf(UserLanguage language) { return language == UserLanguage::kEnglish ? 0 : 1; }
  bool open(UserStore* store, UserLanguage language);
  void keepFailure(UserLanguage language, const Failure& failure);
  void readWord(UserStore* store, UserLanguage language, const std::string& word);
  void readEntries(UserStore* store, UserLanguage language);
  void addStored(UserLanguage language, const UserEntry& entry);
  std::vector<UserEntry> kept(UserLanguage language, const std::string& word) const;
  std::vector<Found> answersTo(const std::string& query) const;
  void tellHowItWent(LookResult* result) const;
  template <typename Find>
  static std::vector<Found> lookUp(const UserQuery& query, const Find& find);

  bool all_ = false;
  std::array<Reading, 2> readings_;
  std::map<std::string, std::vector<Found>> answers_;  // by word as it was asked for
  Entries english_, japanese_;                         // all of them; Japanese by reading and by written form
  std::vector<std::pair<UserLanguage, Headword>> headwords_;
};

}  // namespace zavel::host

#endif
