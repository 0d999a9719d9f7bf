// WAVE files: foreign data, which is checked here before anything that plays sounds sees it.
#ifndef PLATFORM_WAVEFILE_H
#define PLATFORM_WAVEFILE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zavel {

// The codings of samples that are let through.
enum class WaveCoding : uint16_t {
  kPcm = 1,       // 8, 16, 24 or 32 bits
  kAdpcm = 2,     // 4 bits, blocks with coefficients
  kFloat = 3,     // 32 bits
  kALaw = 6,      // 8 bits
  kMuLaw = 7,     // 8 bits
  kImaAdpcm = 17  // 4 bits
};

struct WaveFile {
  WaveCoding coding = WaveCoding::kPcm;
  uint16_t channels = 0;     // 1 to 8, 1 or 2 in blocks
  uint32_t rate = 0;         // sample frames a second, 1000 to 192,000
  uint16_t bits = 0;         // of one sample
  uint16_t blockAlign = 0;   // bytes that belong together: a frame, or a block of a coding in blocks
  std::string_view format;   // the chunk "fmt ", 16 to 1024 bytes; points into the file
  std::string_view samples;  // whole blocks; points into the file
};

enum class WaveFault {
  kNone,
  kBroken,   // no WAVE file, or one whose numbers don't agree
  kUnknown,  // a coding that isn't one of the above, or one with other numbers than it can have
};

// Takes a file apart. What it says of its own length, and of that of its samples, doesn't count where less is
// there; half a block at the end is left out. A file without samples is fine.
WaveFault readWave(std::string_view file, WaveFile* wave);

// A file of nothing but format and samples, in which every length is right.
std::string wholeWave(const WaveFile& wave);

}  // namespace zavel

#endif
