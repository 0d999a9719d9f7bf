// The worked example of one entry `apple`, byte for byte, as the tests' writer makes it and as the engine
// reads it; and the orders in which the writer sorts.
#include <gtest/gtest.h>

#include "engine/EngineFixture.h"
#include "engine/Index1.h"
#include "engine/Index3.h"

namespace zavel::engine {
namespace {

using test::DicWriter;
using test::IndexFiles;
using test::writeFile;
using test::writeIndex;
using namespace std::string_literals;

// ej.dic: the meaning is りんご.
const std::string kAppleDic =
    "\xF5\xD1\xF5\xB1"s
    "apple"
    "\xF5\xC1\x0A\xF5\xD3-[\x96\xBC]\x0A\xF5\xD4\x82\xE8\x82\xF1\x82\xB2\x0A";

// One block of 15 bytes: one row, remainder "le", entry at 0.
const std::string kAppleIx3(
    "\x01\x00\x0F\x00"  // count, size
    "\x00\x00"          // row 0 at 0 of the string area
    "\x02\x00le\x00"    // its length, remainder, NUL
    "\x00\x00\x00\x00",
    15);  // its entry

const std::string kAppleIdx(
    "\x03\x00\x00\x00\x0B\x00\x00\x00"
    "a\x00\x00"  // A at 0: size 3, B at 11
    "\x03\x00\x00\x00\x16\x00\x00\x00"
    "p\x00\x00"  // B at 11: size 3, C at 22
    "\x05\x00\x00\x00"
    "p\x00\x00\x00\x00",
    31);  // C at 22: size 5, block at 0

TEST(DicWriter, WritesTheAppleDictionary) {
  DicWriter writer;
  EXPECT_EQ(writer.addE("apple", test::entryE("apple", "名", "りんご")), 0u);
  const auto files = writer.files();
  EXPECT_EQ(files.at("ej.dic"), kAppleDic);
  EXPECT_EQ(files.at("ej.ix3"), kAppleIx3);
  EXPECT_EQ(files.at("ej.idx"), kAppleIdx);
  EXPECT_EQ(files.size(), 13u);
}

class AppleTest : public EngineTest {};

TEST_F(AppleTest, IsReadByTheEngine) {
  WriteSmallSet();
  writeFile(BasicFile("ej.dic"), kAppleDic);
  writeFile(BasicFile("ej.ix3"), kAppleIx3);
  writeFile(BasicFile("ej.idx"), kAppleIdx);
  ASSERT_EQ(OpenBasic(), 1);
  uint32_t offset = 9;
  EXPECT_EQ(GetIdxKihon(kTypeE, "apple", &offset), 1);
  EXPECT_EQ(offset, 0u);
  char word[] = "apple";
  uint32_t size = 0;
  Handle list = nullptr;
  ASSERT_EQ(SerchImiE(word, nullptr, 0, &size, &list, 1), 1);
  EXPECT_EQ(test::takeEntries(list, size), std::vector<std::string>{kAppleDic});
}

TEST(DicWriter, FilesShortWordsUnderZeros) {
  const IndexFiles files = writeIndex(1, {{"ax", 7}, {"a", 5}, {"axe", 9}});
  EXPECT_EQ(files.idx, std::string("\x03\0\0\0\x0B\0\0\0"
                                   "a\0\0"  // A
                                   "\x06\0\0\0\x19\0\0\0"
                                   "\0\0\0"
                                   "x\x01\0"  // B: ended, x
                                   "\x0F\0\0\0"
                                   "\0\0\0\0\0"
                                   "\0\x0D\0\0\0"
                                   "e\x1A\0\0\0",
                                   44));
  const std::string block5(
      "\x01\0\x0D\0"
      "\0\0"
      "\0\0\0"
      "\x05\0\0\0",
      13);
  EXPECT_EQ(files.ix3.substr(0, 13), block5);
}

TEST(DicWriter, SortsKanaAsSignedBytes) {
  // 0xAD 0xBE before 0xAD 0 (the word ended): -82 -66 before -82 0.
  const IndexFiles files = writeIndex(2, {{"\xAD", 1}, {"\xAD\xBE", 2}, {"\xA0\xA0\xA2", 3}});
  EXPECT_EQ(files.idx, std::string("\x06\0\0\0\x0E\0\0\0"
                                   "\xA0\0\0"
                                   "\xAD\x01\0"
                                   "\x0F\0\0\0"
                                   "\xA0\0\0\0\0"
                                   "\xBE\x0E\0\0\0"
                                   "\0\x1B\0\0\0",
                                   33));
}

TEST(DicWriter, SortsKanjiAsPairsAndPutsTheUserHeaderAhead) {
  const IndexFiles files = writeIndex(3, {{"\x97\xD1\x8C\xE7", 200}}, true);
  EXPECT_EQ(files.idx, std::string(128, '\0') + std::string("\x04\0\0\0\x8C\0\0\0"
                                                            "\x97\xD1\0\0"  // C at 140
                                                            "\x06\0\0\0"
                                                            "\x8C\xE7\x80\0\0\0",
                                                            22));
  EXPECT_EQ(files.ix3, std::string(128, '\0') + std::string("\x01\0\x0D\0\0\0\0\0\0\xC8\0\0\0", 13));
}

TEST(DicWriter, FilesConjugatedFormsInOneTable) {
  DicWriter writer;
  writer.addKatu("went", "{go:現,went:過}");
  const auto files = writer.files();
  EXPECT_EQ(files.at("katu.idx"), std::string("\x05\0\0\0"
                                              "w\0\0\0\0",
                                              9));
  EXPECT_EQ(files.at("katu.ix3"), std::string("\x01\0\x10\0"
                                              "\0\0"
                                              "\x03\0"
                                              "ent\0"
                                              "\0\0\0\0",
                                              16));
  EXPECT_EQ(files.at("katu.dic").front(), 'q');
  EXPECT_EQ(files.at("katu.dic").back(), 's');
  EXPECT_EQ(files.at("katu.dic").substr(1, 3), "]e0");  // "go:", each byte 10 lower
}

TEST(DicWriter, KeepsEqualKeysInTheirOrder) {
  const IndexFiles files = writeIndex(1, {{"abcd", 9}, {"abcd", 4}, {"abc", 1}});
  EXPECT_EQ(files.ix3, test::writeBlock({"", "d", "d"}, {1, 9, 4}));
}

}  // namespace
}  // namespace zavel::engine
