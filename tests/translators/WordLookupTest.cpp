#include "dicttool/WordLookup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "platform/Platform.h"
#include "platform/PropertyLists.h"
#include "support/DictdFiles.h"
#include "support/FaultyStorage.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

constexpr const char* kNekoSjis = "\x94\x4C";  // 猫

TEST(SourceWord, GoesByItsFirstByte) {
  SourceWord word = SourceWord::fromShiftJis("cat");
  EXPECT_EQ(word.text, "cat");
  EXPECT_EQ(word.form, Direction::kEnglish);
  EXPECT_EQ(word.language, Direction::kEnglish);
  word = SourceWord::fromShiftJis(kNekoSjis);
  EXPECT_EQ(word.text, "猫");
  EXPECT_EQ(word.form, Direction::kJapanese);
  EXPECT_EQ(word.language, Direction::kJapanese);
  word = SourceWord::fromShiftJis(std::string("T") + kNekoSjis);
  EXPECT_EQ(word.text, "T猫");
  EXPECT_EQ(word.form, Direction::kEnglish);
}

TEST(SourceWord, WidensHalfWidthKatakana) {
  const SourceWord word = SourceWord::fromShiftJis("\xB6\xDE\xCA\xDF\xB1\xDE");  // ｶﾞﾊﾟｱﾞ
  EXPECT_EQ(word.text, "ガパア゛");
  EXPECT_EQ(word.form, Direction::kEnglish);
  EXPECT_EQ(word.language, Direction::kJapanese);
  // 8A B6 is 憾: the second byte, which by itself would be ｶ, belongs to it.
  EXPECT_EQ(SourceWord::fromShiftJis("\x8A\xB6\xDE").text, "憾゛");
}

TEST(SourceWord, LeavesBlanksAndLineEndsOut) {
  EXPECT_EQ(SourceWord::fromShiftJis(" ice \t cream\r\n").text, "ice cream");
  EXPECT_EQ(SourceWord::fromShiftJis("").text, "");
  EXPECT_EQ(SourceWord::fromShiftJis(" \n").text, "");
  EXPECT_EQ(SourceWord::fromShiftJis("\x81").text, "\uFFFD");
}

class WordLookupTest : public ::testing::Test {
 protected:
  WordLookupTest() : places_{folder_.file("own"), folder_.file("system")} {
    std::filesystem::create_directory(places_.folder);
    test::DictdFiles files;
    files.entry("cat\n猫\n", {"cat"})
        .entry("猫 [ねこ]\n(noun) cat\n", {"猫"})
        .write(folder_.file("own/small"));
    options_.source = folder_.file("source");
    options_.result = folder_.file("result");
    options_.word = true;
  }

  Failure lookUp(const std::string& source) {
    folder_.write("source", source);
    return lookUpWord(options_, places_, err_);
  }

  Value search() {
    Value result;
    if (!platform().propertyLists().readFile(folder_.file("result"), &result)) return {};
    const Value* list = result.find("Search");
    return list ? *list : Value();
  }

  std::string said() const {
    std::string text = err_.str();
    for (size_t at; (at = text.find(folder_.prefix())) != std::string::npos;) {
      text.erase(at, folder_.prefix().size());
    }
    return text;
  }

  test::TempFolder folder_;
  DictionaryPlaces places_;
  ToolOptions options_;
  std::ostringstream err_;
};

TEST_F(WordLookupTest, AnswersInTheFormOfTheLanguage) {
  EXPECT_FALSE(lookUp("cat"));
  EXPECT_EQ(search(), Value(Value::Array{"★small\n    cat 猫\n"}));
  EXPECT_FALSE(lookUp(kNekoSjis));
  EXPECT_EQ(search(), Value(Value::Array{int64_t{1}, "猫 [ねこ] (noun) cat"}));
  EXPECT_EQ(said(), "");
}

TEST_F(WordLookupTest, AnswersWithNothing) {
  for (const std::string word : {"zebra", "", " \n", "?!"}) {
    EXPECT_FALSE(lookUp(word));
    EXPECT_EQ(search(), Value(Value::Array())) << word;
  }
  EXPECT_FALSE(lookUp(std::string(5000, 'x')));
  EXPECT_EQ(search(), Value(Value::Array()));
}

