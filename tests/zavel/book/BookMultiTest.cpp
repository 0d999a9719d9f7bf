// `zavel book multi`: forms.
#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class BookMultiTest : public BookFixture {
 protected:
  void SetUp() override { putSmall(); }
};

TEST_F(BookMultiTest, FormsAndTheirFields) {
  EXPECT_EQ(told(book({"multi", "small"})), "0|1  n\n   1  L  (1 choice)\n   2  L\n|");
}

TEST_F(BookMultiTest, AFormWithItsChoices) {
  // "A" has one below it, which is "B".
  EXPECT_EQ(told(book({"multi", "small", "1"})),
            "0|1  n\n   1  L  (1 choice)\n      A\n        B\n   2  L\n|");
  EXPECT_EQ(told(book({"multi", "small", "n"})), told(book({"multi", "small", "1"})));
}

TEST_F(BookMultiTest, AsJson) {
  EXPECT_EQ(told(book({"multi", "small", "--json"})),
            R"(0|{"schema":1,"book":"small","title":"Test","forms":[{"number":1,"name":"n","fields":[)"
            R"({"number":1,"label":"L","choices":[{"name":"A","choices":[{"name":"B","choices":[]}]}]},)"
            R"({"number":2,"label":"L","choices":null}]}]})"
            "\n|");
}

TEST_F(BookMultiTest, ASearch) {
  EXPECT_EQ(told(book({"multi", "small", "1", "1=AB"})), "0|Test  [small]\n  1:2  ＡＢ\n|");
  EXPECT_EQ(told(book({"multi", "small", "n", "l=ab"})), "0|Test  [small]\n  1:2  ＡＢ\n|");
  EXPECT_EQ(told(book({"multi", "small", "1", "1=AB", "2=x", "--plain"})), "0|1=AB 2=x\tsmall\t1:2\tＡＢ\n|");
  EXPECT_EQ(json({"multi", "small", "1", "1=AB"})["method"], "form");
  EXPECT_EQ(json({"multi", "small", "1", "1=AB"})["query"], "1=AB");
}

TEST_F(BookMultiTest, NothingFits) {
  EXPECT_EQ(told(book({"multi", "small", "1", "1=XY"})),
            "1||zavel: no entry for \"1=XY\" in the book \"small\"\n");
  EXPECT_EQ(json({"multi", "small", "1", "1=XY"})["status"], "not_found");
  EXPECT_EQ(book({"multi", "small", "1", "1=한"}).status, 1);
}

TEST_F(BookMultiTest, WrongFormsAndFields) {
  EXPECT_EQ(told(book({"multi", "small", "7"})),
            "2||zavel: the book \"small\" has no form \"7\"\n"
            "See which there are: zavel book multi small\n");
  EXPECT_EQ(told(book({"multi", "small", "1", "M=AB"})),
            "2||zavel: the form has no field \"M\"\nThe fields are: L, L\n");
  EXPECT_EQ(told(book({"multi", "small", "1", "AB"})),
            "2||zavel: \"AB\" is no FIELD=VALUE\nThe fields are: L, L\n");
  EXPECT_EQ(book({"multi", "small", "1", "1="}).status, 2);
}

TEST_F(BookMultiTest, ABookWithoutForms) {
  putPets();
  EXPECT_EQ(told(book({"multi", "pets"})),
            "1||zavel: the book \"pets\" has no forms\nSee what it has: zavel book info pets\n");
}

TEST_F(BookMultiTest, ChoicesThatCantBeReadKeepNobodyFromSearching) {
  folder_.write("root/books/small/r13", "");
  const Outcome shown = book({"multi", "small"});
  EXPECT_EQ(shown.status, 5);
  EXPECT_EQ(shown.out, "1  n\n   1  L  (0 choices)\n   2  L\n");
  EXPECT_TRUE(shown.err.starts_with(
      "zavel: reading the choices of \"L\" failed: the book \"small\" is damaged where"))
      << shown.err;
  EXPECT_EQ(told(book({"multi", "small", "1", "1=AB"})), "0|Test  [small]\n  1:2  ＡＢ\n|");
}

}  // namespace
}  // namespace zavel::test
