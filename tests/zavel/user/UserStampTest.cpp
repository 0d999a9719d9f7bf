// Entries that an index doesn't lead to though nobody deleted them: they are shown, and nothing is changed.
#include "user/UserStamp.h"

#include <algorithm>
#include <functional>
#include <map>

#include "foundation/ByteReader.h"
#include "support/FaultyStorage.h"
#include "user/UserReach.h"
#include "user/UserRecovery.h"
#include "user/UserTable.h"
#include "zavel/user/UserSetFixture.h"

namespace zavel::host {
namespace {

using Files = std::map<std::string, std::string>;

class UserStampTest : public UserSetTest {
 protected:
  Files files() const {
    Files all;
    for (const std::string& name : names()) {
      if (name != ".lock") all[name] = bytes(name);
    }
    return all;
  }
  void restore(const Files& all) const {
    for (const std::string& name : names()) std::filesystem::remove(file(name));
    for (const auto& [name, content] : all) put(name, content);
  }

  std::string change(UserLanguage language, const std::function<Failure(UserStore&)>& work) const {
    UserStore open = store();
    Failure failure = open.open(language, UserAccess::kWrite);
    if (!failure) failure = work(open);
    if (Failure notStored = open.close(); !failure) failure = notStored;
    return failure.code;
  }
  static Failure removeIn(UserStore& open, const std::string& word) {
    std::vector<StoredEntry> found;
    if (Failure failure = open.findStored(word, &found)) return failure;
    return found.empty() ? Failure{} : open.remove(found[0]);
  }
  static Failure replaceIn(UserStore& open, const std::string& word, const UserEntry& entry) {
    std::vector<StoredEntry> found;
    if (Failure failure = open.findStored(word, &found)) return failure;
    return found.empty() ? Failure{} : open.replace(found[0], entry);
  }
  std::string remove(UserLanguage language, const std::string& word) const {
    return change(language, [&](UserStore& open) { return removeIn(open, word); });
  }
  std::string arrange(UserLanguage language, bool accept = false) const {
    UserStore open = store();
    if (accept) open.acceptUnclear();
    Failure failure = open.open(language, UserAccess::kWrite);
    if (!failure) failure = open.arrange();
    if (Failure notStored = open.close(); !failure) failure = notStored;
    return failure.code;
  }

  // Everything that is shown, in alphabetical order.
  Strings shown(UserLanguage language, Failure* failure) const {
    UserStore open = store();
    std::vector<UserEntry> entries;
    *failure = open.readAll(open.open(language, UserAccess::kRead), &entries);
    Strings all;
    for (const UserEntry& entry : entries) all.push_back(entry.word);
    std::sort(all.begin(), all.end());
    return all;
  }
  // The code of what is told of the entries, and the words that are shown.
  Strings told(UserLanguage language) const {
    Failure failure;
    Strings all = shown(language, &failure);
    all.insert(all.begin(), failure.code);
    return all;
  }

  // Reads show `all`, and nothing can be changed.
  void expectUnclear(UserLanguage language, Strings all) const {
    const Files before = files();
    all.insert(all.begin(), kUnclear);
    EXPECT_EQ(told(language), all);
    EXPECT_EQ(add({language == kE ? english("new") : japanese("あたらしい")}), kUnclear);
    EXPECT_EQ(remove(language, all.back()), kUnclear);
    EXPECT_EQ(arrange(language), kUnclear);
    EXPECT_EQ(files(), before);
  }

