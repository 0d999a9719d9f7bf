// One index of a book: words and where they lead, filed as the book engine looks for them.
#ifndef MKBOOK_INDEXBUILDER_H
#define MKBOOK_INDEXBUILDER_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/Catalog.h"
#include "mkbook/RegionFile.h"

namespace zavel::mkbook {

// Katakana as hiragana, no signs, and nothing else folded: か is not が. Capitals and small letters are the
// same to every comparison; kept as they come in searches, since the engine goes on to an index's very end
// behind capital keys.
inline constexpr IndexFlags kPlainKeys = {0, 0x31, 0x7F, 0x7F};

class IndexBuilder {
 public:
  // `kind`: 0x30, 0x40, 0x60 whole words; 0x70 to 0x72 word ends; 0x90 to 0x92 word beginnings; 0xA1 values
  // of a form's field. `flags` must drop ・ ’ － (flags[1] & 0x0C is 0): keys that hold them are looked for
  // at places that depend on them and compared as if they were not there. Throws std::invalid_argument
  // otherwise.
  explicit IndexBuilder(uint16_t kind, const IndexFlags& flags = kPlainKeys);

  // An index of a form's field, where keys are looked for as they are typed, signs and all.
  static IndexBuilder ofField(uint16_t kind);

  // Files a word, in JIS (custom characters are codes as others). A search takes in 62 characters: of a
  // longer word the first ones are filed, for word ends the last 127. False for a word that leaves no key:
  // signs alone.
  bool add(std::string_view word, const _SDICADDRESS& body, const _SDICADDRESS& headword);

  // Sorts what was added, the same key of the same body once. Then no more add().
  void settle();

  size_t size() const { return records_.size(); }
  uint32_t blocks() const;  // after settle()
  uint16_t kind() const { return kind_; }
  const IndexFlags& flags() const { return flags_; }

  // The index, its root at block `first`. After settle(); `file` was made for blocks() blocks.
  void write(uint32_t first, RegionFile& file) const;

  // What a search makes of a word that is asked for: without the signs that queries have for their own ends,
  // and no more of it than it takes in.
  static std::string queryOf(uint16_t kind, std::string_view word);

  // The key that an index of this kind holds for a word; empty for none.
  static std::string keyOf(uint16_t kind, const IndexFlags& flags, std::string_view word);

 private:
  struct Record {
    uint64_t key;  // place in keys_
    uint8_t length;
    _SDICADDRESS body, headword;
  };

  // One level of the tree: the last record of each block, and what the blocks hold.
  struct Level {
    std::vector<size_t> ends;  // one behind the last record or child of each block
    size_t keyLength = 0;      // of inner blocks
  };

  std::string_view keyAt(size_t record) const;
  size_t recordSize(const Record& record) const;
  bool hasHeadwords() const;
  bool isGrouped() const;
  void layLeaves();
  void layInner();
  size_t lastRecord(size_t level, size_t block) const;
  std::string inner(size_t level, size_t block, uint32_t childrenFirst) const;
  std::string leaf(size_t block) const;

  uint16_t kind_;
  IndexFlags flags_;
  bool asTyped_ = false;
  std::string keys_;
  std::vector<Record> records_;
  std::vector<Level> levels_;  // the leaves first
};

}  // namespace zavel::mkbook

#endif
