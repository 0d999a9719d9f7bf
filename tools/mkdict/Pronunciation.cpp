// Tests: tests/mkdict/PronunciationTest.cpp.
#include "mkdict/Pronunciation.h"

#include <algorithm>
#include <array>
#include <utility>

#include "mkdict/Ipa.h"
#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

constexpr std::string_view kEndSh = "A\xD8", kEndCh = "A\xD9", kEndOpen = "A\xC5";

constexpr std::array<std::pair<char32_t, std::string_view>, 36> kLetters = {{
    {U'ə', "@"}, {U'ɪ', "I"}, {U'ʊ', "U"},  {U'ɛ', "E"},  {U'æ', "{"}, {U'ɑ', "A"},  {U'ɒ', "Q"}, {U'ɔ', "O"},
    {U'ʌ', "V"}, {U'ɜ', "3"}, {U'ɚ', "@r"}, {U'ɝ', "3r"}, {U'ɐ', "6"}, {U'ɘ', "@"},  {U'ɵ', "8"}, {U'ɨ', "I"},
    {U'ʉ', "U"}, {U'ø', "2"}, {U'œ', "9"},  {U'θ', "T"},  {U'ð', "D"}, {U'ʃ', "S"},  {U'ʒ', "Z"}, {U'ŋ', "N"},
    {U'ɹ', "r"}, {U'ɻ', "r"}, {U'ɡ', "g"},  {U'ɫ', "l"},  {U'ɾ', "4"}, {U'ʍ', "hw"}, {U'ɲ', "J"}, {U'ç', "C"},
    {U'ː', ":"}, {U'ˈ', "'"}, {U'ˌ', "%"},  {U'ä', "a"},
}};

// Vowel letters in a row make a syllable, y among them; a silent e at the end does not, but "le" does.
unsigned spelledSyllables(std::string_view word) {
  unsigned count = 0;
  bool inside = false;
  for (const char c : word) {
    const bool vowel = isVowelLetter(c) || c == 'y';
    if (vowel && !inside) ++count;
    inside = vowel;
  }
  const size_t n = word.size();
  const bool silent = n > 2 && word[n - 1] == 'e' && !isVowelLetter(word[n - 2]) &&
                      !(word[n - 2] == 'l' && !isVowelLetter(word[n - 3]));
  return silent && count > 1 ? count - 1 : std::max(count, 1u);
}

bool endsInI(std::u32string_view ipa) {
  const size_t end = ipaEnd(ipa);
  return end > 0 && (ipa[end - 1] == U'i' || ipa[end - 1] == U'ɪ') &&
         !(end > 1 && isIpaVowel(ipa[end - 2]) && ipa[end - 2] != U'i');
}

bool endsInEi(std::u32string_view ipa) {
  const size_t end = ipaEnd(ipa);
  return end > 0 && (ipa[end - 1] == U'e' ||
                     (end > 1 && ipa[end - 1] == U'ɪ' && (ipa[end - 2] == U'e' || ipa[end - 2] == U'ɛ')));
}

// "Bach", "stomach", "monarch": ch as k, when no pronunciation tells.
bool looksHard(std::string_view word) {
  for (const std::string_view end : {"omach", "poch", "loch", "nuch", "tych", "iarch", "narch", "rarch"}) {
    if (word.ends_with(end)) return true;
  }
  return false;
}

// The end that the conjugation rules need to see, empty where the letters are enough.
std::string_view endFor(std::string_view word, const Sounds& sounds) {
  if (word.ends_with("sh")) return kEndSh;
  if (word.ends_with("ch") && !sounds.hardCh) return kEndCh;
  if (word.ends_with("z")) return "z";
  if (sounds.keepsE) return word.ends_with("ye") || word.ends_with("oe") ? kEndOpen : "e";
  return "";
}

}  // namespace

Sounds Pronunciation::sounds(std::string_view spelled, std::string_view ipa) {
  const std::string word = lowerCase(spelled);
  const std::u32string codes = ipaCodes(ipa);
  Sounds out;
  out.known = std::any_of(codes.begin(), codes.end(), isIpaVowel);
  const bool openEnd = word.ends_with("ye") || word.ends_with("oe");
  if (!out.known) {
    out.syllables = spelledSyllables(word);
    out.lastStressed = out.syllables == 1;
    out.hardCh = looksHard(word);
    out.keepsE = openEnd || word.ends_with("ee") || word == "be";
    return out;
  }
  out.syllables = ipaSyllables(codes).count;
  out.lastStressed = ipaLastStressed(codes);
  const size_t end = ipaEnd(codes);
  out.hardCh = word.ends_with("ch") && end > 0 && (codes[end - 1] == U'k' || codes[end - 1] == U'x');
  const bool consonantE = word.size() > 2 && word.ends_with('e') && !isVowelLetter(word[word.size() - 2]);
  const bool spokenE = consonantE && endsInEi(codes);
  out.keepsE = openEnd || word.ends_with("ee") || word == "be" || spokenE ||
               (consonantE && !word.ends_with("re") && endsInI(codes));
  return out;
}

std::string Pronunciation::encode(std::string_view spelled, std::string_view ipa) {
  const std::string word = lowerCase(spelled);
  const Sounds known = sounds(word, ipa);
  const std::string_view end = endFor(word, known);
  const std::u32string codes = ipaCodes(ipa);
  std::string out;
  for (const char32_t code : codes) {
    const auto* letter =
        std::find_if(kLetters.begin(), kLetters.end(), [code](const auto& row) { return row.first == code; });
    if (letter != kLetters.end()) {
      out += letter->second;
    } else if ((code >= U'a' && code <= U'z') || code == U' ' || code == U'(' || code == U')') {
      out += static_cast<char>(code);
    }
  }
  while (!out.empty() && out.back() == ' ') out.pop_back();
  if (out.empty()) return end.empty() ? std::string() : "-" + std::string(end);
  if (end == kEndSh && out.ends_with('S')) out.pop_back();
  if (end == kEndCh && out.ends_with("tS")) out.resize(out.size() - 2);
  if (end == "z" && (out.ends_with('z') || out.ends_with('s'))) out.pop_back();
  if (end == "e") {
    while (!out.empty() &&
           (out.back() == ':' || out.back() == 'i' || out.back() == 'I' || out.back() == 'e')) {
      out.pop_back();
    }
  }
  // An "e" that is silent must not look spoken.
  if (end.empty() && out.ends_with('e') && word.ends_with('e')) out.back() = 'E';
  out += end;
  return out;
}

}  // namespace zavel::mkdict
