// Sounds through SDL, which finds the user's sound server or card. Started and ended with each sound, so that
// nothing stays open, and a device that came meanwhile is found. Tests: tests/port/SoundOutputTest.cpp
#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <fcntl.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>

#include "desktop/SoundModule.h"

namespace {

constexpr Uint32 kLookEvery = 5;        // milliseconds
constexpr Uint32 kStandsStill = 10000;  // milliseconds without a sample taken
constexpr Uint16 kFramesAtOnce = 2048;

// The libraries of sound servers and cards tell on standard error why there is none. The caller gets a code.
class SilentErrors {
 public:
  SilentErrors() : kept_(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
    const int nothing = ::open("/dev/null", O_WRONLY);
    if (nothing < 0 || nothing == STDERR_FILENO) return;
    ::dup2(nothing, STDERR_FILENO);
    ::close(nothing);
  }
  // Where standard error was closed, it is again; what was opened meanwhile didn't get its number.
  ~SilentErrors() {
    if (kept_ < 0) {
      ::close(STDERR_FILENO);
      return;
    }
    ::dup2(kept_, STDERR_FILENO);
    ::close(kept_);
  }
  SilentErrors(const SilentErrors&) = delete;
  SilentErrors& operator=(const SilentErrors&) = delete;

 private:
  int kept_;
};

// What SDL's thread takes samples from.
struct Samples {
  const Uint8* bytes;
  size_t size;
  Uint8 silence;
  std::atomic<size_t> taken = 0;
  std::atomic<bool> over = false;  // all of it and a stretch of silence is taken
};

void SDLCALL take(void* data, Uint8* out, int wanted) {
  Samples& samples = *static_cast<Samples*>(data);
  const size_t taken = samples.taken;
  const size_t count = std::min(samples.size - taken, static_cast<size_t>(wanted));
  ::memcpy(out, samples.bytes + taken, count);
  ::memset(out + count, samples.silence, static_cast<size_t>(wanted) - count);
  samples.taken = taken + count;
  if (count == 0) samples.over = true;
}

// Waits until all samples are taken. False when nobody takes them any more.
bool waitFor(SDL_AudioDeviceID device, const Samples& samples) {
  size_t taken = 0;
  for (Uint32 waited = 0; !samples.over; waited += kLookEvery) {
    if (SDL_GetAudioDeviceStatus(device) != SDL_AUDIO_PLAYING || waited > kStandsStill) return false;
    SDL_Delay(kLookEvery);
    if (samples.taken != taken) waited = 0;
    taken = samples.taken;
  }
  return true;
}

SDL_AudioDeviceID openDevice(const SDL_AudioSpec& spec) {
  const SilentErrors silent;
  return SDL_OpenAudioDevice(nullptr, 0, &spec, nullptr, 0);
}

// Closing waits for what the device has taken but not played yet.
void closeDevice(SDL_AudioDeviceID device) {
  const SilentErrors silent;
  SDL_CloseAudioDevice(device);
}

ZavelSoundResult playSamples(SDL_AudioSpec spec, const Uint8* bytes, Uint32 size) {
  Samples samples = {bytes, size, static_cast<Uint8>(spec.format == AUDIO_U8 ? 0x80 : 0)};
  spec.samples = kFramesAtOnce;
  spec.callback = take;
  spec.userdata = &samples;
  const SDL_AudioDeviceID device = openDevice(spec);
  if (device == 0) return ZAVEL_SOUND_NOT_STARTED;
  SDL_PauseAudioDevice(device, 0);
  const bool played = waitFor(device, samples);
  closeDevice(device);
  return played ? ZAVEL_SOUND_PLAYED : ZAVEL_SOUND_BROKE_OFF;
}

bool startSdl() {
  const SilentErrors silent;
  SDL_SetMainReady();
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");  // Ctrl-C stays the program's
  SDL_SetHint(SDL_HINT_APP_NAME, "ZavelLex");
  return SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

void endSdl() {
  const SilentErrors silent;
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

ZavelSoundResult play(const void* wave, size_t size) {
  if (!startSdl()) return ZAVEL_SOUND_NOT_STARTED;
  SDL_AudioSpec spec = {};
  Uint8* bytes = nullptr;
  Uint32 length = 0;
  ZavelSoundResult result = ZAVEL_SOUND_UNKNOWN;
  if (SDL_LoadWAV_RW(SDL_RWFromConstMem(wave, static_cast<int>(size)), 1, &spec, &bytes, &length)) {
    result = playSamples(spec, bytes, length);
    SDL_FreeWAV(bytes);
  }
  endSdl();
  return result;
}

constexpr ZavelSoundModule kModule = {kZavelSoundVersion, play};

}  // namespace

extern "C" __attribute__((visibility("default"))) const ZavelSoundModule* zavelSoundModule() {
  return &kModule;
}
