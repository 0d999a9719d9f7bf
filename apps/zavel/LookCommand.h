// `zavel look`.
#ifndef ZAVEL_LOOKCOMMAND_H
#define ZAVEL_LOOKCOMMAND_H

#include <cstdio>
#include <string>
#include <vector>

#include "LookResult.h"
#include "Terminal.h"

namespace zavel::host {

struct LookOptions {
  std::vector<std::string> words;  // none, or a lone "-": words come from standard input
  Mode mode = Mode::kAll;
  bool list = false;
  bool forms = false;
  bool json = false;
  bool nul = false;   // words on standard input end in NUL
  long limit = 0;     // 0: no limit
  long suggest = -1;  // -1: 5 for words on the command line, none for those from standard input
  ColorChoice colour = ColorChoice::kAuto;
};

// The exit status.
int runLook(const LookOptions& options);

}  // namespace zavel::host

#endif
