// `zavel book search` and what it finds.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class BookSearchTest : public BookFixture {
 protected:
  void SetUp() override { putPets(); }

  // Places of what is found.
  std::string found(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "search");
    std::string out;
    const nlohmann::json answer = json(std::move(arguments));
    for (const nlohmann::json& entry : answer["entries"]) {
      out += (out.empty() ? "" : " ") + entry["place"].get<std::string>();
    }
    return out;
  }
};

TEST_F(BookSearchTest, AWholeWord) {
  EXPECT_EQ(told(book({"search", "dog"})), "0|Pets  [pets]\n  1:46  dog\n|");
  EXPECT_EQ(told(book({"search", "DOG"})), "0|Pets  [pets]\n  1:46  dog\n|");
  EXPECT_EQ(told(book({"search", "「ｄｏｇ」。"})), "0|Pets  [pets]\n  1:46  dog\n|");
  EXPECT_EQ(told(book({"search", "hot dog "})), "0|Pets  [pets]\n  1:76  hot dog\n|");
  EXPECT_EQ(told(book({"search", "hotdog"})), "0|Pets  [pets]\n  1:76  hot dog\n|");
}

TEST_F(BookSearchTest, CharactersOfTheBooksOwnAndHowTheyAreTyped) {
  EXPECT_EQ(told(book({"search", "né"})), "0|Pets  [pets]\n  1:114  né\n|");
  EXPECT_EQ(told(book({"search", "ne"})), "0|Pets  [pets]\n  1:114  né\n|");
  EXPECT_EQ(told(book({"search", "ñé"})), "0|Pets  [pets]\n  1:114  né\n|");
}

TEST_F(BookSearchTest, Methods) {
  EXPECT_EQ(found({"--method", "exact", "hot"}), "");
  EXPECT_EQ(found({"--method", "forward", "hot"}), "1:76");
  EXPECT_EQ(found({"--method", "backward", "dog"}), "1:46 1:76");
  EXPECT_EQ(found({"--method", "backward", "é"}), "1:114");
}

TEST_F(BookSearchTest, WhatIsNotThereBringsWhatBeginsSo) {
  EXPECT_EQ(told(book({"search", "ho"})),
            "1||zavel: no entry for \"ho\" in the book \"pets\"\nHeadwords that begin so: hot dog\n");
  EXPECT_EQ(json({"search", "ho"})["suggestions"], nlohmann::json({"hot dog"}));
  EXPECT_EQ(told(book({"search", "--method", "exact", "ho"})),
            "1||zavel: no entry for \"ho\" in the book \"pets\"\n");
  EXPECT_EQ(told(book({"search", "xyz"})), "1||zavel: no entry for \"xyz\" in the book \"pets\"\n");
}

TEST_F(BookSearchTest, WhatABookCantWrite) {
  EXPECT_EQ(told(book({"search", "한"})),
            "1||zavel: no entry for \"한\" in the book \"pets\": its character 한 is none of the book's\n");
  EXPECT_EQ(json({"search", "한😀"})["unknown"], "한😀");
  putPets("more");
  EXPECT_EQ(told(book({"search", "한😀"})),
            "1||zavel: no entry for \"한😀\" in the 2 books: its characters 한😀 is in none of them\n");
}

TEST_F(BookSearchTest, AMethodThatNoBookHas) {
  EXPECT_EQ(told(book({"search", "--method", "keyword", "dog"})),
            "1||zavel: \"dog\": no book here has an index for --method keyword\n"
            "See what a book can be asked for: zavel book info BOOK\n");
  EXPECT_EQ(json({"search", "--method", "cross", "dog"})["error"]["code"], "not_available");
}

TEST_F(BookSearchTest, MethodsThatOneOfTheBooksHas) {
  putSmall();
  const nlohmann::json keyword = json({"search", "--method", "keyword", "AB"});
  EXPECT_EQ(keyword["entries"][0]["book"], "small");
  EXPECT_EQ(keyword["entries"][0]["place"], "1:2");
  EXPECT_EQ(keyword["books"][0]["status"], "not_available");
  EXPECT_EQ(keyword["books"][1]["status"], "found");
  EXPECT_EQ(found({"--method", "cross", "AB"}), "1:2");
}

