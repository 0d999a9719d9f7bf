// The blocks that changes append to the .ix3 files, byte for byte, and their limits.
#include "engine/Ix3Update.h"

#include "engine/DicFormat.h"
#include "engine/RamDicFixture.h"

namespace zavel::engine {
namespace {

using namespace std::string_literals;

class Ix3UpdateTest : public RamDicTest {
 protected:
  // What was appended to a file since the last call for it.
  std::string Appended(const std::string& name) {
    const std::string bytes = File(name);
    const size_t from = std::exchange(seen_.try_emplace(name, 128).first->second, bytes.size());
    return bytes.substr(from);
  }
  // Where the next entry will stand.
  uint32_t DicEnd(const std::string& name) const { return static_cast<uint32_t>(File(name).size()); }

  std::map<std::string, size_t> seen_;
};

TEST_F(Ix3UpdateTest, EachChangeAppendsItsBlock) {
  ASSERT_EQ(Add(EntryE{.word = "cats"}), 1);
  const uint32_t first = 128;
  EXPECT_EQ(Appended("ej.ix3"),
            "\x01\0\x0E\0"
            "\0\0"
            "\x01\0s\0"s +
                Le32(first))
      << "a new block: 13 bytes and the remainder";

  const uint32_t second = DicEnd("ej.dic");
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x02\0\x17\0"
            "\0\0\x03\0"
            "\0\0\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(first))
      << "an empty remainder comes first and moves the other by three";

  const uint32_t third = DicEnd("ej.dic");
  ASSERT_EQ(Add(EntryE{.word = "CATS"}), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x03\0\x21\0"
            "\0\0\x03\0\x07\0"
            "\0\0\0"
            "\x01\0s\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(first) + Le32(third))
      << "behind the row that equals it";

  const uint32_t fourth = DicEnd("ej.dic");
  ASSERT_EQ(Add(EntryE{.word = "catalog"}), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x04\0\x2E\0"
            "\0\0\x03\0\x0A\0\x0E\0"
            "\0\0\0"
            "\x04\0"
            "alog\0"
            "\x01\0s\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(fourth) + Le32(first) + Le32(third))
      << "in the middle: 46 bytes, the rows behind it moved by seven";

  auto found = FindE("cats");
  const uint32_t fifth = DicEnd("ej.dic");
  ASSERT_EQ(Add(EntryE{.word = "cats", .imi = "新"}, &found[1].sikibetu), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x04\0\x2E\0"
            "\0\0\x03\0\x0A\0\x0E\0"
            "\0\0\0"
            "\x04\0"
            "alog\0"
            "\x01\0s\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(fourth) + Le32(first) + Le32(fifth))
      << "overwriting changes one entry offset";

  found = FindE("catalog");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x03\0\x21\0"
            "\0\0\x03\0\x07\0"
            "\0\0\0"
            "\x01\0s\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(first) + Le32(fifth))
      << "deleting takes its 13 bytes, rows behind it go back by seven";

  found = FindE("cats");
  ASSERT_EQ(DelUserDicE(&found[1].sikibetu), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x02\0\x17\0"
            "\0\0\x03\0"
            "\0\0\0"
            "\x01\0s\0"s +
                Le32(second) + Le32(first));

  found = FindE("cat");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(Appended("ej.ix3"),
            "\x01\0\x0E\0"
            "\0\0"
            "\x01\0s\0"s +
                Le32(first));

  found = FindE("cats");
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(Appended("ej.ix3"), "") << "the last row leaves no block";
}

// Readings are filed by one byte for each kana, written forms by two for each character.
TEST_F(Ix3UpdateTest, JapaneseEntriesGetABlockInBothFiles) {
  ASSERT_EQ(Add(EntryJ{.kana = "ネーこや", .kanji = "猫屋敷"}), 1);
  EXPECT_EQ(Appended("kna.ix3"),
            "\x01\0\x0E\0"
            "\0\0"
            "\x01\0\xE2\0"s +
                Le32(128));
  EXPECT_EQ(Appended("kji.ix3"),
            "\x01\0\x0F\0"
            "\0\0"
            "\x02\0\x95\x7E\0"s +
                Le32(128));
  const uint32_t second = DicEnd("je.dic");
  ASSERT_EQ(Add(EntryJ{.kana = "ねこ"}), 1);
  EXPECT_EQ(Appended("kna.ix3"),
            "\x02\0\x17\0"
            "\0\0\x03\0"
            "\0\0\0"
            "\x01\0\xE2\0"s +
                Le32(second) + Le32(128));
  EXPECT_EQ(Appended("kji.ix3"), "") << "no written form";
}

// The index leads to the newest block once it is saved.
TEST_F(Ix3UpdateTest, TheIndexPointsAtTheNewestBlock) {
  const size_t tableC = 2332;
  // c: 2 letters of 703 rows ahead of it; a: the ended row and one pair of 27; t: the ended row and 19
  // letters.
  const size_t row = 2 * 703 + 1 + 20;
  ASSERT_EQ(File("ej.idx").substr(tableC + 5 * row, 5), "t\0\0\0\0"s);
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  EXPECT_EQ(File("ej.idx").substr(tableC + 5 * row, 5), "t\0\0\0\0"s) << "in memory";
  Reopen();
  EXPECT_EQ(File("ej.idx").substr(tableC + 5 * row, 5), "t"s + Le32(128));
  ASSERT_EQ(Add(EntryE{.word = "cats"}), 1);
  Reopen();
  EXPECT_EQ(File("ej.idx").substr(tableC + 5 * row, 5), "t"s + Le32(141));
  const auto found = FindE("cats");
  EXPECT_EQ(found[0].sikibetu.pos1, 2);
  EXPECT_EQ(found[0].sikibetu.pos2, 2 * 27 + 1);
  EXPECT_EQ(found[0].sikibetu.pos3, row);
  ASSERT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  const auto last = FindE("cat");
  ASSERT_EQ(DelUserDicE(&last[0].sikibetu), 1);
  Reopen();
  EXPECT_EQ(File("ej.idx").substr(tableC + 5 * row, 5), "t\0\0\0\0"s);
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1) << "a key without a block gets a new one";
  EXPECT_EQ(FindE("cat").size(), 1u);
}

// Each "&" stands for three letters of a key, so that a word of 21,843 bytes has a key of 65,525.
TEST_F(Ix3UpdateTest, ARemainderOf65522BytesFillsABlock) {
  const std::string word(21841, '&');
  EXPECT_EQ(Add(EntryE{.word = word + "abc"}), 2051);
  EXPECT_TRUE(ListE().empty());
  ASSERT_EQ(Add(EntryE{.word = word + "ab"}), 1);
  const std::string block = Body("ej.ix3");
  ASSERT_EQ(block.size(), 65535u);
  EXPECT_EQ(block.substr(0, 11),
            "\x01\0\xFF\xFF"
            "\0\0"
            "\xF2\xFF"
            "and"s);
  const auto found = FindE(word + "AB");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].sikibetu.ix3Size, 65535);
  EXPECT_EQ(Add(EntryE{.word = "and"}), 2051) << "no further row, not even an empty one";
  EXPECT_EQ(DelUserDicE(&found[0].sikibetu), 1);
  EXPECT_EQ(Add(EntryE{.word = "and"}), 1);
}

TEST_F(Ix3UpdateTest, ABlockGrowsTo65535BytesAndNoFurther) {
  ASSERT_EQ(Add(EntryE{.word = "cat" + std::string(30000, 'a')}), 1);  // 30,013 bytes
  EXPECT_EQ(Add(EntryE{.word = "cat" + std::string(35514, 'b')}), 2051);
  EXPECT_EQ(Add(EntryE{.word = "cat" + std::string(35513, 'b')}), 1);
  EXPECT_EQ(FindE("cat" + std::string(35513, 'b'))[0].sikibetu.ix3Size, 65535);
  EXPECT_EQ(FindE("cat" + std::string(30000, 'a')).size(), 1u);
}

TEST_F(Ix3UpdateTest, LimitsAreThoseOfTheBlockWhateverTheType) {
  std::string block;
  for (const uint16_t type : {kTypeE, kTypeKana, kTypeKji}) {
    index_info info;
    info.word = std::string(kPrefixLength[type] + 65522, 'x');
    EXPECT_EQ(NewIdx3(info, 1, type, &block), 1);
    EXPECT_EQ(block.size(), 65535u);
    info.word += 'x';
    EXPECT_EQ(NewIdx3(info, 1, type, &block), 2051);
    info.word.clear();
    EXPECT_EQ(NewIdx3(info, 0x01020304, type, &block), 1);
    EXPECT_EQ(block,
              "\x01\0\x0D\0"
              "\0\0"
              "\0\0\0"
              "\x04\x03\x02\x01"s);
  }
}

// Rows that a block doesn't have are refused, and so is a block that contradicts itself.
TEST_F(Ix3UpdateTest, WhatCannotBeChangedIs20) {
  ASSERT_EQ(Add(EntryE{.word = "cat"}), 1);
  ASSERT_TRUE(OpenFsObjsUserE(false, false));
  index_info info;
  info.word = "cat";
  info.ix3Offset = 128;
  info.ix3First = 2;
  std::string block;
  EXPECT_EQ(RemakeIdx3(info, 1, kTypeE, &block), 20);
  EXPECT_EQ(ChangeIdx3(1, info, 1, kTypeE, &block), 20);
  sikibetu_data sikibetu{};
  sikibetu.ix3Offset = 128;
  sikibetu.ix3Index = 1;
  EXPECT_EQ(DelIdx3(kTypeE, sikibetu, &block), 20);
  info.ix3Offset = 100;  // zeros of the header
  EXPECT_EQ(ChangeIdx3(0, info, 1, kTypeE, &block), 20);
  info.ix3Offset = 1000;
  EXPECT_EQ(RemakeIdx3(info, 1, kTypeE, &block), 21);
  uint32_t offset = 0;
  EXPECT_EQ(WriteIx3("x", kTypeHase, &offset), 20);
  CloseFsObjsUserE();
  EXPECT_EQ(WriteIx3("x", kTypeE, &offset), 21);
  EXPECT_EQ(RemakeIdx3(info, 1, kTypeE, &block), 258);
}

}  // namespace
}  // namespace zavel::engine
