// Hand-made books: what their files say, and what is wrong with others.
#include "mkbook/TextSource.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "mkbook/Failure.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using Kind = Span::Kind;

const std::string kHead = "@book Test\n@entry dog\n";

class Source : public testing::Test {
 protected:
  TextSource open(const std::string& text) {
    folder_.write("book.txt", text);
    summary_ = {};
    return TextSource(folder_.file("book.txt"), &summary_);
  }

  // What is wrong: messages without the file's name, each in a line.
  std::string wrong(const std::string& text) {
    try {
      open(text);
    } catch (const Failure& failure) {
      std::string out = failure.what();
      for (size_t at; (at = out.find(folder_.file("book.txt") + ":")) != std::string::npos;)
        out.erase(at, folder_.file("book.txt").size() + 1);
      return out.substr(std::min(out.find('\n') + 1, out.size()));
    }
    return "";
  }

  // "indent:text" of each line, references as [text>entry or word].
  static std::string shown(const std::vector<Line>& lines) {
    std::string out;
    for (const Line& line : lines) {
      out += std::to_string(line.indent) + ":";
      for (const Span& span : line.spans) {
        out +=
            span.kind == Kind::kReference
                ? "[" + span.text + ">" + (span.entry >= 0 ? std::to_string(span.entry) : span.target) + "]"
                : span.text;
      }
      out += "|";
    }
    return out;
  }

  test::TempFolder folder_;
  mkdict::Summary summary_;
};

TEST_F(Source, HasAHeader) {
  const TextSource source =
      open("# mine\n\n@book My Words 語\n@publisher me, free\n@id 70000\n@version 3\n@entry dog\na beast\n");
  EXPECT_EQ(source.title(), "My Words 語");
  EXPECT_EQ(source.publisher(), "me, free");
  EXPECT_EQ(source.identity(), 70000u);
  EXPECT_EQ(source.version(), 3u);
  EXPECT_EQ(source.size(), 1u);
}

TEST_F(Source, HasEntries) {
  const TextSource source = open(
      "@book T\n@entry dog\n@word hound\n@word hot dog\n@note (noun)\n@keyword beast\n@cross pet\nA "
      "{*beast}.\n\n"
      "# a comment\n  indented   \n\n\t  more\n\n@entry cat\n");
  const BookEntry dog = source.entry(0);
  EXPECT_EQ(dog.headword, "dog");
  EXPECT_EQ(dog.words, (std::vector<std::string>{"dog", "hound", "hot dog"}));
  EXPECT_EQ(shown({{1, dog.note}}), "1: (noun)|");
  EXPECT_EQ(shown(dog.lines), "1:A beast.|1:|3:indented|1:|11:more|");
  EXPECT_EQ(dog.lines[0].spans[1].kind, Kind::kEmphasis);
  EXPECT_EQ(source.keywords(0), (std::vector<std::string>{"dog", "hound", "hot", "dog", "beast"}));
  EXPECT_EQ(source.crossWords(0),
            (std::vector<std::string>{"dog", "noun", "beast", "indented", "more", "pet"}));
  EXPECT_EQ(source.entry(1).headword, "cat");
  EXPECT_TRUE(source.entry(1).lines.empty());
}

TEST_F(Source, FindsHeadwordsWithBracketsByTheirParts) {
  const TextSource source =
      open("@book T\n@entry 薄荷【はっか・ミント、めんと】\n@entry 【】\n@entry a【b】c\n");
  EXPECT_EQ(source.entry(0).headword, "薄荷【はっか・ミント、めんと】");
  EXPECT_EQ(source.entry(0).words, (std::vector<std::string>{"薄荷", "はっか", "ミント", "めんと"}));
  EXPECT_EQ(source.entry(1).words, (std::vector<std::string>{"【】"}));
  EXPECT_EQ(source.entry(2).words, (std::vector<std::string>{"a【b】c"}));
}

