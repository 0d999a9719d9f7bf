// `zavel user find` and `zavel user list`. Tests: tests/zavel/user/UserCommandTest.cpp
#include <cstdio>
#include <utility>

#include "JsonWriter.h"
#include "QueryText.h"
#include "Utf8.h"
#include "engine/ChangeMidasi.h"
#include "user/UserJson.h"
#include "user/UserReach.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

using Words = std::vector<std::pair<UserLanguage, std::string>>;

// What the index files a word under, as far as letters or kana go.
std::string keyOf(UserLanguage language, const std::string& word) {
  std::string settled = word, key;
  const bool english = language == UserLanguage::kEnglish;
  if (!settleText(english ? TextKind::kEnglishWord : TextKind::kReading, &settled).empty()) return {};
  if (english) return engine::ChangeMidasiStrE(settled);
  return engine::ChangeMidasiStrJ(storedText(wordAsFiled(settled)), true, &key) == 1 ? key : std::string();
}

// Without a key the beginning stands in no word.
bool beginsSo(UserLanguage language, const std::string& word, const std::string& filter) {
  if (filter.empty()) return true;
  const std::string key = keyOf(language, filter);
  return !key.empty() && keyOf(language, word).starts_with(key);
}

// The words of one dictionary; of a damaged one those that can be read, with the failure.
Failure readHeadwords(UserLanguage language, std::vector<std::string>* words, std::vector<LostWord>* lost) {
  const auto store = makeStore();
  Failure failure = store->open(language, UserAccess::kRead);
  if (!failure) failure = store->check();
  if (!failure) failure = store->headwords(words);
  if (failure.status != kExitDamaged) return failure;
  std::vector<UserEntry> entries;
  failure = store->salvage(std::move(failure), &entries);
  *words = headwordsOf(entries);
  *lost = store->lost();
  return failure;
}

Failure readWords(const UserOptions& options, Words* words, UserDamage* damage) {
  for (const UserLanguage language : languagesOf(options)) {
    std::vector<std::string> all;
    std::vector<LostWord> lost;
    const Failure failure = readHeadwords(language, &all, &lost);
    if (failure && failure.status != kExitDamaged) return failure;
    damage->add(failure, lost);
    for (std::string& word : all) {
      if (beginsSo(language, word, options.filter)) words->emplace_back(language, std::move(word));
    }
  }
  return {};
}

// As the engine would find them among the entries that can be read.
std::vector<StoredEntry> matching(const std::string& word, const std::vector<UserEntry>& entries) {
  std::vector<StoredEntry> found;
  std::string written = word;
  if (!settleText(TextKind::kWritten, &written).empty()) written.clear();
  for (const UserEntry& entry : entries) {
    const std::string key = keyOf(entry.language, word);
    const bool alike = !key.empty() && keyOf(entry.language, entry.word) == key;
    if (alike || (!written.empty() && wordAsFiled(entry.kanji) == wordAsFiled(written)))
      found.push_back({entry, {}, {}});
  }
  return found;
}

// What is found of a damaged dictionary comes with the failure.
Failure readFound(UserLanguage language, const std::string& word, std::vector<StoredEntry>* found,
                  UserDamage* damage) {
  const auto store = makeStore();
  Failure failure = store->open(language, UserAccess::kRead);
  if (!failure) failure = store->check();
  if (!failure) failure = store->find(word, found);
  if (failure.status != kExitDamaged) return failure;
  std::vector<UserEntry> entries;
  failure = store->salvage(std::move(failure), &entries);
  *found = matching(word, entries);
  damage->add(failure, store->lost());
  return {};
}

std::string wordsJson(const Words& words, const UserDamage& damage) {
  JsonWriter json;
  json.beginObject().member("schema", 1).key("words").beginArray();
  for (const auto& [language, word] : words) {
    json.beginObject().member("lang", languageCode(language)).member("word", word).endObject();
  }
  json.endArray().member("count", static_cast<int64_t>(words.size()));
  writeDamage(json, damage);
  json.endObject();
  return json.text() + "\n";
}

std::string foundJson(const std::string& word, const std::vector<StoredEntry>& found,
                      const UserDamage& damage) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("query", word);
  json.member("status", found.empty() ? "not_found" : "found").key("entries").beginArray();
  for (size_t i = 0; i < found.size(); ++i) writeEntry(json, found[i].entry, i + 1);
  json.endArray();
  writeDamage(json, damage);
  json.endObject();
  return json.text() + "\n";
}

}  // namespace

int runUserFind(const UserOptions& options) {
  const UserLanguage language = options.language().value_or(guessLanguage(options.word));
  std::vector<StoredEntry> found;
  UserDamage damage;
  if (const Failure failure = readFound(language, options.word, &found, &damage))
    return report(failure, options.json);
  if (damage && found.empty() && !isUnclear(damage.failure)) return report(damage.failure, options.json);
  if (options.json) {
    std::fputs(foundJson(options.word, found, damage).c_str(), stdout);
  } else if (found.empty()) {
    std::fprintf(stderr, "zavel: you have no %s entry \"%s\"\n", languageName(language),
                 printable(options.word).c_str());
  }
  if (!options.json) {
    for (size_t i = 0; i < found.size(); ++i) std::fputs(entryText(found[i].entry, i + 1).c_str(), stdout);
  }
  const int status = damage ? reportDamage(damage) : kExitFound;
  return status == kExitFound && found.empty() ? kExitNothing : status;
}

int runUserList(const UserOptions& options) {
  Words words;
  UserDamage damage;
  if (const Failure failure = readWords(options, &words, &damage)) return report(failure, options.json);
  if (damage && words.empty() && !isUnclear(damage.failure)) return report(damage.failure, options.json);
  if (options.json) {
    std::fputs(wordsJson(words, damage).c_str(), stdout);
  } else {
    for (const auto& [language, word] : words) std::printf("%s\n", withoutControls(word).c_str());
    if (words.empty()) {
      std::fprintf(stderr, options.filter.empty() ? "zavel: you have no entries yet\n"
                                                  : "zavel: none of your words begins so\n");
    }
  }
  const int status = damage ? reportDamage(damage) : kExitFound;
  return status == kExitFound && words.empty() ? kExitNothing : status;
}

}  // namespace zavel::host
