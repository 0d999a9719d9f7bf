// The standard log: lines for whoever looks after a running host, never for its user.
#ifndef PLATFORM_LOG_H
#define PLATFORM_LOG_H

#include <string>

namespace zavel {

using LogSink = void (*)(const std::string& line);

// Writes one line, given without its line end. UTF-8.
void logLine(const std::string& line);

// Where lines go; null for standard error. Gives the sink that was there.
LogSink setLogSink(LogSink sink);

}  // namespace zavel

#endif
