// Reading entries from a .dic file, and their lines.
#include "engine/Entry.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "engine/SearchFixture.h"
#include "support/FaultyStorage.h"

namespace zavel::test {
namespace {

using namespace zavel::engine;

// A basic and a user .dic file of any bytes.
class EntryTest : public SearchTest {
 protected:
  void openDics(const std::string& kihon, const std::string& user = "") {
    withUserE = withUserJ = true;
    dic.addE("a", head("a"));
    open();
    for (const char* name : {"ej.dic", "je.dic"}) writeFile(path(name), kihon);
    for (const char* name : {"ueej.dic", "ujje.dic"}) writeFile(path(name), user);
    ASSERT_TRUE(OpenFsObjsUserE(false, true));
    ASSERT_EQ(1, OpenFsObjsUserJ(false, true));
  }
  ~EntryTest() override { CloseFsObjs(); }

  std::string data(uint32_t offset, uint16_t type = 1, uint16_t set = 1, const char* midasi = nullptr) {
    std::string text;
    status = GetDicData(midasi, type, set, offset, &text);
    return text;
  }

  std::string lineAt(uint32_t offset, uint16_t type = 1, uint16_t set = 1) {
    std::string line;
    status = GetIndexWord(type, offset, set, &line, &readable);
    return line;
  }

