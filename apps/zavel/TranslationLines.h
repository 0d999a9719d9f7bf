// The lines of the translation dictionary's answers: the name of each dictionary behind a star, its entries
// below, indented, and as the last one how many more there are. Ahead of entries for the base of a word
// stands "goes: form of go".
#ifndef ZAVEL_TRANSLATIONLINES_H
#define ZAVEL_TRANSLATIONLINES_H

#include <cstddef>
#include <string>

namespace zavel::host {

// What an answer is about when `word` has signs, which the dictionary passes over: "C" for "C++", "AB" for
// "A/B". Empty when the word has none, and when each entry holds the word as it was typed, in whatever case
// and width, or is said to be for its base.
std::string lookedUpAs(const std::string& word, const std::string& answer);

// The answer without headings that name no dictionary, as numbers without a path leave them.
std::string namedEntries(const std::string& answer);

// The answer to `word` with at most `most` entries of each dictionary; 0 keeps all. Where some are left out,
// so is the line that counts the rest.
std::string firstEntries(const std::string& answer, const std::string& word, size_t most);

}  // namespace zavel::host

#endif
