// A first-level index of a user dictionary, read from its file as far as recovery needs it: whether it is
// sound, and which blocks it leads to. docs/formats.md has the pictures.
#ifndef ZAVEL_USER_USERINDEX_H
#define ZAVEL_USER_USERINDEX_H

#include <cstdint>
#include <string>
#include <vector>

namespace zavel::host {

class UserIndex {
 public:
  // `type` as the engine numbers index types: 1 English, 2 kana, 3 kanji.
  UserIndex(const std::string& path, uint16_t type);

  // Whether the file could be read and its tables lie inside it.
  bool sound() const { return sound_; }
  // The number that the header of a first kanji index has for further ones.
  uint16_t furtherIndexes() const { return further_; }
  // Offsets of the blocks, in the order of the rows.
  const std::vector<uint32_t>& blocks() const { return blocks_; }

 private:
  bool read(const std::string& bytes, uint16_t type);

  bool sound_ = false;
  uint16_t further_ = 0;
  std::vector<uint32_t> blocks_;
};

// How far the live part of a file of blocks or of entries reaches. `ix3` is the path of the blocks that
// `indexes` lead to. Raises *ix3End to the end of the last live block and *lastEntry to the offset of the
// last live entry. False when a block doesn't lie inside the file.
bool measureBlocks(const std::string& ix3, const std::vector<UserIndex>& indexes, uint64_t* ix3End,
                   uint32_t* lastEntry);

// The end of the entry at `offset` of an entry file, told by its lines: each begins with a tag, the first
// alone with that of a headword, and ends in a line feed. Nothing behind the last whole line belongs to it.
// False when no entry stands there.
bool measureEntry(const std::string& dic, uint32_t offset, uint64_t* end);

}  // namespace zavel::host

#endif
