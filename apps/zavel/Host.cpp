// Tests: tests/zavel/zavel-test.sh
#include "Host.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

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

std::string missingDictionaryFile(const std::string& folder, bool* none) {
  std::string missing;
  size_t lacking = 0;
  for (const char* name : kDictionaryFiles) {
    if (access((folder + "/" + name).c_str(), R_OK) == 0) continue;
    ++lacking;
    if (missing.empty()) missing = name;
  }
  *none = lacking == kDictionaryFiles.size();
  return missing;
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
  if (places_.data.empty()) {
    return {kExitEnvironment, "no_home", "no folder to work in: neither ZAVEL_ROOT nor HOME is set",
            "Set ZAVEL_ROOT to a folder of yours."};
  }
  // Without a dictionary nothing is written: asking for a word must leave no traces.
  bool none = false;
  const std::string missing = missingDictionaryFile(places_.dictionary, &none);
  if (none) {
    return {kExitEnvironment, "no_dictionary", "there is no dictionary yet", "Run: zavel dict build"};
  }
  if (!missing.empty()) {
    return {kExitEnvironment, "damaged_dictionary",
            "the dictionary in " + places_.dictionary + " lacks the file " + missing,
            "Run: zavel dict build"};
  }
  if (Failure failure = loadPathTable()) return failure;
  return openDictionary();
}

Failure Host::loadPathTable() {
  PathTableRoots roots;
  roots.data = places_.data;
  roots.cache = places_.cache;
  roots.preferences = places_.config;
  roots.documents = places_.data + "/documents";
  roots.helpers = helperFolder();
  const std::string path = defaultPathTablePath();
  if (!writePathTableIfMissing(path, roots)) {
    return {kExitEnvironment, "no_path_table", "the path table " + path + ".plist can't be written",
            "Is the disk full, or the folder not yours?"};
  }
  const int code = zavelPathLoadDictAndHelper(nullptr);
  if (!zavelPathKenkyuDicFolderURL() || !zavelPathCacheFolderURL()) {
    return {kExitEnvironment, "no_path_table",
            "the path table " + path + ".plist can't be used (code " + std::to_string(code) + ")",
            "Remove it: a new one is written at the next start."};
  }
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
            "Is the disk full, or the folder not yours?"};
  }
  if (!module_->objectODM()->initialized) {
    return {kExitDamaged, "damaged_dictionary", "the dictionary in " + places_.dictionary + " is damaged",
            "Run: zavel dict verify, then zavel dict build"};
  }
  return {};
}

}  // namespace zavel::host