  // The offset of the only row of the index that leads to the block.
  static size_t pointerTo(const std::string& index, uint32_t block) {
    const std::string bytes = {static_cast<char>(block), static_cast<char>(block >> 8),
                               static_cast<char>(block >> 16), static_cast<char>(block >> 24)};
    return index.rfind(bytes);
  }
};

TEST_F(UserStampTest, ItIsReadAsItWasWritten) {
  ASSERT_EQ(add({english("ant"), english("bee"), english("cat")}), "");
  ASSERT_EQ(remove(kE, "bee"), "");
  const UserStamp stamp = UserStamp::read(place(), kE);
  ASSERT_TRUE(stamp.known);
  const std::string dic = bytes("myej.dic");
  const size_t bee = dic.find("bee") - 4, cat = dic.find("cat") - 4;
  EXPECT_EQ(stamp.entriesEnd, dic.size());
  ASSERT_EQ(stamp.dead.size(), 1u);
  EXPECT_EQ(stamp.dead[0].from, bee);
  EXPECT_TRUE(stamp.isDead(bee));
  EXPECT_FALSE(stamp.isDead(128));
  EXPECT_FALSE(stamp.isDead(cat));
  EXPECT_TRUE(stamp.fits(place(), kE));
  ASSERT_TRUE(stamp.write(place(), kE));
  EXPECT_EQ(UserStamp::read(place(), kE), stamp);
  put("myej.dic", dic + "x");
  EXPECT_TRUE(stamp.fits(place(), kE));
  put("myej.dic", dic.substr(0, dic.size() - 1));
  EXPECT_FALSE(stamp.fits(place(), kE));
  std::string other = dic;
  other.back() ^= 1;
  put("myej.dic", other);
  EXPECT_FALSE(stamp.fits(place(), kE));
}

// Of one that was cut or changed anywhere nothing counts.
TEST_F(UserStampTest, ADamagedOneIsAsNone) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  ASSERT_EQ(remove(kE, "ant"), "");
  const std::string whole = bytes("myej.stamp");
  for (size_t at = 0; at < whole.size(); ++at) {
    std::string changed = whole;
    changed[at] ^= 1;
    put("myej.stamp", changed);
    EXPECT_FALSE(UserStamp::read(place(), kE).known) << at;
    put("myej.stamp", whole.substr(0, at));
    EXPECT_FALSE(UserStamp::read(place(), kE).known) << at;
  }
  EXPECT_EQ(words(kE), Strings{"bee"});
  EXPECT_EQ(add({english("cat")}), "");
  EXPECT_TRUE(UserStamp::read(place(), kE).known);
  EXPECT_EQ(words(kE), (Strings{"bee", "cat"}));
}

TEST_F(UserStampTest, AnOlderEnglishIndexHidesNothing) {
  ASSERT_EQ(add({english("apple"), english("banana"), english("madden")}), "");
  const std::string older = bytes("myej.idx");
  ASSERT_EQ(add({english("zebra"), english("zoo")}), "");
  const Files whole = files();
  put("myej.idx", older);
  expectUnclear(kE, {"apple", "banana", "madden", "zebra", "zoo"});
  Failure failure;
  shown(kE, &failure);
  EXPECT_EQ(failure.message, "your English entries in " + place().folder() +
                                 " are not as they were left: myej.idx doesn't lead to 2 entries that are "
                                 "there: \"zebra\", \"zoo\"; it may be older than the other files, or "
                                 "damaged, or another program deleted entries");
  put("myej.idx", whole.at("myej.idx"));
  EXPECT_EQ(told(kE), (Strings{"", "apple", "banana", "madden", "zebra", "zoo"}));
  EXPECT_EQ(arrange(kE), "");
}

TEST_F(UserStampTest, OlderJapaneseIndexesHideNothing) {
  ASSERT_EQ(add({japanese("あり", "蟻"), japanese("はち")}), "");
  const Files older = files();
  ASSERT_EQ(add({japanese("ねこ", "猫"), japanese("とら")}), "");
  const Files whole = files();
  put("mykna.idx", older.at("mykna.idx"));
  EXPECT_EQ(told(kJ)[0], "damaged_user_dictionary");
  put("mykji.idx", older.at("mykji.idx"));
  expectUnclear(kJ, {"あり", "とら", "ねこ", "はち"});
  restore(whole);
  put("mykji.idx", older.at("mykji.idx"));
  EXPECT_EQ(told(kJ)[0], "damaged_user_dictionary");
  restore(whole);
  EXPECT_EQ(told(kJ), (Strings{"", "あり", "とら", "ねこ", "はち"}));
}

TEST_F(UserStampTest, OffsetsThatWereLostHideNothing) {
  ASSERT_EQ(add({english("apple"), english("banana"), english("madden")}), "");
  ASSERT_EQ(add({japanese("あり"), japanese("はち")}), "");
  for (const auto& [language, name] : {std::pair{kE, "myej.idx"}, std::pair{kJ, "mykna.idx"}}) {
    const std::string whole = bytes(name);
    std::string punched = whole;
    const size_t first = pointerTo(whole, 128);
    ASSERT_NE(first, std::string::npos);
    punched.replace(first, 4, 4, '\0');
    put(name, punched);
    expectUnclear(language, language == kE ? Strings{"apple", "banana", "madden"} : Strings{"あり", "はち"});
    put(name, whole);
  }
}

// With whatever a change that broke off seems to have left.
TEST_F(UserStampTest, ARecoveryTakesNothingAwayThatIsNotClear) {
  ASSERT_EQ(add({english("ant")}), "");
  const std::string older = bytes("myej.idx");
  ASSERT_EQ(add({english("bee")}), "");
  const Files whole = files();
  for (const auto work :
       {UserMarker::kNone, UserMarker::kUnknown, UserMarker::kChanging, UserMarker::kArranging}) {
    restore(whole);
    if (work == UserMarker::kUnknown) put(".changing-en", "x");
    if (work > UserMarker::kUnknown) {
      ASSERT_TRUE(UserMarker::beginning(place(), kE, work).write(place(), kE));
    }
    put("myej.idx", older);
    expectUnclear(kE, {"ant", "bee"});
  }
}

TEST_F(UserStampTest, AnIndexFromBeforeADeletionIsToldToo) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  const std::string older = bytes("myej.idx");
  ASSERT_EQ(remove(kE, "bee"), "");
  EXPECT_EQ(told(kE), (Strings{"", "ant"}));
  put("myej.idx", older);
  expectUnclear(kE, {"ant", "bee"});
  Failure failure;
  shown(kE, &failure);
  EXPECT_NE(failure.message.find("myej.idx leads to an entry that was deleted: \"bee\"; "),
            std::string::npos);
}

