// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/BookFolder.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>

#include "foundation/Storage.h"
#include "mkbook/BookSource.h"
#include "mkbook/Failure.h"

namespace zavel::mkbook {
namespace {

namespace fs = std::filesystem;

bool belongsToBook(const std::string& name) {
  const std::vector<std::string>& names = bookFileNames();
  return std::find(names.begin(), names.end(), name) != names.end();
}

// An existing folder's real name, so that a link to it stays a link.
std::string resolved(const std::string& target) {
  std::error_code error;
  fs::path path = fs::weakly_canonical(fs::absolute(target, error), error);
  if (error) path = fs::absolute(target);
  std::string text = path.string();
  while (text.size() > 1 && text.back() == '/') text.pop_back();
  return text;
}

Failure badTarget(const std::string& message) {
  return Failure(mkdict::kExitEnvironment, "bad_target", message,
                 "Name an empty folder, a new one, or one with a book that was made here.");
}

}  // namespace

std::string multiFile(size_t form) {
  return "MULTI" + (form == 0 ? "" : std::to_string(form + 1)) + ".DAT";
}

void removeBook(const std::string& folder) {
  for (const std::string& name : bookFileNames()) storage().remove(folder + "/" + name);
  std::error_code ignored;
  fs::remove(folder, ignored);
}

const std::vector<std::string>& bookFileNames() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> names = {kCatalogFile,
                                      kUniFile,
                                      kInfoFile,
                                      kBodyFile,
                                      kExactFile,
                                      kExactKanaFile,
                                      kExactLettersFile,
                                      kForwardFile,
                                      kForwardKanaFile,
                                      kForwardLettersFile,
                                      kBackwardFile,
                                      kBackwardKanaFile,
                                      kBackwardLettersFile,
                                      kKeywordFile,
                                      kCrossFile,
                                      kMenuFile,
                                      kPictureMenuFile,
                                      kMonoFile,
                                      kColorFile,
                                      kSoundFile,
                                      kFullFontFile,
                                      kHalfFontFile};
    for (size_t form = 0; form < kMostForms; ++form) names.push_back(multiFile(form));
    return names;
  }();
  return all;
}

BookFolder::BookFolder(const std::string& target)
    : target_(resolved(target)), partial_(partialNameOf(target_)) {
  check();
  std::error_code code;
  const std::string parent = fs::path(target_).parent_path().string();
  fs::create_directories(parent, code);
  if (code) throw badTarget("the folder " + parent + " can't be made: " + code.message());
  removeAbandonedFolders(parent);
  removeBook(partial_);  // of a killed run with the same number
  errno = storage().makeFolder(partial_);
  if (errno != 0) throw writeFailure("making the folder " + partial_);
  held_ = std::make_unique<PartialFolder>(partial_);
  unfinished_ = true;
}

BookFolder::~BookFolder() {
  if (unfinished_) removeBook(partial_);
}

void BookFolder::check() const {
  std::error_code code;
  if (!fs::exists(target_, code)) return;
  if (!fs::is_directory(target_, code)) throw badTarget(target_ + " is no folder");
  for (fs::directory_iterator at(target_, code), end; !code && at != end; at.increment(code)) {
    const std::string name = at->path().filename().string();
    if (!belongsToBook(name) || !at->is_regular_file(code))
      throw badTarget(target_ + " holds something else than a book (" + name + "); it is left as it is");
  }
  if (code) throw badTarget(target_ + " can't be listed: " + code.message());
}

void BookFolder::write(const std::string& name, std::string_view bytes) const {
  errno = 0;
  const std::unique_ptr<StorageFile> out = storage().open(path(name), OpenMode::kCreate);
  if (!out || !out->writeAt(0, bytes) || !out->sync() || !out->close())
    throw writeFailure("writing " + path(name));
}

// Two renames, where the system can't let two folders change places in one step.
void BookFolder::swapByRenaming() const {
  const std::string aside = target_ + ".old-" + std::to_string(::getpid());
  if (!storage().rename(target_, aside)) throw writeFailure("putting the book in place as " + target_);
  if (!storage().rename(partial_, target_)) {
    const Failure failure = writeFailure("putting the book in place as " + target_);
    if (storage().rename(aside, target_)) throw failure;
    throw Failure(failure.status(), failure.code(), failure.what(),
                  "What stood there before is now " + aside + "; give it its name back.");
  }
  removeBook(aside);
}

void BookFolder::putInPlace() {
  errno = 0;
  if (!storage().syncFolder(partial_)) throw writeFailure("putting " + partial_ + " on the disk");
  if (!storage().isFolder(target_)) {
    if (!storage().rename(partial_, target_)) throw writeFailure("putting the book in place as " + target_);
  } else if (storage().exchange(partial_, target_)) {
    removeBook(partial_);
  } else {
    swapByRenaming();
  }
  unfinished_ = false;
  if (!storage().syncFolder(fs::path(target_).parent_path().string()))
    throw Failure(mkdict::kExitEnvironment, "write_failed", "putting " + target_ + " on the disk failed",
                  "The new book stands there whole, but may not outlast a power cut.");
}

}  // namespace zavel::mkbook
