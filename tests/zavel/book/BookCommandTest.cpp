// `zavel book` as a user meets it: lists, descriptions, wrong usage, what is missing or damaged.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/DicWriter.h"
#include "support/SmallBook.h"
#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class BookCommandTest : public BookFixture {};

TEST_F(BookCommandTest, AListOfBooks) {
  putPets();
  putSmall();
  EXPECT_EQ(told(book({"list"})), "0|pets   Pets\nsmall  Test\n|");
  EXPECT_EQ(told(book({"list", "--plain"})),
            "0|pets\tPets\t" + root() + "/books/pets\nsmall\tTest\t" + root() + "/books/small\n|");
  EXPECT_EQ(told(book({"list", "--json"})),
            R"(0|{"schema":1,"books":[{"name":"pets","title":"Pets","folder":")" + root() +
                R"(/books/pets","error":null},{"name":"small","title":"Test","folder":")" + root() +
                "/books/small\",\"error\":null}]}\n|");
}

TEST_F(BookCommandTest, WithoutBooksOneIsToldHowToMakeOne) {
  const std::string expected =
      "3||zavel: there is no book in " + root() + "/books\nMake one: zavel book build\n";
  EXPECT_EQ(told(book({"list"})), expected);
  EXPECT_EQ(told(book({"search", "dog"})), expected);
  EXPECT_EQ(json({"list"})["error"]["code"], "no_book");
}

TEST_F(BookCommandTest, ADamagedBookIsNamedBehindTheOthers) {
  putPets();
  put("bad", {{"BOOK.CAT", "HWEDINFO"}});
  put("worse", {{"BOOK.CAT", ""}});
  const Outcome outcome = book({"list"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "pets  Pets\n");
  EXPECT_NE(outcome.err.find("the book \"bad\" is damaged or none: " + root() +
                             "/books/bad/BOOK.CAT is no catalog"),
            std::string::npos)
      << outcome.err;
  EXPECT_NE(outcome.err.find("the book \"worse\""), std::string::npos);
  EXPECT_EQ(json({"list"})["books"][0]["error"]["code"], "damaged_book");
  EXPECT_EQ(json({"list"})["books"][0]["title"], nullptr);
}

TEST_F(BookCommandTest, OnlyDamagedBooks) {
  put("bad", {{"BOOK.CAT", "HWEDINFO"}});
  EXPECT_EQ(book({"list"}).status, 5);
  EXPECT_EQ(book({"info", "bad"}).status, 5);
  EXPECT_EQ(book({"search", "dog"}).status, 5);
  EXPECT_EQ(book({"show", "bad", "dog"}).status, 5);
}

TEST_F(BookCommandTest, ABookThatLacksItsText) {
  putPets();
  std::filesystem::remove(bookFile("pets", "r1"));
  EXPECT_EQ(told(book({"info", "pets"})),
            "5||zavel: the book \"pets\" is damaged: the file of its text is missing, or no file is named\n"
            "Make it again from its source, or put back a copy that is whole.\n");
}

TEST_F(BookCommandTest, WhatABookHas) {
  putSmall();
  const Outcome outcome = book({"info", "small"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(outcome.out.starts_with(
      "title              Test\n"
      "name               small\n"
      "catalog            " +
      root() +
      "/books/small/BOOK\n"
      "publisher          me\n"
      "version            2\n"
      "identity           1\n"
      "has                whole words, beginnings, ends, keywords, all words of the texts, "
      "forms, menu, colour menu, "
      "sounds, colour pictures\n"
      "custom characters  1 full-width, 1 half-width\n"
      "text               blocks 1 to 1\n"
      "size               "))
      << outcome.out;
}

TEST_F(BookCommandTest, WhatABookHasAsJson) {
  putSmall();
  uintmax_t bytes = 0;
  for (const auto& [name, content] : smallBook()) bytes += content.size();
  EXPECT_EQ(
      told(book({"info", "small", "--json"})),
      R"(0|{"schema":1,"name":"small","title":"Test","folder":")" + root() + R"(/books/small","catalog":")" +
          root() +
          R"(/books/small/BOOK","identity":1,"publisher":"me","publisher_version":2,)"
          R"("data_version":{"major":131073,"minor":0},"content_type":0,)"
          R"("methods":["exact","forward","backward","keyword","cross","multi","menu","color_menu"],"forms":1,)"
          R"("custom_characters":{"full_width":1,"half_width":1},"sounds":true,"color_pictures":true,)"
          R"("readable_through":true,"text":{"first_block":1,"last_block":1},"bytes":)" +
          std::to_string(bytes) + "}\n|");
}

TEST_F(BookCommandTest, ABookByThePathOfItsFolderOrCatalog) {
  putPets();
  EXPECT_EQ(json({"info", root() + "/books/pets"})["title"], "Pets");
  EXPECT_EQ(json({"info", root() + "/books/pets/BOOK.CAT"})["title"], "Pets");
}

TEST_F(BookCommandTest, NoSuchBook) {
  putPets();
  EXPECT_EQ(told(book({"show", "pest", "dog"})), "3||zavel: there is no book \"pest\"\nDid you mean: pets\n");
  EXPECT_EQ(json({"info", "none"})["error"]["code"], "no_such_book");
}

TEST_F(BookCommandTest, WrongUsage) {
  EXPECT_EQ(told(book({})), "2||zavel: the command is missing\nRun: zavel book --help\n");
  EXPECT_EQ(told(book({"serch", "dog"})),
            "2||zavel: there is no command \"book serch\"\nDid you mean: zavel book search\n");
  EXPECT_EQ(book({"show", "pets"}).status, 2);
  EXPECT_EQ(book({"search", "--method", "none", "dog"}).status, 2);
  EXPECT_EQ(book({"search", "--plain", "--json", "dog"}).status, 2);
  EXPECT_EQ(book({"picture", "pets", "1:2", "-o", ""}).status, 2);
  EXPECT_EQ(book({"next", "pets", "dog", "-n", "0"}).status, 2);
}

TEST_F(BookCommandTest, EveryHelpBeginsWithExamples) {
  for (const char* command : {"list", "info", "search", "show", "next", "prev", "menu", "multi", "gaiji",
                              "picture", "sound", "icon"}) {
    const Outcome outcome = zavel({"help", "book", command}).run();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with(std::string("Examples:\n  zavel book ") + command)) << outcome.out;
  }
  EXPECT_NE(zavel({"help", "book", "search"}).run().out.find("from left to right"), std::string::npos);
}

