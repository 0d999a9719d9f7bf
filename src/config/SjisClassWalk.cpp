// Tests: tests/config/TwcServicesTest.cpp
#include "config/SjisClassWalk.h"

namespace zavel {
namespace {

bool isFirst(unsigned char byte) {
  return (byte >= 129 && byte <= 159) || (byte >= 224 && byte <= 252);
}
bool isSecond(unsigned char byte) {
  return byte >= 64 && byte <= 252;
}

SjisClass step(SjisClass before, unsigned char byte) {
  if (before == kSjisFirst) return isSecond(byte) ? kSjisSecond : kSjisSingle;
  return isFirst(byte) ? kSjisFirst : kSjisSingle;
}

}  // namespace

SjisClass SjisClassWalk::classAt(size_t index) {
  // A zero byte is never walked over, so the class stays as it is for all that follows.
  while (next_ <= index && next_ < bytes_.size() && bytes_[next_] != '\0')
    class_ = step(class_, static_cast<unsigned char>(bytes_[next_++]));
  return class_;
}

}  // namespace zavel
