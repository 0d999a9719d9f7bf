// Tells what a build is doing, and carries the wish to stop it.
#ifndef MKDICT_PROGRESS_H
#define MKDICT_PROGRESS_H

#include <csignal>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

namespace zavel::mkdict {

class Progress {
 public:
  enum class Style {
    kNone,   // silent
    kBar,    // one line on a terminal, from half a second on, wiped at the end
    kPlain,  // a line each five seconds, for logs
    kJson,   // {"event":"progress","stage":"...","done":1,"total":9} at each stage and each second
  };
  using Clock = std::function<double()>;  // seconds since any fixed moment

  Progress() = default;  // silent
  // `out` is borrowed. An empty clock means the system's steady one.
  Progress(Style style, std::ostream& out, Clock clock = {}, unsigned columns = 79);

  // Begins a stage; a `total` of 0 means that its size is not known.
  void stage(const std::string& name, uint64_t total = 0);
  // How much of the stage is done. Cheap enough to be called for each entry.
  void advance(uint64_t done);
  // Ends the last stage; a bar is wiped.
  void finish();

  // A flag that a signal handler sets, borrowed. Long loops ask cancelled() and return when it is true.
  void watch(const volatile std::sig_atomic_t* stopFlag) { stopFlag_ = stopFlag; }
  bool cancelled() const { return stopFlag_ != nullptr && *stopFlag_ != 0; }

 private:
  bool due(double now) const;
  void show(double now);
  std::string barLine(double now) const;

  Style style_ = Style::kNone;
  std::ostream* out_ = nullptr;  // borrowed
  Clock clock_;
  unsigned columns_ = 79;
  const volatile std::sig_atomic_t* stopFlag_ = nullptr;  // borrowed

  std::string stage_;
  uint64_t done_ = 0, total_ = 0;
  double begun_ = 0, stageBegun_ = 0, shown_ = 0;
  uint64_t nextLook_ = 0;  // the clock is read only from here on
  bool barVisible_ = false, started_ = false;
};

}  // namespace zavel::mkdict

#endif
