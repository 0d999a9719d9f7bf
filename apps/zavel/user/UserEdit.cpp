// `zavel user edit`. Tests: tests/zavel/user/UserCommandTest.cpp
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "Interrupt.h"
#include "JsonWriter.h"
#include "Places.h"
#include "Utf8.h"
#include "foundation/Storage.h"
#include "user/UserForm.h"
#include "user/UserJson.h"
#include "user/UserPlace.h"
#include "user/UserPrompt.h"
#include "user/UserText.h"
#include "user/UserView.h"

namespace zavel::host {
namespace {

constexpr size_t kLongestForm = 1 << 20;
constexpr int kInterrupt = 128 + SIGINT;  // as exit statuses have it

std::string editor() {
  for (const char* name : {"VISUAL", "EDITOR"}) {
    const char* value = std::getenv(name);
    if (value && *value) return value;
  }
  return "editor";
}

enum class Edited { kDone, kFailed, kInterrupted };

// How the editor ended: interrupted also where a shell that ran it says so.
Edited endOf(int status) {
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return Edited::kDone;
  const bool interrupt = WIFSIGNALED(status) ? WTERMSIG(status) == SIGINT : WEXITSTATUS(status) == kInterrupt;
  return interrupt ? Edited::kInterrupted : Edited::kFailed;
}

// Runs the editor on a file and waits. Failed when it could not be run or said so; interrupted also when it
// is not awaited any longer because of a signal to this process.
Edited runEditor(const std::string& file) {
  const std::string command = editor() + " \"$1\"";
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGXFSZ, SIG_DFL);
    execl("/bin/sh", "sh", "-c", command.c_str(), "sh", file.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  if (child < 0) return Edited::kFailed;
  // Keys that mean something to the editor are not for this process.
  struct sigaction ignore = {}, interrupt = {}, quit = {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGINT, &ignore, &interrupt);
  sigaction(SIGQUIT, &ignore, &quit);
  int status = 0;
  bool ended = false;
  while (!ended && !interrupted()) ended = waitpid(child, &status, 0) == child || errno != EINTR;
  sigaction(SIGINT, &interrupt, nullptr);
  sigaction(SIGQUIT, &quit, nullptr);
  return ended ? endOf(status) : Edited::kInterrupted;
}

// A form in a file that stays until its entry is stored, so that nothing typed is lost.
class FormFile {
 public:
  explicit FormFile(const UserEntry& entry) : form_(formOf(entry)) {
    const std::string folder = findPlaces().state;
    if (!makeFolders(folder)) return;
    const std::string path = freeName(folder + "/edit-" + std::to_string(getpid()));
    if (writeFileAtomically(path, form_)) path_ = path;
  }
  ~FormFile() {
    if (!path_.empty() && !keep_) storage().remove(path_);
  }
  FormFile(const FormFile&) = delete;
  FormFile& operator=(const FormFile&) = delete;

  const std::string& path() const { return path_; }
  // What was typed stays; an editor that is still open may have more to write.
  Failure keeping(Failure failure) {
    std::string text;
    std::error_code error;
    const bool there = std::filesystem::is_regular_file(path_, error);
    const bool untouched = readWholeFile(path_, kLongestForm, &text) && text == form_;
    keep_ = !there || !untouched || interrupted();
    const bool ran = failure.code != "editor";
    failure.hint = !there  ? "The editor left no file there."
                   : keep_ ? "What you typed is in " + path_
                   : ran   ? "Run it again to change the entry."
                           : "Set VISUAL or EDITOR to an editor that runs, or give --set FIELD=TEXT.";
    if (interrupted()) failure.status = static_cast<ExitStatus>(interruptedStatus());
    return failure;
  }

 private:
  // Another process of this number may have left what was typed in it.
  static std::string freeName(const std::string& stem) {
    std::string path = stem + ".txt";
    for (int number = 2; storage().exists(path); ++number)
      path = stem + "-" + std::to_string(number) + ".txt";
    return path;
  }