TEST_F(BookSearchTest, Queries) {
  EXPECT_EQ(found({"--query", "dog or cat"}), "1:2 1:46");
  EXPECT_EQ(found({"--query", "*dog and hot*"}), "1:76");
  EXPECT_EQ(found({"--query", "*dog and cat"}), "");
  EXPECT_EQ(found({"--query", "(cat or *dog) and (dog or né)"}), "1:46");
  EXPECT_EQ(found({"--query", "⊂◆cat│■dog⊃◇◆dog"}), "1:46");
  EXPECT_EQ(found({"--query", "--method", "forward", "hot or ca"}), "1:2 1:76");
  EXPECT_EQ(found({"--query", "\"hot dog\""}), "1:76");
}

// The engine's own combinations would take these for errors, or pass the missing word over.
TEST_F(BookSearchTest, QueriesWithWordsThatArentThere) {
  EXPECT_EQ(found({"--query", "none and dog"}), "");
  EXPECT_EQ(found({"--query", "dog and none"}), "");
  EXPECT_EQ(found({"--query", "none or dog"}), "1:46");
  EXPECT_EQ(found({"--query", "(none and cat) or dog"}), "1:46");
  EXPECT_EQ(found({"--query", "cat or dog and (dog)"}), "1:46");
  EXPECT_EQ(book({"search", "--query", "none and dog"}).status, 1);
}

TEST_F(BookSearchTest, QueriesOfForms) {
  putSmall();
  EXPECT_EQ(found({"-d", "small", "--query", "▽０▼０AB"}), "1:2");
  EXPECT_EQ(found({"-d", "small", "--query", "▽０▼０AB or CD"}), "1:2 1:24");
}

TEST_F(BookSearchTest, AQueryThatCantBeRead) {
  EXPECT_EQ(told(book({"search", "--query", "dog and"})),
            "2||zavel: \"dog and\": the query can't be read: a word is missing behind \"and\"\n"
            "See how queries are written: zavel help book search\n");
  EXPECT_EQ(json({"search", "--query", "(dog"})["error"]["code"], "bad_query");
}

TEST_F(BookSearchTest, OfSeveralBooksEachIsNamed) {
  putPets("more");
  EXPECT_EQ(told(book({"search", "dog"})), "0|Pets  [more]\n  1:46  dog\nPets  [pets]\n  1:46  dog\n|");
  EXPECT_EQ(told(book({"search", "-d", "pets", "dog"})), "0|Pets  [pets]\n  1:46  dog\n|");
  EXPECT_EQ(told(book({"search", "-d", "pets", "-d", "more", "dog"})),
            "0|Pets  [pets]\n  1:46  dog\nPets  [more]\n  1:46  dog\n|");
}

TEST_F(BookSearchTest, ALimitTellsHowMuchThereIsMore) {
  EXPECT_EQ(told(book({"search", "--method", "backward", "-n", "1", "dog"})),
            "0|Pets  [pets]\n  1:46  dog\n  and 1 more\n|");
  const nlohmann::json one = json({"search", "--method", "backward", "-n", "1", "dog"});
  EXPECT_EQ(one["entries"].size(), 1u);
  EXPECT_EQ(one["books"][0]["count"], 2);
}

TEST_F(BookSearchTest, AsJson) {
  EXPECT_EQ(told(book({"search", "--json", "dog"})),
            R"(0|{"schema":1,"query":"dog","status":"found","method":"exact","unknown":null,)"
            R"("entries":[{"book":"pets","place":"1:46","headword":"dog"}],"suggestions":[],)"
            R"("books":[{"name":"pets","title":"Pets","status":"found","count":1,"error":null}]})"
            "\n|");
}

TEST_F(BookSearchTest, SeveralWords) {
  EXPECT_EQ(told(book({"search", "dog", "xyz", "cat"})),
            "0|dog:\nPets  [pets]\n  1:46  dog\n\ncat:\nPets  [pets]\n  1:2  cat\n|"
            "zavel: no entry for \"xyz\" in the book \"pets\"\n");
  EXPECT_EQ(told(book({"search", "--plain", "dog", "cat"})),
            "0|dog\tpets\t1:46\tdog\ncat\tpets\t1:2\tcat\n|");
}

