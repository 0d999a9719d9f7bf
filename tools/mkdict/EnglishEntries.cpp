// Tests: tests/mkdict/EnglishEntriesTest.cpp.
#include "mkdict/EnglishEntries.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "mkdict/BaseForms.h"
#include "mkdict/Countable.h"
#include "mkdict/PartsOfSpeech.h"
#include "mkdict/Pronunciation.h"
#include "mkdict/PronunciationChoice.h"
#include "mkdict/Spelling.h"
#include "mkdict/ToShiftJis.h"

namespace zavel::mkdict {
namespace {

// How many places in a sense weigh as much as one rank among the best translations.
constexpr size_t kFirstPlaces = 3;

// A short entry for another spelling shows no more than this.
constexpr size_t kVariantSenses = 3, kVariantTranslations = 3;

// Words of grammar, which WordNet leaves out.
bool isClosedClass(PartOfSpeech pos) {
  return pos == PartOfSpeech::kPreposition || pos == PartOfSpeech::kPronoun ||
         pos == PartOfSpeech::kConjunction || pos == PartOfSpeech::kDeterminer ||
         pos == PartOfSpeech::kArticle;
}

// A phrase may stand under one part of speech in one source and under none in another.
bool isLoose(PartOfSpeech pos) {
  return pos == PartOfSpeech::kNone || pos == PartOfSpeech::kIdiom || pos == PartOfSpeech::kProverb;
}

// The better known its translations, the earlier a sense; a translation that stands first says more.
void orderSenses(std::vector<EnglishSense>& senses, const std::vector<std::string>& ranked) {
  const auto weight = [&ranked](const EnglishSense& sense) {
    size_t best = (ranked.size() + 1) * kFirstPlaces;
    for (size_t place = 0; place < sense.translations.size(); ++place) {
      const auto found = std::find(ranked.begin(), ranked.end(), sense.translations[place]);
      const auto rank = static_cast<size_t>(found - ranked.begin());
      if (found != ranked.end()) best = std::min(best, rank * kFirstPlaces + place);
    }
    return best;
  };
  std::stable_sort(senses.begin(), senses.end(),
                   [&weight](const EnglishSense& a, const EnglishSense& b) { return weight(a) < weight(b); });
}

// A verb or word of grammar whose namesakes in other classes are mostly slips ("must" as a noun).
bool isGrammar(const EntryDraft& draft) {
  return isClosedClass(draft.pos) ||
         (draft.pos == PartOfSpeech::kVerb && Inflection::isDefective(draft.word));
}

// True for a word and a name of the same letters that share a translation: "moon" and "Moon", not "china" and
// "China".
bool isSameThing(const EntryDraft& a, const EntryDraft& b) {
  if (hasCapital(a.word) == hasCapital(b.word) || lowerCase(a.word) != lowerCase(b.word)) return false;
  for (const EnglishSense& one : a.senses) {
    for (const EnglishSense& other : b.senses) {
      const std::vector<std::string>& texts = other.translations;
      const auto stands = [&texts](const std::string& text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
      };
      if (std::any_of(one.translations.begin(), one.translations.end(), stands)) return true;
    }
  }
  return false;
}

// "US" is not spoken as "us", but "Polish" might be as "polish".
bool differsInCapitals(std::string_view a, std::string_view b) {
  return a.size() != b.size() || a.substr(1) != b.substr(1) || lowerCase(a) != lowerCase(b);
}

}  // namespace

EnglishEntries::EnglishEntries(const WordNet& wordNet, const Attested& attested, const Inflection& inflection,
                               Summary* summary)
    : wordNet_(wordNet), attested_(attested), inflection_(inflection), summary_(summary) {}

void EnglishEntries::add(EnglishWord word, const std::vector<std::string>& ranked) {
  const std::optional<std::string> headword = EntryText::headword(word.word);
  if (!headword) {
    summary_->leftOut("English headwords with characters that searches refuse", word.word);
    return;
  }
  if (*headword != word.word) summary_->count("English headwords spelled in ASCII");
  orderSenses(word.senses, ranked);
  Source source;
  std::vector<std::string> lacking;
  for (const EnglishSense& sense : word.senses) {
    std::optional<EnglishSense> bytes = EntryText::sense(sense, &lacking);
    if (bytes) source.draft.senses.push_back(std::move(*bytes));
  }
  for (const std::string& text : lacking) {
    summary_->leftOut("texts of English entries that Shift_JIS can't write", word.word + ": " + text);
  }
  if (source.draft.senses.empty()) {
    summary_->leftOut("English words without a translation", word.word);
    return;
  }
  source.draft.word = *headword;
  source.draft.pos = word.pos;
  source.ipa = word.ipa;
  byKey_[engine::ChangeMidasiStrE(*headword)].push_back(sources_.size());
  sources_.push_back(std::move(source));
}

// True for a form of a word that WordNet has: no headword of its own.
bool EnglishEntries::isInflected(std::string_view word) const {
  const std::string folded = lowerCase(word);
  for (uint8_t pos = 0; pos < WordNet::kPosCount; ++pos) {
    if (inflection_.isListedForm(static_cast<WordNet::Pos>(pos), folded)) return true;
  }
  const auto isKnown = [this](const std::string& base, uint8_t) { return wordNet_.lemma(base) != nullptr; };
  if (!firstBaseForm(folded, isKnown).empty()) return true;
  // "stopping": the rules don't know doubled letters.
  for (const std::string_view ending : {"ing", "ed", "er", "est"}) {
    if (!folded.ends_with(ending) || folded.size() < ending.size() + 3) continue;
    const std::string stem = folded.substr(0, folded.size() - ending.size());
    if (stem.back() == stem[stem.size() - 2] && wordNet_.lemma(stem.substr(0, stem.size() - 1)) != nullptr) {
      return true;
    }
  }
  return false;
}

// True when an entry says already what a turned word would. Capitals make another word of it: "CD" and "cd".
bool EnglishEntries::says(const Source& other, const std::string& headword,
                          const GlossIndex::Turned& turned) const {
  if (isLoose(other.draft.pos)) return true;
  const bool samePos = other.draft.pos == turned.pos;
  if (other.draft.word != headword) {
    return samePos && (!turned.known || lowerCase(other.draft.word) != lowerCase(headword));
  }
  // What one source calls a name the other may not: "Monday", "AIDS".
  const bool bothNouns =
      wordNetPos(other.draft.pos) == WordNet::kNoun && wordNetPos(turned.pos) == WordNet::kNoun;
  if (samePos || !bothNouns || turned.translations.empty()) return samePos;
  const std::optional<std::string> first = toEntryText(turned.translations[0]);
  return std::any_of(
      other.draft.senses.begin(), other.draft.senses.end(), [&first](const EnglishSense& sense) {
        return first && std::find(sense.translations.begin(), sense.translations.end(), *first) !=
                            sense.translations.end();
      });
}

void EnglishEntries::addTurned(const GlossIndex::Turned& turned) {
  const std::optional<std::string> headword = EntryText::headword(turned.word);
  if (!headword) return;
  const std::string key = engine::ChangeMidasiStrE(*headword);
  const auto present = byKey_.find(key);
  if (present != byKey_.end()) {
    bool fromFreedict = false, grammar = false;
    for (const size_t i : present->second) {
      const Source& other = sources_[i];
      if (says(other, *headword, turned)) return;
      fromFreedict = fromFreedict || !other.turned;
      grammar = grammar || (other.draft.word == *headword && isGrammar(other.draft));
    }
    const std::optional<WordNet::Pos> pos = wordNetPos(turned.pos);
    const WordNet::Lemma* lemma = wordNet_.lemma(lowerCase(*headword));
    const bool used = lemma != nullptr && pos && lemma->spelledUses(*pos, hasCapital(*headword)) > 0;
    if (fromFreedict && !(turned.known && pos && ((turned.common && !grammar) || used))) return;
  }
  if (!turned.known && !isPhrase(*headword) && isInflected(*headword)) return;
  // An adverb "longer" alone would keep the engine from leading it back to "long".
  const bool comparative = headword->ends_with("er") || headword->ends_with("est");
  if (turned.pos == PartOfSpeech::kAdverb && comparative && present == byKey_.end() &&
      inflection_.isCompared(lowerCase(*headword))) {
    return;
  }

  EnglishSense utf8;
  utf8.translations = turned.translations;
  std::optional<EnglishSense> sense = EntryText::sense(utf8, nullptr);
  if (!sense) return;
  Source source;
  source.draft.word = *headword;
  source.draft.pos = turned.pos;
  source.draft.senses.push_back(std::move(*sense));
  source.turned = true;
  byKey_[key].push_back(sources_.size());
  sources_.push_back(std::move(source));
}

EnglishEntries::Source* EnglishEntries::find(const std::string& word, PartOfSpeech pos) {
  const auto present = byKey_.find(engine::ChangeMidasiStrE(word));
  if (present == byKey_.end()) return nullptr;
  for (const size_t i : present->second) {
    if (sources_[i].draft.word == word && sources_[i].draft.pos == pos) return &sources_[i];
  }
  return nullptr;
}

void EnglishEntries::addVariant(const Source& main, const std::string& word, bool british,
                                bool translations) {
  Source variant;
  variant.draft.word = word;
  variant.draft.pos = main.draft.pos;
  variant.ipa = main.ipa;
  variant.turned = main.turned;
  if (translations) {
    for (const EnglishSense& sense : main.draft.senses) {
      if (variant.draft.senses.size() == kVariantSenses) break;
      EnglishSense brief;
      for (const std::string& translation : sense.translations) {
        if (brief.translations.size() < kVariantTranslations) brief.translations.push_back(translation);
      }
      variant.draft.senses.push_back(std::move(brief));
    }
  }
  variant.spellings.emplace_back(main.draft.word, british);
  byKey_[engine::ChangeMidasiStrE(word)].push_back(sources_.size());
  sources_.push_back(std::move(variant));
  summary_->count("entries of another spelling");
}

void EnglishEntries::addSpellings(const std::vector<SpellingPairs::Pair>& pairs) {
  for (const SpellingPairs::Pair& pair : pairs) {
    const PartOfSpeech pos = partOfSpeech(pair.pos);
    Source *british = find(pair.british, pos), *american = find(pair.american, pos);
    if (british == nullptr && american == nullptr) continue;
    if (british != nullptr && american != nullptr) {
      british->spellings.emplace_back(pair.american, true);
      american->spellings.emplace_back(pair.british, false);
      summary_->count("spelling references both ways");
      continue;
    }
    Source* main = british != nullptr ? british : american;
    const std::string& other = british != nullptr ? pair.american : pair.british;
    // "cheque" is a check in one of its many senses: the translations of all would mislead.
    const WordNet::Lemma* lemma = wordNet_.lemma(main->draft.word);
    const bool same = lemma == nullptr || pair.shared * 2 >= lemma->senses[pair.pos];
    main->remarks.emplace_back(other, british != nullptr);
    const Source copy = *main;  // sources_ may move
    addVariant(copy, other, british == nullptr, same);
  }
}

uint32_t EnglishEntries::usesOf(const Source& source) const {
  const std::string folded = lowerCase(source.draft.word);
  const WordNet::Lemma* lemma = wordNet_.lemma(folded);
  const uint32_t uses = lemma == nullptr   ? 0
                        : source.isNameToo ? lemma->allUses()
                                           : lemma->spelledUses(hasCapital(source.draft.word));
  return isGrammar(source.draft) ? std::max(uses, attested_.count(folded)) : uses;
}

uint32_t EnglishEntries::weightOf(const Source& source) const {
  if (isGrammar(source.draft)) return kClosedClassUses;
  const std::optional<WordNet::Pos> pos = wordNetPos(source.draft.pos);
  const WordNet::Lemma* lemma = wordNet_.lemma(lowerCase(source.draft.word));
  if (!pos || lemma == nullptr || source.draft.pos == PartOfSpeech::kProperNoun) return 0;
  return source.isNameToo ? lemma->uses[*pos] : lemma->spelledUses(*pos, hasCapital(source.draft.word));
}

std::string EnglishEntries::starsOf(const Source& source, bool sharesWord) const {
  const std::string folded = lowerCase(source.draft.word);
  const WordNet::Lemma* lemma = wordNet_.lemma(folded);
  const bool told = lemma != nullptr && lemma->tellsNames() && !source.isNameToo;
  if (source.draft.pos == PartOfSpeech::kProperNoun && sharesWord && !told) return {};
  if (isGrammar(source.draft)) {
    const uint32_t used = attested_.count(folded);
    if (used >= kThreeStarsAttested) return "***";
    if (used >= kTwoStarsAttested) return "**";
  }
  const auto place = [&](bool name) {
    const auto found = frequency_.find({folded, name});
    return found == frequency_.end() ? kThreeStars + kTwoStars : found->second;
  };
  const size_t best =
      source.isNameToo ? std::min(place(false), place(true)) : place(told && hasCapital(source.draft.word));
  return best < kThreeStars ? "***" : best < kThreeStars + kTwoStars ? "**" : "";
}

void EnglishEntries::label(Source& source) const {
  EntryDraft& draft = source.draft;
  const std::string_view ipa = choosePronunciation(source.ipa, draft.word, draft.pos, source.isVerbToo);
  draft.pronunciation = Pronunciation::encode(draft.word, ipa);
  const Sounds& sounds = source.sounds = Pronunciation::sounds(draft.word, ipa);
  if (isPhrase(draft.word)) return;
  if (draft.pos == PartOfSpeech::kNoun) {
    draft.countable =
        isCountable(draft.word, inflection_.plurals(draft.word, sounds), wordNet_, attested_, inflection_);
  } else if (draft.pos == PartOfSpeech::kAdjective) {
    const Comparison comparison = inflection_.comparison(draft.word, sounds);
    draft.comparesByMore = comparison.kind == Comparison::Kind::kMore;
    draft.comparesNot = comparison.kind == Comparison::Kind::kNone;
  }
}

// True for a word that is a verb and a noun or adjective as well.
bool EnglishEntries::isVerbAndOther(const std::vector<size_t>& group, const std::string& word) const {
  bool verb = false, other = false;
  for (const size_t i : group) {
    const EntryDraft& draft = sources_[i].draft;
    if (draft.word != word) continue;
    verb = verb || draft.pos == PartOfSpeech::kVerb;
    other = other || draft.pos == PartOfSpeech::kNoun || draft.pos == PartOfSpeech::kAdjective;
  }
  return verb && other;
}

// Sorts the entries of one key and numbers those with the same headword.
void EnglishEntries::number(std::vector<size_t>& group) {
  for (const size_t i : group) {
    for (const size_t k : group) {
      if (!isSameThing(sources_[i].draft, sources_[k].draft)) continue;
      for (const size_t same : group) {
        if (sources_[same].draft.word == sources_[i].draft.word) sources_[same].isNameToo = true;
      }
    }
  }
  std::stable_sort(group.begin(), group.end(), [this](size_t a, size_t b) {
    const auto order = [this](const Source& s) {
      const bool name = s.draft.pos == PartOfSpeech::kProperNoun;
      // The engine inflects the first headword of a key, and none of several words: "setup" before "set up".
      return std::tuple(hasCapital(s.draft.word), name, isPhrase(s.draft.word),
                        -static_cast<int64_t>(weightOf(s)), s.draft.pos);
    };
    return order(sources_[a]) < order(sources_[b]);
  });
  std::unordered_map<std::string, int> last;
  for (const size_t i : group) sources_[i].draft.homograph = ++last[sources_[i].draft.word];
  for (const size_t i : group) {
    Source& source = sources_[i];
    const bool shares = std::any_of(group.begin(), group.end(), [&](size_t k) {
      return sources_[k].draft.pos != PartOfSpeech::kProperNoun;
    });
    source.draft.stars = starsOf(source, shares);
    source.isVerbToo = isVerbAndOther(group, source.draft.word);
    if (!source.ipa.empty()) continue;
    for (const size_t k : group) {
      if (!sources_[k].ipa.empty() && !differsInCapitals(sources_[k].draft.word, source.draft.word)) {
        source.ipa = sources_[k].ipa;
        break;
      }
    }
  }
}

// The most frequent words, a name and a word that share their letters apart.
void EnglishEntries::countFrequencies() {
  struct Spelled {
    uint32_t uses;
    std::string_view text;
    bool capital;
  };
  std::vector<Spelled> words;
  for (const WordNet::Lemma& lemma : wordNet_.lemmas()) {
    for (const bool capital : {false, true}) {
      if (capital && !lemma.tellsNames()) continue;
      const uint32_t uses = lemma.spelledUses(capital);
      if (uses > 0) words.push_back({uses, lemma.text, capital});
    }
  }
  std::sort(words.begin(), words.end(), [](const Spelled& a, const Spelled& b) {
    return std::tuple(b.uses, a.text, a.capital) < std::tuple(a.uses, b.text, b.capital);
  });
  if (words.size() > kThreeStars + kTwoStars) words.resize(kThreeStars + kTwoStars);
  for (size_t i = 0; i < words.size(); ++i) frequency_[{std::string(words[i].text), words[i].capital}] = i;
}

void EnglishEntries::arrange() {
  countFrequencies();
  struct Place {
    uint32_t uses = 0;
    bool turned = true;
    const std::string* key = nullptr;
    std::vector<size_t>* group = nullptr;
  };
  std::vector<Place> places;
  for (auto& [key, group] : byKey_) {
    number(group);
    Place place{0, true, &key, &group};
    for (const size_t i : group) {
      place.uses = std::max(place.uses, usesOf(sources_[i]));
      place.turned = place.turned && sources_[i].turned;
    }
    places.push_back(place);
  }
  std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
    if (a.uses != b.uses) return a.uses > b.uses;
    return std::tuple(a.turned, std::string_view(*a.key)) < std::tuple(b.turned, std::string_view(*b.key));
  });

  items_.reserve(sources_.size());
  for (const Place& place : places) {
    for (const size_t i : *place.group) {
      Source& source = sources_[i];
      label(source);
      const auto refer = [&](const std::string& word, bool british, bool leads) {
        SpellingReference reference{british, word, {}};
        const auto target = byKey_.find(engine::ChangeMidasiStrE(word));
        if (leads && target != byKey_.end()) {
          for (const size_t k : target->second) {
            const EntryDraft& other = sources_[k].draft;
            if (other.word == word && other.pos == source.draft.pos) {
              reference.homographs.push_back(other.homograph);
            }
          }
        }
        source.draft.references.push_back(std::move(reference));
      };
      for (const auto& [word, british] : source.spellings) refer(word, british, true);
      for (const auto& [word, british] : source.remarks) refer(word, british, false);
      Item item;
      item.sounds = source.sounds;
      item.key = *place.key;
      item.turned = source.turned;
      item.rank = static_cast<uint32_t>(items_.size());
      item.draft = source.draft;
      items_.push_back(std::move(item));
    }
  }
}

}  // namespace zavel::mkdict