TEST_F(BookCommandTest, ASearchOnATerminalWithoutWordsDoesntWait) {
  const Outcome outcome = zavel({"book", "search"}).terminal(24, 80).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.out.find("Examples:"), std::string::npos);
}

TEST_F(BookCommandTest, CompletionsNameCommandsAndBooks) {
  putPets();
  putPets("my pets");
  const auto completed = [this](const std::string& words) {
    const std::string path = std::string(ZAVEL_PROGRAM).substr(0, std::string(ZAVEL_PROGRAM).rfind('/'));
    folder_.write("complete.sh", "source " ZAVEL_DOCS "/../data/completions/zavel.bash\nCOMP_WORDS=(" +
                                     words +
                                     ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_zavel\n"
                                     "printf '%s ' \"${COMPREPLY[@]}\"\n");
    const std::string command = "PATH=" + path + ":$PATH ZAVEL_ROOT=" + root() + " bash " +
                                file("complete.sh") + " >" + file("completed") + " 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return readFile(file("completed"));
  };
  EXPECT_EQ(completed("zavel bo"), "book ");
  EXPECT_EQ(completed("zavel book se"), "search ");
  EXPECT_EQ(completed("zavel book show p"), "pets ");
  EXPECT_EQ(completed("zavel book show ''"), "my\\ pets pets ");
  EXPECT_EQ(completed("zavel book search -d pe"), "pets ");
  EXPECT_EQ(completed("zavel book search --method f"), "forward ");
  EXPECT_EQ(completed("zavel book show pets --r"), "--root --raw ");
  EXPECT_EQ(completed("zavel help book ic"), "icon ");
}

// All keys that documents have stand in docs/json.md, and so do all codes of failures.
TEST_F(BookCommandTest, WhatJsonHasIsDocumented) {
  std::ifstream in(ZAVEL_DOCS "/json.md");
  std::stringstream text;
  text << in.rdbuf();
  const auto documented = [&text](const std::string& key) {
    return text.str().find("`" + key + "`") != std::string::npos ||
           text.str().find("." + key + "`") != std::string::npos;
  };
  putPets();
  putSmall();
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"list"},
                                             {"info", "small"},
                                             {"search", "dog"},
                                             {"show", "pets", "cat"},
                                             {"show", "pets", "cat", "--raw"},
                                             {"menu", "small"},
                                             {"multi", "small"},
                                             {"gaiji", "small"},
                                             {"gaiji", "small", "A121"}}) {
    std::vector<nlohmann::json> open = {json(command)};
    while (!open.empty()) {
      const nlohmann::json one = open.back();
      open.pop_back();
      if (one.is_object()) {
        for (const auto& [key, value] : one.items())
          EXPECT_TRUE(documented(key)) << key << " of " << command[0];
      }
      if (one.is_structured()) open.insert(open.end(), one.begin(), one.end());
    }
  }
  for (const char* code : {"no_book", "no_such_book", "unreadable_book", "damaged_book", "not_available",
                           "nothing_there", "no_further_entry", "several_entries", "bad_query", "not_found",
                           "no_such_form", "no_such_field", "unknown_form"}) {
    EXPECT_TRUE(documented(code)) << code;
  }
}

}  // namespace
}  // namespace zavel::test
