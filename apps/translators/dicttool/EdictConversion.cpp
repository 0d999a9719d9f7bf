// Tests: tests/translators/EdictConversionTest.cpp
#include "dicttool/EdictConversion.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>

#include "dicttool/DictdWriter.h"
#include "dicttool/EdictCodes.h"
#include "dicttool/EdictCompounds.h"
#include "dicttool/EdictEntry.h"
#include "foundation/Storage.h"
#include "foundation/Utf8.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::dicttool {
namespace {

constexpr size_t kMostBytes = size_t{512} << 20;

// The first line of the distributed files stands for no word but tells name, holder and date.
constexpr std::string_view kTitleWord = "　？？？ /";

constexpr unsigned kMostCommon = 15, kMostOthers = 7;

// Why the disk refused, as far as it told.
Failure unwritable(const std::string& target, const std::string& reason) {
  return {kExitEnvironment,
          target + ".index and .dict can't be written" + (reason.empty() ? "" : ": ") + reason};
}

std::string lastReason() {
  return errno == 0 ? std::string() : std::strerror(errno);
}

// Calls `visit` for each line that holds something, until it or a signal ends that; false when `visit` did.
bool eachLine(std::string_view bytes, const volatile std::sig_atomic_t* stop,
              const std::function<bool(std::string_view)>& visit) {
  while (!bytes.empty() && !(stop && *stop)) {
    const size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view one = bytes.substr(0, end);
    if (one.ends_with('\r')) one.remove_suffix(1);
    if (!one.empty() && !visit(one)) return false;
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return true;
}

class Conversion {
 public:
  Conversion(std::string base, ConversionAccount* account)
      : name_(std::filesystem::path(base).filename().string()), writer_(std::move(base)), account_(account) {}

  bool run(std::string_view bytes, const volatile std::sig_atomic_t* stop);
  bool finish();
  bool isEdict() const { return account_->entries > 0 && account_->entries >= 9 * account_->leftOut; }

 private:
  bool begin(std::string_view title);
  bool header(const char* word, const std::string& text);
  std::optional<std::string> decoded(std::string_view bytes) const;
  bool gather(std::string_view bytes);
  bool line(std::string_view bytes);
  unsigned commonness() const;
  unsigned rankOf(const EdictKey& key) const;

  std::string name_;
  DictdWriter writer_;
  ConversionAccount* account_;
  EdictCompounds compounds_;
  EdictEntry entry_;  // the one at hand
  bool utf8_ = false, begun_ = false, names_ = false;
};

bool Conversion::header(const char* word, const std::string& text) {
  if (!writer_.addEntry(word + ("\n" + text) + "\n")) return false;
  writer_.addWord(word, 0);
  return true;
}

// What dictd programs ask a dictionary about itself. Whose data it is stays with it.
bool Conversion::begin(std::string_view title) {
  begun_ = true;
  names_ = title.find(kNamesTitle) != std::string_view::npos;
  const std::string name(title.substr(0, title.find('/')));
  const std::string info = title.empty() ? name_ : std::string(title);
  return header("00-database-utf8", "") && header("00-database-short", name.empty() ? name_ : name) &&
         header("00-database-info", info);
}

std::optional<std::string> Conversion::decoded(std::string_view bytes) const {
  return platform().encoding().toUtf8Strict(bytes, utf8_ ? Encoding::kUtf8 : Encoding::kEucJp);
}

// The first round: which words there are.
bool Conversion::gather(std::string_view bytes) {
  const std::optional<std::string> text = decoded(bytes);
  if (text && !text->starts_with(kTitleWord) && EdictEntry::parse(*text, &entry_)) {
    compounds_.add(entry_.written.front(), entry_.readings.empty() ? "" : entry_.readings.front());
  }
  return true;
}

// From 0 to kMostCommon: what is marked as common; else by the number of its compounds, each step twice as
// many.
unsigned Conversion::commonness() const {
  if (entry_.common) return kMostCommon;
  const size_t compounds = compounds_.of(account_->entries - 1);
  return std::min(static_cast<unsigned>(std::bit_width(compounds)), kMostCommon - 1);
}

// What the entry is about counts most, then how common it is; of equals those come first whose gloss needs no
// explanation, then those of few other meanings.
unsigned Conversion::rankOf(const EdictKey& key) const {
  const unsigned others = std::min(static_cast<unsigned>(entry_.glosses.size() - 1), kMostOthers);
  const unsigned about = static_cast<unsigned>(key.rank), rare = kMostCommon - commonness();
  return ((about * (kMostCommon + 1) + rare) * 2 + (key.explained ? 1 : 0)) * (kMostOthers + 1) + others;
}

// The second round: the entries.
bool Conversion::line(std::string_view bytes) {
  const std::optional<std::string> text = decoded(bytes);
  const bool title = text && text->starts_with(kTitleWord);
  if (!begun_) {
    if (!begin(title ? std::string_view(*text).substr(kTitleWord.size()) : std::string_view())) return false;
    if (title) return true;
  }
  if (!text || title || !EdictEntry::parse(*text, &entry_)) {
    ++account_->leftOut;
    return true;
  }
  ++account_->entries;
  if (!writer_.addEntry(entry_.text(names_))) return false;
  for (const EdictKey& key : entry_.keys(names_)) writer_.addWord(key.word, rankOf(key));
  return true;
}

bool Conversion::run(std::string_view bytes, const volatile std::sig_atomic_t* stop) {
  utf8_ = isValidUtf8(bytes);
  eachLine(bytes, stop, [this](std::string_view one) { return gather(one); });
  compounds_.count();
  return eachLine(bytes, stop, [this](std::string_view one) { return line(one); });
}

bool Conversion::finish() {
  if (!writer_.finish()) return false;
  account_->indexPath = writer_.indexPath();
  account_->words = writer_.words();
  return true;
}

}  // namespace

Failure convertEdict(const std::string& source, std::string target, const volatile std::sig_atomic_t* stop,
                     ConversionAccount* account) {
  *account = {};
  std::string bytes;
  if (!readWholeFile(source, kMostBytes, &bytes)) return {kExitEnvironment, source + " can't be read"};
  if (!bytes.empty() && bytes.back() != '\n' && bytes.back() != '/') {  // each line ends in "/"
    return {kExitDamaged, source + " is incomplete: its last line is cut off"};
  }
  target = DictdWriter::withoutEnd(std::move(target));
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::path(target).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, error);
  if (error) return unwritable(target, error.message());
  Conversion conversion(target, account);
  errno = 0;
  if (!conversion.run(bytes, stop)) return unwritable(target, lastReason());
  if (stop && *stop) return {kExitInterrupted, "interrupted; nothing was changed"};
  if (!conversion.isEdict()) {
    return {kExitDamaged, source + " is not an EDICT file: " + std::to_string(account->leftOut) + " of " +
                              std::to_string(account->leftOut + account->entries) +
                              " lines have another format"};
  }
  errno = 0;
  return conversion.finish() ? Failure{} : unwritable(target, lastReason());
}

}  // namespace zavel::dicttool
