// Which text a property list can hold.
#ifndef PORT_LINUX_BASE_PLISTTEXT_H
#define PORT_LINUX_BASE_PLISTTEXT_H

#include <string>
#include <string_view>

namespace zavel {

// True for the characters that an XML document may hold: tab, line feed, carriage return, U+0020 and up
// without U+FFFE and U+FFFF.
bool isPlistCharacter(char32_t code);

// True when `text` is UTF-8 and all its characters are such.
bool isPlistText(std::string_view text);

// A copy without what is not.
std::string toPlistText(std::string_view text);

}  // namespace zavel

#endif
