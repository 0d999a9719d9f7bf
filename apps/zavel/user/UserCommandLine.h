// The command line of `zavel user`.
#ifndef ZAVEL_USER_USERCOMMANDLINE_H
#define ZAVEL_USER_USERCOMMANDLINE_H

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>

#include "user/UserOptions.h"

namespace zavel::host {

// Adds the command with its own commands; `addCommon` adds to each what every command takes.
void addUser(CLI::App& app, UserOptions& options, const std::function<void(CLI::App*)>& addCommon);

// Runs "user add" and so on.
int runUser(const std::string& command, const UserOptions& options);

// What each help begins with, by command.
const std::map<std::string, const char*>& userExamples();

}  // namespace zavel::host

#endif