TEST_F(Source, TakesWhatEditorsWrite) {
  const TextSource source = open("\xEF\xBB\xBF@book T\r\n@entry dog\r\n a beast\r\n");
  EXPECT_EQ(source.title(), "T");
  EXPECT_EQ(shown(source.entry(0).lines), "2:a beast|");
  EXPECT_EQ(open("@book T\n@entry dog").entry(0).headword, "dog");
}

TEST_F(Source, LeadsToLabels) {
  const TextSource source = open(
      "@book T\n@entry cat\nsee {>#d} or {>#d|it}, {>#none}, {>#none|that}\n@entry dog【いぬ】\n@label "
      "d\n@label e\n");
  EXPECT_EQ(shown(source.entry(0).lines), "1:see [dog【いぬ】>1] or [it>1], none, that|");
  EXPECT_EQ(summary_.leftOutCount("references to labels that no entry has, written as plain text"), 2u);
  EXPECT_NE(summary_.text().find("#none (line 3)"), std::string::npos);
}

TEST_F(Source, HasMenus) {
  const TextSource source =
      open(kHead +
           "@menu first\n {>dog} {>>second}\n{>>none}\n@menu second\nback\n@menu third\nalone\n"
           "@picture-menu plan\n{>>plan}\n");
  const std::vector<Menu> menus = source.menus();
  ASSERT_EQ(menus.size(), 4u);
  EXPECT_EQ(menus[0].name, "first");
  EXPECT_FALSE(menus[0].pictures);
  EXPECT_EQ(shown(menus[0].lines), "2:[dog>dog] second|1:none|");
  EXPECT_EQ(menus[0].lines[0].spans[2].kind, Kind::kMenu);
  EXPECT_EQ(menus[0].lines[1].spans[0].kind, Kind::kPlain);
  EXPECT_TRUE(menus[3].pictures);
  EXPECT_EQ(summary_.leftOutCount("items that lead to no menu, written as plain text"), 1u);
  EXPECT_EQ(summary_.leftOutCount("menus that nothing leads to"), 1u);
  EXPECT_NE(summary_.text().find("menus that nothing leads to: third"), std::string::npos);
}

TEST_F(Source, HasForms) {
  const TextSource source = open(
      "@book T\n@form Find\n@field Colour\nred\ngreen\n  moss\n\tleaf\n\\@home\n@beginning Name\n@form "
      "Other\n@field "
      "Colour\n@entry dog\n@value Colour: Moss\n@value Colour: red\n@value Name: Canis: lupus\n");
  const std::vector<MultiSearch> forms = source.forms();
  ASSERT_EQ(forms.size(), 2u);
  EXPECT_EQ(forms[0].name, "Find");
  ASSERT_EQ(forms[0].fields.size(), 2u);
  const std::vector<Choice>& choices = forms[0].fields[0].choices;
  ASSERT_EQ(choices.size(), 3u);
  EXPECT_EQ(choices[1].name, "green");
  ASSERT_EQ(choices[1].below.size(), 2u);
  EXPECT_EQ(choices[1].below[1].name, "leaf");
  EXPECT_EQ(choices[2].name, "@home");
  EXPECT_TRUE(forms[0].fields[1].byBeginning);
  EXPECT_EQ(source.fieldValues(0, 0),
            (std::vector<std::vector<std::string>>{{"Moss", "red"}, {"Canis: lupus"}}));
  EXPECT_EQ(source.fieldValues(0, 1), (std::vector<std::vector<std::string>>{{"Moss", "red"}}));
  EXPECT_NE(summary_.text().find("2  choices that no entry has: Colour: leaf, Colour: @home\n"),
            std::string::npos)
      << summary_.text();
}

