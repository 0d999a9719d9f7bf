#include "user/UserStatus.h"

#include <gtest/gtest.h>

#include "engine/EngineStatus.h"

namespace zavel::host {
namespace {

struct Sentence {
  uint16_t status;
  ExitStatus exit;
  const char* code;
  const char* message;
};

const UserWork kAdding{"adding \"100%e\"", UserLanguage::kEnglish, "/f", true};
const UserWork kSearching{"searching \"bank\"", UserLanguage::kJapanese, "/f", false};

TEST(UserStatusTest, EachStatusIsASentenceOfItsOwn) {
  const Sentence sentences[] = {
      {17, kExitEnvironment, "no_memory", "there is not memory enough for adding \"100%e\""},
      {18, kExitUsage, "refused",
       "adding \"100%e\" was refused: the entry is another now, or its text can't be held"},
      {19, kExitDamaged, "damaged_user_dictionary",
       "adding \"100%e\" failed: an entry among your English entries in /f can't be read; nothing there was "
       "overwritten"},
      {20, kExitDamaged, "damaged_user_dictionary",
       "adding \"100%e\" failed: an entry among your English entries in /f can't be read; nothing there was "
       "overwritten"},
      {21, kExitEnvironment, "not_stored", "adding \"100%e\" failed: files in /f can't be written"},
      {33, kExitEnvironment, "locked", "adding \"100%e\" failed: your entries are in use"},
      {34, kExitEnvironment, "locked", "adding \"100%e\" failed: your entries are in use"},
      {35, kExitEnvironment, "locked", "adding \"100%e\" failed: your entries are in use"},
      {257, kExitEnvironment, "no_folder", "no folder for temporary files can be used"},
      {258, kExitEnvironment, "not_stored",
       "adding \"100%e\" failed: your English entries in /f can't be opened"},
      {259, kExitEnvironment, "not_stored",
       "adding \"100%e\" failed: your English entries in /f can't be opened"},
      {260, kExitEnvironment, "too_many_kanji", "there is no room for further beginnings of words in kanji"},
      {261, kExitEnvironment, "locked", "adding \"100%e\" failed: your entries are in use"},
      {262, kExitEnvironment, "locked", "adding \"100%e\" failed: your entries are in use"},
      {2049, kExitEnvironment, "too_many_kanji", "there is no room for further beginnings of words in kanji"},
      {2051, kExitUsage, "too_many_alike",
       "too many of your words begin alike: there is no room for one more"},
      {2052, kExitUsage, "too_long",
       "the entry is too long: all its texts together have 65,534 bytes at most"},
      {2304, kExitEnvironment, "no_memory", "there is not memory enough for adding \"100%e\""}};
  for (const Sentence& sentence : sentences) {
    const Failure failure = failureOfStatus(sentence.status, kAdding, "");
    EXPECT_EQ(failure.status, sentence.exit) << sentence.status;
    EXPECT_EQ(failure.code, sentence.code) << sentence.status;
    EXPECT_EQ(failure.message, sentence.message) << sentence.status;
    EXPECT_GT(failure.hint.size(), 10u) << sentence.status;
    EXPECT_EQ(failure.hint.find('%'), std::string::npos) << failure.hint;
  }
  EXPECT_FALSE(failureOfStatus(1, kAdding, ""));
}

// A file that ends too soon gives the same status as a full disk does.
TEST(UserStatusTest, WhatIsWrongWithTheFilesIsToldInTheirPlace) {
  for (const uint16_t status : {19, 20, 21, 258, 259}) {
    const Failure failure = failureOfStatus(status, kSearching, "myje.dic ends too soon");
    EXPECT_EQ(failure.status, kExitDamaged);
    EXPECT_EQ(failure.message,
              "searching \"bank\" failed: your Japanese entries in /f are damaged: myje.dic ends too soon");
  }
  EXPECT_EQ(failureOfStatus(2052, kSearching, "myje.dic ends too soon").code, "too_long");
}

TEST(UserStatusTest, AFileThatCantBeReadIsNoFullDisk) {
  const Failure failure = failureOfStatus(21, kSearching, "");
  EXPECT_EQ(failure.code, "unreadable");
  EXPECT_EQ(failure.message, "searching \"bank\" failed: files in /f can't be read");
  EXPECT_EQ(failure.hint, "See who may read them, and whether the disk is well: ls -l /f");
}

}  // namespace
}  // namespace zavel::host
