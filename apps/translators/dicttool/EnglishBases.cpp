// Tests: tests/translators/EnglishBasesTest.cpp
#include "dicttool/EnglishBases.h"

#include <algorithm>
#include <utility>

namespace zavel::dicttool {
namespace {

using Bases = std::vector<std::vector<std::string>>;

bool isLetter(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

// No word has any, and the answer, which repeats the word, can't hold them.
bool isControl(char byte) {
  return (byte >= 0 && byte < ' ') || byte == 0x7F;
}

bool isCapital(char byte) {
  return byte >= 'A' && byte <= 'Z';
}

std::string small(std::string_view word) {
  std::string text(word);
  for (char& letter : text) {
    if (isCapital(letter)) letter = static_cast<char>(letter + ('a' - 'A'));
  }
  return text;
}

// The letters of a word in small ones, and what its spelling turns on.
class Spelling {
 public:
  explicit Spelling(std::string_view word) : letters_(small(word)) {}

  bool endsIn(std::string_view ending) const { return letters_.ends_with(ending); }
  bool endsInOneOf(std::initializer_list<std::string_view> endings) const {
    return std::any_of(endings.begin(), endings.end(), [this](std::string_view one) { return endsIn(one); });
  }
  size_t size() const { return letters_.size(); }
  char last() const { return letters_.empty() ? '\0' : letters_.back(); }

  // A "y" is a vowel inside a word, a "u" none behind a "q".
  bool isVowel(size_t at) const {
    const char letter = letters_[at];
    if (letter == 'y') return at > 0;
    if (letter == 'u' && at > 0 && letters_[at - 1] == 'q') return false;
    return letter == 'a' || letter == 'e' || letter == 'i' || letter == 'o' || letter == 'u';
  }
  size_t vowels() const {
    size_t count = 0;
    for (size_t i = 0; i < size(); ++i) count += isVowel(i) ? 1 : 0;
    return count;
  }
  bool canBeAWord() const { return size() >= 2 && vowels() > 0; }
  bool endsInDoubledConsonant() const {
    return size() >= 2 && letters_[size() - 1] == letters_[size() - 2] && !isVowel(size() - 1);
  }
  // "plan", "use" without its e: such a word doubles its last consonant ahead of an ending.
  bool doublesItsConsonant() const {
    return size() >= 2 && vowels() == 1 && isVowel(size() - 2) && !endsInOneOf({"w", "x", "y"});
  }

 private:
  std::string letters_;
};

std::string cut(std::string_view word, size_t letters) {
  return std::string(word.substr(0, word.size() - letters));
}

// "ies", "ied": the base ends in y ("cities") or in ie ("movies"); a short one in ie first ("dies").
Bases withY(std::string_view word) {
  const std::string stem = cut(word, 3);
  if (stem.empty()) return {};
  if (stem.size() == 1) return {{stem + "ie"}, {stem + "y"}};
  return {{stem + "y", stem + "ie"}};
}

Bases ofPlural(std::string_view word) {
  const Spelling spelling(word);
  const std::string stem = cut(word, 1);
  if (word.back() == 's' && stem.size() >= 2 && std::all_of(stem.begin(), stem.end(), isCapital)) {
    return {{stem}};  // "PCs"
  }
  if (spelling.endsInOneOf({"ss", "us", "is"}) || !Spelling(stem).canBeAWord()) return {};
  if (spelling.endsIn("ies")) return withY(word);
  if (spelling.endsIn("zzes")) return {{cut(word, 2)}, {cut(word, 3)}};
  if (spelling.endsInOneOf({"sses", "xes", "ches", "shes"})) return {{cut(word, 2)}, {stem}};
  if (spelling.endsInOneOf({"ses", "zes", "oes"})) return {{stem}, {cut(word, 2)}};
  if (spelling.endsIn("ves")) return {{stem, cut(word, 3) + "f", cut(word, 3) + "fe"}};
  return {{stem}};
}

// `stem`: what stands ahead of -ed or -ing.
Bases ofStem(const std::string& stem) {
  const Spelling spelling(stem);
  if (!spelling.canBeAWord()) return {};
  const std::string silent = stem + "e";
  if (spelling.endsInDoubledConsonant()) return {{stem}, {cut(stem, 1)}};
  if (spelling.last() == 'u' || spelling.doublesItsConsonant()) return {{silent}, {stem}};
  if (spelling.endsInOneOf({"a", "i", "o", "w", "y"})) return {{stem}, {silent}};
  if (spelling.last() == 'e') return {{stem}};
  if (spelling.endsIn("ck")) return {{stem, silent}, {cut(stem, 1)}};  // "panicked"
  return {{stem, silent}};
}

Bases ofPast(std::string_view word) {
  const Spelling spelling(word);
  if (spelling.endsIn("ied")) return withY(word);
  if (spelling.endsIn("eed")) return {{cut(word, 1)}};
  return ofStem(cut(word, 2));
}

Bases ofParticiple(std::string_view word) {
  const std::string stem = cut(word, 3);
  const Spelling spelling(stem);
  if (stem.size() == 2 && spelling.last() == 'y') return {{cut(stem, 1) + "ie"}, {stem}};  // "dying"
  return ofStem(stem);
}

Bases ofForm(std::string_view word) {
  if (word.size() < 3 || !std::all_of(word.begin(), word.end(), isLetter)) return {};
  const Spelling spelling(word);
  if (spelling.endsIn("ing")) return ofParticiple(word);
  if (spelling.endsIn("ed")) return ofPast(word);
  if (spelling.endsIn("s")) return ofPlural(word);
  return {};
}

}  // namespace

std::vector<std::vector<std::string>> englishBases(std::string_view word) {
  if (std::any_of(word.begin(), word.end(), isControl)) return {};
  for (const std::string_view mark : {"'", "’"}) {
    const std::string possessive = std::string(mark) + "s";
    if (Spelling(word).endsIn(possessive)) {
      if (word.size() == possessive.size()) return {};
      return {{cut(word, possessive.size())}};
    }
    if (word.ends_with(mark)) word.remove_suffix(mark.size());  // "compilers'"
  }
  const size_t start = word.rfind(' ') + 1;  // 0 without any
  Bases bases = ofForm(word.substr(start));
  for (std::vector<std::string>& alternatives : bases) {
    for (std::string& base : alternatives) base.insert(0, word.substr(0, start));
  }
  return bases;
}

}  // namespace zavel::dicttool