TEST_F(UserStampTest, WhatAnOlderIndexHidesAndWhatItBringsBackAreBothTold) {
  std::vector<UserEntry> dead;
  for (const char* word : {"da", "db", "dc", "dd", "de", "df", "dg"}) dead.push_back(english(word));
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  ASSERT_EQ(add(dead), "");
  const std::string older = bytes("myej.idx");
  for (const UserEntry& entry : dead) ASSERT_EQ(remove(kE, entry.word), "");
  ASSERT_EQ(add({english("kiwi")}), "");
  put("myej.idx", older);
  Failure failure;
  shown(kE, &failure);
  EXPECT_EQ(
      failure.message,
      "your English entries in " + place().folder() +
          " are not as they were left: myej.idx doesn't lead to an entry that is there: \"kiwi\", and "
          "leads to 7 entries that were deleted: \"da\", \"db\", \"dc\", \"dd\", \"de\" and 2 others; it "
          "may be older than the other files, or damaged, or another program deleted entries");
}

// Arranged files of entries with texts of the same lengths have the same size and the same index.
TEST_F(UserStampTest, AnOlderFileOfEntriesOfTheSameSizeIsTold) {
  for (const auto& [language, name] : {std::pair{kE, "myej.dic"}, std::pair{kJ, "myje.dic"}}) {
    const bool en = language == kE;
    UserEntry ant = en ? english("ant", "aa") : japanese("あり"), bee = ant, dead = ant;
    bee.word = en ? "bee" : "はち";
    dead.word = en ? "dead" : "しんだ";
    ASSERT_EQ(add({ant, bee, dead}), "");
    ASSERT_EQ(arrange(language), "");
    const std::string older = bytes(name);
    UserEntry edited = bee;
    edited.meaning = en ? "bb" : "meanimg";
    ASSERT_EQ(change(language, [&](UserStore& open) { return replaceIn(open, bee.word, edited); }), "");
    ASSERT_EQ(arrange(language), "");
    ASSERT_EQ(remove(language, dead.word), "");
    const std::string whole = bytes(name);
    ASSERT_EQ(whole.size(), older.size());
    put(name, older);
    expectUnclear(language, {ant.word, bee.word});
    Failure failure;
    shown(language, &failure);
    EXPECT_EQ(failure.message, std::string("your ") + (en ? "English" : "Japanese") + " entries in " +
                                   place().folder() + " are not as they were left: " + name +
                                   " holds other texts than were left in it; it may be older than the other "
                                   "files, or damaged, or another program changed entries");
    put(name, whole);
    EXPECT_EQ(told(language), (Strings{"", ant.word, bee.word}));
    EXPECT_EQ(find(language, bee.word)[0].meaning, edited.meaning);
    put(name, older);
    EXPECT_EQ(arrange(language, true), "");
    EXPECT_EQ(bytes(std::string(name) + ".kept-1"), older);
    EXPECT_EQ(told(language), (Strings{"", ant.word, bee.word}));
  }
}

