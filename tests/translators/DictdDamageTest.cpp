// Every byte changed, and every cut, of a small dictionary: an answer or a sentence, never anything else. The
// sanitizers watch.
#include <gtest/gtest.h>

#include "dicttool/DictdDictionary.h"
#include "support/DictdFiles.h"
#include "support/TempFolder.h"

namespace zavel::dicttool {
namespace {

class DictdDamageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    files_.entry("00-database-utf8\n", {"00databaseutf8"});
    files_.entry("cat\n猫\n", {"cat"}).entry("cat burglar\n怪盗\n", {"cat burglar"});
    files_.entry("猫 [ねこ]\n(noun) cat\n", {"猫"}).writePacked(folder_.file("d"), 16);
  }

  // Looks three words up in the files as they are now.
  void lookUp() {
    DictdDictionary dictionary;
    std::string error;
    if (!dictionary.open(folder_.file("d.index"), &error)) {
      ++refused_;
      EXPECT_FALSE(error.empty());
      return;
    }
    for (const char* word : {"cat", "猫", "zebra"}) {
      DictdMatches matches;
      error.clear();
      const bool sound = dictionary.find(word, 10, &matches, &error);
      EXPECT_EQ(sound, error.empty());
      sound ? ++answered_ : ++refused_;
    }
  }

  void sweep(const std::string& name) {
    const std::string whole = folder_.read(name);
    for (size_t place = 0; place < whole.size(); ++place) {
      const char byte = whole[place];
      for (const char other : {'\0', '\xFF', static_cast<char>(byte ^ 1), static_cast<char>(byte + 1),
                               static_cast<char>(byte - 1)}) {
        std::string damaged = whole;
        damaged[place] = other;
        folder_.write(name, damaged);
        lookUp();
      }
      folder_.write(name, whole.substr(0, place));
      lookUp();
    }
  }

  test::TempFolder folder_;
  test::DictdFiles files_;
  long answered_ = 0, refused_ = 0;
};

TEST_F(DictdDamageTest, OfTheIndex) {
  sweep("d.index");
  EXPECT_GT(answered_, 100);
  EXPECT_GT(refused_, 50);
}

TEST_F(DictdDamageTest, OfThePackedText) {
  sweep("d.dict.dz");
  EXPECT_GT(answered_, 100);
  EXPECT_GT(refused_, 100);
}

}  // namespace
}  // namespace zavel::dicttool
