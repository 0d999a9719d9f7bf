// Tests: tests/platform/LogTest.cpp
#include "platform/Log.h"

#include <cstdio>

namespace zavel {
namespace {

LogSink g_sink = nullptr;  // null: standard error

// In one piece, so that lines of several programs on one terminal don't mix.
void writeToStandardError(const std::string& line) {
  const std::string whole = line + "\n";
  std::fwrite(whole.data(), 1, whole.size(), stderr);
}

}  // namespace

void logLine(const std::string& line) {
  if (g_sink) {
    g_sink(line);
  } else {
    writeToStandardError(line);
  }
}

LogSink setLogSink(LogSink sink) {
  const LogSink previous = g_sink;
  g_sink = sink;
  return previous;
}

}  // namespace zavel
