// Help: examples first, then what a command takes.
#ifndef ZAVEL_HELP_H
#define ZAVEL_HELP_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace zavel::host {

// Writes the help of the command that the names lead to ("dict", "build"), the short one of the whole program
// for none, and gives the exit status.
int printHelp(CLI::App& app, const std::vector<std::string>& commands);

}  // namespace zavel::host

#endif
