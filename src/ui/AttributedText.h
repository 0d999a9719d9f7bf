// Text with styles. Positions in it count UTF-16 units, as styles, links and the engines' word links have
// them, though the text itself is UTF-8: "go 行く" has 5 units and 9 bytes, a kanji outside the basic plane
// has 2 units and 4 bytes. The counting is done here and nowhere else.
#ifndef UI_ATTRIBUTEDTEXT_H
#define UI_ATTRIBUTEDTEXT_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Export.h"
#include "ui/TextRange.h"
#include "ui/TextStyle.h"

namespace zavel {

// Text that comes in is UTF-8; what isn't becomes U+FFFD. Ranges are cut to the text, and an end between the
// two halves of a character is moved to its beginning.
class ZAVEL_API AttributedText {
 public:
  struct Run {
    TextRange range;
    TextStyle style;

    bool operator==(const Run&) const = default;
  };

  AttributedText() = default;
  explicit AttributedText(std::string_view utf8, const TextStyle& style = {}) { append(utf8, style); }

  const std::string& text() const { return text_; }
  size_t length() const { return length_; }
  bool empty() const { return length_ == 0; }

  // The whole text in order without gaps; neighbours differ in style. Empty for an empty text.
  const std::vector<Run>& runs() const { return runs_; }

  // Null at and behind the end. Borrowed until the text changes.
  const TextStyle* styleAt(size_t position) const;

  TextRange clip(TextRange range) const;
  std::string substring(TextRange range) const;

  // The bytes of text() from `first` up to `last` are those of `range`.
  struct Bytes {
    size_t first = 0;
    size_t last = 0;
  };
  Bytes bytesOf(TextRange range) const;

  // Costs the same whatever the text's length.
  void append(std::string_view utf8, const TextStyle& style = {});
  void append(const AttributedText& other);

  void replace(TextRange range, std::string_view utf8, const TextStyle& style);
  // In the style of the first character replaced, else of the one ahead of the range.
  void replace(TextRange range, std::string_view utf8);

  // Calls `edit` on the style of each run inside the range.
  void restyle(TextRange range, const std::function<void(TextStyle&)>& edit);

  bool operator==(const AttributedText&) const = default;

  // Units of a text, which is UTF-8.
  static size_t unitsOf(std::string_view utf8);

 private:
  size_t runAt(size_t position) const;
  size_t splitAt(size_t position);
  void joinAround(size_t first, size_t last);
  size_t byteOf(size_t* position) const;

  std::string text_;       // valid UTF-8
  size_t length_ = 0;      // units of it
  std::vector<Run> runs_;  // see runs()
};

}  // namespace zavel

#endif
