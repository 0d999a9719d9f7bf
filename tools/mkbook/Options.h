// What the command line asks for.
#ifndef MKBOOK_OPTIONS_H
#define MKBOOK_OPTIONS_H

#include <cstdint>
#include <ostream>
#include <string>

namespace zavel::mkbook {

struct Options {
  std::string form;     // of the source: "dictd", "edict", "kanjidic", "text"
  std::string source;   // its file
  std::string target;   // folder of the book
  std::string title;    // empty: the source's own
  uint32_t number = 0;  // identity; 0: made from the title
  std::string unifont = "/usr/share/unifont/unifont.hex";
  bool verify = false;            // compare the book that stands there instead of making one
  std::string progress = "auto";  // auto, bar, plain, json, none
  bool json = false;
  bool quiet = false;
};

// Reads the arguments. True: go on with *options. False: help or the version was printed to `out`, or a
// sentence about wrong usage to `err`; *status is then the exit status, 0 or 2.
bool parseOptions(int argc, const char* const* argv, Options* options, std::ostream& out, std::ostream& err,
                  int* status);

}  // namespace zavel::mkbook

#endif
