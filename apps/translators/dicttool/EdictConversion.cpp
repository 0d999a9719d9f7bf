// Tests: tests/translators/EdictConversionTest.cpp
#include "dicttool/EdictConversion.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "dicttool/DictdWriter.h"
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
constexpr std::string_view kNames = "ENAMDICT";

std::string withoutEnd(std::string path) {
  for (const std::string_view end : {".index", ".dict"}) {
    if (path.ends_with(end) && path.size() > end.size()) return path.substr(0, path.size() - end.size());
  }
  return path;
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
  bool line(std::string_view bytes);

  std::string name_;
  DictdWriter writer_;
  ConversionAccount* account_;
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
  names_ = title.find(kNames) != std::string_view::npos;
  const std::string name(title.substr(0, title.find('/')));
  const std::string info = title.empty() ? name_ : std::string(title);
  return header("00-database-utf8", "") && header("00-database-short", name.empty() ? name_ : name) &&
         header("00-database-info", info);
}

bool Conversion::line(std::string_view bytes) {
  const Encoding encoding = utf8_ ? Encoding::kUtf8 : Encoding::kEucJp;
  const std::optional<std::string> text = platform().encoding().toUtf8Strict(bytes, encoding);
  if (!begun_) {
    const bool title = text && text->starts_with(kTitleWord);
    if (!begin(title ? std::string_view(*text).substr(kTitleWord.size()) : std::string_view())) return false;
    if (title) return true;
  }
  EdictEntry entry;
  if (!text || !EdictEntry::parse(*text, &entry)) {
    ++account_->leftOut;
    return true;
  }
  ++account_->entries;
  if (!writer_.addEntry(entry.text(names_))) return false;
  for (const EdictKey& key : entry.keys()) writer_.addWord(key.word, static_cast<uint8_t>(key.rank));
  return true;
}

bool Conversion::run(std::string_view bytes, const volatile std::sig_atomic_t* stop) {
  utf8_ = isValidUtf8(bytes);
  while (!bytes.empty() && !(stop && *stop)) {
    const size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view one = bytes.substr(0, end);
    if (one.ends_with('\r')) one.remove_suffix(1);
    if (!one.empty() && !line(one)) return false;
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return true;
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
    return {kExitDamaged, source + " is cut short: its last line breaks off"};
  }
  target = withoutEnd(std::move(target));
  const Failure unwritable{kExitEnvironment, target + ".index and .dict can't be written"};
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::path(target).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder, error);
  Conversion conversion(target, account);
  if (error || !conversion.run(bytes, stop)) return unwritable;
  if (stop && *stop) return {kExitInterrupted, "interrupted; nothing was changed"};
  if (!conversion.isEdict()) {
    return {kExitDamaged, source + " is no EDICT file: " + std::to_string(account->leftOut) + " of " +
                              std::to_string(account->leftOut + account->entries) +
                              " lines are of another form"};
  }
  return conversion.finish() ? Failure{} : unwritable;
}

}  // namespace zavel::dicttool
