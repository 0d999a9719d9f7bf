// What is wrong with a set of files: where, and in what way.
#ifndef MKDICT_FAULTS_H
#define MKDICT_FAULTS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zavel::mkdict {

struct Fault {
  std::string file;     // "ej.ix3"
  uint64_t offset = 0;  // bytes from its beginning
  std::string message;

  std::string text() const { return file + " at " + std::to_string(offset) + ": " + message; }
};

class Faults {
 public:
  static constexpr size_t kKept = 100;

  // Counts a fault; the first hundred are kept.
  void add(const std::string& file, uint64_t offset, const std::string& message) {
    if (++total_ <= kKept) kept_.push_back({file, offset, message});
  }

  const std::vector<Fault>& kept() const { return kept_; }
  uint64_t total() const { return total_; }

 private:
  std::vector<Fault> kept_;
  uint64_t total_ = 0;
};

}  // namespace zavel::mkdict

#endif
