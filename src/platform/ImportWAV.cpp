// Tests: tests/platform/ImportWAVTest.cpp, tests/port/SoundOutputTest.cpp
#include "platform/ImportWAV.h"

#include <new>
#include <string_view>

#include "platform/Log.h"
#include "platform/Platform.h"
#include "platform/SoundOutput.h"
#include "platform/WaveFile.h"

namespace {

// Codes of the book engine, whose sounds these are, and the system's error numbers with the top bit set.
constexpr uint32_t kDone = 0;
constexpr uint32_t kDeviceFailed = 0x80000005;
constexpr uint32_t kOutOfMemory = 0x8000000C;
constexpr uint32_t kNoDevice = 0x80000013;
constexpr uint32_t kInvalidArgument = 0x80000016;
constexpr uint32_t kUnsupportedMedia = 0x80041001;
constexpr uint32_t kBroken = 0x8004100E;

constexpr uint32_t kLongest = 256u << 20;  // as long as a book's sound can be

uint32_t toCode(zavel::SoundResult result) {
  switch (result) {
    case zavel::SoundResult::kPlayed:
      return kDone;
    case zavel::SoundResult::kNotStarted:
      zavel::logLine("QuickTime error");
      return kNoDevice;
    case zavel::SoundResult::kUnknown:
      return kUnsupportedMedia;
    case zavel::SoundResult::kBrokeOff:
      return kDeviceFailed;
  }
  return kUnsupportedMedia;
}

uint32_t playWave(std::string_view data) {
  zavel::WaveFile wave;
  const zavel::WaveFault fault = zavel::readWave(data, &wave);
  if (fault != zavel::WaveFault::kNone)
    return fault == zavel::WaveFault::kBroken ? kBroken : kUnsupportedMedia;
  if (wave.samples.empty()) return kDone;
  const std::string whole = zavel::wholeWave(wave);
  return toCode(zavel::platform().sound().play(reinterpret_cast<const uint8_t*>(whole.data()), whole.size()));
}

}  // namespace

uint32_t ImportWAVDataFromMemory(const void* data, uint32_t length) {
  if (!data) return kInvalidArgument;
  if (length > kLongest) return kUnsupportedMedia;
  try {
    return playWave({static_cast<const char*>(data), length});
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
}
