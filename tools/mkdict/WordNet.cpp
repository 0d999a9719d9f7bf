// A data line: offset lexfile type words-in-hex { word id } pointers { symbol offset pos words-in-hex }
// frames | gloss. Tests: tests/mkdict/WordNetTest.cpp.
#include "mkdict/WordNet.h"

#include <algorithm>
#include <charconv>

#include "foundation/Storage.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kFileLimit = size_t{64} << 20;
constexpr uint32_t kUseWeight = 10;  // a tagged use against a mere sense, for the kinds of a noun
constexpr std::string_view kDerivation = "+";
constexpr std::string_view kRelation = "\\";  // pertainym of an adjective; the adjective of an adverb

// Takes blank-separated fields off a line; ok() turns false when one was missing or malformed.
class Fields {
 public:
  explicit Fields(std::string_view line) : rest_(line) {}

  bool ok() const { return ok_; }
  std::string_view text() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
    const size_t end = std::min(rest_.find(' '), rest_.size());
    const std::string_view field = rest_.substr(0, end);
    rest_.remove_prefix(end);
    if (field.empty()) ok_ = false;
    return field;
  }
  uint32_t number(int base) {
    const std::string_view field = text();
    uint32_t value = 0;
    const auto [end, problem] = std::from_chars(field.data(), field.data() + field.size(), value, base);
    if (problem != std::errc() || end != field.data() + field.size()) ok_ = false;
    return value;
  }

 private:
  std::string_view rest_;
  bool ok_ = true;
};

template <typename Action>
bool forEachLine(std::string_view text, const Action& action) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.empty() && line[0] != ' ' && !action(line)) return false;  // the licence is indented
  }
  return true;
}

