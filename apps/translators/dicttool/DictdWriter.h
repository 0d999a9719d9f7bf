// Writes a dictionary in dictd form, index and plain text.
#ifndef DICTTOOL_DICTDWRITER_H
#define DICTTOOL_DICTDWRITER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Storage.h"

namespace zavel::dicttool {

// The text goes to a temporary file as it comes, the index is sorted in memory; finish() puts both in place.
// Destroyed before that, it leaves what stood there and no temporary behind. The same calls give the same
// bytes.
class DictdWriter {
 public:
  static constexpr unsigned kRanks = 1u << 12;

  // `base` is the path without ".index" and ".dict"; its folder exists.
  explicit DictdWriter(std::string base);

  // `path` without an ending ".index" or ".dict".
  static std::string withoutEnd(std::string path);

  ~DictdWriter();
  DictdWriter(const DictdWriter&) = delete;
  DictdWriter& operator=(const DictdWriter&) = delete;

  // Adds an entry (UTF-8, with its line end). The words that lead to it follow by addWord().
  bool addEntry(std::string_view text);

  // Files the entry added last under `word` (UTF-8), which is folded here. Among the entries of one word a
  // lower rank (below kRanks) comes first, then the order in which they were added. A word that folds to
  // nothing is passed over.
  void addWord(std::string_view word, unsigned rank);

  // Writes the index and puts both files in place. While the one replaces the other there is no index, so
  // that nobody ever reads the new text by the old one. False when a file can't be written.
  bool finish();

  size_t words() const { return rows_.size(); }  // lines of the index so far
  std::string indexPath() const { return base_ + ".index"; }

 private:
  struct Row {
    uint64_t word : 40;  // place of the folded word in folded_
    uint64_t wordLength : 12;
    uint64_t rank : 12;
    uint64_t offset : 40;
    uint64_t length : 24;
  };

  struct Output {
    std::unique_ptr<StorageFile> file;
    std::string path;
    std::string pending;
    uint64_t written = 0;
  };

  bool open(Output& output);
  bool append(Output& output, std::string_view bytes);
  bool close(Output& output);
  void remove(Output& output);
  std::string_view wordOf(const Row& row) const;
  bool writeIndex();
  bool putInPlace();

  std::string base_, folder_;
  Output text_, index_;
  std::string folded_;  // all words, one behind the other
  std::vector<Row> rows_;
  uint64_t entryOffset_ = 0, entryLength_ = 0;
  size_t entryRow_ = 0;  // the first row of the entry added last
};

}  // namespace zavel::dicttool

#endif
