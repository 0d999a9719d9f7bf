// Compacting user sets.
#include "engine/Arrange.h"
#include "engine/DicFormat.h"
#include "engine/RamDicFixture.h"
#include "support/FaultyStorage.h"

namespace zavel::engine {
namespace {

using test::entryE;
using test::entryJ;
using test::sjis;
using namespace std::string_literals;

const std::string kHeader(128, '\0');

class ArrangeUserDicTest : public RamDicTest {
 protected:
  static constexpr int kFilesOfBoth = 8;
};

TEST_F(ArrangeUserDicTest, AnEmptySetIsItsHeaders) {
  ASSERT_EQ(ArrangeUserDicE(), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  for (const char* name : {"ej.dic", "ej.ix3", "je.dic", "kna.ix3", "kji.ix3"})
    EXPECT_EQ(File(name), kHeader) << name;
  EXPECT_EQ(Files().size(), 8u) << "no backup and no temporary file is left";
  Reopen();
}

TEST_F(ArrangeUserDicTest, AllDeletedIsTheHeadersToo) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  const auto english = FindE("cat");
  const auto japanese = FindJ("ねこ");
  ASSERT_EQ(DelUserDicE(&english[0].sikibetu), 1);
  ASSERT_EQ(DelUserDicJ(&japanese[0].kana, &japanese[0].kanji), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  for (const char* name : {"ej.dic", "ej.ix3", "je.dic", "kna.ix3", "kji.ix3"})
    EXPECT_EQ(File(name), kHeader) << name;
  Reopen();
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
}

// Blocks and entries come in the order of the index, each once, the header ahead of them kept.
TEST_F(ArrangeUserDicTest, KeepsWhatIsAliveAndNothingElse) {
  ASSERT_EQ(EndAPI(), 1);
  std::string header = kHeader;
  header.replace(0, 5, "owner");
  SetFile("ej.dic", header);
  SetFile("ej.ix3", header);
  ASSERT_EQ(OpenBoth(), 1);
  for (const char* word : {"dog", "cats", "cat", "cat", "gone"})
    ASSERT_EQ(Add(EntryE{.word = word, .imi = "old"}), 1);
  auto found = FindE("gone");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  found = FindE("cat");
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = "new"}, &found[0].sikibetu), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  // Rows in the order of the index: cat, cat, cats; dog.
  const auto text = [](const std::string& word, const std::string& imi) {
    return "\xF5\xD1\xF5\xB1" + word + "\xF5\xC1\n\xF5\xD3-[\x96\xBC]\n\xF5\xD4" + imi + "\n";
  };
  EXPECT_EQ(File("ej.dic"),
            header + text("cat", "new") + text("cat", "old") + text("cats", "old") + text("dog", "old"));
  // 24 bytes for an entry of three letters and three bytes of meaning.
  EXPECT_EQ(File("ej.ix3"),
            header + test::writeBlock({"", "", "s"}, {128, 152, 176}) + test::writeBlock({""}, {201}));
  EXPECT_EQ(ListE(), (std::vector<std::string>{"cat", "cats", "dog"}));
  Reopen();
  EXPECT_EQ(FindE("cat")[0].entry.imi, "new");
  EXPECT_EQ(FindE("cat")[1].entry.imi, "old");
  const auto files = disk_.files();
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_TRUE(disk_.files() == files) << "what is in order stays";
}

// Both Japanese indexes lead to the entries where the kana index has put them.
TEST_F(ArrangeUserDicTest, BothJapaneseIndexesFollow) {
  const std::pair<const char*, const char*> words[] = {
      {"わ", "輪"}, {"ねこ", "猫"}, {"あ", ""}, {"びょう", "猫"}};
  for (const auto& [kana, kanji] : words) ASSERT_EQ(Add(EntryJ{.kana = kana, .kanji = kanji, .imi = "x"}), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  // あ ねこ びょう わ: 0xA0, 0xCB, 0xD1, 0xED.
  EXPECT_EQ(Body("je.dic"), entryJ("あ", "", "x") + entryJ("ねこ", "猫", "x") + entryJ("びょう", "猫", "x") +
                                entryJ("わ", "輪", "x"));
  // 9 bytes, then 14, then 16.
  EXPECT_EQ(Body("kna.ix3"), test::writeBlock({""}, {128}) + test::writeBlock({""}, {137}) +
                                 test::writeBlock({"\xA4"}, {151}) + test::writeBlock({""}, {167}));
  EXPECT_EQ(Body("kji.ix3"), test::writeBlock({"", ""}, {137, 151}) + test::writeBlock({""}, {167}))
      << "猫 944C, 輪 97D6";
  for (const auto& [kana, kanji] : words) {
    const auto found = FindJ(kana);
    ASSERT_EQ(found.size(), 1u) << kana;
    EXPECT_EQ(found[0].entry.kanji, kanji);
    EXPECT_EQ(found[0].kanji.pos1 == 0xFFFF, std::string(kanji).empty());
  }
}

TEST_F(ArrangeUserDicTest, ABlockWithoutRowsIsDropped) {
  WriteSetE({{"cat", entryE("cat", "名", "猫")}});
  ASSERT_EQ(EndAPI(), 1);
  SetFile("ej.ix3", kHeader + "\0\0\x04\0"s);
  ASSERT_EQ(OpenBoth(), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(File("ej.ix3"), kHeader);
  EXPECT_EQ(File("ej.dic"), kHeader);
  EXPECT_EQ(File("ej.idx").substr(File("ej.idx").size() - 5), "t\0\0\0\0"s);
  EXPECT_EQ(Add(EntryE{.word = "cat"}), 1);
}

TEST_F(ArrangeUserDicTest, EveryContinuationIndexIsFollowed) {
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  SetFile("001.idx", File("kji.idx"));
  SetFile("kji.idx", std::string(10, '\0') + "\x01" + std::string(117, '\0') + Le32(0) + Le32(136) + Le32(0));
  ASSERT_EQ(OpenBoth(), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "とり", .kanji = "鳥"}), 1);
  auto dog = FindJ("いぬ");
  ASSERT_EQ(DelUserDicJ(&dog[0].kana, &dog[0].kanji), 1);
  ASSERT_EQ(ArrangeUserDicJ(), 1);
  EXPECT_EQ(Files().size(), 9u);
  // とり 0xC6, ねこ 0xCB; entries of 20 bytes with "meaning"; kji.idx comes ahead of 001.idx.
  EXPECT_EQ(Body("kji.ix3"), test::writeBlock({""}, {128}) + test::writeBlock({""}, {148}));
  Reopen();
  EXPECT_EQ(FindJ("とり")[0].kanji.fileNo, 0);
  EXPECT_EQ(FindJ("とり")[0].kanji.ix3Offset, 128u);
  EXPECT_EQ(FindJ("ねこ")[0].kanji.fileNo, 1);
  EXPECT_EQ(FindJ("ねこ")[0].kanji.ix3Offset, 141u);
  // 犬 (8CA2) keeps its row in the continuation index, without a block.
  EXPECT_EQ(Body("001.idx"), Le32(8) + Le32(144) + "\x8C\xA2\0\0\x94\x4C\x01\0"s + Le32(12) + "\0\0"s +
                                 Le32(0) + "\0\0"s + Le32(141));
}

// The backups are the set as it was; nothing is saved over it, and the rest of the engine's sets is.
TEST_F(ArrangeUserDicTest, AKanjiRowWithoutItsEntryIs20AndTheBackupsStay) {
  const std::string cat = entryJ("ねこ", "猫", "cat"), lost = entryJ("いぬ", "犬", "dog");
  WriteSetJ({{"ねこ", cat}}, {{"猫", cat}, {"犬", lost}});
  ASSERT_EQ(EndAPI(), 1);
  const auto before = disk_.files();
  ASSERT_EQ(OpenBoth(), 1);
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  EXPECT_EQ(ArrangeUserDicJ(), 20);
  for (const char* name : {"je.dic", "kna.ix3", "kji.ix3", "kna.idx", "kji.idx"}) {
    EXPECT_TRUE(File(name + ".arrbkp"s) == before.at("u"s + name)) << name;
  }
  EXPECT_EQ(Files().size(), 8u + 5) << "temporary files are gone";
  // The set takes no work until it is opened anew.
  Status status = 1;
  EXPECT_EQ(Add(EntryJ{.kana = "ねこ"}), 20);
  FindJ("ねこ", &status);
  EXPECT_EQ(status, 20);
  ListJ(&status);
  EXPECT_EQ(status, 20);
  sikibetu_data any{};
  EXPECT_EQ(DelUserDicJ(&any, &any), 20);
  EXPECT_EQ(ArrangeUserDicJ(), 20);
  EXPECT_EQ(EndAPI(), 20);
  Recover();
  for (const char* name : {"je.dic", "kna.ix3", "kji.ix3", "kna.idx", "kji.idx"}) {
    EXPECT_TRUE(File(name) == before.at("u"s + name)) << name;
  }
  ASSERT_EQ(OpenBoth(), 1);
  EXPECT_EQ(FindJ("ねこ").size(), 1u);
  EXPECT_EQ(ListE(), std::vector<std::string>{"cat"}) << "what was added to the other set was saved";
}

TEST_F(ArrangeUserDicTest, ARowWhereNoEntryBeginsIs20) {
  WriteSetE({{"cat", entryE("cat", "名", "猫")}, {"dog", "no entry\n"}});
  EXPECT_EQ(ArrangeUserDicE(), 20);
  EXPECT_TRUE(Exists("ej.idx.arrbkp"));
}

TEST_F(ArrangeUserDicTest, ADamagedBlockIs20AndACutOne21) {
  const std::string text = entryE("cat", "名", "猫");
  for (const auto& [block, status] :
       {std::pair("\x01\0\x0D\0\x05\0\0\0\0\0\0\0\0"s, 20), {"\x01\0\x0D\0"s, 21}}) {
    WriteSetE({{"cat", text}});
    ASSERT_EQ(EndAPI(), 1);
    SetFile("ej.ix3", kHeader + block);
    const auto before = disk_.files();
    ASSERT_EQ(OpenBoth(), 1);
    EXPECT_EQ(ArrangeUserDicE(), status);
    EXPECT_EQ(EndAPI(), 20);
    Recover();
    EXPECT_TRUE(disk_.files() == before);
    ASSERT_EQ(OpenBoth(), 1);
  }
}

// Backups that an earlier failure left beside a set which was then used on tell nothing.
TEST_F(ArrangeUserDicTest, OldBackupsAreReplaced) {
  for (const char* name : {"ej.dic", "ej.ix3", "ej.idx"}) SetFile(name + ".arrbkp"s, "old");
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(Files().size(), 8u);
}

// A disk that copies and says that it has not, as one does that can't be synced afterwards.
class LateDisk : public test::FaultyStorage {
 public:
  bool copy(const std::string& from, const std::string& to) override {
    const bool copied = test::FaultyStorage::copy(from, to);
    return copied && !to.ends_with("ej.idx.arrbkp");
  }
};

// The first backup tells that the others count. Where it stands though arranging was given up, what is saved
// later would be taken back.
TEST_F(ArrangeUserDicTest, AFirstBackupThatFailsLateIsTakenAway) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  {
    LateDisk disk;
    EXPECT_EQ(ArrangeUserDicE(), 21);
  }
  EXPECT_FALSE(Exists("ej.idx.arrbkp"));
  ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
  ASSERT_EQ(EndAPI(), 1);
  Recover();
  ASSERT_EQ(OpenBoth(), 1);
  EXPECT_EQ(ListE(), (std::vector<std::string>{"cat", "dog"}));
}

