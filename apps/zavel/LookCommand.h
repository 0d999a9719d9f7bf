// `zavel look`.
#ifndef ZAVEL_LOOKCOMMAND_H
#define ZAVEL_LOOKCOMMAND_H

#include <string>
#include <vector>

#include "LookResult.h"
#include "Terminal.h"

namespace zavel::host {

struct LookOptions {
  std::vector<std::string> words;  // "-" stands for the words on standard input, and so do none at all
  Mode mode = Mode::kAll;
  bool list = false;
  bool forms = false;
  bool json = false;
  bool plain = false;
  bool nul = false;  // words on standard input end in NUL
  bool noPager = false;
  long limit = 0;     // 0: no limit
  long row = 0;       // from 1 on: this row is shown in place of the answer; 0: none
  long suggest = -1;  // -1: 5 for words on the command line, none for those from standard input
  ColorChoice colour = ColorChoice::kAuto;
};

// The exit status.
int runLook(const LookOptions& options);

}  // namespace zavel::host

#endif
