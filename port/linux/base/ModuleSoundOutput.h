// Sounds, by a module that is loaded at the first one.
#ifndef PORT_LINUX_BASE_MODULESOUNDOUTPUT_H
#define PORT_LINUX_BASE_MODULESOUNDOUTPUT_H

#include "platform/SoundOutput.h"

struct ZavelSoundModule;

namespace zavel {

// Without the module, which one line in the log tells, nothing can be played. Standard error is silent while
// a device is opened and closed, which the libraries below fill with reasons.
class ModuleSoundOutput : public SoundOutput {
 public:
  SoundResult play(const uint8_t* wave, size_t size) override;

 private:
  const ZavelSoundModule* module();

  const ZavelSoundModule* module_ = nullptr;
  bool loaded_ = false;
};

}  // namespace zavel

#endif