TEST_F(ArrangeUserDicTest, ASetThatWasNotOpenedOrIsGone) {
  ASSERT_EQ(EndAPI(), 1);
  EXPECT_EQ(ArrangeUserDicE(), 20) << "closed: no streams";
  EXPECT_EQ(ArrangeUserDicJ(), 20);
  ASSERT_EQ(OpenE(), 1);
  EXPECT_EQ(ArrangeUserDicJ(), 259);
  ASSERT_EQ(EndAPI(), 1);
  ASSERT_EQ(OpenJ(), 1);
  EXPECT_EQ(ArrangeUserDicE(), 258);
  disk_.removeFile("ukji.ix3");
  EXPECT_EQ(ArrangeUserDicJ(), 21);
}

TEST(GetNewOffset, FindsAMoveOrSays20) {
  const EntryMoves moves = {{128, 500}, {140, 128}, {0xFFFFFFF0, 7}};
  uint32_t offset = 1;
  EXPECT_EQ(GetNewOffset(moves, 128, &offset), 1);
  EXPECT_EQ(offset, 500u);
  EXPECT_EQ(GetNewOffset(moves, 140, &offset), 1);
  EXPECT_EQ(offset, 128u);
  EXPECT_EQ(GetNewOffset(moves, 0xFFFFFFF0, &offset), 1);
  EXPECT_EQ(offset, 7u);
  for (const uint32_t missing : {0u, 127u, 129u, 500u, 0xFFFFFFFFu})
    EXPECT_EQ(GetNewOffset(moves, missing, &offset), 20);
  EXPECT_EQ(GetNewOffset({}, 128, &offset), 20);
}

TEST(CompareOffsets, OrdersAllOfThirtyTwoBits) {
  EXPECT_LT(compare(0, 0xFFFFFFFF), 0);
  EXPECT_GT(compare(0xFFFFFFFF, 0x7FFFFFFF), 0);
  EXPECT_EQ(compare(5, 5), 0);
  EXPECT_LT(compareLoHiChange({1, 9}, {2, 0}), 0);
  EXPECT_EQ(compareLoHiChange({1, 9}, {1, 0}), 0);
}

TEST_F(ArrangeUserDicTest, ChangeIdx1DataKeepsToItsTable) {
  EXPECT_EQ(ChangeIdx1Data(1, 0, 18278, kTypeE), 20);
  EXPECT_EQ(ChangeIdx1Data(1, 0, 6972, kTypeKana), 20);
  EXPECT_EQ(ChangeIdx1Data(1, 0, 0, kTypeKji), 20) << "empty";
  EXPECT_EQ(ChangeIdx1Data(1, 1, 0, kTypeKji), 20) << "not loaded";
  EXPECT_EQ(ChangeIdx1Data(1, 0, 0, kTypeHase), 20);
}

}  // namespace
}  // namespace zavel::engine
