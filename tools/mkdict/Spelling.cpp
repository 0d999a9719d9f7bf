// Tests: tests/mkdict/InflectionTest.cpp.
#include "mkdict/Spelling.h"

#include <algorithm>

namespace zavel::mkdict {
namespace {

// A y that becomes i before an ending: "try", "soliloquy", not "boy".
bool changesY(std::string_view word) {
  const size_t n = word.size();
  if (n < 2 || word[n - 1] != 'y') return false;
  return !isVowelLetter(word[n - 2]) || (n > 2 && word[n - 2] == 'u' && word[n - 3] == 'q');
}

// The stem before an ending that begins with a vowel, the e left on.
std::string stem(std::string_view word, bool doubled) {
  std::string out(word);
  if (doubled && !word.empty()) out += word.back();
  return out;
}

std::string withVowelEnding(std::string_view word, bool doubled, std::string_view afterE,
                            std::string_view ending) {
  std::string out = stem(word, doubled);
  if (changesY(word) && !doubled) {
    out.back() = 'i';
    return out + std::string(ending);
  }
  return out + std::string(!doubled && word.ends_with('e') ? afterE : ending);
}

}  // namespace

bool isVowelLetter(char c) {
  return std::string_view("aeiou").find(c) != std::string_view::npos;
}

std::string lowerCase(std::string_view word) {
  std::string out(word);
  for (char& c : out) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return out;
}

bool isPhrase(std::string_view word) {
  return word.find(' ') != std::string_view::npos;
}

bool hasCapital(std::string_view word) {
  return !word.empty() && word[0] >= 'A' && word[0] <= 'Z';
}

bool isMixed(std::string_view word) {
  const std::string_view rest = word.substr(std::min<size_t>(1, word.size()));
  return std::any_of(rest.begin(), rest.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

bool isPlainWord(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
}

std::string withS(std::string_view word, bool hardCh) {
  std::string out(word);
  if (word.ends_with('s') || word.ends_with('x') || word.ends_with('z') || word.ends_with("sh") ||
      (word.ends_with("ch") && !hardCh)) {
    return out + "es";
  }
  if (changesY(word)) {
    out.pop_back();
    return out + "ies";
  }
  return out + "s";
}

std::string withEd(std::string_view word, bool doubled) {
  return withVowelEnding(word, doubled, "d", "ed");
}

std::string withIng(std::string_view word, bool keepsE, bool doubled) {
  std::string out = stem(word, doubled);
  if (!doubled && !keepsE && word.size() > 1 && word.ends_with('e') && !word.ends_with("ie")) out.pop_back();
  return out + "ing";
}

std::string withEr(std::string_view word, bool doubled) {
  return withVowelEnding(word, doubled, "r", "er");
}

std::string withEst(std::string_view word, bool doubled) {
  return withVowelEnding(word, doubled, "st", "est");
}

bool endsInShortSyllable(std::string_view word) {
  const size_t n = word.size();
  if (n < 3 || !isPlainWord(word)) return false;
  if (std::string_view("bdfgklmnprtvz").find(word[n - 1]) == std::string_view::npos) return false;
  if (!isVowelLetter(word[n - 2])) return false;
  size_t vowels = 0;
  for (size_t i = 0; i < n; ++i) {
    const bool quiet = i > 0 && word[i] == 'u' && word[i - 1] == 'q';
    if ((isVowelLetter(word[i]) && !quiet) || (word[i] == 'y' && i > 0)) ++vowels;
  }
  return vowels == 1;
}

}  // namespace zavel::mkdict
