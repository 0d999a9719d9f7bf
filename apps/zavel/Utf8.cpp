// Tests: tests/zavel/Utf8Test.cpp
#include "Utf8.h"

#include <algorithm>
#include <iterator>

namespace zavel::host {
namespace {

struct Range {
  char32_t first, last;
};

// Wide and full-width blocks of Unicode Standard Annex 11, as terminals draw them.
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},
    {0xA000, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE4F},   {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

// Combining marks that occur in European and Japanese text, and invisible formatting characters.
constexpr Range kZero[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20FF}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
};

template <size_t N>
bool inRanges(const Range (&ranges)[N], char32_t code) {
  const Range* end = ranges + N;
  const Range* it =
      std::upper_bound(ranges, end, code, [](char32_t c, const Range& range) { return c < range.first; });
  return it != ranges && code <= std::prev(it)->last;
}

// Length and smallest code point of a character by its first byte; length 0 for a byte that begins none.
struct Lead {
  size_t length;
  char32_t bits, smallest;
};

Lead leadOf(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

}  // namespace

size_t decodeUtf8(std::string_view text, char32_t* code) {
  if (text.empty()) return 0;
  const Lead lead = leadOf(static_cast<unsigned char>(text[0]));
  if (lead.length == 0 || lead.length > text.size()) return 0;
  char32_t value = lead.bits;
  for (size_t i = 1; i < lead.length; ++i) {
    const unsigned char byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return 0;
    value = (value << 6) | (byte & 0x3Fu);
  }
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (value < lead.smallest || value > 0x10FFFF || surrogate) return 0;
  *code = value;
  return lead.length;
}

int columnsOf(char32_t code) {
  if (code < 0x20 || (code >= 0x7F && code < 0xA0)) return 0;
  if (code < 0x300) return 1;
  if (inRanges(kZero, code)) return 0;
  return inRanges(kWide, code) ? 2 : 1;
}

size_t columns(std::string_view utf8) {
  size_t total = 0;
  while (!utf8.empty()) {
    char32_t code = 0xFFFD;
    const size_t length = std::max<size_t>(1, decodeUtf8(utf8, &code));
    total += static_cast<size_t>(columnsOf(code));
    utf8.remove_prefix(length);
  }
  return total;
}

std::string repairUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    char32_t code = 0;
    const size_t length = decodeUtf8(text, &code);
    if (length == 0) {
      out += "\xEF\xBF\xBD";
      text.remove_prefix(1);
    } else {
      out.append(text.substr(0, length));
      text.remove_prefix(length);
    }
  }
  return out;
}

std::string printable(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    char32_t code = 0;
    const size_t length = decodeUtf8(text, &code);
    const bool control = code != U'\n' && (code < 0x20 || (code >= 0x7F && code < 0xA0));
    const bool turnsText = (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    if (length == 0 || control || turnsText) {
      out += "\xEF\xBF\xBD";
    } else {
      out.append(text.substr(0, length));
    }
    text.remove_prefix(std::max<size_t>(1, length));
  }
  return out;
}

std::string withoutControls(std::string utf8) {
  // Controls are one byte, or begin with 0xC2; marks that turn the text begin with 0xE2. No early end, so
  // that many bytes go at a time.
  unsigned suspicious = 0;
  for (const char c : utf8) {
    const unsigned char byte = static_cast<unsigned char>(c);
    suspicious |= static_cast<unsigned>(byte < 0x20) & static_cast<unsigned>(byte != '\n');
    suspicious |= static_cast<unsigned>(byte == 0x7F) | static_cast<unsigned>(byte == 0xC2);
    suspicious |= static_cast<unsigned>(byte == 0xE2);
  }
  return suspicious ? printable(utf8) : utf8;
}

std::string_view beginning(std::string_view utf8, size_t most) {
  if (utf8.size() <= most) return utf8;
  while (most > 0 && (static_cast<unsigned char>(utf8[most]) & 0xC0) == 0x80) --most;
  return utf8.substr(0, most);
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    char32_t code = 0;
    const size_t length = decodeUtf8(text, &code);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

namespace {

// Whether `text` begins with a mark that must not begin a line.
bool closes(std::string_view text) {
  constexpr std::string_view kClosing[] = {",",  ".",  ";",  ":",  ")",  "]",  "、", "。", "，", "．",
                                           "；", "：", "）", "］", "」", "』", "】", "〉", "》", "ー"};
  return std::any_of(std::begin(kClosing), std::end(kClosing),
                     [text](std::string_view mark) { return text.starts_with(mark); });
}

// The pieces that a line may be broken between: words with the blanks behind them, single wide characters.
std::vector<ByteRange> piecesOf(std::string_view text) {
  std::vector<ByteRange> pieces;
  size_t start = 0, at = 0;
  bool afterWide = false;  // behind a wide character, and the closing marks that belong to it
  while (at < text.size()) {
    const bool closing = closes(text.substr(at));
    char32_t code = 0xFFFD;
    at += std::max<size_t>(1, decodeUtf8(text.substr(at), &code));
    afterWide = columnsOf(code) == 2 || (afterWide && closing);
    const bool lastBlank = code == U' ' && (at == text.size() || text[at] != ' ');
    if (!lastBlank && (!afterWide || closes(text.substr(at)))) continue;
    pieces.push_back({start, at});
    start = at;
  }
  if (start < text.size()) pieces.push_back({start, text.size()});
  return pieces;
}

ByteRange withoutTrailingBlanks(std::string_view text, ByteRange range) {
  while (range.end > range.begin && text[range.end - 1] == ' ') --range.end;
  return range;
}

}  // namespace

std::vector<ByteRange> breakLines(std::string_view utf8, size_t width, size_t indent) {
  const ByteRange whole{0, utf8.size()};
  if (width == 0 || columns(utf8) <= width) return {withoutTrailingBlanks(utf8, whole)};
  if (indent + 10 > width) indent = 0;
  std::vector<ByteRange> lines;
  ByteRange line{0, 0};
  size_t used = 0;
  bool empty = true;
  for (const ByteRange& piece : piecesOf(utf8)) {
    const ByteRange ink = withoutTrailingBlanks(utf8, piece);
    const size_t needed = columns(utf8.substr(ink.begin, ink.end - ink.begin));
    if (!empty && used + needed > width) {
      lines.push_back(withoutTrailingBlanks(utf8, line));
      line.begin = piece.begin;
      used = indent;
      empty = true;
    }
    line.end = piece.end;
    used += columns(utf8.substr(piece.begin, piece.end - piece.begin));
    if (needed > 0) empty = false;
  }
  lines.push_back(withoutTrailingBlanks(utf8, line));
  return lines;
}

}  // namespace zavel::host