TEST_F(WordLookupTest, PutsTheParameterFilesDictionariesFirst) {
  test::DictdFiles files;
  files.entry("cat\nキャット\n", {"cat"}).write(folder_.file("tech"));
  const Value entry = Value::Dict{{"Path", folder_.file("tech.sdej")}};
  options_.parameterFile = folder_.file("ZP.plist");
  ASSERT_TRUE(platform().propertyLists().writeFile(
      options_.parameterFile, Value::Dict{{"TechnicalDictionaryEJ", Value::Array{entry}}},
      PropertyListFormat::kXml));
  EXPECT_FALSE(lookUp("cat"));
  EXPECT_EQ(search(), Value(Value::Array{"★tech\n    cat キャット\n\n★small\n    cat 猫\n"}));
}

TEST_F(WordLookupTest, NamesWhatItGoesOnWithout) {
  folder_.write("own/broken.index", "");
  options_.styleFile = folder_.file("none.plist");
  EXPECT_FALSE(lookUp("cat"));
  EXPECT_EQ(search(), Value(Value::Array{"★small\n    cat 猫\n"}));
  EXPECT_EQ(said(),
            "zavel-dicttool: the style file none.plist can't be read; its dictionaries are left out\n"
            "zavel-dicttool: own/broken.index is damaged: it is empty\n");
}

TEST_F(WordLookupTest, FailsWhenNoDictionaryCanBeSearched) {
  folder_.write("own/small.index", "");
  const Failure failure = lookUp("cat");
  EXPECT_EQ(failure.status, 5);
  EXPECT_EQ(failure.message, folder_.file("own/small.index") + " is damaged: it is empty");
  EXPECT_EQ(said(), "");
  EXPECT_EQ(folder_.read("result"), "(none)");
}

TEST_F(WordLookupTest, FailsWithoutADictionary) {
  places_.folder = folder_.file("empty");
  EXPECT_EQ(lookUp("cat").message,
            "there is no dictionary for English words; run: zavel dict build, or put one into " +
                folder_.file("empty"));
  const Failure failure = lookUp(kNekoSjis);
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(failure.message,
            "there is no dictionary for Japanese words; run: zavel dict build, or put one into " +
                folder_.file("empty"));
}

TEST_F(WordLookupTest, FailsWithoutSourceOrPlaceForTheResult) {
  options_.source = folder_.file("none");
  Failure failure = lookUp("cat");
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(failure.message, "the source file " + folder_.file("none") + " can't be read");
  options_.source = folder_.file("source");
  options_.result = folder_.file("no/such/folder/result");
  failure = lookUp("cat");
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(failure.message, "the result file " + options_.result + " can't be written");
}

// The old answer or the new one, and no file left beside it; also where the answer is that of a base.
TEST_F(WordLookupTest, SurvivesEveryFaultOfTheDisk) {
  ASSERT_FALSE(lookUp("zebra"));
  const std::string old = folder_.read("result");
  for (const char* word : {"cat", "cats"}) {
    ASSERT_FALSE(lookUp(word));
    const std::string fresh = folder_.read("result");
    ASSERT_NE(old, fresh);
    folder_.write("source", word);
    for (long n = 1;; ++n) {
      folder_.write("result", old);
      test::FaultyStorage disk;
      disk.failAt(n);
      const Failure failure = lookUpWord(options_, places_, err_);
      if (disk.faults() == 0) {
        EXPECT_FALSE(failure);
        break;
      }
      disk.failAt(0);
      // A dictionary that isn't read well may only ever fail the search, never falsify it.
      EXPECT_EQ(folder_.read("result"), failure ? old : fresh) << word << ", operation " << n;
      EXPECT_EQ(folder_.names(), (std::vector<std::string>{"own", "result", "source"})) << "operation " << n;
    }
  }
}

}  // namespace
}  // namespace zavel::dicttool
