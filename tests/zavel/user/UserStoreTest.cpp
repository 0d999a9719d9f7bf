#include "user/UserStore.h"

#include <map>

#include "support/FaultyStorage.h"
#include "user/UserRecovery.h"
#include "zavel/user/UserSetFixture.h"

namespace zavel::host {
namespace {

using UserStoreTest = UserSetTest;

const UserEntry kRich{.word = "bank",
                      .pos = 6,
                      .meaning = "銀行, バンク",
                      .examples = {{"a bank account", "銀行口座"}, {"b = c | d\\", "表"}}};

TEST_F(UserStoreTest, ReadingMakesNothing) {
  EXPECT_EQ(words(kE), Strings{});
  EXPECT_EQ(words(kJ), Strings{});
  EXPECT_FALSE(std::filesystem::exists(folder_.path() + "/user"));
}

TEST_F(UserStoreTest, EnglishEntriesComeBackWhole) {
  UserEntry phrase{
      .word = "bank", .phrase = "bank on", .meaning = "当てにする", .examples = {{"Bank on me.", "私を"}}};
  ASSERT_EQ(add({kRich, phrase}), "");
  EXPECT_EQ(find(kE, "bank"), (std::vector<UserEntry>{kRich, phrase}));
  EXPECT_EQ(find(kE, "BANK"), (std::vector<UserEntry>{kRich, phrase}));
  EXPECT_EQ(find(kE, "ban"), std::vector<UserEntry>{});
  EXPECT_EQ(words(kE), Strings{"bank"});
}

// The engine refuses both characters; the entry keeps them.
TEST_F(UserStoreTest, WordsWithMarksThatNoIndexHasKeepTheirSpelling) {
  UserEntry often = japanese("ときどき", "時々");
  often.sentences = {{"I go sometimes.", "時々行く。"}};
  const UserEntry repeated = japanese("ときどき", "時時"), dotted = japanese("アイス・クリーム"),
                  both = japanese("イ・ロ", "色・々々"), twin = japanese("りん", "凜");
  ASSERT_EQ(add({often, repeated, dotted, both, twin}), "");
  EXPECT_EQ(find(kJ, "凜"), std::vector<UserEntry>{twin});
  EXPECT_EQ(find(kJ, "凛"), std::vector<UserEntry>{twin});
  EXPECT_EQ(find(kJ, "時々"), (std::vector<UserEntry>{often, repeated}));
  EXPECT_EQ(find(kJ, "時時"), (std::vector<UserEntry>{often, repeated}));
  EXPECT_EQ(find(kJ, "ときどき"), (std::vector<UserEntry>{often, repeated}));
  EXPECT_EQ(find(kJ, "あいすくりーむ"), std::vector<UserEntry>{dotted});
  EXPECT_EQ(find(kJ, "ｱｲｽ･ｸﾘｰﾑ"), std::vector<UserEntry>{dotted});
  EXPECT_EQ(find(kJ, "いろ"), std::vector<UserEntry>{both});
  EXPECT_EQ(words(kJ), (Strings{"アイスクリーム", "イロ", "ときどき", "りん"}));

  UserStore open = store();
  ASSERT_EQ(open.open(kJ, UserAccess::kWrite).code, "");
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.find("時々", &found).code, "");
  UserEntry changed = often;
  changed.meaning = "at times";
  ASSERT_EQ(open.replace(found[0], changed).code, "");
  ASSERT_EQ(open.find("時々", &found).code, "");
  ASSERT_EQ(found.size(), 2u);
  ASSERT_EQ(open.remove(found[1]).code, "");
  ASSERT_EQ(open.arrange().code, "");
  ASSERT_EQ(open.close().code, "");
  EXPECT_EQ(find(kJ, "時々"), std::vector<UserEntry>{changed});
}

// Only what spells the word itself is its spelling.
TEST_F(UserStoreTest, ASentenceOfTheUsersIsNoSpelling) {
  UserEntry people = japanese("ひとびと", "人人");
  people.sentences = {{"written", "人"}, {"spelled", "ひとびと"}, {"written", "人人"}};
  ASSERT_EQ(add({people}), "");
  EXPECT_EQ(find(kJ, "人々"), std::vector<UserEntry>{people});
}

TEST_F(UserStoreTest, JapaneseEntriesAreFoundByReadingAndByKanji) {
  UserEntry dog = japanese("いぬ", "犬");
  dog.examples = {{"a dog's life", "犬の生活"}};
  dog.sentences = {{"I have a dog.", "犬を飼う。"}, {"No.", "いや。"}};
  ASSERT_EQ(add({dog, japanese("いぬ", "戌"), japanese("イヌ")}), "");
  EXPECT_EQ(find(kJ, "いぬ").size(), 3u);
  EXPECT_EQ(find(kJ, "犬"), std::vector<UserEntry>{dog});
  EXPECT_EQ(find(kJ, "ｲﾇ").size(), 3u);
  EXPECT_EQ(find(kJ, "猫"), std::vector<UserEntry>{});
}

// The engine's searches end at the fiftieth of a word that is shorter than what its index goes by.
TEST_F(UserStoreTest, AShortWordHasAllItsEntries) {
  std::vector<UserEntry> english, japanese;
  for (int i = 0; i < 120; ++i) {
    english.push_back(this->english(i % 2 ? "go" : "GO", "意味" + std::to_string(i)));
    japanese.push_back(this->japanese("き", "木"));
    japanese.back().meaning = "tree " + std::to_string(i);
  }
  ASSERT_EQ(add(english), "");
  ASSERT_EQ(add(japanese), "");
  EXPECT_EQ(find(kE, "go"), english);
  EXPECT_EQ(find(kJ, "き"), japanese);
  EXPECT_EQ(find(kJ, "木"), japanese);

  for (const UserLanguage language : {kE, kJ}) {
    UserStore open = store();
    std::vector<UserEntry> all;
    EXPECT_EQ(open.readAll(open.open(language, UserAccess::kRead), &all).code, "");
    EXPECT_EQ(all.size(), 120u);
  }
}

TEST_F(UserStoreTest, EntriesBehindTheFiftiethAreChangedAndDeleted) {
  std::vector<UserEntry> entries;
  for (int i = 0; i < 60; ++i) {
    entries.push_back(japanese("き", "木"));
    entries.back().meaning = "tree " + std::to_string(i);
  }
  ASSERT_EQ(add(entries), "");
  UserStore open = store();
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.open(kJ, UserAccess::kWrite).code, "");
  ASSERT_EQ(open.findStored("き", &found).code, "");
  ASSERT_EQ(found.size(), 60u);
  ASSERT_EQ(open.remove(found[59]).code, "");
  EXPECT_EQ(open.remove(found[58]).code, "refused");  // its neighbour is gone
  ASSERT_EQ(open.findAgain(&found[58]).code, "");
  ASSERT_EQ(open.remove(found[58]).code, "");
  EXPECT_EQ(open.findAgain(&found[58]).code, "refused");
  UserEntry changed = entries[57];
  changed.meaning = "wood";
  ASSERT_EQ(open.findAgain(&found[57]).code, "");
  ASSERT_EQ(open.replace(found[57], changed).code, "");
  ASSERT_EQ(open.close().code, "");
  entries.resize(58);
  entries[57] = changed;
  EXPECT_EQ(find(kJ, "木"), entries);
}

