// Writes JSON with its keys in the order they are given, on one line.
#ifndef ZAVEL_JSONWRITER_H
#define ZAVEL_JSONWRITER_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// Calls must nest as the document does: a value in an object follows a key(). Text is UTF-8; what is not
// becomes U+FFFD, so that the result is valid whatever comes in.
class JsonWriter {
 public:
  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  JsonWriter& key(std::string_view name);
  JsonWriter& string(std::string_view utf8);
  JsonWriter& integer(int64_t value);
  JsonWriter& boolean(bool value);
  JsonWriter& null();

  // key() with a value behind it.
  JsonWriter& member(std::string_view name, std::string_view utf8) { return key(name).string(utf8); }
  JsonWriter& member(std::string_view name, int64_t value) { return key(name).integer(value); }
  JsonWriter& strings(std::string_view name, const std::vector<std::string>& values);

  const std::string& text() const { return text_; }

 private:
  void separate();  // the comma ahead of a further member or element
  void quote(std::string_view utf8);

  std::string text_;
  std::vector<bool> hasMembers_;  // one per open object or array
  bool afterKey_ = false;
};

}  // namespace zavel::host

#endif
