// New user sets: 128 zero bytes ahead of each file, no blocks, no entries, and the indexes as adding wants
// them: an English or kana index holds a row for every key prefix, so that adding only stores an offset;
// a kanji index starts empty, because the keys of kanji are too many.
#ifndef ENGINE_MAKEUSERDIC_H
#define ENGINE_MAKEUSERDIC_H

#include <cstdint>
#include <string>

namespace zavel::engine {

// The files of the user sets by number.
enum UserFile : uint16_t {
  kFileEjDic = 0,
  kFileEjIx3 = 1,
  kFileEjIdx = 2,
  kFileJeDic = 3,
  kFileKnaIx3 = 4,
  kFileKjiIx3 = 5,
  kFileKnaIdx = 6,
  kFileKjiIdx = 7,
};

// Makes the whole set at the user prefix. False when one of its files is there already, readable or not, or
// can't be written; nothing that was there is touched, and nothing new is left behind, also when
// std::bad_alloc is thrown.
bool MakeUserDicE();
bool MakeUserDicJ();

// Makes one empty file of a set at `path`, replacing what is there. `kjiCount` goes into the header of
// kji.idx as the number of continuation indexes. False for a number of the other set or a failed write.
bool MkUserDicE(const std::string& path, uint16_t file);
bool MkUserDicJ(const std::string& path, uint16_t file, uint16_t kjiCount);

}  // namespace zavel::engine

#endif