TEST_F(Source, TellsOfValuesThatAreNoChoice) {
  open(
      "@book T\n@form f\n@field c\nred\nblue\n@field free\n@entry a\n@value c: blu\n@value c: Red\n@value "
      "free: x\n");
  EXPECT_NE(summary_.text().find("1  values that are none of their field's choices: c: blu\n"),
            std::string::npos)
      << summary_.text();
  // Another form takes any.
  open("@book T\n@form f\n@field c\nred\n@form g\n@field c\n@entry a\n@value c: blu\n@value c: red\n");
  EXPECT_EQ(summary_.leftOutCount("values that are none of their field's choices"), 0u);
}

TEST_F(Source, TellsAllThatIsWrongAtOnce) {
  folder_.write("book.txt", "@book T\n@entry あ\nい{x}\n@bogus\n");
  try {
    TextSource(folder_.file("book.txt"), &summary_);
    FAIL();
  } catch (const Failure& failure) {
    const std::string path = folder_.file("book.txt");
    EXPECT_EQ(
        failure.what(),
        "2 errors in " + path + "\n" + path +
            ":3:2: unknown mark; there are {*, {_, {^, {=, {>, {>>, {picture and {sound. For the sign itself "
            "write \\{\n" +
            path +
            ":4:1: unknown in an entry; there are @word, @keyword, @cross, @label, @note and @value. For "
            "text that "
            "begins with the sign write \\@");
    EXPECT_EQ(failure.hint(), "The form is described in mkbook-text(5).");
    EXPECT_EQ(failure.status(), 5);
  }
  std::string many = kHead;
  for (int i = 0; i < 25; ++i) many += "}\n";
  const std::string told = wrong(many);
  EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 20);
  EXPECT_TRUE(told.ends_with("and 5 more"));
}

TEST_F(Source, RefusesWhatIsNoText) {
  EXPECT_EQ(wrong(kHead + "a\xFF"
                          "b\n"),
            "3:2: this is no UTF-8; save the file in that encoding");
  EXPECT_EQ(wrong(kHead + "あ\x01\n"), "3:2: a control character; delete it");
  EXPECT_EQ(wrong(kHead + std::string(65536, 'x')),
            "3:1: the line has more than 65535 bytes; break it in two");
  EXPECT_EQ(wrong(kHead + std::string(65535, 'x')), "");
  EXPECT_EQ(wrong("\xFF\xFE@\0b\0"), folder_.file("book.txt") + " is in UTF-16");
  EXPECT_EQ(wrong(kHead + std::string(1, '\0')), folder_.file("book.txt") + " is no text");
  EXPECT_EQ(wrong(""), "1:1: a book begins with @book and its title");
  EXPECT_THROW(TextSource(folder_.file("none"), &summary_), Failure);
  EXPECT_THROW(TextSource(folder_.path(), &summary_), Failure);
}

TEST_F(Source, RefusesHeadersThatMakeNoSense) {
  EXPECT_EQ(wrong("dog\n@book T\n@entry a\n"), "1:1: a book begins with @book and its title");
  EXPECT_EQ(wrong("@entry a\n"), "1:1: a book begins with @book and its title");
  EXPECT_EQ(wrong("@book\n@entry a\n"), "1:6: @book of nothing");
  EXPECT_EQ(wrong("@book T\ndog\n@entry a\n"), "2:1: text ahead of the first @entry");
  EXPECT_EQ(wrong("@book T\n@entry a\n@book U\n"), "3:1: a second @book; a file is one book");
  EXPECT_EQ(
      wrong("@book T\n@word x\n@entry a\n"),
      "2:1: unknown ahead of the first @entry; there are @publisher, @id, @version, @icon and @small-icon");
  EXPECT_EQ(wrong("@book T\n@id 65535\n@entry a\n"), "2:5: a number from 65536 to 2147483647 is looked for");
  EXPECT_EQ(wrong("@book T\n@id 70000x\n@entry a\n"), "2:5: a number from 65536 to 2147483647 is looked for");
  EXPECT_EQ(wrong("@book T\n@version 0\n@entry a\n"), "2:10: a number from 1 to 2147483647 is looked for");
  EXPECT_EQ(wrong("@book " + std::string(64, 'x') + "\n@entry a\n"),
            "1:7: too long; a title has at most 31 Japanese characters or 63 letters");
  EXPECT_EQ(wrong("@book " + std::string(63, 'x') + "\n@entry a\n"), "");
  EXPECT_EQ(wrong("@book T\n@publisher " + std::string(241, 'x') + "\n@entry a\n"),
            "2:12: too long; at most 240 bytes go here");
  EXPECT_EQ(wrong("@book T\n"), folder_.file("book.txt") + " has no entries");
}

