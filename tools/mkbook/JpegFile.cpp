// Tests: tests/mkbook/PicturesTest.cpp
#include "mkbook/JpegFile.h"

#include <csetjmp>
#include <cstdio>
#include <string>
// Behind <cstdio>, which it needs and doesn't include.
#include <jpeglib.h>

#include "mkbook/MediumFault.h"
#include "mkbook/Raster.h"

namespace zavel::mkbook {
namespace {

constexpr int kMostScans = 100;  // of progressive pictures; each takes as long as a whole picture
constexpr unsigned kShrunk = 8;  // dots are not looked at: an eighth of them is enough

struct Reading {
  jpeg_decompress_struct picture;
  jpeg_error_mgr errors;
  jpeg_progress_mgr progress;
  std::jmp_buf giveUp;
  char message[JMSG_LENGTH_MAX];
};

Reading* readingOf(j_common_ptr picture) {
  return static_cast<Reading*>(picture->client_data);
}

void giveUp(j_common_ptr picture) {
  Reading* const reading = readingOf(picture);
  picture->err->format_message(picture, reading->message);
  std::longjmp(reading->giveUp, 1);
}

// A warning is of damage that the library could go on behind: the first one is kept.
void noteWarning(j_common_ptr picture, int level) {
  if (level < 0 && picture->err->num_warnings++ == 0)
    picture->err->format_message(picture, readingOf(picture)->message);
}

void boundScans(j_common_ptr picture) {
  if (reinterpret_cast<j_decompress_ptr>(picture)->input_scan_number <= kMostScans) return;
  Reading* const reading = readingOf(picture);
  std::snprintf(reading->message, sizeof reading->message, "more than %d scans", kMostScans);
  std::longjmp(reading->giveUp, 1);
}

// Up to the header. False with a message. From here no object of C++ stands on the way of longjmp.
bool readHeader(Reading* reading, std::string_view bytes) {
  if (setjmp(reading->giveUp) != 0) return false;
  jpeg_mem_src(&reading->picture, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  jpeg_read_header(&reading->picture, TRUE);
  return true;
}

bool readDots(Reading* reading) {
  if (setjmp(reading->giveUp) != 0) return false;
  jpeg_decompress_struct* const picture = &reading->picture;
  picture->scale_num = 1;
  picture->scale_denom = kShrunk;
  jpeg_start_decompress(picture);
  JSAMPARRAY const row = picture->mem->alloc_sarray(
      reinterpret_cast<j_common_ptr>(picture), JPOOL_IMAGE,
      picture->output_width * static_cast<unsigned>(picture->output_components), 1);
  while (picture->output_scanline < picture->output_height) jpeg_read_scanlines(picture, row, 1);
  jpeg_finish_decompress(picture);
  return reading->errors.num_warnings == 0;
}

class Checked {
 public:
  Checked() {
    reading_.message[0] = '\0';
    reading_.picture.err = jpeg_std_error(&reading_.errors);
    reading_.errors.error_exit = giveUp;
    reading_.errors.emit_message = noteWarning;
    reading_.progress.progress_monitor = boundScans;
    reading_.picture.client_data = &reading_;  // stays when the rest is cleared
    jpeg_create_decompress(&reading_.picture);
    reading_.picture.progress = &reading_.progress;
  }
  ~Checked() { jpeg_destroy_decompress(&reading_.picture); }
  Checked(const Checked&) = delete;
  Checked& operator=(const Checked&) = delete;

  void run(std::string_view bytes, uint32_t* width, uint32_t* height) {
    if (!readHeader(&reading_, bytes)) fail();
    *width = reading_.picture.image_width;
    *height = reading_.picture.image_height;
    demandReadableSize(*width, *height);
    if (reading_.picture.num_components > 3)
      throw MediumFault("has the four colours of print; save it in red, green and blue");
    if (!readDots(&reading_)) fail();
  }

 private:
  [[noreturn]] void fail() const { throw MediumFault(std::string("is damaged: ") + reading_.message); }

  Reading reading_{};
};

}  // namespace

bool isJpeg(std::string_view bytes) {
  return bytes.starts_with("\xFF\xD8\xFF");
}

void checkJpeg(std::string_view bytes, uint32_t* width, uint32_t* height) {
  Checked().run(bytes, width, height);
}

}  // namespace zavel::mkbook
