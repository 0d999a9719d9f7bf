#include "dicttool/EdictConversion.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include "dicttool/DictdDictionary.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

constexpr const char* kNames =
    "　？？？ /ENAMDICT - Names/Copyright Somebody/Created: 2021-02-03/\n"
    "東京 [とうきょう] /(p,s) Tokyo/\n"
    "東京駅 [とうきょうえき] /(st) Tokyo Station/\n";

std::string inEuc(std::string text) {
  const iconv_t handle = ::iconv_open("EUC-JP-MS", "UTF-8");
  std::string out(text.size() * 2, '\0');
  char* from = text.data();
  char* to = out.data();
  size_t left = text.size(), room = out.size();
  EXPECT_EQ(::iconv(handle, &from, &left, &to, &room), 0u);
  ::iconv_close(handle);
  out.resize(out.size() - room);
  return out;
}

class EdictConversionTest : public ::testing::Test {
 protected:
  Failure convert(const std::string& bytes, const std::string& target = "d") {
    folder_.write("source", bytes);
    return convertEdict(folder_.file("source"), folder_.file(target), nullptr, &account_);
  }

  std::vector<std::string> find(const std::string& word) {
    DictdDictionary dictionary;
    DictdMatches matches;
    std::string error;
    std::vector<std::string> texts;
    EXPECT_TRUE(dictionary.open(folder_.file("d.index"), &error)) << error;
    EXPECT_TRUE(dictionary.find(word, 10, &matches, &error)) << error;
    for (const DictdEntry& entry : matches.entries) texts.push_back(entry.text);
    return texts;
  }

  std::string withoutFolder(std::string text) const {
    for (size_t at; (at = text.find(folder_.prefix())) != std::string::npos;) {
      text.erase(at, folder_.prefix().size());
    }
    return text;
  }

  using Texts = std::vector<std::string>;
  test::TempFolder folder_;
  ConversionAccount account_;
};

const std::vector<std::string> kTokyo = {"東京 [とうきょう]\n(place, surname) Tokyo\n",
                                         "東京駅 [とうきょうえき]\n(station) Tokyo Station\n"};

TEST_F(EdictConversionTest, LeadsFromBothLanguages) {
  ASSERT_FALSE(convert(inEuc(kNames)));
  EXPECT_EQ(account_.indexPath, folder_.file("d.index"));
  EXPECT_EQ(account_.entries, 2u);
  EXPECT_EQ(account_.leftOut, 0u);
  EXPECT_EQ(account_.words, 11u);  // 3 of the dictionary's own; 東京 とうきょう tokyo; 東京駅 とうきょうえき
                                   // and "tokyo station" "tokyo" "station"
  EXPECT_EQ(find("東京"), Texts{kTokyo[0]});
  EXPECT_EQ(find("とうきょう"), Texts{kTokyo[0]});
  EXPECT_EQ(find("tokyo"), kTokyo);  // the whole gloss ahead of the single word
  EXPECT_EQ(find("Tokyo Station"), Texts{kTokyo[1]});
  EXPECT_EQ(find("station"), Texts{kTokyo[1]});
}

// 田中 begins two further names.
TEST_F(EdictConversionTest, PutsAWordWithCompoundsFirst) {
  const std::string names =
      "　？？？ /ENAMDICT - Names/\n"
      "タナカ /(u) Tanaka/\n"
      "多中 [たなか] /(s) Tanaka/\n"
      "田中 [たなか] /(p,s,f) Tanaka/\n"
      "田中さくら [たなかさくら] /(h) Tanaka Sakura/\n"
      "田中駅 [たなかえき] /(st) Tanaka Station/\n"
      "京都 [きょうと] /(p) Kyouto/\n";
  ASSERT_FALSE(convert(names));
  EXPECT_EQ(find("Tanaka"), (Texts{"田中 [たなか]\n(place, surname, female given name) Tanaka\n",
                                   "タナカ\n(name) Tanaka\n", "多中 [たなか]\n(surname) Tanaka\n",
                                   "田中さくら [たなかさくら]\n(full name) Tanaka Sakura\n",
                                   "田中駅 [たなかえき]\n(station) Tanaka Station\n"}));
  EXPECT_EQ(find("たなか").front(), "田中 [たなか]\n(place, surname, female given name) Tanaka\n");
  EXPECT_EQ(find("Kyoto"), Texts{"京都 [きょうと]\n(place) Kyouto\n"});
}

