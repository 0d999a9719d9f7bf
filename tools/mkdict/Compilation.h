// What the sources yield and the writer files: the whole basic set in memory, ahead of its binary form.
#ifndef MKDICT_COMPILATION_H
#define MKDICT_COMPILATION_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "mkdict/Summary.h"

namespace zavel::mkdict {

// Text is Shift_JIS bytes (code page 932) with tags, as engine/DicFormat.h names them.

// One English entry. `text` begins with the entry tag and ends with 0x0A.
struct EnglishEntry {
  std::string word;   // headword, only characters that ChkMidasiStrE accepts
  std::string text;   // the entry, under 65,535 bytes
  uint32_t rank = 0;  // 0 the most frequent; decides which rows stay where a block is full
};

// A word without an entry of its own that leads to others.
struct DerivedForm {
  std::string form;
  std::vector<size_t> entries;  // indexes into Compilation::english
  uint32_t rank = 0;
};

// One irregular paradigm, filed under each of its forms. `items` reads "go:現,goes:三,..." in Shift_JIS,
// without braces, and with them fits 512 bytes.
struct KatuRecord {
  std::vector<std::string> forms;
  std::string items;
};

// One Japanese entry, filed under its reading and its written form.
struct JapaneseEntry {
  std::string kana;        // reading, filed if ChkMidasiStrJ accepts it, else empty
  std::string kanji;       // written form, filed if ChkMidasiStrK accepts it, else empty
  std::string text;        // as in EnglishEntry
  uint32_t rank = 0;       // as in EnglishEntry, among readings
  uint32_t kanjiRank = 0;  // the same among written forms
};

// One source of the set, for the list of sources that stands beside the files. All UTF-8.
struct Source {
  std::string name;     // "EDICT"
  std::string version;  // as the data itself says, may be empty
  std::string licence;  // "CC BY-SA 3.0, (c) ..."
  std::string used;     // "Japanese entries"
};

struct Compilation {
  std::vector<Source> sources;
  std::vector<EnglishEntry> english;
  std::vector<DerivedForm> derived;
  std::vector<KatuRecord> katu;
  std::vector<JapaneseEntry> japanese;
  Summary summary;  // what was taken, changed and left out, and why
};

}  // namespace zavel::mkdict

#endif
