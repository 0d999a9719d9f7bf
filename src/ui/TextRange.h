#ifndef UI_TEXTRANGE_H
#define UI_TEXTRANGE_H

#include <cstddef>

namespace zavel {

// A part of a text, in UTF-16 units.
struct TextRange {
  size_t start = 0;
  size_t length = 0;

  size_t end() const { return start + length; }
  bool contains(size_t position) const { return position >= start && position - start < length; }
  bool operator==(const TextRange&) const = default;
};

}  // namespace zavel

#endif
