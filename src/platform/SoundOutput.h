// What the user hears.
#ifndef PLATFORM_SOUNDOUTPUT_H
#define PLATFORM_SOUNDOUTPUT_H

#include <cstddef>
#include <cstdint>

#include "foundation/Export.h"

namespace zavel {

enum class SoundResult {
  kPlayed,      // to its end
  kNotStarted,  // nothing here can play, as where there is no sound card
  kUnknown,     // a coding of samples that can't be decoded here
  kBrokeOff,    // the device went away or stands still
};

class ZAVEL_API SoundOutput {
 public:
  virtual ~SoundOutput() = default;

  // Plays the `size` bytes at `wave`, a WAVE file as wholeWave() makes them, at full volume, and returns when
  // it is over.
  virtual SoundResult play(const uint8_t* wave, size_t size) = 0;
};

}  // namespace zavel

#endif
