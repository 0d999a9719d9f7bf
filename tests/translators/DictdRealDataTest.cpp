// The distribution's own dictionaries, one of them packed and indexed by the programs that made the format.
#include <gtest/gtest.h>

#include <algorithm>

#include "dicttool/DictdDictionary.h"
#include "dicttool/EdictConversion.h"
#include "foundation/Storage.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

constexpr const char* kIndex = "/usr/share/dictd/freedict-eng-jpn.index";

TEST(DictdRealData, EveryWordOfTheIndexIsFound) {
  std::string bytes, error;
  ASSERT_TRUE(readWholeFile(kIndex, size_t{64} << 20, &bytes)) << "install dict-freedict-eng-jpn";
  DictdIndex index;
  ASSERT_TRUE(index.open(kIndex, &error)) << error;
  EXPECT_TRUE(index.hasOption("utf8"));
  size_t lines = 0, lost = 0;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::optional<IndexLine> line = IndexLine::parse(rest.substr(0, rest.find('\n')));
    ASSERT_TRUE(line);
    rest.remove_prefix(rest.find('\n') + 1);
    if (foldWord(line->word, index.rules()).empty()) continue;
    bool found = false;
    ASSERT_TRUE(index.find(
        line->word,
        [&](const IndexLine& other) {
          found = found || other.offset == line->offset;
          return !found;
        },
        &error))
        << error;
    ++lines;
    if (!found) ++lost;
  }
  EXPECT_GT(lines, 30000u);
  EXPECT_EQ(lost, 0u);
}

// A line of the file reads: オンライン・テスト /(n) online test/online testing/
TEST(DictdRealData, TheTechnicalDictionaryIsFoundFromBothSides) {
  test::TempFolder folder;
  ConversionAccount account;
  const Failure failure = convertEdict("/usr/share/edict/compdic", folder.file("compdic"), nullptr, &account);
  ASSERT_FALSE(failure) << failure.message << "; install edict";
  EXPECT_GT(account.entries, 14000u);
  EXPECT_EQ(account.leftOut, 0u);
  DictdDictionary dictionary;
  DictdMatches matches;
  std::string error;
  ASSERT_TRUE(dictionary.open(folder.file("compdic.index"), &error)) << error;
  for (const char* word : {"オンライン・テスト", "online testing"}) {
    ASSERT_TRUE(dictionary.find(word, 100, &matches, &error)) << error;
    const auto sought = [](const DictdEntry& entry) {
      return entry.text == "オンライン・テスト\n(noun) online test; online testing\n";
    };
    EXPECT_EQ(std::count_if(matches.entries.begin(), matches.entries.end(), sought), 1) << word;
  }
  // ウィンドウ is part of more terms than its other spellings; terms that "go" is about there are none.
  ASSERT_TRUE(dictionary.find("window", 100, &matches, &error)) << error;
  EXPECT_EQ(matches.entries.front().text, "ウィンドウ\n(noun) (1) window; (2) window (shop display)\n");
  ASSERT_TRUE(dictionary.find("go", 100, &matches, &error)) << error;
  EXPECT_TRUE(matches.entries.empty());
}

TEST(DictdRealData, AnEntryIsReadFromThePackedText) {
  DictdDictionary dictionary;
  DictdMatches matches;
  std::string error;
  ASSERT_TRUE(dictionary.open(kIndex, &error)) << error;
  ASSERT_TRUE(dictionary.find("Etymology", 10, &matches, &error)) << error;
  ASSERT_FALSE(matches.entries.empty());
  EXPECT_NE(matches.entries.front().text.find("語源"), std::string::npos) << matches.entries.front().text;
}

}  // namespace
}  // namespace zavel::dicttool
