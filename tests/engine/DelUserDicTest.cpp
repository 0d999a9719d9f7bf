// Deleting user entries, and identifications that are no longer current.
#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using test::entryJ;
using test::sjis;

class DelUserDicTest : public RamDicTest {
 protected:
  // Deleting and overwriting refuse an identification, and leave all as it was.
  void RefusedE(sikibetu_data sikibetu, const std::string& word = "cat", Status status = 18) {
    const auto files = disk_.files();
    EXPECT_EQ(DelUserDicE(&sikibetu), status);
    EXPECT_EQ(Add(EntryE{.word = word}, &sikibetu), status);
    EXPECT_TRUE(disk_.files() == files);
  }
  void RefusedJ(sikibetu_data kana, sikibetu_data kanji, const EntryJ& entry, Status status = 18) {
    const auto files = disk_.files();
    EXPECT_EQ(DelUserDicJ(&kana, &kanji), status);
    EXPECT_EQ(Add(entry, &kana, &kanji), status);
    EXPECT_TRUE(disk_.files() == files);
  }
  sikibetu_data AddCat(const std::string& imi = "猫") {
    EXPECT_EQ(Add(EntryE{.word = "cat", .imi = imi}), 1);
    return FindE("cat").back().sikibetu;
  }
};

TEST_F(DelUserDicTest, TheOnlyEntryOfItsBlock) {
  const sikibetu_data cat = AddCat();
  EXPECT_EQ(DelUserDicE(&cat), 1);
  EXPECT_TRUE(FindE("cat").empty());
  EXPECT_TRUE(ListE().empty());
  RefusedE(cat);
  Reopen();
  EXPECT_TRUE(FindE("cat").empty());
  RefusedE(cat);
  AddCat();
  EXPECT_EQ(FindE("cat").size(), 1u);
}

TEST_F(DelUserDicTest, OneOfSeveralLeavesTheOthersInOrder) {
  for (const char* imi : {"1", "2", "3", "4"}) AddCat(imi);
  for (const size_t row : {1u, 2u, 0u}) {  // middle, last, first
    const auto found = FindE("cat");
    ASSERT_EQ(DelUserDicE(&found[row].sikibetu), 1);
  }
  const auto left = FindE("cat");
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(left[0].entry.imi, "3");
}

TEST_F(DelUserDicTest, JapaneseGoesFromBothIndexes) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫", .imi = "a"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ネコ", .kanji = "猫", .imi = "b"}), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .imi = "c"}), 1);
  auto found = FindJ("ねこ");
  ASSERT_EQ(DelUserDicJ(&found[0].kana, &found[0].kanji), 1);
  uint32_t size = 0;
  Handle list = nullptr;
  std::string kanji = sjis("猫");
  ASSERT_EQ(SerchImiJ(kanji.data(), nullptr, 0, &size, &list, 2), 1);
  EXPECT_EQ(test::takeEntries(list, size), std::vector<std::string>{entryJ("ネコ", "猫", "b")});
  found = FindJ("ねこ");
  ASSERT_EQ(found.size(), 2u);
  ASSERT_EQ(DelUserDicJ(&found[1].kana, &found[1].kanji), 1) << "no kanji";
  found = FindJ("ねこ");
  ASSERT_EQ(DelUserDicJ(&found[0].kana, &found[0].kanji), 1);
  ASSERT_EQ(SerchImiJ(kanji.data(), nullptr, 0, &size, &list, 2), 1);
  EXPECT_EQ(size, 0u);
  Reopen();
  EXPECT_TRUE(ListJ().empty());
}

// A null pointer is told before a file is opened; an entry to add is looked at afterwards.
TEST_F(DelUserDicTest, NullIs18AlsoWhereTheFilesAreGone) {
  sikibetu_data any{};
  for (const bool gone : {false, true}) {
    EXPECT_EQ(DelUserDicE(nullptr), 18);
    EXPECT_EQ(DelUserDicJ(nullptr, &any), 18);
    EXPECT_EQ(DelUserDicJ(&any, nullptr), 18);
    EXPECT_EQ(DelUserDicE(&any), gone ? 258 : 18);
    EXPECT_EQ(DelUserDicJ(&any, &any), gone ? 259 : 18);
    EXPECT_EQ(AddUserDicE(nullptr), gone ? 258 : 18);
    EXPECT_EQ(AddUserDicJ(nullptr), gone ? 259 : 18);
    disk_.removeFile("uej.dic");
    disk_.removeFile("uje.dic");
  }
}

