// The program that makes dictd indexes asks the C library what is a letter, so the same table is asked here:
// another one would file "人々" or "ー" elsewhere. Tests: tests/translators/WordFoldTest.cpp
#include "dicttool/WordFold.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstring>

#include "foundation/Utf8.h"

namespace zavel::dicttool {
namespace {

constexpr char kBlank = ' ';
constexpr char32_t kFirstWide = 0xFF01, kLastWide = 0xFF5E;  // "！" to "～", in the order of ASCII

// The C library's table of all characters; null where the system lacks it. Made for the first character
// outside ASCII, and kept as long as the process.
locale_t characterTable() {
  static const locale_t table = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return table;
}

bool isWhite(char32_t code) {
  if (code < 0x80) return code == ' ' || (code >= '\t' && code <= '\r');
  return characterTable() && ::iswspace_l(static_cast<wint_t>(code), characterTable());
}

// Without a table every character counts: words still find themselves.
bool isAlnum(char32_t code) {
  if (code < 0x80) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
  }
  return !characterTable() || ::iswalnum_l(static_cast<wint_t>(code), characterTable());
}

char32_t small(char32_t code) {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + ('a' - 'A') : code;
  return characterTable() ? static_cast<char32_t>(::towlower_l(static_cast<wint_t>(code), characterTable()))
                          : code;
}

}  // namespace

std::string foldWord(std::string_view word, FoldRules rules) {
  std::string folded;
  folded.reserve(word.size());
  while (!word.empty()) {
    const Utf8Char next = readUtf8(word);
    if (!next.valid) {
      folded += word.substr(0, next.length);
    } else if (isWhite(next.code)) {
      folded += kBlank;
    } else if (rules.allCharacters || isAlnum(next.code)) {
      appendUtf8(folded, rules.caseSensitive ? next.code : small(next.code));
    }
    word.remove_prefix(next.length);
  }
  return folded;
}

std::string tidyQuery(std::string_view text) {
  std::string tidy;
  bool gap = false;
  while (!text.empty()) {
    const Utf8Char next = readUtf8(text);
    const bool white = next.valid && isWhite(next.code);
    if (!white) {
      if (gap && !tidy.empty()) tidy += kBlank;
      tidy += text.substr(0, next.length);
    }
    gap = white;
    text.remove_prefix(next.length);
  }
  return tidy;
}

std::string withUsualLetters(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    const Utf8Char next = readUtf8(text);
    if (next.valid && next.code >= kFirstWide && next.code <= kLastWide) {
      out += static_cast<char>(next.code - kFirstWide + '!');
    } else {
      out += text.substr(0, next.length);
    }
    text.remove_prefix(next.length);
  }
  return out;
}

int compareFolded(std::string_view one, std::string_view other) {
  const size_t shared = std::min(one.size(), other.size());
  const int order = shared == 0 ? 0 : std::memcmp(one.data(), other.data(), shared);
  if (order != 0) return order;
  return one.size() == other.size() ? 0 : one.size() < other.size() ? -1 : 1;
}

}  // namespace zavel::dicttool
