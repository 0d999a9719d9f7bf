// The words of the command line ahead of their parsing: which command they name, what belongs to it.
#ifndef ZAVEL_COMMANDLINE_H
#define ZAVEL_COMMANDLINE_H

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "Failure.h"

namespace zavel::host {

// The command line taken apart ahead of its parsing: options may stand on either side of the command.
struct CommandLine {
  std::vector<std::string> commands;  // "dict", "build"
  std::vector<std::string> rest;      // options from ahead of the last command, then what stands behind it
  std::string unknown;                // a word in the place of a command that is none
  bool help = false;
  bool json = false;
};

CommandLine readCommandLine(CLI::App& app, const std::vector<std::string>& words);

// The command of this name right below `app`; null when there is none.
CLI::App* subcommand(CLI::App& app, const std::string& name);

// "dict build".
std::string joined(const std::vector<std::string>& words);

// What is wrong with a line that the parser refuses, in the words of this program's other messages.
std::string usageMessage(CLI::App& app, const CommandLine& line, const CLI::ParseError& error);

// The failure of a line with an unknown command, which is never run, however near a known one is.
Failure unknownCommand(CLI::App& app, const CommandLine& line);

// The first word of the line that looks like options of one letter, "-ism", and isn't: the command doesn't
// have them all. Empty when there is none.
std::string strayWord(CLI::App& app, const CommandLine& line);

}  // namespace zavel::host

#endif
