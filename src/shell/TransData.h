// The row of the result list for the translation dictionary: what its helper tool answered.
#ifndef SHELL_TRANSDATA_H
#define SHELL_TRANSDATA_H

#include <cstdint>
#include <string>

#include "foundation/Export.h"
#include "platform/SjisBytes.h"
#include "platform/Value.h"

namespace zavel {

class ZAVEL_API TransData {
 public:
  // initWithIndexTitle:detailString:  Title and detail as text; not English.
  void initWithIndexTitle(const std::string& indexTitle, const std::string& detailString);

  // initWithIndexTitleData:detailOfFile:english:
  // Reads the tool's result file at `path`, a property list with "Search", a list, and "DictInfoJE", a map
  // from a dictionary's number to its path. English: the detail is the first element. Japanese: each text is
  // a word, each number opens a group with the name of the dictionary that its words are from. A file that
  // can't be read, or without "Search", leaves the detail empty. `title` is the query; `english` is its
  // language, which settles how the file is read and is kept.
  void initWithIndexTitleData(const SjisBytes& title, const std::string& path, bool english);

  // setIndexTitle:detailString:  Another title and detail, as text; the language flag stays as it was.
  void setIndexTitle(const std::string& indexTitle, const std::string& detailString);

  // The query that was answered.
  const std::string& indexTitle() const { return indexTitle_; }
  const std::string& detailString() const { return detailString_; }
  bool english() const { return english_ != 0; }
  // False: there is nothing to show, the row is thrown away.
  bool isAvailable() const { return !detailString_.empty(); }

  TransData copyWithZone() const { return *this; }

 private:
  void addWord(const std::string& word);
  void openGroup(const Value& number, const Value* paths);

  std::string indexTitle_;
  std::string detailString_;
  uint8_t english_ = 0;
};

}  // namespace zavel

#endif
