// Tests: tests/zavel/zavel-test.sh
#include "Failure.h"

#include <cstdio>

#include "JsonWriter.h"

namespace zavel::host {

int report(const Failure& failure) {
  std::fprintf(stderr, "zavel: %s\n", failure.message.c_str());
  if (!failure.hint.empty()) std::fprintf(stderr, "%s\n", failure.hint.c_str());
  return failure.status;
}

std::string failureJson(const Failure& failure) {
  JsonWriter json;
  json.beginObject().member("schema", 1).member("status", "error").key("error").beginObject();
  json.member("code", failure.code).member("message", failure.message);
  if (failure.hint.empty()) {
    json.key("hint").null();
  } else {
    json.member("hint", failure.hint);
  }
  json.endObject().endObject();
  return json.text();
}

}  // namespace zavel::host
