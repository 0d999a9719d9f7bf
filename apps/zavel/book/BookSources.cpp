// Tests: tests/zavel/book/BookBuildTest.cpp
#include "book/BookSources.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "Nearest.h"
#include "Utf8.h"
#include "book/BookPlaces.h"

namespace zavel::host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kIndexEnding = ".index";
constexpr const char* kWordNetIndex = "wn.index";

std::string folderOf(const char* variable, const char* usual) {
  const char* const given = std::getenv(variable);
  return given && *given ? given : usual;
}

std::string dictdFolder() {
  return folderOf("ZAVEL_DICTD", "/usr/share/dictd");
}

std::string edictFolder() {
  return folderOf("ZAVEL_EDICT", "/usr/share/edict");
}

bool isFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

BookSource sourceAt(const std::string& name, const char* form, const std::string& path,
                    const std::string& package) {
  return {name, form, path, package, isFile(path)};
}

std::vector<BookSource> otherDictionaries() {
  std::vector<BookSource> out;
  std::error_code error;
  for (fs::directory_iterator at(dictdFolder(), error), end; !error && at != end; at.increment(error)) {
    const fs::path path = at->path();
    const std::string name = path.stem().string();
    if (path.extension() != kIndexEnding || path.filename() == kWordNetIndex || !isBookName(name)) continue;
    out.push_back(sourceAt(name, "dictd", path.string(), "dict-" + name));
  }
  std::sort(out.begin(), out.end(), [](const BookSource& a, const BookSource& b) { return a.name < b.name; });
  return out;
}

}  // namespace

std::vector<BookSource> bookSources() {
  std::vector<BookSource> out = {sourceAt("wordnet", "dictd", dictdFolder() + "/" + kWordNetIndex, "dict-wn"),
                                 sourceAt("edict", "edict", edictFolder() + "/edict", "edict"),
                                 sourceAt("kanjidic", "kanjidic", edictFolder() + "/kanjidic", "kanjidic")};
  for (BookSource& other : otherDictionaries()) out.push_back(std::move(other));
  return out;
}

std::vector<BookSource> usualSources() {
  std::vector<BookSource> out;
  for (BookSource& source : bookSources())
    if (source.installed && (source.name == "wordnet" || source.name == "kanjidic")) out.push_back(source);
  return out;
}

Failure findSource(const std::string& name, BookSource* source) {
  const std::vector<BookSource> all = bookSources();
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const BookSource& one) { return one.name == name; });
  if (found == all.end()) {
    std::vector<std::string> names;
    for (const BookSource& one : all) names.push_back(one.name);
    const std::string near = nearest(name, names);
    return {kExitEnvironment, "no_source", "no source of a book is called \"" + printable(name) + "\"",
            near.empty()
                ? "See which there are: zavel book build --list. Or name its form and file: --form dictd "
                  "--source FILE"
                : "Did you mean: " + printable(near)};
  }
  *source = *found;
  if (source->installed) return {};
  return {kExitEnvironment, "no_source", "the source " + source->path + " is missing",
          "Install the Debian package " + source->package + "."};
}

Failure noSources() {
  return {
      kExitEnvironment, "no_source", "neither WordNet nor KANJIDIC is installed",
      "Install the Debian packages dict-wn and kanjidic, or name another source: zavel book build --list"};
}

}  // namespace zavel::host
