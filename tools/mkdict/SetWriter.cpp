// Tests: tests/mkdict/SetWriterTest.cpp.
#include "mkdict/SetWriter.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "foundation/Storage.h"

namespace zavel::mkdict {
namespace {

namespace fs = std::filesystem;

constexpr size_t kChunk = size_t{4} << 20;  // between two looks at the wish to stop
constexpr const char* kPartial = ".partial-";
constexpr const char* kAside = ".old-";

bool belongsToSet(const std::string& name) {
  const std::vector<std::string>& names = basicSetNames();
  return name == SetWriter::kSources || std::find(names.begin(), names.end(), name) != names.end();
}

// "writing /x/ej.dic failed: No space left on device".
std::string failure(const std::string& what) {
  return what + " failed" + (errno == 0 ? "" : std::string(": ") + std::strerror(errno));
}

// Removes a folder of such a set: its files by name, then the folder if nothing else is in it.
void removeSet(const std::string& folder) {
  for (const std::string& name : basicSetNames()) storage().remove(folder + "/" + name);
  storage().remove(folder + "/" + SetWriter::kSources);
  std::error_code ignored;
  fs::remove(folder, ignored);
}

// A folder that a killed run left beside the target.
bool isAbandoned(const std::string& name, const std::string& stem) {
  if (name.size() <= stem.size() || name.compare(0, stem.size(), stem) != 0) return false;
  const std::string digits = name.substr(stem.size());
  if (digits.size() > 9 || digits.find_first_not_of("0123456789") != std::string::npos) return false;
  return ::kill(std::atoi(digits.c_str()), 0) != 0 && errno == ESRCH;
}

// What killed runs left beside the target: unfinished sets go, an old set that was only put aside returns.
void removeAbandoned(const std::string& target) {
  const fs::path path(target);
  const std::string name = path.filename().string();
  std::error_code error;
  std::vector<std::string> unfinished, aside;
  for (fs::directory_iterator at(path.parent_path(), error), end; !error && at != end; at.increment(error)) {
    const std::string found = at->path().filename().string();
    if (isAbandoned(found, name + kPartial)) unfinished.push_back(at->path().string());
    if (isAbandoned(found, name + kAside)) aside.push_back(at->path().string());
  }
  for (const std::string& folder : unfinished) removeSet(folder);
  for (const std::string& folder : aside) {
    if (storage().exists(target) || !storage().rename(folder, target)) removeSet(folder);
  }
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

}  // namespace

SetWriter::SetWriter(const std::string& target, bool swap)
    : target_(resolved(target)), partial_(target_ + kPartial + std::to_string(::getpid())), swap_(swap) {}

SetWriter::~SetWriter() {
  if (unfinished_) removeSet(partial_);
}

bool SetWriter::prepare(std::string* error) {
  std::error_code code;
  const fs::path target(target_);
  if (!fs::exists(target, code)) {
    fs::create_directories(target.parent_path(), code);
    if (code) *error = "the folder " + target.parent_path().string() + " can't be made: " + code.message();
    return !code;
  }
  if (!fs::is_directory(target, code)) {
    *error = target_ + " is no folder";
    return false;
  }
  for (fs::directory_iterator at(target, code), end; !code && at != end; at.increment(code)) {
    if (belongsToSet(at->path().filename().string()) && at->is_regular_file(code)) continue;
    *error = target_ + " holds something else than a dictionary (" + at->path().filename().string() +
             "); it is left as it is";
    return false;
  }
  if (code) *error = target_ + " can't be listed: " + code.message();
  return !code;
}

bool SetWriter::writeFile(const SetFile& file, std::string* error) {
  const std::string path = partial_ + "/" + file.name;
  errno = 0;
  const std::unique_ptr<StorageFile> out = storage().open(path, OpenMode::kCreate);
  bool good = out != nullptr;
  for (size_t at = 0; good && at < file.bytes.size(); at += kChunk) {
    good = out->writeAt(at, std::string_view(file.bytes).substr(at, kChunk));
  }
  good = good && out->sync() && out->close();
  if (!good) *error = failure("writing " + path);
  return good;
}

// One step where the system has it: no moment without a dictionary. Else two, and back again when the
// second one fails.
bool SetWriter::swapFolders() {
  if (swap_ && storage().exchange(partial_, target_)) return true;
  if (!storage().rename(target_, aside())) return false;
  if (!storage().rename(partial_, target_)) {
    const int reason = errno;
    if (!storage().rename(aside(), target_)) left_ = Left::kAside;
    errno = reason;
    return false;
  }
  removeSet(aside());
  return true;
}

bool SetWriter::putInPlace(std::string* error) {
  errno = 0;
  const bool replaces = storage().isFolder(target_);
  const bool placed = replaces ? swapFolders() : storage().rename(partial_, target_);
  if (!placed) {
    *error = failure("putting the dictionary in place as " + target_);
    return false;
  }
  left_ = Left::kNewSet;
  unfinished_ = replaces;  // partial_ may now hold the old set, which the end of this object removes
  if (!storage().syncFolder(fs::path(target_).parent_path().string())) {
    *error = failure("putting " + target_ + " on the disk");
    return false;
  }
  return true;
}

std::string SetWriter::aside() const {
  return target_ + kAside + std::to_string(::getpid());
}

bool SetWriter::start(std::string* error) {
  removeAbandoned(target_);
  errno = 0;
  if (const int code = storage().makeFolder(partial_); code != 0) {
    errno = code;
    *error = failure("making the folder " + partial_);
    return false;
  }
  unfinished_ = true;
  return true;
}

bool SetWriter::write(const std::vector<SetFile>& files, Progress& progress, std::string* error) {
  error->clear();
  if (!unfinished_ && !start(error)) return false;
  progress.stage("writing", files.size());
  for (size_t i = 0; i < files.size(); ++i) {
    if (progress.cancelled() || !writeFile(files[i], error)) return false;
    progress.advance(i + 1);
  }
  errno = 0;
  if (!storage().syncFolder(partial_)) {
    *error = failure("putting " + partial_ + " on the disk");
    return false;
  }
  return !progress.cancelled() && putInPlace(error);
}

}  // namespace zavel::mkdict
