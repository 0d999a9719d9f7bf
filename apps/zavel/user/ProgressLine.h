// How far a long piece of work is, on standard error.
#ifndef ZAVEL_USER_PROGRESSLINE_H
#define ZAVEL_USER_PROGRESSLINE_H

#include <chrono>
#include <cstddef>
#include <string>

namespace zavel::host {

class ProgressLine {
 public:
  // `how`: "auto" is "bar" on a terminal and nothing elsewhere; "bar" redraws one line from half a second on,
  // "plain" writes a line every five seconds, "json" an object each time.
  ProgressLine(std::string stage, size_t total, const std::string& how);
  // Takes the bar away.
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void show(size_t done);

 private:
  using Clock = std::chrono::steady_clock;
  void draw(size_t done, double seconds);

  std::string stage_;
  size_t total_;
  enum { kNone, kBar, kPlain, kJson } how_ = kNone;
  Clock::time_point start_ = Clock::now(), next_;
  bool drawn_ = false;
};

}  // namespace zavel::host

#endif
