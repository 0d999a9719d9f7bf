// Strings that a host in C takes over.
#ifndef CONFIG_NEWSTRING_H
#define CONFIG_NEWSTRING_H

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace zavel {

// A copy from the general allocator, NUL-terminated, for the caller to free(); null without memory.
inline char* newString(std::string_view text) {
  char* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (!copy) return nullptr;
  std::copy(text.begin(), text.end(), copy);
  copy[text.size()] = '\0';
  return copy;
}

}  // namespace zavel

#endif