// What a word means first counts for more than how common it is; a gloss that says more comes behind.
TEST_F(EdictConversionTest, PutsWhatAWordMeansFirstAheadOfWhatIsCommon) {
  const std::string words =
      "昇順整列 [しょうじゅんせいれつ] /(n) sort (in ascending order)/\n"
      "並べ替え [ならべかえ] /(n) sort/sorting/\n"
      "種類 [しゅるい] /(n) kind/sort/\n"
      "種類別 [しゅるいべつ] /(adj-no) by kind/\n"
      "整列 [せいれつ] /(n) sort/(P)/\n"
      "網 [あみ] /(n) network/net/\n"
      "ネットワーク /(n) network/\n";
  ASSERT_FALSE(convert(words));
  EXPECT_EQ(find("network"), (Texts{"ネットワーク\n(noun) network\n", "網 [あみ]\n(noun) network; net\n"}));
  EXPECT_EQ(find("sort"),
            (Texts{"整列 [せいれつ]\n(noun) sort\n", "並べ替え [ならべかえ]\n(noun) sort; sorting\n",
                   "昇順整列 [しょうじゅんせいれつ]\n(noun) sort (in ascending order)\n",
                   "種類 [しゅるい]\n(noun) kind; sort\n"}));
}

TEST_F(EdictConversionTest, ReadsUtf8Alike) {
  ASSERT_FALSE(convert(inEuc(kNames)));
  const std::string index = folder_.read("d.index"), text = folder_.read("d.dict");
  ASSERT_FALSE(convert(kNames));
  EXPECT_EQ(folder_.read("d.index"), index);
  EXPECT_EQ(folder_.read("d.dict"), text);
}

TEST_F(EdictConversionTest, TellsItsTitleAndHolder) {
  ASSERT_FALSE(convert(kNames));
  EXPECT_EQ(find("00-database-short"), Texts{"00-database-short\nENAMDICT - Names\n"});
  EXPECT_EQ(find("00-database-info"),
            Texts{"00-database-info\nENAMDICT - Names/Copyright Somebody/Created: 2021-02-03/\n"});
  ASSERT_FALSE(convert("猫 [ねこ] /(n) cat/\n"));
  EXPECT_EQ(find("00-database-short"), Texts{"00-database-short\nd\n"});
  EXPECT_EQ(find("猫"), Texts{"猫 [ねこ]\n(noun) cat\n"});
}

TEST_F(EdictConversionTest, TakesTheEndingOffAndMakesTheFolder) {
  ASSERT_FALSE(convert(kNames, "new/place/n.index"));
  EXPECT_EQ(account_.indexPath, folder_.file("new/place/n.index"));
  EXPECT_NE(folder_.read("new/place/n.dict"), "(none)");
}

TEST_F(EdictConversionTest, LeavesStrayLinesOut) {
  std::string many = kNames;
  for (int i = 0; i < 20; ++i) many += "犬 [いぬ] /(n) dog/\r\n";
  ASSERT_FALSE(convert(many + "no entry\n\n"));
  EXPECT_EQ(account_.entries, 22u);
  EXPECT_EQ(account_.leftOut, 1u);
}

TEST_F(EdictConversionTest, RefusesWhatIsNoEdict) {
  Failure failure = convert("one\ntwo\n");
  EXPECT_EQ(failure.status, 5);
  EXPECT_EQ(withoutFolder(failure.message), "source is not an EDICT file: 2 of 2 lines have another format");
  failure = convert("");
  EXPECT_EQ(withoutFolder(failure.message), "source is not an EDICT file: 0 of 0 lines have another format");
  failure = convert("猫 [ねこ] /(n) cat/\n犬 [いぬ] /(n) do");
  EXPECT_EQ(failure.status, 5);
  EXPECT_EQ(withoutFolder(failure.message), "source is incomplete: its last line is cut off");
  EXPECT_EQ(folder_.names(), Texts{"source"});
}

TEST_F(EdictConversionTest, RefusesAMissingSourceAndAnUnwritableTarget) {
  Failure failure = convertEdict(folder_.file("none"), folder_.file("d"), nullptr, &account_);
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(withoutFolder(failure.message), "none can't be read");
  failure = convert(kNames, "source/d");  // a file stands where the folder should
  EXPECT_EQ(failure.status, 3);
  EXPECT_EQ(withoutFolder(failure.message), "source/d.index and .dict can't be written: Not a directory");
}

TEST_F(EdictConversionTest, LeavesTheOldOneWhenInterrupted) {
  ASSERT_FALSE(convert(kNames));
  const volatile std::sig_atomic_t stop = 1;
  folder_.write("source", "犬 [いぬ] /(n) dog/\n");
  const Failure failure = convertEdict(folder_.file("source"), folder_.file("d"), &stop, &account_);
  EXPECT_EQ(failure.status, 130);
  EXPECT_EQ(failure.message, "interrupted; nothing was changed");
  EXPECT_EQ(find("東京"), Texts{kTokyo[0]});
  EXPECT_EQ(folder_.names(), (Texts{"d.dict", "d.index", "source"}));
}

}  // namespace
}  // namespace zavel::dicttool