TEST_F(BookSearchTest, WordsFromStandardInput) {
  const Outcome outcome = zavel({"book", "search", "--json"}).input("dog\r\n\nxyz\n\xFF\ncat").run();
  EXPECT_EQ(outcome.status, 4);
  std::vector<nlohmann::json> lines;
  for (size_t at = 0; at < outcome.out.size();) {
    const size_t end = outcome.out.find('\n', at);
    lines.push_back(nlohmann::json::parse(outcome.out.substr(at, end - at)));
    at = end + 1;
  }
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0]["entries"][0]["place"], "1:46");
  EXPECT_EQ(lines[1]["status"], "not_found");
  EXPECT_EQ(lines[2]["status"], "not_found");
  EXPECT_EQ(lines[3]["error"]["code"], "not_text");
  EXPECT_EQ(lines[4]["entries"][0]["place"], "1:2");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(BookSearchTest, WordsThatEndInNul) {
  const Outcome outcome =
      zavel({"book", "search", "--plain", "-0", "-"}).input(std::string("dog\0cat\0", 8)).run();
  EXPECT_EQ(told(outcome), "0|dog\tpets\t1:46\tdog\ncat\tpets\t1:2\tcat\n|");
}

TEST_F(BookSearchTest, AWordThatIsTooLong) {
  EXPECT_EQ(
      told(book({"search", std::string(256, 'a')})),
      "2||zavel: \"" + std::string(60, 'a') +
          "...\": the word is too long: no entry has more than 255 characters\nSearch for a part of it.\n");
  EXPECT_EQ(book({"search", std::string(255, 'a')}).status, 1);
}

TEST_F(BookSearchTest, SignsAloneFindNothing) {
  EXPECT_EQ(told(book({"search", "!!!"})), "1||zavel: no entry for \"!!!\" in the book \"pets\"\n");
  EXPECT_EQ(book({"search", ""}).status, 1);
  EXPECT_EQ(book({"search", "　"}).status, 1);
}

TEST_F(BookSearchTest, ADamagedBookIsNamedOnceAndTheOthersAnswer) {
  put("bad", {{"BOOK.CAT", "HWEDINFO"}});
  const Outcome outcome = book({"search", "--plain", "dog", "cat", "xyz"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "dog\tpets\t1:46\tdog\ncat\tpets\t1:2\tcat\n");
  const std::string name = "the book \"bad\" is damaged or none";
  EXPECT_EQ(outcome.err.find(name), outcome.err.rfind(name));
  EXPECT_NE(outcome.err.find(name), std::string::npos);
  const nlohmann::json answer = json({"search", "dog"});
  EXPECT_EQ(answer["status"], "found");
  EXPECT_EQ(answer["books"][1]["name"], "bad");
  EXPECT_EQ(answer["books"][1]["status"], "failed");
  EXPECT_EQ(answer["books"][1]["error"]["code"], "damaged_book");
}

TEST_F(BookSearchTest, AnIndexThatCantBeRead) {
  putPets("whole");
  folder_.write("root/books/pets/r2", "");
  const Outcome outcome = book({"search", "dog"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "Pets  [whole]\n  1:46  dog\n");
  EXPECT_EQ(
      outcome.err,
      "zavel: the search failed: the book \"pets\" is damaged where this stands. Make it again from its "
      "source, or put back a copy that is whole.\n");
  EXPECT_EQ(book({"search", "-d", "pets", "dog"}).status, 5);
}

TEST_F(BookSearchTest, AReaderThatGoesAwayEndsIt) {
  const Outcome outcome =
      zavel({"book", "search", "--plain"}).input("dog\ncat\n").outputFile("/dev/full").run();
  EXPECT_EQ(outcome.status, 3);
}

TEST_F(BookSearchTest, InterruptedWhileItWaitsForWords) {
  const std::string fifo = file("words");
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  // Open at both ends, so that the reader waits for words that never come.
  const int writer = open(fifo.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(write(writer, "dog\n", 4), 4);
  for (const int signal : {SIGINT, SIGTERM}) {
    EXPECT_EQ(zavel({"book", "search"}).inputFile(fifo).signalAt(fifo, signal).run().status, 128 + signal);
  }
  close(writer);
}

}  // namespace
}  // namespace zavel::test