// Both readings are filed under the same kana.
TEST_F(UserStoreTest, EntriesOfOneWrittenFormComeOnceEach) {
  const std::vector<UserEntry> dogs = {japanese("いぬ", "犬"), japanese("イヌ", "犬"),
                                       japanese("いヌ", "犬")};
  ASSERT_EQ(add(dogs), "");
  EXPECT_EQ(find(kJ, "犬"), dogs);
  EXPECT_EQ(find(kJ, "いぬ"), dogs);
}

TEST_F(UserStoreTest, ReplacingGoesOverToAnotherKeyAndAnotherForm) {
  ASSERT_EQ(add({kRich, english("bank", "土手")}), "");
  UserEntry shore = kRich;
  shore.word = "shore";
  UserStore open = store();
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.open(kE, UserAccess::kWrite).code, "");
  ASSERT_EQ(open.find("bank", &found).code, "");
  ASSERT_EQ(open.replace(found[0], shore).code, "");
  ASSERT_EQ(open.close().code, "");
  EXPECT_EQ(find(kE, "bank"), std::vector<UserEntry>{english("bank", "土手")});
  EXPECT_EQ(find(kE, "shore"), std::vector<UserEntry>{shore});

  ASSERT_EQ(add({japanese("いぬ", "犬")}), "");
  UserStore other = store();
  ASSERT_EQ(other.open(kJ, UserAccess::kWrite).code, "");
  ASSERT_EQ(other.find("犬", &found).code, "");
  ASSERT_EQ(other.replace(found[0], japanese("いぬ")).code, "");
  ASSERT_EQ(other.close().code, "");
  EXPECT_EQ(find(kJ, "いぬ"), std::vector<UserEntry>{japanese("いぬ")});
  EXPECT_EQ(find(kJ, "犬"), std::vector<UserEntry>{});
}

