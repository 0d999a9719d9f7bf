// JPEG files, by libjpeg.
#ifndef MKBOOK_JPEGFILE_H
#define MKBOOK_JPEGFILE_H

#include <cstdint>
#include <string_view>

namespace zavel::mkbook {

bool isJpeg(std::string_view bytes);

// Reads the whole picture. Throws MediumFault for one that is damaged, too large, or of four colours, which
// many programs show wrong.
void checkJpeg(std::string_view bytes, uint32_t* width, uint32_t* height);

}  // namespace zavel::mkbook

#endif
