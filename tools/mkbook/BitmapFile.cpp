// Tests: tests/mkbook/PicturesTest.cpp
#include "mkbook/BitmapFile.h"

#include <algorithm>
#include <map>

#include "foundation/ByteReader.h"
#include "mkbook/MediumFault.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kFileHeader = 14, kInfoHeader = 40, kHeaders = kFileHeader + kInfoHeader;
constexpr size_t kLongestInfo = 124;  // later forms of it have more fields behind the same ones
constexpr uint32_t kBlack = 0x000000, kWhite = 0xFFFFFF;
constexpr const char* kOtherForm = "is a bitmap of another form; save it without compression, or as PNG";

const uint8_t* at(std::string_view bytes, size_t offset) {
  return reinterpret_cast<const uint8_t*>(bytes.data()) + offset;
}

uint64_t strideOf(uint64_t width, unsigned bits) {
  return (width * bits + 31) / 32 * 4;
}

// The bits of dot `x`; `bits` is 1, 4 or 8.
uint8_t indexAt(const uint8_t* row, uint32_t x, unsigned bits) {
  const size_t first = size_t{x} * bits;
  return static_cast<uint8_t>(row[first / 8] >> (8 - bits - first % 8) & ((1u << bits) - 1));
}

void appendLE(std::string* out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) *out += static_cast<char>(value >> 8 * i);
}

void appendColor(std::string* out, uint32_t color, int bytes) {
  appendLE(out, color, bytes);  // blue, green, red
}

// Where each colour stands in the palette, in the order in which they come; more than fit a byte: none.
std::map<uint32_t, uint8_t> paletteOf(const Raster& raster, std::vector<uint32_t>* colors) {
  std::map<uint32_t, uint8_t> places;
  for (uint32_t y = 0; y < raster.height; ++y) {
    for (uint32_t x = 0; x < raster.width; ++x) {
      const uint32_t color = raster.color(x, y);
      if (!places.try_emplace(color, static_cast<uint8_t>(colors->size())).second) continue;
      if (colors->size() == 256) return {};
      colors->push_back(color);
    }
  }
  return places;
}

std::string rowOf(const Raster& raster, uint32_t y, unsigned bits,
                  const std::map<uint32_t, uint8_t>& places) {
  std::string out;
  out.reserve(strideOf(raster.width, bits));
  for (uint32_t x = 0; x < raster.width; ++x) {
    const uint32_t color = raster.color(x, y);
    if (bits == 24) {
      appendColor(&out, color, 3);
    } else if (bits == 8) {
      out += static_cast<char>(places.at(color));
    } else if (x % 2 == 0) {
      out += static_cast<char>(places.at(color) << 4);
    } else {
      out.back() = static_cast<char>(out.back() | places.at(color));
    }
  }
  out.resize(strideOf(raster.width, bits));
  return out;
}

}  // namespace

void demandReadableSize(uint64_t width, uint64_t height) {
  if (width == 0 || height == 0) throw MediumFault("has no dots");
  if (width > kLongestSide || height > kLongestSide || width * height > kMostDots)
    throw MediumFault("is too large: " + std::to_string(width) + " x " + std::to_string(height) +
                      " dots, and 40 million are read at most");
}

BitmapFile::BitmapFile(std::string_view bytes) : bytes_(bytes) {
  if (bytes.size() < kHeaders || !bytes.starts_with("BM")) throw MediumFault("is no whole bitmap");
  offset_ = readLE32(at(bytes, 10));
  const uint32_t info = readLE32(at(bytes, 14));
  const auto height = static_cast<int32_t>(readLE32(at(bytes, 22)));
  width_ = readLE32(at(bytes, 18));
  topDown_ = height < 0;
  height_ = topDown_ ? 0u - static_cast<uint32_t>(height) : static_cast<uint32_t>(height);
  bits_ = readLE16(at(bytes, 28));
  const bool known = bits_ == 1 || bits_ == 4 || bits_ == 8 || bits_ == 24 || bits_ == 32;
  if (info < kInfoHeader || info > kLongestInfo || !known || readLE32(at(bytes, 30)) != 0)
    throw MediumFault(kOtherForm);
  demandReadableSize(width_, height_);
  stride_ = strideOf(width_, bits_);
  if (offset_ < kFileHeader + info || offset_ + stride_ * height_ > bytes.size())
    throw MediumFault("breaks off: a part of its dots is missing");
  const uint64_t dotsPerInch = (uint64_t{readLE32(at(bytes, 38))} * 254 + 5000) / 10000;
  if (dotsPerInch > 0 && dotsPerInch <= 0xFFFF) perInch_ = static_cast<uint16_t>(dotsPerInch);
  if (bits_ <= 8) readPalette(kFileHeader + info);
}

