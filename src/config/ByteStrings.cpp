// Tests: tests/config/ByteStringsTest.cpp
#include "config/ByteStrings.h"

namespace zavel {
namespace {

// How far replacing may go beyond the size of its text before it is given up.
constexpr size_t kSpareReplacements = 100000;
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

// Rewrites as if searching from the start after each replacement: `done` never holds a `from`, so the next
// match is the first one that ends in a byte taken over from `rest`, and a replacement goes back to `rest`.
std::string replacedUntilGone(const std::string& text, const std::string& from, const std::string& to) {
  if (from.empty() || to.find(from) != std::string::npos) return text;
  std::string done;
  std::string rest(text.rbegin(), text.rend());  // its last byte comes next
  size_t replacements = text.size() + kSpareReplacements;
  while (!rest.empty()) {
    done.push_back(rest.back());
    rest.pop_back();
    if (done.back() != from.back() || !done.ends_with(from)) continue;
    const size_t bytes = done.size() + rest.size() + to.size();
    if (replacements-- == 0 || bytes > text.size() + kSpareBytes) return text;
    done.resize(done.size() - from.size());
    rest.append(to.rbegin(), to.rend());
  }
  return done;
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
