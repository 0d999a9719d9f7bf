// Tests: tests/zavel/user/UserStatusTest.cpp
#include "user/UserStatus.h"

#include <algorithm>

#include "engine/EngineStatus.h"

namespace zavel::host {
namespace {

using namespace engine;

constexpr const char* kDamaged = "damaged_user_dictionary";

// What stands in the sentences for %w is what was under way, for %e "your English entries", for %f the
// folder.
struct Row {
  uint16_t status;
  ExitStatus exit;
  const char* code;
  const char* message;
  const char* hint;
};

constexpr Row kRows[] = {
    {kNoMemory, kExitEnvironment, "no_memory", "there is not memory enough for %w",
     "End other programs, then try again."},
    {kNoWorkBuffer, kExitEnvironment, "no_memory", "there is not memory enough for %w",
     "End other programs, then try again."},
    {kBadArgument, kExitUsage, "refused",
     "%w was refused: the entry is another now, or its text can't be held",
     "Search the entry again: it may have been changed meanwhile."},
    {kNoMutex, kExitEnvironment, "locked", "%w failed: your entries are in use", "Try again in a moment."},
    {kMutexNotTaken, kExitEnvironment, "locked", "%w failed: your entries are in use",
     "Try again in a moment."},
    {kRefused, kExitEnvironment, "locked", "%w failed: your entries are in use", "Try again in a moment."},
    {kAlreadyOpen, kExitEnvironment, "locked", "%w failed: your entries are in use",
     "Try again in a moment."},
    {kAttached, kExitEnvironment, "locked", "%w failed: your entries are in use", "Try again in a moment."},
    {kNoUserE, kExitEnvironment, "not_stored", "%w failed: %e in %f can't be opened",
     "See who may read and write them: ls -l %f"},
    {kNoUserJ, kExitEnvironment, "not_stored", "%w failed: %e in %f can't be opened",
     "See who may read and write them: ls -l %f"},
    {kNoIndexMemory, kExitEnvironment, "too_many_kanji",
     "there is no room for further beginnings of words in kanji",
     "Delete entries that you don't need, or add words in kana without --kanji."},
    {kTooManyKjiIndexes, kExitEnvironment, "too_many_kanji",
     "there is no room for further beginnings of words in kanji",
     "Delete entries that you don't need, or add words in kana without --kanji."},
    {kBlockTooLong, kExitUsage, "too_many_alike",
     "too many of your words begin alike: there is no room for one more",
     "Delete some that begin so; arranging makes no room among them."},
    {kEntryTooLong, kExitUsage, "too_long",
     "the entry is too long: all its texts together have 65,534 bytes at most",
     "Leave examples out, or make two entries of it."},
    {kNoKihonFile, kExitEnvironment, "no_folder", "no folder for temporary files can be used",
     "Set TMPDIR to a folder of yours."},
};

constexpr Row kNotWritten = {kFileError, kExitEnvironment, "not_stored",
                             "%w failed: files in %f can't be written", kWriteHint};
constexpr Row kNotRead = {kFileError, kExitEnvironment, "unreadable", "%w failed: files in %f can't be read",
                          "See who may read them, and whether the disk is well: ls -l %f"};
// The files belong together as far as one can see without taking each record apart.
constexpr Row kOther = {kInternal, kExitDamaged, kDamaged,
                        "%w failed: an entry among %e in %f can't be read; nothing there was overwritten",
                        "Run \"zavel user export FILE\": it names the entry and saves all others."};

std::string filled(std::string_view text, const UserWork& work) {
  std::string sentence;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      sentence += text[at];
      continue;
    }
    const char mark = text[++at];
    sentence += mark == 'w' ? work.what : mark == 'e' ? entriesOf(work.language) : work.folder;
  }
  return sentence;
}

}  // namespace

std::string entriesOf(UserLanguage language) {
  return std::string("your ") + languageName(language) + " entries";
}

Failure damagedEntries(UserLanguage language, const std::string& folder, const std::string& wrong) {
  return {kExitDamaged, kDamaged, entriesOf(language) + " in " + folder + " are damaged: " + wrong,
          kDamageHint};
}

Failure unreadableEntries(UserLanguage language, const std::string& folder, const std::string& wrong) {
  return {kExitEnvironment, "unreadable", entriesOf(language) + " in " + folder + " can't be read: " + wrong,
          "See who may read them, and whether the disk is well: ls -l " + folder};
}

bool isOfFiles(uint16_t status) {
  return status == kMalformed || status == kInternal || status == kFileError || status == kNoUserE ||
         status == kNoUserJ;
}

Failure failureOfStatus(uint16_t status, const UserWork& work, const std::string& wrong) {
  if (status == kOk) return {};
  if (isOfFiles(status) && !wrong.empty()) {
    Failure failure = damagedEntries(work.language, work.folder, wrong);
    failure.message = work.what + " failed: " + failure.message;
    return failure;
  }
  const Row* row = std::find_if(std::begin(kRows), std::end(kRows),
                                [status](const Row& one) { return one.status == status; });
  if (status == kFileError) row = work.writing ? &kNotWritten : &kNotRead;
  if (row == std::end(kRows)) row = &kOther;
  return {row->exit, row->code, filled(row->message, work), filled(row->hint, work)};
}

}  // namespace zavel::host
