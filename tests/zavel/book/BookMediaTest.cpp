// `zavel book gaiji`, `picture`, `sound` and `icon`.
#include <filesystem>

#include "support/DicWriter.h"
#include "support/SmallBook.h"
#include "zavel/book/BookFixture.h"

namespace zavel::test {
namespace {

class BookMediaTest : public BookFixture {
 protected:
  void SetUp() override { putSmall(); }

  std::string written(const std::string& name) const { return readFile(file(name)); }
};

TEST_F(BookMediaTest, EntriesTellWhereTheirPicturesStand) {
  EXPECT_EQ(told(book({"show", "small", "CD"})),
            "0|small 1:24\nＣＤ\n Ｄ\n [picture 1:50][picture 1:70][sound 1:92][film 1:114]\n|");
}

// Two rows of nine dots: ...#####. twice.
TEST_F(BookMediaTest, APictureOfTwoColours) {
  EXPECT_EQ(told(book({"picture", "small", "1:50"})),
            "0|picture 1:50: 9 x 2 dots, 70 bytes (bmp)\n   █████\n|");
  EXPECT_EQ(told(book({"picture", "small", "1:50", "-o", file("p.bmp")})),
            "0|" + file("p.bmp") + " (70 bytes, bmp)\n|");
  EXPECT_EQ(written("p.bmp").size(), 70u);
  EXPECT_EQ(written("p.bmp").substr(0, 2), "BM");
  EXPECT_EQ(book({"picture", "small", "1:50", "-o", "-"}).out, written("p.bmp"));
}

TEST_F(BookMediaTest, BytesAreForNoTerminal) {
  const Outcome outcome = zavel({"book", "picture", "small", "1:50", "-o", "-"}).terminal(24, 80).run();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out,
            "zavel: these bytes are for no terminal\n"
            "Name a file, or pass them on: --output - | another-program\n");
}

TEST_F(BookMediaTest, AFileNeedsACharacter) {
  EXPECT_EQ(told(book({"gaiji", "small", "-o", file("g.png")})),
            "2||zavel: --output needs a character\nSee which there are: zavel book gaiji BOOK\n");
}

TEST_F(BookMediaTest, ABitmapAsPng) {
  const Outcome outcome = book({"picture", "small", "1:50", "-o", file("p.png")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(written("p.png").substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(outcome.out, file("p.png") + " (" + std::to_string(written("p.png").size()) + " bytes, png)\n");
}

TEST_F(BookMediaTest, APictureAsTheBookHasIt) {
  EXPECT_EQ(told(book({"picture", "small", "1:70"})), "0|picture 1:70, 2 bytes (unknown)\n|");
  EXPECT_EQ(book({"picture", "small", "1:70", "-o", file("p.png")}).status, 0);
  EXPECT_EQ(written("p.png"), "xy");
}

TEST_F(BookMediaTest, AsJson) {
  EXPECT_EQ(told(book({"picture", "small", "1:70", "--json"})),
            R"(0|{"schema":1,"status":"found","book":"small","title":"Test","kind":"picture","place":"1:70",)"
            R"("name":null,"form":"unknown","width":null,"height":null,"bytes":2,"file":null,"data":"eHk="})"
            "\n|");
  const nlohmann::json stored = json({"picture", "small", "1:50", "-o", file("p.bmp")});
  EXPECT_EQ(stored["width"], 9);
  EXPECT_EQ(stored["file"], file("p.bmp"));
  EXPECT_EQ(stored["data"], nullptr);
  EXPECT_EQ(book({"picture", "small", "1:50", "-o", "-", "--json"}).status, 2);
}

TEST_F(BookMediaTest, OfAnEntryWithSeveralOneHasToBeChosen) {
  EXPECT_EQ(told(book({"picture", "small", "CD"})),
            "2||zavel: there are 2 pictures at CD\nChoose the place of one: 1:50, 1:70\n");
}

TEST_F(BookMediaTest, NoneThere) {
  EXPECT_EQ(told(book({"picture", "small", "AB"})),
            "1||zavel: the book \"small\" has no picture at AB\nSee what it has: zavel book info small\n");
  EXPECT_EQ(book({"sound", "small", "AB"}).status, 1);
  EXPECT_EQ(book({"picture", "small", "99:0"}).status, 1);
  EXPECT_EQ(book({"picture", "small", "nothing"}).status, 1);
}

TEST_F(BookMediaTest, ASound) {
  EXPECT_EQ(told(book({"sound", "small", "CD"})), "0|sound 1:92, 20 bytes (wav)\n|");
  EXPECT_EQ(book({"sound", "small", "1:92", "-o", file("s.wav")}).status, 0);
  EXPECT_EQ(written("s.wav"), std::string("RIFF\x0C\0\0\0WAVEabcdefgh", 20));
}

TEST_F(BookMediaTest, ASoundTellsItsForm) {
  std::map<std::string, std::string> files = smallBook();
  // 8 bits, two channels, 22050 Hz, of 8 bytes.
  files["r1"] = packed(Text().begin().entry("AB", "C").raw(smallSoundTag(0x1111)).end().bytes());
  put("small", files);
  EXPECT_EQ(told(book({"sound", "small", "AB"})),
            "0|sound 1:26: 2 channels, 22050 Hz, 8 bits, 0.0 s, 52 bytes (wav)\n|");
}

TEST_F(BookMediaTest, DamagedMedia) {
  folder_.write("root/books/small/r22", "");
  EXPECT_EQ(told(book({"sound", "small", "CD"})),
            "5||zavel: the sound failed: the book \"small\" is damaged where this stands\n"
            "Make it again from its source, or put back a copy that is whole.\n");
  folder_.write("root/books/small/r20", "");
  EXPECT_EQ(book({"picture", "small", "1:50"}).status, 5);
}

TEST_F(BookMediaTest, AFileThatCantBeWritten) {
  EXPECT_EQ(
      told(book({"picture", "small", "1:50", "-o", file("none/p.bmp")})),
      "3||zavel: " + file("none/p.bmp") +
          " can't be written\nCheck that its folder is there and yours, and that the disk isn't full.\n");
}

TEST_F(BookMediaTest, CustomCharacters) {
  EXPECT_EQ(told(book({"gaiji", "small"})), "0|A121  full  \nA121  half  \n|");
  put("small", {{"BOOK.UNI", be32(1) + be16(0xA121) + be16(0) + be32(0xE9) + be32(0xE9) + be32(0)}});
  EXPECT_EQ(told(book({"gaiji", "small"})), "0|A121  full  é\nA121  half  \n|");
  EXPECT_EQ(told(book({"gaiji", "small", "--json"})),
            R"(0|{"schema":1,"book":"small","title":"Test","characters":[)"
            R"({"code":"A121","width":"full","character":"é"},)"
            R"({"code":"A121","width":"half","character":null}]})"
            "\n|");
}

// Each byte of the glyphs is 5A: .#.##.#.
TEST_F(BookMediaTest, ACustomCharacterIsDrawn) {
  std::string rows;
  for (int i = 0; i < 8; ++i) rows += " █ ██ █\n";
  EXPECT_EQ(told(book({"gaiji", "small", "a121", "--half"})),
            "0|character, A121: 8 x 16 dots, 126 bytes (bmp)\n" + rows + "|");
  put("small", {{"BOOK.UNI", be32(1) + be16(0xA121) + be16(0) + be32(0xE9) + be32(0xE9) + be32(0)}});
  const Outcome full = book({"gaiji", "small", "é"});
  EXPECT_TRUE(full.out.starts_with("character, A121 é: 16 x 16 dots, 126 bytes (bmp)\n █ ██ █  █ ██ █\n"))
      << full.out;
  EXPECT_EQ(book({"gaiji", "small", "é", "-o", file("e.bmp")}).status, 0);
  EXPECT_EQ(written("e.bmp").size(), 126u);
}

TEST_F(BookMediaTest, NoSuchCharacter) {
  EXPECT_EQ(told(book({"gaiji", "small", "A122"})),
            "1||zavel: the book \"small\" has no full-width character A122\nSee what it has: zavel book info "
            "small\n");
  EXPECT_EQ(
      told(book({"gaiji", "small", "ñ"})),
      "1||zavel: the book \"small\" has no custom character \"ñ\"\nSee what it has: zavel book info small\n");
  putPets();
  EXPECT_EQ(told(book({"gaiji", "pets"})),
            "1||zavel: the book \"pets\" has no custom characters\nSee what it has: zavel book info pets\n");
  EXPECT_EQ(json({"gaiji", "pets"})["characters"].size(), 0u);
}

TEST_F(BookMediaTest, IconsThatArentThereOrAreCut) {
  putPets();
  EXPECT_EQ(told(book({"icon", "pets"})),
            "1||zavel: the book \"pets\" has no large icon\nSee what it has: zavel book info pets\n");
  EXPECT_EQ(told(book({"icon", "pets", "--small"})),
            "1||zavel: the book \"pets\" has no small icon\nSee what it has: zavel book info pets\n");
  EXPECT_EQ(told(book({"icon", "small"})),
            "5||zavel: the book \"small\" is damaged: its large icon is cut short\n"
            "Make it again from its source, or put back a copy that is whole.\n");
}

// A small icon: 15 rows of 8 bytes, the lowest one of colour 9 (red), all else black.
TEST_F(BookMediaTest, AnIcon) {
  BookWriter writer;
  writer.smallIcon = std::string(8, '\x99') + std::string(112, '\0');
  writer.region(0, 1, Text().begin().entry("AB", "C").end().bytes());
  std::filesystem::create_directories(root() + "/books/icon");
  TempFolder made;
  writer.write(made);
  std::filesystem::copy(made.path(), root() + "/books/icon", std::filesystem::copy_options::recursive);
  const Outcome outcome = book({"icon", "icon", "--small"});
  EXPECT_EQ(outcome.out.substr(0, outcome.out.find('\n')), "icon: 16 x 15 dots, 238 bytes (bmp)");
  const Outcome coloured = book({"icon", "icon", "--small", "--color", "always"});
  EXPECT_NE(coloured.out.find("\x1b[38;2;255;0;0m\x1b[48;2;255;255;255m▀"), std::string::npos);
  EXPECT_EQ(json({"icon", "icon", "--small"})["height"], 15);
}

}  // namespace
}  // namespace zavel::test
