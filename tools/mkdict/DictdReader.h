// Reads a dictionary in dictd form: an index of "word TAB offset TAB length" lines with numbers in base 64,
// and a text file, plain or as dictzip, which is a gzip file that may be read from any chunk on. It is read
// whole here.
#ifndef MKDICT_DICTDREADER_H
#define MKDICT_DICTDREADER_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::mkdict {

class DictdReader {
 public:
  struct Entry {
    std::string word;  // as the index files it: UTF-8, folded and without most signs
    size_t offset;     // bytes in text()
    size_t length;
  };

  // Reads both files. False with a sentence in *error when a file can't be read, the text is no sound gzip
  // stream or longer than 256 MB, a line of the index is no index line or leads outside the text, or the
  // index is cut short: its last line does not end, or it leads to less than nine tenths of the text. The
  // reader is then empty.
  bool open(const std::string& indexPath, const std::string& textPath, std::string* error);

  const std::vector<Entry>& entries() const { return entries_; }  // in the order of the index
  std::string_view text() const { return text_; }
  std::string_view textOf(const Entry& entry) const {
    return std::string_view(text_).substr(entry.offset, entry.length);
  }

  // A number of the index: digits A-Z a-z 0-9 + /, the most significant first; 1 to 6 of them.
  static std::optional<uint64_t> number(std::string_view digits);

  // The content of a gzip file of one or more members; nothing when it is damaged, cut short or longer than
  // `limit`.
  static std::optional<std::string> unzip(std::string_view gzip, size_t limit);

 private:
  bool readIndex(std::string_view index, std::string* error);
  bool coversText() const;

  std::vector<Entry> entries_;
  std::string text_;
};

}  // namespace zavel::mkdict

#endif
