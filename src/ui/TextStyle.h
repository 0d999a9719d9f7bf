#ifndef UI_TEXTSTYLE_H
#define UI_TEXTSTYLE_H

#include <optional>
#include <string>

#include "ui/Color.h"

namespace zavel {

// What a piece of text looks like, and where it leads. What is left open is as the text view has it.
struct TextStyle {
  std::string fontName;        // empty: open
  double fontSize = 0;         // points; 0: open
  std::optional<Color> color;  // none: open
  bool bold = false;
  bool italic = false;
  bool underline = false;
  int superscript = 0;  // 1 above the line, -1 below it
  double indent = 0;    // of the paragraph, points
  int link = -1;        // number of a link that whoever filled the text keeps; -1: none

  bool operator==(const TextStyle&) const = default;
};

}  // namespace zavel

#endif
