// Checks a .dic file: its entries one after the other, and whether a row leads to the right one.
#ifndef MKDICT_ENTRYCHECK_H
#define MKDICT_ENTRYCHECK_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mkdict/Faults.h"

namespace zavel::mkdict {

class EntryCheck {
 public:
  // `dic` is borrowed; `name` is the file's, "ej.dic".
  EntryCheck(const std::string& name, std::string_view dic, Faults* faults)
      : name_(name), dic_(dic), faults_(faults) {}

  // Finds the entries and checks their text: tags that the format knows, whole characters, lines that end.
  void run();

  // Marks the entry at `offset` as one that a row leads to. Null, or why it is none.
  const char* reach(uint32_t offset);
  // Reports the entries that no row leads to.
  void reportUnreached();

  size_t entries() const { return starts_.size(); }
  // The text of the entry at `offset`, which reach() has accepted.
  std::string_view entry(uint32_t offset) const;

  // The word of an English entry as it is to be normalised: the headword line without tags, homograph
  // number, syllable marks, stars and pronunciation, up to "," "[" or "《".
  static std::string wordE(std::string_view entry);
  // Reading and written form of a Japanese entry, views of it; without a separator both are the whole line.
  static std::string_view kana(std::string_view entry);
  static std::string_view kanji(std::string_view entry);

 private:
  void checkText(size_t begin, size_t end);
  size_t behindSound(size_t at, size_t end);
  size_t checkCharacter(size_t at, size_t end, bool headLine);

  std::string name_;
  std::string_view dic_;          // borrowed
  Faults* faults_;                // borrowed
  std::vector<uint32_t> starts_;  // offsets of the entries, rising
  std::vector<bool> reached_;
};

}  // namespace zavel::mkdict

#endif
