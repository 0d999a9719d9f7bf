// Which words the sources' own English prose uses. Several spellings of a form are possible for many words
// ("traveled", "travelled"; "formulas", "formulae"); those that occur in some definition are taken.
#ifndef MKDICT_ATTESTED_H
#define MKDICT_ATTESTED_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zavel::mkdict {

class Attested {
 public:
  // Counts the words of a text: runs of ASCII letters, as they are, capitals at the start of a run made
  // small. Parts of a hyphenated word and of one with an apostrophe don't count: "broad-leaved" says
  // nothing of "leaved".
  void read(std::string_view text);

  uint32_t count(std::string_view word) const;  // word in small letters
  bool has(std::string_view word) const { return count(word) > 0; }
  size_t size() const { return words_.size(); }

 private:
  std::unordered_map<std::string, uint32_t> words_;
};

}  // namespace zavel::mkdict

#endif
