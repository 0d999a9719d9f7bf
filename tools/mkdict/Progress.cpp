#include "mkdict/Progress.h"

#include <chrono>
#include <cstdio>
#include <utility>

namespace zavel::mkdict {
namespace {

constexpr double kBarAfter = 0.5, kBarEvery = 0.1, kPlainEvery = 5, kJsonEvery = 1;
constexpr uint64_t kLookEvery = 256;  // reading the clock for each entry would cost more than the entry

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::string countOf(uint64_t done, uint64_t total) {
  return std::to_string(done) + (total == 0 ? "" : " of " + std::to_string(total));
}

}  // namespace

Progress::Progress(Style style, std::ostream& out, Clock clock, unsigned columns)
    : style_(style), out_(&out), clock_(clock ? std::move(clock) : steadySeconds), columns_(columns) {}

void Progress::stage(const std::string& name, uint64_t total) {
  if (style_ == Style::kNone) return;
  const double now = clock_();
  if (!started_) begun_ = shown_ = now;
  started_ = true;
  stage_ = name;
  done_ = nextLook_ = 0;
  total_ = total;
  stageBegun_ = now;
  if (style_ == Style::kJson || due(now)) show(now);
}

void Progress::advance(uint64_t done) {
  if (style_ == Style::kNone) return;
  done_ = done;
  if (done < nextLook_) return;
  nextLook_ = done + kLookEvery;
  const double now = clock_();
  if (due(now)) show(now);
}

void Progress::finish() {
  if (style_ == Style::kJson && started_) show(clock_());
  if (barVisible_) *out_ << "\r" << std::string(columns_, ' ') << "\r" << std::flush;
  barVisible_ = started_ = false;
}

bool Progress::due(double now) const {
  switch (style_) {
    case Style::kBar:
      return now - begun_ >= kBarAfter && (!barVisible_ || now - shown_ >= kBarEvery);
    case Style::kPlain:
      return now - shown_ >= kPlainEvery;
    case Style::kJson:
      return now - shown_ >= kJsonEvery;
    case Style::kNone:
      break;
  }
  return false;
}

void Progress::show(double now) {
  shown_ = now;
  if (style_ == Style::kBar) {
    std::string line = barLine(now);
    line.resize(columns_, ' ');
    *out_ << "\r" << line << std::flush;
    barVisible_ = true;
  } else if (style_ == Style::kPlain) {
    *out_ << stage_ << ": " << countOf(done_, total_) << "\n" << std::flush;
  } else {
    *out_ << "{\"event\":\"progress\",\"stage\":\"" << stage_ << "\",\"done\":" << done_
          << ",\"total\":" << total_ << "}\n"
          << std::flush;
  }
}

// "reading EDICT: 120000 of 267381, 480000/s, 1 s left".
std::string Progress::barLine(double now) const {
  std::string line = stage_;
  if (total_ != 0 || done_ != 0) line += ": " + countOf(done_, total_);
  const double spent = now - stageBegun_;
  if (done_ == 0 || spent <= 0) return line;
  const double rate = static_cast<double>(done_) / spent;
  line += ", " + std::to_string(static_cast<uint64_t>(rate)) + "/s";
  if (total_ <= done_) return line;
  const double left = static_cast<double>(total_ - done_) / rate;
  return line + ", " + std::to_string(static_cast<uint64_t>(left + 0.5)) + " s left";
}

}  // namespace zavel::mkdict
