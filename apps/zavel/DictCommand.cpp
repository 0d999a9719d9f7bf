// Tests: tests/zavel/zavel-test.sh
#include "DictCommand.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "Failure.h"
#include "Host.h"
#include "JsonWriter.h"
#include "LockFile.h"
#include "MkdictProgram.h"
#include "Places.h"

namespace zavel::host {
namespace {

Failure noHome() {
  return {kExitEnvironment, "no_home", "no folder to work in: neither ZAVEL_ROOT nor HOME is set",
          "Set ZAVEL_ROOT to a folder of yours."};
}

Failure noMkdict() {
  return {kExitEnvironment, "no_mkdict", "the dictionary compiler mkdict is missing",
          "Install it beside zavel, or set ZAVEL_MKDICT to its path."};
}

Failure noDictionary(const std::string& folder) {
  return {kExitEnvironment, "no_dictionary", "there is no dictionary in " + folder, "Run: zavel dict build"};
}

bool hasDictionary(const Places& places) {
  bool none = false;
  return missingDictionaryFile(places.dictionary, &none).empty();
}

Failure checkPlaces(const Places& places) {
  return places.data.empty() ? noHome() : Failure();
}

}  // namespace

int runDictBuild(const DictBuildOptions& options) {
  const Places places = findPlaces();
  if (const Failure failure = checkPlaces(places)) return report(failure);
  if (options.ifMissing && hasDictionary(places)) return kExitFound;
  const std::string program = findMkdict();
  if (program.empty()) return report(noMkdict());
  const std::string parent = places.dictionary.substr(0, places.dictionary.rfind('/'));
  if (!makeFolders(parent)) {
    return report({kExitEnvironment, "no_folder", "the folder " + parent + " can't be made",
                   "Is the disk full, or the folder above it not yours?"});
  }
  const LockFile lock(parent + "/.lock");
  if (!lock.held()) {
    return report({kExitEnvironment, "locked",
                   lock.holder().empty() ? "the lock file " + parent + "/.lock can't be made"
                                         : "another build is running: " + lock.holder(),
                   "Wait for it to end, then try again."});
  }
  std::vector<std::string> arguments{"--progress", options.progress};
  if (options.quiet) arguments.push_back("--quiet");
  if (options.json) arguments.push_back("--json");
  arguments.push_back(places.dictionary);
  const int status = runMkdict(program, arguments);
  if (status == 127) return report(noMkdict());
  return status;
}

int runDictVerify(bool json) {
  const Places places = findPlaces();
  if (const Failure failure = checkPlaces(places)) return report(failure);
  const std::string program = findMkdict();
  if (program.empty()) return report(noMkdict());
  bool none = false;
  missingDictionaryFile(places.dictionary, &none);
  if (none) return report(noDictionary(places.dictionary));
  std::vector<std::string> arguments{"--verify", places.dictionary};
  if (json) arguments.push_back("--json");
  return runMkdict(program, arguments);
}

int runDictInfo(bool json) {
  const Places places = findPlaces();
  if (const Failure failure = checkPlaces(places)) return report(failure);
  bool none = false;
  const std::string missing = missingDictionaryFile(places.dictionary, &none);
  if (none) {
    const Failure failure = noDictionary(places.dictionary);
    if (json) std::printf("%s\n", failureJson(failure).c_str());
    return report(failure);
  }
  JsonWriter writer;
  writer.beginObject().member("schema", 1).member("folder", places.dictionary);
  writer.member("complete", missing.empty() ? "yes" : "no").key("files").beginArray();
  std::string text = places.dictionary + "\n";
  uintmax_t total = 0;
  for (const char* name : kDictionaryFiles) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(places.dictionary + "/" + name, error);
    const uintmax_t known = error ? 0 : size;
    total += known;
    writer.beginObject().member("name", name).member("bytes", static_cast<int64_t>(known)).endObject();
    char line[64];
    std::snprintf(line, sizeof line, "%-10s %12ju%s\n", name, known, error ? "  missing" : "");
    text += line;
  }
  writer.endArray().member("bytes", static_cast<int64_t>(total)).endObject();
  char line[64];
  std::snprintf(line, sizeof line, "%-10s %12ju\n", "together", total);
  text += line;
  std::printf("%s", json ? (writer.text() + "\n").c_str() : text.c_str());
  return missing.empty() ? kExitFound : kExitDamaged;
}

}  // namespace zavel::host
