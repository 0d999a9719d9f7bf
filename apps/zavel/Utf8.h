// UTF-8 as a terminal meets it: characters, their width in columns, repair of what is not UTF-8.
#ifndef ZAVEL_UTF8_H
#define ZAVEL_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// Bytes of the well-formed character at the start of `text`, its code point in `*code`; 0 when there is
// none (empty, broken or over-long).
size_t decodeUtf8(std::string_view text, char32_t* code);

// Columns of one character: 0 for combining marks and controls, 2 for East Asian wide and full-width ones,
// else 1.
int columnsOf(char32_t code);

// Columns of a text without line ends.
size_t columns(std::string_view utf8);

// Each byte that belongs to no well-formed character becomes U+FFFD.
std::string repairUtf8(std::string_view text);

bool isUtf8(std::string_view text);

// Control characters, which would steer a terminal, become U+FFFD; so do those that turn the direction of
// what stands behind them, and bytes that are not UTF-8. Line ends (0x0A) stay.
std::string printable(std::string_view text);

// The same for what is UTF-8 already, quick where there is nothing to replace.
std::string withoutControls(std::string utf8);

// The first characters of a UTF-8 text, as many whole ones as `most` bytes hold.
std::string_view beginning(std::string_view utf8, size_t most);

// Part of a text, in bytes.
struct ByteRange {
  size_t begin;
  size_t end;
  bool operator==(const ByteRange&) const = default;
};

// Where one paragraph breaks into lines of at most `width` columns, at blanks and after wide characters, but
// not ahead of a closing mark;
// the lines behind the first have `indent` columns less. Blanks at a break belong to no line. A width of 0
// breaks nothing.
std::vector<ByteRange> breakLines(std::string_view utf8, size_t width, size_t indent);

}  // namespace zavel::host

#endif
