// Tests: tests/port/SoundOutputTest.cpp
#include "base/ModuleSoundOutput.h"

#include "base/PortModule.h"
#include "desktop/SoundModule.h"

namespace zavel {

SoundResult ModuleSoundOutput::play(const uint8_t* wave, size_t size) {
  if (!module()) return SoundResult::kNotStarted;
  switch (module()->play(wave, size)) {
    case ZAVEL_SOUND_PLAYED:
      return SoundResult::kPlayed;
    case ZAVEL_SOUND_NOT_STARTED:
      return SoundResult::kNotStarted;
    case ZAVEL_SOUND_UNKNOWN:
      return SoundResult::kUnknown;
    case ZAVEL_SOUND_BROKE_OFF:
      return SoundResult::kBrokeOff;
  }
  return SoundResult::kUnknown;
}

const ZavelSoundModule* ModuleSoundOutput::module() {
  if (loaded_) return module_;
  loaded_ = true;
  const auto get = reinterpret_cast<ZavelSoundGet>(loadPortModule(ZAVEL_SOUND_FILE, ZAVEL_SOUND_SYMBOL));
  const ZavelSoundModule* found = get ? get() : nullptr;
  if (found && found->version == kZavelSoundVersion) module_ = found;
  return module_;
}

}  // namespace zavel
