// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "Host.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "PlacesInUse.h"
#include "config/WorkPathTable.h"
#include "config/ZavelPath.h"
#include "platform/Log.h"

namespace zavel::host {

const std::array<const char*, 13> kDictionaryFiles = {
    "ej.dic",   "ej.ix3", "ej.idx", "hase.ix3", "hase.idx", "katu.dic", "katu.ix3",
    "katu.idx", "je.dic", "je.ix3", "je.idx",   "ke.ix3",   "ke.idx"};

namespace {

constexpr const char* kResultFile = "LookResult";

void dropLine(const std::string&) {}

// The module tells of a dictionary that can't be opened on standard output, which belongs to answers here:
// in its place comes one clear line on standard error.
class SilentOutput {
 public:
  SilentOutput() {
    std::fflush(stdout);
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nothing < 0) return;
    saved_ = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    if (saved_ >= 0) dup2(nothing, STDOUT_FILENO);
    close(nothing);
  }
  ~SilentOutput() {
    std::fflush(stdout);
    if (saved_ < 0) return;
    dup2(saved_, STDOUT_FILENO);
    close(saved_);
  }
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;

 private:
  int saved_ = -1;
};

std::string helperFolder() {
#ifdef ZAVEL_LIBEXEC
  return ZAVEL_LIBEXEC;
#else
  return "/usr/libexec/zavel";
#endif
}

}  // namespace

DictionaryState dictionaryIn(const std::string& folder) {
  DictionaryState state;
  for (const char* name : kDictionaryFiles) {
    if (access((folder + "/" + name).c_str(), R_OK) == 0) continue;
    if (errno == ENOENT || errno == ENOTDIR) {
      ++state.absent;
      if (state.missing.empty()) state.missing = name;
    } else if (state.unreadable.empty()) {
      state.unreadable = name;
      state.error = errno;
    }
  }
  return state;
}

Failure dictionaryFailure(const std::string& folder, const DictionaryState& state) {
  if (state.none()) {
    return {kExitEnvironment, "no_dictionary", "there is no dictionary in " + folder + " yet",
            "Run: zavel dict build"};
  }
  if (!state.unreadable.empty()) {
    return {kExitEnvironment, "unreadable_dictionary",
            "the file " + state.unreadable + " of the dictionary in " + folder +
                " can't be read: " + std::strerror(state.error),
            "See who may read it: ls -l " + folder};
  }
  if (!state.missing.empty()) {
    return {kExitDamaged, "damaged_dictionary",
            "the dictionary in " + folder + " lacks the file " + state.missing, "Run: zavel dict build"};
  }
  return {};
}

Failure noHome() {
  return {kExitEnvironment, "no_home", "no folder to work in: neither ZAVEL_ROOT nor HOME is set",
          "Set ZAVEL_ROOT to a folder of yours."};
}

Host::Host() : places_(findPlaces()) {
  const char* log = std::getenv("ZAVEL_LOG");
  if (!log || !*log) setLogSink(dropLine);
  zavelPathInitialize();
}

Host::~Host() {
  module_.reset();
  zavelPathTerminate();
}

Failure Host::open() {
  if (places_.data.empty()) return noHome();
  // The table that is there says where the dictionary is. Before there is one it is where it gets built.
  const bool firstStart = access(pathTableFile().c_str(), F_OK) != 0;
  if (firstStart) {
    if (Failure failure = dictionaryFailure(places_.dictionary, dictionaryIn(places_.dictionary)))
      return failure;
  }
  if (Failure failure = loadPathTable()) return failure;
  if (!firstStart) {
    Failure failure = dictionaryFailure(dictionary_, dictionaryIn(dictionary_));
    if (failure && dictionary_ != places_.dictionary) {
      failure.message += "; the path table " + pathTableFile() + " names that folder";
      failure.hint = "Remove the path table if the folder has moved: a new one is written at the next start.";
    }
    if (failure) return failure;
  }
  return openDictionary();
}

Failure Host::loadPathTable() {
  PathTableRoots roots;
  roots.data = places_.data;
  roots.cache = places_.cache;
  roots.preferences = places_.config;
  roots.documents = places_.data + "/documents";
  roots.helpers = helperFolder();
  if (!writePathTableIfMissing(defaultPathTablePath(), roots)) {
    return {kExitEnvironment, "no_path_table", "the path table " + pathTableFile() + " can't be written",
            "See whether the disk is full, or the folder not yours."};
  }
  const int code = zavelPathLoadDictAndHelper(nullptr);
  const char* dictionary = zavelPathKenkyuDicFolderURL();
  if (!dictionary || !zavelPathCacheFolderURL()) {
    return {kExitDamaged, "damaged_path_table",
            "the path table " + pathTableFile() + " can't be used (code " + std::to_string(code) + ")",
            "Remove it: a new one is written at the next start."};
  }
  dictionary_ = dictionary;
  while (dictionary_.size() > 1 && dictionary_.back() == '/') dictionary_.pop_back();
  return {};
}

Failure Host::openDictionary() {
  module_ = std::make_unique<MirellModule>();
  bool loaded = false;
  {
    const SilentOutput silent;
    loaded = module_->load(kResultFile);
  }
  if (!loaded) {
    return {kExitEnvironment, "no_cache",
            "the result file in " + std::string(zavelPathCacheFolderURL()) + " can't be made",
            "See whether the disk is full, or the folder not yours."};
  }
  if (!module_->objectODM()->initialized) {
    return {kExitDamaged, "damaged_dictionary", "the dictionary in " + dictionary_ + " is damaged",
            "Run: zavel dict verify, then zavel dict build"};
  }
  return {};
}

}  // namespace zavel::host
