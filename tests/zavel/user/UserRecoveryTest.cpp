#include "user/UserRecovery.h"

#include <functional>
#include <map>

#include "foundation/Storage.h"
#include "support/FaultyStorage.h"
#include "user/UserMarker.h"
#include "zavel/user/UserSetFixture.h"

namespace zavel::host {
namespace {

class UserRecoveryTest : public UserSetTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(add({english("ant"), english("bee")}), "");
    ASSERT_EQ(add({japanese("あり", "蟻"), japanese("はち", "蜂")}), "");
    for (const std::string& name : names()) before_[name] = bytes(name);
  }

  // The files of a set as they are after a further entry.
  std::map<std::string, std::string> after(UserLanguage language) {
    EXPECT_EQ(add({language == kE ? english("cat") : japanese("ねこ", "猫")}), "");
    std::map<std::string, std::string> files;
    for (const std::string& name : names()) files[name] = bytes(name);
    return files;
  }

  // Puts the files of a change that broke off ahead of its end, which is when the stamp is written.
  void putUnended(const std::map<std::string, std::string>& files) const {
    for (const auto& [name, content] : files) {
      if (!name.ends_with(".stamp")) put(name, content);
    }
  }

  void restoreAll() const {
    for (const std::string& name : names()) std::filesystem::remove(file(name));
    for (const auto& [name, content] : before_) put(name, content);
  }

  // The marker of a change that begins with the files as they are.
  void mark(UserLanguage language, UserMarker::Work work = UserMarker::kChanging) const {
    ASSERT_TRUE(UserMarker::beginning(place(), language, work).write(place(), language));
  }

  Strings run(UserLanguage language) const {
    Strings told;
    const Failure failure = UserRecovery(place(), language).run(&told);
    if (failure) told.push_back("! " + failure.code);
    return told;
  }

  // Makes the state, breaks recovery off at each of its operations, and runs it again: at the end all files
  // are as `expected` says, and no others are there.
  void survives(UserLanguage language, const std::function<void()>& make,
                const std::map<std::string, std::string>& expected) {
    for (long n = 1;; ++n) {
      make();
      long faults = 0;
      {
        test::FaultyStorage disk;
        disk.failAt(n, test::FaultyStorage::kForEver);
        run(language);
        faults = disk.faults();
      }
      const Strings second = run(language);
      ASSERT_TRUE(second.empty() || second.back()[0] != '!') << n << second.back();
      std::map<std::string, std::string> files;
      for (const std::string& name : names()) files[name] = bytes(name);
      ASSERT_EQ(files, expected) << n;
      ASSERT_FALSE(UserRecovery(place(), language).needed()) << n;
      if (faults == 0) break;
    }
  }

  std::map<std::string, std::string> before_;
};

TEST_F(UserRecoveryTest, NothingIsNeededAfterAWholeEnd) {
  EXPECT_FALSE(UserRecovery(place(), kE).needed());
  EXPECT_FALSE(UserRecovery(place(), kJ).needed());
  EXPECT_EQ(run(kE), Strings{});
  EXPECT_EQ(run(kJ), Strings{});
}

TEST_F(UserRecoveryTest, BrokenArrangingGoesBackInEnglish) {
  const auto make = [this] {
    restoreAll();
    mark(kE, UserMarker::kArranging);
    for (const char* name : {"myej.idx", "myej.ix3", "myej.dic"})
      put(std::string(name) + ".arrbkp", before_[name]);
    put("myej.idx.bkup", "older");
    put("myej.dic", "half");
    std::filesystem::remove(file("myej.ix3"));
    put("ix34711.00abcdef.3", "new");
  };
  make();
  EXPECT_TRUE(UserRecovery(place(), kE).needed());
  EXPECT_EQ(run(kE),
            Strings{"arranging your English entries had broken off: they are as they were before it"});
  EXPECT_EQ(words(kE), (Strings{"ant", "bee"}));
  survives(kE, make, before_);
}

TEST_F(UserRecoveryTest, BrokenArrangingGoesBackInJapanese) {
  const auto make = [this] {
    restoreAll();
    mark(kJ, UserMarker::kArranging);
    for (const char* name : {"mykna.idx", "mykji.idx", "mykna.ix3", "mykji.ix3", "myje.dic"}) {
      put(std::string(name) + ".arrbkp", before_[name]);
      put(name, "");
    }
    put("kna4711.00abcdef.3", "new");
    put("kji4711.00abcdef.4", "new");
  };
  make();
  EXPECT_EQ(run(kJ),
            Strings{"arranging your Japanese entries had broken off: they are as they were before it"});
  EXPECT_EQ(words(kJ), (Strings{"あり", "はち"}));
  survives(kJ, make, before_);
}

