// WAVE files.
#ifndef MKBOOK_WAVEFILE_H
#define MKBOOK_WAVEFILE_H

#include <string_view>

#include "mkbook/Medium.h"

namespace zavel::mkbook {

// A sound as a book stores it: PCM of 8 or 16 bits, of one channel or two, at 11025, 22050 or 44100 Hz, as
// bare samples; all else as the file's chunks. Throws MediumFault for a file that isn't whole.
Medium readWave(std::string_view file);

}  // namespace zavel::mkbook

#endif
