// verb.exc says that "saw" and "seen" belong to "see", not which is the past. The shape of the forms tells
// it for nearly all verbs: see irregularPast. Tests: tests/mkdict/InflectionTest.cpp.
#include "mkdict/Inflection.h"

#include <algorithm>

#include "mkdict/Spelling.h"

namespace zavel::mkdict {
namespace {

using Words = std::initializer_list<std::string_view>;

constexpr uint32_t kInUse = 3;     // uses in definitions that tell that a form is an established one
constexpr uint32_t kMinority = 4;  // a spelling counts beside another that is so many times as frequent

bool isOneOf(std::string_view word, Words words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

void add(Forms& forms, std::string form) {
  if (std::find(forms.begin(), forms.end(), form) == forms.end()) forms.push_back(std::move(form));
}

void addAll(Forms& forms, const Forms& more) {
  for (const std::string& form : more) add(forms, form);
}

// Past and participle like the base form. The exception lists are silent on them: nothing is to be undone.
bool isUnchanging(std::string_view verb) {
  return isOneOf(
      verb, {"bet",      "bid",     "broadcast", "burst",   "cast",     "cost",    "cut",       "forecast",
             "hit",      "hurt",    "inset",     "knit",    "let",      "miscast", "misread",   "offset",
             "outbid",   "output",  "input",     "overbid", "overcast", "preset",  "proofread", "put",
             "quit",     "read",    "recast",    "recut",   "reread",   "reset",   "rid",       "set",
             "shed",     "shut",    "slit",      "split",   "spread",   "sublet",  "telecast",  "thrust",
             "typecast", "typeset", "undercut",  "upset",   "beset",    "wed",     "wet",       "spit"});
}

// Those of them that take -ed as well.
bool alsoTakesEd(std::string_view verb) {
  return isOneOf(verb, {"bet", "broadcast", "forecast", "knit", "wed", "wet", "input", "output", "quit"});
}

// The past is like the base, the participle is not.
bool hasUnchangedPast(std::string_view verb) {
  return isOneOf(verb, {"beat", "browbeat"});
}

// The participle is like the base, the past is not: "come, came, come".
bool hasUnchangedParticiple(std::string_view verb) {
  return verb.ends_with("come") || verb.ends_with("run");
}

// The participle in -en stands beside the past form, which serves as a participle too.
bool keepsPastAsParticiple(std::string_view verb) {
  return isOneOf(verb,
                 {"get", "behold", "slide", "backslide", "tread", "retread", "chide", "cleave", "beget"});
}

// Those past forms of them that don't: "begat", "clove".
bool isNoParticiple(std::string_view past) {
  return past.ends_with("at") || past.ends_with('e');
}

// The irregular past is no participle: "dove", but "has dived".
bool isPastOnly(std::string_view verb) {
  return isOneOf(verb, {"dive", "skydive"});
}

// Attested words that look like a regular past and are adjectives of another kind ("broad leaved").
bool isNoPast(std::string_view form) {
  return isOneOf(form, {"leaved", "winded", "grounded", "bended", "leaded", "stringed", "slinged"});
}

// A regular past beside the irregular one that definitions happen not to use.
bool alsoRegular(std::string_view verb) {
  return isOneOf(verb, {"abide", "beseech", "chide", "dwell", "kneel", "shine", "strive", "thrive"});
}

// "burnt", "spelt", "blest": the regular form with its -ed worn down; the regular one is always good too.
bool isWornDown(std::string_view verb, std::string_view form) {
  if (!form.ends_with('t') || isOneOf(verb, {"mean", "deal"})) return false;
  const std::string_view stem = form.substr(0, form.size() - 1);
  if (stem == verb) return true;
  const std::string_view rest = verb.substr(0, verb.size() - 1);
  return stem == rest && (verb.ends_with("ll") || verb.ends_with("ss") || verb == "curse");
}

// True where "-ed" on `verb` reads as that of a longer word: "sited" is of "site", not of "sit".
bool isEdOfAnother(const WordNet& wordNet, std::string_view verb, std::string_view regular) {
  const std::string longer = std::string(verb) + "e";
  return wordNet.is(regular, WordNet::kVerb) || (!verb.ends_with('e') && wordNet.lemma(longer) != nullptr);
}

// Entries of the exception lists that are other spellings of the base, not forms of it, or slips.
bool isOtherWord(std::string_view form, std::string_view base) {
  if (form.find('\'') != std::string_view::npos) return true;
  if ((form == "singing" && base == "singe") || (form == "feed" && base == "fee")) return true;
  return isOneOf(form, {"tranship", "squilgee", "pasquil", "abye", "overflown", "duona", "duonas", "clani",
                        "clanos", "andtheridia", "diathses", "diaerses", "filariiae", "carides"});
}

// Nouns that count without an ending.
bool isUnchangingNoun(std::string_view noun) {
  return isOneOf(noun, {"sheep", "deer", "moose", "bison", "swine", "offspring", "salmon", "trout", "series",
                        "species", "aircraft", "spacecraft", "hovercraft", "watercraft", "means",
                        "crossroads", "headquarters", "barracks"});
}

// The keys of "-man" words that are no men: their man is part of the word.
bool isWholeMan(std::string_view noun) {
  return isOneOf(
      noun, {"human", "superhuman", "german", "roman", "norman", "shaman", "talisman", "ottoman", "caiman",
             "cayman", "brahman", "mussulman", "turkoman", "hetman", "dolman", "desman"});
}

// A form that ends in -n as participles do: "taken", "shown", "gone", "swollen".
bool isNParticiple(std::string_view verb, std::string_view form, const Forms& all) {
  if (form.ends_with("en")) return true;
  if (form == std::string(verb) + "n" || form == std::string(verb) + "ne") return true;
  const auto endsInN = [](std::string_view f) { return f.ends_with('n') || f.ends_with("ne"); };
  // "blown" beside "blew"; but "won" and "shone", which stand alone, are the past too.
  if (endsInN(form) && std::any_of(all.begin(), all.end(), [&](const auto& f) { return !endsInN(f); })) {
    return true;
  }
  // "sung" beside "sang".
  const size_t vowel = form.rfind('u');
  if (vowel == std::string_view::npos) return false;
  std::string past(form);
  past[vowel] = 'a';
  return std::find(all.begin(), all.end(), past) != all.end();
}

// Nouns in -o that take -es in any case.
bool takesOes(std::string_view noun) {
  return isOneOf(noun,
                 {"potato", "tomato", "hero", "superhero", "antihero", "echo", "veto", "embargo", "torpedo"});
}

// Short adjectives that don't take -er and -est, or whose forms would be other words.
bool refusesEndings(std::string_view adjective) {
  return isOneOf(adjective,
                 {"back",   "bound", "chief", "choice", "dead",  "due",   "fake",  "front", "fun",  "ideal",
                  "key",    "lead",  "like",  "live",   "lone",  "lost",  "main",  "mere",  "next", "null",
                  "off",    "own",   "past",  "prime",  "prone", "real",  "right", "rote",  "sole", "spare",
                  "square", "staff", "still", "such",   "void",  "worth", "wrong"});
}

// Short adjectives that say how many, which or of what, and so have no degrees.
bool hasNoDegrees(std::string_view adjective) {
  return isOneOf(
      adjective,
      {"all",   "base",  "bass",    "bias",   "both",  "bronze",  "brute",   "bulk",   "chance", "cross",
       "done",  "down",  "dual",    "each",   "eight", "eighth",  "eleven",  "extra",  "faux",   "fifth",
       "first", "five",  "four",    "fourth", "glace", "gold",    "half",    "home",   "in",     "ish",
       "joint", "last",  "luxe",    "male",   "mass",  "mint",    "mock",    "nee",    "nett",   "nigh",
       "nine",  "ninth", "no",      "north",  "nth",   "nude",    "nuts",    "on",     "one",    "out",
       "plus",  "post",  "quits",   "rank",   "rear",  "reverse", "same",    "second", "set",    "seventh",
       "side",  "six",   "sixth",   "so",     "some",  "south",   "stock",   "tenth",  "than",   "then",
       "third", "three", "through", "time",   "to",    "triple",  "twelfth", "two",    "up",     "waste",
       "west",  "east",  "yon",     "wroth"});
}

// "potato" of "potatoes".
bool isOes(std::string_view noun, std::string_view plural) {
  return noun.ends_with('o') && plural.size() == noun.size() + 2 && plural.ends_with("oes");
}

// A plural that kept the ending of another language, beside which a regular one is often as good.
bool isForeign(std::string_view noun, std::string_view plural) {
  if (noun.ends_with("sis") || noun.ends_with("xis")) return false;
  return plural.ends_with('i') || plural.ends_with('a') || plural.ends_with("ae") ||
         plural.ends_with("ces") || plural.ends_with("im") || plural.ends_with("eaux") ||
         plural.ends_with("ides");
}

}  // namespace

Inflection::Inflection(const WordNet& wordNet, const Attested& attested)
    : wordNet_(wordNet), attested_(attested) {
  for (uint8_t pos = 0; pos < WordNet::kPosCount; ++pos) {
    for (const auto& [form, base] : wordNet.exceptions(static_cast<WordNet::Pos>(pos))) {
      if (form == base || isOtherWord(form, base)) continue;
      if (form.find('-') != std::string::npos && base.find('-') == std::string::npos) continue;
      if (pos == WordNet::kNoun && (form.ends_with("ing") || form.ends_with("ings"))) continue;
      add(byBase_[pos][base], form);
      forms_[pos].insert(form);
      // Italian plurals in -e look like any noun: "dive", of "diva".
      const bool doubtful = base.ends_with('a') && form.ends_with('e') && !form.ends_with("ae");
      if (pos == WordNet::kNoun && !doubtful) plurals_.insert(form);
    }
  }
}

const Forms& Inflection::listed(WordNet::Pos pos, std::string_view base) const {
  static const Forms kNothing;
  const auto found = byBase_[pos].find(std::string(base));
  return found == byBase_[pos].end() ? kNothing : found->second;
}

bool Inflection::isListedForm(WordNet::Pos pos, std::string_view form) const {
  return forms_[pos].contains(std::string(form));
}

bool Inflection::isKnownVerb(std::string_view verb) const {
  const WordNet::Lemma* lemma = wordNet_.lemma(verb);
  if (lemma == nullptr || !lemma->is(WordNet::kVerb) || isListedForm(WordNet::kVerb, verb)) return false;
  return lemma->uses[WordNet::kVerb] > 0 || !listed(WordNet::kVerb, verb).empty();
}

bool Inflection::isDefective(std::string_view verb) {
  return isOneOf(verb, {"must", "ought"}) || !modalPast(verb).empty();
}

// An entry that a dictionary gives to a form, "clung" or "might", has no forms of its own.
bool Inflection::isMereForm(std::string_view verb) const {
  if (wordNet_.is(verb, WordNet::kVerb)) return false;
  return isListedForm(WordNet::kVerb, verb) || isOneOf(verb, {"could", "should", "would"}) ||
         isDefective(verb);
}

std::string_view Inflection::modalPast(std::string_view verb) {
  if (verb == "can") return "could";
  if (verb == "may") return "might";
  if (verb == "shall") return "should";
  if (verb == "will") return "would";
  return {};
}

// "-man" for a man: what stands before it is a word of its own ("policeman", "salesman", "woman").
bool Inflection::isMan(std::string_view noun) const {
  if (!noun.ends_with("man") || isWholeMan(noun)) return false;
  std::string_view before = noun.substr(0, noun.size() - 3);
  if (before.ends_with('-')) before.remove_suffix(1);
  if (before.empty() || before == "wo" || before.ends_with("wo")) return true;
  if (wordNet_.lemma(before) != nullptr) return true;
  return before.ends_with('s') && wordNet_.lemma(before.substr(0, before.size() - 1)) != nullptr;
}

Forms Inflection::plurals(std::string_view spelled, const Sounds& sounds) const {
  const std::string noun = lowerCase(spelled);
  if (noun.size() < 2 || noun.find('.') != std::string::npos || plurals_.contains(noun)) return {};
  if (noun.ends_with("men") && isMan(noun.substr(0, noun.size() - 3) + "man")) return {};
  if (isUnchangingNoun(noun)) return {noun};
  if (noun.ends_with("ese") && wordNet_.is(noun, WordNet::kAdjective)) return {noun};  // "a Japanese"
  if (isMan(noun)) return {noun.substr(0, noun.size() - 3) + "men"};

  Forms irregular = listed(WordNet::kNoun, noun);
  const std::string regular = withS(noun, sounds.hardCh);
  std::erase(irregular, regular);
  if (takesOes(noun)) return {noun + "es"};
  if (!irregular.empty()) {
    const uint32_t used = attested_.count(regular), usedIrregular = attested_.count(irregular[0]);
    const bool oes = isOes(noun, irregular[0]);
    if (oes && used > 0 && usedIrregular == 0) return {regular};
    // A regular form in use may be that of a verb ("mans"), or a slip of the pen ("heros").
    const bool verb = wordNet_.is(noun, WordNet::kVerb) && !oes;
    const bool often = used * (verb ? 1 : 4) > usedIrregular;
    const bool foreign = isForeign(noun, irregular[0]);
    // Unused in definitions either way: a word of general English takes the regular ending as well, a
    // term of anatomy or botany ("coccus", "areola") does not.
    const WordNet::Lemma* lemma = wordNet_.lemma(noun);
    const bool general = oes || noun.ends_with("um") || noun.ends_with('o') || noun.ends_with('x') ||
                         (lemma != nullptr && lemma->uses[WordNet::kNoun] > 0);
    const bool rare = usedIrregular < kInUse && general && (foreign || oes);
    if ((used > 0 && (often || foreign)) || rare) add(irregular, regular);
    return irregular;
  }
  if (noun.ends_with("fish")) return {noun, regular};
  if (!noun.ends_with('s') || noun.ends_with("ss") || noun.ends_with("us") || noun.ends_with("as") ||
      noun.ends_with("is") || noun.ends_with("lens")) {
    return {regular};
  }
  return {};
}

// True when the last consonant doubles before -ed and -ing.
bool Inflection::doubles(std::string_view verb, const Forms& exceptions) const {
  const std::string stem = std::string(verb) + verb.back();
  for (const std::string& form : exceptions) {
    if (form == stem + "ed" || form == stem + "ing") return true;
  }
  if (isUnchanging(verb) && verb.size() > 3) {  // "inputting", "resetting", but "reading", "casting"
    const size_t n = verb.size();
    return (verb[n - 1] == 't' || verb[n - 1] == 'd') && isVowelLetter(verb[n - 2]) &&
           !isVowelLetter(verb[n - 3]);
  }
  return endsInShortSyllable(verb);
}

// False where usage is divided: "traveled, travelled". Stress on the last syllable leaves no choice.
bool Inflection::doublesOnly(std::string_view verb, const Sounds& sounds) const {
  if (sounds.syllables == 1 || (sounds.known && sounds.lastStressed)) return true;
  if (sounds.known && verb.ends_with('l')) return false;
  const uint32_t plain = attested_.count(withEd(verb)) + attested_.count(withIng(verb, false));
  const uint32_t doubled = attested_.count(withEd(verb, true)) + attested_.count(withIng(verb, false, true));
  return plain * kMinority <= doubled || plain < kInUse;
}

void Inflection::regularPast(std::string_view verb, const Sounds& sounds, bool doubled,
                             VerbForms* forms) const {
  const bool plain = !doubled || !doublesOnly(verb, sounds);
  if (plain) add(forms->past, withEd(verb));
  if (doubled) add(forms->past, withEd(verb, true));
  addAll(forms->participle, forms->past);
}

void Inflection::irregularPast(std::string_view verb, const Forms& irregular, bool doubled,
                               VerbForms* forms) const {
  Forms past, participle;
  bool wornDown = false;
  for (const std::string& form : irregular) {
    wornDown = wornDown || isWornDown(verb, form);
    (isNParticiple(verb, form, irregular) ? participle : past).push_back(form);
  }
  const bool noPast = past.empty();
  if (hasUnchangedPast(verb)) {
    past = {std::string(verb)};
  } else if (hasUnchangedParticiple(verb)) {
    participle = {std::string(verb)};
  } else if (participle.empty() && !isPastOnly(verb)) {
    participle = past;
  } else if (keepsPastAsParticiple(verb)) {
    for (const std::string& form : past) {
      if (!isNoParticiple(form)) add(participle, form);
    }
  }
  if (isUnchanging(verb)) {
    add(past, std::string(verb));
    add(participle, std::string(verb));
  }
  // "showed, shown"; "burned, burnt".
  const std::string regular = withEd(verb, doubled);
  const bool inUse =
      wornDown || alsoRegular(verb) ||
      (attested_.has(regular) && !isNoPast(regular) && !isEdOfAnother(wordNet_, verb, regular));
  if ((noPast && past.empty()) || inUse || isPastOnly(verb)) {
    add(past, regular);
    if (inUse || participle.empty()) add(participle, regular);
  }
  addAll(forms->past, past);
  addAll(forms->participle, participle);
}

VerbForms Inflection::verb(std::string_view spelled, const Sounds& sounds) const {
  const std::string verb = lowerCase(spelled);
  if (verb == "be") return {{"am", "are"}, {"is"}, {"was", "were"}, {"been"}, {"being"}};
  VerbForms out;
  const Forms& exceptions = listed(WordNet::kVerb, verb);
  const bool doubled = doubles(verb, exceptions);
  Forms irregular, likeRegular;
  for (const std::string& form : exceptions) {
    const bool sameStem = form.starts_with(verb.substr(0, verb.size() - 1));
    if (form.ends_with("ing") && form.size() > verb.size()) {
      if (sameStem || verb.ends_with("ie")) add(out.progressive, form);
    } else if (form.ends_with('s')) {
      if (form == verb + "s" || form == verb + "es" || form == verb + verb.back() + "es" || verb == "have") {
        add(out.third, form);
      }
    } else if (form.ends_with("ed") && form.size() > verb.size()) {
      if (sameStem) add(likeRegular, form);
    } else if (!isWornDown(verb, form) || attested_.has(form)) {  // no "gript", no "addrest"
      add(irregular, form);
    }
  }

  if (out.third.empty()) {
    const bool consonantO = verb.size() > 1 && verb.back() == 'o' && !isVowelLetter(verb[verb.size() - 2]);
    const bool oes = consonantO && (!irregular.empty() || attested_.has(verb + "es"));
    out.third.push_back(oes ? verb + "es" : withS(verb, sounds.hardCh));  // "undergoes", "echoes"; "solos"
  }
  if (!irregular.empty()) {
    irregularPast(verb, irregular, doubled, &out);
    addAll(out.past, likeRegular);  // "pent", "penned"
    addAll(out.participle, likeRegular);
  } else if (isUnchanging(verb)) {
    out.past = out.participle = {verb};
    if (alsoTakesEd(verb)) regularPast(verb, sounds, doubled, &out);
  } else if (!likeRegular.empty() && (verb.ends_with('c') || verb.ends_with("ie"))) {
    out.past = out.participle = likeRegular;  // "trafficked"
  } else {
    regularPast(verb, sounds, doubled, &out);
  }

  const bool divided = doubled && !doublesOnly(verb, sounds);
  if (doubled) add(out.progressive, withIng(verb, false, true));
  if (divided || (!doubled && out.progressive.empty())) {
    const bool keepsE = sounds.keepsE || isOneOf(verb, {"singe", "swinge", "tinge", "binge"});
    add(out.progressive, withIng(verb, keepsE));
  }
  std::sort(out.progressive.begin(), out.progressive.end());
  return out;
}

Comparison Inflection::comparison(std::string_view spelled, const Sounds& sounds) const {
  const std::string word = lowerCase(spelled);
  Comparison out;
  if (isOneOf(word, {"much", "many"})) return {Comparison::Kind::kEndings, {"more"}, {"most"}};
  if (word == "little") return {Comparison::Kind::kEndings, {"less"}, {"least"}};
  if (word == "well") return {Comparison::Kind::kEndings, {"better"}, {"best"}};
  if (word == "ill") return {Comparison::Kind::kEndings, {"worse"}, {"worst"}};
  if (word == "far") return {Comparison::Kind::kEndings, {"farther", "further"}, {"farthest", "furthest"}};
  if (word == "old") return {Comparison::Kind::kEndings, {"older", "elder"}, {"oldest", "eldest"}};

  for (const std::string& form : listed(WordNet::kAdjective, word)) {
    if (form.ends_with("st")) {
      add(out.superlative, form);
    } else if (form.ends_with("er") || form.ends_with("se")) {
      add(out.comparative, form);
    }
  }
  if (!out.comparative.empty() && !out.superlative.empty()) {
    out.kind = Comparison::Kind::kEndings;
    return out;
  }

  const WordNet::Lemma* lemma = wordNet_.lemma(word);
  if (lemma != nullptr && lemma->relational > 0 && lemma->relational == lemma->senses[WordNet::kAdjective]) {
    return {};
  }
  if (isCompared(word) || hasNoDegrees(word)) return {};
  const Comparison more = {Comparison::Kind::kMore, {}, {}};
  if (!isPlainWord(word) || lemma == nullptr || !lemma->is(WordNet::kAdjective)) return more;
  if (isListedForm(WordNet::kVerb, word) || isParticiple(word) || refusesEndings(word)) return more;
  if (spelled[0] >= 'A' && spelled[0] <= 'Z') return more;  // "more French"
  const std::string er = withEr(word), est = withEst(word);
  const bool inUse = attested_.has(er) && attested_.has(est);
  // The exception lists have the words in -y and those that double a letter, as far as they compare so.
  const bool consonantY = word.ends_with('y') && !isVowelLetter(word[word.size() - 2]);
  const bool listable = consonantY || endsInShortSyllable(word);
  if (listable && !inUse) return more;
  if (sounds.syllables > 1 && !(sounds.syllables == 2 && inUse)) return more;
  return {Comparison::Kind::kEndings, {er}, {est}};
}

// True for what is a comparative or superlative already: "better", "older", "upper".
bool Inflection::isCompared(std::string_view word) const {
  if (isListedForm(WordNet::kAdjective, word)) return true;
  if (isOneOf(word,
              {"more", "most", "less", "least", "elder", "eldest", "further", "furthest", "farthest"})) {
    return true;
  }
  for (const size_t ending : {size_t{2}, size_t{3}}) {
    if (word.size() < ending + 2 || !word.ends_with(ending == 2 ? "er" : "est")) continue;
    const std::string stem(word.substr(0, word.size() - ending));
    if (wordNet_.is(stem, WordNet::kAdjective) || wordNet_.is(stem + "e", WordNet::kAdjective)) return true;
    const bool doubled = stem.size() > 2 && stem.back() == stem[stem.size() - 2];
    if (doubled && wordNet_.is(stem.substr(0, stem.size() - 1), WordNet::kAdjective)) return true;
  }
  return false;
}

// An adjective made of a verb or a noun by -ed or -ing: "tired", "boring", "horned".
bool Inflection::isParticiple(const std::string& word) const {
  if (!word.ends_with("ed") && !word.ends_with("ing")) return false;
  const std::string stem = word.substr(0, word.size() - (word.ends_with("ed") ? 2 : 3));
  for (const std::string& base : {stem, stem + "e"}) {
    if (wordNet_.is(base, WordNet::kVerb) || wordNet_.is(base, WordNet::kNoun)) return true;
  }
  return false;
}

Comparison Inflection::adverbComparison(std::string_view spelled) const {
  const std::string word = lowerCase(spelled);
  if (word == "well") return {Comparison::Kind::kEndings, {"better"}, {"best"}};
  if (word == "badly") return {Comparison::Kind::kEndings, {"worse"}, {"worst"}};
  if (word == "far") return {Comparison::Kind::kEndings, {"farther", "further"}, {"farthest", "furthest"}};
  if (word == "soon") return {Comparison::Kind::kEndings, {"sooner"}, {"soonest"}};
  return {};
}

}  // namespace zavel::mkdict
