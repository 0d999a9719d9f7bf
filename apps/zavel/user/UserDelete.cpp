// `zavel user delete` and `zavel user arrange`. Tests: tests/zavel/user/UserCommandTest.cpp
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <list>
#include <map>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "Terminal.h"
#include "Utf8.h"
#include "user/UserJson.h"
#include "user/UserPrompt.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr size_t kMostNamed = 5;

Failure noEntry(const std::string& word) {
  return {kExitNothing, "no_entry", "you have no entry \"" + printable(word) + "\"", "See: zavel user list"};
}

// Whether an entry has the word as it was typed, as far as the dictionary tells its characters apart.
bool isSpelledSo(const UserEntry& entry, const std::string& word) {
  const bool english = entry.language == UserLanguage::kEnglish;
  std::string asWord = word, asWritten = word;
  if (settleText(english ? TextKind::kEnglishWord : TextKind::kReading, &asWord).empty() &&
      entry.word == asWord)
    return true;
  return !english && settleText(TextKind::kWritten, &asWritten).empty() && entry.kanji == asWritten;
}

// `found` are filed like the word, and none is spelled so.
Failure otherSpellings(const std::string& word, const std::vector<StoredEntry>& found) {
  std::vector<std::string> titles;
  for (const StoredEntry& stored : found) {
    const std::string title = stored.entry.kanji.empty() ? stored.entry.word : stored.entry.title();
    if (std::find(titles.begin(), titles.end(), title) == titles.end()) titles.push_back(title);
  }
  std::string named;
  for (size_t i = 0; i < std::min(titles.size(), kMostNamed); ++i)
    named += (i > 0 ? ", " : "") + inQuotes(titles[i]);
  if (titles.size() > kMostNamed) named += " and " + grouped(titles.size() - kMostNamed) + " others";
  return {kExitNothing, "other_spelling", "you have no entry " + inQuotes(word) + ", but " + named,
          "Nothing was deleted. Give the word as it is spelled there."};
}

// Unasked, only what is spelled as it was typed goes. A number is one of those that `find` shows.
std::vector<StoredEntry> meant(const UserOptions& options, const std::vector<StoredEntry>& found,
                               Failure* failure) {
  if (options.number > 0) return choose(options, found, true, failure);
  std::vector<StoredEntry> exact;
  std::copy_if(found.begin(), found.end(), std::back_inserter(exact),
               [&options](const StoredEntry& stored) { return isSpelledSo(stored.entry, options.word); });
  const bool asked = canAsk(options) && !options.yes;
  if (asked && (exact.empty() || (exact.size() > 1 && !options.all))) return askWhich(found, true, failure);
  if (!exact.empty()) return choose(options, exact, true, failure);
  *failure = otherSpellings(options.word, found);
  return {};
}

// Reads what there is, and has the user say what is meant, without keeping others out meanwhile.
std::vector<StoredEntry> chosen(const UserOptions& options, UserLanguage language, Failure* failure) {
  const auto store = makeStore();
  std::vector<StoredEntry> found;
  *failure = store->open(language, UserAccess::kRead);
  if (!*failure) *failure = store->check();
  if (!*failure) *failure = store->find(options.word, &found);
  if (*failure) return {};
  store->close();
  if (found.empty()) {
    *failure = noEntry(options.word);
    return {};
  }
  std::vector<StoredEntry> all = meant(options, found, failure);
  if (all.size() < 2 || options.yes || !canAsk(options)) return all;
  const std::string answer = ask("Delete " + std::to_string(all.size()) + " entries [y/N]? ");
  if (answer == "y" || answer == "yes") return all;
  *failure = {kExitNothing, "none_chosen", "nothing was changed", "Run it again to choose."};
  return {};
}