TEST_F(UserStampTest, OwnChangesAreClear) {
  for (const auto language : {kE, kJ}) {
    const bool en = language == kE;
    const auto entry = [en](const char* word, const char* reading, const char* kanji) {
      return en ? english(word) : japanese(reading, kanji);
    };
    const UserEntry ant = entry("ant", "あり", "蟻"), bee = entry("bee", "はち", ""),
                    cat = entry("cat", "ねこ", "猫"), ape = entry("ape", "さる", "猿");
    ASSERT_EQ(add({ant, bee}), "");
    EXPECT_EQ(change(language, [&](UserStore& open) { return replaceIn(open, bee.word, cat); }), "");
    EXPECT_EQ(told(language)[0], "");
    EXPECT_EQ(remove(language, cat.word), "");
    EXPECT_EQ(told(language), (Strings{"", ant.word}));
    // Added and deleted, and refused, in one session.
    UserEntry tooLong = entry("long", "ながい", "");
    tooLong.meaning = std::string(70000, 'm');
    EXPECT_EQ(change(language,
                     [&](UserStore& open) {
                       open.add(bee);
                       open.add(ape);
                       open.add(tooLong);
                       return removeIn(open, bee.word);
                     }),
              "");
    Strings left = {ant.word, ape.word};
    std::sort(left.begin(), left.end());
    left.insert(left.begin(), "");
    EXPECT_EQ(told(language), left);
    EXPECT_EQ(arrange(language), "");
    EXPECT_TRUE(UserStamp::read(place(), language).dead.empty());
    EXPECT_EQ(told(language), left);
    EXPECT_EQ(remove(language, ant.word), "");
    EXPECT_EQ(told(language), (Strings{"", ape.word}));
  }
}

// Without a stamp nothing tells what was deleted; the next change makes one.
TEST_F(UserStampTest, WithoutOneTheFilesCount) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  ASSERT_EQ(remove(kE, "ant"), "");
  std::filesystem::remove(file("myej.stamp"));
  EXPECT_EQ(told(kE), (Strings{"", "bee"}));
  EXPECT_FALSE(exists("myej.stamp"));
  EXPECT_EQ(change(kE, [](UserStore&) { return Failure{}; }), "");
  EXPECT_TRUE(exists("myej.stamp"));
  EXPECT_EQ(told(kE), (Strings{"", "bee"}));
}

// Another program knows nothing of the stamp: the old one stands there after its changes.
TEST_F(UserStampTest, WhatAnotherProgramAddsIsTaken) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  const std::string stamp = bytes("myej.stamp");
  ASSERT_EQ(add({english("cat")}), "");
  put("myej.stamp", stamp);
  EXPECT_EQ(told(kE), (Strings{"", "ant", "bee", "cat"}));
  EXPECT_EQ(add({english("dog")}), "");
  EXPECT_EQ(told(kE), (Strings{"", "ant", "bee", "cat", "dog"}));
}

