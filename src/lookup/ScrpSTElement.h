#ifndef LOOKUP_SCRPSTELEMENT_H
#define LOOKUP_SCRPSTELEMENT_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "lookup/RGBColor.h"

namespace zavel {

// Bits of scrpFace.
inline constexpr uint8_t kFacePlain = 0;
inline constexpr uint8_t kFaceBold = 1;
inline constexpr uint8_t kFaceItalic = 2;

// One style run of a styled text: from its offset up to the next run's offset, or to the end of the text.
// In the style record a run takes 20 bytes, integers big end first:
//
//   0         4      6      8    10   11      12     14    16    18   20
//   |startChar|height|ascent|font|face|filler |size  |red  |green|blue |
struct ScrpSTElement {
  uint32_t scrpStartChar = 0;  // byte offset into the text
  uint16_t scrpHeight = 0;     // line height in points; a negative one as its low 16 bits
  uint16_t scrpAscent = 0;     // points above the base line
  int16_t scrpFont = 0;        // font number
  uint8_t scrpFace = kFacePlain;
  uint16_t scrpSize = 0;  // font size in points
  RGBColor scrpColor;

  bool operator==(const ScrpSTElement&) const = default;
};

inline constexpr size_t kScrpSTElementBytes = 20;

// Appends the 20 bytes of `run` to `record`.
void appendScrpSTElement(std::string& record, const ScrpSTElement& run);

}  // namespace zavel

#endif
