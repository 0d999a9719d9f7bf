// EDICT and KANJIDIC as sources.
#include <gtest/gtest.h>

#include "mkbook/EdictSource.h"
#include "mkbook/Failure.h"
#include "mkbook/KanjidicSource.h"
#include "support/BookWriter.h"
#include "support/TempFolder.h"

namespace zavel::mkbook {
namespace {

using Kind = Span::Kind;

// UTF-8 as EUC-JP: JIS with high bits, ASCII as it is.
std::string euc(std::string_view utf8) {
  std::string out;
  for (size_t at = 0; at < utf8.size();) {
    const bool ascii = static_cast<unsigned char>(utf8[at]) < 0x80;
    const size_t length = ascii ? 1 : 3;
    const std::string_view character = utf8.substr(at, length);
    if (ascii) {
      out += character;
    } else {
      for (const char byte : test::jis(character)) out += static_cast<char>(byte | 0x80);
    }
    at += length;
  }
  return out;
}

std::string shown(const BookEntry& entry) {
  std::string out = entry.headword;
  const auto add = [&out](const std::vector<Span>& spans) {
    for (const Span& span : spans) out += span.kind == Kind::kEmphasis ? "*" + span.text + "*" : span.text;
  };
  add(entry.note);
  for (const Line& line : entry.lines) {
    out += "|" + std::to_string(line.indent) + ":";
    add(line.spans);
  }
  return out;
}

class Japanese : public testing::Test {
 protected:
  std::string file(std::string_view utf8) {
    folder_.write("source", euc(utf8));
    return folder_.file("source");
  }
  template <class Source>
  std::string failureOf(const std::string& path) {
    try {
      Source source(path, &summary_);
    } catch (const Failure& failure) {
      return std::to_string(failure.status()) + " " + failure.what();
    }
    return "read";
  }

