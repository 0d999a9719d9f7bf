// Tests: tests/zavel/TranslationDataTest.cpp
#include "TranslationData.h"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "JsonWriter.h"
#include "ChildProgram.h"
#include "Places.h"
#include "Terminal.h"
#include "Utf8.h"

namespace zavel::host {
namespace {

struct Source {
  const char* name;
  const char* what;
  const char* package;
};

constexpr Source kSources[] = {{"enamdict", "proper nouns", "enamdict"},
                               {"compdic", "technical terms", "edict"}};
constexpr const char* kSourceFolder = "/usr/share/edict";
constexpr std::string_view kTemporary = ".new-";
constexpr const char* kAgain = "then run: zavel dict build --if-missing";

std::string sourceFolder() {
  const char* given = std::getenv("ZAVEL_EDICT");
  return given && *given ? given : kSourceFolder;
}

bool isThere(const std::string& path) {
  return access(path.c_str(), F_OK) == 0;
}

bool isInstalled(const Source& source) {
  return isThere(sourceFolder() + "/" + source.name);
}

std::string converter() {
  return helpersFolder() + "/zavel-dicttool";
}

bool hasConverter() {
  return access(converter().c_str(), X_OK) == 0;
}

// Tells what is being done, and takes it back.
class Stage {
 public:
  Stage(const Source& source, const std::string& progress) {
    const bool bar = progress == "bar" || (progress == "auto" && isTerminal(STDERR_FILENO));
    if (progress == "json") {
      JsonWriter json;
      json.beginObject().member("event", "progress").member("stage", source.name);
      json.member("done", 0).member("total", 1).endObject();
      std::fprintf(stderr, "%s\n", json.text().c_str());
    } else if (progress == "plain" || bar) {
      std::fprintf(stderr, "Converting %s, %s ...%s", source.name, source.what, bar ? "" : "\n");
    }
    if (bar) after_ = "\r\x1b[K";
    std::fflush(stderr);
  }
  ~Stage() {
    std::fputs(after_, stderr);
    std::fflush(stderr);
  }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

 private:
  const char* after_ = "";
};

// "PATH: 15107 entries under 73454 words, 3 lines left out"
TranslationFigures figuresOf(const Source& source, const std::string& told) {
  TranslationFigures figures{source.name, source.what};
  const size_t colon = told.rfind(": ");
  long long entries = 0, words = 0, leftOut = 0;
  if (colon != std::string::npos) {
    std::sscanf(told.c_str() + colon, ": %lld entries under %lld words, %lld", &entries, &words, &leftOut);
  }
  figures.entries = entries;
  figures.words = words;
  figures.leftOut = leftOut;
  return figures;
}

// The last line that the program wrote, without its name.
std::string lastLine(std::string told) {
  while (!told.empty() && told.back() == '\n') told.pop_back();
  told = told.substr(told.rfind('\n') + 1);
  const std::string_view name = "zavel-dicttool: ";
  return told.starts_with(name) ? told.substr(name.size()) : told;
}

int interruptionOf(const ProgramEnd& end) {
  if (end.signal == SIGINT || end.signal == SIGTERM || end.signal == SIGHUP) return end.signal;
  const int came = EndSignals::came();
  return end.status != kExitFound || end.signal != 0 ? came : 0;
}

// Whether a file stands where a folder should, or a folder where a file should.
bool tellsObstacle(const std::string& reason) {
  return reason.ends_with(std::strerror(EISDIR)) || reason.ends_with(std::strerror(ENOTDIR)) ||
         reason.ends_with(std::strerror(EEXIST));
}

Failure failureOf(const Source& source, const ProgramEnd& end, const std::string& told) {
  const std::string without = "the translation dictionary gets no " + std::string(source.what) + ": ";
  if (!end.started) {
    return {kExitEnvironment, "no_converter", without + "the program " + converter() + " can't be started",
            std::string("Check that you may run it, ") + kAgain};
  }
  if (end.signal != 0) {
    return {kExitEnvironment, "converter_killed",
            without + "the program " + converter() + " was ended by signal " + std::to_string(end.signal),
            std::string("Check that there is enough memory, ") + kAgain};
  }
  const std::string reason = lastLine(told);
  if (end.status == kExitDamaged) {
    return {kExitDamaged, "damaged_source", without + reason,
            std::string("Install the Debian package ") + source.package + " again, " + kAgain};
  }
  if (tellsObstacle(reason)) {
    return {kExitEnvironment, "not_written", without + reason,
            std::string("Remove what stands in the place of the folder or the file, ") + kAgain};
  }
  if (reason.find("can't be written") != std::string::npos) {
    return {kExitEnvironment, "not_written", without + reason,
            std::string("Make room on the disk, or make the folder writable, ") + kAgain};
  }
  if (reason.find("can't be read") != std::string::npos) {
    return {kExitEnvironment, "unreadable_source", without + reason,
            std::string("Make the file readable, ") + kAgain};
  }
  const std::string status =
      "the program " + converter() + " ended with status " + std::to_string(end.status);
  return {kExitEnvironment, "converter_failed", without + status + (reason.empty() ? "" : ": " + reason),
          std::string("Install zavel again, ") + kAgain};
}

// Whether a temporary file of this name, ".new-PROCESS.…", is one that nobody writes any more.
bool isAbandoned(const std::string& name) {
  if (!name.starts_with(kTemporary)) return false;
  const std::string number =
      name.substr(kTemporary.size(), name.find('.', kTemporary.size()) - kTemporary.size());
  if (number.empty() || number.size() > 9 || number.find_first_not_of("0123456789") != std::string::npos)
    return false;
  return kill(std::atoi(number.c_str()), 0) != 0 && errno == ESRCH;
}

void removeAbandoned(const std::string& folder) {
  std::vector<std::string> found;
  std::error_code error;
  for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    if (isAbandoned(at->path().filename().string())) found.push_back(at->path().string());
  }
  for (const std::string& path : found) unlink(path.c_str());
}

bool begun(const std::string& base) {
  return isThere(base + ".index") || isThere(base + ".dict");
}

TranslationState stateOf(const Source& source, const std::string& folder) {
  TranslationState state{source.name, source.what, folder + "/" + source.name, 0, {}};
  const std::string unchecked = state.base + " was not checked: ";
  if (!hasConverter()) {
    state.failure = {kExitEnvironment, "no_converter",
                     unchecked + "the program " + converter() + " is missing",
                     "Install zavel again, or set ZAVEL_LIBEXEC to that program's folder."};
    return state;
  }
  std::string told;
  const ProgramEnd end = runProgram(converter(), {"--verify", state.base}, -1, {&told, true});
  const size_t colon = told.rfind(": ");
  long long words = 0;
  if (end.started && end.signal == 0 && end.status == kExitFound && colon != std::string::npos &&
      std::sscanf(told.c_str() + colon, ": %lld words", &words) == 1) {
    state.words = words;
  } else if (end.status == kExitDamaged) {
    state.failure = {kExitDamaged, "damaged_dictionary", lastLine(told), "Run: zavel dict build"};
  } else {
    state.failure = {kExitEnvironment, "not_checked", unchecked + lastLine(told),
                     "Check that you may read it."};
  }
  return state;
}

bool isSound(const Source& source, const std::string& folder) {
  const std::string base = folder + "/" + source.name;
  if (!isThere(base + ".index") || !isThere(base + ".dict")) return false;
  return !hasConverter() || !stateOf(source, folder).failure;
}

}  // namespace