  bool readable = false;
};

TEST_F(EntryTest, GetDicDataEndsBeforeTheNextEntry) {
  const std::string apple = entryE("apple", "名", "りんご"), pear = entryE("pear", "名", "梨");
  openDics(apple + pear);
  EXPECT_EQ(apple, data(0));
  EXPECT_EQ(1, status);
  EXPECT_EQ(pear, data(static_cast<uint32_t>(apple.size()))) << "or with the file";
}

TEST_F(EntryTest, GetDicDataCountsEntryTagsFromTheOffset) {
  openDics("xy" + head("a") + head("b"));
  EXPECT_EQ("y" + head("a"), data(1)) << "the first tag opens the entry wherever it stands";
  EXPECT_EQ(
      "\xD1"
      "a\n" +
          head("b"),
      data(3))
      << "half a tag is none";
}

TEST_F(EntryTest, GetDicDataAppends) {
  openDics(head("a"));
  std::string text = std::string("\0x", 2);
  EXPECT_EQ(1, GetDicData(nullptr, 1, 1, 0, &text));
  EXPECT_EQ(std::string("\0x", 2) + head("a"), text) << "what stood there is not touched";
}

TEST_F(EntryTest, GetDicDataStoresANulAsABlank) {
  openDics(tag(0xF5D1) + std::string("a\0b\0", 4));
  EXPECT_EQ(tag(0xF5D1) + "a b ", data(0));
}

TEST_F(EntryTest, GetDicDataEndsAt65535Bytes) {
  openDics(tag(0xF5D1) + std::string(70000, 'a'));
  EXPECT_EQ(tag(0xF5D1) + std::string(65533, 'a'), data(0));
  EXPECT_EQ(1, status);
}

TEST_F(EntryTest, GetDicDataSeesATagUpToTheLimit) {
  openDics("");
  const std::string tail = head("b");  // F5 D1 b LF
  const struct {
    size_t filler;
    std::string end;  // of the entry's text
  } rows[] = {{65531, "a"}, {65532, "\xF5"}, {65533, "a"}};
  for (const auto& row : rows) {
    CloseFsObjs();
    writeFile(path("ej.dic"), tag(0xF5D1) + std::string(row.filler, 'a') + tail);
    const std::string text = data(0);
    EXPECT_EQ(row.filler == 65531 ? 65533u : 65535u, text.size()) << row.filler;
    EXPECT_TRUE(text.ends_with(row.end)) << row.filler;
  }
}

TEST_F(EntryTest, GetDicDataReadsNothingPastTheEnd) {
  openDics(head("a"));
  EXPECT_EQ("", data(4));
  EXPECT_EQ(1, status);
  EXPECT_EQ("", data(4000000000u));
  EXPECT_EQ(1, status);
  EXPECT_EQ("", data(4000000000u, 1, 1, "a"));
  EXPECT_EQ(2, status) << "and that is no entry with this line";
}

TEST_F(EntryTest, GetDicDataWantsExactlyTheLine) {
  const std::string apple = entryE("apple", "名", "りんご");
  openDics(apple);
  EXPECT_EQ(apple, data(0, 1, 1, ("apple [" + sjis("りんご") + "]").c_str()));
  EXPECT_EQ(1, status);
  for (const char* other : {"apple", "apple [", "", "Apple [りんご]"}) {
    EXPECT_EQ("", data(0, 1, 1, sjis(other).c_str())) << other;
    EXPECT_EQ(2, status);
  }
}

TEST_F(EntryTest, GetDicDataComparesTheLineOfItsType) {
  const std::string entry = entryJ("くだもの", "果物", "fruit");
  openDics(entry);
  EXPECT_EQ(entry, data(0, 2, 1, sjis("くだもの [果物]").c_str()));
  EXPECT_EQ(entry, data(0, 3, 1, sjis("果物 [くだもの]").c_str()));
  EXPECT_EQ("", data(0, 2, 1, sjis("果物 [くだもの]").c_str()));
  EXPECT_EQ(2, status);
}

TEST_F(EntryTest, TypeAndSetChooseTheFile) {
  openDics(head("basic"), head("user"));
  writeFile(path("je.dic"), head("basic j"));
  EXPECT_EQ(head("basic"), data(0, 1, 1));
  EXPECT_EQ(head("basic j"), data(0, 2, 1));
  EXPECT_EQ(head("basic j"), data(0, 3, 1));
  EXPECT_EQ(head("user"), data(0, 1, 2));
  EXPECT_EQ(head("user"), data(0, 2, 2));
  EXPECT_EQ("basic", lineAt(0, 1, 1));
  EXPECT_EQ("user", lineAt(0, 3, 2));
}

TEST_F(EntryTest, AMissingFileIsTheStatusOfItsSet) {
  openDics(head("a"));
  CloseFsObjs();
  std::filesystem::remove(path("ej.dic"));
  data(0);
  EXPECT_EQ(257, status);
  data(0, 1, 2);
  EXPECT_EQ(258, status) << "a closed user stream";
  data(0, 2, 2);
  EXPECT_EQ(259, status);
  lineAt(0);
  EXPECT_EQ(257, status);
  EXPECT_FALSE(readable);
}

TEST_F(EntryTest, GetIndexWordTellsWhatCannotBeRead) {
  openDics(head("a") + "rest");
  EXPECT_EQ("a", lineAt(0));
  EXPECT_TRUE(readable);
  lineAt(1000);
  EXPECT_EQ(1, status);
  EXPECT_FALSE(readable) << "past the end";
  lineAt(4);
  EXPECT_EQ(1, status);
  EXPECT_FALSE(readable) << "no entry";
}

TEST_F(EntryTest, GetIndexWordCapsHeadwords) {
  const std::string longWord = tag(0xF5D1) + std::string(140000, 'a') + "\n" + line(0xF5D4, "x");
  openDics(longWord, longWord);
  EXPECT_EQ(std::string(65533, 'a'), lineAt(0, 1, 1)) << "no gloss behind a capped headword";
  EXPECT_EQ(std::string(65533, 'a'), lineAt(0, 2, 1));
  EXPECT_EQ(std::string(65533, 'a'), lineAt(0, 1, 2));
  EXPECT_EQ(std::string(65534, 'a'), lineAt(0, 2, 2)) << "the longer cap, cut to what a record can count";
}

TEST_F(EntryTest, GetIndexWordCutsALineToWhatARecordCanCount) {
  openDics(tag(0xF5D1) + std::string(65530, 'a') + "\n" + line(0xF5D4, "xyzw"));
  EXPECT_EQ(std::string(65530, 'a') + " [xy", lineAt(0)) << "65,534 bytes, its NUL makes 65,535";
}

TEST_F(EntryTest, GetIndexWordReadsTheGlossWhereverItStands) {
  for (const size_t filler : {900, 1100, 5000, 20000, 60000}) {
    const std::string entry =
        head("a") + line(0xF5D3, std::string(filler, 'x')) + line(0xF5D4, "y") + head("b");
    if (!initAPIFlag) openDics("");
    CloseFsObjs();
    writeFile(path("ej.dic"), entry);
    EXPECT_EQ("a [y]", lineAt(0)) << filler;
  }
}

TEST_F(EntryTest, GetIndexWordReadsNoFurtherThanItsBuffer) {
  openDics(head("a") + line(0xF5D3, std::string(65533 + 256, 'x')) + line(0xF5D4, "y"));
  EXPECT_EQ("a", lineAt(0));
}

TEST_F(EntryTest, NeighboursShareReads) {
  std::string entries;
  std::vector<uint32_t> offsets;
  for (int i = 0; i < 50; ++i) {
    offsets.push_back(static_cast<uint32_t>(entries.size()));
    entries += entryE("word", "名", "りんご") + line(0xF5D5, std::string(400, 'x'));
  }
  openDics(entries);
  FaultyStorage disk;
  for (const uint32_t offset : offsets) EXPECT_EQ("word [" + sjis("りんご") + "]", lineAt(offset));
  EXPECT_LE(disk.count("readAt"), 8) << "some 22,000 bytes";
  EXPECT_EQ(1, disk.count("open"));
  CloseFsObjs();
}

TEST_F(EntryTest, AFailedReadIs21) {
  openDics(head("a"));
  data(0);
  FaultyStorage disk;
  CloseFsObjs();
  disk.failAt(2);  // the read behind the open
  data(0);
  EXPECT_EQ(21, status);
  CloseFsObjs();
  disk.failAt(2);
  lineAt(0);
  EXPECT_EQ(21, status);
  EXPECT_FALSE(readable);
  CloseFsObjs();
}

}  // namespace
}  // namespace zavel::test