TEST_F(UserRecoveryTest, BackupsOfArrangingWithoutTheFirstAreLeftOver) {
  const auto make = [this] {
    restoreAll();
    mark(kE, UserMarker::kArranging);
    put("myej.ix3.arrbkp", "old");
    put("myej.dic.arrbkp", "old");
  };
  make();
  EXPECT_EQ(run(kE), Strings{});
  survives(kE, make, before_);
}

TEST_F(UserRecoveryTest, BrokenSavingGoesBackInEnglish) {
  const auto files = after(kE);
  const auto& expected = before_;
  const auto make = [&] {
    restoreAll();
    mark(kE);
    putUnended(files);
    put("myej.idx.bkup", before_["myej.idx"]);
    std::filesystem::remove(file("myej.idx"));
  };
  make();
  EXPECT_EQ(
      run(kE),
      (Strings{"a change of your English entries had broken off: they are as they were before it",
               "a change of your English entries had broken off: 38 bytes of it that nothing leads to were "
               "removed"}));
  EXPECT_EQ(words(kE), (Strings{"ant", "bee"}));
  survives(kE, make, expected);
}

TEST_F(UserRecoveryTest, BrokenSavingGoesBackInBothJapaneseIndexes) {
  const auto files = after(kJ);
  const auto& expected = before_;
  const auto make = [&] {
    restoreAll();
    mark(kJ);
    putUnended(files);
    put("mykna.idx.bkup", before_["mykna.idx"]);
    put("mykji.idx.bkup", before_["mykji.idx"]);
  };
  make();
  EXPECT_EQ(
      run(kJ),
      (Strings{"a change of your Japanese entries had broken off: they are as they were before it",
               "a change of your Japanese entries had broken off: 46 bytes of it that nothing leads to were "
               "removed"}));
  EXPECT_EQ(words(kJ), (Strings{"あり", "はち"}));
  EXPECT_EQ(find(kJ, "猫"), std::vector<UserEntry>{});
  survives(kJ, make, expected);
}

TEST_F(UserRecoveryTest, AKanjiBackupWithoutTheFirstGivesWayToASoundIndex) {
  const auto files = after(kJ);
  const auto make = [&] {
    restoreAll();
    mark(kJ);
    putUnended(files);
    put("mykji.idx.bkup", before_["mykji.idx"]);
  };
  make();
  EXPECT_EQ(run(kJ), Strings{});
  EXPECT_EQ(words(kJ), (Strings{"あり", "ねこ", "はち"}));
  survives(kJ, make, files);
}

TEST_F(UserRecoveryTest, AKanjiBackupWithoutTheFirstTakesThePlaceOfAnUnsoundIndex) {
  const auto make = [&] {
    restoreAll();
    mark(kJ);
    put("mykji.idx.bkup", before_["mykji.idx"]);
    put("mykji.idx", before_["mykji.idx"].substr(0, 140));
  };
  survives(kJ, make, before_);
}

TEST_F(UserRecoveryTest, AKanjiIndexMovedAsideComesBack) {
  const auto make = [&] {
    restoreAll();
    mark(kJ);
    put("mykji.idx.Bkup", before_["mykji.idx"]);
    put("my001.idx", before_["mykji.idx"]);
    std::filesystem::remove(file("mykji.idx"));
  };
  make();
  EXPECT_EQ(run(kJ),
            Strings{"a change of your Japanese entries had broken off: the index of kanji was put back"});
  survives(kJ, make, before_);
}

TEST_F(UserRecoveryTest, TemporaryFilesGoAndOthersStay) {
  auto expected = before_;
  expected["dictionary.txt"] = expected[".new-idea"] = "mine";
  const auto make = [&] {
    restoreAll();
    for (const char* name : {".copy-12.0a.1", ".new-12.0a.2", "dic12.0a.3", "ix312.0a.4"}) put(name, "x");
    put("dictionary.txt", "mine");
    put(".new-idea", "mine");
  };
  survives(kE, make, expected);
}