TEST_F(Source, RefusesEntriesThatMakeNoSense) {
  EXPECT_EQ(wrong("@book T\n@entry\n"), "2:7: an entry without a headword");
  EXPECT_EQ(wrong(kHead + "@wrod x\n"),
            "3:1: unknown in an entry; there are @word, @keyword, @cross, @label, @note and @value. For text "
            "that begins "
            "with the sign write \\@");
  EXPECT_EQ(wrong(kHead + "@label a\n@entry cat\n@label a\n"),
            "5:1: the label a is taken by the entry of line 2");
  EXPECT_EQ(wrong(kHead + "  あ{>>m}\n"), "3:4: only menus lead to menus");
  EXPECT_EQ(wrong(kHead + "@word " + std::string(501, 'x') + "\n"),
            "3:7: too long; at most 500 characters go here");
  EXPECT_EQ(wrong(kHead + "@value x\n"),
            "3:8: a field and its value are looked for, as in: @value Colour: red");
  EXPECT_EQ(wrong(kHead + "@value x: y\n"), "3:8: no form has a field x");
  std::string longEntry = kHead;
  for (int i = 0; i < 129; ++i) longEntry += std::string(65535, 'x') + "\n";
  EXPECT_EQ(wrong(longEntry), "2:1: more than 8 MB of text; make several entries of it");
}

TEST_F(Source, RefusesMenusAndFormsThatMakeNoSense) {
  EXPECT_EQ(wrong(kHead + "@menu\na\n"), "3:6: a menu without a name");
  EXPECT_EQ(wrong(kHead + "@menu m\n"), "3:1: a menu without lines");
  EXPECT_EQ(wrong(kHead + "@menu m\n@word x\na\n"),
            "4:1: unknown in a menu. For text that begins with the sign write \\@");
  EXPECT_EQ(wrong(kHead + "@menu m\na\n@picture-menu m\na\n"), "5:1: a second menu of the name m");
  EXPECT_EQ(wrong(kHead + "@menu m\na {>>p}\n@picture-menu p\na\n"),
            "4:3: menus with pictures and those without don't lead to each other");
  EXPECT_EQ(wrong(kHead + "@form\n@field a\n"), "3:6: a form without a name");
  EXPECT_EQ(wrong(kHead + "@form f\n"), "3:1: a form without fields");
  EXPECT_EQ(wrong(kHead + "@form f\nred\n"), "4:1: a choice without a field ahead of it");
  EXPECT_EQ(wrong(kHead + "@form f\n@field a\n  red\n"), "5:3: a choice below none");
  EXPECT_EQ(wrong(kHead + "@form f\n@field a:b\n"), "4:8: a label with a colon, which ends labels in @value");
  EXPECT_EQ(wrong(kHead + "@form f\n@field 1234567890123456\n"),
            "4:8: too long; at most 15 characters go here");
  EXPECT_EQ(wrong(kHead + "@form f\n@word a\n@field b\n"),
            "4:1: unknown in a form; there are @field and @beginning");
  std::string fields = kHead + "@form f\n", forms = kHead;
  for (int i = 0; i < 41; ++i) fields += "@field a\n";
  for (int i = 0; i < 17; ++i) forms += "@form f\n@field a\n";
  const std::string longest(61, 'x');
  EXPECT_EQ(wrong("@book T\n@form f\n@field c\n" + longest + "\n@entry a\n@value c: " + longest + "\n"), "");
  EXPECT_EQ(wrong("@book T\n@form f\n@field c\nx" + longest + "\n@entry a\n"),
            "4:1: too long; a choice has at most 61 characters");
  EXPECT_EQ(wrong("@book T\n@form f\n@field c\n@entry a\n@value c: x" + longest + "\n"),
            "5:11: too long; a value has at most 61 characters");
  std::string choices = "@book T\n@form f\n@field c\n";
  for (int i = 0; i < 65537; ++i) choices += "c" + std::to_string(i) + "\n";
  EXPECT_EQ(wrong(choices + "@entry a\n"), "65540:1: a field of more than 65,536 choices");
  EXPECT_EQ(wrong(fields), "3:1: a form of more than 40 fields");
  EXPECT_EQ(wrong(forms), "35:1: more than 16 forms");
}

