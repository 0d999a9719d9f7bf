// Tests: tests/zavel/JsonWriterTest.cpp
#include "JsonWriter.h"

#include <cstdio>

#include "Utf8.h"

namespace zavel::host {

void JsonWriter::separate() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (hasMembers_.empty()) return;
  if (hasMembers_.back()) text_ += ',';
  hasMembers_.back() = true;
}

JsonWriter& JsonWriter::beginObject() {
  separate();
  text_ += '{';
  hasMembers_.push_back(false);
  return *this;
}

JsonWriter& JsonWriter::endObject() {
  text_ += '}';
  hasMembers_.pop_back();
  return *this;
}

JsonWriter& JsonWriter::beginArray() {
  separate();
  text_ += '[';
  hasMembers_.push_back(false);
  return *this;
}

JsonWriter& JsonWriter::endArray() {
  text_ += ']';
  hasMembers_.pop_back();
  return *this;
}

JsonWriter& JsonWriter::key(std::string_view name) {
  separate();
  quote(name);
  text_ += ':';
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::string(std::string_view utf8) {
  separate();
  quote(utf8);
  return *this;
}

JsonWriter& JsonWriter::integer(int64_t value) {
  separate();
  text_ += std::to_string(value);
  return *this;
}

JsonWriter& JsonWriter::boolean(bool value) {
  separate();
  text_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::null() {
  separate();
  text_ += "null";
  return *this;
}

JsonWriter& JsonWriter::strings(std::string_view name, const std::vector<std::string>& values) {
  key(name).beginArray();
  for (const std::string& value : values) string(value);
  return endArray();
}

void JsonWriter::quote(std::string_view utf8) {
  text_ += '"';
  for (const char c : repairUtf8(utf8)) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      text_ += '\\';
      text_ += c;
    } else if (c == '\n') {
      text_ += "\\n";
    } else if (c == '\t') {
      text_ += "\\t";
    } else if (byte < 0x20) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", byte);
      text_ += escape;
    } else {
      text_ += c;
    }
  }
  text_ += '"';
}

}  // namespace zavel::host
