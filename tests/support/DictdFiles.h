// Small dictionaries in dictd form, for tests.
#ifndef TESTS_SUPPORT_DICTDFILES_H
#define TESTS_SUPPORT_DICTDFILES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zavel::test {

// Collects the two files of a dictionary. The words go into the index as they are given, in the order in
// which they are given: a test that wants them filed rightly files them rightly.
class DictdFiles {
 public:
  // An entry and the words that lead to it.
  DictdFiles& entry(std::string_view text, const std::vector<std::string>& words);
  // A headword such as "00databaseutf8".
  DictdFiles& option(const std::string& word) { return entry("", {word}); }
  // A line of the index as it stands, without its end.
  DictdFiles& line(const std::string& bytes);

  // Sorts the lines of the index by their bytes.
  DictdFiles& sorted();

  std::string index() const;  // whole file
  const std::string& text() const { return text_; }

  // BASE.index and BASE.dict, or BASE.dict.dz with chunks of that many bytes.
  void write(const std::string& base) const;
  void writePacked(const std::string& base, size_t chunkLength = 58315) const;

 private:
  std::vector<std::string> lines_;
  std::string text_;
};

// `text` as dictzip packs it: a gzip file, flushed after each `chunkLength` bytes, whose header tells how
// long each packed chunk is. With `name`, the former file name stands in the header too.
std::string dictzip(std::string_view text, size_t chunkLength, const std::string& name = "");

// An ordinary gzip file.
std::string plainGzip(std::string_view text);

// A number of the index in base 64.
std::string dictdNumber(size_t number);

}  // namespace zavel::test

#endif
