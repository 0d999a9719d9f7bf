#include "book/BookQuery.h"

#include <gtest/gtest.h>

namespace zavel::host {
namespace {

std::string shown(const BookQuery& query) {
  switch (query.kind) {
    case BookQuery::Kind::kAnd:
      return "(" + shown(*query.left) + " & " + shown(*query.right) + ")";
    case BookQuery::Kind::kOr:
      return "(" + shown(*query.left) + " | " + shown(*query.right) + ")";
    case BookQuery::Kind::kForm: {
      std::string out = "form " + std::to_string(query.form);
      for (const auto& [field, key] : query.keys) out += " " + std::to_string(field) + "=" + key;
      return out;
    }
    default:
      return std::string(methodName(query.method)) + ":" + query.word;
  }
}

std::string read(std::string_view text, BookMethod method = BookMethod::kExact) {
  std::string wrong;
  const std::unique_ptr<BookQuery> query = readQuery(text, method, &wrong);
  return query ? shown(*query) : "wrong: " + wrong;
}

TEST(BookQueryTest, Words) {
  EXPECT_EQ(read("dog"), "exact:dog");
  EXPECT_EQ(read("  domestic   dog "), "exact:domestic dog");
  EXPECT_EQ(read("dog", BookMethod::kKeyword), "keyword:dog");
  EXPECT_EQ(read("いぬ　ねこ"), "exact:いぬ ねこ");
}

TEST(BookQueryTest, FromLeftToRight) {
  EXPECT_EQ(read("a and b"), "(exact:a & exact:b)");
  EXPECT_EQ(read("a AND b Or c"), "((exact:a & exact:b) | exact:c)");
  EXPECT_EQ(read("a or b and c"), "((exact:a | exact:b) & exact:c)");
  EXPECT_EQ(read("a & b | c"), "((exact:a & exact:b) | exact:c)");
  EXPECT_EQ(read("a◇b│c"), "((exact:a & exact:b) | exact:c)");
}

TEST(BookQueryTest, Groups) {
  EXPECT_EQ(read("a and (b or c)"), "(exact:a & (exact:b | exact:c))");
  EXPECT_EQ(read("⊂◆a│◆b⊃◇◆c"), "((exact:a | exact:b) & exact:c)");
  EXPECT_EQ(read("((a))"), "exact:a");
  EXPECT_EQ(read("（a or b）and c"), "((exact:a | exact:b) & exact:c)");
}

TEST(BookQueryTest, Methods) {
  EXPECT_EQ(read("dog*"), "forward:dog");
  EXPECT_EQ(read("*dog"), "backward:dog");
  EXPECT_EQ(read("hot dog*"), "forward:hot dog");
  EXPECT_EQ(read("◆a or □b or ■c or △d or ▲e"),
            "((((exact:a | forward:b) | backward:c) | cross:d) | keyword:e)");
  EXPECT_EQ(read("*"), "exact:*");
}

TEST(BookQueryTest, QuotedWordsAreWords) {
  EXPECT_EQ(read("\"rock and roll\""), "exact:rock and roll");
  EXPECT_EQ(read("\"a (b)\" or c"), "(exact:a (b) | exact:c)");
  EXPECT_EQ(read("□\"and\""), "forward:and");
  EXPECT_EQ(read("\"dog*\""), "exact:dog*");
}

TEST(BookQueryTest, Forms) {
  EXPECT_EQ(read("▽０▼０dog▼１hot cat"), "form 0 0=dog 1=hot cat");
  EXPECT_EQ(read("▽1▼2犬 or a"), "(form 1 2=犬 | exact:a)");
}

TEST(BookQueryTest, WhatIsWrongIsTold) {
  EXPECT_EQ(read(""), "wrong: it is empty");
  EXPECT_EQ(read("\"dog"), "wrong: a quote isn't ended");
  EXPECT_EQ(read("dog and \""), "wrong: a quote isn't ended");
  EXPECT_EQ(read("a and"), "wrong: a word is missing behind \"and\"");
  EXPECT_EQ(read("and a"), "wrong: a word is missing ahead of \"and\"");
  EXPECT_EQ(read("a and or b"), "wrong: a word is missing ahead of \"or\"");
  EXPECT_EQ(read("(a"), "wrong: a group isn't ended");
  EXPECT_EQ(read("a)"), "wrong: a group ends that wasn't begun");
  EXPECT_EQ(read("()"), "wrong: a word is missing ahead of \")\"");
  EXPECT_EQ(read("a (b)"), "wrong: \"and\" or \"or\" is missing ahead of \"(\"");
  EXPECT_EQ(read("(a) b"), "wrong: \"and\" or \"or\" is missing ahead of \"b\"");
  EXPECT_EQ(read("\"a\" \"b\""), "wrong: \"and\" or \"or\" is missing ahead of \"b\"");
  EXPECT_EQ(read("a*b"), "wrong: \"*\" may stand at one end of a word alone");
  EXPECT_EQ(read("◆"), "wrong: a word is missing at its end");
  EXPECT_EQ(read("\"\""), "wrong: a word is missing at its end");
  EXPECT_EQ(read("▽x"), "wrong: the number of a form is missing behind \"▽\"");
  EXPECT_EQ(read("▽０"), "wrong: a form has no field: ▼, its number and a word");
  EXPECT_EQ(read("▽０▼"), "wrong: the number of a field is missing behind \"▼\"");
  EXPECT_EQ(read("▽０▼０"), "wrong: a field is empty");
}

TEST(BookQueryTest, DepthAndLengthHaveAnEnd) {
  EXPECT_EQ(read(std::string(200, '(') + "a" + std::string(200, ')')), "exact:a");
  EXPECT_EQ(read(std::string(201, '(') + "a" + std::string(201, ')')),
            "wrong: it has groups more than 200 deep");
  std::string row = "a";
  for (int i = 0; i < 1000; ++i) row += " or a";
  EXPECT_EQ(read(row), "wrong: it has more than 1,000 words");
}

}  // namespace
}  // namespace zavel::host
