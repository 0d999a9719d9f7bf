// Text without the white space at its ends.
#ifndef MKDICT_TRIMMED_H
#define MKDICT_TRIMMED_H

#include <algorithm>
#include <string_view>

namespace zavel::mkdict {

// Without blanks, tabs and CRs at both ends.
inline std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlank = " \t\r";
  text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
  return text.substr(0, text.find_last_not_of(kBlank) + 1);
}

}  // namespace zavel::mkdict

#endif