TEST_F(UserStampTest, WhatAnotherProgramArrangedIsTaken) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  ASSERT_EQ(remove(kE, "ant"), "");
  const std::string stamp = bytes("myej.stamp");
  ASSERT_EQ(arrange(kE), "");
  put("myej.stamp", stamp);
  EXPECT_EQ(told(kE), (Strings{"", "bee"}));
  EXPECT_EQ(remove(kE, "bee"), "");
  EXPECT_EQ(told(kE), Strings{""});
  EXPECT_EQ(add({english("cat")}), "");
  EXPECT_EQ(told(kE), (Strings{"", "cat"}));
}

TEST_F(UserStampTest, WhatAnotherProgramDeletedIsAskedAbout) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  const std::string stamp = bytes("myej.stamp");
  ASSERT_EQ(remove(kE, "bee"), "");
  put("myej.stamp", stamp);
  expectUnclear(kE, {"ant", "bee"});
  EXPECT_EQ(arrange(kE, true), "");
  EXPECT_EQ(told(kE), (Strings{"", "ant"}));
}

TEST_F(UserStampTest, OnesWordTakesThemAsTheyStandAndKeepsCopies) {
  ASSERT_EQ(add({english("ant")}), "");
  const std::string older = bytes("myej.idx");
  ASSERT_EQ(add({english("bee")}), "");
  put("myej.idx", older);
  const Files before = files();
  EXPECT_EQ(arrange(kE, true), "");
  EXPECT_EQ(told(kE), (Strings{"", "ant"}));
  for (const char* name : {"myej.idx", "myej.ix3", "myej.dic"})
    EXPECT_EQ(bytes(std::string(name) + ".kept-1"), before.at(name)) << name;
  EXPECT_EQ(add({english("cat")}), "");
  EXPECT_EQ(arrange(kE, true), "");
  EXPECT_FALSE(exists("myej.idx.kept-2"));  // where all is clear nothing is kept
}

TEST_F(UserStampTest, WhereNoCopyCanBeKeptNothingIsTaken) {
  ASSERT_EQ(add({english("ant")}), "");
  const std::string older = bytes("myej.idx");
  ASSERT_EQ(add({english("bee")}), "");
  put("myej.idx", older);
  const Files before = files();
  const std::string reason =
      "your English entries can't be taken as they stand: files in " + place().folder() + " can't be written";
  int told = 0;
  for (long n = 1;; ++n) {
    restore(before);
    long faults = 0;
    Failure failure;
    {
      test::FaultyStorage disk;
      disk.failAt(n, test::FaultyStorage::kForEver);
      UserStore open = store();
      open.acceptUnclear();
      failure = open.open(kE, UserAccess::kWrite);
      faults = disk.faults();
    }
    if (failure.message == reason) {
      ++told;
      for (const char* name : {"myej.idx", "myej.ix3", "myej.dic"})
        EXPECT_EQ(bytes(name), before.at(name)) << n << name;
    }
    if (faults == 0) break;
  }
  EXPECT_GT(told, 3);  // three files and the stamp
}

// A set that was copied without its stamp, back over a newer one.
TEST_F(UserStampTest, AnOlderSetIsWholeByItself) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  Files older = files();
  ASSERT_EQ(add({english("cat")}), "");
  older["myej.stamp"] = bytes("myej.stamp");
  restore(older);
  EXPECT_EQ(told(kE), (Strings{"", "ant", "bee"}));
  EXPECT_EQ(add({english("dog")}), "");
  EXPECT_EQ(told(kE), (Strings{"", "ant", "bee", "dog"}));
}

