// A small book with every kind of region: every byte of every file changed in five ways and every file cut at
// every place. All operations run on what is left; the sanitizers watch, and each book has its second.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "OpenBook.h"
#include "Words.h"
#include "support/RamDisk.h"

namespace zavel::book {
namespace {

using namespace zavel::test;

// One set with matches where a byte repeats, so that the files stay small and damage meets matches as well.
std::string packed(const std::string& bytes) {
  std::string codes;
  for (size_t at = 0; at < bytes.size();) {
    const bool repeats =
        at > 0 && at + 16 <= bytes.size() && bytes.compare(at, 16, std::string(16, bytes[at - 1])) == 0;
    codes += repeats ? code(4079, 15, static_cast<uint8_t>(bytes[at]))
                     : code(0, 0, static_cast<uint8_t>(bytes[at]));
    at += repeats ? 16 : 1;
  }
  return blockSetFile(std::vector<std::string>{blockSet(0, codes)});
}

// Without the zeroes at its end, which a set needs no codes for.
std::string cutZeroes(std::string bytes) {
  bytes.resize(bytes.find_last_not_of('\0') + 1);
  return bytes;
}

struct Small {
  BookWriter writer;
  RamDisk::Files files;

  void region(uint16_t kind, uint32_t start, const std::string& bytes) {
    const uint32_t blocks = std::max<uint32_t>(1, static_cast<uint32_t>((bytes.size() + 2047) / 2048));
    const std::string name = "r" + std::to_string(start);
    writer.record({.kind = kind,
                   .start = start,
                   .end = start + blocks - 1,
                   .flags = std::string(4, '\0'),
                   .name = name});
    files[name] = packed(cutZeroes(bytes));
  }

