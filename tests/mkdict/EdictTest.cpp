// EDICT's lines taken apart, and its codes in words.
#include <gtest/gtest.h>

#include "mkdict/EdictLabels.h"
#include "mkdict/EdictReader.h"
#include "mkdict/EdictSupport.h"
#include "mkdict/ToShiftJis.h"
#include "support/DicWriter.h"

namespace zavel::mkdict {
namespace {

using Strings = std::vector<std::string>;

TEST(EdictLine, WrittenFormAndReading) {
  const EdictLine line = edictLine("食べる [たべる] /(v1,vt) to eat/");
  EXPECT_EQ("食べる", line.written);
  EXPECT_EQ("たべる", line.reading);
  ASSERT_EQ(1u, line.senses.size());
  EXPECT_EQ((Strings{"v1", "vt"}), line.senses[0].pos);
  EXPECT_EQ(Strings{"to eat"}, line.senses[0].glosses);
  EXPECT_FALSE(line.common);
}

TEST(EdictLine, WordInKanaAlone) {
  const EdictLine line = edictLine("ユーザー /(n) user/(P)/");
  EXPECT_EQ("", line.written);
  EXPECT_EQ("ユーザー", line.reading);
  EXPECT_TRUE(line.common);
  EXPECT_EQ(Strings{"user"}, line.senses[0].glosses);
}

TEST(EdictLine, NumberedSenses) {
  const EdictLine line = edictLine(
      "食べる [たべる] /(v1,vt) (1) to eat/(v1,vt) (2) to live on (e.g. a salary)/to live off/(P)/");
  ASSERT_EQ(2u, line.senses.size());
  EXPECT_EQ(Strings{"to eat"}, line.senses[0].glosses);
  EXPECT_EQ((Strings{"to live on (e.g. a salary)", "to live off"}), line.senses[1].glosses);
  EXPECT_EQ((Strings{"v1", "vt"}), line.senses[1].pos);
}

TEST(EdictLine, PartOfSpeechHoldsUntilTheNextOne) {
  const EdictLine line = edictLine("あ /(n) (1) a/(2) b/(vs) c/(10) d/");
  ASSERT_EQ(4u, line.senses.size());
  EXPECT_EQ(Strings{"n"}, line.senses[1].pos);
  EXPECT_EQ(Strings{"vs"}, line.senses[2].pos);
  EXPECT_EQ(Strings{"vs"}, line.senses[3].pos);
  EXPECT_EQ(Strings{"d"}, line.senses[3].glosses);
}

TEST(EdictLine, RemarksOfWordSenseAndGloss) {
  const EdictLine line =
      edictLine("彼処 [あしこ] /(ok) (pn) (1) (uk) there/(col) yonder/(n) (2) (sl) (arch) that far/");
  EXPECT_EQ(Strings{"ok"}, line.spelling);
  EXPECT_EQ(Strings{"uk"}, line.senses[0].remarks);
  EXPECT_EQ((Strings{"there", "(colloquial) yonder"}), line.senses[0].glosses);
  EXPECT_EQ((Strings{"sl", "arch"}), line.senses[1].remarks);
}

TEST(EdictLine, BracketsThatAreNoCodesBelongToTheGloss) {
  const EdictLine line = edictLine("あ /(n) (someone's) luck/(n,odd) x/(a) b (n)/");
  EXPECT_EQ((Strings{"(someone's) luck", "(n,odd) x", "(a) b (n)"}), line.senses[0].glosses);
}

TEST(EdictLine, LanguagesAndDialectsAreSpelledOut) {
  const EdictLine line =
      edictLine("シ /(n) ti (ita:)/go (wasei: go sign)/(ksb:) si/x (fre: cafe) (odd: y) (z/(:)/");
  EXPECT_EQ((Strings{"ti (Italian)", "go (made in Japan: go sign)", "(Kansai dialect) si",
                     "x (French: cafe) (odd: y) (z", "(:)"}),
            line.senses[0].glosses);
}

TEST(EdictLine, IdentifiersAreNoGlosses) {
  EXPECT_EQ(Strings{"a"}, edictLine("あ /(n) a/EntL1234567X/").senses[0].glosses);
}

TEST(EdictLine, RefusesOtherLines) {
  for (const char* text : {"", "あ", "あ a/", "あ /", "あ //", "あ /(n)/", "あ /(P)/", " /a/", "あ [い /a/",
                           "あ [] /a/", " [い] /a/", "あ /EntL12/"}) {
    EdictLine line;
    EXPECT_FALSE(EdictLine::parse(text, &line)) << text;
  }
}

// Whatever stands in a line: it is refused, or each of its senses has a gloss.
TEST(EdictLine, StandsDamagedLines) {
  const std::string sound =
      "彼処 [あしこ] /(ok) (pn) (1) (uk) there (ita: x)/(n) (2) (sl,arch) that far/(P)/";
  constexpr char kBytes[] = {'(', ')', '/', '[', ']', ' ', ',', ':', '1', '\0', '\xFF'};
  for (size_t at = 0; at < sound.size(); ++at) {
    for (const char byte : kBytes) {
      for (const bool insert : {true, false}) {
        std::string text = sound;
        text.replace(at, insert ? 0 : 1, 1, byte);
        EdictLine line;
        if (!EdictLine::parse(text, &line)) continue;
        EXPECT_FALSE(line.senses.empty());
        for (const EdictSense& sense : line.senses) EXPECT_FALSE(sense.glosses.empty()) << text;
        Summary summary;
        JapaneseEntries entries(&summary);
        entries.add(line);
        entries.take();
      }
    }
    EdictLine cut;
    EdictLine::parse(sound.substr(0, at), &cut);
  }
}

struct Label {
  const char* code;
  const char* label;
};

class PosLabel : public testing::TestWithParam<Label> {};
TEST_P(PosLabel, Is) {
  EXPECT_STREQ(GetParam().label, posLabel(GetParam().code));
}
INSTANTIATE_TEST_SUITE_P(
    Table, PosLabel,
    testing::Values(Label{"n", "[名]"}, Label{"pn", "[代]"}, Label{"adj-i", "[形]"},
                    Label{"adj-na", "[形動]"}, Label{"adj-no", "[の形]"}, Label{"adj-pn", "[連体]"},
                    Label{"adv", "[副]"}, Label{"v1", "[動一段]"}, Label{"v5k-s", "[動カ五]"},
                    Label{"v5r", "[動ラ五]"}, Label{"v5u", "[動ワ五]"}, Label{"vs", "[サ変]"},
                    Label{"vs-i", "[動サ変]"}, Label{"vk", "[動カ変]"}, Label{"vi", "[自]"},
                    Label{"vt", "[他]"}, Label{"v4h", "[動ハ四]"}, Label{"v2d-s", "[動ダ下二]"},
                    Label{"exp", "[句]"}, Label{"int", "[感]"}, Label{"prt", "[助]"}, Label{"conj", "[接]"},
                    Label{"aux-v", "[助動]"}, Label{"ctr", "[助数]"}, Label{"unc", ""}, Label{"uk", nullptr},
                    Label{"", nullptr}, Label{"N", nullptr}));

TEST(EdictLabels, RemarksInWords) {
  EXPECT_STREQ("usually kana", remark("uk"));
  EXPECT_STREQ("archaic", remark("arch"));
  EXPECT_STREQ("computing", remark("comp"));
  EXPECT_STREQ("outdated reading", remark("ok"));
  EXPECT_STREQ("martial arts", remark("MA"));
  EXPECT_STREQ("irregular kanji", remark("iK"));
  EXPECT_STREQ("irregular kana", remark("ik"));
  EXPECT_EQ(nullptr, remark("n"));
  EXPECT_TRUE(isSpellingRemark("ateji"));
  EXPECT_FALSE(isSpellingRemark("uk"));
  EXPECT_TRUE(isRareRemark("obsc"));
  EXPECT_FALSE(isRareRemark("comp"));
  EXPECT_STREQ("Italian", language("ita"));
  EXPECT_STREQ("Osaka dialect", language("osb"));
  EXPECT_EQ(nullptr, language("depth"));
}

// The two lines あ /(n) a/ and 亜 [あ] /(n) b/ in EUC-JP, with and without what may go wrong.
constexpr const char* kTitle =
    "\xA1\xA1\xA1\xA9\xA1\xA9\xA1\xA9 /EDICT Japanese-English Electronic Dictionary Files/Created: "
    "2021-02-03/\n";
constexpr const char* kKana = "\xA4\xA2 /(n) a/\n";
constexpr const char* kKanji = "\xB0\xA1 [\xA4\xA2] /(n) b/\n";

struct Reading {
  explicit Reading(const std::string& bytes) {
    test::writeFile(folder.path() + "/edict", bytes);
    fault = EdictReader::read(folder.path() + "/edict", &compilation, progress, &error,
                              [this](const EdictLine& line) { seen.push_back(line.reading); });
  }
  test::TempFolder folder;
  Compilation compilation;
  Progress progress;
  std::string error;
  std::vector<std::string> seen;
  SourceFault fault;
};

TEST(EdictReader, ReadsEucJpAndItsTitle) {
  const Reading reading(std::string(kTitle) + kKana + kKanji);
  EXPECT_EQ(SourceFault::kNone, reading.fault);
  ASSERT_EQ(2u, reading.compilation.japanese.size());
  EXPECT_EQ("\x82\xA0", reading.compilation.japanese[1].kana);
  EXPECT_EQ("\x88\x9F", reading.compilation.japanese[1].kanji);
  EXPECT_EQ(2u, reading.compilation.summary.valueOf("EDICT lines"));
  ASSERT_EQ(1u, reading.compilation.sources.size());
  EXPECT_EQ("2021-02-03", reading.compilation.sources[0].version);
  EXPECT_EQ((Strings{"あ", "あ"}), reading.seen);
}

TEST(EdictReader, CountsDamagedLines) {
  std::string bytes = "no line\n\xA4 /(n) broken/\r\n\n";
  for (int i = 0; i < 20; ++i) bytes += kKana;
  const Reading reading(bytes + "\xA4\xA4 /(n) without a line end/");
  EXPECT_EQ(SourceFault::kNone, reading.fault);
  EXPECT_EQ(1u, reading.compilation.summary.leftOutCount("EDICT lines of another form"));
  EXPECT_EQ(1u, reading.compilation.summary.leftOutCount("EDICT lines that are not EUC-JP"));
  EXPECT_EQ(2u, reading.compilation.japanese.size());
}

TEST(EdictReader, RefusesAFileOfAnotherKind) {
  const Reading text("This is no dictionary.\n" + std::string(kKana));
  EXPECT_EQ(SourceFault::kDamaged, text.fault);
  EXPECT_EQ(text.folder.path() + "/edict is no EDICT file: 1 of 2 lines are of another form", text.error);
  EXPECT_EQ(SourceFault::kDamaged, Reading("").fault);
}

TEST(EdictReader, RefusesAFileThatIsCutShort) {
  std::string lines;
  for (int i = 0; i < 20; ++i) lines += kKana;
  const Reading cut(lines + "\xA4\xA4 /(n) gloss/and half of ano");
  EXPECT_EQ(SourceFault::kDamaged, cut.fault);
  EXPECT_EQ(cut.folder.path() + "/edict is cut short: its last line breaks off", cut.error);
  EXPECT_TRUE(cut.compilation.japanese.empty());
}

TEST(EdictReader, MissesAMissingFile) {
  Compilation compilation;
  Progress progress;
  std::string error;
  EXPECT_EQ(SourceFault::kMissing, EdictReader::read("/nowhere/edict", &compilation, progress, &error));
  EXPECT_EQ("/nowhere/edict can't be read", error);
}

TEST(EdictReader, StopsWhenAsked) {
  volatile std::sig_atomic_t stop = 1;
  const test::TempFolder folder;
  test::writeFile(folder.path() + "/edict", kKana);
  Compilation compilation;
  Progress progress;
  progress.watch(&stop);
  std::string error;
  EXPECT_EQ(SourceFault::kCancelled,
            EdictReader::read(folder.path() + "/edict", &compilation, progress, &error));
  EXPECT_EQ("", error);
}

}  // namespace
}  // namespace zavel::mkdict
