// Tests: tests/zavel/user/UserRecoveryTest.cpp
#include "user/UserRecovery.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "engine/DicFormat.h"
#include "foundation/Storage.h"
#include "user/UserIndex.h"

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

bool isEmptyData(const std::string& path) {
  std::error_code error;
  const uintmax_t size = std::filesystem::file_size(path, error);
  return !error && size <= kUserHeader;
}

std::string entries(UserLanguage language) {
  return std::string("your ") + languageName(language) + " entries";
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

uint16_t UserRecovery::typeOf(const std::string& name) const {
  if (language_ == UserLanguage::kEnglish) return engine::kTypeE;
  return name == "kna.idx" ? engine::kTypeKana : engine::kTypeKji;
}

bool UserRecovery::needed() const {
  if (storage().exists(place_.marker(language_))) return true;
  for (const char* suffix : {kArranging, kMoving, kSaving}) {
    if (!withSuffix(suffix).empty()) return true;
  }
  return !strays().empty();
}

bool UserRecovery::removeAll(const std::vector<std::string>& names, const char* suffix) {
  bool all = true;
  for (const std::string& name : names) all = storage().remove(path(name) + suffix) && all;
  return all;
}

// The backup of the first index says that the others count; so it goes ahead of them.
bool UserRecovery::undoArranging(std::vector<std::string>* told) {
  const std::string first = userFiles(language_).front();
  std::vector<std::string> names = withSuffix(kArranging);
  if (names.empty()) return true;
  if (there(first + kArranging)) {
    for (const std::string& name : names) {
      if (!storage().copy(path(name) + kArranging, path(name))) return false;
    }
    // Backups of savings are older than what was arranged, and must not be found without this one.
    if (!removeAll(withSuffix(kSaving), kSaving) || !storage().syncFolder(place_.folder())) return false;
    if (!storage().remove(path(first) + kArranging) || !storage().syncFolder(place_.folder())) return false;
    std::erase(names, first);
    told->push_back("arranging " + entries(language_) + " had broken off: they are as they were before it");
  }
  return removeAll(names, kArranging);
}

bool UserRecovery::undoMovingKanji(std::vector<std::string>* told) {
  const std::string aside = std::string(kFirstKanji) + kMoving;
  if (language_ == UserLanguage::kEnglish || !there(aside)) return true;
  if (!storage().rename(path(aside), path(kFirstKanji)) || !storage().syncFolder(place_.folder()))
    return false;
  told->push_back("a change of " + entries(language_) + " had broken off: the index of kanji was put back");
  return true;
}

bool UserRecovery::putBackSaved(const std::vector<std::string>& names) {
  return std::all_of(names.begin(), names.end(), [this](const std::string& name) {
    return storage().rename(path(name) + kSaving, path(name));
  });
}

// An index whose backup is left over was whole already; but nobody is made to rely on it.
bool UserRecovery::settleLeftOver(const std::string& name) {
  if (UserIndex(path(name), typeOf(name)).sound()) return storage().remove(path(name) + kSaving);
  return storage().rename(path(name) + kSaving, path(name));
}

bool UserRecovery::undoSaving(std::vector<std::string>* told) {
  const std::string first = userFiles(language_).front();
  std::vector<std::string> names = withSuffix(kSaving);
  if (names.empty()) return true;
  if (there(first + kSaving)) {
    std::erase(names, first);
    if (!putBackSaved(names) || !storage().syncFolder(place_.folder()) || !putBackSaved({first}))
      return false;
    told->push_back("a change of " + entries(language_) + " had broken off: they are as they were before it");
  } else if (!std::all_of(names.begin(), names.end(),
                          [this](const auto& name) { return settleLeftOver(name); })) {
    return false;
  }
  return storage().syncFolder(place_.folder());
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
  told->push_back("making the files for " + entries(language_) + " had broken off: they are made anew");
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
bool UserRecovery::trim(std::vector<std::string>* told) {
  const bool english = language_ == UserLanguage::kEnglish;
  std::vector<std::pair<std::string, std::vector<UserIndex>>> blocks;
  const std::string first = userFiles(language_).front();
  blocks.push_back({english ? "ej.ix3" : "kna.ix3", {UserIndex(path(first), typeOf(first))}});
  if (!english) {
    std::vector<UserIndex> kanji = {UserIndex(path(kFirstKanji), engine::kTypeKji)};
    const int further = std::min<int>(kanji[0].furtherIndexes(), kMostKanjiIndexes);
    for (int number = 1; number <= further; ++number) {
      kanji.emplace_back(path(kanjiIndexName(number)), engine::kTypeKji);
    }
    blocks.push_back({"kji.ix3", std::move(kanji)});
  }
  const std::string dic = english ? "ej.dic" : "je.dic";
  uint64_t cut = 0, dicEnd = kUserHeader;
  uint32_t lastEntry = 0;
  std::vector<uint64_t> ends;
  for (const auto& [ix3, indexes] : blocks) {
    ends.push_back(kUserHeader);
    // What contradicts itself is left as it is: the engine refuses what it can't read.
    if (!measureBlocks(path(ix3), indexes, &ends.back(), &lastEntry)) return true;
  }
  if (lastEntry != 0 && !measureEntry(path(dic), lastEntry, &dicEnd)) return true;
  for (size_t i = 0; i < blocks.size(); ++i) {
    if (!trimTo(blocks[i].first, ends[i], &cut)) return false;
  }
  if (!trimTo(dic, dicEnd, &cut)) return false;
  if (cut > 0) {
    told->push_back("a change of " + entries(language_) + " had broken off: " + std::to_string(cut) +
                    " bytes of it that nothing leads to were removed");
  }
  return true;
}

Failure UserRecovery::notWritten() const {
  return {kExitEnvironment, "not_stored",
          "a change of " + entries(language_) + " had broken off, and can't be put right: files in " +
              place_.folder() + " can't be written",
          kWriteHint};
}

Failure UserRecovery::damage() const {
  std::string wrong;
  bool some = false;
  for (const std::string& name : userFiles(language_)) some = some || there(name);
  if (!some) return {};
  for (const std::string& name : userFiles(language_)) {
    if (!there(name)) {
      wrong = "my" + name + " is missing";
    } else if (name.ends_with(".idx") && !UserIndex(path(name), typeOf(name)).sound()) {
      wrong = "my" + name + " is no index";
    }
    if (!wrong.empty()) break;
  }
  if (wrong.empty() && language_ == UserLanguage::kJapanese) {
    const int further = UserIndex(path(kFirstKanji), engine::kTypeKji).furtherIndexes();
    if (further > kMostKanjiIndexes) wrong = "mykji.idx counts too many indexes";
    for (int number = 1; wrong.empty() && number <= further; ++number) {
      const std::string name = kanjiIndexName(number);
      if (!there(name) || !UserIndex(path(name), engine::kTypeKji).sound()) {
        wrong = "my" + name + (there(name) ? " is no index" : " is missing");
      }
    }
  }
  if (wrong.empty()) return {};
  std::string backups;
  for (const char* suffix : {kArranging, kSaving, kMoving}) {
    for (const std::string& name : withSuffix(suffix))
      backups += (backups.empty() ? " " : ", ") + ("my" + name) + suffix;
  }
  return {kExitDamaged, "damaged_user_dictionary",
          entries(language_) + " in " + place_.folder() + " are damaged: " + wrong + "; " +
              (backups.empty() ? "no backup stands there" : "backups there:" + backups) +
              ", nothing was changed",
          "Put a copy of that folder in its place, or move it away and import an export of yours: zavel user "
          "import "
          "FILE"};
}

Failure UserRecovery::run(std::vector<std::string>* told) {
  if (!undoArranging(told) || !undoMovingKanji(told) || !undoSaving(told)) return notWritten();
  for (const std::string& stray : strays()) {
    if (!storage().remove(stray)) return notWritten();
  }
  const bool brokenOff = storage().exists(place_.marker(language_));
  if (brokenOff && !undoMaking(told)) return notWritten();
  if (Failure failure = damage()) return failure;
  bool some = there(userFiles(language_).front());
  if (!removeSpareIndexes()) return notWritten();
  if (!brokenOff) return {};
  if (some && !trim(told)) return notWritten();
  return storage().remove(place_.marker(language_)) && storage().syncFolder(place_.folder()) ? Failure{}
                                                                                             : notWritten();
}

}  // namespace zavel::host
