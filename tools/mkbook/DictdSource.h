// Any dictionary in dictd form as the source of a book.
#ifndef MKBOOK_DICTDSOURCE_H
#define MKBOOK_DICTDSOURCE_H

#include <string>
#include <string_view>
#include <vector>

#include "mkbook/BookSource.h"
#include "mkdict/DictdReader.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// Entries come in the order of the text. What several words of the index lead to is one entry. The headword
// is the beginning of the text's first line that is one of those words, whatever signs and accents stand in
// it; where there is none, the word is put ahead of the text. "{word}" in the text is a reference, also over
// line ends. Words that begin with "00-database" or "00database" tell about the dictionary and are no
// entries. Text that isn't UTF-8 is taken for Latin-1.
class DictdSource : public BookSource {
 public:
  // `index` names the index; the text is beside it with the ending ".dict" or ".dict.dz". Throws Failure.
  DictdSource(const std::string& index, mkdict::Summary* summary);

  size_t size() const override { return entries_.size(); }
  BookEntry entry(size_t number) const override;
  std::string title() const override { return title_; }
  std::string publisher() const override { return publisher_; }

 private:
  struct Place {
    size_t offset, length;
    std::vector<std::string> words;
  };

  void collect(mkdict::Summary* summary);
  std::string about(std::string_view what) const;

  mkdict::DictdReader reader_;
  std::vector<Place> entries_;
  std::string title_, publisher_;
};

// The lines of a definition: blanks at their beginnings become indents, "{word}" references.
std::vector<Line> dictdLines(std::string_view text);

// How much of `line` is one of `words`: the longest beginning that is, compared by letters and digits alone,
// small and capital the same. 0 for none.
size_t headwordLength(std::string_view line, const std::vector<std::string>& words);

}  // namespace zavel::mkbook

#endif
