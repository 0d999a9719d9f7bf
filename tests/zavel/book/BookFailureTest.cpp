#include "book/BookFailure.h"

#include <gtest/gtest.h>

#include "book/BookStatus.h"

namespace zavel::host {
namespace {

std::string told(uint32_t code) {
  const Failure failure = bookFailure(code, "b", "the search");
  return std::to_string(failure.status) + " " + failure.code + ": " + failure.message;
}

TEST(BookFailureTest, EachCodeIsOneSentence) {
  EXPECT_FALSE(bookFailure(0, "b", "the search"));
  EXPECT_EQ(told(0x8000000C), "3 no_memory: there is not memory enough for the search in the book \"b\"");
  EXPECT_EQ(told(0x80000016), "1 nothing_there: the book \"b\" has nothing at this place");
  EXPECT_EQ(told(0x80041011), "1 nothing_there: the book \"b\" has nothing at this place");
  EXPECT_EQ(told(0x80041010), "1 no_further_entry: there is no further entry in the book \"b\"");
  EXPECT_EQ(told(0x80041001), "3 unknown_form: the search in the book \"b\" is of a form not known here");
  EXPECT_EQ(told(0x8004100C), "1 not_available: the book \"b\" can't be asked that way");
  EXPECT_EQ(told(0x80041012), "1 not_available: the book \"b\" doesn't have that");
  EXPECT_EQ(told(0x8004100D),
            "5 damaged_book: the search failed: the book \"b\" is damaged where this stands");
  EXPECT_EQ(told(0x8004100E),
            "5 damaged_book: the search failed: the book \"b\" is damaged where this stands");
  EXPECT_EQ(told(0x80042002),
            "5 damaged_book: the search is missing in the book \"b\" since it was published");
}

TEST(BookFailureTest, WhyABookCantBeOpened) {
  const auto why = [](uint32_t code) {
    const Failure failure = openFailure(code, "b", "/x/BOOK.CAT");
    return std::to_string(failure.status) + " " + failure.code + ": " + failure.message;
  };
  EXPECT_EQ(why(0x80000002), "3 unreadable_book: the book \"b\" can't be read: No such file or directory");
  EXPECT_EQ(why(0x8000000D), "3 unreadable_book: the book \"b\" can't be read: Permission denied");
  EXPECT_EQ(why(0x8000000C), "3 no_memory: there is not memory enough for opening in the book \"b\"");
  EXPECT_EQ(why(0x8004100E), "5 damaged_book: the book \"b\" is damaged: its catalog ends too soon");
  EXPECT_EQ(
      why(0x80041006),
      "5 damaged_book: the book \"b\" is damaged: the file of its text is missing, or no file is named");
}

TEST(BookFailureTest, NamesAreFitForATerminal) {
  EXPECT_EQ(quoted("a\x1b[31m"), "\"a\xEF\xBF\xBD[31m\"");
}

}  // namespace
}  // namespace zavel::host