TEST_F(UserStoreTest, TooManyWordsOfOneBeginningAreRefusedAndTheRestStays) {
  std::vector<UserEntry> entries;
  for (char c = 'a'; c <= 'j'; ++c) entries.push_back(english("con" + std::string(7000, c)));
  UserStore open = store();
  ASSERT_EQ(open.open(kE, UserAccess::kWrite).code, "");
  for (size_t i = 0; i < 9; ++i) EXPECT_EQ(open.add(entries[i]).code, "") << i;
  const Failure failure = open.add(entries[9]);
  EXPECT_EQ(failure.code, "too_many_alike");
  EXPECT_EQ(failure.message, "too many of your words begin alike: there is no room for one more");
  EXPECT_EQ(open.close().code, "");
  EXPECT_EQ(words(kE).size(), 9u);
}

TEST_F(UserStoreTest, AnEntryThatIsTooLongIsRefused) {
  UserEntry entry = english("a", std::string(40000, 'm'));
  entry.examples = {{std::string(30000, 'e'), "あ"}};
  EXPECT_EQ(add({entry}), "too_long");
  EXPECT_EQ(words(kE), Strings{});
}

TEST_F(UserStoreTest, TheFolderIsTidyAfterASession) {
  ASSERT_EQ(add({kRich}), "");
  EXPECT_EQ(names(), (Strings{".lock", "myej.dic", "myej.idx", "myej.ix3", "myej.stamp"}));
}

// Whatever operation of adding fails, once or from then on: what was there is there, and what was reported as
// stored is there, too.
TEST_F(UserStoreTest, AFailingDiskLosesNothing) {
  for (const auto& [language, word] : {std::pair{kE, "zebra"}, std::pair{kJ, "しまうま"}}) {
    const UserEntry first = language == kE ? english("ant") : japanese("あり", "蟻");
    const UserEntry second = language == kE ? english(word) : japanese(word, "縞馬");
    ASSERT_EQ(add({first}), "");
    std::map<std::string, std::string> files;
    for (const std::string& name : names()) files[name] = bytes(name);
    for (const auto repeat : {test::FaultyStorage::kForEver, test::FaultyStorage::kOnce}) {
      long n = 1;
      for (;; ++n) {
        for (const std::string& name : names()) std::filesystem::remove(file(name));
        for (const auto& [name, content] : files) put(name, content);
        std::string code;
        long faults = 0;
        {
          test::FaultyStorage disk;
          disk.failAt(n, repeat);
          code = add({second});
          faults = disk.faults();
        }
        const Strings left = words(language);
        ASSERT_FALSE(left.empty()) << n;
        ASSERT_EQ(left[0], first.word) << n;
        ASSERT_EQ(find(language, first.word), std::vector<UserEntry>{first}) << n;
        if (code.empty() || left.size() > 1) {
          ASSERT_EQ(find(language, word), std::vector<UserEntry>{second}) << n;
        }
        if (faults == 0) break;
      }
      EXPECT_GT(n, 20);
    }
  }
}

