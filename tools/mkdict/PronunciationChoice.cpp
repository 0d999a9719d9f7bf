// Tests: tests/mkdict/PronunciationChoiceTest.cpp.
#include "mkdict/PronunciationChoice.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <tuple>
#include <utility>

#include "mkdict/Ipa.h"
#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

struct Candidate {
  std::string_view text;
  std::u32string codes;
};

using Candidates = std::vector<Candidate>;

bool isOneOf(char32_t code, std::u32string_view set) {
  return set.find(code) != std::u32string_view::npos;
}

// Keeps the candidates that pass a test, all of them when none does.
template <typename Test>
void prefer(Candidates& candidates, const Test& test) {
  if (std::none_of(candidates.begin(), candidates.end(), test)) return;
  std::erase_if(candidates, [&test](const Candidate& c) { return !test(c); });
}

bool isPlain(const Candidate& candidate) {
  return candidate.text.find_first_of("(),~") == std::string_view::npos;
}

bool isStrong(const Candidate& candidate) {
  const auto strong = [](char32_t code) { return isIpaVowel(code) && !isOneOf(code, U"əɘɚ"); };
  return std::any_of(candidate.codes.begin(), candidate.codes.end(), strong);
}

// True when the primary stress is marked and lies on the first syllable or, `later`, on another.
bool isStressed(std::u32string_view codes, bool later) {
  const size_t stress = codes.find(U'ˈ');
  return stress != std::u32string_view::npos && (ipaSyllables(codes.substr(0, stress)).count > 0) == later;
}

bool endsIn(std::u32string_view codes, std::u32string_view ending) {
  return codes.substr(0, ipaEnd(codes)).ends_with(ending);
}

bool endsInOneOf(std::u32string_view codes, std::u32string_view set) {
  const size_t end = ipaEnd(codes);
  return end > 0 && isOneOf(codes[end - 1], set);
}

void preferPartOfSpeech(Candidates& candidates, std::string_view word, PartOfSpeech pos, bool shared) {
  const bool verb = pos == PartOfSpeech::kVerb;
  if (word.ends_with("ate")) {
    prefer(candidates, [verb](const Candidate& c) { return endsIn(c.codes, U"eɪt") == verb; });
  }
  if (!shared) return;
  prefer(candidates, [verb](const Candidate& c) { return isStressed(c.codes, verb); });
  prefer(candidates, [verb](const Candidate& c) { return endsInOneOf(c.codes, verb ? U"zvð" : U"sfθ"); });
}

// Replaces a character by another where it is no glide of a diphthong.
std::u32string replaced(std::u32string codes, char32_t from, char32_t to) {
  for (size_t i = 0; i < codes.size(); ++i) {
    if (codes[i] == from && (i == 0 || !isOneOf(codes[i - 1], U"aoə"))) codes[i] = to;
  }
  return codes;
}

// "lʊv" beside "lʌv" is northern, "wɒn" beside "wʌn" as well.
bool hasOpenPartner(const Candidate& candidate, const Candidates& all) {
  for (const char32_t vowel : {U'ʊ', U'ɒ'}) {
    const std::u32string open = replaced(candidate.codes, vowel, U'ʌ');
    if (open == candidate.codes) continue;
    if (std::any_of(all.begin(), all.end(), [&open](const Candidate& c) { return c.codes == open; })) {
      return true;
    }
  }
  return false;
}

// Vowel signs that a transcription for all of English does without.
unsigned oddSounds(std::u32string_view codes) {
  unsigned odd = 0;
  for (size_t i = 0; i < codes.size(); ++i) {
    const char32_t code = codes[i], next = i + 1 < codes.size() ? codes[i + 1] : 0;
    const bool narrow = (code >= 0x300 && code <= 0x36F && !isOneOf(code, U"\u0329\u0361\u032F")) ||
                        (code >= 0x2B0 && code <= 0x2B7);
    const bool regional = isOneOf(code, U"ɐɘɵʉøœyʏäɯɤʈɖʋʔ");
    const bool half = (code == U'a' && !isOneOf(next, U"ɪʊi")) || (code == U'e' && !isOneOf(next, U"ɪiə")) ||
                      (code == U'o' && !isOneOf(next, U"ʊu"));
    const bool drawn = (next == U'ː' && isOneOf(code, U"ɪæʊɛ")) || (next == U'ɪ' && code == U'æ');
    odd += narrow || regional || half || drawn ? 1 : 0;
  }
  return odd;
}

