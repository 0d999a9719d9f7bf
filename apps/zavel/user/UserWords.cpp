// Tests: tests/zavel/user/UserLookTest.cpp
#include "user/UserWords.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_set>

#include "Deinflector.h"
#include "Failure.h"
#include "Places.h"
#include "QueryText.h"
#include "Utf8.h"
#include "WordForms.h"
#include "engine/ChangeMidasi.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"
#include "foundation/Utf8.h"
#include "user/EnglishBases.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

constexpr std::chrono::milliseconds kPatience{100};
constexpr const char* kMark = "+ ";  // ahead of each line of an entry of the user's
constexpr size_t kMostHeadwords = 50;

// The inflection table of an English word, as the dictionary has it or by rule; the engine is open.
std::vector<Form> formsOf(const std::string& word) {
  std::vector<Form> forms;
  uint32_t size = 0;
  Handle list = nullptr;
  if (GetKatuyo(word.c_str(), &size, &list) != 1 || !list) return forms;
  std::string bytes(static_cast<const char*>(GlobalLock(list)), size);
  GlobalFree(list);
  for (size_t at = 0; at + 3 <= bytes.size();) {
    const size_t length = readLE16(reinterpret_cast<const uint8_t*>(bytes.data()) + at);
    Form form{static_cast<uint8_t>(bytes[at + 2]), std::string(bytes.substr(at + 3, length).c_str()), {}};
    forms.push_back(std::move(form));
    at += 3 + length;
  }
  return forms;
}

unsigned paradigmsOfPos(const UserEntry& entry) {
  switch (entry.pos) {
    case 1:
      return kNounForms;
    case 3:
    case 4:
      return kAdjectiveForms;
    case 5:
    case 6:
    case 7:
      return kVerbForms;
    default:
      return 0;
  }
}

std::string keyOf(UserLanguage language, const std::string& word, bool kanji) {
  // Most words of a batch: quick, and a character that no entry has only finds nothing.
  if (language == UserLanguage::kEnglish && isAscii(word)) return engine::ChangeMidasiStrE(word);
  std::string settled = word, key;
  const bool english = language == UserLanguage::kEnglish;
  const TextKind kind = english ? TextKind::kEnglishWord : kanji ? TextKind::kWritten : TextKind::kReading;
  if (!settleText(kind, &settled).empty()) return {};
  if (english) return engine::ChangeMidasiStrE(settled);
  if (kanji) return settled;
  return engine::ChangeMidasiStrJ(storedText(settled), true, &key) == 1 ? key : std::string();
}

std::string lowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

Match matchOf(const UserEntry& entry, const std::string& word) {
  if (entry.language == UserLanguage::kJapanese) return Match::kExact;
  return lowerCase(entry.word) == lowerCase(foldedQuery(word)) ? Match::kExact : Match::kNear;
}

std::vector<Example> examplesOf(const UserEntry& entry) {
  std::vector<Example> examples;
  for (const auto* list : {&entry.examples, &entry.sentences}) {
    for (const UserExample& one : *list) {
      const bool english = entry.language == UserLanguage::kEnglish;
      examples.push_back({english ? one.english : one.japanese, english ? one.japanese : one.english});
    }
  }
  return examples;
}

Paradigm paradigmOfName(const std::string& name) {
  if (name == "singular" || name == "plural") return kNounForms;
  return name == "comparative" || name == "superlative" ? kAdjectiveForms : kVerbForms;
}

// The bases that the dictionary's own entries answer by: "went" is a form of "go".
std::vector<InflectedFrom> basesOf(const LookResult& result) {
  std::vector<InflectedFrom> bases;
  for (const Entry& entry : result.entries) {
    if (entry.match != Match::kInflected || entry.base.empty()) continue;
    InflectedFrom base{entry.base, {}};
    for (const std::string& name : entry.via) base.ways.push_back({paradigmOfName(name), name});
    bases.push_back(std::move(base));
  }
  return bases;
}

// Names of parts of speech as the basic dictionary's entries have them.
const char* shortPos(int pos) {
  constexpr const char* kNames[] = {"", "n", "pron", "adj", "adv", "v", "vt", "vi", "prep", "conj"};
  return pos >= 0 && pos <= 9 ? kNames[pos] : "";
}