// A disk that gets full: from the n-th on nothing more can be written, while names can still be changed.
class FullDisk : public Storage {
 public:
  explicit FullDisk(long n) : below_(storage()), previous_(setStorage(this)), left_(n) {}
  ~FullDisk() override { setStorage(previous_); }

  bool wasFull() const { return left_ < 0; }
  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override {
    auto file = below_.open(path, mode);
    return file ? std::make_unique<File>(this, std::move(file)) : nullptr;
  }
  std::unique_ptr<StorageFile> openTemporary(const std::string& folder, const std::string& prefix,
                                             std::string* path) override {
    auto file = below_.openTemporary(folder, prefix, path);
    return file ? std::make_unique<File>(this, std::move(file)) : nullptr;
  }
  bool exists(const std::string& path) override { return below_.exists(path); }
  bool isFolder(const std::string& path) override { return below_.isFolder(path); }
  bool remove(const std::string& path) override { return below_.remove(path); }
  bool rename(const std::string& from, const std::string& to) override { return below_.rename(from, to); }
  bool copy(const std::string& from, const std::string& to) override {
    return room() && below_.copy(from, to);
  }
  int makeFolder(const std::string& path) override { return below_.makeFolder(path); }
  bool syncFolder(const std::string& folder) override { return below_.syncFolder(folder); }

 private:
  class File : public StorageFile {
   public:
    File(FullDisk* disk, std::unique_ptr<StorageFile> below) : disk_(*disk), below_(std::move(below)) {}
    int64_t readAt(uint64_t offset, void* out, size_t length) override {
      return below_->readAt(offset, out, length);
    }
    bool writeAt(uint64_t offset, std::string_view bytes) override {
      return disk_.room() && below_->writeAt(offset, bytes);
    }
    int64_t size() override { return below_->size(); }
    bool truncate(uint64_t length) override { return below_->truncate(length); }
    bool sync() override { return below_->sync(); }
    bool close() override { return below_->close(); }

   private:
    FullDisk& disk_;
    std::unique_ptr<StorageFile> below_;
  };

  bool room() { return --left_ >= 0; }

  Storage& below_;
  Storage* previous_;
  long left_;
};

// Whenever the disk gets full while the files are being rewritten or saved: nothing is left behind, and the
// next reader finds every word while it still is full.
TEST_F(UserStoreTest, AFullDiskLocksNoWordsAway) {
  for (const auto language : {kE, kJ}) {
    const bool inEnglish = language == kE;
    for (const char* word : {"ant", "antler", "bee"}) {
      ASSERT_EQ(add({inEnglish ? english(word) : japanese(word[0] == 'a' ? "あり" : "はち", "蟻")}), "");
    }
    const Strings all = words(language);
    const std::vector<UserEntry> first = find(language, all[0]);
    for (const bool arranging : {true, false}) {
      std::map<std::string, std::string> files;
      for (const std::string& name : names()) files[name] = bytes(name);
      long n = 1;
      for (;; ++n) {
        FullDisk disk(n);
        UserStore open = store();
        Failure failure = open.open(language, UserAccess::kWrite);
        if (!failure)
          failure = arranging ? open.arrange() : open.add(inEnglish ? english("cat") : japanese("ねこ"));
        if (Failure notStored = open.close(); !failure) failure = notStored;
        if (!disk.wasFull()) break;
        if (!failure) {  // only the stamp could not be written: the change is on the disk
          EXPECT_FALSE(exists(inEnglish ? "myej.stamp" : "myje.stamp")) << n;
          EXPECT_EQ(words(language).size(), all.size() + (arranging ? 0 : 1)) << n;
          break;
        }
        ASSERT_EQ(failure.code, "not_stored") << n << failure.message;
        ASSERT_TRUE(failure.message.ends_with("files in " + place().folder() + " can't be written"))
            << n << failure.message;
        ASSERT_FALSE(UserRecovery(place(), language).needed()) << n;
        ASSERT_EQ(words(language), all) << n;
        ASSERT_EQ(find(language, all[0]), first) << n;
        for (const auto& [name, content] : files) {
          // What an addition that failed had appended is dead.
          ASSERT_TRUE(arranging ? bytes(name) == content : bytes(name).starts_with(content)) << n << name;
        }
      }
      EXPECT_GT(n, 3) << arranging;
    }
  }
}

