// Tests: tests/foundation/IniFileTest.cpp
#include "foundation/IniFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "foundation/KanjiConversion.h"
#include "foundation/Storage.h"

namespace zavel::foundation {
namespace {

constexpr size_t kLine = 512;  // a line and its NUL

// The storage in use need not be the port's own, and then there may be no error number.
int lastError(int otherwise) {
  return errno != 0 ? errno : otherwise;
}

// Says what it says on standard output: hosts that watch it know these lines.
int readFile(const char* path, IniText* out, bool talks) {
  errno = 0;
  const std::unique_ptr<StorageFile> file = storage().open(path, OpenMode::kRead);
  if (!file) {
    const int error = lastError(EIO);
    if (talks && error == ENOENT) std::printf("CURPOS:0\n");  // of the file that is made
    return error;
  }
  const int64_t size = file->size();
  if (size < 0 && talks) std::printf("SEEK_END failed %d\n", lastError(EIO));
  if (talks) std::printf("CURPOS:%lld\n", static_cast<long long>(size));
  if (size < 0) return lastError(EIO);
  if (static_cast<uint64_t>(size) > kLargestIniFile) return EFBIG;
  out->content.resize(static_cast<size_t>(size));
  if (file->readAt(0, out->content.data(), out->content.size()) == size) return 0;
  if (talks) std::printf("READ failed %d\n", lastError(EIO));
  return lastError(EIO);
}

// What fgets gives: up to and with a line feed, at most kLine - 1 bytes; of these what stands ahead of a NUL.
std::string_view nextPiece(IniText* file) {
  const std::string_view rest = std::string_view(file->content).substr(file->position, kLine - 1);
  const size_t feed = rest.find('\n');
  const std::string_view piece = feed == std::string_view::npos ? rest : rest.substr(0, feed + 1);
  file->position += piece.size();
  return piece.substr(0, std::min(piece.find('\0'), piece.size()));
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char left, char right) { return lower(left) == lower(right); });
}

bool isEmpty(const char* text) {
  return !text || *text == '\0';
}

// Walks through a file to a key's line.
class KeySearch {
 public:
  KeySearch(const char* section, const char* key, IniText* file)
      : sectionLine_(isEmpty(section) ? std::string() : "[" + std::string(section) + "]"),
        key_(key),
        file_(file),
        inside_(sectionLine_.empty()) {}

  // True with `value` when the key's line is found.
  bool find(std::string* value) {
    char line[kLine];
    for (;;) {
      ReadLine(line, sizeof line, file_);
      if (file_->ended) return false;
      if (line[0] == '[') {
        if (inside_) return stopAtNextSection();
        inside_ = sameName(line, sectionLine_);
      } else if (inside_ && isKeysLine(line, value)) {
        return true;
      }
    }
  }

  bool inside() const { return inside_; }
  bool stopped() const { return stopped_; }
  const std::string& sectionLine() const { return sectionLine_; }

 private:
  bool stopAtNextSection() {
    stopped_ = true;
    return false;
  }

  bool isKeysLine(char* line, std::string* value) const {
    char* const sign = std::strchr(line, '=');
    if (!sign) return false;
    *sign = '\0';
    if (!sameName(Trim(line), key_)) return false;
    *value = Trim(sign + 1);
    return true;
  }

  std::string sectionLine_;  // empty for the lines ahead of the first section
  std::string_view key_;
  IniText* file_;         // borrowed
  bool inside_;           // the section has begun
  bool stopped_ = false;  // at the line of the section behind it
};

void copyText(std::string_view text, char* buffer, size_t size) {
  const size_t length = std::min(text.size(), size - 1);
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
}

}  // namespace

int ReadLine(char* buffer, size_t size, IniText* file) {
  while (file->position < file->content.size()) {
    file->lineStart = file->position;
    char line[kLine];
    copyText(nextPiece(file), line, sizeof line);
    Trim(line);
    if (line[0] == '\0' || line[0] == '#') continue;
    copyText(line, buffer, size);
    return 0;
  }
  file->ended = true;
  return 0;
}

int ECGetString(const char* section, const char* key, const char* defaultValue, char* buffer,
                size_t bufferSize, const char* path) {
  if (!buffer || bufferSize == 0 || isEmpty(key) || isEmpty(path)) return kIniBadArgument;
  IniText file;
  if (const int error = readFile(path, &file, false)) return error;
  KeySearch search(section, key, &file);
  std::string value;
  if (search.find(&value)) {
    copyText(value, buffer, bufferSize);
    return 0;
  }
  if (search.stopped()) buffer[0] = '\0';
  if (!defaultValue) return kIniNotFound;
  copyText(defaultValue, buffer, bufferSize);
  return 0;
}

long ECGetLong(const char* section, const char* key, long defaultValue, const char* path) {
  char value[kLine];
  const std::string text = std::to_string(defaultValue);
  if (ECGetString(section, key, text.c_str(), value, sizeof value, path) != 0) return defaultValue;
  return static_cast<int>(std::strtol(value, nullptr, 10));  // atoi, whose overflow this library settles
}

int ECSetString(const char* section, const char* key, const char* value, const char* path) {
  if (isEmpty(key) || !value || isEmpty(path)) return kIniBadArgument;
  IniText file;
  const int error = readFile(path, &file, true);
  if (error != 0 && error != ENOENT) return error;
  KeySearch search(section, key, &file);
  std::string old;
  const bool found = search.find(&old);
  // A key's line is replaced; else the line goes ahead of the next section or behind the file's end.
  const size_t point = found || search.stopped() ? file.lineStart : file.content.size();
  const size_t tail = found ? file.position : point;
  std::string written = file.content.substr(0, point);
  if (!search.inside()) written += search.sectionLine() + "\n";
  written += std::string(key) + "=" + value + "\n" + file.content.substr(tail);
  errno = 0;
  const bool stored = writeFileAtomically(path, written);
  return stored || error == 0 ? 0 : lastError(EIO);
}

int ECSetLong(const char* section, const char* key, long value, const char* path) {
  return ECSetString(section, key, std::to_string(value).c_str(), path);
}

int ECEnumSections(const char* path, char** out) {
  if (isEmpty(path) || !out) return kIniBadArgument;
  *out = nullptr;
  IniText file;
  if (const int error = readFile(path, &file, false)) return error;
  std::string names;
  char line[kLine];
  for (ReadLine(line, sizeof line, &file); !file.ended; ReadLine(line, sizeof line, &file)) {
    const char* const end = line[0] == '[' ? std::strchr(line, ']') : nullptr;
    if (end && end != line + 1) names.append(line + 1, static_cast<size_t>(end - line - 1)).push_back('\0');
  }
  if (names.empty()) return 0;
  *out = static_cast<char*>(std::malloc(names.size() + 1));
  if (!*out) return ENOMEM;
  std::memcpy(*out, names.c_str(), names.size() + 1);
  return 0;
}

}  // namespace zavel::foundation
