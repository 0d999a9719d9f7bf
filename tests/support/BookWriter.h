// Writes books byte by byte, rightly and wrongly: a catalog file and one file of block sets for each region.
// It knows nothing of how books are read.
#ifndef TESTS_SUPPORT_BOOKWRITER_H
#define TESTS_SUPPORT_BOOKWRITER_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/TempFolder.h"

namespace zavel::test {

// JIS X 0208, two bytes a character; ASCII becomes full-width. Of UTF-8.
std::string jis(std::string_view utf8);

// The reverse, for reading what a test found.
std::string fromJis(std::string_view jis);

std::string be16(uint32_t value);
std::string be32(uint32_t value);

// Packed decimal of `bytes` bytes, high digit first.
std::string bcd(uint32_t value, size_t bytes);

// One code of a block set: a match, then a byte.
std::string code(unsigned distance, unsigned length, uint8_t literal);

// A file of block sets that holds `blocks` (padded with zeroes to whole sets): each byte a code of its own.
std::string blockSetFile(std::string_view blocks);

// The same from sets that are made already: code count, fill byte, codes.
std::string blockSetFile(const std::vector<std::string>& sets);
std::string blockSet(uint8_t fill, std::string_view codes);

// A text: words, with the tags that every book has.
class Text {
 public:
  Text& word(uint32_t value);
  Text& raw(std::string_view bytes);
  Text& chars(std::string_view utf8) { return raw(jis(utf8)); }
  Text& begin() { return word(0x1F02); }
  Text& end() { return word(0x1F03); }
  Text& feed() { return word(0x1F0A); }
  Text& indent(unsigned depth);
  // Indent, keyword with the headword, line feed, body, line feed: what one entry of a book looks like.
  Text& entry(std::string_view headword, std::string_view body, unsigned argument = 1);
  Text& address(uint32_t block, uint32_t offset);

  const std::string& bytes() const { return bytes_; }
  size_t size() const { return bytes_.size(); }

 private:
  std::string bytes_;
};

// An index block of 2048 bytes. Records are appended as they come; each counts once.
class IndexBlock {
 public:
  explicit IndexBlock(uint8_t flags, uint8_t keyLength = 0) : flags_(flags), keyLength_(keyLength) {}

  IndexBlock& record(std::string_view bytes);
  // Bytes that no record counts.
  IndexBlock& loose(std::string_view bytes);
  // In place of the number of records.
  IndexBlock& count(uint16_t records);

  // Inner: key padded with zeroes to the block's key length, child.
  IndexBlock& inner(std::string_view key, uint32_t child);
  IndexBlock& closing(uint32_t child);
  // Fixed: key, body.
  IndexBlock& fixed(std::string_view key, uint32_t block, uint16_t offset);
  // Variable: key, body, and the headword where `headword` is given.
  IndexBlock& leaf(std::string_view key, std::string_view body, std::string_view headword = {});
  IndexBlock& tagged(uint8_t tag, std::string_view key, std::string_view behind);

  std::string bytes() const;

 private:
  uint8_t flags_;
  uint8_t keyLength_;
  uint16_t records_ = 0;
  std::string content_;
};

// Block and offset as a record has them: four bytes and two.
std::string place(uint32_t block, uint32_t offset);

class BookWriter {
 public:
  struct Region {
    uint16_t kind = 0;
    uint32_t start = 0;
    uint32_t end = 0;
    std::string flags = std::string(4, '\0');
    std::string name;
  };

  // What the header says.
  uint32_t version = 0x20001;
  std::string title = "Test";
  uint8_t contentType = 0;
  uint8_t minorVersion = 0;
  uint32_t identity = 1;
  uint8_t zenbun = 0;
  std::string largeIcon;
  std::string smallIcon;
  int recordCount = -1;  // -1: as many as there are
  int titleLength = -1;  // -1: as long as it is
  std::string magic = "HWEDINFO";

  // A region with its blocks, in a file "rN.dat" (N its number). `flags`: the four bytes of the record.
  BookWriter& region(uint16_t kind, uint32_t start, std::string_view blocks, std::string_view flags = {});
  // A record without a file of its own.
  BookWriter& record(const Region& region);
  // A file that a record names.
  BookWriter& file(const std::string& name, std::string_view bytes);
  // "EXINFO.INI".
  BookWriter& info(std::string_view text) { return file("EXINFO.INI", text); }

  // Writes all into `folder`. Result: the catalog's path.
  std::string write(const TempFolder& folder, const std::string& name = "BOOK") const;

  std::string header() const;
  std::string catalog() const;

 private:
  std::vector<Region> records_;
  std::vector<std::pair<std::string, std::string>> files_;
};

// Fills up with zeroes to whole blocks.
std::string padded(std::string bytes);

}  // namespace zavel::test

#endif