// A colour that the file leaves out is black.
void BitmapFile::readPalette(size_t header) {
  const uint32_t told = readLE32(at(bytes_, 46));
  const size_t room = (offset_ - header) / 4;
  const size_t all = size_t{1} << bits_;
  palette_.assign(all, kBlack);
  const size_t count = std::min({told == 0 ? all : size_t{told}, room, all});
  for (size_t i = 0; i < count; ++i) palette_[i] = readLE32(at(bytes_, header + 4 * i)) & kWhite;
}

const uint8_t* BitmapFile::row(uint32_t y) const {
  const uint64_t number = topDown_ ? y : height_ - 1 - y;
  return at(bytes_, offset_ + number * stride_);
}

uint32_t BitmapFile::color(const uint8_t* row, uint32_t x) const {
  if (bits_ <= 8) return palette_[indexAt(row, x, bits_)];
  const uint8_t* const dot = row + size_t{x} * (bits_ / 8);
  return static_cast<uint32_t>(dot[2] << 16 | dot[1] << 8 | dot[0]);
}

bool BitmapFile::isMonochrome() const {
  const auto is = [this](uint32_t first, uint32_t second) {
    return palette_[0] == first && palette_[1] == second;
  };
  return bits_ == 1 && (is(kBlack, kWhite) || is(kWhite, kBlack));
}

std::string BitmapFile::dots() const {
  const size_t length = (size_t{width_} + 7) / 8;
  const uint8_t turned = palette_[1] == kBlack ? 0 : 0xFF;
  const auto unused =
      static_cast<uint8_t>(0xFF << (length * 8 - width_));  // bits of the last byte that count
  std::string out;
  for (uint32_t y = 0; y < height_; ++y) {
    const uint8_t* const from = row(y);
    for (size_t i = 0; i < length; ++i) out += static_cast<char>(from[i] ^ turned);
    out.back() = static_cast<char>(out.back() & unused);
  }
  return out;
}

Raster BitmapFile::raster() const {
  Raster out{width_, height_, {}};
  out.rgb.reserve(size_t{width_} * height_ * 3);
  for (uint32_t y = 0; y < height_; ++y) {
    const uint8_t* const from = row(y);
    for (uint32_t x = 0; x < width_; ++x) {
      const uint32_t dot = color(from, x);
      for (const int shift : {16, 8, 0}) out.rgb += static_cast<char>(dot >> shift);
    }
  }
  return out;
}

std::string bitmapOf(const Raster& raster) {
  std::vector<uint32_t> colors;
  const std::map<uint32_t, uint8_t> places = paletteOf(raster, &colors);
  const unsigned bits = places.empty() ? 24 : colors.size() <= 16 ? 4 : 8;
  if (bits == 24) colors.clear();
  const auto offset = static_cast<uint32_t>(kHeaders + 4 * colors.size());
  const auto size = static_cast<uint32_t>(offset + strideOf(raster.width, bits) * raster.height);
  std::string out = "BM";
  for (const uint32_t field :
       {size, 0u, offset, static_cast<uint32_t>(kInfoHeader), raster.width, raster.height})
    appendLE(&out, field, 4);
  appendLE(&out, 1, 2);
  appendLE(&out, bits, 2);
  for (const uint32_t field : {0u, size - offset, 0u, 0u, static_cast<uint32_t>(colors.size()), 0u})
    appendLE(&out, field, 4);
  for (const uint32_t color : colors) appendColor(&out, color, 4);
  for (uint32_t y = raster.height; y > 0; --y) out += rowOf(raster, y - 1, bits, places);
  return out;
}

}  // namespace zavel::mkbook
