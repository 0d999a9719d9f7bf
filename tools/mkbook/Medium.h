// A picture or a sound, as a book stores it.
#ifndef MKBOOK_MEDIUM_H
#define MKBOOK_MEDIUM_H

#include <cstdint>
#include <string>

namespace zavel::mkbook {

// All but the bytes.
struct MediumShape {
  enum class Kind {
    kMonoPicture,   // dots: rows from the top, each padded to a byte, 1 is dark
    kColorPicture,  // a bitmap or JPEG file
    kSound,         // PCM samples, or the chunks of a WAVE file without its outer header
  };
  Kind kind = Kind::kColorPicture;
  uint32_t width = 0, height = 0;  // of pictures
  uint16_t perInch = 72;           // dots of a monochrome picture
  uint16_t format = 0;             // of a sound, as its tag has it
  uint32_t size = 0;               // bytes

  bool operator==(const MediumShape& other) const = default;
};

struct Medium {
  MediumShape shape;
  std::string bytes;
};

inline constexpr uint32_t kLargestMedium = 128u << 20;  // bytes

}  // namespace zavel::mkbook

#endif
