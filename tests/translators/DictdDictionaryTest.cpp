#include "dicttool/DictdDictionary.h"

#include <gtest/gtest.h>

#include "support/DictdFiles.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

class DictdDictionaryTest : public ::testing::Test {
 protected:
  // Texts of the entries under `word`, then the number of those that weren't read, or the error.
  std::vector<std::string> find(const std::string& word, size_t most = 10) {
    DictdDictionary dictionary;
    DictdMatches matches;
    std::string error;
    std::vector<std::string> found;
    if (!dictionary.open(folder_.file("d.index"), &error) || !dictionary.find(word, most, &matches, &error)) {
      return {error.substr(error.rfind('/') + 1)};
    }
    for (const DictdEntry& entry : matches.entries) found.push_back(entry.word + "=" + entry.text);
    if (matches.more > 0) found.push_back(std::to_string(matches.more));
    return found;
  }

  using Found = std::vector<std::string>;
  test::TempFolder folder_;
  test::DictdFiles files_;
};

TEST_F(DictdDictionaryTest, ReadsAPlainText) {
  files_.entry("cat\n猫\n", {"cat"}).entry("dog\n犬\n", {"dog"}).write(folder_.file("d"));
  EXPECT_EQ(find("dog"), Found{"dog=dog\n犬\n"});
  EXPECT_EQ(find("cow"), Found{});
}

TEST_F(DictdDictionaryTest, ReadsAPackedText) {
  files_.entry("cat\n猫\n", {"cat"}).entry("dog\n犬\n", {"dog"}).writePacked(folder_.file("d"), 5);
  EXPECT_EQ(find("dog"), Found{"dog=dog\n犬\n"});
}

TEST_F(DictdDictionaryTest, GivesAnEntryOnceAndCountsTheRest) {
  files_.entry("1\n", {"a", "a"}).entry("2\n", {"a"}).entry("3\n", {"a"}).entry("4\n", {"a"});
  files_.write(folder_.file("d"));
  EXPECT_EQ(find("a", 2), (Found{"a=1\n", "a=2\n", "2"}));
  EXPECT_EQ(find("a", 4), (Found{"a=1\n", "a=2\n", "a=3\n", "a=4\n"}));
}

TEST_F(DictdDictionaryTest, TakesMailHeadersOff) {
  files_.option("00databasemimeheader").entry("Content-Type: text/plain\n\ncat\n猫\n", {"cat"});
  files_.entry("\ncow\n牛\n", {"cow"}).write(folder_.file("d"));
  EXPECT_EQ(find("cat"), Found{"cat=cat\n猫\n"});
  EXPECT_EQ(find("cow"), Found{"cow=cow\n牛\n"});
}

TEST_F(DictdDictionaryTest, ShowsWhatIsNoUtf8AsSuch) {
  files_.entry("caf\xE9\n", {"cafe"}).write(folder_.file("d"));
  EXPECT_EQ(find("cafe"), Found{"cafe=caf\uFFFD\n"});
}

TEST_F(DictdDictionaryTest, ReadsTheBeginningOfALongEntry) {
  files_.entry(std::string(100000, 'x'), {"x"}).write(folder_.file("d"));
  EXPECT_EQ(find("x"), Found{"x=" + std::string(16384, 'x')});
}

TEST_F(DictdDictionaryTest, RefusesOneThatNamesOthers) {
  files_.option("00databasevirtual").write(folder_.file("d"));
  EXPECT_EQ(
      find("x"),
      Found{"d.index has no words of its own, it only refers to other dictionaries; use those instead"});
}

TEST_F(DictdDictionaryTest, KnowsWhetherItIsOfNames) {
  const auto isOfNames = [this](const std::string& info) {
    test::DictdFiles files;
    if (!info.empty()) files.entry("00-database-info\n" + info + "\n", {"00-database-info"});
    files.entry("cat\n", {"cat"}).write(folder_.file("d"));
    DictdDictionary dictionary;
    std::string error;
    bool ofNames = false;
    EXPECT_TRUE(dictionary.open(folder_.file("d.index"), &error)) << error;
    EXPECT_TRUE(dictionary.tellNames(&ofNames, &error)) << error;
    return ofNames;
  };
  EXPECT_TRUE(isOfNames("ENAMDICT Japanese-English Proper Names Dictionary/2021"));
  EXPECT_FALSE(isOfNames("COMPDIC Japanese-English Computing Dictionary/2021"));
  EXPECT_FALSE(isOfNames(""));
}

TEST_F(DictdDictionaryTest, NamesWhatIsMissing) {
  files_.entry("cat\n", {"cat"});
  folder_.write("d.index", files_.index());
  EXPECT_EQ(find("cat"), Found{"d.dict is missing"});
  EXPECT_EQ(find("cow"), Found{"d.dict is missing"});
}

TEST_F(DictdDictionaryTest, NamesAnEntryOutsideTheText) {
  files_.line("cat\tA\tZZ").write(folder_.file("d"));
  EXPECT_EQ(find("cat"), Found{"d.dict is damaged: an entry at 0 can't be read"});
}

TEST_F(DictdDictionaryTest, FindsTheIndexOfAPath) {
  folder_.write("a.index", "");
  const auto indexOf = [this](const std::string& name) {
    const std::optional<std::string> path = DictdDictionary::indexOf(folder_.file(name));
    return path ? path->substr(folder_.prefix().size()) : "(none)";
  };
  EXPECT_EQ(indexOf("a"), "a.index");
  EXPECT_EQ(indexOf("a.sdej"), "a.index");
  EXPECT_EQ(indexOf("a.index"), "a.index");
  EXPECT_EQ(indexOf("a.dict"), "a.index");
  EXPECT_EQ(indexOf("b.dict.dz"), "b.index");  // named as one, there or not
  EXPECT_EQ(indexOf("b"), "(none)");
  EXPECT_EQ(indexOf("b.sdej"), "(none)");
  EXPECT_EQ(indexOf(""), "(none)");
}

}  // namespace
}  // namespace zavel::dicttool
