// Tests: tests/zavel/book-play-test.sh
#include "book/BookSound.h"

#include <cstdlib>

#include "book/BookFailure.h"
#include "book/BookStatus.h"
#include "platform/ImportWAV.h"
#include "platform/Log.h"

namespace zavel::host {
namespace {

constexpr uint32_t kNoDevice = 0x80000013, kDeviceFailed = 0x80000005;

// What the log tells, the message says in the user's words.
class QuietLog {
 public:
  QuietLog() : before_(wanted() ? nullptr : setLogSink([](const std::string&) {})) {}
  ~QuietLog() {
    if (!wanted()) setLogSink(before_);
  }
  QuietLog(const QuietLog&) = delete;
  QuietLog& operator=(const QuietLog&) = delete;

 private:
  static bool wanted() {
    const char* log = std::getenv("ZAVEL_LOG");
    return log && *log;
  }

  LogSink before_;
};

}  // namespace

Failure playSound(const ShelvedBook& book, const BookMedium& sound) {
  const QuietLog quiet;
  const uint32_t code = ImportWAVDataFromMemory(sound.data.data(), static_cast<uint32_t>(sound.data.size()));
  if (code == kNoDevice) {
    return {kExitEnvironment, "no_sound_output",
            "no sound can be played here: there is no card or server for it",
            "Save it for another program: --output FILE"};
  }
  if (code == kDeviceFailed) {
    return {kExitEnvironment, "sound_broke_off", "the sound broke off: the sound card or server has gone",
            "Try again, or save it for another program: --output FILE"};
  }
  return code == book::kDone ? Failure{} : bookFailure(code, book.name(), "the sound");
}

}  // namespace zavel::host
