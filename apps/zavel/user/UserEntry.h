// An entry of the user's own, as the host handles it: UTF-8, without what the engine's structures need.
#ifndef ZAVEL_USER_USERENTRY_H
#define ZAVEL_USER_USERENTRY_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// Which of the two user dictionaries: English headwords, or Japanese ones.
enum class UserLanguage { kEnglish, kJapanese };

const char* languageCode(UserLanguage language);  // "en", "ja"
const char* languageName(UserLanguage language);  // "English", "Japanese"
std::optional<UserLanguage> languageOf(std::string_view code);

// Japanese where any character is none of ASCII, which no English headword holds.
UserLanguage guessLanguage(std::string_view word);

struct UserExample {
  std::string english;
  std::string japanese;

  bool operator==(const UserExample&) const = default;
};

struct UserEntry {
  UserLanguage language = UserLanguage::kEnglish;
  std::string word = {};                   // English headword; reading of a Japanese entry
  std::string kanji = {};                  // written form of a Japanese entry; empty: none
  int pos = 0;                             // part of speech 1 to 9 of an English entry without phrase, else 0
  std::string phrase = {};                 // an English entry that explains a phrase; else empty
  std::string meaning = {};                // the other language's
  std::vector<UserExample> examples = {};  // Japanese entries: example phrases
  std::vector<UserExample> sentences = {};  // Japanese entries only

  bool operator==(const UserEntry&) const = default;

  // What the entry is looked up by, as readers write it: "犬 (いぬ)", "bank".
  std::string title() const;

  // What two entries of one word and one part of speech, or one phrase, have in common.
  std::string identity() const;
};

// "noun", "pronoun", "adjective", "adverb", "verb", "transitive", "intransitive", "preposition",
// "conjunction" for 1 to 9; "" for all else.
const char* posName(int pos);
// By that name, by its beginnings in use ("adj", "vt"), or by the dictionary's own label (名, 他動, ...). 0
// for none.
int posOf(std::string_view name);
// All names, for messages: "noun, pronoun, ...".
std::string posNames();

}  // namespace zavel::host

#endif
