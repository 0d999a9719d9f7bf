// A book's text in one line of marks, for comparing what a source says with what a reader finds.
#ifndef MKBOOK_BOOKTEXT_H
#define MKBOOK_BOOKTEXT_H

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/BookSource.h"

namespace zavel::mkbook {

// The custom characters of a book, as its table tells them.
class CustomTable {
 public:
  CustomTable() = default;
  // Of the file's bytes; what is cut short ends the table.
  explicit CustomTable(std::string_view bytes);

  char32_t characterOf(uint16_t code, bool half) const;  // 0 for none
  uint16_t codeOf(char32_t character) const;             // 0 for none

  // Each character by its width (true: half) and code.
  const std::map<std::pair<bool, uint16_t>, char32_t>& characters() const { return characters_; }

 private:
  std::map<std::pair<bool, uint16_t>, char32_t> characters_;
  std::map<char32_t, uint16_t> codes_;
};

// A word in the codes of a book; 〓 for what it can't write.
std::string codesOf(std::string_view utf8, const CustomTable& table);

// Marks: each line "<indent>text\n"; emphasis in U+0002 and U+0003; a reference in U+0004 and U+0005 with
// "|number", what it leads to, ahead of the end; likewise subscript from U+000E on, then superscript,
// keywords, pictures, sounds. Items of menus are references. Blanks at the end of the last line don't count.

// What a source's entry, or the lines of a menu, should read as. `number` gives what a reference leads to, -1
// for nothing.
using SpanNumber = std::function<int64_t(const Span& span)>;
std::string expectedText(const BookEntry& entry, const CustomTable& table, const SpanNumber& number);
std::string expectedText(const std::vector<Line>& lines, const CustomTable& table, const SpanNumber& number);

// The media that spans name, in their order.
void appendMedia(const std::vector<Span>& spans, std::vector<size_t>* media);

// What a book's bytes read as. `number` gives what is at an address, -1 for nothing. Where tags of pictures
// and sounds begin goes into *media. Tags that compiled books don't have show as "<1F36>".
std::string decodedText(std::string_view bytes, const CustomTable& table,
                        const std::function<int64_t(const _SDICADDRESS& address)>& number,
                        std::vector<size_t>* media = nullptr);

}  // namespace zavel::mkbook

#endif
