// `zavel book build`. Tests: tests/zavel/book/BookBuildTest.cpp
#include "book/BookBuild.h"

#include <algorithm>
#include <cstdio>

#include "CompilerRun.h"
#include "Host.h"
#include "JsonWriter.h"
#include "LockFile.h"
#include "Places.h"
#include "Utf8.h"
#include "book/BookOptions.h"
#include "book/BookSources.h"
#include "book/ShelvedBook.h"

namespace zavel::host {
namespace {

constexpr Compiler kMkbook = {"mkbook", "the compiler of books", "ZAVEL_MKBOOK"};

Failure usage(const std::string& message) {
  return {kExitUsage, "usage", message, "Run: zavel book build --help"};
}

// What the options name.
Failure chooseSources(const BookBuildOptions& options, std::vector<BookSource>* sources) {
  if (!options.source.empty() || !options.form.empty()) {
    if (options.source.empty() || options.form.empty()) return usage("--form and --source belong together");
    if (options.names.size() != 1 || options.all) return usage("--source needs one name, the new book's");
    sources->push_back({options.names[0], options.form, options.source, "", true});
    return {};
  }
  for (const std::string& name : options.names) {
    BookSource source;
    if (const Failure failure = findSource(name, &source)) return failure;
    const bool known = std::any_of(sources->begin(), sources->end(),
                                   [&](const BookSource& other) { return other.name == source.name; });
    if (!known) sources->push_back(std::move(source));
  }
  if (!options.names.empty()) return {};
  *sources = options.all ? bookSources() : usualSources();
  std::erase_if(*sources, [](const BookSource& source) { return !source.installed; });
  return sources->empty() ? noSources() : Failure();
}

Failure wrongOptions(const BookBuildOptions& options, const std::vector<BookSource>& sources) {
  for (const BookSource& source : sources) {
    if (!isBookName(source.name))
      return usage("\"" + printable(source.name) + "\" can't be the name of a book's folder");
  }
  if (!options.title.empty() && sources.size() != 1) return usage("--title is for one book");
  return {};
}

// Among the books of this user and of the machine, not at a path of that name.
bool isSound(const std::string& name) {
  for (const BookPlace& place : listBooks()) {
    ShelvedBook book;
    if (place.name == name) return !book.open(place);
  }
  return false;
}

void tellKept(const std::string& name, const std::string& folder) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", "kept").member("name", name);
  json.member("folder", folder).endObject();
  std::printf("%s\n", json.text().c_str());
}

std::vector<std::string> argumentsFor(const BookSource& source, const std::string& folder,
                                      const BookOptions& options) {
  const BookBuildOptions& build = options.build;
  std::vector<std::string> out{"--progress", build.progress};
  if (build.quiet) out.push_back("--quiet");
  if (options.json) out.push_back("--json");
  if (build.verify) out.push_back("--verify");
  if (!build.title.empty()) out.insert(out.end(), {"--title", build.title});
  out.insert(out.end(), {"--", source.form, source.path, folder});
  return out;
}

class BookBuild {
 public:
  explicit BookBuild(const BookOptions& options) : options_(options) {}

  int run() {
    if (const Failure failure = chooseSources(options_.build, &sources_))
      return report(failure, options_.json);
    if (const Failure failure = wrongOptions(options_.build, sources_)) return report(failure, options_.json);
    const std::string folder = booksFolder();
    if (folder.empty()) return report(noHome(), options_.json);
    program_ = findCompiler(kMkbook);
    if (program_.empty()) return report(noCompiler(kMkbook), options_.json);
    if (!makeFolders(folder)) return report(noFolder(folder), options_.json);
    const EndSignals signals;
    const LockFile lock(folder + "/.lock");
    if (!lock.held()) return report(notLocked(lock, folder), options_.json);
    for (const BookSource& source : sources_) {
      buildOne(source, inFolder(folder, source.name), lock.descriptor());
      if (EndSignals::came() != 0) return worst_;
    }
    const bool some = failed_ > 0 && failed_ < sources_.size();
    return some && worst_ != kExitDamaged ? static_cast<int>(kExitPartly) : worst_;
  }

 private:
  void buildOne(const BookSource& source, const std::string& folder, int keptOpen) {
    if (options_.build.ifMissing && isSound(source.name)) {
      if (options_.json) tellKept(source.name, folder);
      return;
    }
    if (sources_.size() > 1 && !options_.json && !options_.build.quiet)
      std::printf("%s\n", printable(source.name).c_str());
    std::fflush(stdout);
    const ProgramEnd end = runProgram(program_, argumentsFor(source, folder, options_), keptOpen);
    const int status = statusOf(end, kMkbook, options_.json);
    if (status != kExitFound) ++failed_;
    worst_ = std::max(worst_, status);
  }

  const BookOptions& options_;
  std::vector<BookSource> sources_;
  std::string program_;
  size_t failed_ = 0;
  int worst_ = kExitFound;
};

int tellSources(const BookOptions& options) {
  const std::vector<BookSource> sources = bookSources();
  JsonWriter json;
  json.beginObject().member("schema", 1).key("sources").beginArray();
  size_t width = 0;
  for (const BookSource& source : sources) width = std::max(width, columns(printable(source.name)));
  for (const BookSource& source : sources) {
    json.beginObject().member("name", source.name).member("form", source.form).member("path", source.path);
    json.member("package", source.package).key("installed").boolean(source.installed).endObject();
    const std::string name = printable(source.name);
    if (options.json) continue;
    std::printf("%s%*s  %s\n", name.c_str(), static_cast<int>(width - columns(name)), "",
                source.installed ? printable(source.path).c_str()
                                 : ("not installed: package " + source.package).c_str());
  }
  json.endArray().endObject();
  if (options.json) std::printf("%s\n", json.text().c_str());
  return kExitFound;
}

}  // namespace

int runBookBuild(const BookOptions& options) {
  return options.build.list ? tellSources(options) : BookBuild(options).run();
}

}  // namespace zavel::host
