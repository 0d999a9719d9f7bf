// Writes one index of the basic set: the first-level tables and the third-level blocks.
#ifndef MKDICT_INDEXWRITER_H
#define MKDICT_INDEXWRITER_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zavel::mkdict {

// One word to be found, by its key.
struct IndexRow {
  std::string key;     // as engine/ChangeMidasi.h makes it
  uint32_t entry = 0;  // number of the entry it leads to, in the order of the source
  uint32_t rank = 0;   // 0 the most frequent; 32 more weigh half as much where a table is full
};

// Why a row could not be filed.
enum class RowFault {
  kEmptyKey,   // the word consists of dropped characters only
  kBadKey,     // a NUL in it, or half a character
  kFullBlock,  // the block of its prefix holds more frequent words up to its 65,535 bytes
  kFullTable,  // the tables hold 65,534 more frequent prefixes
};

class IndexWriter {
 public:
  using LeftOut = std::function<void(const IndexRow&, RowFault)>;

  // `type` 1 to 5, see engine/DicFormat.h.
  explicit IndexWriter(uint16_t type) : type_(type) {}

  void add(IndexRow row) { rows_.push_back(std::move(row)); }

  // Sorts the rows as readers search them, drops repeats, and leaves out what passes a limit of the format:
  // the least frequent rows of a block, the prefixes with the least frequent words. After this rows() is
  // the order of the file. A call for each row left out.
  void arrange(const LeftOut& leftOut);
  const std::vector<IndexRow>& rows() const { return rows_; }
  size_t prefixes() const;  // distinct key prefixes, each with a block

  struct Files {
    std::string idx;
    std::string ix3;
  };
  // The two files, after arrange(). offsets[entry] is where an entry stands in the .dic file.
  Files write(const std::vector<uint32_t>& offsets) const;

  // The prefix of a key, filled with zeros up to the length of its type.
  static std::string prefixOf(uint16_t type, const std::string& key);
  // The rest of a key.
  static std::string remainderOf(uint16_t type, const std::string& key);
  // Order of two prefixes of one type: single bytes signed, the two-byte characters of kanji unsigned.
  static int comparePrefixes(uint16_t type, const std::string& a, const std::string& b);

 private:
  // Rows with one prefix: [begin, end).
  struct Group {
    size_t begin, end;
  };
  bool before(const IndexRow& a, const IndexRow& b) const;
  std::vector<Group> groups() const;
  void refuseBadKeys(const LeftOut& leftOut);
  void limitBlocks(const LeftOut& leftOut);
  void limitTables(const LeftOut& leftOut);
  void keepOnly(const std::vector<bool>& keep, RowFault fault, const LeftOut& leftOut);

  std::string block(const Group& group, const std::vector<uint32_t>& offsets) const;
  std::string tables(const std::vector<Group>& groups, const std::vector<uint32_t>& blockOffsets) const;

  uint16_t type_;
  std::vector<IndexRow> rows_;
};

}  // namespace zavel::mkdict

#endif
