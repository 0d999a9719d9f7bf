// The index of a dictd dictionary, searched where it stands on the disk.
#ifndef DICTTOOL_DICTDINDEX_H
#define DICTTOOL_DICTDINDEX_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "dicttool/WordFold.h"
#include "foundation/Storage.h"

namespace zavel::dicttool {

// One line: "word TAB offset TAB length", numbers in base 64, perhaps a further TAB and the word as it is
// spelled.
struct IndexLine {
  std::string_view word;      // as filed; borrowed, valid while the line is looked at
  std::string_view spelling;  // the fourth column, else the word
  uint64_t offset = 0;        // of the entry in the text, bytes
  uint64_t length = 0;

  // Nothing for a line of another form. `line` stands without its line feed.
  static std::optional<IndexLine> parse(std::string_view line);
};

// A number of the index: digits A-Z a-z 0-9 + /, the most significant first; 1 to 6 of them.
std::optional<uint64_t> indexNumber(std::string_view digits);
std::string indexNumberText(uint64_t number);

class DictdIndex {
 public:
  // Opens the file and reads what its 00-database headwords say. False with a sentence in *error, which names
  // the path.
  bool open(const std::string& path, std::string* error);

  // Calls `visit` for each line filed under `word` (UTF-8), in the order of the file, until it answers false.
  // False with a sentence in *error when a line on the way is no index line.
  bool find(std::string_view word, const std::function<bool(const IndexLine&)>& visit, std::string* error);

  // Whether a headword "00-database-OPTION" stands in it, which is given without its hyphens: "utf8",
  // "mimeheader", "virtual".
  uint64_t size() const { return size_; }  // bytes
  bool hasOption(const std::string& option) const { return options_.count(option) > 0; }
  FoldRules rules() const { return rules_; }
  const std::string& path() const { return path_; }

 private:
  using LineVisitor = std::function<bool(std::string_view line)>;

  void readOptions(FoldRules rules, std::string_view prefix);
  std::optional<uint64_t> firstLine(std::string_view folded, FoldRules rules);
  std::optional<uint64_t> lineStart(uint64_t from);
  std::optional<std::string_view> lineAt(uint64_t start);
  bool visitLines(uint64_t start, const LineVisitor& visit);
  bool fill(uint64_t offset, size_t wanted);
  std::string_view filled(uint64_t offset) const;

  std::string path_;
  std::unique_ptr<StorageFile> file_;
  uint64_t size_ = 0;
  FoldRules rules_;
  std::set<std::string> options_;
  std::string block_;  // the piece of the file that was read last
  uint64_t blockStart_ = 0;
};

}  // namespace zavel::dicttool

#endif