// --- Identifications that have gone stale ---

TEST_F(DelUserDicTest, AnotherAddToTheBlockMakesIdentificationsStale) {
  const sikibetu_data cat = AddCat();
  ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
  ASSERT_EQ(Add(EntryE{.word = "cat"}, nullptr), 1);
  RefusedE(cat);
  const sikibetu_data fresh = FindE("cat")[0].sikibetu;
  ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
  EXPECT_EQ(DelUserDicE(&fresh), 1) << "another block is no matter";
}

TEST_F(DelUserDicTest, DeletingAndOverwritingMakeThoseOfTheBlockStale) {
  AddCat("1");
  AddCat("2");
  AddCat("3");
  auto found = FindE("cat");
  ASSERT_EQ(DelUserDicE(&found[1].sikibetu), 1);
  for (const FoundE& stale : found) RefusedE(stale.sikibetu);
  found = FindE("cat");
  ASSERT_EQ(Add(EntryE{.word = "cat", .imi = "新"}, &found[0].sikibetu), 1);
  for (const FoundE& stale : found) RefusedE(stale.sikibetu);
}

TEST_F(DelUserDicTest, ArrangingMakesThemStale) {
  AddCat();
  ASSERT_EQ(Add(EntryE{.word = "dog"}), 1);
  const sikibetu_data dog = FindE("dog")[0].sikibetu;
  const sikibetu_data cat = FindE("cat")[0].sikibetu;
  ASSERT_EQ(DelUserDicE(&cat), 1);
  ASSERT_EQ(ArrangeUserDicE(), 1);
  RefusedE(dog, "dog");
  const sikibetu_data fresh = FindE("dog")[0].sikibetu;
  EXPECT_EQ(DelUserDicE(&fresh), 1);
}

// Where nothing was dead, all stays where it was, and what an identification says still holds.
TEST_F(DelUserDicTest, ArrangingWhatIsInOrderLeavesThemCurrent) {
  const sikibetu_data cat = AddCat();
  ASSERT_EQ(ArrangeUserDicE(), 1);
  EXPECT_EQ(DelUserDicE(&cat), 1);
}

TEST_F(DelUserDicTest, ReopeningLeavesThemCurrent) {
  const sikibetu_data cat = AddCat();
  Reopen();
  EXPECT_EQ(DelUserDicE(&cat), 1);
}

TEST_F(DelUserDicTest, EveryFieldOfAnEnglishOneCounts) {
  AddCat("1");
  AddCat("2");
  const sikibetu_data good = FindE("cat")[1].sikibetu;
  const auto refused = [&](auto change) {
    sikibetu_data bad = good;
    change(bad);
    RefusedE(bad);
  };
  refused([](sikibetu_data& s) { s.pos1 = 0xFFFF; });
  refused([](sikibetu_data& s) { s.pos3 += 1; });
  refused([](sikibetu_data& s) { s.pos3 = 0xFFFF; });
  refused([](sikibetu_data& s) { s.pos3 = 18278; });  // one row behind the last
  refused([](sikibetu_data& s) { s.ix3Offset = 0; });
  refused([](sikibetu_data& s) { s.ix3Offset = 128; });
  refused([](sikibetu_data& s) { s.ix3Offset = 0xFFFFFFFF; });
  refused([](sikibetu_data& s) { s.ix3Size += 1; });
  refused([](sikibetu_data& s) { s.ix3Count = 1; });
  refused([](sikibetu_data& s) { s.ix3Count = 3; });
  refused([](sikibetu_data& s) { s.ix3Index = 0; });
  refused([](sikibetu_data& s) { s.ix3Index = 2; });
  refused([](sikibetu_data& s) { s.ix3Index = 0xFFFF; });
  refused([](sikibetu_data& s) { s.dicOffset = 128; });
  refused([](sikibetu_data& s) { s.dicOffset = 0; });
  refused([](sikibetu_data& s) { s = sikibetu_data{}; });
  // To overwrite, the rows of the first two tables are compared with those of the word, too.
  for (const auto field : {&sikibetu_data::pos1, &sikibetu_data::pos2}) {
    sikibetu_data bad = good;
    bad.*field += 1;
    EXPECT_EQ(Add(EntryE{.word = "cat"}, &bad), 18);
  }
  sikibetu_data kept = good;
  EXPECT_EQ(DelUserDicE(&kept), 1);
  EXPECT_EQ(kept.ix3Offset, good.ix3Offset) << "the caller's record isn't written";
  EXPECT_EQ(kept.ix3Count, good.ix3Count);
}

