// What the module of sounds gives, in C, because the program that loads it may carry a C++ library of its
// own: no class, no exception and no allocated memory crosses this border.
#ifndef PORT_LINUX_DESKTOP_SOUNDMODULE_H
#define PORT_LINUX_DESKTOP_SOUNDMODULE_H

#include <stddef.h>
#include <stdint.h>

extern "C" {

enum ZavelSoundResult {
  ZAVEL_SOUND_PLAYED,
  ZAVEL_SOUND_NOT_STARTED,  // there is no device, or none that opens
  ZAVEL_SOUND_UNKNOWN,      // the samples can't be decoded
  ZAVEL_SOUND_BROKE_OFF,    // the device went away or stands still
};

struct ZavelSoundModule {
  uint32_t version;  // kZavelSoundVersion

  // Plays the WAVE file of `size` bytes at `wave` (borrowed), at most 2 GiB, and returns when it is over.
  enum ZavelSoundResult (*play)(const void* wave, size_t size);
};

// The one function that the module exports.
#define ZAVEL_SOUND_FILE "zavel-port-sound.so"
#define ZAVEL_SOUND_SYMBOL "zavelSoundModule"
typedef const struct ZavelSoundModule* (*ZavelSoundGet)();
}

constexpr uint32_t kZavelSoundVersion = 1;

#endif
