// Searches over damaged files: each byte changed, each length cut. No status but the documented ones, no
// result with a failure, nothing read outside (the sanitizers watch).
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <random>

#include "engine/SearchFixture.h"
#include "foundation/Storage.h"

namespace zavel::test {
namespace {

// A file in memory that can only be read.
class MemoryFile : public StorageFile {
 public:
  explicit MemoryFile(const std::string& bytes) : bytes_(bytes) {}
  int64_t readAt(uint64_t offset, void* out, size_t length) override {
    if (offset >= bytes_.size()) return 0;
    return static_cast<int64_t>(bytes_.copy(static_cast<char*>(out), length, offset));
  }
  int64_t size() override { return static_cast<int64_t>(bytes_.size()); }
  bool writeAt(uint64_t, std::string_view) override { return false; }
  bool truncate(uint64_t) override { return false; }
  bool sync() override { return true; }
  bool close() override { return true; }

 private:
  const std::string& bytes_;
};

// Serves every file from memory, so that thousands of damaged ones need no disk.
class MemoryStorage : public Storage {
 public:
  MemoryStorage() : previous_(setStorage(this)) {}
  ~MemoryStorage() override { setStorage(previous_); }

  std::map<std::string, std::string> files;  // by path

  std::unique_ptr<StorageFile> open(const std::string& path, OpenMode mode) override {
    if (!files.contains(path) || mode != OpenMode::kRead) return nullptr;
    return std::make_unique<MemoryFile>(files[path]);
  }
  std::unique_ptr<StorageFile> openTemporary(const std::string&, const std::string&, std::string*) override {
    return nullptr;
  }
  bool exists(const std::string& path) override { return files.contains(path); }
  bool isFolder(const std::string&) override { return false; }
  bool remove(const std::string&) override { return false; }
  bool rename(const std::string&, const std::string&) override { return false; }
  bool copy(const std::string&, const std::string&) override { return false; }
  int makeFolder(const std::string&) override { return 1; }
  bool syncFolder(const std::string&) override { return false; }

 private:
  Storage* previous_;
};

class SearchDamageTest : public SearchTest {
 protected:
  // Starts the engine and takes the files that searches read into memory.
  void openInMemory(std::initializer_list<const char*> names) {
    open();
    disk.emplace();
    for (const char* name : names) disk->files[path(name)] = readFile(path(name));
  }

  // Runs `searches` with file `name` damaged in every way and mends it again.
  template <typename Searches>
  void sweep(const std::string& name, Searches searches) {
    std::string& file = disk->files.at(path(name));
    const std::string good = file;
    for (size_t at = 0; at < good.size(); ++at) {
      const char old = good[at];
      for (const char value : {'\0', '\xFF', static_cast<char>(old ^ 1), static_cast<char>(old + 1),
                               static_cast<char>(old - 1)}) {
        file[at] = value;
        searches();
      }
      file = good.substr(0, at);
      searches();
      file = good;
    }
  }

  void expectDocumented() const {
    EXPECT_TRUE(status == 1 || status == 17 || status == 20 || status == 21) << status;
  }

  void searchE(const std::string& word, const std::string& midasi, uint8_t dicNo) {
    for (const size_t length : {size_t{1}, size_t{3}, word.size()}) {
      midasiE(word.substr(0, length), 0, dicNo);
      expectDocumented();
    }
    for (const uint8_t filter : {0, 3, 4, 5}) {
      imiE(word, filter, dicNo);
      expectDocumented();
      imiE(word, filter, dicNo, midasi.c_str());
      expectDocumented();
    }
  }

