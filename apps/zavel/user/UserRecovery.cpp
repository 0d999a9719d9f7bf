// Tests: tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserRecovery.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "engine/DicFormat.h"
#include "foundation/Storage.h"
#include "user/UserIndex.h"
#include "user/UserReach.h"
#include "user/UserStamp.h"
#include "user/UserStatus.h"

namespace zavel::host {
namespace {

using engine::kUserHeader;

constexpr const char* kArranging = ".arrbkp";
constexpr const char* kSaving = ".bkup";
constexpr const char* kMoving = ".Bkup";
constexpr const char* kFirstKanji = "kji.idx";

bool isDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// "4711.0123abcd.7", what temporary files have behind their prefix.
bool isUnusedTail(std::string_view text) {
  const size_t first = text.find('.'), last = text.rfind('.');
  if (first == std::string_view::npos || first == last) return false;
  const std::string_view middle = text.substr(first + 1, last - first - 1);
  return isDigits(text.substr(0, first)) && isDigits(text.substr(last + 1)) && !middle.empty() &&
         middle.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// Temporary files of one dictionary's arranging, and those of copying and new files, which are of either.
bool isStray(std::string_view name, UserLanguage language) {
  const bool english = language == UserLanguage::kEnglish;
  for (const std::string_view prefix : {".copy-", ".new-", "dic", english ? "ix3" : "kna", "kji"}) {
    if (english && prefix == "kji") continue;
    if (name.starts_with(prefix) && isUnusedTail(name.substr(prefix.size()))) return true;
  }
  return false;
}

// The engine moves the first index of kanji aside, and no other.
bool areMoved(const std::vector<std::string>& names) {
  return names == std::vector<std::string>{kFirstKanji};
}

bool isEmptyData(const std::string& path) {
  std::error_code error;
  const uintmax_t size = std::filesystem::file_size(path, error);
  return !error && size <= kUserHeader;
}

}  // namespace

bool UserRecovery::there(const std::string& name) const {
  return storage().exists(path(name));
}

// Every name that a file of the set can have.
std::vector<std::string> UserRecovery::allNames() const {
  std::vector<std::string> names = userFiles(language_);
  if (language_ == UserLanguage::kEnglish) return names;
  for (int number = 1; number <= kMostKanjiIndexes; ++number) names.push_back(kanjiIndexName(number));
  return names;
}

std::vector<std::string> UserRecovery::withSuffix(const std::string& suffix) const {
  std::vector<std::string> found;
  for (const std::string& name : allNames()) {
    if (there(name + suffix)) found.push_back(name);
  }
  return found;
}

std::vector<std::string> UserRecovery::strays() const {
  std::vector<std::string> found;
  std::error_code error;
  for (const auto& file : std::filesystem::directory_iterator(place_.folder(), error)) {
    const std::string name = file.path().filename().string();
    if (isStray(name, language_)) found.push_back(file.path().string());
  }
  return found;
}

bool UserRecovery::backups() const {
  for (const char* suffix : {kArranging, kMoving, kSaving}) {
    if (!withSuffix(suffix).empty()) return true;
  }
  return false;
}

bool UserRecovery::needed() const {
  return storage().exists(place_.marker(language_)) || backups() || !strays().empty();
}

bool UserRecovery::removeAll(const std::vector<std::string>& names, const char* suffix) {
  bool all = true;
  for (const std::string& name : names) all = storage().remove(path(name) + suffix) && all;
  return all;
}

UserPaths UserRecovery::pathsWith(const std::vector<std::string>& suffixes) const {
  return [this, suffixes](const std::string& name) {
    for (const std::string& suffix : suffixes) {
      if (there(name + suffix)) return path(name) + suffix;
    }
    return path(name);
  };
}

// Without a word of where a change began, all that is whole counts as from before it.
UserCheck UserRecovery::check(const UserPaths& paths) const {
  BrokenOff broken;
  if (marker_.work == UserMarker::kUnknown) broken = {0, UINT64_MAX};
  if (marker_.work == UserMarker::kChanging) broken = {marker_.entriesEnd, marker_.entriesEnd};
  if (marker_.work == UserMarker::kArranging) broken = {marker_.entriesEnd, UINT64_MAX};
  return UserCheck(language_, paths, UserCheck::kAll, broken);
}

// A backup of another session than the one that broke off: it is neither the index with which that began nor
// one that leads to anything it added, or the files lead to something stored before it that the backup lacks.
bool UserRecovery::countsAsSaved(const UserCheck& backup, const UserCheck& files) const {
  const std::vector<uint32_t>& saved = backup.entries();
  const bool own =
      backup.indexHash() == marker_.indexHash || (!saved.empty() && saved.back() >= marker_.entriesEnd);
  if (!own || !files.whole()) return own;
  return std::all_of(files.entries().begin(), files.entries().end(), [&](uint32_t entry) {
    return entry >= marker_.entriesEnd || std::binary_search(saved.begin(), saved.end(), entry);
  });
}

// Whether the backups are the state before a change that broke off. Without a word of the marker's what is
// whole is the newer.
bool UserRecovery::counts(const char* suffix, const UserCheck& backup, const UserCheck& files) const {
  if (marker_.work == UserMarker::kNone || !backup.whole()) return false;
  if (suffix == kMoving && !areMoved(withSuffix(suffix))) return false;
  if (marker_.work == UserMarker::kUnknown) return !files.whole();
  if (suffix == kArranging) {
    const bool own = marker_.indexHash == 0 || backup.indexHash() == marker_.indexHash;
    return own && marker_.work == UserMarker::kArranging && there(firstIndex() + suffix);
  }
  // The copy of a kanji index that is moved aside holds what stands in its place, once that is whole. So do
  // indexes whose backup stands without that of the first one.
  if (suffix == kMoving || !there(firstIndex() + suffix)) return !files.whole();
  return countsAsSaved(backup, files);
}

// The backup of the first index says that the others count; so it goes last.
Failure UserRecovery::putBack(const char* suffix, std::vector<std::string>* told) {
  const std::string first = firstIndex();
  std::vector<std::string> names = withSuffix(suffix);
  std::erase(names, first);
  for (const std::string& name : names) {
    if (!storage().rename(path(name) + suffix, path(name))) return notWritten();
  }
  // Backups of savings are older than what was arranged, and must not be found without this one.
  if (suffix == kArranging && !removeAll(withSuffix(kSaving), kSaving)) return notWritten();
  if (!storage().syncFolder(place_.folder())) return notWritten();
  if (there(first + suffix) &&
      (!storage().rename(path(first) + suffix, path(first)) || !storage().syncFolder(place_.folder()))) {
    return notWritten();
  }
  const std::string whole = entriesOf(language_) + " had broken off: ";
  told->push_back(suffix == kArranging ? "arranging " + whole + "they are as they were before it"
                  : suffix == kMoving  ? "a change of " + whole + "the index of kanji was put back"
                                       : "a change of " + whole + "they are as they were before it");
  return {};
}

bool UserRecovery::keep(const std::string& file, std::string* name, bool copied) const {
  for (int number = 1;; ++number) {
    const std::string kept = file + ".kept-" + std::to_string(number);
    if (storage().exists(kept)) continue;
    *name = kept.substr(kept.rfind('/') + 1);
    return copied ? storage().copy(file, kept) : storage().rename(file, kept);
  }
}

// The files are whole without these backups. They may still hold what somebody looks for.
Failure UserRecovery::moveAway(const char* suffix, std::vector<std::string>* told) {
  const std::vector<std::string> names = withSuffix(suffix);
  // The engine itself leaves these behind, once they are worth nothing, when it ends ahead of removing them.
  // What says nothing of a change isn't known to be the marker of one.
  const bool known = marker_.work == UserMarker::kChanging || marker_.work == UserMarker::kArranging;
  const bool leftOver = suffix == kMoving ? areMoved(names) : !there(firstIndex() + suffix);
  if (known && leftOver) return removeAll(names, suffix) ? Failure{} : notWritten();
  std::string kept;
  for (const std::string& name : names) {
    std::string as;
    if (!keep(path(name) + suffix, &as)) return notWritten();
    kept += (kept.empty() ? "" : ", ") + as;
  }
  told->push_back("backups that " + entriesOf(language_) + " don't need were found in " + place_.folder() +
                  " and moved to " + kept);
  return storage().syncFolder(place_.folder()) ? Failure{} : notWritten();
}

Failure UserRecovery::settle(const char* suffix, std::vector<std::string>* told) {
  if (withSuffix(suffix).empty()) return {};
  const UserCheck files = filesAsTheyAre();
  const UserCheck backup = check(pathsWith({suffix}));
  if (files.unreadable() || backup.unreadable()) return failureOf(files.unreadable() ? files : backup);
  if (counts(suffix, backup, files)) return putBack(suffix, told);
  return files.whole() ? moveAway(suffix, told) : Failure{};
}

// A new set is made file by file, and nothing can have been put into one that is not whole.
bool UserRecovery::undoMaking(std::vector<std::string>* told) {
  const std::vector<std::string>& names = userFiles(language_);
  const auto isThere = [this](const std::string& name) { return there(name); };
  const auto data = [](const std::string& name) { return !name.ends_with(".idx"); };
  const auto filled = [&](const std::string& name) {
    return data(name) && there(name) && !isEmptyData(path(name));
  };
  const bool some = std::any_of(names.begin(), names.end(), isThere);
  const bool all = std::all_of(names.begin(), names.end(), isThere);
  // The files of entries and blocks are made ahead of the indexes.
  const bool made =
      std::all_of(names.begin(), names.end(), [&](const auto& n) { return !data(n) || there(n); });
  const bool anyIndex =
      std::any_of(names.begin(), names.end(), [&](const auto& n) { return !data(n) && there(n); });
  if (!some || all || (anyIndex && !made) || std::any_of(names.begin(), names.end(), filled)) return true;
  for (const std::string& name : names) {
    if (there(name) && !storage().remove(path(name))) return false;
  }
  told->push_back("making the files for " + entriesOf(language_) + " had broken off: they are made anew");
  return storage().syncFolder(place_.folder());
}

bool UserRecovery::removeSpareIndexes() {
  if (language_ == UserLanguage::kEnglish || !there(kFirstKanji)) return true;
  const UserIndex first(path(kFirstKanji), engine::kTypeKji);
  if (!first.sound()) return true;
  for (int number = first.furtherIndexes() + 1; number <= kMostKanjiIndexes; ++number) {
    const std::string name = kanjiIndexName(number);
    if (there(name) && !storage().remove(path(name))) return false;
  }
  return true;
}

bool UserRecovery::trimTo(const std::string& name, uint64_t end, uint64_t* cut) {
  const std::unique_ptr<StorageFile> file = storage().open(path(name), OpenMode::kReadWrite);
  const int64_t size = file ? file->size() : -1;
  if (size < 0) return false;
  if (static_cast<uint64_t>(size) <= end) return true;
  *cut += static_cast<uint64_t>(size) - end;
  return file->truncate(end) && file->sync() && file->close();
}

// What was appended and never indexed may be half written. An entry ends where the next begins or the file
// ends, so that half of one would be taken for a part of the last whole one.
bool UserRecovery::trim(const UserCheck& files, std::vector<std::string>* told) {
  uint64_t cut = 0;
  for (const auto& [name, end] : files.ends()) {
    if (!trimTo(name, end, &cut)) return false;
  }
  if (cut > 0) {
    told->push_back("a change of " + entriesOf(language_) + " had broken off: " + std::to_string(cut) +
                    " bytes of it that nothing leads to were removed");
  }
  return true;
}

Failure UserRecovery::notWritten() const {
  return {kExitEnvironment, "not_stored",
          "a change of " + entriesOf(language_) + " had broken off, and can't be put right: files in " +
              place_.folder() + " can't be written",
          kWriteHint};
}

Failure UserRecovery::notTaken() const {
  return {kExitEnvironment, "not_stored",
          entriesOf(language_) + " can't be taken as they stand: files in " + place_.folder() +
              " can't be written",
          kWriteHint};
}

Failure UserRecovery::failureOf(const UserCheck& files) const {
  if (files.whole()) return {};
  if (files.unreadable()) return unreadableEntries(language_, place_.folder(), files.wrong());
  std::string backups;
  for (const char* suffix : {kArranging, kSaving, kMoving}) {
    for (const std::string& name : withSuffix(suffix))
      backups += (backups.empty() ? " " : ", ") + ("my" + name) + suffix;
  }
  return damagedEntries(language_, place_.folder(),
                        files.wrong() + "; " +
                            (backups.empty() ? "no backup stands there" : "backups there:" + backups) +
                            ", nothing was changed");
}

bool UserRecovery::anyFile() const {
  const std::vector<std::string>& names = userFiles(language_);
  return std::any_of(names.begin(), names.end(), [this](const std::string& name) { return there(name); });
}

Failure UserRecovery::notClear(const UserCheck& files, Standing* standing) const {
  const UserReach reach = UserReach::of(place_, language_, files, marker_);
  if (standing) *standing = {files.gaps(), reach.stamped};
  if (reach.clear()) return {};
  return accepted_ ? takeAsItStands(files) : unclearEntries(language_, place_.folder(), reach);
}

Failure UserRecovery::takeAsItStands(const UserCheck& files) const {
  std::string kept;
  for (const std::string& name : allNames()) {
    std::string as;
    if (!there(name)) continue;
    if (!keep(path(name), &as, true)) return notTaken();
    kept += (kept.empty() ? "" : ", ") + as;
  }
  if (!UserStamp::of(place_, language_, files.gaps()).write(place_, language_)) return notTaken();
  accepted_->push_back(entriesOf(language_) + " are taken as they stand; copies of the files are kept as " +
                       kept);
  return {};
}

Failure UserRecovery::damage(UserCheck::Depth depth, Standing* standing) const {
  if (!anyFile()) return {};
  const UserCheck files(language_, pathsWith({}), depth);
  if (Failure failure = failureOf(files)) return failure;
  if (depth == UserCheck::kAll) return notClear(files, standing);
  // What was looked at in full when it was written is not looked at again unasked.
  const UserStamp stamp = UserStamp::read(place_, language_);
  const uint64_t size = WindowFile(path(userFiles(language_).back())).size();
  return !stamp.known || stamp.isOf(files.indexHash(), size) ? Failure{} : damage(UserCheck::kAll, standing);
}

// Of what a change that broke off left, once it is put right: what nothing leads to now was deleted.
void UserRecovery::stampAnew(const UserCheck& files) const {
  const UserStamp stamp = UserStamp::of(place_, language_, files.gaps());
  if (stamp != UserStamp::read(place_, language_) && !stamp.write(place_, language_))
    UserStamp::remove(place_, language_);
}

// A file of entries that is shorter than when the change began has lost more than the change.
Failure UserRecovery::finishChange(const UserCheck& files, std::vector<std::string>* told) {
  const auto entries = storage().open(path(userFiles(language_).back()), OpenMode::kRead);
  const int64_t size = entries ? entries->size() : -1;
  if (size < 0) return notWritten();
  const bool longEnough =
      marker_.work != UserMarker::kChanging || static_cast<uint64_t>(size) >= marker_.entriesEnd;
  return !longEnough || trim(files, told) ? Failure{} : notWritten();
}

Failure UserRecovery::run(std::vector<std::string>* told) {
  marker_ = UserMarker::read(place_, language_);
  if (marker_.work == UserMarker::kUnreadable) {
    const std::string marker = place_.marker(language_);
    return unreadableEntries(language_, place_.folder(),
                             marker.substr(marker.rfind('/') + 1) + " can't be read");
  }
  for (const char* suffix : {kArranging, kMoving, kSaving}) {
    if (Failure failure = settle(suffix, told)) return failure;
  }
  const bool brokenOff = marker_.work != UserMarker::kNone;
  if (brokenOff && !undoMaking(told)) return notWritten();
  if (anyFile()) {
    const UserCheck files = filesAsTheyAre();
    if (Failure failure = failureOf(files)) return failure;
    if (Failure failure = notClear(files, nullptr)) return failure;
    if (!removeSpareIndexes()) return notWritten();
    if (brokenOff) {
      if (Failure failure = finishChange(files, told)) return failure;
      if (marker_.work != UserMarker::kUnknown) stampAnew(files);
    }
  }
  // Of a damaged set they may be all that is left of something.
  for (const std::string& stray : strays()) {
    if (!storage().remove(stray)) return notWritten();
  }
  if (!brokenOff) return {};
  return storage().remove(place_.marker(language_)) && storage().syncFolder(place_.folder()) ? Failure{}
                                                                                             : notWritten();
}

}  // namespace zavel::host
