// PNG files, by libpng.
#ifndef MKBOOK_PNGFILE_H
#define MKBOOK_PNGFILE_H

#include <string_view>

#include "mkbook/Raster.h"

namespace zavel::mkbook {

bool isPng(std::string_view bytes);

// Whether its dots have one bit.
bool isOneBitPng(std::string_view bytes);

// Where it is transparent it shows white. Throws MediumFault.
Raster readPng(std::string_view bytes);

}  // namespace zavel::mkbook

#endif
