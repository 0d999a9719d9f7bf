// What is wrong with a file that a person wrote: all of it at once, each with its place.
#ifndef MKBOOK_SOURCEERRORS_H
#define MKBOOK_SOURCEERRORS_H

#include <cstddef>
#include <string>
#include <vector>

namespace zavel::mkbook {

class SourceErrors {
 public:
  static constexpr size_t kShown = 20;
  static constexpr size_t kKept = 1000;

  explicit SourceErrors(std::string path) : path_(std::move(path)) {}

  // `line` and `column` count from 1, columns in characters. The first thousand are kept.
  void add(size_t line, size_t column, const std::string& message);

  size_t total() const { return total_; }

  // Throws Failure when there are any: "2 errors in words.txt", then a line "words.txt:12:7: ..." for each
  // of the first twenty, in the order of the file.
  void throwIfAny(const std::string& hint) const;

 private:
  std::string path_;
  struct Fault {
    size_t line, column;
    std::string message;
  };
  std::vector<Fault> kept_;
  size_t total_ = 0;
};

}  // namespace zavel::mkbook

#endif
