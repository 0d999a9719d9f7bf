// Tests: tests/zavel/user/UserExchangeTest.cpp
#include "user/ProgressLine.h"

#include <unistd.h>

#include <cstdio>

#include "JsonWriter.h"
#include "Terminal.h"

namespace zavel::host {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kBarFrom{500}, kBarStep{100}, kLineStep{5000};
constexpr size_t kBarWidth = 24;

}  // namespace

ProgressLine::ProgressLine(std::string stage, size_t total, const std::string& how)
    : stage_(std::move(stage)), total_(total) {
  if (how == "bar" || (how == "auto" && isTerminal(STDERR_FILENO))) how_ = kBar;
  if (how == "plain") how_ = kPlain;
  if (how == "json") how_ = kJson;
  next_ = start_ + (how_ == kBar ? kBarFrom : how_ == kPlain ? kLineStep : milliseconds{0});
}

ProgressLine::~ProgressLine() {
  if (how_ == kBar && drawn_) std::fputs("\r\033[K", stderr);
}

void ProgressLine::show(size_t done) {
  const Clock::time_point now = Clock::now();
  if (how_ == kNone || now < next_) return;
  next_ = now + (how_ == kPlain ? kLineStep : kBarStep);
  draw(done, std::chrono::duration<double>(now - start_).count());
}

void ProgressLine::draw(size_t done, double seconds) {
  if (how_ == kJson) {
    JsonWriter json;
    json.beginObject().member("event", "progress").member("stage", stage_);
    json.member("done", static_cast<int64_t>(done)).member("total", static_cast<int64_t>(total_)).endObject();
    std::fprintf(stderr, "%s\n", json.text().c_str());
    return;
  }
  const double rate = seconds > 0 ? static_cast<double>(done) / seconds : 0;
  const double left = rate > 0 ? static_cast<double>(total_ - done) / rate : 0;
  const size_t filled = total_ > 0 ? kBarWidth * done / total_ : 0;
  const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '-');
  const char* form = how_ == kBar ? "\r%s [%s] %zu of %zu, %.0f/s, %.0f s left\033[K"
                                  : "%s [%s] %zu of %zu, %.0f/s, %.0f s left\n";
  std::fprintf(stderr, form, stage_.c_str(), bar.c_str(), done, total_, rate, left);
  drawn_ = true;
}

}  // namespace zavel::host
