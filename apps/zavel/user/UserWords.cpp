// Tests: tests/zavel/user/UserLookTest.cpp
#include "user/UserWords.h"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_set>

#include "Failure.h"
#include "Places.h"
#include "QueryText.h"
#include "Utf8.h"
#include "WordBytes.h"
#include "engine/ChangeMidasi.h"
#include "engine/MidasiCheck.h"
#include "foundation/Utf8.h"
#include "user/UserStatus.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

// Long enough for another process to add an entry or two on a slow disk, too short to be taken for a hang. A
// long import or arrangement is not waited for.
constexpr std::chrono::milliseconds kPatience{1000};
constexpr const char* kMark = "+ ";              // ahead of each line of an entry of the user's
constexpr const char* kYours = " (your entry)";  // behind a headword of the user's
constexpr size_t kMostHeadwords = 50;

// What the index files a Japanese word under that is settled.
std::string japaneseKey(const std::string& settled) {
  std::string key;
  return engine::ChangeMidasiStrJ(storedText(wordAsFiled(settled)), true, &key) == engine::kOk
             ? key
             : std::string();
}

bool isReading(const std::string& word) {
  std::string settled = word;
  return settleText(TextKind::kReading, &settled).empty();
}

// What the index files a word under as it was typed; empty for one that it can't hold.
std::string keyOf(UserLanguage language, const std::string& word) {
  std::string settled = word;
  if (language == UserLanguage::kEnglish) {
    // Most words of a batch: quick.
    if (isAscii(word)) {
      return engine::ChkMidasiStrE(word.c_str()) == engine::kOk ? engine::ChangeMidasiStrE(word)
                                                                : std::string();
    }
    if (!settleText(TextKind::kEnglishWord, &settled).empty()) return {};
    return engine::ChangeMidasiStrE(settled);
  }
  return settleText(TextKind::kWritten, &settled).empty() ? japaneseKey(settled) : std::string();
}

// Whether the entry is what `word` means, or only filed with it.
Match matchOf(const UserEntry& entry, const std::string& word) {
  const std::string folded = foldedQuery(word);
  if (entry.language == UserLanguage::kEnglish) {
    return englishSpelling(entry.word) == englishSpelling(folded) ? Match::kExact : Match::kNear;
  }
  const auto written = [&folded](const std::string& text) {
    return kanaDistance(foldedQuery(text), folded) < 2;
  };
  return written(entry.word) || (!entry.kanji.empty() && written(entry.kanji)) ? Match::kExact : Match::kNear;
}

// Whether the entry can be what inflects as `base` does. A verb ends in hiragana, however the rest is
// written; with ル in katakana it is another word, as ググル, the name, is beside ググる. Adjectives are
// written either way: ヤバイ.
bool inflectsAs(const UserEntry& entry, const std::string& base) {
  constexpr size_t kKana = 3;  // bytes
  if (entry.language == UserLanguage::kEnglish || base.size() < kKana) return true;
  const std::string ending = base.substr(base.size() - kKana);
  const bool hiragana = ending >= "ぁ" && ending <= "ん";
  return !hiragana || ending == "い" || entry.word.ends_with(ending) || entry.kanji.ends_with(ending);
}

