// A query as the user typed it.
#ifndef SHELL_QUERYTEXT_H
#define SHELL_QUERYTEXT_H

#include <string>
#include <string_view>

namespace zavel {

// `text` (UTF-8) without the control characters and white space, that of Unicode too, at both ends.
std::string stripQuery(std::string_view text);

// Whether Shift_JIS bytes count as English: they don't begin with a lead byte. The first byte alone decides.
bool isEnglishQuery(std::string_view sjis);

}  // namespace zavel

#endif
