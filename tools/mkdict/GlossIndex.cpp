// Tests: tests/mkdict/GlossIndexTest.cpp.
#include "mkdict/GlossIndex.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "mkdict/EdictLabels.h"
#include "mkdict/PartsOfSpeech.h"
#include "mkdict/Spelling.h"
#include "mkdict/Utf8.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kMostWords = 3;
constexpr size_t kLongest = 100;  // bytes of a gloss; what is longer is a definition
constexpr size_t kMostCommon = 6, kMostOthers = 3;

// Weights of a candidate's score.
constexpr uint32_t kWorst = 10000;      // of a place in a line
constexpr uint32_t kUncommon = 70;      // not marked as a common word
constexpr uint32_t kPerSense = 30;      // a word's later senses are its lesser ones
constexpr uint32_t kPerGloss = 4;       // and so are later glosses of a sense
constexpr uint32_t kRemark = 20;        // "(esp. ...)" narrows a gloss
constexpr uint32_t kDisagreement = 30;  // the two languages use different parts of speech
constexpr uint32_t kPhrase = 40;        // a Japanese phrase, abbreviation or slang for an English word
constexpr uint32_t kLoan = 25;          // the English word itself in katakana says the least
constexpr uint32_t kPerCharacter = 2;   // from the fifth character on: long words tend to be paraphrases

constexpr uint32_t kFar = 150;  // behind the best candidate: five senses further down

// A reading in hiragana, without long marks and dots: "メールマガジン" and "メール・マガジン" are one word.
std::u32string soundOf(std::string_view reading) {
  std::u32string out;
  for (const char32_t code : decodeUtf8(reading).value_or(std::u32string())) {
    if (code == U'ー' || code == U'・') continue;
    out += code >= U'ァ' && code <= U'ヶ' ? code - U'ァ' + U'ぁ' : code;
  }
  return out;
}

bool takePrefix(std::string_view* text, std::string_view prefix) {
  if (!text->starts_with(prefix)) return false;
  text->remove_prefix(prefix.size());
  return true;
}

bool takeSuffix(std::string_view* text, std::string_view suffix) {
  if (!text->ends_with(suffix)) return false;
  text->remove_suffix(suffix.size());
  return true;
}

bool takeBrackets(std::string_view* text) {
  if (text->ends_with(')')) {
    const size_t open = text->rfind(" (");
    if (open == std::string_view::npos) return false;
    *text = text->substr(0, open);
    return true;
  }
  if (text->starts_with('(')) {
    const size_t close = text->find(") ");
    if (close == std::string_view::npos) return false;
    text->remove_prefix(close + 2);
    return true;
  }
  return false;
}

// "lighthouse keeper", "academy of arts", not "accepting an order" or "above anything else".
bool isCompound(std::string_view phrase) {
  size_t place = 0;
  while (!phrase.empty()) {
    const size_t end = std::min(phrase.find(' '), phrase.size());
    const std::string_view word = phrase.substr(0, end);
    for (const std::string_view small :
         {"a",    "an",    "the",  "and",     "or",      "to",        "in",    "on",    "at",    "for",
          "by",   "from",  "with", "without", "be",      "being",     "about", "above", "after", "before",
          "each", "other", "one",  "one's",   "as",      "when",      "not",   "no",    "into",  "out",
          "than", "this",  "that", "some",    "someone", "something", "very",  "more",  "up"}) {
      if (word == small) return false;
    }
    if (place++ == 0 && word.ends_with("ing")) return false;
    phrase.remove_prefix(std::min(end + 1, phrase.size()));
  }
  return true;
}

// What an EDICT code makes of an English gloss.
PartOfSpeech englishOf(std::string_view code) {
  if (code == "n" || code == "n-adv" || code == "n-t") return PartOfSpeech::kNoun;
  if (code.starts_with("adj")) return PartOfSpeech::kAdjective;
  if (code == "adv" || code == "adv-to") return PartOfSpeech::kAdverb;
  if (code.starts_with("v") && code != "vt" && code != "vi") return PartOfSpeech::kVerb;
  if (code == "pn") return PartOfSpeech::kPronoun;
  if (code == "conj") return PartOfSpeech::kConjunction;
  if (code == "int") return PartOfSpeech::kInterjection;
  if (code == "num") return PartOfSpeech::kNumeral;
  return PartOfSpeech::kNone;
}

void addNew(std::vector<std::string>& texts, const std::string& text) {
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

bool isVerbal(std::string_view code) {
  return englishOf(code) == PartOfSpeech::kVerb || code == "exp";
}

// True when WordNet has the word as a gloss spells it. The capital of "Red" may be the gloss's own, that of
// "FAR" is not, and WordNet's "Be" is no "be".
bool isListed(const WordNet::Lemma& lemma, WordNet::Pos pos, std::string_view word) {
  if (!hasCapital(word)) return lemma.isCommon(pos);
  return lemma.isName(pos) || (lemma.is(pos) && !isMixed(word));
}

bool isListedAtAll(const WordNet::Lemma& lemma, std::string_view word) {
  for (uint8_t pos = 0; pos < WordNet::kPosCount; ++pos) {
    if (isListed(lemma, static_cast<WordNet::Pos>(pos), word)) return true;
  }
  return false;
}

}  // namespace

