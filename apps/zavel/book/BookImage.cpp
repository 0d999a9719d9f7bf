// Tests: tests/zavel/book/BookImageTest.cpp
#include "book/BookImage.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "foundation/ByteReader.h"

namespace zavel::host {
namespace {

constexpr size_t kHeader = 54;             // of a bitmap file, info of 40 bytes counted
constexpr uint64_t kMostDots = 64u << 20;  // 256 MiB of them
constexpr size_t kLongestStored = 0xFFFF;  // bytes in a stored block

const uint8_t* bytesAt(std::string_view file, size_t place) {
  return reinterpret_cast<const uint8_t*>(file.data()) + place;
}

struct BitmapHeader {
  uint32_t offset, info, width, height, bits, compression, colours;

  explicit BitmapHeader(std::string_view file)
      : offset(readLE32(bytesAt(file, 10))),
        info(readLE32(bytesAt(file, 14))),
        width(readLE32(bytesAt(file, 18))),
        height(readLE32(bytesAt(file, 22))),
        bits(readLE16(bytesAt(file, 28))),
        compression(readLE32(bytesAt(file, 30))),
        colours(readLE32(bytesAt(file, 46))) {}

  bool isKnown() const {
    const bool depth = bits == 1 || bits == 4 || bits == 8 || bits == 24;
    return depth && compression == 0 && info >= 40 && width > 0 && height > 0 && width < 1u << 16 &&
           height < 1u << 16 && uint64_t{width} * height <= kMostDots;
  }
  uint64_t stride() const { return (uint64_t{width} * bits + 31) / 32 * 4; }
};

uint32_t colourAt(const uint8_t* bytes) {
  return static_cast<uint32_t>(bytes[2]) << 16 | static_cast<uint32_t>(bytes[1]) << 8 | bytes[0];
}

uint32_t crc32(std::string_view bytes) {
  uint32_t crc = 0xFFFFFFFF;
  for (const char c : bytes) {
    crc ^= static_cast<uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
  }
  return ~crc;
}

uint32_t adler32(std::string_view bytes) {
  uint32_t low = 1, high = 0;
  for (const char c : bytes) {
    low = (low + static_cast<uint8_t>(c)) % 65521;
    high = (high + low) % 65521;
  }
  return high << 16 | low;
}

void chunk(const std::string& name, const std::string& content, std::string* png) {
  appendBE32(*png, static_cast<uint32_t>(content.size()));
  *png += name + content;
  appendBE32(*png, crc32(name + content));
}

// In blocks that are stored as they are: what a book has is small.
std::string deflated(const std::string& bytes) {
  std::string out = "\x78\x01";
  for (size_t at = 0; at < bytes.size() || at == 0;) {
    const size_t size = std::min(bytes.size() - at, kLongestStored);
    out += at + size == bytes.size() ? '\x01' : '\x00';
    for (const size_t number : {size, ~size & 0xFFFF}) {
      out += static_cast<char>(number & 0xFF);
      out += static_cast<char>(number >> 8);
    }
    out += bytes.substr(at, size);
    at += std::max<size_t>(size, 1);
  }
  appendBE32(out, adler32(bytes));
  return out;
}

// The colours, each once; empty when there are more than one byte can tell.
std::vector<uint32_t> coloursOf(const BookImage& image) {
  std::vector<uint32_t> colours;
  for (const uint32_t dot : image.dots) {
    if (!colours.empty() && colours.back() == dot) continue;
    if (std::find(colours.begin(), colours.end(), dot) != colours.end()) continue;
    if (colours.size() == 256) return {};
    colours.push_back(dot);
  }
  return colours;
}

std::string threeBytes(uint32_t colour) {
  return {static_cast<char>(colour >> 16), static_cast<char>(colour >> 8), static_cast<char>(colour)};
}

std::string scanlines(const BookImage& image, const std::vector<uint32_t>& colours, unsigned bits) {
  std::string out;
  for (uint32_t y = 0; y < image.height; ++y) {
    out += '\0';  // no filter
    unsigned held = 0;
    for (uint32_t x = 0; x < image.width; ++x) {
      const uint32_t dot = image.dots[size_t{y} * image.width + x];
      if (bits == 24) {
        out += threeBytes(dot);
        continue;
      }
      const auto index =
          static_cast<unsigned>(std::find(colours.begin(), colours.end(), dot) - colours.begin());
      if (bits == 8) {
        out += static_cast<char>(index);
        continue;
      }
      held = held << 1 | index;
      const bool last = x + 1 == image.width;
      if (last) held <<= 7 - x % 8;
      if (last || x % 8 == 7) out += static_cast<char>(std::exchange(held, 0));
    }
  }
  return out;
}

}  // namespace

bool BookImage::isDark(uint32_t x, uint32_t y) const {
  if (x >= width || y >= height) return false;
  const uint32_t dot = dots[size_t{y} * width + x];
  const uint32_t light = (dot >> 16) * 3 + (dot >> 8 & 0xFF) * 6 + (dot & 0xFF);
  return light < 1280;  // half of ten times the brightest
}

std::optional<BookImage> readBitmap(std::string_view file) {
  if (file.size() < kHeader || !file.starts_with("BM")) return std::nullopt;
  const BitmapHeader header(file);
  if (!header.isKnown() || header.offset > file.size() ||
      header.stride() * header.height > file.size() - header.offset)
    return std::nullopt;
  const size_t palette = 14 + size_t{header.info};
  const size_t colours = header.bits == 24     ? 0
                         : header.colours != 0 ? header.colours
                                               : size_t{1} << header.bits;
  if (colours > 256 || palette + 4 * colours > file.size()) return std::nullopt;
  BookImage image{header.width, header.height, {}};
  image.dots.reserve(size_t{header.width} * header.height);
  for (uint32_t y = 0; y < header.height; ++y) {
    const uint8_t* const row = bytesAt(file, header.offset + header.stride() * (header.height - 1 - y));
    for (uint32_t x = 0; x < header.width; ++x) {
      if (header.bits == 24) {
        image.dots.push_back(colourAt(row + size_t{x} * 3));
        continue;
      }
      const uint32_t bit = x * header.bits;
      const unsigned index = row[bit / 8] >> (8 - header.bits - bit % 8) & ((1u << header.bits) - 1);
      image.dots.push_back(index < colours ? colourAt(bytesAt(file, palette + size_t{4} * index)) : 0);
    }
  }
  return image;
}

std::string inBlocks(const BookImage& image) {
  std::string out;
  for (uint32_t y = 0; y < image.height; y += 2) {
    std::string line, blanks;
    for (uint32_t x = 0; x < image.width; ++x) {
      const bool above = image.isDark(x, y), below = image.isDark(x, y + 1);
      if (!above && !below) {
        blanks += ' ';
        continue;
      }
      line += std::exchange(blanks, {}) + (above && below ? "█" : above ? "▀" : "▄");
    }
    out += line + "\n";
  }
  return out;
}

std::string inColours(const BookImage& image) {
  constexpr uint32_t kWhite = 0xFFFFFF;
  std::string out;
  char cell[64];
  for (uint32_t y = 0; y < image.height; y += 2) {
    for (uint32_t x = 0; x < image.width; ++x) {
      const size_t at = size_t{y} * image.width + x;
      const uint32_t above = image.dots[at];
      const uint32_t below = y + 1 < image.height ? image.dots[at + image.width] : kWhite;
      std::snprintf(cell, sizeof cell, "\x1b[38;2;%u;%u;%um\x1b[48;2;%u;%u;%um▀", above >> 16,
                    above >> 8 & 0xFF, above & 0xFF, below >> 16, below >> 8 & 0xFF, below & 0xFF);
      out += cell;
    }
    out += "\x1b[0m\n";
  }
  return out;
}

bool hasColours(const BookImage& image) {
  return std::any_of(image.dots.begin(), image.dots.end(),
                     [](uint32_t dot) { return dot != 0 && dot != 0xFFFFFF; });
}

std::string pngFile(const BookImage& image) {
  const std::vector<uint32_t> colours = coloursOf(image);
  const unsigned bits = colours.empty() ? 24 : colours.size() > 2 ? 8 : 1;
  constexpr uint8_t kTrueColour = 2, kIndexed = 3;
  std::string header;
  appendBE32(header, image.width);
  appendBE32(header, image.height);
  header += static_cast<char>(std::min(bits, 8u));
  header += static_cast<char>(bits == 24 ? kTrueColour : kIndexed);
  header += std::string(3, '\0');
  std::string png = "\x89PNG\r\n\x1A\n";
  chunk("IHDR", header, &png);
  std::string palette;
  for (const uint32_t colour : colours) palette += threeBytes(colour);
  if (!palette.empty()) chunk("PLTE", palette, &png);
  chunk("IDAT", deflated(scanlines(image, colours, bits)), &png);
  chunk("IEND", "", &png);
  return png;
}

const char* formOf(std::string_view file) {
  if (file.starts_with("BM")) return "bmp";
  if (file.starts_with("\xFF\xD8")) return "jpeg";
  if (file.starts_with("\x89PNG")) return "png";
  return file.starts_with("RIFF") ? "wav" : "unknown";
}

std::string base64(std::string_view bytes) {
  constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t at = 0; at < bytes.size(); at += 3) {
    const size_t left = std::min<size_t>(bytes.size() - at, 3);
    uint32_t three = 0;
    for (size_t i = 0; i < 3; ++i) three = three << 8 | (i < left ? static_cast<uint8_t>(bytes[at + i]) : 0);
    for (size_t i = 0; i < 4; ++i) out += i <= left ? kDigits[three >> (18 - 6 * i) & 63] : '=';
  }
  return out;
}

}  // namespace zavel::host
