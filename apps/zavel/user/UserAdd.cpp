// `zavel user add`. Tests: tests/zavel/user/UserCommandTest.cpp
#include <algorithm>
#include <cstdio>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "user/UserJson.h"
#include "user/UserTable.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestLookedUp = 255;  // bytes in Shift_JIS, the limit of look-ups

std::string takeExamples(const char* name, const std::vector<std::string>& texts,
                         std::vector<UserExample>* examples) {
  for (const std::string& text : texts) {
    if (!readExample(text, &examples->emplace_back())) {
      return std::string("--") + name + " " + inQuotes(text) + ": it is ENGLISH=JAPANESE";
    }
  }
  return {};
}

// A word in kanji with its reading, or a reading with its written form.
std::string takeJapaneseWord(const UserOptions& options, UserEntry* entry) {
  entry->word = options.reading.empty() ? options.word : options.reading;
  entry->kanji = options.kanji;
  if (!options.reading.empty()) {
    if (!options.kanji.empty())
      return "give --kanji with a reading, or --reading with a word in kanji, not both";
    if (options.reading != options.word) entry->kanji = options.word;
    return {};
  }
  std::string asReading = options.word, asWritten = options.word;
  const bool reading = settleText(TextKind::kReading, &asReading).empty();
  if (!reading && settleText(TextKind::kWritten, &asWritten).empty()) {
    return "a word in kanji needs its reading: --reading KANA";
  }
  return {};
}

// A fault with the name that its text has on the command line, where the reading of a word in kanji is an
// option and the kanji are the word.
std::string asGiven(const std::string& wrong, const UserOptions& options) {
  if (options.reading.empty()) return wrong;
  if (wrong.starts_with("word: ")) return "--reading" + wrong.substr(4);
  return wrong.starts_with("kanji: ") ? "word" + wrong.substr(5) : wrong;
}

// What the command line gives as an entry, settled. Empty, or what is wrong.
std::string readOptions(const UserOptions& options, UserEntry* entry) {
  const bool japanese = !options.reading.empty() || !options.kanji.empty() || !options.sentences.empty();
  const UserLanguage guessed = japanese ? UserLanguage::kJapanese : guessLanguage(options.word);
  entry->language = options.language().value_or(guessed);
  entry->word = options.word;
  entry->kanji = options.kanji;
  entry->meaning = options.meaning;
  entry->phrase = options.phrase;
  entry->pos = posOf(options.pos);
  if (entry->pos == 0 && !options.pos.empty()) {
    return "--pos " + inQuotes(options.pos) + ": it is one of " + posNames();
  }
  if (entry->language == UserLanguage::kJapanese) {
    if (const std::string wrong = takeJapaneseWord(options, entry); !wrong.empty()) return wrong;
  } else if (!options.reading.empty()) {
    return "an English word has no reading";
  }
  std::string wrong = takeExamples("example", options.examples, &entry->examples);
  if (wrong.empty()) wrong = takeExamples("sentence", options.sentences, &entry->sentences);
  return wrong.empty() ? asGiven(settleEntry(entry), options) : wrong;
}

void show(const UserEntry& entry, const char* status, const std::string& folder, bool asJson) {
  if (asJson) {
    JsonWriter json;
    json.beginObject().member("schema", 1).member("status", status).member("folder", folder).key("entry");
    writeEntry(json, entry);
    json.endObject();
    std::printf("%s\n", json.text().c_str());
    return;
  }
  std::printf("Added to your %s entries in %s:\n%s", languageName(entry.language), folder.c_str(),
              entryText(entry).c_str());
}

// A word that is longer is found by `find` alone.
void tellTooLongToLookUp(const UserEntry& entry) {
  const auto isLong = [](const std::string& text) { return storedText(text).size() > kLongestLookedUp; };
  if (!isLong(entry.word) || (!entry.kanji.empty() && !isLong(entry.kanji))) return;
  std::fprintf(
      stderr,
      "zavel: the word has more than 255 bytes in Shift_JIS: `zavel user find` finds it, `zavel look` "
      "takes no words so long\n");
}

int tellPresent(const UserEntry& entry, const std::string& folder, bool asJson) {
  if (asJson) show(entry, "present", folder, true);
  std::fflush(stdout);
  std::fprintf(stderr, "zavel: this entry is there already; --force adds it once more\n");
  return kExitNothing;
}

}  // namespace

int runUserAdd(const UserOptions& options) {
  UserEntry entry;
  if (const std::string wrong = readOptions(options, &entry); !wrong.empty()) {
    return report(badEntry(wrong), options.json);
  }
  watchInterrupts();
  const auto store = makeStore();
  if (Failure failure = store->open(entry.language, UserAccess::kWrite)) return report(failure, options.json);
  std::vector<StoredEntry> there;
  if (Failure failure = store->findStored(entry.word, &there)) return report(failure, options.json);
  const auto same = [&entry](const StoredEntry& stored) { return stored.entry == entry; };
  if (!options.force && std::any_of(there.begin(), there.end(), same)) {
    if (Failure failure = store->close()) return report(failure, options.json);
    return tellPresent(entry, store->place().folder(), options.json);
  }
  Failure failure = store->add(entry);
  if (Failure notStored = store->close(); notStored && !failure) failure = notStored;
  if (failure) return report(failure, options.json);
  show(entry, "added", store->place().folder(), options.json);
  std::fflush(stdout);
  tellTooLongToLookUp(entry);
  return kExitFound;
}

}  // namespace zavel::host
