// `zavel user delete` and `zavel user arrange`. Tests: tests/zavel/user/UserCommandTest.cpp
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "Terminal.h"
#include "Utf8.h"
#include "user/UserJson.h"
#include "user/UserPrompt.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

Failure noEntry(const std::string& word) {
  return {kExitNothing, "no_entry", "you have no entry \"" + printable(word) + "\"", "See: zavel user list"};
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
  std::vector<StoredEntry> all = choose(options, found, true, failure);
  if (all.size() < 2 || options.yes || !canAsk(options)) return all;
  const std::string answer = ask("Delete " + std::to_string(all.size()) + " entries [y/N]? ");
  if (answer == "y" || answer == "yes") return all;
  *failure = {kExitNothing, "none_chosen", "nothing was changed", "Run it again to choose."};
  return {};
}

// One that is the same, as it stands now: each deletion moves its neighbours.
Failure removeOne(UserStore* store, const UserEntry& entry, bool* gone) {
  std::vector<StoredEntry> found;
  if (Failure failure = store->findStored(entry.word, &found)) return failure;
  const auto again = std::find_if(found.begin(), found.end(),
                                  [&entry](const StoredEntry& stored) { return stored.entry == entry; });
  *gone = again != found.end();
  return *gone ? store->remove(*again) : Failure{};
}

Failure removeAll(UserStore* store, const std::vector<StoredEntry>& entries,
                  std::vector<UserEntry>* removed) {
  for (const StoredEntry& stored : entries) {
    bool gone = false;
    if (Failure failure = removeOne(store, stored.entry, &gone)) return failure;
    if (gone) removed->push_back(stored.entry);
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

Failure arrange(UserLanguage language, std::vector<Arranged>* done) {
  if (!userPlace().exists(language)) return {};
  const auto store = makeStore();
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
    if (Failure failure = arrange(language, &done)) {
      showArranged(done, false);
      return report(failure, options.json);
    }
  }
  showArranged(done, options.json);
  if (done.empty()) std::fprintf(stderr, "zavel: you have no entries yet\n");
  return done.empty() ? kExitNothing : kExitFound;
}

}  // namespace zavel::host
