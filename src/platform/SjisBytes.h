// Text as Shift_JIS bytes (code page 932), a type of its own so that it is never taken for UTF-8.
#ifndef PLATFORM_SJISBYTES_H
#define PLATFORM_SJISBYTES_H

#include <string>
#include <utility>

namespace zavel {

// Made by TextEncoding alone; below the tabs, where everything is bytes, `bytes()` takes it apart again.
class SjisBytes {
 public:
  SjisBytes() = default;

  const std::string& bytes() const { return bytes_; }
  bool empty() const { return bytes_.empty(); }

 private:
  friend class TextEncoding;
  explicit SjisBytes(std::string bytes) : bytes_(std::move(bytes)) {}

  std::string bytes_;
};

}  // namespace zavel

#endif