  std::string form_, path_;
  bool keep_ = false;
};

Failure noForm() {
  return {kExitEnvironment, "no_folder", "no file for the form can be written in " + findPlaces().state,
          kWriteHint};
}

Failure interruptedEdit() {
  return {static_cast<ExitStatus>(kInterrupt), "interrupted", "interrupted; nothing was stored", ""};
}

// What the editor left in the form. A failure also where it is no entry: *wrong then tells why.
Failure readEdited(const FormFile& file, UserLanguage language, UserEntry* entry, std::string* wrong) {
  const Edited edited = runEditor(file.path());
  if (interrupted() || edited == Edited::kInterrupted) return interruptedEdit();
  if (edited == Edited::kFailed) return {kExitEnvironment, "editor", "the editor failed: " + editor(), ""};
  std::string text;
  if (!readWholeFile(file.path(), kLongestForm, &text)) {
    return {kExitEnvironment, "editor", "the form can't be read, or has more than 1 MB: " + file.path(), ""};
  }
  *wrong = readForm(text, language, entry);
  return wrong->empty() ? Failure{} : Failure{kExitUsage, "refused", *wrong, ""};
}

// Has the entry changed in the editor until it can be stored or the user gives up.
Failure editForm(const UserOptions& options, FormFile* file, UserEntry* entry) {
  const UserLanguage language = entry->language;
  for (;;) {
    std::string wrong;
    const Failure failure = readEdited(*file, language, entry, &wrong);
    if (!failure) return {};
    if (wrong.empty() || !canAsk(options)) return file->keeping(failure);
    std::fprintf(stderr, "zavel: %s\n", printable(wrong).c_str());
    const std::optional<std::string> answer = askLine("Edit again [Y/n]? ");
    if (interrupted()) return file->keeping(interruptedEdit());
    if (!answer || *answer == "n" || *answer == "no") return file->keeping(failure);
  }
}

Failure readOld(const UserOptions& options, UserLanguage language, UserEntry* old) {
  const auto store = makeStore();
  std::vector<StoredEntry> found;
  if (Failure failure = store->open(language, UserAccess::kRead)) return failure;
  if (Failure failure = store->check()) return failure;
  if (Failure failure = store->find(options.word, &found)) return failure;
  if (Failure failure = store->close()) return failure;
  if (found.empty()) {
    return {kExitNothing, "no_entry", "you have no entry \"" + printable(options.word) + "\"",
            "See: zavel user list"};
  }
  Failure failure;
  const std::vector<StoredEntry> chosen = choose(options, found, false, &failure);
  if (!failure) *old = chosen.front().entry;
  return failure;
}

// Puts the changed entry in the place of the old one, which somebody else may have changed meanwhile.
Failure storeChange(const UserEntry& old, const UserEntry& entry) {
  watchInterrupts();
  const auto store = makeStore();
  std::vector<StoredEntry> found;
  if (Failure failure = store->open(entry.language, UserAccess::kWrite)) return failure;
  if (Failure failure = store->findStored(old.word, &found)) return failure;
  const auto again = std::find_if(found.begin(), found.end(),
                                  [&old](const StoredEntry& stored) { return stored.entry == old; });
  if (again == found.end()) {
    return {kExitNothing, "changed", "the entry was changed or deleted meanwhile", "See: zavel user find"};
  }
  Failure failure = store->replace(*again, entry);
  if (Failure notStored = store->close(); notStored && !failure) failure = notStored;
  return failure;
}

Failure applySettings(const UserOptions& options, UserEntry* entry) {
  const std::string wrong = setFields(options.settings, entry);
  return wrong.empty() ? Failure{} : badEntry(wrong);
}

int show(const UserEntry& entry, bool changed, bool asJson) {
  if (asJson) {
    JsonWriter json;
    json.beginObject().member("schema", 1).member("status", changed ? "changed" : "unchanged").key("entry");
    writeEntry(json, entry);
    json.endObject();
    std::printf("%s\n", json.text().c_str());
  } else if (changed) {
    std::printf("Changed:\n%s", entryText(entry).c_str());
  } else {
    std::fprintf(stderr, "zavel: nothing was changed\n");
  }
  return changed ? kExitFound : kExitNothing;
}

}  // namespace

int runUserEdit(const UserOptions& options) {
  const UserLanguage language = options.language().value_or(guessLanguage(options.word));
  UserEntry old;
  if (Failure failure = readOld(options, language, &old)) return report(failure, options.json);
  UserEntry entry = old;
  if (!options.settings.empty()) {
    if (Failure failure = applySettings(options, &entry)) return report(failure, options.json);
    if (entry == old) return show(entry, false, options.json);
    if (Failure failure = storeChange(old, entry)) return report(failure, options.json);
    return show(entry, true, options.json);
  }
  watchInterrupts();
  FormFile file(old);
  if (file.path().empty()) return report(noForm(), options.json);
  if (Failure failure = editForm(options, &file, &entry)) return report(failure, options.json);
  if (entry == old) return show(entry, false, options.json);
  if (Failure failure = storeChange(old, entry)) return report(file.keeping(failure), options.json);
  return show(entry, true, options.json);
}

}  // namespace zavel::host
