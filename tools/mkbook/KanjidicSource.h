// KANJIDIC as the source of a book.
#ifndef MKBOOK_KANJIDICSOURCE_H
#define MKBOOK_KANJIDICSOURCE_H

#include <string>
#include <string_view>
#include <vector>

#include "mkbook/BookSource.h"
#include "mkdict/Summary.h"

namespace zavel::mkbook {

// One line of KANJIDIC, taken apart. All text UTF-8.
struct Kanji {
  std::string character;
  std::string jis, unicode, radical, classical, grade, strokes, frequency,
      level;  // as the file has them; may be empty
  std::vector<std::string> on, kun, names, radicalNames, meanings;

  // False for a line of another form.
  static bool parse(std::string_view line, Kanji* out);
};

// Entries come in the order of the file. A kanji is found by itself, its readings (without the signs that
// part the ending) and its meanings.
class KanjidicSource : public BookSource {
 public:
  // `path`: KANJIDIC's own form, EUC-JP. Throws Failure.
  KanjidicSource(const std::string& path, mkdict::Summary* summary);

  size_t size() const override { return kanji_.size(); }
  BookEntry entry(size_t number) const override;
  // Radical, strokes and grade as a whole, to be chosen; readings and meanings by their beginnings.
  std::vector<MultiSearch> forms() const override;
  std::vector<std::vector<std::string>> fieldValues(size_t number, size_t form) const override;
  std::string title() const override { return "KANJIDIC"; }
  std::string publisher() const override;

 private:
  std::vector<Choice> choicesOf(std::string Kanji::*number) const;

  std::vector<Kanji> kanji_;
};

}  // namespace zavel::mkbook

#endif