// Endings that are seldom mute, and what they may sound like; the s of "corps" is.
bool endDiffers(std::string_view word, std::u32string_view codes) {
  constexpr std::array<std::pair<std::string_view, std::u32string_view>, 9> kEnds = {{{"b", U"b"},
                                                                                      {"d", U"dt"},
                                                                                      {"f", U"fv"},
                                                                                      {"k", U"k"},
                                                                                      {"l", U"lɫ"},
                                                                                      {"m", U"m"},
                                                                                      {"n", U"n"},
                                                                                      {"th", U"θð"},
                                                                                      {"us", U"sz"}}};
  for (const auto& [letters, sounds] : kEnds) {
    if (word.ends_with(letters)) return !endsInOneOf(codes, sounds);
  }
  return false;
}

// One spelling for what is one sound in most of English.
std::u32string common(std::u32string_view codes) {
  std::u32string out;
  for (size_t i = 0; i < codes.size(); ++i) {
    const char32_t code = codes[i], next = i + 1 < codes.size() ? codes[i + 1] : 0;
    const bool mark = (code >= 0x300 && code <= 0x36F) || isOneOf(code, U"ˈˌ.ːˑ()ʰʷ ");
    const bool silentR = isOneOf(code, U"rɹɻ") && !isIpaVowel(next);
    const bool glide = code == U'ə' && !out.empty() && isOneOf(out.back(), U"ɛɪʊɑ");
    if (mark || silentR || glide) continue;
    constexpr std::array<std::pair<char32_t, char32_t>, 11> kSame = {{{U'ɡ', U'g'},
                                                                      {U'ɫ', U'l'},
                                                                      {U'ɹ', U'r'},
                                                                      {U'ɻ', U'r'},
                                                                      {U'ɚ', U'ə'},
                                                                      {U'ɝ', U'ɜ'},
                                                                      {U'ɾ', U't'},
                                                                      {U'ɨ', U'ɪ'},
                                                                      {U'ɒ', U'ɑ'},
                                                                      {U'ɔ', U'ɑ'},
                                                                      {U'e', U'ɛ'}}};
    const auto* same =
        std::find_if(kSame.begin(), kSame.end(), [code](const auto& row) { return row.first == code; });
    const char32_t first = code == U'ə' ? U'o' : code;
    if (isOneOf(next, U"ɪʊ") && isOneOf(first, U"aeoɔæ")) {
      out += next == U'ʊ' ? first : first - U'a' + U'A';  // a diphthong is one sound
      ++i;
    } else if (code == U'a') {
      out += U'æ';
    } else {
      out += same == kSame.end() ? code : same->second;
    }
  }
  return out;
}

// Sounds to add, drop or change to get from one to the other.
size_t distance(std::u32string_view a, std::u32string_view b) {
  std::vector<size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), size_t{0});
  for (size_t i = 1; i <= a.size(); ++i) {
    size_t diagonal = std::exchange(row[0], i);
    for (size_t k = 1; k <= b.size(); ++k) {
      const size_t changed = diagonal + (a[i - 1] == b[k - 1] ? 0 : 1);
      diagonal = std::exchange(row[k], std::min({row[k] + 1, row[k - 1] + 1, changed}));
    }
  }
  return row[b.size()];
}

std::string_view mostTypical(const Candidates& candidates, std::string_view word) {
  std::vector<std::u32string> shapes;
  for (const Candidate& candidate : candidates) shapes.push_back(common(candidate.codes));
  std::string_view best;
  std::tuple<bool, size_t, unsigned> least;
  for (size_t i = 0; i < candidates.size(); ++i) {
    const Candidate& candidate = candidates[i];
    const unsigned odd = oddSounds(candidate.codes) + (endDiffers(word, candidate.codes) ? 1 : 0) +
                         (hasOpenPartner(candidate, candidates) ? 1 : 0);
    size_t apart = 0;
    for (const std::u32string& other : shapes) apart += distance(shapes[i], other);
    const std::tuple score(odd > 0, apart, odd);
    if (best.empty() || score < least) {
      best = candidate.text;
      least = score;
    }
  }
  return best;
}

}  // namespace

std::string_view choosePronunciation(const std::vector<std::string>& ipa, std::string_view spelled,
                                     PartOfSpeech pos, bool shared) {
  const std::string word = lowerCase(spelled);
  Candidates candidates;
  for (const std::string& sound : ipa) {
    const bool whole = !sound.empty() && sound.find('-') == std::string::npos;
    if (whole) candidates.push_back({sound, ipaCodes(sound)});
  }
  prefer(candidates, isPlain);
  prefer(candidates, isStrong);
  preferPartOfSpeech(candidates, word, pos, shared);
  return mostTypical(candidates, word);
}

}  // namespace zavel::mkdict
