// Glyphs of 16 dots, from a font in the hexadecimal form of GNU Unifont: a line for each character, "0041:"
// and the dots, 32 digits for one of 8 x 16 and 64 for one of 16 x 16.
#ifndef MKBOOK_UNIFONT_H
#define MKBOOK_UNIFONT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zavel::mkbook {

class Unifont {
 public:
  // Throws Failure for a file that can't be read or has no glyph.
  static Unifont open(const std::string& path);

  // From the file's text. Lines of another form are passed over.
  explicit Unifont(std::string text);

  // Rows from the top, each padded to a byte, 1 is dark: 16 bytes for half width, 32 for full width; empty
  // for a character without a glyph.
  std::string glyph(char32_t character) const;

  size_t size() const { return places_.size(); }

 private:
  std::string text_;
  std::unordered_map<char32_t, std::pair<uint32_t, uint8_t>> places_;  // of the digits, and how many
};

}  // namespace zavel::mkbook

#endif
