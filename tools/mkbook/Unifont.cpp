// Tests: tests/mkbook/CharactersTest.cpp
#include "mkbook/Unifont.h"

#include <algorithm>
#include <charconv>

#include "foundation/Storage.h"
#include "mkbook/Failure.h"

namespace zavel::mkbook {
namespace {

constexpr size_t kFileLimit = size_t{64} << 20;
constexpr size_t kHalfWidth = 32, kFullWidth = 64;  // digits
constexpr const char* kHint = "Install the Debian package unifont, or name the place with --unifont.";

// A number of `digits` alone.
bool readHex(std::string_view digits, uint32_t* value) {
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), *value, 16);
  return error == std::errc() && end == digits.data() + digits.size();
}

}  // namespace

Unifont Unifont::open(const std::string& path) {
  std::string text;
  if (!readWholeFile(path, kFileLimit, &text))
    throw Failure(mkdict::kExitEnvironment, "missing_input", path + " is missing or can't be read", kHint);
  Unifont font(std::move(text));
  if (font.size() == 0)
    throw Failure(mkdict::kExitDamaged, "damaged_input", path + " holds no glyphs", kHint);
  return font;
}

Unifont::Unifont(std::string text) : text_(std::move(text)) {
  const std::string_view all = text_;
  for (size_t at = 0; at < all.size();) {
    const size_t end = std::min(all.find('\n', at), all.size());
    const std::string_view line = all.substr(at, end - at);
    const size_t colon = line.find(':');
    uint32_t character = 0;
    if (colon != std::string_view::npos && readHex(line.substr(0, colon), &character)) {
      const size_t digits = line.size() - colon - 1;
      if (digits == kHalfWidth || digits == kFullWidth)
        places_[character] = {static_cast<uint32_t>(at + colon + 1), static_cast<uint8_t>(digits)};
    }
    at = end + 1;
  }
}

std::string Unifont::glyph(char32_t character) const {
  const auto found = places_.find(character);
  if (found == places_.end()) return "";
  const std::string_view digits = std::string_view(text_).substr(found->second.first, found->second.second);
  std::string dots;
  for (size_t at = 0; at < digits.size(); at += 2) {
    uint32_t byte = 0;
    if (!readHex(digits.substr(at, 2), &byte)) return "";
    dots += static_cast<char>(byte);
  }
  return dots;
}

}  // namespace zavel::mkbook
