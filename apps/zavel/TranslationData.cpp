// Tests: tests/zavel/TranslationDataTest.cpp
#include "TranslationData.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "Failure.h"
#include "JsonWriter.h"
#include "MkdictProgram.h"
#include "Places.h"
#include "Terminal.h"

namespace zavel::host {
namespace {

struct Source {
  const char* name;
  const char* what;
};

constexpr Source kSources[] = {{"enamdict", "proper nouns"}, {"compdic", "technical terms"}};
constexpr const char* kSourceFolder = "/usr/share/edict";

std::string sourceFolder() {
  const char* given = std::getenv("ZAVEL_EDICT");
  return given && *given == '/' ? given : kSourceFolder;
}

bool isThere(const std::string& path) {
  return access(path.c_str(), R_OK) == 0;
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

}  // namespace

std::string translationFolder(const std::string& data) {
  return data + "/dictionaries/translation";
}

TranslationBuild buildTranslationData(const std::string& folder, bool ifMissing, const std::string& progress,
                                      int keptOpen) {
  TranslationBuild build;
  const std::string program = helpersFolder() + "/zavel-dicttool";
  for (const Source& source : kSources) {
    const std::string from = sourceFolder() + "/" + source.name, to = folder + "/" + source.name;
    if (!isThere(from) || (ifMissing && isThere(to + ".index") && isThere(to + ".dict"))) continue;
    if (access(program.c_str(), X_OK) != 0) {
      warn("the translation dictionary gets no " + std::string(source.what) + ": the program " + program +
           " is missing");
      return build;
    }
    const Stage stage(source, progress);
    std::string told;
    const MkdictEnd end = runMkdict(program, {"--convert", from, to}, keptOpen, &told);
    build.status = !end.started ? kExitEnvironment : end.signal != 0 ? 128 + end.signal : end.status;
    if (build.status != 0) return build;
    build.made.push_back(figuresOf(source, told));
  }
  return build;
}

}  // namespace zavel::host
