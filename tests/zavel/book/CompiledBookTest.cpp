// Books that mkbook makes of dictionaries, read with `zavel book`.
#include <sys/stat.h>
#include <sys/wait.h>

#include <filesystem>
#include <sstream>

#include "support/DicWriter.h"
#include "support/DictdFiles.h"
#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class CompiledBookTest : public BookFixture {
 protected:
  void make(const std::string& form, const std::string& source, const std::string& name) {
    folder_.write("font.hex", "00E9:00000000000000007E42424242427E00\n");
    std::filesystem::create_directories(root() + "/books");
    const std::string command = std::string(MKBOOK_PROGRAM) + " -q --progress none --unifont " +
                                file("font.hex") + " --title " + name + " " + form + " " + source + " " +
                                root() + "/books/" + name;
    ASSERT_EQ(std::system(command.c_str()), 0);
  }

  void makeCafe() {
    DictdFiles files;
    files.option("00-database-utf8");
    files.entry("café\n   a place for {coffee}\n   and cake\n", {"café"});
    files.entry("coffee\n   a drink of the café\n", {"coffee"});
    files.sorted().write(file("cafe"));
    make("dictd", file("cafe.index"), "cafe");
  }

  // EUC-JP.
  void makeKanji() {
    folder_.write("kanjidic",
                  "# KANJIDIC\n"
                  "\xB8\xA4 3824 U72ac B94 G1 S4 F1326 \xA5\xB1\xA5\xF3 \xA4\xA4\xA4\xCC {dog} \n"
                  "\xC7\xAD 472D U732b B94 G8 S11 F1702 \xA5\xD3\xA5\xE7\xA5\xA6 \xA4\xCD\xA4\xB3 {cat} \n");
    make("kanjidic", file("kanjidic"), "kanji");
  }
};

TEST_F(CompiledBookTest, AccentsAreFoundAsTheyAreAndAsTheyAreTyped) {
  makeCafe();
  for (const char* word : {"café", "cafe", "CAFÉ", "cafe\u0301"}) {
    EXPECT_EQ(json({"search", word})["entries"][0]["headword"], "café") << word;
  }
  EXPECT_EQ(json({"search", "--method", "backward", "é"})["entries"].size(), 1u);
}

// Each word stands for itself.
TEST_F(CompiledBookTest, EntriesByTheWordsOfTheirTexts) {
  makeCafe();
  EXPECT_EQ(json({"search", "--method", "cross", "drink"})["entries"][0]["headword"], "coffee");
  EXPECT_EQ(json({"search", "--method", "cross", "cafe coffee"})["entries"].size(), 2u);
  EXPECT_EQ(json({"search", "--method", "cross", "cake  place"})["entries"][0]["headword"], "café");
  EXPECT_EQ(json({"search", "--method", "cross", "cake drink"})["status"], "not_found");
  EXPECT_EQ(json({"search", "--method", "keyword", "coffee cafe"})["status"], "not_found");
}