TEST_F(DelUserDicTest, EveryFieldOfAKanjiOneCounts) {
  const EntryJ entry{.kana = "ねこ", .kanji = "猫"};
  for (int i = 0; i < 3; ++i) ASSERT_EQ(Add(entry), 1);
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);
  const FoundJ good = FindJ("ねこ")[1];
  const auto refused = [&](auto change) {
    sikibetu_data bad = good.kanji;
    change(bad);
    RefusedJ(good.kana, bad, entry);
  };
  refused([](sikibetu_data& s) { s.fileNo = 1; });
  refused([](sikibetu_data& s) { s.pos1 = 0; });
  refused([](sikibetu_data& s) { s.pos1 = 0xFFFF; });
  refused([](sikibetu_data& s) { s.pos3 = 0; });
  refused([](sikibetu_data& s) { s.ix3Offset += 1; });
  refused([](sikibetu_data& s) { s.ix3Offset = 0; });
  refused([](sikibetu_data& s) { s.ix3Size += 1; });
  refused([](sikibetu_data& s) { s.ix3Count -= 1; });
  refused([](sikibetu_data& s) { s.ix3Index = 0; });
  refused([](sikibetu_data& s) { s.ix3Index = 2; });
  refused([](sikibetu_data& s) { s.dicOffset += 1; });
  refused([](sikibetu_data& s) { s = sikibetu_data{}; });
  refused([&](sikibetu_data& s) { s = FindJ("いぬ")[0].kanji; });
  refused([&](sikibetu_data& s) { s = FindJ("ねこ")[0].kanji; });
  refused([&](sikibetu_data& s) { s = good.kana; });
  RefusedJ(FindJ("いぬ")[0].kana, good.kanji, entry);
  RefusedJ(good.kanji, good.kana, entry);
  EXPECT_EQ(DelUserDicJ(&good.kana, &good.kanji), 1);
}

TEST_F(DelUserDicTest, AKanaOneWithoutKanjiWantsOneThatSaysSo) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ"}), 1);
  const FoundJ good = FindJ("ねこ")[0];
  sikibetu_data zero{};
  EXPECT_EQ(DelUserDicJ(&good.kana, &zero), 18);
  sikibetu_data none = good.kanji;
  none.ix3Offset = 77;
  none.dicOffset = 99;
  EXPECT_EQ(DelUserDicJ(&good.kana, &none), 1) << "its other fields say nothing";
}

TEST_F(DelUserDicTest, AChangeInTheKanjiIndexAloneMakesItStale) {
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  const FoundJ cat = FindJ("ねこ")[0];
  ASSERT_EQ(Add(EntryJ{.kana = "びょう", .kanji = "猫"}), 1);
  RefusedJ(cat.kana, cat.kanji, {.kana = "ねこ", .kanji = "猫"});
  const FoundJ fresh = FindJ("ねこ")[0];
  EXPECT_EQ(fresh.kana.ix3Offset, cat.kana.ix3Offset);
  ASSERT_EQ(Add(EntryJ{.kana = "いぬ", .kanji = "犬"}), 1);  // a row ahead of 猫
  RefusedJ(fresh.kana, fresh.kanji, {.kana = "ねこ", .kanji = "猫"});
}

TEST_F(DelUserDicTest, OfAnotherSetOrTypeTheyAre18) {
  const sikibetu_data cat = AddCat();
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ", .kanji = "猫"}), 1);
  const FoundJ neko = FindJ("ねこ")[0];
  RefusedE(neko.kana);
  RefusedE(neko.kanji);
  EXPECT_EQ(DelUserDicJ(&cat, &cat), 18);
  EXPECT_EQ(DelUserDicJ(&cat, &neko.kanji), 18);
}

// An entry that names kanji without a row can't be proved to be whole.
TEST_F(DelUserDicTest, AnEntryWhoseKanjiKeyIsMissingIs20) {
  const std::string text = entryJ("ねこ", "猫", "cat");
  WriteSetJ({{"ねこ", text}}, {});
  const FoundJ found = FindJ("ねこ")[0];
  EXPECT_EQ(DelUserDicJ(&found.kana, &found.kanji), 20);
  WriteSetJ({{"ねこ", text}}, {{"猫", entryJ("びょう", "猫", "x")}});
  const FoundJ other = FindJ("ねこ")[0];
  EXPECT_EQ(DelUserDicJ(&other.kana, &other.kanji), 1) << "the key is there, a row of this entry isn't";
}

}  // namespace
}  // namespace zavel::engine
