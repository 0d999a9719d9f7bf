// `zavel book show`, `next`, `prev` and `menu`.
#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class BookShowTest : public BookFixture {
 protected:
  void SetUp() override { putPets(); }
};

TEST_F(BookShowTest, AnEntryByWordAndByPlace) {
  const std::string cat = "0|pets 1:2\ncat\n  猫犬\nReferences: 犬 1:46\n|";
  EXPECT_EQ(told(book({"show", "pets", "cat"})), cat);
  EXPECT_EQ(told(book({"show", "pets", "1:2"})), cat);
  EXPECT_EQ(told(book({"show", "pets", "0:2050"})), cat);  // offsets may lead into later blocks
  EXPECT_EQ(told(book({"show", "pets", "né"})), "0|pets 1:114\nné\n  生\n|");
}

TEST_F(BookShowTest, TheAddressOfALinesEndBeginsWithTheLineBehindIt) {
  putSmall();
  EXPECT_EQ(book({"show", "small", "1:24"}).out.substr(0, 18), "small 1:24\nＣＤ\n");
}

TEST_F(BookShowTest, AsJson) {
  EXPECT_EQ(told(book({"show", "pets", "cat", "--json"})),
            R"(0|{"schema":1,"query":"cat","status":"found","book":"pets","title":"Pets","entries":[)"
            R"({"place":"1:2","headword":"cat","text":"cat\n  猫犬\n","lines":[)"
            R"({"indent":0,"spans":[{"type":"text","text":"cat","styles":["keyword"],"place":null}]},)"
            R"({"indent":2,"spans":[{"type":"text","text":"猫","styles":[],"place":null},)"
            R"({"type":"reference","text":"犬","styles":[],"place":"1:46"}]}]}]})"
            "\n|");
}

TEST_F(BookShowTest, WordsAsTheyAre) {
  EXPECT_EQ(told(book({"show", "pets", "dog", "--raw"})),
            "0|pets 1:46\n"
            "1:46  1F09 0001 1F41 0100 1F04 2364 236F 2367\n"
            "1:62  1F05 1F61 1F0A 1F09 0003 3824 1F0A\n|");
  EXPECT_EQ(json({"show", "pets", "dog", "--raw"})["entries"][0]["raw"],
            "1F0900011F4101001F042364236F23671F051F611F0A1F09000338241F0A");
}

TEST_F(BookShowTest, AWordThatIsntThere) {
  EXPECT_EQ(told(book({"show", "pets", "ho"})),
            "1||zavel: no entry for \"ho\" in the book \"pets\"\nHeadwords that begin so: hot dog\n");
  EXPECT_EQ(told(book({"show", "pets", "xyz"})),
            "1||zavel: no entry for \"xyz\" in the book \"pets\"\n"
            "Search for a part of it: zavel book search --method forward\n");
  EXPECT_EQ(told(book({"show", "pets", "xyz", "--json"})),
            R"(1|{"schema":1,"query":"xyz","status":"not_found","book":"pets","title":"Pets","entries":[]})"
            "\n|");
  EXPECT_EQ(json({"next", "pets", "xyz"})["status"], "not_found");
  EXPECT_EQ(json({"picture", "pets", "xyz"})["error"]["code"], "not_found");
  EXPECT_EQ(book({"show", "pets", "\xFF"}).status, 2);
}

TEST_F(BookShowTest, APlaceThatIsNoneOfTheText) {
  for (const std::string place : {"9:0", "2:0", "1:3", "4294967295:4294967295", "0:0"}) {
    EXPECT_EQ(told(book({"show", "pets", place})),
              "1||zavel: the book \"pets\" has nothing at " + place +
                  "\nTake places from what search, show and menu print.\n");
  }
  EXPECT_EQ(book({"show", "pets", "4294967296:0"}).err.substr(0, 13), "zavel: no ent");  // a word, then
}

TEST_F(BookShowTest, ThereAndBack) {
  EXPECT_EQ(told(book({"next", "pets", "cat"})), "0|pets 1:46\ndog\n  犬\n|");
  EXPECT_EQ(told(book({"next", "pets", "1:46"})), "0|pets 1:76\nhot dog\n  腸\n|");
  EXPECT_EQ(told(book({"prev", "pets", "hot dog"})), "0|pets 1:46\ndog\n  犬\n|");
  EXPECT_EQ(told(book({"next", "pets", "cat", "-n", "2"})),
            "0|pets 1:46\ndog\n  犬\n\npets 1:76\nhot dog\n  腸\n|");
}