// The engine opens such a book and leaves out what the file would hold: an answer may lack entries.
TEST_F(CompiledBookTest, AFileThatIsMissingIsTold) {
  makeCafe();
  std::filesystem::remove(root() + "/books/cafe/EXACTL.DAT");
  const std::string damaged =
      "zavel: the book \"cafe\" is damaged: its file EXACTL.DAT is missing or empty. Make it again from its "
      "source, "
      "or put "
      "back a copy that is whole.\n";
  Outcome outcome = book({"search", "coffee"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_TRUE(outcome.err.starts_with(damaged)) << outcome.err;
  outcome = book({"search", "--method", "forward", "coff"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.out.find("coffee"), std::string::npos);
  EXPECT_EQ(json({"search", "coffee"})["books"][0]["error"]["code"], "damaged_book");
  outcome = book({"info", "cafe"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.err.find("its file EXACTL.DAT is missing or empty"), std::string::npos);
}

TEST_F(CompiledBookTest, AnEmptyFileIsTold) {
  makeCafe();
  folder_.write("root/books/cafe/BODY.DAT", "");
  const Outcome outcome = book({"search", "coffee"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.err.find("its file BODY.DAT is missing or empty"), std::string::npos) << outcome.err;
}

TEST_F(CompiledBookTest, ATableThatIsAFolderIsAsNone) {
  makeCafe();
  std::filesystem::remove(root() + "/books/cafe/BOOK.UNI");
  std::filesystem::create_directory(root() + "/books/cafe/BOOK.UNI");
  EXPECT_EQ(book({"search", "coffee"}).status, 0);
  // A pipe that nobody writes into isn't waited for.
  std::filesystem::remove(root() + "/books/cafe/BOOK.UNI");
  ASSERT_EQ(mkfifo((root() + "/books/cafe/BOOK.UNI").c_str(), 0600), 0);
  EXPECT_EQ(book({"search", "coffee"}).status, 0);
}

TEST_F(CompiledBookTest, AnEntryReadsAsItsSource) {
  makeCafe();
  const nlohmann::json coffee = json({"search", "coffee"})["entries"][0];
  const std::string cafe = json({"search", "café"})["entries"][0]["place"];
  EXPECT_EQ(told(book({"show", "cafe", "café"})),
            "0|cafe " + cafe + "\ncafé\n   a place for coffee\n   and cake\nReferences: coffee " +
                coffee["place"].get<std::string>() + "\n|");
  EXPECT_EQ(json({"next", "cafe", "café"})["entries"][0]["headword"], "coffee");
  EXPECT_EQ(json({"prev", "cafe", "coffee"})["entries"][0]["headword"], "café");
}

TEST_F(CompiledBookTest, ItsOwnCharacter) {
  makeCafe();
  EXPECT_EQ(told(book({"gaiji", "cafe"})), "0|A121  half  é\n|");
  const Outcome drawn = book({"gaiji", "cafe", "é"});
  EXPECT_EQ(drawn.out,
            "character, A121 é: 8 x 16 dots, 126 bytes (bmp)\n\n\n\n\n █▀▀▀▀█\n █    █\n █    █\n ▀▀▀▀▀▀\n")
      << drawn.out;
}

TEST_F(CompiledBookTest, AFormOfKanji) {
  makeKanji();
  EXPECT_EQ(told(book({"multi", "kanji"})),
            "0|1  Kanji\n   1  Radical  (1 choice)\n   2  Strokes  (2 choices)\n   3  Grade  (2 choices)\n"
            "   4  Reading\n   5  Meaning\n|");
  EXPECT_EQ(json({"multi", "kanji", "1", "strokes=4"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"multi", "kanji", "1", "radical=94"})["entries"].size(), 2u);
  EXPECT_EQ(json({"multi", "kanji", "Kanji", "radical=94", "meaning=cat"})["entries"][0]["headword"], "猫");
  EXPECT_EQ(json({"multi", "kanji", "1", "strokes=4", "meaning=cat"})["status"], "not_found");
  EXPECT_EQ(json({"multi", "kanji", "1", "reading=いぬ"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"multi", "kanji", "1", "reading=イヌ"})["entries"][0]["headword"], "犬");
}

TEST_F(CompiledBookTest, KanaAreNotFoldedOntoOthers) {
  makeKanji();
  EXPECT_EQ(json({"search", "いぬ"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"search", "イヌ"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"search", "ｲﾇ"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"search", "いね"})["status"], "not_found");
  EXPECT_EQ(json({"search", "けん"})["entries"][0]["headword"], "犬");
  EXPECT_EQ(json({"search", "げん"})["status"], "not_found");
}

TEST_F(CompiledBookTest, AnIcon) {
  makeKanji();
  EXPECT_EQ(json({"icon", "kanji"})["width"], 32);
  EXPECT_EQ(json({"icon", "kanji", "--small"})["height"], 15);
}

// The example that the documentation names: menus, pictures, sounds, forms of two kinds.
TEST_F(CompiledBookTest, TheExampleOfAHandMadeBook) {
  make("text", ZAVEL_DOCS "/../data/example-book/garden.txt", "garden");
  EXPECT_EQ(book({"menu", "garden"}).out.substr(0, 15), "A Small Garden\n");
  const nlohmann::json apple = json({"show", "garden", "apple"});
  EXPECT_EQ(apple["entries"][0]["headword"], "林檎【りんご】");
  EXPECT_NE(apple["entries"][0]["text"].get<std::string>().find("85% H₂O; there are some 10⁴ sorts."),
            std::string::npos);
  EXPECT_EQ(json({"picture", "garden", "apple"})["form"], "jpeg");
  EXPECT_EQ(json({"sound", "garden", "風鈴"})["error"]["code"], "several_entries");
  EXPECT_EQ(json({"multi", "garden", "1", "colour=moss green"})["entries"][0]["headword"], "苔【こけ】");
  EXPECT_EQ(json({"multi", "garden", "1", "Latin name=mal"})["entries"][0]["headword"], "林檎【りんご】");
  EXPECT_EQ(json({"search", "--method", "keyword", "--query", "stone and moss"})["entries"][0]["headword"],
            "苔【こけ】");
  const nlohmann::json plan = json({"menu", "garden", "--pictures"})["lines"][0]["spans"][0];
  EXPECT_EQ(plan["type"], "picture");
  EXPECT_EQ(json({"picture", "garden", plan["place"].get<std::string>()})["width"], 96);
}

// What helps, manual page and README show are commands that the program takes.
TEST_F(CompiledBookTest, Examples) {
  makeKanji();
  std::filesystem::rename(root() + "/books/kanji", root() + "/books/kanjidic");
  for (const char* name : {"wordnet", "edict", "atlas", "birds"}) putPets(name);
  std::filesystem::create_directories(file("books"));
  std::filesystem::copy(root() + "/books/kanjidic", file("books/kanjidic"));
  folder_.write("words.txt", "dog\ncat\n");
  std::vector<std::string> texts = {readFile(ZAVEL_DOCS "/../README.md"),
                                    readFile(ZAVEL_DOCS "/man/zavel-book.1.scd")};
  for (const char* command : {"", "list", "info", "search", "show", "next", "prev", "menu", "multi", "gaiji",
                              "picture", "sound", "icon"}) {
    std::vector<std::string> words = {"help", "book"};
    if (*command) words.push_back(command);
    const std::string help = zavel(words).run().out;
    texts.push_back(help.substr(0, help.find("\n\n")));
  }
  size_t tried = 0;
  for (const std::string& text : texts) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      line.erase(0, line.find_first_not_of(" \t"));
      if (!line.starts_with("zavel book ") || line.starts_with("zavel book build")) continue;
      line = line.substr(0, line.find("   #"));
      for (size_t at = 0; (at = line.find("\\*", at)) != std::string::npos;) line.erase(at, 1);
      const std::string command = "cd " + folder_.path() + "; HOME=$PWD; export HOME ZAVEL_ROOT=" + root() +
                                  "; zavel() { " ZAVEL_PROGRAM " \"$@\"; }; " + line +
                                  " >out 2>err </dev/null";
      const int status = std::system(command.c_str());
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1) << line << "\n" << readFile(file("err"));
      ++tried;
    }
  }
  EXPECT_GE(tried, 35u);
}

}  // namespace
}  // namespace zavel::test
