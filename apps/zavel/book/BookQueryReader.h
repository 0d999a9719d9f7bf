// Takes a query apart that a person typed.
#ifndef ZAVEL_BOOK_BOOKQUERYREADER_H
#define ZAVEL_BOOK_BOOKQUERYREADER_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookQuery.h"

namespace zavel::host {

class BookQueryReader {
 public:
  BookQueryReader(std::string_view text, BookMethod method) : method_(method) { split(text); }

  std::unique_ptr<BookQuery> read(std::string* wrong);

 private:
  enum class Sign { kWord, kQuoted, kAnd, kOr, kOpen, kClose, kMethod, kForm, kField };
  struct Token {
    Sign sign = Sign::kWord;
    std::string text;  // as it was typed
    BookMethod method = BookMethod::kExact;
  };

  void split(std::string_view text);
  void addWord(std::string word);
  bool at(Sign sign) const { return next_ < tokens_.size() && tokens_[next_].sign == sign; }
  std::unique_ptr<BookQuery> fail(const std::string& why);
  std::unique_ptr<BookQuery> combination(unsigned depth);
  std::unique_ptr<BookQuery> operand(unsigned depth);
  std::unique_ptr<BookQuery> word();
  std::unique_ptr<BookQuery> form();
  bool number(unsigned* number);
  std::string words();

  BookMethod method_;
  std::vector<Token> tokens_;
  size_t next_ = 0;
  unsigned operands_ = 1;
  bool quoteOpen_ = false;
  std::string wrong_;
};

}  // namespace zavel::host

#endif
