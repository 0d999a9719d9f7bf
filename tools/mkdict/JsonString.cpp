#include "mkdict/JsonString.h"

#include <cstdio>

#include "platform/Platform.h"
#include "platform/TextEncoding.h"

namespace zavel::mkdict {

std::string jsonString(std::string_view utf8) {
  std::string out = "\"";
  for (const char c : platform().encoding().toUtf8Lossy(utf8, Encoding::kUtf8)) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (byte < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", byte);
      out += escape;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

}  // namespace zavel::mkdict
