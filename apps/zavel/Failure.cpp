// Tests: tests/zavel/CommandTest.cpp, zavel-test.sh
#include "Failure.h"

#include <cstdio>

#include "JsonWriter.h"

namespace zavel::host {

int report(const Failure& failure, bool json) {
  if (json) std::printf("%s\n", failureJson(failure).c_str());
  std::fflush(stdout);
  std::fprintf(stderr, "zavel: %s\n%s\n", failure.message.c_str(), failure.hint.c_str());
  return failure.status;
}

void warn(const std::string& message) {
  std::fflush(stdout);
  std::fprintf(stderr, "zavel: %s\n", message.c_str());
}

std::string failureJson(const Failure& failure) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", "error").key("error").beginObject();
  json.member("code", failure.code).member("message", failure.message).member("hint", failure.hint);
  json.endObject().endObject();
  return json.text();
}

}  // namespace zavel::host
