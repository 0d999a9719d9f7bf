// Byte classes of Shift_JIS text, for walks that ask for one index after another.
#ifndef CONFIG_SJISCLASSWALK_H
#define CONFIG_SJISCLASSWALK_H

#include <cstddef>
#include <string_view>

namespace zavel {

enum SjisClass { kSjisSingle = 0, kSjisFirst = 1, kSjisSecond = 2, kSjisEmpty = 3 };

// Gives what twcSJISCode gives at each index, without starting again from the first byte.
class SjisClassWalk {
 public:
  // `bytes` is borrowed and may hold zero bytes.
  explicit SjisClassWalk(std::string_view bytes) : bytes_(bytes) {}

  // `index` must not be below that of the call before. From the first zero byte on, and beyond the end,
  // the class of the byte before it.
  SjisClass classAt(size_t index);

 private:
  std::string_view bytes_;
  size_t next_ = 0;  // first byte not yet walked over
  SjisClass class_ = kSjisEmpty;
};

}  // namespace zavel

#endif
