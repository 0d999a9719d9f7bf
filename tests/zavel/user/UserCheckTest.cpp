#include "user/UserCheck.h"

#include <functional>

#include "support/FaultyStorage.h"
#include "zavel/user/UserSetFixture.h"

namespace zavel::host {
namespace {

class UserCheckTest : public UserSetTest {
 protected:
  UserCheck check(UserLanguage language, UserCheck::Depth depth = UserCheck::kAll) const {
    const UserPlace files = place();
    return UserCheck(
        language, [files](const std::string& name) { return files.file(name); }, depth);
  }
  std::string wrong(UserLanguage language) const { return check(language).wrong(); }
};

TEST_F(UserCheckTest, AWholeSetHasItsEntriesAndEnds) {
  ASSERT_EQ(add({english("ant"), english("bee"), english("antler")}), "");
  const UserCheck files = check(kE);
  EXPECT_EQ(files.wrong(), "");
  EXPECT_EQ(files.entries().size(), 3u);
  EXPECT_EQ(files.entries()[0], 128u);
  const std::pair<std::string, uint64_t> blocks{"ej.ix3", bytes("myej.ix3").size()};
  const std::pair<std::string, uint64_t> entries{"ej.dic", bytes("myej.dic").size()};
  EXPECT_EQ(files.ends(), (std::vector{blocks, entries}));
  put("myej.dic", bytes("myej.dic") +
                      "\xF5\xD1"
                      "ca");
  EXPECT_EQ(check(kE).ends()[1], entries);
}

TEST_F(UserCheckTest, WhatIsWrongIsTold) {
  ASSERT_EQ(add({japanese("あり", "蟻"), japanese("はち", "蜂"), japanese("はえ")}), "");
  const struct {
    const char* name;
    std::function<std::string(std::string)> change;
    const char* wrong;
  } cases[] = {
      {"mykna.idx", [](std::string b) { return b.substr(0, 9000); }, "mykna.idx is no index"},
      {"mykji.idx", [](std::string b) { return b.substr(0, b.size() - 1); }, "mykji.idx is no index"},
      {"mykji.idx", [](std::string b) { return b.replace(10, 1, "\x0B"); },
       "mykji.idx counts too many indexes"},
      {"mykji.idx", [](std::string b) { return b.replace(10, 1, "\x01"); }, "my001.idx is missing"},
      {"mykna.ix3", [](std::string b) { return b.substr(0, 127); }, "mykna.ix3 ends too soon"},
      {"mykji.ix3", [](std::string b) { return std::string(b.size(), '\0'); },
       "mykji.ix3 holds other blocks than its index leads to, or ends too soon"},
      {"mykji.ix3", [](std::string b) { return b.substr(0, b.size() - 1); },
       "mykji.ix3 holds other blocks than its index leads to, or ends too soon"},
      {"mykna.ix3", [](std::string b) { return b.replace(136, 1, "x"); },
       "mykna.ix3 holds other blocks than its index leads to, or ends too soon"},
      {"mykji.ix3", [](std::string b) { return b.replace(b.size() - 4, 1, "\x81"); },
       "mykji.ix3 leads to other entries than mykna.ix3"},
      {"myje.dic", [](std::string b) { return b.substr(0, b.size() - 1); }, "myje.dic ends too soon"},
      {"myje.dic", [](std::string b) { return b.substr(0, 130); }, "myje.dic ends too soon"},
      {"myje.dic", [](std::string b) { return std::string(b.size(), '\0'); },
       "myje.dic holds other entries than are looked for in it"},
  };
  for (const auto& [name, change, wrong] : cases) {
    const std::string whole = bytes(name);
    put(name, change(whole));
    EXPECT_EQ(this->wrong(kJ), wrong);
    put(name, whole);
  }
  EXPECT_EQ(wrong(kJ), "");
}

// One byte each: of a key in an index, in a block, in an entry.
TEST_F(UserCheckTest, AKeyThatIsNotThatOfItsEntryIsTold) {
  ASSERT_EQ(add({english("apple"), english("apply"), english("bear")}), "");
  const std::string idx = bytes("myej.idx"), ix3 = bytes("myej.ix3"), dic = bytes("myej.dic");
  const auto with = [](std::string text, size_t at, char byte) { return text.replace(at, 1, 1, byte); };
  const size_t live = ix3.rfind("le") < ix3.rfind("ly") ? ix3.rfind("le") : std::string::npos;
  ASSERT_NE(live, std::string::npos);
  put("myej.ix3", with(ix3, live, 'm'));  // "apme" behind which "aply" is not looked for
  EXPECT_EQ(wrong(kE), "myej.ix3 holds other blocks than its index leads to, or ends too soon");
  put("myej.ix3", with(ix3, live + 1, 'd'));  // "apld", still in order
  EXPECT_EQ(wrong(kE), "myej.dic holds other entries than are looked for in it");
  put("myej.ix3", ix3);
  put("myej.dic", with(dic, dic.find("apple") + 1, 'q'));
  EXPECT_EQ(wrong(kE), "myej.dic holds other entries than are looked for in it");
  put("myej.dic", with(dic, dic.find("bear"), '`'));
  EXPECT_EQ(wrong(kE), "myej.dic holds other entries than are looked for in it");
  put("myej.dic", dic);
  put("myej.idx", with(idx, 128 + 8, 'b'));
  EXPECT_EQ(wrong(kE), "myej.idx was changed or is damaged");
  put("myej.idx", idx);
  EXPECT_EQ(wrong(kE), "");
}

// Every page of an index has rows that are always there.
TEST_F(UserCheckTest, AnIndexWithAPageOfZerosIsNone) {
  ASSERT_EQ(add({english("zebra")}), "");
  ASSERT_EQ(add({japanese("あり")}), "");
  for (const auto& [name, language] : {std::pair{"myej.idx", kE}, {"mykna.idx", kJ}}) {
    const std::string whole = bytes(name);
    for (size_t page = 0; page < whole.size(); page += 4096) {
      std::string zeroed = whole;
      const size_t length = std::min<size_t>(4096, whole.size() - page);
      put(name, zeroed.replace(page, length, std::string(length, '\0')));
      EXPECT_EQ(check(language, UserCheck::kIndexes).wrong(),
                name + std::string(" was changed or is damaged"))
          << page;
    }
    put(name, whole);
  }
}

// An entry that is written in kanji is led to from both sides, or something is lost.
TEST_F(UserCheckTest, AWrittenFormThatNoIndexLeadsToIsTold) {
  ASSERT_EQ(add({japanese("あり", "蟻"), japanese("はち", "蜂")}), "");
  const std::string first = bytes("mykji.idx");
  std::string empty(140, '\0');
  empty[10] = 1;                        // one further index
  empty[132] = static_cast<char>(136);  // where table C stands
  put("my001.idx", first);
  put("mykji.idx", empty);
  EXPECT_EQ(wrong(kJ), "");
  empty[10] = 0;
  put("mykji.idx", empty);
  EXPECT_EQ(wrong(kJ), "mykji.ix3 leads to other entries than mykna.ix3");
  EXPECT_EQ(add({japanese("ねこ", "猫")}), "damaged_user_dictionary");
  put("mykji.idx.Bkup", "stray");
  EXPECT_EQ(words(kJ), Strings{"!damaged_user_dictionary"});
  EXPECT_EQ(bytes("my001.idx"), first);
}

// A whole line of it lacks, or a byte of it became 0.
TEST_F(UserCheckTest, AnEntryThatWasCutIsTold) {
  UserEntry cream = english("ice cream");
  cream.examples = {{"I like it.", "好きだ。"}};
  ASSERT_EQ(add({cream, english("jam")}), "");
  const std::string dic = bytes("myej.dic");
  const size_t example = dic.find("\xF5\xD5"), end = dic.find("\xF5\xD1", example);
  std::string cut = dic;
  put("myej.dic", cut.replace(example, end - example, std::string(end - example, '\0')));
  EXPECT_EQ(wrong(kE), "myej.dic holds an entry that was cut or changed");
  UserStore open = store();
  std::vector<UserEntry> entries;
  const Failure failure = open.readAll(open.open(kE, UserAccess::kRead), &entries);
  EXPECT_TRUE(failure.message.ends_with("; the entry \"icecream\" can't be read")) << failure.message;
  EXPECT_EQ(entries, std::vector{english("jam")});
  put("myej.dic", cut.replace(0, cut.size(), dic).replace(dic.find("like"), 1, 1, '\0'));
  EXPECT_EQ(wrong(kE), "myej.dic holds an entry that was cut or changed");
}

TEST_F(UserCheckTest, TheIndexesAloneSayNothingOfTheRest) {
  ASSERT_EQ(add({english("ant")}), "");
  put("myej.ix3", "");
  EXPECT_EQ(check(kE, UserCheck::kIndexes).wrong(), "");
  put("myej.idx", "");
  EXPECT_EQ(check(kE, UserCheck::kIndexes).wrong(), "myej.idx is no index");
}

// A disk that can't be read says nothing about what is on it.
TEST_F(UserCheckTest, WhatCantBeReadIsNotDamage) {
  ASSERT_EQ(add({japanese("あり", "蟻")}), "");
  for (long n = 1;; ++n) {
    test::FaultyStorage disk;
    disk.failAt(n, test::FaultyStorage::kForEver);
    const UserCheck files = check(kJ);
    if (disk.faults() == 0) break;
    EXPECT_TRUE(files.unreadable()) << n << " " << files.wrong();
    EXPECT_TRUE(files.wrong().ends_with(" can't be read")) << n << " " << files.wrong();
  }
}

}  // namespace
}  // namespace zavel::host