// The power goes at each change of the disk in turn: what is left is clear, and is the state before or the
// one after.
TEST_F(UserStampTest, ACrashAtAnyMomentLeavesThemClear) {
  for (const auto language : {kE, kJ}) {
    const bool en = language == kE;
    const UserEntry ant = en ? english("ant") : japanese("あり", "蟻");
    const UserEntry bee = en ? english("bee") : japanese("はち", "蜂");
    const UserEntry cat = en ? english("cat") : japanese("ねこ", "猫");
    ASSERT_EQ(add({ant, bee, en ? english("dead") : japanese("しんだ")}), "");
    ASSERT_EQ(remove(language, en ? "dead" : "しんだ"), "");
    const Files before = files();
    const std::pair<const char*, std::function<Failure(UserStore&)>> works[] = {
        {"add", [&](UserStore& open) { return open.add(cat); }},
        {"remove", [&](UserStore& open) { return removeIn(open, bee.word); }},
        {"replace", [&](UserStore& open) { return replaceIn(open, bee.word, cat); }},
        {"arrange", [](UserStore& open) { return open.arrange(); }},
    };
    for (const auto& [name, work] : works) {
      restore(before);
      ASSERT_EQ(change(language, work), "") << name;
      Strings after = told(language);
      std::vector<Strings> states = {{"", ant.word, bee.word}, after};
      for (Strings& state : states) std::sort(state.begin(), state.end());
      for (unsigned seed = 1; seed <= 2; ++seed) {
        long n = 1;
        for (;; ++n) {
          restore(before);
          const int result =
              test::runAndCrash(n, seed, [&] { return change(language, work).empty() ? 0 : 1; });
          ASSERT_GE(result, 0);
          Strings left = told(language);
          ASSERT_EQ(left[0], "") << name << n;
          ASSERT_TRUE(std::find(states.begin(), states.end(), left) != states.end()) << name << n;
          ASSERT_EQ(remove(language, ant.word), "") << name << n;
          ASSERT_EQ(told(language)[0], "") << name << n;
          if (result != test::kCrashed) break;
        }
        EXPECT_GT(n, 10) << name;
      }
    }
  }
}

// Nor is a set lost whose making and first entry broke off, with the power or without: what it began with is
// known before its first index is saved.
TEST_F(UserStampTest, ACrashAtAnyMomentOfTheFirstEntryLeavesThemClear) {
  for (const auto language : {kE, kJ}) {
    const UserEntry ant = language == kE ? english("ant") : japanese("あり", "蟻");
    const UserEntry bee = language == kE ? english("bee") : japanese("はち", "蜂");
    for (unsigned seed = 1; seed <= 3; ++seed) {
      long n = 1;
      for (;; ++n) {
        std::filesystem::remove_all(folder_.path() + "/user");
        const int result = test::runAndCrash(n, seed, [&] { return add({ant}).empty() ? 0 : 1; });
        ASSERT_GE(result, 0);
        const Strings left = told(language);
        ASSERT_TRUE(left == Strings{""} || left == (Strings{"", ant.word})) << n << left[0];
        ASSERT_EQ(add({bee}), "") << n;
        ASSERT_EQ(told(language).size(), left.size() + 1) << n;
        for (const std::string& name : names())
          ASSERT_EQ(name.find(".kept-"), std::string::npos) << n << name;
        if (result != test::kCrashed) break;
      }
      EXPECT_GT(n, 20);
    }
  }
}

// Likewise where an operation fails and the command goes on.
TEST_F(UserStampTest, AFailingDiskLeavesThemClear) {
  ASSERT_EQ(add({english("ant"), english("bee")}), "");
  const Files before = files();
  for (const auto repeat : {test::FaultyStorage::kForEver, test::FaultyStorage::kOnce}) {
    for (long n = 1;; ++n) {
      restore(before);
      long faults = 0;
      {
        test::FaultyStorage disk;
        disk.failAt(n, repeat);
        change(kE, [](UserStore& open) {
          open.add(english("cat"));
          return removeIn(open, "bee");
        });
        faults = disk.faults();
      }
      Failure failure;
      const Strings left = shown(kE, &failure);
      ASSERT_EQ(failure.message, "") << n;
      ASSERT_EQ(left.at(0), "ant") << n;
      if (faults == 0) break;
    }
  }
}

}  // namespace
}  // namespace zavel::host
