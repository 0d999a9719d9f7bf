// Tests: tests/config/ByteStringsTest.cpp
#include "config/ByteStrings.h"

#include <algorithm>
#include <cstring>

namespace zavel {
namespace {

// How far replacing until nothing is left may go beyond replacing everything once, before it is given up: in
// bytes taken out and put in, and in bytes that the text grows by.
constexpr size_t kSpareWork = size_t{2} << 30;
constexpr size_t kSpareBytes = size_t{16} << 20;

std::wstring widened(const std::string& bytes) {
  std::wstring wide;
  for (char byte : bytes) wide.push_back(static_cast<unsigned char>(byte));
  return wide;
}

std::string narrowed(const std::wstring& wide) {
  std::string bytes;
  for (wchar_t unit : wide) bytes.push_back(static_cast<char>(unit));
  return bytes;
}

template <class String>
int64_t offsetOf(const String& text, const String& key) {
  const size_t at = text.find(key);
  return at == String::npos ? -1 : static_cast<int64_t>(at);
}

template <class String>
String replacedOnce(const String& text, const String& from, const String& to) {
  if (from.empty()) return text;
  String result;
  size_t done = 0;
  for (size_t at; (at = text.find(from, done)) != String::npos; done = at + from.size())
    result.append(text, done, at - done).append(to);
  return result.append(text, done);
}

size_t matchesIn(const std::string& text, const std::string& from) {
  size_t matches = 0;
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += from.size()) ++matches;
  return matches;
}

// A text that is rewritten as if searching from the start after each replacement. What stands ahead of the
// gap never holds a `from`, so the next match is the first one that ends in a byte taken over the gap, and
// what replaces it goes back behind the gap.
class Rewriting {
 public:
  // `from` is not empty. `from` and `to` are borrowed.
  Rewriting(const std::string& text, const std::string& from, const std::string& to)
      : from_(from), to_(to), buffer_(text) {
    const size_t matches = matchesIn(text, from);
    replacementsLeft_ = matches + kSpareWork / (from.size() + to.size());
    const size_t growth = std::max(from.size(), to.size()) - from.size();
    mostBytes_ = text.size() + matches * growth + kSpareBytes;
  }

  // False when it is given up.
  bool run() {
    while (takeToMatch()) {
      if (!replace()) return false;
    }
    buffer_.resize(gap_);
    return true;
  }

  const std::string& text() const { return buffer_; }

 private:
  // Takes bytes over the gap until a `from` stands ahead of it; false at the end of the text.
  bool takeToMatch() {
    while (takeToLastByte()) {
      if (gap_ >= from_.size() && buffer_.compare(gap_ - from_.size(), from_.size(), from_) == 0) return true;
    }
    return false;
  }

  // Takes what a `from` may end in, and all ahead of it; false when nothing of the kind is left.
  bool takeToLastByte() {
    if (rest_ < buffer_.size() && buffer_[rest_] != from_.back()) takeOtherBytes();
    if (rest_ == buffer_.size()) return false;
    buffer_[gap_++] = buffer_[rest_++];
    return true;
  }

  void takeOtherBytes() {
    const size_t end = std::min(buffer_.find(from_.back(), rest_), buffer_.size());
    std::memmove(buffer_.data() + gap_, buffer_.data() + rest_, end - rest_);
    gap_ += end - rest_;
    rest_ = end;
  }

  bool replace() {
    gap_ -= from_.size();
    const size_t bytes = gap_ + to_.size() + buffer_.size() - rest_;
    if (replacementsLeft_-- == 0 || bytes > mostBytes_) return false;
    if (rest_ - gap_ < to_.size()) widenGap();
    rest_ -= to_.size();
    to_.copy(buffer_.data() + rest_, to_.size());
    return true;
  }

  void widenGap() {
    const size_t more = buffer_.size() + to_.size();
    buffer_.insert(rest_, more, '\0');
    rest_ += more;
  }

  const std::string& from_;
  const std::string& to_;
  std::string buffer_;
  size_t gap_ = 0;   // where the gap begins
  size_t rest_ = 0;  // and ends
  size_t mostBytes_;
  size_t replacementsLeft_;
};

std::string replacedUntilGone(const std::string& text, const std::string& from, const std::string& to) {
  if (from.empty() || to.find(from) != std::string::npos) return text;
  Rewriting rewriting(text, from, to);
  return rewriting.run() ? rewriting.text() : text;
}

std::string withCase(const std::string& src, char first, char last, int change) {
  std::string result = src;
  for (char& byte : result) {
    if (byte >= first && byte <= last) byte = static_cast<char>(byte + change);
  }
  return result;
}

}  // namespace

int64_t FindString(const std::string& text, const std::string& key) {
  return offsetOf(text, key);
}

int64_t FindWString(const std::string& text, const std::string& key) {
  return offsetOf(widened(text), widened(key));
}

void ReplaceString(std::string* out, const std::string& text, const std::string& from,
                   const std::string& to) {
  *out = replacedUntilGone(text, from, to);
}

void ReplaceString2(std::string* out, const std::string& text, const std::string& from,
                    const std::string& to) {
  *out = replacedOnce(text, from, to);
}

void ReplaceString3(const std::string& text, const std::string& from, const std::string& to, char* dst,
                    size_t size) {
  if (!dst || size == 0) return;
  const std::string result = replacedUntilGone(text, from, to);
  dst[result.copy(dst, size - 1)] = '\0';
}

void ReplaceWString(std::string* out, const std::string& text, const std::string& from,
                    const std::string& to) {
  *out = narrowed(replacedOnce(widened(text), widened(from), widened(to)));
}

void ToUpper(bool flag, const std::string& src, std::string* dst) {
  *dst = flag ? withCase(src, 'a', 'z', 'A' - 'a') : src;
}

void ToLower(bool flag, const std::string& src, std::string* dst) {
  *dst = flag ? withCase(src, 'A', 'Z', 'a' - 'A') : src;
}

}  // namespace zavel
