// Tests: tests/mkbook/WaveFileTest.cpp
#include "mkbook/WaveFile.h"

#include <algorithm>
#include <optional>

#include "foundation/ByteReader.h"
#include "mkbook/MediumFault.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kOuterHeader = 12, kChunkHeader = 8, kShortestFormat = 16;
constexpr uint32_t kUntold = 0x7FFFF000;  // lengths from here on are of those who write to a pipe
constexpr uint16_t kPcm = 1;
constexpr uint16_t kBare = 0x0100, kStereo = 0x1000, kEightBits = 0x0010;
constexpr uint32_t kRates[] = {44100, 22050, 11025};  // by the last digit of the format

const uint8_t* at(std::string_view bytes, size_t offset) {
  return reinterpret_cast<const uint8_t*>(bytes.data()) + offset;
}

// The chunks of a file, one after the other.
struct Chunks {
  std::string_view format, data;
  size_t end = 0;       // of the last one, in the file
  bool untold = false;  // whether a length isn't told

  explicit Chunks(std::string_view file) {
    for (end = kOuterHeader; end + kChunkHeader <= file.size();) {
      const std::string_view name = file.substr(end, 4);
      const uint32_t told = readLE32(at(file, end + 4));
      const size_t rest = file.size() - end - kChunkHeader;
      if (told > rest && told < kUntold) throw MediumFault("breaks off: a part of it is missing");
      untold |= told > rest;
      const size_t length = std::min<size_t>(told, rest);
      const std::string_view content = file.substr(end + kChunkHeader, length);
      if (name == "fmt " && format.empty()) format = content;
      if (name == "data" && data.empty()) data = content;
      end = std::min(end + kChunkHeader + (length + 1) / 2 * 2, file.size());
    }
  }
};

struct Format {
  uint16_t coding, channels, align, bits;
  uint32_t rate;

  explicit Format(std::string_view chunk)
      : coding(readLE16(at(chunk, 0))),
        channels(readLE16(at(chunk, 2))),
        align(readLE16(at(chunk, 12))),
        bits(readLE16(at(chunk, 14))),
        rate(readLE32(at(chunk, 4))) {}

  // The number that a tag tells it by; nothing for what has none.
  std::optional<uint16_t> number() const {
    const auto* const found = std::find(std::begin(kRates), std::end(kRates), rate);
    const bool known = coding == kPcm && (channels == 1 || channels == 2) && (bits == 8 || bits == 16);
    if (!known || found == std::end(kRates)) return std::nullopt;
    const unsigned kinds = (channels == 2 ? kStereo : 0u) | (bits == 8 ? kEightBits : 0u);
    return static_cast<uint16_t>(kBare | kinds | static_cast<unsigned>(found - std::begin(kRates)));
  }
};

void demandSense(const Format& format, size_t bytes) {
  if (format.channels == 0 || format.rate == 0 || format.align == 0)
    throw MediumFault("is damaged: its format makes no sense");
  if (format.coding == kPcm && format.align != format.channels * ((format.bits + 7) / 8))
    throw MediumFault("is damaged: the size of its samples contradicts itself");
  if (bytes == 0) throw MediumFault("has no samples");
  if (format.coding == kPcm && bytes % format.align != 0)
    throw MediumFault("breaks off in the middle of a sample");
}

}  // namespace

Medium readWave(std::string_view file) {
  if (file.size() < kOuterHeader || !file.starts_with("RIFF") || file.substr(8, 4) != "WAVE")
    throw MediumFault("is no WAVE file");
  const Chunks chunks(file);
  if (chunks.format.size() < kShortestFormat) throw MediumFault("is damaged: it doesn't tell its format");
  const Format format(chunks.format);
  demandSense(format, chunks.data.size());
  if (chunks.untold && !format.number())
    throw MediumFault("doesn't tell its length; save it anew with a program that edits sounds");
  Medium out;
  out.shape.kind = MediumShape::Kind::kSound;
  const std::optional<uint16_t> number = format.number();
  out.shape.format = number.value_or(0);
  out.bytes = number ? chunks.data : file.substr(kOuterHeader, chunks.end - kOuterHeader);
  if (out.bytes.size() > kLargestMedium) throw MediumFault("takes more than 128 MB in a book");
  out.shape.size = static_cast<uint32_t>(out.bytes.size());
  return out;
}

}  // namespace zavel::mkbook
