// The words beside the query itself whose entries of the user's own answer it: those by which the dictionary
// answers, and those that an ending leads to.
#ifndef ZAVEL_USER_USERROADS_H
#define ZAVEL_USER_USERROADS_H

#include <string>
#include <vector>

#include "LookResult.h"
#include "WordForms.h"
#include "user/UserEntry.h"

namespace zavel::host {

struct UserRoad {
  std::string word;
  Match match = Match::kExact;
  InflectedFrom inflected = {};           // of an English form: how it is one, by part of speech
  std::vector<std::string> reasons = {};  // of other forms: the chain that leads to the word
  std::string base = {};                  // what an answer names as the origin of the query

  // What the reader is told of an entry of the word; empty where the entry has no such form.
  std::vector<std::string> via(const UserEntry& entry) const;
};

// The query as it was typed, and in the characters of headwords where those are others; each in the language
// that it is of.
struct UserQuery {
  UserLanguage language;
  std::string word;
};
std::vector<UserQuery> userQueries(const std::string& typed);

// Of an English word: other spellings and the word that it is derived from, as the basic dictionary has them;
// bases by its inflection tables and by regular endings. The engine may be open or not; without it the
// regular endings alone count.
std::vector<UserRoad> englishRoads(const std::string& word);

// The words that an apostrophe joins, and their bases.
std::vector<UserRoad> contractionRoads(const std::string& word);

// Of a Japanese word: its dictionary forms; with `isWord` those alone that leave little doubt.
std::vector<UserRoad> japaneseRoads(const std::string& word, bool isWord);

}  // namespace zavel::host

#endif
