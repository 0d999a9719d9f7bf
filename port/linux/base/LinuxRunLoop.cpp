// Tests: tests/port/LinuxRunLoopTest.cpp
#include "base/LinuxRunLoop.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/PortModule.h"
#include "loop/LoopModule.h"

namespace zavel {
namespace {

constexpr double kLongestTimer = 4e6;  // seconds, some 46 days: what fits 32 bits of milliseconds

uint32_t toMilliseconds(double seconds, bool repeats) {
  const double least = repeats ? 1 : 0;  // one that is always ready would leave no time for the others
  if (!(seconds > 0)) return static_cast<uint32_t>(least);
  return static_cast<uint32_t>(std::max(least, std::ceil(std::min(seconds, kLongestTimer) * 1000)));
}

}  // namespace

struct LinuxRunLoop::Source {
  LinuxRunLoop* loop;
  TimerId id = 0;
  uint32_t number = 0;  // the module's
  bool repeats;
  std::function<void()> called;
};

LinuxRunLoop::~LinuxRunLoop() {
  while (!sources_.empty()) stop(sources_.begin()->first);
}

RunLoop::TimerId LinuxRunLoop::startTimer(double seconds, bool repeats, std::function<void()> fired) {
  auto source = std::make_shared<Source>(Source{this, 0, 0, repeats, std::move(fired)});
  if (!module()) return ++last_;
  const uint32_t wait = toMilliseconds(seconds, repeats);
  return add(source, module()->addTimer(wait, &LinuxRunLoop::call, source.get()));
}

RunLoop::TimerId LinuxRunLoop::watch(int descriptor, int events, std::function<void()> ready) {
  auto source = std::make_shared<Source>(Source{this, 0, 0, true, std::move(ready)});
  if (!module()) return ++last_;
  return add(source, module()->addWatch(descriptor, events, &LinuxRunLoop::call, source.get()));
}

RunLoop::TimerId LinuxRunLoop::add(std::shared_ptr<Source> source, uint32_t number) {
  source->id = ++last_;
  source->number = number;
  sources_[source->id] = source;
  return source->id;
}

void LinuxRunLoop::stop(TimerId id) {
  const auto found = sources_.find(id);
  if (found == sources_.end()) return;
  const std::shared_ptr<Source> source = found->second;  // its callback may hold what ends others
  sources_.erase(found);
  module()->removeSource(source->number);
}

int LinuxRunLoop::call(void* data, int) {
  LinuxRunLoop& loop = *static_cast<Source*>(data)->loop;
  const TimerId id = static_cast<Source*>(data)->id;
  const std::shared_ptr<Source> source = loop.sources_.at(id);
  if (!source->repeats) loop.stop(id);
  try {
    source->called();
  } catch (...) {
    if (!loop.thrown_) loop.thrown_ = std::current_exception();
  }
  return source->repeats && loop.sources_.contains(id);
}

bool LinuxRunLoop::runUntil(const std::function<bool()>& done, double seconds) {
  if (!module()) return done();
  bool tooLate = false;
  const TimerId limit = seconds < 0 ? 0 : startTimer(seconds, false, [&tooLate] { tooLate = true; });
  struct Stop {
    ~Stop() { loop.stop(timer); }
    LinuxRunLoop& loop;
    TimerId timer;
  } const stopLimit{*this, limit};
  for (;;) {
    if (done()) return true;
    if (tooLate) return false;
    turn();
  }
}

void LinuxRunLoop::turn() {
  // A turn may begin inside a callback of another one, which has an exception of its own to tell.
  const std::exception_ptr outer = std::exchange(thrown_, nullptr);
  module()->turn();
  const std::exception_ptr thrown = std::exchange(thrown_, outer);
  if (thrown) std::rethrow_exception(thrown);
}

const ZavelLoopModule* LinuxRunLoop::module() {
  if (loaded_) return module_;
  loaded_ = true;
  const auto get = reinterpret_cast<ZavelLoopGet>(loadPortModule(ZAVEL_LOOP_FILE, ZAVEL_LOOP_SYMBOL));
  const ZavelLoopModule* found = get ? get() : nullptr;
  if (found && found->version == kZavelLoopVersion) module_ = found;
  return module_;
}

}  // namespace zavel
