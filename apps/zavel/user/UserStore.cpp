// Tests: tests/zavel/user/UserStoreTest.cpp
#include "user/UserStore.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "Host.h"
#include "Places.h"
#include "QueryText.h"
#include "engine/ChangeMidasi.h"
#include "engine/DicFormat.h"
#include "engine/EngineStatus.h"
#include "engine/Shim.h"
#include "foundation/Storage.h"
#include "user/UserMarker.h"
#include "user/UserReach.h"
#include "user/UserRecovery.h"
#include "user/UserRows.h"
#include "user/UserStamp.h"
#include "user/UserStatus.h"
#include "user/UserText.h"

namespace zavel::host {
namespace {

using engine::kOk;

constexpr size_t kLongestPrefix = 1000;  // bytes; file names come behind it

std::string takeBytes(Handle list) {
  if (!list) return {};
  std::string bytes(static_cast<const char*>(GlobalLock(list)), engine::GlobalSize(list));
  GlobalUnlock(list);
  GlobalFree(list);
  return bytes;
}

std::string keyOfKanji(const std::string& written) {
  std::string key;
  return engine::ChangeMidasiStrJ(storedText(wordAsFiled(written)), true, &key) == kOk ? key : std::string();
}

}  // namespace

UserStore::UserStore(UserPlace place, std::string dictionary)
    : place_(std::move(place)), basic_(std::move(dictionary)) {}

UserStore::~UserStore() {
  close();
}

Failure UserStore::open(UserLanguage language, UserAccess access) {
  language_ = language;
  access_ = access;
  if (place_.folder().empty()) return noHome();
  if (place_.prefix().size() > kLongestPrefix) {
    return {kExitEnvironment, "long_path",
            "the folder of your entries has too long a path: " + place_.folder(),
            "Keep it in a folder with a shorter path: set ZAVEL_ROOT."};
  }
  if (access == UserAccess::kRead && !place_.exists(language)) return unreadable();
  if (access == UserAccess::kWrite && !makeFolders(place_.folder())) {
    if (Failure failure = noFolder()) return failure;
    return {kExitEnvironment, "no_folder", "the folder " + place_.folder() + " can't be made",
            "See whether the disk is full, or the folder above it not yours."};
  }
  if (Failure failure = lock(access)) return failure;
  Failure wrong;
  const bool needed = UserRecovery(place_, language_).needed();
  if (needed && access == UserAccess::kRead) {
    // Nobody writes now; to put right what a writer left, this process must be alone for a while.
    if (Failure failure = lock(UserAccess::kWrite)) return failure;
    wrong = recover();
    if (!place_.exists(language)) return wrong;
    if (Failure failure = lock(UserAccess::kRead)) return failure;
  } else if (needed) {
    wrong = recover();
  }
  if (!wrong) wrong = look();
  if (access == UserAccess::kRead && isUnclear(wrong)) std::swap(unclear_, wrong);
  return wrong ? wrong : beginSession();
}

// What has no stamp that fits gets one before anything changes.
Failure UserStore::look() {
  std::vector<std::string> told;
  UserRecovery recovery(place_, language_);
  if (accepting_) recovery.accept(&told);
  if (access_ == UserAccess::kRead) return recovery.damage(UserCheck::kIndexes, nullptr);
  UserRecovery::Standing standing{{}, true};
  Failure failure = recovery.damage(UserCheck::kAll, &standing);
  for (const std::string& line : told) warn(line);
  if (failure) return failure;
  dead_ = std::move(standing.gaps);
  if (!standing.stamped) UserStamp::of(place_, language_, dead_).write(place_, language_);
  return {};
}

// Where something else stands in its place.
Failure UserStore::noFolder() const {
  std::error_code error;
  const auto there = std::filesystem::status(place_.folder(), error);
  if (std::filesystem::exists(there) && !std::filesystem::is_directory(there)) {
    return {kExitEnvironment, "unreadable", place_.folder() + " is no folder; your entries stand in one",
            "Give what is there another name."};
  }
  return {};
}

// None where there really is nothing.
Failure UserStore::unreadable() const {
  if (Failure failure = noFolder()) return failure;
  if (::access(place_.folder().c_str(), R_OK | X_OK) == 0 || errno == ENOENT) return {};
  return {kExitEnvironment, "unreadable",
          "the folder " + place_.folder() + " can't be read: " + std::strerror(errno),
          "See who may read it: ls -ld " + place_.folder()};
}

Failure UserStore::lock(UserAccess access) {
  const bool alone = access == UserAccess::kWrite;
  lock_.reset();
  lock_ =
      std::make_unique<LockFile>(place_.lockFile(), patience_, alone ? LockMode::kAlone : LockMode::kShared);
  if (lock_->held()) return {};
  if (lock_->holder().empty()) {
    return {kExitEnvironment, "not_stored", "the lock file " + place_.lockFile() + " can't be written",
            kWriteHint};
  }
  return {kExitEnvironment, "locked", "your entries are in use: " + lock_->holder(),
          "Wait for it to end, then try again."};
}

Failure UserStore::recover() {
  std::vector<std::string> told;
  UserRecovery recovery(place_, language_);
  if (accepting_ && access_ == UserAccess::kWrite) recovery.accept(&told);
  Failure failure = recovery.run(&told);
  for (const std::string& line : told) warn(line);
  return failure;
}

Failure UserStore::beginSession() {
  const bool made = storage().exists(place_.file(userFiles(language_).front()));
  if (access_ == UserAccess::kWrite &&
      !UserMarker::beginning(place_, language_, UserMarker::kChanging).write(place_, language_)) {
    storage().remove(place_.marker(language_));  // nothing has begun
    return failureOf(engine::kFileError, "opening");
  }
  const std::string user = place_.prefix();
  uint16_t status = engine::kNoKihonFile;
  for (const bool empty : {false, true}) {
    const std::string path = basic_.path(empty);
    if (path.empty()) break;
    status = InitAPI(path.c_str(), english() ? user.c_str() : nullptr, english() ? nullptr : user.c_str());
    // Only what the basic dictionary may be to blame for is tried again without it.
    if (status != engine::kNoKihonFile && status != engine::kNoIndexMemory) break;
  }
  session_ = status == kOk;
  if (session_ && !made && access_ == UserAccess::kWrite) return beginWithNewFiles();
  // Files that can't be made are to the engine files that can't be opened.
  if (!made && isOfFiles(status)) status = engine::kFileError;
  return session_ ? Failure{} : failureOf(status, made ? "opening" : "making the files");
}

// A marker from before there were any files knows neither the index that is to be saved nor its backup.
Failure UserStore::beginWithNewFiles() {
  if (UserMarker::beginning(place_, language_, UserMarker::kChanging).write(place_, language_)) return {};
  session_ = false;
  EndAPI();
  undo();
  return failureOf(engine::kFileError, "making the files");
}

Failure UserStore::statusFailure(uint16_t status, const std::string& what, bool writing) const {
  std::string wrong;
  // Beside a backup the files are in the middle of a change.
  if (isOfFiles(status) && !UserRecovery(place_, language_).backups()) {
    const UserCheck files(language_, [this](const std::string& name) { return place_.file(name); });
    if (!files.unreadable()) wrong = files.wrong();
  }
  return failureOfStatus(status, {what, language_, place_.folder(), writing}, wrong);
}

Failure UserStore::failureOf(uint16_t status, const std::string& what) const {
  return statusFailure(status, what, true);
}

Failure UserStore::searchFailure(uint16_t status, const std::string& what) const {
  return statusFailure(status, what, false);
}

Failure UserStore::check() const {
  return UserRecovery(place_, language_).damage(UserCheck::kAll, nullptr);
}

Failure UserStore::salvage(Failure damage, std::vector<UserEntry>* entries) {
  const UserPaths paths = [this](const std::string& name) { return place_.file(name); };
  const bool whole = isUnclear(damage);
  // A damaged file of entries is hardly another one: what was deleted in it is where it was.
  UserStamp stamp = UserStamp::read(place_, language_);
  const bool fits = stamp.fits(place_, language_);
  const UserStamp now = UserStamp::of(place_, language_, {});
  // With the size and the index that the stamp has, so do deleted entries stand where it has them.
  if (whole && !fits && !stamp.isOf(now.indexHash, now.entriesEnd)) stamp.dead.clear();
  // An older file of entries fits the stamp of its time. An index that is none says nothing of when it was.
  const bool sure = !stamp.known || (fits && (!now.known || now.indexHash == stamp.indexHash));
  SalvagedEntries found = salvageEntries(language_, paths, stamp, fits && !whole);
  const std::string lost = whole ? std::string() : lostText(found, sure);
  if (!lost.empty()) damage.message += "; " + lost;
  if (!whole) damage.hint = kDamageHint;
  *entries = std::move(found.entries);
  lost_ = whole ? std::vector<LostWord>() : std::move(found.lost);
  return damage;
}

// Words that are filed alike find each other's entries, too.
Failure UserStore::readEach(std::vector<UserEntry>* entries) {
  std::vector<std::string> words;
  if (Failure failure = headwords(&words)) return failure;
  std::unordered_set<uint32_t> seen;
  for (const std::string& word : words) {
    std::vector<StoredEntry> found;
    if (Failure failure = findStored(word, &found)) return failure;
    for (StoredEntry& stored : found) {
      if (seen.insert(stored.place.dicOffset).second) entries->push_back(std::move(stored.entry));
    }
  }
  return {};
}

Failure UserStore::readAll(Failure opened, std::vector<UserEntry>* entries) {
  entries->clear();
  Failure failure = opened ? opened : check();
  if (!failure) failure = readEach(entries);
  return failure.status == kExitDamaged ? salvage(std::move(failure), entries) : failure;
}

Failure UserStore::find(const std::string& word, std::vector<StoredEntry>* found) {
  found->clear();
  std::string settled = word;
  if (settleText(english() ? TextKind::kEnglishWord : TextKind::kReading, &settled).empty()) {
    return findStored(settled, found);
  }
  settled = word;
  if (english() || !settleText(TextKind::kWritten, &settled).empty()) return {};
  return findByKanji(settled, found);
}

Failure UserStore::findStored(const std::string& word, std::vector<StoredEntry>* found) {
  if (!session_) return {};
  uint16_t count = 0;
  Handle list = nullptr;
  const std::string sjis = storedText(english() ? word : wordAsFiled(word));
  uint16_t status = english() ? SerchUserDicE(sjis.c_str(), nullptr, &count, &list)
                              : SerchUserDicJ(sjis.c_str(), nullptr, &count, &list);
  std::string bytes = takeBytes(list);
  // Of a word shorter than its prefix the engine gives no more, whatever there is.
  if (status == kOk && count == engine::kMaxRows) status = serialEntriesOf(language_, sjis, &bytes, &count);
  if (status != kOk) return searchFailure(status, "searching \"" + word + "\"");
  return readSerial(bytes, count, language_, found) ? Failure{} : failureOf(engine::kInternal, "searching");
}

// Entries stand with their places in the index of readings alone: the readings are looked up first.
Failure UserStore::findByKanji(const std::string& word, std::vector<StoredEntry>* found) {
  const std::string key = keyOfKanji(word);
  if (!session_ || key.empty()) return {};
  std::vector<std::string> readings;
  const uint16_t status = readingsOf(storedText(wordAsFiled(word)), &readings);
  if (status != kOk) return searchFailure(status, "searching \"" + word + "\"");
  for (const std::string& reading : readings) {
    std::vector<StoredEntry> all;
    if (Failure failure = findStored(textOfStored(reading), &all)) return failure;
    for (StoredEntry& stored : all) {
      if (!stored.entry.kanji.empty() && keyOfKanji(stored.entry.kanji) == key)
        found->push_back(std::move(stored));
    }
  }
  return {};
}

Failure UserStore::headwords(std::vector<std::string>* words) {
  words->clear();
  if (!session_) return {};
  uint16_t count = 0;
  uint32_t size = 0;
  Handle list = nullptr;
  const uint16_t status =
      english() ? GetListUserDicE(&count, &list, &size) : GetListUserDicJ(&count, &list, &size);
  const std::string bytes = takeBytes(list);
  if (status != kOk) return searchFailure(status, "listing");
  for (size_t at = 0; at < bytes.size(); at = bytes.find('\0', at) + 1) {
    words->push_back(textOfStored(bytes.c_str() + at));
  }
  return {};
}

Failure UserStore::add(const UserEntry& entry) {
  changed_ = true;
  const uint16_t status = EntryRecord(entry).add(nullptr);
  refused_ = refused_ || status != kOk;
  return failureOf(status, "adding \"" + entry.title() + "\"");
}

Failure UserStore::replace(const StoredEntry& old, const UserEntry& entry) {
  // Under another key, or with a written form that the other lacks, it is another entry to the engine. Both
  // steps are on the disk together.
  if (Failure failure = dropStamp()) return failure;
  const uint16_t status = EntryRecord(entry).add(&old);
  refused_ = refused_ || status != kOk;
  if (status == kOk) dead_.push_back({old.place.dicOffset, old.place.dicOffset + uint64_t{1}});
  if (status != engine::kBadArgument) return failureOf(status, "changing \"" + entry.title() + "\"");
  if (Failure failure = add(entry)) return failure;
  std::vector<StoredEntry> found;
  if (Failure failure = findStored(old.entry.word, &found)) return failure;
  const auto again = std::find_if(found.begin(), found.end(),
                                  [&old](const StoredEntry& stored) { return stored.entry == old.entry; });
  return again == found.end() ? failureOf(engine::kInternal, "changing") : remove(*again);
}

Failure UserStore::remove(const StoredEntry& old) {
  if (Failure failure = dropStamp()) return failure;
  const uint16_t status = english() ? DelUserDicE(&old.place) : DelUserDicJ(&old.place, &old.kanji);
  if (status == kOk) dead_.push_back({old.place.dicOffset, old.place.dicOffset + uint64_t{1}});
  return failureOf(status, "deleting \"" + old.entry.title() + "\"");
}

// A stamp bears that entries come in, and not that they go, should this session not come to its end.
Failure UserStore::dropStamp() {
  changed_ = true;
  return UserStamp::remove(place_, language_) ? Failure{} : failureOf(engine::kFileError, "changing");
}

// The change is on the disk. Without a stamp nothing is lost but what it would tell.
void UserStore::stampAnew() {
  if (refused_) {
    const UserCheck files(language_, [this](const std::string& name) { return place_.file(name); });
    dead_ = files.gaps();
  }
  std::sort(dead_.begin(), dead_.end(),
            [](const FileRange& a, const FileRange& b) { return a.from < b.from; });
  if (!UserStamp::of(place_, language_, dead_).write(place_, language_)) UserStamp::remove(place_, language_);
}

Failure UserStore::findAgain(StoredEntry* stored) const {
  return searchFailure(findPlace(stored), "searching \"" + stored->entry.title() + "\"");
}

Failure UserStore::arrange() {
  UserMarker marker = UserMarker::beginning(place_, language_, UserMarker::kArranging);
  if (changed_) marker.indexHash = 0;
  if (!marker.write(place_, language_)) {
    return failureOf(engine::kFileError, "arranging");
  }
  const uint16_t status = english() ? ArrangeUserDicE() : ArrangeUserDicJ();
  if (status == kOk) {
    changed_ = true;
    dead_.clear();
    return {};
  }
  session_ = false;
  EndAPI();
  const Failure undone = undo();
  return undone ? undone : failureOf(status, "arranging");
}

// What a failed change left is put right at once: the next command and other readers find the entries.
Failure UserStore::undo() {
  std::vector<std::string> told;
  return UserRecovery(place_, language_).run(&told);
}

// The engine takes no notice where a backup that is worth nothing any more can't be removed; without the
// marker it would seem to come from elsewhere. A marker that stays makes the next start look for what is left
// over: harmless.
void UserStore::unmark() {
  if (UserRecovery(place_, language_).backups()) {
    undo();
  } else {
    storage().remove(place_.marker(language_));
  }
}

Failure UserStore::close() {
  if (!session_) {
    lock_.reset();
    return {};
  }
  session_ = false;
  const uint16_t status = EndAPI();
  if (status == kOk && changed_) stampAnew();
  if (access_ == UserAccess::kWrite) status == kOk ? unmark() : static_cast<void>(undo());
  Failure failure = failureOf(status, "storing");
  lock_.reset();
  return failure;
}

}  // namespace zavel::host