  void font(uint16_t kind, const std::string& name, size_t glyph) {
    writer.record({.kind = kind, .flags = std::string(4, '\0'), .name = name});
    std::string bytes(2048, '\0');
    files[name] = bytes.replace(10, 4, be16(0xA121) + be16(1)) + std::string(glyph, '\x5A');
  }
};

std::string monoTag() {
  return Text().word(0x1F44).raw(bcd(1, 2)).raw(bcd(2, 4)).raw(bcd(9, 4)).word(0x1F64).address(1, 0).bytes();
}

std::string colorTag() {
  return Text().word(0x1F4D).word(0).word(1).raw(std::string(8, '\0')).address(21, 40).word(0x1F6D).bytes();
}

std::string soundTag(uint32_t format) {
  return Text()
      .word(0x1F4A)
      .word(0x0101)
      .word(format)
      .address(22, 0)
      .address(22, 8)
      .word(0x2121)
      .word(0x1F6A)
      .bytes();
}

std::string filmTag() {
  return Text()
      .word(0x1F39)
      .raw(bcd(1000, 2))
      .raw(std::string(18, '\0'))
      .raw("FILM")
      .raw(std::string(20, '\0'))
      .word(0x1F59)
      .bytes();
}

Small smallBook() {
  Small book;
  book.writer.largeIcon = "large";
  book.writer.smallIcon = "small";
  book.region(0, 1,
              Text()
                  .begin()
                  .entry("AB", "C")
                  .entry("CD", "D")
                  .raw(monoTag())
                  .raw(colorTag())
                  .raw(soundTag(0))
                  .raw(filmTag())
                  .end()
                  .bytes());
  book.region(0x01, 2, Text().begin().word(0x1F43).chars("M").word(0x1F63).address(1, 2).end().bytes());
  book.region(0x10, 3, words({0x1F4C, 0, 0x2341, 0x1F03}));
  book.region(0x60, 4,
              IndexBlock(0x60, 4).inner(jis("AB"), 5).closing(5).bytes() +
                  IndexBlock(0xE0, 4).fixed(jis("AB"), 1, 2).fixed(jis("CD"), 1, 24).bytes());
  book.region(0x91, 6, IndexBlock(0xE0).leaf(jis("AB"), place(1, 2), place(1, 2)).bytes());
  const std::string key = jis("AB");
  book.region(0x70, 8,
              IndexBlock(0xF0)
                  .record("\x80\x02" + std::string(2, '\0') + jis("あ"))
                  .tagged(0xC0, jis("あ"), place(1, 2) + place(1, 2))
                  .record(std::string(2, '\0'))
                  .bytes());
  book.region(0x80, 9,
              IndexBlock(0xF0)
                  .record(std::string("\x80\x04\0\0\0\0", 6) + key + place(1, 6))
                  .record("\xC0" + place(1, 2))
                  .tagged(0, jis("CD"), place(1, 24) + place(1, 24))
                  .bytes());
  book.region(0x81, 10, IndexBlock(0xE0).leaf(key, place(1, 2)).bytes());
  std::string form = be16(2) + std::string(14, '\0');
  const auto sub = [](uint8_t kind, uint32_t start) {
    std::string out = static_cast<char>(kind) + std::string(1, '\0') + be32(start) + be32(1);
    out.resize(16);
    return out;
  };
  const auto label = [](char count) {
    std::string out = count + std::string(1, '\0') + jis("L");
    out.resize(32);
    return out;
  };
  form += label(2) + sub(0xA1, 12) + sub(1, 13) + label(1) + sub(0xB0, 14);
  book.region(0xFF, 11, form);
  book.region(0xA1, 12,
              IndexBlock(0xF0)
                  .record(std::string("\x80\x04\0\0\0\0", 6) + key)
                  .record("\xC0" + place(1, 2) + place(1, 2))
                  .bytes());
  book.region(0x02, 13,
              Text()
                  .word(0x1F43)
                  .chars("A")
                  .word(0x1F63)
                  .address(13, 14)
                  .word(0x1F03)
                  .word(0x1F43)
                  .chars("B")
                  .word(0x1F63)
                  .address(0, 0)
                  .end()
                  .bytes());
  book.region(0xB0, 14, place(1, 2));
  book.region(0xD0, 20, std::string("\x01\0\x0E\0\x01\0\x0A\0\x0A\0\0\0\0\x0A\0\0\x0A", 17));
  std::string colors =
      std::string("\0\0\x12", 3) + std::string(13, '\0') + be16(1) + be16(14) + be16(14) + "\x11\x02";
  colors.resize(40);
  book.region(0xD2, 21, colors + std::string("data\x02\0\0\0xy", 10));
  book.region(0xD8, 22, "abcdefgh");
  book.font(0xF1, "FULL", 32);
  book.font(0xF2, "HALF", 16);
  book.files["EXINFO.INI"] = "[GENERAL]\nSRCINFO=me\nSRCVER=2\nMUL0NAME=n\n";
  book.files["BOOK"] = book.writer.catalog();
  return book;
}

class Damage : public ::testing::Test {
 protected:
  Damage() : disk_("/book"), whole_(smallBook().files) { disk_.setFiles(whole_); }

  void take(uint32_t code, char*& out) {
    codes_ += code == 0;
    if (code == 0 || code == 0x80042001) std::free(out);
    out = nullptr;
  }

  // Every operation on the book as it stands. Result: how many succeeded.
  int useAll() {
    codes_ = 0;
    const char* const path = "/book/BOOK";
    char *large = nullptr, *small = nullptr;
    if (SDicGetDicIconInformation(path, &large, &small) == 0) ++codes_;
    std::free(large);
    std::free(small);
    void* book = nullptr;
    if (SDicOpenDictionary(path, &book, nullptr, false, false) != 0) return codes_;
    search(book);
    for (const uint32_t offset : {0u, 2u, 24u, 30u, 2040u}) texts(book, {1, offset});
    menus(book);
    multi(book);
    for (const std::string& tag : {monoTag(), colorTag(), soundTag(0), soundTag(0x1111), filmTag()})
      media(book, tag);
    gaiji(book);
    plain(book);
    EXPECT_EQ(SDicCloseDictionary(book), 0u);
    return codes_;
  }

