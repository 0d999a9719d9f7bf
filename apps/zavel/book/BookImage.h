// Pictures of a book: bitmap files as the engine gives them, on a terminal and as PNG.
#ifndef ZAVEL_BOOK_BOOKIMAGE_H
#define ZAVEL_BOOK_BOOKIMAGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

struct BookImage {
  uint32_t width = 0, height = 0;
  std::vector<uint32_t> dots;  // 0xRRGGBB, row by row from the top

  bool isDark(uint32_t x, uint32_t y) const;
};

// A bitmap file of 1, 4, 8 or 24 bits without compression; nothing for any other file, or one cut short.
std::optional<BookImage> readBitmap(std::string_view file);

// Two rows of dots a line, dark ones filled, blanks at the ends of lines left out.
std::string inBlocks(const BookImage& image);

// The same with each dot in its own colour.
std::string inColours(const BookImage& image);

// Whether it has more than black and white.
bool hasColours(const BookImage& image);

std::string pngFile(const BookImage& image);

// "bmp", "jpeg", "png" or "wav", as the bytes begin; "unknown".
const char* formOf(std::string_view file);

std::string base64(std::string_view bytes);

}  // namespace zavel::host

#endif
