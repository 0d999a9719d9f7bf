// How often the words of an EDICT file take part in others: of the names that read たなか, 田中 begins
// hundreds of further entries, and 多中 hardly any. What has compounds is what people say.
#ifndef DICTTOOL_EDICTCOMPOUNDS_H
#define DICTTOOL_EDICTCOMPOUNDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::dicttool {

class EdictCompounds {
 public:
  // The next entry: its written form and its reading, which is empty for a word in kana. UTF-8.
  void add(std::string_view written, std::string_view reading);

  // Counts, after the last of them.
  void count();

  // Of the entry that was added as number `entry`, from 0 on: the longer ones that begin or end with it,
  // written form and reading alike.
  size_t of(size_t entry) const { return entries_[entry].compounds; }

 private:
  struct Entry {
    size_t offset = 0;                  // of the written form in text_; the reading follows
    uint32_t written = 0, reading = 0;  // bytes
    uint32_t compounds = 0;
  };

  std::string_view writtenOf(const Entry& entry) const;
  std::string_view readingOf(const Entry& entry) const;
  void countBeginnings();
  void turnAround();

  std::string text_;
  std::vector<Entry> entries_;
};

}  // namespace zavel::dicttool

#endif
