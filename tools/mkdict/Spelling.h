// The regular spellings of English endings, and small tests on letters.
#ifndef MKDICT_SPELLING_H
#define MKDICT_SPELLING_H

#include <string>
#include <string_view>

namespace zavel::mkdict {

bool isVowelLetter(char c);  // aeiou
std::string lowerCase(std::string_view word);

// "set up".
bool isPhrase(std::string_view word);

// True for a word that begins with a capital: "China", "WHO".
bool hasCapital(std::string_view word);

// Capitals behind the first letter: "TV", "McJob".
bool isMixed(std::string_view word);
// True when all of it is ASCII letters.
bool isPlainWord(std::string_view word);

// One ending each; `word` in small letters at its end. `hardCh`: its ch is spoken as k.
std::string withS(std::string_view word, bool hardCh = false);    // boxes, flies, boys, soliloquies
std::string withEd(std::string_view word, bool doubled = false);  // baked, tried, stopped
std::string withIng(std::string_view word, bool keepsE, bool doubled = false);  // baking, seeing, stopping
std::string withEr(std::string_view word, bool doubled = false);   // nicer, happier, bigger, grayer
std::string withEst(std::string_view word, bool doubled = false);  // nicest, happiest, biggest

// One syllable that ends in one vowel and one consonant which can double: "stop", "quit", not "fix", "play".
bool endsInShortSyllable(std::string_view word);

}  // namespace zavel::mkdict

#endif
