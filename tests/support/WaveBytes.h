// WAVE files for tests, right ones and wrong ones.
#ifndef TESTS_SUPPORT_WAVEBYTES_H
#define TESTS_SUPPORT_WAVEBYTES_H

#include <cstdint>
#include <optional>
#include <string>

#include "foundation/ByteReader.h"

namespace zavel::test {

// A name of four characters, the length (of the body unless another is told), the body, a zero byte behind an
// odd one.
inline std::string waveChunk(const std::string& name, const std::string& body,
                             std::optional<uint32_t> length = {}) {
  std::string chunk = name;
  appendLE32(chunk, length.value_or(static_cast<uint32_t>(body.size())));
  return chunk + body + std::string(body.size() & 1, '\0');
}

inline std::string riff(const std::string& chunks) {
  return waveChunk("RIFF", "WAVE" + chunks);
}

struct WaveFormat {
  uint16_t coding = 1;
  uint16_t channels = 1;
  uint32_t rate = 44100;
  uint16_t bits = 16;
  std::optional<uint16_t> blockAlign = {};  // else one sample of each channel
  std::string extra = {};

  std::string body() const {
    const uint16_t align = blockAlign.value_or(static_cast<uint16_t>(channels * bits / 8));
    std::string text;
    appendLE16(text, coding);
    appendLE16(text, channels);
    appendLE32(text, rate);
    appendLE32(text, rate * align);
    appendLE16(text, align);
    appendLE16(text, bits);
    return text + extra;
  }
};

inline std::string waveFile(const WaveFormat& format, const std::string& samples) {
  return riff(waveChunk("fmt ", format.body()) + waveChunk("data", samples));
}

}  // namespace zavel::test

#endif
