// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "DictCommand.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "ChildProgram.h"
#include "CompilerRun.h"
#include "Failure.h"
#include "Host.h"
#include "JsonWriter.h"
#include "LockFile.h"
#include "PlacesInUse.h"
#include "TranslationData.h"

namespace zavel::host {
namespace {

constexpr Compiler kMkdict = {"mkdict", "the dictionary compiler", "ZAVEL_MKDICT"};

std::string parentOf(const std::string& folder) {
  return folder.substr(0, folder.rfind('/'));
}

// Runs mkdict and waits for it; what it says it says itself, unless it is `taken`. `keptOpen` as in
// runProgram().
int passOn(const std::string& program, const std::vector<std::string>& arguments, bool json, int keptOpen,
           Taken taken = {}) {
  const ProgramEnd end = runProgram(program, arguments, keptOpen, taken);
  return statusOf(end, kMkdict, json);
}

// Takes the lines about a failure off what mkdict has told and gives them.
std::string cutComplaint(std::string* told) {
  const std::string name = "mkdict: ";
  const size_t at = told->starts_with(name) ? 0 : told->find("\n" + name) + 1;  // 0 for none, too
  if (at == 0 && !told->starts_with(name)) return {};
  const std::string complaint = told->substr(at);
  told->resize(at);
  return complaint;
}

// The same failure with the hint that is right here: who calls this program need not know of mkdict.
Failure damageOf(const std::string& complaint) {
  const size_t begin = complaint.find(": ") + 2;
  return {kExitDamaged, "damaged_dictionary", complaint.substr(begin, complaint.find('\n') - begin),
          "Run: zavel dict build"};
}

// Compiles the basic dictionary; what mkdict writes as JSON goes to `document` when it succeeds.
int buildBasic(const std::string& program, const std::string& folder, const DictBuildOptions& options,
               int keptOpen, std::string* document) {
  std::vector<std::string> arguments{"--progress", options.progress};
  if (options.quiet) arguments.push_back("--quiet");
  if (options.json) arguments.push_back("--json");
  arguments.push_back(folder);
  const int status = passOn(program, arguments, options.json, keptOpen, {options.json ? document : nullptr});
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
    if (figures.leftOut > 0) text += column(figures.leftOut) + "  lines left out, not in EDICT form\n";
  }
  return text + "Written to " + folder + "\n";
}

// `document` with the members of `object` behind its own.
std::string joinedWith(const std::string& document, const JsonWriter& object) {
  const size_t end = document.rfind('}');
  if (end == std::string::npos) return object.text() + "\n";
  return document.substr(0, end) + "," + object.text().substr(1) + "\n";
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
  return joinedWith(document, json);
}

// The document of mkdict with the dictionaries of the translation dictionary behind.
std::string withStates(std::string document, const std::vector<TranslationState>& states) {
  JsonWriter json;
  json.beginObject().key("translation").beginArray();
  bool damaged = false;
  for (const TranslationState& state : states) {
    json.beginObject().member("name", state.name);
    if (!state.failure) {
      json.member("status", "good").member("words", state.words).endObject();
      continue;
    }
    damaged = damaged || state.failure.status == kExitDamaged;
    json.member("status", state.failure.status == kExitDamaged ? "damaged" : "unknown");
    json.member("message", state.failure.message).endObject();
  }
  json.endArray().endObject();
  const std::string good = "\"status\":\"good\"";
  const size_t at = document.find(good);
  if (damaged && at != std::string::npos) document.replace(at, good.size(), "\"status\":\"damaged\"");
  return joinedWith(document, json);
}

// Tells each and gives the exit status; with `json` what is sound stands in the document alone.
int tellStates(const std::vector<TranslationState>& states, bool json) {
  int status = kExitFound;
  for (const TranslationState& state : states) {
    if (state.failure) {
      status = std::max<int>(status, report(state.failure, false));
    } else if (!json) {
      std::printf("%s  words of %s\n%s is sound.\n", column(state.words).c_str(), state.what,
                  state.base.c_str());
    }
  }
  return status;
}

}  // namespace

int runDictBuild(const DictBuildOptions& options) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), options.json);
  if (const Failure failure = wrongSources()) return report(failure, options.json);
  const EndSignals signals;
  const bool basic = !options.ifMissing || !dictionaryIn(places.dictionary).complete();
  const std::string folder = translationFolder(places.data);
  if (!basic && translationDataComplete(folder)) return kExitFound;
  const std::string program = basic ? findCompiler(kMkdict) : std::string();
  if (basic && program.empty()) return report(noCompiler(kMkdict), options.json);
  const std::string parent = parentOf(places.dictionary);
  if (!makeFolders(parent)) return report(noFolder(parent), options.json);
  const LockFile lock(parent + "/.lock");
  if (!lock.held()) return report(notLocked(lock, parent), options.json);
  std::string document;
  if (basic) {
    const int status = buildBasic(program, places.dictionary, options, lock.descriptor(), &document);
    if (status != kExitFound) return status;
  }
  const TranslationBuild build =
      buildTranslationData(folder, options.ifMissing, options.progress, lock.descriptor());
  if (!options.json && !options.quiet) std::fputs(translationText(folder, build).c_str(), stdout);
  if (build.signal != 0) return interruptedBy(build.signal, options.json);
  if (build.failure) return report(build.failure, options.json);
  if (options.json && (basic || !build.made.empty())) {
    std::fputs(withTranslation(document, places.dictionary, build).c_str(), stdout);
  }
  return kExitFound;
}

int runDictVerify(bool json) {
  const Places places = placesInUse();
  if (places.data.empty()) return report(noHome(), json);
  const DictionaryState state = dictionaryIn(places.dictionary);
  if (state.none()) return report(dictionaryFailure(places.dictionary, state), json);
  const std::string program = findCompiler(kMkdict);
  if (program.empty()) return report(noCompiler(kMkdict), json);
  const EndSignals signals;
  std::vector<std::string> arguments{"--verify", places.dictionary, "--progress", "none"};
  if (json) arguments.push_back("--json");
  std::string told;
  const int status = passOn(program, arguments, json, -1, {&told, true});
  const std::string complaint = cutComplaint(&told);
  if (status != kExitFound && status != kExitDamaged) {
    std::fputs(told.c_str(), stdout);
    std::fflush(stdout);
    std::fputs(complaint.c_str(), stderr);
    return status;
  }
  if (!json) std::fputs(told.c_str(), stdout);
  if (status == kExitDamaged) report(damageOf(complaint), false);
  const std::vector<TranslationState> states = checkTranslationData(translationFolder(places.data));
  if (EndSignals::came() != 0) return interruptedBy(EndSignals::came(), json);
  if (json) std::fputs(withStates(told, states).c_str(), stdout);
  return std::max(status, tellStates(states, json));
}

}  // namespace zavel::host
