// What the command line asks for.
#ifndef MKDICT_OPTIONS_H
#define MKDICT_OPTIONS_H

#include <ostream>
#include <string>

#include "mkdict/EnglishSide.h"

namespace zavel::mkdict {

struct Options {
  std::string target;  // folder to write the set to; empty with verify
  std::string verify;  // folder of a set to check; empty when building
  std::string edict = "/usr/share/edict/edict";
  EnglishSources english;
  std::string progress = "auto";  // auto, bar, plain, json, none
  bool json = false;
  bool quiet = false;
};

// Reads the arguments. True: go on with *options. False: help or the version was printed to `out`, or a
// sentence about wrong usage to `err`; *status is then the exit status, 0 or 2.
bool parseOptions(int argc, const char* const* argv, Options* options, std::ostream& out, std::ostream& err,
                  int* status);

}  // namespace zavel::mkdict

#endif
