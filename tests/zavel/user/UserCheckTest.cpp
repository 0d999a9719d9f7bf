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
