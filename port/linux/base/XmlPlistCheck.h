// The door in front of the library's XML reader.
#ifndef PORT_LINUX_BASE_XMLPLISTCHECK_H
#define PORT_LINUX_BASE_XMLPLISTCHECK_H

#include <optional>
#include <string>
#include <string_view>

namespace zavel {

// Makes sure that `text` (without a byte order mark) is a property list in XML that the library reads
// rightly: within the limits, text that XML can hold, every element known and closed, one value, each key
// with its value, integers of 64 signed bits, numbers, dates and base64 that are such. The library by itself
// drops a key without value, bends numbers and dates that it can't hold, and overflows the stack on deep
// lists. Also refused, because the library would read it otherwise than it is meant: a declared encoding
// other than UTF-8, entities of the document's own, an integer that begins with a needless zero.
//
// Result: the list to hand to the library, or nothing. It is `text` with the references in strings and keys
// resolved, for the library takes time by the square of their number.
std::optional<std::string> safeXmlPlist(std::string_view text);

}  // namespace zavel

#endif
