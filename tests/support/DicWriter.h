// Writes dictionaries for tests: whole basic sets by a few verbs, and any part of one wrongly on purpose.
// Independent of the compiler under tools/, so that the two check each other.
#ifndef TESTS_SUPPORT_DICWRITER_H
#define TESTS_SUPPORT_DICWRITER_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

namespace zavel::test {

// UTF-8 literal to Shift_JIS bytes for entry text and words; fails the test on a character it lacks.
std::string sjis(std::string_view utf8);

// The way back.
std::string utf8(std::string_view sjis);

// A tag's two bytes.
std::string tag(uint16_t value);

// An English entry as the user functions lay it out: D1 B1 word C1 LF D3 "-[" hinsi "]" LF D4 imi LF.
std::string entryE(std::string_view word, std::string_view hinsiUtf8, std::string_view imiUtf8);

// An English entry in the form that conjugation reads: D1 (F4B5 number) F4D0 headword-field LF
// D3 "-" hinsi-line LF D4 imi LF. Bytes but for the meaning; `headwordField` may hold 0xA5 syllable marks,
// stars and "≦...≧".
std::string entryForKatuyo(std::string_view number, std::string_view headwordField,
                           std::string_view hinsiLine, std::string_view imiUtf8);

// A Japanese entry: D1 kana (1B kanji) LF D4 imi LF. kanji may be empty. All three in UTF-8.
std::string entryJ(std::string_view kanaUtf8, std::string_view kanjiUtf8, std::string_view imi);

// Rows of one index: key (normalised) to entry offset, equal keys in the order they were added.
struct IndexRow {
  std::string key;
  uint32_t offset;
};

// Bytes of the two index files for `rows` of an index type (1 to 5). Rows are sorted as the format
// demands: by signed bytes (kanji by unsigned pairs), zeros where a word ended. `userHeader` puts 128 zero
// bytes ahead of both.
struct IndexFiles {
  std::string idx;
  std::string ix3;
};
IndexFiles writeIndex(uint16_t type, std::vector<IndexRow> rows, bool userHeader = false);

// One third-level block from remainders (used as given, not sorted) and entry offsets.
std::string writeBlock(const std::vector<std::string>& remainders, const std::vector<uint32_t>& offsets);

// A record of katu.dic from its plain text "{went:過,...}" (Shift_JIS), scrambled.
std::string scramble(std::string_view plain);

// A whole basic set in the making. Offsets are those the entries get in their .dic file.
class DicWriter {
 public:
  uint32_t addE(std::string_view word, std::string_view entry);     // files `entry` under `word`
  void aliasE(std::string_view word, uint32_t offset);              // a further row to an entry
  void addHase(std::string_view form, uint32_t offset);             // derived form -> entry in ej.dic
  void addKatu(std::string_view form, std::string_view plainUtf8);  // conjugated form -> brace list
  uint32_t addJ(std::string_view kanaUtf8, std::string_view kanjiUtf8, std::string_view entry);

  // The thirteen files by name.
  std::map<std::string, std::string> files() const;
  // Writes them into `folder` (made if missing); `folder` + "/" is then the prefix for InitAPI.
  void write(const std::string& folder) const;

 private:
  std::string ejDic_, jeDic_, katuDic_;
  std::vector<IndexRow> ej_, hase_, katu_, je_, ke_;
};

void writeFile(const std::string& path, std::string_view bytes);
std::string readFile(const std::string& path);

// A block list taken apart and freed: records of SerchMidasi*, of SerchImi*, of GetKatuyo (first byte of
// each record the form code).
std::vector<std::string> takeLines(void* list, uint32_t size);
std::vector<std::string> takeEntries(void* list, uint32_t size);
std::vector<std::pair<int, std::string>> takeForms(void* list, uint32_t size);

}  // namespace zavel::test

#endif
