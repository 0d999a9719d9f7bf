// Numbers on the command line.
#ifndef ZAVEL_NUMBEROPTION_H
#define ZAVEL_NUMBEROPTION_H

#include <CLI/CLI.hpp>

namespace zavel::host {

// Takes the decimal numbers from `least` to `most`; of anything else it tells that they are wanted.
CLI::Validator numberFrom(long least, long most);

}  // namespace zavel::host

#endif
