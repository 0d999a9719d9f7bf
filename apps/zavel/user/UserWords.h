// The user's own entries as look-ups show them.
#ifndef ZAVEL_USER_USERWORDS_H
#define ZAVEL_USER_USERWORDS_H

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "LookResult.h"
#include "WordForms.h"
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
  // The headwords alone, for lists.
  void readHeadwords();

  // Puts the entries of `result->query` ahead of what is there, with the part that `mode` asks for. Words
  // that the query is a form of count, too.
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

  bool open(UserStore* store, UserLanguage language) const;
  void readWord(UserStore* store, UserLanguage language, const std::string& word);
  std::vector<UserEntry> kept(UserLanguage language, const std::string& word) const;
  template <typename Find>
  static std::vector<Found> lookUp(UserLanguage language, const std::string& typed,
                                   const std::vector<InflectedFrom>& known, const Find& find);

  bool all_ = false;
  std::map<std::string, std::vector<Found>> answers_;       // by word as it was given
  std::multimap<std::string, UserEntry> english_;           // all of them, by key
  std::multimap<std::string, UserEntry> readings_, kanji_;  // likewise
  std::vector<std::pair<UserLanguage, std::string>> headwords_;
};

}  // namespace zavel::host

#endif