// A power cut may leave half an entry behind the last whole one, which would swallow it.
TEST_F(UserRecoveryTest, WhatNothingLeadsToIsCutOff) {
  const auto make = [&] {
    restoreAll();
    put(".changing-en", "");
    put("myej.dic", before_["myej.dic"] + "\xF5\xD5half");
    put("myej.ix3", before_["myej.ix3"] + std::string(7, '\0'));
  };
  make();
  EXPECT_EQ(run(kE), Strings{"a change of your English entries had broken off: 13 bytes of it that nothing "
                             "leads to were removed"});
  survives(kE, make, before_);
  restoreAll();
  put(".changing-ja", "");
  put("myje.dic", before_["myje.dic"] + std::string(5, '\0'));
  put("mykji.ix3", before_["mykji.ix3"] + "xyz");
  put("mykna.ix3", before_["mykna.ix3"] + "x");
  EXPECT_EQ(run(kJ), Strings{"a change of your Japanese entries had broken off: 9 bytes of it that nothing "
                             "leads to were removed"});
  EXPECT_EQ(bytes("myje.dic"), before_["myje.dic"]);
  EXPECT_EQ(bytes("mykji.ix3"), before_["mykji.ix3"]);
  EXPECT_EQ(bytes("mykna.ix3"), before_["mykna.ix3"]);
}

TEST_F(UserRecoveryTest, AMarkerAloneChangesNothing) {
  const auto make = [&] {
    restoreAll();
    put(".changing-en", "");
  };
  make();
  EXPECT_EQ(run(kE), Strings{});
  survives(kE, make, before_);
}

TEST_F(UserRecoveryTest, HalfMadeFilesAreMadeAnew) {
  auto expected = before_;
  for (const char* name : {"myej.idx", "myej.ix3", "myej.dic"}) expected.erase(name);
  const auto make = [&] {
    restoreAll();
    for (const char* name : {"myej.idx", "myej.ix3"}) std::filesystem::remove(file(name));
    put("myej.dic", std::string(128, '\0'));
    put(".changing-en", "");
  };
  make();
  EXPECT_EQ(run(kE), Strings{"making the files for your English entries had broken off: they are made anew"});
  survives(kE, make, expected);
  make();
  EXPECT_EQ(add({english("dog")}), "");
  EXPECT_EQ(words(kE), Strings{"dog"});
}

TEST_F(UserRecoveryTest, DamageIsToldWithWhereBackupsStand) {
  std::filesystem::remove(file("myej.ix3"));
  put("myej.dic.arrbkp", "x");
  const auto damage = UserRecovery(place(), kE).damage(UserCheck::kAll, nullptr);
  EXPECT_EQ(damage.status, kExitDamaged);
  EXPECT_EQ(damage.message,
            "your English entries in " + place().folder() +
                " are damaged: myej.ix3 is missing; backups there: myej.dic.arrbkp, nothing was changed");
  restoreAll();
  put("mykna.idx", before_["mykna.idx"].substr(0, 200));
  EXPECT_EQ(UserRecovery(place(), kJ).damage(UserCheck::kAll, nullptr).message,
            "your Japanese entries in " + place().folder() +
                " are damaged: mykna.idx is no index; no backup stands there, nothing was changed");
  EXPECT_EQ(words(kJ), Strings{"!damaged_user_dictionary"});
  EXPECT_EQ(add({japanese("いぬ")}), "damaged_user_dictionary");
  EXPECT_EQ(bytes("mykna.idx"), before_["mykna.idx"].substr(0, 200));
  EXPECT_EQ(bytes("myje.dic"), before_["myje.dic"]);
}

// Backups that no change of this program's left: of every suffix, of every content, with every marker. Where
// the files are whole without them they stay as they are, and the backups are kept under names of their own,
// but for those that a change leaves behind itself.
TEST_F(UserRecoveryTest, BackupsFromElsewhereTakeNothingBack) {
  const struct {
    UserLanguage language;
    const char* suffix;
    Strings names;
    bool first;
  } backups[] = {
      {kE, ".bkup", {"myej.idx"}, true},
      {kE, ".arrbkp", {"myej.idx", "myej.ix3", "myej.dic"}, true},
      {kE, ".arrbkp", {"myej.idx"}, true},
      {kE, ".arrbkp", {"myej.ix3", "myej.dic"}, false},
      {kJ, ".bkup", {"mykna.idx", "mykji.idx"}, true},
      {kJ, ".bkup", {"mykji.idx"}, false},
      {kJ, ".Bkup", {"mykji.idx"}, false},
      {kJ, ".arrbkp", {"mykna.idx", "mykji.idx", "mykna.ix3", "mykji.ix3", "myje.dic"}, true},
      {kJ, ".arrbkp", {"mykna.ix3", "mykji.ix3", "myje.dic"}, false},
  };
  const auto older = before_;
  after(kE);
  const auto now = after(kJ);
  before_ = now;
  for (const auto& [language, suffix, list, first] : backups) {
    for (const char* content : {"stale", "empty", "half"}) {
      for (const auto work :
           {UserMarker::kNone, UserMarker::kUnknown, UserMarker::kChanging, UserMarker::kArranging}) {
        restoreAll();
        auto expected = now;
        const bool kept = first || work <= UserMarker::kUnknown;
        for (const std::string& name : list) {
          const std::string old = older.at(name);
          const std::string bytes = content == std::string("stale")   ? old
                                    : content == std::string("empty") ? ""
                                                                      : old.substr(0, old.size() / 2);
          put(name + suffix, bytes);
          if (kept) expected[name + suffix + ".kept-1"] = bytes;
        }
        if (work == UserMarker::kUnknown) put(language == kE ? ".changing-en" : ".changing-ja", "");
        if (work > UserMarker::kUnknown) mark(language, work);
        const Strings told = run(language);
        const std::string where = content + (" " + list[0] + suffix) + std::to_string(work);
        std::map<std::string, std::string> files;
        for (const std::string& name : names()) files[name] = this->bytes(name);
        ASSERT_EQ(files, expected) << where;
        ASSERT_EQ(told.size(), kept ? 1u : 0u) << where << told[0];
        ASSERT_FALSE(UserRecovery(place(), language).needed()) << where;
      }
    }
  }
}

