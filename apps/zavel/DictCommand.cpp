// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "DictCommand.h"

#include <signal.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "Failure.h"
#include "Host.h"
#include "JsonWriter.h"
#include "LockFile.h"
#include "MkdictProgram.h"
#include "PlacesInUse.h"
#include "TranslationData.h"

namespace zavel::host {
namespace {

Failure noMkdict() {
  return {kExitEnvironment, "no_mkdict", "the dictionary compiler mkdict is missing",
          "Install it beside zavel, or set ZAVEL_MKDICT to its path."};
}

Failure notLocked(const LockFile& lock, const std::string& parent) {
  if (lock.holder().empty()) {
    return {kExitEnvironment, "locked", "the lock file " + parent + "/.lock can't be made",
            "See whether the disk is full, or the folder not yours."};
  }
  return {kExitEnvironment, "locked", "another build is running: " + lock.holder(),
          "Wait for it to end, then try again."};
}

std::string parentOf(const std::string& folder) {
  return folder.substr(0, folder.rfind('/'));
}

// Runs mkdict and waits for it; what it says it says itself, unless `output` takes it. `keptOpen` as in
// runMkdict().
int passOn(const std::string& program, const std::vector<std::string>& arguments, bool json, int keptOpen,
           std::string* output = nullptr) {
  const MkdictEnd end = runMkdict(program, arguments, keptOpen, output);
  if (!end.started) return report(noMkdict(), json);
  if (end.signal == 0) return end.status;
  if (end.signal == SIGINT || end.signal == SIGTERM || end.signal == SIGHUP) return 128 + end.signal;
  return report({kExitEnvironment, "mkdict_killed",
                 "the dictionary compiler was ended by signal " + std::to_string(end.signal),
                 "See whether there is memory enough, then try again."},
                json);
}

// Compiles the basic dictionary; what mkdict writes as JSON goes to `document` when it succeeds.
int buildBasic(const std::string& program, const std::string& folder, const DictBuildOptions& options,
               int keptOpen, std::string* document) {
  std::vector<std::string> arguments{"--progress", options.progress};
  if (options.quiet) arguments.push_back("--quiet");
  if (options.json) arguments.push_back("--json");
  arguments.push_back(folder);
  const int status = passOn(program, arguments, options.json, keptOpen, options.json ? document : nullptr);
  if (status != kExitFound) std::fputs(document->c_str(), stdout);
  return status;
}

// "741,379" right in eleven columns, as in the summary of mkdict.
std::string column(int64_t number) {
  std::string digits = std::to_string(number);
  for (size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return std::string(digits.size() < 11 ? 11 - digits.size() : 0, ' ') + digits;
}

std::string translationText(const std::string& folder, const TranslationBuild& build) {
  if (build.made.empty()) return {};
  std::string text = "For the translation dictionary:\n";
  for (const TranslationFigures& figures : build.made) {
    text += column(figures.entries) + "  " + figures.what + ", " + figures.name + "\n";
    if (figures.leftOut > 0) text += column(figures.leftOut) + "  lines of another form left out\n";
  }
  return text + "Written to " + folder + "\n";
}

// The document of mkdict, or one in its place, with what was made for the translation dictionary behind.
std::string withTranslation(const std::string& document, const std::string& folder,
                            const TranslationBuild& build) {
  JsonWriter json;
  json.beginObject();
  if (document.empty()) json.member("schema", 1).member("status", "built").member("folder", folder);
  json.key("translation").beginArray();
  for (const TranslationFigures& figures : build.made) {
    json.beginObject().member("name", figures.name).member("entries", figures.entries);
    json.member("words", figures.words).member("left_out", figures.leftOut).endObject();
  }
  json.endArray().endObject();
  const size_t end = document.rfind('}');
  if (end == std::string::npos) return json.text() + "\n";
  return document.substr(0, end) + "," + json.text().substr(1) + "\n";
}

std::string stateText(const std::string& folder, const DictionaryState& state) {
  std::string text = folder + "\n";
  uintmax_t total = 0;
  char line[64];
  for (const char* name : kDictionaryFiles) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(folder + "/" + name, error);
    if (!error) total += size;
    std::snprintf(line, sizeof line, "%-10s %12ju%s\n", name, error ? 0 : size, error ? "  missing" : "");
    text += line;
  }
  std::snprintf(line, sizeof line, "%-10s %12ju%s\n", "together", total,
                state.complete() ? "" : "  incomplete");
  return text + line;
}

std::string stateJson(const std::string& folder, const DictionaryState& state) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("folder", folder).key("complete").boolean(state.complete());
  json.key("files").beginArray();
  int64_t total = 0;
  for (const char* name : kDictionaryFiles) {
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(folder + "/" + name, error);
    json.beginObject().member("name", name).key("bytes");
    if (error) {
      json.null();
    } else {
      json.integer(static_cast<int64_t>(size));
      total += static_cast<int64_t>(size);
    }
    json.endObject();
  }
  json.endArray().member("bytes", total).endObject();
  return json.text() + "\n";
}

}  // namespace

int runDictBuild(const DictBuildOptions& options) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), options.json);
  const bool basic = !options.ifMissing || !dictionaryIn(places.dictionary).complete();
  const std::string program = basic ? findMkdict() : std::string();
  if (basic && program.empty()) return report(noMkdict(), options.json);
  const std::string parent = parentOf(places.dictionary);
  if (!makeFolders(parent)) {
    return report({kExitEnvironment, "no_folder", "the folder " + parent + " can't be made",
                   "See whether the disk is full, or the folder above it not yours."},
                  options.json);
  }
  const LockFile lock(parent + "/.lock");
  if (!lock.held()) return report(notLocked(lock, parent), options.json);
  std::string document;
  if (basic) {
    const int status = buildBasic(program, places.dictionary, options, lock.descriptor(), &document);
    if (status != kExitFound) return status;
  }
  const std::string folder = translationFolder(places.data);
  const TranslationBuild build =
      buildTranslationData(folder, options.ifMissing, options.progress, lock.descriptor());
  if (options.json) {
    if (basic || !build.made.empty()) document = withTranslation(document, places.dictionary, build);
    std::fputs(document.c_str(), stdout);
  } else if (!options.quiet) {
    std::fputs(translationText(folder, build).c_str(), stdout);
  }
  return build.status;
}

int runDictVerify(bool json) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), json);
  const DictionaryState state = dictionaryIn(places.dictionary);
  if (state.none()) return report(dictionaryFailure(places.dictionary, state), json);
  const std::string program = findMkdict();
  if (program.empty()) return report(noMkdict(), json);
  std::vector<std::string> arguments{"--verify", places.dictionary};
  if (json) arguments.push_back("--json");
  return passOn(program, arguments, json, -1);
}

int runDictInfo(bool json) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), json);
  const DictionaryState state = dictionaryIn(places.dictionary);
  const Failure failure = dictionaryFailure(places.dictionary, state);
  if (state.none()) return report(failure, json);
  const std::string told = json ? stateJson(places.dictionary, state) : stateText(places.dictionary, state);
  std::fputs(told.c_str(), stdout);
  return failure ? report(failure, false) : kExitFound;
}

}  // namespace zavel::host
