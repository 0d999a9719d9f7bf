// Tests: tests/zavel/PrefsTest.cpp, DictionariesTest.cpp
#include "NumberOption.h"

#include <charconv>
#include <string>

namespace zavel::host {

CLI::Validator numberFrom(long least, long most) {
  const auto check = [least, most](std::string& text) -> std::string {
    long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (whole && number >= least && number <= most) return {};
    return "\"" + text + "\" is not a number from " + std::to_string(least) + " to " + std::to_string(most);
  };
  return CLI::Validator(check, "");
}

}  // namespace zavel::host
