// Tests: tests/mkdict/GlossIndexTest.cpp.
#include "mkdict/GlossIndex.h"

#include <algorithm>

#include "mkdict/EdictLabels.h"
#include "mkdict/Spelling.h"
#include "mkdict/Utf8.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kMostWords = 3;
constexpr size_t kMostCommon = 6, kMostOthers = 3;

// Weights of a candidate's score.
constexpr uint32_t kPerSense = 30;     // a word's later senses are its lesser ones
constexpr uint32_t kPerGloss = 4;      // and so are later glosses of a sense
constexpr uint32_t kRemark = 20;       // "(esp. ...)" narrows a gloss
constexpr uint32_t kPhrase = 40;       // a Japanese phrase, abbreviation or slang for an English word
constexpr uint32_t kPerCharacter = 2;  // from the fifth character on: long words tend to be paraphrases

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

bool hasCode(const std::vector<std::string>& codes, std::string_view code) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool anyCode(const std::vector<std::string>& codes, bool (*test)(std::string_view)) {
  return std::any_of(codes.begin(), codes.end(), [test](const std::string& code) { return test(code); });
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

std::optional<WordNet::Pos> wordNetPos(PartOfSpeech pos) {
  switch (pos) {
    case PartOfSpeech::kNoun:
      return WordNet::kNoun;
    case PartOfSpeech::kVerb:
      return WordNet::kVerb;
    case PartOfSpeech::kAdjective:
      return WordNet::kAdjective;
    case PartOfSpeech::kAdverb:
      return WordNet::kAdverb;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<std::string> GlossIndex::headword(std::string_view gloss, bool* verb, bool* remarked) {
  *verb = *remarked = false;
  while (takeBrackets(&gloss)) *remarked = true;
  *verb = takePrefix(&gloss, "to ");
  while (takeBrackets(&gloss)) *remarked = true;  // "to (do) ..."
  if (!*verb) takePrefix(&gloss, "a ") || takePrefix(&gloss, "an ") || takePrefix(&gloss, "the ");
  if (*verb) {
    for (const std::string_view object : {" something", " someone", " somebody", " oneself"}) {
      if (object != " oneself" && takeSuffix(&gloss, object)) *remarked = true;
    }
  }
  if (gloss.size() < 2 || !((gloss[0] | 0x20) >= 'a' && (gloss[0] | 0x20) <= 'z')) return std::nullopt;
  size_t words = 1;
  for (const char c : gloss) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (!letter && c != ' ' && c != '-' && c != '\'' && c != '.') return std::nullopt;
    words += c == ' ' ? 1 : 0;
  }
  if (words > kMostWords || gloss.ends_with(' ')) return std::nullopt;
  return std::string(gloss);
}

// The part of speech that both the Japanese word and WordNet allow; without WordNet's word, the Japanese one.
std::optional<PartOfSpeech> GlossIndex::choose(std::string_view word, const EdictSense& sense, bool verb,
                                               bool* known) const {
  const std::string folded = lowerCase(word);
  std::vector<PartOfSpeech> allowed;
  for (const std::string& code : sense.pos) {
    const PartOfSpeech pos = englishOf(code);
    if (pos == PartOfSpeech::kNone || (pos == PartOfSpeech::kVerb) != verb) continue;
    if (std::find(allowed.begin(), allowed.end(), pos) == allowed.end()) allowed.push_back(pos);
  }
  const bool phrase = hasCode(sense.pos, "exp") || hasCode(sense.pos, "vs");
  if (allowed.empty() && verb && phrase) allowed.push_back(PartOfSpeech::kVerb);
  if (allowed.empty()) return std::nullopt;
  for (const PartOfSpeech pos : allowed) {
    const std::optional<WordNet::Pos> listed = wordNetPos(pos);
    if (listed && wordNet_.is(folded, *listed)) {
      *known = true;
      return pos;
    }
  }
  // An adverb that WordNet has as a noun alone is still an adverb; a noun gloss of an adjective is not.
  *known = false;
  const WordNet::Lemma* lemma = wordNet_.lemma(folded);
  if (lemma != nullptr && allowed[0] != PartOfSpeech::kInterjection && allowed[0] != PartOfSpeech::kPronoun &&
      allowed[0] != PartOfSpeech::kConjunction && allowed[0] != PartOfSpeech::kNumeral) {
    // "(adj-no) wood": the word is a noun in English.
    if (allowed[0] == PartOfSpeech::kAdjective && lemma->is(WordNet::kNoun)) {
      *known = true;
      return PartOfSpeech::kNoun;
    }
    return std::nullopt;
  }
  return allowed[0];
}

void GlossIndex::addGloss(const EdictLine& line, const EdictSense& sense, std::string_view gloss,
                          uint32_t score) {
  bool verb = false, remarked = false, known = false;
  const std::optional<std::string> word = headword(gloss, &verb, &remarked);
  if (!word) return;
  const std::optional<PartOfSpeech> pos = choose(*word, sense, verb, &known);
  if (!pos) return;
  // A phrase that no dictionary of English has must be a common word's first meaning to count.
  const bool phrase = word->find(' ') != std::string::npos;
  if (!known && (phrase ? !line.common || score > 0 || remarked : !line.common && score > kPerSense)) return;

  const bool kana = line.written.empty() || hasCode(sense.remarks, "uk");
  const std::string& japanese = kana ? line.reading : line.written;
  const std::optional<std::u32string> characters = decodeUtf8(japanese);
  if (!characters) return;
  score += remarked ? kRemark : 0;
  if (hasCode(sense.pos, "exp") || hasCode(sense.remarks, "abbr") || hasCode(sense.remarks, "sl")) {
    score += kPhrase;
  }
  if (characters->size() > 4) score += kPerCharacter * static_cast<uint32_t>(characters->size() - 4);
  if (!line.common) score += kUncommon;

  Slot& slot = slots_.try_emplace({lowerCase(*word), *pos}, Slot{*word, *pos, known, {}}).first->second;
  // "red" rather than "Red" where both occur.
  if (slot.word > *word) slot.known = slot.known || known;
  slot.word = std::max(slot.word, *word);
  slot.candidates.push_back({score, arrivals_++, japanese});
}

void GlossIndex::add(const EdictLine& line) {
  if (anyCode(line.spelling, isRareRemark)) return;
  for (size_t s = 0; s < line.senses.size(); ++s) {
    const EdictSense& sense = line.senses[s];
    if (anyCode(sense.remarks, isRareRemark)) continue;
    for (size_t g = 0; g < sense.glosses.size(); ++g) {
      addGloss(line, sense, sense.glosses[g],
               static_cast<uint32_t>(std::min<size_t>(s * kPerSense + g * kPerGloss, kUncommon / 2)));
    }
  }
}

std::vector<GlossIndex::Turned> GlossIndex::take() {
  std::vector<Turned> all;
  for (auto& [key, slot] : slots_) {
    std::sort(slot.candidates.begin(), slot.candidates.end(), [](const Candidate& a, const Candidate& b) {
      return std::pair(a.score, a.order) < std::pair(b.score, b.order);
    });
    Turned turned{slot.word, slot.pos, {}, slot.candidates[0].score < kUncommon, slot.known};
    for (const Candidate& candidate : slot.candidates) {
      const size_t most = candidate.score < kUncommon ? kMostCommon : kMostOthers;
      if (turned.translations.size() >= most) break;
      auto& kept = turned.translations;
      if (std::find(kept.begin(), kept.end(), candidate.japanese) == kept.end()) {
        kept.push_back(candidate.japanese);
      }
    }
    all.push_back(std::move(turned));
  }
  slots_.clear();
  return all;
}

}  // namespace zavel::mkdict
