// A string as JSON writes it.
#ifndef MKDICT_JSONSTRING_H
#define MKDICT_JSONSTRING_H

#include <string>
#include <string_view>

namespace zavel::mkdict {

// `utf8` in quotation marks, with the escapes that JSON demands. Bytes that are no UTF-8 become U+FFFD.
std::string jsonString(std::string_view utf8);

}  // namespace zavel::mkdict

#endif
