// The characters of a book: codes of JIS X 0208, and codes of its own that a table beside it leads to
// Unicode.
#ifndef ZAVEL_BOOK_BOOKCHARACTERS_H
#define ZAVEL_BOOK_BOOKCHARACTERS_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

// What stands for a character that can't be shown.
inline constexpr const char* kUnshown = "〓";

// Codes from here on are the book's own.
inline constexpr uint16_t kFirstCustomCode = 0xA121;

class BookCharacters {
 public:
  struct Custom {
    uint16_t code = 0;
    bool full = true;
    char32_t character = 0;
  };

  BookCharacters() = default;
  // Of the bytes of a ".UNI" file; what is cut short ends the table.
  explicit BookCharacters(std::string_view table);

  // As UTF-8. With `half`, which is a state of texts, letters are ASCII and custom characters half-width.
  std::string text(uint16_t code, bool half) const;

  // The character of a custom code; 0 when the table has none.
  char32_t custom(uint16_t code, bool full) const;
  // The custom character that a Unicode character is in this book; null when it is none.
  const Custom* find(char32_t character) const;
  const std::vector<Custom>& all() const { return customs_; }

 private:
  void readRecords(std::string_view table, size_t record, size_t* at, bool full);

  std::vector<Custom> customs_;  // as the table has them
  std::map<std::pair<bool, uint16_t>, char32_t> characters_;
  std::map<char32_t, size_t> places_;  // among customs_
};

// Where the table of the book with this catalog stands.
std::string tablePath(const std::string& catalog);

// The code of a character in JIS X 0208, 0 for none. ASCII has the codes of its full-width partners.
uint16_t jisCode(char32_t character);

// The character of such a code, 0 for none; with `half` the ASCII one if the code has one.
char32_t jisCharacter(uint16_t code, bool half);

// UTF-8 of one character.
std::string utf8Of(char32_t character);

}  // namespace zavel::host

#endif