// The files lack what the backup has because it was deleted, which nothing in either of them tells.
TEST_F(UserRecoveryTest, ABackupFromElsewhereBringsNoDeletedWordBack) {
  UserStore open = store();
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.open(kE, UserAccess::kWrite).code, "");
  ASSERT_EQ(open.findStored("bee", &found).code, "");
  ASSERT_EQ(open.remove(found.at(0)).code, "");
  ASSERT_EQ(open.close().code, "");
  mark(kE);
  put("myej.idx.bkup", before_["myej.idx"]);
  EXPECT_EQ(run(kE).front(), "backups that your English entries don't need were found in " +
                                 place().folder() + " and moved to myej.idx.bkup.kept-1");
  EXPECT_EQ(words(kE), Strings{"ant"});
}

// Neither the files nor the backups can be used: both are named, and both stay.
TEST_F(UserRecoveryTest, WhereNothingIsWholeNothingIsTouched) {
  for (const auto work :
       {UserMarker::kNone, UserMarker::kUnknown, UserMarker::kChanging, UserMarker::kArranging}) {
    for (const char* suffix : {".bkup", ".arrbkp"}) {
      restoreAll();
      if (work == UserMarker::kUnknown) put(".changing-en", "");
      if (work > UserMarker::kUnknown) mark(kE, work);
      put("myej.idx", before_["myej.idx"].substr(0, 100));
      put(std::string("myej.idx") + suffix, before_["myej.idx"].substr(0, 90000));
      std::map<std::string, std::string> files;
      for (const std::string& name : names()) files[name] = bytes(name);
      Strings told;
      const Failure failure = UserRecovery(place(), kE).run(&told);
      EXPECT_EQ(failure.status, kExitDamaged);
      EXPECT_EQ(failure.message, "your English entries in " + place().folder() +
                                     " are damaged: myej.idx is no index; backups there: myej.idx" + suffix +
                                     ", nothing was changed");
      EXPECT_EQ(told, Strings{});
      for (const auto& [name, content] : files) EXPECT_EQ(bytes(name), content) << name;
    }
  }
}

// Nobody was writing when it came there: it may be older than what the files had.
TEST_F(UserRecoveryTest, AWholeBackupWithoutAChangeIsNotPutOverDamagedFiles) {
  put("myej.idx.bkup", before_["myej.idx"]);
  put("myej.idx", "");
  EXPECT_EQ(run(kE), Strings{"! damaged_user_dictionary"});
  EXPECT_EQ(bytes("myej.idx"), "");
  EXPECT_EQ(bytes("myej.idx.bkup"), before_["myej.idx"]);
}

TEST_F(UserRecoveryTest, EntriesThatWereStoredBeforeTheChangeAreNotCutOff) {
  mark(kE);
  put("myej.dic", before_["myej.dic"].substr(0, before_["myej.dic"].size() - 1));
  EXPECT_EQ(run(kE), Strings{"! damaged_user_dictionary"});
  EXPECT_EQ(bytes("myej.dic").size(), before_["myej.dic"].size() - 1);
  EXPECT_TRUE(exists(".changing-en"));
}

