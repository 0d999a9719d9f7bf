// Tests: tests/mkdict/SpellingPairsTest.cpp.
#include "mkdict/SpellingPairs.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

enum class Place { kAnywhere, kEnd, kBeforeVowel };

struct Correspondence {
  std::string_view british, american;
  Place place = Place::kAnywhere;
};

constexpr std::array kCorrespondences = {
    Correspondence{"our", "or"},                      // colour
    Correspondence{"re", "er", Place::kEnd},          // centre
    Correspondence{"is", "iz", Place::kBeforeVowel},  // realise, organisation
    Correspondence{"ys", "yz", Place::kBeforeVowel},  // analyse
    Correspondence{"nce", "nse"},                     // defence, defenceless
    Correspondence{"ctice", "ctise", Place::kEnd},    // see flips() for the verb
    Correspondence{"ogue", "og", Place::kEnd},        // catalogue
    Correspondence{"ae", "e"},                        // anaemia
    Correspondence{"oe", "e"},                        // oestrogen
    Correspondence{"mme", "m", Place::kEnd},          // programme
    Correspondence{"grey", "gray"},
    Correspondence{"inium", "inum", Place::kEnd},  // aluminium
    Correspondence{"oul", "ol"},                   // mould, smoulder
    Correspondence{"ough", "ow"},                  // plough
    Correspondence{"ulph", "ulf"},                 // sulphur
    Correspondence{"tyre", "tire"},
    Correspondence{"sce", "ske"},                  // sceptic
    Correspondence{"osy", "ozy", Place::kEnd},     // cosy
    Correspondence{"moust", "must"},               // moustache
    Correspondence{"gement", "gment"},             // judgement
    Correspondence{"geing", "ging", Place::kEnd},  // ageing
    Correspondence{"que", "ck", Place::kEnd},      // cheque
    Correspondence{"axe", "ax", Place::kEnd},
    Correspondence{"kerb", "curb"},
    Correspondence{"gaol", "jail"},
    Correspondence{"pyjama", "pajama"},
    Correspondence{"jewellery", "jewelry"},
    Correspondence{"draught", "draft"},
    Correspondence{"ghurt", "gurt", Place::kEnd},  // yoghurt
    Correspondence{"enqu", "inqu"},                // enquiry
    Correspondence{"aeroplane", "airplane"},
    Correspondence{"mum", "mom"},
};

// Spellings by a rule that Britain does not follow: "humourous", "deodourant", "partizan".
bool isExempt(std::string_view rest, const Correspondence& rule) {
  if (rule.british == "our") return rest.starts_with("ous") || rest.starts_with("ant");
  return rule.british == "is" && rest == "an";
}

// Words of which one may be written like the other in a sense that hardly anyone knows.
bool areStrangers(std::string_view a, std::string_view b) {
  return (a == "timbre" && b == "timber") || (a == "daemon" && b == "demon");
}

bool fits(std::string_view word, size_t at, const Correspondence& rule) {
  const size_t end = at + rule.british.size();
  if (isExempt(word.substr(end), rule)) return false;
  switch (rule.place) {
    case Place::kAnywhere:
      return true;
    case Place::kEnd:
      return end == word.size();
    case Place::kBeforeVowel:
      return at >= 2 && end < word.size() && isVowelLetter(word[end]);
  }
  return false;
}

// True when up to `steps` correspondences turn one word into the other.
bool leadsTo(const std::string& from, std::string_view to, int steps) {
  if (from == to) return true;
  if (steps == 0) return false;
  for (const Correspondence& rule : kCorrespondences) {
    for (size_t at = from.find(rule.british); at != std::string::npos; at = from.find(rule.british, at + 1)) {
      if (!fits(from, at, rule)) continue;
      std::string next = from;
      next.replace(at, rule.british.size(), rule.american);
      if (leadsTo(next, to, steps - 1)) return true;
    }
  }
  return false;
}

// "to practise" is the British verb, though "practice" has the British ending as a noun.
bool flips(std::string_view british, WordNet::Pos pos) {
  return pos == WordNet::kVerb && british.ends_with("ctice");
}

// Where usage differs about an l: at the end of a verb ("enroll") and before an ending ("traveller").
bool doublesRegularly(std::string_view longer, size_t at, WordNet::Pos pos) {
  const std::string_view rest = longer.substr(at + 2);
  if (rest.empty()) return pos == WordNet::kVerb;
  for (const std::string_view ending : {"ed", "er", "ery", "en", "ful", "fully", "fulness", "ing", "ist",
                                        "ment", "or", "ous", "ously", "y"}) {
    if (rest == ending) return true;
  }
  return false;
}

}  // namespace

bool SpellingPairs::corresponds(std::string_view british, std::string_view american) {
  return british != american && !areStrangers(british, american) &&
         leadsTo(std::string(british), american, 2);
}

std::optional<size_t> SpellingPairs::doubledL(std::string_view longer, std::string_view shorter) {
  if (longer.size() != shorter.size() + 1) return std::nullopt;
  for (size_t at = longer.find("ll"); at != std::string_view::npos; at = longer.find("ll", at + 1)) {
    if (longer.substr(0, at) == shorter.substr(0, at) && longer.substr(at + 1) == shorter.substr(at))
      return at;
  }
  return std::nullopt;
}

void SpellingPairs::add(const WordNet& wordNet, WordNet::Pos pos, const std::vector<uint32_t>& lemmas) {
  for (size_t i = 0; i < lemmas.size(); ++i) {
    for (size_t k = i + 1; k < lemmas.size(); ++k) {
      const std::string& a = wordNet.lemmas()[lemmas[i]].text;
      const std::string& b = wordNet.lemmas()[lemmas[k]].text;
      const size_t difference = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
      if (difference > 3 || !isPlainWord(a) || !isPlainWord(b)) continue;
      const bool pair = corresponds(a, b) || corresponds(b, a) || doubledL(a, b) || doubledL(b, a);
      if (!pair) continue;
      const auto words = a < b ? std::pair(lemmas[i], lemmas[k]) : std::pair(lemmas[k], lemmas[i]);
      ++candidates_[{words, pos}];
    }
  }
}

std::vector<SpellingPairs::Pair> SpellingPairs::pairs(const WordNet& wordNet) const {
  std::vector<Pair> out;
  for (const auto& [key, shared] : candidates_) {
    std::string a = wordNet.lemmas()[key.first.first].text, b = wordNet.lemmas()[key.first.second].text;
    const WordNet::Pos pos = key.second;
    bool aIsBritish = corresponds(a, b);
    if (!aIsBritish && !corresponds(b, a)) {
      const std::string& longer = a.size() > b.size() ? a : b;
      const std::optional<size_t> at = doubledL(longer, a.size() > b.size() ? b : a);
      if (!at) continue;
      // "fulfillment" keeps the ll of American "fulfill"; "traveller" doubles the l of "travel".
      const std::string stem = longer.substr(0, *at + 2);
      if (!doublesRegularly(longer, *at, pos)) continue;
      const bool longIsAmerican = stem == longer || wordNet.lemma(stem) != nullptr;
      aIsBritish = (longer == a) != longIsAmerican;
    }
    if (flips(aIsBritish ? a : b, pos)) aIsBritish = !aIsBritish;
    if (!aIsBritish) a.swap(b);
    out.push_back({std::move(a), std::move(b), pos, shared});
  }
  std::sort(out.begin(), out.end(), [](const Pair& x, const Pair& y) {
    return std::tie(x.british, x.american, x.pos) < std::tie(y.british, y.american, y.pos);
  });
  return out;
}

}  // namespace zavel::mkdict
