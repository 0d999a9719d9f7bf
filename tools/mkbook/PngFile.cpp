// Tests: tests/mkbook/PicturesTest.cpp
#include "mkbook/PngFile.h"

#include <png.h>

#include "mkbook/MediumFault.h"

namespace zavel::mkbook {
namespace {

constexpr std::string_view kSignature("\x89PNG\r\n\x1A\n", 8);
constexpr size_t kBitDepth = 24;  // in the header, which comes first

// What libpng holds for a picture, given back in any case.
struct Reading {
  Reading() { image.version = PNG_IMAGE_VERSION; }
  ~Reading() { png_image_free(&image); }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  [[noreturn]] void fail() const { throw MediumFault(std::string("is damaged: ") + image.message); }

  png_image image{};
};

}  // namespace

bool isPng(std::string_view bytes) {
  return bytes.starts_with(kSignature);
}

bool isOneBitPng(std::string_view bytes) {
  return isPng(bytes) && bytes.size() > kBitDepth && bytes[kBitDepth] == 1;
}

Raster readPng(std::string_view bytes) {
  Reading reading;
  if (png_image_begin_read_from_memory(&reading.image, bytes.data(), bytes.size()) == 0) reading.fail();
  demandReadableSize(reading.image.width, reading.image.height);
  reading.image.format = PNG_FORMAT_RGB;
  Raster out{reading.image.width, reading.image.height, {}};
  out.rgb.resize(PNG_IMAGE_SIZE(reading.image));
  const png_color white = {255, 255, 255};
  if (png_image_finish_read(&reading.image, &white, out.rgb.data(), 0, nullptr) == 0) reading.fail();
  return out;
}

}  // namespace zavel::mkbook
