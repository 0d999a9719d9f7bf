// Tests: tests/platform/WaveFileTest.cpp
#include "platform/WaveFile.h"

#include <algorithm>
#include <optional>

#include "foundation/ByteReader.h"

namespace zavel {
namespace {

constexpr size_t kHeader = 12;      // "RIFF", length, "WAVE"
constexpr size_t kChunkHeader = 8;  // name, length
constexpr size_t kShortestFormat = 16, kLongestFormat = 1024;
constexpr size_t kExtendedFormat = 40, kExtendedCoding = 24;  // where the latter says what the samples are
constexpr uint16_t kExtended = 0xFFFE;
constexpr uint32_t kSlowest = 1000, kFastest = 192000;
constexpr uint16_t kMostChannels = 8, kMostInBlocks = 2;
constexpr uint16_t kAdpcmBlockHeader = 7, kImaBlockHeader = 4;  // bytes for each channel

const uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const uint8_t*>(text.data());
}

// The first chunk of that name; one that goes on behind the file's end is cut there, and `whole` false.
std::optional<std::string_view> findChunk(std::string_view file, std::string_view name, bool* whole) {
  for (size_t at = kHeader; at <= file.size() && file.size() - at >= kChunkHeader;) {
    const uint64_t length = readLE32(bytesOf(file) + at + name.size());
    const std::string_view body = file.substr(at + kChunkHeader);
    *whole = length <= body.size();
    if (file.substr(at, name.size()) == name) return body.substr(0, static_cast<size_t>(length));
    if (!*whole) return std::nullopt;
    at += kChunkHeader + static_cast<size_t>(length + (length & 1));
  }
  return std::nullopt;
}

void readFormat(std::string_view format, WaveFile* wave) {
  const uint8_t* const bytes = bytesOf(format);
  uint16_t coding = readLE16(bytes);
  if (coding == kExtended && format.size() >= kExtendedFormat) coding = readLE16(bytes + kExtendedCoding);
  wave->coding = static_cast<WaveCoding>(coding);
  wave->channels = readLE16(bytes + 2);
  wave->rate = readLE32(bytes + 4);
  wave->blockAlign = readLE16(bytes + 12);
  wave->bits = readLE16(bytes + 14);
  wave->format = format;
}

bool isInBlocks(WaveCoding coding) {
  return coding == WaveCoding::kAdpcm || coding == WaveCoding::kImaAdpcm;
}

bool hasKnownBits(const WaveFile& wave) {
  switch (wave.coding) {
    case WaveCoding::kPcm:
      return wave.bits == 8 || wave.bits == 16 || wave.bits == 24 || wave.bits == 32;
    case WaveCoding::kFloat:
      return wave.bits == 32;
    case WaveCoding::kALaw:
    case WaveCoding::kMuLaw:
      return wave.bits == 8;
    case WaveCoding::kAdpcm:
    case WaveCoding::kImaAdpcm:
      return wave.bits == 4;
  }
  return false;
}

bool hasKnownNumbers(const WaveFile& wave) {
  const uint16_t most = isInBlocks(wave.coding) ? kMostInBlocks : kMostChannels;
  return hasKnownBits(wave) && wave.channels <= most && wave.rate >= kSlowest && wave.rate <= kFastest;
}

// A block holds its header at least; elsewhere it is one sample of each channel.
bool hasRightBlocks(const WaveFile& wave) {
  if (wave.coding == WaveCoding::kAdpcm) return wave.blockAlign > kAdpcmBlockHeader * wave.channels;
  if (wave.coding == WaveCoding::kImaAdpcm) return wave.blockAlign > kImaBlockHeader * wave.channels;
  return wave.blockAlign == wave.channels * wave.bits / 8;
}

}  // namespace

WaveFault readWave(std::string_view file, WaveFile* wave) {
  if (file.substr(0, 4) != "RIFF" || file.size() < kHeader || file.substr(8, 4) != "WAVE")
    return WaveFault::kBroken;
  bool whole = false, ignored = false;
  const auto format = findChunk(file, "fmt ", &whole);
  const auto samples = findChunk(file, "data", &ignored);
  if (!format || !samples || !whole || format->size() < kShortestFormat) return WaveFault::kBroken;
  if (format->size() > kLongestFormat) return WaveFault::kUnknown;
  readFormat(*format, wave);
  if (wave->channels == 0 || wave->rate == 0) return WaveFault::kBroken;
  if (!hasKnownNumbers(*wave)) return WaveFault::kUnknown;
  if (!hasRightBlocks(*wave)) return WaveFault::kBroken;
  wave->samples = samples->substr(0, samples->size() - samples->size() % wave->blockAlign);
  return WaveFault::kNone;
}

std::string wholeWave(const WaveFile& wave) {
  const size_t formatPad = wave.format.size() & 1, samplesPad = wave.samples.size() & 1;
  const size_t length =
      4 + 2 * kChunkHeader + wave.format.size() + formatPad + wave.samples.size() + samplesPad;
  std::string file;
  file.reserve(kChunkHeader + length);
  file += "RIFF";
  appendLE32(file, static_cast<uint32_t>(length));
  file += "WAVEfmt ";
  appendLE32(file, static_cast<uint32_t>(wave.format.size()));
  file.append(wave.format).append(formatPad, '\0');
  file += "data";
  appendLE32(file, static_cast<uint32_t>(wave.samples.size()));
  return file.append(wave.samples).append(samplesPad, '\0');
}

}  // namespace zavel