bool isWrittenSo(const UserEntry& entry, const std::string& word) {
  return entry.word == word || entry.kanji == word;
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

bool UserWords::any() const {
  return std::any_of(readings_.begin(), readings_.end(), [](const Reading& reading) { return reading.done; });
}

bool UserWords::open(UserStore* store, UserLanguage language) {
  store->setPatience(kPatience);
  if (const Failure failure = store->open(language, UserAccess::kRead)) {
    keepFailure(language, failure);
  } else {
    if (store->unclear()) warn(store->unclear().message);
    readings_[indexOf(language)].done = store->hasEntries();
  }
  return readings_[indexOf(language)].done;
}

// Told once: what keeps one entry from being read mostly keeps others as well.
void UserWords::keepFailure(UserLanguage language, const Failure& failure) {
  Failure& kept = readings_[indexOf(language)].failure;
  if (kept.message != failure.message) warn(failure.message + "; " + entriesOf(language) + " are left out");
  kept = failure;
}

// What a query gives: its own entries, then those of the words that it leads to; what is only filed with it
// comes last.
template <typename Find>
std::vector<UserWords::Found> UserWords::lookUp(const UserQuery& query, const Find& find) {
  std::vector<Found> found, near;
  for (UserEntry& entry : find(query.word)) {
    const Match match = matchOf(entry, query.word);
    (match == Match::kExact ? found : near).push_back({std::move(entry), match, {}, query.word});
  }
  const auto isThere = [&](const UserEntry& entry) {
    const auto same = [&entry](const Found& one) { return one.entry == entry; };
    return std::any_of(found.begin(), found.end(), same);
  };
  const auto follow = [&](const std::vector<UserRoad>& roads) {
    for (const UserRoad& road : roads) {
      for (UserEntry& entry : find(road.word)) {
        std::vector<std::string> via = road.via(entry);
        const bool hasForm = road.inflected.ways.empty() || !via.empty();
        if (!hasForm || matchOf(entry, road.word) != Match::kExact || isThere(entry)) continue;
        if (!inflectsAs(entry, road.word)) continue;
        found.push_back({std::move(entry), road.match, std::move(via), road.base});
      }
    }
  };
  const bool own = std::any_of(found.begin(), found.end(), [&query](const Found& one) {
    return query.language == UserLanguage::kEnglish || isWrittenSo(one.entry, query.word);
  });
  std::string word = query.word;
  if (query.language == UserLanguage::kJapanese) {
    follow(japaneseRoads(word, own));
  } else if (settleText(TextKind::kEnglishWord, &word).empty()) {
    follow(englishRoads(word));
    if (!own) follow(contractionRoads(word));
  }
  std::erase_if(near, [&](const Found& one) { return isThere(one.entry); });
  std::move(near.begin(), near.end(), std::back_inserter(found));
  return found;
}

void UserWords::readWord(UserStore* store, UserLanguage language, const std::string& word) {
  const auto find = [&](const std::string& asked) {
    std::vector<StoredEntry> stored;
    std::vector<UserEntry> entries;
    if (const Failure failure = store->find(asked, &stored)) keepFailure(language, failure);
    for (StoredEntry& one : stored) entries.push_back(std::move(one.entry));
    return entries;
  };
  answers_[word] = lookUp({language, word}, find);
}

void UserWords::readFor(const std::vector<std::string>& words) {
  if (!hasAny()) return;
  std::vector<UserQuery> queries;
  for (const std::string& word : words) {
    const std::string asked(withoutOuterBlanks(word));
    if (!isUtf8(asked)) continue;
    for (UserQuery& query : userQueries(asked)) queries.push_back(std::move(query));
  }
  for (const UserLanguage language : kLanguages) {
    const auto mine = [language](const UserQuery& query) { return query.language == language; };
    if (std::none_of(queries.begin(), queries.end(), mine)) continue;
    UserStore store(userPlace(), findPlaces().dictionary);
    if (!open(&store, language)) continue;
    for (const UserQuery& query : queries) {
      if (mine(query)) readWord(&store, language, query.word);
    }
  }
}

void UserWords::readAll() {
  all_ = true;
  if (!hasAny()) return;
  for (const UserLanguage language : kLanguages) {
    UserStore store(userPlace(), findPlaces().dictionary);
    if (open(&store, language)) readEntries(&store, language);
  }
}

void UserWords::readEntries(UserStore* store, UserLanguage language) {
  std::vector<std::string> words;
  Failure failure = store->headwords(&words);
  std::unordered_set<uint32_t> seen;
  for (size_t i = 0; i < words.size() && !failure; ++i) {
    std::vector<StoredEntry> found;
    failure = store->findStored(words[i], &found);
    for (const StoredEntry& one : found) {
      if (seen.insert(one.place.dicOffset).second) addStored(language, one.entry);
    }
  }
  if (failure) keepFailure(language, failure);
}

void UserWords::addStored(UserLanguage language, const UserEntry& entry) {
  const bool english = language == UserLanguage::kEnglish;
  (english ? english_ : japanese_).emplace(keyOf(language, entry.word), entry);
  if (!entry.kanji.empty() && !isReading(entry.kanji)) japanese_.emplace(japaneseKey(entry.kanji), entry);
}

void UserWords::readHeadwords(const std::vector<std::string>& words) {
  if (!hasAny()) return;
  const auto written = [](const std::string& word) {
    return guessLanguage(word) == UserLanguage::kJapanese && !isReading(foldedQuery(word));
  };
  // Written forms stand in the entries, which take longer to read than the headwords.
  const bool entries = words.empty() || std::any_of(words.begin(), words.end(), written);
  for (const UserLanguage language : kLanguages) {
    UserStore store(userPlace(), findPlaces().dictionary);
    std::vector<std::string> found;
    if (!open(&store, language)) continue;
    if (language == UserLanguage::kJapanese && entries) readEntries(&store, language);
    if (const Failure failure = store.headwords(&found)) keepFailure(language, failure);
    for (std::string& word : found) {
      headwords_.push_back({language, {word + kYours, word, true}});
    }
  }
  for (const auto& [key, entry] : japanese_) {
    if (entry.kanji.empty() || key != japaneseKey(entry.kanji)) continue;
    const std::string line = entry.kanji + " [" + entry.word + "]" + kYours;
    headwords_.push_back({UserLanguage::kJapanese, {line, entry.kanji, true}});
  }
}

std::vector<UserEntry> UserWords::kept(UserLanguage language, const std::string& word) const {
  std::vector<UserEntry> entries;
  const std::string key = keyOf(language, word);
  if (key.empty()) return entries;
  const Entries& index = language == UserLanguage::kEnglish ? english_ : japanese_;
  const auto [begin, end] = index.equal_range(key);
  for (auto at = begin; at != end; ++at) entries.push_back(at->second);
  return entries;
}

// By the query as it was typed, and only if that gives nothing in the characters of headwords.
std::vector<UserWords::Found> UserWords::answersTo(const std::string& query) const {
  for (const UserQuery& asked : userQueries(query)) {
    std::vector<Found> found;
    if (all_) {
      found = lookUp(asked, [&](const std::string& word) { return kept(asked.language, word); });
    } else if (const auto known = answers_.find(asked.word); known != answers_.end()) {
      found = known->second;
    }
    if (!found.empty()) return found;
  }
  return {};
}

void UserWords::tellHowItWent(LookResult* result) const {
  if (!any() && !readings_[0].failure && !readings_[1].failure) return;
  for (const UserQuery& asked : userQueries(result->query)) {
    const Reading& reading = readings_[indexOf(asked.language)];
    if (reading.done || reading.failure) result->ownAsked = true;
    if (reading.failure) result->ownFailure = reading.failure;
  }
}

void UserWords::addEntries(Mode mode, LookResult* result) const {
  if (result->query.empty() || result->query.find('\0') != std::string::npos) return;
  tellHowItWent(result);
  if (!any()) return;
  const std::vector<Found> found = answersTo(result->query);
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
  if (found.empty() || (entries.empty() && !result->entries.empty())) return;
  result->suggestions.clear();
  result->lacksPart = entries.empty();
  if (entries.empty()) return;
  const bool inflected = entries[0].match == Match::kInflected;
  if (inflected && result->entries.empty()) result->origin = entries[0].base;
  result->english = found[0].entry.language == UserLanguage::kEnglish;
  result->entries.insert(result->entries.begin(), std::make_move_iterator(entries.begin()),
                         std::make_move_iterator(entries.end()));
}

void UserWords::addHeadwords(LookResult* result) const {
  tellHowItWent(result);
  if (!any()) return;
  std::vector<Headword> found;
  for (const UserQuery& asked : userQueries(result->query)) {
    const std::string beginning = keyOf(asked.language, asked.word);
    if (beginning.empty() || !found.empty()) continue;
    for (const auto& [language, headword] : headwords_) {
      if (found.size() >= kMostHeadwords) break;
      if (language != asked.language || !keyOf(language, headword.keyword).starts_with(beginning)) continue;
      found.push_back(headword);
    }
  }
  if (found.empty()) return;
  result->suggestions.clear();
  result->headwords.insert(result->headwords.begin(), found.begin(), found.end());
}

}  // namespace zavel::host
