// The run loop on Linux, on a module that is loaded when a first source or turn is asked for.
#ifndef PORT_LINUX_BASE_LINUXRUNLOOP_H
#define PORT_LINUX_BASE_LINUXRUNLOOP_H

#include <exception>
#include <functional>
#include <map>
#include <memory>

#include "platform/RunLoop.h"

struct ZavelLoopModule;

namespace zavel {

// The loop is GLib's default one, which other parts of the port share. Where the module is missing (one line
// in the log tells so) no source is ever ready and runUntil() doesn't wait.
//
// An exception that leaves a callback leaves runUntil() when the turn is over; of several in one turn the
// first.
class LinuxRunLoop : public RunLoop {
 public:
  LinuxRunLoop() = default;
  ~LinuxRunLoop() override;
  LinuxRunLoop(const LinuxRunLoop&) = delete;
  LinuxRunLoop& operator=(const LinuxRunLoop&) = delete;

  TimerId startTimer(double seconds, bool repeats, std::function<void()> fired) override;
  void stopTimer(TimerId timer) override { stop(timer); }
  bool runUntil(const std::function<bool()>& done, double seconds = -1) override;

  // For the port: calls `ready` in every turn in which `descriptor` (borrowed) has one of poll()'s `events`,
  // an error or a hang-up, until it is stopped.
  TimerId watch(int descriptor, int events, std::function<void()> ready);
  void stop(TimerId source);

  // Whether there is a module.
  bool works() { return module() != nullptr; }

 private:
  struct Source;

  const ZavelLoopModule* module();
  TimerId add(std::shared_ptr<Source> source, uint32_t number);
  static int call(void* source, int events);
  void turn();

  const ZavelLoopModule* module_ = nullptr;
  bool loaded_ = false;
  TimerId last_ = 0;
  std::map<TimerId, std::shared_ptr<Source>> sources_;
  std::exception_ptr thrown_;  // by a callback of the turn under way
};

}  // namespace zavel

#endif
