// Styled text files: the text of a look-up's result, with its styles beside it.
#ifndef UI_STYLEDTEXTFILE_H
#define UI_STYLEDTEXTFILE_H

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Export.h"
#include "ui/AttributedText.h"

namespace zavel {

// Reads the file at `path`: the text part in Shift_JIS, the style record "styl" 128. Nothing when there is no
// such file, or when it is damaged. A file without that record gives text without styles.
ZAVEL_API std::optional<AttributedText> readStyledTextFile(const std::string& path);

// The same from the two parts. A record is a count and that many runs of 20 bytes, as docs/formats.md draws
// them, its offsets counting bytes of `sjis` and never falling; nothing for any other. A run that begins
// inside a double-byte character, or behind the end, begins with that character, or not at all. Lines still
// end with a CR. A run tells size, face and colour; the font is the reader's.
ZAVEL_API std::optional<AttributedText> decodeStyledText(std::string_view sjis, std::string_view record);

}  // namespace zavel

#endif
