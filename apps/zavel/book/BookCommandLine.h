// The command line of `zavel book`.
#ifndef ZAVEL_BOOK_BOOKCOMMANDLINE_H
#define ZAVEL_BOOK_BOOKCOMMANDLINE_H

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>

#include "book/BookOptions.h"

namespace zavel::host {

// Adds the command with its own commands; `addCommon` adds to each what every command takes.
void addBook(CLI::App& app, BookOptions& options, const std::function<void(CLI::App*)>& addCommon);

// Runs "book list" and so on.
int runBook(const std::string& command, const BookOptions& options);

// What each help begins with, by command.
const std::map<std::string, const char*>& bookExamples();

// What some end with.
const std::map<std::string, const char*>& bookNotes();

}  // namespace zavel::host

#endif