// "United_States" and "galore(ip)" as lemmas are looked up: "united states", "galore".
std::string folded(std::string_view word) {
  const size_t marker = word.find('(');
  if (marker != std::string_view::npos && marker > 0) word = word.substr(0, marker);
  std::string out(word);
  for (char& c : out) c = c == '_' ? ' ' : (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
  return out;
}

bool anyCapital(std::string_view word) {
  return std::any_of(word.begin(), word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

// What a line of counts says of the sense it counts.
uint64_t senseKey(uint32_t lemma, WordNet::Pos pos, uint32_t file, uint32_t id) {
  return uint64_t{lemma} << 24 | uint64_t{pos} << 20 | (file & 0xFF) << 8 | (id & 0xFF);
}

bool posOf(std::string_view letter, WordNet::Pos* pos) {
  if (letter.size() != 1) return false;
  switch (letter[0]) {
    case 'n':
      *pos = WordNet::kNoun;
      return true;
    case 'v':
      *pos = WordNet::kVerb;
      return true;
    case 'a':
    case 's':
      *pos = WordNet::kAdjective;
      return true;
    case 'r':
      *pos = WordNet::kAdverb;
      return true;
    default:
      return false;
  }
}

}  // namespace

WordNet::Kind WordNet::kindOf(unsigned lexicographerFile) {
  switch (lexicographerFile) {
    case 5:   // animal
    case 18:  // person
    case 20:  // plant
      return kLiving;
    case 6:   // artifact
    case 8:   // body
    case 11:  // event
    case 14:  // group
    case 15:  // location
    case 17:  // object
    case 23:  // quantity
    case 25:  // shape
    case 28:  // time
      return kThing;
    case 7:   // attribute
    case 12:  // feeling
    case 13:  // food
    case 19:  // phenomenon
    case 22:  // process
    case 27:  // substance
      return kMass;
    default:  // act, cognition, communication, motive, possession, relation, state and the tops
      return kMixed;
  }
}

bool WordNet::Lemma::tellsNames() const {
  bool name = false, common = false;
  for (uint8_t pos = 0; pos < kPosCount; ++pos) {
    name = name || isName(static_cast<Pos>(pos));
    common = common || isCommon(static_cast<Pos>(pos));
  }
  return name && common;
}

uint32_t WordNet::Lemma::spelledUses(Pos pos, bool capital) const {
  if (!tellsNames()) return uses[pos];
  return capital ? nameUses[pos] : uses[pos] - nameUses[pos];
}

uint32_t WordNet::Lemma::spelledUses(bool capital) const {
  uint32_t sum = 0;
  for (uint8_t pos = 0; pos < kPosCount; ++pos) sum += spelledUses(static_cast<Pos>(pos), capital);
  return sum;
}

uint32_t WordNet::find(std::string_view text) const {
  const auto found = numbers_.find(std::string(text));
  return found == numbers_.end() ? kNone : found->second;
}

const WordNet::Lemma* WordNet::lemma(std::string_view text) const {
  const uint32_t number = find(text);
  return number == kNone ? nullptr : &lemmas_[number];
}

bool WordNet::is(std::string_view text, Pos pos) const {
  const Lemma* known = lemma(text);
  return known != nullptr && known->is(pos);
}

uint32_t WordNet::add(std::string_view word, bool cased) {
  std::string text = folded(word);
  const bool lower = !anyCapital(word);
  const auto [place, fresh] = numbers_.try_emplace(text, static_cast<uint32_t>(lemmas_.size()));
  if (fresh) lemmas_.push_back({.text = std::move(text)});
  Lemma& lemma = lemmas_[place->second];
  lemma.lowerCase = lemma.lowerCase || (lower && (cased || fresh));
  return place->second;
}

bool WordNet::readSynset(Pos pos, std::string_view line, const SynsetSink& synsets) {
  Fields fields(line);
  const uint32_t offset = fields.number(10);
  const uint32_t file = fields.number(10);
  fields.text();  // type: the file tells it
  const uint32_t count = fields.number(16);
  if (!fields.ok() || count == 0 || count > 0xFF) return false;

  const size_t first = words_.size();
  synsetAt_[pos].emplace_back(offset, static_cast<uint32_t>(first));
  for (uint32_t i = 0; i < count && fields.ok(); ++i) {
    const std::string_view word = fields.text();
    const uint32_t number = add(word, true);
    const uint32_t id = fields.number(16);
    ++lemmas_[number].senses[pos];
    if (anyCapital(word)) {
      ++lemmas_[number].nameSenses[pos];
      names_.insert(senseKey(number, pos, file, id));
    }
    if (pos == kNoun) ++lemmas_[number].kinds[kindOf(file)];
    words_.push_back(number);
  }
  const uint32_t pointers = fields.number(10);
  std::vector<bool> relational(count, false);
  for (uint32_t i = 0; i < pointers && fields.ok(); ++i) {
    const std::string_view symbol = fields.text();
    const uint32_t target = fields.number(10);
    Pos targetPos = kNoun;
    if (!posOf(fields.text(), &targetPos)) return false;
    const uint32_t between = fields.number(16);  // high byte: word here, low byte: word there
    const uint32_t here = between >> 8;
    const bool relation = symbol == kRelation;
    if (!fields.ok() || between > 0xFFFF || here > count) return false;
    if (!relation && symbol != kDerivation) continue;
    if (relation && pos == kAdjective) {
      for (uint32_t w = 0; w < count; ++w) relational[w] = relational[w] || here == 0 || here == w + 1;
    }
    if (here == 0) continue;
    pointers_.push_back({words_[first + here - 1], target, static_cast<uint16_t>(between & 0xFF), targetPos});
  }
  if (!fields.ok()) return false;
  for (uint32_t w = 0; w < count; ++w) lemmas_[words_[first + w]].relational += relational[w] ? 1 : 0;
  if (synsets && count > 1) synsets(pos, {words_.begin() + static_cast<std::ptrdiff_t>(first), words_.end()});
  words_.push_back(kNone);
  return true;
}

bool WordNet::readData(Pos pos, std::string_view text, const GlossSink& glosses, const SynsetSink& synsets) {
  return forEachLine(text, [&](std::string_view line) {
    const size_t bar = std::min(line.find(" | "), line.size());
    if (glosses && bar < line.size()) glosses(line.substr(bar + 3));
    return readSynset(pos, line.substr(0, bar), synsets);
  });
}

// "man%1:18:00:: 1 198": lemma, type : file : id : head : id, sense number, uses.
bool WordNet::readCounts(std::string_view text) {
  return forEachLine(text, [&](std::string_view line) {
    Fields fields(line);
    const std::string_view key = fields.text();
    fields.number(10);
    const uint32_t uses = fields.number(10);
    const size_t percent = key.rfind('%');
    if (!fields.ok() || percent == std::string_view::npos || key.size() < percent + 5) return false;
    const unsigned type = static_cast<unsigned>(key[percent + 1] - '0');
    unsigned file = 0, id = 0;
    std::from_chars(key.data() + percent + 3, key.data() + percent + 5, file);
    if (type < 1 || type > 5 || key[percent + 2] != ':') return false;
    if (key.size() >= percent + 8) std::from_chars(key.data() + percent + 6, key.data() + percent + 8, id);
    const Pos pos = type == 5 ? kAdjective : static_cast<Pos>(type - 1);
    const uint32_t number = add(key.substr(0, percent), false);
    Lemma& lemma = lemmas_[number];
    lemma.uses[pos] += uses;
    if (names_.contains(senseKey(number, pos, file, id))) lemma.nameUses[pos] += uses;
    if (pos == kNoun) lemma.kinds[kindOf(file)] += uses * kUseWeight;
    return true;
  });
}

bool WordNet::readExceptions(Pos pos, std::string_view text) {
  return forEachLine(text, [&](std::string_view line) {
    Fields fields(line);
    const std::string form = folded(fields.text());
    size_t bases = 0;
    for (;; ++bases) {
      const std::string_view base = fields.text();
      if (!fields.ok()) break;
      exceptions_[pos].emplace_back(form, folded(base));
    }
    return bases > 0;
  });
}

size_t WordNet::finish() {
  size_t lost = 0;
  for (auto& places : synsetAt_) std::sort(places.begin(), places.end());
  for (const Pointer& pointer : pointers_) {
    const auto& places = synsetAt_[pointer.pos];
    const auto place = std::lower_bound(places.begin(), places.end(), std::pair(pointer.synset, uint32_t{0}));
    if (place == places.end() || place->first != pointer.synset) {
      ++lost;
      continue;
    }
    for (uint32_t i = place->second, w = 1; words_[i] != kNone; ++i, ++w) {
      const bool meant = pointer.word == 0 || pointer.word == w;
      if (meant && words_[i] != pointer.lemma) derivations_.emplace_back(pointer.lemma, words_[i]);
    }
  }
  std::sort(derivations_.begin(), derivations_.end());
  derivations_.erase(std::unique(derivations_.begin(), derivations_.end()), derivations_.end());
  for (auto& places : synsetAt_) places = {};
  words_ = {};
  names_ = {};
  pointers_ = {};
  return lost;
}

bool WordNet::load(const std::string& folder, const GlossSink& glosses, const SynsetSink& synsets,
                   std::string* error) {
  constexpr std::array<const char*, kPosCount> kNames = {"noun", "verb", "adj", "adv"};
  const auto each = [&](const std::string& name, const auto& reader) {
    std::string text;
    const std::string path = folder + "/" + name;
    if (!readWholeFile(path, kFileLimit, &text)) {
      *error = "can't read " + path;
      return false;
    }
    if (!text.empty() && text.back() != '\n') {
      *error = path + " is cut short";
      return false;
    }
    if (reader(std::string_view(text))) return true;
    *error = path + " is damaged";
    return false;
  };
  numbers_.reserve(160000);
  for (uint8_t pos = 0; pos < kPosCount; ++pos) {
    const Pos which = static_cast<Pos>(pos);
    const std::string name = kNames[pos];
    if (!each("data." + name, [&](std::string_view t) { return readData(which, t, glosses, synsets); }) ||
        !each(name + ".exc", [&](std::string_view t) { return readExceptions(which, t); })) {
      return false;
    }
  }
  if (!each("cntlist.rev", [&](std::string_view t) { return readCounts(t); })) return false;
  const size_t lost = finish();
  if (lost != 0) {
    *error = folder + ": " + std::to_string(lost) + " pointers lead nowhere; a data file is cut short";
  }
  return lost == 0;
}

}  // namespace zavel::mkdict