std::string translationFolder(const std::string& data) {
  return inFolder(data, "dictionaries/translation");
}

Failure wrongSources() {
  std::error_code error;
  const std::string folder = sourceFolder();
  if (folder == kSourceFolder || std::filesystem::is_directory(folder, error)) return {};
  return {kExitEnvironment, "no_sources", "ZAVEL_EDICT names no folder: " + printable(folder),
          "Set it to the folder of enamdict and compdic, or leave it unset for /usr/share/edict."};
}

bool translationDataComplete(const std::string& folder) {
  for (const Source& source : kSources) {
    if (isInstalled(source) && !isSound(source, folder)) return false;
  }
  return true;
}

TranslationBuild buildTranslationData(const std::string& folder, bool ifMissing, const std::string& progress,
                                      int keptOpen) {
  TranslationBuild build;
  removeAbandoned(folder);
  for (const Source& source : kSources) {
    if (!isInstalled(source) || (ifMissing && isSound(source, folder))) continue;
    if (!hasConverter()) {
      warn("the translation dictionary gets no " + std::string(source.what) + ": the program " + converter() +
           " is missing");
      return build;
    }
    const std::string from = sourceFolder() + "/" + source.name, to = folder + "/" + source.name;
    const Stage stage(source, progress);
    std::string told;
    const ProgramEnd end = runProgram(converter(), {"--convert", from, to}, keptOpen, {&told, true});
    build.signal = interruptionOf(end);
    if (build.signal == 0 && (!end.started || end.signal != 0 || end.status != kExitFound)) {
      build.failure = failureOf(source, end, told);
    }
    if (end.signal != 0) removeAbandoned(folder);
    if (build.signal != 0 || build.failure) return build;
    build.made.push_back(figuresOf(source, told));
  }
  return build;
}

std::vector<TranslationState> checkTranslationData(const std::string& folder) {
  std::vector<TranslationState> states;
  for (const Source& source : kSources) {
    if (begun(folder + "/" + source.name)) states.push_back(stateOf(source, folder));
  }
  return states;
}

std::vector<std::string> translationFiles(const std::string& folder) {
  std::vector<std::string> names;
  for (const Source& source : kSources) {
    if (!begun(folder + "/" + source.name)) continue;
    names.push_back(source.name + std::string(".index"));
    names.push_back(source.name + std::string(".dict"));
  }
  return names;
}

}  // namespace zavel::host
