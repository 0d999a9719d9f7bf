// Tests: tests/zavel/book/BookPlacesTest.cpp
#include "book/BookPlaces.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "Host.h"
#include "Nearest.h"
#include "Places.h"
#include "Utf8.h"
#include "book/BookFormat.h"

namespace zavel::host {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUsualCatalog = "BOOK.CAT";
constexpr const char* kDataDirs = "/usr/local/share:/usr/share";

bool isFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool isFolder(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool beginsAsCatalog(const std::string& path) {
  std::string start(book::kMagic.size(), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  return file && start == book::kMagic;
}

bool isNamedAsCatalog(const std::string& path) {
  std::string ending = fs::path(path).extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == ".cat";
}

// Names in their order, hidden ones left out: among them is what is just being written.
std::vector<std::string> namesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    const std::string name = at->path().filename().string();
    if (isBookName(name)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string absolutePath(const std::string& path) {
  std::error_code error;
  std::string absolute = fs::absolute(path, error).lexically_normal().string();
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return error ? path : absolute;
}

std::string folderOf(const std::string& path) {
  return path.substr(0, std::max<size_t>(path.rfind('/'), 1));
}

// The book at a path; without a catalog when there is none.
BookPlace placeAt(const std::string& given) {
  const std::string path = absolutePath(given);
  if (isFolder(path)) return {given, path, catalogIn(path)};
  if (isFile(path)) return {given, folderOf(path), path};
  return {given, "", ""};
}

Failure noBooks() {
  return {kExitEnvironment, "no_book", "there is no book in " + booksFolder(), "Make one: zavel book build"};
}

Failure noSuchBook(const std::string& given, const std::vector<BookPlace>& books) {
  if (books.empty()) {
    return {kExitEnvironment, "no_such_book",
            "there is no book \"" + printable(given) + "\", and none in " + booksFolder(),
            "Make one: zavel book build"};
  }
  std::vector<std::string> names;
  for (const BookPlace& place : books) names.push_back(place.name);
  const std::string near = nearest(given, names);
  return {kExitEnvironment, "no_such_book", "there is no book \"" + printable(given) + "\"",
          near.empty() ? "See which there are: zavel book list. Make one: zavel book build"
                       : "Did you mean: " + printable(near)};
}

}  // namespace

std::string booksFolder() {
  const std::string data = findPlaces().data;
  return data.empty() ? data : inFolder(data, "books");
}

std::vector<std::string> bookFolders() {
  std::vector<std::string> folders;
  if (const std::string own = booksFolder(); !own.empty()) folders.push_back(own);
  const char* const root = std::getenv("ZAVEL_ROOT");
  if (root && *root == '/') return folders;
  const char* const given = std::getenv("XDG_DATA_DIRS");
  const std::string dirs = given && *given ? given : kDataDirs;
  for (size_t at = 0; at <= dirs.size();) {
    const size_t end = std::min(dirs.find(':', at), dirs.size());
    // A relative folder would be another one in each working folder.
    if (end > at && dirs[at] == '/') folders.push_back(inFolder(dirs.substr(at, end - at), "zavel/books"));
    at = end + 1;
  }
  return folders;
}

bool isBookName(std::string_view name) {
  return !name.empty() && name[0] != '.' && name.find('/') == std::string_view::npos &&
         name.find('\0') == std::string_view::npos;
}

// Where nothing begins as a catalog does, a file that is named as one is damaged.
std::string catalogIn(const std::string& folder) {
  if (const std::string usual = inFolder(folder, kUsualCatalog); isFile(usual)) return usual;
  std::string named;
  for (const std::string& name : namesIn(folder)) {
    const std::string path = inFolder(folder, name);
    if (!isFile(path)) continue;
    if (beginsAsCatalog(path)) return path;
    if (named.empty() && isNamedAsCatalog(path)) named = path;
  }
  return named;
}

std::vector<BookPlace> listBooks() {
  std::map<std::string, BookPlace> books;
  for (const std::string& folder : bookFolders()) {
    for (const std::string& name : namesIn(folder)) {
      const std::string path = inFolder(folder, name);
      if (books.count(name) > 0 || !isFolder(path)) continue;
      if (const std::string catalog = catalogIn(path); !catalog.empty()) books[name] = {name, path, catalog};
    }
  }
  std::vector<BookPlace> list;
  for (auto& [name, place] : books) list.push_back(std::move(place));
  return list;
}

Failure findBook(const std::string& given, BookPlace* place) {
  if (isBookName(given)) {
    for (const std::string& folder : bookFolders()) {
      const std::string path = inFolder(folder, given);
      *place = {given, path, isFolder(path) ? catalogIn(path) : ""};
      if (!place->catalog.empty()) return {};
    }
  }
  *place = given.empty() ? BookPlace() : placeAt(given);
  if (!place->catalog.empty()) return {};
  if (!place->folder.empty()) {
    return {kExitEnvironment, "no_such_book", "there is no book in the folder " + printable(place->folder),
            "Name the folder that holds the book's catalog, or the catalog itself."};
  }
  return noSuchBook(given, listBooks());
}

Failure chooseBooks(const std::vector<std::string>& given, std::vector<BookPlace>* places) {
  if (given.empty()) {
    *places = listBooks();
    if (!places->empty()) return {};
    return booksFolder().empty() ? noHome() : noBooks();
  }
  for (const std::string& name : given) {
    BookPlace place;
    if (const Failure failure = findBook(name, &place)) return failure;
    const bool known = std::any_of(places->begin(), places->end(), [&place](const BookPlace& other) {
      return other.catalog == place.catalog;
    });
    if (!known) places->push_back(std::move(place));
  }
  return {};
}

}  // namespace zavel::host
