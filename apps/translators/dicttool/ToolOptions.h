// What the command line asks for.
#ifndef DICTTOOL_TOOLOPTIONS_H
#define DICTTOOL_TOOLOPTIONS_H

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zavel::dicttool {

struct ToolOptions {
  std::string parameterFile;            // -d
  bool medical = false;                 // -m: the dictionaries of the configuration alone
  std::string styleFile;                // -i
  int64_t styleNumber = 0;              // -s
  std::string source;                   // -e
  std::string result;                   // -r
  bool word = false;                    // -w
  std::vector<std::string> conversion;  // --convert: source and target, else empty
  std::string verify;                   // --verify: what a conversion has made

  // Nothing when there is nothing left to do: help or version went to `out`, or one line about wrong usage to
  // `err`; *status is then the exit status, 0 or 2.
  static std::optional<ToolOptions> parse(int argc, const char* const* argv, std::ostream& out,
                                          std::ostream& err, int* status);
};

}  // namespace zavel::dicttool

#endif