std::optional<std::string> GlossIndex::headword(std::string_view gloss, bool* verb, bool* remarked) const {
  *verb = *remarked = false;
  while (takeBrackets(&gloss)) *remarked = true;
  *verb = takePrefix(&gloss, "to ");
  while (takeBrackets(&gloss)) *remarked = true;  // "to (do) ..."
  if (gloss.size() > kLongest) return std::nullopt;
  if (!*verb) {
    std::string_view bare = gloss;
    const bool article = takePrefix(&bare, "a ") || takePrefix(&bare, "an ") || takePrefix(&bare, "the ");
    if (article && lemma(gloss) == nullptr) gloss = bare;
  } else {
    for (const std::string_view object : {" something", " someone", " somebody"}) {
      if (takeSuffix(&gloss, object)) *remarked = true;
    }
  }
  if (gloss.size() < 2 || !((gloss[0] | 0x20) >= 'a' && (gloss[0] | 0x20) <= 'z')) return std::nullopt;
  size_t words = 1;
  for (const char c : gloss) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (!letter && c != ' ' && c != '-' && c != '\'' && c != '.') return std::nullopt;
    words += c == ' ' ? 1 : 0;
  }
  // "conidi-" is a part of a word; "anti-" is one as well.
  if (gloss.ends_with('-') && wordNet_.lemma(gloss.substr(0, gloss.size() - 1)) != nullptr)
    gloss.remove_suffix(1);
  if (gloss.ends_with('-') || gloss.ends_with('\'')) return std::nullopt;
  if (gloss.ends_with(' ') || (words > kMostWords && lemma(gloss) == nullptr)) return std::nullopt;
  return std::string(gloss);
}

// The part of speech that both the Japanese word and WordNet allow. Where they disagree, the English one
// stands ("elsewhere" is no noun though 他所 is), but a verb is told by its "to" alone. A word that WordNet
// does not have takes after the Japanese one.
std::optional<GlossIndex::Choice> GlossIndex::choose(std::string_view word, const EdictSense& sense,
                                                     bool verb) const {
  const WordNet::Lemma* lemma = this->lemma(word);
  if (anyCode(sense.pos, isPartOfWord)) return std::nullopt;
  if (lemma != nullptr && !isListedAtAll(*lemma, word)) lemma = nullptr;  // WordNet's WHO is no "who"
  if (verb) {
    const bool fits = anyCode(sense.pos, isVerbal);
    const bool known = lemma != nullptr && lemma->is(WordNet::kVerb);
    if (!fits || (lemma != nullptr && !known)) return std::nullopt;
    return Choice{PartOfSpeech::kVerb, known, true, false};
  }
  std::vector<PartOfSpeech> allowed;
  for (const std::string& code : sense.pos) {
    const PartOfSpeech pos = englishOf(code);
    if (pos == PartOfSpeech::kNone || pos == PartOfSpeech::kVerb) continue;
    const std::optional<WordNet::Pos> listed = wordNetPos(pos);
    if (listed && lemma != nullptr && isListed(*lemma, *listed, word)) {
      const bool name = hasCapital(word) && lemma->isName(*listed);
      // "CD" is no proper noun, though WordNet writes it in capitals; it has a "cd" as well.
      const bool proper = name && pos == PartOfSpeech::kNoun && !(isMixed(word) && lemma->lowerCase);
      return Choice{proper ? PartOfSpeech::kProperNoun : pos, true, true, name};
    }
    allowed.push_back(pos);
  }
  const bool capitals = isMixed(word);
  if (lemma != nullptr && (allowed.empty() || wordNetPos(allowed[0]))) {
    constexpr WordNet::Pos kOthers[] = {WordNet::kNoun, WordNet::kAdjective, WordNet::kAdverb};
    const auto* best = std::max_element(std::begin(kOthers), std::end(kOthers), [&](auto a, auto b) {
      const auto weight = [&](WordNet::Pos pos) {
        return std::tuple(isListed(*lemma, pos, word), lemma->uses[pos], lemma->senses[pos]);
      };
      return weight(a) < weight(b);
    });
    if (!isListed(*lemma, *best, word)) return std::nullopt;
    return Choice{partOfSpeech(*best), true, false, capitals};
  }
  if (allowed.empty()) return std::nullopt;
  return Choice{allowed[0], lemma != nullptr, true, capitals};
}

// WordNet's word, also where it writes a hyphen for a blank or a blank for a hyphen.
const WordNet::Lemma* GlossIndex::lemma(std::string_view word) const {
  std::string folded = lowerCase(word);
  const WordNet::Lemma* found = wordNet_.lemma(folded);
  for (const auto& [from, to] : {std::pair(' ', '-'), std::pair('-', ' ')}) {
    if (found != nullptr || folded.find(from) == std::string::npos) continue;
    std::string other = folded;
    std::replace(other.begin(), other.end(), from, to);
    found = wordNet_.lemma(other);
  }
  return found;
}

