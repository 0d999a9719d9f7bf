// Tests: tests/mkbook/JapaneseSourcesTest.cpp
#include "mkbook/EucLines.h"

#include "foundation/Storage.h"
#include "mkbook/Failure.h"
#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kMostBytes = size_t{512} << 20;

}  // namespace

void readEucLines(const std::string& path, const std::string& hint,
                  const std::function<void(std::string_view)>& onLine) {
  std::string bytes;
  if (!readWholeFile(path, kMostBytes, &bytes))
    throw Failure(mkdict::kExitEnvironment, "missing_input", path + " is missing or can't be read", hint);
  std::string_view left = bytes;
  while (!left.empty()) {
    const size_t end = left.find('\n');
    if (end == std::string_view::npos)
      throw Failure(mkdict::kExitDamaged, "damaged_input", path + " is cut short: its last line breaks off",
                    hint);
    const std::string_view line = left.substr(0, end);
    left.remove_prefix(end + 1);
    if (!line.empty()) onLine(platform().encoding().toUtf8Strict(line, Encoding::kEucJp).value_or(""));
  }
}

void demandSoundLines(const std::string& path, const char* form, size_t sound, size_t unsound) {
  if (sound > 0 && sound >= 9 * unsound) return;
  throw Failure(mkdict::kExitDamaged, "damaged_input",
                path + " is no " + form + " file: " + std::to_string(unsound) + " of " +
                    std::to_string(sound + unsound) + " lines are of another form",
                "Name another file.");
}

}  // namespace zavel::mkbook
