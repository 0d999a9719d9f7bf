// What is known of where the output goes: colours or not, how wide.
#ifndef ZAVEL_TERMINAL_H
#define ZAVEL_TERMINAL_H

#include <cstddef>
#include <string>

namespace zavel::host {

enum class ColorChoice { kAuto, kAlways, kNever };

// Whether to send colours to file descriptor `fd`. NO_COLOR (set and not empty) wins over forcing by
// CLICOLOR_FORCE or FORCE_COLOR; a flag on the command line wins over both.
bool useColor(int fd, ColorChoice choice);

bool isTerminal(int fd);

// Columns of the terminal at `fd`; 0 when it is none, so that nothing is wrapped.
size_t terminalWidth(int fd);

// Rows of the terminal at `fd`; 0 when it is none, or when it doesn't tell.
size_t terminalRows(int fd);

}  // namespace zavel::host

#endif
