// The text of an English entry:
//
//   F5D1 *** F4B5 1 F4D0 light≦laIt≧ LF           stars, homograph number, headword, pronunciation
//   F5D3 -[名][Ｃ] LF                             part of speech
//   F5D4 F5BD 1 F5C1 光,明かり (electromagnetic waves) LF
//   F5D4 F5BD 2 F5C1 明かり,火 (something used to create fire) LF
//   F5D4 《英》 =colour F4B5 1 F4D0 . LF           another spelling: its headword and homograph
//
// The stars stand ahead of the number, because an adjective with a star in its headword has no forms. The
// scan for other spellings steps through a meaning by two bytes, so each meaning line has an even length,
// and ends the reference at ".", from where two bytes lead to the next tag.
#ifndef MKDICT_ENTRYTEXT_H
#define MKDICT_ENTRYTEXT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mkdict/EnglishWord.h"

namespace zavel::mkdict {

// A word that is the same but for its spelling.
struct SpellingReference {
  bool british = false;         // the entry's own headword is the British one
  std::string word;             // the other headword, ASCII
  std::vector<int> homographs;  // of the other headword; with none, the reference is a mere remark
};

// All text in Shift_JIS, fit for an entry.
struct EntryDraft {
  std::string word;  // ASCII, as ChkMidasiStrE accepts it
  PartOfSpeech pos = PartOfSpeech::kNone;
  std::vector<EnglishSense> senses;
  std::vector<SpellingReference> references;
  std::string pronunciation;  // phonetic bytes
  std::string stars;          // "", "**" or "***"
  int homograph = 1;
  bool countable = false;       // noun
  bool comparesByMore = false;  // adjective: "more ～; most ～"
  bool comparesNot = false;     // adjective
};

class EntryText {
 public:
  static std::string of(const EntryDraft& draft);

  // "-[名]" and so on without the line end, Shift_JIS; empty for kNone.
  static std::string label(PartOfSpeech pos);

  // A headword in the characters that searches accept: letters, blank, & ' - . / and _. Accents fall, and so
  // do commas, which end a headword for some readers, and "!" and "?" at the end. Nothing when other
  // characters are left.
  static std::optional<std::string> headword(std::string_view utf8);

  // Translations and notes of a UTF-8 sense in entry text. What can't be written is left out and named in
  // `lacking` (if given); nothing when no translation is left.
  static std::optional<EnglishSense> sense(const EnglishSense& utf8, std::vector<std::string>* lacking);
};

}  // namespace zavel::mkdict

#endif
