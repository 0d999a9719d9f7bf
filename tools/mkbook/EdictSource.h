// EDICT as the source of a book.
#ifndef MKBOOK_EDICTSOURCE_H
#define MKBOOK_EDICTSOURCE_H

#include <string>
#include <vector>

#include "mkbook/BookSource.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// Entries come in the order of their readings, hiragana and katakana the same. The headword is the written
// form and the reading in 【】, and both are words that lead to the entry; each sense is a line, its codes
// emphasised.
class EdictSource : public BookSource {
 public:
  // `path`: EDICT's own form, EUC-JP. Throws Failure.
  EdictSource(const std::string& path, mkdict::Summary* summary);

  size_t size() const override { return lines_.size(); }
  BookEntry entry(size_t number) const override;
  // With the words of the translations.
  std::vector<std::string> keywords(size_t number) const override;
  std::string title() const override { return "EDICT"; }
  std::string publisher() const override;

 private:
  std::vector<std::string> lines_;  // UTF-8, sound ones
  std::string date_;
};

}  // namespace zavel::mkbook

#endif