TEST_F(BookShowTest, TheEndsOfTheBook) {
  EXPECT_EQ(told(book({"next", "pets", "né"})),
            "1||zavel: there is no entry behind 1:114 in the book \"pets\"\nIt is the last one.\n");
  EXPECT_EQ(told(book({"prev", "pets", "cat"})),
            "1||zavel: there is no entry ahead of 1:2 in the book \"pets\"\nIt is the first one.\n");
  EXPECT_EQ(json({"next", "pets", "né"})["error"]["code"], "no_further_entry");
  // As many as there are.
  const Outcome outcome = book({"next", "pets", "dog", "-n", "5"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "pets 1:76\nhot dog\n  腸\n\npets 1:114\nné\n  生\n");
}

TEST_F(BookShowTest, OnATerminal) {
  const Outcome outcome =
      zavel({"book", "show", "pets", "cat"}).terminal(24, 80).env("TERM", "xterm").env("PAGER", "cat").run();
  EXPECT_EQ(outcome.out,
            "\x1b[2mpets 1:2\x1b[0m\n\x1b[1;31mcat\x1b[0m\n  猫\x1b[4m犬\x1b[0m\n"
            "\x1b[2mReferences: \x1b[0m犬 \x1b[2m1:46\x1b[0m\n");
  EXPECT_EQ(zavel({"book", "show", "--color", "never", "pets", "dog"})
                .terminal(24, 80)
                .env("TERM", "xterm")
                .run()
                .out,
            "pets 1:46\ndog\n  犬\n");
}

TEST_F(BookShowTest, LongAnswersGoThroughAPager) {
  const std::string pager = file("pager.sh");
  folder_.write("pager.sh", "#!/bin/sh\nsed 's/^/> /'\n");
  ::chmod(pager.c_str(), 0700);
  const auto show = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"book", "next", "pets", "cat", "-n", "3", "--color", "never"});
    return zavel(more).terminal(5, 80).env("TERM", "xterm").env("ZAVEL_PAGER", pager).run().out;
  };
  EXPECT_TRUE(show({}).starts_with("> pets 1:46\n> dog\n")) << show({});
  EXPECT_TRUE(show({"--no-pager"}).starts_with("pets 1:46\n"));
  EXPECT_TRUE(show({"--json"}).starts_with("{\"schema\""));
}

TEST_F(BookShowTest, ADamagedText) {
  folder_.write("root/books/pets/r1", "");
  EXPECT_EQ(told(book({"show", "pets", "1:2"})),
            "5||zavel: reading the entry failed: the book \"pets\" is damaged where this stands\n"
            "Make it again from its source, or put back a copy that is whole.\n");
}

TEST_F(BookShowTest, Menus) {
  putSmall();
  EXPECT_EQ(told(book({"menu", "small"})), "0|Ｍ→1:2\n|");
  EXPECT_EQ(told(book({"menu", "small", "2:0"})), "0|Ｍ→1:2\n|");
  EXPECT_EQ(told(book({"menu", "small", "--json"})),
            R"(0|{"schema":1,"status":"found","book":"small","title":"Test","place":"2:0",)"
            R"("text":"Ｍ\n","lines":[{"indent":0,"spans":[)"
            R"({"type":"item","text":"Ｍ","styles":[],"place":"1:2"}]}]})"
            "\n|");
}

// The small book's has a letter and nothing else.
TEST_F(BookShowTest, AMenuOfPictures) {
  putSmall();
  EXPECT_EQ(told(book({"menu", "small", "--pictures"})), "0|Ａ\n|");
  EXPECT_EQ(told(book({"menu", "pets", "--pictures"})),
            "1||zavel: the book \"pets\" has no menu of pictures\nSee what it has: zavel book info pets\n");
}

TEST_F(BookShowTest, NoMenu) {
  EXPECT_EQ(told(book({"menu", "pets"})),
            "1||zavel: the book \"pets\" has no menu\nSee what it has: zavel book info pets\n");
  putSmall();
  EXPECT_EQ(book({"menu", "small", "99:0"}).status, 1);
  EXPECT_EQ(told(book({"menu", "small", "first"})),
            "2||zavel: \"first\" is no place\nPlaces are as in 39:10: what the menu prints.\n");
}

}  // namespace
}  // namespace zavel::test