// The part of an entry that is asked for; nothing when it has none.
std::optional<UserEntry> partOf(UserEntry entry, Mode mode) {
  const bool english = entry.language == UserLanguage::kEnglish;
  switch (mode) {
    case Mode::kAll:
      return entry;
    case Mode::kPos:
      entry.examples.clear();
      entry.sentences.clear();
      return entry;
    case Mode::kPhrase:
      entry.examples.clear();
      if (english ? entry.phrase.empty() : entry.sentences.empty()) return std::nullopt;
      return entry;
    case Mode::kExample:
      if (entry.examples.empty() && entry.sentences.empty()) return std::nullopt;
      return entry;
  }
  return std::nullopt;
}

std::string textOf(const UserEntry& entry, const std::vector<Example>& examples) {
  std::string text = kMark + (entry.kanji.empty() ? entry.word : entry.word + " " + entry.kanji);
  text += "  (your entry)\n" + std::string(kMark) + "  ";
  if (!entry.phrase.empty()) text += entry.phrase + ": ";
  if (entry.pos > 0) text += std::string("[") + posName(entry.pos) + "] ";
  text += entry.meaning;
  for (const Example& example : examples) {
    text += "\n" + std::string(kMark) + "    " + example.source + "  " + example.target;
  }
  return withoutControls(std::move(text));
}

Entry shownEntry(const UserEntry& own) {
  Entry entry;
  entry.user = true;
  entry.headword = own.kanji.empty() ? own.word : own.kanji;
  if (!own.kanji.empty()) entry.reading = own.word;
  Sense sense;
  if (own.pos > 0) sense.pos = {shortPos(own.pos)};
  sense.glosses = {own.meaning};
  sense.note = own.phrase;
  sense.examples = examplesOf(own);
  entry.text = textOf(own, sense.examples);
  entry.spans = {{0, false, false, 0}};
  entry.senses = {std::move(sense)};
  return entry;
}

bool hasAny() {
  const std::string folder = userPlace().folder();
  return !folder.empty() && access(folder.c_str(), F_OK) == 0;
}

constexpr UserLanguage kLanguages[] = {UserLanguage::kEnglish, UserLanguage::kJapanese};

}  // namespace

bool UserWords::open(UserStore* store, UserLanguage language) const {
  store->setPatience(kPatience);
  const Failure failure = store->open(language, UserAccess::kRead);
  if (failure) warn(failure.message + "; they are left out");
  return !failure && store->hasEntries();
}

// What a word gives: its own entries, then those of the words that it is a form of.
template <typename Find>
std::vector<UserWords::Found> UserWords::lookUp(UserLanguage language, const std::string& typed,
                                                const std::vector<InflectedFrom>& known, const Find& find) {
  const std::string word = withSoundMarksJoined(typed);
  std::vector<Found> found;
  for (UserEntry& entry : find(word)) {
    const Match match = matchOf(entry, word);
    found.push_back({std::move(entry), match, {}, word});
  }
  if (language == UserLanguage::kEnglish) {
    std::string asked = word;
    if (!settleText(TextKind::kEnglishWord, &asked).empty()) return found;
    std::vector<InflectedFrom> bases = known;
    for (InflectedFrom& base : regularBases(lowerCase(asked))) bases.push_back(std::move(base));
    for (const InflectedFrom& base : bases) {
      for (UserEntry& entry : find(base.base)) {
        std::vector<std::string> via = base.namesFor(paradigmsOfPos(entry));
        const auto same = [&entry](const Found& one) { return one.entry == entry; };
        if (via.empty() || matchOf(entry, base.base) != Match::kExact) continue;
        if (std::any_of(found.begin(), found.end(), same)) continue;
        found.push_back({std::move(entry), Match::kInflected, std::move(via), base.base});
      }
    }
    return found;
  }
  for (const BaseForm& base : baseFormsOf(foldedQuery(word), !found.empty())) {
    for (UserEntry& entry : find(base.word)) {
      const auto same = [&entry](const Found& one) { return one.entry == entry; };
      if (std::any_of(found.begin(), found.end(), same)) continue;
      found.push_back({std::move(entry), Match::kInflected, base.reasons, base.word});
    }
  }
  return found;
}

void UserWords::readWord(UserStore* store, UserLanguage language, const std::string& word) {
  const auto find = [store](const std::string& asked) {
    std::vector<StoredEntry> stored;
    std::vector<UserEntry> entries;
    if (const Failure failure = store->find(asked, &stored)) warn(failure.message);
    for (StoredEntry& one : stored) entries.push_back(std::move(one.entry));
    return entries;
  };
  const bool english = language == UserLanguage::kEnglish;
  const std::vector<InflectedFrom> known =
      english ? basesIn(formsOf(word), word) : std::vector<InflectedFrom>();
  answers_[word] = lookUp(language, word, known, find);
}