// The same for any failure from which the disk gets well again.
TEST_F(UserStoreTest, ArrangingThatFailsOnceLeavesNothingToBeDone) {
  for (const auto language : {kE, kJ}) {
    ASSERT_EQ(add({language == kE ? english("ant") : japanese("あり", "蟻")}), "");
    ASSERT_EQ(add({language == kE ? english("bee") : japanese("はち", "蜂")}), "");
    for (long n = 1;; ++n) {
      UserStore open = store();
      ASSERT_EQ(open.open(language, UserAccess::kWrite).code, "") << n;
      long faults = 0;
      {
        test::FaultyStorage disk;
        disk.failAt(n);
        open.arrange();
        faults = disk.faults();
      }
      ASSERT_EQ(open.close().code, "") << n;
      for (const std::string& name : names()) {
        ASSERT_TRUE(name == ".lock" || (name.starts_with("my") && name.size() <= 10)) << n << name;
      }
      ASSERT_EQ(words(language).size(), 2u) << n;
      ASSERT_FALSE(UserRecovery(place(), language).needed()) << n;
      if (faults == 0) break;
    }
  }
}

TEST_F(UserStoreTest, AFullDiskIsToldWithTheFolder) {
  ASSERT_EQ(add({english("ant")}), "");
  UserStore open = store();
  ASSERT_EQ(open.open(kE, UserAccess::kWrite).code, "");
  test::FaultyStorage disk;
  disk.failAt(1, test::FaultyStorage::kForEver);
  const Failure failure = open.add(english("bee"));
  EXPECT_EQ(failure.status, kExitEnvironment);
  EXPECT_EQ(failure.message,
            "adding \"bee\" failed: your English entries in " + place().folder() + " can't be opened");
}

TEST_F(UserStoreTest, ADamagedEntryIsToldAndNothingOverwritten) {
  ASSERT_EQ(add({english("ant")}), "");
  const std::string whole = bytes("myej.ix3");
  put("myej.ix3", whole.substr(0, 130));
  const std::string damaged =
      "your English entries in " + place().folder() + " are damaged: myej.ix3 ends too soon";
  UserStore open = store();
  std::vector<StoredEntry> found;
  ASSERT_EQ(open.open(kE, UserAccess::kRead).code, "");
  const Failure failure = open.find("ant", &found);
  EXPECT_EQ(failure.status, kExitDamaged) << failure.message;
  EXPECT_EQ(failure.message, "searching \"ant\" failed: " + damaged);
  EXPECT_EQ(open.check().message, damaged + "; no backup stands there, nothing was changed");
  EXPECT_EQ(open.close().code, "");
  EXPECT_EQ(add({english("bee")}), "damaged_user_dictionary");
  EXPECT_EQ(bytes("myej.ix3"), whole.substr(0, 130));
}

// A word that is found where another one was: what a file of nothing but zeros would come to.
TEST_F(UserStoreTest, NothingIsAddedToAFileOfZeros) {
  ASSERT_EQ(add({english("grok")}), "");
  const std::string zeros(bytes("myej.dic").size(), '\0');
  put("myej.dic", zeros);
  EXPECT_EQ(add({english("bee")}), "damaged_user_dictionary");
  EXPECT_EQ(bytes("myej.dic"), zeros);
}

}  // namespace
}  // namespace zavel::host
