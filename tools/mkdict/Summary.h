// The account of a build: how many of what, and why they were left out or changed.
#ifndef MKDICT_SUMMARY_H
#define MKDICT_SUMMARY_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zavel::mkdict {

class Summary {
 public:
  // A plain figure, such as ("English entries", 41234). Kept in the order of first mention.
  void figure(const std::string& name, uint64_t value);

  // Counts one more under a figure.
  void count(const std::string& name, uint64_t by = 1);

  // One thing left out or changed: `reason` groups, the first few `samples` of each reason are kept, equal
  // ones once, or with `every` all of them, of which text() shows the first few. All UTF-8.
  void leftOut(const std::string& reason, const std::string& sample, bool every = false);

  uint64_t valueOf(const std::string& name) const;  // 0 when never mentioned
  uint64_t leftOutCount(const std::string& reason) const;

  // The summary as the tool prints it, and as JSON. Deterministic.
  std::string text() const;
  std::string json() const;

 private:
  struct Reason {
    std::string name;
    uint64_t count = 0;
    std::vector<std::string> samples;  // at most five, or every one
    bool more = false;                 // whether there were others than those kept
  };
  std::vector<std::pair<std::string, uint64_t>> figures_;
  std::vector<Reason> reasons_;
};

}  // namespace zavel::mkdict

#endif