TEST_F(UserRecoveryTest, WhatIsKeptIsNeverReplaced) {
  put("myej.idx.bkup.kept-1", "first");
  put("myej.idx.bkup", "second");
  EXPECT_EQ(run(kE), Strings{"backups that your English entries don't need were found in " +
                             place().folder() + " and moved to myej.idx.bkup.kept-2"});
  EXPECT_EQ(bytes("myej.idx.bkup.kept-1"), "first");
  EXPECT_EQ(bytes("myej.idx.bkup.kept-2"), "second");
}

// The engine moves the first index of kanji aside and nothing else; and what says nothing is not the marker
// of a change that may have done so.
TEST_F(UserRecoveryTest, WhatIsNeverMovedAsideIsKept) {
  const Strings told = {"backups that your English entries don't need were found in " + place().folder() +
                        " and moved to myej.idx.Bkup.kept-1, myej.dic.Bkup.kept-1"};
  for (const bool known : {false, true}) {
    restoreAll();
    put(".changing-en", "garbage");
    if (known) mark(kE);
    put("myej.idx.Bkup", "one");
    put("myej.dic.Bkup", "two");
    EXPECT_EQ(run(kE), told);
    EXPECT_EQ(bytes("myej.idx.Bkup.kept-1"), "one");
    EXPECT_EQ(bytes("myej.dic.Bkup.kept-1"), "two");
  }
  restoreAll();
  put(".changing-ja", "garbage");
  put("mykji.idx.Bkup", before_["mykji.idx"]);
  EXPECT_EQ(run(kJ), Strings{"backups that your Japanese entries don't need were found in " +
                             place().folder() + " and moved to mykji.idx.Bkup.kept-1"});
  EXPECT_EQ(bytes("mykji.idx.Bkup.kept-1"), before_["mykji.idx"]);
}

TEST_F(UserRecoveryTest, OneThatIsNeverMadeIsNotPutOverDamagedFiles) {
  mark(kE);
  put("myej.idx.Bkup", before_["myej.idx"]);
  put("myej.idx", "");
  EXPECT_EQ(run(kE), Strings{"! damaged_user_dictionary"});
  EXPECT_EQ(bytes("myej.idx"), "");
}

// Nothing of a damaged dictionary is cut off: what nothing leads to may be what the damage hides.
TEST_F(UserRecoveryTest, NothingIsCutOffDamagedFiles) {
  std::string index = before_["myej.idx"];
  put("myej.idx", index.replace(index.find('\x80', 900), 4096, std::string(4096, '\0')));
  put(".changing-en", "x");
  EXPECT_EQ(run(kE), Strings{"! damaged_user_dictionary"});
  EXPECT_EQ(bytes("myej.dic"), before_["myej.dic"]);
  EXPECT_EQ(bytes("myej.ix3"), before_["myej.ix3"]);
  EXPECT_TRUE(exists(".changing-en"));
}

// Where nothing tells when the change began, a whole entry may be an older one.
TEST_F(UserRecoveryTest, WithoutAWordOfTheMarkersWholeEntriesAreNotCutOff) {
  const auto files = after(kE);
  restoreAll();
  std::filesystem::remove(file("myej.stamp"));
  put("myej.dic", files.at("myej.dic") + "\xF5\xD1half");
  put(".changing-en", "");
  EXPECT_EQ(run(kE), Strings{"a change of your English entries had broken off: 6 bytes of it that nothing "
                             "leads to were removed"});
  EXPECT_EQ(bytes("myej.dic"), files.at("myej.dic"));
}

// Entries that were deleted ahead of the change stay like all others of that time, and what it added goes.
TEST_F(UserRecoveryTest, WhatWasThereWhenTheChangeBeganIsNotCutOff) {
  UserStore open = store();
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.open(kE, UserAccess::kWrite).code, "");
  ASSERT_EQ(open.findStored("bee", &found).code, "");
  ASSERT_EQ(open.remove(found.at(0)).code, "");
  ASSERT_EQ(open.close().code, "");
  mark(kE);
  const std::string dic = bytes("myej.dic");
  put("myej.dic", dic + dic.substr(128));
  run(kE);
  EXPECT_EQ(bytes("myej.dic"), dic);
  EXPECT_EQ(words(kE), Strings{"ant"});
}

TEST_F(UserRecoveryTest, AReaderPutsThingsRightToo) {
  mark(kE);
  put("myej.idx.bkup", before_["myej.idx"]);
  put("myej.idx", "");
  EXPECT_EQ(words(kE), (Strings{"ant", "bee"}));
  EXPECT_EQ(bytes("myej.idx"), before_["myej.idx"]);
}

}  // namespace
}  // namespace zavel::host