// "footsteps" as "footstep", when WordNet has only that.
std::string GlossIndex::singular(const std::string& word) const {
  if (lemma(word) != nullptr || !word.ends_with('s') || word.ends_with("ss")) return word;
  std::string shorter = word.substr(0, word.size() - 1);
  for (const std::string_view ending : {"", "e"}) {
    if (!shorter.ends_with(ending)) continue;
    const std::string base = shorter.substr(0, shorter.size() - ending.size());
    if (wordNet_.is(lowerCase(base), WordNet::kNoun)) return base;
  }
  if (shorter.ends_with("ie")) {
    shorter.replace(shorter.size() - 2, 2, "y");
    if (wordNet_.is(lowerCase(shorter), WordNet::kNoun)) return shorter;
  }
  return word;
}

void GlossIndex::addGloss(const EdictLine& line, const EdictSense& sense, std::string_view gloss,
                          uint32_t score) {
  bool verb = false, remarked = false;
  std::optional<std::string> word = headword(gloss, &verb, &remarked);
  if (!word) return;
  if (!verb) {
    std::string one = singular(*word);
    remarked = remarked || one != *word;
    word = std::move(one);
  }
  const std::optional<Choice> choice = choose(*word, sense, verb);
  if (!choice) return;
  // A phrase that no dictionary of English has must be a plain compound and a common word's first meaning.
  const bool phrase = isPhrase(*word);
  const bool compound = phrase && choice->pos == PartOfSpeech::kNoun && isCompound(*word);
  const bool counts =
      phrase ? compound && line.common && score == 0 && !remarked : line.common || score <= kPerSense;
  if (!choice->known && !counts) return;

  const bool kana = line.written.empty() || hasCode(sense.remarks, "uk");
  const std::string& japanese = kana ? line.reading : line.written;
  const std::optional<std::u32string> characters = decodeUtf8(japanese);
  if (!characters) return;
  score += (remarked ? kRemark : 0) + (choice->agreed ? 0 : kDisagreement);
  if (hasCode(sense.pos, "exp") || hasCode(sense.remarks, "abbr") || hasCode(sense.remarks, "sl")) {
    score += kPhrase;
  }
  const auto isLoan = [](char32_t code) { return isKatakana(code) || code == U'・'; };
  if (std::all_of(characters->begin(), characters->end(), isLoan)) score += kLoan;
  if (characters->size() > 4) score += kPerCharacter * static_cast<uint32_t>(characters->size() - 4);
  if (!line.common) score += kUncommon;

  Slot& slot = slots_
                   .try_emplace({choice->cased ? *word : lowerCase(*word), choice->pos},
                                Slot{*word, choice->pos, choice->known, {}})
                   .first->second;
  slot.word = std::max(slot.word, *word);  // "red" rather than "Red" where both occur
  slot.candidates.push_back({score, arrivals_++, line.common, japanese,
                             kana && !line.written.empty() ? line.written : "", soundOf(line.reading)});
}

void GlossIndex::add(const EdictLine& line) {
  if (anyCode(line.spelling, isRareRemark)) return;
  for (size_t s = 0; s < line.senses.size(); ++s) {
    const EdictSense& sense = line.senses[s];
    if (anyCode(sense.remarks, isRareRemark)) continue;
    for (size_t g = 0; g < sense.glosses.size(); ++g) {
      addGloss(line, sense, sense.glosses[g],
               static_cast<uint32_t>(std::min<size_t>(s * kPerSense + g * kPerGloss, kWorst)));
    }
  }
}

std::vector<GlossIndex::Turned> GlossIndex::take() {
  std::vector<Turned> all;
  for (auto& [key, slot] : slots_) {
    std::sort(slot.candidates.begin(), slot.candidates.end(), [](const Candidate& a, const Candidate& b) {
      return std::pair(a.score, a.order) < std::pair(b.score, b.order);
    });
    Turned turned{slot.word, slot.pos, {}, {}, false, slot.known};
    std::set<std::u32string> sounds;
    const uint32_t worst = slot.candidates.front().score + kFar;
    for (const Candidate& candidate : slot.candidates) {
      turned.common = turned.common || candidate.common;
      const size_t most = candidate.common ? kMostCommon : kMostOthers;
      if (turned.translations.size() < most && candidate.score <= worst &&
          sounds.insert(candidate.sound).second) {
        addNew(turned.translations, candidate.japanese);
      }
      if (turned.ranked.size() >= kMostRanked) continue;
      addNew(turned.ranked, candidate.japanese);
      if (!candidate.written.empty()) addNew(turned.ranked, candidate.written);
    }
    all.push_back(std::move(turned));
  }
  slots_.clear();
  return all;
}

}  // namespace zavel::mkdict