  std::optional<MemoryStorage> disk;
};

TEST_F(SearchDamageTest, OneEntryStandsEveryDamage) {
  dic.addE("apple", entryE("apple", "名", "りんご"));
  openInMemory({"ej.ix3", "ej.dic", "hase.ix3"});
  const std::string midasi = "apple [" + sjis("りんご") + "]";
  ASSERT_EQ(Lines{midasi}, midasiE("app"));
  for (const char* name : {"ej.ix3", "ej.dic"}) sweep(name, [&] { searchE("apple", midasi, kBasic); });
  EXPECT_EQ(Lines{midasi}, midasiE("app")) << "mended";
}

TEST_F(SearchDamageTest, RowsReferencesAndDerivedWordsStandEveryDamage) {
  withUserE = true;
  const std::string colour = tag(0xF5D1) + tag(0xF4B5) + "1" + tag(0xF4D0) + "***colour" + sjis("≦k≧") +
                             "\n" + tag(0xF5D4) + sjis("《米》 =") + "color" + tag(0xF4B5) + "1,2" +
                             tag(0xF4D0) + ";hue\n" + tag(0xF5D4) + tag(0xF5B1) + "A" + tag(0xF5C1) +
                             sjis("(x)色,彩\n");
  dic.addHase("colourful", dic.addE("colour", colour));
  dic.addE("color", tag(0xF5D1) + tag(0xF4B5) + "2" + tag(0xF4D0) + "color\n");
  dic.addE("col", head("col"));
  dic.addE("c", head("c"));
  userE.add("colour", head("colour") + line(0xF5D4, "x"));
  openInMemory({"ej.ix3", "ej.dic", "hase.ix3", "ueej.ix3", "ueej.dic"});
  const Lines lines = midasiE("colour");
  ASSERT_EQ(1u, lines.size());
  ASSERT_EQ(3u, imiE("colour", 0, kBoth).size());
  for (const char* name : {"ej.ix3", "ej.dic", "hase.ix3", "ueej.ix3", "ueej.dic"}) {
    sweep(name, [&] {
      searchE("colour", lines[0], kBoth);
      imiE("colourful", 0, kBasic);
      expectDocumented();
    });
  }
}

TEST_F(SearchDamageTest, JapaneseSearchesStandEveryDamage) {
  dic.addJ("くだもの", "果物", entryJ("くだもの", "果物", "fruit"));
  dic.addJ("くだり", "", entryJ("くだり", "", "〈下り〉down") + line(0xF5D5, "a") + line(0xF5D8, " b"));
  dic.addJ("く", "句", entryJ("く", "句", "phrase"));
  openInMemory({"je.ix3", "ke.ix3", "je.dic"});
  for (const char* name : {"je.ix3", "ke.ix3", "je.dic"}) {
    sweep(name, [&] {
      for (const char* word : {"く", "くだ", "くだり", "果物"}) {
        midasiJ(sjis(word));
        expectDocumented();
        imiJ(sjis(word), 4, kBasic, sjis("くだり [下り]").c_str());
        expectDocumented();
        imiJ(sjis(word));
        expectDocumented();
      }
    });
  }
}

TEST_F(SearchDamageTest, RandomFilesStand) {
  dic.addE("apple", entryE("apple", "名", "りんご"));
  openInMemory({"ej.ix3", "ej.dic", "hase.ix3"});
  std::mt19937 random(20240602);
  for (int round = 0; round < 300; ++round) {
    std::string block(random() % 200, '\0');
    for (char& c : block) c = static_cast<char>(random() % 4 == 0 ? random() % 256 : random() % 8);
    if (block.size() >= 4) {  // a head that lets the rows be looked at
      block[0] = static_cast<char>(random() % 8);
      block[1] = block[3] = 0;
      block[2] = static_cast<char>(block.size());
    }
    disk->files[path("ej.ix3")] = block;
    std::string entries(random() % 300, '\0');
    const std::string pieces[] = {tag(0xF5D1), tag(0xF5D4), "\n",   sjis("≦"), sjis("《米》 ="),
                                  tag(0xF4B5), "(",         "\xF5", "a"};
    for (size_t i = 0; i + 8 < entries.size(); i += 8) {
      const std::string& piece = pieces[random() % 9];
      entries.replace(i, piece.size(), piece);
    }
    disk->files[path("ej.dic")] = entries;
    searchE("apple", "a", kBasic);
  }
}

}  // namespace
}  // namespace zavel::test