  void search(void* book) {
    static const std::string queries[] = {jis("◆AB"),           jis("□A"),           jis("■あ"),
                                          jis("△AB"),           jis("▲AB"),          jis("▲CD"),
                                          jis("◆AB│⊂◆CD◇□CD⊃"), jis("▽０▼０AB▼１A"), jis("■ーあ")};
    for (const std::string& query : queries) {
      long count = 0, first = 0;
      if (SDicExecIndexSearch(book, query.c_str(), false, false, &count, &first) != 0) continue;
      ++codes_;
      _SDICITEMADDRESS hit{};
      for (long i = 0; i < count; ++i) {
        EXPECT_EQ(SDicGetSearchResult(book, static_cast<unsigned long>(i), &hit), 0u);
        if (i < 3) texts(book, hit.headword);
      }
    }
  }

  void texts(void* book, const _SDICADDRESS& at) {
    char* out = nullptr;
    char* cut = nullptr;
    uint16_t length = 0;
    uint32_t size = 0;
    _SDICADDRESS found{};
    if (SDicGetHeadword(book, &at, &out, &length, false) == 0) {
      EXPECT_EQ(out[length - 1], '\0');
      take(SDicTruncateHeadword(book, out, &cut, 3), cut);
      take(0, out);
    }
    if (SDicGetBodyData(book, &at, &out, &size) == 0) {
      for (uint32_t i = 0; i + 2 <= size && i < 400; i += 2) onTag(book, out + i);
      take(0, out);
    }
    codes_ += SDicGetNextEntryAddress(book, &at, &found) == 0;
    codes_ += SDicGetPrevEntryAddress(book, &at, &found) == 0;
    codes_ += SDicGetZenbunNextEntryAddress(book, &at, &found) == 0;
    codes_ += SDicGetZenbunPrevEntryAddress(book, &at, &found) == 0;
    codes_ += SDicIsValidAddress(book, &at, 3) == 0;
    take(SDicReadData(book, &at, 10, &out), out);
    take(SDicGetPictureDataDirect(book, &at, &out, &size), out);
  }

  void menus(void* book) {
    char* out = nullptr;
    uint32_t size = 0;
    bool more = false;
    take(SDicGetMenuData(book, nullptr, &out, &size, &more), out);
    take(SDicGetColorMenuData(book, nullptr, &out, &size), out);
  }

  void multi(void* book) {
    uint16_t blocks = 0;
    if (SDicGetMultiSearchCount(book, &blocks) != 0) return;
    for (uint16_t block = 0; block < blocks; ++block) {
      char* out = nullptr;
      uint8_t entries = 0;
      take(SDicGetMultiSearchName(book, block, &out), out);
      if (SDicGetMultiSearchEntryCount(book, block, &entries) != 0) continue;
      for (uint8_t entry = 0; entry < entries; ++entry) {
        bool hasList = false;
        _SDICMULTIREFLIST* list = nullptr;
        take(SDicGetMultiSearchEntryInfo(book, block, entry, &out, &hasList), out);
        codes_ += SDicGetMultiSearchReferenceList(book, block, entry, &list) == 0;
      }
    }
  }

  // A tag as a body or headword has it: at least 64 zeroes stand behind the text.
  void onTag(void* book, const char* tag) {
    if (tag[0] != '\x1F') return;
    char *name = nullptr, *data = nullptr;
    uint16_t nameLength = 0;
    uint32_t size = 0, more = 0, numbers[4];
    uint32_t code = SDicGetPictureData(book, tag, &name, &nameLength, &data, &size);
    freeBoth(code, &name, &data);
    code = SDicGetStreamData(book, tag, &name, &nameLength, &data, &size);
    freeBoth(code == 0x80042001 ? 0 : code, &name, &data);
    code = SDicGetMovieFileName(book, tag, &name, &size, &data, &more, numbers);
    freeBoth(code == 0x80041001 ? 0 : code, &name, &data);
  }

