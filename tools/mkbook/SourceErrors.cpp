// Tests: tests/mkbook/TextSourceTest.cpp
#include "mkbook/SourceErrors.h"

#include <algorithm>

#include "mkbook/Failure.h"

namespace zavel::mkbook {

void SourceErrors::add(size_t line, size_t column, const std::string& message) {
  if (++total_ <= kKept) kept_.push_back({line, column, message});
}

void SourceErrors::throwIfAny(const std::string& hint) const {
  if (total_ == 0) return;
  std::string message = std::to_string(total_) + (total_ == 1 ? " error in " : " errors in ") + path_;
  std::vector<Fault> ordered = kept_;
  std::stable_sort(ordered.begin(), ordered.end(), [](const Fault& a, const Fault& b) {
    return a.line != b.line ? a.line < b.line : a.column < b.column;
  });
  const size_t shown = std::min(ordered.size(), kShown);
  for (size_t i = 0; i < shown; ++i) {
    message += "\n" + path_ + ":" + std::to_string(ordered[i].line) + ":" +
               std::to_string(ordered[i].column) + ": " + ordered[i].message;
  }
  if (total_ > shown) message += "\nand " + std::to_string(total_ - shown) + " more";
  throw Failure(mkdict::kExitDamaged, "damaged_input", message, hint);
}

}  // namespace zavel::mkbook
