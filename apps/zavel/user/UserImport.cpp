// Reading: what a file holds. Storing: entry by entry. Tests: tests/zavel/user/UserExchangeTest.cpp
#include "user/UserImport.h"

#include <algorithm>

#include "Interrupt.h"
#include "Utf8.h"
#include "user/UserJson.h"
#include "user/UserTable.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

void addItem(size_t line, UserEntry entry, std::string wrong, std::vector<ImportItem>* items) {
  if (wrong.empty()) wrong = settleEntry(&entry);
  items->push_back({line, std::move(entry), std::move(wrong)});
}

// Calls `take` with the number and the text of each line that is not blank.
template <typename Take>
void eachLine(std::string_view text, const Take& take) {
  for (size_t number = 1; !text.empty(); ++number) {
    const size_t end = std::min(text.find('\n'), text.size());
    if (!isBlank(text.substr(0, end))) take(number, text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

Failure noTable(const std::string& why) {
  return {
      kExitUsage, "not_entries", "this is no list of entries: " + why,
      "A table begins with names of columns, parted by tabs, as `zavel user export` writes them; JSON with { "
      "or [."};
}

Failure readTable(std::string_view text, const UserLanguage* language, std::vector<ImportItem>* items) {
  TableReader reader;
  std::string wrong;
  bool header = true;
  eachLine(text, [&](size_t number, std::string_view line) {
    if (header) {
      wrong = reader.readHeader(line);
    } else if (wrong.empty()) {
      UserEntry entry;
      std::string bad = reader.readLine(line, language, &entry);
      addItem(number, std::move(entry), std::move(bad), items);
    }
    header = false;
  });
  return wrong.empty() ? Failure{} : noTable(wrong);
}

Failure readJson(std::string_view text, const UserLanguage* language, std::vector<ImportItem>* items,
                 bool* byLine, std::string* damage) {
  std::vector<JsonEntry> read;
  *byLine = !isJsonDocument(text);
  if (*byLine) {
    eachLine(text, [&](size_t number, std::string_view line) {
      JsonEntry one = readJsonEntry(line, language);
      addItem(number, std::move(one.entry), std::move(one.wrong), items);
    });
    return {};
  }
  if (!readJsonDocument(text, language, &read, damage)) {
    const std::string fault = jsonFault(text);
    return noTable(fault.empty() ? "the JSON has neither entries nor a list of them"
                                 : "it breaks off at " + fault);
  }
  for (size_t i = 0; i < read.size(); ++i)
    addItem(i + 1, std::move(read[i].entry), std::move(read[i].wrong), items);
  return {};
}

size_t sound(const std::vector<ImportItem>& items) {
  const auto isSound = [](const ImportItem& item) { return item.wrong.empty(); };
  return static_cast<size_t>(std::count_if(items.begin(), items.end(), isSound));
}

// Failures of one entry, after which the next may well be stored.
bool isOfEntry(const Failure& failure) {
  return failure.status == kExitUsage || failure.code == "too_many_kanji";
}

}  // namespace

Failure readImport(std::string_view text, const UserLanguage* language, std::vector<ImportItem>* items,
                   bool* byLine, std::string* damage) {
  *byLine = true;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  using namespace std::string_view_literals;
  if (text.starts_with("\xFF\xFE\0\0"sv) || text.starts_with("\0\0\xFE\xFF"sv)) {
    return {kExitUsage, "not_entries", "this is UTF-32 text, not UTF-8", "Save it as UTF-8, then try again."};
  }
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
    return {kExitUsage, "not_entries", "this is UTF-16 text, not UTF-8", "Save it as UTF-8, then try again."};
  }
  const size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  const bool json = text[first] == '{' || text[first] == '[';
  return json ? readJson(text, language, items, byLine, damage) : readTable(text, language, items);
}

UserImport::UserImport(const UserOptions& options, std::vector<ImportItem>* items)
    : options_(options), items_(*items), progress_("Importing", sound(*items), options.progress) {}

// Damage of one language's entries is none of the other's.
Failure UserImport::run() {
  UserDamage damage;
  for (const UserLanguage language : {UserLanguage::kEnglish, UserLanguage::kJapanese}) {
    if (interrupted()) break;
    const Failure failure = runLanguage(language);
    damage.add(failure);
    if (failure && failure.status != kExitDamaged) break;
  }
  counts_.refused = items_.size() - sound(items_);
  return damage.failure;
}

Failure UserImport::runLanguage(UserLanguage language) {
  const auto mine = [language](const ImportItem& item) {
    return item.wrong.empty() && item.entry.language == language;
  };
  if (std::none_of(items_.begin(), items_.end(), mine)) return {};
  const auto store = makeStore();
  if (Failure failure = store->open(language, UserAccess::kWrite)) return failure;
  words_.clear();
  ImportCounts counts = counts_;
  Failure failure;
  for (ImportItem& item : items_) {
    if (!mine(item)) continue;
    if (interrupted()) break;
    failure = this->store(*store, item.entry, &counts);
    if (failure && !isOfEntry(failure)) break;
    if (failure) item.wrong = failure.message;
    failure = {};
    progress_.show(++done_);
  }
  if (Failure notStored = store->close()) return failure ? failure : notStored;
  counts_ = counts;
  return failure;
}

// Each word is searched once: as many entries of one word would be read again for each as there are.
Failure UserImport::wordOf(UserStore& store, const UserEntry& entry, Word** word) {
  const auto [known, isNew] = words_.try_emplace(entry.word);
  *word = &known->second;
  if (!isNew) return {};
  std::vector<StoredEntry> there;
  if (Failure failure = store.findStored(entry.word, &there)) {
    words_.erase(known);
    return failure;
  }
  for (const StoredEntry& stored : there) {
    ++known->second.entries[tableLine(stored.entry)].stored;
    known->second.identities.insert(stored.entry.identity());
  }
  return {};
}

// An entry that the file has twice is there twice afterwards; one that was there so often already is not
// added.
Failure UserImport::store(UserStore& store, const UserEntry& entry, ImportCounts* counts) {
  Word* word = nullptr;
  if (Failure failure = wordOf(store, entry, &word)) return failure;
  Word::Times& times = word->entries[tableLine(entry)];
  ++times.read;
  if (!options_.force && times.stored >= times.read) {
    ++counts->present;
    return {};
  }
  return takeNew(store, entry, word, counts);
}

Failure UserImport::takeNew(UserStore& store, const UserEntry& entry, Word* word, ImportCounts* counts) {
  const std::string identity = entry.identity();
  // Several entries of one word in the file belong beside each other, not in each other's place.
  const bool older = word->identities.contains(identity) && !own_.contains(identity);
  if (older && options_.skipExisting) {
    ++counts->skipped;
    return {};
  }
  bool replaced = false;
  Failure failure = older && options_.replace ? replace(store, entry, word, &replaced) : Failure{};
  if (!failure && !replaced) failure = store.add(entry);
  if (failure) return failure;
  ++(replaced ? counts->replaced : counts->added);
  ++word->entries[tableLine(entry)].stored;
  word->identities.insert(identity);
  own_.insert(identity);
  return {};
}

Failure UserImport::replace(UserStore& store, const UserEntry& entry, Word* word, bool* replaced) {
  std::vector<StoredEntry> there;
  if (Failure failure = store.findStored(entry.word, &there)) return failure;
  const std::string identity = entry.identity();
  for (const StoredEntry& stored : there) {
    Word::Times& times = word->entries[tableLine(stored.entry)];
    if (stored.entry.identity() != identity || times.stored <= times.read) continue;
    if (Failure failure = store.replace(stored, entry)) return failure;
    --times.stored;
    *replaced = true;
    return {};
  }
  return {};
}

}  // namespace zavel::host
