// A form of several fields that a book can be searched by: definition, lists of choices and indexes, all in
// one region (docs/book-format.md, "Multi searches").
#ifndef MKBOOK_MULTISEARCHWRITER_H
#define MKBOOK_MULTISEARCHWRITER_H

#include <cstdint>
#include <string>
#include <vector>

#include "book/BookTypes.h"
#include "mkbook/BookSource.h"
#include "mkbook/CustomCharacters.h"
#include "mkbook/IndexBuilder.h"

namespace zavel::mkbook {

class MultiSearchWriter {
 public:
  // `characters` is borrowed. Throws std::length_error for a form whose definition is longer than a block, or
  // a label of more than 15 characters.
  MultiSearchWriter(const MultiSearch& form, CustomCharacters& characters);

  // Files what an entry has in each field.
  void add(const std::vector<std::vector<std::string>>& values, const _SDICADDRESS& entry);

  // After the last add().
  void settle();
  uint32_t blocks() const;
  void write(uint32_t first, RegionFile& file) const;

 private:
  struct Field {
    std::string label;  // codes
    std::vector<Choice> choices;
    uint32_t listBlocks;  // of the choices
    IndexBuilder index;
  };

  std::string definition(uint32_t first) const;
  std::string choiceLists(const std::vector<Choice>& choices, uint32_t first) const;

  CustomCharacters& characters_;
  std::vector<Field> fields_;
};

}  // namespace zavel::mkbook

#endif