  test::TempFolder folder_;
  mkdict::Summary summary_;
};

using Edict = Japanese;
using Kanjidic = Japanese;

TEST_F(Edict, ComesInTheOrderOfReadings) {
  const EdictSource source(
      file("　？？？ /EDICT/Created: 2021-02-03/\n犬 [いぬ] /(n) dog/\nアメ /(n) candy/\n"
           "雨 [あめ] /(n) rain/\n"),
      &summary_);
  ASSERT_EQ(source.size(), 3u);
  EXPECT_EQ(source.entry(0).headword, "アメ");
  EXPECT_EQ(source.entry(1).headword, "雨【あめ】");
  EXPECT_EQ(source.entry(2).headword, "犬【いぬ】");
  EXPECT_EQ(source.entry(2).words, (std::vector<std::string>{"いぬ", "犬"}));
  EXPECT_EQ(source.entry(0).words, (std::vector<std::string>{"アメ"}));
  EXPECT_EQ(source.title(), "EDICT");
  EXPECT_EQ(source.publisher(),
            "EDICT of 2021-02-03, (c) Electronic Dictionary Research and Development Group, CC BY-SA 3.0, "
            "http://www.edrdg.org/");
}

TEST_F(Edict, HasALineForEachSense) {
  const EdictSource source(
      file("食べる [たべる] /(v1,vt) (1) to eat/to live on/(2) (arch) to drink/\n犬 [いぬ] /(n) "
           "dog/\n"),
      &summary_);
  EXPECT_EQ(shown(source.entry(1)),
            "食べる【たべる】|2:1 *(v1,vt)* to eat; to live on|2:2 *(v1,vt,arch)* to drink");
  EXPECT_EQ(shown(source.entry(0)), "犬【いぬ】|2:*(n)* dog");
}

TEST_F(Edict, CountsLinesOfAnotherForm) {
  std::string text = "nonsense\n";
  for (int i = 0; i < 9; ++i) text += "犬 [いぬ] /(n) dog " + std::to_string(i) + "/\n";
  EXPECT_EQ(EdictSource(file(text), &summary_).size(), 9u);
  EXPECT_EQ(summary_.leftOutCount("lines of another form"), 1u);
}

TEST_F(Edict, RefusesOtherFiles) {
  EXPECT_EQ(failureOf<EdictSource>(folder_.file("none")),
            "3 " + folder_.file("none") + " is missing or can't be read");
  const std::string path = folder_.file("source");
  EXPECT_EQ(failureOf<EdictSource>(file("a\nb\n")),
            "5 " + path + " is no EDICT file: 2 of 2 lines are of another form");
  EXPECT_EQ(failureOf<EdictSource>(file("犬 [いぬ] /(n) dog/\n犬 [い")),
            "5 " + path + " is cut short: its last line breaks off");
  EXPECT_EQ(failureOf<EdictSource>(file("")),
            "5 " + path + " is no EDICT file: 0 of 0 lines are of another form");
}

constexpr std::string_view kAsia =
    "亜 3021 U4e9c B1 C7 G8 S7 S9 F1509 J1 N43 MP1.0525 Yya4 ア つ.ぐ -つぎ T1 や T2 れっか {Asia} {rank "
    "next} \n";

TEST_F(Kanjidic, TakesALineApart) {
  Kanji kanji;
  ASSERT_TRUE(Kanji::parse(kAsia, &kanji));
  EXPECT_EQ(kanji.character, "亜");
  EXPECT_EQ(kanji.jis, "3021");
  EXPECT_EQ(kanji.unicode, "4e9c");
  EXPECT_EQ(kanji.radical, "1");
  EXPECT_EQ(kanji.classical, "7");
  EXPECT_EQ(kanji.grade, "8");
  EXPECT_EQ(kanji.strokes, "7");
  EXPECT_EQ(kanji.frequency, "1509");
  EXPECT_EQ(kanji.level, "1");
  EXPECT_EQ(kanji.on, std::vector<std::string>{"ア"});
  EXPECT_EQ(kanji.kun, (std::vector<std::string>{"つ.ぐ", "-つぎ"}));
  EXPECT_EQ(kanji.names, std::vector<std::string>{"や"});
  EXPECT_EQ(kanji.radicalNames, std::vector<std::string>{"れっか"});
  EXPECT_EQ(kanji.meanings, (std::vector<std::string>{"Asia", "rank next"}));
  for (const char* const line : {"", "亜", "亜亜 3021", "亜 x021", "亜 30211"})
    EXPECT_FALSE(Kanji::parse(line, &kanji)) << line;
}

TEST_F(Kanjidic, IsFoundByReadingsAndMeanings) {
  const KanjidicSource source(file("# KANJIDIC\n" + std::string(kAsia)), &summary_);
  ASSERT_EQ(source.size(), 1u);
  EXPECT_EQ(source.entry(0).words,
            (std::vector<std::string>{"亜", "ア", "つぐ", "つぎ", "や", "Asia", "rank next"}));
  EXPECT_EQ(
      shown(source.entry(0)),
      "亜|2:Asia; rank next|2:*on* ア|2:*kun* つ.ぐ、-つぎ|2:*names* や|2:*as a radical* れっか|2:strokes 7, "
      "radical 1, classical radical 7, grade 8, frequency 1509, level 1, JIS 3021, Unicode 4e9c");
}

TEST_F(Kanjidic, HasAFormOfFiveFields) {
  const KanjidicSource source(
      file(std::string(kAsia) + "犬 3824 B94 G1 S4 いぬ {dog}\n本 4B5C B75 G1 S15 もと {book}\n"), &summary_);
  ASSERT_EQ(source.forms().size(), 1u);
  const MultiSearch form = source.forms()[0];
  ASSERT_EQ(form.fields.size(), 5u);
  EXPECT_EQ(form.name, "Kanji");
  EXPECT_EQ(form.fields[1].label, "Strokes");
  std::string strokes;
  for (const Choice& choice : form.fields[1].choices) strokes += choice.name + " ";
  EXPECT_EQ(strokes, "4 7 15 ");
  EXPECT_FALSE(form.fields[1].byBeginning);
  EXPECT_TRUE(form.fields[3].byBeginning);
  EXPECT_EQ(source.fieldValues(0, 0),
            (std::vector<std::vector<std::string>>{{"1"},
                                                   {"7"},
                                                   {"8"},
                                                   {"あ", "ア", "つぐ", "ツグ", "つぎ", "ツギ", "や", "ヤ"},
                                                   {"Asia", "rank next"}}));
}

TEST_F(Kanjidic, RefusesOtherFiles) {
  EXPECT_EQ(failureOf<KanjidicSource>(file("犬 [いぬ] /(n) dog/\n")),
            "5 " + folder_.file("source") + " is no KANJIDIC file: 1 of 1 lines are of another form");
}

}  // namespace
}  // namespace zavel::mkbook