// Those that are the same: others may have changed the dictionary meanwhile. Each word is searched once, as
// it would be read as often as it has entries.
Failure removeAll(UserStore* store, const std::vector<StoredEntry>& entries,
                  std::vector<UserEntry>* removed) {
  std::map<std::string, std::list<StoredEntry>> words;
  for (const StoredEntry& wanted : entries) {
    const auto [word, isNew] = words.try_emplace(wanted.entry.word);
    std::vector<StoredEntry> found;
    if (isNew) {
      if (Failure failure = store->findStored(wanted.entry.word, &found)) return failure;
      word->second.assign(std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
    }
    const auto again = std::find_if(word->second.begin(), word->second.end(),
                                    [&wanted](const StoredEntry& one) { return one.entry == wanted.entry; });
    if (again == word->second.end()) continue;
    if (Failure failure = store->findAgain(&*again)) return failure;
    if (Failure failure = store->remove(*again)) return failure;
    removed->push_back(wanted.entry);
    word->second.erase(again);
  }
  return {};
}

void showDeleted(const std::vector<UserEntry>& entries, bool asJson) {
  if (asJson) {
    JsonWriter json;
    json.beginObject().member("schema", 1).member("status", "deleted").key("entries").beginArray();
    for (const UserEntry& entry : entries) writeEntry(json, entry);
    json.endArray().endObject();
    std::printf("%s\n", json.text().c_str());
    return;
  }
  std::printf(entries.size() == 1 ? "Deleted:\n" : "Deleted %zu entries:\n", entries.size());
  for (const UserEntry& entry : entries) std::fputs(entryText(entry).c_str(), stdout);
}

struct Arranged {
  UserLanguage language;
  uintmax_t before, after;
};

Failure arrange(UserLanguage language, bool accept, std::vector<Arranged>* done) {
  if (!userPlace().exists(language)) return {};
  const auto store = makeStore();
  if (accept) store->acceptUnclear();
  if (Failure failure = store->open(language, UserAccess::kWrite)) return failure;
  Arranged arranged{language, store->place().size(language), 0};
  if (isTerminal(STDERR_FILENO))
    std::fprintf(stderr, "Arranging your %s entries ...\n", languageName(language));
  Failure failure = store->arrange();
  if (Failure notStored = store->close(); notStored && !failure) failure = notStored;
  if (failure) return failure;
  arranged.after = store->place().size(language);
  done->push_back(arranged);
  return {};
}

void showArranged(const std::vector<Arranged>& all, bool asJson) {
  if (!asJson) {
    for (const Arranged& one : all) {
      std::printf("Your %s entries: %s bytes before, %s bytes now\n", languageName(one.language),
                  grouped(one.before).c_str(), grouped(one.after).c_str());
    }
    return;
  }
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", all.empty() ? "nothing" : "arranged");
  json.key("sets").beginArray();
  for (const Arranged& one : all) {
    json.beginObject().member("lang", languageCode(one.language));
    json.member("bytes_before", static_cast<int64_t>(one.before));
    json.member("bytes", static_cast<int64_t>(one.after)).endObject();
  }
  json.endArray().endObject();
  std::printf("%s\n", json.text().c_str());
}

}  // namespace

int runUserDelete(const UserOptions& options) {
  const UserLanguage language = options.language().value_or(guessLanguage(options.word));
  Failure failure;
  const std::vector<StoredEntry> entries = chosen(options, language, &failure);
  if (failure) return report(failure, options.json);
  watchInterrupts();
  const auto store = makeStore();
  std::vector<UserEntry> removed;
  failure = store->open(language, UserAccess::kWrite);
  if (!failure) failure = removeAll(store.get(), entries, &removed);
  if (Failure notStored = store->close(); notStored && !failure) failure = notStored;
  if (!failure && removed.empty()) failure = noEntry(options.word);
  if (failure) return report(failure, options.json);
  showDeleted(removed, options.json);
  return kExitFound;
}

int runUserArrange(const UserOptions& options) {
  watchInterrupts();
  if (userPlace().folder().empty())
    return report(makeStore()->open(UserLanguage::kEnglish, UserAccess::kRead), options.json);
  std::vector<Arranged> done;
  for (const UserLanguage language : languagesOf(options)) {
    if (Failure failure = arrange(language, options.accept, &done)) {
      showArranged(done, false);
      return report(failure, options.json);
    }
  }
  if (done.empty()) {
    // Why there are none: there may be something else in the place of their folder.
    const Failure failure = makeStore()->open(languagesOf(options).front(), UserAccess::kRead);
    if (failure) return report(failure, options.json);
  }
  showArranged(done, options.json);
  if (done.empty()) std::fprintf(stderr, "zavel: you have no entries yet\n");
  return done.empty() ? kExitNothing : kExitFound;
}

}  // namespace zavel::host
