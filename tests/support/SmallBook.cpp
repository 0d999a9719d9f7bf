#include "support/SmallBook.h"

#include <algorithm>

#include "support/BookWriter.h"

namespace zavel::test {
namespace {

std::string words(std::initializer_list<uint32_t> values) {
  std::string out;
  for (const uint32_t value : values) out += be16(value);
  return out;
}

struct Small {
  BookWriter writer;
  std::map<std::string, std::string> files;

  void region(uint16_t kind, uint32_t start, const std::string& bytes) {
    const uint32_t blocks = std::max<uint32_t>(1, static_cast<uint32_t>((bytes.size() + 2047) / 2048));
    const std::string name = "r" + std::to_string(start);
    writer.record({.kind = kind,
                   .start = start,
                   .end = start + blocks - 1,
                   .flags = std::string(4, '\0'),
                   .name = name});
    files[name] = packed(bytes);
  }

  void font(uint16_t kind, const std::string& name, size_t glyph) {
    writer.record({.kind = kind, .flags = std::string(4, '\0'), .name = name});
    std::string bytes(2048, '\0');
    files[name] = bytes.replace(10, 4, be16(0xA121) + be16(1)) + std::string(glyph, '\x5A');
  }
};

}  // namespace

std::string packed(std::string bytes) {
  bytes.resize(bytes.find_last_not_of('\0') + 1);
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

std::string smallMonoTag() {
  return Text().word(0x1F44).raw(bcd(1, 2)).raw(bcd(2, 4)).raw(bcd(9, 4)).word(0x1F64).address(1, 0).bytes();
}

std::string smallColorTag() {
  return Text().word(0x1F4D).word(0).word(1).raw(std::string(8, '\0')).address(21, 40).word(0x1F6D).bytes();
}

std::string smallSoundTag(uint32_t format) {
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

std::string smallFilmTag() {
  return Text()
      .word(0x1F39)
      .raw(bcd(1000, 2))
      .raw(std::string(18, '\0'))
      .raw("FILM")
      .raw(std::string(20, '\0'))
      .word(0x1F59)
      .bytes();
}

std::map<std::string, std::string> smallBook() {
  Small book;
  book.writer.largeIcon = "large";
  book.writer.smallIcon = "small";
  book.region(0, 1,
              Text()
                  .begin()
                  .entry("AB", "C")
                  .entry("CD", "D")
                  .raw(smallMonoTag())
                  .raw(smallColorTag())
                  .raw(smallSoundTag(0))
                  .raw(smallFilmTag())
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
  return book.files;
}

}  // namespace zavel::test
