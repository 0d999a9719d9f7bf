// A first-level index of a user dictionary, read from its file without the engine and without trust in it:
// whether it is sound, and which blocks it leads to. docs/formats.md has the pictures.
#ifndef ZAVEL_USER_USERINDEX_H
#define ZAVEL_USER_USERINDEX_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::host {

class UserIndex {
 public:
  // `type` as the engine numbers index types: 1 English, 2 kana, 3 kanji.
  UserIndex(const std::string& path, uint16_t type);

  // Whether the file could be read, whatever is in it.
  bool readable() const { return readable_; }
  // Whether its tables lie inside it and have the rows that they must have, in order. Readings and English
  // words have all rows from the beginning.
  bool sound() const { return sound_; }
  // Whether it has at least the size of one, or its tables: it was an index once.
  bool shaped() const { return shaped_; }
  // The number that the header of a first kanji index has for further ones.
  uint16_t furtherIndexes() const { return further_; }
  // A fingerprint of the file's bytes.
  uint64_t hash() const { return hash_; }

  // A row that has a block: the beginning that its words share, as the index spells it, and where the block
  // stands.
  struct Row {
    std::string key;
    uint32_t block = 0;
  };
  // In the order of the index.
  const std::vector<Row>& rows() const { return rows_; }

 private:
  bool read(const std::string& bytes, uint16_t type);
  void readRows(std::string_view tableA, std::string_view tableB, std::string_view tableC, uint16_t type);

  bool readable_ = false;
  bool sound_ = false;
  bool shaped_ = false;
  uint16_t further_ = 0;
  uint64_t hash_ = 0;
  std::vector<Row> rows_;
};

// The end of the entry that begins `text`, told by its lines: each begins with a tag, the first alone with
// that of a headword, and ends in a line feed. Nothing behind the last whole line belongs to it. 0 when no
// entry stands there.
size_t entryEnd(std::string_view text);

}  // namespace zavel::host

#endif
