// Tests: tests/mkdict/EdictTest.cpp.
#include "mkdict/EdictReader.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "foundation/Storage.h"
#include "mkdict/EdictLine.h"
#include "mkdict/JapaneseEntries.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkdict {
namespace {

constexpr size_t kMostBytes = size_t{512} << 20;

// The first line of the distributed file stands for no word but tells the file's name and date.
constexpr std::string_view kTitleWord = "　？？？";

std::string createdOn(std::string_view title) {
  constexpr std::string_view kCreated = "Created: ";
  const size_t at = title.find(kCreated);
  if (at == std::string_view::npos) return "";
  const std::string_view date = title.substr(at + kCreated.size());
  return std::string(date.substr(0, date.find('/')));
}

class Reading {
 public:
  Reading(Compilation* compilation, Progress& progress, const std::function<void(const EdictLine&)>& onLine)
      : compilation_(compilation), progress_(progress), onLine_(onLine), entries_(&compilation->summary) {}

  SourceFault read(const std::string& path, std::string* error);

 private:
  void line(std::string_view bytes);
  void readLines(std::string_view bytes);
  void finish();

  Compilation* compilation_;
  Progress& progress_;
  const std::function<void(const EdictLine&)>& onLine_;
  JapaneseEntries entries_;
  std::string version_;
  size_t sound_ = 0, unsound_ = 0;
};

void Reading::line(std::string_view bytes) {
  const std::optional<std::string> utf8 = platform().encoding().toUtf8Strict(bytes, Encoding::kEucJp);
  if (utf8 && utf8->substr(0, kTitleWord.size()) == kTitleWord) {
    version_ = createdOn(*utf8);
    return;
  }
  EdictLine parsed;
  if (utf8 && EdictLine::parse(*utf8, &parsed)) {
    ++sound_;
    entries_.add(parsed);
    if (onLine_) onLine_(parsed);
    return;
  }
  ++unsound_;
  const std::string shown = platform().encoding().toUtf8Lossy(bytes.substr(0, 40), Encoding::kEucJp);
  compilation_->summary.leftOut(utf8 ? "EDICT lines of another form" : "EDICT lines that are not EUC-JP",
                                shown);
}

void Reading::readLines(std::string_view bytes) {
  size_t number = 0;
  while (!bytes.empty() && !progress_.cancelled()) {
    const size_t end = bytes.find('\n');
    std::string_view one = bytes.substr(0, end);
    if (!one.empty() && one.back() == '\r') one.remove_suffix(1);
    if (!one.empty()) line(one);
    progress_.advance(++number);
    if (end == std::string_view::npos) break;
    bytes.remove_prefix(end + 1);
  }
}

void Reading::finish() {
  compilation_->summary.figure("EDICT lines", sound_ + unsound_);
  compilation_->japanese = entries_.take();
  compilation_->sources.push_back(
      {"EDICT, Japanese-English dictionary", version_,
       "Creative Commons Attribution-ShareAlike 3.0; property of the Electronic Dictionary Research and "
       "Development Group, used in conformance with the Group's licence",
       "Japanese entries, translations of English words"});
}

SourceFault Reading::read(const std::string& path, std::string* error) {
  std::string bytes;
  if (!readWholeFile(path, kMostBytes, &bytes)) {
    *error = path + " can't be read";
    return SourceFault::kMissing;
  }
  const bool whole = bytes.empty() || bytes.back() == '\n' || bytes.back() == '/';  // each line ends in "/"
  progress_.stage("reading EDICT", static_cast<uint64_t>(std::count(bytes.begin(), bytes.end(), '\n')));
  readLines(bytes);
  std::string().swap(bytes);
  if (progress_.cancelled()) return SourceFault::kCancelled;
  if (sound_ < 9 * unsound_ || sound_ == 0) {
    *error = path + " is no EDICT file: " + std::to_string(unsound_) + " of " +
             std::to_string(sound_ + unsound_) + " lines are of another form";
    return SourceFault::kDamaged;
  }
  if (!whole) {
    *error = path + " is cut short: its last line breaks off";
    return SourceFault::kDamaged;
  }
  finish();
  return SourceFault::kNone;
}

}  // namespace

SourceFault EdictReader::read(const std::string& path, Compilation* compilation, Progress& progress,
                              std::string* error, const std::function<void(const EdictLine&)>& onLine) {
  return Reading(compilation, progress, onLine).read(path, error);
}

}  // namespace zavel::mkdict