TEST_F(Source, NamesFilesThatItCantTake) {
  folder_.write("junk.png", "GIF89a");
  std::filesystem::create_directory(folder_.file("folder"));
  EXPECT_EQ(wrong(kHead + "a {picture none.png}\n"),
            "3:3: none.png is missing; looked for as " + folder_.file("none.png"));
  EXPECT_EQ(wrong(kHead + "{picture folder}\n"), "3:1: folder is no file");
  EXPECT_EQ(wrong(kHead + "{picture junk.png}\n"),
            "3:1: junk.png is no picture that is known here; save it as PNG, JPEG or BMP");
  EXPECT_EQ(wrong(kHead + "{sound junk.png}\n"), "3:1: junk.png is no WAVE file");
  EXPECT_EQ(wrong("@book T\n@icon junk.png\n@entry a\n"), "2:7: junk.png is no PNG or BMP");
  EXPECT_EQ(wrong("@book T\n@small-icon none\n@entry a\n"),
            "2:13: none is missing; looked for as " + folder_.file("none"));
}

// 8 bits, one channel, 11025 Hz.
std::string smallWave(const std::string& samples) {
  return std::string("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x11\x2B\0\0\x11\x2B\0\0\1\0\x08\0data", 40) +
         static_cast<char>(samples.size()) + std::string(3, '\0') + samples;
}

TEST_F(Source, HasEachMediumOnce) {
  folder_.write("a.wav", smallWave("abcd"));
  folder_.write("b.wav", smallWave("xy"));
  const TextSource source =
      open(kHead + "{sound a.wav} {sound b.wav}\n@entry cat\n{sound b.wav}\n@entry ant\n{sound " +
           folder_.file("a.wav") + "}\n");
  ASSERT_EQ(source.media().size(), 3u);  // a path from the root is another name
  EXPECT_EQ(source.media()[1].size, 2u);
  EXPECT_EQ(source.mediumBytes(1), "xy");
  EXPECT_EQ(source.entry(0).lines[0].spans[2].medium, 1u);
  EXPECT_EQ(source.entry(1).lines[0].spans[0].medium, 1u);
  EXPECT_EQ(source.entry(2).lines[0].spans[0].medium, 2u);
}

TEST_F(Source, SeesThatAFileChangedMeanwhile) {
  folder_.write("a.wav", smallWave("abcd"));
  const TextSource source = open(kHead + "{sound a.wav}\n");
  folder_.write("a.wav", smallWave("abcdef"));
  const auto fault = [&]() -> std::string {
    try {
      source.mediumBytes(0);
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "none";
  };
  const std::string changed = folder_.file("a.wav") + " changed while the book was made";
  EXPECT_EQ(fault(), changed);
  folder_.write("a.wav", "");
  EXPECT_EQ(fault(), changed + ": it is no WAVE file");
}

}  // namespace
}  // namespace zavel::mkbook
