// Tests: tests/engine/UserSetTest.cpp
#include "engine/MakeUserDic.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <vector>

#include "engine/DicFormat.h"
#include "engine/Frame.h"
#include "engine/Shim.h"
#include "foundation/ByteReader.h"
#include "foundation/Storage.h"

namespace zavel::engine {
namespace {

// The key bytes that normalised words are made of, in the order of signed bytes. Letters: what "&" becomes
// is letters too. Kana: the low bytes of ぁ (0x829F) to ん (0x82F1), into which katakana turns.
constexpr uint8_t kFirstLetter = 'a', kLastLetter = 'z';
constexpr uint8_t kFirstKana = 0x9F, kLastKana = 0xF1;

std::string Header(uint16_t kjiCount) {
  std::string header(kUserHeader, '\0');
  writeLE16(reinterpret_cast<uint8_t*>(header.data()) + kKjiCountOffset, kjiCount);
  return header;
}

void AppendTable(std::string& idx, const std::string& rows) {
  appendLE32(idx, static_cast<uint32_t>(rows.size()));
  appendLE32(idx, static_cast<uint32_t>(idx.size() + 4 + rows.size()));
  idx += rows;
}

void AppendTableC(std::string& idx, const std::string& rows) {
  appendLE32(idx, static_cast<uint32_t>(rows.size()));
  idx += rows;
}

// A row of table A or B: the key and the first child row.
void AppendLink(std::string& rows, uint8_t key, size_t child) {
  rows.push_back(static_cast<char>(key));
  appendLE16(rows, static_cast<uint16_t>(child));
}

// A row of table C without a block.
void AppendEmpty(std::string& rows, uint8_t key) {
  rows.push_back(static_cast<char>(key));
  appendLE32(rows, kNoBlockUser);
}

// One letter ends in B and C with key 0; so does two letters in C.
std::string PrefilledE() {
  std::string a, b, c;
  for (uint8_t first = kFirstLetter; first <= kLastLetter; ++first) {
    AppendLink(a, first, b.size() / kRowB);
    AppendLink(b, 0, c.size() / kRowC);
    AppendEmpty(c, 0);
    for (uint8_t second = kFirstLetter; second <= kLastLetter; ++second) {
      AppendLink(b, second, c.size() / kRowC);
      AppendEmpty(c, 0);
      for (uint8_t third = kFirstLetter; third <= kLastLetter; ++third) AppendEmpty(c, third);
    }
  }
  std::string idx = Header(0);
  AppendTable(idx, a);
  AppendTable(idx, b);
  AppendTableC(idx, c);
  return idx;
}

// Kana are negative as signed bytes, so the row of the ended word comes last.
std::string PrefilledKana() {
  std::string a, c;
  for (unsigned first = kFirstKana; first <= kLastKana; ++first) {
    AppendLink(a, static_cast<uint8_t>(first), c.size() / kRowC);
    for (unsigned second = kFirstKana; second <= kLastKana; ++second)
      AppendEmpty(c, static_cast<uint8_t>(second));
    AppendEmpty(c, 0);
  }
  std::string idx = Header(0);
  AppendTable(idx, a);
  AppendTableC(idx, c);
  return idx;
}

std::string EmptyKji(uint16_t kjiCount) {
  std::string idx = Header(kjiCount);
  AppendTable(idx, "");
  AppendTableC(idx, "");
  return idx;
}

// Bytes of a new file; empty for a number that is none.
std::string NewFile(uint16_t file, uint16_t kjiCount) {
  if (file == kFileEjIdx) return PrefilledE();
  if (file == kFileKnaIdx) return PrefilledKana();
  if (file == kFileKjiIdx) return EmptyKji(kjiCount);
  return file < kFileKjiIdx ? Header(0) : std::string();
}

struct NamedFile {
  UserFile file;
  std::string path;
};

void RemoveAll(const std::vector<NamedFile>& files) {
  for (const NamedFile& named : files) DeleteFile(named.path);
}

// Makes all files or none, also when memory runs out in between: half a set could never be opened again.
bool MakeAll(const std::vector<NamedFile>& files) {
  const auto there = [](const NamedFile& named) { return storage().exists(named.path); };
  if (std::any_of(files.begin(), files.end(), there)) return false;
  try {
    const auto make = [](const NamedFile& named) {
      return writeFileAtomically(named.path, NewFile(named.file, 0));
    };
    if (std::all_of(files.begin(), files.end(), make)) return true;
  } catch (const std::bad_alloc&) {
    RemoveAll(files);
    throw;
  }
  RemoveAll(files);
  return false;
}

}  // namespace

bool MakeUserDicE() {
  return MakeAll({{kFileEjDic, UserPathE("ej.dic")},
                  {kFileEjIx3, UserPathE("ej.ix3")},
                  {kFileEjIdx, UserPathE("ej.idx")}});
}

bool MakeUserDicJ() {
  return MakeAll({{kFileJeDic, UserPathJ("je.dic")},
                  {kFileKnaIx3, UserPathJ("kna.ix3")},
                  {kFileKjiIx3, UserPathJ("kji.ix3")},
                  {kFileKnaIdx, UserPathJ("kna.idx")},
                  {kFileKjiIdx, UserPathJ("kji.idx")}});
}

bool MkUserDicE(const std::string& path, uint16_t file) {
  return file <= kFileEjIdx && writeFileAtomically(path, NewFile(file, 0));
}

bool MkUserDicJ(const std::string& path, uint16_t file, uint16_t kjiCount) {
  return file >= kFileJeDic && file <= kFileKjiIdx && writeFileAtomically(path, NewFile(file, kjiCount));
}

}  // namespace zavel::engine