void UserWords::readFor(const std::vector<std::string>& words) {
  if (!hasAny()) return;
  for (const UserLanguage language : kLanguages) {
    const auto mine = [language](const std::string& word) { return guessLanguage(word) == language; };
    if (std::none_of(words.begin(), words.end(), mine)) continue;
    UserStore store(userPlace(), findPlaces().dictionary);
    if (!open(&store, language)) continue;
    for (const std::string& word : words) {
      const std::string asked(withoutOuterBlanks(word));
      if (mine(word) && isUtf8(asked)) readWord(&store, language, asked);
    }
  }
}

void UserWords::readAll() {
  all_ = true;
  if (!hasAny()) return;
  for (const UserLanguage language : kLanguages) {
    UserStore store(userPlace(), findPlaces().dictionary);
    std::vector<std::string> words;
    if (!open(&store, language)) continue;
    Failure failure = store.headwords(&words);
    std::unordered_set<uint32_t> seen;
    for (size_t i = 0; i < words.size() && !failure; ++i) {
      std::vector<StoredEntry> found;
      failure = store.findStored(words[i], &found);
      for (const StoredEntry& one : found) {
        if (!seen.insert(one.place.dicOffset).second) continue;
        const UserEntry& entry = one.entry;
        const bool english = language == UserLanguage::kEnglish;
        (english ? english_ : readings_).emplace(keyOf(language, entry.word, false), entry);
        if (!entry.kanji.empty()) kanji_.emplace(entry.kanji, entry);
      }
    }
    if (failure) warn(failure.message);
  }
}

void UserWords::readHeadwords() {
  if (!hasAny()) return;
  for (const UserLanguage language : kLanguages) {
    UserStore store(userPlace(), findPlaces().dictionary);
    std::vector<std::string> words;
    if (!open(&store, language)) continue;
    if (const Failure failure = store.headwords(&words)) warn(failure.message);
    for (std::string& word : words) headwords_.emplace_back(language, std::move(word));
  }
}

std::vector<UserEntry> UserWords::kept(UserLanguage language, const std::string& word) const {
  std::vector<UserEntry> entries;
  const bool english = language == UserLanguage::kEnglish;
  const std::string key = keyOf(language, word, false);
  const auto& index = english ? english_ : key.empty() ? kanji_ : readings_;
  const std::string wanted = english || !key.empty() ? key : keyOf(language, word, true);
  if (wanted.empty()) return entries;
  const auto [begin, end] = index.equal_range(wanted);
  for (auto at = begin; at != end; ++at) entries.push_back(at->second);
  return entries;
}

void UserWords::addEntries(Mode mode, LookResult* result) const {
  std::vector<Found> found;
  const bool any = !english_.empty() || !readings_.empty();
  if (all_ && any && !result->query.empty()) {
    const UserLanguage language = guessLanguage(result->query);
    found = lookUp(language, result->query, basesOf(*result),
                   [&](const std::string& word) { return kept(language, word); });
  } else if (const auto known = answers_.find(result->query); known != answers_.end()) {
    found = known->second;
  }
  std::vector<Entry> entries;
  for (const Found& one : found) {
    const std::optional<UserEntry> part = partOf(one.entry, mode);
    if (!part) continue;
    Entry entry = shownEntry(*part);
    entry.match = one.match;
    entry.via = one.via;
    entry.base = one.base;
    entries.push_back(std::move(entry));
  }
  if (entries.empty()) return;
  result->english = guessLanguage(result->query) == UserLanguage::kEnglish;
  result->lacksPart = false;
  result->suggestions.clear();
  result->entries.insert(result->entries.begin(), std::make_move_iterator(entries.begin()),
                         std::make_move_iterator(entries.end()));
}

void UserWords::addHeadwords(LookResult* result) const {
  std::vector<Headword> found;
  const UserLanguage asked = guessLanguage(result->query);
  const std::string beginning = keyOf(asked, result->query, false);
  if (beginning.empty()) return;
  for (const auto& [language, word] : headwords_) {
    if (found.size() >= kMostHeadwords) break;
    if (language == asked && keyOf(language, word, false).starts_with(beginning)) {
      found.push_back({word + " (your entry)", word, true});
    }
  }
  if (found.empty()) return;
  result->suggestions.clear();
  result->headwords.insert(result->headwords.begin(), found.begin(), found.end());
}

}  // namespace zavel::host
