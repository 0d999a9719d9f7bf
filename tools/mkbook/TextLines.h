// The lines of a text file that a person wrote, whatever editor it was.
#ifndef MKBOOK_TEXTLINES_H
#define MKBOOK_TEXTLINES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mkbook/SourceErrors.h"

namespace zavel::mkbook {

class TextLines {
 public:
  static constexpr size_t kLargestFile = size_t{256} << 20;  // bytes
  static constexpr size_t kLongestLine = 65535;              // bytes

  // Lines end with LF or CR LF. A byte order mark of UTF-8 is passed over. Control characters but tabs, lines
  // that are too long and what isn't UTF-8 go into *errors. Throws Failure for a file that can't be read, is
  // too large, in UTF-16 or no text.
  TextLines(const std::string& path, SourceErrors* errors);

  size_t size() const { return starts_.size() - 1; }

  // Line number `number`, from 0, without its end. Empty in the place of one with an error.
  std::string_view operator[](size_t number) const;

 private:
  void check(size_t number, SourceErrors* errors);

  std::string text_;
  std::vector<uint32_t> starts_;  // of the lines, then the end of the last one
};

// The column of the byte at `offset` of a line, from 1, in characters.
size_t columnOf(std::string_view line, size_t offset);

}  // namespace zavel::mkbook

#endif
