// Files of pictures: BMP, PNG and JPEG, told by their first bytes.
#ifndef MKBOOK_PICTUREFILE_H
#define MKBOOK_PICTUREFILE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "mkbook/Medium.h"

namespace zavel::mkbook {

// A picture as a book stores it: one of one bit a dot that shows black and white alone as a monochrome
// picture; a bitmap and a JPEG as they are, a PNG as a bitmap. Throws MediumFault.
Medium readPicture(std::string file);

// The dots of an icon, four bits each, the bottom row first, each in the nearest of the sixteen colours that
// icons have. From BMP or PNG of that size. Throws MediumFault.
std::string readIcon(std::string_view file, uint32_t width, uint32_t height);

}  // namespace zavel::mkbook

#endif
