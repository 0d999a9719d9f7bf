// Tests: tests/mkbook/BuildTest.cpp
#include "mkbook/WordKeys.h"

#include "book/BookFormat.h"
#include "mkbook/IndexBuilder.h"
#include "mkbook/JisTable.h"

namespace zavel::mkbook {

std::vector<std::string> spellings(std::string_view word, CustomCharacters& characters) {
  std::vector<std::string> out = {characters.codes(word)};
  if (const std::string typed = typedForm(word); !typed.empty() && typed != out[0]) out.push_back(typed);
  return out;
}

void WordTable::add(std::string_view codes, size_t entry) {
  const std::string key = IndexBuilder::keyOf(book::kKindExact, kPlainKeys, codes);
  if (!key.empty()) entries_.emplace(key, static_cast<uint32_t>(entry));
}

int64_t WordTable::find(std::string_view codes) const {
  const auto found = entries_.find(IndexBuilder::keyOf(book::kKindExact, kPlainKeys, codes));
  return found == entries_.end() ? -1 : int64_t{found->second};
}

}  // namespace zavel::mkbook