  void freeBoth(uint32_t code, char** name, char** data) {
    codes_ += code == 0;
    if (code == 0) {
      std::free(*name);
      std::free(*data);
    }
    *name = *data = nullptr;
  }

  void media(void* book, const std::string& tag) { onTag(book, (tag + std::string(64, '\0')).c_str()); }

  void gaiji(void* book) {
    for (const bool full : {true, false}) {
      const uint16_t code = SDicStartCharCodeNumber(book, full);
      char* out = nullptr;
      char buffer[32];
      uint16_t length = 0;
      take(SDicGetCustomCharacterBitmap(book, full, code, 16, &out), out);
      codes_ += SDicGetRawCustomCharacterBitmap(book, full, code, 16, buffer, &length) == 0;
      codes_ += SDicCustomCharCodeToIndex(book, full, 0xA121) == 0;
    }
  }

  void plain(void* book) {
    char* out = nullptr;
    uint32_t one = 0, two = 0;
    take(SDicGetPublisherInfo(book, &out, &one), out);
    codes_ += SDicGetHonbunBlockInformation(book, &one, &two) == 0;
    codes_ += SDicGetDicName(book) != nullptr;
  }

  // All operations, which have a second of the processor's time.
  int timed(const std::string& what) {
    const std::clock_t begin = std::clock();
    const int done = useAll();
    const double passed = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    EXPECT_LT(passed, 1.0) << what;
    longest_ = std::max(longest_, passed);
    return done;
  }

  void sweep(const std::string& name) {
    const std::string bytes = whole_.at(name);
    const bool font = name == "FULL" || name == "HALF";
    for (size_t at = 0; at < bytes.size(); ++at) {
      if (font && at > 20 && at < 2040) continue;  // nobody reads there
      const uint8_t byte = static_cast<uint8_t>(bytes[at]);
      for (const int changed : {0, 0xFF, byte ^ 1, byte + 1, byte - 1}) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(changed);
        if (damaged == bytes) continue;
        disk_.setFile(name, damaged);
        timed(name + " byte " + std::to_string(at) + " " + std::to_string(changed));
      }
      disk_.setFile(name, bytes.substr(0, at));
      timed(name + " cut at " + std::to_string(at));
    }
    disk_.setFile(name, bytes);
    RecordProperty("longest", std::to_string(longest_));
  }

  RamDisk disk_;
  RamDisk::Files whole_;
  int codes_ = 0;
  double longest_ = 0;
};

TEST_F(Damage, StartsFromAWholeSmallBook) {
  size_t size = 0;
  for (const auto& [name, bytes] : whole_) size += bytes.size() - (bytes.size() > 2048 ? 2034 : 0);
  EXPECT_LT(size, 8192u);
  EXPECT_GT(timed("whole"), 60);
}

TEST_F(Damage, OfTheCatalogIsStood) {
  sweep("BOOK");
}

TEST_F(Damage, OfTextsIsStood) {
  for (const char* name : {"r1", "r2", "r3"}) sweep(name);
}

TEST_F(Damage, OfIndexesIsStood) {
  for (const char* name : {"r4", "r6", "r8", "r9", "r10"}) sweep(name);
}

TEST_F(Damage, OfMultiSearchesIsStood) {
  for (const char* name : {"r11", "r12", "r13", "r14"}) sweep(name);
}

TEST_F(Damage, OfMediaIsStood) {
  for (const char* name : {"r20", "r21", "r22", "FULL", "HALF"}) sweep(name);
}

TEST_F(Damage, OfThePublishersFileIsStood) {
  sweep("EXINFO.INI");
}

}  // namespace
}  // namespace zavel::book
